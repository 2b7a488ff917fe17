#pragma once

#include <span>
#include <string>

#include "app/types.h"
#include "files/load_status.h"
#include "graph/sample_index.h"

namespace trendaro {

struct Model;

// The samples of a plain plot: kept ones where the plot is Cached, else read from the file `path` and, unless
// caching is off, kept. The description of the file is read in both cases. The span lasts until the cache of
// the plot is freed or, with caching off, until the next load. `status` is the loader's.
std::span<const f64> plain_samples(Model& model, i16 plot, const std::string& path, LoadStatus& status);

// The index of the samples kept of a plot, for long curves; null where nothing is kept.
const SampleIndex* kept_index(Model& model, i16 plot);

// The samples of the x channel. The file is always read; with caching on all plots then share the samples
// that were read first, as far as those go.
std::span<const f64> x_channel_samples(Model& model, const std::string& path, i16 channel);

// Frees the samples kept of the x channel.
void free_x_cache(Model& model);

// Frees all that is kept and takes the mark off all plots.
void free_curve_caches(Model& model);

}  // namespace trendaro
