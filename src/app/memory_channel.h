#pragma once

#include <span>
#include <string>

#include "app/types.h"
#include "files/sample_array.h"

namespace trendaro {

// One channel of the embedded database. It takes memory when it is filled, not before.
struct MemoryChannel {
  std::string name, unit, comment;
  SampleArray samples;      // index from 0; its size is the current length
  f64 date = 0;             // date stamp, a day number
  f64 sample_interval = 0;  // milliseconds between samples; 0 where nobody told it
  i16 export_selected = 0;
};

// The length of a channel as the database counts it.
i32 channel_length(const MemoryChannel& channel);

// Adds samples at the end as far as `capacity` allows. Returns whether all of them fitted.
bool append_samples(MemoryChannel& channel, std::span<const f64> values, i32 capacity);

// Cuts the channel or fills it up with zeros. False, and nothing done, for a length outside of 0 to capacity.
bool set_length(MemoryChannel& channel, i32 length, i32 capacity);

// Takes away samples, texts, date and interval, and gives the memory back. The selection stays.
void empty_channel(MemoryChannel& channel);

}  // namespace trendaro
