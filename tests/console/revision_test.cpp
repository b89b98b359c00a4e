#include "console/revision.h"

#include "console/desk.h"
#include "console/dialog_ids.h"
#include "console/player_board.h"
#include "host/state/console_ids.h"

namespace {

using namespace console_tests;
using namespace revision;
using testing::ElementsAre;

int idOf(int user, int field) {
    return idUser1 + groupSize * user + field;
}

class Revision : public Desk {
protected:
    void SetUp() override {
        openSession({stage({.name = "段", .handsType = handsInStage, .hands = 2})});
        setUser(0, "甲", 30);
        setUser(1, "乙", 20, userFalseStart);
        setUser(2, "丙", 10, userOut);
        refreshUserPane();
    }
    int run(const std::function<void(Form)>& act) {
        return answer(
            form, [&] { return dlgRevision(window); }, act);
    }
    static const DataUserInfo& user(int index) { return host().userList[static_cast<std::size_t>(index)]; }
};

TEST_F(Revision, WritesTheUsersOnOkOnly) {
    const auto fill = [](Form dialog) {
        EXPECT_THAT(
            dialog.texts({idStage, idRule}),
            ElementsAre("ステージ名：段",
                        "このステージ中に[2]回 お手つきした場合、このステージが完了するまでお休み。"));
        dialog.type(idOf(0, offsetName), "変更");
        dialog.type(idOf(0, offsetScore), "-31000"); // only the arrows keep to the range
        dialog.type(idOf(0, offsetHands), "3");
        dialog.type(idOf(1, offsetRest), "2");
        dialog.spin(idOf(1, offsetScore), 2);
        dialog.select(idOf(3, offsetState), userTakesPart);
        dialog.click(idHideScores);
    };
    const auto leave = [&](const std::function<void(Form)>& how) {
        return run([&](Form dialog) {
            fill(dialog);
            how(dialog);
        });
    };
    EXPECT_EQ(leave([](Form dialog) { dialog.key("Escape"); }), 0);
    EXPECT_EQ(user(0).getName(), "甲");
    EXPECT_EQ(leave([](Form dialog) { dialog.click(idOk); }), 1);
    EXPECT_EQ(user(0).getName(), "変更");
    EXPECT_EQ(user(0).getScore(), -31000);
    EXPECT_EQ(user(0).getHands(), 3);
    EXPECT_EQ(user(1).getScore(), 40);
    EXPECT_EQ(user(1).getRest(), 2);
    EXPECT_EQ(user(2).getScore(), 10) << "a disabled field keeps its value";
    EXPECT_EQ(user(3).getAnswerRight(), userTakesPart);
    EXPECT_EQ(user(3).getType(), 1);
    EXPECT_TRUE(host().hideScores);
    EXPECT_EQ(console().text(ids::userRank1 + 1), "１位") << "the board follows";
    run([](Form dialog) {
        EXPECT_TRUE(dialog.checked(idHideScores));
        dialog.click(idCancel);
    });
}

TEST_F(Revision, FieldsFollowTheState) {
    const std::pair<int, std::vector<int>> rows[] = {
        {userTakesPart, {offsetName, offsetScore, offsetHands}},
        {userFalseStart, {offsetName, offsetScore, offsetRest}},
        {userUnset, {offsetName, offsetScore, offsetRest}}, // stays as it was
        {userOut, {}},
        {userUnset, {}}};
    const auto liveFields = [](Form dialog, int user) {
        std::vector<int> fields;
        for (const int field : {offsetName, offsetScore, offsetHands, offsetRest})
            if (dialog.live(idOf(user, field))) fields.push_back(field);
        return fields;
    };
    run([&](Form dialog) {
        EXPECT_EQ(liveFields(dialog, 0), rows[0].second) << "also at the opening";
        EXPECT_EQ(liveFields(dialog, 2), std::vector<int>());
        for (const auto& [status, fields] : rows) {
            dialog.select(idOf(1, offsetState), status);
            EXPECT_EQ(liveFields(dialog, 1), fields) << status;
        }
        dialog.key("Escape");
    });
}

TEST_F(Revision, WhatTheTerminalSaidMeanwhileStands) {
    run([&](Form dialog) {
        setUser(3, "新人", 0, userTakesPart);
        host().userList[0].setName("改名");
        dialog.type(idOf(0, offsetScore), "55");
        dialog.click(idOk);
    });
    EXPECT_EQ(user(3).getName(), "新人");
    EXPECT_EQ(user(3).getAnswerRight(), userTakesPart);
    EXPECT_EQ(user(0).getName(), "改名");
    EXPECT_EQ(user(0).getScore(), 55);
}

TEST_F(Revision, ANameThatTheControlCannotShowStandsUntilItIsTyped) {
    const std::string odd = "甲\x85\x40乙"; // a gap in the code page
    host().userList[0].setName(odd);
    run([&](Form dialog) {
        ASSERT_NE(dialog.text(idOf(0, offsetName)), odd);
        dialog.click(idOk);
    });
    EXPECT_EQ(user(0).getName(), odd);
}

TEST_F(Revision, OkTellsAConnectedTerminal) {
    host().server = std::make_unique<ServerVrp>(2, 0);
    const auto revise = [&] {
        script.expectDialog(form, [](Form dialog) {
            platform::setChecked(dialog[idHideScores], true);
            dialog.click(idOk);
        });
        console().click(ids::revision);
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
    EXPECT_EQ(run([](Form dialog) {
                  for (DataUserInfo& each : host().userList)
                      each.clear();
                  host().kdlState->reset();
                  dialog.type(idOf(0, offsetScore), "55");
                  dialog.click(idHideScores);
                  dialog.click(idOk);
              }),
              0);
    EXPECT_EQ(user(0).getName(), "");
    EXPECT_EQ(user(0).getScore(), 0);
    EXPECT_FALSE(host().hideScores);
}

} // namespace
