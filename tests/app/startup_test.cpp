#include "app/startup.h"

#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/memory_host.h"
#include "app/model.h"
#include "app/run_time_error.h"
#include "app/toolbar.h"
#include "datasource/plot_list.h"
#include "graph/zoom_modes.h"
#include "output/graph_template.h"
#include "support/file_builder.h"
#include "support/recording_shell.h"

namespace trendaro {
namespace {

using testing::AnyOf;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

// A database that notes whether the list was locked when it was asked.
class WatchedHost : public MemoryHost {
 public:
  WatchedHost(Shell& shell, const Model& model) : MemoryHost(shell, 24, 50000), model_(model) {}

  std::vector<std::string> calls;
  bool gone = false;

  i16 MaxChannels() override {
    note("MaxChannels");
    if (gone) throw RunTimeError{kHostCallFailed};
    return MemoryHost::MaxChannels();
  }
  HostValue GetChannelProperty(i16 channel, i16 property) override {
    note("GetChannelProperty");
    return MemoryHost::GetChannelProperty(channel, property);
  }

 private:
  void note(const std::string& call) {
    calls.push_back(call + (model_.ButtonLock ? " locked" : " unlocked"));
  }
  const Model& model_;
};

// One run of the program, with the templates in a folder that outlives it.
struct ProgramRun {
  RecordingShell shell;
  Model model{shell};
  WatchedHost host{shell, model};

  explicit ProgramRun(const TemporaryFolder& folder) {
    model.Host = &host;
    model.Kernel = &host;
    model.TemplateFolder = folder.path();
  }
};

class StartupTest : public testing::Test {
 protected:
  TemporaryFolder folder;

  std::vector<std::string> ticked(const Model& model) {
    std::vector<std::string> names;
    for (const auto& [name, state] : model.controls.all())
      if (state.ticked) names.push_back(name);
    return names;
  }
};

TEST_F(StartupTest, FirstRunShowsTheDefaults) {
  ProgramRun run(folder);
  load_main_window(run.model);
  const Model& model = run.model;
  EXPECT_EQ(model.PESG.shown().MainTitle, "Ausschnitt");
  EXPECT_EQ(model.PESG.shown().SubTitle, "komprimierte Daten");
  EXPECT_EQ(model.PESGSurvey.shown().MainTitle, "Übersicht");
  EXPECT_EQ(model.PESGSurvey.shown().SubTitle, "");
  EXPECT_THAT(ticked(model), ElementsAre("mnuAxAutoTitle", "mnuCursorOff", "mnuCursorPosRight",
                                         "mnuCurveCache", "mnuFSize(1)", "mnuGridStyle(1)", "mnuLegendPos(1)",
                                         "mnuShowDatasourceGrid", "mnuShowSurvGraph", "mnuSym(0)",
                                         "mnuTUnit(1)", "mnuTicks(0)", "mnuUseCompression"));
  EXPECT_TRUE(model.AxisAutoTitle);
  EXPECT_THAT(run.shell.calls, IsEmpty());
}

TEST_F(StartupTest, LoadLeavesTheAgreedStartValues) {
  ProgramRun run(folder);
  Model& model = run.model;
  model.CurrentLayer = 3;
  model.CurrentSide = 2;
  model.TimeUnit = 4;
  model.xSrc.ListIndex = 1;
  model.PreviousSource = 1;
  model.ZoomLengthWarned = model.OccupiedWarned = true;
  model.OriginalExtension = "BIN";
  model.CompressTarget = model.CompressThreshold = 1;
  model.FirstLayer = 1;
  model.LastLayer = 1;
  load_main_window(model);
  EXPECT_EQ(model.CurrentLayer, 1);
  EXPECT_EQ(model.CurrentSide, 1);
  EXPECT_EQ(model.controls["TB_AXIS1"].image, "Y1_DN");
  EXPECT_EQ(model.controls["TB_AXIS1"].tag, "1");
  EXPECT_EQ(model.controls["TB_LYAXIS"].image, "LY_DN");
  EXPECT_EQ(model.TimeUnit, 1);
  EXPECT_EQ(model.GraphStyleValue, 3);
  EXPECT_EQ(model.xSrc.ListIndex, 0);
  EXPECT_EQ(model.PreviousSource, 0);
  EXPECT_FALSE(model.ZoomLengthWarned);
  EXPECT_FALSE(model.OccupiedWarned);
  EXPECT_EQ(model.OriginalExtension, "DAT");
  EXPECT_EQ(model.CompressTarget, 10000);
  EXPECT_EQ(model.CompressThreshold, 100000);
  EXPECT_EQ(model.FirstLayer, 0);
  EXPECT_EQ(model.LastLayer, 2);
  EXPECT_FALSE(model.controls["AnnoGrid"].visible);
}

TEST_F(StartupTest, GraphStyleThatIsSetStays) {
  ProgramRun run(folder);
  run.model.GraphStyleValue = 5;
  load_main_window(run.model);
  EXPECT_EQ(run.model.GraphStyleValue, 5);
}

TEST_F(StartupTest, ListIsLockedUntilTheEndOfTheLoad) {
  ProgramRun run(folder);
  load_main_window(run.model);
  EXPECT_THAT(run.host.calls, Each(AnyOf("MaxChannels locked", "GetChannelProperty locked")));
  EXPECT_THAT(run.host.calls, Not(IsEmpty()));
  EXPECT_FALSE(run.model.ButtonLock);
  EXPECT_EQ(run.model.MaxDatabaseChannels, 24);
  EXPECT_EQ(run.model.controls["PointsBox"].text, "50000");
}

TEST_F(StartupTest, FailureOfTheLoadIsNotCaught) {
  ProgramRun run(folder);
  run.host.gone = true;
  EXPECT_THROW(load_main_window(run.model), RunTimeError);
}

TEST_F(StartupTest, SecondRunHasTheLookOfTheFirst) {
  {
    ProgramRun first(folder);
    load_main_window(first.model);
    first.model.PESG.pending.GraphBackColor = 0x123456;
    first.model.PESG.pending.LegendStyle = 1;
    first.model.PESG.pending.NullDataValue = 7;
    first.model.PESG.pending.NullDataValueX = 8;
    first.model.PESGSurvey.pending.NullDataValue = 9;
    first.model.PESGSurvey.pending.NullDataValueX = 10;
    first.model.PESGSurvey.pending.GraphBackColor = 0x654321;
    unload_main_window(first.model);
  }
  EXPECT_TRUE(std::filesystem::exists(folder.file("KM_TEMPLATE.$$$")));
  EXPECT_TRUE(std::filesystem::exists(folder.file("KMSurv_TEMPLATE.$$$")));
  ProgramRun second(folder);
  load_main_window(second.model);
  EXPECT_EQ(second.model.PESG.shown().GraphBackColor, 0x123456);
  EXPECT_EQ(second.model.PESGSurvey.shown().GraphBackColor, 0x654321);
  EXPECT_TRUE(second.model.controls["mnuLegendPos(7)"].ticked);
  for (const GraphSurface* graph : {&second.model.PESG, &second.model.PESGSurvey}) {
    EXPECT_EQ(graph->pending.NullDataValue, -1000000);
    EXPECT_EQ(graph->pending.NullDataValueX, -1000000);
  }
  EXPECT_EQ(second.model.PESG.shown().MainTitle, "Ausschnitt");
  EXPECT_EQ(second.model.LastDatabaseStatus, kPropertyDone);
}

// No button is pressed at the start, so that a drag must not draw a rubber band either.
TEST_F(StartupTest, PressedZoomModeEndsWithTheRun) {
  {
    ProgramRun first(folder);
    load_main_window(first.model);
    first.model.NofPlots = 1;
    first.model.HasFullDataPlot = true;  // brings the scroll bars in
    press_zoom_mode(first.model, ZoomMode::Rectangle);
    first.model.NofPlots = 0;
    first.model.PESG.pending.ZoomAxisTop = 2;
    first.model.PESG.pending.ZoomAxisBottom = 1;
    unload_main_window(first.model);
  }
  ProgramRun second(folder);
  load_main_window(second.model);
  const GraphProperties& graph = second.model.PESG.pending;
  EXPECT_NE(second.model.controls["TB_ZOOMRECT"].tag, "1");
  EXPECT_EQ(graph.AllowZooming, 0);
  EXPECT_FALSE(graph.ScrollingHorzZoom);
  EXPECT_FALSE(graph.ScrollingVertZoom);
  EXPECT_EQ(graph.ZoomAxisTop, 0);
  EXPECT_EQ(graph.ZoomAxisBottom, 0);
  EXPECT_EQ(second.model.PESGSurvey.pending.AllowZooming, 0);
}

TEST_F(StartupTest, LookIsSavedBehindTheClearingOfTheGraphs) {
  ProgramRun run(folder);
  load_main_window(run.model);
  run.model.PESG.pending.InvertedXAxis = true;  // which lasts until the next set-up
  run.model.PESGSurvey.pending.InvertedXAxis = true;
  unload_main_window(run.model);
  for (const char* name : {"KM_TEMPLATE.$$$", "KMSurv_TEMPLATE.$$$"}) {
    GraphSurface saved(1);
    saved.pending.InvertedXAxis = true;
    ASSERT_EQ(PEloadfromfile(saved, folder.file(name)), kPropertyDone);
    EXPECT_FALSE(saved.pending.InvertedXAxis) << name;
  }
}

// A state that menus do not tell of would need two clicks to change.
TEST_F(StartupTest, TemplatesBringTheirLookAndTheSetUpBehindThemTheRest) {
  GraphSurface saved(1);
  saved.pending.AutoScaleData = true;
  saved.pending.Switch0E = true;
  saved.pending.SetupMode = 0;
  saved.pending.ManualMaxX = 0.1;
  saved.pending.layers[1].ManualMinRY = 44260.123456789;
  saved.pending.MinorGridColor = 0x112233;
  for (const char* name : {"KM_TEMPLATE.$$$", "KMSurv_TEMPLATE.$$$"})
    ASSERT_EQ(PEsavetofile(saved, folder.file(name)), kPropertyDone);
  ProgramRun run(folder);
  load_main_window(run.model);
  EXPECT_FALSE(run.model.controls["mnuAutoScaleData"].ticked);
  for (const GraphSurface* graph : {&run.model.PESG, &run.model.PESGSurvey}) {
    EXPECT_FALSE(graph->shown().AutoScaleData);
    EXPECT_FALSE(graph->shown().Switch0E);
    EXPECT_EQ(graph->shown().SetupMode, 1);
    EXPECT_EQ(graph->pending.ManualMaxX, static_cast<f64>(0.1F));
    EXPECT_EQ(graph->pending.layers[1].ManualMinRY, 44260.125);
    EXPECT_EQ(graph->shown().MinorGridColor, 0x112233);
  }
}

TEST_F(StartupTest, DamagedTemplateLeavesTheDefaults) {
  write_file(folder.file("KM_TEMPLATE.$$$"), "trendaro graph template 1\nGraphBackColor = 3\n");
  ProgramRun run(folder);
  load_main_window(run.model);
  EXPECT_EQ(run.model.PESG.pending.GraphBackColor, GraphProperties().GraphBackColor);
  EXPECT_EQ(run.model.LastDatabaseStatus, kPropertyUnknown);
}

TEST_F(StartupTest, WithoutAHostTheLoadPassesAndTheActivationRefuses) {
  ProgramRun run(folder);
  run.model.Host = nullptr;
  load_main_window(run.model);
  EXPECT_FALSE(activate_main_window(run.model));
  EXPECT_THAT(
      run.shell.messages(),
      ElementsAre("Trendaro: Mervan ActiveX-Server nicht vorhanden. Trendaro kann nicht gestartet werden!"));
  EXPECT_THAT(run.shell.icons, ElementsAre(MessageIcon::Stop));
}

TEST_F(StartupTest, WithAHostTheActivationSaysNothing) {
  ProgramRun run(folder);
  EXPECT_TRUE(activate_main_window(run.model));
  EXPECT_THAT(run.shell.calls, IsEmpty());
}

TEST_F(StartupTest, ClosingAsksAndOnlyYesCloses) {
  ProgramRun run(folder);
  run.shell.yes_no = {false, true};
  EXPECT_FALSE(query_close(run.model));
  EXPECT_TRUE(query_close(run.model));
  EXPECT_THAT(run.shell.calls, ElementsAre("question: Programm beenden: Trendaro beenden?",
                                           "question: Programm beenden: Trendaro beenden?"));
}

TEST_F(StartupTest, ClosingWithoutAHostAsksNothing) {
  ProgramRun run(folder);
  run.model.Host = nullptr;
  EXPECT_TRUE(query_close(run.model));
  EXPECT_THAT(run.shell.calls, IsEmpty());
}

TEST_F(StartupTest, ViewerMayBeReleasedAfterTheUnloadOnly) {
  ProgramRun run(folder);
  load_main_window(run.model);
  EXPECT_FALSE(run.model.CanUnloadFlag.has_value());
  EXPECT_FALSE(can_unload(run.model));
  unload_main_window(run.model);
  EXPECT_TRUE(can_unload(run.model));
}

TEST_F(StartupTest, HostMaySetTheFlagItself) {
  ProgramRun run(folder);
  run.model.CanUnloadFlag = true;
  EXPECT_TRUE(can_unload(run.model));
  run.model.CanUnloadFlag = false;
  EXPECT_FALSE(can_unload(run.model));
}

TEST_F(StartupTest, GraphsThatCannotBeClearedAreSavedAllTheSame) {
  ProgramRun run(folder);
  load_main_window(run.model);
  run.shell.during_status = [](const std::string&) { throw RunTimeError{kHostCallFailed}; };
  EXPECT_THROW(ClearGraph(run.model), RunTimeError);
  unload_main_window(run.model);
  EXPECT_TRUE(std::filesystem::exists(folder.file("KM_TEMPLATE.$$$")));
  EXPECT_TRUE(std::filesystem::exists(folder.file("KMSurv_TEMPLATE.$$$")));
  EXPECT_TRUE(can_unload(run.model));
}

TEST_F(StartupTest, UnloadPassesFailuresBy) {
  ProgramRun run(folder);
  load_main_window(run.model);
  run.model.TemplateFolder = folder.file("no folder");
  unload_main_window(run.model);
  EXPECT_TRUE(can_unload(run.model));
  EXPECT_THAT(run.shell.calls, Not(testing::Contains(testing::HasSubstr("message"))));
}

}  // namespace
}  // namespace trendaro
