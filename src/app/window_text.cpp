#include "app/window_text.h"

namespace trendaro {

QString qt_text(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::string utf8_text(const QString& text) {
  return text.toStdString();
}

}  // namespace trendaro
