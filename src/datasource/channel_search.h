#pragma once

#include <string_view>

#include "app/types.h"

namespace trendaro {

struct ChannelRows;

// The first shown channel at or behind row `from` whose name begins with `beginning` (UTF-8, not regarding
// case); behind the end the search goes on at the top. 0 when there is none, or for an empty beginning.
i32 find_channel(const ChannelRows& list, i32 from, std::string_view beginning);

}  // namespace trendaro
