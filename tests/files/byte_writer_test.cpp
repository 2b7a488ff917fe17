#include "files/byte_writer.h"

#include <gtest/gtest.h>

#include "support/file_builder.h"

namespace trendaro {
namespace {

using std::literals::operator""sv;

TEST(ByteWriterTest, WritesFieldsInLittleEndianOrder) {
  const TemporaryFolder folder;
  ByteWriter writer(folder.file("a"));
  writer.write_u8(7);
  writer.write_i16(-2);
  writer.write_i32(0x01020304);
  writer.write_f32(1.5f);
  writer.write_f64(-2.5);
  writer.write_counted_text("µm");
  EXPECT_EQ(writer.position(), 23);
  EXPECT_TRUE(writer.finish());
  EXPECT_EQ(read_file(folder.file("a")),
            "\x07\xFE\xFF\x04\x03\x02\x01\x00\x00\xC0\x3F"
            "\x00\x00\x00\x00\x00\x00\x04\xC0\x02\x00\xB5m"sv);
}

TEST(ByteWriterTest, PatchLeavesThePosition) {
  const TemporaryFolder folder;
  ByteWriter writer(folder.file("a"));
  writer.write_bytes("0000abc");
  writer.patch_i32(0, 0x31313131);
  writer.write_bytes("d");
  EXPECT_TRUE(writer.finish());
  EXPECT_EQ(read_file(folder.file("a")), "1111abcd");
}

TEST(ByteWriterTest, OldContentBehindTheEndStays) {
  const TemporaryFile old("0123456789");
  ByteWriter writer(old.path());
  writer.write_bytes("abc");
  EXPECT_TRUE(writer.finish());
  EXPECT_EQ(read_file(old.path()), "abc3456789");
}

TEST(ByteWriterTest, LargePiecesKeepTheirOrder) {
  const TemporaryFolder folder;
  ByteWriter writer(folder.file("a"));
  const std::vector<f64> many(300000, 0.25);
  writer.write_i16(1);
  writer.write_values(many);
  writer.write_i16(2);
  EXPECT_TRUE(writer.finish());
  EXPECT_EQ(read_file(folder.file("a")), FileBuilder().i16_field(1).values(many).i16_field(2).bytes());
}

TEST(ByteWriterTest, AFullDiskIsToldAtTheLatestByFinish) {
  ByteWriter writer("/dev/full");
  ASSERT_TRUE(writer.is_open());
  writer.write_i32(1);
  EXPECT_FALSE(writer.finish());
}

TEST(ByteWriterTest, APathThatCannotBeCreatedIsNotOpen) {
  const TemporaryFolder folder;
  ByteWriter writer(folder.file("missing/a"));
  EXPECT_FALSE(writer.is_open());
  writer.write_i32(1);
  EXPECT_FALSE(writer.finish());
  EXPECT_FALSE(ByteWriter(folder.path()).is_open());
}

}  // namespace
}  // namespace trendaro
