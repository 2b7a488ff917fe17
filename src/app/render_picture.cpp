#include "app/render_picture.h"

#include <QGuiApplication>
#include <cmath>
#include <limits>
#include <memory>
#include <ostream>

#include <unistd.h>

#include "app/file_arguments.h"
#include "app/memory_host.h"
#include "app/model.h"
#include "app/quiet_shell.h"
#include "app/startup.h"
#include "app/window_toolkit_notes.h"
#include "datasource/mark.h"
#include "datasource/plot_list.h"
#include "graph/graph_scale.h"
#include "graph/main_redraw.h"
#include "graph/window_reading.h"
#include "output/picture_file.h"

namespace trendaro {
namespace {

constexpr int kWrongCall = 2;
constexpr i16 kDateUnit = 4;
constexpr i16 kManualScale = 3;
// A folder that never holds anything, so that no look of an earlier run is found.
constexpr char kNoTemplates[] = "/dev/null";

// Says messages on a stream, and on a terminal what is going on.
class RenderShell : public QuietShell {
 public:
  explicit RenderShell(std::ostream& errors) : errors_(errors), terminal_(isatty(STDERR_FILENO) != 0) {}
  ~RenderShell() override { clear_line(); }

  void show_message(const std::string& text, const std::string&, MessageIcon icon) override {
    clear_line();
    errors_ << text << '\n';
    if (icon == MessageIcon::Stop) failed_ = true;
  }
  void show_status(int panel, const std::string& text) override {
    if (!terminal_ || panel != 1) return;
    clear_line();
    errors_ << text << std::flush;
    line_in_use_ = !text.empty();
  }

  [[nodiscard]] bool failed() const { return failed_; }

 private:
  void clear_line() {
    if (line_in_use_) errors_ << "\r\033[K" << std::flush;
    line_in_use_ = false;
  }

  std::ostream& errors_;
  bool terminal_;
  bool line_in_use_ = false;
  bool failed_ = false;
};

// What is wrong with the call itself; empty when nothing is.
std::string refusal(const RenderCommand& command) {
  if (picture_kind(command.output) == PictureKind::Unknown)
    return "--output: kein Bildformat (PNG, BMP, JPEG, SVG, PDF): " + command.output;
  for (const std::optional<f64>& edge : {command.from, command.to})
    if (edge && !std::isfinite(*edge)) return "--from, --to: keine Zahl";
  if (command.from && command.to && *command.from >= *command.to) return "--from muss kleiner sein als --to";
  return {};
}

// All channels of a file, in their order.
std::vector<i16> all_channels(const Model& model, const std::string& path) {
  std::vector<i16> channels;
  for (i32 row = 1; row <= model.Grid.MaxRows(); ++row) {
    const ChannelRow& cells = model.Grid.rows[row];
    if (cells.kind == RowKind::Signal && cells.path == path) channels.push_back(mark_index(cells.mark));
  }
  return channels;
}

bool add_file(Model& model, const RenderShell& shell, const FileArgument& argument, std::ostream& errors) {
  const i32 rows = model.Grid.MaxRows();
  open_file_argument(model, {argument.path, {}});
  if (model.Grid.MaxRows() == rows) {
    if (!shell.failed()) errors << "Die Datei wurde nicht geladen: " << argument.path << '\n';
    return false;
  }
  const FileArgument marks{
      argument.path, argument.channels.empty() ? all_channels(model, argument.path) : argument.channels};
  put_marks(model, marks, rows + 1);
  return !shell.failed();
}

// All marks at once, for after each of them the curves before it would be read once more.
void draw_marked(Model& model) {
  if (model.Grid.marked.empty()) return;
  RebuildPlotList(model);
  RedrawKMGraph(model, false);
}

void set_time_unit(Model& model, i16 unit) {
  model.TimeUnit = unit;
  model.DateAxis = unit == kDateUnit;
}

// An edge that is not given stays where the data put it.
void set_x_range(GraphSurface& graph, const RenderCommand& command) {
  if (!command.from && !command.to) return;
  graph.pending.ManualScaleControlX = kManualScale;
  if (command.from) graph.pending.ManualMinX = *command.from;
  if (command.to) graph.pending.ManualMaxX = *command.to;
  PEactions(graph, kRedrawFromSettings);
}

// A section shows all samples that it has, and needs no others. A margin keeps those at its edges.
PictureWindow window_of(const RenderCommand& command) {
  constexpr std::size_t kMostSamples = std::size_t{1} << 18;
  constexpr f64 kInfinity = std::numeric_limits<f64>::infinity();
  const f64 margin = command.from && command.to ? (*command.to - *command.from) / 8 : 0;
  return {.edges = {command.from ? *command.from - margin : -kInfinity,
                    command.to ? *command.to + margin : kInfinity},
          .most_samples = kMostSamples};
}

// A section of more samples is read once more, for the columns of its picture.
void read_columns(Model& model, const RenderCommand& command) {
  if (!reads_window(model)) return;
  const PictureKind kind = picture_kind(command.output);
  std::vector<f64> columns = picture_columns(model.PESG.shown(), kind, QSize(command.width, command.height));
  const PictureWindow& window = *model.picture_window;
  const bool holds_all = window.edges.front() <= columns.front() && columns.back() <= window.edges.back();
  if (!window.thinned && holds_all) return;
  model.picture_window = PictureWindow{.edges = std::move(columns), .most_samples = kMostOfColumn};
  model.PESG.pending.ManualScaleControlX = 0;
  RedrawKMGraph(model, false);
  set_x_range(model.PESG, command);
}

// An axis cannot show less than the numbers on it tell apart, of days some 50 microseconds.
void tell_of_wider_axis(const Model& model, const RenderCommand& command, std::ostream& errors) {
  if (!command.from || !command.to) return;
  const GraphProperties& shown = model.PESG.shown();
  const AxisScale scale = make_scale(shown.ManualMinX, shown.ManualMaxX, shown.XAxisScaleControl);
  if (scale.minimum >= *command.from && scale.maximum <= *command.to) return;
  errors << "Die x-Achse ist breiter als verlangt: feiner als in diesem Bild kann sie --from und --to nicht "
            "unterscheiden\n";
}

// The application object that fonts and images need, where there is none yet; it never asks for a display.
class OffscreenApplication {
 public:
  OffscreenApplication() {
    if (QCoreApplication::instance() != nullptr) return;
    say_failures_only();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    application_ = std::make_unique<QGuiApplication>(argument_count_, arguments_);
  }

 private:
  char name_[9] = "trendaro";
  char* arguments_[2] = {name_, nullptr};
  int argument_count_ = 1;
  std::unique_ptr<QGuiApplication> application_;
};

}  // namespace

int run_render(const RenderCommand& command, std::ostream& errors) {
  if (const std::string reason = refusal(command); !reason.empty()) {
    errors << reason << '\n';
    return kWrongCall;
  }
  const OffscreenApplication application;
  RenderShell shell(errors);
  Model model(shell);
  MemoryHost host(shell);
  model.Host = &host;
  model.Kernel = &host;
  model.TemplateFolder = kNoTemplates;
  load_main_window(model);
  set_time_unit(model, command.time_unit);
  // Nothing is drawn twice, so that nothing need be kept.
  model.CurveCacheOff = true;
  // The whole recording keeps its extremes when it is compressed.
  if (command.from || command.to) {
    model.controls["mnuUseCompression"].ticked = false;
    model.picture_window = window_of(command);
  }
  for (const FileArgument& file : command.files)
    if (!add_file(model, shell, file, errors)) return 1;
  draw_marked(model);
  if (shell.failed()) return 1;
  set_x_range(model.PESG, command);
  read_columns(model, command);
  if (shell.failed()) return 1;
  tell_of_wider_axis(model, command, errors);
  if (save_picture(model.PESG.shown(), command.output, QSize(command.width, command.height))) return 0;
  errors << "Die Datei kann nicht geschrieben werden: " << command.output << '\n';
  return 1;
}

}  // namespace trendaro
