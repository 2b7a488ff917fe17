#include "app/startup.h"

#include <filesystem>

#include "app/attempt.h"
#include "app/model.h"
#include "app/paths.h"
#include "app/program_folder.h"
#include "app/toolbar.h"
#include "config/legend_settings.h"
#include "config/look_settings.h"
#include "datasource/grid_handlers.h"
#include "datasource/plot_list.h"
#include "graph/graph_setup.h"
#include "graph/legend_layout.h"
#include "graph/titles.h"
#include "interact/cursor_modes.h"
#include "output/graph_template.h"

namespace trendaro {
namespace {

constexpr char kMainTemplate[] = "KM_TEMPLATE.$$$";
constexpr char kSurveyTemplate[] = "KMSurv_TEMPLATE.$$$";
constexpr f64 kNullValue = -1000000;
constexpr i16 kStyleAtStart = 3;

void load_template(Model& model, GraphSurface& graph, const char* name) {
  const std::string path = join_path(model.TemplateFolder, name);
  std::error_code ignored;
  if (std::filesystem::exists(path, ignored)) model.LastDatabaseStatus = PEloadfromfile(graph, path);
}

void save_template(Model& model, const GraphSurface& graph, const char* name) {
  model.LastDatabaseStatus = PEsavetofile(graph, join_path(model.TemplateFolder, name));
}

// The look that the graphs had when the last run ended.
void load_templates(Model& model) {
  if (model.TemplateFolder.empty()) model.TemplateFolder = template_folder();
  load_template(model, model.PESG, kMainTemplate);
  load_template(model, model.PESGSurvey, kSurveyTemplate);
}

void set_up_graphs(Model& model) {
  InitMainGraph(model);
  InitSurvGraph(model);
}

// Templates hold more than a run begins with, such as a scaling whose entry is not ticked. The set-up behind
// them keeps their look alone; what their load told stays told.
void set_up_with_templates(Model& model) {
  set_up_graphs(model);
  load_templates(model);
  const i32 status = model.LastDatabaseStatus;
  set_up_graphs(model);
  model.LastDatabaseStatus = status;
}

void choose_first_layer_and_side(Model& model) {
  model.CurrentLayer = 1;
  model.CurrentSide = 1;
  ToolbarHandler(model, false);
}

void set_default_titles(Model& model) {
  model.MainTitles[0] = "Ausschnitt";
  model.MainTitles[1] = "komprimierte Daten";
  model.SurveyTitles[0] = "Übersicht";
  for (GraphSurface* graph : {&model.PESG, &model.PESGSurvey}) {
    SetGraphTitles(model, *graph);
    PEactions(*graph, kRedrawFromSettings);
  }
}

void tick_entries(Model& model) {
  model.AxisAutoTitle = true;
  model.controls["mnuAxAutoTitle"].ticked = true;
  if (model.PESG.pending.LegendStyle == kLegendOneLine) model.controls["mnuLegendPos(7)"].ticked = true;
  tick_legend(model);
  tick_look(model);
  for (const char* entry :
       {"mnuShowDatasourceGrid", "mnuShowSurvGraph", "mnuCurveCache", "mnuUseCompression", "mnuTUnit(1)"})
    model.controls[entry].ticked = true;
  show_cursor_mode(model);
}

void set_first_values(Model& model) {
  model.TimeUnit = 1;
  if (model.GraphStyleValue == 0) model.GraphStyleValue = kStyleAtStart;
  model.xSrc.ListIndex = 0;
  model.PreviousSource = 0;
  model.ZoomLengthWarned = false;
  model.OccupiedWarned = false;
  for (GraphSurface* graph : {&model.PESG, &model.PESGSurvey}) {
    graph->pending.NullDataValue = kNullValue;
    graph->pending.NullDataValueX = kNullValue;
  }
}

void set_limits(Model& model) {
  model.OriginalExtension = "DAT";
  model.CompressTarget = 10000;
  model.CompressThreshold = 100000;
  model.LastLayer = 2;
  model.FirstLayer = 0;
}

}  // namespace

void load_main_window(Model& model) {
  model.controls["AnnoGrid"].visible = false;
  model.ButtonLock = true;
  InitDataSourceGrid(model);
  set_up_with_templates(model);
  choose_first_layer_and_side(model);
  set_default_titles(model);
  tick_entries(model);
  set_first_values(model);
  set_limits(model);
  model.ButtonLock = false;
}

bool activate_main_window(Model& model) {
  if (model.Host != nullptr) return true;
  model.shell.show_message("Mervan ActiveX-Server nicht vorhanden. Trendaro kann nicht gestartet werden!",
                           kProgramTitle, MessageIcon::Stop);
  return false;
}

bool query_close(Model& model) {
  return model.Host == nullptr || model.shell.ask_yes_no("Trendaro beenden?", "Programm beenden");
}

void unload_main_window(Model& model) {
  attempt([&] { ClearGraph(model); });
  attempt([&] { save_template(model, model.PESG, kMainTemplate); });
  attempt([&] { save_template(model, model.PESGSurvey, kSurveyTemplate); });
  model.CanUnloadFlag = true;
}

bool can_unload(const Model& model) {
  return model.CanUnloadFlag.value_or(false);
}

}  // namespace trendaro
