#include "editors/sample_playback.h"

#include <gtest/gtest.h>

namespace {

SongFile file(int type, bool opened = true) {
    SongFile made;
    made.opened = opened;
    made.type = type;
    return made;
}

// One letter for each row: P can be played, S stopped, M moved.
std::string live(const SamplePlayback& playback) {
    std::string text;
    for (int row = rowWhole; row < sampleRows; ++row) {
        if (row != rowWhole) text += ' ';
        text += playback.canPlay(row) ? 'P' : '-';
        text += playback.canStop(row) ? 'S' : '-';
        text += playback.canMove(row) ? 'M' : '-';
    }
    return text;
}

TEST(SamplePlayback, SpeedAndReverseGoByTheFile) {
    const struct {
        int type;
        bool opened, plays, speed, reverse;
    } rows[] = {
        {fileTypeMp3, true, true, true, false},     {fileTypeWma, true, true, false, false},
        {fileTypeWav, true, true, false, false},    {fileTypeNwav, true, true, true, true},
        {fileTypeMid, true, true, false, false},    {fileTypeUnknown, true, false, false, false},
        {fileTypeNone, false, false, false, false},
    };
    for (const auto& row : rows) {
        SamplePlayback playback;
        playback.setFile(file(row.type, row.opened));
        playback.setRangeValid(rowIntro, true);
        EXPECT_EQ(playback.canPlay(rowWhole), row.plays) << row.type;
        EXPECT_EQ(playback.canPlay(rowIntro), row.plays) << row.type;
        EXPECT_EQ(playback.canMark(), row.plays) << row.type;
        EXPECT_EQ(playback.canChangeSpeed(), row.speed) << row.type;
        EXPECT_EQ(playback.canReverse(), row.reverse) << row.type;
    }
}

TEST(SamplePlayback, WhatPlaysTurnsTheOthersOff) {
    SamplePlayback playback;
    EXPECT_EQ(live(playback), "--- --- --- ---") << "before any file";
    playback.setFile(file(fileTypeMp3));
    EXPECT_EQ(live(playback), "PSM --- --- ---");
    playback.setRangeValid(rowIntro, true);
    playback.setRangeValid(rowAnswer, true);
    EXPECT_EQ(live(playback), "PSM PSM --- PSM");

    playback.start(rowWhole);
    EXPECT_EQ(live(playback), "-SM --- --- ---");
    EXPECT_TRUE(playback.canChangeSpeed());
    playback.setRangeValid(rowSabi, true); // marked while it plays
    EXPECT_EQ(live(playback), "-SM --- --- ---");
    playback.stop();
    EXPECT_EQ(live(playback), "PSM PSM PSM PSM");

    playback.start(rowSabi);
    EXPECT_EQ(live(playback), "-S- --- PSM ---");
    EXPECT_FALSE(playback.canChangeSpeed());
    playback.setRangeValid(rowSabi, false); // what plays can still be stopped
    EXPECT_EQ(live(playback), "-S- --- -SM ---");
    playback.stop();
    EXPECT_EQ(live(playback), "PSM PSM --- PSM");
    EXPECT_TRUE(playback.canChangeSpeed());

    playback.start(rowIntro);
    playback.setFile(file(fileTypeWav));
    EXPECT_EQ(playback.activeRange(), noRow);
    EXPECT_EQ(live(playback), "PSM PSM --- PSM");
}

} // namespace
