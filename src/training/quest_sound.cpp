#include "training/quest_sound.h"

#include <utility>

#include "host/state/effects.h"
#include "host/state/host_state.h"
#include "host/state/play_control.h"

void QuestSound::playJingle(const std::string& file) {
    zelkova::Media& media = host().effectMedia;
    loadSound(media, file);
    usedEffects_ = inJingle_ = true;
    jingleEnd_ = media.getEnd();
    media.play();
    jingleWatch_.begin(media);
}

bool QuestSound::isJingleOver() {
    return jingleWatch_.isOver(host().effectMedia, jingleEnd_);
}

void QuestSound::stopJingle() {
    if (std::exchange(inJingle_, false)) unloadSound(host().effectMedia);
}

void QuestSound::playEffect(const std::string& file) {
    usedEffects_ = true;
    ::playEffect(host().effectMedia, file);
}

void QuestSound::playCheer(const std::string& file) {
    usedMusic_ = true;
    ::playEffect(host().bgmMedia, file);
}

void QuestSound::load(const std::vector<DataResource>& songs, const DataSession& session, int volume) {
    plays_.clear();
    for (const DataResource& song : songs)
        plays_.push_back(loadSong(host().questMedia[plays_.size()], song, session, volume));
    firstSong_ = songs.empty() ? DataResource() : songs.front();
    speed_ = session.getSpeed();
    stopLimitMs_ = playLimitOf(session);
}

void QuestSound::start() {
    startSongs(plays_);
}

void QuestSound::stop() {
    stopSongs();
}

void QuestSound::reset() {
    stop();
    stopJingle();
    load({}, {}, 0);
}

void QuestSound::unload() {
    for (zelkova::Media& media : host().questMedia)
        unloadSound(media);
    if (usedEffects_) unloadSound(host().effectMedia);
    if (usedMusic_) unloadSound(host().bgmMedia);
}

bool QuestSound::isOver(int elapsedMs) const {
    return isPlayOver(plays_, speed_, stopLimitMs_, elapsedMs);
}

SongProgress QuestSound::progress() const {
    return plays_.empty() ? SongProgress{} : progressOf(firstSong_, *plays_.front().media);
}
