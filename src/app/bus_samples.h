#pragma once

#include <QDBusUnixFileDescriptor>
#include <span>

#include "app/types.h"

namespace trendaro {

// Samples travel as a descriptor of a file in memory that holds them as little-endian f64 from its first
// byte. The messages of the bus carry the descriptor alone.

// A file that holds the samples. Throws RunTimeError{kOutOfMemory} when there is no room.
QDBusUnixFileDescriptor samples_to_send(std::span<const f64> values);

// Copies the samples of such a file from sample `first` on, from 0, into `values`, as many as both have, and
// returns their number. Throws RunTimeError{kTypeMismatch} for a descriptor of anything but a file,
// {kDeviceError} when it cannot be read.
i64 receive_samples(const QDBusUnixFileDescriptor& file, i64 first, std::span<f64> values);

// How many whole samples such a file holds. Throws as receive_samples.
i64 samples_in(const QDBusUnixFileDescriptor& file);

}  // namespace trendaro
