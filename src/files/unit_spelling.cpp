#include "files/unit_spelling.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "app/paths.h"

namespace trendaro {
namespace {

constexpr std::string_view kDegree = "\u00B0";
constexpr std::string_view kMicro = "\u00B5";
constexpr std::string_view kDeviceDegree = "\u00F8";
constexpr std::string_view kDeviceMicro = "\u00E6";

struct Spelling {
  std::string_view device, display;
};

constexpr std::array<Spelling, 20> kSpellings = {{
    {"MV/V", "mV/V"}, {"VIN", "V in"},  {"MA", "mA"},   {"NC", "nC"},     {"OHM", "Ohm"},
    {"KHZ", "kHz"},   {"uM/M", "µm/m"}, {"uM", "µm"},   {"KIMP", "kImp"}, {"G", "g"},
    {"NM", "Nm"},     {"MM", "mm"},     {"BAR", "bar"}, {"MBAR", "mbar"}, {"HPAS", "HPas"},
    {"KT", "kT"},     {"KN", "kN"},     {"PPM", "ppm"}, {"KG", "kg"},     {"S", "s"},
}};

// Puts `with` in place of the first `what`; false when there is none.
bool replace_first(std::string& text, std::string_view what, std::string_view with) {
  const std::size_t place = text.find(what);
  if (place == std::string::npos) return false;
  text.replace(place, what.size(), with);
  return true;
}

std::size_t character_count(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char byte) { return (static_cast<u8>(byte) & 0xC0) != 0x80; }));
}

std::string display_spelling(std::string text) {
  std::replace(text.begin(), text.end(), '\0', ' ');
  text = trimmed(text);
  const auto* listed = std::find_if(kSpellings.begin(), kSpellings.end(),
                                    [&](const Spelling& spelling) { return spelling.device == text; });
  if (listed != kSpellings.end()) return std::string(listed->display);

  if (replace_first(text, kDeviceDegree, kDegree)) return text;
  if (replace_first(text, kDeviceMicro, kMicro)) return text;
  // The device writes "p" where the degree sign belongs.
  if (replace_first(text, "pC", std::string(kDegree) + "C")) return text;
  replace_first(text, "pF", std::string(kDegree) + "F");
  return text;
}

std::string device_spelling(std::string text) {
  const std::size_t length = character_count(text);
  if (length < 4) text.insert(0, 4 - length, ' ');
  replace_first(text, kDegree, kDeviceDegree);
  replace_first(text, kMicro, kDeviceMicro);
  return text;
}

}  // namespace

std::string ConvertUnitSpelling(std::string_view text, i16 toDisplay) {
  return toDisplay != 0 ? display_spelling(std::string(text)) : device_spelling(std::string(text));
}

}  // namespace trendaro
