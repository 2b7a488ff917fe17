#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "files/reducer.h"
#include "graph/data_zoom.h"
#include "graph/scrolling.h"
#include "graph/zoom_end.h"
#include "support/block_builder.h"
#include "support/noting_host.h"
#include "support/reducible_files.h"
#include "support/zoom_fixture.h"

namespace trendaro {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

// A standard file of 6000 known samples and its reduced file, 10 samples a pair.
class BlockZoomTest : public ZoomFixture {
 protected:
  static f64 known(i64 i) { return static_cast<f64>(i * 37 % 20001) - 10000; }

  BlockZoomTest() {
    write_original(6000);
    EXPECT_EQ(ReduceStandardFile(original(), folder.file("lauf.REB"), 10, [](f64) {}), ReduceStatus::Done);
    AddFileToGrid(model, folder.file("lauf.REB"), false);
    mark(2);
    box("PointsBox") = "1000";
    shell.calls.clear();
  }
  [[nodiscard]] std::string original() const { return folder.file("lauf.DAT"); }
  void write_original(i64 count) {
    std::vector<f64> samples(static_cast<std::size_t>(count));
    for (i64 i = 0; i < count; ++i) samples[static_cast<std::size_t>(i)] = known(i);
    write_file(original(), StandardFile{.channels = {{.samples = samples}}}.build().bytes());
  }
  // From and to a display point; each stands for five samples.
  void zoom(i32 from, i32 to) {
    set_limits(from * model.CompressedDXMax, to * model.CompressedDXMax);
    DataZoom(model);
  }
  void expect_values(i64 first, std::size_t count) {
    const auto values = channel_samples(model.Plots[1].DatabaseChannel);
    ASSERT_EQ(values.size(), count);
    for (std::size_t i = 0; i < count; ++i)
      ASSERT_EQ(values[i], known(first + static_cast<i64>(i))) << "sample " << first + static_cast<i64>(i);
  }
};

TEST_F(BlockZoomTest, SectionShowsTheSamplesOfTheOriginal) {
  ASSERT_EQ(model.Plots[1].FileKind, kKindReducedBlock);
  zoom(400, 600);
  EXPECT_TRUE(model.OriginalDataMode);
  EXPECT_EQ(model.Plots[1].FileKind, kKindDatabaseFromBlock);
  EXPECT_EQ(model.Plots[1].ChannelIndex, 1);
  expect_values(2000, 1000);
  EXPECT_EQ(box("ZoomPointsBox"), "1000");
  EXPECT_THAT(shell.messages(), IsEmpty());
  reset_zoom(model);
  EXPECT_EQ(model.Plots[1].FileKind, kKindReducedBlock);
  EXPECT_EQ(model.Plots[1].ChannelIndex, 1);
}

TEST_F(BlockZoomTest, ScrolledSectionComesFromTheSameFile) {
  zoom(400, 600);
  box("StepBox") = "500";
  scroll_section(model, true);
  expect_values(2500, 1000);
}

TEST_F(BlockZoomTest, SectionIsCutAtTheEndOfTheOriginal) {
  NotingHost noting(shell, 96, 100000);
  model.Host = &noting;
  write_original(5300);
  zoom(1000, 1200);
  EXPECT_THAT(noting.calls, Contains("7 i32 300"));
  noting.calls.clear();
  box("StepBox") = "100";
  scroll_section(model, false);  // 4900 to 5899
  EXPECT_THAT(noting.calls, Contains("6 i32 4900"));
  EXPECT_THAT(noting.calls, Contains("7 i32 400"));
  EXPECT_THAT(shell.messages(), IsEmpty());
}

// Only the values of block files tell their length.
TEST_F(BlockZoomTest, SectionOfABlockFileIsAskedForAsItIs) {
  NotingHost noting(shell, 96, 100000);
  model.Host = &noting;
  for (const i16 id : {i16{5003}, i16{5055}, i16{5056}}) {
    SCOPED_TRACE(id);
    write_file(original(), BlockFileLayout{.id = id, .channels = {{}}}.header().bytes());
    noting.calls.clear();
    zoom(1000, 1200);
    EXPECT_EQ(model.FileId, id);
    EXPECT_THAT(noting.calls, Contains("7 i32 1000"));
    noting.calls.clear();
    box("StepBox") = "100";
    scroll_section(model, false);
    EXPECT_THAT(noting.calls, Contains("7 i32 1000"));
    reset_zoom(model);
  }
}

TEST_F(BlockZoomTest, StatusGoesOnTellingOfTheMissingOriginal) {
  const auto first_panel = [&] {
    std::string text;
    for (const std::string& call : shell.calls)
      if (call.starts_with("status 1: ")) text = call.substr(10);
    return text;
  };
  std::filesystem::remove(original());
  model.PESG.pending.AllowZooming = 1;
  for (const i32 from : {400, 450}) {  // the second one without a message
    set_limits(from * model.CompressedDXMax, 600 * model.CompressedDXMax);
    end_main_zoom(model);
    EXPECT_EQ(first_panel(), "Meßwertfile nicht vorhanden!");
    EXPECT_EQ(shell.messages().size(), 1u);
  }
  scroll_section(model, true);
  EXPECT_EQ(first_panel(), "Meßwertfile nicht vorhanden!");
  zoom(400, 600);
  EXPECT_EQ(first_panel(), "Meßwertfile nicht vorhanden!");
  EXPECT_EQ(shell.messages().size(), 1u);
  set_limits(0, 1000 * model.CompressedDXMax);  // too wide for originals
  end_main_zoom(model);
  EXPECT_EQ(first_panel(), "");
}

TEST_F(BlockZoomTest, OtherExtensionOfTheOriginalsIsLookedFor) {
  std::filesystem::rename(original(), folder.file("lauf.BIN"));
  model.OriginalExtension = "BIN";
  zoom(400, 600);
  expect_values(2000, 1000);
}

TEST_F(BlockZoomTest, MissingOriginalPointsToTheExtension) {
  std::filesystem::remove(original());
  zoom(400, 600);
  EXPECT_THAT(shell.messages(),
              ElementsAre("Trendaro: Meßwertfile nicht vorhanden. Überprüfen Sie, ob die Endung des "
                          "Meßwertfiles mit der in Trendaro angegebenen Dateiendung übereinstimmt!"));
  EXPECT_EQ(shell.calls.back(), "status 1: Meßwertfile nicht vorhanden!");
  EXPECT_THAT(channel_samples(model.Plots[1].DatabaseChannel), IsEmpty());
}

}  // namespace
}  // namespace trendaro
