#include "console/answer_request.h"

#include "console/desk.h"
#include "console/dialog_ids.h"
#include "host/state/console_ids.h"
#include "support/test_sounds.h"

namespace {

using namespace console_tests;
using namespace answer_request;
using testing::ElementsAre;

class AnswerRequest : public Desk {
protected:
    void SetUp() override {
        addSong("曲", "歌手");
        openSession({stage({.name = "段", .songs = "1"})});
        setUser(1, "乙");
    }
    int run(const std::function<void(Form)>& act) {
        return answer(
            form, [&] { return static_cast<int>(dlgAnswerRequest(window, 1)); }, act);
    }
};

TEST_F(AnswerRequest, EachWayOutHasItsResult) {
    const struct {
        int radio;
        bool cheer;
        int result;
    } verdicts[] = {{idRight, false, 1}, {idRight, true, 2}, {idWrong, true, 3}, {idTimeUp, false, 4}};
    for (const auto& verdict : verdicts)
        EXPECT_EQ(run([&](Form dialog) {
                      platform::setChecked(dialog[idCheer], verdict.cheer);
                      EXPECT_FALSE(dialog.live(idOk)) << "no verdict yet";
                      dialog.click(verdict.radio);
                      dialog.click(idOk);
                  }),
                  verdict.result);
    const std::pair<std::function<void(Form)>, int> others[] = {
        {[](Form dialog) { dialog.click(idVoid); }, -1},
        {[](Form dialog) { dialog.click(idPause); }, -2},
        {[](Form dialog) { dialog.close(); }, -1},
        {[](Form dialog) { dialog.key("Escape"); }, -1},
    };
    for (const auto& [leave, result] : others)
        EXPECT_EQ(run([&, go = leave](Form dialog) {
                      dialog.click(idRight);
                      go(dialog);
                  }),
                  result);
}

// A buzz comes while the host's finger is still on a key.
TEST_F(AnswerRequest, AKeyThatIsHeldJudgesNothing) {
    const auto hold = [](Form dialog) {
        for (const char* key : {"Return", "Escape", "Space"})
            driver::repeatKey(dialog, key);
        EXPECT_TRUE(platform::isVisible(platform::WindowHandle(dialog)));
    };
    EXPECT_EQ(run([&](Form dialog) {
                  hold(dialog);
                  EXPECT_FALSE(dialog.live(idOk)) << "no verdict yet";
                  dialog.click(idWrong);
                  hold(dialog);
                  EXPECT_TRUE(dialog.checked(idWrong));
                  dialog.key("Return");
              }),
              3);
}

TEST_F(AnswerRequest, ShowsWhoAskedAndWhatIsRight) {
    platform::setText(console()[ids::points], "70");
    run([](Form dialog) {
        EXPECT_THAT(dialog.texts({idUser, idAnswer1 + 1, idAnswer1 + 3}), ElementsAre("[2]乙", "歌手", "曲"));
        EXPECT_EQ(platform::getTextColor(dialog[idTimeUp]), (platform::Color{215, 75, 100}));
        dialog.click(idRight);
        EXPECT_EQ(dialog.text(idEffect), "[乙]へ[70]点 加算する");
        dialog.key("Escape");
    });
}

TEST_F(AnswerRequest, SimultaneousSongsHaveOneLineEach) {
    addSong("Ａ", "ａ");
    addSong("Ｂ", "ｂ");
    host().sessionList[0] = stage({.name = "段", .multi = 2, .songs = "2,3"});
    run([](Form dialog) {
        EXPECT_THAT(dialog.texts({idAnswer1, idAnswer1 + 1, idAnswer1 + 2}),
                    ElementsAre("Ａ(ａ)", "Ｂ(ｂ)", ""));
        dialog.key("Escape");
    });
}

TEST_F(AnswerRequest, KeepsTheCheerAndTheVolumeForTheNextBuzz) {
    run([](Form dialog) {
        dialog.click(idCheer);
        dialog.slide(idVolume, 80);
        EXPECT_EQ(dialog.text(idVolumeText), "80");
        dialog.click(idVoid);
    });
    EXPECT_TRUE(host().dataApplication.getCheerFlg());
    EXPECT_EQ(host().masterVolume, 80);
    EXPECT_EQ(console().text(ids::volumeText), "80");
    EXPECT_EQ(console().place(ids::volume), 80);
    run([](Form dialog) {
        EXPECT_TRUE(dialog.checked(idCheer));
        EXPECT_EQ(dialog.place(idVolume), 80);
        dialog.key("Escape");
    });
}

TEST_F(AnswerRequest, HurriesWithASoundThatEndsWithTheDialog) {
    const std::string file = folder.file("hurry.wav");
    test_support::writeSilence(file, 2000);
    host().dataApplication.setEfcWrnAnswer(file);
    run([&](Form dialog) {
        EXPECT_EQ(sound.playing(file), 0);
        dialog.click(idHurry);
        EXPECT_EQ(sound.playing(file), 1);
        dialog.click(idHurry);
        EXPECT_EQ(sound.playing(file), 1) << "from the start again";
        dialog.key("Escape");
    });
    EXPECT_EQ(sound.playing(file), 0);
}

} // namespace
