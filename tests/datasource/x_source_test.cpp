#include "datasource/list_fixture.h"

namespace trendaro {
namespace {

using XSourceTest = ListFixture;
using Texts = std::vector<std::string>;

TEST_F(XSourceTest, ChannelEntryWithoutAChannelGoesBack) {
  click_xSrc(model, 1);
  EXPECT_EQ(
      shell.messages(),
      (Texts{"Trendaro: Sie haben noch keinen x-Kanal ausgewählt. Klicken Sie mit der rechten Maustaste "
             "auf einen Kanal und wählen Sie 'Als x-Datensatz verwenden'."}));
  EXPECT_EQ(shell.icons, (std::vector{MessageIcon::None}));
  EXPECT_EQ(model.xSrc.ListIndex, 0);
  EXPECT_FALSE(model.ButtonLock);
  EXPECT_EQ(main_redraws(), 0);
}

TEST_F(XSourceTest, ChosenChannelBecomesTheSecondEntry) {
  add_file("run.REB", 3, 8);
  mark(2);
  shell.calls.clear();
  activate_row(model, 4);
  mnuSetX(model);
  EXPECT_EQ(model.XChannel, 3);
  EXPECT_EQ(model.xSrc.entries[1].text, "run.REB 3");
  EXPECT_EQ(model.xSrc.entries[1].item_data, 3);
  EXPECT_EQ(model.xSrc.ListIndex, 1);
  EXPECT_EQ(model.PreviousSource, 1);
  EXPECT_EQ(model.Plots[1].XSource, 3);
  EXPECT_EQ(main_redraws(), 1);
  EXPECT_EQ(survey_redraws(), 1);
  EXPECT_FALSE(model.ButtonLock);
}

TEST_F(XSourceTest, MarkedChannelCanBeTheXChannel) {
  add_file("run.BIN", 12);
  mark(13, 2, 1);
  activate_row(model, 13);
  mnuSetX(model);
  EXPECT_EQ(model.XChannel, 12);
  EXPECT_EQ(survey_redraws(), 0);
}

TEST_F(XSourceTest, FileRowIsNoXChannel) {
  add_file("run.BIN", 1);
  activate_row(model, 1);
  mnuSetX(model);
  EXPECT_EQ(model.xSrc.ListIndex, 0);
  EXPECT_EQ(main_redraws(), 0);
}

TEST_F(XSourceTest, BackToTimeRedraws) {
  add_file("run.REB", 2, 8);
  mark(2);
  activate_row(model, 3);
  mnuSetX(model);
  shell.calls.clear();
  click_xSrc(model, 0);
  EXPECT_EQ(model.PreviousSource, 0);
  EXPECT_EQ(model.Plots[1].XSource, 0);
  EXPECT_EQ(model.Plots[1].TimeFromRate, 1);
  EXPECT_EQ(main_redraws(), 1);
  EXPECT_EQ(survey_redraws(), 1);
  click_xSrc(model, 1);
  EXPECT_EQ(model.Plots[1].XSource, 2);
  EXPECT_EQ(main_redraws(), 2);
}

TEST_F(XSourceTest, ChangeOfTheSourceLeavesTheZoom) {
  add_file("run.REB", 2, 8);
  mark(2);
  model.Zoomed = true;
  activate_row(model, 3);
  mnuSetX(model);
  EXPECT_FALSE(model.Zoomed);
  model.Zoomed = true;
  click_xSrc(model, 0);
  EXPECT_FALSE(model.Zoomed);
}

class SharedXChannelTest : public ListFixture {
 protected:
  // Two files whose first channel is x; the second one of each is drawn.
  SharedXChannelTest() {
    add_samples("a.BIN", {1, 2, 3, 4});
    add_samples("b.BIN", {100, 200, 300, 400});
    activate_row(model, 2);
    mnuSetX(model);
    mark(3);
    mark(6);
  }
  void add_samples(const std::string& name, const std::vector<f64>& x) {
    write_file(folder.file(name), recording_bytes({{"x", x}, {"y", {5, 6, 7, 8}}}));
    AddFileToGrid(model, folder.file(name), false);
  }
  std::vector<f32> drawn_x() const {
    const auto& drawn = *model.PESG.pending.XData;
    return {drawn.begin(), drawn.end()};
  }
};

TEST_F(SharedXChannelTest, CurvesOfOneViewShareTheXOfTheFirst) {
  EXPECT_EQ(drawn_x(), (std::vector<f32>{1, 2, 3, 4, 1, 2, 3, 4}));
}

TEST_F(SharedXChannelTest, RemovedFileTakesItsXAlong) {
  activate_row(model, 1);
  RemoveFileFromGrid(model);
  EXPECT_EQ(drawn_x(), (std::vector<f32>{100, 200, 300, 400}));
}

TEST_F(SharedXChannelTest, UnmarkedCurveTakesItsXAlong) {
  unmark(3);
  EXPECT_EQ(drawn_x(), (std::vector<f32>{100, 200, 300, 400}));
}

TEST_F(XSourceTest, SameEntryAgainDoesNothing) {
  add_file("run.REB", 2, 8);
  mark(2);
  shell.calls.clear();
  click_xSrc(model, 0);
  EXPECT_EQ(main_redraws(), 0);
}

TEST_F(XSourceTest, LockedListIgnoresTheChoice) {
  model.xSrc.entries[1].item_data = 1;
  model.ButtonLock = true;
  click_xSrc(model, 1);
  EXPECT_EQ(model.xSrc.ListIndex, 0);
}

TEST_F(XSourceTest, RemovedFileLeavesTheChosenChannel) {
  add_file("run.REB", 2, 8);
  activate_row(model, 3);
  mnuSetX(model);
  activate_row(model, 1);
  RemoveFileFromGrid(model);
  EXPECT_EQ(model.xSrc.entries[1].item_data, 2);
}

}  // namespace
}  // namespace trendaro
