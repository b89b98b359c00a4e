#pragma once
// What is heard in the training mode, through the host's players: a quest's jingle, then its songs; verdicts.

#include <string>
#include <vector>

#include "host/state/song_play.h"
#include "host/state/sound_watch.h"

class QuestSound {
public:
    void playJingle(const std::string& file);
    bool isJingleOver(); // asked again and again
    void stopJingle();
    // In the players of the effects and of the background music. What the show plays there goes on until one
    // of them is needed.
    void playEffect(const std::string& file);
    void playCheer(const std::string& file);

    // Puts the songs into their players, at the start of their parts. `volume` is 0 to 100.
    void load(const std::vector<DataResource>& songs, const DataSession& session, int volume);
    void start();
    void stop();
    void reset(); // stops songs and jingle and forgets the songs
    // Empties the songs' players, and the two others where they were used.
    void unload();
    bool isStarting() const { return areStarting(plays_); }
    // `elapsedMs` is the time since the first sound.
    bool isOver(int elapsedMs) const;

    SongProgress progress() const; // of the first song
    SongPlay firstPlay() const { return plays_.empty() ? SongPlay() : plays_.front(); }

private:
    bool usedEffects_ = false, usedMusic_ = false;
    bool inJingle_ = false;
    int jingleEnd_ = 0; // milliseconds
    SoundWatch jingleWatch_;
    DataResource firstSong_;
    std::vector<SongPlay> plays_;
    int speed_ = 0, stopLimitMs_ = 0;
};
