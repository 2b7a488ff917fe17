#include "graph/curve_fits.h"

#include <cmath>

#include <gtest/gtest.h>

#include "graph/curve_index.h"
#include "graph/plot_methods.h"
#include "support/graph_data.h"

namespace trendaro {
namespace {

constexpr f32 kNull = -1000000;

GraphProperties curve_of(const std::vector<f32>& x, const std::vector<f32>& y, i32 method) {
  GraphProperties properties;
  set_curves(properties, static_cast<i32>(y.size()), x, y);
  properties.SubsetPlotMethods = {method};
  properties.curve_index = build_curve_index(properties);
  return properties;
}

CurveFit fit_of(const GraphProperties& properties) {
  return curve_fits(properties, nullptr)->curves[0].value();
}

TEST(CurveFitsTest, TheLineIsThatOfLeastSquares) {
  // Means 2 and 3; sum of (x - 2)(y - 3) = 6, of (x - 2)² = 10: slope 0.6.
  const CurveFit fit = fit_of(curve_of({0, 1, 2, 3, 4}, {2, 2, 3, 4, 4}, kMethodPointsAndFitLine));
  EXPECT_NEAR(fit.line.at(2), 3, 1e-12);
  EXPECT_NEAR(fit.line.at(4), 4.2, 1e-12);
  EXPECT_NEAR(fit.line.at(0), 1.8, 1e-12);
}

TEST(CurveFitsTest, ACurveOfTheThirdDegreeIsMetExactly) {
  std::vector<f32> x, y;
  for (int i = -5; i <= 5; ++i) {
    x.push_back(static_cast<f32>(1000 + i));
    y.push_back(static_cast<f32>(i * i * i - 2 * i * i + i - 7));
  }
  const CurveFit fit = fit_of(curve_of(x, y, kMethodLineAndFitCurve));
  for (std::size_t i = 0; i < x.size(); ++i)
    EXPECT_NEAR(fit.curve.at(static_cast<f64>(x[i])), static_cast<f64>(y[i]), 1e-8);
}

TEST(CurveFitsTest, GapsDoNotPull) {
  const CurveFit fit =
      fit_of(curve_of({0, 1, 2, 3, 4}, {1, kNull, 3, std::nanf(""), 5}, kMethodPointsAndFitLine));
  EXPECT_NEAR(fit.line.at(1), 2, 1e-12);
  EXPECT_NEAR(fit.line.at(4), 5, 1e-12);
}

TEST(CurveFitsTest, FewPlacesGiveALowerDegree) {
  const CurveFit one = fit_of(curve_of({3, 3, 3}, {1, 2, 6}, kMethodPointsAndFitCurve));
  EXPECT_NEAR(one.line.at(3), 3, 1e-12);
  EXPECT_NEAR(one.curve.at(100), 3, 1e-12);
  const CurveFit two = fit_of(curve_of({0, 2}, {1, 5}, kMethodPointsAndFitCurve));
  EXPECT_NEAR(two.curve.at(0), 1, 1e-9);
  EXPECT_NEAR(two.curve.at(2), 5, 1e-9);
}

TEST(CurveFitsTest, OnlyMethodsThatDrawOneGetAFit) {
  EXPECT_EQ(curve_fits(curve_of({0, 1}, {1, 2}, kMethodLine), nullptr), nullptr);
  EXPECT_NE(curve_fits(curve_of({0, 1}, {1, 2}, kMethodLineAndFitLine + 1000), nullptr), nullptr);
  const auto empty = curve_fits(curve_of({0, 1}, {kNull, kNull}, kMethodLineAndFitLine), nullptr);
  EXPECT_FALSE(empty->curves[0].has_value());
}

TEST(CurveFitsTest, TheSameDataAreFittedOnce) {
  GraphProperties properties = curve_of({0, 1}, {1, 2}, kMethodLineAndFitLine);
  const auto fits = curve_fits(properties, nullptr);
  properties.SubsetPlotMethods = {kMethodPointsAndFitCurve};
  EXPECT_EQ(curve_fits(properties, fits), fits);
  properties.curve_index = build_curve_index(properties);
  EXPECT_NE(curve_fits(properties, fits), fits);
}

}  // namespace
}  // namespace trendaro
