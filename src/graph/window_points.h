#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <span>
#include <vector>

#include "app/types.h"
#include "graph/picture_window.h"
#include "graph/time_axis.h"

namespace trendaro {

// How the points of a curve will be handed to its graph.
struct PointKind {
  bool single_x = true;  // x is rounded to single precision
  f64 null_x = 0;        // values that are not drawn
  f32 null_y = 0;
};

// Those samples of a curve over evenly spaced x that the picture of a window needs. They come run by run.
// Between two edges all of them are kept, or the first, the lowest, the highest and the last one drawn,
// of equal ones the first, and where samples that are not drawn begin or end. Those at the end of the curve
// are left out. Ahead of the first edge and behind the last one it is the same with kMostOfColumn samples, so
// that the curve keeps its extent and its way into the picture.
class WindowPoints {
 public:
  struct Point {
    std::size_t sample;  // index of a sample
    f32 y;               // display value
  };

  // Where x does not rise all samples are kept.
  WindowPoints(const PictureWindow& window, const TimeLine& line, const PointKind& kind);

  // Takes the display values of the next samples.
  void add(std::span<const f32> heights);

  // Ends the curve; the points in the order of the samples.
  [[nodiscard]] const std::vector<Point>& finish();

  [[nodiscard]] std::size_t samples() const { return next_; }
  // True when not all samples between two edges were kept.
  [[nodiscard]] bool thinned() const { return thinned_; }

 private:
  static constexpr std::size_t kNowhere = std::numeric_limits<std::size_t>::max();

  // The drawn samples that stand for those of a part.
  struct Extremes {
    bool any = false;
    Point first{}, lowest{}, highest{}, last{};
  };

  [[nodiscard]] f64 as_handed_over(f64 x) const;
  [[nodiscard]] f64 x_of(std::size_t sample) const;
  // Of the next sample and samples.
  [[nodiscard]] bool is_drawn(f32 y) const;
  [[nodiscard]] bool all_drawn(std::span<const f32> heights) const;
  [[nodiscard]] std::size_t first_reaching(f64 limit) const;
  void open_part();
  void close_part();
  bool keeps_all(std::size_t more);
  void add_drawn(std::span<const f32> heights);
  void take_gaps();
  void take(std::span<const f32> heights);
  void look_at(std::span<const f32> heights, std::size_t first);
  void give_up_samples();

  const PictureWindow& window_;
  TimeLine line_;
  PointKind kind_;
  f64 null_x_;
  std::vector<Point> points_;
  std::size_t next_ = 0;  // index of the next sample
  std::size_t gaps_ = 0;  // samples before it that are not drawn and not taken yet
  bool thinned_ = false;

  // The part between two edges that is open.
  std::size_t part_ = 0;                             // index of the edge that ends it
  std::size_t stop_ = kNowhere;                      // a drawn sample from here on lies behind it
  std::size_t most_ = kMostOfColumn;                 // samples that are all kept
  std::size_t first_point_ = 0;                      // of its points
  bool whole_ = true;                                // all samples so far are kept
  Extremes extremes_;                                // otherwise
  std::optional<std::size_t> first_gap_, last_gap_;  // samples not drawn at its ends
};

}  // namespace trendaro
