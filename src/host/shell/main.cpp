#include <cstdlib>
#include <filesystem>
#include <optional>

#include "data/accesser_application.h"
#include "foundation/path.h"
#include "host/shell/tonalplayermain.h"
#include "host/state/host_state.h"
#include "platform/application.h"
#include "platform/dialog.h"
#include "platform/files.h"
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

// The host's settings tell of the product what came with this program.
void takeOverDelivery(const std::filesystem::path& shipped) {
    if (shipped.empty()) return;
    if (const auto file = platform::programPath(shipped / "cnf/Config.xml"))
        deliverFundamental(*file, "../cnf/Config.xml");
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
    const platform::ProgramTree tree = platform::settleProgramTree();
    takeOverDelivery(tree.shipped);
    tellTreeProblem(tree.problem);
    const auto lock = lockTree();
    const int exitCode = lock ? WinMain(zelkova::getModuleFolder()) : EXIT_FAILURE;
    resetHost(); // no player outlives its device
    platform::setSoundDevice(nullptr);
    return exitCode;
}
