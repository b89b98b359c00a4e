#include "foundation/process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace zelkova {
namespace {

bool isOpen(int descriptor) {
    return ::fcntl(descriptor, F_GETFD) != -1;
}

TEST(Process, ClosesWhatItHolds) {
    int first[2], second[2];
    ASSERT_EQ(::pipe(first), 0);
    ASSERT_EQ(::pipe(second), 0);
    {
        Process process("viewer", "page.html");
        EXPECT_FALSE(process.isOpen());
        process.close();
        process.hold(first[0], first[1]);
        process.hold(Process::none, second[0]);
        EXPECT_FALSE(isOpen(first[0]) || isOpen(first[1])) << "held before";
        EXPECT_TRUE(process.isOpen() && isOpen(second[0]));
        process.close();
        EXPECT_FALSE(process.isOpen() || isOpen(second[0]));
        process.hold(second[1], Process::none);
    }
    EXPECT_FALSE(isOpen(second[1]));
}

} // namespace
} // namespace zelkova
