#pragma once
// A window as a user has it before him: everything is read and done by the numbers of its controls.

#include <initializer_list>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "foundation/views/message_box_ids.h"
#include "platform/controls.h"
#include "platform/driver.h"
#include "support/list_rows.h"

namespace test_support {

class Form {
public:
    Form() = default;
    Form(platform::WindowHandle window) : window_(window) {} // so that a script can hand one over
    operator platform::WindowHandle() const { return window_; }
    platform::Control operator[](int id) const { return {window_, id}; }

    std::string title() const { return platform::getText(window_); }
    std::string text(int id) const { return platform::getText((*this)[id]); }
    std::vector<std::string> texts(std::initializer_list<int> ids) const {
        std::vector<std::string> all;
        for (const int id : ids)
            all.push_back(text(id));
        return all;
    }
    bool live(int id) const { return platform::isEnabled((*this)[id]); }
    template <class Ids = std::initializer_list<int>>
    std::vector<int> liveOf(const Ids& ids) const {
        std::vector<int> all;
        for (const int id : ids)
            if (live(id)) all.push_back(id);
        return all;
    }
    bool visible(int id) const { return platform::isVisible((*this)[id]); }
    bool checked(int id) const { return platform::isChecked((*this)[id]); }
    bool focused(int id) const { return platform::hasFocus((*this)[id]); }
    int place(int id) const { return platform::getPosition((*this)[id]); }
    std::vector<std::string> rows(int list) const { return listRows((*this)[list]); }
    std::vector<std::string> column(int list, int number) const { return listColumn((*this)[list], number); }
    int selectedRow(int list) const { return platform::listSelectedRow((*this)[list]); }
    // The controls whose texts do not fit.
    std::vector<std::string> cut() const {
        platform::driver::settle();
        return platform::driver::clippedControls(window_);
    }

    // What cannot be done fails the test.
    void click(int id) const { EXPECT_TRUE(platform::driver::click((*this)[id])) << id; }
    void click(std::initializer_list<int> ids) const { // one after the other
        for (const int id : ids)
            click(id);
    }
    void select(int id, int index) const { EXPECT_TRUE(platform::driver::select((*this)[id], index)) << id; }
    void slide(int id, int place) const { EXPECT_TRUE(platform::driver::slide((*this)[id], place)) << id; }
    void spin(int id, int steps) const { EXPECT_TRUE(platform::driver::spin((*this)[id], steps)) << id; }
    void type(int id, const std::string& typed) const {
        EXPECT_TRUE(platform::driver::type((*this)[id], typed)) << id;
    }
    void focus(int id) const { platform::setFocus((*this)[id]); }
    void key(const std::string& name) const { platform::driver::pressKey(window_, name); }
    void close() const { platform::driver::closeBox(window_); }

private:
    platform::WindowHandle window_;
};

// The box of that numbered message comes next; it is left by Esc, or by one of its buttons, from 0.
inline void expectMessage(platform::driver::Script& script, int code, int button = -1) {
    script.expectDialog(message_box::form, [=](Form box) {
        EXPECT_EQ(box.text(message_box::idCode), "C" + std::to_string(code));
        if (button < 0)
            box.key("Escape");
        else
            box.click(message_box::idAnswer1 + button);
    });
}

} // namespace test_support
