#include "graph/nearest_sample.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <queue>
#include <vector>

#include "graph/curve_samples.h"
#include "graph/run_extremes.h"

namespace trendaro {
namespace {

constexpr f64 kNearEnough = 0.5;           // pixels
constexpr std::size_t kMostPieces = 8192;  // pieces looked into before the best find so far has to do
constexpr std::size_t kSmallPiece = 16;    // samples that are looked at one by one

// A run of samples, and the least distance that one of them can have.
struct Piece {
  f64 distance = 0;
  std::size_t first = 0, last = 0;  // `last` is behind the end

  friend bool operator>(const Piece& a, const Piece& b) { return a.distance > b.distance; }
};

class Search {
 public:
  Search(const GraphProperties& shown, const GraphLayout& layout, const CurvePlace& curve, PixelPoint place,
         Nearness nearness)
      : shown_(shown),
        subset_(curve.subset),
        samples_(curve_samples(shown, curve.subset)),
        x_scale_(layout.x_axis.scale),
        y_scale_(curve.right ? layout.layers[curve.slot].right.scale : layout.layers[curve.slot].left.scale),
        place_(place),
        along_x_(nearness == Nearness::AlongX) {}

  std::optional<NearSample> run(f64 reach) {
    best_distance_ = reach;
    add_piece(0, samples_.count);
    for (std::size_t pieces = 0; !pieces_.empty() && pieces < kMostPieces; ++pieces) {
      const Piece piece = pieces_.top();
      pieces_.pop();
      if (piece.distance > best_distance_ || (best_ && best_distance_ <= kNearEnough)) break;
      look_into(piece);
    }
    return best_;
  }

 private:
  void look_into(const Piece& piece) {
    if (piece.last - piece.first <= kSmallPiece) {
      for (std::size_t point = piece.first; point < piece.last; ++point) look_at(point);
      return;
    }
    const std::size_t middle = piece.first + (piece.last - piece.first) / 2;
    add_piece(piece.first, middle);
    add_piece(middle, piece.last);
  }

  void look_at(std::size_t point) {
    if (!samples_.drawn(point)) return;
    const PixelPoint pixel{pixel_of(x_scale_, samples_.x(point)),
                           pixel_of(y_scale_, static_cast<f64>(samples_.y[point]))};
    const f64 down = along_x_ ? 0 : pixel.y - place_.y;
    const f64 distance = std::hypot(pixel.x - place_.x, down);
    if (!std::isfinite(distance) || distance > best_distance_ || (best_ && distance == best_distance_))
      return;
    best_distance_ = distance;
    best_ = NearSample{subset_, point, pixel, distance};
  }

  void add_piece(std::size_t first, std::size_t last) {
    if (first >= last) return;
    const f64 distance = least_distance(first, last);
    if (distance <= best_distance_) pieces_.push({distance, first, last});
  }

  [[nodiscard]] f64 least_distance(std::size_t first, std::size_t last) const {
    const PointExtent extent = extent_of_run(samples_, first, last);
    if (extent.empty()) return std::numeric_limits<f64>::infinity();
    const f64 across = gap(x_scale_, extent.x_low, extent.x_high, place_.x);
    const f64 down =
        along_x_ ? 0
                 : gap(y_scale_, static_cast<f64>(extent.y_low), static_cast<f64>(extent.y_high), place_.y);
    return std::hypot(across, down);
  }

  // Pixels between `pixel` and the span of the values; 0 inside of it. Values that a logarithmic axis has no
  // pixel for leave the span open.
  static f64 gap(const AxisScale& scale, f64 low, f64 high, f64 pixel) {
    const f64 a = pixel_of(scale, low);
    const f64 b = pixel_of(scale, high);
    if (!std::isfinite(a) || !std::isfinite(b)) return 0;
    return std::max({std::min(a, b) - pixel, pixel - std::max(a, b), 0.0});
  }

  const GraphProperties& shown_;
  std::size_t subset_;
  CurveSamples samples_;
  AxisScale x_scale_, y_scale_;
  PixelPoint place_;
  bool along_x_;
  f64 best_distance_ = 0;
  std::optional<NearSample> best_;
  std::priority_queue<Piece, std::vector<Piece>, std::greater<>> pieces_;
};

bool can_be_searched(const GraphProperties& shown, const GraphLayout& layout, const CurvePlace& curve) {
  return layout.has_axes && shown.curve_index && curve.subset < shown.curve_index->curves.size() &&
         curve.slot < layout.layers.size();
}

}  // namespace

std::optional<NearSample> nearest_sample(const GraphProperties& shown, const GraphLayout& layout,
                                         const CurvePlace& curve, PixelPoint place, f64 reach,
                                         Nearness nearness) {
  if (!can_be_searched(shown, layout, curve)) return std::nullopt;
  return Search(shown, layout, curve, place, nearness).run(reach);
}

std::optional<NearSample> nearest_sample_in_layer(const GraphProperties& shown, const GraphLayout& layout,
                                                  PixelPoint place, f64 reach) {
  std::optional<NearSample> best;
  for (const CurvePlace& curve : layout.curves) {
    if (curve.slot >= layout.layers.size()) continue;
    const PixelRectangle& area = layout.layers[curve.slot].area;
    if (place.y < area.y || place.y > area.bottom()) continue;
    const auto found = nearest_sample(shown, layout, curve, place, best ? best->distance : reach);
    if (found && (!best || found->distance < best->distance)) best = found;
  }
  return best;
}

std::optional<std::size_t> next_sample(const GraphProperties& shown, std::size_t subset, std::size_t point,
                                       bool forward) {
  const CurveSamples samples = curve_samples(shown, subset);
  const std::size_t first = forward ? std::min(point + 1, samples.count) : 0;
  const std::size_t last = forward ? samples.count : std::min(point, samples.count);
  RunExtremes run;
  if (first >= last || !find_extremes(samples, first, last, run)) return std::nullopt;
  return forward ? run.first : run.last;
}

std::optional<PixelPoint> place_of_sample(const GraphProperties& shown, const GraphLayout& layout,
                                          const CurvePlace& curve, std::size_t point) {
  if (!can_be_searched(shown, layout, curve)) return std::nullopt;
  const CurveSamples samples = curve_samples(shown, curve.subset);
  if (point >= samples.count || !samples.drawn(point)) return std::nullopt;
  const LayerLayout& layer = layout.layers[curve.slot];
  const PixelPoint pixel{
      pixel_of(layout.x_axis.scale, samples.x(point)),
      pixel_of(curve.right ? layer.right.scale : layer.left.scale, static_cast<f64>(samples.y[point]))};
  if (!std::isfinite(pixel.x) || !std::isfinite(pixel.y)) return std::nullopt;
  return pixel;
}

}  // namespace trendaro
