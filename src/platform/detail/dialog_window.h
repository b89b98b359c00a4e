#pragma once
// The frame of a modal dialog.

#include <QDialog>

namespace platform::detail {

class DialogWindow : public QDialog {
public:
    explicit DialogWindow(QWidget* owner);
    void reject() override; // Esc

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void cancel();
};

} // namespace platform::detail
