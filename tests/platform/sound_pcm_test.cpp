// What would have reached the loudspeaker: the right part of a song, at the right speed and volume, from the
// play to the stop.
#include <algorithm>
#include <array>
#include <chrono>
#include <thread>

#include <gtest/gtest.h>

#include "platform/clock.h"
#include "platform/files.h"
#include "platform/sound.h"
#include "support/temporary_folder.h"
#include "support/test_sounds.h"

namespace {

using namespace platform;
using namespace test_support;

// Far enough apart that the double and the half of none is another.
const std::vector<double> melody = {440, 520, 620, 740, 850, 970};
constexpr int second = 1000;
constexpr std::size_t tenth = soundRate / 10; // frames

void sleepMs(int milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

class SoundPcm : public testing::Test {
protected:
    std::string wav(const std::string& name, const std::vector<double>& hertz) {
        writeWav(folder_.path() / name, tones(hertz));
        return folder_.file(name);
    }
    std::string mp3(const std::string& name, const std::vector<double>& hertz) {
        EXPECT_TRUE(encode(folder_.path() / name, tones(hertz), "lamemp3enc target=quality quality=4"));
        return folder_.file(name);
    }
    // Plays from there and returns at least so many frames of it.
    CaptureLog::Sound hear(SoundPlayer& player, int from, std::size_t frames) {
        player.seek(from);
        log_.clear();
        player.play();
        CaptureLog::Sound sound = log_.of(&player, frames);
        player.stop();
        EXPECT_GE(sound.frames(), frames);
        return sound;
    }

    TemporaryFolder folder_;
    CaptureLog log_;
    std::unique_ptr<SoundDevice> device_ = makeGstreamerDevice(SoundOutput::Captured, log_.function());
    std::unique_ptr<SoundPlayer> player_ = device_->createPlayer();
};

TEST_F(SoundPcm, AnySeekIsHeardExactlyInEveryKindOfFile) {
    const struct {
        const char* name;
        const char* elements; // none: the WAV itself
        int tolerance;        // milliseconds; coders shift the sound by a frame or so
    } kinds[] = {
        {"song.wav", nullptr, 1},
        {"cbr.mp3", "lamemp3enc target=bitrate cbr=true bitrate=128 ! xingmux", 60},
        {"cbr-bare.mp3", "lamemp3enc target=bitrate cbr=true bitrate=64", 60},
        {"vbr.mp3", "lamemp3enc target=quality quality=4 ! xingmux", 60},
        {"vbr-bare.mp3", "lamemp3enc target=quality quality=4", 60},
        {"song.wma", "avenc_wmav2 ! asfmux", 60},
    };
    // The first half is easy to encode and the second hard, so that bytes tell nothing about time.
    Samples song = tones({melody[0], melody[1], melody[2]});
    const Samples rest = noisyTones({melody[3], melody[4], melody[5]});
    song.insert(song.end(), rest.begin(), rest.end());

    for (const auto& [name, elements, tolerance] : kinds) {
        SCOPED_TRACE(name);
        if (elements)
            ASSERT_TRUE(encode(folder_.path() / name, song, elements));
        else
            writeWav(folder_.path() / name, song);
        ASSERT_TRUE(player_->open(folder_.file(name)));
        EXPECT_NEAR(player_->end(), 6 * second, 100);
        for (const int place : {0, 4, 1, 3}) {
            // From shortly before one tone ends to shortly after the next began.
            const int margin = tolerance + 60;
            const auto sound = hear(*player_, (place + 1) * second - margin,
                                    static_cast<std::size_t>(2 * margin) * soundRate / second);
            const auto window = static_cast<std::size_t>(50 * soundRate / second);
            const auto after = static_cast<std::size_t>((margin + tolerance) * soundRate / second);
            EXPECT_NEAR(strongestTone(sound.stereo, 0, window), melody[static_cast<std::size_t>(place)], 15)
                << place;
            EXPECT_NEAR(strongestTone(sound.stereo, after, window),
                        melody[static_cast<std::size_t>(place) + 1], 15)
                << place;
        }
    }
}

TEST_F(SoundPcm, MidiFilesAreSynthesised) {
    // A4 and A5, a second each, at a tempo that halves.
    writeMidi(folder_.path() / "song.mid", {69, 69, 81}, 500'000, 1'000'000);
    ASSERT_TRUE(player_->open(folder_.file("song.mid")));
    EXPECT_EQ(player_->end(), 500 + 2 * 1000);
    EXPECT_GT(loudness(hear(*player_, 100, 3 * tenth).stereo, 0), 300);
    EXPECT_GT(loudness(hear(*player_, 1700, 5 * tenth).stereo, 0), 300);
}

TEST_F(SoundPcm, PitchFollowsSpeed) {
    ASSERT_TRUE(player_->open(wav("song.wav", {500, 500, 500})));
    for (const int speed : {2000, 1500, 750, 500, 1000}) {
        ASSERT_TRUE(player_->setSpeed(speed));
        const auto sound = hear(*player_, 200, 2 * tenth);
        EXPECT_NEAR(strongestTone(sound.stereo, tenth / 2, tenth), 500.0 * speed / 1000, 6) << speed;
        EXPECT_NEAR(loudness(sound.stereo, 0), 32767 / 2 * 0.707, 200) << speed;
    }
}

TEST_F(SoundPcm, VolumesAreFactorsAndActAtOnce) {
    ASSERT_TRUE(player_->open(wav("song.wav", {500, 500, 500, 500})));
    const auto full = hear(*player_, 0, tenth);
    EXPECT_NEAR(loudness(full.stereo, 0), 32767 / 2 * 0.707, 200);

    player_->setVolume(500);
    device_->setMasterVolume(0x3FFF'FFFF);
    const auto lower = hear(*player_, 0, tenth);
    EXPECT_NEAR(loudness(lower.stereo, 0) / loudness(full.stereo, 0), 0.5, 0.01);
    EXPECT_NEAR(loudness(lower.stereo, 1) / loudness(full.stereo, 1), 0.125, 0.01);

    player_->seek(0);
    player_->play();
    log_.of(player_.get(), tenth);
    device_->setMasterVolume(0);
    sleepMs(30);
    log_.clear();
    const auto none = log_.of(player_.get(), tenth);
    EXPECT_GE(none.frames(), tenth) << "the song goes on";
    EXPECT_EQ(loudness(none.stereo, 0), 0);
}

TEST_F(SoundPcm, AStopIsSilenceAndAPlayIsSound) {
    ASSERT_TRUE(player_->open(mp3("song.mp3", melody)));
    hear(*player_, second, tenth); // prepared from here on
    for (int round = 0; round < 3; ++round) {
        player_->seek(2 * second);
        sleepMs(150);
        log_.clear();
        const std::uint32_t played = getTickCount();
        player_->play();
        log_.of(player_.get(), tenth);
        const std::uint32_t stopped = getTickCount();
        round == 1 ? player_->pause() : player_->stop();
        const int place = player_->position();
        sleepMs(100);
        const auto sound = log_.of(player_.get());
        EXPECT_NEAR(static_cast<int>(sound.firstTick - played), 0, 40) << "latency in ms";
        EXPECT_LE(static_cast<int>(sound.lastTick - stopped), 50);
        EXPECT_EQ(player_->position(), place);
        EXPECT_NEAR(place, 2 * second + static_cast<int>(sound.frames() * 10 / 441), 20);
        RecordProperty("latencyMs", static_cast<int>(sound.firstTick - played));
    }
}

TEST_F(SoundPcm, FiveSongsOpenSideBySideAndStartTogether) {
    const std::string song = mp3("song.mp3", melody);
    std::array<std::unique_ptr<SoundPlayer>, 5> players;
    const auto untilHeard = [&](std::size_t count) {
        log_.clear();
        const std::uint32_t start = getTickCount();
        for (std::size_t i = 0; i < count; ++i) {
            players[i] = device_->createPlayer();
            players[i]->open(song);
            players[i]->seek(2 * second);
            players[i]->play();
        }
        EXPECT_LT(getTickCount() - start, 100u) << "opening must not wait";
        for (std::size_t i = 0; i < count; ++i)
            log_.of(players[i].get(), 1);
        return static_cast<int>(getTickCount() - start);
    };
    untilHeard(1); // the library loads its plugins
    const int one = untilHeard(1);
    const int five = untilHeard(5);
    RecordProperty("openOneMs", one);
    RecordProperty("openFiveMs", five);
    EXPECT_LT(five, 2000);

    for (auto& player : players)
        player->seek(second);
    sleepMs(300);
    log_.clear();
    for (auto& player : players)
        player->play();
    std::vector<std::uint32_t> starts;
    for (auto& player : players)
        starts.push_back(log_.of(player.get(), 1).firstTick);
    const auto [first, last] = std::minmax_element(starts.begin(), starts.end());
    EXPECT_LE(*last - *first, 20u);
    RecordProperty("startSkewMs", static_cast<int>(*last - *first));
}

TEST_F(SoundPcm, BackwardIsBackward) {
    ASSERT_TRUE(player_->open(mp3("song.mp3", melody)));
    player_->seek(3 * second + 300);
    log_.clear();
    ASSERT_TRUE(player_->playReverse());
    const auto sound = log_.of(player_.get(), 10 * tenth);
    EXPECT_NEAR(strongestTone(sound.stereo, tenth / 2, tenth), melody[3], 15);
    EXPECT_NEAR(strongestTone(sound.stereo, 6 * tenth, tenth), melody[2], 15);
}

TEST_F(SoundPcm, EffectsCutOneAnotherButNoPlayer) {
    ASSERT_TRUE(player_->open(wav("song.wav", {620, 620, 620})));
    player_->play();
    device_->playSound(wav("one.wav", {400, 400, 400}));
    log_.of(device_.get(), tenth);
    device_->playSound(wav("two.wav", {500, 500, 500}));
    sleepMs(200);
    log_.clear();
    EXPECT_NEAR(strongestTone(log_.of(device_.get(), tenth).stereo, 0, tenth), 500, 6);
    EXPECT_NEAR(strongestTone(log_.of(player_.get(), tenth).stereo, 0, tenth), 620, 6);
    device_->playSound(folder_.file("missing.wav"));
    sleepMs(50);
    log_.clear();
    sleepMs(100);
    EXPECT_EQ(log_.of(device_.get()).frames(), 0u);
}

TEST_F(SoundPcm, BrokenFilesComeToAnEnd) {
    const auto bytesOf = [&](const std::string& path) { return *readFile(path); };
    const std::string wavBytes = bytesOf(wav("good.wav", {440, 440}));
    const std::string mp3Bytes = bytesOf(mp3("good.mp3", {440, 440}));
    ASSERT_TRUE(encode(folder_.path() / "good.wma", tones({440, 440}), "avenc_wmav2 ! asfmux"));
    const std::string wmaBytes = bytesOf(folder_.file("good.wma"));
    std::string hole = mp3Bytes;
    hole.replace(hole.size() / 3, hole.size() / 3, std::string(hole.size() / 3, 'x'));
    const std::pair<const char*, std::string> files[] = {
        {"cut.wav", wavBytes.substr(0, wavBytes.size() / 2)},
        {"head.wav", wavBytes.substr(0, 44)},
        {"cut.mp3", mp3Bytes.substr(0, mp3Bytes.size() / 2 + 100)},
        {"hole.mp3", hole},
        {"cut.wma", wmaBytes.substr(0, wmaBytes.size() / 2)},
        {"head.wma", wmaBytes.substr(0, 60)},
        {"head.mid", "MThd" + std::string("\0\0\0\6\0\0\0\1\0\x60MTrk\0\0\1\0", 18)},
    };
    for (const auto& [name, bytes] : files) {
        SCOPED_TRACE(name);
        writeBytes(folder_.path() / name, bytes);
        ASSERT_TRUE(player_->open(folder_.file(name)));
        player_->setSpeed(2000);
        const int end = player_->end();
        EXPECT_LE(end, 2 * second + 100);
        player_->play();
        int waited = 0;
        for (; player_->position() < player_->end() && waited < 4 * second; waited += 20)
            sleepMs(20);
        EXPECT_LT(waited, 4 * second);
        EXPECT_EQ(player_->position(), player_->end());
        EXPECT_LE(player_->end(), 2 * second + 100);
    }
}

TEST_F(SoundPcm, AFileThatVanishesMidPlayDoesNoHarm) {
    const std::string song = wav("song.wav", melody);
    ASSERT_TRUE(player_->open(song));
    hear(*player_, 0, tenth);
    std::filesystem::resize_file(song, 100'000);
    std::filesystem::remove(song);
    player_->seek(4 * second);
    player_->play();
    for (int waited = 0; player_->position() < player_->end() && waited < 2 * second; waited += 20)
        sleepMs(20);
    EXPECT_EQ(player_->position(), 6 * second) << "nothing is left to hear";
    EXPECT_FALSE(player_->open(song));
    EXPECT_EQ(player_->position(), 0);
}

TEST_F(SoundPcm, PlayersGoAtAnyMoment) {
    const std::string song = mp3("song.mp3", melody);
    const std::uint32_t start = getTickCount();
    for (int i = 0; i < 30; ++i) {
        auto player = device_->createPlayer();
        player->open(song);
        player->seek(i * 100);
        player->play();
        sleepMs(i % 4);
        if (i % 3 == 0) player->open(song);
    }
    EXPECT_LT(getTickCount() - start, 1500u);
}

} // namespace
