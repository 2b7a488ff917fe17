#pragma once

#include <string>

#include "app/types.h"
#include "files/load_status.h"

namespace trendaro {

struct Model;

// Reads the description of a file for `channel` (from 1; 0 for the file alone). The status also goes to
// LastDatabaseStatus.
LoadStatus load_dataset_header(Model& model, const std::string& path, i16 channel);

// The samples that stand behind the stored points of a channel: what a reduced file stores is counted in
// samples of its measurement file. 0 for a channel that the file read last does not have.
i64 original_points(const Model& model, i16 channel);

}  // namespace trendaro
