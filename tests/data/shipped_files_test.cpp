// What is shipped has to fit the program: every message number that the sources use has its text and its page
// of help, and the prepared settings are in the form that the program itself writes.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <vector>

#include <gtest/gtest.h>

#include "data/accesser_application.h"
#include "data/accesser_session_history.h"
#include "data/acs_log_message.h"
#include "foundation/text.h"
#include "platform/files.h"
#include "platform/text.h"
#include "support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

const fs::path sources = KDL_SOURCE_FOLDER;

std::string shipped(const char* name) {
    return (sources / "dist/cnf" / name).string();
}

std::set<int> numbersIn(const fs::path& folder) {
    std::set<int> numbers;
    const std::regex number("\\b[1-4]0000[0-9][0-9]\\b");
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h") continue;
        std::ifstream file(entry.path());
        const std::string text{std::istreambuf_iterator<char>(file), {}};
        for (std::sregex_iterator match(text.begin(), text.end(), number), end; match != end; ++match)
            numbers.insert(std::stoi(match->str()));
    }
    return numbers;
}

DataLogMessageList messages() {
    AcsLogMessage accesser;
    EXPECT_EQ(accesser.open(shipped("LogMessage.xml")), 1) << accesser.loadError();
    DataLogMessageList list;
    accesser.read(list);
    return list;
}

TEST(ShippedMessages, CoverEveryNumberOfTheSources) {
    const DataLogMessageList list = messages();
    const std::set<int> used = numbersIn(sources / "src");
    EXPECT_TRUE(used.count(1000000)) << "the search itself finds nothing";
    for (const int code : used)
        EXPECT_NE(list.find(code), nullptr) << code;
}

TEST(ShippedMessages, CanBeFilledAndShown) {
    std::set<int> seen;
    for (const DataLogMessage& message : messages()) {
        SCOPED_TRACE(message.getCode());
        EXPECT_TRUE(seen.insert(message.getCode()).second) << "stands twice";
        EXPECT_EQ(message.getLogging(), message.getCode() / 1000000);
        EXPECT_FALSE(message.getContents().empty());
        for (const std::string& text : {message.getContents(), message.getRestore()}) {
            const auto tokens = zelkova::split(text, "%");
            EXPECT_EQ(tokens.size() % 2, 1u) << "a marker without its other";
            std::set<std::string> keys;
            for (std::size_t i = 1; i < tokens.size(); ++i) {
                if (i % 2 == 1) {
                    EXPECT_TRUE(keys.insert(tokens[i]).second) << "empty when it stands twice";
                }
                // Nothing between two placeholders would print a marker.
                EXPECT_TRUE(!tokens[i].empty() || i + 1 == tokens.size());
            }
        }
        // The status bar shows what stands on both sides of the bar; no trail byte may look like a second
        // one.
        const bool statusText = zelkova::findText(message.getContents(), "|") != zelkova::npos;
        if (statusText) {
            EXPECT_EQ(zelkova::split(message.getContents(), "|").size(), 2u);
            EXPECT_EQ(std::count(message.getContents().begin(), message.getContents().end(), '|'), 1);
        }
    }
}

// The keys that every caller of a number passes. A placeholder that only some of them fill would show nothing
// in the lines of the others.
const std::map<int, std::set<std::string>> keysOfCallers = {
    {1000000, {"MESSAGE"}},
    {1000003, {"EVENT"}},
    {1000004, {"MESSAGE"}},
    {1000007, {"ANSWER"}},
    {2000004, {"SUBJECT"}},
    {2000006, {"SCORE"}},
    {2000007, {"PORT", "SESSION"}},
    {2000008, {"SESSION"}},
    {2000015, {"SERVER_HOST", "SERVER_PORT"}},
    {2000016, {"SERVER_HOST", "SERVER_PORT", "CLIENT_HOST", "CLIENT_PORT"}},
    {2000017, {"USER_NAME1", "USER_NAME2", "USER_NAME3", "USER_NAME4"}},
    {2000019, {"QUEST", "ANSWER"}},
    {2000020, {"QUEST", "ANSWER", "RESULT", "SCORE1", "SCORE2", "SCORE3", "SCORE4"}},
    {2000022, {"HOST", "PORT"}},
    {2000027, {"USER"}},
    {2000028, {"ADDED", "KNOWN", "FAILED", "FILES"}},
    {3000012, {"SESSION", "MESSAGE"}},
    {3000014, {"FILE"}},
    {3000015, {"FILE"}},
    {3000020, {"QUEST", "REASON"}},
    {3000021, {"FILE"}},
    {3000022, {"FILE", "LOCK"}},
    {3000023, {"PROGRAM", "FILE"}},
    {3000030, {"HIGH", "LOW", "SUBJECT"}},
    {3000032, {"FILE", "MESSAGE"}},
    {4000002, {"MESSAGE", "RETCODE"}},
    {4000003, {"STATUS", "EVENT"}},
    {4000004, {"REPLY_METHOD"}},
    {4000005, {"SESSION"}},
    {4000006, {"PORT"}},
    {4000008, {"FILE"}},
    {4000011, {"FILE"}},
    {4000012, {"FILE", "MESSAGE"}},
    {4000013, {"FILE"}},
    {4000014, {"FILE", "ELEMENT"}},
    {4000015, {"FILE"}},
    {4000016, {"FILE", "MESSAGE"}},
    {4000018, {"FILE"}},
    {4000020, {"FILE"}},
};

TEST(ShippedMessages, AskOnlyForWhatTheirCallersPass) {
    for (const DataLogMessage& message : messages()) {
        const auto passed = keysOfCallers.find(message.getCode());
        for (const std::string& text : {message.getContents(), message.getRestore()}) {
            const auto tokens = zelkova::split(text, "%");
            for (std::size_t i = 1; i < tokens.size(); i += 2)
                EXPECT_TRUE(passed != keysOfCallers.end() && passed->second.contains(tokens[i]))
                    << message.getCode() << " " << tokens[i];
        }
    }
}

std::string textOf(const fs::path& file) {
    std::ifstream in(file);
    return {std::istreambuf_iterator<char>(in), {}};
}

const fs::path help = fs::path(KDL_SHIPPED_FOLDER) / "hlp";

std::vector<fs::path> pagesOfHelp() {
    std::vector<fs::path> pages;
    for (const auto& entry : fs::directory_iterator(help))
        if (entry.path().extension() == ".html") pages.push_back(entry.path());
    return pages;
}

TEST(ShippedHelp, HasAPageForEveryMessage) {
    DataApplication settings;
    ASSERT_EQ(AccesserApplication().load(shipped("Config.xml"), settings), 1);
    // Both buttons of the program fill the address; HTMLヘルプ has no code.
    const auto page = [&settings](const std::string& code) {
        const std::string address =
            zelkova::replaceAll(settings.getHelpUrl(), "%__SERCH_MESSAGE_CODE__%", code);
        return textOf((help / "../bin" / address).lexically_normal());
    };
    std::size_t pages = 1;
    EXPECT_NE(page("").find("id=\"messages\""), std::string::npos);
    for (const DataLogMessage& message : messages()) {
        if (message.getLogging() < 2) continue; // trace lines are only in the log
        const std::string code = zelkova::numberToText(message.getCode()), text = page(code);
        EXPECT_NE(text.find("<h1>C" + code + "</h1>"), std::string::npos) << code;
        EXPECT_EQ(text.find('%'), std::string::npos) << code << " shows a placeholder as it is written";
        EXPECT_FALSE(message.getRestore().empty()) << code << " does not tell what to do";
        ++pages;
    }
    EXPECT_EQ(pagesOfHelp().size(), pages) << "a page of a message that is gone";
}

TEST(ShippedHelp, LeadsOnlyToWhatIsThere) {
    const std::regex link("(href|src)=\"([^\"#]*)#?([^\"]*)\"");
    std::size_t links = 0;
    for (const fs::path& file : pagesOfHelp()) {
        const std::string text = textOf(file);
        for (std::sregex_iterator match(text.begin(), text.end(), link), end; match != end; ++match) {
            const fs::path target = (*match)[2].length() == 0 ? file : help / (*match)[2].str();
            const std::string place = (*match)[3];
            EXPECT_TRUE(fs::is_regular_file(target)) << file << " -> " << target;
            EXPECT_TRUE(place.empty() || textOf(target).find("id=\"" + place + "\"") != std::string::npos)
                << file << " -> " << place;
            ++links;
        }
    }
    EXPECT_GT(links, messages().size());
}

// The texts of the menus' entries and of all that is pressed or checked, without their mnemonics.
std::set<std::string> captionsIn(const fs::path& form) {
    const std::regex part(
        "(QPushButton|QCheckBox|QRadioButton|<action )|<property name=\"(\\w+)\"|<string>([^<(]*)");
    const std::string file = textOf(form), colon = platform::sjisToUtf8("：");
    std::set<std::string> captions;
    bool wanted = false, isText = false;
    for (std::sregex_iterator match(file.begin(), file.end(), part), end; match != end; ++match) {
        if ((*match)[1].matched) {
            wanted = true;
        } else if ((*match)[2].matched) {
            isText = (*match)[2] == "text";
        } else if (wanted && isText) {
            const std::string caption = (*match)[3]; // empty for what has only a picture
            captions.insert(caption.substr(0, caption.find(colon)));
            wanted = false;
        }
    }
    return captions;
}

TEST(ShippedHelp, TellsEveryCommandAndEveryButton) {
    const std::string guide = textOf(help / "index.html");
    std::size_t captions = 0;
    for (const char* folder : {"resources/dialogs", "resources/menus"})
        for (const auto& form : fs::directory_iterator(sources / folder)) {
            if (form.path().filename() == "KDL_TERMINAL.ui") continue;
            for (const std::string& caption : captionsIn(form)) {
                EXPECT_NE(guide.find(caption), std::string::npos)
                    << form.path().filename() << ": " << caption;
                ++captions;
            }
        }
    EXPECT_GT(captions, 100u);
}

TEST(ShippedSettings, AreInTheProgramsOwnForm) {
    DataApplication settings;
    AccesserApplication accesser;
    ASSERT_EQ(accesser.load(shipped("Config.xml"), settings), 1) << accesser.loadError();
    EXPECT_GT(settings.getServerPort(), 1023);
    EXPECT_EQ(settings.getLogLevel(), "INFO");
    for (const auto& field : DataApplication::fields())
        if (std::string(field.element).starts_with("effect/")) {
            EXPECT_FALSE(record::textOf(settings, field).empty()) << field.element;
        }

    // Nothing that the program does not know, nothing that it would write otherwise.
    const test_support::TemporaryFolder folder;
    ASSERT_EQ(accesser.save(folder.file("Config.xml"), settings), 1);
    const auto withoutEmptyTags = [](std::string text) {
        return std::regex_replace(text, std::regex("<(\\w+)/>"), "<$1></$1>");
    };
    EXPECT_EQ(withoutEmptyTags(platform::readFile(folder.file("Config.xml")).value()),
              withoutEmptyTags(platform::readFile(shipped("Config.xml")).value()));
}

TEST(ShippedSheets, AreWellFormed) {
    for (const char* name : {"Common.xsl", "ResourceData.xsl", "SessionPrint.xsl", "SessionHistory.xsl"}) {
        XmlDom sheet;
        EXPECT_EQ(sheet.load(shipped(name)), 1) << name << ": " << sheet.loadError();
    }
}

} // namespace
