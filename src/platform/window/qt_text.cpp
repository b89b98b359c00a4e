#include "platform/detail/qt_text.h"

#include "platform/text.h"

namespace platform::detail {

QString toQt(std::string_view sjis) {
    const std::u16string units = sjisToUtf16(sjis);
    return QString::fromUtf16(units.data(), static_cast<qsizetype>(units.size()));
}

std::string fromQt(const QString& text) {
    return utf16ToSjis(std::u16string_view(reinterpret_cast<const char16_t*>(text.utf16()),
                                           static_cast<std::size_t>(text.size())));
}

QString toTip(const QString& text) {
    return text.isEmpty()
               ? text
               : QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(text.toHtmlEscaped());
}

QDateTime toQt(const SystemTime& time) {
    return {QDate(time.year, time.month, time.day), QTime(time.hour, time.minute, time.second)};
}

} // namespace platform::detail
