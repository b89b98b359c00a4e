#include "console/revision.h"

#include <array>
#include <string>

#include "console/dialog_ids.h"
#include "console/player_board.h"
#include "data/labels.h"
#include "foundation/dialog.h"
#include "foundation/text.h"
#include "foundation/views/message_box.h"
#include "host/state/host_state.h"
#include "host/state/intro_state.h"
#include "host/state/quest.h"
#include "host/state/rule_text.h"
#include "platform/window.h"

using namespace revision;

namespace {

struct NumberField {
    int offset;
    int low, high, step;
    std::int32_t (DataUserInfo::*get)() const;
    void (DataUserInfo::*set)(std::int32_t);
};

constexpr std::array numberFields{
    NumberField{offsetScore, -30000, 30000, 10, &DataUserInfo::getScore, &DataUserInfo::setScore},
    NumberField{offsetHands, 0, 999, 1, &DataUserInfo::getHands, &DataUserInfo::setHands},
    NumberField{offsetRest, 0, 999, 1, &DataUserInfo::getRest, &DataUserInfo::setRest},
};

// What can be edited of a user of a state. A slot without a user leaves it as it is.
struct Enabling {
    int state;
    bool name, score, hands, rest;
};
constexpr Enabling enabling[] = {{userTakesPart, true, true, true, false},
                                 {userFalseStart, true, true, false, true},
                                 {userOut, false, false, false, false}};

// What a user's controls show. A name has been through the control, which need not give back every byte.
struct Shown {
    std::string name;
    int state = -1;
    std::array<std::string, numberFields.size()> numbers;
};

class Revision : public zelkova::Dialog {
public:
    Revision() : Dialog(form) {}

private:
    bool onCommand(int id) override {
        switch (id) {
        case idOk:
            end(store() ? 1 : 0);
            return true;
        case idCancel:
        case platform::IDCANCEL:
            end(0);
            return true;
        default:
            for (int user = 0; user < maxUsers; ++user)
                if (id == controlId(user, offsetState)) applyEnabling(user);
            return false;
        }
    }

    void open() override {
        zelkova::setDialogTitle(window(), "補正");
        const HostState& state = host();
        if (const auto place = findQuest(state.sessionList, state.curQuestNumber)) {
            const DataSession& stage = state.sessionList[place->stage];
            platform::setText(control(idStage), "ステージ名：" + stage.getName());
            platform::setText(control(idRule), falseStartText(stage));
        }
        for (int user = 0; user < maxUsers; ++user) {
            showUser(user, state.userList[static_cast<std::size_t>(user)]);
            opened_[static_cast<std::size_t>(user)] = read(user);
        }
        platform::setChecked(control(idHideScores), state.hideScores);
    }

    void showUser(int index, const DataUserInfo& user) const {
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

    void applyEnabling(int index) const {
        const int state = platform::getSelection(control(index, offsetState));
        for (const Enabling& row : enabling) {
            if (row.state != state) continue;
            platform::enable(control(index, offsetName), row.name);
            platform::enable(control(index, offsetScore), row.score);
            platform::enable(control(index, offsetHands), row.hands);
            platform::enable(control(index, offsetRest), row.rest);
        }
    }

    Shown read(int index) const {
        Shown shown;
        shown.name = platform::getText(control(index, offsetName));
        shown.state = platform::getSelection(control(index, offsetState));
        for (std::size_t i = 0; i < numberFields.size(); ++i)
            shown.numbers[i] = platform::getText(control(index, numberFields[i].offset));
        return shown;
    }

    // False, with nothing written, when the session has ended meanwhile.
    bool store() {
        HostState& state = host();
        if (!state.kdlState || state.kdlState->is(StateStart::getInstance())) return false;
        const bool hide = platform::isChecked(control(idHideScores));
        for (int user = 0; user < maxUsers; ++user)
            storeUser(user, hide);
        state.hideScores = hide;
        refreshUserPane();
        return true;
    }

    void storeUser(int index, bool hide) const {
        const Shown& before = opened_[static_cast<std::size_t>(index)];
        const Shown now = read(index);
        DataUserInfo& user = host().userList[static_cast<std::size_t>(index)];
        if (now.name != before.name) user.setName(now.name);
        if (now.state >= 0 && now.state != before.state) user.setAnswerRight(now.state);
        for (std::size_t i = 0; i < numberFields.size(); ++i)
            if (now.numbers[i] != before.numbers[i])
                (user.*numberFields[i].set)(zelkova::stringToInt(now.numbers[i]));
        user.setType(hide ? typeHideScores : typeShowScores);
    }

    static int controlId(int user, int offset) { return idUser1 + user * groupSize + offset; }
    using Dialog::control;
    platform::Control control(int user, int offset) const { return control(controlId(user, offset)); }

    std::array<Shown, maxUsers> opened_;
};

} // namespace

int dlgRevision(platform::WindowHandle owner) {
    return Revision().run(owner);
}
