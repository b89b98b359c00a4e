#include "console/answer_display.h"
#include "console/desk.h"
#include "data/labels.h"
#include "host/state/console_ids.h"
#include "host/state/play_control.h"
#include "host/state/quest.h"
#include "platform/controls.h"
#include "platform/sound.h"
#include "support/test_sounds.h"

namespace {

using namespace console_tests;
namespace driver = platform::driver;
using platform::WindowHandle;

constexpr char name[] = "IDD_KDL0103_ANSWERDSP";

enum : int {
    idWinner = 1303,
    idAnswer1 = 1305,
    idVictimGroup = 1310,
    idVictim = 1311,
    idPlay = 1313,
    idStop = 1314,
    idOk = 1315,
    idEffect = 1317,
    idRange = 1320,
    idVolume = 1321,
    idVolumeText = 1322,
};

class AnswerDisplay : public Desk {
protected:
    void SetUp() override {
        std::string songs;
        for (int i = 0; i < maxSongs; ++i)
            songs += (i ? "," : "") + std::to_string(addSong("曲", "歌手"));
        DataSession stage = stageOf("段", 1, songs);
        openSession({stage});
        initResource();
        setUser(0, "甲");
        setUser(1, "乙", 0, userFalseStart);
        setUser(3, "丁", 0, userOut);
    }
    void setSteal() { host().sessionList[0].setSteal(0); }
    int run(int winner, const std::function<void(WindowHandle)>& act) {
        driver::Script script;
        script.expectDialog(name, act);
        const int result = dlgAnswerDisplay(window, winner);
        EXPECT_THAT(script, RanAsWritten());
        return result;
    }
    static void pressOk(WindowHandle dialog) { ASSERT_TRUE(driver::click({dialog, idOk})); }
};

TEST_F(AnswerDisplay, WithoutAStealThereIsOnlyOk) {
    const auto act = [](WindowHandle dialog) {
        EXPECT_EQ(platform::getText({dialog, idWinner}), "[2]乙");
        EXPECT_EQ(platform::getText({dialog, idAnswer1 + 3}), "曲");
        EXPECT_EQ(platform::getText({dialog, idRange}), "解答");
        EXPECT_FALSE(platform::isEnabled({dialog, idRange}));
        EXPECT_FALSE(platform::isEnabled({dialog, idVictim}));
        EXPECT_FALSE(platform::isEnabled({dialog, idVictimGroup})) << "with the words around the box";
        pressOk(dialog);
    };
    EXPECT_EQ(run(1, act), 1);
    EXPECT_EQ(run(1, [](WindowHandle dialog) { driver::pressKey(dialog, "Escape"); }), -2);
    EXPECT_EQ(run(1, [](WindowHandle dialog) { driver::closeBox(dialog); }), -2);
}

TEST_F(AnswerDisplay, AStealAsksForOneOfTheOthers) {
    setSteal();
    const int result = run(1, [](WindowHandle dialog) {
        // Everyone with a state but the winner, those who are out included.
        ASSERT_EQ(platform::itemCount({dialog, idVictim}), 2);
        EXPECT_EQ(platform::itemText({dialog, idVictim}, 0), "甲");
        EXPECT_EQ(platform::itemText({dialog, idVictim}, 1), "丁");
        EXPECT_FALSE(driver::click({dialog, idOk}));
        ASSERT_TRUE(driver::select({dialog, idVictim}, 1));
        EXPECT_EQ(platform::getText({dialog, idEffect}), "[丁]から[乙]へ[10]点 移動する");
        pressOk(dialog);
    });
    EXPECT_EQ(result, 3);
}

TEST_F(AnswerDisplay, AStealWithNobodyElseHasNoVictim) {
    setSteal();
    for (const int other : {0, 3})
        setUser(other, "", 0, userUnset);
    const int result = run(1, [](WindowHandle dialog) {
        ASSERT_EQ(platform::itemCount({dialog, idVictim}), 1);
        EXPECT_EQ(platform::itemText({dialog, idVictim}, 0), "NONE");
        ASSERT_TRUE(driver::select({dialog, idVictim}, 0));
        EXPECT_EQ(platform::getText({dialog, idEffect}), "");
        pressOk(dialog);
    });
    EXPECT_EQ(result, -1);
}

TEST_F(AnswerDisplay, NobodyRightAsksForNoVictim) {
    setSteal();
    const int result = run(-1, [](WindowHandle dialog) {
        EXPECT_EQ(platform::getText({dialog, idWinner}), "正解者なし");
        EXPECT_FALSE(platform::isEnabled({dialog, idVictim}));
        pressOk(dialog);
    });
    EXPECT_EQ(result, -1);
}

TEST_F(AnswerDisplay, ASingleAnswerPlaysItsRange) {
    run(0, [&](WindowHandle dialog) {
        ASSERT_TRUE(driver::click({dialog, idPlay}));
        EXPECT_EQ(host().questMedia[0].getPosition(), 500);
        EXPECT_FALSE(platform::isEnabled({dialog, idPlay}));
        clock.advance(800);
        EXPECT_EQ(host().questMedia[0].getPosition(), 1300);
        clock.advance(200); // the end of the answer range, and a tick
        EXPECT_TRUE(platform::isEnabled({dialog, idPlay}));
        EXPECT_FALSE(platform::isEnabled({dialog, idStop}));
        clock.advance(300);
        EXPECT_EQ(host().questMedia[0].getPosition(), 1500);
        pressOk(dialog);
    });
}

TEST_F(AnswerDisplay, AnAnswerIsHeardAtNormalSpeed) {
    const std::string file = folder.file("fast.mp3");
    ASSERT_TRUE(test_support::encode(file, test_support::tones({440, 880}), "lamemp3enc ! xingmux"));
    ASSERT_TRUE(host().questMedia[0].open(file));
    ASSERT_TRUE(host().questMedia[0].setSpeed(2000));
    run(0, [&](WindowHandle dialog) {
        ASSERT_TRUE(driver::click({dialog, idPlay}));
        clock.advance(400);
        EXPECT_NEAR(host().questMedia[0].getPosition(), 900, 60);
        pressOk(dialog);
    });
}

TEST_F(AnswerDisplay, SimultaneousAnswersFollowOneAnotherForEightSecondsEach) {
    host().sessionList[0].setMulti(maxSongs);
    host().dataSession.setMulti(maxSongs);
    questToSessionInfo(1, host().dataSession, host().dataResourceList);
    initResource();
    run(0, [&](WindowHandle dialog) {
        ASSERT_TRUE(driver::click({dialog, idPlay}));
        for (int song = 0; song < maxSongs; ++song) {
            clock.advance(400);
            for (int other = 0; other < maxSongs; ++other)
                EXPECT_EQ(host().questMedia[static_cast<std::size_t>(other)].getPosition() == 900,
                          other == song)
                    << song << " " << other;
            EXPECT_TRUE(platform::isEnabled({dialog, idStop}));
            clock.advance(8000 - 400);
        }
        EXPECT_FALSE(platform::isEnabled({dialog, idStop})) << "over after 40 seconds";
        pressOk(dialog);
    });
}

TEST_F(AnswerDisplay, ClosingStopsTheAnswers) {
    run(0, [&](WindowHandle dialog) {
        ASSERT_TRUE(driver::click({dialog, idPlay}));
        clock.advance(100);
        pressOk(dialog);
    });
    const int stopped = host().questMedia[0].getPosition();
    clock.advance(500);
    EXPECT_EQ(host().questMedia[0].getPosition(), stopped);
}

TEST_F(AnswerDisplay, ItsVolumeIsItsOwn) {
    const auto level = [] { return platform::soundDevice().masterVolume() & 0xFFFF; };
    const unsigned show = level();
    run(0, [&](WindowHandle dialog) {
        EXPECT_EQ(platform::getPosition({dialog, idVolume}), 50);
        ASSERT_TRUE(driver::slide({dialog, idVolume}, 20));
        EXPECT_EQ(platform::getText({dialog, idVolumeText}), "20");
        EXPECT_LT(level(), show);
        pressOk(dialog);
    });
    EXPECT_EQ(level(), show) << "the show goes on as loud as before";
    EXPECT_EQ(host().masterVolume, 50);
    run(0, [](WindowHandle dialog) {
        EXPECT_EQ(platform::getPosition({dialog, idVolume}), 20);
        pressOk(dialog);
    });
}

} // namespace
