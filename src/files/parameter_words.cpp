#include "files/parameter_words.h"

#include <algorithm>

#include "app/attempt.h"
#include "app/model.h"

namespace trendaro {
namespace {

constexpr std::size_t kWordBuffer = 128;

void cut_line_end(std::string& text) {
  while (!text.empty() && (text.back() == '\r' || text.back() == '\n')) text.pop_back();
}

}  // namespace

std::string TranslateParameterId(Model& model, i16 id) {
  std::string word(kWordBuffer, ' ');
  const bool translated = model.Kernel != nullptr && attempt([&] {
                            model.LastDatabaseStatus = model.Kernel->KSD_ACQTranslateParID(id, word);
                          });
  if (!translated) return std::to_string(id);
  word.resize(std::min(word.find('\0'), word.size()));
  cut_line_end(word);
  return word;
}

std::string parameter_word(Model& model, i16 id) {
  return id == 0 ? kNotAvailable : TranslateParameterId(model, id);
}

}  // namespace trendaro
