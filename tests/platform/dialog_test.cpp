// Modal dialogs: as scripts answer them, and as they run in their own loop.

#include "platform/dialog.h"

#include <gmock/gmock.h>

#include "platform/clock.h"
#include "platform/driver.h"
#include "test_window.h"

using namespace platform;
using test_support::TestWindow;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

const std::string form = "IDD_TEST_CONTROLS";
const DialogProc ignore = [](WindowHandle, const Message&) { return false; };

// Ends the dialog on the buttons numbered 1 and 2.
bool endOnButtons(WindowHandle dialog, const Message& message) {
    if (message.id != WM_COMMAND || lowWord(message.wParam) > IDCANCEL) return false;
    endDialog(dialog, static_cast<int>(lowWord(message.wParam)) * 10);
    return true;
}

// Runs the action in the next turn of whichever loop is running.
class Soon {
public:
    explicit Soon(TestWindow& window) : window_(window) {
        window.onMessage = [this](const Message& message) {
            if (message.id != WM_USER) return false;
            actions_[message.wParam]();
            return true;
        };
    }
    void run(std::function<void()> action) {
        actions_.push_back(std::move(action));
        postMessage(window_, WM_USER, actions_.size() - 1);
    }

private:
    TestWindow& window_;
    std::vector<std::function<void()>> actions_;
};

// Answered by the script, which has run as written at the end.
class ScriptedDialog : public testing::Test {
protected:
    ~ScriptedDialog() override { EXPECT_THAT(script.faults(), IsEmpty()); }

    TestWindow main;
    driver::Script script;
};

} // namespace

TEST_F(ScriptedDialog, TellsItsProcedureFromInitToDestroy) {
    std::vector<unsigned> ids;
    script.expectDialog(form, [](WindowHandle dialog) {
        EXPECT_EQ(getText(dialog), "検査");
        EXPECT_TRUE(driver::click({dialog, 113}));
        EXPECT_TRUE(driver::click({dialog, IDOK}));
    });
    const int result = runDialog(main, form, [&](WindowHandle dialog, const Message& message) {
        ids.push_back(message.id);
        return endOnButtons(dialog, message);
    });
    EXPECT_EQ(result, 10);
    EXPECT_THAT(ids, ElementsAre(WM_INITDIALOG, WM_COMMAND, WM_COMMAND, WM_DESTROY));
}

TEST_F(ScriptedDialog, EscAndCloseBoxAreCancelAndEnterIsTheDefaultButton) {
    const struct {
        const char* what;
        std::function<void(WindowHandle)> act;
        int result;
    } cases[] = {
        {"Esc", [](WindowHandle d) { driver::pressKey(d, "Escape"); }, 20},
        {"close box", [](WindowHandle d) { driver::closeBox(d); }, 20},
        {"Enter in an edit",
         [](WindowHandle d) {
             setFocus({d, 103});
             driver::pressKey(d, "Return");
         },
         10},
        {"Enter in a list of choices",
         [](WindowHandle d) {
             setFocus({d, 110});
             driver::pressKey(d, "Return");
         },
         10},
        {"Enter on a focused button",
         [](WindowHandle d) {
             setFocus({d, IDCANCEL});
             driver::pressKey(d, "Return");
         },
         20},
    };
    for (const auto& example : cases) {
        script.expectDialog(form, example.act);
        EXPECT_EQ(runDialog(main, form, endOnButtons), example.result) << example.what;
    }
}

// What opened it, or what stood before it, was left by the key that is still down.
TEST_F(ScriptedDialog, AHeldKeyLeavesItOpen) {
    script.expectDialog(form, [](WindowHandle dialog) {
        for (const int id : {103, 110, +IDOK, +IDCANCEL}) {
            setFocus({dialog, id});
            for (const char* key : {"Return", "Enter", "Escape"}) {
                EXPECT_TRUE(driver::repeatKey(dialog, key));
                EXPECT_TRUE(isVisible(dialog)) << key << " on " << id;
            }
        }
        EXPECT_TRUE(driver::pressKey(dialog, "Return"));
    });
    EXPECT_EQ(runDialog(main, form, endOnButtons), 20);
}

TEST_F(ScriptedDialog, UnhandledCancelEndsIt) {
    script.expectDialog(form, [](WindowHandle dialog) { driver::pressKey(dialog, "Escape"); });
    EXPECT_EQ(runDialog(main, form, ignore), IDCANCEL);
}

TEST_F(ScriptedDialog, ADisabledCancelButtonKeepsItOpen) {
    script.expectDialog(form, [](WindowHandle dialog) {
        enable({dialog, IDCANCEL}, false);
        driver::pressKey(dialog, "Escape");
        driver::closeBox(dialog);
        driver::click({dialog, IDOK});
    });
    EXPECT_EQ(runDialog(main, form, endOnButtons), 10);
}

TEST_F(ScriptedDialog, EndedInItsInitIsNeverShown) {
    const int result = runDialog(main, form, [](WindowHandle dialog, const Message& message) {
        if (message.id == WM_INITDIALOG) endDialog(dialog, 77);
        return true;
    });
    EXPECT_EQ(result, 77);
}

TEST_F(ScriptedDialog, OnceEndedItHearsOfNothingButItsEnd) {
    ManualClock clock;
    std::vector<unsigned> after;
    script.expectDialog(form, [&](WindowHandle dialog) {
        EXPECT_TRUE(driver::click({dialog, IDOK}));
        EXPECT_FALSE(driver::click({dialog, IDOK})) << "the second click of a double click";
        EXPECT_FALSE(isVisible(dialog));
        sendMessage(dialog, WM_COMMAND, makeLong(IDOK, BN_CLICKED));
        sendMessage(dialog, WM_COMMAND, makeLong(IDCANCEL, BN_CLICKED));
        clock.advance(100);
    });
    const int result = runDialog(main, form, [&](WindowHandle dialog, const Message& message) {
        if (message.id == WM_INITDIALOG) setTimer(dialog, 1, 10);
        if (message.id != WM_INITDIALOG) after.push_back(message.id);
        return endOnButtons(dialog, message);
    });
    EXPECT_EQ(result, 10);
    EXPECT_THAT(after, ElementsAre(WM_COMMAND, WM_DESTROY));
}

TEST(Dialog, AMissingTemplateAnswersMinusOne) {
    TestWindow main;
    EXPECT_EQ(runDialog(main, "IDD_NOT_THERE", ignore), -1);
    EXPECT_TRUE(isEnabled(main.window));
}

TEST(Dialog, TheOwnerIsDisabledUntilItsLastDialogCloses) {
    TestWindow main(WS_VISIBLE);
    Soon soon(main);
    WindowHandle first;
    const auto remember = [&](WindowHandle dialog, const Message& message) {
        if (message.id == WM_INITDIALOG && !first) first = dialog;
        return endOnButtons(dialog, message);
    };
    std::vector<bool> enabled;
    soon.run([&] {
        enabled.push_back(isEnabled(main.window));
        soon.run([&] {
            // Asked out of the inner loop, the outer dialog waits for the inner one.
            endDialog(first, 5);
            EXPECT_EQ(driver::openDialogs().size(), 2u);
            EXPECT_FALSE(driver::closeBox(main));
            EXPECT_FALSE(driver::click({first, IDOK}));
            EXPECT_TRUE(driver::click({driver::openDialogs().back().window, IDOK}));
        });
        EXPECT_EQ(runDialog(main, form, remember), 10);
        enabled.push_back(isEnabled(main.window));
    });
    EXPECT_EQ(runDialog(main, form, remember), 5);
    enabled.push_back(isEnabled(main.window));
    EXPECT_THAT(enabled, ElementsAre(false, false, true));
}

TEST_F(ScriptedDialog, TimersAndMessagesOfAllWindowsGoOnAndItsOwnTimersDieWithIt) {
    ManualClock clock;
    int mainTicks = 0, dialogTicks = 0;
    main.onMessage = [&](const Message& message) {
        mainTicks += message.id == WM_TIMER;
        return false;
    };
    setTimer(main, 7, 50);
    script.expectDialog(form, [&](WindowHandle dialog) {
        setTimer(dialog, 8, 50);
        clock.advance(120);
        driver::click({dialog, IDOK});
    });
    runDialog(main, form, [&](WindowHandle dialog, const Message& message) {
        dialogTicks += message.id == WM_TIMER;
        return endOnButtons(dialog, message);
    });
    clock.advance(100);
    EXPECT_EQ(mainTicks, 4);
    EXPECT_EQ(dialogTicks, 2);
}

TEST(Dialog, AQuitOrTheEndOfTheOwnerEndsEveryDialog) {
    for (const bool quit : {true, false}) {
        TestWindow main(WS_VISIBLE);
        Soon soon(main);
        int inner = 0;
        soon.run([&] {
            soon.run([&] {
                if (quit)
                    postQuitMessage(3);
                else
                    destroyWindow(main);
            });
            inner = runDialog(main, form, ignore);
        });
        EXPECT_EQ(runDialog(main, form, ignore), IDCANCEL) << quit;
        EXPECT_EQ(inner, IDCANCEL) << quit;
        EXPECT_EQ(isWindow(main), quit);
        Message message;
        EXPECT_EQ(peekMessage(message) && message.id == WM_QUIT, quit);
    }
}

TEST(Dialog, TheEndOfTheOwnerEndsDialogsOverItsDialogs) {
    TestWindow main(WS_VISIBLE);
    Soon soon(main);
    WindowHandle outer;
    int inner = 0;
    std::optional<Answer> asked;
    soon.run([&] {
        soon.run([&] {
            soon.run([&] { destroyWindow(main); });
            asked = messageBox(driver::openDialogs().back().window, "？", "", Buttons::OkCancel,
                               SystemIcon::Question);
        });
        inner = runDialog(outer, form, ignore);
    });
    const int result = runDialog(main, form, [&](WindowHandle dialog, const Message& message) {
        if (message.id == WM_INITDIALOG) outer = dialog;
        return false;
    });
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_EQ(inner, IDCANCEL);
    EXPECT_EQ(asked, Answer::Cancel);
}

TEST(Dialog, WhatAProcedureThrowsReachesTheCallerOfTheOutermost) {
    TestWindow main(WS_VISIBLE);
    Soon soon(main);
    std::vector<WindowHandle> dialogs;
    int ends = 0;
    const auto note = [&](WindowHandle dialog, const Message& message) {
        if (message.id == WM_INITDIALOG) dialogs.push_back(dialog);
        ends += message.id == WM_DESTROY;
        return message.id == WM_COMMAND && lowWord(message.wParam) == IDOK;
    };
    soon.run([&] { driver::click({dialogs.at(0), IDOK}); });
    const auto outer = [&](WindowHandle dialog, const Message& message) {
        if (!note(dialog, message)) return false;
        soon.run([&] { driver::click({dialogs.at(1), IDOK}); });
        runDialog(dialog, form, [&](WindowHandle inner, const Message& told) {
            if (note(inner, told)) throw std::runtime_error("fault");
            return false;
        });
        ADD_FAILURE() << "went on after the fault";
        return true;
    };
    EXPECT_THROW(runDialog(main, form, outer), std::runtime_error);
    EXPECT_EQ(ends, 2) << "both were told of their end";
    EXPECT_THAT(driver::openDialogs(), IsEmpty());
    for (const WindowHandle dialog : dialogs) {
        EXPECT_FALSE(isWindow(dialog));
        EXPECT_EQ(sendMessage(dialog, WM_COMMAND, IDOK), 0);
    }
    EXPECT_TRUE(isEnabled(main.window));
    soon.run([&] { driver::click({driver::openDialogs().back().window, IDOK}); });
    EXPECT_EQ(runDialog(main, form, endOnButtons), 10);
}

TEST(Script, ReportsWhatCameUnexpectedAndWhatDidNotCome) {
    TestWindow main;
    driver::Script script;
    script.expectDialog("IDD_OTHER", [](WindowHandle) {});
    EXPECT_EQ(runDialog(main, form, endOnButtons), 20);
    EXPECT_THAT(script.faults(), ElementsAre(HasSubstr("dialog IDD_TEST_CONTROLS came, but dialog IDD_OTHER"),
                                             HasSubstr("dialog IDD_OTHER did not come")));
    EXPECT_FALSE(script.done());
}

TEST(Script, ReportsADialogThatItsActionLeftOpen) {
    TestWindow main;
    driver::Script script;
    script.expectDialog(form, [](WindowHandle) {});
    EXPECT_EQ(runDialog(main, form, ignore), IDCANCEL);
    EXPECT_THAT(script.faults(), ElementsAre(HasSubstr("without ending it")));
    EXPECT_TRUE(script.done());
}
