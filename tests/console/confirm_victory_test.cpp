#include "console/confirm_victory.h"

#include "console/desk.h"
#include "console/dialog_ids.h"
#include "support/test_sounds.h"

namespace {

using namespace console_tests;
using namespace confirm_victory;

using ConfirmVictory = Desk;

TEST_F(ConfirmVictory, BothSoundsPlayTogetherAndEndWithTheDialog) {
    const std::string file = folder.file("effect.wav");
    test_support::writeSilence(file, 2000);
    host().dataApplication.setEfcAward(file);
    host().dataApplication.setEfcDrumRoll(file);
    const auto open = [this] { return dlgConfirmVictory(window); };
    const int result = answer(form, open, [&](Form dialog) {
        EXPECT_EQ(host().effectMedia.getPosition(), 0);
        dialog.click(idDrumRoll);
        clock.advance(300);
        dialog.click(idAward);
        clock.advance(400);
        EXPECT_EQ(host().bgmMedia.getPosition(), 700);
        EXPECT_EQ(host().effectMedia.getPosition(), 400);
        dialog.click(idAwardStop);
        clock.advance(100);
        EXPECT_EQ(host().effectMedia.getPosition(), 400);
        dialog.click(idAward);
        EXPECT_EQ(host().effectMedia.getPosition(), 0) << "from the start";
        dialog.click(idDrumRollStop);
        EXPECT_FALSE(host().bgmMedia.isPlaying());
        dialog.click(idOk);
    });
    EXPECT_EQ(result, 1);
    EXPECT_EQ(host().effectMedia.getEnd(), 0) << "closed";
    EXPECT_EQ(host().bgmMedia.getEnd(), 0);
    EXPECT_EQ(answer(form, open, [](Form dialog) { dialog.key("Escape"); }), 0);
}

} // namespace
