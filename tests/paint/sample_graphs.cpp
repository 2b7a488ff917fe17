#include "sample_graphs.h"

#include <cmath>
#include <functional>

#include "graph/annotation_layout.h"
#include "graph/grid_styles.h"
#include "graph/plot_methods.h"

namespace trendaro {
namespace {

using Curve = std::function<f64(f64)>;

constexpr i32 kColors[] = {0xB4771F, 0x2827D6, 0x2CA02C, 0x0E7FFF, 0xBD6794, 0x4B568C, 0xC277E3,
                           0x7F7F7F, 0x22BDBC, 0xCFBE17, 0x801010, 0x108080, 0x805010, 0x404040};

void give_curves(GraphSurface& graph, f64 first, f64 last, i32 points, const std::vector<Curve>& curves) {
  GraphProperties& pending = graph.pending;
  pending.SubsetCount = static_cast<i32>(curves.size());
  pending.PointCount = points;
  SampleArray x;
  FlatArray y;
  for (std::size_t curve = 0; curve < curves.size(); ++curve) {
    for (i32 i = 0; i < points; ++i) {
      x.push_back(first + (last - first) * i / (points - 1));
      y.push_back(static_cast<f32>(curves[curve](x.back())));
    }
    const auto index = static_cast<i32>(curve);
    set_element(pending.SubsetLabels, index, "Kanal " + std::to_string(curve + 1));
    set_element(pending.SubsetColors, index, kColors[curve % std::size(kColors)]);
    set_element(pending.SubsetPlotMethods, index, 0);
    set_element(pending.SubsetLineTypes, index, 0);
    set_element(pending.SubsetPointTypes, index, 0);
    set_element(pending.SubsetsToLegend, index, index);
  }
  pending.UsingXDataII = true;
  PEvset(graph, kXDataII, std::move(x));
  PEvset(graph, kYData, std::move(y));
  PEactions(graph, kTakeOverAndRedraw);
}

GraphSurface& add(SampleGraphs& graphs, const std::string& title) {
  GraphSurface& graph = graphs.emplace_back(1);
  graph.pending.MainTitle = title;
  return graph;
}

f64 resonance(f64 t) {
  return 3 + 40 * std::exp(-(t - 6) * (t - 6)) * std::sin(t * 60) + 0.5 * std::sin(t * 700);
}

void add_layers(SampleGraphs& graphs) {
  GraphSurface& graph = add(graphs, "Prüflauf 17");
  graph.pending.SubTitle = "unkomprimierte Daten";
  graph.pending.XAxisLabel = "Zeit/s";
  const char* left[] = {"U/min", "mm/s", "°C"};
  for (std::size_t i = 0; i < 3; ++i) {
    graph.pending.layers[i].YAxisLabel = left[i];
    set_element(graph.pending.MultiAxesSubsets, static_cast<i32>(i), i == 0 ? 2 : 1);
  }
  graph.pending.layers[0].RYAxisLabel = "kN";
  graph.pending.layers[0].ShowRYAxis = true;
  give_curves(graph, 0, 12, 20000,
              {[](f64 t) { return 6000 * (1 - std::exp(-t / 3)); }, [](f64 t) { return 2 + std::sin(t); },
               resonance, [](f64 t) { return 20 + 3 * t + (t > 7 && t < 7.002 ? -30 : 0); }});
  graph.pending.SubsetLabels = {"Drehzahl", "Kraft Lager A", "Schwinggeschwindigkeit", "Temperatur Öl"};
  set_element(graph.pending.SubsetPlotMethods, 1, kRightAxisMethod);
  PEactions(graph, kTakeOverAndRedraw);
}

void add_dates(SampleGraphs& graphs) {
  for (const f64 days : {0.4, 1e-6, 20.0, 3000.0}) {
    GraphSurface& graph = add(graphs, "Datum + Zeit");
    graph.pending.DateTimeMode = 1;
    graph.pending.XAxisLabel = "Zeit";
    graph.pending.layers[0].YAxisLabel = "bar";
    give_curves(graph, 45291.8, 45291.8 + days, 500,
                {[days](f64 x) { return 5 + std::sin((x - 45291.8) / days * 9); }});
  }
}

void add_lines_and_symbols(SampleGraphs& graphs) {
  GraphSurface& lines = add(graphs, "Linientypen");
  lines.pending.LegendLocation = 3;
  std::vector<Curve> curves;
  for (int i = 0; i < 10; ++i) curves.push_back([i](f64 x) { return 10 - i + 0.4 * std::sin(x); });
  give_curves(lines, 0, 10, 300, curves);
  lines.pending.SubsetLineTypes = {0, 1, 2, 3, 4, 5, 6, 9, 10, 11};
  PEactions(lines, kTakeOverAndRedraw);

  GraphSurface& symbols = add(graphs, "Symbole");
  symbols.pending.LegendLocation = 2;
  symbols.pending.DataPointSize = 1;
  curves.clear();
  for (int i = 0; i < 14; ++i) curves.push_back([i](f64 x) { return 14 - i + 0.3 * std::sin(x); });
  give_curves(symbols, 0, 10, 16, curves);
  symbols.pending.SubsetPointTypes = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 72, 73};
  for (i32& method : symbols.pending.SubsetPlotMethods) method = kMethodLineAndPoints;
  PEactions(symbols, kTakeOverAndRedraw);
}

void add_axes(SampleGraphs& graphs) {
  GraphSurface& logarithmic = add(graphs, "Logarithmisch, Nebengitter");
  logarithmic.pending.layers[0].YAxisScaleControl = 2;
  logarithmic.pending.XAxisScaleControl = 2;
  logarithmic.pending.XAxisLabel = "f/Hz";
  logarithmic.pending.layers[0].YAxisLabel = "m/s²";
  logarithmic.pending.TickSetting = 5;
  logarithmic.pending.LegendLocation = 0;
  give_curves(logarithmic, 1, 20000, 20000,
              {[](f64 x) { return 1e-4 + 1 / (0.01 + std::pow(x / 300 - 1, 2)); },
               [](f64 x) { return 1 / (1 + x / 30); }});

  GraphSurface& small = add(graphs, "Nanosekunden");
  small.pending.XAxisLabel = "Zeit/s";
  small.pending.LegendStyle = 2;
  give_curves(small, 0, 7e-8, 300, {[](f64 x) { return 1e-7 * std::sin(x * 3e8); }});

  GraphSurface& fine = add(graphs, "Feine Schritte, fern von null");
  fine.pending.GridStyle = kGridDashed;
  give_curves(fine, 123456.789, 123456.7895, 300, {[](f64 x) { return 20000000 + x; }});

  GraphSurface& inverted = add(graphs, "Invertiert, eigenes Format");
  inverted.pending.layers[0].InvertedYAxis = true;
  inverted.pending.layers[0].AxisFormatY = "U = |.00| V";
  inverted.pending.GridStyle = kGridDotted;
  give_curves(inverted, -5, 5, 300, {[](f64 x) { return x * x; }});
}

std::string name_of(i32 method) {
  for (const PlotMethodChoice& choice : kFirstMethods)
    if (choice.method == method) return choice.name;
  for (const PlotMethodChoice& choice : kSecondMethods)
    if (choice.method == method) return choice.name;
  return "Methode " + std::to_string(method);
}

void add_methods(SampleGraphs& graphs) {
  for (i32 method = 0; method < kMethodCount; ++method) {
    GraphSurface& graph = add(graphs, name_of(method));
    give_curves(graph, 0, 30, 31,
                {[](f64 x) { return 2 + std::sin(x / 3) * (1 + x / 20) + 0.3 * std::sin(x * 17); },
                 [](f64 x) { return 1.2 + 0.05 * x + 0.4 * std::cos(x * 11); }});
    graph.pending.SubsetPlotMethods = {method, method};
    graph.pending.SubsetPointTypes = {3, 5};
    PEactions(graph, kTakeOverAndRedraw);
  }
}

void add_annotation(GraphSurface& graph, i32 kind, f64 x, f64 y, const std::string& text, i32 color) {
  const auto index = static_cast<i32>(graph.pending.GraphAnnotationType.size());
  set_element(graph.pending.GraphAnnotationType, index, kind);
  set_element(graph.pending.GraphAnnotationX, index, x);
  set_element(graph.pending.GraphAnnotationY, index, y);
  set_element(graph.pending.GraphAnnotationText, index, text);
  set_element(graph.pending.GraphAnnotationColor, index, color);
  set_element(graph.pending.GraphAnnotationAxis, index, 0);
}

void add_annotations(SampleGraphs& graphs) {
  GraphSurface& graph = add(graphs, "Annotationen und Cursordaten");
  give_curves(graph, 0, 12, 4000,
              {[](f64 x) { return 40 * std::exp(-(x - 6) * (x - 6)) * std::sin(x * 9); }});
  GraphProperties& pending = graph.pending;
  pending.ShowAnnotations = true;
  for (i32 symbol = 1; symbol <= 12; ++symbol) add_annotation(graph, symbol, symbol - 0.5, -33, "", 0x804000);
  add_annotation(graph, 6, 6.1, 38, "Resonanz", 0x2020C0);
  add_annotation(graph, kLineStartKind + 1, 8, 30, "", 0x208020);
  add_annotation(graph, kLineEndKind, 10.5, 12, "Abfall", 0x208020);
  add_annotation(graph, kFirstCornerKind, 1, 25, "", 0);
  add_annotation(graph, kSecondCornerKind, 3, 10, "", 0);
  add_annotation(graph, kEllipseKind + kFilledShape, 0, 0, "Fenster", 0xB05010);
  pending.HorzLineAnnotation = {20, -20};
  pending.HorzLineAnnotationText = {"|Rmax", "Grenze unten"};
  pending.HorzLineAnnotationColor = {0x2020C0, 0x2020C0};
  pending.HorzLineAnnotationType = {1, 0};
  pending.VertLineAnnotation = {3.5, 8.5};
  pending.VertLineAnnotationText = {"", "|TEnde"};
  pending.VertLineAnnotationType = {6, 6};
  pending.RightMargin = "|Rmax";
  pending.TopMargin = "|TEnde";
  pending.XAxisAnnotation = {5};
  pending.XAxisAnnotationText = {"T1"};
  pending.layers[0].YAxisAnnotation = {0};
  pending.layers[0].YAxisAnnotationText = {"null"};
  pending.AnnotationTextSize = pending.AxisAnnotationTextSize = pending.LineAnnotationTextSize = 80;
  pending.TablesEnabled = true;
  TableProperties& table = pending.tables[0];
  table.TableVisible = true;
  table.TableLocation = 6;
  table.TableRows = 5;
  table.TableColumns = 1;
  table.TableBorder = 3;
  table.TableTextSize = 80;
  table.column_widths[0] = 10;
  set_cell_text(table, 0, 0, "x=6.12 s");
  set_cell_text(table, 1, 0, "38.214 mm/s");
  set_cell_color(table, 1, 0, kColors[0]);
  set_cell_text(table, 2, 0, "----------------");
  PEactions(graph, kTakeOverAndRedraw);
}

void add_texts(SampleGraphs& graphs) {
  GraphSurface& graph =
      add(graphs,
          "Ein sehr langer Haupttitel, der auch in einer breiten Graphik nicht mehr in eine "
          "Zeile passt und deshalb gekürzt wird, hier");
  graph.pending.SubTitle = "komprimierte Daten";
  set_element(graph.pending.MultiSubTitles, 0, std::string("Prüfstand 4|Mitte|12.03.2024"));
  set_element(graph.pending.MultiBottomTitles, 0, std::string("|unten|"));
  graph.pending.XAxisLabel = "Zeit/s";
  std::vector<Curve> curves;
  for (int i = 0; i < 12; ++i) curves.push_back([i](f64 x) { return std::sin(x + i / 3.0); });
  give_curves(graph, 0, 10, 400, curves);
  graph.pending.SubsetLabels[3] =
      "Beschleunigung Lagergehäuse Antriebsseite, radial, gefiltert 10 Hz bis 1 kHz";
  PEactions(graph, kTakeOverAndRedraw);
  GraphSurface& empty = add(graphs, "Keine Kurven");
  empty.pending.SubTitle = "unkomprimierte Daten";
  PEactions(empty, kTakeOverAndRedraw);
}

void add_grids(SampleGraphs& graphs) {
  constexpr std::pair<const char*, i32> kGrids[] = {{"Gestrichelt", kGridDashed},
                                                    {"Gepunktet", kGridDotted},
                                                    {"Pixel", kGridPixel},
                                                    {"Durchgezogen fett", kGridBold}};
  for (const auto& [name, style] : kGrids) {
    GraphSurface& graph = add(graphs, "Gitter " + std::string(name));
    graph.pending.GridStyle = style;
    graph.pending.TickSetting = style == kGridBold ? kMinorSolid : style;
    give_curves(graph, 0, 10, 200, {[](f64 x) { return std::sin(x) * x; }});
    graph.pending.SubsetsToLegend = {-1};
    PEactions(graph, kTakeOverAndRedraw);
  }
}

void add_legends(SampleGraphs& graphs) {
  const std::vector<Curve> curves = {[](f64 x) { return std::sin(x); }, [](f64 x) { return std::cos(x); },
                                     [](f64 x) { return std::sin(x / 2); }};
  constexpr const char* kPlaces[] = {"Oben", "Unten", "Links", "Rechts"};
  for (i16 place = 0; place < 4; ++place) {
    GraphSurface& graph = add(graphs, "Legende " + std::string(kPlaces[place]));
    graph.pending.LegendLocation = place;
    give_curves(graph, 0, 10, 200, curves);
  }
  constexpr const char* kStyles[] = {"einzeilig", "in Achsenlayer"};
  for (i16 style = 1; style <= 2; ++style) {
    GraphSurface& graph = add(graphs, "Legende " + std::string(kStyles[style - 1]));
    graph.pending.LegendStyle = style;
    set_element(graph.pending.MultiAxesSubsets, 0, 2);
    set_element(graph.pending.MultiAxesSubsets, 1, 1);
    give_curves(graph, 0, 10, 200, curves);
  }
}

void add_symbol_sizes(SampleGraphs& graphs) {
  constexpr std::pair<const char*, i16> kSizes[] = {{"Symbole groß", 2}, {"Symbole micro", 3}};
  for (const auto& [title, size] : kSizes) {
    GraphSurface& graph = add(graphs, title);
    graph.pending.DataPointSize = size;
    std::vector<Curve> curves;
    for (int i = 0; i < 6; ++i) curves.push_back([i](f64 x) { return 6 - i + 0.3 * std::sin(x); });
    give_curves(graph, 0, 10, 16, curves);
    graph.pending.SubsetPointTypes = {1, 3, 4, 7, 8, 73};
    for (i32& method : graph.pending.SubsetPlotMethods) method = kMethodPoints;
    PEactions(graph, kTakeOverAndRedraw);
  }
}

void add_axis_settings(SampleGraphs& graphs) {
  GraphSurface& inverted = add(graphs, "x-Achse invertiert");
  inverted.pending.InvertedXAxis = true;
  give_curves(inverted, 0, 10, 300, {[](f64 x) { return x * std::sin(x); }});

  GraphSurface& automatic = add(graphs, "Von selbst logarithmisch");
  automatic.pending.layers[0].YAxisScaleControl = 0;
  give_curves(automatic, 0, 10, 300, {[](f64 x) { return std::pow(10.0, x - 3); }});

  GraphSurface& manual = add(graphs, "Eigene Abstände");
  manual.pending.ManualXAxisTicknLine = true;
  manual.pending.ManualXAxisTick = 0.5;
  manual.pending.ManualXAxisLine = 2.5;
  manual.pending.layers[0].ManualYAxisTicknLine = true;
  manual.pending.layers[0].ManualYAxisTick = 0.1;
  manual.pending.layers[0].ManualYAxisLine = 0.5;
  give_curves(manual, 0, 10, 300, {[](f64 x) { return std::sin(x); }});

  GraphSurface& power = add(graphs, "Zehnerpotenz am Titel");
  power.pending.AutoScaleData = true;
  power.pending.XAxisLabel = "Zeit/s";
  power.pending.layers[0].YAxisLabel = "N";
  give_curves(power, 0, 50000, 300, {[](f64 x) { return 1e-4 * std::sin(x / 7000); }});
}

void add_shapes(SampleGraphs& graphs) {
  GraphSurface& graph = add(graphs, "Formen");
  give_curves(graph, 0, 9, 300, {[](f64 x) { return 3 + std::sin(x); }});
  graph.pending.ShowAnnotations = true;
  f64 x = 0.5;
  for (const i32 kind : {kRectangleKind, kRoundedKind, kEllipseKind})
    for (const i32 style : {1, kFilledShape}) {
      add_annotation(graph, kFirstCornerKind, x, 3.6, "", 0);
      add_annotation(graph, kSecondCornerKind, x + 1, 2.4, "", 0);
      add_annotation(graph, kind + style, 0, 0, style == 1 ? "" : "gefüllt", 0xB05010);
      x += 1.4;
    }
  PEactions(graph, kTakeOverAndRedraw);
}

void add_crowds(SampleGraphs& graphs) {
  GraphSurface& names = add(graphs, "Viele lange Namen");
  std::vector<Curve> curves;
  for (int i = 0; i < 24; ++i) curves.push_back([i](f64 x) { return std::sin(x + i / 4.0); });
  give_curves(names, 0, 10, 200, curves);
  for (std::size_t i = 0; i < curves.size(); ++i)
    names.pending.SubsetLabels[i] = "Schwingweg gefiltert 10 Hz bis " + std::to_string(100 + 10 * i);
  PEactions(names, kTakeOverAndRedraw);

  GraphSurface& lines = add(graphs, "Viele Titelzeilen");
  for (i32 i = 0; i < 10; ++i) {
    set_element(lines.pending.MultiSubTitles, i, "oben " + std::to_string(i + 1));
    set_element(lines.pending.MultiBottomTitles, i, "links|unten " + std::to_string(i + 1) + "|rechts");
  }
  give_curves(lines, 0, 10, 200, {[](f64 x) { return std::sin(x); }});
}

}  // namespace

SampleGraphs sample_methods() {
  SampleGraphs graphs;
  add_methods(graphs);
  add_lines_and_symbols(graphs);
  return graphs;
}

SampleGraphs sample_axes() {
  SampleGraphs graphs;
  add_layers(graphs);
  add_dates(graphs);
  add_axes(graphs);
  add_grids(graphs);
  return graphs;
}

SampleGraphs sample_texts() {
  SampleGraphs graphs;
  add_texts(graphs);
  add_legends(graphs);
  add_annotations(graphs);
  return graphs;
}

SampleGraphs sample_settings() {
  SampleGraphs graphs;
  add_symbol_sizes(graphs);
  add_axis_settings(graphs);
  add_shapes(graphs);
  add_crowds(graphs);
  return graphs;
}

}  // namespace trendaro
