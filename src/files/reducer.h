#pragma once

#include <string>

#include "app/types.h"
#include "files/progress.h"

namespace trendaro {

// The result of ReduceStandardFile.
enum class [[nodiscard]] ReduceStatus : i16{
    Done = 0,
    Failed = -1,           // a file could not be opened, read or written, or a number does not fit its field
    NotStandard = -1000,   // no id, or one that the reducer does not take
    OutdatedForm = -2000,  // ids 5004 to 5009
};

// The words for a status, German; empty for Done.
std::string reduce_status_text(ReduceStatus status);

// Pairs that `samples` values give with `block` values to a pair. A rest of one or two values joins the last
// block, any other rest is a block of its own. Negative where `samples` is.
i32 pair_count(i32 samples, i32 block);

// Writes the source, a standard file of id 5010 to 5012 or a block file of id 5056, to `target` with each run
// of `block` values (at least 1) replaced by its minimum and maximum in the order of occurrence.
//
// The target is created once the source is open; an existing one is written over from its start and is not
// cut. After a failure it stays as far as it got. The source is never written to: a target that is the same
// file gives Failed. Memory does not grow with a standard file; of a block file the pairs are kept. Nothing
// is thrown. `progress` is told at each whole percent of the source.
ReduceStatus ReduceStandardFile(const std::string& source, const std::string& target, i32 block,
                                const Progress& progress);

}  // namespace trendaro
