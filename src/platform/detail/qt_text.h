#pragma once
// Program text (Shift-JIS) to the toolkit's text and back.

#include <QString>
#include <string>
#include <string_view>

namespace platform::detail {

QString toQt(std::string_view sjis);
std::string fromQt(const QString& text);

} // namespace platform::detail
