#include "graph/window_reading.h"

#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "graph/main_redraw.h"
#include "support/plot_fixture.h"

namespace trendaro {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class WindowReadingTest : public PlotFixture {
 protected:
  WindowReadingTest() {
    model.CurveCacheOff = true;
    model.TimeUnit = 0;
    model.picture_window = PictureWindow{.edges = {4, 7}, .most_samples = 100};
  }
};

std::vector<f64> counted(std::size_t count) {
  std::vector<f64> samples(count);
  for (std::size_t i = 0; i < count; ++i) samples[i] = static_cast<f64>(i);
  return samples;
}

TEST_F(WindowReadingTest, SlotsHoldWhatTheWindowNeeds) {
  add_plot(write("a.dat", curve_file({{.samples = counted(1000)}})), 1, kKindPlain, 1000);
  RedrawKMGraph(model, false);
  EXPECT_THAT(y_of(model.PESG), ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 999));
  EXPECT_THAT(x_of(model.PESG), ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 999));
  EXPECT_EQ(model.PESG.shown().PointCount, 9);
  EXPECT_FALSE(model.picture_window->thinned);
}

TEST_F(WindowReadingTest, DisplayValuesAreThoseOfTheWholeCurve) {
  PlotRecord& plot = add_plot(write("a.dat", curve_file({{.samples = counted(6)}})), 1, kKindPlain, 6);
  plot.YOffset = 2;
  plot.InvertFlag = 1;
  RedrawKMGraph(model, false);
  EXPECT_THAT(y_of(model.PESG), ElementsAre(-2, -3, -4, -5, -6, -7));
}

TEST_F(WindowReadingTest, CurvesOfDifferentLengthEndInNullValues) {
  add_plot(write("a.dat", curve_file({{.samples = {5, 6}}})), 1, kKindPlain, 2);
  add_plot(write("b.dat", curve_file({{.samples = {1, 2, 3}}})), 1, kKindPlain, 3);
  RedrawKMGraph(model, false);
  const auto null = static_cast<f32>(model.PESG.shown().NullDataValue);
  EXPECT_THAT(y_of(model.PESG), ElementsAre(5, 6, null, 1, 2, 3));
}

TEST_F(WindowReadingTest, ThinningIsTold) {
  add_plot(write("a.dat", curve_file({{.samples = counted(1000)}})), 1, kKindPlain, 1000);
  model.picture_window = PictureWindow{.edges = {100, 900}, .most_samples = 50};
  RedrawKMGraph(model, false);
  EXPECT_TRUE(model.picture_window->thinned);
  EXPECT_THAT(y_of(model.PESG), ElementsAre(0, 99, 100, 899, 900, 999));
}

TEST_F(WindowReadingTest, ADateAxisIsReadInDoublePrecision) {
  model.TimeUnit = 4;
  model.DateAxis = true;
  model.picture_window = PictureWindow{.edges = {0.25, 1}, .most_samples = 100};
  add_plot(write("a.bin", curve_file({{.samples = counted(4), .interval = 21600000}})), 1, kKindPlain, 4);
  RedrawKMGraph(model, false);
  ASSERT_NE(model.PESG.shown().XDataII, nullptr);
  EXPECT_THAT(*model.PESG.shown().XDataII, ElementsAre(0, 0.25, 0.5, 0.75));
}

TEST_F(WindowReadingTest, LengthsThatAreNotKnownComeWithTheValues) {
  PlotRecord& plot = add_plot(write("a.dat", curve_file({{.samples = counted(1000)}})), 1, kKindPlain, -1);
  RedrawKMGraph(model, false);
  EXPECT_EQ(plot.Points, 1000);
  EXPECT_EQ(model.MaxPlotPoints, 1000);
  EXPECT_EQ(model.PESG.shown().PointCount, 9);
}

TEST_F(WindowReadingTest, AFileThatIsGoneIsToldAndLeavesNullValues) {
  const std::string path = write("a.dat", curve_file({{.samples = counted(10)}}));
  PlotRecord& plot = add_plot(path, 1, kKindPlain, -1);
  std::filesystem::remove(path);
  RedrawKMGraph(model, false);
  EXPECT_EQ(plot.Points, -1);
  ASSERT_EQ(shell.messages().size(), 1U);
  EXPECT_THAT(shell.messages()[0], HasSubstr("Fehler beim Öffnen der Datei " + path));
  EXPECT_THAT(y_of(model.PESG), ElementsAre(static_cast<f32>(model.PESG.shown().NullDataValue)));
}

TEST_F(WindowReadingTest, WhatIsKeptOrComparedIsReadWhole) {
  add_plot(write("a.dat", curve_file({{.samples = counted(20)}})), 1, kKindPlain, 20);
  EXPECT_TRUE(reads_window(model));
  model.CurveCacheOff = false;
  EXPECT_FALSE(reads_window(model));
  model.CurveCacheOff = true;
  model.DisplayCompression = true;
  EXPECT_FALSE(reads_window(model));
  model.DisplayCompression = false;
  PlotRecord& reduced = add_plot("b.sto", 1, kKindReducedPairs, 20);
  EXPECT_FALSE(reads_window(model));
  // What is not on show does not count.
  reduced.Layer = 3;
  model.LastLayer = 0;
  EXPECT_TRUE(reads_window(model));
  model.Plots[1].XSource = 1;
  EXPECT_FALSE(reads_window(model));
}

}  // namespace
}  // namespace trendaro
