// Property sheets: what their pages are told, and what their buttons do.

#include "platform/property_sheet.h"

#include <gmock/gmock.h>

#include <map>

#include "platform/clock.h"
#include "platform/driver.h"
#include "test_window.h"

using namespace platform;
using test_support::TestWindow;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

enum : int { Edit = 501, Button = 502 };

class Sheets : public testing::TestWithParam<SheetKind> {
protected:
    // Three pages that write down what they are told and answer as the test wants.
    PropertySheet sheet(SheetKind kind) {
        PropertySheet made{.name = "Sheet", .title = "題", .kind = kind, .pages = {}};
        for (const int number : {1, 2, 3}) {
            const auto proc = [this, number](WindowHandle page, const Message& message) {
                told.push_back(std::to_string(number) + nameOf(message));
                if (told.back() == refused) answerSheet(page, -1);
                if (onMessage) onMessage(page, message);
                return true;
            };
            made.pages.push_back({"IDD_TEST_PAGE" + std::to_string(number), proc});
        }
        return made;
    }

    int run(SheetKind kind, const std::function<void(WindowHandle)>& act) {
        script.expectDialog("Sheet", act);
        const int result = runPropertySheet(main, sheet(kind));
        EXPECT_THAT(script.faults(), IsEmpty());
        return result;
    }

    std::vector<std::string> sinceLast() { return std::exchange(told, {}); }

    static std::string shown(WindowHandle window) { return getText(shownPage(window)); }

    static std::string nameOf(const Message& message) {
        static const std::map<LParam, std::string> codes = {
            {PSN_SETACTIVE, "active"}, {PSN_KILLACTIVE, "kill"}, {PSN_APPLY, "apply"},
            {PSN_RESET, "reset"},      {PSN_WIZBACK, "back"},    {PSN_WIZNEXT, "next"},
            {PSN_WIZFINISH, "finish"}};
        if (message.id == WM_INITDIALOG) return "init";
        if (message.id == WM_DESTROY) return "destroy";
        if (message.id == WM_TIMER) return "timer";
        if (message.id == WM_NOTIFY) return codes.at(message.lParam);
        return "command" + std::to_string(lowWord(message.wParam));
    }

    TestWindow main;
    driver::Script script;
    std::vector<std::string> told;
    std::string refused; // what a page answers with -1
    std::function<void(WindowHandle, const Message&)> onMessage;
};

INSTANTIATE_TEST_SUITE_P(Kind, Sheets, testing::Values(SheetKind::Tabs, SheetKind::Wizard));

} // namespace

TEST_F(Sheets, AWizardGoesFromPageToPage) {
    const int result = run(SheetKind::Wizard, [this](WindowHandle window) {
        EXPECT_EQ(getText(window), "題");
        EXPECT_EQ(shown(window), "一枚目");
        EXPECT_THAT(sinceLast(), ElementsAre("1init", "1active"));
        EXPECT_FALSE(driver::click({window, ID_WIZBACK}));
        EXPECT_FALSE(driver::click({window, ID_WIZFINISH}));
        EXPECT_TRUE(driver::click({window, ID_WIZNEXT}));
        EXPECT_THAT(sinceLast(), ElementsAre("1next", "1kill", "2init", "2active"));
        EXPECT_TRUE(driver::click({window, ID_WIZBACK}));
        EXPECT_THAT(sinceLast(), ElementsAre("2back", "2kill", "1active")) << "shown before";
        EXPECT_TRUE(hasFocus({shownPage(window), Edit}));
        driver::pressKey(window, "Return");
        EXPECT_EQ(shown(window), "二枚目") << "Enter leads on";
        EXPECT_TRUE(driver::click({window, ID_WIZNEXT}));
        EXPECT_EQ(shown(window), "三枚目");
        EXPECT_FALSE(isVisible({window, ID_WIZNEXT}));
        sinceLast();
        driver::pressKey(window, "Return");
        EXPECT_THAT(sinceLast(), ElementsAre("3finish"));
    });
    EXPECT_EQ(result, IDOK);
    EXPECT_THAT(told, ElementsAre("1destroy", "2destroy", "3destroy"));
}

TEST_F(Sheets, APageIsUpWhenItIsToldSo) {
    std::vector<std::string> seen;
    onMessage = [&](WindowHandle page, const Message& message) {
        if (message.id == WM_NOTIFY && message.lParam == PSN_SETACTIVE)
            seen.push_back(getText(shownPage(getParent(page))));
    };
    run(SheetKind::Wizard, [](WindowHandle window) {
        driver::click({window, ID_WIZNEXT});
        driver::click({window, ID_WIZBACK});
        driver::click({window, IDCANCEL});
    });
    EXPECT_THAT(seen, ElementsAre("一枚目", "二枚目", "一枚目"));
}

TEST_F(Sheets, OneClickOrKeyTurnsOnePageOfAWizard) {
    const int result = run(SheetKind::Wizard, [](WindowHandle window) {
        EXPECT_TRUE(driver::doubleClick({window, ID_WIZNEXT}));
        EXPECT_EQ(shown(window), "二枚目");
        EXPECT_TRUE(driver::doubleClick({window, ID_WIZNEXT}));
        ASSERT_EQ(shown(window), "三枚目");
        EXPECT_TRUE(isVisible(window)) << "the finish button stands where the second click falls";
        driver::click({window, ID_WIZBACK});
        setFocus({window, ID_WIZNEXT});
        driver::pressKey(window, "Return");
        ASSERT_EQ(shown(window), "三枚目");
        for (const int id : {+Edit, +ID_WIZFINISH}) {
            setFocus(id == Edit ? Control(shownPage(window), id) : Control(window, id));
            driver::repeatKey(window, "Return");
            EXPECT_TRUE(isVisible(window)) << id;
        }
        EXPECT_TRUE(driver::doubleClick({window, ID_WIZFINISH})) << "a double click on one page is one click";
    });
    EXPECT_EQ(result, IDOK);
}

TEST_F(Sheets, APageOfAWizardThatRefusesStays) {
    run(SheetKind::Wizard, [this](WindowHandle window) {
        for (const char* refusal : {"1next", "1kill"}) {
            refused = refusal;
            driver::click({window, ID_WIZNEXT});
            EXPECT_EQ(shown(window), "一枚目") << refusal;
        }
        refused = "2back";
        driver::click({window, ID_WIZNEXT});
        driver::click({window, ID_WIZBACK});
        EXPECT_EQ(shown(window), "二枚目");
        refused = "3finish";
        driver::click({window, ID_WIZNEXT});
        driver::click({window, ID_WIZFINISH});
        EXPECT_TRUE(isVisible(window));
        refused.clear();
        driver::click({window, ID_WIZFINISH});
    });
}

TEST_F(Sheets, AWizardsButtonsAreThePages) {
    onMessage = [](WindowHandle page, const Message& message) {
        if (message.id == WM_NOTIFY && message.lParam == PSN_SETACTIVE) setWizardButtons(page, 0);
    };
    run(SheetKind::Wizard, [](WindowHandle window) {
        const WindowHandle page = shownPage(window);
        const auto enabled = [&] {
            std::vector<int> ids;
            for (const int id : {ID_WIZBACK, ID_WIZNEXT, ID_WIZFINISH})
                if (isEnabled({window, id}) && isVisible({window, id})) ids.push_back(id);
            return ids;
        };
        EXPECT_THAT(enabled(), IsEmpty());
        driver::pressKey(window, "Return");
        EXPECT_EQ(shown(window), "一枚目") << "Enter presses nothing that is off";
        setWizardButtons(page, PSWIZB_BACK | PSWIZB_NEXT);
        EXPECT_THAT(enabled(), ElementsAre(ID_WIZBACK, ID_WIZNEXT));
        setWizardButtons(page, PSWIZB_FINISH);
        EXPECT_THAT(enabled(), ElementsAre(ID_WIZFINISH));
        enableSheetCancel(page, false);
        EXPECT_FALSE(driver::click({window, IDCANCEL}));
        driver::pressKey(window, "Escape");
        driver::closeBox(window);
        EXPECT_TRUE(isVisible(window));
        driver::click({window, ID_WIZFINISH});
    });
}

TEST_P(Sheets, EveryCancelTellsThePagesThatWereShown) {
    const std::function<void(WindowHandle)> ways[] = {
        [](WindowHandle window) {
            driver::click({window, IDCANCEL});
        },
        [](WindowHandle window) { driver::pressKey(window, "Escape"); },
        [](WindowHandle window) { driver::closeBox(window); },
    };
    for (const auto& way : ways) {
        EXPECT_EQ(run(GetParam(),
                      [&](WindowHandle window) {
                          sinceLast();
                          way(window);
                      }),
                  IDCANCEL);
        EXPECT_THAT(sinceLast(), ElementsAre("1reset", "1destroy"));
    }
}

TEST_P(Sheets, RememberNothing) {
    for (int times = 0; times < 2; ++times) {
        run(GetParam(), [](WindowHandle window) {
            EXPECT_EQ(shown(window), "一枚目");
            EXPECT_EQ(getText({shownPage(window), Edit}), "");
            driver::type({shownPage(window), Edit}, "x");
            driver::closeBox(window);
        });
    }
}

TEST_P(Sheets, APageGetsTheMessagesOfItsOwnControlsUntilTheSheetEnds) {
    ManualClock clock;
    PropertySheet made = sheet(GetParam());
    std::swap(made.pages[0], made.pages[1]);
    script.expectDialog("Sheet", [&](WindowHandle window) {
        sinceLast();
        const WindowHandle page = shownPage(window);
        driver::click({page, Button});
        setTimer(page, 1, 10);
        clock.advance(10);
        endDialog(page, 7); // a page cannot
        EXPECT_TRUE(isVisible(page));
        EXPECT_EQ(runDialog(page, "IDD_NOT_THERE", {}), -1);
        driver::click({window, IDCANCEL});
        clock.advance(100);
    });
    runPropertySheet(main, made);
    EXPECT_THAT(told, ElementsAre("2command502", "2timer", "2reset", "2destroy"));
    EXPECT_THAT(script.faults(), IsEmpty());
}

TEST_P(Sheets, HaveRoomForTheirLargestPage) {
    run(GetParam(), [](WindowHandle window) {
        const Rect page = getClientRect(shownPage(window));
        EXPECT_GE(page.width, 500);
        EXPECT_GE(page.height, 200);
        EXPECT_THAT(driver::clippedControls(window), IsEmpty());
        driver::closeBox(window);
    });
}

TEST_P(Sheets, AMissingTemplateAnswersMinusOne) {
    PropertySheet made = sheet(GetParam());
    made.pages[2].name = "IDD_NOT_THERE";
    EXPECT_EQ(runPropertySheet(main, made), -1);
    EXPECT_THAT(told, IsEmpty());
    made.pages.clear();
    EXPECT_EQ(runPropertySheet(main, made), -1);
}

TEST_F(Sheets, TabsAskThePageThatIsLeft) {
    run(SheetKind::Tabs, [this](WindowHandle window) {
        sinceLast();
        refused = "1kill";
        EXPECT_TRUE(driver::turnTo(window, 1));
        EXPECT_EQ(shown(window), "一枚目");
        refused.clear();
        EXPECT_TRUE(driver::turnTo(window, 1));
        EXPECT_EQ(shown(window), "二枚目");
        EXPECT_FALSE(driver::turnTo(window, 3));
        EXPECT_THAT(sinceLast(), ElementsAre("1kill", "1kill", "2init", "2active"));
        driver::closeBox(window);
    });
}

TEST_F(Sheets, OkAndApplyGoToThePagesThatWereShown) {
    const int result = run(SheetKind::Tabs, [this](WindowHandle window) {
        driver::turnTo(window, 1);
        sinceLast();
        EXPECT_FALSE(driver::click({window, ID_APPLY_NOW})) << "nothing has changed";
        sheetChanged(shownPage(window));
        EXPECT_TRUE(driver::click({window, ID_APPLY_NOW}));
        EXPECT_THAT(sinceLast(), ElementsAre("2kill", "1apply", "2apply"));
        EXPECT_FALSE(isEnabled({window, ID_APPLY_NOW}));

        refused = "2kill";
        EXPECT_TRUE(driver::click({window, IDOK}));
        refused = "1apply";
        EXPECT_TRUE(driver::click({window, IDOK}));
        EXPECT_EQ(shown(window), "一枚目") << "the page that is not yet right comes up";
        EXPECT_THAT(sinceLast(), ElementsAre("2kill", "2kill", "1apply", "1active"));
        refused.clear();
        EXPECT_TRUE(driver::click({window, IDOK}));
    });
    EXPECT_EQ(result, IDOK);
    EXPECT_THAT(told, ElementsAre("1kill", "1apply", "2apply", "1destroy", "2destroy"));
}

TEST(SheetLoop, EndsWithAQuitAndWithItsOwner) {
    for (const bool quit : {true, false}) {
        TestWindow main(WS_VISIBLE);
        main.onMessage = [&](const Message& message) {
            if (message.id != WM_USER) return false;
            if (quit)
                postQuitMessage(3);
            else
                destroyWindow(main);
            return true;
        };
        postMessage(main, WM_USER);
        const PropertySheet sheet{
            .name = "Sheet",
            .title = "",
            .kind = SheetKind::Wizard,
            .pages = {{"IDD_TEST_PAGE1", [](WindowHandle, const Message&) { return false; }}}};
        EXPECT_EQ(runPropertySheet(main, sheet), IDCANCEL) << quit;
        Message message;
        EXPECT_EQ(peekMessage(message) && message.id == WM_QUIT, quit);
    }
}
