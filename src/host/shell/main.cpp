#include "foundation/path.h"
#include "host/shell/tonalplayermain.h"
#include "host/state/host_state.h"
#include "platform/application.h"
#include "platform/sound.h"

int main(int argc, char** argv) {
    platform::Application application(argc, argv);
    platform::setSoundDevice(platform::makeGstreamerDevice(platform::SoundOutput::Speakers));
    resetHost();
    const int exitCode = WinMain(zelkova::getModuleFolder());
    resetHost(); // no player outlives its device
    platform::setSoundDevice(nullptr);
    return exitCode;
}
