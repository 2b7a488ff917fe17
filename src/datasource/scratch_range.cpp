#include "datasource/scratch_range.h"

#include "app/host.h"

namespace trendaro {

i16 first_free_run(HostDatabase& database, i16 channels) {
  constexpr i32 kRun = 10;
  i32 length = 0;
  for (i32 channel = 1; channel <= channels; ++channel) {
    const auto number = static_cast<i16>(channel);
    const bool is_free = host_integer(database.GetChannelProperty(number, kChannelLength)) == 0;
    length = is_free ? length + 1 : 0;
    if (length >= kRun || (is_free && channel > channels - kRun))
      return static_cast<i16>(channel - length + 1);
  }
  return 1;
}

}  // namespace trendaro
