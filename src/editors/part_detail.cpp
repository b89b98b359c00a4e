#include "editors/part_detail.h"

#include "data/labels.h"
#include "foundation/views/message_box.h"
#include "host/state/host_state.h"
#include "platform/dialog.h"
#include "platform/window.h"

namespace {

enum : int {
    idNameCaption = 4501,
    idName = 4502,
    idQuestNumCaption = 4503,
    idQuestNum = 4504,
    idRange = 4505,
    idInterval = 4506,
    idSpeed = 4507,
    idScore = 4508,
    idDeducts = 4509,
    idDeduction = 4510,
    idFalseStarts = 4511,
    idHandsType1 = 4512, // the first of three radio buttons
    idHands1 = 4515,     // the first of their three edits
    idSteals = 4518,
    idSteal = 4519,
    idHandsRules = 4520, // what 4511 switches
    idDeductionCaption = 4521,
    idOk = 4522,
    idCancel = 4523,
    idMulti = 4524,
    idMultiCaption = 4525,
    idStealCaption = 4526,
    idRulesGroup = 4527,
    idStealGroup = 4528,
    idRemark = 4531,
};

struct Text {
    int id;
    std::string StageForm::*text;
};
constexpr Text texts[] = {
    {idName, &StageForm::name},   {idQuestNum, &StageForm::questNum},   {idMulti, &StageForm::multi},
    {idScore, &StageForm::score}, {idDeduction, &StageForm::deduction},
};

struct Choice {
    int id;
    const Labels& labels;
    int StageForm::*entry;
};
const Choice choices[] = {
    {idRange, playRangeLabels, &StageForm::range},
    {idInterval, playTimeLabels, &StageForm::interval},
    {idSpeed, playSpeedLabels, &StageForm::speed},
    {idSteal, stealLabels, &StageForm::steal},
};

struct Switch {
    int id;
    bool StageForm::*flag;
    int partner, caption; // what it enables
};
constexpr Switch switches[] = {
    {idDeducts, &StageForm::deducts, idDeduction, idDeductionCaption},
    {idFalseStarts, &StageForm::falseStarts, idHandsRules, idHandsRules},
    {idSteals, &StageForm::steals, idSteal, idStealCaption},
};

// Controls that a flag of the live settings governs.
struct Governed {
    int id;
    bool LiveSettings::*flag;
};
constexpr Governed governed[] = {
    {idNameCaption, &LiveSettings::name},         {idName, &LiveSettings::name},
    {idQuestNumCaption, &LiveSettings::questNum}, {idQuestNum, &LiveSettings::questNum},
    {idMultiCaption, &LiveSettings::multi},       {idMulti, &LiveSettings::multi},
    {idRulesGroup, &LiveSettings::rules},         {idStealGroup, &LiveSettings::rules},
};

int fieldOf(StageRefusal refusal) {
    return refusal == badQuestNum ? idQuestNum : refusal == badScore ? idScore : idDeduction;
}

// Lives for one opening.
class PartDetail {
public:
    PartDetail(StageMode mode, DataSession& stage) : stage_(stage), live_(liveSettings(mode, stage)) {}

    int run(platform::WindowHandle owner) {
        return platform::runDialog(owner, "IDD_KDL0405_PARTDETAIL",
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
        switch (platform::lowWord(message.wParam)) {
        case idOk:
            store();
            return true;
        case idCancel:
        case platform::IDCANCEL:
            platform::endDialog(dialog_, 0);
            return true;
        default:
            follow(read());
            return false;
        }
    }

    void open(platform::WindowHandle dialog) {
        platform::centerOnScreen(dialog);
        for (const Choice& choice : choices)
            for (const char* label : choice.labels)
                platform::addItem({dialog, choice.id}, label);
        platform::setSpinRange({dialog, idMulti}, 1, maxSongs);
        for (const Governed& control : governed)
            platform::enable({dialog, control.id}, live_.*control.flag);
        show(dialog, toForm(stage_));
        dialog_ = dialog;
        follow(read());
    }

    static void show(platform::WindowHandle dialog, const StageForm& form) {
        for (const Text& field : texts)
            platform::setText({dialog, field.id}, form.*field.text);
        for (const Choice& choice : choices)
            platform::setSelection({dialog, choice.id}, form.*choice.entry);
        for (const Switch& box : switches)
            platform::setChecked({dialog, box.id}, form.*box.flag);
        platform::setChecked({dialog, idHandsType1 + form.handsType}, true);
        int id = idHands1;
        for (const std::string& hands : form.hands)
            platform::setText({dialog, id++}, hands);
    }

    StageForm read() const {
        StageForm form;
        for (const Text& field : texts)
            form.*field.text = platform::getText({dialog_, field.id});
        for (const Choice& choice : choices)
            form.*choice.entry = platform::getSelection({dialog_, choice.id});
        for (const Switch& box : switches)
            form.*box.flag = platform::isChecked({dialog_, box.id});
        for (int type = 0; type < handsTypeLabels.size(); ++type) {
            if (platform::isChecked({dialog_, idHandsType1 + type})) form.handsType = type;
            form.hands[static_cast<std::size_t>(type)] = platform::getText({dialog_, idHands1 + type});
        }
        return form;
    }

    // Fields follow their switches, the remark follows the false-start rule.
    void follow(const StageForm& form) {
        for (const Switch& box : switches) {
            platform::enable({dialog_, box.partner}, form.*box.flag);
            platform::enable({dialog_, box.caption}, form.*box.flag);
        }
        for (int type = 0; type < handsTypeLabels.size(); ++type)
            platform::enable({dialog_, idHands1 + type}, type == form.handsType);
        platform::setText({dialog_, idRemark}, remark(form));
    }

    void store() {
        const StageForm form = read();
        const StageRefusal refusal = checkForm(form, live_);
        if (refusal == stageFits) {
            storeForm(form, live_, stage_);
            platform::endDialog(dialog_, 1);
            return;
        }
        zelkova::showMessage(dialog_, refusal);
        platform::setFocus({dialog_, fieldOf(refusal)});
    }

    DataSession& stage_;
    const LiveSettings live_;
    platform::WindowHandle dialog_; // none until all fields are filled
};

} // namespace

int dlgPartDetail(platform::WindowHandle owner, StageMode mode, DataSession& stage) {
    return PartDetail(mode, stage).run(owner);
}
