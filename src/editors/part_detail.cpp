#include "editors/part_detail.h"

#include "data/labels.h"
#include "editors/dialog_ids.h"
#include "foundation/dialog.h"
#include "foundation/views/message_box.h"
#include "host/state/host_state.h"
#include "platform/window.h"

using namespace part_detail;

namespace {

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

class PartDetail : public zelkova::Dialog {
public:
    PartDetail(StageMode mode, DataSession& stage)
        : Dialog(form), stage_(stage), live_(liveSettings(mode, stage)) {}

private:
    bool onCommand(int id) override {
        switch (id) {
        case idOk:
            store();
            return true;
        case idCancel:
        case platform::IDCANCEL:
            end(0);
            return true;
        default:
            follow(read());
            return false;
        }
    }

    void open() override {
        for (const Choice& choice : choices)
            for (const char* label : choice.labels)
                platform::addItem(control(choice.id), label);
        platform::setSpinRange(control(idMulti), 1, maxSongs);
        for (const Governed& row : governed)
            platform::enable(control(row.id), live_.*row.flag);
        show(toForm(stage_));
        follow(read());
    }

    void show(const StageForm& form) {
        for (const Text& field : texts)
            platform::setText(control(field.id), form.*field.text);
        for (const Choice& choice : choices)
            platform::setSelection(control(choice.id), form.*choice.entry);
        for (const Switch& box : switches)
            platform::setChecked(control(box.id), form.*box.flag);
        platform::setChecked(control(idHandsType1 + form.handsType), true);
        int id = idHands1;
        for (const std::string& hands : form.hands)
            platform::setText(control(id++), hands);
    }

    StageForm read() const {
        StageForm form;
        for (const Text& field : texts)
            form.*field.text = platform::getText(control(field.id));
        for (const Choice& choice : choices)
            form.*choice.entry = platform::getSelection(control(choice.id));
        for (const Switch& box : switches)
            form.*box.flag = platform::isChecked(control(box.id));
        for (int type = 0; type < handsTypeLabels.size(); ++type) {
            if (platform::isChecked(control(idHandsType1 + type))) form.handsType = type;
            form.hands[static_cast<std::size_t>(type)] = platform::getText(control(idHands1 + type));
        }
        return form;
    }

    // Fields follow their switches, the remark follows the false-start rule.
    void follow(const StageForm& form) {
        for (const Switch& box : switches) {
            platform::enable(control(box.partner), form.*box.flag);
            platform::enable(control(box.caption), form.*box.flag);
        }
        for (int type = 0; type < handsTypeLabels.size(); ++type)
            platform::enable(control(idHands1 + type), type == form.handsType);
        platform::setText(control(idRemark), remark(form));
    }

    void store() {
        const StageForm form = read();
        const StageRefusal refusal = checkForm(form, live_);
        if (refusal == stageFits) {
            storeForm(form, live_, stage_);
            end(1);
            return;
        }
        zelkova::showMessage(window(), refusal);
        platform::setFocus(control(fieldOf(refusal)));
    }

    DataSession& stage_;
    const LiveSettings live_;
};

} // namespace

int dlgPartDetail(platform::WindowHandle owner, StageMode mode, DataSession& stage) {
    return PartDetail(mode, stage).run(owner);
}
