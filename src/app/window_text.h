#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace trendaro {

// UTF-8 of the core as text of the toolkit, and back. Bytes that are no UTF-8 show as replacement characters.
QString qt_text(std::string_view utf8);
std::string utf8_text(const QString& text);

}  // namespace trendaro
