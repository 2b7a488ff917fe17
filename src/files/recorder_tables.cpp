#include "files/recorder_tables.h"

#include <algorithm>
#include <cstddef>

#include "app/numbers.h"

namespace trendaro {
namespace {

constexpr i32 kFirstRate = 6300;
constexpr std::array<f32, 21> kRates = {1,   2,   5,   10,  25,   50,   60,   75,   100,  150, 200,
                                        300, 400, 600, 800, 1200, 1600, 2400, 3200, 4800, 9600};
constexpr i32 kFastestRate = 6345;
constexpr i32 kFirstSlowRate = 6350;
constexpr std::array<f32, 12> kSlowRates = {0.5F,    0.2F,    0.1F,    0.05F,    0.02F,    0.001F,
                                            0.0005F, 0.0002F, 0.0001F, 0.00005F, 0.00002F, 0.00001F};

struct AmplifierType {
  u8 code;
  i16 parameter;
};
constexpr std::array<AmplifierType, 15> kAmplifierTypes = {{{1, 5000},
                                                            {2, 5002},
                                                            {3, 5002},
                                                            {4, 5003},
                                                            {6, 5004},
                                                            {7, 5005},
                                                            {8, 5006},
                                                            {10, 5007},
                                                            {32, 5010},
                                                            {38, 5009},
                                                            {96, 5008},
                                                            {70, 5012},
                                                            {71, 5013},
                                                            {77, 5014},
                                                            {80, 5015}}};

template <std::size_t Count>
bool within(i32 code, i32 first, const std::array<f32, Count>&) {
  return code >= first && code < first + static_cast<i32>(Count);
}

}  // namespace

f32 recorder_rate(i32 code) {
  if (within(code, kFirstRate, kRates)) return kRates[static_cast<std::size_t>(code - kFirstRate)];
  if (within(code, kFirstSlowRate, kSlowRates))
    return kSlowRates[static_cast<std::size_t>(code - kFirstSlowRate)];
  return code == kFastestRate ? 19200.0F : 1.0F;
}

i32 whole_recorder_rate(i32 code) {
  const i32 rate = round_to_i32(f64{recorder_rate(code)});
  return rate == 0 ? 1 : rate;
}

i16 recorder_amplifier_type(u8 code) {
  const auto* found = std::find_if(kAmplifierTypes.begin(), kAmplifierTypes.end(),
                                   [&](const AmplifierType& type) { return type.code == code; });
  return found == kAmplifierTypes.end() ? i16{0} : found->parameter;
}

}  // namespace trendaro
