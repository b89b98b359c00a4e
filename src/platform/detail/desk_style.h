#pragma once
// Fusion with the program's own message icons, sharp at every scale, without pictures on the buttons of
// boxes, and with column titles that stay whole beside the sort mark.

#include <QProxyStyle>

namespace platform::detail {

class DeskStyle : public QProxyStyle {
public:
    DeskStyle();

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override;
};

} // namespace platform::detail
