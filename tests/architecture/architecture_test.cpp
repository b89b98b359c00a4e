// The published picture of the libraries, held against the include lines.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/text.h"

namespace {

namespace fs = std::filesystem;

const fs::path root = KDL_SOURCE_DIR;

// Each library with those that it may include from; what they may include, it may too.
const std::map<std::string, std::vector<std::string>> arrows = {
    {"platform", {}},
    {"foundation", {"platform"}},
    {"data", {"foundation"}},
    {"foundation/views", {"data"}},
    {"documents", {"data", "foundation/views"}},
    {"protocol", {"data"}},
    {"host/state", {"protocol", "foundation/views"}},
    {"console", {"host/state"}},
    {"playback", {"host/state"}},
    {"editors", {"host/state"}},
    {"training", {"host/state"}},
    {"settings", {"host/state"}},
    {"host/shell", {"console", "playback", "editors", "training", "settings", "documents"}},
};

std::string readText(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

bool isSource(const fs::path& path) {
    return path.extension() == ".h" || path.extension() == ".cpp";
}

std::vector<fs::path> sourcesBelow(const fs::path& folder) {
    std::vector<fs::path> found;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file() && isSource(entry.path())) found.push_back(entry.path());
    return found;
}

// "host/state/quest.h" belongs to "host/state"; the longest library name wins.
std::string libraryOf(const std::string& file) {
    std::string best;
    for (const auto& [library, unused] : arrows)
        if (file.starts_with(library + "/") && library.size() > best.size()) best = library;
    return best;
}

std::set<std::string> reachable(const std::string& library) {
    std::set<std::string> all{library};
    for (const std::string& below : arrows.at(library))
        all.merge(reachable(below));
    return all;
}

struct Includes {
    std::vector<std::string> own, system; // "folder/file.h", <header>
};

Includes includesOf(const fs::path& file) {
    static const std::regex line(R"(^[ \t]*#[ \t]*include[ \t]*([<"])([^>"]+)[>"])", std::regex::multiline);
    const std::string text = readText(file);
    Includes includes;
    for (std::sregex_iterator it(text.begin(), text.end(), line), end; it != end; ++it)
        ((*it)[1] == "<" ? includes.system : includes.own).push_back((*it)[2]);
    return includes;
}

std::map<std::string, Includes> sourceTree() {
    std::map<std::string, Includes> tree;
    for (const fs::path& file : sourcesBelow(root / "src"))
        tree[fs::relative(file, root / "src").generic_string()] = includesOf(file);
    return tree;
}

} // namespace

TEST(Architecture, LibrariesIncludeOnlyWhatStandsBelowThem) {
    const auto tree = sourceTree();
    ASSERT_GT(tree.size(), 50u);
    for (const auto& [file, includes] : tree) {
        const std::string library = libraryOf(file);
        ASSERT_FALSE(library.empty()) << file << " belongs to no library of the picture";
        const std::set<std::string> allowed = reachable(library);
        for (const std::string& header : includes.own)
            EXPECT_TRUE(allowed.contains(libraryOf(header))) << file << " must not include " << header;
    }
}

TEST(Architecture, LibrariesOfOthersAreIncludedOnlyByThoseThatWrapThem) {
    const struct {
        std::regex headers;
        std::vector<std::string> places; // files, or folders with all below
    } foreign[] = {
        {std::regex(R"(Q[A-Z].*|gst/.*|sys/socket\.h|netinet/.*|arpa/.*|netdb\.h|poll\.h)"), {"platform/"}},
        {std::regex("xercesc/.*"), {"data/", "documents/"}},
        {std::regex("(libxml|libxslt)/.*"), {"data/styled_page.cpp", "data/file_page.cpp"}},
        {std::regex("log4cpp/.*"), {"data/app_logger.cpp"}},
    };
    for (const auto& [file, includes] : sourceTree())
        for (const auto& [headers, places] : foreign) {
            if (std::ranges::any_of(places, [&](const auto& place) { return file.starts_with(place); }))
                continue;
            for (const std::string& header : includes.system)
                EXPECT_FALSE(std::regex_match(header, headers)) << file << " includes <" << header << ">";
        }
}

TEST(Architecture, PublicPlatformHeadersShowNoForeignType) {
    static const std::regex foreign(R"(^(Q[A-Z].*|gst/.*|sys/socket\.h|netinet/.*)$)");
    for (const auto& entry : fs::directory_iterator(root / "src/platform")) {
        if (entry.path().extension() != ".h") continue;
        for (const std::string& header : includesOf(entry.path()).system)
            EXPECT_FALSE(std::regex_match(header, foreign))
                << entry.path().filename() << " includes <" << header << ">";
    }
}

TEST(Architecture, FilesIncludeEachOtherInNoCircle) {
    const auto tree = sourceTree();
    std::map<std::string, int> mark; // 1 on the way, 2 done
    std::function<void(const std::string&)> walk = [&](const std::string& file) {
        const auto found = tree.find(file);
        if (found == tree.end() || mark[file] == 2) return;
        ASSERT_NE(mark[file], 1) << "circle through " << file;
        mark[file] = 1;
        for (const std::string& header : found->second.own)
            walk(header);
        mark[file] = 2;
    };
    for (const auto& [file, unused] : tree)
        walk(file);
}

// The compiler would quietly write something near for a character that the code page lacks.
TEST(Architecture, SourcesHoldOnlyCharactersOfTheCodePage) {
    for (const char* folder : {"src", "tools", "tests"})
        for (const fs::path& file : sourcesBelow(root / folder)) {
            std::istringstream lines(readText(file));
            int number = 0;
            for (std::string line; std::getline(lines, line);) {
                ++number;
                EXPECT_EQ(platform::sjisToUtf8(platform::utf8ToSjis(line)), line)
                    << fs::relative(file, root) << ":" << number;
            }
        }
}
