// The terminal goes, politely or not, in each state and under each dialog. The session ends, nothing hangs,
// and the next session works.

#include <functional>

#include <gtest/gtest.h>

#include "e2e/desk.h"
#include "host/state/console_ids.h"
#include "platform/controls.h"

namespace {

using e2e::Desk;
using test_support::stage;
namespace driver = platform::driver;

void closeBox(platform::WindowHandle dialog) {
    driver::pressKey(dialog, "Escape");
}

// Brings the show into a state; the last quest is the second.
struct Road {
    const char* state;
    std::function<void(Desk&)> go;
    bool hasHistory = false;
};

void start(Desk& desk) {
    desk.click(ids::questStart);
    desk.hear();
}

void toPlay(Desk& desk) {
    desk.playQuest();
}

void toWait(Desk& desk) {
    desk.playQuest();
    desk.click(ids::stop);
    desk.hear();
    desk.reply("STATUSNOTIFY", 303);
}

void toPause(Desk& desk) {
    toWait(desk);
    desk.click(ids::pause);
    desk.hear();
    desk.reply("STATUSNOTIFY", 200);
}

void toDsp(Desk& desk) {
    toWait(desk);
    desk.click(ids::noCorrect);
    desk.hear();
}

void toEnd(Desk& desk) {
    toWait(desk);
    for (int i = 0; i < 2; ++i) {
        if (i == 1) desk.script.expectDialog("IDD_KDL0601_CONFIRM_VECTORY", closeBox);
        desk.click(ids::skip);
        desk.hear();
        desk.reply("REVISION", 200);
    }
    desk.hear();
    desk.reply("REVISION", 200);
}

const Road roads[] = {
    {"ENABLE", [](Desk&) {}}, {"READY", start},     {"PLAY", toPlay, true}, {"WAIT", toWait, true},
    {"PAUSE", toPause, true}, {"DSP", toDsp, true}, {"END", toEnd, true},
};

class TerminalLeaves {
public:
    explicit TerminalLeaves(bool announced = true) {
        desk.folder.addSong("荒城の月", "瀧廉太郎");
        desk.folder.addSong("花", "瀧廉太郎");
        file = desk.folder.writeSession("大会", {stage({.name = "一回戦", .quests = 2, .songs = "1,2"})});
        desk.start();
        desk.openSession(file);
        desk.connect();
        if (announced) desk.announce("青木,馬場", 2);
    }

    void expectEnd(bool hasHistory) {
        desk.script.expectDialog("IDD_KDL0001_MESSAGE_BOX", closeBox); // the connection is lost
        if (hasHistory) desk.script.expectMessageBox(platform::Answer::No);
    }

    void leave(bool reset) {
        if (reset)
            desk.peer->reset();
        else
            desk.peer->close();
    }

    void waitForEnd() {
        EXPECT_TRUE(driver::settleUntil([this] { return desk.stateName() == "START"; }, 3000));
        EXPECT_EQ(host().server, nullptr);
        EXPECT_EQ(host().vrmStatus, 0);
        EXPECT_FALSE(host().connectionFlg);
        EXPECT_TRUE(desk.script.done());
    }

    // The next session of the evening, on the same port.
    void playAgain() {
        desk.openSession(file);
        desk.connect();
        desk.announce("青木,馬場", 2);
        desk.playQuest();
        EXPECT_EQ(desk.stateName(), "PLAY");
    }

    Desk desk;
    std::string file;
};

} // namespace

TEST(TerminalLeaves, InEachState) {
    for (const Road& road : roads)
        for (const bool reset : {false, true}) {
            SCOPED_TRACE(std::string(road.state) + (reset ? " reset" : " closed"));
            TerminalLeaves show;
            road.go(show.desk);
            ASSERT_EQ(show.desk.stateName(), road.state);
            show.expectEnd(road.hasHistory);
            show.leave(reset);
            show.waitForEnd();
            show.playAgain();
        }
}

TEST(TerminalLeaves, BeforeItHasNamedItsUsers) {
    TerminalLeaves show(false);
    ASSERT_EQ(show.desk.stateName(), "INIT");
    show.expectEnd(false);
    show.leave(false);
    show.waitForEnd();
    show.playAgain();
}

TEST(TerminalLeaves, UnderTheJudgingDialog) {
    for (const int button : {Desk::buttonVoid, Desk::radioRight}) {
        SCOPED_TRACE(button);
        TerminalLeaves show;
        show.desk.playQuest();
        show.desk.script.expectDialog("IDD_KDL0102_REQUEST", [&](platform::WindowHandle dialog) {
            show.expectEnd(true);
            show.leave(false);
            EXPECT_TRUE(driver::settleUntil([&] { return show.desk.stateName() == "START"; }, 3000));
            // The judgement of a session that is over is refused.
            show.desk.script.expectDialog("IDD_KDL0001_MESSAGE_BOX", closeBox);
            driver::click({dialog, button});
            if (button == Desk::radioRight) driver::click({dialog, 1211});
        });
        show.desk.buzz(0);
        show.waitForEnd();
        EXPECT_EQ(host().userList[0].getScore(), 0);
        show.playAgain();
    }
}

TEST(TerminalLeaves, UnderTheAnswerDisplay) {
    TerminalLeaves show;
    toDsp(show.desk);
    show.desk.script.expectDialog("IDD_KDL0103_ANSWERDSP", [&](platform::WindowHandle dialog) {
        show.expectEnd(true);
        show.leave(true);
        EXPECT_TRUE(driver::settleUntil([&] { return show.desk.stateName() == "START"; }, 3000));
        driver::click({dialog, 1315});
    });
    show.desk.reply("DSPANS", 200);
    show.waitForEnd();
    show.playAgain();
}

TEST(TerminalLeaves, UnderTheResultDialog) {
    TerminalLeaves show;
    toWait(show.desk);
    show.desk.click(ids::skip);
    show.desk.hear();
    show.desk.reply("REVISION", 200);
    show.desk.click(ids::skip);
    show.desk.hear();
    show.desk.script.expectDialog("IDD_KDL0601_CONFIRM_VECTORY", [&](platform::WindowHandle dialog) {
        show.expectEnd(true);
        show.leave(false);
        EXPECT_TRUE(driver::settleUntil([&] { return show.desk.stateName() == "START"; }, 3000));
        driver::click({dialog, 6102});
    });
    show.desk.reply("REVISION", 200);
    show.waitForEnd();
    show.playAgain();
}

TEST(TerminalLeaves, UnderTheRevisionDialog) {
    TerminalLeaves show;
    show.desk.script.expectDialog("IDD_KDL0104_REVISION", [&](platform::WindowHandle dialog) {
        show.expectEnd(false);
        show.leave(false);
        EXPECT_TRUE(driver::settleUntil([&] { return show.desk.stateName() == "START"; }, 3000));
        driver::click({dialog, 1440});
    });
    EXPECT_TRUE(show.desk.click(ids::revision));
    show.waitForEnd();
    EXPECT_EQ(host().userList[0].getName(), ""); // the ended session does not get its users back
    show.playAgain();
}

TEST(TerminalLeaves, UnderTheHistoryQuestion) {
    TerminalLeaves show;
    show.desk.playQuest();
    bool asked = false;
    show.desk.script.expectMessageBox(platform::Answer::No, [&](const std::string&) {
        asked = true;
        show.leave(false);
        driver::settle(); // asks no second time
    });
    EXPECT_TRUE(driver::chooseMenu(host().mainWindow, ids::endSession));
    EXPECT_TRUE(asked);
    show.waitForEnd();
    show.playAgain();
}

TEST(TerminalLeaves, UnderTheQuestionBeforeClosing) {
    TerminalLeaves show;
    show.desk.playQuest();
    show.desk.script.expectDialog("IDD_KDL0001_MESSAGE_BOX", [&](platform::WindowHandle question) {
        show.expectEnd(true); // the history is offered here, and not again for the answer below
        show.leave(false);
        EXPECT_TRUE(driver::settleUntil([&] { return show.desk.stateName() == "START"; }, 3000));
        EXPECT_TRUE(driver::click({question, 111})); // yes
    });
    driver::closeBox(host().mainWindow);
    EXPECT_TRUE(platform::isWindow(host().mainWindow));
    show.waitForEnd();
    show.playAgain();
}

// A terminal that hung wakes while the session is being ended: nothing starts again behind the question.
TEST(TerminalLeaves, NotButAnswersUnderTheHistoryQuestion) {
    struct Case {
        const char* what;
        std::function<void(Desk&)> go; // leaves a request of the host open
        const char* method;
        int code;
    };
    const Case cases[] = {
        {"lead-in",
         [](Desk& desk) {
             toWait(desk);
             desk.click(ids::skip);
             desk.hear();
             desk.reply("REVISION", 200);
             start(desk);
         },
         "STATUSNOTIFY", 301},
        {"play",
         [](Desk& desk) {
             toWait(desk);
             desk.click(ids::replay);
             desk.hear();
         },
         "STATUSNOTIFY", 302},
        {"answers", toDsp, "DSPANS", 200},
        {"revision",
         [](Desk& desk) {
             toWait(desk);
             desk.click(ids::skip);
             desk.hear();
         },
         "REVISION", 200},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        TerminalLeaves show;
        c.go(show.desk);
        ASSERT_EQ(host().vrmStatus, 1);
        show.desk.script.expectMessageBox(platform::Answer::No, [&](const std::string&) {
            show.desk.reply(c.method, c.code);
            show.desk.buzz(0);
        });
        EXPECT_TRUE(driver::chooseMenu(host().mainWindow, ids::endSession));
        EXPECT_EQ(show.desk.stateName(), "START");
        EXPECT_FALSE(host().questMedia[0].isPlaying());
        show.desk.pass(3000);
        EXPECT_EQ(show.desk.stateName(), "START");
        EXPECT_FALSE(host().effectMedia.isPlaying());
    }
}
