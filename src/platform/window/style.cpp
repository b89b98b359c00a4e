#include "platform/detail/style.h"

#include <QApplication>
#include <QFontDatabase>
#include <QLibraryInfo>
#include <QPalette>
#include <QTranslator>

#include "platform/detail/desk_style.h"

namespace platform::detail {

namespace {

constexpr int fontPixels = 14;

// A value that cannot be changed now is still read: of a rule, of a quest.
constexpr QRgb disabledInk = 0x59626D;

struct Tone {
    QPalette::ColorRole role;
    QRgb normal, disabled;
};

// Paper white would glare in a dim hall, and the colours that rows and results have been given ask for a
// light ground. What is disabled loses its face as well as its ink, so that it is told apart at a glance.
constexpr Tone tones[] = {
    {QPalette::Window, 0xE4E8ED, 0xE4E8ED},
    {QPalette::WindowText, 0x15191E, 0x8D959F},
    {QPalette::Base, 0xF8FAFC, 0xE4E8ED},
    {QPalette::AlternateBase, 0xEEF1F5, 0xE4E8ED},
    {QPalette::Text, 0x15191E, disabledInk},
    {QPalette::Button, 0xF1F4F7, 0xDDE1E6},
    {QPalette::ButtonText, 0x10223A, 0x9AA1AA},
    {QPalette::BrightText, 0xFFFFFF, 0xFFFFFF},
    {QPalette::Light, 0xFFFFFF, 0xEEF1F5},
    {QPalette::Midlight, 0xD3D9E0, 0xD3D9E0},
    {QPalette::Mid, 0xAEB6C0, 0xC2C8D0},
    {QPalette::Dark, 0x8A939E, 0xAEB6C0},
    {QPalette::Shadow, 0x5E6772, 0x8A939E},
    {QPalette::Highlight, 0x1F5FA8, 0xAEB6C0},
    {QPalette::HighlightedText, 0xFFFFFF, 0xF8FAFC},
    {QPalette::ToolTipBase, 0xFFFBE0, 0xFFFBE0},
    {QPalette::ToolTipText, 0x15191E, 0x15191E},
    {QPalette::PlaceholderText, 0x8D959F, 0xAEB6C0},
    {QPalette::Link, 0x1F5FA8, 0x8D959F},
};

QPalette makePalette() {
    QPalette palette;
    for (const Tone& tone : tones) {
        palette.setColor(QPalette::Active, tone.role, QColor(tone.normal));
        palette.setColor(QPalette::Inactive, tone.role, QColor(tone.normal));
        palette.setColor(QPalette::Disabled, tone.role, QColor(tone.disabled));
    }
    return palette;
}

QString chooseFamily() {
    const QStringList families = QFontDatabase::families();
    for (const QString& family : {QStringLiteral(u"IPAPGothic"), QStringLiteral(u"Noto Sans CJK JP")})
        if (families.contains(family)) return family;
    return QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
}

} // namespace

void applyStyle(QApplication& application) {
    QApplication::setStyle(new DeskStyle);
    QPalette palette = makePalette();
    QApplication::setPalette(palette);
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(disabledInk));
    QApplication::setPalette(palette, "QComboBox");

    const QString family = chooseFamily();
    for (const QString& name : {QStringLiteral(u"ＭＳ Ｐゴシック"), QStringLiteral("MS PGothic")})
        QFont::insertSubstitution(name, family);
    QFont font(family);
    font.setPixelSize(fontPixels);
    QApplication::setFont(font);

    QLocale::setDefault(QLocale(QLocale::Japanese, QLocale::Japan));
    auto* translator = new QTranslator(&application);
    if (translator->load(QStringLiteral("qtbase_ja"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(translator);
}

} // namespace platform::detail
