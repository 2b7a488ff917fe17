#include "files/dataset_header_text.h"

#include <gtest/gtest.h>

#include "app/model.h"
#include "files/dataset_header.h"
#include "files/file_conversions.h"
#include "files/parameter_words.h"
#include "support/file_builder.h"
#include "support/recording_shell.h"

namespace trendaro {
namespace {

// A standard file with one channel of three samples.
struct HeaderFile {
  i32 reduce_block = 0;
  f64 interval = 0.5;
  f32 range = 21;
  i16 sub_channel = 2;

  [[nodiscard]] std::string bytes() const {
    FileBuilder file;
    file.i16_field(5010).i32_field(0).counted_text("").i16_field(1).i32_field(0).i32_field(0);
    file.i32_field(reduce_block);
    file.i16_field(1).i32_field(3).counted_text("Druck  ").counted_text("m\xB3").counted_text("");
    file.i16_field(0).i16_field(8).f64_field(2.5).i32_field(152);
    file.f64_field(0).f64_field(interval).i16_field(17).zeros(6).zeros(8).f32_field(range).zeros(16);
    file.fixed_text(std::string("Ger\xE4t 7\0rest", 11), 32).zeros(16).i16_field(5).i16_field(sub_channel);
    file.i16_field(101).i16_field(0).zeros(44);
    file.u8_field(0).u8_field(0).u8_field(0).i16_field(0).counted_text("");
    return file.values({1, 2, 3}).bytes();
  }
};

class DatasetHeaderTextTest : public testing::Test {
 protected:
  std::string text(const HeaderFile& file, i16 channel, const std::string& name = "run.BIN") {
    const TemporaryFile written(file.bytes(), name);
    path = written.path();
    return DatasetHeaderText(model, path, channel);
  }

  RecordingShell shell;
  Model model{shell};
  std::string path;
};

TEST_F(DatasetHeaderTextTest, ChannelLinesEndWithCarriageReturnAndLineFeed) {
  EXPECT_EQ(text({}, 1),
            "Name: Druck\r\n"
            "Werte: 3\r\n"
            "Einheit: m³\r\n"
            "dt: 0.50 ms (2000 Hz)\r\n"
            "Gerätekanal: 5 - 2\r\n"
            "Serien-Nr.: Gerät 7\r\n"
            "Typ: 101\r\n"
            "Anschlußplatte: Nicht verfügbar\r\n"
            "Aufnehmertyp: 17\r\n"
            "Meßbereich: 21\r\n");
}

TEST_F(DatasetHeaderTextTest, RateIsOfSinglePrecision) {
  // 1000 / 3 as a real of 4 bytes, in its shortest form.
  EXPECT_NE(text({.interval = 3}, 1).find("dt: 3.00 ms (333.33334 Hz)\r\n"), std::string::npos);
  EXPECT_NE(text({.interval = 0.01}, 1).find("dt: 0.01 ms (100000 Hz)\r\n"), std::string::npos);
}

TEST_F(DatasetHeaderTextTest, ChannelWithoutAnIntervalHasNoRate) {
  EXPECT_NE(text({.interval = 0}, 1).find("dt: 0.00 ms\r\n"), std::string::npos);
}

TEST_F(DatasetHeaderTextTest, MeasuringRangeBeyondAnyIdIsNotAvailable) {
  EXPECT_NE(text({.range = 1e9F}, 1).find("Meßbereich: Nicht verfügbar\r\n"), std::string::npos);
}

TEST_F(DatasetHeaderTextTest, FileLinesStandAlone) {
  const std::string found = text({}, 0, "run.DAT");
  EXPECT_EQ(found, "Filename: " + path + "\r\nKanalzahl: 1\r\nDatum: " + model.FileDateText +
                       "\r\nKommentar: " + model.FileCommentText + "\r\n");
}

TEST_F(DatasetHeaderTextTest, FileDoesNotShowTheDateOfAnother) {
  model.FileDateText = "44260";
  model.FileCommentText = "anderswo";
  EXPECT_TRUE(text({}, 0, "run.REB").ends_with("\r\nDatum: \r\nKommentar: \r\n"));
}

TEST_F(DatasetHeaderTextTest, PairsCountHalf) {
  EXPECT_NE(text({}, 0, "run.sto").find("Kanalzahl: 0\r\n"), std::string::npos);
}

TEST_F(DatasetHeaderTextTest, DatesOfOtherFilesAreReordered) {
  const TemporaryFile written(HeaderFile{}.bytes(), "run.MEA");
  model.OriginalExtension = "BIN";
  const std::string found = DatasetHeaderText(model, written.path(), 0);
  EXPECT_NE(found.find("Datum: " + RecorderDateToText(model.FileDateText) + "\r\n"), std::string::npos);
}

TEST_F(DatasetHeaderTextTest, BlocksCountTheSamplesBehindThem) {
  EXPECT_NE(text({.reduce_block = 7}, 1, "run.REB").find("Werte: 10\r\n"), std::string::npos);  // 3 x 7 / 2
}

TEST_F(DatasetHeaderTextTest, OriginalPointsFollowTheKindOfFile) {
  model.FileChannelPoints = {-1, 10, 0};
  model.FileChannelPointsEstimate.push_back(99);
  EXPECT_EQ(original_points(model, 1), 99);
  EXPECT_EQ(original_points(model, 2), 10);
  model.FileReduceBlock = 5;
  EXPECT_EQ(original_points(model, 2), 25);
  model.FileReduceFactor = 400;
  EXPECT_EQ(original_points(model, 2), 4000);
  EXPECT_EQ(original_points(model, 1), 99);
  EXPECT_EQ(original_points(model, 4), 0);
  EXPECT_EQ(original_points(model, 0), 0);
}

TEST_F(DatasetHeaderTextTest, UnreadableFileGivesTheWordsOfTheLoadBefore) {
  const std::string before = text({}, 1);
  EXPECT_EQ(DatasetHeaderText(model, "/nowhere/run.BIN", 1), before);
  EXPECT_EQ(model.LastDatabaseStatus, -100);
  EXPECT_TRUE(shell.messages().empty());
}

TEST_F(DatasetHeaderTextTest, ChannelBeyondTheFileHasNoName) {
  EXPECT_TRUE(text({}, 9).starts_with("Name: \r\nWerte: 0\r\nEinheit: \r\n"));
}

}  // namespace
}  // namespace trendaro
