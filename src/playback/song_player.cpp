#include "playback/song_player.h"

#include <algorithm>

#include "data/data_session.h"
#include "data/labels.h"
#include "host/state/effects.h"
#include "host/state/host_state.h"

namespace {

// The catalogue's finest unit: what is shorter was not meant to be heard.
constexpr int momentMs = 100;

} // namespace

SongPlayer::SongPlayer(platform::WindowHandle window, std::vector<int> numbers) : order_(std::move(numbers)) {
    media_.create(window);
}

bool SongPlayer::fits(const DataResource& song) const {
    if (range_ != rangeIntro && range_ != rangeSabi) return true;
    DataSession stage;
    stage.setRange(range_);
    stage.setSpeed(speedNormal); // the speed here is not a stage's, and asks for no kind of file
    return resourceFitsSession(song, stage);
}

void SongPlayer::play(void (PlayOrder::*next)()) {
    unheard_ = 0;
    if (order_.isEmpty()) return;
    const int first = order_.currentRow();
    std::vector<bool> refused(static_cast<std::size_t>(order_.rowCount()));
    for (int left = order_.rowCount(); left > 0;) {
        DataResource song;
        host().accesserResource.get(order_.number(), song);
        if (fits(song)) {
            start(song);
            return;
        }
        const auto row = static_cast<std::size_t>(order_.currentRow());
        if (!refused[row]) --left;
        refused[row] = true;
        (order_.*next)();
    }
    order_.goTo(first);
    giveUp();
}

void SongPlayer::giveUp() {
    stop();
    media_.close();
    song_.clear();
    span_ = {0, 0};
    foundNothing_ = true;
}

void SongPlayer::start(const DataResource& song) {
    foundNothing_ = false;
    song_ = song;
    order_.notePlayed();
    loadSound(media_, song.getFileName());
    applyVolume();
    media_.setSpeed(host().playerSpeed * 10);
    media_.play();
    span_ = playSpan(song, range_, 0);
    seek(static_cast<int>(span_.start));
    elapsedMs_ = 0;
    looks_ = 0;
    watch_.look();
    playState_ = PlayState::Playing;
}

void SongPlayer::playRow(int row) {
    order_.goTo(row);
    play();
}

void SongPlayer::playOrPause() {
    switch (playState_) {
    case PlayState::Stopped:
        play();
        break;
    case PlayState::Playing:
        countTime();
        media_.pause();
        playState_ = PlayState::Paused;
        break;
    case PlayState::Paused:
        countTime();
        media_.play();
        playState_ = PlayState::Playing;
        break;
    }
}

void SongPlayer::stop() {
    media_.stop();
    playState_ = PlayState::Stopped;
}

void SongPlayer::forward() {
    if (order_.isEmpty()) return;
    order_.forward();
    play();
}

void SongPlayer::back() {
    if (order_.isEmpty()) return;
    order_.back();
    play(&PlayOrder::back);
}

void SongPlayer::seek(int place) {
    media_.seek(toMilliseconds(place, song_.getFileType()));
}

int SongPlayer::place() {
    const int factor = positionFactor(song_.getFileType());
    return factor == 0 ? 0 : media_.getPosition() / factor;
}

void SongPlayer::setVolume(int percent) {
    host().playerVolume = percent;
    if (!muted_) applyVolume();
}

void SongPlayer::mute(bool muted) {
    muted_ = muted;
    applyVolume();
}

void SongPlayer::applyVolume() {
    media_.setVolume(muted_ ? 0 : host().playerVolume * 10);
}

void SongPlayer::setSpeed(int percent) {
    host().playerSpeed = std::max(percent, slowest);
    media_.setSpeed(host().playerSpeed * 10);
}

// Up to now, as far as the song was sounding. The ticks alone would not do: they are late under load.
void SongPlayer::countTime() {
    const int passed = watch_.look();
    if (media_.isPlaying()) elapsedMs_ += passed;
}

bool SongPlayer::hasEnded() {
    const int position = media_.getPosition();
    const int fileEnd = end();
    return position >= toMilliseconds(span_.end, song_.getFileType()) ||
           (fileEnd > 0 && position >= fileEnd) || (limitMs_ != noLimit && elapsedMs_ >= limitMs_);
}

bool SongPlayer::tick() {
    countTime();
    if (!media_.isPlaying()) return false;
    ++looks_;
    if (!hasEnded()) return false;
    // A first look may come late, but then it was the only one.
    const bool heard = looks_ > 1 && elapsedMs_ >= momentMs;
    const int unheard = heard ? 0 : unheard_ + 1;
    if (unheard > order_.roundLength()) {
        giveUp();
    } else {
        order_.afterEnd();
        play();
        unheard_ = unheard;
    }
    return true;
}
