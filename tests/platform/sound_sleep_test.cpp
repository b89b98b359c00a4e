// Songs on a disk that has to wake up first: nobody waits for it, and nothing is judged before it has
// answered.
#include <chrono>
#include <optional>

#include <gtest/gtest.h>

#include "platform/sound.h"
#include "support/sleeping_file.h"
#include "support/temporary_folder.h"
#include "support/test_sounds.h"

namespace {

using namespace platform;
using namespace test_support;

class SoundSleep : public testing::Test {
protected:
    // False where the file system cannot do that.
    bool putToSleep() {
        disk.emplace(song);
        return disk->sleeps();
    }
    // Milliseconds that it takes.
    template <class Work>
    static std::int64_t timed(const Work& work) {
        const auto start = std::chrono::steady_clock::now();
        work();
        return std::chrono::round<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start)
            .count();
    }

    const TemporaryFolder folder;
    const std::string song = folder.file("song.wav");
    std::optional<SleepingFile> disk;
    const std::unique_ptr<SoundDevice> device = makeGstreamerDevice(SoundOutput::Clocked);
    const std::unique_ptr<SoundPlayer> player = device->createPlayer();
};

TEST_F(SoundSleep, ASongIsMeasuredWhenItsDiskIsAwake) {
    writeWav(song, tones({440, 550}));
    if (!putToSleep()) GTEST_SKIP();
    EXPECT_LT(timed([&] { EXPECT_TRUE(player->open(song)); }), 600);
    EXPECT_LT(timed([&] { EXPECT_TRUE(player->isMeasuring(0)); }), 100);
    EXPECT_TRUE(player->seek(500));
    EXPECT_TRUE(player->play());
    EXPECT_EQ(player->position(), 500);
    EXPECT_LT(timed([&] { EXPECT_EQ(player->end(), 0); }), 1500);
    EXPECT_LT(timed([&] { EXPECT_EQ(player->end(), 0); }), 100) << "a second from its opening, not each time";
    EXPECT_TRUE(player->isMeasuring(50));
    disk.reset();
    EXPECT_FALSE(player->isMeasuring(5000));
    EXPECT_EQ(player->end(), 2000);
}

TEST_F(SoundSleep, ATextTurnsOutToHaveNoLength) {
    writeBytes(song, "This is not a song.");
    if (!putToSleep()) GTEST_SKIP();
    EXPECT_TRUE(player->open(song));
    EXPECT_TRUE(player->isMeasuring(0));
    disk.reset();
    EXPECT_FALSE(player->isMeasuring(5000));
    EXPECT_EQ(player->end(), 0);
    EXPECT_FALSE(player->open(song)) << "awake, it is seen at once";
    EXPECT_FALSE(player->isMeasuring(0));
}

TEST_F(SoundSleep, ASongDoesNotKeepAnotherWaiting) {
    writeWav(song, tones({440, 550}));
    if (!putToSleep()) GTEST_SKIP();
    EXPECT_TRUE(player->open(song));
    writeWav(folder.path() / "other.wav", tones({440}));
    const std::unique_ptr<SoundPlayer> other = device->createPlayer();
    EXPECT_TRUE(other->open(folder.file("other.wav")));
    EXPECT_FALSE(other->isMeasuring(5000));
    EXPECT_EQ(other->end(), 1000);
}

} // namespace
