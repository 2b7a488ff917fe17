#include "graph/graph_setup.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "app/model.h"
#include "graph/axis_settings.h"

namespace trendaro {
namespace {

constexpr i32 kGraphStyleNumber = 0xC20;
constexpr f64 kNullValueOfSetUp = -1000000;
constexpr std::size_t kLayersOnShow = 3;

// The limits of an axis are kept in single precision, so a long range loses digits here.
void pass_limits_through_single_precision(YAxisSettings& axis) {
  axis.low = static_cast<f32>(axis.low);
  axis.high = static_cast<f32>(axis.high);
}

// The settings that outlive the reset.
struct Capture {
  GraphProperties graph;  // without data
  std::array<YAxisSettings, kGraphLayers> left, right;
};

Capture capture(const GraphSurface& surface) {
  Capture captured{.graph = surface.pending, .left = {}, .right = {}};
  GraphProperties& graph = captured.graph;
  graph.XData = nullptr;
  graph.YData = nullptr;
  graph.XDataII = nullptr;
  graph.curve_index = nullptr;
  graph.curve_fits = nullptr;
  graph.ManualMinX = static_cast<f32>(graph.ManualMinX);
  graph.ManualMaxX = static_cast<f32>(graph.ManualMaxX);
  for (std::size_t layer = 0; layer < kGraphLayers; ++layer) {
    captured.left[layer] = left_axis(graph.layers[layer]);
    captured.right[layer] = right_axis(graph.layers[layer]);
    pass_limits_through_single_precision(captured.left[layer]);
    pass_limits_through_single_precision(captured.right[layer]);
  }
  return captured;
}

void write_switches(GraphProperties& graph) {
  graph.Switch03 = graph.Switch108 = graph.Switch10F = graph.Switch116 = graph.Switch12 = true;
  graph.Switch90 = graph.SwitchAA = graph.SwitchAB = graph.SwitchAC = graph.SwitchAD = true;
  graph.NullDataValue = kNullValueOfSetUp;
  graph.Switch40 = graph.Switch120 = graph.Switch3E = true;
  graph.Switch10C = graph.Switch10D = graph.Switch10E = true;
  graph.Switch0E = graph.Switch11 = graph.Switch41 = false;
  graph.Switch35 = graph.Switch36 = graph.Switch45 = 0;
}

void write_fonts(GraphProperties& graph, const GraphProperties& kept) {
  graph.FontScale1 = kept.FontScale1;
  graph.FontScale2 = kept.FontScale2;
  graph.FontScale3 = kept.FontScale3;
  graph.FontSizeClass = kept.FontSizeClass;
  graph.MainTitleFont = kept.MainTitleFont;
  graph.MainTitleBold = kept.MainTitleBold;
  graph.MainTitleItalic = kept.MainTitleItalic;
  graph.MainTitleUnderline = kept.MainTitleUnderline;
  graph.SubTitleFont = kept.SubTitleFont;
  graph.SubTitleBold = kept.SubTitleBold;
  graph.SubTitleItalic = kept.SubTitleItalic;
  graph.SubTitleUnderline = kept.SubTitleUnderline;
  graph.LabelFont = kept.LabelFont;
  graph.LabelBold = kept.LabelBold;
  graph.LabelItalic = kept.LabelItalic;
  graph.LabelUnderline = kept.LabelUnderline;
}

void write_look(GraphProperties& graph, const GraphProperties& kept) {
  graph.MainTitle = kept.MainTitle;
  graph.SubTitle = kept.SubTitle;
  graph.DeskColor = kept.DeskColor;
  graph.TextColor = kept.TextColor;
  graph.GraphBackColor = kept.GraphBackColor;
  graph.GraphForeColor = kept.GraphForeColor;
  graph.ShadowColor = kept.ShadowColor;
  graph.MinorGridColor = kept.MinorGridColor;
  write_fonts(graph, kept);
  graph.LegendLocation = kept.LegendLocation;
  graph.DateTimeMode = kept.DateTimeMode;
  graph.LegendStyle = kept.LegendStyle;
  graph.Bars3D = kept.Bars3D;
  graph.AllowZooming = kept.AllowZooming;
  graph.GraphExtra1 = kept.GraphExtra1;
  graph.GraphExtra2 = kept.GraphExtra2;
  graph.CursorMode = kept.CursorMode;
  graph.CursorStyle1 = kept.CursorStyle1;
  graph.CursorStyle2 = kept.CursorStyle2;
  graph.CursorStyle3 = kept.CursorStyle3;
  // A cursor that outlives the set-up keeps its ways.
  graph.CursorPromptStyle = kept.CursorPromptStyle;
  graph.CursorPromptTracking = kept.CursorPromptTracking;
  graph.MarkDataPoints = kept.MarkDataPoints;
}

// On purpose without the inverted flag: an inverted x axis lasts until the next set-up only.
void write_x_axis(GraphProperties& graph, const GraphProperties& kept) {
  graph.ManualScaleControlX = kept.ManualScaleControlX;
  graph.ManualMinX = kept.ManualMinX;
  graph.ManualMaxX = kept.ManualMaxX;
  graph.XAxisScaleControl = kept.XAxisScaleControl;
  graph.ManualXAxisTicknLine = kept.ManualXAxisTicknLine;
  graph.ManualXAxisTick = kept.ManualXAxisTick;
  graph.ManualXAxisLine = kept.ManualXAxisLine;
  graph.XAxisColor = kept.XAxisColor;
  graph.XAxisLabel = kept.XAxisLabel;
  graph.AxisFormatX = kept.AxisFormatX;
}

// Where the settings of an axis come from: the saved layers first, then the captured ones in their order.
const YAxisSettings& axis_source(const std::vector<YAxisSettings>& saved, std::size_t stored,
                                 const std::array<YAxisSettings, kGraphLayers>& captured, std::size_t slot) {
  return slot < stored && slot < saved.size() ? saved[slot] : captured[slot - std::min(stored, slot)];
}

// `first_visible` layers are taken off the place that each axis goes to; an axis without a place is left out.
void write_y_axes(GraphSurface& surface, const Capture& kept, const SavedAxes& saved, i16 first_visible) {
  const auto stored = static_cast<std::size_t>(std::max<i16>(saved.StoredAxisCount, 0));
  for (const bool right : {false, true})
    for (std::size_t slot = 0; slot < kGraphLayers; ++slot) {
      const i32 place = static_cast<i32>(slot) - first_visible;
      if (place < 0 || place >= static_cast<i32>(kGraphLayers)) continue;
      surface.pending.WorkingAxis = static_cast<i16>(place);
      LayerProperties& layer = surface.layer();
      if (right)
        write_right_axis(layer, axis_source(saved.right, stored, kept.right, slot));
      else
        write_left_axis(layer, axis_source(saved.left, stored, kept.left, slot));
      layer.LayerPlacement = kept.graph.layers[slot].LayerPlacement;
      layer.LayerProportion = kept.graph.layers[slot].LayerProportion;
    }
}

void write_rest(GraphProperties& graph, const GraphProperties& kept) {
  graph.AutoScaleData = false;
  graph.NullDataValueX = kept.NullDataValueX;
  graph.NullDataValue = kept.NullDataValue;
  graph.DataPointSize = kept.DataPointSize;
  graph.GridLineControl = kept.GridLineControl;
  graph.GridStyle = kept.GridStyle;
  graph.TickSetting = kept.TickSetting;
}

void write_zoom(GraphProperties& graph, const GraphProperties& kept) {
  graph.ZoomMinX = kept.ZoomMinX;
  graph.ZoomMaxX = kept.ZoomMaxX;
  for (std::size_t layer = 0; layer < kGraphLayers; ++layer) {
    graph.layers[layer].ZoomMinY = kept.layers[layer].ZoomMinY;
    graph.layers[layer].ZoomMaxY = kept.layers[layer].ZoomMaxY;
    graph.layers[layer].ZoomMinRY = kept.layers[layer].ZoomMinRY;
    graph.layers[layer].ZoomMaxRY = kept.layers[layer].ZoomMaxRY;
  }
  graph.ZoomActive = kept.ZoomActive;
  graph.ScrollingHorzZoom = kept.ScrollingHorzZoom;
  graph.ScrollingVertZoom = kept.ScrollingVertZoom;
  graph.SetupMode = 1;
}

void write_ticks(GraphSurface& surface, const GraphProperties& kept) {
  surface.pending.TicksOn = kept.TicksOn;
  for (std::size_t layer = 0; layer < kLayersOnShow; ++layer) {
    surface.pending.WorkingAxis = static_cast<i16>(layer);
    surface.layer().AxisTicksOn = kept.layers[layer].AxisTicksOn;
  }
}

// `saved` holds axes for the layer shift; the survey graph has none.
void set_up(Model& model, GraphSurface& surface, const SavedAxes& saved) {
  const bool main_graph = surface.Handle == model.PESG.Handle;
  const Capture kept = capture(surface);
  if (main_graph) surface.pending.PointCount = 0;
  PEactions(surface, kResetToEmpty);
  GraphProperties& graph = surface.pending;
  write_switches(graph);
  write_look(graph, kept.graph);
  write_x_axis(graph, kept.graph);
  write_y_axes(surface, kept, saved, saved.AxesStored ? kept.graph.FirstVisibleAxis : i16{0});
  write_rest(graph, kept.graph);
  write_zoom(graph, kept.graph);
  if (main_graph) surface.layer().YAxisLabel.clear();
  write_ticks(surface, kept.graph);
  graph.SetupDone = true;
  model.LastDatabaseStatus = PEnset(surface, kGraphStyleNumber, model.GraphStyleValue);
}

}  // namespace

void InitMainGraph(Model& model) {
  set_up(model, model.PESG, model.saved_axes.AxesStored ? model.saved_axes : SavedAxes{});
  model.saved_axes.StoredAxisCount = 0;
  model.saved_axes.AxesStored = false;
}

void InitSurvGraph(Model& model) {
  set_up(model, model.PESGSurvey, {});
}

}  // namespace trendaro
