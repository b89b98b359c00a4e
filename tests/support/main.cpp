// Every test program runs without a display.
#include <cstdlib>

#include <gtest/gtest.h>

#include "platform/application.h"

// Asked by the leak sanitizer, where there is one. GLib lets go of its first table of names when it outgrows
// it, and its frames are all that such a report can name.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libglib-2.0.so";
}

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    testing::InitGoogleTest(&argc, argv);
    platform::Application application(argc, argv);
    return RUN_ALL_TESTS();
}
