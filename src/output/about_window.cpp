#include "output/about_window.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "app/center_form.h"
#include "app/icons.h"

namespace trendaro {
namespace {

constexpr int kEmblemSize = 64;  // pixels

QLabel* line(const QString& text, qreal size_factor, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * size_factor);
  label->setFont(font);
  return label;
}

void center(QWidget& window) {
  const QScreen* screen = QGuiApplication::primaryScreen();
  if (screen == nullptr) return;
  const QRect area = screen->geometry();
  const FormPosition place = CenterForm(area.width(), area.height(), window.width(), window.height());
  window.move(area.left() + place.left, area.top() + place.top);
}

}  // namespace

AboutWindow::AboutWindow(Use use, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("About"));
  setWindowTitle(QStringLiteral("Über Trendaro"));
  if (use == Use::Splash) setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);

  auto* emblem = new QLabel(this);
  emblem->setPixmap(load_icon("TRENDARO").pixmap(QSize(kEmblemSize, kEmblemSize), devicePixelRatioF()));
  auto* version = line(QStringLiteral("Version " TRENDARO_VERSION), 1.0, this);
  version->setObjectName(QStringLiteral("Version"));
  auto* words = new QVBoxLayout;
  words->addWidget(line(QStringLiteral("Trendaro"), 1.8, this));
  words->addWidget(line(QStringLiteral("Betrachter für lange Messaufzeichnungen"), 1.0, this));
  words->addWidget(version);
  auto* top = new QHBoxLayout;
  top->setSpacing(20);
  top->addWidget(emblem, 0, Qt::AlignTop);
  top->addLayout(words);
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(24, 24, 24, 20);
  whole->setSpacing(18);
  whole->addLayout(top);
  if (use == Use::Dialog) {
    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("OK"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    whole->addWidget(ok, 0, Qt::AlignRight);
  }
  whole->setSizeConstraint(QLayout::SetFixedSize);
  adjustSize();
  center(*this);
}

}  // namespace trendaro
