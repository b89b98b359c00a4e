#pragma once
// The numbers of the controls with which the song editor plays and marks.

#include "editors/sample_playback.h"
#include "editors/song_form.h"

namespace sample_controls {

enum : int {
    idSlider = 3215,
    idReverse = 3216,
    idPlay = 3217,
    idStop = 3218,
    idTimer = 3219, // no control
    idPosition = 3220,
    idUnit = 3221,
    idLength = 3222,
    idVolume = 3256,
    idSpeed = 3257,
    idVolumeText = 3258,
    idSpeedText = 3259,
    idNormalSpeed = 3260,
    idCopyIntro = 3261,
    idCopySabi = 3262,
};

// The controls of a range stand in the same order in each of the three rows.
enum RangePart : int {
    startEdit,
    endEdit,
    markStart,
    markEnd,
    slider,
    playButton,
    stopButton,
    positionLabel
};
constexpr int firstRangeId = 3223;
constexpr int idsPerRange = 10;

constexpr int rangeId(int row, RangePart part) {
    return firstRangeId + (row - rowIntro) * idsPerRange + part;
}

// The row of a range and the part of it that the control is.
struct RangeControl {
    int row = noRow, part = 0;
};
constexpr RangeControl rangeControl(int id) {
    const int offset = id - firstRangeId;
    if (offset < 0 || offset >= songRanges * idsPerRange || offset % idsPerRange > positionLabel) return {};
    return {rowIntro + offset / idsPerRange, offset % idsPerRange};
}

constexpr int sliderOf(int row) {
    return row == rowWhole ? +idSlider : rangeId(row, slider);
}

} // namespace sample_controls
