// What is heard of a training quest: the part of the song that the settings tell, at their speed, until their
// limit, and nothing once the answer is asked for. In real time, through the window.

#include "host/state/host_state.h"
#include "support/audience.h"
#include "support/form.h"
#include "support/heard_song.h"
#include "support/temporary_folder.h"
#include "training/training_ids.h"
#include "training/training_mode.h"

namespace {

namespace driver = platform::driver;
using namespace training;
using test_support::Form;
using test_support::melody;

enum : int { oneSecond = 1, wholePart = 6, twice = 1 };

class HeardTraining : public testing::Test {
protected:
    HeardTraining() {
        platform::setSoundDevice(audience.device());
        resetHost();
        HostState& state = host();
        for (zelkova::Media& media : state.questMedia)
            media.create({});
        state.effectMedia.create({});
        state.bgmMedia.create({});
        state.accesserResource.open(folder.file("ResourceData.xml"));
        state.accesserResource.add(test_support::heardSong(folder.file("song.mp3")));
        state.trainingSession.setQuestNum(1);
        state.trainingSession.setMulti(1);
        state.trainingSession.setRange(rangeSabi);
    }
    ~HeardTraining() override {
        resetHost();
        platform::setSoundDevice(nullptr);
    }

    // Starts the quest and does `act` while it is under way.
    void train(int interval, int speed, const std::function<void()>& act) {
        host().trainingSession.setInterval(interval);
        host().trainingSession.setSpeed(speed);
        script.expectDialog(form, [&](Form dialog) {
            window = dialog;
            window.click(idStart);
            act();
            window.close();
        });
        dlgTrainingMode({}, [](platform::WindowHandle, DataSession&) { return 0; });
        EXPECT_THAT(script.faults(), testing::IsEmpty());
    }

    static void pass(int milliseconds) {
        driver::settleUntil([] { return false; }, milliseconds);
    }
    bool waitFor(const std::string& status) const {
        return driver::settleUntil([&] { return window.text(idStatus) == status; }, 8000);
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
    Form window;
};

TEST_F(HeardTraining, ThePartOfTheSongSounds) {
    train(wholePart, 0, [&] {
        EXPECT_NEAR(heardUntilTheEnd(), 2000, 300);
        EXPECT_NEAR(audience.toneAt(0), melody[2], 15); // not a moment of the song's beginning
        EXPECT_NEAR(audience.toneAt(400), melody[2], 15);
        EXPECT_NEAR(audience.toneAt(1400), melody[3], 15);
    });
}

TEST_F(HeardTraining, TheLimitCutsThePartAndCountsAnew) {
    train(oneSecond, 0, [&] {
        EXPECT_NEAR(heardUntilTheEnd(), 1000, 300);
        audience.forget();
        window.click(idReplay);
        EXPECT_NEAR(heardUntilTheEnd(), 1000, 300);
        EXPECT_NEAR(audience.toneAt(400), melody[2], 15) << "from the start of the part again";
    });
}

TEST_F(HeardTraining, TwiceTheSpeedIsTwiceThePitch) {
    train(wholePart, twice, [&] {
        EXPECT_NEAR(heardUntilTheEnd(), 1000, 300);
        EXPECT_NEAR(audience.toneAt(200), 2 * melody[2], 30);
        EXPECT_NEAR(audience.toneAt(700), 2 * melody[3], 30);
    });
}

TEST_F(HeardTraining, AnAnswerMakesSilence) {
    train(wholePart, 0, [&] {
        ASSERT_TRUE(waitFor("演奏中"));
        pass(500);
        EXPECT_NE(audience.firstSound(), 0u);
        script.expectDialog(answer_confirm::form, [this](Form dialog) {
            const std::uint32_t asked = platform::getTickCount();
            pass(500);
            EXPECT_LT(static_cast<int>(audience.lastSound() - asked), 150);
            dialog.close();
        });
        window.click(idAnswer);
    });
}

} // namespace
