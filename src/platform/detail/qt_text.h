#pragma once
// Program text (Shift-JIS) to the toolkit's text and back, and dates.

#include <QDateTime>
#include <QString>
#include <string>
#include <string_view>

#include "platform/clock.h"

namespace platform::detail {

QString toQt(std::string_view sjis);
QDateTime toQt(const SystemTime& time); // not valid where the program has no date
std::string fromQt(const QString& text);
// As a tool tip that shows the very text, its line breaks included, wrapped where it is long.
QString toTip(const QString& text);

} // namespace platform::detail
