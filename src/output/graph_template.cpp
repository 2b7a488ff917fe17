#include "output/graph_template.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string_view>
#include <utility>

#include "app/attempt.h"
#include "files/input_file.h"
#include "graph/graph_surface.h"
#include "graph/plot_methods.h"
#include "output/atomic_file.h"
#include "output/template_text.h"

namespace trendaro {
namespace {

constexpr std::string_view kFirstLine = "trendaro graph template 1";
constexpr std::string_view kLastLine = "end";
constexpr i64 kLargestFile = i64{64} << 20;

// What belongs to the curves on show or to the zoom: a template that is loaded over curves leaves it alone.
constexpr std::string_view kNotStored[] = {
    "SubsetCount",       "PointCount",  "SpecialSubsetCount", "MultiAxesSubsets", "UsingXDataII",
    "DateTimeMode",      "CursorPoint", "CursorSubset",       "AllowZooming",     "ScrollingHorzZoom",
    "ScrollingVertZoom", "ZoomAxisTop", "ZoomAxisBottom",     "ZoomActive",       "ZoomMinX",
    "ZoomMaxX",          "ZoomMinY",    "ZoomMaxY",           "ZoomMinRY",        "ZoomMaxRY",
    "ShowRYAxis"};

bool is_stored(std::string_view name) {
  return std::ranges::find(kNotStored, name) == std::end(kNotStored);
}

// Calls `visit(name, value)` for the stored properties of the graph, then for those of each layer, whose
// names begin with "layer 0 " and so on.
template <typename Properties, typename Visit>
void visit_stored(Properties& properties, Visit&& visit) {
#define GRAPH_PROPERTY(number, type, name, initial) \
  if (is_stored(#name)) visit(#name, properties.name);
#define GRAPH_LIST(number, type, name) \
  if (is_stored(#name)) visit(#name, properties.name);
#include "graph/graph_properties.def"
  for (std::size_t i = 0; i < properties.layers.size(); ++i) {
    auto& layer = properties.layers[i];
    const std::string prefix = "layer " + std::to_string(i) + " ";
#define LAYER_PROPERTY(number, type, name, initial) \
  if (is_stored(#name)) visit(prefix + #name, layer.name);
#define LAYER_LIST(number, type, name) \
  if (is_stored(#name)) visit(prefix + #name, layer.name);
#include "graph/graph_properties.def"
  }
}

std::string template_text(const GraphProperties& properties) {
  std::string text(kFirstLine);
  text += '\n';
  visit_stored(properties, [&](const std::string& name, const auto& value) {
    text += name;
    text += " = ";
    append_value(text, value);
    text += '\n';
  });
  text += kLastLine;
  text += '\n';
  return text;
}

using Lines = std::map<std::string_view, std::string_view>;

// The lines of a complete template by name; nothing when first or last line are missing.
std::optional<Lines> template_lines(std::string_view text) {
  Lines lines;
  bool first = true;
  while (!text.empty()) {
    const auto end = text.find('\n');
    if (end == std::string_view::npos) return std::nullopt;
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end + 1);
    if (std::exchange(first, false)) {
      if (line != kFirstLine) return std::nullopt;
      continue;
    }
    if (line == kLastLine) return lines;
    const auto equals = line.find(" = ");
    if (equals != std::string_view::npos) lines[line.substr(0, equals)] = line.substr(equals + 3);
  }
  return std::nullopt;
}

bool fits(std::string_view, const auto&) {
  return true;
}

// Layer numbers are used as indices by whoever handles the graph next.
bool fits(std::string_view name, const i16& value) {
  if (name != "WorkingAxis" && name != "FirstVisibleAxis") return true;
  return value >= 0 && static_cast<std::size_t>(value) < kGraphLayers;
}

bool fits(std::string_view name, const i32& value) {
  return name != "WorkingTable" || (value >= 0 && static_cast<std::size_t>(value) < kGraphTables);
}

void take_over(GraphProperties& properties, const Lines& lines) {
  visit_stored(properties, [&](const std::string& name, auto& value) {
    const auto line = lines.find(name);
    if (line == lines.end()) return;
    std::remove_reference_t<decltype(value)> stored{};
    std::string_view rest = line->second;
    if (take_value(rest, stored) && rest.empty() && fits(name, stored)) value = std::move(stored);
  });
}

// The axis that a curve hangs on is its plot's choice, as its layer is. Curves that the file does not know
// keep their method, and where none stood ahead of the load a curve hangs on the left axis.
void keep_sides(const std::vector<i32>& former, std::vector<i32>& methods) {
  for (std::size_t curve = 0; curve < methods.size(); ++curve) {
    const bool right = curve < former.size() && former[curve] >= kRightAxisMethod;
    methods[curve] = method_without_side(methods[curve]) + (right ? kRightAxisMethod : 0);
  }
  for (std::size_t curve = methods.size(); curve < former.size(); ++curve) methods.push_back(former[curve]);
}

// The whole file; nothing when it cannot be read or is larger than any template.
std::optional<std::string> file_text(const std::string& path) {
  const InputFile file(path);
  i64 size = 0;
  if (!file.is_open() || !attempt([&] { size = file.size(); })) return std::nullopt;
  if (size <= 0 || size > kLargestFile) return std::nullopt;
  std::string text(static_cast<std::size_t>(size), '\0');
  const ReadResult read = file.read_at(0, text.data(), size);
  if (read.failed) return std::nullopt;
  text.resize(static_cast<std::size_t>(read.bytes));
  return text;
}

}  // namespace

i32 PEsavetofile(const GraphSurface& graph, const std::string& path) {
  return replace_file(path, template_text(graph.pending)) ? kPropertyDone : kPropertyUnknown;
}

i32 PEloadfromfile(GraphSurface& graph, const std::string& path) {
  const auto text = file_text(path);
  const auto lines = text ? template_lines(*text) : std::nullopt;
  if (!lines) return kPropertyUnknown;
  const std::vector<i32> former = graph.pending.SubsetPlotMethods;
  take_over(graph.pending, *lines);
  keep_sides(former, graph.pending.SubsetPlotMethods);
  return kPropertyDone;
}

}  // namespace trendaro
