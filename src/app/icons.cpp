#include "app/icons.h"

#include <QFile>

#include "app/window_text.h"

// A static library's resources are linked only where they are named, and the macro must stand outside of
// every namespace.
static void link_pictures() {
  Q_INIT_RESOURCE(trendaro);
}

namespace trendaro {

QIcon load_icon(std::string_view key) {
  link_pictures();
  const QString file = QStringLiteral(":/icons/%1.svg").arg(qt_text(key));
  return QFile::exists(file) ? QIcon(file) : QIcon();
}

}  // namespace trendaro
