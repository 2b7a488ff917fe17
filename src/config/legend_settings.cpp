#include "config/legend_settings.h"

#include "app/model.h"
#include "graph/legend_layout.h"

namespace trendaro {
namespace {

constexpr i16 kInLayers = 4;
constexpr i16 kNone = 5;
constexpr i16 kOneLine = 7;
constexpr const char* kOneLineEntry = "mnuLegendPos(7)";

i16 form_outside(const Model& model) {
  return model.controls[kOneLineEntry].ticked ? kLegendOneLine : kLegendList;
}

void write_legend(Model& model, i16 index) {
  GraphProperties& graph = model.PESG.pending;
  if (index < kInLayers) {
    graph.LegendLocation = index;
    graph.LegendStyle = form_outside(model);
  } else if (index == kInLayers) {
    graph.LegendStyle = kLegendInLayers;
  } else if (index == kOneLine) {
    model.controls[kOneLineEntry].ticked = !model.controls[kOneLineEntry].ticked;
    graph.LegendStyle = form_outside(model);
  }
  model.NoLegend = index == kNone;
  if (model.NoLegend)
    set_element(graph.SubsetsToLegend, 0, -1);
  else
    for (i32 curve = 0; curve < graph.SubsetCount; ++curve) set_element(graph.SubsetsToLegend, curve, curve);
}

}  // namespace

void choose_legend(Model& model, i16 index) {
  write_legend(model, index);
  PEactions(model.PESG, kTakeOverAndRedraw);
  GraphProperties& survey = model.PESGSurvey.pending;
  survey.LegendStyle = model.PESG.pending.LegendStyle;
  survey.LegendLocation = model.PESG.pending.LegendLocation;
  survey.SubsetsToLegend = model.PESG.pending.SubsetsToLegend;
  PEactions(model.PESGSurvey, kTakeOverAndRedraw);
  tick_legend(model);
}

void tick_legend(Model& model) {
  const GraphProperties& graph = model.PESG.pending;
  const i16 outside = graph.LegendStyle == kLegendInLayers ? kInLayers : graph.LegendLocation;
  tick_only(model.controls, "mnuLegendPos", kNone + 1, model.NoLegend ? kNone : outside);
}

}  // namespace trendaro
