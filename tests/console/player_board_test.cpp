#include "console/player_board.h"

#include "console/desk.h"
#include "host/state/console_ids.h"

namespace {

using namespace console_tests;
using platform::Color;

using PlayerBoard = Desk;

TEST_F(PlayerBoard, ColoursFollowWhatIsShown) {
    setUser(0, "甲", 300, userTakesPart);
    setUser(1, "乙", 20, userFalseStart);
    setUser(2, "丙", -10, userOut);
    host().userList[1].setHands(2);
    refreshUserPane();

    const struct {
        int id;
        const char* text;
        std::optional<Color> color;
    } rows[] = {
        {ids::userState1, "[参加]", Color{80, 80, 255}},
        {ids::userState1 + 1, "[お手つき]", Color{255, 128, 0}},
        {ids::userState1 + 2, "[不参加]", Color{255, 80, 80}},
        {ids::userState1 + 3, "[未設定]", Color{115, 115, 115}},
        {ids::userName1 + 1, "乙", std::nullopt},
        {ids::userRank1, "１位", Color{200, 150, 10}},
        {ids::userRank1 + 1, "２位", Color{140, 140, 140}},
        {ids::userRank1 + 2, "３位", Color{180, 90, 0}},
        {ids::userRank1 + 3, "", std::nullopt},
        {ids::userScore1, "300", std::nullopt},
        {ids::userScore1 + 2, "-10", Color{255, 0, 0}},
        {ids::userHands1 + 1, "2", std::nullopt},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(console().text(row.id), row.text) << row.id;
        EXPECT_EQ(platform::getTextColor(console()[row.id]), row.color) << row.id;
    }

    host().userList[2].setScore(10);
    setUser(3, "丁", 1, userTakesPart);
    refreshUserPane();
    EXPECT_EQ(platform::getTextColor(console()[ids::userScore1 + 2]), std::nullopt) << "red stays behind";
    EXPECT_EQ(console().text(ids::userRank1 + 3), "４位");
}

} // namespace
