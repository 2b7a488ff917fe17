#include "app/splash_window.h"

#include <QEventLoop>
#include <QTimer>

namespace trendaro {

std::unique_ptr<AboutWindow> show_splash() {
  auto splash = std::make_unique<AboutWindow>(AboutWindow::Use::Splash);
  splash->show();
  return splash;
}

void wait_with_painting(int milliseconds) {
  QEventLoop loop;
  QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
  loop.exec(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace trendaro
