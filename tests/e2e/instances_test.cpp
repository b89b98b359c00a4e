// The program as its executable, in a tree that others want to work in too.

#include <csignal>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/driver.h"
#include "platform/files.h"
#include "platform/folder_lock.h"
#include "support/program_folder.h"

namespace {

namespace driver = platform::driver;
using Kind = platform::FolderLock::Kind;

class Instances : public testing::Test {
protected:
    void SetUp() override {
        folder.writeSettings();
        std::filesystem::copy_file(KDL_PROGRAM, program);
    }
    pid_t start() {
        char* arguments[] = {program.data(), nullptr};
        pid_t id = 0;
        EXPECT_EQ(::posix_spawn(&id, program.c_str(), nullptr, nullptr, arguments, environ), 0);
        return id;
    }
    // As the end of the power would.
    static void end(pid_t id) {
        ::kill(id, SIGKILL);
        ::waitpid(id, nullptr, 0);
    }
    bool isFree(Kind kind) const {
        return platform::FolderLock::take(folder.path().native(), kind).has_value();
    }

    test_support::ProgramFolder folder;
    std::string program = folder.file("bin/kdl");
};

TEST_F(Instances, ShareTheTreeAndKeepItWhileOneRuns) {
    const std::string log = folder.file("log/kdl_server.log");
    const pid_t first = start();
    EXPECT_TRUE(driver::settleUntil([&] { return platform::isFile(log); }, 20000));
    EXPECT_FALSE(isFree(Kind::Exclusive));
    std::filesystem::remove(log);
    const pid_t second = start();
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
        waiting = start();
        driver::settleUntil([] { return false; }, 1000);
        EXPECT_FALSE(platform::pathExists(folder.file("log/kdl_server.log")));
        EXPECT_EQ(::waitpid(waiting, nullptr, WNOHANG), 0) << "it asks whether to go on";
    }
    end(waiting);
}

} // namespace
