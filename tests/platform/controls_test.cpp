// Controls: what the program sets is read back and tells nothing; what the user does is told.

#include "platform/controls.h"

#include <gmock/gmock.h>

#include <fstream>

#include "platform/driver.h"
#include "support/temporary_folder.h"
#include "test_window.h"

using namespace platform;
using test_support::TestWindow;
using testing::IsEmpty;

namespace {

enum Id {
    Label = 101,
    Title,
    Edit,
    Number,
    Memo,
    Check,
    Group,
    RadioA,
    RadioB,
    Combo,
    Slider,
    Bar,
    Button,
    Date
};

class Controls : public testing::Test {
protected:
    Controls() : main(WS_VISIBLE) {
        EXPECT_TRUE(loadTemplate(main, "IDD_TEST_CONTROLS"));
        for (const char* entry : {"一", "二", "三"})
            addItem({main, Combo}, entry);
        setRange({main, Slider}, 0, 100);
        setRange({main, Bar}, 0, 5000);
        main.forget();
    }
    int commands(int id, unsigned code) const {
        return main.count(WM_COMMAND, makeLong(static_cast<unsigned>(id), code));
    }

    Control at(int id) const { return {main, id}; }

    TestWindow main;
};

} // namespace

TEST_F(Controls, AreFoundByNumberAnywhereBelowTheWindow) {
    EXPECT_EQ(getId(getItem(main, RadioB)), RadioB);
    EXPECT_FALSE(getItem(main, 999));
    EXPECT_FALSE(getItem(main, 0));
    EXPECT_EQ(getText(at(999)), "");
    EXPECT_EQ(getPosition(at(Edit)), -1) << "an edit has no position";
}

TEST_F(Controls, KeepTheTextTheyWereGiven) {
    const std::string text = "ポ－～①㈱ﾊﾝｶｸ <b>表</b> & Co";
    for (const int id : {Label, Title, Edit, Memo, Check, Group, RadioA, Button}) {
        setText(at(id), text);
        EXPECT_EQ(getText(at(id)), text) << id;
    }
    setText(at(Combo), "二");
    EXPECT_EQ(getText(at(Combo)), "二");
    EXPECT_EQ(getSelection(at(Combo)), 1);
    setText(at(Memo), "上\n下");
    EXPECT_EQ(getText(at(Memo)), "上\n下");
}

TEST_F(Controls, SetByTheProgramTellNothingButTheTextOfASingleLineEdit) {
    setSelection(at(Combo), 2);
    setChecked(at(Check), true);
    setChecked(at(RadioA), true);
    setPosition(at(Slider), 40);
    setRange(at(Slider), 0, 20);
    setPosition(at(Bar), 100);
    setText(at(Memo), "x");
    setText(at(Combo), "一");
    EXPECT_THAT(main.messages, IsEmpty());
    setText(at(Edit), "x");
    EXPECT_EQ(commands(Edit, EN_CHANGE), 1);
    setText(at(Edit), "x");
    EXPECT_EQ(commands(Edit, EN_CHANGE), 2) << "also when the text stays the same";
    EXPECT_EQ(main.messages.size(), 2u);
}

TEST_F(Controls, AnEditThatSetsItselfInItsOwnChangeComesToRest) {
    main.onMessage = [this](const Message& message) {
        if (message.id == WM_COMMAND) setText(at(Edit), "整");
        return false;
    };
    setText(at(Edit), "x");
    EXPECT_EQ(getText(at(Edit)), "整");
}

TEST_F(Controls, TellWhatTheUserDoes) {
    const struct {
        const char* what;
        std::function<bool()> act;
        unsigned message;
        WParam wParam;
    } cases[] = {
        {"button", [this] { return driver::click(at(Button)); }, WM_COMMAND, makeLong(Button, BN_CLICKED)},
        {"check", [this] { return driver::click(at(Check)); }, WM_COMMAND, makeLong(Check, BN_CLICKED)},
        {"radio", [this] { return driver::click(at(RadioB)); }, WM_COMMAND, makeLong(RadioB, BN_CLICKED)},
        {"combo", [this] { return driver::select(at(Combo), 1); }, WM_COMMAND,
         makeLong(Combo, CBN_SELCHANGE)},
        {"up-down", [this] { return driver::spin(at(Number), 1); }, WM_COMMAND, makeLong(Number, EN_CHANGE)},
        {"date",
         [this] {
             return driver::pick(at(Date), {2026, 3, 0, 4, 0, 0, 0, 0});
         },
         WM_NOTIFY, Date},
        {"slider", [this] { return driver::slide(at(Slider), 60); }, WM_HSCROLL, 0},
    };
    for (const auto& example : cases) {
        main.forget();
        EXPECT_TRUE(example.act()) << example.what;
        EXPECT_EQ(main.count(example.message, example.wParam), 1) << example.what;
    }
    EXPECT_EQ(main.messages.back().lParam, Slider);
    EXPECT_TRUE(isChecked(at(Check)));
    EXPECT_TRUE(isChecked(at(RadioB)));
    EXPECT_EQ(getSelection(at(Combo)), 1);
    EXPECT_EQ(getPosition(at(Slider)), 60);
    EXPECT_FALSE(driver::slide(at(Bar), 1)) << "a progress bar only shows";

    main.forget();
    EXPECT_TRUE(driver::type(at(Edit), "あいう"));
    EXPECT_EQ(getText(at(Edit)), "あいう");
    EXPECT_EQ(commands(Edit, EN_CHANGE), 3) << "one for each key";
}

TEST_F(Controls, ThatAreOffOrHiddenDoNotReact) {
    const auto touchAll = [this] {
        return driver::click(at(Button)) || driver::select(at(Combo), 1) || driver::type(at(Edit), "x") ||
               driver::slide(at(Slider), 60) || driver::spin(at(Number), 1);
    };
    for (const int id : {Button, Combo, Edit, Slider, Number})
        enable(at(id), false);
    EXPECT_FALSE(touchAll());
    for (const int id : {Button, Combo, Edit, Slider, Number}) {
        enable(at(id), true);
        show(at(id), false);
        EXPECT_FALSE(isVisible(at(id)));
    }
    EXPECT_FALSE(touchAll());
    setReadOnly(at(Memo), true);
    EXPECT_FALSE(driver::type(at(Memo), "x"));
    enable(at(Group), false);
    EXPECT_FALSE(isEnabled(at(RadioA))) << "off with its frame";
    EXPECT_FALSE(driver::click(at(RadioA)));
    EXPECT_THAT(main.messages, IsEmpty());
}

TEST_F(Controls, VisibilityIsTheControlsOwn) {
    showWindow(main, false);
    EXPECT_TRUE(isVisible(at(Edit)));
    show(at(Edit), false);
    showWindow(main, true);
    EXPECT_FALSE(isVisible(at(Edit)));
    EXPECT_TRUE(isVisible(at(Button)));
}

TEST_F(Controls, RadioButtonsLetOnlyOneStand) {
    setChecked(at(RadioA), true);
    setChecked(at(RadioB), true);
    EXPECT_FALSE(isChecked(at(RadioA)));
    setChecked(at(RadioB), false);
    EXPECT_FALSE(isChecked(at(RadioB))) << "the program may clear the whole group";
}

TEST_F(Controls, CombosAndBarsClipWhatIsOutOfRange) {
    EXPECT_EQ(getSelection(at(Combo)), -1) << "filling selects nothing";
    EXPECT_EQ(addItem(at(Combo), "四"), 3);
    for (const int outside : {-1, 4, 1000}) {
        setSelection(at(Combo), 1);
        setSelection(at(Combo), outside);
        EXPECT_EQ(getSelection(at(Combo)), -1) << outside;
    }
    EXPECT_EQ(itemCount(at(Combo)), 4);
    EXPECT_EQ(itemText(at(Combo), 3), "四");
    EXPECT_EQ(itemText(at(Combo), 4), "");
    clearItems(at(Combo));
    EXPECT_EQ(itemCount(at(Combo)), 0);

    for (const int id : {Slider, Bar}) {
        setRange(at(id), 10, 50);
        EXPECT_EQ(getRangeHigh(at(id)), 50);
        setPosition(at(id), 999);
        EXPECT_EQ(getPosition(at(id)), 50) << id;
        setPosition(at(id), -5);
        EXPECT_EQ(getPosition(at(id)), 10) << id;
    }
}

TEST_F(Controls, AHeldKeyTypesLinesAndStepsBarsButPressesNothing) {
    setFocus(at(Memo));
    const std::string before = getText(at(Memo));
    EXPECT_TRUE(driver::repeatKey(main, "Return"));
    EXPECT_EQ(getText(at(Memo)).size(), before.size() + 1);
    setFocus(at(Slider));
    setPosition(at(Slider), 50);
    EXPECT_TRUE(driver::repeatKey(main, "Right"));
    EXPECT_GT(getPosition(at(Slider)), 50);
    setFocus(at(Button));
    main.forget();
    for (const char* key : {"Return", "Space", "Escape"})
        driver::repeatKey(main, key);
    EXPECT_TRUE(main.sent(WM_COMMAND).empty());
}

TEST_F(Controls, TrackBarsMoveByTheirLineAndTheirPage) {
    const Control bar = at(Slider);
    setRange(bar, 0, 1000);
    setStep(bar, 10, 100);
    setPosition(bar, 500);
    driver::turnWheel(bar, 1);
    EXPECT_EQ(getPosition(bar), 500) << "the wheel moves only what has the focus";
    setFocus(bar);
    const std::pair<const char*, std::function<bool()>> moves[] = {
        {"510", [&] { return driver::pressKey(main, "Right"); }},
        {"610", [&] { return driver::pressKey(main, "PgUp"); }},
        {"630", [&] { return driver::turnWheel(bar, 2); }},
        {"620", [&] { return driver::turnWheel(bar, -1); }},
        {"520", [&] { return driver::pressKey(main, "PgDown"); }},
    };
    for (const auto& [position, move] : moves) {
        main.forget();
        EXPECT_TRUE(move());
        EXPECT_EQ(std::to_string(getPosition(bar)), position);
        EXPECT_FALSE(main.sent(WM_HSCROLL).empty()) << position;
    }
    EXPECT_FALSE(isHeld(bar));
    driver::holdThumb(bar, true);
    EXPECT_TRUE(isHeld(bar));
    driver::slide(bar, 700);
    driver::holdThumb(bar, false);
    EXPECT_FALSE(isHeld(bar));
    EXPECT_EQ(getPosition(bar), 700);
}

TEST_F(Controls, ToolTipsShowTheVeryText) {
    for (const std::string text : {"Rock & Roll", "<b>太い</b>", "&amp;", "一行目\n  二行目", ""}) {
        setToolTip(at(Edit), text);
        EXPECT_EQ(getToolTip(at(Edit)), text);
    }
}

TEST_F(Controls, CarryTheIconsTheyWereGiven) {
    const test_support::TemporaryFolder folder;
    for (const int id : {Label, Button}) {
        EXPECT_EQ(getIcon(at(id)), "");
        const auto picture = [&](const char* name) {
            driver::settle();
            EXPECT_TRUE(driver::screenshot(main, folder.file(name)));
            std::ifstream in(folder.file(name), std::ios::binary);
            return std::string(std::istreambuf_iterator<char>(in), {});
        };
        const std::string bare = picture("bare.png");
        setIcon(at(id), "ICO_INTRO_SERVER", 30);
        EXPECT_EQ(getIcon(at(id)), "ICO_INTRO_SERVER");
        EXPECT_NE(picture("icon.png"), bare) << id;
        EXPECT_GE(getRect(getItem(main, id)).height, 30) << id;
    }
    setIcon(at(Edit), "ICO_INTRO_SERVER", 30);
    EXPECT_EQ(getIcon(at(Edit)), "") << "an edit has no picture";
}

TEST_F(Controls, UpDownArrowsAreClippedAndTypingIsFree) {
    const Control number = at(Number);
    setSpinRange(number, -2000, 2000, 500);
    setText(number, "1200");
    driver::spin(number, 1);
    EXPECT_EQ(getText(number), "1700") << "no separator of thousands";
    driver::spin(number, 5);
    EXPECT_EQ(getText(number), "2000");
    driver::spin(number, -20);
    EXPECT_EQ(getText(number), "-2000");
    driver::type(number, "-99999");
    EXPECT_EQ(getText(number), "-99999");
    driver::type(number, "1a2.3");
    EXPECT_EQ(getText(number), "123");
    driver::type(number, "４５");
    EXPECT_EQ(getText(number), "45");
    setSpinRange(number, 0, 9);
    driver::type(number, "-7");
    EXPECT_EQ(getText(number), "7") << "no minus where nothing lies below 0";
    setSpinRange(number, 1, 0); // a list of nothing
    driver::spin(number, 1);
    EXPECT_EQ(getText(number), "1");
}

TEST_F(Controls, LimitedEditsCountBytes) {
    for (const int id : {Edit, Memo}) {
        limitText(at(id), 5);
        driver::type(at(id), "漢字かな");
        EXPECT_EQ(getText(at(id)), "漢字") << id;
        driver::type(at(id), "漢字aな");
        EXPECT_EQ(getText(at(id)), "漢字a") << id;
        limitText(at(id), 8);
        driver::type(at(id), "漢字かな");
        EXPECT_EQ(getText(at(id)), "漢字かな") << id << ": the last limit holds";
    }
}

TEST_F(Controls, ColoursAreKeptAndTakenBack) {
    for (const int id : {Label, Edit, Memo}) {
        setTextColor(at(id), Color{255, 80, 80});
        EXPECT_EQ(getTextColor(at(id)), (Color{255, 80, 80})) << id;
        setTextColor(at(id), std::nullopt);
        EXPECT_EQ(getTextColor(at(id)), std::nullopt) << id;
    }
}

TEST_F(Controls, TextsThatDoNotFitAreFound) {
    driver::resize(main, 600, 700);
    EXPECT_THAT(driver::clippedControls(main), IsEmpty());
    const std::string longText(400, 'W');
    setText(at(Title), longText);
    driver::settle();
    EXPECT_THAT(driver::clippedControls(main), testing::ElementsAre(testing::StartsWith("102: WWW")))
        << "dots and a tool tip do not make it whole";
    setText(at(Title), "");
    setText(at(Check), longText);
    EXPECT_THAT(driver::clippedControls(main), testing::ElementsAre(testing::StartsWith("106: WWW")));
}

TEST_F(Controls, AreDrawnAtTheScaleAskedFor) {
    const test_support::TemporaryFolder folder;
    for (const double scale : {1.0, 2.0}) {
        ASSERT_TRUE(driver::screenshot(main, folder.file("picture.png"), scale));
        std::ifstream file(folder.file("picture.png"), std::ios::binary);
        std::string head(24, '\0');
        file.read(head.data(), 24);
        const auto width = (static_cast<unsigned char>(head[18]) << 8) + static_cast<unsigned char>(head[19]);
        EXPECT_EQ(width, getClientRect(main).width * scale);
    }
    EXPECT_FALSE(driver::screenshot(main, "/nowhere/picture.png"));
}
