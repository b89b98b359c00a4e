// What the host hears in the song editor: a file played backwards, and a range that was marked by ear.

#include "e2e/desk.h"
#include "editors/dialog_ids.h"
#include "editors/sample_controls.h"
#include "support/audience.h"
#include "support/heard_song.h"

namespace {

using namespace sample_controls;

using test_support::melody;

constexpr int introStart = rangeId(rowIntro, startEdit), markIntroEnd = rangeId(rowIntro, markEnd),
              playIntro = rangeId(rowIntro, playButton);

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
        desk.script.expectDialog(resource_edit::form, [&](e2e::Form window) {
            dialog = window;
            act();
            dialog.click(resource_edit::idCancel);
        });
        host().questEditors.song(host().mainWindow, 1);
        EXPECT_TRUE(desk.script.done());
    }

    test_support::Audience audience;
    e2e::Desk desk;
    e2e::Form dialog;
};

} // namespace

TEST_F(HeardEditor, BackwardsIsBackwards) {
    edit("song", [this] {
        dialog.click(idReverse);
        dialog.click(idPlay);
        ASSERT_TRUE(desk.passUntil([this] { return dialog.live(idPlay); }, 6000)) << "it stops at the start";
        EXPECT_NEAR(audience.toneAt(400), melody[4], 15);
        EXPECT_NEAR(audience.toneAt(1400), melody[2], 15);
        EXPECT_NEAR(audience.toneAt(2400), melody[0], 15);
    });
}

TEST_F(HeardEditor, AMarkedRangeSoundsAlone) {
    edit("song.wav", [this] {
        dialog.type(introStart, "10");
        dialog.click(idPlay);
        desk.pass(1500);
        dialog.click(markIntroEnd);
        dialog.click(idStop);
        desk.pass(300);
        audience.forget();
        dialog.click(playIntro);
        ASSERT_TRUE(desk.passUntil([this] { return dialog.live(idPlay); }, 3000)) << "it stops at its end";
        EXPECT_NEAR(audience.toneAt(100), melody[2], 15);
        EXPECT_EQ(audience.toneAt(1400), 0) << "the mark was set behind the second tone";
    });
}
