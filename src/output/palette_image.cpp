#include "output/palette_image.h"

#include <algorithm>
#include <array>
#include <optional>

#include "app/types.h"

namespace trendaro {
namespace {

// The colours met so far, found by their value.
class Palette {
 public:
  // None where the colour is one too many.
  std::optional<u8> index_of(QRgb color) {
    std::size_t place = (color * 2654435761U) >> (32 - kBits);
    while (entries_[place].used && entries_[place].color != color) place = (place + 1) % kEntries;
    Entry& entry = entries_[place];
    if (!entry.used) {
      if (colors_.size() == kMostColors) return std::nullopt;
      entry = {.color = color, .index = static_cast<u8>(colors_.size()), .used = true};
      colors_.push_back(color | 0xFF000000U);
    }
    return entry.index;
  }
  [[nodiscard]] const QList<QRgb>& colors() const { return colors_; }

 private:
  static constexpr int kMostColors = 256;
  static constexpr int kBits = 10;
  static constexpr std::size_t kEntries = std::size_t{1} << kBits;
  struct Entry {
    QRgb color = 0;
    u8 index = 0;
    bool used = false;
  };

  std::array<Entry, kEntries> entries_{};
  QList<QRgb> colors_;
};

// Pixels mostly stand in runs of one colour.
bool take_line(const QRgb* pixels, u8* indices, int width, Palette& palette) {
  for (int first = 0; first < width;) {
    const QRgb color = pixels[first];
    const auto index = palette.index_of(color);
    if (!index) return false;
    int last = first + 1;
    while (last < width && pixels[last] == color) ++last;
    std::fill(indices + first, indices + last, *index);
    first = last;
  }
  return true;
}

}  // namespace

QImage palette_image(const QImage& image) {
  if (image.format() != QImage::Format_RGB32) return {};
  QImage indexed(image.size(), QImage::Format_Indexed8);
  if (indexed.isNull()) return {};
  Palette palette;
  for (int y = 0; y < image.height(); ++y) {
    const auto* pixels = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    if (!take_line(pixels, indexed.scanLine(y), image.width(), palette)) return {};
  }
  indexed.setColorTable(palette.colors());
  indexed.setDotsPerMeterX(image.dotsPerMeterX());
  indexed.setDotsPerMeterY(image.dotsPerMeterY());
  return indexed;
}

}  // namespace trendaro
