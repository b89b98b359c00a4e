#include "editors/add_rest.h"

#include <utility>

#include "editors/song_form.h"

namespace {

// A group is what a failing disk or the end of the power can take.
constexpr int filesPerWriting = 50;

} // namespace

AddRest::AddRest(AccesserResource& catalogue, FileIndex& index, std::vector<std::string> files)
    : catalogue_(catalogue), index_(index), files_(std::move(files)) {
    media_.create({});
}

bool AddRest::step() {
    const std::string& path = file();
    ++next_;
    if (index_.find(path)) {
        ++known_;
        return true;
    }
    const SongFile song = openSongFile(media_, path);
    if (!song.isPlayable()) {
        failed_.push_back(path);
        return true;
    }
    const int number = catalogue_.add(toSong(newForm(path), song, {}));
    if (number == 0) {
        finish();
        next_ = files_.size();
        return false;
    }
    ++added_;
    ++unwritten_;
    index_.note(number);
    return unwritten_ < filesPerWriting || finish();
}

bool AddRest::finish() {
    const int songs = std::exchange(unwritten_, 0);
    if (songs == 0 || catalogue_.commit()) return true;
    catalogue_.rollback();
    added_ -= songs;
    next_ = files_.size();
    return false;
}
