#pragma once
// A catalogue with its music files, the silent sound device and a clock that stands still: what the editors
// of songs work on.

#include <functional>
#include <string>
#include <vector>

#include "data/labels.h"
#include "host/state/host_state.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "support/form.h"
#include "support/temporary_folder.h"
#include "support/test_sounds.h"

namespace editors_tests {

namespace driver = platform::driver;
using test_support::Form;

class CatalogueDesk : public testing::Test {
protected:
    CatalogueDesk() {
        resetHost();
        EXPECT_EQ(host().accesserResource.open(folder.file("ResourceData.xml")), 1);
    }
    ~CatalogueDesk() override {
        EXPECT_THAT(script.faults(), testing::IsEmpty());
        resetHost();
    }

    // A file of silence, whatever its name says, by default of a minute; its path.
    std::string file(const std::string& name, int milliseconds = 60000) const {
        test_support::writeSilence(platform::nativePath(folder.file(name)), milliseconds);
        return folder.file(name);
    }
    // A song whose intro is 0 to 50 and chorus 100 to 200; its number.
    int addSong(const std::string& path) const {
        DataResource song;
        song.setFileName(path);
        song.setFileType(fileTypeMp3);
        song.setLength(600);
        song.setTitle("曲");
        song.setArtist("歌手");
        song.setArtistKana("カシュ");
        song.setGenre("Anime");
        song.setType(2);
        song.setReleaseDate({2011, 2, 0, 3, 0, 0, 0, 0});
        song.setFamous(5);
        song.setDeficalt(3);
        song.setIntroStart(0);
        song.setIntroEnd(50);
        song.setSabiStart(100);
        song.setSabiEnd(200);
        song.setTitleVoice("/声/曲.wav");
        const int number = host().accesserResource.add(song);
        EXPECT_EQ(host().accesserResource.commit(), 1);
        return number;
    }

    static DataResource stored(int number) {
        DataResource song;
        host().accesserResource.get(number, song);
        return song;
    }
    // Of the songs in the file itself.
    std::vector<std::string> titlesOnDisk() const {
        AccesserResource other;
        EXPECT_EQ(other.open(folder.file("ResourceData.xml")), 1);
        std::vector<std::string> titles;
        for (const DataResource& song : other.all())
            titles.push_back(song.getTitle());
        return titles;
    }

    // What `open` gives, whose dialog of that form `act` leaves.
    template <class Open>
    auto answer(const char* form, Open open, const std::function<void()>& act) {
        script.expectDialog(form, [&](Form opened) {
            dialog = opened;
            driver::settle();
            act();
        });
        return open();
    }
    // The numbered message that comes next is closed with its first button.
    void expectMessage(int code) { test_support::expectMessage(script, code, 0); }

    test_support::TemporaryFolder folder;
    platform::ManualClock clock{{2026, 3, 0, 1, 19, 0, 0, 0}};
    driver::Script script; // has run as written at the end
    Form dialog;           // that answer() has opened
};

} // namespace editors_tests
