// What is heard of a training quest: the part of the song that the settings tell, at their speed, until their
// limit, and nothing once the answer is asked for. In real time, through the window.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/labels.h"
#include "host/state/host_state.h"
#include "platform/driver.h"
#include "support/audience.h"
#include "support/temporary_folder.h"
#include "support/test_sounds.h"
#include "training/training_mode.h"

namespace {

namespace driver = platform::driver;
using platform::WindowHandle;

// Each second of the song has a tone of its own.
const std::vector<double> melody = {440, 520, 620, 740, 850, 970};

enum : int { idStatus = 9103, idStart = 9112, idReplay = 9115, idAnswer = 9118 };
enum : int { oneSecond = 1, wholePart = 6, twice = 1 };

class HeardTraining : public testing::Test {
protected:
    HeardTraining() {
        platform::setSoundDevice(platform::makeGstreamerDevice(
            platform::SoundOutput::Captured,
            [this](const platform::CapturedBlock& block) { audience.hear(block); }));
        resetHost();
        HostState& state = host();
        for (zelkova::Media& media : state.questMedia)
            media.create({});
        state.effectMedia.create({});
        state.bgmMedia.create({});
        state.accesserResource.open(folder.file("ResourceData.xml"));
        DataResource song;
        song.setFileName(folder.file("song.mp3"));
        song.setFileType(fileTypeMp3);
        song.setLength(60);
        song.setSabiStart(20);
        song.setSabiEnd(40);
        EXPECT_TRUE(test_support::encode(song.getFileName(), test_support::tones(melody),
                                         "lamemp3enc target=quality quality=4"));
        state.accesserResource.add(song);
        state.trainingSession.setQuestNum(1);
        state.trainingSession.setMulti(1);
        state.trainingSession.setRange(rangeSabi);
    }
    ~HeardTraining() override {
        resetHost();
        platform::setSoundDevice(nullptr);
    }

    void train(int interval, int speed, const std::function<void()>& act) {
        host().trainingSession.setInterval(interval);
        host().trainingSession.setSpeed(speed);
        script.expectDialog("IDD_KDL0901_TRAINING_MODE", [&](WindowHandle dialog) {
            window = dialog;
            act();
            driver::closeBox(dialog);
        });
        dlgTrainingMode({}, [](WindowHandle, DataSession&) { return 0; });
        EXPECT_THAT(script.faults(), testing::IsEmpty());
    }

    static void pass(int milliseconds) {
        driver::settleUntil([] { return false; }, milliseconds);
    }
    bool waitFor(const std::string& status) const {
        return driver::settleUntil([&] { return platform::getText({window, idStatus}) == status; }, 8000);
    }
    // The time from the first sound until the window says that the songs have stopped.
    int heardUntilTheEnd() {
        EXPECT_TRUE(waitFor("演奏中"));
        EXPECT_TRUE(waitFor("出題中"));
        const std::uint32_t over = platform::getTickCount();
        pass(300);
        EXPECT_LT(static_cast<int>(audience.lastSound() - over), 150) << "and then nothing";
        return static_cast<int>(over - audience.firstSound());
    }

    test_support::TemporaryFolder folder;
    test_support::Audience audience;
    driver::Script script;
    WindowHandle window;
};

TEST_F(HeardTraining, ThePartOfTheSongSounds) {
    train(wholePart, 0, [&] {
        driver::click({window, idStart});
        EXPECT_NEAR(heardUntilTheEnd(), 2000, 300);
        EXPECT_NEAR(audience.toneAt(0), melody[2], 15); // not a moment of the song's beginning
        EXPECT_NEAR(audience.toneAt(400), melody[2], 15);
        EXPECT_NEAR(audience.toneAt(1400), melody[3], 15);
    });
}

TEST_F(HeardTraining, TheLimitCutsThePartAndCountsAnew) {
    train(oneSecond, 0, [&] {
        driver::click({window, idStart});
        EXPECT_NEAR(heardUntilTheEnd(), 1000, 300);
        audience.forget();
        driver::click({window, idReplay});
        EXPECT_NEAR(heardUntilTheEnd(), 1000, 300);
        EXPECT_NEAR(audience.toneAt(400), melody[2], 15) << "from the start of the part again";
    });
}

TEST_F(HeardTraining, TwiceTheSpeedIsTwiceThePitch) {
    train(wholePart, twice, [&] {
        driver::click({window, idStart});
        EXPECT_NEAR(heardUntilTheEnd(), 1000, 300);
        EXPECT_NEAR(audience.toneAt(200), 2 * melody[2], 30);
        EXPECT_NEAR(audience.toneAt(700), 2 * melody[3], 30);
    });
}

TEST_F(HeardTraining, AnAnswerMakesSilence) {
    train(wholePart, 0, [&] {
        driver::click({window, idStart});
        ASSERT_TRUE(waitFor("演奏中"));
        pass(500);
        EXPECT_NE(audience.firstSound(), 0u);
        script.expectDialog("IDD_KDL0902_ANSWER_CONFIRM", [this](WindowHandle dialog) {
            const std::uint32_t asked = platform::getTickCount();
            pass(500);
            EXPECT_LT(static_cast<int>(audience.lastSound() - asked), 150);
            driver::closeBox(dialog);
        });
        driver::click({window, idAnswer});
    });
}

} // namespace
