#pragma once

#include "app/types.h"

namespace trendaro {

// The result of LoadMeasurementFile. Any value beyond the named ones is the number of a run-time error that
// was caught while reading, never 0.
enum class [[nodiscard]] LoadStatus : i16{
    Done = 0,
    ReadFailed = -99,        // reading values failed; LoadMeasurementFile has shown the message
    NotOpened = -100,        // the file could not be opened
    NotMeasurement = -1000,  // no id, or an id that is not of the family
};

}  // namespace trendaro
