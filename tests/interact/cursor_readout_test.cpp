#include "interact/cursor_readout.h"

#include <gtest/gtest.h>

#include "app/model.h"
#include "support/graph_data.h"
#include "support/recording_shell.h"

namespace trendaro {
namespace {

using Column = std::vector<std::string>;

// Curves of three points over x = 0, 10, 20; point 1 of curve c, from 0, is 100 + c.
class CursorReadoutTest : public testing::Test {
 protected:
  void give_curves(const std::vector<i16>& curves_of_layers) {
    std::vector<f32> x, y;
    for (const i16 curves : curves_of_layers)
      for (i16 curve = 0; curve < curves; ++curve) {
        const auto number = static_cast<f32>(x.size() / 3);
        x.insert(x.end(), {0, 10, 20});
        y.insert(y.end(), {0, 100 + number, 0.25F});
        add_plot("u" + std::to_string(x.size() / 3));
        model.PESG.pending.SubsetColors.push_back(static_cast<i32>(x.size() / 3));
      }
    set_curves(model.PESG.pending, 3, x, y);
    model.PESG.pending.MultiAxesSubsets.assign(curves_of_layers.begin(), curves_of_layers.end());
    PEactions(model.PESG, kTakeOverAndRedraw);
    model.XUnit = "s";
    model.PESG.pending.CursorMode = 2;
    model.PESG.pending.CursorPoint = 1;
  }
  void add_plot(const std::string& unit) {
    PlotRecord plot;
    plot.Unit = unit;
    model.Plots.push_back(plot);
    ++model.NofPlots;
  }
  [[nodiscard]] const TableProperties& table(std::size_t index) const {
    return model.PESG.shown().tables[index];
  }
  [[nodiscard]] std::string cell(std::size_t index, i32 row, i32 column) const {
    const auto found = table(index).cells.find({row, column});
    return found == table(index).cells.end() ? "" : found->second.text;
  }
  [[nodiscard]] Column column() const {
    Column texts;
    for (i32 row = 0; row < table(0).TableRows; ++row) texts.push_back(cell(0, row, 0));
    return texts;
  }

  RecordingShell shell;
  Model model{shell};
};

TEST_F(CursorReadoutTest, OneCurveTakesFiveRows) {
  give_curves({1});
  ShowCursorDisplay(model, false);
  EXPECT_EQ(column(), (Column{"x=10.00 s", "100.0 u1", "----------------", "", ""}));
  EXPECT_EQ(table(0).TableLocation, 6);
  EXPECT_EQ(table(0).TableColumns, 1);
  EXPECT_EQ(table(0).TableBorder, 3);
  EXPECT_EQ(table(0).TableTextSize, 80);
  EXPECT_EQ(table(0).column_widths.at(0), 10);
  EXPECT_TRUE(model.PESG.shown().TablesEnabled);
}

TEST_F(CursorReadoutTest, LayersAreSeparatedAndCurvesColored) {
  give_curves({2, 1});
  ShowCursorDisplay(model, false);
  EXPECT_EQ(column(), (Column{"x=10.00 s", "100.0 u1", "101.0 u2", "----------------", "102.0 u3",
                              "----------------", ""}));
  EXPECT_EQ(table(0).cells.at({2, 0}).color, 2);
  EXPECT_EQ(table(0).cells.at({4, 0}).color, 3);
}

TEST_F(CursorReadoutTest, AMoveOfTheCursorChangesTheValues) {
  give_curves({1});
  ShowCursorDisplay(model, false);
  model.PESG.pending.CursorPoint = 2;
  UpdateCursorDisplay(model);
  EXPECT_EQ(column(), (Column{"x=20.00 s", "0.2500 u1", "----------------", "", ""}));
}

TEST_F(CursorReadoutTest, DatesAreWrittenOut) {
  give_curves({1});
  GraphProperties& graph = model.PESG.pending;
  graph.UsingXDataII = true;
  graph.XDataII = std::make_shared<const SampleArray>(SampleArray{44260, 44260.5, 44261});  // 5 March 2021
  PEactions(model.PESG, kTakeOverAndRedraw);
  ShowCursorDisplay(model, false);
  EXPECT_EQ(cell(0, 0, 0), "x=05.03.2021 12:00:00");
  model.CursorDisplayPos = kInsideLayers;
  ShowCursorDisplay(model, false);
  EXPECT_EQ(cell(0, 0, 0), "x=05.03.2021 12:00:00     ");
}

TEST_F(CursorReadoutTest, FiveCurvesInTheFirstLayerTakeTwoRows) {
  give_curves({5});
  model.CursorDisplayPos = kInsideLayers;
  ShowCursorDisplay(model, false);
  EXPECT_EQ(table(0).TableLocation, 100);
  EXPECT_EQ(table(0).TableRows, 2);
  EXPECT_EQ(table(0).TableColumns, 5);
  EXPECT_EQ(cell(0, 0, 0), "x=10.00 s");
  EXPECT_EQ(cell(0, 0, 1), "100.0 u1");
  EXPECT_EQ(cell(0, 0, 4), "103.0 u4");
  EXPECT_EQ(cell(0, 1, 0), "104.0 u5");
}

TEST_F(CursorReadoutTest, FourthCurveOfAnotherLayerEndsItsRow) {
  give_curves({1, 5});
  model.CursorDisplayPos = kInsideLayers;
  ShowCursorDisplay(model, false);
  EXPECT_EQ(table(1).TableLocation, 101);
  EXPECT_EQ(table(1).TableRows, 2);
  EXPECT_EQ(table(1).TableColumns, 4);
  EXPECT_EQ(cell(1, 0, 0), "101.0 u2");
  EXPECT_EQ(cell(1, 0, 3), "104.0 u5");
  EXPECT_EQ(cell(1, 1, 0), "105.0 u6");
  EXPECT_FALSE(table(2).TableVisible);
}

TEST_F(CursorReadoutTest, ThePlacesDoNotStandBesideEachOther) {
  give_curves({1, 1});
  model.CursorDisplayPos = kInsideLayers;
  ShowCursorDisplay(model, false);
  EXPECT_TRUE(table(1).TableVisible);
  model.CursorDisplayPos = kRightOfGraph;
  ShowCursorDisplay(model, false);
  EXPECT_TRUE(table(0).TableVisible);
  EXPECT_FALSE(table(1).TableVisible);
}

TEST_F(CursorReadoutTest, UnitsAreThoseOfTheVisibleLayers) {
  give_curves({1});
  add_plot("bar");
  model.CurveOffset = 1;  // the first plot's layer is hidden
  ShowCursorDisplay(model, false);
  EXPECT_EQ(cell(0, 1, 0), "100.0 bar");
}

TEST_F(CursorReadoutTest, HiddenTablesAreOff) {
  give_curves({1});
  ShowCursorDisplay(model, false);
  ShowCursorDisplay(model, true);
  EXPECT_FALSE(model.PESG.shown().TablesEnabled);
}

TEST_F(CursorReadoutTest, OtherModesOfTheGraphFillNothing) {
  give_curves({1});
  model.PESG.pending.CursorMode = 4;
  ShowCursorDisplay(model, false);
  EXPECT_EQ(cell(0, 0, 0), "");
}

TEST_F(CursorReadoutTest, ARedrawShowsItWhileACursorIsOn) {
  give_curves({1});
  refresh_cursor_display(model);
  EXPECT_TRUE(model.PESG.shown().TablesEnabled);
  model.PESG.pending.CursorMode = 0;
  refresh_cursor_display(model);
  EXPECT_FALSE(model.PESG.shown().TablesEnabled);
}

TEST_F(CursorReadoutTest, APointThatIsGoneFailsWithoutHarm) {
  give_curves({1});
  model.PESG.pending.CursorPoint = 7;
  ShowCursorDisplay(model, false);
  EXPECT_EQ(cell(0, 1, 0), "0 u1");
  EXPECT_EQ(model.LastDatabaseStatus, kPropertyUnknown);
}

}  // namespace
}  // namespace trendaro
