#pragma once
// Modal dialogs, and the pages of property sheets, as objects that live for one opening.

#include <string>

#include "platform/dialog.h"
#include "platform/property_sheet.h"

namespace zelkova {

// What both have: a template in resources/dialogs/, and the messages of its controls.
class Form {
public:
    virtual ~Form() = default;
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

protected:
    explicit Form(std::string name) : name_(std::move(name)) {}

    // Fills the controls; nothing is shown yet. What filling them would report is not delivered.
    virtual void open() = 0;
    // A button, a choice, or a change of a text. Esc and the close box of a dialog come as IDCANCEL, which
    // ends it with 2 where it is not handled. True: handled.
    virtual bool onCommand(int id) = 0;
    // Every other message; WM_DESTROY is the last. True: handled.
    virtual bool onMessage(const platform::Message&) { return false; }

    const std::string& name() const { return name_; }
    // Valid from open() on.
    platform::WindowHandle window() const { return window_; }
    platform::Control control(int id) const { return {window_, id}; }

    bool handle(platform::WindowHandle window, const platform::Message& message);

private:
    const std::string name_;
    platform::WindowHandle window_;
    bool filled_ = false;
};

class Dialog : public Form {
public:
    explicit Dialog(std::string name) : Form(std::move(name)) {}

    // In the middle of the screen, until end(); its result, -1 when the template cannot be loaded.
    int run(platform::WindowHandle owner);

protected:
    void end(int result) { platform::endDialog(window(), result); }
};

class SheetPage : public Form {
public:
    explicit SheetPage(std::string name) : Form(std::move(name)) {}

    // For the list of a sheet's pages. The page outlives the sheet.
    platform::SheetPage entry();

protected:
    // What the sheet asks or tells. False answers -1: the page stays, or is not yet as it should be.
    virtual bool onSheet(platform::SheetCode code) = 0;
};

} // namespace zelkova
