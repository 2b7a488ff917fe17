#include "files/recorder_name.h"

#include "app/paths.h"
#include "app/text_codepage.h"

namespace trendaro {
namespace {

// What stands between the quotes. The field's last character goes with its first, whatever it is.
std::string_view quoted_text(std::string_view field) {
  if (field.size() < 2 || field.front() != '"') return {};
  const std::string_view inner = field.substr(1, field.size() - 2);
  return trimmed(inner.substr(0, inner.find('"')));
}

}  // namespace

RecorderName split_recorder_name(std::string_view field, i32 entry_channel, i32 sub_channel) {
  const std::string_view text = quoted_text(field);
  const std::size_t semicolon = text.find(';');
  RecorderName result;
  if (semicolon != std::string_view::npos && semicolon > 0) {
    result.name = utf8_from_codepage(text.substr(0, semicolon));
    result.comment = utf8_from_codepage(text.substr(semicolon + 1));
  } else {
    result.name = utf8_from_codepage(text);
  }

  const std::string number = std::to_string(entry_channel);
  if (result.name.empty()) result.name = "TLQ CH " + number + "." + std::to_string(sub_channel);
  if (entry_channel == kTimeChannel) result.name = "TLQ " + number + " (Zeitkanal)";
  if (entry_channel == kTimeCarryChannel) result.name = "TLQ " + number + " (Zeitkanal Übertrag)";
  return result;
}

}  // namespace trendaro
