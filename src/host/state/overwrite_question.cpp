#include "host/state/overwrite_question.h"

#include "foundation/views/message_box.h"
#include "host/state/host_log.h"
#include "host/state/host_state.h"
#include "platform/dialog.h"

bool mayOverwrite(const std::string& file) {
    constexpr int changedByOthers = 3000014;
    const platform::WindowHandle dialog = platform::openDialog();
    zelkova::DataPairsList pairs;
    pairs.add("FILE", file);
    writeLog(changedByOthers, pairs);
    return zelkova::showMessage_pairs(dialog ? dialog : host().mainWindow, changedByOthers,
                                      zelkova::MessageButtons::YesNo, 1,
                                      pairs) == static_cast<int>(platform::Answer::Yes);
}
