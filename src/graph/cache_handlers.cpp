#include "graph/cache_handlers.h"

#include "app/attempt.h"
#include "app/model.h"
#include "app/numbers.h"
#include "graph/curve_cache.h"

namespace trendaro {
namespace {

constexpr i32 kDefaultTarget = 10000;
constexpr i32 kLeastTarget = 10;

void toggle_tick(Model& model, const char* entry) {
  model.controls[entry].ticked = !model.controls[entry].ticked;
}

}  // namespace

void mnuUseCompression(Model& model) {
  model.DisplayCompression = !model.DisplayCompression;
  toggle_tick(model, "mnuUseCompression");
}

void mnuCompressMin(Model& model) {
  const std::string answer = model.shell.ask_text(
      "Anzahl Datenpunkte auf die bei aktivierter Graphikkomprimierung die Daten komprimiert werden sollen:",
      "Auto-Komprimierung", number_text(i64{model.CompressTarget}));
  attempt([&] { model.CompressTarget = round_to_i32(ParseNumber(answer)); });
  if (model.CompressTarget < kLeastTarget) model.CompressTarget = kDefaultTarget;
}

void mnuCurveCache(Model& model) {
  model.CurveCacheOff = !model.CurveCacheOff;
  toggle_tick(model, "mnuCurveCache");
  if (model.CurveCacheOff) free_curve_caches(model);
}

}  // namespace trendaro
