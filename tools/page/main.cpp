// kdl-page <file.xml>...
// Shows histories, running orders and the catalogue as pages, in the desktop's program for pages. The
// installed package makes the desktop start it for such a file. What it hands to the desktop is always a
// page, never an XML file, which the desktop would bring back. The exit code is 0 when every file is shown as
// it should be.

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "data/file_page.h"
#include "foundation/path.h"
#include "platform/application.h"
#include "platform/dialog.h"
#include "platform/files.h"
#include "platform/program_tree.h"
#include "platform/shell.h"
#include "platform/text.h"

namespace {

namespace fs = std::filesystem;

// What went wrong: each problem on standard error, and on the screen at the end what no page tells.
class Problems {
public:
    bool none() const { return none_; }
    void tell(const char* file, const std::string& problem, bool onPage) {
        none_ = false;
        const std::string line = platform::utf8ToSjis(file) + ": " + problem;
        std::fprintf(stderr, "%s\n", platform::sjisToUtf8(line).c_str());
        if (!onPage) unseen_ += line + "\r\n";
    }
    void show(int argc, char** argv) const {
        if (unseen_.empty() || !platform::hasDisplay()) return;
        const platform::Application application(argc, argv);
        platform::messageBox({}, unseen_, "kdl-page", platform::Buttons::Ok, platform::SystemIcon::Warning);
    }

private:
    bool none_ = true;
    std::string unseen_;
};

// The page that shows the file; "" when there is none.
std::string pageOf(const char* argument, Problems& problems) {
    const auto file = platform::programPath(fs::absolute(argument));
    FilePage page;
    if (!file)
        page.problem = "Shift-JIS にない文字が名前にあります。";
    else if (zelkova::getExtension(*file) == "html")
        page.problem = "これはすでにページです。"; // a desktop that brings pages here too gets none
    else
        page = makeFilePage(*file, zelkova::getModuleFolder());
    if (!page.problem.empty()) problems.tell(argument, page.problem, !page.path.empty());
    return page.path;
}

void show(const std::vector<const char*>& files, Problems& problems) {
    struct Opening {
        const char* file;
        std::string page;
        std::function<bool()> opened;
    };
    std::vector<Opening> openings;
    for (const char* file : files)
        if (const std::string page = pageOf(file, problems); !page.empty())
            openings.push_back({file, page, platform::shellOpenAtEnd(page)});
    for (const Opening& opening : openings)
        if (!opening.opened())
            problems.tell(opening.file, "ページを開くことができません。(" + opening.page + ")", false);
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2 || argv[1][0] == '-') {
        std::fprintf(stderr, "usage: %s <file.xml>...\n", argv[0]);
        return EXIT_FAILURE;
    }
    const std::string problem = platform::settleProgramTree().problem;
    if (!problem.empty()) std::fprintf(stderr, "%s\n", problem.c_str());
    Problems problems;
    show({argv + 1, argv + argc}, problems);
    problems.show(argc, argv);
    return problems.none() ? EXIT_SUCCESS : EXIT_FAILURE;
}
