#include "app/status_bar.h"

#include <QGuiApplication>
#include <QLabel>
#include <QProgressBar>
#include <algorithm>

namespace trendaro {
namespace {

constexpr int kProgressSteps = 1000;
constexpr int kPanelWidth = 140;  // of the second panel and the progress display, in pixels

}  // namespace

StatusBar::StatusBar(QWidget* parent) : QStatusBar(parent) {
  setObjectName(QStringLiteral("sbStatus"));
  setAccessibleName(QStringLiteral("Statuszeile"));
  for (int panel = 0; panel < 2; ++panel) {
    panels_[panel] = new QLabel(this);
    panels_[panel]->setObjectName(QStringLiteral("sbStatus(%1)").arg(panel + 1));
    panels_[panel]->setTextFormat(Qt::PlainText);
    panels_[panel]->setContentsMargins(4, 0, 4, 0);
  }
  // The first panel gives way where its text is longer than the window is wide.
  panels_[0]->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  panels_[1]->setFixedWidth(kPanelWidth);
  panels_[1]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

  progress_ = new QProgressBar(this);
  progress_->setObjectName(QStringLiteral("Progress"));
  progress_->setAccessibleName(QStringLiteral("Fortschritt"));
  progress_->setRange(0, kProgressSteps);
  progress_->setFixedSize(kPanelWidth, fontMetrics().height() + 2);
  // It keeps its place while hidden, so that showing it moves nothing and needs no layout.
  QSizePolicy policy = progress_->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  progress_->setSizePolicy(policy);
  addWidget(panels_[0], 1);
  addWidget(progress_);
  addWidget(panels_[1]);
  progress_->hide();
}

void StatusBar::set_panel(int panel, const QString& text) {
  if (panel < 1 || panel > 2) return;
  QLabel* label = panels_[panel - 1];
  if (label->text() == text) return;
  label->setText(text);
  label->setToolTip(text);
  label->repaint();
}

void StatusBar::set_progress(f64 fraction) {
  if (fraction < 0) {
    progress_->hide();
    return;
  }
  const int value = static_cast<int>(std::min(fraction, 1.0) * kProgressSteps);
  if (progress_->isVisible() && progress_->value() == value) return;
  progress_->setValue(value);
  progress_->show();
  progress_->repaint();
}

}  // namespace trendaro
