#pragma once
// A label of plain text that can cut what does not fit (see template_loader.h, `elide`).

#include <QLabel>

namespace platform::detail {

class Label : public QLabel {
public:
    explicit Label(QWidget* parent = nullptr);
    void setEliding(bool eliding) { setProperty("elide", eliding); }
    bool isEliding() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool isCut() const;
};

} // namespace platform::detail
