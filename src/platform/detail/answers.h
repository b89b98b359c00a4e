#pragma once
// Who answers what opens modally, and stands for the desktop: with nobody set the user does, in a loop; a
// script answers at once.

#include <optional>
#include <string>
#include <vector>

#include "platform/dialog.h"

namespace platform::detail {

class Answers {
public:
    virtual ~Answers() = default;
    virtual void dialog(const std::string& name, WindowHandle dialog) = 0; // has to end it
    virtual Answer messageBox(const std::string& text, Buttons buttons) = 0;
    // The paths that are typed in place of the proposed name, none to cancel.
    virtual std::vector<std::string> fileDialog(const std::string& kind, const std::string& proposed) = 0;
    virtual int menu(const std::string& name) = 0; // the command, 0 for none
    virtual void beep(SystemIcon icon) = 0;
    virtual bool open(const std::string& target) = 0;
};

Answers* answers();
void setAnswers(Answers* answers); // none: the user

} // namespace platform::detail
