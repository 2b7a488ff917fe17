#pragma once

#include <iterator>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "graph/graph_properties.h"

namespace trendaro {

// Values as nobody would set them on purpose: small numbers mostly, then extremes, no numbers, texts that end
// within a character.
class RandomValues {
 public:
  explicit RandomValues(u32 seed) : random_(seed) {}

  std::size_t below(std::size_t limit) { return random_() % limit; }
  bool one_in(std::size_t count) { return below(count) == 0; }

  void draw(bool& value) { value = one_in(2); }
  void draw(i16& value) { value = integer<i16>(); }
  void draw(i32& value) { value = integer<i32>(); }
  void draw(f32& value) { value = static_cast<f32>(real()); }
  void draw(f64& value) { value = real(); }
  void draw(std::string& value) {
    constexpr const char* kTexts[] = {"",         "Zeit/s",      "a|b|c",         "|",
                                      "||||",     "U = |.00| V", "|.99999",       "|Links",
                                      "Grenze|R", "|T",          "\xC3",          "\xF0\x9F\x98\x80",
                                      "0.0e+00",  "\n\t",        "\xE2\x82\xAC|", "µm/s²"};
    value = one_in(10) ? std::string(below(500), 'W') : kTexts[below(std::size(kTexts))];
  }
  template <typename T>
  void draw(std::vector<T>& list) {
    list.resize(below(12));
    for (T& value : list) draw(value);
  }

  f64 real() {
    constexpr f64 kLargest = std::numeric_limits<f64>::max();
    constexpr f64 kReals[] = {0,         1,
                              -1,        1e-300,
                              1e300,     kLargest,
                              -kLargest, 45000,
                              1e-9,      -1e-9,
                              1e15,      -657434,
                              2958465,   std::numeric_limits<f64>::infinity(),
                              -1e300,    1e-12,
                              0.12345,   1e38,
                              -1000000,  std::numeric_limits<f64>::quiet_NaN()};
    if (one_in(4)) return kReals[below(std::size(kReals))];
    return std::normal_distribution<f64>(0, 100)(random_);
  }

 private:
  template <typename T>
  T integer() {
    if (one_in(12)) return one_in(2) ? std::numeric_limits<T>::min() : std::numeric_limits<T>::max();
    if (one_in(3)) return kKinds[below(std::size(kKinds))];
    return static_cast<T>(static_cast<int>(below(22)) - 2);
  }

  // Kinds of annotations with their fills, symbols, places of tables, sizes in percent, methods on the right.
  static constexpr i16 kKinds[] = {36, 38,  44,  45,  46,  47, 48, 55,  56,  57,  63,  64,  71,   72,   73,
                                   80, 100, 101, 102, 200, 30, 6,  500, 300, 103, 105, 999, 1000, 1002, 1017};

  std::mt19937 random_;
};

// Writes one in `rarity` of all properties; the data stay, and what says how many they are comes last.
inline void scramble(GraphProperties& properties, RandomValues& values, std::size_t rarity) {
#define GRAPH_PROPERTY(number, type, name, initial) \
  if (values.one_in(rarity)) values.draw(properties.name);
#define GRAPH_LIST(number, type, name) \
  if (values.one_in(rarity)) values.draw(properties.name);
#include "graph/graph_properties.def"
  for (LayerProperties& layer : properties.layers) {
#define LAYER_PROPERTY(number, type, name, initial) \
  if (values.one_in(rarity)) values.draw(layer.name);
#define LAYER_LIST(number, type, name) \
  if (values.one_in(rarity)) values.draw(layer.name);
#include "graph/graph_properties.def"
  }
  for (TableProperties& table : properties.tables) {
#define TABLE_PROPERTY(number, type, name, initial) \
  if (values.one_in(rarity)) values.draw(table.name);
#include "graph/graph_properties.def"
    for (std::size_t cell = values.below(6); cell > 0; --cell) {
      i32 row = 0;
      i32 column = 0;
      values.draw(row);
      values.draw(column);
      values.draw(table.cells[{row, column}].text);
      values.draw(table.column_widths[column]);
    }
  }
}

}  // namespace trendaro
