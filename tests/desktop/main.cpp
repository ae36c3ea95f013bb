// The process of the tests with real widgets.
#include <gtest/gtest.h>

#include "tests/support/offscreen.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const verlink::test::Offscreen offscreen(argc, argv);
    return RUN_ALL_TESTS();
}
