#pragma once

#include <QRect>

class QWidget;

namespace trendaro {

struct FirstPlace {
  QRect rectangle;  // of the window without its frame
  bool maximised = false;
};

// Where a main window stands when it comes up on a screen with `area` left free by the desktop: all of a
// small one, otherwise the middle, with its frame on the screen.
FirstPlace first_place(const QRect& area);

// Shows the window in its first place, with the keyboard.
void show_at_first(QWidget& window);

}  // namespace trendaro
