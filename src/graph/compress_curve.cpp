#include "graph/compress_curve.h"

#include <algorithm>
#include <cmath>

#include "app/model.h"
#include "graph/sample_search.h"
#include "graph/unzoomed_scale.h"

namespace trendaro {
namespace {

// The samples of a curve that lie in the window.
struct View {
  std::size_t first = 0, last = 0;  // all of them lie in first to last - 1
  bool whole = true;                // and these are all in the window
  f64 low = 0, high = 0;            // otherwise x decides: strictly between these

  [[nodiscard]] bool holds(f64 x) const { return low < x && x < high; }
};

// Evenly spaced samples that rise can be found by halving; any other x is looked at sample by sample.
View window_of(const Model& model, const PlainCurve& samples) {
  const std::size_t count = samples.y.size();
  if (!model.Zoomed) return {.first = 0, .last = count};
  View view{.first = 0,
            .last = count,
            .whole = false,
            .low = model.ZoomScaleLimits[0][0],
            .high = model.ZoomScaleLimits[0][1]};
  if (samples.x != nullptr || !(samples.line.step > 0)) return view;
  const auto first_sample_with = [&](auto&& reached) {
    std::size_t low = 0, high = count;
    while (low < high) {
      const std::size_t middle = low + (high - low) / 2;
      if (reached(samples.line.at(middle)))
        high = middle;
      else
        low = middle + 1;
    }
    return low;
  };
  view.first = first_sample_with([&](f64 x) { return x > view.low; });
  view.last = std::max(view.first, first_sample_with([&](f64 x) { return x >= view.high; }));
  view.whole = true;
  return view;
}

template <typename Use>
void for_samples_in(const View& view, const PlainCurve& samples, Use&& use) {
  for (std::size_t i = view.first; i < view.last; ++i)
    if (view.whole || view.holds(samples.x_at(i))) use(i);
}

std::size_t count_samples(const View& view, const PlainCurve& samples) {
  if (view.whole) return view.last - view.first;
  std::size_t count = 0;
  for_samples_in(view, samples, [&](std::size_t) { ++count; });
  return count;
}

i64 pair_block_of(const Model& model, const PlainCurve& samples, i32 factor, std::size_t in_view) {
  const i64 pair_block = 2 * std::max<i64>(factor, 1);
  if (!model.Zoomed || samples.y.empty()) return pair_block;
  // A view of a small part has smaller blocks, so that about as many points show at any zoom.
  return std::llrint(static_cast<f64>(in_view) / static_cast<f64>(samples.y.size()) *
                     static_cast<f64>(pair_block));
}

// A zoom that no rubber band has narrowed in y has no limits there, and none at all is left behind an undo.
bool has_limits(f64 low, f64 high) {
  return low < high && std::isfinite(high - low);
}

void hold_layer(LayerProperties& axes, const std::array<f64, 4>& row) {
  if (has_limits(row[0], row[1])) {
    axes.ManualScaleControlY = 3;
    axes.ManualMinY = row[0];
    axes.ManualMaxY = row[1];
  }
  if (has_limits(row[2], row[3])) {
    axes.ManualScaleControlRY = 3;
    axes.ManualMinRY = row[2];
    axes.ManualMaxRY = row[3];
  }
}

// Without this the graph would scale its axes to the compressed data and leave the window.
void hold_window(Model& model) {
  GraphProperties& graph = model.PESG.pending;
  const auto& limits = model.ZoomScaleLimits;
  model.PESG.curves_of_section = true;
  if (graph.ManualScaleControlX == 0 && graph.AllowZooming <= 1) return;
  if (!model.unzoomed_scale.held) hold_unzoomed_scale(model);
  model.unzoomed_scale.overwritten = true;
  if (graph.ManualScaleControlX != 0 && has_limits(limits[0][0], limits[0][1])) {
    graph.ManualScaleControlX = 3;
    graph.ManualMinX = limits[0][0];
    graph.ManualMaxX = limits[0][1];
  }
  if (graph.AllowZooming <= 1) return;
  graph.WorkingAxis = 0;
  for (i16 layer = 0; layer <= 2; ++layer) {
    if (layer < model.FirstLayer + model.LayerBase || layer > model.LastLayer + model.LayerBase) continue;
    hold_layer(model.PESG.layer(), limits[static_cast<std::size_t>(graph.WorkingAxis) + 1]);
    ++graph.WorkingAxis;
  }
}

// Writes points one after the other into a slot, as far as it goes.
class PointWriter {
 public:
  PointWriter(const PlainCurve& samples, const CurveSlot& slot, DisplayScale scale, f64 x_offset)
      : samples_(samples), room_(slot, slot.DrawY.size()), scale_(scale), x_offset_(x_offset) {}

  void write(std::size_t sample, f64 y) {
    room_.write(place_, samples_.x_at(sample) + x_offset_, scale_(y));
    ++place_;
  }
  [[nodiscard]] std::size_t place() const { return place_; }

 private:
  const PlainCurve& samples_;
  PointRoom room_;
  DisplayScale scale_;
  f64 x_offset_;
  std::size_t place_ = 0;
};

void write_pair(const SampleExtremes& extremes, PointWriter& writer) {
  const bool rising = extremes.greatest > extremes.least;
  if (rising) writer.write(extremes.least, extremes.least_value);
  writer.write(extremes.greatest, extremes.greatest_value);
  if (!rising) writer.write(extremes.least, extremes.least_value);
}

// Blocks of neighbours can be looked up or scanned as a whole.
void write_pairs_of_neighbours(const View& view, const PlainCurve& samples, std::size_t pair_block,
                               PointWriter& writer) {
  if (samples.index != nullptr) {
    std::vector<std::size_t> stops;
    for (std::size_t stop = view.first; stop <= view.last; stop += pair_block) stops.push_back(stop);
    for (const SampleExtremes& extremes : sample_extremes_of_runs(samples.y, *samples.index, stops))
      write_pair(extremes, writer);
    return;
  }
  for (std::size_t first = view.first; view.last - first >= pair_block; first += pair_block) {
    SampleExtremes extremes = extremes_of(samples.y[first], first);
    add_samples(extremes, samples.y.subspan(first, pair_block), first);
    write_pair(extremes, writer);
  }
}

void write_pairs(const View& view, const PlainCurve& samples, i64 pair_block, PointWriter& writer) {
  if (view.whole)
    return write_pairs_of_neighbours(view, samples, static_cast<std::size_t>(pair_block), writer);
  SampleExtremes extremes;
  i64 count = 0;
  for_samples_in(view, samples, [&](std::size_t i) {
    if (count == 0) extremes = extremes_of(samples.y[i], i);
    add_sample(extremes, samples.y[i], i);
    if (++count < pair_block) return;
    write_pair(extremes, writer);
    count = 0;
  });
}

}  // namespace

std::size_t compressed_points(const Model& model, const PlainCurve& samples, i32 factor) {
  const std::size_t in_view = count_samples(window_of(model, samples), samples);
  const i64 pair_block = pair_block_of(model, samples, factor, in_view);
  return pair_block <= 2 ? in_view : in_view / static_cast<std::size_t>(pair_block) * 2;
}

void CompressCurve(Model& model, const PlainCurve& samples, i32 factor, const CurveSlot& slot, i16 plot,
                   i16 sign) {
  const PlotRecord& record = model.Plots[plot];
  const View view = window_of(model, samples);
  const i64 pair_block = pair_block_of(model, samples, factor, count_samples(view, samples));
  if (model.Zoomed) hold_window(model);
  PointWriter writer(samples, slot, {record.YOffset, sign}, record.XOffset);
  if (pair_block <= 2)
    for_samples_in(view, samples, [&](std::size_t i) { writer.write(i, samples.y[i]); });
  else
    write_pairs(view, samples, pair_block, writer);
  pad_y(slot.DrawY, writer.place(), model.PESG.pending.NullDataValue);
  pad_x(slot, writer.place(), model.PESG.pending.NullDataValueX);
}

PairStream::PairStream(i32 factor, std::size_t count, std::size_t most_points)
    : pair_block_(2 * static_cast<std::size_t>(std::max(factor, 2))),
      count_(count),
      most_points_(most_points) {
  points_.reserve(std::min(most_points, count / pair_block_ * 2));
}

void PairStream::add(std::span<const f64> run) {
  run = run.first(std::min(run.size(), count_ - next_));
  while (!run.empty()) {
    const auto part = run.first(std::min(run.size(), pair_block_ - open_));
    if (open_ == 0) extremes_ = extremes_of(part.front(), next_);
    add_samples(extremes_, part, next_);
    next_ += part.size();
    open_ += part.size();
    if (open_ == pair_block_) close_block();
    run = run.subspan(part.size());
  }
}

void PairStream::close_block() {
  const Point least{extremes_.least, extremes_.least_value};
  const Point greatest{extremes_.greatest, extremes_.greatest_value};
  const bool rising = greatest.sample > least.sample;
  for (const Point& point : {rising ? least : greatest, rising ? greatest : least})
    if (points_.size() < most_points_) points_.push_back(point);
  open_ = 0;
}

void write_pair_points(Model& model, const PairStream& stream, const TimeLine& line, const CurveSlot& slot,
                       i16 plot, i16 sign) {
  const PlotRecord& record = model.Plots[plot];
  const DisplayScale scale{record.YOffset, sign};
  const PointRoom room(slot, stream.points().size());
  std::size_t place = 0;
  for (const PairStream::Point& point : stream.points())
    room.write(place++, line.at(point.sample) + record.XOffset, scale(point.y));
  pad_y(slot.DrawY, place, model.PESG.pending.NullDataValue);
  pad_x(slot, place, model.PESG.pending.NullDataValueX);
}

}  // namespace trendaro
