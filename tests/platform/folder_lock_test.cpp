#include "platform/folder_lock.h"

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/temporary_folder.h"

namespace {

using platform::FolderLock;
using Kind = platform::FolderLock::Kind;

class FolderLocks : public testing::Test {
protected:
    bool isFree(Kind kind) const { return FolderLock::take(folder.path().native(), kind).has_value(); }

    test_support::TemporaryFolder folder;
};

TEST_F(FolderLocks, SomeShareItOrOneHasItAlone) {
    {
        const auto one = FolderLock::take(folder.path().native(), Kind::Shared);
        EXPECT_TRUE(isFree(Kind::Shared));
        EXPECT_FALSE(isFree(Kind::Exclusive));
        auto other = FolderLock::take(folder.file("missing/.."), Kind::Shared);
        const FolderLock moved = std::move(*other);
        other.reset();
        EXPECT_FALSE(isFree(Kind::Exclusive));
    }
    {
        const auto alone = FolderLock::take(folder.path().native(), Kind::Exclusive);
        EXPECT_FALSE(isFree(Kind::Shared) || isFree(Kind::Exclusive));
    }
    EXPECT_TRUE(isFree(Kind::Exclusive));
}

TEST_F(FolderLocks, LeaveNothingBehindAndNeedNothing) {
    std::filesystem::permissions(folder.path(),
                                 std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    {
        const auto lock = FolderLock::take(folder.path().native(), Kind::Exclusive);
        EXPECT_FALSE(isFree(Kind::Shared)) << "a folder that cannot be written";
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
    EXPECT_TRUE(FolderLock::take(folder.file("nowhere"), Kind::Exclusive)) << "nobody is in its way";
}

TEST_F(FolderLocks, EndWithTheProcessThatTookThem) {
    const pid_t child = ::fork();
    if (child == 0) {
        const auto lock = FolderLock::take(folder.path().native(), Kind::Shared);
        ::raise(SIGSTOP);
        ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, WUNTRACED), child);
    EXPECT_TRUE(WIFSTOPPED(status));
    EXPECT_FALSE(isFree(Kind::Exclusive));
    ::kill(child, SIGKILL);
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(isFree(Kind::Exclusive));
}

TEST_F(FolderLocks, AreNotHandedToProgramsStartedMeanwhile) {
    auto lock = FolderLock::take(folder.path().native(), Kind::Shared);
    const std::string sign = folder.file("sign");
    std::ofstream(sign).put('x');
    std::FILE* const program = ::popen(("echo; while [ -e " + sign + " ]; do sleep 0.01; done").c_str(), "r");
    ASSERT_TRUE(program);
    EXPECT_EQ(std::fgetc(program), '\n') << "it runs";
    lock.reset();
    EXPECT_TRUE(isFree(Kind::Exclusive));
    std::filesystem::remove(sign);
    EXPECT_EQ(::pclose(program), 0);
}

} // namespace
