#pragma once

#include "app/memory_channel.h"
#include "app/one_based.h"
#include "app/shell.h"

namespace trendaro {

// The dialogs of the embedded host.

// Asks how many samples a channel of the database takes. Returns `capacity` when the user cancelled or typed
// no number from 1 to kLargestCapacity.
i32 ask_capacity(Shell& shell, i32 capacity);
inline constexpr i32 kLargestCapacity = 100000000;

// Asks for a file and writes the channels that are selected for the export into it as a table: a line of
// names, a line of units, then a line for each sample, with tabs between the columns. A shorter channel
// leaves its cells empty.
void export_channels(Shell& shell, const OneBased<MemoryChannel>& channels);

}  // namespace trendaro
