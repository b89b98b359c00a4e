#include "console/desk.h"
#include "console/player_board.h"
#include "console/revision.h"
#include "data/labels.h"
#include "host/state/console_ids.h"
#include "platform/controls.h"

namespace {

using namespace console_tests;
namespace driver = platform::driver;
using platform::WindowHandle;

constexpr char dialogName[] = "IDD_KDL0104_REVISION";

enum : int { idStage = 1402, idRule = 1403, idOk = 1440, idCancel = 1441, idHide = 1442 };
enum Field : int { name = 1, status = 2, score = 3, hands = 5, rest = 7 };

int idOf(int user, Field field) {
    return 1404 + 9 * user + field;
}

class Revision : public Desk {
protected:
    void SetUp() override {
        DataSession stage = stageOf("段", 1, "");
        stage.setHandsType(handsInStage);
        stage.setHands(2);
        openSession({stage});
        setUser(0, "甲", 30);
        setUser(1, "乙", 20, userFalseStart);
        setUser(2, "丙", 10, userOut);
        refreshUserPane();
    }
    int run(const std::function<void(WindowHandle)>& act) {
        driver::Script script;
        script.expectDialog(dialogName, act);
        const int result = dlgRevision(window);
        EXPECT_THAT(script, RanAsWritten());
        return result;
    }
    const DataUserInfo& user(int index) const { return host().userList[static_cast<std::size_t>(index)]; }
};

TEST_F(Revision, WritesTheUsersOnOkOnly) {
    EXPECT_EQ(run([](WindowHandle dialog) {
                  EXPECT_EQ(platform::getText({dialog, idStage}), "ステージ名：段");
                  EXPECT_EQ(platform::getText({dialog, idRule}),
                            "このステージ中に[2]回 お手つきした場合、このステージが完了するまでお休み。");
                  driver::type({dialog, idOf(0, name)}, "変更");
                  driver::pressKey(dialog, "Escape");
              }),
              0);
    EXPECT_EQ(user(0).getName(), "甲");

    EXPECT_EQ(run([](WindowHandle dialog) {
                  driver::type({dialog, idOf(0, name)}, "変更");
                  driver::type({dialog, idOf(0, score)}, "-31000"); // only the arrows keep to the range
                  driver::type({dialog, idOf(0, hands)}, "3");
                  driver::type({dialog, idOf(1, rest)}, "2");
                  ASSERT_TRUE(driver::spin({dialog, idOf(1, score)}, 2));
                  ASSERT_TRUE(driver::select({dialog, idOf(3, status)}, userTakesPart));
                  ASSERT_TRUE(driver::click({dialog, idHide}));
                  ASSERT_TRUE(driver::click({dialog, idOk}));
              }),
              1);
    EXPECT_EQ(user(0).getName(), "変更");
    EXPECT_EQ(user(0).getScore(), -31000);
    EXPECT_EQ(user(0).getHands(), 3);
    EXPECT_EQ(user(1).getScore(), 40);
    EXPECT_EQ(user(1).getRest(), 2);
    EXPECT_EQ(user(2).getScore(), 10) << "a disabled field keeps its value";
    EXPECT_EQ(user(3).getAnswerRight(), userTakesPart);
    EXPECT_EQ(user(3).getType(), 1);
    EXPECT_TRUE(host().hideScores);
    EXPECT_EQ(consoleText(ids::userRank1 + 1), "１位") << "the board follows";
    run([](WindowHandle dialog) {
        EXPECT_TRUE(platform::isChecked({dialog, idHide}));
        driver::click({dialog, idCancel});
    });
}

TEST_F(Revision, FieldsFollowTheState) {
    struct Row {
        int status;
        bool name, score, hands, rest;
    };
    const Row rows[] = {{userTakesPart, true, true, true, false},
                        {userFalseStart, true, true, false, true},
                        {userUnset, true, true, false, true}, // stays as it was
                        {userOut, false, false, false, false},
                        {userUnset, false, false, false, false}};
    run([&](WindowHandle dialog) {
        EXPECT_FALSE(platform::isEnabled({dialog, idOf(0, rest)})) << "also at the opening";
        EXPECT_FALSE(platform::isEnabled({dialog, idOf(2, score)}));
        for (const Row& row : rows) {
            ASSERT_TRUE(driver::select({dialog, idOf(1, status)}, row.status));
            EXPECT_EQ(platform::isEnabled({dialog, idOf(1, name)}), row.name) << row.status;
            EXPECT_EQ(platform::isEnabled({dialog, idOf(1, score)}), row.score) << row.status;
            EXPECT_EQ(platform::isEnabled({dialog, idOf(1, hands)}), row.hands) << row.status;
            EXPECT_EQ(platform::isEnabled({dialog, idOf(1, rest)}), row.rest) << row.status;
        }
        driver::pressKey(dialog, "Escape");
    });
}

TEST_F(Revision, WhatTheTerminalSaidMeanwhileStands) {
    run([&](WindowHandle dialog) {
        setUser(3, "新人", 0, userTakesPart);
        host().userList[0].setName("改名");
        driver::type({dialog, idOf(0, score)}, "55");
        ASSERT_TRUE(driver::click({dialog, idOk}));
    });
    EXPECT_EQ(user(3).getName(), "新人");
    EXPECT_EQ(user(3).getAnswerRight(), userTakesPart);
    EXPECT_EQ(user(0).getName(), "改名");
    EXPECT_EQ(user(0).getScore(), 55);
}

TEST_F(Revision, ANameThatTheControlCannotShowStandsUntilItIsTyped) {
    const std::string odd = "甲\x85\x40乙"; // a gap in the code page
    host().userList[0].setName(odd);
    run([&](WindowHandle dialog) {
        ASSERT_NE(platform::getText({dialog, idOf(0, name)}), odd);
        ASSERT_TRUE(driver::click({dialog, idOk}));
    });
    EXPECT_EQ(user(0).getName(), odd);
}

TEST_F(Revision, OkTellsAConnectedTerminal) {
    host().server = std::make_unique<ServerVrp>(2, 0);
    const auto revise = [&] {
        driver::Script script;
        script.expectDialog(dialogName, [](WindowHandle dialog) {
            platform::setChecked({dialog, idHide}, true);
            driver::click({dialog, idOk});
        });
        EXPECT_TRUE(driver::click(console(ids::revision)));
        EXPECT_THAT(script, RanAsWritten());
    };
    revise();
    EXPECT_EQ(host().vrmStatus, 0) << "there is no terminal";
    EXPECT_EQ(user(0).getType(), typeHideScores);
    host().connectionFlg = true;
    revise();
    EXPECT_EQ(host().requestMethod, "REVISION");
    EXPECT_EQ(host().vrmStatus, 1);
}

TEST_F(Revision, ASessionThatEndedMeanwhileKeepsItsClearedUsers) {
    const int result = run([](WindowHandle dialog) {
        for (DataUserInfo& each : host().userList)
            each.clear();
        host().kdlState->reset();
        driver::type({dialog, idOf(0, score)}, "55");
        driver::click({dialog, idHide});
        ASSERT_TRUE(driver::click({dialog, idOk}));
    });
    EXPECT_EQ(result, 0);
    EXPECT_EQ(user(0).getName(), "");
    EXPECT_EQ(user(0).getScore(), 0);
    EXPECT_FALSE(host().hideScores);
}

} // namespace
