#include "app/database_size.h"

#include <algorithm>
#include <fstream>

#include "app/numbers.h"
#include "output/atomic_file.h"

namespace trendaro {

DatabaseSize possible_size(const DatabaseSize& wished) {
  return {std::clamp(wished.channels, kSmallestDatabase.channels, kLargestDatabase.channels),
          std::clamp(wished.samples, kSmallestDatabase.samples, kLargestDatabase.samples)};
}

DatabaseSize read_database_size(const std::string& path) {
  std::ifstream file(path);
  DatabaseSize size;
  std::string first_word;
  std::string second_word;
  const bool whole = (file >> first_word >> size.channels >> second_word >> size.samples) &&
                     file.get() == '\n' && first_word == "channels" && second_word == "samples";
  return whole && size == possible_size(size) ? size : DatabaseSize();
}

void keep_database_size(const std::string& path, const DatabaseSize& size) {
  replace_file(path, "channels " + number_text(i64{size.channels}) + "\nsamples " +
                         number_text(i64{size.samples}) + '\n');
}

}  // namespace trendaro
