#include <cstdlib>
#include <optional>

#include "foundation/path.h"
#include "host/shell/tonalplayermain.h"
#include "host/state/host_state.h"
#include "platform/application.h"
#include "platform/dialog.h"
#include "platform/folder_lock.h"
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

// Keeps kdl-relocate from the catalogue while the program has it in memory. None when it is at work and the
// host does not want to wait for its end.
std::optional<platform::FolderLock> lockTree() {
    for (;;) {
        auto lock = platform::FolderLock::take("..", platform::FolderLock::Kind::Shared);
        if (lock) return lock;
        if (platform::messageBox(
                {}, "kdl-relocate が曲をつなぎ直しています。終わってから OK を押して下さい。", "kdl",
                platform::Buttons::OkCancel, platform::SystemIcon::Information) != platform::Answer::Ok)
            return std::nullopt;
    }
}

} // namespace

int main(int argc, char** argv) {
    platform::Application application(argc, argv);
    platform::setSoundDevice(platform::makeGstreamerDevice(platform::SoundOutput::Speakers));
    resetHost();
    tellTreeProblem(platform::settleProgramTree());
    const auto lock = lockTree();
    const int exitCode = lock ? WinMain(zelkova::getModuleFolder()) : EXIT_FAILURE;
    resetHost(); // no player outlives its device
    platform::setSoundDevice(nullptr);
    return exitCode;
}
