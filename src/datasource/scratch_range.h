#pragma once

#include "app/types.h"

namespace trendaro {

class HostDatabase;

// The channel, from 1, at which the first run of ten free database channels starts. Among the last ten
// channels any free one ends the search, and the run it belongs to is taken. 1 where there is none.
// Throws RunTimeError when the host refuses.
i16 first_free_run(HostDatabase& database, i16 channels);

}  // namespace trendaro
