// What the host hears in the song editor: a file played backwards, and a range that was marked by ear.

#include <gtest/gtest.h>

#include "e2e/desk.h"
#include "platform/controls.h"
#include "support/audience.h"
#include "support/heard_song.h"

namespace {

namespace driver = platform::driver;
using platform::WindowHandle;

using test_support::melody;

enum : int { idReverse = 3216, idPlay = 3217, idStop = 3218, idCancel = 3254 };
enum : int { idIntroStart = 3223, idMarkEnd = 3226, idIntroPlay = 3228 };

class HeardEditor : public testing::Test {
protected:
    HeardEditor() : desk(audience.device()) {}

    // Opens the editor on a new song of that file name.
    void edit(const std::string& name, const std::function<void()>& act) {
        const std::string file = desk.folder.file(name);
        test_support::writeWav(file, test_support::tones({melody[0], melody[2], melody[4]}));
        DataResource song;
        song.setFileName(file);
        desk.folder.addSongs({song});
        desk.start();
        desk.script.expectDialog("IDD_KDL0302_EDIT", [&](WindowHandle window) {
            dialog = window;
            EXPECT_TRUE(desk.passUntil([this] { return live(idPlay); }, 3000)) << "the song is measured";
            act();
            driver::click({window, idCancel});
        });
        host().questEditors.song(host().mainWindow, 1);
        EXPECT_TRUE(desk.script.done());
    }
    bool live(int id) const { return platform::isEnabled({dialog, id}); }

    test_support::Audience audience;
    e2e::Desk desk;
    WindowHandle dialog;
};

} // namespace

TEST_F(HeardEditor, BackwardsIsBackwards) {
    edit("song", [this] {
        driver::click({dialog, idReverse});
        driver::click({dialog, idPlay});
        ASSERT_TRUE(desk.passUntil([this] { return live(idPlay); }, 6000)) << "it stops at the start";
        EXPECT_NEAR(audience.toneAt(400), melody[4], 15);
        EXPECT_NEAR(audience.toneAt(1400), melody[2], 15);
        EXPECT_NEAR(audience.toneAt(2400), melody[0], 15);
    });
}

TEST_F(HeardEditor, AMarkedRangeSoundsAlone) {
    edit("song.wav", [this] {
        driver::type({dialog, idIntroStart}, "10");
        driver::click({dialog, idPlay});
        desk.pass(1500);
        driver::click({dialog, idMarkEnd});
        driver::click({dialog, idStop});
        desk.pass(300);
        audience.forget();
        ASSERT_TRUE(driver::click({dialog, idIntroPlay}));
        ASSERT_TRUE(desk.passUntil([this] { return live(idPlay); }, 3000)) << "it stops at its end";
        EXPECT_NEAR(audience.toneAt(100), melody[2], 15);
        EXPECT_EQ(audience.toneAt(1400), 0) << "the mark was set behind the second tone";
    });
}
