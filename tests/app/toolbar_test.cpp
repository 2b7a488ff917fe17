#include "app/toolbar.h"

#include <set>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/commands.h"
#include "app/model.h"
#include "support/recording_shell.h"

namespace trendaro {
namespace {

using testing::ElementsAre;

class ToolbarTest : public testing::Test {
 protected:
  RecordingShell shell;
  Model model{shell};

  // "tag image" of a button.
  std::string look(const char* key) {
    const ControlState& state = model.controls[key];
    return state.tag + " " + state.image;
  }
};

TEST_F(ToolbarTest, PositionsAreInTheAgreedOrder) {
  std::vector<std::string> keys;
  for (const ToolButton& tool : tool_buttons())
    if (tool.kind != ToolKind::Separator) keys.emplace_back(tool.key);
  EXPECT_THAT(keys, ElementsAre("TB_ADDFILE", "TB_OPENGRAPH", "TB_SAVEGRAPH", "TB_PRINT", "TB_EXPORT",
                                "TB_AXIS1", "TB_AXIS2", "TB_AXIS3", "TB_LYAXIS", "TB_RYAXIS", "TB_ZOOMPOINTS",
                                "TB_ZOOMINTERVAL", "TB_ZOOMFIX", "TB_ZOOMHORZ", "TB_ZOOMVERT", "TB_ZOOMRECT",
                                "TB_SHOWPOINTS", "TB_SCROLLLEFT", "TB_SCROLLPOINTS", "TB_SCROLLRIGHT",
                                "TB_INFO", "TB_CURSOR", "TB_ANNOTATION"));
}

TEST_F(ToolbarTest, SeparatorsThatHideAndTheHolderOfTheZoomPointsHaveTheirPositions) {
  const auto tools = tool_buttons();
  EXPECT_EQ(tools[16 - 1].kind, ToolKind::Separator);
  EXPECT_EQ(tools[29 - 1].kind, ToolKind::Separator);
  EXPECT_STREQ(tools[16 - 1].key, "TB_SEPARATOR16");
  EXPECT_STREQ(tools[29 - 1].key, "TB_SEPARATOR29");
  EXPECT_STREQ(tools[24 - 1].key, "TB_SHOWPOINTS");
  EXPECT_STREQ(tools[24 - 1].box, "ZoomPointsBox");
}

TEST_F(ToolbarTest, KeysAndImagesOccurOnce) {
  std::set<std::string> seen;
  for (const ToolButton& tool : tool_buttons()) {
    for (const char* word : {tool.key, tool.image, tool.down_image, tool.box}) {
      const bool fresh = word == nullptr || seen.insert(word).second;
      EXPECT_TRUE(fresh) << word;
    }
  }
}

TEST_F(ToolbarTest, ButtonsWithoutWorkAreDisabled) {
  for (const ToolButton& tool : tool_buttons()) {
    if (tool.kind != ToolKind::Button) continue;
    EXPECT_EQ(model.controls[tool.key].enabled, tool.click != nullptr) << tool.key;
  }
  EXPECT_TRUE(model.controls["PointsBox"].enabled);
  EXPECT_EQ(model.controls["PointsBox"].text, "10000");
}

TEST_F(ToolbarTest, HandlerPressesFirstLayerAndLeftAxis) {
  ToolbarHandler(model, false);
  EXPECT_EQ(look("TB_AXIS1"), "1 Y1_DN");
  EXPECT_EQ(look("TB_AXIS2"), " Y2_UP");
  EXPECT_EQ(look("TB_AXIS3"), " Y3_UP");
  EXPECT_EQ(look("TB_LYAXIS"), "1 LY_DN");
  EXPECT_EQ(look("TB_RYAXIS"), " RY_UP");
}

TEST_F(ToolbarTest, LayersAreExclusiveAndLeaveTheSide) {
  ToolbarHandler(model, false);
  click_tool(model, "TB_RYAXIS");
  click_tool(model, "TB_AXIS3");
  EXPECT_EQ(model.CurrentLayer, 3);
  EXPECT_EQ(model.CurrentSide, 2);
  EXPECT_EQ(look("TB_AXIS1"), " Y1_UP");
  EXPECT_EQ(look("TB_AXIS2"), " Y2_UP");
  EXPECT_EQ(look("TB_AXIS3"), "1 Y3_DN");
  EXPECT_EQ(look("TB_LYAXIS"), " LY_UP");
  EXPECT_EQ(look("TB_RYAXIS"), "1 RY_DN");
}

TEST_F(ToolbarTest, PressingThePressedButtonKeepsIt) {
  click_tool(model, "TB_AXIS2");
  click_tool(model, "TB_AXIS2");
  EXPECT_EQ(model.CurrentLayer, 2);
  EXPECT_EQ(look("TB_AXIS2"), "1 Y2_DN");
  click_tool(model, "TB_LYAXIS");
  EXPECT_EQ(model.CurrentSide, 1);
}

TEST_F(ToolbarTest, UnknownKeysDoNothing) {
  const auto before = model.controls.all().size();
  click_tool(model, "TB_NONE");
  press_tool(model, "TB_NONE", true);
  EXPECT_EQ(model.controls.all().size(), before);
}

TEST_F(ToolbarTest, PlainFilesHideWhatBelongsToTheSurvey) {
  ReducFormatGUI(model, true);
  EXPECT_FALSE(model.controls["mnuShowSurvGraph"].enabled);
  EXPECT_FALSE(model.controls["mnuSetSurvTitle"].enabled);
  EXPECT_FALSE(model.controls["mnuZoomToMax"].enabled);
  std::vector<std::string> hidden;
  for (const auto& [name, state] : model.controls.all())
    if (!state.visible) hidden.push_back(name);
  EXPECT_THAT(hidden, ElementsAre("AnnoGrid", "PointsBox", "StepBox", "TB_SCROLLLEFT", "TB_SCROLLPOINTS",
                                  "TB_SCROLLRIGHT", "TB_SEPARATOR16", "TB_SEPARATOR29", "TB_ZOOMINTERVAL",
                                  "TB_ZOOMPOINTS"));
  ReducFormatGUI(model, false);
  EXPECT_TRUE(model.controls["mnuShowSurvGraph"].enabled);
  for (const std::string& name : hidden) EXPECT_EQ(model.controls[name].visible, name != "AnnoGrid") << name;
}

TEST_F(ToolbarTest, ReleaseLeavesEveryZoomMode) {
  for (const char* mode : {"TB_ZOOMHORZ", "TB_ZOOMVERT", "TB_ZOOMRECT"}) press_tool(model, mode, true);
  model.PESG.pending.AllowZooming = 3;
  model.PESG.pending.ZoomActive = true;
  model.PESGSurvey.pending.AllowZooming = 1;
  model.PESGSurvey.pending.ZoomActive = true;
  ReleaseZoomButtons(model);
  EXPECT_EQ(look("TB_ZOOMHORZ"), " HZOOMUP");
  EXPECT_EQ(look("TB_ZOOMVERT"), " VZOOMUP");
  EXPECT_EQ(look("TB_ZOOMRECT"), " RZOOMUP");
  EXPECT_EQ(model.PESG.pending.AllowZooming, 0);
  EXPECT_FALSE(model.PESG.pending.ZoomActive);
  EXPECT_EQ(model.PESGSurvey.pending.AllowZooming, 0);
  EXPECT_TRUE(model.PESGSurvey.pending.ZoomActive);  // the survey keeps its own zoom
}

TEST_F(ToolbarTest, LockReleasesVerticalAndRectangleOnly) {
  for (const char* mode : {"TB_ZOOMHORZ", "TB_ZOOMVERT", "TB_ZOOMRECT"}) press_tool(model, mode, true);
  LockZoomButtons(model, true);
  EXPECT_EQ(look("TB_ZOOMHORZ"), "1 HZOOMDN");
  EXPECT_EQ(look("TB_ZOOMVERT"), " VZOOMUP");
  EXPECT_EQ(look("TB_ZOOMRECT"), " RZOOMUP");
}

TEST_F(ToolbarTest, UnlockEnablesWhatHasItsWork) {
  for (const char* name : {"TB_ZOOMVERT", "TB_ZOOMRECT", "mnuZoomVert", "mnuZoomRect"})
    model.controls[name].enabled = false;
  LockZoomButtons(model, false);
  EXPECT_EQ(model.controls["TB_ZOOMVERT"].enabled, has_tool_work("TB_ZOOMVERT"));
  EXPECT_EQ(model.controls["TB_ZOOMRECT"].enabled, has_tool_work("TB_ZOOMRECT"));
}

}  // namespace
}  // namespace trendaro
