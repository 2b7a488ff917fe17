#pragma once

namespace trendaro {

struct Model;

// Appends the rows of the live channels: a group row for each `Reduc` channels and one for the rest, each
// with its channel rows. The live layout has its heading ahead of them, and pictures by the channels' source.
void append_group_rows(Model& model);

}  // namespace trendaro
