#include "datasource/plot_list.h"

#include <algorithm>
#include <array>
#include <limits>

#include "app/attempt.h"
#include "app/model.h"
#include "app/numbers.h"
#include "app/paths.h"
#include "app/toolbar.h"
#include "datasource/plot_carry_over.h"
#include "files/dataset_header.h"
#include "graph/curve_cache.h"
#include "interact/annotation_tables.h"

namespace trendaro {
namespace {

constexpr i16 kLayers = 3;
constexpr i16 kSides = 2;
constexpr std::size_t kMostPlots = static_cast<std::size_t>(std::numeric_limits<i16>::max());

i16 chosen_x_source(const XSourceBox& box) {
  return box.ListIndex == 0 ? i16{0} : box.entries[1].item_data;
}

void count_in_layer(Model& model, const Mark& mark) {
  ++model.LayerPlotCount[mark.layer];
  if (mark.side == 2) ++model.LayerRightPlotCount[mark.layer];
}

// The channel that takes the plot's zoomed values. With an x channel the first one takes the x values. Behind
// the end of the database the range starts again at channel 1, for the plots that follow as well.
i16 database_channel(Model& model, i16 number, i16 x_source) {
  const i32 channel = model.XScratchChannel + number - (x_source == 0 ? 1 : 0);
  if (channel <= model.MaxDatabaseChannels) return static_cast<i16>(channel);
  model.XScratchChannel = 1;
  attempt([&] {
    model.shell.show_message(
        "Alle Datenbasiskanäle sind belegt. Es wird ab dem ersten Kanal importiert, alte Daten werden "
        "überschrieben.",
        kProgramTitle, MessageIcon::Stop);
  });
  return 1;
}

// Each extension is looked for in a place of its own, so that of the plain names only "ST1" is found; the
// others stand on their file as full data.
PlotFileKind kind_of_file(const std::string& path) {
  if (upper_piece(path, 0) == "STO" || upper_piece(path, 1) == "ST1" || upper_piece(path, 2) == "ST2")
    return kKindReducedPairs;
  return upper_piece(path, 1) == "REB" ? kKindReducedBlock : kKindPlain;
}

void describe_signal(Model& model, PlotRecord& plot, const ChannelRow& row, i16 x_source) {
  plot.Title = row.name + "@" + row.path;
  plot.ChannelIndex = mark_index(row.mark);
  plot.XSource = x_source;
  plot.FileKind = kind_of_file(row.path);
  if (plot.FileKind == kKindPlain) model.HasFullDataPlot = true;
}

// Twice the points of the list for pairs, unless that is beyond any count; -1, unknown, stays.
i32 points_of(const PlotRecord& plot, const ChannelRow& row) {
  if (row.points == -1) return -1;
  const i64 doubled = i64{row.points} * 2;
  const bool fits = doubled >= std::numeric_limits<i32>::min() && doubled <= std::numeric_limits<i32>::max();
  return plot.FileKind == kKindReducedPairs && fits ? static_cast<i32>(doubled) : row.points;
}

void check_zoom_capacity(Model& model, i16 channel) {
  if (model.ZoomLengthWarned) return;
  attempt([&] { model.MaxZoomPoints = round_to_i32(ParseNumber(model.controls["PointsBox"].text)); });
  if (model.Host == nullptr) return;
  attempt([&] {
    if (host_integer(model.Host->DB().GetChannelProperty(channel, kChannelCapacity)) >= model.MaxZoomPoints)
      return;
    model.ZoomLengthWarned = true;
    model.shell.show_message("Datenbasiskanal " + std::to_string(channel) +
                                 " ist zu kurz um alle Zoomwerte zu importieren. Sie können entweder die "
                                 "Datenbasis vergrößern oder die Anzahl der Zoomwerte verringern.",
                             kProgramTitle, MessageIcon::Stop);
  });
}

// The parameters of the plot's channel under its database channel; none when its file cannot be read.
void load_parameters(Model& model, const std::string& path, const PlotRecord& plot) {
  model.ChannelParams.erase(plot.DatabaseChannel);
  if (load_dataset_header(model, path, plot.ChannelIndex) != LoadStatus::Done) return;
  if (plot.ChannelIndex > model.FileChannelCount) return;
  const auto read = model.ChannelParams.find(0);
  if (read != model.ChannelParams.end()) model.ChannelParams[plot.DatabaseChannel] = read->second;
}

// The next colour of the palette; `index` is 0 ahead of the first plot.
i32 palette_color(i16& index) {
  constexpr std::array<i32, 5> kBehindRed = {0xFF0000, 0xFF00FF, 0x00FF00, 0xFFFF00, 0x00FFFF};
  if (index < 2 || index > 6) index = 1;
  const i32 color = index == 1 ? 0x0000FF : kBehindRed[static_cast<std::size_t>(index - 2)];
  ++index;
  return color;
}

// The survey takes all that describes the curve, without unit and cache.
PlotRecord survey_copy(PlotRecord plot) {
  plot.Unit.clear();
  plot.Cached = 0;
  return plot;
}

void add_plot(Model& model, FormerPlots& former, const MarkedRow& marked, i16 x_source, i16& color_index) {
  const ChannelRow& row = model.Grid.rows[marked.row];
  count_in_layer(model, marked.mark);
  model.Plots.push_back({});
  model.SurveyPlots.push_back({});
  const auto number = static_cast<i16>(model.Plots.size());
  PlotRecord& plot = model.Plots[number];
  plot.Layer = marked.mark.layer;
  plot.DatabaseChannel = database_channel(model, number, x_source);
  model.HighestDatabaseChannel = std::max(model.HighestDatabaseChannel, plot.DatabaseChannel);
  plot.RightAxis = marked.mark.side == 2 ? 1 : 0;
  if (row.kind == RowKind::Signal)
    describe_signal(model, plot, row, x_source);
  else
    plot.FileKind = kKindDatabase;
  plot.Points = points_of(plot, row);
  attempt([&] { carry_over(model, former, number, marked.mark.index); });
  check_zoom_capacity(model, plot.DatabaseChannel);
  attempt([&] { load_parameters(model, row.path, plot); });
  plot.TimeFromRate = model.xSrc.ListIndex == 0 ? 1 : 0;
  plot.Color = palette_color(color_index);
  model.SurveyPlots[number] = survey_copy(plot);
}

void resize_companions(Model& model) {
  const std::size_t count = model.Plots.size();
  model.PlotReduceFactor.resize(count);
  model.PlotStep.resize(count);
  model.PlotOffsetPoints.resize(count);
  model.OriginalFileNames.resize(count);
  model.PlotUnits.resize(count);
  model.PlotScale.resize(count);
  model.PlotDateTexts.resize(count);
}

void count_layers(Model& model) {
  const auto used = [](i16 plots) { return plots > 0; };
  const auto layers = static_cast<i16>(std::ranges::count_if(model.LayerPlotCount, used));
  if (layers != model.ActiveLayers) model.ActiveLayersChanged = true;
  model.ActiveLayers = layers;
  model.gMultiLayer = layers > 1;
}

}  // namespace

void count_hidden_plots(Model& model) {
  model.CurveOffset = 0;
  for (i16 layer = 1; layer <= model.FirstZoomLayer; ++layer)
    model.CurveOffset = static_cast<i16>(model.CurveOffset + model.LayerPlotCount[layer]);
}

void follow_plots(Model& model) {
  if (model.AnnotationCount <= 0) return;
  for (i16 i = 1; i <= model.AnnotationCount && model.Annotations.has(i);) {
    AnnotationRecord& annotation = model.Annotations[i];
    if (annotation.Plot >= 1 && !annotation.Moved) {
      erase_annotation(model, i);
      continue;
    }
    if (model.Plots.has(annotation.Plot)) annotation.Color = model.Plots[annotation.Plot].Color;
    annotation.Moved = false;
    ++i;
  }
  RebuildAnnotations(model, model.PESG);
}

void clear_plot_list(Model& model) {
  model.Plots.clear();
  model.SurveyPlots.clear();
  model.NofPlots = 0;
  model.ActiveLayersChanged = false;
  model.LayerPlotCount.assign(kLayers, 0);
  model.LayerRightPlotCount.assign(kLayers, 0);
  model.HasFullDataPlot = false;
}

std::vector<MarkedRow> marks_in_plot_order(const ChannelRows& list) {
  std::array<std::vector<MarkedRow>, kLayers * kSides> passes;
  for (const i32 row : list.marked) {
    const auto mark = parse_mark(list.rows[row].mark);
    if (!mark || mark->layer < 1 || mark->layer > kLayers || mark->side < 1 || mark->side > kSides) continue;
    passes[static_cast<std::size_t>((mark->layer - 1) * kSides + mark->side - 1)].push_back({row, *mark});
  }
  std::vector<MarkedRow> order;
  for (const auto& pass : passes) order.insert(order.end(), pass.begin(), pass.end());
  if (order.size() > kMostPlots) order.resize(kMostPlots);
  return order;
}

void RebuildPlotList(Model& model) {
  FormerPlots former = take_former_plots(model);
  clear_plot_list(model);
  const i16 x_source = chosen_x_source(model.xSrc);
  i16 color_index = 0;
  for (const MarkedRow& marked : marks_in_plot_order(model.Grid))
    attempt([&] { add_plot(model, former, marked, x_source, color_index); });
  carry_over_caches(model, former);
  attempt([&] { follow_plots(model); });
  model.NofPlots = static_cast<i16>(model.Plots.size());
  resize_companions(model);
  free_x_cache(model);
  if (model.NofPlots == 0) {
    model.CurrentLayer = 1;
    ToolbarHandler(model, false);
  }
  count_layers(model);
  count_hidden_plots(model);
}

}  // namespace trendaro
