#include "editors/add_rest_dialog.h"

#include <algorithm>

#include "editors/add_rest.h"
#include "editors/dialog_ids.h"
#include "editors/song_form.h"
#include "foundation/dialog.h"
#include "foundation/path.h"
#include "foundation/text.h"
#include "foundation/views/message_box.h"
#include "host/state/host_state.h"
#include "platform/controls.h"
#include "platform/messages.h"

using namespace add_rest;

namespace {

enum : int { whatWasAdded = 2000028 };
constexpr unsigned stepMs = 10;
constexpr std::size_t mostNames = 20; // in a message

class AddRestDialog : public zelkova::Dialog {
public:
    AddRestDialog(FileIndex& index, std::vector<std::string> files)
        : Dialog(form), work_(host().accesserResource, index, std::move(files)) {}

private:
    void open() override {
        platform::setRange(control(idProgress), 0, work_.files());
        awaitNext();
        show();
    }

    bool onCommand(int id) override {
        if (id != idStop && id != platform::IDCANCEL) return false;
        close();
        return true;
    }

    // One file for each tick, so that the window is drawn and the button works in between. A writing may ask
    // the host, and ticks go on behind a question: there is none until the step is done.
    bool onMessage(const platform::Message& message) override {
        if (message.id != platform::WM_TIMER || message.wParam != idTimer) return false;
        platform::killTimer(window(), idTimer);
        written_ = work_.step();
        show();
        if (work_.isOver())
            close();
        else
            awaitNext();
        return true;
    }

    void awaitNext() { platform::setTimer(window(), idTimer, stepMs); }

    void show() {
        platform::setPosition(control(idProgress), work_.done());
        platform::setText(control(idCount), zelkova::numberToText(work_.done()) + "／" +
                                                zelkova::numberToText(work_.files()) + "曲");
        platform::setText(control(idFileName), work_.isOver() ? "" : zelkova::getFileName(work_.file()));
    }

    void close() {
        platform::killTimer(window(), idTimer);
        const bool written = work_.finish() && written_;
        if (!written) zelkova::showMessage(window(), storingFailed);
        tell();
        end(0);
    }

    void tell() {
        std::string names;
        const std::vector<std::string>& failed = work_.failed();
        for (std::size_t i = 0; i < std::min(failed.size(), mostNames); ++i)
            names += (i ? "\r\n" : "") + failed[i];
        if (failed.size() > mostNames) names += "\r\n…";
        zelkova::DataPairsList pairs;
        pairs.add("ADDED", work_.added());
        pairs.add("KNOWN", work_.known());
        pairs.add("FAILED", static_cast<int>(failed.size()));
        pairs.add("FILES", names.empty() ? "なし" : names);
        zelkova::reportMessage(window(), whatWasAdded, pairs);
    }

    AddRest work_;
    bool written_ = true;
};

} // namespace

void dlgAddRest(platform::WindowHandle owner, FileIndex& index, std::vector<std::string> files) {
    AddRestDialog(index, std::move(files)).run(owner);
}
