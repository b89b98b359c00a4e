#include "foundation/path.h"
#include "host/shell/tonalplayermain.h"
#include "host/state/host_state.h"
#include "platform/application.h"
#include "platform/dialog.h"
#include "platform/program_tree.h"
#include "platform/sound.h"
#include "platform/text.h"

namespace {

// In plain words: the texts of the messages may be among what is missing.
void tellTreeProblem(const std::string& problem) {
    if (problem.empty()) return;
    platform::messageBox({}, "作業フォルダーを用意できません。\r\n" + platform::utf8ToSjis(problem), "kdl",
                         platform::Buttons::Ok, platform::SystemIcon::Warning);
}

} // namespace

int main(int argc, char** argv) {
    platform::Application application(argc, argv);
    platform::setSoundDevice(platform::makeGstreamerDevice(platform::SoundOutput::Speakers));
    resetHost();
    tellTreeProblem(platform::settleProgramTree());
    const int exitCode = WinMain(zelkova::getModuleFolder());
    resetHost(); // no player outlives its device
    platform::setSoundDevice(nullptr);
    return exitCode;
}
