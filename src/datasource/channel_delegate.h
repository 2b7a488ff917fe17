#pragma once

#include <QStyledItemDelegate>

namespace trendaro {

// Draws a cell of the channel list: pictures in the middle of their column, names cut with "…" in their
// middle, headings in bold.
class ChannelDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace trendaro
