#include "support/program.h"

#include "data/app_logger.h"
#include "host/shell/tonalplayermain.h"
#include "host/state/host_state.h"
#include "platform/driver.h"
#include "platform/window.h"

namespace test_support {

Program::Program(std::unique_ptr<platform::SoundDevice> device) {
    platform::setSoundDevice(std::move(device));
    resetHost();
}

Program::~Program() {
    window_.reset();
    if (host().mainWindow) platform::destroyWindow(host().mainWindow);
    platform::Message message;
    while (platform::peekMessage(message)) {
    }
    resetHost(); // no player outlives its device
    AppLogger::close();
    platform::setSoundDevice(nullptr);
}

void Program::start(const ProgramFolder& folder) {
    folder.writeSettings();
    window_ = std::make_unique<MainWnd>();
    openProgram(*window_, folder.moduleFolder());
    platform::driver::settle();
}

bool inState(const std::string& name) {
    return host().kdlState && host().kdlState->getState()->getStateName() == name && host().vrmStatus == 0;
}

} // namespace test_support
