#include "files/byte_cursor.h"

#include <numeric>

#include <gtest/gtest.h>

#include "app/run_time_error.h"
#include "support/file_builder.h"

namespace trendaro {
namespace {

TEST(ByteCursorTest, ReadsFieldsInLittleEndianOrder) {
  const TemporaryFile sample(
      std::string_view("\x07\xFE\xFF\x04\x03\x02\x01\x00\x00\xC0\x3F"
                       "\x00\x00\x00\x00\x00\x00\x04\xC0",
                       19));
  const InputFile file(sample.path());
  ByteCursor cursor(file);
  EXPECT_EQ(cursor.read_u8(), 7);
  EXPECT_EQ(cursor.read_i16(), -2);
  EXPECT_EQ(cursor.read_i32(), 0x01020304);
  EXPECT_EQ(cursor.read_f32(), 1.5f);
  EXPECT_EQ(cursor.read_f64(), -2.5);
  EXPECT_TRUE(cursor.ok());
  EXPECT_EQ(cursor.position(), 19);
  EXPECT_EQ(cursor.left(), 0);
}

TEST(ByteCursorTest, ReadPastTheEndGivesZeroAndSticks) {
  const TemporaryFile sample("abc");
  const InputFile file(sample.path());
  ByteCursor cursor(file);
  EXPECT_EQ(cursor.read_i32(), 0);
  EXPECT_FALSE(cursor.ok());
  EXPECT_EQ(cursor.position(), 3);
  EXPECT_EQ(cursor.read_counted_text(), "");
  EXPECT_TRUE(cursor.seek(0));
  EXPECT_EQ(cursor.read_u8(), 'a');
  EXPECT_FALSE(cursor.ok());
  EXPECT_FALSE(cursor.device_failed());
}

TEST(ByteCursorTest, CountedTextsBecomeUtf8) {
  const TemporaryFile sample(
      FileBuilder().counted_text("\xB5m/m").i16_field(0).i16_field(-5).i16_field(3).bytes_field("a\0b"));
  const InputFile file(sample.path());
  ByteCursor cursor(file);
  EXPECT_EQ(cursor.read_counted_text(), "µm/m");
  EXPECT_EQ(cursor.read_counted_text(), "");
  EXPECT_EQ(cursor.read_optional_text(), "");
  EXPECT_EQ(cursor.position(), 10);
}

TEST(ByteCursorTest, NegativeTextLengthIsAnInvalidArgument) {
  const TemporaryFile sample(FileBuilder().i16_field(-1).zeros(10));
  const InputFile file(sample.path());
  try {
    ByteCursor(file).read_counted_text();
    FAIL() << "nothing thrown";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.number, kInvalidArgument);
  }
}

TEST(ByteCursorTest, TextLongerThanTheFileIsEmpty) {
  const TemporaryFile sample(FileBuilder().i16_field(30000).bytes_field("short"));
  const InputFile file(sample.path());
  ByteCursor cursor(file);
  EXPECT_EQ(cursor.read_counted_text(), "");
  EXPECT_FALSE(cursor.ok());
}

TEST(ByteCursorTest, SkipsAreSeeks) {
  const TemporaryFile sample("0123456789");
  const InputFile file(sample.path());
  ByteCursor cursor(file);
  EXPECT_TRUE(cursor.skip(4));
  EXPECT_EQ(cursor.read_u8(), '4');
  EXPECT_FALSE(cursor.skip(-6));
  EXPECT_EQ(cursor.position(), 5);
  EXPECT_TRUE(cursor.skip(-5));
  EXPECT_EQ(cursor.read_u8(), '0');
  EXPECT_TRUE(cursor.skip(i64{1} << 40));
  EXPECT_EQ(cursor.left(), 0);
  EXPECT_TRUE(cursor.ok());
  EXPECT_FALSE(cursor.skip(std::numeric_limits<i64>::max()));
}

TEST(ByteCursorTest, LongFilesAcrossTheBufferAndStraightReads) {
  FileBuilder builder;
  std::vector<f64> numbers(100000);
  std::iota(numbers.begin(), numbers.end(), 0.0);
  builder.values(numbers);
  const TemporaryFile sample(builder);
  const InputFile file(sample.path());
  ByteCursor cursor(file, 8);
  for (int i = 1; i < 60000; ++i) ASSERT_EQ(cursor.read_f64(), i);
  std::vector<f64> rest(50000, -1);
  const ReadResult result = cursor.read_into(rest.data(), 50000 * 8);
  EXPECT_EQ(result.bytes, 40000 * 8);
  EXPECT_EQ(rest[0], 60000);
  EXPECT_EQ(rest[39999], 99999);
  EXPECT_EQ(rest[40000], -1);
  EXPECT_FALSE(cursor.ok());
}

TEST(ByteCursorTest, AFileCutShortMeanwhileDeliversLess) {
  const TemporaryFile sample(std::string(20000, 'x'));
  const InputFile file(sample.path());
  ByteCursor cursor(file);
  EXPECT_EQ(cursor.read_u8(), 'x');
  sample.rewrite("xx");
  cursor.seek(10000);
  EXPECT_EQ(cursor.read_i32(), 0);
  EXPECT_FALSE(cursor.ok());
}

}  // namespace
}  // namespace trendaro
