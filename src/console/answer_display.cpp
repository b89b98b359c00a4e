#include "console/answer_display.h"

#include <array>

#include "console/answer_lines.h"
#include "console/user_text.h"
#include "data/labels.h"
#include "foundation/dialog.h"
#include "foundation/media.h"
#include "foundation/views/message_box.h"
#include "foundation/views/volume_bar.h"
#include "host/state/answer_display_ids.h"
#include "host/state/current_quest.h"
#include "host/state/host_state.h"
#include "host/state/play_control.h"
#include "host/state/quest.h"
#include "host/state/rule_text.h"
#include "host/state/song_play.h"
#include "platform/window.h"

using namespace answer_display;

namespace {

enum : int { resultNoSteal = 1, resultNoVictim = -1, resultCancelled = -2 };

constexpr unsigned tickMs = 500;
constexpr int ticksPerSong = 16; // of a quest of several songs
constexpr int nobody = -1;

class AnswerDisplay : public zelkova::Dialog {
public:
    explicit AnswerDisplay(int winner) : Dialog(form), winner_(winner) { candidates_.fill(nobody); }

private:
    bool onMessage(const platform::Message& message) override {
        switch (message.id) {
        case platform::WM_HSCROLL:
            if (message.lParam != idVolume) return false;
            setVolume(volumeBar().follow());
            return true;
        case platform::WM_TIMER:
            if (message.wParam != idTimer) return false;
            onTick();
            return true;
        case platform::WM_DESTROY:
            silence();
            return true;
        default:
            return false;
        }
    }

    void open() override {
        zelkova::setDialogTitle(window(), "正解表示");
        questToSessionInfo(host().curQuestNumber, stage_, songs_);
        points_ = currentPoints();
        platform::setText(control(idWinner), winner_ == nobody ? "正解者なし" : userLabel(winner_));
        volumeBar().setUp(host().answerVolume);
        showAnswerLines(window(), idAnswer1, stage_, songs_);
        platform::addItem(control(idRange), playRangeLabels.text(rangeAnswer));
        platform::setSelection(control(idRange), 0);
        platform::enable(control(idRange), false);
        platform::enable(control(idStop), false);
        if (winner_ == nobody || stage_.getSteal() == stealNone)
            withoutSteal();
        else
            offerVictims();
    }

    void withoutSteal() {
        for (const int group : {idVictimGroup, idEffectGroup}) // with all that stands in them
            platform::enable(control(group), false);
    }

    void offerVictims() {
        const platform::Control combo = control(idVictim);
        const std::vector<DataUserInfo>& users = host().userList;
        for (int i = 0; i < maxUsers; ++i) {
            const DataUserInfo& user = users[static_cast<std::size_t>(i)];
            if (i == winner_ || user.getAnswerRight() == userUnset) continue;
            candidates_[static_cast<std::size_t>(platform::addItem(combo, user.getName()))] = i;
        }
        if (platform::itemCount(combo) == 0) platform::addItem(combo, "NONE");
        platform::setSelection(combo, -1);
        platform::enable(control(idOk), false);
    }

    int selectedVictim() const {
        const int entry = platform::getSelection(control(idVictim));
        return entry >= 0 && entry < maxUsers ? candidates_[static_cast<std::size_t>(entry)] : nobody;
    }

    bool onCommand(int id) override {
        switch (id) {
        case idVictim:
            onVictimChosen();
            return true;
        case idPlay:
            currentSong_ = 0;
            playTicks_ = 0;
            playCurrentSong();
            platform::setTimer(window(), idTimer, tickMs);
            platform::enable(control(idPlay), false);
            platform::enable(control(idStop), true);
            return true;
        case idStop:
            stopAnswers();
            return true;
        case idOk:
            end(stage_.getSteal() == stealNone ? +resultNoSteal : selectedVictim());
            return true;
        case platform::IDCANCEL:
            end(resultCancelled);
            return true;
        default:
            return false;
        }
    }

    void onVictimChosen() {
        if (platform::getSelection(control(idVictim)) < 0) return;
        platform::enable(control(idOk), true);
        if (selectedVictim() == nobody) return;
        platform::setText(control(idEffect),
                          stealEffect(userName(selectedVictim()), userName(winner_), points_));
    }

    // A song without a record has no answer to hear.
    DataResource currentRecord() const {
        const auto index = static_cast<std::size_t>(currentSong_);
        return index < songs_.size() ? songs_[index] : DataResource();
    }
    zelkova::Media& currentMedia() const { return host().questMedia[static_cast<std::size_t>(currentSong_)]; }

    void playCurrentSong() {
        const DataResource song = currentRecord();
        zelkova::setMasterVolume(host().answerVolume); // all that some kinds of files take
        playFrom(currentMedia(), toMilliseconds(song.getAnsStart(), song.getFileType()), host().answerVolume);
    }

    void onTick() {
        if (songCount(stage_) == 1) {
            const DataResource song = currentRecord();
            if (currentMedia().getPosition() >= toMilliseconds(song.getAnsEnd(), song.getFileType()))
                stopAnswers();
            return;
        }
        if (++playTicks_ < ticksPerSong) return;
        playTicks_ = 0;
        if (++currentSong_ >= songCount(stage_)) {
            stopAnswers();
            return;
        }
        stopSongs();
        playCurrentSong();
    }

    void stopAnswers() {
        silence();
        platform::enable(control(idPlay), true);
        platform::enable(control(idStop), false);
    }

    void silence() {
        stopSongs();
        platform::killTimer(window(), idTimer);
        // The level of this dialog is not that of the show.
        zelkova::setMasterVolume(host().masterVolume);
    }

    void setVolume(int level) {
        host().answerVolume = level;
        for (zelkova::Media& media : host().questMedia)
            media.setVolume(level * 10);
        zelkova::setMasterVolume(level);
    }

    VolumeBar volumeBar() const { return {control(idVolume), control(idVolumeText)}; }

    const int winner_;
    DataSession stage_;
    std::vector<DataResource> songs_;
    int points_ = 0;
    std::array<int, maxUsers> candidates_; // user index for each entry of the combo box
    int currentSong_ = 0;
    int playTicks_ = 0; // of the current song
};

} // namespace

int dlgAnswerDisplay(platform::WindowHandle owner, int requestUserId) {
    return AnswerDisplay(requestUserId).run(owner);
}
