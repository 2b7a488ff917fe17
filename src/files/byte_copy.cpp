#include "files/byte_copy.h"

#include <algorithm>
#include <string>

namespace trendaro {
namespace {

constexpr i64 kPieceBytes = i64{256} << 10;

}  // namespace

void copy_bytes(ByteCursor& source, ByteWriter& target, i64 count) {
  while (count > 0 && target.ok()) {
    const i64 piece_bytes = std::min(count, kPieceBytes);
    const std::string piece = source.read_bytes(piece_bytes);
    if (piece.empty()) return;
    target.write_bytes(piece);
    count -= piece_bytes;
  }
}

void copy_optional_text(ByteCursor& source, ByteWriter& target) {
  const i16 length = source.read_i16();
  target.write_i16(length);
  copy_bytes(source, target, length);
}

}  // namespace trendaro
