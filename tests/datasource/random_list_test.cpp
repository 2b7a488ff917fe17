#include <algorithm>
#include <map>
#include <random>
#include <tuple>

#include "datasource/list_fixture.h"

namespace trendaro {
namespace {

using RandomListTest = ListFixture;

struct ExpectedSignal {
  std::string name;
  i16 index;
  i32 points;
  i16 layer = 0;  // 0: not marked
  i16 side = 0;
};

struct ExpectedFile {
  std::string path;
  std::vector<ExpectedSignal> signals;
};

// The hidden columns as they should be, row by row.
std::vector<std::tuple<std::string, char, std::string, i32, i16>> expected_cells(
    const std::vector<ExpectedFile>& files) {
  std::vector<std::tuple<std::string, char, std::string, i32, i16>> cells;
  for (const ExpectedFile& file : files) {
    cells.emplace_back("", '3', file.path, 0, 1);
    for (const ExpectedSignal& signal : file.signals) {
      std::string mark = std::to_string(signal.index);
      if (signal.layer > 0) mark += "_" + std::to_string(signal.layer) + "_" + std::to_string(signal.side);
      cells.emplace_back(mark, '4', file.path, signal.points, signal.layer > 0 ? 1 : 0);
    }
  }
  return cells;
}

std::vector<std::tuple<std::string, char, std::string, i32, i16>> cells_of(const ChannelRows& list) {
  std::vector<std::tuple<std::string, char, std::string, i32, i16>> cells;
  for (const ChannelRow& row : list.rows)
    cells.emplace_back(row.mark, static_cast<char>(row.kind), row.path, row.points, row.check);
  return cells;
}

// Titles of the plots, found by going through all signals once for each layer and side.
std::vector<std::string> expected_titles(const std::vector<ExpectedFile>& files) {
  std::vector<std::string> titles;
  for (i16 layer = 1; layer <= 3; ++layer)
    for (i16 side = 1; side <= 2; ++side)
      for (const ExpectedFile& file : files)
        for (const ExpectedSignal& signal : file.signals)
          if (signal.layer == layer && signal.side == side) titles.push_back(signal.name + "@" + file.path);
  return titles;
}

std::vector<std::string> titles_of(const OneBased<PlotRecord>& plots) {
  std::vector<std::string> titles;
  for (const PlotRecord& plot : plots) titles.push_back(plot.Title);
  return titles;
}

TEST_F(RandomListTest, ListAndPlotsAgreeWithAnIndependentReckoning) {
  std::mt19937 random(20261);
  const auto pick = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
  // Channels of each file on disk; every second stored channel of a reduced one is listed.
  const std::map<std::string, int> on_disk = {{"a.BIN", 3}, {"b.REB", 2}, {"c.ST1", 5}, {"d.DAT", 1}};
  for (const auto& [name, channels] : on_disk) make_file(name, channels, name == "b.REB" ? 8 : 0);
  std::vector<ExpectedFile> files;

  for (int step = 0; step < 400; ++step) {
    const int action = pick(0, 9);
    if (files.empty() || (action < 2 && files.size() < 12)) {
      const auto& [name, channels] = *std::next(on_disk.begin(), pick(0, 3));
      AddFileToGrid(model, folder.file(name), false);
      ExpectedFile file{folder.file(name), {}};
      const int stride = name == "c.ST1" ? 2 : 1;
      for (int i = 0; i < channels / stride; ++i) {
        const int index = stride * i + 1;
        file.signals.push_back({name + " " + std::to_string(index), static_cast<i16>(index), 4});
      }
      files.push_back(file);
    } else {
      const auto chosen = static_cast<std::size_t>(pick(0, static_cast<int>(files.size()) - 1));
      i32 row = 1;
      for (std::size_t i = 0; i < chosen; ++i) row += static_cast<i32>(files[i].signals.size()) + 1;
      if (action < 3) {
        activate_row(model, row);
        RemoveFileFromGrid(model);
        files.erase(files.begin() + static_cast<std::ptrdiff_t>(chosen));
      } else {
        const int signal = pick(0, static_cast<int>(files[chosen].signals.size()) - 1);
        ExpectedSignal& expected = files[chosen].signals[static_cast<std::size_t>(signal)];
        if (action < 7) {
          expected.layer = static_cast<i16>(pick(1, 3));
          expected.side = static_cast<i16>(pick(1, 2));
          mark(row + 1 + signal, expected.layer, expected.side);
        } else {
          expected.layer = 0;
          unmark(row + 1 + signal);
        }
      }
    }
    ASSERT_EQ(cells_of(model.Grid), expected_cells(files)) << "step " << step;
    const auto titles = expected_titles(files);
    ASSERT_EQ(titles_of(model.Plots), titles) << "step " << step;
    ASSERT_EQ(titles_of(model.SurveyPlots), titles);
    ASSERT_EQ(model.NofPlots, static_cast<i16>(titles.size()));
    ASSERT_EQ(model.CurveCache.size(), titles.size());
    ASSERT_EQ(model.NofFiles, static_cast<i16>(files.size()));
    ASSERT_EQ(model.FileList.size(), files.size());
    ASSERT_EQ(model.HasFullDataPlot, std::ranges::any_of(titles, [](const std::string& title) {
                return title.ends_with(".BIN") || title.ends_with(".DAT");
              }));
    ASSERT_FALSE(model.ButtonLock);
    ASSERT_TRUE(model.Grid.redraw);
  }
}

}  // namespace
}  // namespace trendaro
