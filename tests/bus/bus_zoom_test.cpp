#include <cmath>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/bus_host.h"
#include "app/commands.h"
#include "app/run_time_error.h"
#include "app/toolbar.h"
#include "bus/private_bus.h"
#include "datasource/grid_handlers.h"
#include "files/reducer.h"
#include "graph/limit_lines.h"
#include "graph/scrolling.h"
#include "graph/zoom_end.h"
#include "support/reducible_files.h"
#include "support/zoom_fixture.h"

namespace trendaro {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Zooming with the database of a host in another process, 700 samples a channel.
class BusZoomTest : public ZoomFixture {
 protected:
  BusZoomTest() {
    server.start();
    bus.wait_for(kHostService);
    model.Host = &bus_host;
    model.Kernel = &bus_host;
    box("PointsBox") = "10000";
  }
  void expect_section(f64 low, f64 high) {
    const auto& lines = model.PESGSurvey.shown().VertLineAnnotation;
    ASSERT_GE(lines.size(), 2u);
    EXPECT_NEAR(lines[0], low, 1e-9);
    EXPECT_NEAR(lines[1], high, 1e-9);
  }

  PrivateBus bus;
  Program server{&bus, SERVE_HOST, {QStringLiteral("--samples=700")}};
  BusHost bus_host{bus.connection(), {QLatin1String(kHostService), QLatin1String(kHostPath)}};
};

TEST_F(BusZoomTest, SectionScrollsAndFollowsItsPairOfLines) {
  open({});
  mark(2);
  mark(3);
  shell.calls.clear();
  zoom(50, 55);
  expect_samples(2, 2, 5000, 500);
  expect_drawn(0, 1, 5000, 500);
  expect_drawn(1, 2, 5000, 500);
  EXPECT_EQ(host_text(bus_host.GetChannelProperty(2, kChannelName)), "Kanal 2");
  box("StepBox") = "100";
  click_tool(model, "TB_SCROLLRIGHT");
  expect_section(51, 56);
  expect_drawn(1, 2, 5100, 500);
  grip_limit_line(model, 0);
  drag_limit_line(model, 90, 0);
  drop_limit_line(model);
  EXPECT_GT(model.ZoomXMin, 80);
  expect_drawn(0, 1, std::llround(model.ZoomXMin * 100), 500);
  reset_zoom(model);
  EXPECT_FALSE(model.OriginalDataMode);
  EXPECT_THAT(shell.messages(), IsEmpty());
}

TEST_F(BusZoomTest, ChannelThatIsTooShortCutsTheSection) {
  open({});
  mark(2);
  shell.calls.clear();
  zoom(50, 60);
  EXPECT_THAT(
      shell.messages(),
      ElementsAre("Trendaro: Datenbasiskanal zu kurz, um alle Zoomwerte zu importieren. Es wurden nur "
                  "Werte bis zum Kanalende importiert."));
  EXPECT_EQ(box("ZoomPointsBox"), "700");
  expect_drawn(0, 1, 5000, 700);
  expect_section(50, 57);
}

TEST_F(BusZoomTest, OriginalThatIsGoneLeavesAnEmptySectionAndAViewerAtWork) {
  open_envelope({});
  mark(2);
  zoom(50, 55);
  EXPECT_THAT(channel_samples(1), IsEmpty());
  EXPECT_EQ(shell.wait_pointers, 0);
  EXPECT_EQ(shell.panels[1], "Meßwertfile nicht vorhanden!");
}

TEST_F(BusZoomTest, SectionOfAReducedFileIsCutAtTheEndOfItsOriginal) {
  const auto original = [](i64 count) {
    std::vector<f64> samples;
    for (i64 i = 0; i < count; ++i) samples.push_back(static_cast<f64>(i * 37 % 20001));
    return StandardFile{.channels = {{.samples = samples}}}.build().bytes();
  };
  write_file(folder.file("stand.DAT"), original(6000));
  ASSERT_EQ(ReduceStandardFile(folder.file("stand.DAT"), folder.file("stand.REB"), 10, [](f64) {}),
            ReduceStatus::Done);
  AddFileToGrid(model, folder.file("stand.REB"), false);
  mark(2);
  write_file(folder.file("stand.DAT"), original(5300));
  zoom(1000 * model.CompressedDXMax, 1100 * model.CompressedDXMax);  // 5000 to 5499
  EXPECT_EQ(model.Plots[1].FileKind, kKindDatabaseFromBlock);
  const std::vector<f64> values = channel_samples(model.Plots[1].DatabaseChannel);
  ASSERT_EQ(values.size(), 300u);
  for (std::size_t i = 0; i < values.size(); ++i)
    ASSERT_EQ(values[i], static_cast<f64>((5000 + i) * 37 % 20001)) << i;
}

TEST_F(BusZoomTest, BlocksAlongAChannelAddUp) {
  open({});
  activate_row(model, 2);
  run_command(model, "mnuSetX");
  mark(3);
  ASSERT_EQ(model.xSrc.ListIndex, kChannelAsX);
  zoom(-10000, -9900);
  EXPECT_TRUE(model.OriginalDataMode);
  const std::vector<f64> x = channel_samples(model.XScratchChannel);
  const std::vector<f64> y = channel_samples(model.Plots[1].DatabaseChannel);
  ASSERT_FALSE(x.empty());
  ASSERT_EQ(x.size(), y.size());
  for (std::size_t i = 0; i < x.size(); ++i) {
    const auto is_of_row = [&](i64 row) {
      return std::abs(ZoomRecording::known_sample(1, row) - x[i]) < 0.01 &&
             std::abs(ZoomRecording::known_sample(2, row) - y[i]) < 0.01;
    };
    i64 row = 0;
    while (row < ZoomRecording{}.rows && !is_of_row(row)) ++row;
    ASSERT_LT(row, ZoomRecording{}.rows) << i;
  }
}

TEST_F(BusZoomTest, HostThatHasGoneLeavesTheSectionOnShow) {
  open({});
  mark(2);
  zoom(50, 55);
  server.process.kill();
  server.process.waitForFinished(kPatience);
  box("StepBox") = "100";
  EXPECT_THROW(scroll_section(model, true), RunTimeError);
  EXPECT_NEAR(model.ZoomXMin, 50, 1e-9);
  EXPECT_EQ(shell.wait_pointers, 0);
  expect_drawn(0, 1, 5000, 500);
}

}  // namespace
}  // namespace trendaro
