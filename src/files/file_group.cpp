#include "files/file_group.h"

namespace trendaro {

FileGroup file_group(i16 id) {
  if ((id >= 5004 && id <= 5012) || id == 7001) return FileGroup::Standard;
  if (id == 5003 || id == 5055 || id == 5056) return FileGroup::Block;
  if (id == 6001 || id == 6002 || id == 6011 || id == 6012) return FileGroup::Recorder;
  return FileGroup::Unknown;
}

}  // namespace trendaro
