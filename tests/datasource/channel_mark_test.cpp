#include "datasource/channel_mark.h"

#include <stdexcept>
#include <tuple>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/commands.h"
#include "app/run_time_error.h"
#include "datasource/plot_list.h"
#include "graph/limit_lines.h"
#include "graph/main_redraw.h"
#include "graph/rubber_band.h"
#include "graph/zoom_end.h"
#include "support/zoom_fixture.h"

namespace trendaro {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Imports fail while `broken`.
class FailingHost : public MemoryHost {
 public:
  using MemoryHost::MemoryHost;
  bool broken = false;
  void ExecuteImport() override {
    if (broken) throw RunTimeError{kDivisionByZero};
    MemoryHost::ExecuteImport();
  }
};

// An envelope of 20000 samples, 10 a pair, and beside it the recordings themselves.
class ChannelMarkTest : public ZoomFixture {
 protected:
  ChannelMarkTest() {
    model.Host = &failing;
    open({.channels = 3});
  }
  void mark_envelopes(std::initializer_list<i16> layers) {
    i32 row = 2;
    for (const i16 layer : layers) mark(row++, layer);
  }
  void band(f64 low, f64 high) {
    set_limits(low, high);
    end_main_zoom(model);
  }
  void expect_readout(const std::string& text, i32 colour) {
    EXPECT_EQ(box("ZoomPointsBox"), text);
    EXPECT_EQ(model.controls["ZoomPointsBox"].back_color, colour);
  }
  std::string last_text_of_panel(int panel) {
    const std::string beginning = "status " + std::to_string(panel) + ": ";
    std::string text;
    for (const std::string& call : shell.calls)
      if (call.starts_with(beginning)) text = call.substr(beginning.size());
    return text;
  }
  void expect_zoomed_section(f64 low, f64 high) {
    const GraphProperties& graph = model.PESG.shown();
    EXPECT_TRUE(model.Zoomed);
    EXPECT_TRUE(graph.ZoomActive);
    EXPECT_EQ(graph.ZoomMinX, low);
    EXPECT_EQ(graph.ZoomMaxX, high);
  }

  FailingHost failing{shell, 96, 100000};
};

TEST_F(ChannelMarkTest, PlainSignalBesideOriginalSamplesLeavesTheReducedSectionOnShow) {
  mark_envelopes({1});
  band(50, 60);
  expect_readout("1000", kGreen);
  mark(add_plain(20000));
  EXPECT_FALSE(model.OriginalDataMode);
  EXPECT_EQ(model.Plots[1].FileKind, kKindReducedPairs);
  expect_readout("1000", kWhite);
  expect_zoomed_section(50, 60);
}

TEST_F(ChannelMarkTest, OriginalSamplesComeBackWithTheLastPlainSignal) {
  mark_envelopes({1});
  band(50, 60);
  const i32 plain = add_plain(20000);
  mark(plain);
  unmark(plain);
  EXPECT_TRUE(model.OriginalDataMode);
  expect_readout("1000", kGreen);
  expect_drawn(0, 1, 5000, 1000);
  EXPECT_EQ(last_text_of_panel(1), "");
  EXPECT_EQ(last_text_of_panel(2), "");
}

TEST_F(ChannelMarkTest, PlainSignalInAReducedSectionLeavesTheReadout) {
  box("PointsBox") = "10";
  mark_envelopes({1});
  band(50, 60);
  mark(add_plain(20000));
  expect_readout("1000", kWhite);
  expect_zoomed_section(50, 60);
}

TEST_F(ChannelMarkTest, PlainSignalOfANewLayerShowsItsPointsWhateverTheReadoutWas) {
  for (const char* bound : {"10000", "10"}) {
    ClearGraph(model);
    box("PointsBox") = bound;
    mark_envelopes({1});
    band(50, 60);
    mark(add_plain(20000), 2);
    EXPECT_FALSE(model.Zoomed);
    expect_readout("20000", kYellow);
  }
}

TEST_F(ChannelMarkTest, PlainSignalOfAHiddenLayerEndsTheGreenReadout) {
  mark_envelopes({1, 2});
  model.PESG.pending.ZoomAxisBottom = model.PESG.pending.ZoomAxisTop = 1;
  band(50, 60);
  expect_readout("1000", kGreen);
  mark(add_plain(20000), 1);
  expect_readout("1000", kWhite);
  expect_zoomed_section(50, 60);
}

TEST_F(ChannelMarkTest, HiddenPlainSignalsCountForTheReset) {
  mark_envelopes({1, 2});
  mark(add_plain(20000), 1);
  model.PESG.pending.ZoomAxisBottom = model.PESG.pending.ZoomAxisTop = 1;
  band(50, 60);
  ASSERT_FALSE(model.PESG.shown().SubsetCount > 1);  // layer 2 alone
  EXPECT_EQ(model.MaxPlotPoints, 20000);
  click_tool(model, "TB_ZOOMFIX");
  expect_readout("20000", kYellow);
}

TEST_F(ChannelMarkTest, ImportThatFailsHalfWayLeavesNoGreenReadoutOverReducedCurves) {
  mark_envelopes({1, 1});
  band(50, 60);
  failing.broken = true;
  mark(4);
  EXPECT_EQ(shell.messages().size(), 1u);
  expect_readout("1000", kWhite);
  failing.broken = false;
  mark(add_plain(20000));
  expect_readout("1000", kWhite);
  expect_zoomed_section(50, 60);
}

TEST_F(ChannelMarkTest, BoundBeyondAllCountsLeavesTheReducedSection) {
  mark_envelopes({1});
  band(50, 60);
  box("PointsBox") = "99999999999";
  mark(3);
  EXPECT_EQ(shell.messages().size(), 1u);
  EXPECT_FALSE(model.OriginalDataMode);
  expect_readout("1000", kWhite);
  expect_zoomed_section(50, 60);
  EXPECT_EQ(model.PESG.shown().PointCount, 4000);  // two a pair
}

TEST_F(ChannelMarkTest, PointsOfAPlainSignalAreNotTakenForTheSection) {
  mark_envelopes({1});
  const i32 plain = add_plain(30000);
  mark(plain, 2);
  mark(3, 2);
  band(10, 20);
  click_tool(model, "TB_ZOOMFIX");
  expect_readout("30000", kYellow);
  band(50, 60);
  unmark(plain);  // layer 2 stays in use
  EXPECT_TRUE(model.Zoomed);
  expect_readout("1000", kGreen);
}

TEST_F(ChannelMarkTest, SectionBehindTheEnvelopesIsLeftWithThePlainSignal) {
  mark_envelopes({1});
  const i32 plain = add_plain(60000);
  mark(plain);
  band(50, 550);  // 50000 samples of the plain signal, more than the envelope has
  unmark(plain);
  EXPECT_FALSE(model.Zoomed);
  expect_readout("19990", kWhite);  // the last display point is left out
}

TEST_F(ChannelMarkTest, ShortSectionBeyondTheEnvelopesIsLeftWithThePlainSignal) {
  mark_envelopes({1});
  const i32 plain = add_plain(60000);
  mark(plain);
  band(400, 410);  // the envelope ends at 200
  unmark(plain);
  EXPECT_FALSE(model.Zoomed);
  EXPECT_EQ(model.PESG.shown().PointCount, 4000);
  expect_readout("19990", kWhite);
}

TEST_F(ChannelMarkTest, SectionThatReachesBeyondTheEnvelopesStaysWithoutThePlainSignal) {
  box("PointsBox") = "10";
  mark_envelopes({1});
  const i32 plain = add_plain(60000);
  mark(plain);
  band(190, 210);
  unmark(plain);
  expect_zoomed_section(190, 210);
  expect_readout("2000", kWhite);
}

TEST_F(ChannelMarkTest, YellowReadoutFollowsTheLongestPlainSignal) {
  mark(add_plain(20000));
  click_tool(model, "TB_ZOOMFIX");
  expect_readout("20000", kYellow);
  const i32 longer = add_plain(30000);
  mark(longer);
  expect_readout("30000", kYellow);
  mark(2);
  expect_readout("30000", kYellow);
  unmark(longer);
  expect_readout("20000", kYellow);
}

TEST_F(ChannelMarkTest, YellowReadoutEndsWithTheLastPlainSignal) {
  mark_envelopes({1});
  const i32 plain = add_plain(20000);
  mark(plain);
  click_tool(model, "TB_ZOOMFIX");
  expect_readout("20000", kYellow);
  unmark(plain);
  expect_readout("19990", kWhite);
}

TEST_F(ChannelMarkTest, LengthThatTurnsOutWithTheSamplesCounts) {
  const i32 row = add_plain(20000);
  model.Grid.rows[row].points = -1;
  mark(row);
  EXPECT_EQ(model.MaxPlotPoints, 20000);
}

TEST_F(ChannelMarkTest, MarkTakenAwayLeavesARectangleOfTheGraph) {
  mark_envelopes({1, 1});
  mark(add_plain(20000));  // not compressed
  ASSERT_FALSE(model.DisplayCompression);
  rectangle(50, 60);
  unmark(3);
  EXPECT_EQ(model.PESG.shown().AllowZooming, 3);
  EXPECT_TRUE(model.PESG.shown().ZoomActive);
}

TEST_F(ChannelMarkTest, NewMarkLeavesARectangleOfTheGraphOnShow) {
  mark_envelopes({1});
  mark(add_plain(20000));  // not compressed
  rectangle(50, 60);
  mark(3);
  EXPECT_EQ(model.PESG.shown().AllowZooming, 3);
  EXPECT_EQ(model.PESG.shown().layers[0].ZoomMinY, 10);
}

TEST_F(ChannelMarkTest, ZoomModeComesBackFromARedrawThatFails) {
  mark_envelopes({1});
  band(50, 60);
  model.PESG.pending.AllowZooming = 3;
  shell.during_status = [](const std::string&) { throw std::runtime_error("panel"); };
  EXPECT_THROW(mark(3), std::runtime_error);
  EXPECT_EQ(model.PESG.pending.AllowZooming, 3);
}

}  // namespace
}  // namespace trendaro
