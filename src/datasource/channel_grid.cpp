#include "datasource/channel_grid.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QToolTip>

#include "app/pane_layout.h"
#include "app/raised.h"
#include "datasource/channel_delegate.h"

namespace trendaro {
namespace {

constexpr int kPictureColumnWidth = 24;  // pixels
constexpr int kRowMargin = 6;

}  // namespace

ChannelGrid::ChannelGrid(ChannelRows& rows, const GridState& state, QWidget* parent)
    : QTableView(parent), rows_(rows), table_(new ChannelTable(rows, state, this)) {
  InitGridLayout();
  setModel(table_);
  setItemDelegate(new ChannelDelegate(this));
  for (int column : {0, 1}) setColumnWidth(column, kPictureColumnWidth);
  connect(this, &QAbstractItemView::clicked, this, [this](const QModelIndex& cell) {
    if (cell.column() == 0) toggle(cell.row());
  });
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &ChannelGrid::note_top_row);
}

void ChannelGrid::InitGridLayout() {
  setObjectName(QStringLiteral("Grid"));
  setAccessibleName(QStringLiteral("Kanalliste"));
  horizontalHeader()->hide();
  horizontalHeader()->setMinimumSectionSize(1);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowMargin);
  setShowGrid(false);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTabKeyNavigation(false);
  setWordWrap(false);
}

void ChannelGrid::fit_name_column() {
  setColumnWidth(2, name_column_width(width(), columnWidth(0), columnWidth(1)));
}

void ChannelGrid::mirror() {
  if (!rows_.redraw) return;
  const trendaro::Raised from_records(mirroring_);
  const i32 top_row = rows_.top_row;
  table_->mirror();
  mirror_active_row();
  rows_.top_row = top_row;
  mirror_top_row();
  viewport()->update();
}

void ChannelGrid::mirror_active_row() {
  const QModelIndex active = table_->index(table_->position_of(rows_.active_row), 0);
  if (currentIndex().row() == active.row()) return;
  setAutoScroll(false);
  setCurrentIndex(active);
  setAutoScroll(true);
}

void ChannelGrid::mirror_top_row() {
  const int position = table_->position_of(rows_.top_row);
  if (position >= 0 && table_->row_at(rowAt(0)) != rows_.top_row)
    scrollTo(table_->index(position, 0), QAbstractItemView::PositionAtTop);
  // Near the end of the list another row than the wished one is on top.
  if (const i32 row = table_->row_at(rowAt(0)); row > 0) rows_.top_row = row;
}

void ChannelGrid::note_top_row() {
  if (mirroring_) return;
  if (const i32 row = table_->row_at(rowAt(0)); row > 0) rows_.top_row = row;
}

void ChannelGrid::toggle(int position) {
  const i32 row = table_->row_at(position);
  if (rows_.rows.has(row)) Q_EMIT check_cell_clicked(row, rows_.rows[row].check == 1 ? 0 : 1);
}

void ChannelGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (!mirroring_ && current.isValid() && current.row() != previous.row())
    Q_EMIT row_chosen(table_->row_at(current.row()));
}

void ChannelGrid::contextMenuEvent(QContextMenuEvent* event) {
  const bool by_key = event->reason() == QContextMenuEvent::Keyboard;
  const QModelIndex cell = by_key ? table_->index(currentIndex().row(), 2)
                                  : indexAt(viewport()->mapFromGlobal(event->globalPos()));
  if (!cell.isValid()) return;
  const QPoint place = by_key ? viewport()->mapToGlobal(visualRect(cell).center()) : event->globalPos();
  Q_EMIT cell_right_clicked(table_->row_at(cell.row()), cell.column() + 1, place);
}

void ChannelGrid::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Space:
      if (currentIndex().isValid()) toggle(currentIndex().row());
      return;
    case Qt::Key_Delete:
      Q_EMIT removal_asked();
      return;
    case Qt::Key_Left:
    case Qt::Key_Right:
      // The list has no cell cursor; whoever stands above may scroll the graph with these keys.
      event->ignore();
      return;
    default:
      QTableView::keyPressEvent(event);
  }
}

bool ChannelGrid::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QTableView::viewportEvent(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const QModelIndex cell = indexAt(help->pos());
  const QString text = cell.isValid() && tip
                           ? tip(table_->row_at(cell.row()), static_cast<i16>(cell.column() + 1))
                           : QString();
  // A tip is plain text; the escaped form keeps a "<" in a channel name from becoming markup.
  if (text.isEmpty())
    QToolTip::hideText();
  else
    QToolTip::showText(help->globalPos(),
                       QStringLiteral("<p style='white-space:pre'>%1</p>").arg(text.toHtmlEscaped()),
                       viewport(), visualRect(cell));
  return true;
}

}  // namespace trendaro
