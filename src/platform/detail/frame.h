#pragma once
// The widgets behind windows made from a class: a frame with the menu bar above a client area, and the client
// area, which is the whole of a child window.

#include <QWidget>

#include "platform/window.h"

class QMenuBar;

namespace platform::detail {

class ClientWidget : public QWidget {
public:
    explicit ClientWidget(QWidget* parent);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void send(unsigned message, const QMouseEvent& event);
};

// A top window. Owned by its record.
class FrameWidget : public QWidget {
public:
    explicit FrameWidget(QWidget* owner);
    ClientWidget* client() const { return client_; }
    void setMenuBar(QMenuBar* bar);
    int menuHeight() const;
    // Gives menu bar and client area their places; the toolkit does so only for windows that are shown.
    void layOut();
    // A change of size that the window has agreed to already.
    void applyGeometry(const QRect& geometry);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QMenuBar* menuBar_ = nullptr;
    ClientWidget* client_;
    bool agreed_ = false;
};

// The rectangle the window wants after it was asked with WM_WINDOWPOSCHANGING.
Rect askForRect(WindowHandle window, Rect wanted);

} // namespace platform::detail
