#include "files/recorder_settings.h"

#include <string>

#include <gtest/gtest.h>

#include "support/recorder_builder.h"

namespace trendaro {
namespace {

ChannelParamRecord read(const FileBuilder& block, i64 place = 0) {
  return recorder_settings({{reinterpret_cast<const u8*>(block.bytes().data()), block.size()}}, place);
}

std::string text(const std::array<char, 8>& field) {
  return {field.data(), field.size()};
}

FileBuilder filled_block() {
  FileBuilder block = RecorderEntry::blank_settings();
  block.patch<u8>(48, 96).patch<i16>(55, -3100).patch<u8>(57, 250).patch<u8>(72, 201).patch<i16>(73, 4300);
  block.patch<f32>(91, 1.5F).patch<f32>(95, -2.5F).patch<f32>(99, 3.25F).patch<f32>(103, 4.125F);
  block.patch<f32>(107, 0.75F).patch<i32>(129, 0x01020304).patch<i32>(133, 20700).patch<f32>(137, -8.5F);
  block.patch<i32>(215, -12500);
  const std::string electrical = "MV/V";
  const std::string physical =
      "\xF8"
      "C  ";
  for (std::size_t i = 0; i < 4; ++i)
    block.patch<char>(111 + i, electrical[i]).patch<char>(117 + i, physical[i]);
  return block;
}

TEST(RecorderSettingsTest, EveryFieldHasItsPlace) {
  const ChannelParamRecord settings = read(filled_block());
  EXPECT_EQ(settings.AmplifierType, 5008);
  EXPECT_EQ(settings.TransducerType, -3100);
  EXPECT_EQ(settings.Excitation, 250);
  EXPECT_EQ(settings.FilterType, 201);
  EXPECT_EQ(settings.FilterFrequency, 4300);
  EXPECT_EQ(settings.ScaleX1, 1.5F);
  EXPECT_EQ(settings.ScaleY1, -2.5F);
  EXPECT_EQ(settings.ScaleX2, 3.25F);
  EXPECT_EQ(settings.ScaleY2, 4.125F);
  EXPECT_EQ(settings.ZeroValue, 0.75F);
  EXPECT_EQ(settings.ParamWord2, 0x01020304);
  EXPECT_EQ(settings.KFactor, 2.07F);
  EXPECT_EQ(settings.TareValue, -8.5F);
  EXPECT_EQ(settings.BridgeFactor, -1.25F);
  EXPECT_EQ(settings.MeasuringRange, 0.0F);
}

TEST(RecorderSettingsTest, UnitsTakeTheirDisplayForm) {
  const ChannelParamRecord settings = read(filled_block());
  EXPECT_EQ(text(settings.ElectricalUnit), "mV/V    ");
  EXPECT_EQ(text(settings.PhysicalUnit),
            "\xB0"
            "C      ");
}

TEST(RecorderSettingsTest, BlockMayStandAnywhere) {
  FileBuilder header;
  header.zeros(100).bytes_field(filled_block().bytes());
  EXPECT_EQ(read(header, 100), read(filled_block()));
}

TEST(RecorderSettingsTest, FieldsBehindTheEndAreZero) {
  const std::string bytes = filled_block().bytes();
  const ChannelParamRecord settings = read(FileBuilder().bytes_field(bytes.substr(0, 74)));
  EXPECT_EQ(settings.FilterType, 201);
  EXPECT_EQ(settings.FilterFrequency, 0);
  EXPECT_EQ(settings.BridgeFactor, 0.0F);
  EXPECT_EQ(text(settings.ElectricalUnit), "        ");
}

}  // namespace
}  // namespace trendaro
