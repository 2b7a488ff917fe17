#include "app/panes.h"

#include <array>

#include <gtest/gtest.h>

#include "app/commands.h"
#include "app/model.h"
#include "support/recording_shell.h"

namespace trendaro {

void PrintTo(const PaneRect& rect, std::ostream* out) {
  *out << rect.left << "," << rect.top << " " << rect.width << "x" << rect.height;
}

namespace {

WindowFrame frame_of(i32 width, i32 height) {
  return {.width = width, .height = height, .top = 40, .status_height = 24};
}

std::array<PaneRect, 9> all(const PaneLayout& layout) {
  return {layout.Label1, layout.xSrc,           layout.Grid,       layout.Separator, layout.AnnoGrid,
          layout.PESG,   layout.SeparatorGraph, layout.PESGSurvey, layout.sbStatus};
}

bool overlap(const PaneRect& a, const PaneRect& b) {
  return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
         b.top < a.top + a.height;
}

TEST(PanesTest, WindowOf1280By800) {
  const PaneLayout layout = lay_out_panes(frame_of(1280, 800), {.list_width = 300, .survey_share = 0.4});
  // 736 pixels between the bars, 731 of them shared by the graphs: 292 for the survey.
  EXPECT_EQ(layout.PESG, (PaneRect{305, 40, 975, 439}));
  EXPECT_EQ(layout.SeparatorGraph, (PaneRect{305, 479, 975, 5}));
  EXPECT_EQ(layout.PESGSurvey, (PaneRect{305, 484, 975, 292}));
  EXPECT_EQ(layout.Separator, (PaneRect{300, 40, 5, 736}));
  EXPECT_EQ(layout.Grid, (PaneRect{0, 92, 300, 684}));
  EXPECT_EQ(layout.xSrc.width, 300 - 20);
  EXPECT_EQ(layout.sbStatus, (PaneRect{0, 776, 1280, 24}));
  EXPECT_EQ(layout.AnnoGrid, PaneRect{});
}

TEST(PanesTest, WindowOf2560By1440) {
  const PaneLayout layout = lay_out_panes(frame_of(2560, 1440), {.list_width = 500, .survey_share = 0.4});
  // 1376 pixels between the bars, 1371 shared: 548.4 for the survey.
  EXPECT_EQ(layout.PESG, (PaneRect{505, 40, 2055, 823}));
  EXPECT_EQ(layout.SeparatorGraph, (PaneRect{505, 863, 2055, 5}));
  EXPECT_EQ(layout.PESGSurvey, (PaneRect{505, 868, 2055, 548}));
  EXPECT_EQ(layout.Grid.width, 500);
  EXPECT_EQ(layout.sbStatus, (PaneRect{0, 1416, 2560, 24}));
}

TEST(PanesTest, HiddenSurveyGivesItsHeightToTheDetailGraph) {
  WindowFrame frame = frame_of(1280, 800);
  frame.survey_visible = false;
  const PaneLayout layout = lay_out_panes(frame, {});
  EXPECT_EQ(layout.PESG.height, 736);
  EXPECT_EQ(layout.PESGSurvey, PaneRect{});
  EXPECT_EQ(layout.SeparatorGraph, PaneRect{});
}

TEST(PanesTest, HiddenListGivesItsWidthToTheGraphs) {
  WindowFrame frame = frame_of(1280, 800);
  frame.list_visible = false;
  const PaneLayout layout = lay_out_panes(frame, {});
  EXPECT_EQ(layout.PESG.left, 0);
  EXPECT_EQ(layout.PESG.width, 1280);
  EXPECT_EQ(layout.PESGSurvey.width, 1280);
  for (const PaneRect& rect : {layout.Grid, layout.xSrc, layout.Label1, layout.Separator})
    EXPECT_EQ(rect, PaneRect{});
}

TEST(PanesTest, AnnotationsPushTheDetailGraphDown) {
  WindowFrame frame = frame_of(1280, 800);
  frame.annotations_visible = true;
  const PaneLayout layout = lay_out_panes(frame, {});
  EXPECT_EQ(layout.AnnoGrid.top, 40);
  EXPECT_EQ(layout.PESG.top, layout.AnnoGrid.top + layout.AnnoGrid.height);
}

TEST(PanesTest, PanesNeverOverlapAndStayInsideAnyWindow) {
  const std::array<i32, 10> sizes = {-5, 0, 1, 4, 30, 64, 130, 330, 800, 2560};
  for (const i32 width : sizes)
    for (const i32 height : sizes)
      for (int flags = 0; flags < 8; ++flags)
        for (const PaneSplit split : {PaneSplit{300, 0.4}, PaneSplit{-9, -1}, PaneSplit{99999, 7}}) {
          WindowFrame frame = frame_of(width, height);
          frame.list_visible = flags & 1;
          frame.survey_visible = flags & 2;
          frame.annotations_visible = flags & 4;
          const auto rects = all(lay_out_panes(frame, split));
          for (std::size_t i = 0; i < rects.size(); ++i) {
            const PaneRect& rect = rects[i];
            ASSERT_TRUE(rect.left >= 0 && rect.top >= 0 && rect.width >= 0 && rect.height >= 0);
            ASSERT_LE(rect.left + rect.width, std::max(0, width)) << i << " at " << width << "x" << height;
            ASSERT_LE(rect.top + rect.height, std::max(0, height)) << i << " at " << width << "x" << height;
            for (std::size_t j = 0; j < i; ++j) ASSERT_FALSE(overlap(rect, rects[j])) << i << " " << j;
          }
        }
}

TEST(PanesTest, NameColumnLeaves500TwipsBesideTheOtherColumns) {
  // 500 twips are 33 pixels.
  EXPECT_EQ(name_column_width(300, 20, 24), 300 - 20 - 24 - 33);
  EXPECT_EQ(name_column_width(50, 20, 24), 0);
}

TEST(PanesTest, SeparatorFollowsTheDropPointWithinItsBounds) {
  const WindowFrame frame = frame_of(1280, 800);
  PaneSplit split;
  drag_separator(split, frame, 420);
  EXPECT_EQ(lay_out_panes(frame, split).Separator.left, 420);
  EXPECT_EQ(lay_out_panes(frame, split).Grid.width, 420);
  drag_separator(split, frame, -50);
  EXPECT_EQ(split.list_width, kMinimalListWidth);
  drag_separator(split, frame, 5000);
  EXPECT_EQ(split.list_width, 1280 - kSeparatorSize - kMinimalGraphWidth);
}

TEST(PanesTest, GraphSeparatorChangesTheShareThatLaterSizesKeep) {
  const WindowFrame frame = frame_of(1280, 800);
  PaneSplit split;
  drag_separator_graph(split, frame, 300);
  EXPECT_EQ(lay_out_panes(frame, split).SeparatorGraph.top, 300);
  // 731 - 260 pixels of 731 went to the survey; the taller window keeps that part of its 1371.
  const PaneLayout taller = lay_out_panes(frame_of(1280, 1440), split);
  EXPECT_EQ(taller.PESGSurvey.height, 883);
  drag_separator_graph(split, frame, 0);
  EXPECT_EQ(lay_out_panes(frame, split).PESG.height, kMinimalGraphHeight);
  drag_separator_graph(split, frame, 5000);
  EXPECT_EQ(lay_out_panes(frame, split).PESGSurvey.height, kMinimalGraphHeight);
}

TEST(PanesTest, ListEntryTogglesTickAndPanes) {
  RecordingShell shell;
  Model model(shell);
  model.controls["mnuShowDatasourceGrid"].ticked = true;
  run_command(model, "mnuShowDatasourceGrid");
  EXPECT_FALSE(model.controls["mnuShowDatasourceGrid"].ticked);
  for (const char* pane : {"Grid", "xSrc", "Label1", "Separator"})
    EXPECT_FALSE(model.controls[pane].visible) << pane;
  EXPECT_EQ(pane_layout(model, frame_of(1280, 800), {}).PESG.width, 1280);
  run_command(model, "mnuShowDatasourceGrid");
  EXPECT_TRUE(model.controls["mnuShowDatasourceGrid"].ticked);
  EXPECT_TRUE(model.controls["Grid"].visible);
}

TEST(PanesTest, SurveyEntryTogglesTickAndPanes) {
  RecordingShell shell;
  Model model(shell);
  model.controls["mnuShowSurvGraph"].ticked = true;
  run_command(model, "mnuShowSurvGraph");
  EXPECT_FALSE(model.controls["mnuShowSurvGraph"].ticked);
  EXPECT_FALSE(model.controls["PESGSurvey"].visible);
  EXPECT_FALSE(model.controls["SeparatorGraph"].visible);
  EXPECT_TRUE(model.controls["PESG"].visible);
  run_command(model, "mnuShowSurvGraph");
  EXPECT_TRUE(model.controls["PESGSurvey"].visible);
}

TEST(PanesTest, AnnotationsStartHidden) {
  RecordingShell shell;
  const Model model(shell);
  EXPECT_FALSE(model.controls["AnnoGrid"].visible);
}

}  // namespace
}  // namespace trendaro
