#pragma once

#include <QVariant>

#include "app/host.h"

namespace trendaro {

// A value of the host as it travels on the bus: texts as "s", numbers as "n", "i" or "d", booleans as "b",
// inside of a variant.
QVariant bus_variant(const HostValue& value);

// The way back. Throws RunTimeError{kTypeMismatch} for any other type.
HostValue host_value(const QVariant& variant);

// The text of a path. A path that is no UTF-8 cannot travel: throws RunTimeError{kInvalidArgument}.
QString bus_path(const std::string& path);

}  // namespace trendaro
