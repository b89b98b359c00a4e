// Every test program runs without a display.
#include <cstdlib>

#include <gtest/gtest.h>

#include "platform/application.h"

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    testing::InitGoogleTest(&argc, argv);
    platform::Application application(argc, argv);
    return RUN_ALL_TESTS();
}
