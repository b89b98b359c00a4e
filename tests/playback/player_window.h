#pragma once
// The player's window, with a user's hands in it.

#include "platform/menu.h"
#include "platform/window.h"
#include "playback/jukebox.h"
#include "playback/tonal_player.h"
#include "playback/tonal_player_ids.h"
#include "support/form.h"

namespace playback_tests {

namespace driver = platform::driver;
using namespace tonal_player;
using test_support::Form;

class PlayerWindow : public Jukebox {
protected:
    // Opens the window, does `act` in it and closes it.
    void run(const std::function<void()>& act) {
        script.expectDialog(form, [&](Form opened) {
            window = opened;
            act();
            window.close();
        });
        dlgTonalPlayer({});
        EXPECT_THAT(script.faults(), testing::IsEmpty());
        EXPECT_THAT(sound.volumes(), testing::IsEmpty()) << "a player is left";
    }

    std::string text(int id) const { return window.text(id); }
    int place() const { return window.place(idPosition); }
    std::string icons() const {
        return platform::getIcon(window[idPlay]) + " " + platform::getIcon(window[idStop]);
    }
    bool isMarked(int row) const {
        return platform::listRowColors(window[idSongs], row).background.has_value();
    }
    // The radio buttons that are set, which are the commands of the menu bar that are marked.
    std::vector<int> chosen() const {
        std::vector<int> ids;
        for (int id = idInOrder; id <= idTenSeconds; ++id) {
            if (window.checked(id)) ids.push_back(id);
            EXPECT_EQ(platform::isMenuItemChecked(window, id), window.checked(id)) << id;
        }
        return ids;
    }

    static constexpr const char* standing = "ICO_INTRO_PLAY ICO_INTRO_STOP2";
    static constexpr const char* playing = "ICO_INTRO_PAUSE ICO_INTRO_STOP";
    static constexpr const char* pausing = "ICO_INTRO_PLAY ICO_INTRO_STOP";

    driver::Script script;
    Form window;
};

} // namespace playback_tests
