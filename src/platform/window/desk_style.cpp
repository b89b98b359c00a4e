#include "platform/detail/desk_style.h"

#include <QIconEngine>
#include <QPainter>
#include <QStyleOptionHeader>

namespace platform::detail {

namespace {

constexpr int captionMargin = 12;

// On a field of 32 by 32.
struct Sign {
    QStyle::StandardPixmap icon;
    QRgb ground;
    bool triangle;
    char16_t glyph;
};

constexpr Sign signs[] = {
    {QStyle::SP_MessageBoxInformation, 0x1F5FA8, false, u'i'},
    {QStyle::SP_MessageBoxQuestion, 0x1F5FA8, false, u'?'},
    {QStyle::SP_MessageBoxWarning, 0xE0A100, true, u'!'},
    {QStyle::SP_MessageBoxCritical, 0xC62F2F, false, u'×'},
};

class SignEngine : public QIconEngine {
public:
    explicit SignEngine(const Sign& sign) : sign_(sign) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / 32.0, rect.height() / 32.0);
        painter->setPen(Qt::NoPen);
        painter->setBrush(QColor(sign_.ground));
        if (sign_.triangle)
            painter->drawPolygon(QPolygonF({{16, 2}, {31, 30}, {1, 30}}));
        else
            painter->drawEllipse(QRectF(1, 1, 30, 30));
        QFont font = painter->font();
        font.setPixelSize(22);
        font.setBold(true);
        painter->setFont(font);
        painter->setPen(Qt::white);
        painter->drawText(QRectF(0, sign_.triangle ? 6 : 0, 32, 32), Qt::AlignCenter,
                          QString(QChar(sign_.glyph)));
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new SignEngine(sign_); }

private:
    const Sign& sign_;
};

} // namespace

DeskStyle::DeskStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void DeskStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    painter->save();
    if (const auto* header = qstyleoption_cast<const QStyleOptionHeader*>(option);
        header && element == CE_HeaderLabel) {
        const int needed = header->fontMetrics.horizontalAdvance(header->text);
        QFont font = painter->font();
        if (needed > header->rect.width()) font.setStretch(100 * header->rect.width() / needed);
        painter->setFont(font);
    }
    QProxyStyle::drawControl(element, option, painter, widget);
    painter->restore();
}

QIcon DeskStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const {
    for (const Sign& sign : signs)
        if (sign.icon == icon) return QIcon(new SignEngine(sign));
    return QProxyStyle::standardIcon(icon, option, widget);
}

QSize DeskStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                  const QWidget* widget) const {
    QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    // A caption keeps clear of its button's edges.
    if (type == CT_PushButton) size.setWidth(std::max(size.width(), contents.width() + 2 * captionMargin));
    return size;
}

int DeskStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* result) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    return QProxyStyle::styleHint(hint, option, widget, result);
}

} // namespace platform::detail
