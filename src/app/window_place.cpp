#include "app/window_place.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace trendaro {
namespace {

constexpr QSize kSmallScreen(1300, 850);  // pixels; up to here every one of them is needed
constexpr double kShareOfScreen = 0.8;

}  // namespace

FirstPlace first_place(const QRect& area) {
  if (area.width() <= kSmallScreen.width() && area.height() <= kSmallScreen.height()) return {area, true};
  QRect middle(QPoint(), area.size() * kShareOfScreen);
  middle.moveCenter(area.center());
  return {middle, false};
}

// Without a window manager nobody else gives a window its size, its place in front and the keyboard.
void show_at_first(QWidget& window) {
  FirstPlace place;
  if (const QScreen* screen = QGuiApplication::primaryScreen(); screen != nullptr)
    place = first_place(screen->availableGeometry());
  if (!place.rectangle.isEmpty()) window.setGeometry(place.rectangle);
  if (place.maximised) window.setWindowState(Qt::WindowMaximized);
  window.show();
  window.raise();
  window.activateWindow();
}

}  // namespace trendaro
