#include "console/desk.h"
#include "console/player_board.h"
#include "data/labels.h"
#include "host/state/console_ids.h"
#include "platform/controls.h"

namespace {

using namespace console_tests;
using platform::Color;

class PlayerBoard : public Desk {};

struct RankCase {
    std::vector<int> scores; // a user for each, the other slots are empty
    std::vector<std::string> ranks;
};

TEST_F(PlayerBoard, RanksAreDenseAndTiesShareThem) {
    const RankCase cases[] = {
        {{30, 30, 20}, {"１位", "１位", "２位", ""}},
        {{5, 5, 5, 5}, {"１位", "１位", "１位", "１位"}},
        {{50, 30, 30, 10}, {"１位", "２位", "２位", "３位"}},
        {{-10, -20, 0}, {"２位", "３位", "１位", ""}},
        {{4, 3, 2, 1}, {"１位", "２位", "３位", "４位"}},
        {{}, {"", "", "", ""}},
    };
    for (const RankCase& row : cases) {
        for (int i = 0; i < maxUsers; ++i) {
            const auto index = static_cast<std::size_t>(i);
            if (index < row.scores.size())
                setUser(i, "名", row.scores[index], userTakesPart + i % 3);
            else
                setUser(i, "", 1000, userUnset);
        }
        refreshUserPane();
        for (int i = 0; i < maxUsers; ++i)
            EXPECT_EQ(consoleText(ids::userRank1 + i), row.ranks[static_cast<std::size_t>(i)]) << i;
    }
}

TEST_F(PlayerBoard, ColoursFollowWhatIsShown) {
    setUser(0, "甲", 300, userTakesPart);
    setUser(1, "乙", 20, userFalseStart);
    setUser(2, "丙", -10, userOut);
    host().userList[1].setHands(2);
    refreshUserPane();

    struct Row {
        int id;
        const char* text;
        std::optional<Color> color;
    };
    const Row rows[] = {
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
    for (const Row& row : rows) {
        EXPECT_EQ(consoleText(row.id), row.text) << row.id;
        EXPECT_EQ(platform::getTextColor(console(row.id)), row.color) << row.id;
    }

    host().userList[2].setScore(10);
    refreshUserPane();
    EXPECT_EQ(platform::getTextColor(console(ids::userScore1 + 2)), std::nullopt) << "red stays behind";
}

} // namespace
