#pragma once
// Eight bars of two seconds each: a part to begin with and one with the chorus.

#include "makemedia/arrange.h"

#include <string>

#include <gtest/gtest.h>

namespace short_song {

inline std::string text(const std::string& encoding) {
    return "X:1\nT:Test\nC:Nobody\n%%lead flute\n%%answering piano\n%%released 1900/01/02\n%%genre Classic\n"
           "%%chorus B:1-4\n%%answer B:1-4\n%%encoding " +
           encoding +
           "\nR:march\nP:IB\nM:4/4\nL:1/4\nQ:1/4=120\nK:C\n"
           "P:I\n\"C\"C E G c | \"F\"A2 F2 | \"G7\"G F E D | \"C\"C4 |\n"
           "P:B\n\"C\"c2 G2 | \"F\"A2 c2 | \"G7\"B2 d2 | \"C\"c4 |\n";
}

inline makemedia::Score score(const std::string& encoding = "wav") {
    std::string error;
    auto score = makemedia::parseScore(text(encoding), "test", error);
    EXPECT_TRUE(score) << error;
    return score.value_or(makemedia::Score());
}

inline makemedia::Arrangement arrangement() {
    std::string error;
    auto arrangement = makemedia::arrange(score(), error);
    EXPECT_TRUE(arrangement) << error;
    return arrangement.value_or(makemedia::Arrangement());
}

} // namespace short_song
