#pragma once

#include <string>

#include "app/types.h"

namespace trendaro {

struct Model;

// Stands for any value that is missing.
inline constexpr char kNotAvailable[] = "Nicht verfügbar";

// The kernel's word for a hardware parameter; its status goes to LastDatabaseStatus. Without a kernel, or
// when the kernel refuses, the number itself.
std::string TranslateParameterId(Model& model, i16 id);

// The word for a parameter as a user reads it; an id of 0 is not available.
std::string parameter_word(Model& model, i16 id);

}  // namespace trendaro
