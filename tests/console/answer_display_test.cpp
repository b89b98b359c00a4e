#include "console/answer_display.h"

#include "console/desk.h"
#include "host/state/answer_display_ids.h"
#include "host/state/play_control.h"
#include "host/state/quest.h"
#include "platform/sound.h"
#include "support/test_sounds.h"

namespace {

using namespace console_tests;
using namespace answer_display;
using testing::ElementsAre;
using testing::IsEmpty;

class AnswerDisplay : public Desk {
protected:
    void SetUp() override {
        for (int i = 0; i < maxSongs; ++i)
            addSong("曲", "歌手");
        openSession({stage({.name = "段", .songs = "1,2,3,4,5"})});
        initResource();
        setUser(0, "甲");
        setUser(1, "乙", 0, userFalseStart);
        setUser(3, "丁", 0, userOut);
    }
    static void setSteal() { host().sessionList[0].setSteal(stealByName); }
    int run(int winner, const std::function<void(Form)>& act) {
        return answer(
            form, [&] { return dlgAnswerDisplay(window, winner); }, act);
    }
    // Of the box with the users that may lose their points.
    static std::vector<std::string> victims(Form dialog) {
        std::vector<std::string> names;
        for (int i = 0; i < platform::itemCount(dialog[idVictim]); ++i)
            names.push_back(platform::itemText(dialog[idVictim], i));
        return names;
    }
    static int place() { return host().questMedia[0].getPosition(); }
};

TEST_F(AnswerDisplay, WithoutAStealThereIsOnlyOk) {
    EXPECT_EQ(run(1,
                  [](Form dialog) {
                      EXPECT_THAT(dialog.texts({idWinner, idAnswer1 + 3, idRange}),
                                  ElementsAre("[2]乙", "曲", "解答"));
                      EXPECT_THAT(dialog.liveOf({idRange, idVictim, idVictimGroup}), IsEmpty());
                      dialog.click(idOk);
                  }),
              1);
    EXPECT_EQ(run(1, [](Form dialog) { dialog.key("Escape"); }), -2);
    EXPECT_EQ(run(1, [](Form dialog) { dialog.close(); }), -2);
}

TEST_F(AnswerDisplay, AStealAsksForOneOfTheOthers) {
    setSteal();
    EXPECT_EQ(run(1,
                  [](Form dialog) {
                      EXPECT_THAT(victims(dialog), ElementsAre("甲", "丁")) << "also who is out";
                      EXPECT_FALSE(dialog.live(idOk));
                      dialog.select(idVictim, 1);
                      EXPECT_EQ(dialog.text(idEffect), "[丁]から[乙]へ[10]点 移動する");
                      dialog.click(idOk);
                  }),
              3);
}

TEST_F(AnswerDisplay, AStealWithNobodyElseHasNoVictim) {
    setSteal();
    for (const int other : {0, 3})
        setUser(other, "", 0, userUnset);
    EXPECT_EQ(run(1,
                  [](Form dialog) {
                      EXPECT_THAT(victims(dialog), ElementsAre("NONE"));
                      dialog.select(idVictim, 0);
                      EXPECT_EQ(dialog.text(idEffect), "");
                      dialog.click(idOk);
                  }),
              -1);
}

TEST_F(AnswerDisplay, NobodyRightAsksForNoVictim) {
    setSteal();
    EXPECT_EQ(run(-1,
                  [](Form dialog) {
                      EXPECT_EQ(dialog.text(idWinner), "正解者なし");
                      EXPECT_FALSE(dialog.live(idVictim));
                      dialog.click(idOk);
                  }),
              -1);
}

TEST_F(AnswerDisplay, ASingleAnswerPlaysItsRangeUntilItIsClosed) {
    run(0, [&](Form dialog) {
        dialog.click(idPlay);
        EXPECT_EQ(place(), 500);
        EXPECT_FALSE(dialog.live(idPlay));
        clock.advance(800);
        EXPECT_EQ(place(), 1300);
        clock.advance(200); // the end of the answer range, and a tick
        EXPECT_TRUE(dialog.live(idPlay));
        EXPECT_FALSE(dialog.live(idStop));
        clock.advance(300);
        EXPECT_EQ(place(), 1500);
        dialog.click(idPlay);
        clock.advance(100);
        dialog.click(idOk);
    });
    clock.advance(500);
    EXPECT_EQ(place(), 600);
}

TEST_F(AnswerDisplay, AnAnswerIsHeardAtNormalSpeed) {
    const std::string file = folder.file("fast.mp3");
    ASSERT_TRUE(test_support::encode(file, test_support::tones({440, 880}), "lamemp3enc ! xingmux"));
    ASSERT_TRUE(host().questMedia[0].open(file));
    ASSERT_TRUE(host().questMedia[0].setSpeed(2000));
    run(0, [&](Form dialog) {
        dialog.click(idPlay);
        clock.advance(400);
        EXPECT_NEAR(place(), 900, 60);
        dialog.click(idOk);
    });
}

TEST_F(AnswerDisplay, SimultaneousAnswersFollowOneAnotherForEightSecondsEach) {
    host().sessionList[0].setMulti(maxSongs);
    host().dataSession.setMulti(maxSongs);
    questToSessionInfo(1, host().dataSession, host().dataResourceList);
    initResource();
    run(0, [&](Form dialog) {
        dialog.click(idPlay);
        for (int song = 0; song < maxSongs; ++song) {
            clock.advance(400);
            for (int other = 0; other < maxSongs; ++other)
                EXPECT_EQ(host().questMedia[static_cast<std::size_t>(other)].getPosition() == 900,
                          other == song)
                    << song << " " << other;
            EXPECT_TRUE(dialog.live(idStop));
            clock.advance(8000 - 400);
        }
        EXPECT_FALSE(dialog.live(idStop)) << "over after 40 seconds";
        dialog.click(idOk);
    });
}

TEST_F(AnswerDisplay, ItsVolumeIsItsOwn) {
    const auto level = [] { return platform::soundDevice().masterVolume() & 0xFFFF; };
    const unsigned show = level();
    run(0, [&](Form dialog) {
        EXPECT_EQ(dialog.place(idVolume), 50);
        dialog.slide(idVolume, 20);
        EXPECT_EQ(dialog.text(idVolumeText), "20");
        EXPECT_LT(level(), show);
        dialog.click(idOk);
    });
    EXPECT_EQ(level(), show) << "the show goes on as loud as before";
    EXPECT_EQ(host().masterVolume, 50);
    run(0, [&](Form dialog) {
        EXPECT_EQ(dialog.place(idVolume), 20);
        EXPECT_EQ(level(), show) << "what still sounds of the verdict";
        dialog.click(idPlay);
        EXPECT_LT(level(), show);
        dialog.click(idStop);
        EXPECT_EQ(level(), show);
        dialog.click(idOk);
    });
}

} // namespace
