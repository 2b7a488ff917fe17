#include "datasource/channel_search.h"

#include <algorithm>

#include "datasource/channel_rows.h"

namespace trendaro {
namespace {

// Small letter of a byte. Letters like "Ä" are two bytes, 0xC3 and one that tells the case; the
// multiplication sign lies among them.
char small_letter(char byte, char before) {
  const auto code = static_cast<unsigned char>(byte);
  if (code >= 'A' && code <= 'Z') return static_cast<char>(code + 0x20);
  const bool letter = static_cast<unsigned char>(before) == 0xC3 && code >= 0x80 && code <= 0x9E;
  return letter && code != 0x97 ? static_cast<char>(code + 0x20) : byte;
}

bool begins_with(std::string_view name, std::string_view beginning) {
  if (name.size() < beginning.size()) return false;
  char before = 0;
  for (std::size_t i = 0; i < beginning.size(); ++i) {
    if (small_letter(name[i], before) != small_letter(beginning[i], before)) return false;
    before = name[i];
  }
  return true;
}

}  // namespace

i32 find_channel(const ChannelRows& list, i32 from, std::string_view beginning) {
  const i32 count = list.MaxRows();
  if (count == 0 || beginning.empty()) return 0;
  const i32 first = std::clamp(from, 1, count + 1);
  for (i32 step = 0; step < count; ++step) {
    const i32 number = (first - 1 + step) % count + 1;
    const ChannelRow& row = list.rows[number];
    if (is_channel(row.kind) && !row.hidden && begins_with(row.name, beginning)) return number;
  }
  return 0;
}

}  // namespace trendaro
