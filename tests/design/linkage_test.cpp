// Of a linkage by itself: its circuit however small it is, and its room to the end of its stroke.
#include "design/linkage.h"

#include "tests/design/tasks.h"

namespace verlink::test {

using namespace design;

TEST(Linkage, IsOpenWhereTheRockersJointIsToTheLeftHoweverSmallItIs) {
    const auto open = [](Point B) { return Is_Open({{{-2, 0}, {0, 0}}, {{5, 0}, B}, {}}); };
    EXPECT_TRUE(open({0.01, 0.01}));
    EXPECT_FALSE(open({0.01, -0.01}));
    EXPECT_FALSE(open({2, 0})) << "in line it is on neither side";
}

TEST(Linkage, HasItsRoomToTheEndOfItsStroke) {
    // The crank goes from the ground line up to half a radian, above all else.
    const FourBar linkage{{{0, 0}, {10, 0}}, {{1, 0}, Point(1, 0) + std::polar(8.0, -0.3)}, {10, 0}};
    const Box up = Room_Of(linkage, Is_Open(linkage), 0, 0.5), down = Room_Of(linkage, Is_Open(linkage), 0.5, 0);
    EXPECT_NEAR(up.high.imag(), 10 * std::sin(0.5), 1e-12);
    EXPECT_NEAR(up.high.real(), 10, 1e-12);
    EXPECT_NEAR(down.high.imag(), up.high.imag(), 1e-12);
    EXPECT_NEAR(down.high.real(), up.high.real(), 1e-12);
}

}  // namespace verlink::test
