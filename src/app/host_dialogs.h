#pragma once

#include "app/memory_channel.h"
#include "app/one_based.h"
#include "app/shell.h"

namespace trendaro {

// The dialogs of the embedded host.

// Asks for the size of the database of these channels, and once more where samples would not fit into it.
// Returns `size` when the user cancelled or wants to keep the samples.
DatabaseSize ask_size(Shell& shell, const OneBased<MemoryChannel>& channels, const DatabaseSize& size);

// Asks for a file and writes the channels that are selected for the export into it. A name that ends in
// ".TXT" or ".CSV" gets a table: a line of names, a line of units, then a line for each sample, with tabs or
// ";" between the columns; a shorter channel leaves its cells empty. Any other gets a standard file, and one
// without an extension ".BIN".
void export_channels(Shell& shell, const OneBased<MemoryChannel>& channels);

}  // namespace trendaro
