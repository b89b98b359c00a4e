#pragma once
// The part of a song that is to be played.

#include <cstdint>

#include "data/data_resource.h"

// What a quest leaves of a song behind a random start, and all it plays of an ending.
constexpr int questEdge = 200;

struct PlaySpan {
    std::int64_t start, end; // counts of the file's own position unit
};

// By the index of the play range's label; a number without one is the intro. ランダム draws its start anew at
// every call and, as エンド does, keeps the start so many units clear of the end.
PlaySpan playSpan(const DataResource& song, int range, int edge = questEdge);
