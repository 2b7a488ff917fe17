#pragma once

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "app/types.h"

namespace trendaro {

// What the channel list and its plots should hold, reckoned without a row number: files own their signals,
// and every question is answered by going through all of them.
struct ReckonedSignal {
  int identity = 0;  // differs between two blocks of the same file
  std::string name;
  i16 index = 0;
  i32 points = 0;
  i16 layer = 0;  // 0: not marked
  i16 side = 0;
};

struct ReckonedFile {
  std::string path;
  i16 kind = 2;
  i16 check = 1;
  bool open = true;
  std::vector<ReckonedSignal> signals;
};

struct ReckonedPlot {
  std::string title;
  std::string path;
  i16 index = 0;
  i16 kind = 2;
  i32 points = 0;
  i16 layer = 0;
  i16 side = 0;
  i16 database_channel = 0;
  i16 x_channel = 0;
  i16 line_type = 0;  // set by the user; follows its signal from list to list
};

struct ReckonedAnnotation {
  std::string text;
  i16 plot = 0;
};

struct ListReckoning {
  std::vector<ReckonedFile> files;
  std::vector<ReckonedPlot> plots;
  std::vector<ReckonedAnnotation> annotations;
  std::map<i16, i16> parameters;  // by database channel: index of the signal whose parameters lie there
  i16 x_entry = 0;
  i16 x_channel = 0;
  i16 first_channel = 1;    // of the import range
  i16 highest_channel = 1;  // used so far
  i16 last_channel = 96;    // of the database
  int overflows = 0;        // times that the range began anew
  i16 layers_used = 0;
  bool layers_changed = false;
  bool full_data = false;
  bool survey_shown = true;  // plain curves hide it; marks and removals bring it back, x sources do not
  i16 layer_choice = 1;

  // Row of the file, from 1.
  [[nodiscard]] i32 row_of(std::size_t file) const {
    i32 row = 1;
    for (std::size_t i = 0; i < file; ++i) row += 1 + static_cast<i32>(files[i].signals.size());
    return row;
  }
  // Row of the signal, 0 when it has gone.
  [[nodiscard]] i32 row_of_identity(int identity) const {
    i32 row = 0;
    for (const ReckonedFile& file : files) {
      ++row;
      for (const ReckonedSignal& signal : file.signals) {
        ++row;
        if (signal.identity == identity) return row;
      }
    }
    return 0;
  }
  [[nodiscard]] i16 plots_in(i16 layer, i16 least_side) const {
    return static_cast<i16>(std::ranges::count_if(
        plots, [&](const ReckonedPlot& plot) { return plot.layer == layer && plot.side >= least_side; }));
  }

  void click_file(std::size_t file, bool open) {
    files[file].check = file == 0 || open ? 1 : 0;
    if (file > 0) files[file].open = open;
  }
  // Tells whether plots went with the file.
  bool remove_file(std::size_t file) {
    const bool marked =
        std::ranges::any_of(files[file].signals, [](const auto& signal) { return signal.layer > 0; });
    files.erase(files.begin() + static_cast<std::ptrdiff_t>(file));
    if (file == 0 && !files.empty()) {
      files[0].open = true;
      files[0].check = 1;
    }
    if (marked) rebuild();
    return marked;
  }
  void unmark_all() {
    for (ReckonedFile& file : files)
      for (ReckonedSignal& signal : file.signals) signal.layer = signal.side = 0;
    plots.clear();
    std::erase_if(annotations, [](const ReckonedAnnotation& annotation) { return annotation.plot >= 1; });
    full_data = layers_changed = false;
    layers_used = 0;
  }
  void move_range(i16 first) {
    first_channel = first;
    for (ReckonedPlot& plot : plots) {
      const i16 former = std::exchange(plot.database_channel, first++);
      // One after the other, so that a range moved onto itself repeats a channel.
      parameters[plot.database_channel] = parameters[former];
      highest_channel = std::max(highest_channel, plot.database_channel);
    }
  }

  void rebuild() {
    const std::vector<ReckonedPlot> former = std::move(plots);
    plots.clear();
    for (i16 layer = 1; layer <= 3; ++layer)
      for (i16 side = 1; side <= 2; ++side)
        for (const ReckonedFile& file : files)
          for (const ReckonedSignal& signal : file.signals)
            if (signal.layer == layer && signal.side == side) add_plot(file, signal, former);
    follow_plots(former);
    full_data = std::ranges::any_of(plots, [](const ReckonedPlot& plot) { return plot.kind == 2; });
    i16 layers = 0;
    for (i16 layer = 1; layer <= 3; ++layer) layers = static_cast<i16>(layers + (plots_in(layer, 1) > 0));
    layers_changed = layers != layers_used;
    layers_used = layers;
    if (plots.empty()) layer_choice = 1;
  }

 private:
  static bool same_signal(const ReckonedPlot& a, const ReckonedPlot& b) {
    return a.index == b.index && a.path == b.path;
  }

  void add_plot(const ReckonedFile& file, const ReckonedSignal& signal,
                const std::vector<ReckonedPlot>& former) {
    ReckonedPlot plot{signal.name + "@" + file.path,
                      file.path,
                      signal.index,
                      file.kind,
                      signal.points,
                      signal.layer,
                      signal.side};
    if (file.kind == 1) plot.points *= 2;
    plot.x_channel = x_entry == 0 ? i16{0} : x_channel;
    plot.database_channel =
        static_cast<i16>(first_channel + static_cast<i16>(plots.size()) + (plot.x_channel == 0 ? 0 : 1));
    if (plot.database_channel > last_channel) {
      plot.database_channel = first_channel = 1;
      ++overflows;
    }
    highest_channel = std::max(highest_channel, plot.database_channel);
    parameters[plot.database_channel] = plot.index;
    for (const ReckonedPlot& other : former)
      if (same_signal(other, plot)) plot.line_type = other.line_type;
    plots.push_back(plot);
  }

  // An annotation goes to the first new plot of its signal, or it goes away.
  void follow_plots(const std::vector<ReckonedPlot>& former) {
    std::vector<ReckonedAnnotation> kept;
    for (ReckonedAnnotation annotation : annotations) {
      if (annotation.plot > 0) {
        const auto owner = static_cast<std::size_t>(annotation.plot);
        const auto heir = std::ranges::find_if(plots, [&](const ReckonedPlot& plot) {
          return owner <= former.size() && same_signal(plot, former[owner - 1]);
        });
        if (heir == plots.end()) continue;
        annotation.plot = static_cast<i16>(heir - plots.begin() + 1);
      }
      kept.push_back(annotation);
    }
    annotations = std::move(kept);
  }
};

}  // namespace trendaro
