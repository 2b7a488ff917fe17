#include "test_bench.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace trendaro {

const std::array<BenchSignal, kBenchSignals> bench_signals = {{
    {"Drehzahl", "Upm", "UPM", "Kurbelwelle", 0.25F, 0.0F},
    {"Drehmoment", "Nm", "NM", "Bremse", 0.02F, 0.0F},
    {"Schwingung", "m/s²", "M/S2", "Lager vorn", 0.01F, 0.0F},
    {"Öltemperatur", "°C", "\u00F8C", "Ölwanne", 0.01F, 50.0F},
    {"Öldruck", "bar", "BAR", "Hauptgalerie", 0.001F, 0.0F},
    {"Dehnung", "µm/m", "uM/M", "Gehäuse", 0.1F, 0.0F},
    {"Versorgungsspannung", "V", "V", "Klemme 30", 0.001F, 0.0F},
    {"Leistung", "kW", "KW", "berechnet", 0.01F, 0.0F},
}};

namespace {

enum Signal : std::size_t { Speed, Torque, Vibration, OilTemperature, OilPressure, Strain, Supply, Power };

constexpr f64 kIdleSpeed = 800;
constexpr f64 kFullSpeed = 6000;
constexpr f64 kResonanceSpeed = 3200;
constexpr f64 kResonanceWidth = 140;
constexpr i64 kShockStretch = i64{10} * kBenchRate;

u64 scramble(u64 state) {
  state += 0x9E3779B97F4A7C15U;
  state = (state ^ (state >> 30)) * 0xBF58476D1CE4E5B9U;
  state = (state ^ (state >> 27)) * 0x94D049BB133111EBU;
  return state ^ (state >> 31);
}

// Between -1 and 1.
f64 noise(std::size_t signal, i64 row) {
  const u64 bits = scramble(static_cast<u64>(row) * kBenchSignals + signal);
  return static_cast<f64>(bits >> 11) * 0x1p-52 - 1.0;
}

// Engine at a moment: speed in revolutions a minute and the revolutions since the start.
struct Engine {
  f64 speed;
  f64 revolutions;
};

// One piece of the speed profile: shares of the whole run, and speeds at both ends.
struct Piece {
  f64 begin, end, from, to;
};
constexpr std::array<Piece, 4> kProfile = {{{0.0, 0.1, kIdleSpeed, kIdleSpeed},
                                            {0.1, 0.6, kIdleSpeed, kFullSpeed},
                                            {0.6, 0.8, kFullSpeed, kFullSpeed},
                                            {0.8, 1.0, kFullSpeed, kIdleSpeed}}};

Engine engine_at(f64 share, f64 seconds) {
  Engine engine{kIdleSpeed, 0};
  for (const Piece& piece : kProfile) {
    const f64 inside = std::clamp((share - piece.begin) / (piece.end - piece.begin), 0.0, 1.0);
    const f64 minutes = inside * (piece.end - piece.begin) * seconds / 60;
    const f64 speed = piece.from + (piece.to - piece.from) * inside;
    engine.revolutions += (piece.from + speed) / 2 * minutes;
    if (share >= piece.begin) engine.speed = speed;
  }
  return engine;
}

// 1 at the resonance, falling to both sides.
f64 resonance(f64 speed) {
  const f64 distance = (speed - kResonanceSpeed) / kResonanceWidth;
  return 1 / (1 + distance * distance);
}

f64 wave(f64 revolutions, f64 order) {
  return std::sin(2 * std::numbers::pi * std::fmod(revolutions * order, 1.0));
}

f64 torque(const Engine& engine) {
  const f64 mean = 40 + 160 * (engine.speed - kIdleSpeed) / (kFullSpeed - kIdleSpeed);
  return mean + (4 + 90 * resonance(engine.speed)) * wave(engine.revolutions, 2);
}

// Heat follows the speed slowly.
f64 oil_temperature(f64 share) {
  return 35 + 70 * (1 - std::exp(-2.2 * share)) - 12 * std::max(0.0, share - 0.8);
}

}  // namespace

bool is_shock(i64 row) {
  const i64 stretch = row / kShockStretch;
  const u64 place = scramble(static_cast<u64>(stretch)) % static_cast<u64>(kShockStretch);
  return row % kShockStretch == static_cast<i64>(place);
}

f64 TestBench::value(std::size_t signal, i64 row) const {
  const f64 share = std::min(1.0, static_cast<f64>(row) / (kBenchRate * seconds_));
  const Engine engine = engine_at(share, seconds_);
  const f64 hiss = noise(signal, row);
  switch (signal) {
    case Speed:
      return engine.speed + 6 * wave(engine.revolutions, 2) + 2 * hiss;
    case Torque:
      return torque(engine) + 0.6 * hiss;
    case Vibration:
      return (2 + engine.speed / 1500 + 25 * resonance(engine.speed)) * wave(engine.revolutions, 1) +
             1.5 * hiss + (is_shock(row) ? 120 : 0);
    case OilTemperature:
      return oil_temperature(share) + 0.03 * hiss;
    case OilPressure:
      return 1.2 + 3.6 * engine.speed / kFullSpeed - 0.008 * oil_temperature(share) + 0.02 * hiss;
    case Strain:
      return 3.5 * torque(engine) + 4 * (oil_temperature(share) - 35) + 3 * hiss;
    case Supply:
      // The pump takes the voltage down for single samples.
      return 13.8 - 0.4 * share + 0.01 * hiss - (is_shock(row + kShockStretch / 2) ? 2.5 : 0);
    default:
      return torque(engine) * engine.speed * 2 * std::numbers::pi / 60 / 1000 + 0.05 * hiss;
  }
}

i16 TestBench::raw(std::size_t signal, i64 row) const {
  const BenchSignal& description = bench_signals[signal];
  const f64 steps = (value(signal, row) - f64{description.zero}) / f64{description.resolution};
  return static_cast<i16>(std::lround(std::clamp(steps, -32768.0, 32767.0)));
}

}  // namespace trendaro
