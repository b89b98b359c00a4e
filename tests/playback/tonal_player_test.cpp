#include "playback/tonal_player.h"

#include <filesystem>

#include <gmock/gmock.h>

#include "foundation/views/view_resource.h"
#include "host/state/host_state.h"
#include "platform/driver.h"
#include "platform/listview.h"
#include "platform/menu.h"
#include "platform/window.h"
#include "playback/jukebox.h"

namespace {

namespace driver = platform::driver;
using platform::WindowHandle;
using testing::IsEmpty;

enum : int {
    idInOrder = 8101,
    idRandomOrder,
    idLoop,
    idFromStart,
    idFromIntro,
    idFromSabi,
    idFromMelody,
    idFromRandom,
    idFromEnd,
    idFromAnswer,
    idNoLimit,
    idOneSecond,
    idThreeSeconds,
    idFiveSeconds,
    idTenSeconds,
    idSongs = 8117,
    idPosition,
    idClock,
    idPlay,
    idStop,
    idVolume = 8123,
    idVolumeText,
    idMute,
    idSpeed = 8127,
    idSpeedText,
    idTitle,
    idArtist,
    idBack,
    idForward,
    idNormalSpeed,
    idHistory,
    idPlaySelected,
};

class TonalPlayer : public playback_tests::Jukebox {
protected:
    // Opens the window, does `act` in it and closes it.
    void run(const std::function<void()>& act) {
        script.expectDialog("IDD_KDL0801_TONAL_PLAYER", [&](WindowHandle window) {
            dialog = window;
            act();
            driver::closeBox(window);
        });
        dlgTonalPlayer({});
        EXPECT_THAT(script.faults(), IsEmpty());
        EXPECT_EQ(sound.volumes().size(), 0u) << "a player is left";
    }

    bool click(int id) { return driver::click({dialog, id}); }
    std::string text(int id) const { return platform::getText({dialog, id}); }
    int place() const { return platform::getPosition({dialog, idPosition}); }
    int selected() const { return platform::listSelectedRow({dialog, idSongs}); }
    std::string icons() const {
        return platform::getIcon({dialog, idPlay}) + " " + platform::getIcon({dialog, idStop});
    }
    // The radio buttons that are set, and the commands of the menu bar that are marked.
    std::vector<int> chosen() const {
        std::vector<int> ids;
        for (int id = idInOrder; id <= idTenSeconds; ++id)
            if (platform::isChecked({dialog, id})) ids.push_back(id);
        return ids;
    }
    std::vector<int> marked() const {
        std::vector<int> ids;
        for (int id = idInOrder; id <= idTenSeconds; ++id)
            if (platform::isMenuItemChecked(dialog, id)) ids.push_back(id);
        return ids;
    }

    static constexpr const char* standing = "ICO_INTRO_PLAY ICO_INTRO_STOP2";
    static constexpr const char* playing = "ICO_INTRO_PAUSE ICO_INTRO_STOP";
    static constexpr const char* pausing = "ICO_INTRO_PLAY ICO_INTRO_STOP";

    driver::Script script;
    WindowHandle dialog;
};

TEST_F(TonalPlayer, AnEvening) {
    addSongs(3);
    run([&] {
        EXPECT_EQ(platform::getText(dialog), "トーナルプレイヤー");
        EXPECT_EQ(platform::listRowCount({dialog, idSongs}), 3);
        EXPECT_EQ(platform::listCell({dialog, idSongs}, 1, 1), "曲2");
        EXPECT_EQ(selected(), 0);
        EXPECT_EQ(icons(), standing);
        EXPECT_EQ(text(idClock), "00:00:00/00:00:00");
        EXPECT_EQ(chosen(), (std::vector<int>{idInOrder, idFromStart, idNoLimit}));
        EXPECT_EQ(marked(), chosen());

        click(idPlay);
        EXPECT_EQ(icons(), playing);
        EXPECT_EQ(text(idTitle), "曲1");
        EXPECT_EQ(text(idArtist), "曲1の歌手");
        EXPECT_EQ(sound.playing(file("1.mp3")), 1);
        clock.advance(5050);
        EXPECT_EQ(text(idClock), "00:00:05/00:00:20");
        EXPECT_EQ(place(), 50);
        click(idPlay);
        EXPECT_EQ(icons(), pausing);
        clock.advance(3000);
        EXPECT_EQ(place(), 50);
        click(idPlay);
        clock.advance(1000);
        EXPECT_EQ(place(), 60);

        click(idFromSabi);
        click(idForward);
        EXPECT_EQ(text(idTitle), "曲2");
        EXPECT_EQ(selected(), 1);
        EXPECT_EQ(place(), 80);
        clock.advance(4000);
        EXPECT_EQ(text(idTitle), "曲3");
        click(idBack);
        EXPECT_EQ(text(idTitle), "曲2");
        click(idBack);
        click(idBack);
        EXPECT_EQ(text(idTitle), "曲3");
        EXPECT_EQ(text(idHistory), "1←2←3←2←1←3");
        clock.advance(1500);
        EXPECT_EQ(text(idClock), "00:00:09/00:00:20");

        click(idStop);
        EXPECT_EQ(icons(), standing);
        EXPECT_EQ(place(), 80); // as far back as it goes
        EXPECT_EQ(sound.playing(file("3.mp3")), 0);
        clock.advance(5000);
        EXPECT_EQ(text(idTitle), "曲3");

        click(idLoop);
        click(idThreeSeconds);
        click(idPlay);
        clock.advance(10'000);
        EXPECT_EQ(text(idTitle), "曲3");
        EXPECT_EQ(text(idHistory), "1←2←3←2←1←3");
        click(idRandomOrder);
        clock.advance(30'000); // ten songs
        const std::string history = text(idHistory);
        for (const char* number : {"1", "2", "3"})
            EXPECT_THAT(history.substr(std::string("1←2←3←2←1←3").size()), testing::HasSubstr(number));
        EXPECT_GE(history.size(), 13 * std::string("←3").size());
    }); // closed while it plays
    EXPECT_EQ(sound.playing(file("1.mp3")) + sound.playing(file("2.mp3")) + sound.playing(file("3.mp3")), 0);
}

TEST_F(TonalPlayer, ADoubleClickPlaysItsRow) {
    addSongs(5);
    run([&] {
        driver::doubleClickRow({dialog, idSongs}, 3);
        EXPECT_EQ(text(idTitle), "曲4");
        clock.advance(7000);
        EXPECT_EQ(place(), 70);
        driver::doubleClickRow({dialog, idSongs}, 3); // once more from its start
        EXPECT_EQ(place(), 0);
        EXPECT_EQ(text(idHistory), "4");
        EXPECT_TRUE(platform::listRowColors({dialog, idSongs}, 3).background);
        EXPECT_FALSE(platform::listRowColors({dialog, idSongs}, 0).background);
    });
}

TEST_F(TonalPlayer, WhoLooksForASongIsNotDisturbed) {
    addSongs(5);
    run([&] {
        click(idOneSecond);
        click(idPlay);
        driver::select({dialog, idSongs}, 4);
        clock.advance(1000);
        EXPECT_EQ(text(idTitle), "曲2");
        EXPECT_EQ(selected(), 4);
        EXPECT_TRUE(platform::listRowColors({dialog, idSongs}, 1).background);
        click(idPlay);
        click(idStop);
        EXPECT_EQ(selected(), 4);
        click(idForward);
        EXPECT_EQ(selected(), 2);
        clock.advance(1000);
        EXPECT_EQ(selected(), 3);
    });
}

TEST_F(TonalPlayer, RadioButtonsAndMenuAreTwins) {
    addSongs(2);
    run([&] {
        click(idRandomOrder);
        click(idFromAnswer);
        click(idTenSeconds);
        EXPECT_EQ(marked(), (std::vector<int>{idRandomOrder, idFromAnswer, idTenSeconds}));
        EXPECT_EQ(chosen(), marked());
        for (int id = idInOrder; id <= idTenSeconds; ++id) {
            SCOPED_TRACE(id);
            EXPECT_TRUE(driver::chooseMenu(dialog, id));
            EXPECT_TRUE(platform::isChecked({dialog, id}));
            EXPECT_EQ(chosen(), marked());
            EXPECT_EQ(chosen().size(), 3u);
            EXPECT_THAT(platform::menuItemText(dialog, id), testing::StartsWith(text(id)));
        }
        driver::chooseMenu(dialog, idMute);
        EXPECT_TRUE(platform::isChecked({dialog, idMute}));
        click(idMute);
        EXPECT_FALSE(platform::isMenuItemChecked(dialog, idMute));

        // What was chosen in the menu counts.
        driver::chooseMenu(dialog, idFromIntro);
        driver::chooseMenu(dialog, idOneSecond);
        driver::chooseMenu(dialog, idInOrder);
        driver::chooseMenu(dialog, idPlay);
        EXPECT_EQ(place(), 20);
        clock.advance(1000);
        EXPECT_EQ(text(idTitle), "曲2");
        for (const int id : {idForward, idBack, idStop})
            EXPECT_TRUE(driver::chooseMenu(dialog, id));
        EXPECT_EQ(icons(), standing);
    });
}

TEST_F(TonalPlayer, TheListsMenuHasTheSameCommands) {
    addSongs(3);
    run([&] {
        const auto choose = [&](int row, int command) {
            script.expectMenu("IDM_KDL0801_LISTMENUE", command);
            driver::rightClickRow({dialog, idSongs}, row);
        };
        choose(1, idPlaySelected);
        EXPECT_EQ(text(idTitle), "曲2");
        choose(0, idForward);
        EXPECT_EQ(text(idTitle), "曲3");
        choose(0, idFromSabi);
        EXPECT_TRUE(platform::isChecked({dialog, idFromSabi}));
        choose(0, idMute);
        EXPECT_TRUE(platform::isChecked({dialog, idMute}));
        for (const int command : platform::menuCommands(dialog))
            if (command != platform::IDCANCEL) choose(2, command);
        choose(2, platform::IDCANCEL);
    });
}

TEST_F(TonalPlayer, SlidersMoveTheSongItsVolumeAndItsSpeed) {
    addSongs(2);
    run([&] {
        click(idPlay);
        driver::slide({dialog, idPosition}, 100);
        clock.advance(1000);
        EXPECT_EQ(place(), 110);
        driver::holdThumb({dialog, idPosition}, true);
        driver::slide({dialog, idPosition}, 40);
        clock.advance(1000);
        EXPECT_EQ(place(), 40); // the song goes on, the thumb stays
        EXPECT_EQ(text(idClock), "00:00:05/00:00:20");
        driver::holdThumb({dialog, idPosition}, false);
        clock.advance(10);
        EXPECT_EQ(place(), 50);
        platform::setFocus({dialog, idPosition});
        driver::pressKey(dialog, "Right");
        EXPECT_EQ(place(), 60);
        driver::pressKey(dialog, "PgUp");
        EXPECT_EQ(place(), 160);
        clock.advance(1000);
        EXPECT_EQ(place(), 170);

        driver::slide({dialog, idVolume}, 80);
        EXPECT_EQ(text(idVolumeText), "80");
        EXPECT_EQ(sound.volumes(), std::set<int>{800});
        click(idMute);
        EXPECT_EQ(sound.volumes(), std::set<int>{0});
        driver::slide({dialog, idVolume}, 30);
        EXPECT_EQ(sound.volumes(), std::set<int>{0});
        click(idMute);
        EXPECT_EQ(sound.volumes(), std::set<int>{300});

        driver::slide({dialog, idPosition}, 0);
        driver::slide({dialog, idSpeed}, 200);
        EXPECT_EQ(text(idSpeedText), "200");
        clock.advance(1000);
        EXPECT_EQ(place(), 20);
        for (const int low : {0, 4}) {
            driver::slide({dialog, idSpeed}, low);
            EXPECT_EQ(text(idSpeedText), "5");
            EXPECT_EQ(platform::getPosition({dialog, idSpeed}), 5);
        }
        click(idNormalSpeed);
        EXPECT_EQ(text(idSpeedText), "100");
        clock.advance(1000);
        EXPECT_EQ(place(), 30);
        driver::slide({dialog, idSpeed}, 50);
    });
    run([&] { // volume and speed are kept, muting is not
        EXPECT_EQ(text(idVolumeText), "30");
        EXPECT_EQ(platform::getPosition({dialog, idVolume}), 30);
        EXPECT_EQ(text(idSpeedText), "50");
        EXPECT_FALSE(platform::isChecked({dialog, idMute}));
        EXPECT_EQ(chosen(), (std::vector<int>{idInOrder, idFromStart, idNoLimit}));
        click(idPlay);
        EXPECT_EQ(sound.volumes(), std::set<int>{300});
        clock.advance(2000);
        EXPECT_EQ(place(), 10);
    });
}

TEST_F(TonalPlayer, TheSliderIsLeftToTheHandThatHoldsIt) {
    addSongs(2);
    run([&] {
        click(idFromSabi);
        click(idPlay);
        driver::holdThumb({dialog, idPosition}, true);
        driver::slide({dialog, idPosition}, 119);
        click(idFromIntro);
        clock.advance(200);
        EXPECT_EQ(text(idTitle), "曲2");
        EXPECT_EQ(place(), 119);
        EXPECT_EQ(platform::getRangeHigh({dialog, idPosition}), 120);
        driver::holdThumb({dialog, idPosition}, false);
        clock.advance(10);
        EXPECT_EQ(platform::getRangeHigh({dialog, idPosition}), 50);
        EXPECT_LE(place(), 50);
    });
}

TEST_F(TonalPlayer, TheKeyboardIsEnough) {
    addSongs(4);
    run([&] {
        EXPECT_TRUE(platform::hasFocus({dialog, idSongs}));
        driver::pressKey(dialog, "Down");
        driver::pressKey(dialog, "Down");
        driver::pressKey(dialog, "Return");
        EXPECT_EQ(text(idTitle), "曲3");
        // Everything that can be used is on the way of the Tab key; of a group the button that is set.
        std::set<int> visited;
        for (int i = 0; i < 30; ++i) {
            driver::pressKey(dialog, "Tab");
            for (int id = idInOrder; id <= idPlaySelected; ++id)
                if (platform::hasFocus({dialog, id})) visited.insert(id);
        }
        EXPECT_THAT(visited,
                    testing::IsSupersetOf({+idInOrder, +idFromStart, +idNoLimit, +idSongs, +idPosition,
                                           +idPlay, +idStop, +idVolume, +idMute, +idSpeed, +idBack,
                                           +idForward, +idNormalSpeed, +idPlaySelected}));
        platform::setFocus({dialog, idForward});
        driver::pressKey(dialog, "Space");
        EXPECT_EQ(text(idTitle), "曲4");
        driver::settle();
        platform::setFocus({dialog, idFromStart});
        driver::pressKey(dialog, "Down");
        EXPECT_TRUE(platform::isChecked({dialog, idFromIntro}));
        EXPECT_TRUE(platform::isMenuItemChecked(dialog, idFromIntro));
        driver::pressKey(dialog, "Alt+V");
        EXPECT_TRUE(platform::hasFocus({dialog, idVolume}));
        driver::pressKey(dialog, "Escape");
        EXPECT_FALSE(platform::isWindow(dialog) && platform::isVisible(dialog));
    });
}

TEST_F(TonalPlayer, WithoutSongsNothingHappens) {
    run([&] {
        for (const int id :
             {idPlay, idStop, idBack, idForward, idPlaySelected, idMute, idNormalSpeed, idFromSabi})
            EXPECT_TRUE(click(id));
        driver::slide({dialog, idPosition}, 10);
        clock.advance(1000);
        EXPECT_EQ(icons(), standing);
        EXPECT_EQ(text(idClock), "00:00:00/00:00:00");
        EXPECT_EQ(text(idHistory), "");
    });
}

TEST_F(TonalPlayer, SongsThatCannotBePlayed) {
    addSongs(2);
    std::filesystem::remove(file("1.mp3"));
    run([&] {
        click(idPlay);
        EXPECT_EQ(icons(), playing); // silently, until the user goes on
        clock.advance(30'000);
        EXPECT_EQ(text(idTitle), "曲1");
        EXPECT_EQ(text(idClock), "00:00:00/00:00:00");
        click(idForward);
        EXPECT_EQ(text(idTitle), "曲2");
        std::filesystem::remove(file("2.mp3"));
        click(idFromIntro);
        click(idForward);
        EXPECT_EQ(icons(), standing);
        EXPECT_EQ(text(idTitle), "この再生位置で聞ける曲がありません。");
        EXPECT_EQ(text(idArtist), "") << "there is no song in hand";
        EXPECT_THAT(driver::clippedControls(dialog), IsEmpty());
        EXPECT_EQ(text(idClock), "00:00:00/00:00:00");
        EXPECT_EQ(platform::getRangeHigh({dialog, idPosition}), 0);
        clock.advance(1000);
        EXPECT_EQ(icons(), standing);
    });
}

TEST_F(TonalPlayer, LooksRightInEveryState) {
    DataResource longNamed = song("荒城の月");
    std::string title;
    for (int i = 0; i < 20; ++i)
        title += "とても長い題名の";
    longNamed.setTitle(title);
    longNamed.setArtist(title);
    longNamed.setReleaseDate({.year = 1998, .month = 10, .day = 28});
    add(longNamed);
    addSongs(30);
    run([&] {
        const auto look = [&] {
            driver::settle();
            const platform::Rect rect = platform::getRect(dialog);
            EXPECT_LE(rect.width, 1366);
            EXPECT_LE(rect.height, 700); // of 768, without frame and task bar
            // The history runs out of its field at the left, where the oldest stand.
            EXPECT_THAT(driver::clippedControls(dialog), testing::Each(testing::StartsWith("8134:")));
            EXPECT_FALSE(driver::isCellCut({dialog, idSongs}, 0, ViewResource::releaseDate));
        };
        look();
        click(idForward);
        clock.advance(1000);
        look();
        click(idPlay);
        click(idMute);
        driver::select({dialog, idSongs}, 5);
        driver::slide({dialog, idSpeed}, 175);
        look();
        click(idOneSecond);
        click(idMute);
        click(idPlay);
        clock.advance(60'000);
        click(idBack);
        look();
    });
}

} // namespace
