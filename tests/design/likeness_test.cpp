// How like two linkages are, to the last bit of the distance that counts as near.
#include "design/search.h"
#include "tests/design/tasks.h"

namespace verlink::test {

namespace {

using namespace design;

struct Likeness : testing::Test {
    // The coupler's shape is 1 + i, so the third pivot is (4, 4), and all of Roberts' joints are whole numbers.
    const FourBar own{{{0, 0}, {0, 2}}, {{4, 0}, {2, 2}}, {2, 4}};
    const FourBar of_the_left{{{0, 0}, {2, 2}}, {{4, 4}, {0, 4}}, {2, 4}};
    const FourBar of_the_right{{{4, 0}, {4, 2}}, {{4, 4}, {6, 4}}, {2, 4}};
};

}  // namespace

TEST_F(Likeness, OfTwinsIsADistanceOfNoMoreThanTheGivenOne) {
    FourBar twin = own.With_Other_Crank();
    EXPECT_TRUE(Twins(own, twin, 0));
    twin.crank.moving += 0.5;
    EXPECT_TRUE(Twins(own, twin, 0.5));
    EXPECT_FALSE(Twins(own, twin, 0.25));
}

TEST_F(Likeness, OfCognatesIsADistanceOfNoMoreThanTheGivenOne) {
    for (FourBar cognate : {of_the_left, of_the_right}) {
        EXPECT_TRUE(Cognates(own, cognate, 0));
        EXPECT_TRUE(Cognates(own, cognate.With_Other_Crank(), 0));
        for (Point* const moved : {&cognate.other.moving, &cognate.coupler}) {
            *moved += 0.5;
            EXPECT_TRUE(Cognates(own, cognate, 0.5));
            EXPECT_FALSE(Cognates(own, cognate, 0.25));
            *moved -= 0.5;
        }
    }
}

TEST_F(Likeness, ACouplerWithoutLengthHasNoCognates) {
    FourBar flat = own;
    flat.other.moving = flat.crank.moving;
    for (const double near : {0.0, 0.5}) {
        EXPECT_FALSE(Cognates(flat, of_the_left, near));
        EXPECT_FALSE(Cognates(flat, of_the_right, near));
    }
    // As long as what counts as near it has none either.
    EXPECT_FALSE(Cognates(own, of_the_left, 2));
    EXPECT_TRUE(Cognates(own, of_the_left, 1.9));
}

}  // namespace verlink::test
