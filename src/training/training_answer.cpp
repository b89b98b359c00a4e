#include "training/training_answer.h"

#include "data/labels.h"
#include "foundation/dialog.h"
#include "foundation/views/message_box.h"
#include "foundation/views/volume_bar.h"
#include "host/state/answer_display_ids.h"
#include "host/state/host_state.h"
#include "host/state/play_control.h"
#include "host/state/quest.h"
#include "host/state/sound_watch.h"

using namespace answer_display;

namespace {

constexpr unsigned tickMs = 500;

class TrainingAnswer : public zelkova::Dialog {
public:
    TrainingAnswer(const TrainingRun& run, const SongPlay& first, int& volume)
        : Dialog(form), run_(run), first_(first), volume_(volume) {}

private:
    void open() override {
        zelkova::setDialogTitle(window(), "正解表示");
        int line = idAnswer1;
        for (const DataResource& song : run_.songs())
            platform::setText(control(line++), songText(song));
        // Nobody wins here, and nobody loses.
        for (const int unused : {idWinnerCaption, idWinner, idVictimGroup, idEffectGroup})
            platform::enable(control(unused), false);
        platform::addItem(control(idRange), playRangeLabels.text(run_.session().getRange()));
        platform::setSelection(control(idRange), 0);
        platform::enable(control(idRange), false);
        volumeBar().setUp(volume_);
        stop();
    }

    bool onCommand(int id) override {
        switch (id) {
        case idPlay:
            play();
            return true;
        case idStop:
            stop();
            return true;
        case idOk:
        case platform::IDCANCEL:
            end(0);
            return true;
        default:
            return false;
        }
    }

    bool onMessage(const platform::Message& message) override {
        switch (message.id) {
        case platform::WM_HSCROLL:
            if (message.lParam != idVolume) return false;
            volume_ = volumeBar().follow();
            setPlayerVolumes(volume_);
            return true;
        case platform::WM_TIMER:
            if (message.wParam != idTimer) return false;
            if (watch_.isOver(*first_.media, first_.end)) stop();
            return true;
        case platform::WM_DESTROY:
            stopSongs();
            return true;
        default:
            return false;
        }
    }

    void play() {
        if (!first_.media) return;
        playFrom(*first_.media, first_.start, volume_);
        watch_.begin(*first_.media);
        platform::setTimer(window(), idTimer, tickMs);
        platform::enable(control(idStop), true);
        platform::setFocus(control(idStop));
        platform::enable(control(idPlay), false);
    }

    void stop() {
        stopSongs();
        platform::killTimer(window(), idTimer);
        platform::enable(control(idPlay), true);
        platform::enable(control(idStop), false);
    }

    VolumeBar volumeBar() const { return {control(idVolume), control(idVolumeText)}; }

    const TrainingRun& run_;
    const SongPlay first_;
    int& volume_;
    SoundWatch watch_;
};

} // namespace

void dlgTrainingAnswer(platform::WindowHandle owner, const TrainingRun& run, const SongPlay& first,
                       int& volume) {
    TrainingAnswer(run, first, volume).run(owner);
}
