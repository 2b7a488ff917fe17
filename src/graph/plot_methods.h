#pragma once

#include <array>

#include "app/types.h"

namespace trendaro {

// Plotting methods: the numbers in SubsetPlotMethods, without the summand of the right axis.
inline constexpr i32 kMethodLine = 0;
inline constexpr i32 kMethodPoints = 1;
inline constexpr i32 kMethodLineAndPoints = 2;
inline constexpr i32 kMethodBars = 3;
inline constexpr i32 kMethodArea = 4;
inline constexpr i32 kMethodStacked = 5;
inline constexpr i32 kMethodPointsAndFitLine = 6;
inline constexpr i32 kMethodPointsAndFitCurve = 7;
inline constexpr i32 kMethodPointsAndSpline = 8;
inline constexpr i32 kMethodSpline = 9;
inline constexpr i32 kMethodSteps = 10;
inline constexpr i32 kMethodRibbon = 11;
inline constexpr i32 kMethodLineAndFitLine = 12;
inline constexpr i32 kMethodLineAndFitCurve = 13;
inline constexpr i32 kMethodLineAndSpline = 14;
inline constexpr i32 kMethodContourLines = 15;
inline constexpr i32 kMethodContourAreas = 16;
inline constexpr i32 kMethodBubbles = 17;
inline constexpr i32 kMethodCount = 18;

// A method as the user chooses it.
struct PlotMethodChoice {
  const char* name;
  i32 method;
};

// The two lists of methods, in their order.
inline constexpr std::array<PlotMethodChoice, 12> kFirstMethods = {{
    {"Linie", kMethodLine},
    {"Punkt", kMethodPoints},
    {"Linie + Punkte", kMethodLineAndPoints},
    {"Balken", kMethodBars},
    {"Fläche", kMethodArea},
    {"Gestapelt", kMethodStacked},
    {"Punkte + Best-Fit-Gerade", kMethodPointsAndFitLine},
    {"Punkte + Best-Fit-Kurve", kMethodPointsAndFitCurve},
    {"Punkte + Spline", kMethodPointsAndSpline},
    {"Spline", kMethodSpline},
    {"Stufen", kMethodSteps},
    {"Bänder", kMethodRibbon},
}};
inline constexpr std::array<PlotMethodChoice, 11> kSecondMethods = {{
    {"Linie", kMethodLine},
    {"Punkt", kMethodPoints},
    {"Linie + Punkte", kMethodLineAndPoints},
    {"Linie + Best-Fit-Gerade", kMethodLineAndFitLine},
    {"Linie + Best-Fit-Kurve", kMethodLineAndFitCurve},
    {"Linie + Spline", kMethodLineAndSpline},
    {"Spline", kMethodSpline},
    {"Bänder", kMethodRibbon},
    {"Konturlinien", kMethodContourLines},
    {"Konturflächen", kMethodContourAreas},
    {"Bubble", kMethodBubbles},
}};

// What a method draws of a curve.
enum class MethodBody : u8 {
  None,
  Line,
  Steps,
  Bars,
  Area,
  Stack,
  Ribbon,
  ContourLines,
  ContourAreas,
  Bubbles
};
// What it draws over that.
enum class MethodOverlay : u8 { None, FitLine, FitCurve, Spline };
// All that a method draws: body, symbols and overlay, one over the other.
struct MethodParts {
  MethodBody body = MethodBody::Line;
  bool symbols = false;  // at the samples
  MethodOverlay overlay = MethodOverlay::None;
};

// The parts of a method; what is not known as a method is a line.
MethodParts method_parts(i32 method);

// The method of a stored number, which may carry the summand of the right axis.
i32 method_without_side(i32 stored);

}  // namespace trendaro
