#pragma once

#include <string>

#include "app/types.h"
#include "files/progress.h"

namespace trendaro {

// The result of WriteSectionFile.
enum class [[nodiscard]] SectionStatus : i16{
    Done = 1,
    NotOpened = -1,        // a file could not be opened, or both names mean the same file
    Failed = -10,          // something went wrong while copying; the target stays as far as it got
    NotRecording = -1000,  // no recording of raw samples, reduced or not, or unreadable; the target is empty
};

// What the user is told; empty for Done.
std::string section_failure_text(SectionStatus status);

// Copies the rows `firstRow` (from 0) to `firstRow + rowCount - 1` of a recording of raw samples into a new
// recording, with the same channels and settings and the date of the first row. An existing target is
// replaced.
//
// A row is as wide as the channel table is long: one signal an entry. The header of the section names
// `rowCount` rows even where the source has fewer; the missing ones are zero bytes, but a number of rows far
// beyond the source is a failure, as no reader would take the section. A reduced recording has
// another header, and its section is of no use. Comments that the source lacks are zero bytes too. `progress`
// is told at each whole percent of the rows.
SectionStatus WriteSectionFile(const std::string& source, const std::string& target, i32 firstRow,
                               i32 rowCount, const Progress& progress = untold);

}  // namespace trendaro
