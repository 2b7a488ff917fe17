#pragma once

#include <string>

namespace trendaro {

// The folder of the executable, absolute, without a separator at its end. Empty when it cannot be told.
std::string program_folder();

// Where files of the program's own are kept between runs: the folder of the executable, or, where that cannot
// be written, "trendaro" in the user's state folder, which is made when it is missing.
std::string template_folder();

// The user's folder for that, whether it exists or not.
std::string state_folder();

}  // namespace trendaro
