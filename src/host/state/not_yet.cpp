#include "host/state/not_yet.h"

#include "foundation/views/message_box.h"
#include "host/state/host_state.h"

void notYet() {
    zelkova::plainNotice(host().mainWindow, "この機能は準備中です。");
}
