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

} // namespace

void showStatusBar(int code, const zelkova::DataPairsList& pairs) {
    const DataLogMessage message = host().logMessageList.getMessage(code);
    const std::string text = zelkova::formatWithPairs(message.getContents(), pairs, "%", true);
    for (int part = 0; part < 2; ++part) {
        std::string token;
        zelkova::firstToken(text, "|", part, token);
        platform::setStatusText({host().mainWindow, ids::statusBar}, part, token);
    }
}

void showQuestWarning() {
    if (host().questWarning.empty()) return;
    zelkova::DataPairsList pairs;
    pairs.add("QUEST", host().curQuestNumber);
    pairs.add("REASON", host().questWarning);
    writeLog(3000020, pairs);
    if (!awaitsTerminal()) showStatusBar(3000020, pairs);
}
