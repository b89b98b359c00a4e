#include "editors/sample_playback.h"

void SamplePlayback::setFile(const SongFile& file) {
    fileType_ = file.type;
    playable_ = file.isPlayable();
    active_ = noRow;
}

bool SamplePlayback::canPlay(int row) const {
    const bool free = row == rowWhole ? active_ == noRow : isFree(row);
    return isUsable(row) && free;
}

bool SamplePlayback::canStop(int row) const {
    // The whole file's button stops what plays, whichever row that is.
    return active_ == row || (isUsable(row) && (row == rowWhole || isFree(row)));
}

bool SamplePlayback::canMove(int row) const {
    return active_ == row || (isUsable(row) && isFree(row));
}

bool SamplePlayback::canChangeSpeed() const {
    const bool hasSpeed = fileType_ == fileTypeMp3 || fileType_ == fileTypeNwav;
    return playable_ && hasSpeed && active_ <= rowWhole;
}

bool SamplePlayback::canReverse() const {
    return playable_ && fileType_ == fileTypeNwav;
}
