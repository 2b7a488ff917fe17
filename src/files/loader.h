#pragma once

#include <string>

#include "app/types.h"
#include "files/load_status.h"

namespace trendaro {

struct Model;

// The one way to a measurement file: recognises it by its first word and fills the model's LoaderResult.
//
// `mode` 0 description only; 1 also the values of `channel` into FileChannelValues; 2 those values into
// database channel `databaseChannel` through the model's DatabaseKernel. `channel` is 1-based; a number that
// the file does not have selects nothing and is no error. `databaseChannel` is 0 outside of mode 2.
//
// A read failure in the values of a standard file shows its message through the model's Shell. The file is
// closed on every way out, and nothing is thrown.
LoadStatus LoadMeasurementFile(Model& model, i16 mode, const std::string& path, i16 channel,
                               i32 databaseChannel);

}  // namespace trendaro
