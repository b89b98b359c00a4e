// The program as its executable, in a tree that others want to work in too.

#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "data/accesser_application.h"
#include "platform/driver.h"
#include "platform/files.h"
#include "platform/folder_lock.h"
#include "support/program_folder.h"

namespace {

namespace driver = platform::driver;
namespace fs = std::filesystem;
using Kind = platform::FolderLock::Kind;

// An installed program keeps its tree below `userData`.
pid_t start(std::string program, const std::string& userData = {}) {
    char* arguments[] = {program.data(), nullptr};
    std::string variable = "XDG_DATA_HOME=" + userData;
    std::vector<char*> environment = {variable.data()}; // the first of a name counts
    for (char** entry = environ; *entry; ++entry)
        environment.push_back(*entry);
    environment.push_back(nullptr);
    pid_t id = 0;
    EXPECT_EQ(::posix_spawn(&id, program.c_str(), nullptr, nullptr, arguments, environment.data()), 0);
    return id;
}

// As the end of the power would.
void end(pid_t id) {
    ::kill(id, SIGKILL);
    ::waitpid(id, nullptr, 0);
}

class Instances : public testing::Test {
protected:
    void SetUp() override {
        folder.writeSettings();
        fs::copy_file(KDL_PROGRAM, program);
    }
    bool isFree(Kind kind) const {
        return platform::FolderLock::take(folder.path().native(), kind).has_value();
    }

    test_support::ProgramFolder folder;
    std::string program = folder.file("bin/kdl");
};

TEST_F(Instances, ShareTheTreeAndKeepItWhileOneRuns) {
    const std::string log = folder.file("log/kdl_server.log");
    const pid_t first = start(program);
    EXPECT_TRUE(driver::settleUntil([&] { return platform::isFile(log); }, 20000));
    EXPECT_FALSE(isFree(Kind::Exclusive));
    fs::remove(log);
    const pid_t second = start(program);
    EXPECT_TRUE(driver::settleUntil([&] { return platform::isFile(log); }, 20000)) << "it starts too";
    end(first);
    EXPECT_FALSE(isFree(Kind::Exclusive));
    end(second);
    EXPECT_TRUE(isFree(Kind::Exclusive));
}

TEST_F(Instances, WaitForWhoeverHasTheTreeAlone) {
    pid_t waiting = 0;
    {
        const auto alone = platform::FolderLock::take(folder.path().native(), Kind::Exclusive);
        waiting = start(program);
        driver::settleUntil([] { return false; }, 1000);
        EXPECT_FALSE(platform::pathExists(folder.file("log/kdl_server.log")));
        EXPECT_EQ(::waitpid(waiting, nullptr, WNOHANG), 0) << "it asks whether to go on";
    }
    end(waiting);
}

TEST(InstalledProgram, BringsItsOwnVersionIntoSettingsThatTheHostChanged) {
    const test_support::TemporaryFolder folder;
    const std::string program = folder.file("usr/bin/kdl"),
                      shipped = folder.file("usr/share/kdl/cnf/Config.xml");
    const std::string own = folder.file("data/kdl/cnf/Config.xml"),
                      log = folder.file("data/kdl/log/kdl_server.log");
    for (const std::string& file : {program, shipped, own})
        fs::create_directories(fs::path(file).parent_path());
    fs::copy_file(KDL_PROGRAM, program);
    DataApplication settings;
    settings.setServerPort(4321);
    settings.setVersion({1, 0, 0});
    ASSERT_EQ(AccesserApplication().save(own, settings), 1);
    settings.setServerPort(20020);
    settings.setVersion({2, 0, 0});
    ASSERT_EQ(AccesserApplication().save(shipped, settings), 1);

    const pid_t id = start(program, folder.file("data"));
    EXPECT_TRUE(driver::settleUntil([&] { return platform::isFile(log); }, 20000));
    end(id);
    ASSERT_EQ(AccesserApplication().load(own, settings), 1);
    EXPECT_EQ(settings.getVersion(), (Version{2, 0, 0}));
    EXPECT_EQ(settings.getServerPort(), 4321);
}

} // namespace
