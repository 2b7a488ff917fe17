#include "files/channel_info_print.h"

#include <QPrintDialog>
#include <QPrinter>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

#include "app/window_text.h"

namespace trendaro {
namespace {

constexpr qreal kTextSize = 9;  // points
constexpr qreal kHeadlineSize = 12;
constexpr qreal kCellPadding = 2;  // pixels

QTextCharFormat text_format(bool bold, qreal size = kTextSize) {
  QTextCharFormat format;
  format.setFontWeight(bold ? QFont::Bold : QFont::Normal);
  format.setFontPointSize(size);
  return format;
}

void write_headline(QTextCursor& cursor, const QString& headline) {
  QTextBlockFormat centred;
  centred.setAlignment(Qt::AlignHCenter);
  cursor.setBlockFormat(centred);
  cursor.insertText(headline, text_format(true, kHeadlineSize));
  cursor.insertBlock(QTextBlockFormat());
}

void write_rows(QTextCursor& cursor, const std::vector<ChannelInfoRow>& rows) {
  QTextTableFormat look;
  look.setBorder(0);
  look.setCellPadding(kCellPadding);
  look.setCellSpacing(0);
  look.setColumnWidthConstraints(
      {QTextLength(QTextLength::PercentageLength, 40), QTextLength(QTextLength::PercentageLength, 60)});
  look.setWidth(QTextLength(QTextLength::PercentageLength, 100));
  QTextTable* table = cursor.insertTable(static_cast<int>(rows.size()), 2, look);
  int number = 0;
  for (const ChannelInfoRow& row : rows) {
    table->cellAt(number, 0).firstCursorPosition().insertText(qt_text(row.name), text_format(row.heading));
    table->cellAt(number, 1).firstCursorPosition().insertText(qt_text(row.value), text_format(false));
    ++number;
  }
}

}  // namespace

std::unique_ptr<QTextDocument> channel_info_page(const QString& headline,
                                                 const std::vector<ChannelInfoRow>& rows) {
  auto page = std::make_unique<QTextDocument>();
  QTextCursor cursor(page.get());
  write_headline(cursor, headline);
  if (!rows.empty()) write_rows(cursor, rows);
  return page;
}

void ask_and_print(QWidget* parent, const QString& headline, const std::vector<ChannelInfoRow>& rows) {
  QPrinter printer(QPrinter::HighResolution);
  QPrintDialog dialog(&printer, parent);
  dialog.setObjectName(QStringLiteral("PrintDialog"));
  if (dialog.exec() == QDialog::Accepted) channel_info_page(headline, rows)->print(&printer);
}

}  // namespace trendaro
