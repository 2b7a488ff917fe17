#include "files/section_writer.h"

#include <cstring>
#include <filesystem>
#include <limits>

#include "support/load_fixture.h"
#include "support/recorder_builder.h"

namespace trendaro {
namespace {

constexpr i32 kRows = 1300;

// Two columns of i16: the row, and minus the row.
RecorderBuilder source_recording() {
  RecorderBuilder recording{.row_count = kRows, .gap = 37};
  recording.entries = {{.channel = 1, .name_field = quoted_name("Kraft")}, {.channel = 2}};
  for (i32 row = 0; row < kRows; ++row)
    recording.data.i16_field(static_cast<i16>(row)).i16_field(static_cast<i16>(-row));
  return recording;
}

class SectionWriterTest : public LoadTest {
 protected:
  SectionStatus write(const std::string& bytes, i32 first, i32 count) {
    file.rewrite(bytes);
    return WriteSectionFile(file.path(), target(), first, count);
  }
  [[nodiscard]] std::string target() const { return folder.file("Ausschnitt.MEA"); }
  // Values of one channel of the section.
  std::vector<f64> section_values(i16 channel) {
    EXPECT_EQ(LoadMeasurementFile(model, 1, target(), channel, 0), LoadStatus::Done);
    return values();
  }
  // The section's date after a start at `first`, empty when it was not written.
  std::string date_at(const RecorderBuilder& recording, i32 first) {
    if (write(recording.build().bytes(), first, 1) != SectionStatus::Done) return {};
    EXPECT_EQ(LoadMeasurementFile(model, 0, target(), 1, 0), LoadStatus::Done);
    return model.FileDateText;
  }

  TemporaryFolder folder;
};

TEST_F(SectionWriterTest, SectionReadsBackAsARecording) {
  ASSERT_EQ(write(source_recording().build().bytes(), 700, 550), SectionStatus::Done);
  const auto first = section_values(1);
  ASSERT_EQ(first.size(), 550u);
  const auto second = section_values(2);
  for (int row = 0; row < 550; ++row) {
    ASSERT_NEAR(first[static_cast<std::size_t>(row)], 700 + row, 0.001);
    ASSERT_NEAR(second[static_cast<std::size_t>(row)], -(700 + row), 0.001);
  }
  EXPECT_EQ(model.FileChannelNames[1], "Kraft");
  EXPECT_EQ(model.FileChannelPoints[0], 550);
  EXPECT_EQ(std::filesystem::file_size(target()),
            static_cast<std::uintmax_t>(source_recording().data_offset() + 550 * 4));
}

TEST_F(SectionWriterTest, HeaderStaysButForRowCountAndDate) {
  const RecorderBuilder recording = source_recording();
  ASSERT_EQ(write(recording.build().bytes(), 0, 1), SectionStatus::Done);
  std::string expected =
      recording.build().bytes().substr(0, static_cast<std::size_t>(recording.data_offset() + 4));
  const i32 one = 1;
  std::memcpy(expected.data() + 12, &one, sizeof one);
  expected.replace(32 + 40 + 450, 26, std::string("05.03.2021 12:34:56") + std::string(7, '\0'));
  EXPECT_EQ(read_file(target()), expected);
}

TEST_F(SectionWriterTest, DateMovesWithTheFirstRow) {
  RecorderBuilder recording = source_recording();
  EXPECT_EQ(date_at(recording, 0), "05.03.2021 12:34:56");
  EXPECT_EQ(date_at(recording, 300), "05.03.2021 12:34:59");
  EXPECT_EQ(date_at(recording, 8640000), "06.03.2021 12:34:56");
  EXPECT_EQ(date_at(recording, 200 * 864000), "25.03.2021 12:34:56");
  recording.rate_code = 6350;  // every two seconds
  EXPECT_EQ(date_at(recording, 30), "05.03.2021 12:35:56");
  recording.rate_code = 0;
  EXPECT_EQ(date_at(recording, 4), "05.03.2021 12:35:00");
  recording.rate_code = 6308;
  // 11 h 25 min 4 s later the day ends.
  EXPECT_EQ(date_at(recording, 100 * (11 * 3600 + 25 * 60 + 4)), "06.03.2021 00:00:00");
  recording.date = "Wed Mar 31 23:59:59 2021";
  EXPECT_EQ(date_at(recording, 200), "01.04.2021 00:00:01");
}

TEST_F(SectionWriterTest, SectionOfASectionKeepsItsDate) {
  ASSERT_EQ(write(source_recording().build().bytes(), 100, 1000), SectionStatus::Done);
  ASSERT_EQ(write(read_file(target()), 100, 20), SectionStatus::Done);
  const auto read = section_values(1);
  ASSERT_EQ(read.size(), 20u);
  EXPECT_NEAR(read[0], 200, 0.001);
  EXPECT_EQ(model.FileDateText, "05.03.2021 12:34:58");
}

TEST_F(SectionWriterTest, LastTwoBytesOfTheDateFieldAreNoPartOfTheDate) {
  RecorderBuilder recording = source_recording();
  recording.date = "Fri Mar 05 12:34:56 2021XY";
  EXPECT_EQ(date_at(recording, 0), "05.03.2021 12:34:56");
}

// The source up to `size`, with the number of rows that the section has.
std::string start_of(const std::string& source, std::size_t size, i32 row_count) {
  std::string start = source.substr(0, size);
  std::memcpy(start.data() + 12, &row_count, sizeof row_count);
  return start;
}

TEST_F(SectionWriterTest, DateThatIsNoneIsAFailureBehindTheSettings) {
  RecorderBuilder recording = source_recording();
  for (const std::string date : {"", "Fri Xyz 05 12:34:56 2021", "heute"}) {
    recording.date = date;
    const std::string bytes = recording.build().bytes();
    EXPECT_EQ(write(bytes, 0, 3), SectionStatus::Failed) << date;
    EXPECT_EQ(read_file(target()), start_of(bytes, 32 + 40 + 450, 3)) << date;
  }
}

TEST_F(SectionWriterTest, FailureLeavesTheTargetAsFarAsItGot) {
  const std::string bytes = source_recording().build().bytes();
  for (const std::size_t size : {20U, 32U, 50U, 72U, 400U}) {
    EXPECT_EQ(write(bytes.substr(0, size), 0, 3), SectionStatus::Failed);
    EXPECT_EQ(read_file(target()), start_of(bytes, size, 3));
  }
  EXPECT_EQ(write(bytes.substr(0, 14), 0, 3), SectionStatus::Failed);
  EXPECT_EQ(read_file(target()), bytes.substr(0, 14));

  std::string without_place = bytes;
  const i32 negative = -1;
  std::memcpy(without_place.data() + 24, &negative, sizeof negative);
  EXPECT_EQ(write(without_place, 0, 3), SectionStatus::Failed);
  std::string expected = start_of(without_place, 32 + 40 + 450 + 186, 3);
  expected.replace(32 + 40 + 450, 26, std::string("05.03.2021 12:34:56") + std::string(7, '\0'));
  EXPECT_EQ(read_file(target()), expected);
}

TEST_F(SectionWriterTest, CommentsThatTheSourceLacksAreZeros) {
  RecorderBuilder recording{.sample_format = 1254};
  recording.entries = {{}};
  recording.comment = std::string(160, 'k');
  const std::size_t comments = 32 + 20 + 225 + 26;
  const std::string bytes = recording.build().bytes();
  ASSERT_EQ(write(bytes.substr(0, comments + 10), 0, 1), SectionStatus::Done);
  EXPECT_EQ(read_file(target()).substr(comments), std::string(10, 'k') + std::string(150, '\0'));
  ASSERT_EQ(write(bytes.substr(0, comments - 2), 0, 1), SectionStatus::Done);
  EXPECT_EQ(read_file(target()).substr(comments - 26),
            std::string("05.03.2021 12:34:56") + std::string(7 + 160, '\0'));
}

TEST_F(SectionWriterTest, RowCountIsTheAskedOneEvenWhereTheSourceEnds) {
  ASSERT_EQ(write(source_recording().build().bytes(), kRows - 2, 10), SectionStatus::Done);
  const auto read = section_values(1);
  ASSERT_EQ(read.size(), 10u);
  EXPECT_NEAR(read[1], kRows - 1, 0.001);
  for (std::size_t row = 2; row < 10; ++row) EXPECT_EQ(read[row], 0);
  EXPECT_EQ(std::filesystem::file_size(target()),
            static_cast<std::uintmax_t>(source_recording().data_offset() + 10 * 4));

  ASSERT_EQ(write(source_recording().build().bytes(), kRows + 100, 3), SectionStatus::Done);
  EXPECT_EQ(section_values(2), (std::vector<f64>{0, 0, 0}));
}

TEST_F(SectionWriterTest, TheHeaderNamesTheAskedRows) {
  ASSERT_EQ(write(source_recording().build().bytes(), kRows - 2, 10), SectionStatus::Done);
  i32 rows = 0;
  std::memcpy(&rows, read_file(target()).data() + 12, sizeof rows);
  EXPECT_EQ(rows, 10);
}

TEST_F(SectionWriterTest, RowsFarBeyondTheSourceAreAFailure) {
  const std::string bytes = source_recording().build().bytes();
  const i32 most = 1000000 + 8 * kRows;
  EXPECT_EQ(write(bytes, 0, most), SectionStatus::Done);
  EXPECT_EQ(section_values(1).size(), static_cast<std::size_t>(most));
  for (const i32 count : {most + 1, std::numeric_limits<i32>::max()}) {
    EXPECT_EQ(write(bytes, 0, count), SectionStatus::Failed);
    EXPECT_LE(std::filesystem::file_size(target()),
              static_cast<std::uintmax_t>(source_recording().data_offset()));
  }
}

TEST_F(SectionWriterTest, EmptySectionHasAHeaderAlone) {
  ASSERT_EQ(write(source_recording().build().bytes(), 5, 0), SectionStatus::Done);
  EXPECT_TRUE(section_values(1).empty());
  EXPECT_EQ(model.FileChannelPoints[0], 0);
}

TEST_F(SectionWriterTest, NegativeRowsAreAFailure) {
  const std::string bytes = source_recording().build().bytes();
  EXPECT_EQ(write(bytes, -1, 5), SectionStatus::Failed);
  EXPECT_EQ(write(bytes, 0, -5), SectionStatus::Failed);
}

TEST_F(SectionWriterTest, SamplesOfFourBytesAreFourBytesWide) {
  for (const i32 format : {1253, 1257}) {
    RecorderBuilder recording{.row_count = 4, .sample_format = format};
    recording.entries = {{.channel = 1}};
    for (i32 row = 0; row < 4; ++row) recording.data.i32_field(row + 100);
    ASSERT_EQ(write(recording.build().bytes(), 1, 2), SectionStatus::Done);
    EXPECT_EQ(read_file(target()).substr(static_cast<std::size_t>(recording.data_offset())),
              FileBuilder().i32_field(101).i32_field(102).bytes());
  }
}

TEST_F(SectionWriterTest, UnknownFormatCopiesNoRows) {
  RecorderBuilder recording = source_recording();
  recording.sample_format = 1254;
  ASSERT_EQ(write(recording.build().bytes(), 0, 5), SectionStatus::Done);
  EXPECT_EQ(std::filesystem::file_size(target()), static_cast<std::uintmax_t>(recording.header_bytes()));
}

TEST_F(SectionWriterTest, RowsAreAsWideAsTheTable) {
  // One entry with two signals: the rows of the recording have two samples, those of the section count one.
  RecorderBuilder recording{.row_count = 3};
  recording.entries = {{.mask = 3}};
  for (i16 raw = 0; raw < 6; ++raw) recording.data.i16_field(raw);
  ASSERT_EQ(write(recording.build().bytes(), 1, 2), SectionStatus::Done);
  EXPECT_EQ(read_file(target()).substr(static_cast<std::size_t>(recording.data_offset())),
            FileBuilder().i16_field(1).i16_field(2).bytes());
}

TEST_F(SectionWriterTest, BothTimeEntriesHaveNoSettingsBlock) {
  RecorderBuilder recording{.row_count = 1};
  recording.entries = {{.channel = 1}, {.channel = 17}, {.channel = 18}};
  recording.data.i16_field(1).i16_field(2).i16_field(3);
  ASSERT_EQ(write(recording.build().bytes(), 0, 1), SectionStatus::Done);
  EXPECT_EQ(read_file(target()).substr(32 + 60 + 225, 19), "05.03.2021 12:34:56");
}

TEST_F(SectionWriterTest, ReducedRecordingIsTakenAsItIs) {
  // Its reduce factor stands where the data offset is expected.
  RecorderBuilder recording{.id = 6002, .row_count = 2, .reduce_factor = 700};
  recording.entries = {{.mask = 3}};
  recording.data.zeros(600);
  const std::string bytes = recording.build().bytes();
  ASSERT_EQ(write(bytes, 1, 3), SectionStatus::Done);
  EXPECT_EQ(read_file(target()).substr(700), bytes.substr(702, 6));
}

TEST_F(SectionWriterTest, OtherIdsLeaveAnEmptyTarget) {
  for (const i32 id : {6011, 6012, 5010, 0}) {
    write_file(target(), "older content");
    EXPECT_EQ(write(RecorderBuilder{.id = id}.build().bytes(), 0, 1), SectionStatus::NotRecording) << id;
    EXPECT_EQ(read_file(target()), "");
  }
  EXPECT_EQ(write("", 0, 1), SectionStatus::NotRecording);
}

TEST_F(SectionWriterTest, LongerTargetIsReplaced) {
  write_file(target(), std::string(100000, 'x'));
  ASSERT_EQ(write(source_recording().build().bytes(), 0, 1), SectionStatus::Done);
  EXPECT_EQ(std::filesystem::file_size(target()),
            static_cast<std::uintmax_t>(source_recording().data_offset() + 4));
}

TEST_F(SectionWriterTest, ProgressIsToldPieceByPiece) {
  RecorderBuilder recording{.row_count = 2'500'000};
  recording.entries = {{.channel = 1}, {.channel = 2}};
  recording.data.zeros(10'000'000);
  file.rewrite(recording.build().bytes());
  std::vector<f64> told;
  ASSERT_EQ(WriteSectionFile(file.path(), target(), 0, 2'500'000, [&](f64 done) { told.push_back(done); }),
            SectionStatus::Done);
  EXPECT_EQ(told, (std::vector<f64>{0.4194304, 0.8388608, 1}));  // pieces of 4 MiB
}

TEST_F(SectionWriterTest, DevicesTakeASectionOrFailInWriting) {
  file.rewrite(source_recording().build().bytes());
  EXPECT_EQ(WriteSectionFile(file.path(), "/dev/null", 0, 5), SectionStatus::Done);
  EXPECT_EQ(WriteSectionFile(file.path(), "/dev/full", 0, 5), SectionStatus::Failed);
}

TEST_F(SectionWriterTest, FilesThatCannotBeOpenedHaveTheirStatus) {
  EXPECT_EQ(WriteSectionFile(folder.file("fehlt.MEA"), target(), 0, 1), SectionStatus::NotOpened);
  EXPECT_FALSE(std::filesystem::exists(target()));
  file.rewrite(source_recording().build().bytes());
  EXPECT_EQ(WriteSectionFile(file.path(), folder.path(), 0, 1), SectionStatus::NotOpened);
  EXPECT_EQ(WriteSectionFile(file.path(), folder.file("fehlt/x.MEA"), 0, 1), SectionStatus::NotOpened);
}

TEST_F(SectionWriterTest, SourceIsNeverItsOwnTarget) {
  const std::string bytes = source_recording().build().bytes();
  file.rewrite(bytes);
  std::filesystem::create_symlink(file.path(), folder.file("Verweis.MEA"));
  EXPECT_EQ(WriteSectionFile(file.path(), file.path(), 0, 1), SectionStatus::NotOpened);
  EXPECT_EQ(WriteSectionFile(file.path(), folder.file("Verweis.MEA"), 0, 1), SectionStatus::NotOpened);
  EXPECT_EQ(read_file(file.path()), bytes);
}

TEST_F(SectionWriterTest, EveryCutOfTheHeaderIsToldAsAFailure) {
  RecorderBuilder recording{.row_count = 2};
  recording.entries = {{.channel = 1}};
  recording.data.i16_field(1).i16_field(2);
  const std::string bytes = recording.build().bytes();
  const std::size_t date_end = 32 + 20 + 225 + 24;
  file.rewrite(bytes);
  for (std::size_t size = bytes.size() + 1; size-- > 0;) {
    std::filesystem::resize_file(file.path(), size);
    const SectionStatus expected = size < 4          ? SectionStatus::NotRecording
                                   : size < date_end ? SectionStatus::Failed
                                                     : SectionStatus::Done;
    ASSERT_EQ(WriteSectionFile(file.path(), target(), 0, 2), expected) << size;
  }
}

TEST_F(SectionWriterTest, CountsThatLieAreAFailure) {
  constexpr i32 kMost = std::numeric_limits<i32>::max();
  for (const i32 count : {-1, 40000, kMost, std::numeric_limits<i32>::min()})
    EXPECT_EQ(write(source_recording().build().patch<i32>(4, count).bytes(), 0, 1), SectionStatus::Failed)
        << count;
  EXPECT_EQ(write(source_recording().build().patch<i32>(24, -1).bytes(), 0, 1), SectionStatus::Failed);
}

TEST_F(SectionWriterTest, EachFailureHasItsWords) {
  EXPECT_EQ(section_failure_text(SectionStatus::Done), "");
  EXPECT_EQ(section_failure_text(SectionStatus::NotOpened), "Fehler bei Öffnen der Datei!");
  EXPECT_EQ(section_failure_text(SectionStatus::Failed), "Fehler bei Schreiben der Ausschnittsdatei!");
  EXPECT_EQ(section_failure_text(SectionStatus::NotRecording),
            "Es wird keine komprimierte Meßwertdatei angezeigt.");
}

}  // namespace
}  // namespace trendaro
