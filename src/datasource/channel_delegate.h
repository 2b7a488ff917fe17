#pragma once

#include <QStyledItemDelegate>

namespace trendaro {

// The ground of a cell of the list, or of the rest of its row: the colour of the last right click, or a tint
// in the active row. Nothing where neither is meant.
void paint_row_colour(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index);

// Draws a cell of the channel list: pictures in the middle of their column, names cut with "…" in their
// middle, headings in bold.
class ChannelDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace trendaro
