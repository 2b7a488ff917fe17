#pragma once

#include <string>

namespace trendaro {

struct Model;

// Appends the rows of the file whose header was loaded last: its file row, then one row for each signal. Of a
// reduced recording ("STO", "ST1", "ST2") two stored channels make one signal. Throws RunTimeError when the
// header does not hold what its channel count claims; the rows added up to there stay.
void append_file_rows(Model& model, const std::string& path);

// True for the extensions of a reduced recording, told from the piece behind the first "." of the path.
bool is_reduced_pair_name(const std::string& path);

}  // namespace trendaro
