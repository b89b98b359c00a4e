#include "host/state/status_bar.h"

#include "foundation/text.h"
#include "host/state/console_ids.h"
#include "host/state/host_log.h"
#include "host/state/host_state.h"
#include "host/state/intro_state.h"
#include "platform/controls.h"

namespace {

bool awaitsTerminal() {
    const KdlState* machine = host().kdlState.get();
    return machine && machine->is(StateInit::getInstance());
}

void refresh() {
    const bool warns = host().questWarning.code != 0 && !awaitsTerminal();
    const StatusMessage& shown = warns ? host().questWarning : host().status;
    const DataLogMessage message = host().logMessageList.getMessage(shown.code);
    const std::string text = zelkova::formatWithPairs(message.getContents(), shown.pairs, "%", true);
    for (int part = 0; part < 2; ++part) {
        std::string token;
        zelkova::firstToken(text, "|", part, token);
        platform::setStatusText({host().mainWindow, ids::statusBar}, part, token);
    }
}

} // namespace

void showStatusBar(int code, const zelkova::DataPairsList& pairs) {
    host().status = {code, pairs};
    refresh();
}

void warnOfQuest(const std::string& reason) {
    StatusMessage& warning = host().questWarning;
    warning = {};
    if (!reason.empty()) {
        warning.code = 3000020;
        warning.pairs.add("QUEST", host().curQuestNumber);
        warning.pairs.add("REASON", reason);
        writeLog(warning.code, warning.pairs);
    }
    refresh();
}
