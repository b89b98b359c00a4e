#include "training/training_screen.h"

#include <cstdio>

#include "data/labels.h"
#include "foundation/text.h"
#include "host/state/quest.h"
#include "platform/controls.h"
#include "platform/window.h"
#include "training/training_ids.h"

using namespace training;

namespace {

struct Button {
    int id;
    unsigned action;
};
constexpr Button buttons[] = {
    {idStart, actionStart}, {idGiveUp, actionGiveUp}, {idReplay, actionReplay},
    {idStop, actionStop},   {idSkip, actionSkip},     {idAnswer, actionAnswer},
};

} // namespace

TrainingScreen::TrainingScreen(platform::WindowHandle window, const TrainingRun& run)
    : window_(window), run_(run), list_(platform::getItem(window, idHistory)) {
    list_.makeColumns();
    platform::addItem(control(idMethod), "選択式");
    platform::setSelection(control(idMethod), 0);
}

void TrainingScreen::showSession() {
    const DataSession& session = run_.session();
    platform::setText(control(idRange), playRangeLabels.text(session.getRange()));
    platform::setText(control(idSpeed), playSpeedLabels.text(session.getSpeed()));
    platform::setText(control(idInterval), playTimeLabels.text(session.getInterval()));
    platform::setText(control(idMulti), zelkova::numberToText(songCount(session)));
}

void TrainingScreen::showQuests() {
    list_.deleteAllItems();
    if (run_.phase() == TrainingPhase::Unprepared) return;
    for (int quest = 1; quest <= run_.session().getQuestNum(); ++quest)
        for (int sub = 1; sub <= songCount(run_.session()); ++sub) {
            DataTrainingModeHistory open;
            open.setQuestion(quest);
            open.setQuestionSub(sub);
            list_.addRow(open);
        }
}

int TrainingScreen::firstRow() const {
    return (run_.currentQuest() - 1) * songCount(run_.session());
}

void TrainingScreen::showQuest() {
    char text[64];
    std::snprintf(text, sizeof text, "第%02d問／全%02d問", run_.currentQuest(), run_.session().getQuestNum());
    platform::setText(control(idCounter), text);
    platform::listSelectRow(control(idHistory), firstRow());
    list_.ensureVisible(firstRow());
}

void TrainingScreen::showRecords() {
    int row = firstRow();
    const std::vector<DataTrainingModeHistory>& history = run_.history();
    for (auto i = static_cast<std::size_t>(row); i < history.size(); ++i)
        list_.updateRow(row++, history[i]);
}

void TrainingScreen::showTime() {
    platform::setText(control(idTime), secondsText(run_.answerTenths()) + " sec");
}

void TrainingScreen::showProgress(SongProgress progress) {
    platform::setText(control(idPosition), zelkova::numberToText(progress.position) + "/" +
                                               zelkova::numberToText(progress.length));
    platform::setRange(control(idPlayBar), 0, progress.length);
    platform::setPosition(control(idPlayBar), progress.position);
}

void TrainingScreen::showPhase() {
    const PhaseTraits& traits = traitsOf(run_.phase());
    platform::setText(control(idStatus), traits.status);
    for (const Button& button : buttons)
        platform::enable(control(button.id), (traits.actions & button.action) != 0);
    showTime();
    moveFocus(traits.actions);
}

void TrainingScreen::moveFocus(unsigned actions) {
    if (platform::hasFocus(control(idVolume)) || platform::hasFocus(control(idChoices))) return;
    const int next = actions & actionStart ? +idStart : actions & actionAnswer ? +idAnswer : +idHistory;
    platform::setFocus(control(next));
}
