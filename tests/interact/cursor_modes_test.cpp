#include "interact/cursor_modes.h"

#include <gtest/gtest.h>

#include "app/commands.h"
#include "app/model.h"
#include "app/startup.h"
#include "app/toolbar.h"
#include "support/fake_host.h"
#include "support/file_builder.h"
#include "support/recording_shell.h"

namespace trendaro {
namespace {

class CursorModesTest : public testing::Test {
 protected:
  CursorModesTest() {
    model.Host = &host;
    model.TemplateFolder = folder.path();
    load_main_window(model);
  }
  void expect_mode(i16 mode, const char* entry) {
    EXPECT_EQ(graph.CursorMode, mode);
    EXPECT_EQ(graph.CursorPromptTracking, mode != 0);
    EXPECT_EQ(model.controls["TB_CURSOR"].tag, mode == 0 ? "" : "1");
    EXPECT_EQ(model.controls["TB_CURSOR"].image, mode == 0 ? "CURSUP_XP" : "CURSDN_XP");
    EXPECT_EQ(model.PESG.shown().TablesEnabled, mode != 0);
    for (const char* each : {"mnuCursorOff", "mnuVertCursor", "mnuCrossCursor", "mnuSquareCursor"})
      EXPECT_EQ(model.controls[each].ticked, std::string(each) == entry) << each;
  }

  TemporaryFolder folder;
  RecordingShell shell;
  FakeHost host;
  Model model{shell};
  GraphProperties& graph = model.PESG.pending;
};

TEST_F(CursorModesTest, NoCursorAtStart) {
  expect_mode(0, "mnuCursorOff");
  EXPECT_TRUE(model.controls["mnuCursorPosRight"].ticked);
}

TEST_F(CursorModesTest, EntriesChangeTheModeWithoutTurningOff) {
  run_command(model, "mnuVertCursor");
  expect_mode(1, "mnuVertCursor");
  run_command(model, "mnuCrossCursor");
  expect_mode(2, "mnuCrossCursor");
  run_command(model, "mnuSquareCursor");
  expect_mode(3, "mnuSquareCursor");
  EXPECT_EQ(graph.CursorPromptStyle, 3);
  EXPECT_TRUE(graph.MarkDataPoints);
  run_command(model, "mnuCursorOff");
  expect_mode(0, "mnuCursorOff");
}

TEST_F(CursorModesTest, ButtonTurnsTheCrossOnAndAnyModeOff) {
  click_tool(model, "TB_CURSOR");
  expect_mode(2, "mnuCrossCursor");
  EXPECT_EQ(graph.CursorPromptStyle, 0);
  click_tool(model, "TB_CURSOR");
  expect_mode(0, "mnuCursorOff");
  run_command(model, "mnuVertCursor");
  click_tool(model, "TB_CURSOR");
  expect_mode(0, "mnuCursorOff");
}

TEST_F(CursorModesTest, ReadoutMovesToItsNewPlaceAtOnce) {
  graph.MultiAxesSubsets = {1};
  run_command(model, "mnuCursorPosInAxis");
  EXPECT_TRUE(model.controls["mnuCursorPosInAxis"].ticked);
  EXPECT_FALSE(model.controls["mnuCursorPosRight"].ticked);
  EXPECT_FALSE(model.PESG.shown().TablesEnabled);
  run_command(model, "mnuCrossCursor");
  EXPECT_EQ(model.PESG.shown().tables[0].TableLocation, 100);
  run_command(model, "mnuCursorPosRight");
  EXPECT_EQ(model.PESG.shown().tables[0].TableLocation, 6);
}

}  // namespace
}  // namespace trendaro
