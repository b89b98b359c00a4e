#include "showcase/desk.h"

#include "host/state/host_state.h"
#include "platform/driver.h"

namespace showcase {

namespace driver = platform::driver;

bool inState(const std::string& name) {
    return host().kdlState && host().kdlState->getState()->getStateName() == name && host().vrmStatus == 0;
}

platform::WindowHandle openDialog(const std::string& name) {
    const auto dialogs = driver::openDialogs();
    return !dialogs.empty() && dialogs.back().name == name ? dialogs.back().window : platform::WindowHandle();
}

std::function<bool()> dialogIs(const char* name) {
    return [name] {
        const auto dialogs = driver::openDialogs();
        return !dialogs.empty() && dialogs.back().name == name;
    };
}

bool deskIsFree() {
    return inState("START") && driver::openDialogs().empty();
}

} // namespace showcase
