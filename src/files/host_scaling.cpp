#include "files/host_scaling.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

#include "app/numbers.h"
#include "files/parameter_words.h"

namespace trendaro {
namespace {

constexpr u8 kComputed = 2;
constexpr u8 kThermometer = 3;

constexpr u8 kTable = 0;
constexpr u8 kPolynomial = 1;
constexpr u8 kFormula = 2;
constexpr u8 kStrainGauge = 3;

std::string computed_scaling(u8 kind) {
  constexpr std::array<const char*, 4> kWords = {"Linearisierungstabelle", "Polynom", "y = f(x)",
                                                 "DMS Verschaltung"};
  return kind < kWords.size() ? kWords[kind] : "";
}

// Types count from 101.
std::string thermometer(i16 type) {
  constexpr std::array<const char*, 10> kWords = {"Thermo J", "Thermo K", "Thermo S", "Thermo T", "Thermo B",
                                                  "Thermo E", "Thermo R", "Pt 100",   "Pt 500",   "Pt 1000"};
  constexpr i16 kFirst = 101;
  const auto index = static_cast<std::size_t>(type - kFirst);
  return type >= kFirst && index < kWords.size() ? kWords[index] : "";
}

std::string scaling_word(const ChannelExtraRecord& extra) {
  switch (extra.ScalingMode) {
    case 0:
      return "Keine";
    case 1:
      return "Extern Hardware";
    case kComputed:
      return computed_scaling(extra.ScalingKind);
    case kThermometer:
      return thermometer(extra.ThermoType);
    default:
      return "";
  }
}

void add_table(std::vector<ChannelInfoRow>& rows, const std::vector<f64>& values) {
  for (std::size_t pair = 1; 2 * pair <= values.size(); ++pair) {
    const std::string number = std::to_string(pair);
    rows.push_back({"x(" + number + ");y(" + number + ")",
                    number_text(values[2 * pair - 2]) + " ; " + number_text(values[2 * pair - 1])});
  }
}

void add_polynomial(std::vector<ChannelInfoRow>& rows, const std::vector<f64>& values) {
  for (std::size_t i = 1; i <= values.size(); ++i)
    rows.push_back({"a(" + std::to_string(i) + ")", number_text(values[i - 1])});
}

void add_gauge_factors(std::vector<ChannelInfoRow>& rows, const std::vector<f64>& values) {
  std::size_t index = 0;
  for (const char* name : {"k-Faktor", "Brückenfaktor", "Shuntkorrekturfaktor"}) {
    rows.push_back({name, index < values.size() ? number_text(values[index]) : kNotAvailable});
    ++index;
  }
}

}  // namespace

std::vector<ChannelInfoRow> host_scaling_rows(const ChannelExtraRecord& extra) {
  std::vector<ChannelInfoRow> rows = {{"Mervan Skalierung", scaling_word(extra)}};
  if (extra.ScalingMode != kComputed) return rows;
  if (extra.ScalingKind == kTable) add_table(rows, extra.Coefficients);
  if (extra.ScalingKind == kPolynomial) add_polynomial(rows, extra.Coefficients);
  if (extra.ScalingKind == kFormula)
    rows.push_back({"f(x)", extra.FormulaText.empty() ? kNotAvailable : extra.FormulaText});
  if (extra.ScalingKind == kStrainGauge) add_gauge_factors(rows, extra.Coefficients);
  return rows;
}

}  // namespace trendaro
