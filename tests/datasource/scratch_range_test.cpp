#include "datasource/scratch_range.h"

#include <initializer_list>

#include <gtest/gtest.h>

#include "support/fake_host.h"

namespace trendaro {
namespace {

FakeHost host_with_used(std::initializer_list<i16> used, i16 channels = 96) {
  FakeHost host;
  host.channels = channels;
  for (const i16 channel : used) host.set_length(channel, 5);
  return host;
}

TEST(ScratchRangeTest, EmptyDatabaseStartsAtOne) {
  FakeHost host;
  EXPECT_EQ(first_free_run(host, 96), 1);
}

TEST(ScratchRangeTest, RunOfNineIsTooShort) {
  FakeHost host = host_with_used({1, 11, 12});
  EXPECT_EQ(first_free_run(host, 96), 13);
}

TEST(ScratchRangeTest, RunOfTenIsTaken) {
  FakeHost host = host_with_used({1, 12});
  EXPECT_EQ(first_free_run(host, 96), 2);
}

TEST(ScratchRangeTest, AnyFreeChannelAmongTheLastTenEndsTheSearch) {
  FakeHost host = host_with_used({5, 10, 12, 14}, 20);
  // The only channel behind 10 ahead of the used 12 is 11, one of the last ten.
  EXPECT_EQ(first_free_run(host, 20), 11);
}

TEST(ScratchRangeTest, RunThatReachesTheLastTenKeepsItsStart) {
  FakeHost host = host_with_used({5}, 14);
  // At channel 6, above 14 - 10, the first free one ends the search; 1 to 4 are too few and come too early.
  EXPECT_EQ(first_free_run(host, 14), 6);
  FakeHost other = host_with_used({1, 2, 10}, 14);
  EXPECT_EQ(first_free_run(other, 14), 3);
}

TEST(ScratchRangeTest, FullDatabaseGivesOne) {
  FakeHost host = host_with_used({1, 2, 3, 4}, 4);
  EXPECT_EQ(first_free_run(host, 4), 1);
}

TEST(ScratchRangeTest, RefusalOfTheHostIsThrown) {
  class Refusing : public FakeHost {
    HostValue GetChannelProperty(i16, i16) override { throw RunTimeError{kHostCallFailed}; }
  } host;
  EXPECT_THROW(static_cast<void>(first_free_run(host, 4)), RunTimeError);
}

}  // namespace
}  // namespace trendaro
