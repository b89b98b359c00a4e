#include "console/answer_request.h"
#include "console/desk.h"
#include "data/labels.h"
#include "host/state/console_ids.h"
#include "platform/controls.h"
#include "support/test_sounds.h"

namespace {

using namespace console_tests;
namespace driver = platform::driver;
using platform::WindowHandle;

constexpr char name[] = "IDD_KDL0102_REQUEST";

enum : int {
    idUser = 1202,
    idRight = 1204,
    idWrong = 1206,
    idEffect = 1209,
    idOk = 1211,
    idVoid = 1212,
    idAnswer1 = 1213,
    idCheer = 1219,
    idHurry = 1222,
    idPause = 1223,
    idTimeUp = 1226,
    idVolume = 1229,
    idVolumeText = 1230,
};

class AnswerRequest : public Desk {
protected:
    void SetUp() override {
        openSession({stageOf("段", 1, std::to_string(addSong("曲", "歌手")))});
        setUser(1, "乙");
    }
    int run(const std::function<void(WindowHandle)>& act) {
        driver::Script script;
        script.expectDialog(name, act);
        const int result = static_cast<int>(dlgAnswerRequest(window, 1));
        EXPECT_THAT(script, RanAsWritten());
        return result;
    }
};

TEST_F(AnswerRequest, EachWayOutHasItsResult) {
    const auto ok = [](int radio, bool cheer) {
        return [=](WindowHandle dialog) {
            platform::setChecked({dialog, idCheer}, cheer);
            EXPECT_FALSE(driver::click({dialog, idOk})) << "no verdict yet";
            ASSERT_TRUE(driver::click({dialog, radio}));
            ASSERT_TRUE(driver::click({dialog, idOk}));
        };
    };
    const auto press = [](int button) {
        return [=](WindowHandle dialog) {
            driver::click({dialog, idRight});
            ASSERT_TRUE(driver::click({dialog, button}));
        };
    };
    EXPECT_EQ(run(ok(idRight, false)), 1);
    EXPECT_EQ(run(ok(idRight, true)), 2);
    EXPECT_EQ(run(ok(idWrong, true)), 3);
    EXPECT_EQ(run(ok(idTimeUp, false)), 4);
    EXPECT_EQ(run(press(idVoid)), -1);
    EXPECT_EQ(run(press(idPause)), -2);
    EXPECT_EQ(run([](WindowHandle dialog) {
                  driver::click({dialog, idRight});
                  driver::closeBox(dialog);
              }),
              -1);
    EXPECT_EQ(run([](WindowHandle dialog) { driver::pressKey(dialog, "Escape"); }), -1);
}

TEST_F(AnswerRequest, ShowsWhoAskedAndWhatIsRight) {
    platform::setText(console(ids::points), "70");
    run([](WindowHandle dialog) {
        EXPECT_EQ(platform::getText({dialog, idUser}), "[2]乙");
        EXPECT_EQ(platform::getText({dialog, idAnswer1 + 1}), "歌手");
        EXPECT_EQ(platform::getText({dialog, idAnswer1 + 3}), "曲");
        EXPECT_EQ(platform::getTextColor({dialog, idTimeUp}), (platform::Color{215, 75, 100}));
        driver::click({dialog, idRight});
        EXPECT_EQ(platform::getText({dialog, idEffect}), "[乙]へ[70]点 加算する");
        driver::pressKey(dialog, "Escape");
    });
}

TEST_F(AnswerRequest, SimultaneousSongsHaveOneLineEach) {
    DataSession& stage = host().sessionList[0];
    stage.setMulti(2);
    stage.setResourceId(std::to_string(addSong("Ａ", "ａ")) + "," + std::to_string(addSong("Ｂ", "ｂ")));
    run([](WindowHandle dialog) {
        EXPECT_EQ(platform::getText({dialog, idAnswer1}), "Ａ(ａ)");
        EXPECT_EQ(platform::getText({dialog, idAnswer1 + 1}), "Ｂ(ｂ)");
        EXPECT_EQ(platform::getText({dialog, idAnswer1 + 2}), "");
        driver::pressKey(dialog, "Escape");
    });
}

TEST_F(AnswerRequest, KeepsTheCheerAndTheVolumeForTheNextBuzz) {
    run([](WindowHandle dialog) {
        ASSERT_TRUE(driver::click({dialog, idCheer}));
        ASSERT_TRUE(driver::slide({dialog, idVolume}, 80));
        EXPECT_EQ(platform::getText({dialog, idVolumeText}), "80");
        ASSERT_TRUE(driver::click({dialog, idVoid}));
    });
    EXPECT_TRUE(host().dataApplication.getCheerFlg());
    EXPECT_EQ(host().masterVolume, 80);
    EXPECT_EQ(consoleText(ids::volumeText), "80");
    EXPECT_EQ(platform::getPosition(console(ids::volume)), 80);
    run([](WindowHandle dialog) {
        EXPECT_TRUE(platform::isChecked({dialog, idCheer}));
        EXPECT_EQ(platform::getPosition({dialog, idVolume}), 80);
        driver::pressKey(dialog, "Escape");
    });
}

TEST_F(AnswerRequest, HurriesWithASoundThatEndsWithTheDialog) {
    const std::string file = folder.file("hurry.wav");
    test_support::writeWav(file, test_support::tones({440, 880}));
    host().dataApplication.setEfcWrnAnswer(file);
    run([&](WindowHandle dialog) {
        EXPECT_EQ(sound.playing(file), 0);
        ASSERT_TRUE(driver::click({dialog, idHurry}));
        EXPECT_EQ(sound.playing(file), 1);
        ASSERT_TRUE(driver::click({dialog, idHurry}));
        EXPECT_EQ(sound.playing(file), 1) << "from the start again";
        driver::pressKey(dialog, "Escape");
    });
    EXPECT_EQ(sound.playing(file), 0);
}

} // namespace
