#include "app/bus_samples.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include "app/run_time_error.h"

namespace trendaro {
namespace {

i16 failure_of(const QDBusUnixFileDescriptor& file) {
  std::vector<f64> values(4);
  try {
    receive_samples(file, 0, values);
  } catch (const RunTimeError& failure) {
    return failure.number;
  }
  return 0;
}

TEST(BusSamplesTest, EveryBitArrives) {
  const std::vector<f64> sent = {0.1, -0.0, std::numeric_limits<f64>::infinity(), std::nan("7"), 5e-324};
  std::vector<f64> received(5);
  EXPECT_EQ(receive_samples(samples_to_send(sent), 0, received), 5);
  EXPECT_EQ(std::memcmp(sent.data(), received.data(), 5 * sizeof(f64)), 0);
}

TEST(BusSamplesTest, ShorterSideCounts) {
  const std::vector<f64> sent = {1, 2, 3};
  std::vector<f64> fewer(2);
  EXPECT_EQ(receive_samples(samples_to_send(sent), 0, fewer), 2);
  EXPECT_EQ(fewer, (std::vector<f64>{1, 2}));
  std::vector<f64> more(5, 9);
  EXPECT_EQ(receive_samples(samples_to_send(sent), 0, more), 3);
  EXPECT_EQ(more, (std::vector<f64>{1, 2, 3, 9, 9}));
}

TEST(BusSamplesTest, PieceFromTheMiddle) {
  const std::vector<f64> sent = {1, 2, 3, 4};
  std::vector<f64> piece(2);
  EXPECT_EQ(receive_samples(samples_to_send(sent), 1, piece), 2);
  EXPECT_EQ(piece, (std::vector<f64>{2, 3}));
  EXPECT_EQ(receive_samples(samples_to_send(sent), 4, piece), 0);
  EXPECT_EQ(receive_samples(samples_to_send(sent), 40, piece), 0);
}

TEST(BusSamplesTest, NoSamplesAtAll) {
  EXPECT_EQ(samples_in(samples_to_send({})), 0);
  std::vector<f64> values(2, 7);
  EXPECT_EQ(receive_samples(samples_to_send({}), 0, values), 0);
}

TEST(BusSamplesTest, BytesOfAnIncompleteLastSampleDoNotCount) {
  QDBusUnixFileDescriptor file;
  const int descriptor = ::memfd_create("odd", MFD_CLOEXEC);
  file.giveFileDescriptor(descriptor);
  ASSERT_EQ(::ftruncate(descriptor, 8 * 3 + 5), 0);
  EXPECT_EQ(samples_in(file), 3);
}

TEST(BusSamplesTest, AnythingButAFileIsRefused) {
  EXPECT_EQ(failure_of(QDBusUnixFileDescriptor()), kTypeMismatch);
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  EXPECT_EQ(failure_of(QDBusUnixFileDescriptor(ends[0])), kTypeMismatch);
  ::close(ends[0]);
  ::close(ends[1]);
}

TEST(BusSamplesTest, FileThatCannotBeReadIsADeviceError) {
  char name[] = "/tmp/trendaro-XXXXXX";
  const int descriptor = ::mkstemp(name);
  ASSERT_EQ(::ftruncate(descriptor, 80), 0);
  const int write_only = ::open(name, O_WRONLY | O_CLOEXEC);
  EXPECT_EQ(failure_of(QDBusUnixFileDescriptor(write_only)), kDeviceError);
  ::close(write_only);
  ::close(descriptor);
  ::unlink(name);
}

}  // namespace
}  // namespace trendaro
