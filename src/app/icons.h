#pragma once

#include <QIcon>
#include <string_view>

namespace trendaro {

// The picture of an image key ("TB" images, "IMG_FILE"); empty for keys without one. Vectors: crisp at any
// size and scale.
QIcon load_icon(std::string_view key);

}  // namespace trendaro
