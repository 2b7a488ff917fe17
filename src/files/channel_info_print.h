#pragma once

#include <QString>
#include <memory>
#include <vector>

#include "files/channel_info_rows.h"

class QTextDocument;
class QWidget;

namespace trendaro {

// The rows as a page to print: a centred bold headline, and below it a table with bold headings.
std::unique_ptr<QTextDocument> channel_info_page(const QString& headline,
                                                 const std::vector<ChannelInfoRow>& rows);

// Asks for the printer in the dialog "PrintDialog" and prints; nothing when the user cancels.
void ask_and_print(QWidget* parent, const QString& headline, const std::vector<ChannelInfoRow>& rows);

}  // namespace trendaro
