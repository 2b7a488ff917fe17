#include "graph/curve_fits.h"

#include <algorithm>
#include <cmath>

#include <Eigen/QR>

#include "graph/curve_index.h"
#include "graph/curve_samples.h"
#include "graph/plot_methods.h"

namespace trendaro {
namespace {

constexpr std::size_t kMostTerms = 4;
constexpr f64 kLeastPivot = 1e-10;  // of the largest; below it the points do not tell terms apart

// Sums of t^k, and of y t^k.
struct Moments {
  std::array<f64, 2 * kMostTerms - 1> t{};
  std::array<f64, kMostTerms> y{};

  void add(f64 place, f64 value) {
    f64 power = 1;
    for (std::size_t k = 0; k < t.size(); ++k, power *= place) {
      t[k] += power;
      if (k < y.size()) y[k] += power * value;
    }
  }
};

// The coefficients that the normal equations give. Nothing where the points do not determine that many terms.
std::optional<std::array<f64, kMostTerms>> solve(const Moments& moments, std::size_t terms) {
  constexpr auto kMost = static_cast<int>(kMostTerms);
  using Matrix = Eigen::Matrix<f64, Eigen::Dynamic, Eigen::Dynamic, Eigen::ColMajor, kMost, kMost>;
  const auto size = static_cast<Eigen::Index>(terms);
  Eigen::ColPivHouseholderQR<Matrix> equations(
      Matrix::NullaryExpr(size, size, [&](Eigen::Index row, Eigen::Index column) {
        return moments.t[static_cast<std::size_t>(row + column)];
      }));
  equations.setThreshold(kLeastPivot);
  if (!equations.isInvertible()) return std::nullopt;
  std::array<f64, kMostTerms> result{};
  Eigen::Map<Eigen::VectorXd>(result.data(), size) =
      equations.solve(Eigen::Map<const Eigen::VectorXd>(moments.y.data(), size));
  return result;
}

Polynomial fitted(const Moments& moments, std::size_t terms, f64 centre, f64 half_width) {
  Polynomial polynomial{centre, half_width, {}};
  for (; terms > 0; --terms)
    if (const auto coefficients = solve(moments, terms)) {
      polynomial.coefficients = *coefficients;
      break;
    }
  return polynomial;
}

std::optional<CurveFit> fit_of(const GraphProperties& properties, std::size_t curve) {
  const CurveSamples samples = curve_samples(properties, curve);
  if (samples.count == 0) return std::nullopt;
  const PointExtent& whole = samples.extents->whole;
  const f64 half_width = std::max(whole.x_high / 2 - whole.x_low / 2, 1e-300);
  const f64 centre = whole.x_low / 2 + whole.x_high / 2;
  Moments moments;
  for (std::size_t i = 0; i < samples.count; ++i)
    if (samples.drawn(i)) moments.add((samples.x(i) - centre) / half_width, static_cast<f64>(samples.y[i]));
  return CurveFit{fitted(moments, 2, centre, half_width), fitted(moments, kMostTerms, centre, half_width)};
}

bool draws_fit(const GraphProperties& properties, std::size_t curve) {
  if (curve >= properties.SubsetPlotMethods.size()) return false;
  const MethodOverlay overlay =
      method_parts(method_without_side(properties.SubsetPlotMethods[curve])).overlay;
  return overlay == MethodOverlay::FitLine || overlay == MethodOverlay::FitCurve;
}

}  // namespace

std::shared_ptr<const CurveFits> curve_fits(const GraphProperties& properties,
                                            const std::shared_ptr<const CurveFits>& former) {
  if (!properties.curve_index) return nullptr;
  const bool same_data = former && former->made_of == properties.curve_index;
  auto fits = std::make_shared<CurveFits>();
  fits->made_of = properties.curve_index;
  fits->curves.resize(properties.curve_index->curves.size());
  bool any = false;
  bool missing = false;
  for (std::size_t curve = 0; curve < fits->curves.size(); ++curve) {
    const bool known = same_data && former->curves[curve];
    if (known) fits->curves[curve] = former->curves[curve];
    if (!draws_fit(properties, curve)) continue;
    any = true;
    if (known) continue;
    fits->curves[curve] = fit_of(properties, curve);
    missing = true;
  }
  if (!any) return nullptr;
  return missing || !same_data ? fits : former;
}

}  // namespace trendaro
