#include "datasource/plot_record.h"

namespace trendaro {

std::string plot_signal(const PlotRecord& plot) {
  return plot.Title.substr(0, plot.Title.find('@'));
}

std::string plot_path(const PlotRecord& plot) {
  const auto at = plot.Title.find('@');
  return at == std::string::npos ? std::string() : plot.Title.substr(at + 1);
}

}  // namespace trendaro
