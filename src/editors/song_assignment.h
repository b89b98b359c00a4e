#pragma once
// The songs of one stage while they are being chosen: a song for each row, which is a song of a quest, and
// what the rules say of it. Songs are numbers of the catalogue; 0 is a row that has none yet.

#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "data/accesser_resource.h"
#include "data/data_session.h"

enum class SongUse : int { Free = 0, InStage = 1, Elsewhere = 2 };

class SongAssignment {
public:
    // For stages[index]; the other stages are those that it shares the session with. Stages and catalogue
    // outlive this.
    SongAssignment(const std::vector<DataSession>& stages, std::size_t index,
                   const AccesserResource& catalogue);

    const std::vector<int>& songs() const { return songs_; } // by row
    int songsPerQuest() const { return songsPerQuest_; }

    // False for rows that are not there.
    bool set(int row, int song);
    bool swap(int row, int other);
    void clear();
    // Puts the songs, and the rows without one, into a random order.
    void shuffle();
    // Gives each row without a song one of the source that fits the stage and is used nowhere, at random.
    // False, with nothing changed, when there are fewer of them than such rows.
    bool fillAtRandom(const std::vector<int>& source);

    // Whether the song can be played under the stage's settings. Its file is looked for once, until
    // lookAgain.
    bool fits(int song) const;
    // Whether it stands in more rows than `ownRows`, which a song that has a row takes itself, or else in
    // another stage.
    SongUse usedState(int song, int ownRows = 1) const;
    // Missing songs outweigh one that does not fit, and that outweighs songs used twice, of which the last
    // row decides.
    SongCheck check() const;

    // Catalogue or files may have changed. Rows whose song the catalogue does not have any more lose it.
    void lookAgain();

private:
    bool hasRow(int row) const;

    const DataSession& stage_;
    const AccesserResource& catalogue_;
    const int songsPerQuest_;
    std::vector<int> songs_;
    std::unordered_map<int, int> rowsOf_;        // how many rows each song has, and 0
    std::unordered_set<int> elsewhere_;          // songs of the other stages
    mutable std::unordered_map<int, bool> fits_; // what was looked at
};
