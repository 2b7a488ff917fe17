#include "datasource/channel_delegate.h"

#include <QIcon>
#include <QPainter>

#include "datasource/channel_table.h"

namespace trendaro {
namespace {

constexpr int kPictureSize = 16;  // pixels
constexpr int kNameMargin = 4;
constexpr int kActiveTint = 44;  // alpha of 255
// Laid down for the cell of the last right click.
constexpr QColor kHighlight(0, 0, 255);

void paint_name(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                bool highlighted) {
  QFont font = option.font;
  font.setBold(index.data(ChannelTable::kHeadingRole).toBool());
  painter.setFont(font);
  painter.setPen(highlighted ? QColor(Qt::white) : option.palette.color(QPalette::Text));
  const QRect place = option.rect.adjusted(kNameMargin, 0, -kNameMargin, 0);
  const QString name = index.data(Qt::DisplayRole).toString();
  // All rows are one line high; the tip of the cell holds the whole name.
  const QString shown = QFontMetrics(font).elidedText(name, Qt::ElideMiddle, place.width());
  painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
}

}  // namespace

void paint_row_colour(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) {
  if (index.data(ChannelTable::kHighlightRole).toBool()) {
    painter.fillRect(option.rect, kHighlight);
  } else if (option.state.testFlag(QStyle::State_Selected)) {
    // The view has filled the row with the full colour; pictures and text read better on a tint of it.
    painter.fillRect(option.rect, option.palette.color(QPalette::Base));
    QColor tint = option.palette.color(QPalette::Highlight);
    tint.setAlpha(kActiveTint);
    painter.fillRect(option.rect, tint);
  }
}

void ChannelDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
  painter->save();
  const bool highlighted = index.data(ChannelTable::kHighlightRole).toBool();
  paint_row_colour(*painter, option, index);
  if (const QVariant picture = index.data(Qt::DecorationRole); picture.isValid()) {
    QRect place(0, 0, kPictureSize, kPictureSize);
    place.moveCenter(option.rect.center());
    picture.value<QIcon>().paint(painter, place);
  } else {
    paint_name(*painter, option, index, highlighted);
  }
  painter->restore();
}

}  // namespace trendaro
