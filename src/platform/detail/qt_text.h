#pragma once
// Program text (Shift-JIS) to the toolkit's text and back.

#include <QString>
#include <string>
#include <string_view>

namespace platform::detail {

QString toQt(std::string_view sjis);
std::string fromQt(const QString& text);
// As a tool tip that shows the very text, its line breaks included, wrapped where it is long.
QString toTip(const QString& text);

} // namespace platform::detail
