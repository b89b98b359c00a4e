// The player's sliders, its keys and its looks.

#include "foundation/views/view_resource.h"
#include "playback/player_window.h"

namespace {

using namespace playback_tests;
using testing::ElementsAre;

using PlayerControls = PlayerWindow;

TEST_F(PlayerControls, SlidersMoveTheSongItsVolumeAndItsSpeed) {
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

TEST_F(PlayerControls, TheSliderIsLeftToTheHandThatHoldsIt) {
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

TEST_F(PlayerControls, TheKeyboardIsEnough) {
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

TEST_F(PlayerControls, LooksRightInEveryState) {
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
