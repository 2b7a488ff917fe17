#include "files/parameter_text.h"

#include <string_view>

#include "app/attempt.h"
#include "app/numbers.h"
#include "app/text_codepage.h"
#include "files/file_conversions.h"
#include "files/parameter_words.h"

namespace trendaro {

std::string interval_text(f64 milliseconds) {
  std::string text = fixed_text(milliseconds, 2) + " ms";
  if (milliseconds != 0) text += " (" + number_text(static_cast<f32>(1000 / milliseconds)) + " Hz)";
  return text;
}

std::string measuring_range_word(Model& model, f32 range) {
  i16 id = 0;
  attempt([&] { id = round_to_i16(range); });
  return parameter_word(model, id);
}

std::string amplifier_serial(const ChannelParamRecord& parameters) {
  const std::string_view field(parameters.AmplifierSerial.data(), parameters.AmplifierSerial.size());
  return utf8_from_codepage(CutAtNul(field));
}

}  // namespace trendaro
