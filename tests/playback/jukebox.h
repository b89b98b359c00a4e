#pragma once
// A catalogue of silent songs for the player, on the manual clock.

#include <functional>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "data/data_resource.h"
#include "platform/clock.h"
#include "playback/song_player.h"
#include "support/temporary_folder.h"
#include "support/watched_sound.h"

namespace playback_tests {

class Jukebox : public testing::Test {
protected:
    Jukebox();
    ~Jukebox() override;

    // Twenty seconds, an MP3 by its name: intro from 2 s to 5 s, chorus from 8 s to 12 s, answer from 9 s to
    // 10 s.
    DataResource song(const std::string& title) const;
    int add(const DataResource& song);                                      // its number in the catalogue
    void addSongs(int count);                                               // 曲1, 曲2 and so on
    void change(int number, const std::function<void(DataResource&)>& how); // the record
    std::string file(const std::string& name) const { return folder.file(name); }

    test_support::TemporaryFolder folder;
    test_support::WatchedSound sound;
    platform::ManualClock clock;
};

// A player without its window, and the clock that drives it.
class PlayerInHand : public Jukebox {
protected:
    // Over the whole catalogue.
    SongPlayer& start();
    // As the window does.
    void pass(int milliseconds);
    int row() const { return player->order().currentRow(); }

    std::optional<SongPlayer> player; // gone before the sound device
};

} // namespace playback_tests
