#pragma once

#include <QStatusBar>

#include "app/types.h"

class QLabel;
class QProgressBar;

namespace trendaro {

// sbStatus: two panels and a progress display. Every change is on screen when the call returns, also while
// long work keeps the event loop waiting.
class StatusBar : public QStatusBar {
  Q_OBJECT

 public:
  explicit StatusBar(QWidget* parent = nullptr);

  // Text of panel 1 or 2; other numbers are passed over.
  void set_panel(int panel, const QString& text);
  // 0 to 1; a negative value takes the display away.
  void set_progress(f64 fraction);

 private:
  QLabel* panels_[2];
  QProgressBar* progress_;
};

}  // namespace trendaro
