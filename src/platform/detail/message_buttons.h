#pragma once
// The toolkit's button for an answer.

#include <QMessageBox>

#include "platform/dialog.h"

namespace platform::detail {

constexpr QMessageBox::StandardButton toButton(Answer answer) {
    switch (answer) {
    case Answer::Ok:
        return QMessageBox::Ok;
    case Answer::Cancel:
        return QMessageBox::Cancel;
    case Answer::Yes:
        return QMessageBox::Yes;
    case Answer::No:
        return QMessageBox::No;
    }
    return QMessageBox::NoButton;
}

// The answers that the box offers, the default first.
const std::vector<Answer>& answersOf(Buttons buttons);

} // namespace platform::detail
