#include "training/answer_confirm.h"

#include <cstdio>

#include "foundation/dialog.h"
#include "host/state/host_state.h"
#include "training/training_answer.h"
#include "training/training_ids.h"
#include "training/training_quests.h"

using namespace answer_confirm;

namespace {

constexpr char nothingChosen[] = "-- 解答を選択して下さい --";

std::string choiceText(const DataResource& song) {
    char number[16];
    std::snprintf(number, sizeof number, "%03d", song.getNo());
    return std::string(number) + "：" + song.getTitle() + "／" + song.getArtist();
}

class AnswerConfirm : public zelkova::Dialog {
public:
    AnswerConfirm(const TrainingRun& run, QuestSound& sound, int& volume)
        : Dialog(form), run_(run), sound_(sound), volume_(volume),
          asked_(static_cast<int>(run.correctNumbers().size())) {}

private:
    void open() override {
        std::vector<std::string> entries{nothingChosen};
        for (const int number : run_.choices()) {
            DataResource song;
            host().accesserResource.get(number, song);
            entries.push_back(choiceText(song));
        }
        for (int i = 0; i < maxSongs; ++i) {
            const platform::Control box = control(idAnswer1 + i);
            for (const std::string& entry : entries)
                platform::addItem(box, entry);
            const bool asked = i < asked_;
            platform::setSelection(box, asked ? 0 : -1);
            platform::enable(box, asked);
            platform::enable(control(idCaption1 + i), asked);
        }
        followChoices();
        platform::setFocus(control(idAnswer1));
    }

    bool onCommand(int id) override {
        if (id >= idAnswer1 && id < idAnswer1 + maxSongs) {
            platform::setToolTip(control(id), platform::getText(control(id))); // a long title is cut
            followChoices();
            return true;
        }
        switch (id) {
        case idDecide:
            decide();
            return true;
        case idCancel:
        case platform::IDCANCEL:
            end(0);
            return true;
        default:
            return false;
        }
    }

    // The numbers of the songs that are chosen; a box that stands on its first entry gives none.
    std::vector<int> given() const {
        std::vector<int> numbers;
        for (int i = 0; i < asked_; ++i) {
            const int entry = platform::getSelection(control(idAnswer1 + i));
            if (entry > 0) numbers.push_back(run_.choices()[static_cast<std::size_t>(entry - 1)]);
        }
        return numbers;
    }

    void followChoices() { platform::enable(control(idDecide), static_cast<int>(given().size()) == asked_); }

    void decide() {
        const DataApplication& sounds = host().dataApplication;
        const bool right = isRightAnswer(run_.correctNumbers(), given());
        sound_.playEffect(right ? sounds.getEfcOk() : sounds.getEfcNg());
        if (right) {
            sound_.playCheer(sounds.getEfcApplause());
            dlgTrainingAnswer(window(), run_, sound_.firstPlay(), volume_);
        }
        end(right ? 1 : 0);
    }

    const TrainingRun& run_;
    QuestSound& sound_;
    int& volume_;
    const int asked_; // songs at once
};

} // namespace

int dlgAnswerConfirm(platform::WindowHandle owner, const TrainingRun& run, QuestSound& sound, int& volume) {
    return AnswerConfirm(run, sound, volume).run(owner);
}
