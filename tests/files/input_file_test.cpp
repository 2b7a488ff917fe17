#include "files/input_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "support/file_builder.h"

namespace trendaro {
namespace {

TEST(InputFileTest, DeliversBytesFromAPosition) {
  const TemporaryFile sample("0123456789");
  const InputFile file(sample.path());
  ASSERT_TRUE(file.is_open());
  EXPECT_EQ(file.size(), 10);
  char bytes[4] = {};
  const ReadResult result = file.read_at(3, bytes, 4);
  EXPECT_EQ(result.bytes, 4);
  EXPECT_FALSE(result.failed);
  EXPECT_EQ(std::string(bytes, 4), "3456");
}

TEST(InputFileTest, EndOfFileIsLessButNoFailure) {
  const TemporaryFile sample("0123456789");
  const InputFile file(sample.path());
  char bytes[8] = {};
  EXPECT_EQ(file.read_at(8, bytes, 8).bytes, 2);
  EXPECT_FALSE(file.read_at(8, bytes, 8).failed);
  EXPECT_EQ(file.read_at(10, bytes, 8).bytes, 0);
  EXPECT_FALSE(file.read_at(500, bytes, 8).failed);
}

TEST(InputFileTest, APositionAheadOfTheFileFails) {
  const TemporaryFile sample("0123456789");
  const InputFile file(sample.path());
  char byte = 0;
  EXPECT_TRUE(file.read_at(-1, &byte, 1).failed);
}

TEST(InputFileTest, OnlyRegularFilesOpen) {
  const TemporaryFolder folder;
  EXPECT_FALSE(InputFile(folder.file("missing")).is_open());
  EXPECT_FALSE(InputFile(folder.path()).is_open());
  ASSERT_EQ(mkfifo(folder.file("pipe").c_str(), 0600), 0);
  EXPECT_FALSE(InputFile(folder.file("pipe")).is_open());
  EXPECT_FALSE(InputFile("/dev/zero").is_open());
}

TEST(InputFileTest, SameFileUnderAnotherName) {
  const TemporaryFile sample("a");
  const TemporaryFile stranger("a");
  std::filesystem::create_hard_link(sample.path(), sample.path() + ".link");
  const InputFile file(sample.path());
  const InputFile link(sample.path() + ".link");
  const InputFile other(stranger.path());
  EXPECT_TRUE(is_same_file(file.descriptor(), link.descriptor()));
  EXPECT_FALSE(is_same_file(file.descriptor(), other.descriptor()));
}

}  // namespace
}  // namespace trendaro
