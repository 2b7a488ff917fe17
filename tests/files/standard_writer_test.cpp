#include "files/standard_writer.h"

#include <vector>

#include <gtest/gtest.h>

#include "app/model.h"
#include "files/loader.h"
#include "support/silent_shell.h"
#include "support/standard_builder.h"

namespace trendaro {
namespace {

class StandardWriterTest : public testing::Test {
 protected:
  TemporaryFolder folder;
  std::string path = folder.file("werte.BIN");
  std::vector<f64> speed = {0.5, -1e300, 3};
  std::vector<f64> pressure = {7};
  std::vector<StandardSignal> signals = {
      {.name = "Öldruck",
       .unit = "bar",
       .comment = "Motor",
       .date = 44260.5,
       .sample_interval = 0.25,
       .samples = speed},
      {.name = "", .unit = "µm", .comment = "", .samples = {}},
      {.name = "Weg", .unit = "", .comment = "", .sample_interval = 1000, .samples = pressure}};
};

// The same file by the builder of the readers' tests, which leaves the offsets at 0.
TEST_F(StandardWriterTest, BytesAreThoseOfAStandardFile) {
  ASSERT_TRUE(write_standard_file(path, signals));
  StandardFileLayout layout{.comment = ""};
  StandardChannel oil{.name = "\xD6ldruck", .unit = "bar", .comment = "Motor", .channel_date = 44260.5};
  oil.record.StartTime = 44260.5;
  oil.record.SampleInterval = 0.25;
  oil.values = speed;
  const StandardChannel empty{.name = "", .unit = "\xB5m", .comment = "", .channel_date = 0};
  StandardChannel way{.name = "Weg", .unit = "", .comment = "", .channel_date = 0};
  way.record.SampleInterval = 1000;
  way.values = pressure;
  layout.channels = {oil, empty, way};
  FileBuilder expected = layout.build();
  const std::size_t data = layout.header().size();
  expected.patch(2, static_cast<i32>(data));
  const std::size_t offsets = 2 + 4 + 2 + 32 * 2 + 2 + 4;
  // A channel header without its texts: points, three lengths, kind, width, date, record, extra, extension.
  const std::size_t header = 4 + 3 * 2 + 2 + 2 + 8 + (4 + 152) + (3 + 2 + 2) + 4;
  const std::size_t first = offsets + 3 * 4 + 4 + 2;
  const std::size_t second = first + header + 7 + 3 + 5 + 2;
  expected.patch(offsets, static_cast<i32>(first));
  expected.patch(offsets + 4, static_cast<i32>(second));
  expected.patch(offsets + 8, static_cast<i32>(second + header + 0 + 2 + 0 + 2));
  EXPECT_EQ(read_file(path), expected.bytes());
}

TEST_F(StandardWriterTest, ReaderFindsWhatWasWritten) {
  ASSERT_TRUE(write_standard_file(path, signals));
  SilentShell shell;
  Model model{shell};
  ASSERT_EQ(LoadMeasurementFile(model, 1, path, 1, 0), LoadStatus::Done);
  EXPECT_EQ(model.FileChannelCount, 3);
  EXPECT_EQ(model.FileChannelNames[1], "Öldruck");
  EXPECT_EQ(model.FileChannelUnits[2], "µm");
  EXPECT_EQ(model.FileChannelRates[3], 1000);
  EXPECT_EQ(model.FileDateText, "44260.5");
  EXPECT_EQ(std::vector<f64>(model.FileChannelValues.begin(), model.FileChannelValues.end()), speed);
  ASSERT_EQ(LoadMeasurementFile(model, 1, path, 3, 0), LoadStatus::Done);
  EXPECT_EQ(std::vector<f64>(model.FileChannelValues.begin(), model.FileChannelValues.end()), pressure);
}

TEST_F(StandardWriterTest, FileThatCannotBeWrittenIsAFailure) {
  EXPECT_FALSE(write_standard_file(folder.file("none/werte.BIN"), signals));
  EXPECT_FALSE(write_standard_file("/dev/full", signals));
}

}  // namespace
}  // namespace trendaro
