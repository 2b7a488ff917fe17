#include "output/graph_template.h"

#include <cmath>
#include <filesystem>
#include <iterator>
#include <random>
#include <set>
#include <string>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "graph/graph_surface.h"
#include "support/file_builder.h"
#include "support/filled_graph.h"

namespace trendaro {
namespace {

const std::set<std::string> kSessionState = {
    "SubsetCount",       "PointCount",  "SpecialSubsetCount", "MultiAxesSubsets", "UsingXDataII",
    "DateTimeMode",      "CursorPoint", "CursorSubset",       "AllowZooming",     "ScrollingHorzZoom",
    "ScrollingVertZoom", "ZoomAxisTop", "ZoomAxisBottom",     "ZoomActive",       "ZoomMinX",
    "ZoomMaxX",          "ZoomMinY",    "ZoomMaxY",           "ZoomMinRY",        "ZoomMaxRY",
    "ShowRYAxis"};

// The look comes from `look`, what belongs to curves and zoom from `session`.
void expect_look_of(const GraphProperties& graph, const GraphProperties& look,
                    const GraphProperties& session) {
#define GRAPH_PROPERTY(number, type, name, initial) \
  EXPECT_EQ(graph.name, kSessionState.contains(#name) ? session.name : look.name) << #name;
#define GRAPH_LIST(number, type, name) \
  EXPECT_EQ(graph.name, kSessionState.contains(#name) ? session.name : look.name) << #name;
#include "graph/graph_properties.def"
  for (std::size_t i = 0; i < kGraphLayers; ++i) {
#define LAYER_PROPERTY(number, type, name, initial)                                       \
  EXPECT_EQ(graph.layers[i].name,                                                         \
            kSessionState.contains(#name) ? session.layers[i].name : look.layers[i].name) \
      << #name << " of layer " << i;
#define LAYER_LIST(number, type, name) EXPECT_EQ(graph.layers[i].name, look.layers[i].name) << #name;
#include "graph/graph_properties.def"
  }
}

class GraphTemplateTest : public testing::Test {
 protected:
  TemporaryFolder folder;
  std::string path = folder.file("a look.GTP");

  std::string saved_template() {
    GraphSurface graph(1);
    graph.pending = filled_graph(1);
    EXPECT_EQ(PEsavetofile(graph, path), kPropertyDone);
    return read_file(path);
  }

  // The number of files in the folder.
  std::ptrdiff_t files() { return std::distance(std::filesystem::directory_iterator(folder.path()), {}); }
};

TEST_F(GraphTemplateTest, EveryPropertyComesBack) {
  saved_template();
  GraphSurface loaded(2);
  loaded.pending = filled_graph(5000);
  EXPECT_EQ(PEloadfromfile(loaded, path), kPropertyDone);
  expect_look_of(loaded.pending, filled_graph(1), filled_graph(5000));
  EXPECT_EQ(loaded.Handle, 2);
}

TEST_F(GraphTemplateTest, StartValuesComeBackOverOthers) {
  PEsavetofile(GraphSurface(1), path);
  GraphSurface loaded(1);
  loaded.pending = filled_graph(3);
  EXPECT_EQ(PEloadfromfile(loaded, path), kPropertyDone);
  GraphProperties start;
  start.SubsetPlotMethods = filled_graph(3).SubsetPlotMethods;  // of curves that the look does not know
  expect_look_of(loaded.pending, start, filled_graph(3));
}

TEST_F(GraphTemplateTest, LoadedSettingsWaitForTheNextAction) {
  saved_template();
  GraphSurface loaded(1);
  PEloadfromfile(loaded, path);
  EXPECT_EQ(loaded.shown().MainTitle, "");
  EXPECT_NE(loaded.pending.MainTitle, "");
}

TEST_F(GraphTemplateTest, CurvesStayOnTheirAxes) {
  GraphSurface left(1), right(2);
  left.pending.SubsetPlotMethods = {4, 1000 + 3, 2};
  left.pending.layers[0].ShowRYAxis = false;
  ASSERT_EQ(PEsavetofile(left, path), kPropertyDone);
  right.pending.SubsetPlotMethods = {1000, 0};
  right.pending.layers[0].ShowRYAxis = true;
  ASSERT_EQ(PEloadfromfile(right, path), kPropertyDone);
  PEactions(right, kTakeOverAndRedraw);
  EXPECT_EQ(right.shown().SubsetPlotMethods, (std::vector<i32>{1000 + 4, 3, 2}));
  EXPECT_TRUE(right.shown().layers[0].ShowRYAxis);
}

TEST_F(GraphTemplateTest, CurvesBeyondAShorterLookKeepTheirMethodAndNewOnesHangOnTheLeft) {
  const auto loaded_over = [&](std::vector<i32> in_file, std::vector<i32> former) {
    GraphSurface file(1), graph(2);
    file.pending.SubsetPlotMethods = std::move(in_file);
    EXPECT_EQ(PEsavetofile(file, path), kPropertyDone);
    graph.pending.SubsetPlotMethods = std::move(former);
    EXPECT_EQ(PEloadfromfile(graph, path), kPropertyDone);
    return graph.pending.SubsetPlotMethods;
  };
  EXPECT_EQ(loaded_over({4}, {1000, 1000}), (std::vector<i32>{1004, 1000}));
  EXPECT_EQ(loaded_over({}, {1000, 2}), (std::vector<i32>{1000, 2}));
  EXPECT_EQ(loaded_over({1003}, {}), (std::vector<i32>{3}));
}

TEST_F(GraphTemplateTest, FileCutAtAnyByteChangesNothing) {
  const std::string whole = saved_template();
  GraphSurface loaded(1);
  loaded.pending = filled_graph(9);
  for (std::size_t length = whole.size(); length-- > 0;) {
    std::filesystem::resize_file(path, length);
    ASSERT_EQ(PEloadfromfile(loaded, path), kPropertyUnknown) << length;
  }
  expect_look_of(loaded.pending, filled_graph(9), filled_graph(9));
}

TEST_F(GraphTemplateTest, DamagedBytesNeverBreakALayerNumberOrANumber) {
  const std::string whole = saved_template();
  std::mt19937 random(20);
  for (int round = 0; round < 2000; ++round) {
    std::string damaged = whole;
    for (int i = 0; i < 20; ++i) damaged[30 + random() % (damaged.size() - 40)] = static_cast<char>(random());
    write_file(path, damaged);
    GraphSurface loaded(1);
    static_cast<void>(PEloadfromfile(loaded, path));
    ASSERT_TRUE(loaded.pending.WorkingAxis >= 0 && loaded.pending.WorkingAxis < 6);
    ASSERT_TRUE(loaded.pending.FirstVisibleAxis >= 0 && loaded.pending.FirstVisibleAxis < 6);
    ASSERT_TRUE(std::isfinite(loaded.pending.ManualMinX));
  }
}

TEST_F(GraphTemplateTest, ValuesThatDoNotFitArePassedOver) {
  write_file(path,
             "trendaro graph template 1\n"
             "MainTitle = \"neu\"\n"
             "SubTitle = \"ohne Ende\n"
             "WorkingAxis = 6\n"
             "FirstVisibleAxis = -1\n"
             "ManualMinX = nan\n"
             "ManualMaxX = 1e999\n"
             "DeskColor = 99999999999\n"
             "TicksOn = vielleicht\n"
             "SubsetColors = [1, 2, \n"
             "SubsetLineTypes = [1, 2] 3\n"
             "SubsetPointTypes = [4,5]\n"
             "layer 9 YAxisLabel = \"weg\"\n"
             "layer 2 YAxisLabel = \"da\"\n"
             "NewerProperty = 3\n"
             "kein Name\n"
             "\n"
             "GridStyle = 4\n"
             "end\n");
  GraphSurface loaded(1);
  GraphProperties expected;
  expected.MainTitle = "neu";
  expected.SubsetPointTypes = {4, 5};
  expected.layers[2].YAxisLabel = "da";
  expected.GridStyle = 4;
  EXPECT_EQ(PEloadfromfile(loaded, path), kPropertyDone);
  expect_look_of(loaded.pending, expected, GraphProperties());
}

TEST_F(GraphTemplateTest, OtherFilesAreRefused) {
  GraphSurface loaded(1);
  for (const char* other : {"", "end\n", "\n", "trendaro graph template 2\nend\n", "GTP", "trendaro graph"}) {
    write_file(path, other);
    EXPECT_EQ(PEloadfromfile(loaded, path), kPropertyUnknown) << other;
  }
  EXPECT_EQ(PEloadfromfile(loaded, folder.file("missing.GTP")), kPropertyUnknown);
  EXPECT_EQ(PEloadfromfile(loaded, folder.path()), kPropertyUnknown);
  expect_look_of(loaded.pending, GraphProperties(), GraphProperties());
}

TEST_F(GraphTemplateTest, SavingReplacesTheFileAndLeavesNoOther) {
  write_file(path, "old");
  ::chmod(path.c_str(), 0640);
  saved_template();
  EXPECT_TRUE(read_file(path).starts_with("trendaro graph template 1\n"));
  EXPECT_EQ(files(), 1);
  struct stat status {};
  ASSERT_EQ(::stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0640U);
}

TEST_F(GraphTemplateTest, FailedSavingKeepsWhatIsThere) {
  const GraphSurface graph(1);
  EXPECT_EQ(PEsavetofile(graph, folder.file("no folder/a.GTP")), kPropertyUnknown);
  std::filesystem::create_directory(path);  // a folder cannot be replaced by a file
  write_file(path + "/inside", "x");
  EXPECT_EQ(PEsavetofile(graph, path), kPropertyUnknown);
  EXPECT_EQ(files(), 1);
  EXPECT_EQ(read_file(path + "/inside"), "x");
}

}  // namespace
}  // namespace trendaro
