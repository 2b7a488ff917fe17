#include <array>
#include <span>
#include <vector>

#include "app/run_time_error.h"
#include "files/byte_copy.h"
#include "files/pair_search.h"
#include "files/reduce_job.h"
#include "files/sample_stream.h"

namespace trendaro {
namespace {

constexpr i16 kFirstIdWithReservedTexts = 5011;
constexpr int kReservedTexts = 32;
constexpr i64 kDataOffsetPlace = 2;

struct StandardLayout {
  i32 data_offset = 0;
  std::vector<i32> points_at;  // place of each channel's number of samples
};

// Throws where the source lacks bytes or a place lies ahead of its start.
void require_source(bool delivered) {
  if (!delivered) throw RunTimeError{kDeviceError};
}

std::vector<i32> copy_channel_offsets(ReduceJob& job, i16 channel_count) {
  require_source(channel_count >= 0 && job.source.left() / i64{sizeof(i32)} >= channel_count);
  std::vector<i32> offsets(static_cast<std::size_t>(channel_count));
  for (i32& offset : offsets) {
    offset = job.source.read_i32();
    job.target.write_i32(offset);
  }
  return offsets;
}

// Copies all that stands ahead of the data part, with the words of a reduced file in their places.
StandardLayout copy_header(ReduceJob& job, i16 id) {
  StandardLayout layout;
  job.target.write_i16(id);
  layout.data_offset = job.source.read_i32();
  job.target.write_i32(layout.data_offset);
  const int texts = id >= kFirstIdWithReservedTexts ? 1 + kReservedTexts : 1;
  for (int text = 0; text < texts; ++text) copy_optional_text(job.source, job.target);
  const i16 channel_count = job.source.read_i16();
  job.target.write_i16(channel_count);
  static_cast<void>(job.source.read_i32());  // padded length
  job.target.write_i32(0);
  layout.points_at = copy_channel_offsets(job, channel_count);
  static_cast<void>(job.source.read_i32());  // block size, 0 unless the source is a reduced file itself
  job.target.write_i32(job.block);
  copy_bytes(job.source, job.target, layout.data_offset - job.source.position());
  require_source(job.source.ok());
  return layout;
}

i32 stored_values(i32 pairs) {
  i32 values = 0;
  if (__builtin_mul_overflow(pairs, 2, &values)) throw RunTimeError{kOverflow};
  return values;
}

// Reads each channel's number of samples and writes the number of values that replace them in its place.
std::vector<i32> replace_points(ReduceJob& job, const StandardLayout& layout) {
  std::vector<i32> points;
  points.reserve(layout.points_at.size());
  for (const i32 place : layout.points_at) {
    require_source(job.source.seek(place));
    points.push_back(job.source.read_i32());
    require_source(job.source.ok());
    job.target.seek(place);
    job.target.write_i32(stored_values(pair_count(points.back(), job.block)));
  }
  return points;
}

void write_pairs(ByteWriter& target, std::span<const ValuePair> pairs) {
  static_assert(sizeof(ValuePair) == 2 * sizeof(f64));
  target.write_values({&pairs.front().first, 2 * pairs.size()});
}

// False when the source's values end early or the target takes no more.
bool reduce_channel(SampleStream& values, ByteWriter& target, i32 samples, i32 block) {
  std::array<ValuePair, 512> pieces;
  const i32 pairs = pair_count(samples, block);
  for (i32 done = 0; done < pairs;) {
    std::size_t count = 0;
    for (; count < pieces.size() && done < pairs; ++count, ++done) {
      const i64 length = done + 1 < pairs ? block : samples - i64{done} * block;
      const std::span<const f64> run = values.take(length);
      if (run.empty()) return false;
      pieces[count] = find_pair(run);
    }
    write_pairs(target, std::span(pieces).first(count));
    if (!target.ok()) return false;
  }
  return true;
}

}  // namespace

ReduceStatus reduce_standard_form(ReduceJob& job, i16 id) {
  const StandardLayout layout = copy_header(job, id);
  const std::vector<i32> points = replace_points(job, layout);
  require_source(layout.data_offset >= 0);
  job.target.patch_i32(kDataOffsetPlace, layout.data_offset);
  job.target.seek(layout.data_offset);
  const f64 size = static_cast<f64>(job.source.size());
  SampleStream values(job.file, layout.data_offset, i64{2} * job.block,
                      [&](i64 position) { job.progress(static_cast<f64>(position) / size); });
  for (const i32 samples : points)
    if (!reduce_channel(values, job.target, samples, job.block)) return ReduceStatus::Failed;
  return ReduceStatus::Done;
}

}  // namespace trendaro
