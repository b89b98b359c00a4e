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

std::optional<SongFile> AddRest::open() {
    if (measured_)
        measureSongFile(media_, *measured_);
    else
        measured_ = openSongFile(media_, file());
    return measured_->measuring ? std::nullopt : std::exchange(measured_, {});
}

bool AddRest::step() {
    if (!measured_ && index_.find(file())) {
        ++known_;
        ++next_;
        return true;
    }
    const std::optional<SongFile> song = open();
    if (!song) return true;
    ++next_;
    if (!song->isPlayable()) {
        failed_.push_back(song->name);
        return true;
    }
    const int number = catalogue_.add(toSong(newForm(song->name), *song, {}));
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
