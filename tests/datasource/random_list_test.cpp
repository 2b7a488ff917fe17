#include <array>
#include <cstdlib>
#include <map>
#include <random>
#include <tuple>

#include "datasource/database_link.h"
#include "datasource/list_fixture.h"
#include "datasource/list_reckoning.h"

namespace trendaro {
namespace {

constexpr i16 kDatabase = 14;  // channels; few enough that the import range runs over its end

// The files on disk. Each name shows one way in which extensions are told from each other.
struct Source {
  std::string name;
  int channels;
  int stored_per_signal;
  i16 kind;
};
const std::array<Source, 6> kSources = {{{"a.BIN", 3, 1, 2},
                                         {"b.REB", 2, 1, 3},
                                         {"c.ST1", 5, 2, 1},
                                         {"d.DAT", 1, 1, 2},
                                         {"e.STO", 4, 2, 2},
                                         {"f.x.ST2", 2, 1, 1}}};

// TRENDARO_LIST_STEPS and TRENDARO_LIST_SEED let the test run for longer and along other ways.
unsigned setting(const char* name, unsigned otherwise) {
  const char* text = std::getenv(name);
  return text == nullptr ? otherwise : static_cast<unsigned>(std::strtoul(text, nullptr, 10));
}

class RandomListTest : public ListFixture, public testing::WithParamInterface<unsigned> {
 protected:
  RandomListTest() {
    host.channels = kDatabase;
    for (std::size_t i = 0; i < kSources.size(); ++i) write_source(i);
    InitDataSourceGrid(model);
    reckoned.last_channel = kDatabase;
  }

  void write_source(std::size_t number) {
    std::vector<StoredChannel> stored;
    for (int channel = 1; channel <= kSources[number].channels; ++channel) {
      StoredChannel one{"signal " + std::to_string(channel), samples(number, channel)};
      one.hardware_channel = static_cast<i16>(channel);
      stored.push_back(one);
    }
    const std::string path = folder.file(kSources[number].name);
    write_file(path, recording_bytes(stored, kSources[number].kind == 3 ? 8 : 0));
    source_of[path] = number;
  }
  static std::vector<f64> samples(std::size_t number, int channel) {
    const f64 first = 100.0 * static_cast<f64>(number) + 10.0 * channel;
    return {first, first + 1, first + 2, first + 3};
  }

  int pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); }
  // A signal of any file; its row stands in `row`. There must be one.
  ReckonedSignal& pick_signal(i32& row) {
    const auto file = static_cast<std::size_t>(pick(0, static_cast<int>(reckoned.files.size()) - 1));
    auto& signals = reckoned.files[file].signals;
    const int place = pick(0, static_cast<int>(signals.size()) - 1);
    row = reckoned.row_of(file) + 1 + place;
    return signals[static_cast<std::size_t>(place)];
  }

  void add_some_file() {
    const Source& source = kSources[static_cast<std::size_t>(pick(0, kSources.size() - 1))];
    ReckonedFile file;
    file.path = folder.file(source.name);
    file.kind = source.kind;
    for (int i = 0; i < source.channels / source.stored_per_signal; ++i) {
      const int index = source.stored_per_signal * i + 1;
      file.signals.push_back({++identities, "signal " + std::to_string(index), static_cast<i16>(index), 4});
    }
    AddFileToGrid(model, file.path, false);
    reckoned.files.push_back(file);
  }
  void remove_some_file() {
    const auto file = static_cast<std::size_t>(pick(0, static_cast<int>(reckoned.files.size()) - 1));
    activate_row(model, reckoned.row_of(file));
    RemoveFileFromGrid(model);
    if (reckoned.remove_file(file) && !reckoned.full_data) reckoned.survey_shown = true;
  }
  void mark_something() {
    i32 row = 0;
    ReckonedSignal& signal = pick_signal(row);
    signal.layer = static_cast<i16>(pick(1, 3));
    signal.side = static_cast<i16>(pick(1, 2));
    last_marked = signal.identity;
    mark(row, signal.layer, signal.side);
    reckoned.layer_choice = signal.layer;
    reckoned.rebuild();
    reckoned.survey_shown = !reckoned.full_data;
  }
  void unmark_something() {
    i32 row = 0;
    ReckonedSignal& signal = pick_signal(row);
    signal.layer = signal.side = 0;
    unmark(row);
    reckoned.rebuild();
    reckoned.survey_shown = !reckoned.full_data;
  }
  void open_or_close_some_file() {
    const auto file = static_cast<std::size_t>(pick(0, static_cast<int>(reckoned.files.size()) - 1));
    const bool open = pick(0, 1) == 1;
    click_check_cell(model, reckoned.row_of(file), open ? 1 : 0);
    reckoned.click_file(file, open);
  }
  void choose_x_channel() {
    i32 row = 0;
    reckoned.x_channel = pick_signal(row).index;
    reckoned.x_entry = 1;
    activate_row(model, row);
    mnuSetX(model);
    reckoned.rebuild();
  }
  void choose_x_entry() {
    const auto entry = static_cast<i16>(pick(0, 1));
    click_xSrc(model, entry);
    if (entry == reckoned.x_entry || (entry == 1 && reckoned.x_channel == 0)) return;
    reckoned.x_entry = entry;
    reckoned.rebuild();
  }
  void move_import_range() {
    const auto first = static_cast<i16>(pick(1, kDatabase));
    shell.texts.push_back(std::to_string(first));
    mnuDBOffset(model);
    reckoned.move_range(first);
  }
  void set_line_type() {
    if (reckoned.plots.empty()) return;
    const int plot = pick(1, static_cast<int>(reckoned.plots.size()));
    const auto type = static_cast<i16>(pick(1, 9));
    model.Plots[plot].LineType = type;
    reckoned.plots[static_cast<std::size_t>(plot - 1)].line_type = type;
  }
  void annotate() {
    if (reckoned.annotations.size() > 8) return;
    AnnotationRecord record;
    record.Text = "note " + std::to_string(++identities);
    record.Plot = static_cast<i16>(pick(0, static_cast<int>(reckoned.plots.size())));
    model.Annotations.push_back(record);
    ++model.AnnotationCount;
    reckoned.annotations.push_back({record.Text, record.Plot});
  }
  void clear_graphs() {
    ClearGraph(model);
    reckoned.unmark_all();
    reckoned.survey_shown = true;
  }

  void take_a_step() {
    const int action = pick(0, 99);
    if (reckoned.files.empty() || (action < 12 && reckoned.files.size() < 12)) return add_some_file();
    if (action < 20) return remove_some_file();
    if (action < 55) return mark_something();
    if (action < 71) return unmark_something();
    if (action < 77) return open_or_close_some_file();
    if (action < 82) return choose_x_channel();
    if (action < 87) return choose_x_entry();
    if (action < 90) return move_import_range();
    if (action < 94) return set_line_type();
    if (action < 99) return annotate();
    clear_graphs();
  }

  void expect_rows() const;
  void expect_lists() const;
  void expect_plots() const;
  void expect_layers() const;
  void expect_annotations() const;
  void expect_samples_and_parameters();

  std::mt19937 random{setting("TRENDARO_LIST_SEED", GetParam())};
  ListReckoning reckoned;
  std::map<std::string, std::size_t> source_of;  // by path
  int identities = 0;
  int last_marked = 0;
};

using Cells = std::tuple<i16, std::string, std::string, std::string, char, std::string, i32, bool>;

void RandomListTest::expect_rows() const {
  std::vector<Cells> expected;
  for (const ReckonedFile& file : reckoned.files) {
    const std::string name = file.path.substr(file.path.rfind('/') + 1);
    expected.emplace_back(file.check, "IMG_FILE", name, "", '3', file.path, 0, false);
    for (const ReckonedSignal& signal : file.signals) {
      std::string mark = std::to_string(signal.index);
      if (signal.layer > 0) mark += "_" + std::to_string(signal.layer) + "_" + std::to_string(signal.side);
      expected.emplace_back(signal.layer > 0 ? 1 : 0, "IMG_SIGNAL", signal.name, mark, '4', file.path,
                            signal.points, !file.open);
    }
  }
  std::vector<Cells> found;
  for (const ChannelRow& row : model.Grid.rows)
    found.emplace_back(row.check, row.picture, row.name, row.mark, static_cast<char>(row.kind), row.path,
                       row.points, row.hidden);
  EXPECT_EQ(found, expected);
  EXPECT_FALSE(model.ButtonLock);
  EXPECT_TRUE(model.Grid.redraw);
  EXPECT_EQ(model.LastClickedRow, reckoned.row_of_identity(last_marked));
  EXPECT_LE(model.Grid.active_row, model.Grid.MaxRows());
  EXPECT_GE(model.Grid.top_row, 1);
}

void RandomListTest::expect_lists() const {
  std::vector<std::string> paths;
  for (const ReckonedFile& file : reckoned.files) paths.push_back(file.path);
  std::vector<std::string> listed(model.FileList.begin(), model.FileList.end());
  // Of a file that stands twice in the list the first entry goes, whichever block was removed.
  std::ranges::sort(paths);
  std::ranges::sort(listed);
  EXPECT_EQ(listed, paths);
  EXPECT_EQ(model.NofFiles, static_cast<i16>(paths.size()));
  EXPECT_EQ(model.xSrc.ListIndex, reckoned.x_entry);
  EXPECT_EQ(model.PreviousSource, reckoned.x_entry);
  EXPECT_EQ(model.xSrc.entries[1].item_data, reckoned.x_channel);
}

void RandomListTest::expect_plots() const {
  constexpr std::array<i32, 6> kColors = {0x0000FF, 0xFF0000, 0xFF00FF, 0x00FF00, 0xFFFF00, 0x00FFFF};
  const std::size_t count = reckoned.plots.size();
  ASSERT_EQ(model.Plots.size(), count);
  ASSERT_EQ(model.SurveyPlots.size(), count);
  EXPECT_EQ(model.NofPlots, static_cast<i16>(count));
  EXPECT_EQ(model.CurveCache.size(), count);
  for (std::size_t i = 0; i < count; ++i) {
    const ReckonedPlot& expected = reckoned.plots[i];
    const PlotRecord& plot = model.Plots[i + 1];
    EXPECT_EQ(plot.Title, expected.title) << i;
    EXPECT_EQ(plot.ChannelIndex, expected.index) << i;
    EXPECT_EQ(static_cast<i16>(plot.FileKind), expected.kind) << i;
    EXPECT_EQ(plot.Points, expected.points) << i;
    EXPECT_EQ(plot.Layer, expected.layer) << i;
    EXPECT_EQ(plot.RightAxis, expected.side - 1) << i;
    EXPECT_EQ(plot.DatabaseChannel, expected.database_channel) << i;
    EXPECT_EQ(plot.XSource, expected.x_channel) << i;
    EXPECT_EQ(plot.TimeFromRate, expected.x_channel == 0 ? 1 : 0) << i;
    EXPECT_EQ(plot.LineType, expected.line_type) << i;
    EXPECT_EQ(plot.Color, kColors[i % kColors.size()]) << i;
    EXPECT_EQ(model.SurveyPlots[i + 1].Title, expected.title) << i;
    EXPECT_EQ(model.SurveyPlots[i + 1].Color, plot.Color) << i;
  }
  EXPECT_EQ(model.XScratchChannel, reckoned.first_channel);
  EXPECT_EQ(model.HighestDatabaseChannel, reckoned.highest_channel);
}

void RandomListTest::expect_layers() const {
  if (model.NofPlots > 0) {
    for (i16 layer = 1; layer <= 3; ++layer) {
      EXPECT_EQ(model.LayerPlotCount[layer], reckoned.plots_in(layer, 1));
      EXPECT_EQ(model.LayerRightPlotCount[layer], reckoned.plots_in(layer, 2));
    }
  }
  EXPECT_EQ(model.ActiveLayers, reckoned.layers_used);
  EXPECT_EQ(model.ActiveLayersChanged, reckoned.layers_changed);
  EXPECT_EQ(model.gMultiLayer, reckoned.layers_used > 1);
  EXPECT_EQ(model.CurrentLayer, reckoned.layer_choice);
  EXPECT_EQ(model.HasFullDataPlot, reckoned.full_data);
  EXPECT_EQ(model.controls["mnuShowSurvGraph"].enabled, reckoned.survey_shown);
  EXPECT_EQ(model.controls["PESGSurvey"].visible, reckoned.survey_shown);
}

void RandomListTest::expect_annotations() const {
  std::vector<std::pair<std::string, i16>> expected;
  for (const ReckonedAnnotation& annotation : reckoned.annotations)
    expected.emplace_back(annotation.text, annotation.plot);
  std::vector<std::pair<std::string, i16>> found;
  for (const AnnotationRecord& record : model.Annotations) {
    found.emplace_back(record.Text, record.Plot);
    EXPECT_FALSE(record.Moved);
  }
  EXPECT_EQ(found, expected);
  EXPECT_EQ(model.AnnotationCount, static_cast<i16>(expected.size()));
}

// Kept samples are those of the curve's own signal.
void RandomListTest::expect_samples_and_parameters() {
  for (std::size_t i = 0; i < reckoned.plots.size(); ++i) {
    const ReckonedPlot& expected = reckoned.plots[i];
    const SampleArray& kept = model.CurveCache[static_cast<int>(i) + 1];
    if (model.Plots[i + 1].Cached == 0) {
      EXPECT_TRUE(kept.empty()) << i;
      continue;
    }
    EXPECT_EQ(std::vector<f64>(kept.begin(), kept.end()),
              samples(source_of.at(expected.path), expected.index))
        << i;
  }
  for (const auto& [channel, index] : reckoned.parameters)
    EXPECT_EQ(model.ChannelParams[channel].HardwareChannel, index) << channel;
}

TEST_P(RandomListTest, ListAndPlotsAgreeWithAnIndependentReckoning) {
  const unsigned steps = setting("TRENDARO_LIST_STEPS", 2000);
  for (unsigned step = 1; step <= steps; ++step) {
    SCOPED_TRACE("step " + std::to_string(step));
    take_a_step();
    expect_rows();
    expect_lists();
    expect_plots();
    expect_layers();
    expect_annotations();
    expect_samples_and_parameters();
    ASSERT_FALSE(HasFailure());
  }
  EXPECT_EQ(std::ranges::count_if(shell.messages(),
                                  [](const std::string& text) {
                                    return text.starts_with("Trendaro: Alle Datenbasiskanäle sind belegt.");
                                  }),
            reckoned.overflows);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomListTest, testing::Values(20261U, 1U, 8U));

}  // namespace
}  // namespace trendaro
