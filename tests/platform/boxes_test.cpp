// Message boxes, file dialogs and menus.

#include <gmock/gmock.h>

#include <fstream>

#include "platform/controls.h"
#include "platform/driver.h"
#include "platform/menu.h"
#include "platform/shell.h"
#include "platform/text.h"
#include "support/temporary_folder.h"
#include "test_window.h"

using namespace platform;
using test_support::TestWindow;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

// In the next turn of the loop that waits for the box.
void soon(TestWindow& window, std::function<void()> action) {
    window.onMessage = [action](const Message& message) {
        if (message.id != WM_USER) return false;
        action();
        return true;
    };
    postMessage(window, WM_USER);
}

} // namespace

TEST(MessageBox, WaitsForItsButtonsAndGivesNoWayAroundYesAndNo) {
    const struct {
        Buttons buttons;
        std::string key; // or the answer's button
        Answer answer;
    } cases[] = {
        {Buttons::Ok, "", Answer::Ok},
        {Buttons::Ok, "Escape", Answer::Ok},
        {Buttons::OkCancel, "Escape", Answer::Cancel},
        {Buttons::OkCancel, "Return", Answer::Ok},
        {Buttons::YesNo, "", Answer::No},
        {Buttons::YesNo, "Return", Answer::Yes},
        {Buttons::YesNoCancel, "Escape", Answer::Cancel},
        {Buttons::YesNoCancel, "", Answer::No},
    };
    TestWindow main(WS_VISIBLE);
    for (const auto& example : cases) {
        soon(main, [&] {
            ASSERT_EQ(driver::openDialogs().size(), 1u);
            EXPECT_EQ(driver::openDialogs()[0].text, "よろしいですか？");
            EXPECT_FALSE(isEnabled(main.window));
            if (example.key.empty())
                EXPECT_TRUE(driver::answerMessageBox(example.answer));
            else
                EXPECT_TRUE(driver::pressKey({}, example.key));
        });
        EXPECT_EQ(messageBox(main, "よろしいですか？", "題", example.buttons, SystemIcon::Question),
                  example.answer);
        EXPECT_TRUE(isEnabled(main.window));
    }
    soon(main, [] {
        for (const char* key : {"Return", "Escape"})
            driver::repeatKey({}, key);
        EXPECT_EQ(driver::openDialogs().size(), 1u) << "no key that was held down before answers it";
        driver::answerMessageBox(Answer::Cancel);
    });
    EXPECT_EQ(messageBox(main, "？", "", Buttons::OkCancel, SystemIcon::Question), Answer::Cancel);
    soon(main, [] {
        driver::pressKey({}, "Escape");
        EXPECT_EQ(driver::openDialogs().size(), 1u) << "Yes/No is not closed by Esc";
        EXPECT_FALSE(driver::answerMessageBox(Answer::Cancel));
        driver::answerMessageBox(Answer::Yes);
    });
    EXPECT_EQ(messageBox(main, "？", "", Buttons::YesNo, SystemIcon::Warning), Answer::Yes);
    EXPECT_FALSE(driver::answerMessageBox(Answer::Ok)) << "nothing is open";
}

TEST(MessageBox, HasASoundThatADialogInItsPlaceCanMake) {
    driver::Script script;
    messageBeep(SystemIcon::Warning);
    EXPECT_THAT(script.beeps(), ElementsAre(SystemIcon::Warning));
}

TEST(MessageBox, IsAnsweredByAScriptThatReadsIt) {
    TestWindow main;
    driver::Script script;
    std::string seen;
    script.expectMessageBox(Answer::No, [&](const std::string& text) { seen = text; });
    EXPECT_EQ(messageBox(main, "保存しますか？", "", Buttons::YesNo, SystemIcon::Question), Answer::No);
    EXPECT_EQ(seen, "保存しますか？");
    EXPECT_THAT(script.faults(), IsEmpty());
    script.expectMessageBox(Answer::Yes);
    EXPECT_EQ(messageBox(main, "a", "", Buttons::Ok, SystemIcon::Error), Answer::Ok);
    messageBox(main, "b", "", Buttons::Ok, SystemIcon::Error);
    EXPECT_THAT(script.faults(), ElementsAre(HasSubstr("does not offer"), HasSubstr("nothing was expected")));
}

class FileDialogs : public testing::Test {
protected:
    FileDialogs() : main(WS_VISIBLE) {
        for (const char* name : {"曲一.xml", "two.xml"})
            std::ofstream(path(name)) << "x";
    }
    std::string folderPath() const { return utf8ToSjis(folder.path().string()) + "/"; }
    std::string path(const std::string& utf8) const { return folder.file(utf8); }
    FileDialog options(std::string start) const {
        FileDialog made;
        made.startPath = std::move(start);
        made.filterName = "XML";
        made.pattern = "*.xml";
        made.defaultExtension = "xml";
        return made;
    }

    test_support::TemporaryFolder folder;
    TestWindow main;
};

TEST_F(FileDialogs, OpenGivesFullPathsInProgramText) {
    driver::Script script;
    for (const std::string& start : {folderPath(), folderPath() + "*", std::string()}) {
        script.expectFileDialog(folderPath() + "two.xml");
        EXPECT_THAT(openFileDialog(main, options(start)), ElementsAre(folderPath() + "two.xml"));
    }
    std::ofstream(path("one.xml")) << "x";
    script.expectFileDialog(folderPath() + "one.xml");
    EXPECT_THAT(openFileDialog(main, options(folderPath() + "two.xml")),
                ElementsAre(folderPath() + "one.xml"))
        << "not the one that was proposed";
    script.expectFileDialog("");
    EXPECT_THAT(openFileDialog(main, options(folderPath())), IsEmpty());
    script.expectFileDialog(folderPath() + "missing.xml").expectMessageBox(Answer::Ok);
    EXPECT_THAT(openFileDialog(main, options(folderPath())), IsEmpty());
    EXPECT_THAT(script.faults(), IsEmpty());
}

TEST_F(FileDialogs, AFileThatTheProgramCannotNameIsRefusedAloud) {
    // The long s is outside the code page; without regard to case it is found as an "s".
    std::ofstream(path("\xC5\xBFong.xml")) << "x";
    driver::Script script;
    script.expectFileDialog(folderPath() + "song.xml")
        .expectMessageBox(Answer::Ok,
                          [](const std::string& text) { EXPECT_THAT(text, HasSubstr("使えない文字")); });
    EXPECT_THAT(openFileDialog(main, options(folderPath())), IsEmpty());
    EXPECT_THAT(script.faults(), IsEmpty());
}

TEST_F(FileDialogs, SeveralFilesComeInTheirOrder) {
    // With a name of its own for the patterns.
    FileDialog several = options(folderPath());
    several.multiple = true;
    std::ofstream(path("one.xml")) << "x";
    several.filterName = "文書(*.xml,*.txt)";
    driver::Script script;
    script.expectFileDialog({folderPath() + "two.xml", folderPath() + "one.xml"});
    EXPECT_THAT(openFileDialog(main, several),
                ElementsAre(folderPath() + "two.xml", folderPath() + "one.xml"));

    // One that cannot be named does not keep the others back, unless it would pass for another file.
    std::ofstream(path("\xC5\xBFong.xml")) << "x";
    const std::vector<std::string> chosen{folderPath() + "song.xml", folderPath() + "one.xml"};
    script.expectFileDialog(chosen);
    EXPECT_THAT(openFileDialog(main, several),
                ElementsAre(folderPath() + "?ong.xml", folderPath() + "one.xml"));
    std::ofstream(path("?ong.xml")) << "x";
    script.expectFileDialog(chosen).expectMessageBox(Answer::Ok);
    EXPECT_THAT(openFileDialog(main, several), IsEmpty());
    EXPECT_THAT(script.faults(), IsEmpty());
}

TEST_F(FileDialogs, SaveAddsTheExtensionAndAsksBeforeItReplaces) {
    driver::Script script;
    for (const auto& [typed, name] :
         {std::pair("新しい", "新しい.xml"), {"第1.5回", "第1.5回.xml"}, {"NEW.XML", "NEW.XML"}}) {
        script.expectFileDialog(folderPath() + typed);
        EXPECT_EQ(saveFileDialog(main, options(folderPath())), folderPath() + name);
    }
    for (const Answer answer : {Answer::Yes, Answer::No}) {
        script.expectFileDialog(folderPath() + "two").expectMessageBox(answer, [](const std::string& text) {
            EXPECT_THAT(text, HasSubstr("two.xml"));
        });
        EXPECT_EQ(saveFileDialog(main, options(folderPath())).has_value(), answer == Answer::Yes);
    }
    EXPECT_THAT(script.faults(), IsEmpty());
}

TEST_F(FileDialogs, SaveTellsOfANameThatNoFileCanHave) {
    driver::Script script;
    FileDialog proposing = options(folderPath());
    proposing.fileName = "5/3大会.xml";
    script
        .expectFileDialog(folderPath() + "5/3大会.xml",
                          [](const std::string& proposed) { EXPECT_EQ(proposed, "5/3大会.xml"); })
        .expectMessageBox(Answer::Ok,
                          [](const std::string& text) { EXPECT_THAT(text, HasSubstr("5/3大会.xml")); });
    EXPECT_EQ(saveFileDialog(main, proposing), std::nullopt);
    EXPECT_THAT(script.faults(), IsEmpty());
}

TEST_F(FileDialogs, WaitInTheLoopAndCanBeCancelled) {
    soon(main, [&] {
        ASSERT_EQ(driver::openDialogs().size(), 1u);
        EXPECT_EQ(driver::openDialogs()[0].name, "save file");
        EXPECT_TRUE(driver::answerFileDialog(folderPath() + "proposed.xml"));
    });
    EXPECT_EQ(saveFileDialog(main, options(folderPath() + "proposed.xml")), folderPath() + "proposed.xml");
    soon(main, [] { EXPECT_TRUE(driver::answerFileDialog("")); });
    EXPECT_EQ(folderDialog(main, folderPath()), std::nullopt);
    soon(main, [&] { EXPECT_TRUE(driver::answerFileDialog(folderPath())); });
    EXPECT_EQ(folderDialog(main, folderPath()), folderPath().substr(0, folderPath().size() - 1));
}

TEST(Menu, SendsItsCommandsAndKeepsWhatIsOff) {
    TestWindow main(WS_VISIBLE, "TestWindowWithMenu");
    EXPECT_THAT(menuCommands(main), ElementsAre(301, 302, 303));
    EXPECT_EQ(menuItemText(main, 301), "開く(&O)");
    EXPECT_EQ(menuItemText(main, 999), "");
    EXPECT_EQ(outerHeightFor(main, 200) - 200, getRect(main).height - getClientRect(main).height);
    EXPECT_GT(outerHeightFor(main, 200), 210) << "the menu bar takes its room above the client area";
    EXPECT_TRUE(driver::chooseMenu(main, 302));
    EXPECT_EQ(main.count(WM_COMMAND, makeLong(302, 0)), 1);
    enableMenuItem(main, 302, false);
    EXPECT_FALSE(isMenuItemEnabled(main, 302));
    EXPECT_FALSE(driver::chooseMenu(main, 302));
    EXPECT_FALSE(driver::chooseMenu(main, 999));
}

TEST(Menu, MarksWhatTheProgramMarksAndNothingElse) {
    TestWindow main(WS_VISIBLE, "TestWindowWithMenu");
    const auto marked = [&] {
        std::vector<int> commands;
        for (const int command : menuCommands(main))
            if (isMenuItemChecked(main, command)) commands.push_back(command);
        return commands;
    };
    EXPECT_THAT(marked(), IsEmpty());
    checkMenuItem(main, 301, true);
    EXPECT_THAT(marked(), ElementsAre(301));
    for (const int command : {301, 302})
        EXPECT_TRUE(driver::chooseMenu(main, command));
    EXPECT_THAT(marked(), ElementsAre(301)) << "a choice marks nothing";
    checkMenuItem(main, 301, false);
    checkMenuRadioItem(main, 301, 303, 302);
    EXPECT_THAT(marked(), ElementsAre(302));
    EXPECT_TRUE(driver::chooseMenu(main, 302)) << "also what is marked";
    checkMenuRadioItem(main, 301, 303, 303);
    EXPECT_THAT(marked(), ElementsAre(303));
}

TEST(Menu, StandsOnADialogAndPopsUpOverIt) {
    TestWindow main(WS_VISIBLE);
    std::vector<unsigned> commands;
    soon(main, [] {
        const WindowHandle dialog = driver::openDialogs().back().window;
        EXPECT_THAT(menuCommands(dialog), ElementsAre(301, 302, 303));
        EXPECT_THAT(driver::clippedControls(dialog), IsEmpty());
        EXPECT_TRUE(driver::chooseMenu(dialog, 302));
        checkMenuItem(dialog, 303, true);
        enableMenuItem(dialog, 301, false);
        driver::click({dialog, 401}); // pops the same menu up
    });
    const int result = runDialog(main, "IDD_TEST_MENU", [&](WindowHandle dialog, const Message& message) {
        if (message.id == WM_USER) {
            EXPECT_FALSE(driver::chooseMenu(dialog, 301)) << "off";
            EXPECT_TRUE(driver::chooseMenu(dialog, 303));
            return true;
        }
        if (message.id != WM_COMMAND) return false;
        commands.push_back(lowWord(message.wParam));
        if (commands.back() == 401) {
            postMessage(dialog, WM_USER);
            popupMenu(dialog, "IDM_TEST_BAR");
            endDialog(dialog, 1);
        }
        return true;
    });
    EXPECT_EQ(result, 1);
    EXPECT_THAT(commands, ElementsAre(302, 401, 303));
}

TEST(Menu, PopsUpAndSendsTheChoiceBeforeItReturns) {
    TestWindow main(WS_VISIBLE);
    driver::Script script;
    script.expectMenu("IDM_TEST_BAR", 303).expectMenu("IDM_TEST_BAR", 0).expectMenu("IDM_TEST_BAR", 301);
    popupMenu(main, "IDM_TEST_BAR");
    EXPECT_EQ(main.count(WM_COMMAND, makeLong(303, 0)), 1);
    popupMenu(main, "IDM_TEST_BAR");
    enableMenuItem(main, 301, false);
    popupMenu(main, "IDM_TEST_BAR");
    EXPECT_EQ(main.sent(WM_COMMAND).size(), 1u) << "what is off cannot be chosen";
    EXPECT_THAT(script.faults(), IsEmpty());
}

TEST(Menu, PopsUpInTheLoopUntilSomethingIsChosenOrItIsClosed) {
    TestWindow main(WS_VISIBLE);
    soon(main, [&] { EXPECT_TRUE(driver::chooseMenu(main, 303)); });
    popupMenu(main, "IDM_TEST_BAR");
    EXPECT_EQ(main.count(WM_COMMAND, makeLong(303, 0)), 1);
    soon(main, [] { EXPECT_TRUE(driver::pressKey({}, "Escape")); });
    popupMenu(main, "IDM_TEST_BAR");
    EXPECT_EQ(main.sent(WM_COMMAND).size(), 1u);
}

TEST(Desktop, OpensWhatAScriptWaitsForAndNothingElse) {
    driver::Script script;
    script.expectOpen("https://example.invalid/").expectOpen("/tmp/a.log", false);
    int failures = 0;
    const auto count = [&] { ++failures; };
    shellOpen("https://example.invalid/", count);
    EXPECT_EQ(failures, 0);
    shellOpen("/tmp/a.log", count);
    EXPECT_EQ(failures, 1);
    shellOpen("/tmp/b.log", count);
    EXPECT_EQ(failures, 2);
    EXPECT_THAT(script.faults(), IsEmpty());
    script.expectOpen("/tmp/a.log");
    shellOpen("/tmp/b.log", count);
    EXPECT_EQ(failures, 3);
    EXPECT_THAT(script.faults(), ElementsAre(HasSubstr("/tmp/b.log came"), HasSubstr("/tmp/a.log did not")));
}
