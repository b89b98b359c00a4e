// Scripts that answer modal dialogs.

#include <algorithm>
#include <deque>
#include <iostream>

#include "platform/detail/answers.h"
#include "platform/detail/message_buttons.h"
#include "platform/detail/registry.h"
#include "platform/driver.h"
#include "platform/text.h"

namespace platform::driver {

namespace {

struct Expectation {
    enum class Kind { Dialog, MessageBox, FileDialog, Menu, Open } kind;
    std::string name; // of a dialog or menu; the target to open
    std::function<void(WindowHandle)> act = {};
    std::function<void(const std::string&)> look = {};
    Answer answer = Answer::Cancel;
    std::vector<std::string> paths = {};
    int command = 0;
    bool opens = false;
};

std::string describe(const Expectation& expectation) {
    switch (expectation.kind) {
    case Expectation::Kind::MessageBox:
        return "message box";
    case Expectation::Kind::FileDialog:
        return "file dialog";
    case Expectation::Kind::Menu:
        return "menu " + expectation.name;
    case Expectation::Kind::Open:
        return "opening of " + sjisToUtf8(expectation.name);
    case Expectation::Kind::Dialog:
        break;
    }
    return "dialog " + expectation.name;
}

class ScriptAnswers : public detail::Answers {
public:
    std::deque<Expectation> expected;
    std::vector<std::string> faults;
    std::vector<SystemIcon> beeps;

    void dialog(const std::string& name, WindowHandle dialog) override {
        if (const auto next = take(Expectation::Kind::Dialog, name, "dialog " + name)) {
            if (next->act) next->act(dialog);
            if (hasEnded(dialog)) return;
            faults.push_back("the script of dialog " + name + " returned without ending it");
        }
        sendMessage(dialog, WM_COMMAND, makeLong(IDCANCEL, BN_CLICKED));
        endDialog(dialog, IDCANCEL);
    }

    Answer messageBox(const std::string& text, Buttons buttons) override {
        const auto& offered = detail::answersOf(buttons);
        const std::string shown = "message box \"" + sjisToUtf8(text) + "\"";
        if (const auto next = take(Expectation::Kind::MessageBox, {}, shown)) {
            if (next->look) next->look(text);
            if (std::ranges::find(offered, next->answer) != offered.end()) return next->answer;
            faults.push_back(shown + " does not offer the answer " +
                             std::to_string(static_cast<int>(next->answer)));
        }
        return offered.back();
    }

    std::vector<std::string> fileDialog(const std::string& kind, const std::string& proposed) override {
        const auto next = take(Expectation::Kind::FileDialog, {}, kind + " dialog");
        if (next && next->look) next->look(proposed);
        return next ? next->paths : std::vector<std::string>();
    }

    int menu(const std::string& name) override {
        const auto next = take(Expectation::Kind::Menu, name, "menu " + name);
        return next ? next->command : 0;
    }

    void beep(SystemIcon icon) override { beeps.push_back(icon); }

    bool open(const std::string& target) override {
        if (expected.empty() || expected.front().kind != Expectation::Kind::Open) return false;
        const auto next = take(Expectation::Kind::Open, target, "opening of " + sjisToUtf8(target));
        return next && next->opens;
    }

private:
    static bool hasEnded(WindowHandle dialog) {
        const detail::Record* record = detail::findRecord(dialog);
        return !record || record->result;
    }

    // The next expectation when it waits for this; else a fault, and the expectation goes on waiting.
    std::optional<Expectation> take(Expectation::Kind kind, const std::string& name,
                                    const std::string& what) {
        if (!expected.empty() && expected.front().kind == kind && expected.front().name == name) {
            Expectation next = std::move(expected.front());
            expected.pop_front();
            return next;
        }
        faults.push_back(what + " came, but " + (expected.empty() ? "nothing" : describe(expected.front())) +
                         " was expected");
        return std::nullopt;
    }
};

} // namespace

struct Script::State {
    ScriptAnswers answers;
};

Script::Script() : state_(std::make_unique<State>()) {
    detail::setAnswers(&state_->answers);
}

Script::~Script() {
    for (const std::string& fault : faults())
        std::cerr << "script: " << fault << '\n';
    detail::setAnswers(nullptr);
}

Script& Script::expectDialog(std::string name, std::function<void(WindowHandle)> act) {
    state_->answers.expected.push_back(
        {.kind = Expectation::Kind::Dialog, .name = std::move(name), .act = std::move(act)});
    return *this;
}

Script& Script::expectMessageBox(Answer answer, std::function<void(const std::string& text)> look) {
    state_->answers.expected.push_back(
        {.kind = Expectation::Kind::MessageBox, .name = {}, .look = std::move(look), .answer = answer});
    return *this;
}

Script& Script::expectFileDialog(const std::string& path,
                                 std::function<void(const std::string& proposed)> look) {
    expectFileDialog(path.empty() ? std::vector<std::string>() : std::vector{path});
    state_->answers.expected.back().look = std::move(look);
    return *this;
}

Script& Script::expectFileDialog(std::vector<std::string> paths) {
    state_->answers.expected.push_back(
        {.kind = Expectation::Kind::FileDialog, .name = {}, .paths = std::move(paths)});
    return *this;
}

Script& Script::expectMenu(std::string name, int command) {
    state_->answers.expected.push_back(
        {.kind = Expectation::Kind::Menu, .name = std::move(name), .command = command});
    return *this;
}

Script& Script::expectOpen(std::string target, bool answer) {
    state_->answers.expected.push_back(
        {.kind = Expectation::Kind::Open, .name = std::move(target), .opens = answer});
    return *this;
}

std::vector<std::string> Script::faults() const {
    std::vector<std::string> all = state_->answers.faults;
    for (const Expectation& unused : state_->answers.expected)
        all.push_back(describe(unused) + " did not come");
    return all;
}

const std::vector<SystemIcon>& Script::beeps() const {
    return state_->answers.beeps;
}

bool Script::done() const {
    return state_->answers.expected.empty();
}

} // namespace platform::driver
