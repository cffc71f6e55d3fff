#include <gtest/gtest.h>

#include "platform/start.h"

// Every test program runs without a display, whatever the desktop of the person who starts it.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    platform::StartOptions options;
    options.display = platform::Display::kHeadless;
    platform::Start(options);
    return RUN_ALL_TESTS();
}
