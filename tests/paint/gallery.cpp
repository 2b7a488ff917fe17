// Draws sheets of everything that a graph can show, to be looked at:
//   paint_gallery methods|axes|texts|settings|all PICTURE.png [SCALE]

#include <QGuiApplication>
#include <QImage>
#include <cstdio>
#include <optional>

#include "graph/graph_painter.h"
#include "sample_sheet.h"

namespace trendaro {
namespace {

constexpr SampleSheet kSheet{.tile = {480, 320}, .columns = 3};

SampleGraphs all_samples() {
  SampleGraphs all = sample_methods();
  for (SampleGraphs more : {sample_axes(), sample_texts(), sample_settings()})
    for (GraphSurface& graph : more) all.push_back(std::move(graph));
  return all;
}

std::optional<SampleGraphs> sheet_named(const QString& name) {
  if (name == QLatin1String("methods")) return sample_methods();
  if (name == QLatin1String("axes")) return sample_axes();
  if (name == QLatin1String("texts")) return sample_texts();
  if (name == QLatin1String("settings")) return sample_settings();
  if (name == QLatin1String("all")) return all_samples();
  return std::nullopt;
}

QImage drawn(const SampleGraphs& graphs, f64 scale) {
  return kSheet.drawn(graphs, scale, [](QPainter& painter, const GraphSurface& graph) {
    paint_graph(painter, graph.shown(), QSizeF(kSheet.tile));
  });
}

}  // namespace
}  // namespace trendaro

int main(int argument_count, char** arguments) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argument_count, arguments);
  const auto sheet =
      argument_count > 2 ? trendaro::sheet_named(QString::fromLocal8Bit(arguments[1])) : std::nullopt;
  if (!sheet) {
    std::fprintf(stderr, "paint_gallery methods|axes|texts|settings|all PICTURE.png [SCALE]\n");
    return 2;
  }
  const double scale = argument_count > 3 ? QByteArray(arguments[3]).toDouble() : 1;
  return trendaro::drawn(*sheet, scale).save(QString::fromLocal8Bit(arguments[2])) ? 0 : 1;
}
