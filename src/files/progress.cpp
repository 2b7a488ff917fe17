#include "files/progress.h"

#include <algorithm>

namespace trendaro {

Progress percent_steps(const Progress& progress) {
  return [&progress, told = -1](f64 fraction) mutable {
    // Offsets that lie lead behind the end of a file.
    const f64 done = std::clamp(fraction, 0.0, 1.0);
    const int percent = static_cast<int>(done * 100);
    if (percent == told) return;
    told = percent;
    progress(done);
  };
}

}  // namespace trendaro
