#include <cstddef>
#include <cstdint>

#include "reading_properties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const int id = trendaro::fuzz::file_id({data, size});
  const bool is_of_group = id == 6001 || id == 6002 || id == 6011 || id == 6012;
  if (!is_of_group) return -1;
  trendaro::fuzz::check_reading({data, size});
  return 0;
}
