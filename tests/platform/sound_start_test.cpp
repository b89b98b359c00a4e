// When songs begin, and what is known of them before the sound library has looked at them.
#include <array>
#include <chrono>
#include <cstdlib>

#include <gtest/gtest.h>

#include "platform/clock.h"
#include "platform/sound.h"
#include "support/temporary_folder.h"
#include "support/test_sounds.h"

namespace {

using namespace platform;
using namespace test_support;

TEST(SoundStart, SongsThatAreSoughtAndPlayedInOneBreathStartTogether) {
    const TemporaryFolder folder;
    const Samples song = tones({440, 520, 620, 740, 850, 970});
    writeWav(folder.path() / "a.wav", song);
    writeMidi(folder.path() / "b.mid", {69, 69, 69, 69, 69, 69, 69, 69}, 500'000, 1'000'000);
    ASSERT_TRUE(encode(folder.path() / "c.wma", song, "avenc_wmav2 ! asfmux"));
    ASSERT_TRUE(encode(folder.path() / "d.mp3", song, "lamemp3enc target=quality quality=4"));
    CaptureLog log;
    const auto device = makeGstreamerDevice(SoundOutput::Captured, log.function());
    std::array<std::unique_ptr<SoundPlayer>, 4> players;
    const char* names[] = {"a.wav", "b.mid", "c.wma", "d.mp3"};
    for (std::size_t i = 0; i < players.size(); ++i) {
        players[i] = device->createPlayer();
        ASSERT_TRUE(players[i]->open(folder.file(names[i])));
        players[i]->play();
        log.of(players[i].get(), 1);
    }
    for (int replay = 0; replay < 8; ++replay) {
        for (auto& player : players)
            player->stop();
        for (auto& player : players)
            player->seek(1000 + replay * 300);
        log.clear();
        for (auto& player : players)
            player->play();
        std::uint32_t first = 0xFFFFFFFF, last = 0;
        for (auto& player : players) {
            const std::uint32_t start = log.of(player.get(), 1).firstTick;
            first = std::min(first, start);
            last = std::max(last, start);
        }
        EXPECT_LE(last - first, 20u) << replay;
    }
}

TEST(SoundStart, ASeekBeyondASongLeadsToItsEnd) {
    const TemporaryFolder folder;
    writeWav(folder.path() / "song.wav", tones({440, 520}));
    CaptureLog log;
    const auto device = makeGstreamerDevice(SoundOutput::Captured, log.function());
    const auto player = device->createPlayer();
    for (const bool measured : {true, false}) {
        ASSERT_TRUE(player->open(folder.file("song.wav")));
        if (measured) {
            EXPECT_EQ(player->end(), 2000);
        }
        ASSERT_TRUE(player->seek(9000));
        EXPECT_EQ(player->end(), 2000);
        log.clear();
        ASSERT_TRUE(player->playReverse());
        const auto sound = log.of(player.get(), soundRate / 2);
        EXPECT_NEAR(strongestTone(sound.stereo, soundRate / 10, soundRate / 10), 520, 15);
        EXPECT_GT(loudness(sound.stereo, 0), 8000);
        player->stop();
    }
}

// The library looks at all its plugins when it has no list of them yet.
void openBeforeTheLibraryIsUp(const TemporaryFolder& folder) {
    ::setenv("GST_REGISTRY_1_0", folder.file("registry.bin").c_str(), 1);
    ::setenv("GST_REGISTRY_FORK", "no", 1);
    const auto device = makeGstreamerDevice(SoundOutput::Clocked);
    const auto player = device->createPlayer();
    player->open(folder.file("song.wav"));
    std::uint32_t before = getTickCount();
    const bool known = player->end() == 2000 && getTickCount() - before < 500;
    player->open(folder.file("head.wma")); // tells no length
    player->end();
    before = getTickCount();
    player->end();
    const bool waitsOnce = getTickCount() - before < 100;
    std::_Exit(known ? waitsOnce ? 0 : 2 : 1);
}

TEST(SoundStart, ALengthDoesNotWaitForTheLibrary) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    const TemporaryFolder folder;
    writeWav(folder.path() / "song.wav", tones({440, 520}));
    const char guid[] = "\x30\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\x00\xAA\x00\x62\xCE\x6C";
    writeBytes(folder.path() / "head.wma", std::string(guid, 16) + std::string(44, '\0'));
    EXPECT_EXIT(openBeforeTheLibraryIsUp(folder), testing::ExitedWithCode(0), "");
}

} // namespace
