#include "app/window_toolkit_notes.h"

#include <QString>
#include <cstdio>

namespace trendaro {

void say_failures_only() {
  qInstallMessageHandler([](QtMsgType kind, const QMessageLogContext&, const QString& text) {
    if (kind == QtCriticalMsg || kind == QtFatalMsg) std::fprintf(stderr, "%s\n", qPrintable(text));
  });
}

}  // namespace trendaro
