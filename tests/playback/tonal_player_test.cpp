#include "playback/tonal_player.h"

#include <filesystem>

#include "foundation/views/view_resource.h"
#include "host/state/host_state.h"
#include "platform/menu.h"
#include "platform/window.h"
#include "playback/jukebox.h"
#include "playback/tonal_player_ids.h"
#include "support/form.h"

namespace {

namespace driver = platform::driver;
using namespace tonal_player;
using test_support::Form;
using testing::ElementsAre;
using testing::IsEmpty;

class TonalPlayer : public playback_tests::Jukebox {
protected:
    // Opens the window, does `act` in it and closes it.
    void run(const std::function<void()>& act) {
        script.expectDialog(form, [&](Form opened) {
            window = opened;
            act();
            window.close();
        });
        dlgTonalPlayer({});
        EXPECT_THAT(script.faults(), IsEmpty());
        EXPECT_THAT(sound.volumes(), IsEmpty()) << "a player is left";
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

TEST_F(TonalPlayer, AnEvening) {
    addSongs(3);
    run([&] {
        EXPECT_EQ(window.title(), "トーナルプレイヤー");
        EXPECT_EQ(platform::listRowCount(window[idSongs]), 3);
        EXPECT_EQ(platform::listCell(window[idSongs], 1, 1), "曲2");
        EXPECT_EQ(window.selectedRow(idSongs), 0);
        EXPECT_EQ(icons(), standing);
        EXPECT_EQ(text(idClock), "00:00:00/00:00:00");
        EXPECT_THAT(chosen(), ElementsAre(+idInOrder, +idFromStart, +idNoLimit));

        window.click(idPlay);
        EXPECT_EQ(icons(), playing);
        EXPECT_THAT(window.texts({idTitle, idArtist}), ElementsAre("曲1", "曲1の歌手"));
        EXPECT_EQ(sound.playing(file("1.mp3")), 1);
        clock.advance(5050);
        EXPECT_EQ(text(idClock), "00:00:05/00:00:20");
        EXPECT_EQ(place(), 50);
        window.click(idPlay);
        EXPECT_EQ(icons(), pausing);
        EXPECT_EQ(sound.playing(file("1.mp3")), 0);
        clock.advance(3000);
        EXPECT_EQ(place(), 50);
        window.slide(idPosition, 60);
        clock.advance(100);
        EXPECT_EQ(place(), 60);
        window.click(idPlay);
        clock.advance(1000);
        EXPECT_EQ(place(), 70);

        window.click({idFromSabi, idForward});
        EXPECT_EQ(text(idTitle), "曲2");
        EXPECT_EQ(window.selectedRow(idSongs), 1);
        EXPECT_EQ(place(), 80);
        clock.advance(4000);
        EXPECT_EQ(text(idTitle), "曲3");
        window.click(idBack);
        EXPECT_EQ(text(idTitle), "曲2");
        window.click({idBack, idBack});
        EXPECT_THAT(window.texts({idTitle, idHistory}), ElementsAre("曲3", "1←2←3←2←1←3"));
        clock.advance(1500);
        EXPECT_EQ(text(idClock), "00:00:09/00:00:20");

        window.click(idStop);
        EXPECT_EQ(icons(), standing);
        EXPECT_EQ(place(), 80); // as far back as it goes
        EXPECT_EQ(sound.playing(file("3.mp3")), 0);
        clock.advance(5000);
        EXPECT_EQ(text(idTitle), "曲3");

        window.click({idLoop, idThreeSeconds, idPlay});
        clock.advance(10'000);
        EXPECT_THAT(window.texts({idTitle, idHistory}), ElementsAre("曲3", "1←2←3←2←1←3"));
        window.click(idRandomOrder);
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
        driver::doubleClickRow(window[idSongs], 3);
        EXPECT_EQ(text(idTitle), "曲4");
        clock.advance(7000);
        EXPECT_EQ(place(), 70);
        driver::doubleClickRow(window[idSongs], 3); // once more from its start
        EXPECT_EQ(place(), 0);
        EXPECT_EQ(text(idHistory), "4");
        EXPECT_TRUE(isMarked(3));
        EXPECT_FALSE(isMarked(0));
    });
}

TEST_F(TonalPlayer, WhoLooksForASongIsNotDisturbed) {
    addSongs(5);
    run([&] {
        window.click({idOneSecond, idPlay});
        window.select(idSongs, 4);
        clock.advance(1000);
        EXPECT_EQ(text(idTitle), "曲2");
        EXPECT_EQ(window.selectedRow(idSongs), 4);
        EXPECT_TRUE(isMarked(1));
        window.click({idPlay, idStop});
        EXPECT_EQ(window.selectedRow(idSongs), 4);
        window.click(idForward);
        EXPECT_EQ(window.selectedRow(idSongs), 2);
        clock.advance(1000);
        EXPECT_EQ(window.selectedRow(idSongs), 3);
    });
}

TEST_F(TonalPlayer, RadioButtonsAndMenuAreTwins) {
    addSongs(2);
    run([&] {
        window.click({idRandomOrder, idFromAnswer, idTenSeconds});
        EXPECT_THAT(chosen(), ElementsAre(+idRandomOrder, +idFromAnswer, +idTenSeconds));
        for (int id = idInOrder; id <= idTenSeconds; ++id) {
            SCOPED_TRACE(id);
            EXPECT_TRUE(driver::chooseMenu(window, id));
            EXPECT_TRUE(window.checked(id));
            EXPECT_EQ(chosen().size(), 3u);
            EXPECT_THAT(platform::menuItemText(window, id), testing::StartsWith(text(id)));
        }
        driver::chooseMenu(window, idMute);
        EXPECT_TRUE(window.checked(idMute));
        window.click(idMute);
        EXPECT_FALSE(platform::isMenuItemChecked(window, idMute));

        // What was chosen in the menu counts.
        for (const int id : {idFromIntro, idOneSecond, idInOrder, idPlay})
            EXPECT_TRUE(driver::chooseMenu(window, id));
        EXPECT_EQ(place(), 20);
        clock.advance(1000);
        EXPECT_EQ(text(idTitle), "曲2");
        for (const int id : {idForward, idBack, idStop})
            EXPECT_TRUE(driver::chooseMenu(window, id));
        EXPECT_EQ(icons(), standing);
    });
}

TEST_F(TonalPlayer, TheListsMenuHasTheSameCommands) {
    addSongs(3);
    run([&] {
        const auto choose = [&](int row, int command) {
            script.expectMenu("IDM_KDL0801_LISTMENUE", command);
            driver::rightClickRow(window[idSongs], row);
        };
        choose(1, idPlaySelected);
        EXPECT_EQ(text(idTitle), "曲2");
        choose(0, idForward);
        EXPECT_EQ(text(idTitle), "曲3");
        choose(0, idFromSabi);
        EXPECT_TRUE(window.checked(idFromSabi));
        choose(0, idMute);
        EXPECT_TRUE(window.checked(idMute));
        for (const int command : platform::menuCommands(window))
            if (command != platform::IDCANCEL) choose(2, command);
        choose(2, platform::IDCANCEL);
    });
}

TEST_F(TonalPlayer, SlidersMoveTheSongItsVolumeAndItsSpeed) {
    addSongs(2);
    run([&] {
        window.click(idPlay);
        window.slide(idPosition, 100);
        clock.advance(1000);
        EXPECT_EQ(place(), 110);
        driver::holdThumb(window[idPosition], true);
        window.slide(idPosition, 40);
        clock.advance(1000);
        EXPECT_EQ(place(), 40); // the song goes on, the thumb stays
        EXPECT_EQ(text(idClock), "00:00:05/00:00:20");
        driver::holdThumb(window[idPosition], false);
        clock.advance(10);
        EXPECT_EQ(place(), 50);
        window.focus(idPosition);
        window.key("Right");
        EXPECT_EQ(place(), 60);
        window.key("PgUp");
        EXPECT_EQ(place(), 160);
        clock.advance(1000);
        EXPECT_EQ(place(), 170);

        window.slide(idVolume, 80);
        EXPECT_EQ(text(idVolumeText), "80");
        EXPECT_EQ(sound.volumes(), std::set<int>{800});
        window.click(idMute);
        EXPECT_EQ(sound.volumes(), std::set<int>{0});
        window.slide(idVolume, 30);
        window.click(idForward);
        EXPECT_EQ(sound.volumes(), std::set<int>{0});
        window.click(idMute);
        EXPECT_EQ(sound.volumes(), std::set<int>{300});

        window.slide(idPosition, 0);
        window.slide(idSpeed, 200);
        EXPECT_EQ(text(idSpeedText), "200");
        clock.advance(1000);
        EXPECT_EQ(place(), 20);
        window.click(idForward); // at the same speed
        clock.advance(1000);
        EXPECT_EQ(place(), 20);
        for (const int low : {0, 4}) {
            window.slide(idSpeed, low);
            EXPECT_EQ(text(idSpeedText), "5");
            EXPECT_EQ(window.place(idSpeed), 5);
        }
        window.click(idNormalSpeed);
        EXPECT_EQ(text(idSpeedText), "100");
        clock.advance(1000);
        EXPECT_EQ(place(), 30);
        window.slide(idSpeed, 50);
    });
    run([&] { // volume and speed are kept, muting is not
        EXPECT_THAT(window.texts({idVolumeText, idSpeedText}), ElementsAre("30", "50"));
        EXPECT_EQ(window.place(idVolume), 30);
        EXPECT_FALSE(window.checked(idMute));
        EXPECT_THAT(chosen(), ElementsAre(+idInOrder, +idFromStart, +idNoLimit));
        window.click(idPlay);
        EXPECT_EQ(sound.volumes(), std::set<int>{300});
        clock.advance(2000);
        EXPECT_EQ(place(), 10);
    });
}

TEST_F(TonalPlayer, TheSliderIsLeftToTheHandThatHoldsIt) {
    addSongs(2);
    run([&] {
        window.click({idFromSabi, idPlay});
        driver::holdThumb(window[idPosition], true);
        window.slide(idPosition, 119);
        window.click(idFromIntro);
        clock.advance(200);
        EXPECT_EQ(text(idTitle), "曲2");
        EXPECT_EQ(place(), 119);
        EXPECT_EQ(platform::getRangeHigh(window[idPosition]), 120);
        driver::holdThumb(window[idPosition], false);
        clock.advance(10);
        EXPECT_EQ(platform::getRangeHigh(window[idPosition]), 50);
        EXPECT_LE(place(), 50);
    });
}

TEST_F(TonalPlayer, TheKeyboardIsEnough) {
    addSongs(4);
    run([&] {
        EXPECT_TRUE(window.focused(idSongs));
        window.key("Down");
        window.key("Down");
        window.key("Return");
        EXPECT_EQ(text(idTitle), "曲3");
        // Everything that can be used is on the way of the Tab key; of a group the button that is set.
        std::set<int> visited;
        for (int i = 0; i < 30; ++i) {
            window.key("Tab");
            for (int id = idInOrder; id <= idPlaySelected; ++id)
                if (window.focused(id)) visited.insert(id);
        }
        EXPECT_THAT(visited,
                    testing::IsSupersetOf({+idInOrder, +idFromStart, +idNoLimit, +idSongs, +idPosition,
                                           +idPlay, +idStop, +idVolume, +idMute, +idSpeed, +idBack,
                                           +idForward, +idNormalSpeed, +idPlaySelected}));
        window.focus(idForward);
        window.key("Space");
        EXPECT_EQ(text(idTitle), "曲4");
        driver::settle();
        window.focus(idFromStart);
        window.key("Down");
        EXPECT_TRUE(window.checked(idFromIntro));
        EXPECT_TRUE(platform::isMenuItemChecked(window, idFromIntro));
        window.key("Alt+V");
        EXPECT_TRUE(window.focused(idVolume));
        window.key("Escape");
        EXPECT_FALSE(platform::isWindow(window) && platform::isVisible(platform::WindowHandle(window)));
    });
}

TEST_F(TonalPlayer, WithoutSongsNothingHappens) {
    run([&] {
        window.click({idPlay, idStop, idBack, idForward, idPlaySelected, idMute, idNormalSpeed, idFromSabi});
        window.slide(idPosition, 10);
        clock.advance(1000);
        EXPECT_EQ(icons(), standing);
        EXPECT_THAT(window.texts({idClock, idHistory}), ElementsAre("00:00:00/00:00:00", ""));
    });
}

TEST_F(TonalPlayer, SongsThatCannotBePlayed) {
    addSongs(2);
    std::filesystem::remove(file("1.mp3"));
    run([&] {
        window.click(idPlay);
        EXPECT_EQ(icons(), playing); // silently, until the user goes on
        clock.advance(30'000);
        EXPECT_THAT(window.texts({idTitle, idClock}), ElementsAre("曲1", "00:00:00/00:00:00"));
        window.click({idPlay, idPlay});
        clock.advance(100);
        EXPECT_EQ(text(idTitle), "曲1");
        window.click(idForward);
        EXPECT_EQ(text(idTitle), "曲2");
        EXPECT_EQ(sound.playing(file("2.mp3")), 1);
        std::filesystem::remove(file("2.mp3"));
        window.click({idFromIntro, idForward});
        EXPECT_EQ(icons(), standing);
        EXPECT_THAT(window.texts({idTitle, idArtist, idClock}),
                    ElementsAre("この再生位置で聞ける曲がありません。", "", "00:00:00/00:00:00"))
            << "there is no song in hand";
        EXPECT_THAT(window.cut(), IsEmpty());
        EXPECT_EQ(platform::getRangeHigh(window[idPosition]), 0);
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
            // The history runs out of its field at the left, where the oldest stand.
            EXPECT_THAT(window.cut(), testing::Each(testing::StartsWith(std::to_string(idHistory) + ":")));
            const platform::Rect rect = platform::getRect(window);
            EXPECT_LE(rect.width, 1366);
            EXPECT_LE(rect.height, 700); // of 768, without frame and task bar
            EXPECT_FALSE(driver::isCellCut(window[idSongs], 0, ViewResource::releaseDate));
        };
        look();
        window.click(idForward);
        clock.advance(1000);
        look();
        window.click({idPlay, idMute});
        window.select(idSongs, 5);
        window.slide(idSpeed, 175);
        look();
        window.click({idOneSecond, idMute, idPlay});
        clock.advance(60'000);
        window.click(idBack);
        look();
    });
}

} // namespace
