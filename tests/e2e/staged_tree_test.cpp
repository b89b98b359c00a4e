// The tree that the build stages, and the program that stages it.

#include <cstdlib>
#include <filesystem>
#include <string_view>

#include <gtest/gtest.h>

#include "data/accesser_application.h"
#include "platform/files.h"
#include "support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

DataApplication settingsOf(const fs::path& tree) {
    DataApplication settings;
    EXPECT_EQ(AccesserApplication().load((tree / "cnf/Config.xml").string(), settings), 1) << tree;
    return settings;
}

void save(const fs::path& tree, const DataApplication& settings) {
    fs::create_directories(tree / "cnf");
    EXPECT_EQ(AccesserApplication().save((tree / "cnf/Config.xml").string(), settings), 1) << tree;
}

TEST(StagedTree, HasWhatItsSettingsName) {
    const DataApplication settings = settingsOf(KDL_SHIPPED);
    int named = 0;
    for (const auto& field : DataApplication::fields()) {
        const std::string path = record::textOf(settings, field);
        if (!path.starts_with("../") || std::string_view(field.key) == "logFileName") continue;
        EXPECT_TRUE(fs::exists((KDL_SHIPPED "/bin" / fs::path(path)).lexically_normal()))
            << field.element << ": " << path;
        ++named;
    }
    EXPECT_GE(named, 24) << "catalogue, session folder and effects";
    EXPECT_EQ(settings.getLogFileName(), "../log/kdl_server.log");
}

TEST(StagedTree, TakesTheHalfOfTheDeliveryIntoChangedSettings) {
    const test_support::TemporaryFolder folder;
    const fs::path shipped = folder.path() / "shipped", staged = folder.path() / "staged";
    const auto stage = [&] {
        return std::system((KDL_STAGE_PROGRAM " " + shipped.string() + " " + staged.string()).c_str());
    };
    DataApplication settings = settingsOf(KDL_SHIPPED);
    settings.setVersion({1, 0, 0});
    save(shipped, settings);
    ASSERT_EQ(stage(), 0);
    settings.setServerPort(4321);
    save(staged, settings);

    settings.setVersion({2, 0, 0});
    settings.setServerPort(20020);
    save(shipped, settings);
    ASSERT_EQ(stage(), 0);
    EXPECT_EQ(settingsOf(staged).getVersion(), (Version{2, 0, 0}));
    EXPECT_EQ(settingsOf(staged).getServerPort(), 4321);
}

} // namespace
