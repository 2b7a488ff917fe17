#pragma once

#include <string>

namespace trendaro {

// Why a command of the command line may not write `target`, German; empty when it may. A target that is the
// source itself is refused always, any other one that exists unless `force` is set.
std::string target_refusal(const std::string& source, const std::string& target, bool force);

}  // namespace trendaro
