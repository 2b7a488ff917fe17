#include "files/sample_stream.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace trendaro {
namespace {

constexpr i64 kSampleBytes = sizeof(f64);
// One huge page, and small enough that the samples are still in the processor's cache when they are looked
// at.
constexpr i64 kBufferValues = (i64{2048} << 10) / kSampleBytes;

}  // namespace

SampleStream::SampleStream(const InputFile& file, i64 position, i64 longest_run,
                           std::function<void(i64)> on_read)
    : file_(file), position_(position), on_read_(std::move(on_read)) {
  const i64 most_there = file.size() / kSampleBytes + 1;
  buffer_.resize(static_cast<std::size_t>(std::min(std::max(kBufferValues, longest_run), most_there)));
}

std::span<const f64> SampleStream::take(i64 count) {
  if (end_ - begin_ < count) read_on();
  if (end_ - begin_ < count) return {};
  const std::span<const f64> run(buffer_.data() + begin_, static_cast<std::size_t>(count));
  begin_ += count;
  return run;
}

// Moves what is left to the front and fills the buffer behind it.
void SampleStream::read_on() {
  const i64 kept = end_ - begin_;
  std::memmove(buffer_.data(), buffer_.data() + begin_, static_cast<std::size_t>(kept * kSampleBytes));
  const i64 room = static_cast<i64>(buffer_.size()) - kept;
  const ReadResult result = file_.read_at(position_, buffer_.data() + kept, room * kSampleBytes);
  const i64 values = result.bytes / kSampleBytes;
  begin_ = 0;
  end_ = kept + values;
  position_ += values * kSampleBytes;
  on_read_(position_);
}

}  // namespace trendaro
