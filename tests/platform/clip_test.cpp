// What of lines and circles is seen, at any distance.
#include "platform/clip.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <random>

namespace verlink::test {
namespace {

using platform::ClipBox;
using platform::Point;

constexpr ClipBox kBox{0, 0, 100, 50};
constexpr double kInfinite = std::numeric_limits<double>::infinity();

double Distance_To_Line(Point p, Point a, Point b) {
    const double x = b.x - a.x, y = b.y - a.y;
    return std::abs((p.x - a.x) * y - (p.y - a.y) * x) / std::hypot(x, y);
}

TEST(ClipTest, What_lies_within_keeps_its_bits) {
    Point from{1.1, 2.2}, to{99.9, 49.9};
    ASSERT_TRUE(Clip_Segment(kBox, from, to));
    EXPECT_EQ(from, (Point{1.1, 2.2}));
    EXPECT_EQ(to, (Point{99.9, 49.9}));
    // Also where it ends on the edges.
    std::mt19937 dice(5);
    std::uniform_real_distribution<double> across(0, 100), down(0, 50);
    for (int i = 0; i < 200; ++i) {
        const Point begin = i % 2 == 0 ? Point{100, down(dice)} : Point{across(dice), 50};
        const Point end{across(dice), down(dice)};
        from = begin;
        to = end;
        ASSERT_TRUE(Clip_Segment(kBox, from, to));
        EXPECT_EQ(from, begin);
        EXPECT_EQ(to, end);
        from = {-begin.x - 1, -begin.y - 1};
        ASSERT_TRUE(!Clip_Segment(kBox, from, to) || to == end) << "however the other end was cut";
    }
}

TEST(ClipTest, A_line_that_ends_before_the_box_or_begins_behind_it_is_not_seen) {
    for (const double part : {0.5, 0.9})
        for (const bool back : {false, true}) {
            Point from{-10, 25}, to{-10 + 10 * part, 25};
            if (back) std::swap(from, to);
            EXPECT_FALSE(Clip_Segment(kBox, from, to)) << part;
            Point low{30, -10}, high{30, -10 + 10 * part};
            if (back) std::swap(low, high);
            EXPECT_FALSE(Clip_Segment(kBox, low, high)) << part;
        }
}

TEST(ClipTest, A_line_is_cut_where_it_enters_and_leaves) {
    Point from{-100, 25}, to{300, 25};
    ASSERT_TRUE(Clip_Segment(kBox, from, to));
    EXPECT_EQ(from, (Point{0, 25}));
    EXPECT_EQ(to, (Point{100, 25}));
    Point start{50, -50}, end{50, 20};
    ASSERT_TRUE(Clip_Segment(kBox, start, end));
    EXPECT_EQ(start, (Point{50, 0}));
    EXPECT_EQ(end, (Point{50, 20}));
    // One that is two long, of which half is seen.
    Point before{-1, 25}, within{1, 25};
    ASSERT_TRUE(Clip_Segment(kBox, before, within));
    EXPECT_EQ(before, (Point{0, 25}));
}

TEST(ClipTest, What_passes_by_is_not_there) {
    for (auto [from, to] : {std::pair{Point{-10, -10}, Point{-1, 60}},
                            {Point{-10, 45}, Point{20, 75}},
                            {Point{200, 200}, Point{200, 200}}}) {
        const Point before = from;
        EXPECT_FALSE(Clip_Segment(kBox, from, to));
        EXPECT_EQ(from, before);
    }
}

TEST(ClipTest, The_line_stays_where_it_was_however_far_it_reaches) {
    std::mt19937 random(3);
    std::uniform_real_distribution<double> part(0.1, 0.9), turn(0, 2 * std::numbers::pi);
    for (const double far : {1e3, 1e8, 1e12})
        for (int i = 0; i < 200; ++i) {
            const Point within{100 * part(random), 50 * part(random)};
            const double angle = turn(random), x = std::cos(angle), y = std::sin(angle);
            Point from{within.x - far * x, within.y - far * y}, to{within.x + 2 * far * x, within.y + 2 * far * y};
            ASSERT_TRUE(Clip_Segment(kBox, from, to));
            EXPECT_TRUE(kBox.Holds(from) && kBox.Holds(to));
            EXPECT_LT(Distance_To_Line(within, from, to), far * 1e-14 + 1e-12);
        }
}

TEST(ClipTest, Numbers_at_the_end_of_their_range_end_within_too) {
    const double most = std::numeric_limits<double>::max();
    Point from{-most, 25}, to{most, 25};
    ASSERT_TRUE(Clip_Segment(kBox, from, to));
    EXPECT_TRUE(kBox.Holds(from) && kBox.Holds(to));
    EXPECT_EQ(from.y, 25);
    EXPECT_EQ(to.y, 25);
}

TEST(ClipTest, What_is_not_finite_is_not_there) {
    for (const double bad : {kInfinite, -kInfinite, std::nan("")}) {
        Point from{10, 10}, to{bad, 20};
        EXPECT_FALSE(Clip_Segment(kBox, from, to));
        EXPECT_FALSE(Circle_Seen(kBox, {bad, 0}, 10));
        EXPECT_FALSE(Circle_Seen(kBox, {0, 0}, bad));
        EXPECT_TRUE(Seen_Arc(kBox, {bad, 0}, 10, 0.1).empty());
    }
}

TEST(ClipTest, A_circle_is_seen_where_its_line_crosses_the_box) {
    EXPECT_TRUE(Circle_Seen(kBox, {50, 25}, 10));
    EXPECT_TRUE(Circle_Seen(kBox, {-5, 25}, 10));
    EXPECT_FALSE(Circle_Seen(kBox, {-20, 25}, 10));
    EXPECT_FALSE(Circle_Seen(kBox, {50, 25}, 100)) << "the box lies within it";
    EXPECT_TRUE(Circle_Seen(kBox, {50, 25 + 1e9}, 1e9));
}

TEST(ClipTest, The_arc_follows_the_circle_and_covers_what_is_seen) {
    constexpr double kOff = 0.05;
    for (const auto& [centre, radius] : {std::pair{Point{50, 25}, 20.0},
                                         {Point{70, 25}, 20.0},
                                         {Point{50, 25.5}, 20.0},
                                         {Point{-30, 25}, 60.0},
                                         {Point{50, -1e4}, 1e4 + 20},
                                         {Point{1e6 + 40, 25}, 1e6}}) {
        const auto arc = Seen_Arc(kBox, centre, radius, kOff);
        ASSERT_GE(arc.size(), 2U);
        for (std::size_t i = 1; i < arc.size(); ++i)
            for (const double part : {0.0, 0.5}) {
                const double x = arc[i - 1].x + part * (arc[i].x - arc[i - 1].x);
                const double y = arc[i - 1].y + part * (arc[i].y - arc[i - 1].y);
                EXPECT_NEAR(std::hypot(x - centre.x, y - centre.y), radius, kOff);
            }
        // Each point of the circle within the box has the arc at its side.
        for (int i = 0; i < 20000; ++i) {
            const double angle = 2 * std::numbers::pi * i / 20000;
            const Point p{centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)};
            if (!kBox.Holds(p)) continue;
            double nearest = kInfinite;
            for (std::size_t j = 1; j < arc.size(); ++j) {
                const Point a = arc[j - 1], b = arc[j];
                const double length = std::hypot(b.x - a.x, b.y - a.y);
                const double along = ((p.x - a.x) * (b.x - a.x) + (p.y - a.y) * (b.y - a.y)) / length;
                if (along > -kOff && along < length + kOff) nearest = std::min(nearest, Distance_To_Line(p, a, b));
            }
            EXPECT_LT(nearest, 2 * kOff);
        }
    }
}

TEST(ClipTest, An_arc_goes_as_far_as_the_corners_and_has_no_more_points_than_it_needs) {
    const auto arc = Seen_Arc(kBox, {-30, 25}, 60, 0.05);
    const double corner = std::hypot(50, 25), middle = 50 + 30;
    ASSERT_GE(arc.size(), 2U);
    for (const Point end : {arc.front(), arc.back()}) EXPECT_NEAR(std::hypot(end.x - 50, end.y - 25), corner, 1e-9);
    // By the law of cosines, and a chord whose middle is off by a twentieth.
    const double half = std::acos((60 * 60 + middle * middle - corner * corner) / (2 * 60 * middle));
    EXPECT_EQ(arc.size(), 1U + static_cast<std::size_t>(std::ceil(half / std::acos(1 - 0.05 / 60))));
}

TEST(ClipTest, However_fine_it_is_wanted_an_arc_has_four_thousand_pieces_at_most) {
    EXPECT_EQ(Seen_Arc(kBox, {50, 25}, 20, 1e-9).size(), 4001U);
}

TEST(ClipTest, Near_the_box_a_vast_circle_is_its_tangent) {
    const auto arc = Seen_Arc(kBox, {50, 25 + 1e15}, 1e15, 0.05);
    ASSERT_EQ(arc.size(), 2U);
    for (const Point p : arc) EXPECT_NEAR(p.y, 25, 1e-6);
    EXPECT_NE(arc[0].x < 0, arc[1].x < 0);
}

TEST(ClipTest, ACircleThatOnlyTouchesACornerHasNoArc) {
    // The corner is 5 from the middle of the box and from the centre beyond it.
    EXPECT_TRUE(Seen_Arc(ClipBox{0, 0, 6, 8}, {9, 12}, 5, 0.05).empty());
    EXPECT_FALSE(Seen_Arc(ClipBox{0, 0, 6, 8}, {9, 12}, 5.001, 0.05).empty());
    EXPECT_TRUE(Seen_Arc(ClipBox{0, 0, 6, 8}, {3, 4}, 0, 0.05).empty()) << "nor has one without a radius";
}

TEST(ClipTest, OnTheEdgeIsStillWithin) {
    for (const Point corner : {Point{0, 0}, Point{100, 0}, Point{100, 50}, Point{0, 50}}) {
        Point from = corner, to = corner;
        EXPECT_TRUE(Clip_Segment(kBox, from, to));
        EXPECT_EQ(from, corner);
        // A line that leads through the corner alone.
        const double out_x = corner.x == 0 ? 1 : -1, out_y = corner.y == 0 ? -1 : 1;
        from = {corner.x + 10 * out_x, corner.y + 10 * out_y};
        to = {corner.x - 10 * out_x, corner.y - 10 * out_y};
        EXPECT_TRUE(Clip_Segment(kBox, from, to));
        EXPECT_EQ(from, corner);
        EXPECT_EQ(to, corner);
    }
    for (const auto& [a, b] : {std::pair{Point{-10, 0}, Point{120, 0}},
                               {Point{-10, 50}, Point{120, 50}},
                               {Point{0, -10}, Point{0, 70}},
                               {Point{0, -10}, Point{-0.0, 70}},
                               {Point{100, -10}, Point{100, 70}}}) {
        Point from = a, to = b;
        EXPECT_TRUE(Clip_Segment(kBox, from, to)) << "along an edge";
        EXPECT_TRUE(kBox.Holds(from) && kBox.Holds(to));
    }
}

TEST(ClipTest, ACircleThatTouchesAnEdgeOrTheFarthestCornerIsSeen) {
    for (const auto& [centre, radius] : {std::pair{Point{-7, 25}, 7.0},
                                         {Point{107, 25}, 7.0},
                                         {Point{50, -7}, 7.0},
                                         {Point{50, 57}, 7.0},
                                         {Point{-3, -4}, 5.0},
                                         {Point{0, 0}, std::hypot(100, 50)},
                                         {Point{130, 90}, std::hypot(130, 90)}}) {
        EXPECT_TRUE(Circle_Seen(kBox, centre, radius)) << centre.x << ' ' << centre.y;
        const bool from_within = radius > 100;
        EXPECT_FALSE(Circle_Seen(kBox, centre, radius * (from_within ? 1.0001 : 0.9999)));
    }
}

}  // namespace
}  // namespace verlink::test
