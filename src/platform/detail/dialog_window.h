#pragma once
// The frame of a modal dialog.

#include <QDialog>
#include <string>

#include "platform/dialog.h"

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

// Runs a dialog until it ends and returns its result. `fill` makes what stands in it; -1 when it answers
// false.
int runDialogWindow(WindowHandle owner, const std::string& name, const DialogProc& proc,
                    const std::function<bool(DialogWindow& frame, WindowHandle dialog)>& fill);

} // namespace platform::detail
