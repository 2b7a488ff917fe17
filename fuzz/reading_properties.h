#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>

namespace trendaro::fuzz {

// The i16 at the start of an input, 0 where it is shorter.
int file_id(std::span<const std::uint8_t> input);

// Loads the input as a measurement file in every mode and as ranges, for a few channels, and requires that
// the answers agree with each other.
void check_reading(std::span<const std::uint8_t> input);

}  // namespace trendaro::fuzz
