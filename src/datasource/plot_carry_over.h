#pragma once

#include "app/one_based.h"
#include "app/types.h"
#include "datasource/plot_record.h"
#include "graph/sample_index.h"

namespace trendaro {

struct Model;

// The plots of the former list while a new one is built. Both lists count from 1.
struct FormerPlots {
  OneBased<PlotRecord> plots;
  OneBased<CurveBlock> caches;
  OneBased<i16> cache_from;  // for each new plot: the former plot whose samples it takes, 0 for none
};

// Takes the plots and their cached samples out of the model.
FormerPlots take_former_plots(Model& model);

// True when both titles name the same file, not regarding case.
bool same_file(const PlotRecord& a, const PlotRecord& b);

// Gives the new plot `number` what the user set on the former plots of the same signal, and moves their
// annotations to it. Of several former plots the last one wins. `index` is that of the plot's mark; plots of
// the database carry no channel of their own and are never found again.
void carry_over(Model& model, FormerPlots& former, i16 number, i16 index);

// Gives every new plot the samples that it carried over; those of plots that have gone are released.
void carry_over_caches(Model& model, FormerPlots& former);

}  // namespace trendaro
