// What is heard of the player: the right part of the song, at the right speed, for the right time, and
// nothing while it is muted. In real time, through the window.

#include "host/state/host_state.h"
#include "playback/tonal_player.h"
#include "playback/tonal_player_ids.h"
#include "support/audience.h"
#include "support/form.h"
#include "support/heard_song.h"
#include "support/temporary_folder.h"

namespace {

namespace driver = platform::driver;

using namespace tonal_player;
using test_support::Form;
using test_support::melody;

class HeardPlayer : public testing::Test {
protected:
    HeardPlayer() {
        platform::setSoundDevice(audience.device());
        resetHost();
        zelkova::setMasterVolume(100);
        host().accesserResource.open(folder.file("ResourceData.xml"));
        DataResource song = test_support::heardSong(folder.file("song.mp3"));
        host().accesserResource.add(song);
        song.setTitle("無い曲"); // what follows is silence
        song.setFileName(folder.file("gone.mp3"));
        host().accesserResource.add(song);
    }
    ~HeardPlayer() override {
        resetHost();
        platform::setSoundDevice(nullptr);
    }

    void run(const std::function<void(Form)>& act) {
        driver::Script script;
        script.expectDialog(form, [&](Form window) {
            act(window);
            window.close();
        });
        dlgTonalPlayer({});
        EXPECT_THAT(script.faults(), testing::IsEmpty());
    }
    static void pass(int milliseconds) {
        driver::settleUntil([] { return false; }, milliseconds);
    }
    // The time until the song has given way to the one that is gone.
    static std::uint32_t playSong(Form window) {
        const std::uint32_t started = platform::getTickCount();
        window.click(idPlay);
        EXPECT_TRUE(driver::settleUntil([&] { return window.text(idTitle) == "無い曲"; }, 8000));
        return platform::getTickCount() - started;
    }

    test_support::TemporaryFolder folder;
    test_support::Audience audience;
};

TEST_F(HeardPlayer, TheChosenPartSoundsAndThenNothing) {
    run([&](Form window) {
        window.click(idFromAnswer);
        EXPECT_NEAR(playSong(window), 2000, 300);
        const std::uint32_t over = platform::getTickCount();
        pass(300);
        EXPECT_LT(static_cast<int>(audience.lastSound() - over), 150);
        EXPECT_NEAR(audience.toneAt(0), melody[2], 15); // not a moment of the song's beginning
        EXPECT_NEAR(audience.toneAt(400), melody[2], 15);
        EXPECT_NEAR(audience.toneAt(1400), melody[3], 15);
    });
}

TEST_F(HeardPlayer, OneSecondIsOneSecondAtEverySpeed) {
    run([&](Form window) {
        window.click(idOneSecond);
        window.slide(idSpeed, 200);
        EXPECT_NEAR(playSong(window), 1000, 300);
        pass(300);
        EXPECT_NEAR(audience.lastSound() - audience.firstSound(), 1000, 300);
        EXPECT_NEAR(audience.toneAt(200), 2 * melody[0], 30);
        EXPECT_NEAR(audience.toneAt(650), 2 * melody[1], 30);
    });
}

TEST_F(HeardPlayer, MutedIsSilent) {
    run([&](Form window) {
        window.click(idMute);
        window.click(idPlay);
        pass(500);
        EXPECT_EQ(audience.firstSound(), 0u);
        window.click(idMute);
        pass(1100);
        EXPECT_NE(audience.firstSound(), 0u);
        EXPECT_NEAR(audience.toneAt(100), melody[0], 15); // the song has gone on meanwhile
        EXPECT_NEAR(audience.toneAt(750), melody[1], 15);
    });
}

} // namespace
