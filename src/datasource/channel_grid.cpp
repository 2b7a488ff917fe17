#include "datasource/channel_grid.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>

#include "app/pane_layout.h"
#include "app/raised.h"
#include "app/window_text.h"
#include "datasource/channel_delegate.h"
#include "datasource/channel_search.h"

namespace trendaro {
namespace {

constexpr int kPictureColumnWidth = 24;  // pixels
constexpr int kRowMargin = 6;

// A tip is plain text; the escaped form keeps a "<" in a channel name from becoming markup.
QString plain_tip(QString text) {
  text.remove(u'\r').replace(QChar(u'\0'), u' ');
  return QStringLiteral("<p style='white-space:pre'>%1</p>").arg(text.trimmed().toHtmlEscaped());
}

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
  executeDelayedItemsLayout();  // otherwise the scroll bar does not reach added rows
  updateGeometries();
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

void ChannelGrid::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  QPainter painter(viewport());
  paint_rest_of_row(painter, currentIndex().row());
  if (const int highlighted = table_->highlighted_position(); highlighted != currentIndex().row())
    paint_rest_of_row(painter, highlighted);
}

void ChannelGrid::paint_rest_of_row(QPainter& painter, int position) const {
  const QModelIndex name = table_->index(position, 2);
  if (!name.isValid()) return;
  QStyleOptionViewItem option;
  initViewItemOption(&option);
  option.rect = visualRect(name);
  option.rect.setLeft(option.rect.right() + 1);
  option.rect.setRight(viewport()->width() - 1);
  option.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(name));
  paint_row_colour(painter, option, name);
}

void ChannelGrid::toggle(int position) {
  const i32 row = table_->row_at(position);
  if (rows_.rows.has(row)) Q_EMIT check_cell_clicked(row, rows_.rows[row].check == 1 ? 0 : 1);
}

void ChannelGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  viewport()->update();
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
      return press_space();
    case Qt::Key_Delete:
      Q_EMIT removal_asked();
      return;
    case Qt::Key_Left:
    case Qt::Key_Right:
      Q_EMIT scroll_asked(event->key() == Qt::Key_Right);
      return;
    default:
      QTableView::keyPressEvent(event);
  }
}

bool ChannelGrid::typing() const {
  return since_typed_.isValid() && since_typed_.elapsed() < QApplication::keyboardInputInterval();
}

bool ChannelGrid::go_to_name(const QString& beginning, i32 from) {
  const i32 row = find_channel(rows_, from, utf8_text(beginning));
  if (row > 0) setCurrentIndex(table_->index(table_->position_of(row), 0));
  return row > 0;
}

void ChannelGrid::keyboardSearch(const QString& text) {
  typed_ = typing() ? typed_ + text : text;
  since_typed_.start();
  if (typed_.size() > text.size() && go_to_name(typed_, rows_.active_row)) return;
  // The same letter again and again goes from name to name.
  if (typed_ == text.repeated(typed_.size() / std::max<qsizetype>(text.size(), 1)))
    go_to_name(text, rows_.active_row + 1);
}

// A blank may belong to the name that is being typed.
void ChannelGrid::press_space() {
  const QString longer = typed_ + QLatin1Char(' ');
  if (typing() && find_channel(rows_, rows_.active_row, utf8_text(longer)) > 0)
    keyboardSearch(QStringLiteral(" "));
  else if (currentIndex().isValid())
    toggle(currentIndex().row());
}

bool ChannelGrid::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QTableView::viewportEvent(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const QModelIndex cell = indexAt(help->pos());
  const QString text = cell.isValid() && tip
                           ? tip(table_->row_at(cell.row()), static_cast<i16>(cell.column() + 1))
                           : QString();
  if (text.isEmpty())
    QToolTip::hideText();
  else
    QToolTip::showText(help->globalPos(), plain_tip(text), viewport(), visualRect(cell));
  return true;
}

}  // namespace trendaro
