#include "console/player_board.h"

#include <array>
#include <optional>
#include <string>

#include "data/labels.h"
#include "foundation/text.h"
#include "host/state/console_ids.h"
#include "host/state/host_state.h"
#include "host/state/scoring.h"
#include "platform/controls.h"

namespace {

using platform::Color;

struct Look {
    std::optional<Color> color;
    int fontSize = 0; // pixels; 0 leaves it
};

// Colours go by what is shown.
struct LookRow {
    const char* text;
    Look look;
};

constexpr std::array stateLooks{
    LookRow{"[未設定]", {Color{115, 115, 115}, 0}},
    LookRow{"[参加]", {Color{80, 80, 255}, 0}},
    LookRow{"[お手つき]", {Color{255, 128, 0}, 0}},
    LookRow{"[不参加]", {Color{255, 80, 80}, 0}},
};

constexpr std::array rankLooks{
    LookRow{"１位", {Color{200, 150, 10}, 18}},
    LookRow{"２位", {Color{140, 140, 140}, 16}},
    LookRow{"３位", {Color{180, 90, 0}, 16}},
    LookRow{"４位", {std::nullopt, 16}},
};

template <std::size_t Size>
Look lookOf(const std::array<LookRow, Size>& rows, const std::string& text) {
    for (const LookRow& row : rows)
        if (text == row.text) return row.look;
    return {};
}

void show(int id, const std::string& text, const Look& look = {}) {
    const platform::Control control{host().consolePane, id};
    platform::setText(control, text);
    platform::setTextColor(control, look.color);
    if (look.fontSize > 0) platform::setFontSize(control, look.fontSize);
}

std::string rankText(int order) {
    return order >= 1 && order <= static_cast<int>(rankLooks.size())
               ? rankLooks[static_cast<std::size_t>(order - 1)].text
               : "";
}

Look scoreLook(const std::string& score) {
    if (score.starts_with('-')) return {Color{255, 0, 0}, 0};
    return {};
}

} // namespace

void refreshUserPane() {
    calcOrder(host().userList);
    for (int i = 0; i < maxUsers; ++i) {
        const DataUserInfo& user = host().userList[static_cast<std::size_t>(i)];
        const std::string state = "[" + userStatusLabels.text(user.getAnswerRight()) + "]";
        const std::string rank = rankText(user.getOrder());
        const std::string score = zelkova::numberToText(user.getScore());
        show(ids::userState1 + i, state, lookOf(stateLooks, state));
        show(ids::userName1 + i, user.getName());
        show(ids::userRank1 + i, rank, lookOf(rankLooks, rank));
        show(ids::userScore1 + i, score, scoreLook(score));
        show(ids::userHands1 + i, zelkova::numberToText(user.getHands()));
    }
}
