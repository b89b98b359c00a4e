#include "training/training_mode.h"

#include <algorithm>
#include <optional>

#include "foundation/dialog.h"
#include "foundation/stopwatch.h"
#include "foundation/text.h"
#include "foundation/views/message_box.h"
#include "foundation/views/volume_bar.h"
#include "host/state/host_state.h"
#include "host/state/play_control.h"
#include "host/state/quest.h"
#include "training/answer_confirm.h"
#include "training/quest_sound.h"
#include "training/training_answer.h"
#include "training/training_ids.h"
#include "training/training_result.h"
#include "training/training_run.h"
#include "training/training_screen.h"

using namespace training;

namespace {

constexpr int leastChoices = 2, startChoices = 4, mostChoices = 10;
constexpr int tooFewSongs = 3000008;
constexpr unsigned tellTooFewSongs = platform::WM_USER;

struct Timer {
    unsigned bit;
    unsigned id, periodMs;
};
constexpr Timer timers[] = {
    {timerJingle, idJingleTimer, 500},
    {timerPlay, idPlayTimer, 50},
    {timerClock, idClockTimer, 100},
};

class TrainingMode : public zelkova::Dialog {
public:
    explicit TrainingMode(const TrainingSettings& editSettings)
        : Dialog(form), editSettings_(editSettings), run_(host().accesserResource, host().trainingSession) {}

private:
    void open() override {
        screen_.emplace(window(), run_);
        platform::setText(control(idChoices), zelkova::numberToText(startChoices));
        takeSession(leastChoices);
        volumeBar().setUp(volume_);
        // The window comes first, then what is to be said in it.
        if (!prepare()) platform::postMessage(window(), tellTooFewSongs);
    }

    bool onCommand(int id) override {
        countTime();
        switch (id) {
        case idStart:
            startQuest();
            return true;
        case idReplay:
            replay();
            return true;
        case idAnswer:
            answer();
            return true;
        case idStop:
            halt();
            return true;
        case idGiveUp:
            giveUp();
            return true;
        case idSkip:
            skip();
            return true;
        case idSettings:
            changeSettings();
            return true;
        case idReset:
            reset();
            return true;
        case idClose:
        case platform::IDCANCEL:
            end(0);
            return true;
        default:
            return false;
        }
    }

    bool onMessage(const platform::Message& message) override {
        switch (message.id) {
        case platform::WM_TIMER:
            onTick(message.wParam);
            return true;
        case platform::WM_HSCROLL:
            if (message.lParam != idVolume) return false;
            volume_ = volumeBar().follow();
            setPlayerVolumes(volume_);
            return true;
        case tellTooFewSongs:
            zelkova::showMessage(window(), tooFewSongs);
            return true;
        case platform::WM_DESTROY:
            leave();
            return true;
        default:
            return false;
        }
    }

    void leave() {
        sound_.unload();
        applyMasterVolume(host().masterVolume);
    }

    // Up to now, before the phase changes. The ticks alone would not do: they are late under load.
    void countTime() { run_.passTime(watch_.look()); }

    void onTick(platform::WParam timer) {
        countTime();
        switch (timer) {
        case idJingleTimer:
            if (!sound_.isJingleOver()) return;
            sound_.stopJingle();
            run_.endJingle();
            follow();
            break;
        case idPlayTimer:
            onPlayTick();
            break;
        case idClockTimer:
            screen_->showTime();
            break;
        default:
            break;
        }
    }

    void onPlayTick() {
        if (run_.phase() == TrainingPhase::Starting) {
            playSongs();
            return;
        }
        if (sound_.isStarting()) run_.waitForSound();
        if (sound_.isOver(run_.elapsedMs()))
            halt();
        else
            screen_->showProgress(sound_.progress());
    }

    void startQuest() {
        run_.startQuest(choiceCount());
        sound_.playJingle(host().dataApplication.getEfcQuestion());
        loadSongs();
        follow();
    }

    void loadSongs() {
        sound_.load(run_.songs(), run_.session(), volume_);
        screen_->showProgress(sound_.progress());
    }

    void playSongs() {
        sound_.start();
        countTime(); // what the start took is no time of the play
        run_.startSongs();
        follow();
    }

    void replay() {
        loadSongs();
        playSongs();
    }

    void halt() {
        sound_.stop();
        run_.halt();
        follow();
    }

    void giveUp() {
        sound_.stop();
        run_.giveUp();
        screen_->showRecords();
        follow();
        sound_.playEffect(host().dataApplication.getEfcNg());
        dlgTrainingAnswer(window(), run_, sound_.firstPlay(), volume_);
        volumeBar().setUp(volume_);
        goOn();
    }

    void skip() {
        sound_.stop();
        run_.skip();
        screen_->showRecords();
        goOn();
    }

    void answer() {
        sound_.stop();
        run_.requestAnswer();
        follow();
        sound_.playEffect(host().dataApplication.getEfcRequest1());
        const bool right = dlgAnswerConfirm(window(), run_, sound_, volume_) == 1;
        volumeBar().setUp(volume_);
        countTime();
        run_.answer(right);
        follow();
        if (!right) return;
        screen_->showRecords();
        goOn();
    }

    void goOn() {
        run_.goOn();
        screen_->showQuest();
        follow();
        if (run_.phase() != TrainingPhase::Finished) return;
        sound_.playEffect(host().dataApplication.getEfcVectory());
        dlgTrainingResult(window(), run_.history(), run_.session().getRange());
    }

    void changeSettings() {
        if (editSettings_(window(), host().trainingSession) != 1) return;
        takeSession(songCount(run_.session()));
        if (!prepare()) zelkova::showMessage(window(), tooFewSongs);
    }

    void reset() {
        if (platform::messageBox(
                window(), "初期化すると、今までの記録が全て削除されます。\n初期化してもよろしいですか？",
                "確認", platform::Buttons::YesNo, platform::SystemIcon::Question) != platform::Answer::Yes)
            return;
        if (!prepare()) zelkova::showMessage(window(), tooFewSongs);
    }

    // New quests, whatever is under way. False when there are too few songs.
    bool prepare() {
        sound_.reset();
        screen_->showProgress(sound_.progress());
        const bool made = run_.prepare();
        screen_->showQuests();
        screen_->showQuest();
        follow();
        return made;
    }

    // Everything as the phase has it.
    void follow() {
        const unsigned wanted = traitsOf(run_.phase()).timers;
        for (const Timer& timer : timers) {
            const bool runs = (runningTimers_ & timer.bit) != 0, shallRun = (wanted & timer.bit) != 0;
            if (shallRun && !runs) platform::setTimer(window(), timer.id, timer.periodMs);
            if (runs && !shallRun) platform::killTimer(window(), timer.id);
        }
        runningTimers_ = wanted;
        screen_->showPhase();
    }

    // What was typed may lie outside the range of the arrows.
    int choiceCount() {
        const int typed = zelkova::stringToInt(platform::getText(control(idChoices)));
        const int count = std::clamp(typed, fewestChoices_, mostChoices);
        if (count != typed) platform::setText(control(idChoices), zelkova::numberToText(count));
        return count;
    }

    // There are at least as many choices as songs at once.
    void takeSession(int fewestChoices) {
        screen_->showSession();
        fewestChoices_ = std::max(fewestChoices, songCount(run_.session()));
        platform::setSpinRange(control(idChoices), fewestChoices_, mostChoices);
        choiceCount();
    }

    VolumeBar volumeBar() const { return {control(idVolume), control(idVolumeText)}; }

    const TrainingSettings& editSettings_;
    TrainingRun run_;
    QuestSound sound_;
    zelkova::Stopwatch watch_;
    std::optional<TrainingScreen> screen_; // none before the window
    unsigned runningTimers_ = 0;
    int fewestChoices_ = leastChoices;
    int volume_ = host().masterVolume; // 0 to 100; from then on this window's own
};

} // namespace

void dlgTrainingMode(platform::WindowHandle owner, const TrainingSettings& editSettings) {
    TrainingMode(editSettings).run(owner);
}
