// The player's commands, by button, menu and list.

#include <filesystem>

#include "playback/player_window.h"

namespace {

using namespace playback_tests;
using testing::ElementsAre;
using testing::IsEmpty;

using TonalPlayer = PlayerWindow;

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

} // namespace
