#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "app/types.h"

namespace trendaro {

// The two recordings of a walk, and what may happen to an original while its envelope is on show.
enum class WalkFile : u8 { Long, Short };
enum class OriginalState : u8 { Whole, Cut, Gone };
using OriginalStates = std::array<OriginalState, 2>;

// The section as a user would reckon it with pencil and paper, in display points from the start.
struct ZoomReckoning {
  // Display points of the long recording, 5 samples each, up to the first one of its last block: the survey
  // ends there.
  static constexpr f64 kAll = 3998;
  static constexpr i32 kBlock = 5;

  f64 low = 0, high = kAll;
  f64 least = 0, most = kAll;  // data in the survey
  f64 survey_padding = 0;      // at both ends of a zoomed survey
  i32 points = 0;              // of the section when it was taken
  bool zoomed = false, original = false;
  i32 bound = 10000;
  i64 first = 0, count = 0;     // imported samples
  OriginalStates files{};       // as they are now
  OriginalStates imported{};    // as they were when the samples on show were brought in
  std::vector<WalkFile> plots;  // file of each plot
  bool missing = false;         // the original of the last plot was not found
  bool told = false;            // the message on that has come, and no original was found since
  int messages = 0;             // that the last step brings

  [[nodiscard]] f64 width() const { return high - low; }
  [[nodiscard]] OriginalState imported_state(WalkFile file) const {
    return imported[static_cast<std::size_t>(file)];
  }

  void take(f64 new_low, f64 new_high) {
    low = new_low;
    high = new_high;
    zoomed = true;
    points = static_cast<i32>(std::nearbyint(width()));
  }
  void import_section(i64 least_sample) {
    first = std::max<i64>(least_sample, std::llround(low * kBlock));
    count = i64{points} * kBlock;
    imported = files;
  }
  // A zoom that may go into originals.
  void zoom(f64 new_low, f64 new_high) {
    take(new_low, new_high);
    original = points * kBlock <= bound;
    if (!original) return;
    import_section(0);
    look_for_originals();
  }
  void reset() {
    ZoomReckoning whole;
    whole.bound = bound;
    whole.files = files;
    whole.plots = plots;
    whole.missing = missing;
    whole.told = told;
    *this = whole;
  }

 private:
  // Each plot's is looked for in turn; the user is told once until one is found.
  void look_for_originals() {
    for (const WalkFile file : plots) {
      missing = files[static_cast<std::size_t>(file)] == OriginalState::Gone;
      if (!missing) told = false;
    }
    if (!missing || told) return;
    told = true;
    ++messages;
  }
};

}  // namespace trendaro
