#include "files/channel_info_dialog.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "app/window_text.h"

namespace trendaro {
namespace {

constexpr int kNameColumn = 0;
constexpr int kValueColumn = 1;
constexpr int kRowMargin = 6;      // pixels
constexpr int kColumnMargin = 24;  // room behind the longest text
constexpr int kLeastValueWidth = 200;
constexpr int kMostShown = 30;  // rows without a scroll bar

void prepare_grid(QTableWidget& grid) {
  grid.setObjectName(QStringLiteral("InfoGrid"));
  grid.setAccessibleName(QStringLiteral("Kanalinformationen"));
  grid.setColumnCount(2);
  grid.horizontalHeader()->hide();
  grid.verticalHeader()->hide();
  grid.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  grid.verticalHeader()->setDefaultSectionSize(grid.fontMetrics().height() + kRowMargin);
  grid.setEditTriggers(QAbstractItemView::NoEditTriggers);
  grid.setSelectionBehavior(QAbstractItemView::SelectRows);
  grid.setAlternatingRowColors(true);
  grid.setShowGrid(false);
  grid.setWordWrap(false);
  grid.setTabKeyNavigation(false);
}

}  // namespace

ChannelInfoDialog::ChannelInfoDialog(const ChannelInfoForm& form, QWidget* parent)
    : QDialog(parent), grid_(new QTableWidget(this)) {
  setObjectName(QStringLiteral("frmChanInfo"));
  setWindowTitle(qt_text(form.caption));
  prepare_grid(*grid_);
  auto* whole = new QVBoxLayout(this);
  whole->addWidget(grid_);
  whole->addLayout(make_buttons(form));
  fill(form);
  fit_to_rows();
}

void ChannelInfoDialog::fill(const ChannelInfoForm& form) {
  grid_->setRowCount(static_cast<int>(form.rows.size()));
  int row = 0;
  for (const ChannelInfoRow& info : form.rows) {
    auto* name = new QTableWidgetItem(qt_text(info.name));
    QFont font = name->font();
    font.setBold(info.heading);
    name->setFont(font);
    grid_->setItem(row, kNameColumn, name);
    grid_->setItem(row, kValueColumn, new QTableWidgetItem(qt_text(info.value)));
    if (info.heading) grid_->setSpan(row, kNameColumn, 1, 2);
    ++row;
  }
}

void ChannelInfoDialog::fit_to_rows() {
  for (int column : {kNameColumn, kValueColumn}) {
    grid_->resizeColumnToContents(column);
    grid_->setColumnWidth(column, grid_->columnWidth(column) + kColumnMargin);
  }
  grid_->setColumnWidth(kValueColumn, std::max(grid_->columnWidth(kValueColumn), kLeastValueWidth));
  grid_->horizontalHeader()->setStretchLastSection(true);
  const int frame = 2 * grid_->frameWidth();
  const int rows = std::clamp(grid_->rowCount(), 1, kMostShown);
  const int bar = grid_->verticalScrollBar()->sizeHint().width();
  const QMargins margins = layout()->contentsMargins();
  const QSize wished(grid_->columnWidth(kNameColumn) + grid_->columnWidth(kValueColumn) + bar + frame,
                     rows * grid_->verticalHeader()->defaultSectionSize() + frame);
  const QSize others(margins.left() + margins.right(), sizeHint().height() - grid_->sizeHint().height());
  const QScreen* screen = QGuiApplication::primaryScreen();
  const QSize most = screen == nullptr ? wished + others : screen->availableSize() * 9 / 10;
  resize((wished + others).boundedTo(most));
}

QHBoxLayout* ChannelInfoDialog::make_buttons(const ChannelInfoForm& form) {
  auto* row = new QHBoxLayout;
  auto* copy = add_button(row, "ClipBoardButton", QStringLiteral("In &Zwischenablage"));
  auto* print = add_button(row, "PrintButton", QStringLiteral("&Drucken..."));
  row->addStretch();
  auto* ok = add_button(row, "OKButton", QStringLiteral("OK"));
  ok->setDefault(true);
  connect(copy, &QPushButton::clicked, this, [&form] { form.copy(); });
  connect(print, &QPushButton::clicked, this, [&form] { form.print(); });
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  return row;
}

QPushButton* ChannelInfoDialog::add_button(QHBoxLayout* row, const char* name, const QString& text) {
  auto* button = new QPushButton(text, this);
  button->setObjectName(QString::fromLatin1(name));
  button->setAutoDefault(false);
  row->addWidget(button);
  return button;
}

}  // namespace trendaro
