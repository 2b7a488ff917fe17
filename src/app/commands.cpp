#include "app/commands.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "app/model.h"
#include "app/panes.h"
#include "app/toolbar.h"
#include "config/axis_switches.h"
#include "config/legend_settings.h"
#include "config/look_settings.h"
#include "config/time_unit.h"
#include "datasource/database_link.h"
#include "datasource/file_list.h"
#include "datasource/grid_handlers.h"
#include "datasource/plot_list.h"
#include "files/channel_info_handlers.h"
#include "files/reduce_handlers.h"
#include "files/section_handlers.h"
#include "graph/cache_handlers.h"
#include "graph/zoom_modes.h"
#include "interact/cursor_modes.h"
#include "output/online_help.h"

namespace trendaro {
namespace {

constexpr Command separator_in(const char* parent) {
  return {nullptr, nullptr, parent, nullptr};
}

void close_window(Model& model) {
  model.shell.close_window();
}

void show_about(Model& model) {
  model.shell.show_about();
}

constexpr auto kCommands = std::to_array<Command>({
    {"mnuFile", "&Datei", nullptr, nullptr},
    {"mnuOpenFile", "Datei zu Kanalliste hinzufügen", "mnuFile", mnuOpenFile, false, "Ctrl+O"},
    {"mnuRemoveFile", "Datei entfernen", "mnuFile", mnuRemoveFile},
    separator_in("mnuFile"),
    {"mnuOpen", "Ausschnittsgraphik öffnen...", "mnuFile", nullptr},
    {"mnuSaveAs", "Aussichtsgraphik speichern als...", "mnuFile", nullptr, false, "Ctrl+S"},
    separator_in("mnuFile"),
    {"mnuReduceBin", "Mervan-Datei komprimieren...", "mnuFile", mnuReduceBin},
    {"mnuCreateMEASection", "Meßwertausschnittsdatei erzeugen...", "mnuFile", mnuCreateMEASection},
    {"mnuFileExtension", "Dateierweiterung der Originaldateien...", "mnuFile", mnuFileExtension},
    separator_in("mnuFile"),
    {"mnuExportClip", "Ausschnittsgrafik in Zwischenablage", "mnuFile", nullptr},
    {"mnuExportClipMeta", "in Metafile Format", "mnuExportClip", nullptr},
    {"mnuExportClipBitmap", "in Bitmap Format", "mnuExportClip", nullptr},
    {"mnuExportClipJPEG", "in JPEG Format", "mnuExportClip", nullptr},
    {"mnuExportFile", "Ausschnittsgrafik in Datei", "mnuFile", nullptr},
    {"mnuExportFileMeta", "in Metafile Format", "mnuExportFile", nullptr},
    {"mnuExportFileBitmap", "in Bitmap Format", "mnuExportFile", nullptr},
    {"mnuExportFileJPEG", "in JPEG Format", "mnuExportFile", nullptr},
    {"mnuPrint", "Drucken", "mnuFile", nullptr, false, "Ctrl+P"},
    separator_in("mnuFile"),
    {"mnuExit", "&Beenden", "mnuFile", close_window, false, "Ctrl+Q"},

    {"mnuView", "&Ansicht", nullptr, nullptr},
    {"mnuShowDatasourceGrid", "Kanalliste", "mnuView", mnuShowDatasourceGrid, true},
    {"mnuShowSurvGraph", "Übersichtsgraphik", "mnuView", mnuShowSurvGraph, true},
    separator_in("mnuView"),
    {"mnuZoomHorz", "Horizontaler Zoom", "mnuView", choose_zoom_mode<ZoomMode::Horizontal>},
    {"mnuZoomVert", "Vertikaler Zoom", "mnuView", choose_zoom_mode<ZoomMode::Vertical>},
    {"mnuZoomRect", "Rechteckzoom", "mnuView", choose_zoom_mode<ZoomMode::Rectangle>},
    {"mnuZoomToMax", "Zoom in Maximalintervall", "mnuView", spring_with_plots},
    {"mnuResetZoom", "Zoom zurücksetzen", "mnuView", reset_zoom},
    separator_in("mnuView"),
    {"mnuCursor", "Cursor", "mnuView", nullptr},
    {"mnuCursorOff", "Cursor ausschalten", "mnuCursor", mnuCursorOff, true},
    {"mnuVertCursor", "Einrasten (vertikale Linie)", "mnuCursor", mnuVertCursor, true},
    {"mnuCrossCursor", "Einrasten (Fadenkreuz)", "mnuCursor", mnuCrossCursor, true},
    {"mnuSquareCursor", "Einrasten (Datenpunkt)", "mnuCursor", mnuSquareCursor, true},
    {"mnuCursorPos", "Cursordatenanzeige", "mnuView", nullptr},
    {"mnuCursorPosRight", "Rechts der Ausschnittsgrafik", "mnuCursorPos", mnuCursorPosRight, true},
    {"mnuCursorPosInAxis", "Innerhalb der Achsenlayer", "mnuCursorPos", mnuCursorPosInAxis, true},

    {"mnuGraph", "&Graphik", nullptr, nullptr},
    {"mnuSetTitles", "Titel...", "mnuGraph", nullptr},
    {"mnuSetMainTitle", "Ausschnitt", "mnuSetTitles", nullptr},
    {"mnuSetSurvTitle", "Übersicht", "mnuSetTitles", nullptr},
    {"mnuColor", "Farben", "mnuGraph", nullptr},
    {"mnuColors(0)", "Hintergrund Skalenbereich...", "mnuColor", nullptr},
    {"mnuColors(1)", "Vordergrund Skalenbereich...", "mnuColor", nullptr},
    {"mnuColors(2)", "Hintergrund Zeichenbereich...", "mnuColor", nullptr},
    {"mnuColors(3)", "Vordergrund Zeichenbereich...", "mnuColor", nullptr},
    {"mnuColors(4)", "Schatten...", "mnuColor", nullptr},
    {"mnuColors(5)", "Nebengitter", "mnuColor", nullptr},
    {"mnuGlobalFontSize", "Schriftgröße", "mnuGraph", nullptr},
    {"mnuFSize(0)", "Klein", "mnuGlobalFontSize", mnuFSize<0>, true},
    {"mnuFSize(1)", "Mittel", "mnuGlobalFontSize", mnuFSize<1>, true},
    {"mnuFSize(2)", "Groß", "mnuGlobalFontSize", mnuFSize<2>, true},
    {"mnuFont", "Schriftarten", "mnuGraph", nullptr},
    {"mnuSetFont(0)", "Titel...", "mnuFont", nullptr},
    {"mnuSetFont(1)", "Untertitel...", "mnuFont", nullptr},
    {"mnuSetFont(2)", "Achsen...", "mnuFont", nullptr},
    {"mnuSetFont(3)", "Legende...", "mnuFont", nullptr},
    {"mnuLegend", "Legende", "mnuGraph", nullptr},
    {"mnuLegendPos(0)", "Oben", "mnuLegend", mnuLegendPos<0>, true},
    {"mnuLegendPos(1)", "Unten", "mnuLegend", mnuLegendPos<1>, true},
    {"mnuLegendPos(2)", "Links", "mnuLegend", mnuLegendPos<2>, true},
    {"mnuLegendPos(3)", "Rechts", "mnuLegend", mnuLegendPos<3>, true},
    {"mnuLegendPos(4)", "In Achsenlayer", "mnuLegend", mnuLegendPos<4>, true},
    {"mnuLegendPos(5)", "Keine", "mnuLegend", mnuLegendPos<5>, true},
    separator_in("mnuLegend"),
    {"mnuLegendPos(7)", "Legende einzeilig", "mnuLegend", mnuLegendPos<7>, true},
    {"mnuSymbols", "Symbole", "mnuGraph", nullptr},
    {"mnuSym(0)", "Klein", "mnuSymbols", mnuSym<0>, true},
    {"mnuSym(1)", "Mittel", "mnuSymbols", mnuSym<1>, true},
    {"mnuSym(2)", "Groß", "mnuSymbols", mnuSym<2>, true},
    {"mnuSym(3)", "Micro", "mnuSymbols", mnuSym<3>, true},
    {"mnuGrid", "Gitter", "mnuGraph", nullptr},
    {"mnuGridStyle(0)", "Kein", "mnuGrid", mnuGridStyle<0>, true},
    {"mnuGridStyle(1)", "Durchgezogen", "mnuGrid", mnuGridStyle<1>, true},
    {"mnuGridStyle(2)", "Gestrichelt", "mnuGrid", mnuGridStyle<2>, true},
    {"mnuGridStyle(3)", "Gepunktet", "mnuGrid", mnuGridStyle<3>, true},
    {"mnuGridStyle(4)", "Pixel", "mnuGrid", mnuGridStyle<4>, true},
    {"mnuGridStyle(5)", "Durchgezogen fett", "mnuGrid", mnuGridStyle<5>, true},
    {"mnuTick", "Nebengitter", "mnuGraph", nullptr},
    {"mnuTicks(0)", "Keine", "mnuTick", mnuTicks<0>, true},
    {"mnuTicks(1)", "Durchgezogen", "mnuTick", mnuTicks<1>, true},
    {"mnuTicks(2)", "Gestrichelt", "mnuTick", mnuTicks<2>, true},
    {"mnuTicks(3)", "Gepunktet", "mnuTick", mnuTicks<3>, true},
    {"mnuTicks(4)", "Pixel", "mnuTick", mnuTicks<4>, true},
    separator_in("mnuGraph"),
    {"mnuNullValues", "Null-Values...", "mnuGraph", nullptr},
    {"mnuUseCompression", "Graphikkomprimierung", "mnuGraph", mnuUseCompression, true},
    {"mnuCompressMin", "Min. Punktezahl für Komprimierung", "mnuGraph", mnuCompressMin},
    {"mnuCurveCache", "Kurven-Caching", "mnuGraph", mnuCurveCache, true},
    separator_in("mnuGraph"),
    {"mnuDelAnnots", "Alle Annotationen löschen", "mnuGraph", nullptr},
    {"mnuClearGraph", "Graphiken leeren", "mnuGraph", ClearGraph},

    {"mnuAxes", "A&chsen", nullptr, nullptr},
    {"mnuXUnit", "Zeiteinheit für x-Achse", "mnuAxes", nullptr},
    {"mnuTUnit(0)", "Millisekunden", "mnuXUnit", mnuTUnit<0>, true},
    {"mnuTUnit(1)", "Sekunden", "mnuXUnit", mnuTUnit<1>, true},
    {"mnuTUnit(2)", "Minuten", "mnuXUnit", mnuTUnit<2>, true},
    {"mnuTUnit(3)", "Stunden", "mnuXUnit", mnuTUnit<3>, true},
    {"mnuTUnit(4)", "Datum + Zeit", "mnuXUnit", mnuTUnit<4>, true},
    {"mnuConfigAxes", "Achse einrichten", "mnuAxes", nullptr},
    {"mnuConfigAxis(0)", "x-Achse...", "mnuConfigAxes", nullptr},
    {"mnuConfigAxis(1)", "Linke y-Achse, Ebene 1...", "mnuConfigAxes", nullptr},
    {"mnuConfigAxis(2)", "Linke y-Achse, Ebene 2...", "mnuConfigAxes", nullptr},
    {"mnuConfigAxis(3)", "Linke y-Achse, Ebene 3...", "mnuConfigAxes", nullptr},
    {"mnuConfigAxis(4)", "Rechte y-Achse, Ebene 1...", "mnuConfigAxes", nullptr},
    {"mnuConfigAxis(5)", "Rechte y-Achse, Ebene 2...", "mnuConfigAxes", nullptr},
    {"mnuConfigAxis(6)", "Rechte y-Achse, Ebene 3...", "mnuConfigAxes", nullptr},
    separator_in("mnuAxes"),
    {"mnuAxAutoTitle", "Automatische Achsentitel", "mnuAxes", mnuAxAutoTitle, true},
    {"mnuNoYTitle", "Keine y-Achsentitel", "mnuAxes", mnuNoYTitle, true},
    {"mnuAutoScaleData", "Auto-Datenskalierung (e-5..e+5)", "mnuAxes", mnuAutoScaleData, true},

    {"mnuDB", "Daten&basis", nullptr, nullptr},
    {"mnuDBOffset", "Datenbasis-Offset", "mnuDB", mnuDBOffset},
    {"mnuClearDB", "Datenbasis löschen", "mnuDB", mnuClearDB},
    {"mnuDBConfig", "Datenbasis einrichten...", "mnuDB", mnuDBConfig},
    {"mnuDBExport", "Ausschnittsdaten exportieren...", "mnuDB", mnuDBExport},

    {"mnuHelp", "&Hilfe", nullptr, nullptr},
    {"mnuOnlineHelp", "Einführung", "mnuHelp", mnuOnlineHelp, false, "F1"},
    {"mnuAbout", "Über Trendaro...", "mnuHelp", show_about},

    {"mnuPOP1", "Kanalliste", nullptr, nullptr},
    {"mnuSetX", "Als x-Datensatz verwenden", "mnuPOP1", mnuSetX},
    {"mnuCfgPlot", "Kurve einrichten", "mnuPOP1", nullptr},
    {"mnuShowChanInfo", "Kanalinformationen darstellen", "mnuPOP1", mnuShowChanInfo},
    {"mnuPRemoveFile", "Datei entfernen", "mnuPOP1", mnuPRemoveFile},

    {"mnuPOP2", "Beschriftung", nullptr, nullptr},
    {"mnuEditAnnotation", "Beschriftung bearbeiten", "mnuPOP2", nullptr},
    {"mnuDelAnnotation", "Beschriftung löschen", "mnuPOP2", nullptr},
});

// What is to be done when a menu opens.
struct MenuOpening {
  std::string_view menu;
  void (*run)(Model&);
};

constexpr MenuOpening kMenuOpenings[] = {{"mnuFile", mnuFile}, {"mnuPOP1", mnuPOP1}};

bool is_menu(const Command& command) {
  return command.parent == nullptr || std::ranges::any_of(kCommands, [&](const Command& other) {
           return other.parent != nullptr && command.name != nullptr &&
                  std::string_view(other.parent) == command.name;
         });
}

const Command* find_command(std::string_view name) {
  const auto found = std::ranges::find_if(
      kCommands, [&](const Command& command) { return command.name != nullptr && name == command.name; });
  return found == kCommands.end() ? nullptr : &*found;
}

}  // namespace

std::span<const Command> commands() {
  return kCommands;
}

void run_command(Model& model, const char* name) {
  const Command* command = find_command(name);
  if (command != nullptr && command->run != nullptr) command->run(model);
}

void open_menu(Model& model, const char* name) {
  for (const MenuOpening& opening : kMenuOpenings)
    if (opening.menu == name) opening.run(model);
}

void enable_control(Model& model, std::string_view name, bool enabled) {
  const Command* command = find_command(name);
  const bool has_work =
      command != nullptr ? command->run != nullptr || is_menu(*command) : has_tool_work(name);
  model.controls[name].enabled = enabled && has_work;
}

void add_controls(Model& model) {
  for (const Command& command : kCommands)
    if (command.name != nullptr)
      model.controls.add(command.name, {.enabled = command.run != nullptr || is_menu(command)});
  add_tool_controls(model);
  add_pane_controls(model);
}

}  // namespace trendaro
