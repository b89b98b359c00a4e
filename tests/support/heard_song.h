#pragma once
// A song that tells by ear which part of it sounds.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/data_resource.h"
#include "data/labels.h"
#include "support/test_sounds.h"

namespace test_support {

// Each second of the song has a tone of its own.
inline const std::vector<double> melody = {440, 520, 620, 740, 850, 970};

// An MP3 of the melody in that file, and its record: chorus and answer are its third and fourth second.
inline DataResource heardSong(const std::string& file) {
    EXPECT_TRUE(encode(file, tones(melody), "lamemp3enc target=quality quality=4"));
    DataResource song;
    song.setTitle("聞こえる曲");
    song.setFileName(file);
    song.setFileType(fileTypeMp3);
    song.setLength(60);
    song.setSabiStart(20);
    song.setSabiEnd(40);
    song.setAnsStart(20);
    song.setAnsEnd(40);
    return song;
}

} // namespace test_support
