// The terminal goes, politely or not, in each state and under each dialog. The session ends, nothing hangs,
// and the next session works.

#include <functional>

#include "e2e/desk.h"
#include "platform/window.h"

namespace {

using e2e::Desk;
using e2e::Form;
using e2e::stage;
namespace driver = platform::driver;

void closeBox(Form dialog) {
    dialog.key("Escape");
}

// The ways into the states; the last quest is the second.
void start(Desk& desk) {
    desk.click(ids::questStart);
    desk.hear();
}

void toPlay(Desk& desk) {
    desk.playQuest();
}

void toWait(Desk& desk) {
    desk.playQuest();
    desk.press(ids::stop, "WAIT");
}

void toPause(Desk& desk) {
    toWait(desk);
    desk.press(ids::pause, "PAUSE");
}

void toDsp(Desk& desk) {
    toWait(desk);
    desk.click(ids::noCorrect);
    desk.hear();
}

// A request is open: the reply ends the quest.
void toSkip(Desk& desk) {
    toWait(desk);
    desk.click(ids::skip);
    desk.hear();
}

void toLastSkip(Desk& desk) {
    toSkip(desk);
    desk.reply("REVISION", 200);
    desk.click(ids::skip);
    desk.hear();
}

void toEnd(Desk& desk) {
    toLastSkip(desk);
    desk.script.expectDialog(confirm_victory::form, closeBox);
    desk.reply("REVISION", 200);
    desk.hear();
    desk.reply("REVISION", 200);
}

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

    // It goes; the lost connection is told, and the history, if there is one, offered.
    void leave(bool reset, bool hasHistory) {
        desk.script.expectDialog(message_box::form, closeBox);
        if (hasHistory) desk.script.expectMessageBox(platform::Answer::No);
        if (reset)
            desk.peer->reset();
        else
            desk.peer->close();
        EXPECT_TRUE(driver::settleUntil([this] { return desk.stateName() == "START"; }, 3000));
    }

    // And the next session of the evening is played on the same port.
    void expectEnd() {
        EXPECT_EQ(desk.stateName(), "START");
        EXPECT_EQ(host().server, nullptr);
        EXPECT_EQ(host().vrmStatus, 0);
        EXPECT_FALSE(host().connectionFlg);
        EXPECT_EQ(host().userList[0].getName(), "");
        EXPECT_EQ(host().userList[0].getScore(), 0);
        EXPECT_EQ(host().userList[0].getType(), DataUserInfo().getType()) << "nothing has a result";
        EXPECT_TRUE(desk.script.done());
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
    const struct {
        const char* state;
        std::function<void(Desk&)> go;
        bool hasHistory = false;
    } roads[] = {
        {"ENABLE", [](Desk&) {}}, {"READY", start},     {"PLAY", toPlay, true}, {"WAIT", toWait, true},
        {"PAUSE", toPause, true}, {"DSP", toDsp, true}, {"END", toEnd, true},
    };
    for (const auto& road : roads)
        for (const bool reset : {false, true}) {
            SCOPED_TRACE(std::string(road.state) + (reset ? " reset" : " closed"));
            TerminalLeaves show;
            road.go(show.desk);
            ASSERT_EQ(show.desk.stateName(), road.state);
            show.leave(reset, road.hasHistory);
            show.expectEnd();
        }
}

TEST(TerminalLeaves, BeforeItHasNamedItsUsers) {
    TerminalLeaves show(false);
    ASSERT_EQ(show.desk.stateName(), "INIT");
    show.leave(false, false);
    show.expectEnd();
}

TEST(TerminalLeaves, InItsAnswerToARequest) {
    TerminalLeaves show;
    start(show.desk);
    show.desk.expectMessage(3000011);
    show.desk.reply("CLOSE", 202);
    show.expectEnd();
}

TEST(TerminalLeaves, UnderADialog) {
    const struct {
        const char* form;
        std::vector<int> buttons; // that lead out of it
        std::function<void(Desk&)> go, open;
        bool hasHistory = true, refused = false;
    } rows[] = {
        {answer_request::form,
         {answer_request::idVoid},
         toPlay,
         [](Desk& desk) { desk.buzz(0); },
         true,
         true},
        {answer_request::form,
         {answer_request::idRight, answer_request::idOk},
         toPlay,
         [](Desk& desk) { desk.buzz(0); },
         true,
         true},
        {answer_display::form, {answer_display::idOk}, toDsp, [](Desk& desk) { desk.reply("DSPANS", 200); }},
        {confirm_victory::form,
         {confirm_victory::idOk},
         toLastSkip,
         [](Desk& desk) { desk.reply("REVISION", 200); }},
        {revision::form,
         {revision::idOk},
         [](Desk&) {},
         [](Desk& desk) { desk.click(ids::revision); },
         false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.form);
        TerminalLeaves show;
        row.go(show.desk);
        show.desk.script.expectDialog(row.form, [&](Form dialog) {
            show.leave(false, row.hasHistory);
            // The judgement of a session that is over is refused.
            if (row.refused) show.desk.script.expectDialog(message_box::form, closeBox);
            for (const int button : row.buttons)
                dialog.click(button);
        });
        row.open(show.desk);
        show.expectEnd();
    }
}

TEST(TerminalLeaves, UnderTheHistoryQuestion) {
    TerminalLeaves show;
    show.desk.playQuest();
    bool asked = false;
    show.desk.script.expectMessageBox(platform::Answer::No, [&](const std::string&) {
        asked = true;
        show.desk.peer->close();
        driver::settle(); // asks no second time
    });
    EXPECT_TRUE(show.desk.choose(ids::endSession));
    EXPECT_TRUE(asked);
    show.expectEnd();
}

TEST(TerminalLeaves, UnderTheQuestionBeforeClosing) {
    TerminalLeaves show;
    show.desk.playQuest();
    show.desk.script.expectDialog(message_box::form, [&](Form question) {
        show.leave(false, true); // the history is offered here, and not again for the answer below
        question.click(message_box::idAnswer1);
    });
    driver::closeBox(host().mainWindow);
    EXPECT_TRUE(platform::isWindow(host().mainWindow));
    show.expectEnd();
}

// A terminal that hung wakes while the session is being ended: nothing starts again behind the question.
TEST(TerminalLeaves, NotButAnswersUnderTheHistoryQuestion) {
    const struct {
        const char* what;
        std::function<void(Desk&)> go; // leaves a request of the host open
        const char* method;
        int code;
    } rows[] = {
        {"lead-in",
         [](Desk& desk) {
             toWait(desk);
             desk.skip();
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
        {"revision", toSkip, "REVISION", 200},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        TerminalLeaves show;
        row.go(show.desk);
        ASSERT_EQ(host().vrmStatus, 1);
        show.desk.script.expectMessageBox(platform::Answer::No, [&](const std::string&) {
            show.desk.reply(row.method, row.code);
            show.desk.buzz(0);
        });
        EXPECT_TRUE(show.desk.choose(ids::endSession));
        EXPECT_EQ(show.desk.stateName(), "START");
        EXPECT_FALSE(host().questMedia[0].isPlaying());
        show.desk.pass(3000);
        EXPECT_EQ(show.desk.stateName(), "START");
        EXPECT_FALSE(host().effectMedia.isPlaying());
    }
}
