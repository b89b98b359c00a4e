#pragma once
// What is heard of a training quest: its jingle, then its songs, through the host's players.

#include <string>
#include <vector>

#include "host/state/song_play.h"

class QuestSound {
public:
    void playJingle(const std::string& file);
    bool isJingleOver(); // asked again and again
    void stopJingle();

    // Puts the songs into their players, at the start of their parts. `volume` is 0 to 100.
    void load(const std::vector<DataResource>& songs, const DataSession& session, int volume);
    void start();
    void stop();
    // `elapsedMs` is the time since the start.
    bool isOver(int elapsedMs) const;

    SongProgress progress() const; // of the first song
    SongPlay firstPlay() const { return plays_.empty() ? SongPlay() : plays_.front(); }

private:
    int jingleEnd_ = 0, jinglePlace_ = -1; // milliseconds
    DataResource firstSong_;
    std::vector<SongPlay> plays_;
    int speed_ = 0, stopLimitMs_ = 0;
};
