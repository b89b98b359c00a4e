#include "console/revision.h"

#include <array>
#include <string>

#include "console/player_board.h"
#include "data/labels.h"
#include "foundation/text.h"
#include "foundation/views/message_box.h"
#include "host/state/host_state.h"
#include "host/state/intro_state.h"
#include "host/state/quest.h"
#include "host/state/rule_text.h"
#include "platform/dialog.h"
#include "platform/window.h"

namespace {

enum : int {
    idStage = 1402,
    idRule = 1403,
    idUser1 = 1404, // the first of four groups of nine numbers
    groupSize = 9,
    idOk = 1440,
    idCancel = 1441,
    idHideScores = 1442,
};

// Inside a group.
enum : int { offsetName = 1, offsetState = 2, offsetScore = 3, offsetHands = 5, offsetRest = 7 };

struct NumberField {
    int offset;
    int low, high, step;
    std::int32_t (DataUserInfo::*get)() const;
    void (DataUserInfo::*set)(std::int32_t);
};

constexpr NumberField numberFields[] = {
    {offsetScore, -30000, 30000, 10, &DataUserInfo::getScore, &DataUserInfo::setScore},
    {offsetHands, 0, 999, 1, &DataUserInfo::getHands, &DataUserInfo::setHands},
    {offsetRest, 0, 999, 1, &DataUserInfo::getRest, &DataUserInfo::setRest},
};

// Which numbers a user of a state can have edited. A slot without a user leaves them as they are.
struct Enabling {
    bool score, hands, rest;
};
constexpr Enabling enabling[] = {{}, {true, true, false}, {true, false, true}, {false, false, false}};

// Lives for one opening.
class Revision {
public:
    int run(platform::WindowHandle owner) {
        return platform::runDialog(owner, "IDD_KDL0104_REVISION",
                                   [this](platform::WindowHandle dialog, const platform::Message& message) {
                                       return handle(dialog, message);
                                   });
    }

private:
    bool handle(platform::WindowHandle dialog, const platform::Message& message) {
        if (message.id == platform::WM_INITDIALOG) {
            open(dialog);
            return true;
        }
        if (message.id != platform::WM_COMMAND) return false;
        const int id = static_cast<int>(platform::lowWord(message.wParam));
        switch (id) {
        case idOk:
            platform::endDialog(dialog_, store() ? 1 : 0);
            return true;
        case idCancel:
        case platform::IDCANCEL:
            platform::endDialog(dialog_, 0);
            return true;
        default:
            for (int user = 0; user < maxUsers; ++user)
                if (id == controlId(user, offsetState)) applyEnabling(user);
            return false;
        }
    }

    void open(platform::WindowHandle dialog) {
        dialog_ = dialog;
        zelkova::setDialogTitle(dialog, "補正");
        platform::centerOnScreen(dialog);
        const HostState& state = host();
        if (const auto place = findQuest(state.sessionList, state.curQuestNumber)) {
            const DataSession& stage = state.sessionList[place->stage];
            platform::setText({dialog, idStage}, "ステージ名：" + stage.getName());
            platform::setText({dialog, idRule}, falseStartText(stage));
        }
        shown_ = state.userList;
        for (int user = 0; user < maxUsers; ++user)
            showUser(user);
        platform::setChecked({dialog, idHideScores}, state.hideScores);
    }

    void showUser(int index) {
        const DataUserInfo& user = shown_[static_cast<std::size_t>(index)];
        platform::setText(control(index, offsetName), user.getName());
        for (const char* label : userStatusLabels)
            platform::addItem(control(index, offsetState), label);
        platform::setSelection(control(index, offsetState), user.getAnswerRight());
        for (const NumberField& field : numberFields) {
            platform::setSpinRange(control(index, field.offset), field.low, field.high, field.step);
            platform::setText(control(index, field.offset), zelkova::numberToText((user.*field.get)()));
        }
        applyEnabling(index);
    }

    void applyEnabling(int index) {
        const int state = platform::getSelection(control(index, offsetState));
        if (state != userTakesPart && state != userFalseStart && state != userOut) return;
        const Enabling& row = enabling[state];
        platform::enable(control(index, offsetScore), row.score);
        platform::enable(control(index, offsetHands), row.hands);
        platform::enable(control(index, offsetRest), row.rest);
    }

    // False, with nothing written, when the session has ended meanwhile.
    bool store() {
        HostState& state = host();
        if (state.kdlState->is(StateStart::getInstance())) return false;
        const bool hide = platform::isChecked({dialog_, idHideScores});
        for (int user = 0; user < maxUsers; ++user)
            storeUser(user, hide);
        state.hideScores = hide;
        refreshUserPane();
        return true;
    }

    void storeUser(int index, bool hide) {
        const DataUserInfo& shown = shown_[static_cast<std::size_t>(index)];
        DataUserInfo& user = host().userList[static_cast<std::size_t>(index)];
        const std::string name = platform::getText(control(index, offsetName));
        if (name != shown.getName()) user.setName(name);
        const int state = platform::getSelection(control(index, offsetState));
        if (state >= 0 && state != shown.getAnswerRight()) user.setAnswerRight(state);
        for (const NumberField& field : numberFields) {
            const int number = zelkova::stringToInt(platform::getText(control(index, field.offset)));
            if (number != (shown.*field.get)()) (user.*field.set)(number);
        }
        user.setType(hide ? typeHideScores : typeShowScores);
    }

    static int controlId(int user, int offset) { return idUser1 + user * groupSize + offset; }
    platform::Control control(int user, int offset) const { return {dialog_, controlId(user, offset)}; }

    platform::WindowHandle dialog_;
    std::vector<DataUserInfo> shown_; // the users as they were at the opening
};

} // namespace

int dlgRevision(platform::WindowHandle owner) {
    return Revision().run(owner);
}
