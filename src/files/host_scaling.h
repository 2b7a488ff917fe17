#pragma once

#include <vector>

#include "files/channel_info_rows.h"
#include "files/channel_records.h"

namespace trendaro {

// How the host scales a channel, in words: the row "Mervan Skalierung" and the rows of its coefficients.
std::vector<ChannelInfoRow> host_scaling_rows(const ChannelExtraRecord& extra);

}  // namespace trendaro
