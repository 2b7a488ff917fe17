#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace trendaro {

// Divides a path at its last "\" or "/" into folder and bare file name. A path without one gives an empty
// folder and the path as name. The separator belongs to neither.
void SplitFileName(std::string_view path, std::string& folder, std::string& name);

// Folder and name with the separator that the folder already uses ("/" where it has none). An empty folder
// gives the name alone.
std::string join_path(std::string_view folder, std::string_view name);

// The pieces between the "." of a whole path, folders included: a "." in a folder name counts as well. Always
// at least one piece; index 0 is the text ahead of the first ".".
std::vector<std::string> split_at_dots(std::string_view path);

// Piece `index` of split_at_dots in upper case, empty where there is none.
std::string upper_piece(std::string_view path, std::size_t index);

// The text behind the last "." in upper case, empty where there is none.
std::string upper_extension(std::string_view path);

// Upper case of the letters A to Z; other characters stay.
std::string upper(std::string_view text);

// Equal but for the case of the letters A to Z.
bool equal_ignoring_case(std::string_view a, std::string_view b);

// The text without blanks at its ends / at its right end.
std::string_view trimmed(std::string_view text);
std::string_view right_trimmed(std::string_view text);

}  // namespace trendaro
