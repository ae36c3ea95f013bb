// Areas of pivots and positions of a body, as they are typed and pasted.
#include "screens/area_text.h"

#include <gtest/gtest.h>

#include "screens/place_text.h"

namespace verlink::test {

using design::Area;
using design::Point;

TEST(AreaText, AnywhereIsAWordOrNothing) {
    for (const char* text : {"anywhere", "", "  "}) {
        const auto area = Area_Of(text);
        ASSERT_TRUE(area.has_value()) << text;
        EXPECT_EQ(*area, Area{});
    }
    EXPECT_EQ(Area_Text({}), "anywhere");
}

TEST(AreaText, TwoCornersAreARectangleWhicheverTheyAre) {
    for (const char* text : {"0 0 to 4 3", "4 3 to 0 0", "0,3 to 4,0", "0 0 4 3"}) {
        const auto area = Area_Of(text);
        ASSERT_TRUE(area.has_value()) << text;
        EXPECT_EQ(area->is, Area::Is::kWithin);
        EXPECT_EQ(area->low, Point(0, 0));
        EXPECT_EQ(area->high, Point(4, 3));
        EXPECT_EQ(Area_Text(*area), "0 0 to 4 3");
    }
}

TEST(AreaText, PointsStandBehindAt) {
    const auto area = Area_Of("at 1 2, -3.5 4");
    ASSERT_TRUE(area.has_value());
    EXPECT_EQ(area->is, Area::Is::kPoints);
    EXPECT_EQ(area->points, (std::vector<Point>{{1, 2}, {-3.5, 4}}));
    EXPECT_EQ(Area_Text(*area), "at 1 2, -3.5 4");
}

TEST(AreaText, IsWrittenWithFiveDecimals) {
    Area area;
    area.is = Area::Is::kPoints;
    area.points = {{1.2345678, -0.654321}};
    EXPECT_EQ(Area_Text(area), "at 1.23457 -0.65432");
}

TEST(AreaText, ReachesAsFarAsALinkMay) {
    const std::string most = std::to_string(static_cast<long>(design::kLargestLength));
    EXPECT_TRUE(Area_Of("at " + most + " -" + most).has_value());
    EXPECT_FALSE(Area_Of("at 0 " + most + "1").has_value());
}

TEST(AreaText, WhatIsNoneOfTheseIsNoArea) {
    for (const char* text : {"here", "1 2 3", "at", "at 1", "0 0 to 4", "0 0 to 4 x", "1 2 3 4 5 6", "at 1e9 0",
                             "0 0 to nan 1", "anywhere else"})
        EXPECT_FALSE(Area_Of(text).has_value()) << text;
}

TEST(PlaceText, LinesOfThreeNumbersArePositions) {
    const auto places = Places_Of("x\ty\tangle\r\n0\t0\t0\r\n4\t1.5\t-30\r\n");
    ASSERT_TRUE(places.has_value());
    EXPECT_EQ(*places, (std::vector<design::Place>{{{0, 0}, 0}, {{4, 1.5}, -30}}));
    for (const char* text : {"1;2;3\n4;5;6\n7;8;9", "1, 2, 3\n4,5,6\n7,8,9", "1 2 3\n4 5 6\n7 8 9"})
        EXPECT_EQ(Places_Of(text), (std::vector<design::Place>{{{1, 2}, 3}, {{4, 5}, 6}, {{7, 8}, 9}})) << text;
}

TEST(PlaceText, OtherLinesOrCountsAreNone) {
    for (const char* text :
         {"", "1 2 3", "1 2\n3 4", "1 2 3\n4 5 6 7", "1 2 3\n4 x 6", "1 1 1\n2 2 2\n3 3 3\n4 4 4\n5 5 5\n6 6 6"})
        EXPECT_FALSE(Places_Of(text).has_value()) << text;
    const std::string five = "0 0 0\n1 1 1\n2 2 2\n3 3 3\n4 4 4\n";
    EXPECT_EQ(Places_Of(five).value_or(std::vector<design::Place>{}).size(), 5U);
    EXPECT_FALSE(Places_Of(five + "5 5 5\n").has_value());
}

}  // namespace verlink::test
