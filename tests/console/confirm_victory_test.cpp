#include "console/confirm_victory.h"
#include "console/desk.h"
#include "platform/controls.h"
#include "support/test_sounds.h"

namespace {

using namespace console_tests;
namespace driver = platform::driver;
using platform::WindowHandle;

enum : int { idOk = 6102, idDrumRoll = 6103, idDrumRollStop = 6104, idAward = 6105, idAwardStop = 6106 };

class ConfirmVictory : public Desk {
protected:
    void SetUp() override {
        const std::string file = folder.file("effect.wav");
        test_support::writeWav(file, test_support::tones({440, 880}));
        host().dataApplication.setEfcAward(file);
        host().dataApplication.setEfcDrumRoll(file);
    }
    int run(const std::function<void(WindowHandle)>& act) {
        driver::Script script;
        script.expectDialog("IDD_KDL0601_CONFIRM_VECTORY", act);
        const int result = dlgConfirmVictory(window);
        EXPECT_THAT(script, RanAsWritten());
        return result;
    }
};

TEST_F(ConfirmVictory, BothSoundsPlayTogetherAndEndWithTheDialog) {
    const int result = run([&](WindowHandle dialog) {
        EXPECT_EQ(host().effectMedia.getPosition(), 0);
        ASSERT_TRUE(driver::click({dialog, idDrumRoll}));
        clock.advance(300);
        ASSERT_TRUE(driver::click({dialog, idAward}));
        clock.advance(400);
        EXPECT_EQ(host().bgmMedia.getPosition(), 700);
        EXPECT_EQ(host().effectMedia.getPosition(), 400);
        ASSERT_TRUE(driver::click({dialog, idAwardStop}));
        clock.advance(100);
        EXPECT_EQ(host().effectMedia.getPosition(), 400);
        ASSERT_TRUE(driver::click({dialog, idAward}));
        EXPECT_EQ(host().effectMedia.getPosition(), 0) << "from the start";
        ASSERT_TRUE(driver::click({dialog, idDrumRollStop}));
        ASSERT_TRUE(driver::click({dialog, idOk}));
    });
    EXPECT_EQ(result, 1);
    EXPECT_EQ(host().effectMedia.getEnd(), 0) << "closed";
    EXPECT_EQ(host().bgmMedia.getEnd(), 0);
    EXPECT_EQ(run([](WindowHandle dialog) { driver::pressKey(dialog, "Escape"); }), 0);
}

} // namespace
