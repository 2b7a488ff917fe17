#include "app/panes.h"

#include "app/model.h"

namespace trendaro {

void add_pane_controls(Model& model) {
  for (const char* pane : {"Grid", "xSrc", "Label1", "Separator", "PESG", "SeparatorGraph", "PESGSurvey",
                           "AnnoGrid", "sbStatus"})
    model.controls.add(pane, {.visible = std::string_view(pane) != "AnnoGrid"});
}

void mnuShowDatasourceGrid(Model& model) {
  ControlState& entry = model.controls["mnuShowDatasourceGrid"];
  entry.ticked = !entry.ticked;
  for (const char* pane : {"Grid", "xSrc", "Label1", "Separator"})
    model.controls[pane].visible = entry.ticked;
}

void mnuShowSurvGraph(Model& model) {
  ControlState& entry = model.controls["mnuShowSurvGraph"];
  entry.ticked = !entry.ticked;
  for (const char* pane : {"PESGSurvey", "SeparatorGraph"}) model.controls[pane].visible = entry.ticked;
}

WindowFrame with_visible_panes(const Model& model, WindowFrame frame) {
  frame.list_visible = model.controls["Grid"].visible;
  frame.survey_visible = model.controls["PESGSurvey"].visible;
  frame.annotations_visible = model.controls["AnnoGrid"].visible;
  return frame;
}

PaneLayout pane_layout(const Model& model, WindowFrame frame, const PaneSplit& split) {
  return lay_out_panes(with_visible_panes(model, frame), split);
}

}  // namespace trendaro
