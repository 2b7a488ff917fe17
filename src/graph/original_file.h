#pragma once

#include <string>

#include "app/types.h"

namespace trendaro {

struct Model;

// The texts of the plot handled last. A plot whose Title names no file goes by those of the plot before.
struct OriginalSearch {
  std::string signal;
  std::string file;             // the reduced file
  bool block_names = true;      // files "REB" have originals as well
  bool block_name_met = false;  // one was found
};

// Finds the original file of plot `number` (OriginalFileNames): the measurement file beside the reduced one,
// by its extension. Names of another kind leave the entry as it was. Leaves in OriginalFileMissing whether
// the file is missing; one that is there lowers MissingFileReported.
void find_original(Model& model, i16 number, OriginalSearch& search);

// Tells the user, once until a file is found again, that the original of the last plot is missing.
void report_missing_original(Model& model, bool block_name_met);

// Writes into the status bar again, behind a redraw, that the original of what is on show is missing; nothing
// where the user has not been told.
void show_missing_original(Model& model);

}  // namespace trendaro
