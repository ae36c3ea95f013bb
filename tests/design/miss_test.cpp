// The positions of a linkage in the numbers that the program keeps of it.
#include <cmath>

#include "design/judge.h"
#include "tests/design/tasks.h"

namespace verlink::test {

namespace {

using namespace design;

struct Missed : testing::Test {
    /// In the first of its positions, which it meets.
    static Miss At_Once(const FourBar& linkage, bool as_shown = false) {
        return With_Crank_At(linkage, std::arg(linkage.crank.moving - linkage.crank.fixed), as_shown);
    }
    static Miss With_Crank_At(const FourBar& linkage, double angle, bool as_shown = false) {
        Task task;
        task.positions = {{linkage.coupler, 0}};
        const double crank[] = {angle};
        return Miss_Of(linkage, Is_Open(linkage), Carried_Through(task.positions), crank, task.units, as_shown);
    }
    static void Expect_None(const FourBar& linkage) {
        const Miss miss = At_Once(linkage);
        EXPECT_TRUE(miss.closes);
        EXPECT_LT(miss.place, 1e-5);
        EXPECT_LT(miss.angle, 1e-3);
    }
    /// B where circles of these lengths about A and O4 meet, to the left of the way between them.
    static FourBar With_Lengths(Point O4, Point A, double l3, double l4) {
        const double d = std::abs(O4 - A), along = (d * d + l3 * l3 - l4 * l4) / (2 * d);
        const Point B = A + (O4 - A) / d * Point(along, std::sqrt(l3 * l3 - along * along));
        return {{{0, 0}, A}, {O4, B}, A + 0.5 * (B - A) + Point(0.3, 0.4)};
    }
};

}  // namespace

TEST_F(Missed, IsNoPositionBecauseALinkIsOneLong) {
    const FourBar ones[] = {{{{0, 0}, {0, 2}}, {{1, 0}, {3, 2}}, {1, 4}},
                            {{{0, 0}, {0, 1}}, {{4, 0}, {4, 2}}, {1, 4}},
                            {{{0, 0}, {0, 2}}, {{4, 0}, {1, 2}}, {1, 4}},
                            {{{0, 0}, {0, 2}}, {{4, 0}, {4, 1}}, {1, 4}}};
    for (const FourBar& linkage : ones) Expect_None(linkage);
}

// With K1 to K5 of the loop closure as ratios of lengths its quadratics have the discriminants 16 F F / (L2 L4)^2 and
// 16 F F / (L2 L3)^2, where F is the area of the triangle of diagonal, coupler and rocker.
TEST_F(Missed, IsNoPositionBecauseOfASmallDiscriminant) {
    // 8, 8 and 2 have an area of 7.94; the crank is 10 long: 0.16 and 2.5.
    for (const auto& [l3, l4] : {std::pair(2.0, 8.0), std::pair(8.0, 2.0)}) {
        SCOPED_TRACE(l3);
        Expect_None(With_Lengths({6, 0}, {6, 8}, l3, l4));
    }
}

TEST_F(Missed, IsNoPositionBecauseACoefficientIsOne) {
    // The crank, four ground links long, lies along the ground link. Then K3 = K1 + K2 where L3 L3 = (L4 - 1)^2 + 8,
    // and K4 + K5 = K1 where L4 L4 = (L3 + 1)^2 + 8.
    for (const auto& [l3, l4] : {std::pair(3.0, 2.0), std::pair(2.5, 4.5)}) {
        SCOPED_TRACE(l3);
        Expect_None(With_Lengths({1, 0}, {4, 0}, l3, l4));
    }
}

TEST_F(Missed, IsAPositionThatTheRunRefuses) {
    // With all joints on the ground line one of the two quadratics has no leading coefficient: B to the left of O4, and
    // B to the left of A.
    EXPECT_FALSE(At_Once({{{0, 0}, {1, 0}}, {{4, 0}, {2, 0}}, {1, 2}}).closes);
    EXPECT_FALSE(At_Once({{{0, 0}, {4, 0}}, {{1, 0}, {2, 0}}, {1, 2}}).closes);
    // Up, a crank of 4 on a ground link of 3 leaves 5, which 2 and 3 reach. Where one of them is a little shorter, the
    // roundings of one discriminant see it, and those of the other do not.
    const auto up = [](double l3, double l4) {
        const FourBar linkage = With_Lengths({3, 0}, std::polar(4.0, 0.8), l3, l4);
        return With_Crank_At(linkage, std::acos(-1.0) / 2).closes;
    };
    const float last_of_3 = 3 - std::nextafter(3.0F, 2.0F), last_of_2 = 2 - std::nextafter(2.0F, 1.0F);
    EXPECT_TRUE(up(2, 3));
    EXPECT_TRUE(up(3, 2));
    EXPECT_FALSE(up(2, 3.0 - last_of_3)) << "by that of the coupler's angle";
    EXPECT_FALSE(up(3, 2.0 - 2 * last_of_2)) << "by that of the rocker's angle";
}

TEST_F(Missed, IsWhatTheSecondDecimalOfAnAngleIsOffBy) {
    FourBar linkage = With_Lengths({4, 0}, {0, 2}, 2.5, 3.5);
    const Point A = linkage.crank.moving, along = (linkage.other.moving - A) / 2.5;
    for (const double degrees : {20.004, 20.006}) {
        linkage.coupler = A + 100.0 * along * std::polar(1.0, degrees * kDegree);
        EXPECT_NEAR(At_Once(linkage, true).place, 100 * 0.004 * kDegree, 1e-4);
        EXPECT_LT(At_Once(linkage).place, 1e-4);
    }
}

}  // namespace verlink::test
