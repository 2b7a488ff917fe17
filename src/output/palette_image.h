#pragma once

#include <QImage>

namespace trendaro {

// An image of opaque pixels of 32 bits as one of indices into its colours, with exactly the same pixels; it
// is encoded in a quarter of the time. Null where there are more than 256 colours, which is found out ahead
// of most of the pixels.
QImage palette_image(const QImage& image);

}  // namespace trendaro
