#include "graph/plot_methods.h"

#include "graph/graph_properties.h"

namespace trendaro {
namespace {

// By method number.
constexpr std::array<MethodParts, kMethodCount> kParts = {{
    {MethodBody::Line, false, MethodOverlay::None},
    {MethodBody::None, true, MethodOverlay::None},
    {MethodBody::Line, true, MethodOverlay::None},
    {MethodBody::Bars, false, MethodOverlay::None},
    {MethodBody::Area, false, MethodOverlay::None},
    {MethodBody::Stack, false, MethodOverlay::None},
    {MethodBody::None, true, MethodOverlay::FitLine},
    {MethodBody::None, true, MethodOverlay::FitCurve},
    {MethodBody::None, true, MethodOverlay::Spline},
    {MethodBody::None, false, MethodOverlay::Spline},
    {MethodBody::Steps, false, MethodOverlay::None},
    {MethodBody::Ribbon, false, MethodOverlay::None},
    {MethodBody::Line, false, MethodOverlay::FitLine},
    {MethodBody::Line, false, MethodOverlay::FitCurve},
    {MethodBody::Line, false, MethodOverlay::Spline},
    {MethodBody::ContourLines, false, MethodOverlay::None},
    {MethodBody::ContourAreas, false, MethodOverlay::None},
    {MethodBody::Bubbles, false, MethodOverlay::None},
}};

}  // namespace

MethodParts method_parts(i32 method) {
  return method >= 0 && method < kMethodCount ? kParts[static_cast<std::size_t>(method)] : MethodParts{};
}

i32 method_without_side(i32 stored) {
  return stored >= kRightAxisMethod ? stored - kRightAxisMethod : stored;
}

}  // namespace trendaro
