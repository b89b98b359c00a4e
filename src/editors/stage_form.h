#pragma once
// The settings of a stage as they are typed, and what may be typed: the rules of the stage dialog.

#include <array>
#include <string>

#include "data/data_session.h"

// Who edits the stage.
enum class StageMode : int { SessionWizard = 0, RunningSession = 1, Training = 2 };

// Which settings can be changed; those that have no flag always can.
struct LiveSettings {
    bool name = true, questNum = true, multi = true;
    bool rules = true; // score, deduction, false starts and steal
};
LiveSettings liveSettings(StageMode mode, const DataSession& stage);

struct StageForm {
    std::string name, questNum;
    int range = 0, interval = 0, speed = 0; // entries of their boxes
    std::string multi = "1";
    std::string score;
    bool deducts = false;
    std::string deduction = "0";
    bool falseStarts = false;
    int handsType = 0;
    std::array<std::string, 3> hands{"5", "2", "1"}; // for each kind of false-start rule
    bool steals = false;
    int steal = 0;
};
// What no box has an entry for stands on its first one; a number that was never set is empty.
StageForm toForm(const DataSession& stage);

// The sentence that explains the false-start rule; empty without one.
std::string remark(const StageForm& form);

// The number of the message that refuses the form; 0 when it can be stored. What cannot be changed is not
// checked.
enum StageRefusal : int { stageFits = 0, badQuestNum = 3000005, badScore = 3000006, badDeduction = 3000007 };
StageRefusal checkForm(const StageForm& form, const LiveSettings& live);

// Writes a form that was checked. What cannot be changed, and what has no field, stays as it is. More than
// five songs at once become five, fewer than one become one, and so do fewer than one false start.
void storeForm(const StageForm& form, const LiveSettings& live, DataSession& stage);
