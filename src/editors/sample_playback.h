#pragma once
// Which of the song editor's four players runs, and what can be pressed meanwhile: the whole file, and its
// three ranges. Knows nothing of windows and sound.

#include <array>

#include "editors/song_file.h"

enum SampleRow : int { rowWhole, rowIntro, rowSabi, rowAnswer, sampleRows, noRow = -1 };

class SamplePlayback {
public:
    // Nothing plays then; ranges stay as they were judged.
    void setFile(const SongFile& file);
    void setRangeValid(int row, bool valid) { valid_.at(static_cast<std::size_t>(row)) = valid; }

    void start(int row) { active_ = row; }
    void stop() { active_ = noRow; }
    int activeRange() const { return active_; }

    bool canPlay(int row) const;
    // Of the row that plays always, also when its range has become none meanwhile.
    bool canStop(int row) const;
    bool canMove(int row) const; // its slider
    bool canMark() const { return playable_; }
    // Ranges are heard at normal speed.
    bool canChangeSpeed() const;
    bool canReverse() const;

private:
    bool isFree(int row) const { return active_ == noRow || active_ == row; }
    bool isUsable(int row) const { return playable_ && valid_.at(static_cast<std::size_t>(row)); }

    int fileType_ = fileTypeNone;
    bool playable_ = false;
    int active_ = noRow;
    std::array<bool, sampleRows> valid_{true}; // the whole file always is
};
