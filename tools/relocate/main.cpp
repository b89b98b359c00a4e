// kdl-relocate <music folder>
// Points the songs of the catalogue whose files are missing to the files of the same name in the folder. The
// catalogue is that of the settings, as the host program uses it; nothing is done while the host runs. The
// catalogue as it was before the first relocation stays beside it as ResourceData.xml.bak.

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

#include "data/accesser_application.h"
#include "data/relocate.h"
#include "foundation/path.h"
#include "platform/files.h"
#include "platform/folder_lock.h"
#include "platform/program_tree.h"
#include "platform/text.h"

namespace {

namespace fs = std::filesystem;

// None, and told, when there are settings that cannot be read: they may name another catalogue.
std::optional<std::string> catalogueFile() {
    const std::string file = zelkova::normalizePath("../cnf/Config.xml");
    DataApplication settings;
    AccesserApplication accesser;
    if (platform::pathExists(file) && !accesser.load(file, settings)) {
        std::fprintf(stderr, "%s: %s\n", platform::sjisToUtf8(file).c_str(),
                     platform::sjisToUtf8(accesser.loadError()).c_str());
        return std::nullopt;
    }
    return zelkova::normalizePath(catalogueInUse(settings, "../cnf/ResourceData.xml"));
}

void print(const char* what, const std::vector<std::string>& paths) {
    for (const std::string& path : paths)
        std::printf("%s: %s\n", what, platform::sjisToUtf8(path).c_str());
}

int relocate(const fs::path& folder) {
    const std::optional<std::string> music = platform::programPath(fs::absolute(folder));
    if (!music || !fs::is_directory(folder)) {
        std::fprintf(stderr, "%s: no such folder, or its name has no place in Shift-JIS\n", folder.c_str());
        return EXIT_FAILURE;
    }
    const std::optional<std::string> file = catalogueFile();
    if (!file) return EXIT_FAILURE;
    AccesserResource catalogue;
    if (!platform::isFile(*file) || !catalogue.open(*file)) {
        std::fprintf(stderr, "%s: no catalogue. %s\n", platform::sjisToUtf8(*file).c_str(),
                     platform::sjisToUtf8(catalogue.loadError()).c_str());
        return EXIT_FAILURE;
    }
    const Relocation result = relocateSongs(catalogue, *music);
    print("missing", result.unknown);
    print("several files of that name", result.unclear);
    if (result.relocated > 0) {
        const fs::path native = platform::nativePath(*file);
        std::error_code failure;
        fs::copy_file(native, native.native() + ".bak", fs::copy_options::skip_existing, failure);
        if (failure || !catalogue.commit()) {
            std::fprintf(stderr, "%s: cannot be written; nothing has changed\n", native.c_str());
            return EXIT_FAILURE;
        }
    }
    std::printf("%d songs found in %s, %zu missing, %zu unclear\n", result.relocated, folder.c_str(),
                result.unknown.size(), result.unclear.size());
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2 || argv[1][0] == '-') {
        std::fprintf(stderr, "usage: %s <music folder>\n", argv[0]);
        return EXIT_FAILURE;
    }
    const std::string problem = platform::settleProgramTree().problem;
    if (!problem.empty()) std::fprintf(stderr, "%s\n", problem.c_str());
    const auto lock = platform::FolderLock::take("..", platform::FolderLock::Kind::Exclusive);
    if (!lock) {
        std::fprintf(stderr, "kdl is running (or another kdl-relocate): close it first\n");
        return EXIT_FAILURE;
    }
    return relocate(argv[1]);
}
