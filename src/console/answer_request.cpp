#include "console/answer_request.h"

#include "console/answer_lines.h"
#include "console/dialog_ids.h"
#include "console/user_text.h"
#include "foundation/dialog.h"
#include "foundation/media.h"
#include "foundation/text.h"
#include "foundation/views/message_box.h"
#include "foundation/views/volume_bar.h"
#include "host/state/current_quest.h"
#include "host/state/effects.h"
#include "host/state/host_state.h"
#include "host/state/play_control.h"
#include "host/state/quest.h"
#include "host/state/rule_text.h"
#include "platform/window.h"

using namespace answer_request;

namespace {

struct ControlColor {
    int id;
    platform::Color color;
};

constexpr platform::Color black{0, 0, 0}, wrongRed{215, 75, 100};
constexpr ControlColor colors[] = {
    {idUserCaption, {0, 0, 255}}, {idAnswerCaption, {255, 0, 0}}, {idRight, {0, 115, 235}},
    {idWrong, wrongRed},          {idTimeUp, wrongRed},           {idUser, black},
    {idAnswer1, black},           {idAnswer1 + 1, black},         {idAnswer1 + 2, black},
    {idAnswer1 + 3, black},       {idAnswer1 + 4, black},
};

class AnswerRequest : public zelkova::Dialog {
public:
    explicit AnswerRequest(int userId) : Dialog(form), userId_(userId) {}

private:
    bool onMessage(const platform::Message& message) override {
        switch (message.id) {
        case platform::WM_HSCROLL: {
            if (message.lParam != idVolume) return false;
            const int level = volumeBar().follow();
            hurry_.setVolume(level * 10);
            applyMasterVolume(level);
            return true;
        }
        case platform::WM_DESTROY:
            host().dataApplication.setCheerFlg(platform::isChecked(control(idCheer)));
            unloadSound(hurry_);
            return true;
        default:
            return false;
        }
    }

    void open() override {
        const HostState& state = host();
        zelkova::setDialogTitle(window(), "解答要求");
        platform::setWindowIcon(window(), "ICO_INTRO_SERVER");
        hurry_.create(window());
        loadSound(hurry_, state.dataApplication.getEfcWrnAnswer());
        volumeBar().setUp(state.masterVolume);
        hurry_.setVolume(state.masterVolume * 10);
        zelkova::setMasterVolume(state.masterVolume);

        std::vector<DataResource> songs;
        questToSessionInfo(state.curQuestNumber, stage_, songs);
        points_ = currentPoints();
        platform::setText(control(idUser), userLabel(userId_));
        showAnswerLines(window(), idAnswer1, stage_, songs);
        platform::setChecked(control(idCheer), state.dataApplication.getCheerFlg());
        platform::enable(control(idOk), false);
        for (const ControlColor& row : colors)
            platform::setTextColor(control(row.id), row.color);
    }

    bool onCommand(int id) override {
        switch (id) {
        case idRight:
            showEffect(rightAnswerEffect(stage_, userName(userId_), points_));
            return true;
        case idWrong:
        case idTimeUp:
            showEffect(wrongAnswerEffect(stage_, userName(userId_)));
            return true;
        case idHurry:
            playFromStart(hurry_);
            return true;
        case idOk:
            end(verdict());
            return true;
        case idVoid:
        case platform::IDCANCEL:
            end(Verdict::Void);
            return true;
        case idPause:
            end(Verdict::Pause);
            return true;
        default:
            return false;
        }
    }

    void showEffect(const std::string& text) {
        platform::setText(control(idEffect), text);
        platform::enable(control(idOk), true);
    }

    void end(Verdict verdict) { Dialog::end(static_cast<int>(verdict)); }

    Verdict verdict() const {
        if (platform::isChecked(control(idRight)))
            return platform::isChecked(control(idCheer)) ? Verdict::RightWithCheer : Verdict::Right;
        return platform::isChecked(control(idWrong)) ? Verdict::Wrong : Verdict::TimeUp;
    }

    VolumeBar volumeBar() const { return {control(idVolume), control(idVolumeText)}; }

    const int userId_;
    zelkova::Media hurry_;
    DataSession stage_;
    int points_ = 0;
};

} // namespace

Verdict dlgAnswerRequest(platform::WindowHandle owner, int requestUserId) {
    return static_cast<Verdict>(AnswerRequest(requestUserId).run(owner));
}
