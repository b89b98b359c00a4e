#include "host/state/play_control.h"

#include <gtest/gtest.h>

#include "data/labels.h"
#include "host/state/host_state.h"
#include "support/temporary_folder.h"
#include "support/test_sounds.h"
#include "support/watched_sound.h"

namespace {

// WAV files of silence on the silent device: positions follow the manual clock.
class PlayControl : public testing::Test {
protected:
    void SetUp() override {
        resetHost();
        for (zelkova::Media& media : host().questMedia)
            media.create({});
        host().curQuestNumber = 1;
        host().dataSession.setMulti(1);
        host().dataSession.setSpeed(speedNormal);
        host().dataSession.setInterval(playTimeWholeRange);
    }
    void TearDown() override { resetHost(); }

    void addSong(int lengthMs, int fileType = fileTypeWav) {
        const std::string file =
            folder.file("song" + std::to_string(host().dataResourceList.size()) + ".wav");
        test_support::writeSilence(file, lengthMs);
        DataResource song;
        song.setFileName(file);
        song.setFileType(fileType);
        song.setLength(lengthMs / 100);
        song.setIntroStart(10);
        song.setIntroEnd(50);
        song.setSabiStart(100);
        song.setSabiEnd(180);
        song.setAnsStart(200);
        song.setAnsEnd(260);
        host().dataResourceList.push_back(song);
    }

    void play() {
        startSongs();
        host().playElapsed = 0;
    }
    // As the play watch counts.
    void pass(int milliseconds) {
        clock.advance(static_cast<std::uint32_t>(milliseconds));
        host().playElapsed += milliseconds;
    }

    test_support::TemporaryFolder folder;
    platform::ManualClock clock;
    test_support::WatchedSound sound;
};

} // namespace

TEST_F(PlayControl, RangesAndLimits) {
    const struct {
        int range, start, end;
    } cases[] = {{rangeIntro, 1000, 5000}, {rangeSabi, 10000, 18000}, {rangeMelody, 5000, 10000},
                 {rangeStart, 0, 60000},   {rangeEnd, 40000, 60000},  {rangeAnswer, 20000, 26000},
                 {99, 1000, 5000},         {-1, 1000, 5000}};
    addSong(60000);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.range);
        host().dataSession.setRange(c.range);
        initResource();
        EXPECT_EQ(host().playStart[0], c.start);
        EXPECT_EQ(host().playEnd[0], c.end);
        EXPECT_EQ(host().questMedia[0].getPosition(), c.start);
    }
    const int limits[] = {250, 1000, 3000, 5000, 10000, 15000, -1, -2};
    for (int i = 0; i < 8; ++i) {
        host().dataSession.setInterval(i);
        setPlayLimit();
        EXPECT_EQ(host().playLimit, limits[i]);
    }
    host().dataSession.setInterval(8);
    setPlayLimit();
    EXPECT_EQ(host().playLimit, 250);
}

TEST_F(PlayControl, RandomStartsLeaveTwentySeconds) {
    addSong(60000);
    host().dataSession.setRange(rangeRandom);
    for (int i = 0; i < 50; ++i) {
        initResource();
        EXPECT_GE(host().playStart[0], 0);
        EXPECT_LE(host().playStart[0], 40000);
        EXPECT_EQ(host().playEnd[0], 60000);
    }
    host().dataResourceList[0].setLength(150); // too short to choose from
    initResource();
    EXPECT_EQ(host().playStart[0], 0);
}

TEST_F(PlayControl, StopsAtTimeLimitRangeEndOrFileEnd) {
    addSong(20000);
    host().dataSession.setRange(rangeIntro); // 1000 to 5000
    host().dataSession.setInterval(playTimeOneSecond);
    initResource();
    play();
    pass(950);
    EXPECT_FALSE(checkPlayStop());
    pass(50);
    EXPECT_TRUE(checkPlayStop());

    host().dataSession.setInterval(playTimeWholeRange);
    initResource();
    play();
    pass(3950);
    EXPECT_FALSE(checkPlayStop());
    pass(50);
    EXPECT_TRUE(checkPlayStop());

    host().dataSession.setInterval(playTimeEndless);
    initResource();
    play();
    pass(18900);
    EXPECT_FALSE(checkPlayStop());
    pass(100);
    EXPECT_TRUE(checkPlayStop()); // the file's end, at normal speed only
    host().dataSession.setSpeed(speedDouble);
    EXPECT_FALSE(checkPlayStop());
}

TEST_F(PlayControl, OnlyAnMp3FollowsTheStagesSpeed) {
    const std::string file = folder.file("nwav");
    test_support::writeSilence(file, 20000);
    zelkova::Media& media = host().questMedia[0];
    for (const auto& [type, passed] : {std::pair{fileTypeMp3, 2000}, {fileTypeNwav, 1000}}) {
        DataResource song;
        song.setFileName(file);
        song.setFileType(type);
        host().dataSession.setRange(rangeStart);
        host().dataSession.setSpeed(1); // twice as fast
        host().dataResourceList = {song};
        initResource();
        play();
        pass(1000);
        EXPECT_EQ(media.getPosition(), passed);
    }
}

TEST_F(PlayControl, OnlyCheckedSongsPlayAndStop) {
    addSong(20000);
    addSong(20000);
    host().dataResourceList[0].setIntroEnd(20); // would stop after one second
    host().dataSession.setMulti(2);
    host().dataSession.setRange(rangeIntro);
    initResource();
    startSongs(); // no check box is checked
    pass(3000);
    EXPECT_FALSE(host().questMedia[0].isPlaying());
    EXPECT_FALSE(host().questMedia[1].isPlaying());
}

TEST_F(PlayControl, MissingSongsAreSilentAndPassedOver) {
    host().dataSession.setRange(rangeIntro);
    host().dataSession.setInterval(playTimeOneSecond);
    DataResource gone;
    gone.setFileName(folder.file("gone.mp3"));
    gone.setFileType(fileTypeMp3);
    for (const std::vector<DataResource>& songs : {std::vector<DataResource>{}, {DataResource()}, {gone}}) {
        host().dataResourceList = songs;
        initResource();
        play();
        EXPECT_FALSE(checkPlayStop()); // the time limit alone ends it
        pass(1000);
        EXPECT_TRUE(checkPlayStop());
        host().playElapsed = 0;
        host().playLimit = -1;
        EXPECT_TRUE(checkPlayStop()); // there is no range to wait for
        host().playLimit = -2;
        EXPECT_FALSE(checkPlayStop());
        showProgress();
    }
}

TEST_F(PlayControl, ASongWhoseDiskSleepsIsNotOverBeforeItBegins) {
    sound.setMeasuringTime(3000);
    addSong(20000);
    host().dataSession.setRange(rangeIntro); // 1000 to 5000
    initResource();
    play();
    pass(1000);
    EXPECT_FALSE(checkPlayStop());
    pass(2950);
    EXPECT_FALSE(checkPlayStop());
    pass(50);
    EXPECT_TRUE(checkPlayStop());
}

TEST_F(PlayControl, TheLimitCountsFromTheFirstSound) {
    sound.setStartTime(2000);
    addSong(20000);
    host().dataSession.setInterval(playTimeOneSecond);
    initResource();
    play();
    for (int tick = 0; tick < 59; ++tick) {
        pass(50);
        EXPECT_FALSE(checkPlayStop()) << tick;
    }
    pass(50);
    EXPECT_TRUE(checkPlayStop());
}

TEST_F(PlayControl, ASongWithoutAUnitIsNotDividedBy) {
    addSong(20000, fileTypeUnknown);
    initResource();
    play();
    pass(500);
    showProgress();
    EXPECT_EQ(host().playStart[0], 0);
    EXPECT_EQ(host().playEnd[0], 0);
}
