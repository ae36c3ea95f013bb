// What closes a loop, beside figures that were found to 40 digits by walking outward; see tests/reference/why.py.
#include "core/why.h"

#include <cmath>
#include <limits>
#include <vector>

#include "tests/support/reference.h"

namespace verlink::test {

namespace {

using Is = Closing::Is;

/// Lengths as the record holds them.
Links Links_Of_Row(const Row& row) {
    const auto stored = [&](const char* name) { return double{Single(Number(row, name))}; };
    return {stored("L1"), stored("L2"), stored("L3"), stored("L4")};
}

double Angle_Of(const Row& row) { return Single(Number(row, "Angle")); }

double Sum(const Links& links) { return links.L1 + links.L2 + links.L3 + links.L4; }

/// Where the loop turns over, an angle follows from a cosine by its square root.
constexpr double kAngle = 2e-6, kLength = 1e-9;

class WhyReferenceTest : public testing::Test {
   protected:
    template <class Check>
    static int For_Each(const char* table, Check check) {
        int rows = 0;
        for (const Row& row : Read_Table(table)) {
            SCOPED_TRACE(row.at("L1") + " " + row.at("L2") + " " + row.at("L3") + " " + row.at("L4"));
            check(row, Links_Of_Row(row));
            ++rows;
        }
        return rows;
    }
};

TEST_F(WhyReferenceTest, Where_it_closes_and_by_how_much_it_does_not_are_exact) {
    int of_kind[3] = {};
    const int rows = For_Each("why_positions.csv", [&](const Row& row, const Links& links) {
        SCOPED_TRACE(row.at("Angle"));
        const Closing closing = Closing_At(links, Angle_Of(row));
        const Is expected = row.at("Is") == "closed"  ? Is::kClosed
                            : row.at("Is") == "short" ? Is::kTooShort
                                                      : Is::kTooLong;
        EXPECT_EQ(closing.is, expected);
        ++of_kind[static_cast<int>(expected)];
        if (expected == Is::kClosed) {
            EXPECT_NEAR(Transmission_At(links, Angle_Of(row)), Number(row, "Transmission"), kAngle);
        } else {
            EXPECT_NEAR(closing.by, Number(row, "By"), kLength * Sum(links));
        }
        if (expected == Is::kTooLong) {
            EXPECT_EQ(closing.link, links.L3 > links.L4 ? 3 : 4);
        }
    });
    EXPECT_GT(rows, 250);
    for (const int rows_of_kind : of_kind) EXPECT_GT(rows_of_kind, 20);
}

TEST_F(WhyReferenceTest, The_nearest_angle_that_closes_is_the_one_that_a_walk_finds) {
    int limits = 0, none = 0;
    For_Each("why_positions.csv", [&](const Row& row, const Links& links) {
        SCOPED_TRACE(row.at("Angle"));
        const auto nearest = Nearest_Toggle(links, Angle_Of(row));
        ASSERT_EQ(nearest.has_value(), !row.at("Nearest").empty());
        if (!nearest) {
            ++none;
            return;
        }
        EXPECT_NEAR(nearest->value, Number(row, "Nearest"), kAngle);
        EXPECT_EQ(nearest->way, static_cast<int>(Number(row, "Way")));
        ++limits;
    });
    EXPECT_GT(limits, 150);
    EXPECT_GT(none, 30);
}

TEST_F(WhyReferenceTest, The_nearest_length_that_closes_is_the_one_that_a_walk_finds) {
    int lengths = 0, none = 0;
    For_Each("why_lengths.csv", [&](const Row& row, const Links& links) {
        SCOPED_TRACE(row.at("Angle") + ", link " + row.at("Link"));
        const int link = static_cast<int>(Number(row, "Link"));
        const auto nearest = Nearest_Length(links, Angle_Of(row), link);
        ASSERT_EQ(nearest.has_value(), !row.at("Length").empty());
        if (!nearest) {
            ++none;
            return;
        }
        EXPECT_NEAR(nearest->value, Number(row, "Length"), kLength * Sum(links));
        EXPECT_EQ(nearest->way, static_cast<int>(Number(row, "Way")));
        Links mended = links;
        mended.Of(link) = nearest->value * (1 + nearest->way * 1e-9);
        EXPECT_EQ(Closing_At(mended, Angle_Of(row)).is, Is::kClosed);
        ++lengths;
    });
    EXPECT_GT(lengths, 200);
    EXPECT_GT(none, 5);
}

TEST_F(WhyReferenceTest, A_link_longer_than_the_others_together_is_found_with_its_excess) {
    const int rows = For_Each("why_longest.csv", [](const Row& row, const Links& links) {
        const auto longest = Too_Long(links);
        ASSERT_TRUE(longest);
        EXPECT_EQ(longest->link, static_cast<int>(Number(row, "Link")));
        EXPECT_NEAR(longest->excess, Number(row, "Excess"), kLength * Sum(links));
        EXPECT_NEAR(longest->limit, Number(row, "Limit"), kLength * Sum(links));
    });
    EXPECT_GT(rows, 50);
}

TEST(WhyTest, A_link_just_as_long_as_the_others_closes_nowhere_and_one_a_little_shorter_does) {
    EXPECT_EQ(Too_Long({1, 2, 6, 3})->link, 3);
    EXPECT_EQ(Too_Long({1, 2, 6, 3})->excess, 0);
    EXPECT_FALSE(Too_Long({1, 2, 5.99, 3}));
    EXPECT_EQ(Too_Long({5, 0, 5, 0})->link, 1) << "the first of two";
}

TEST(WhyTest, No_link_is_too_long_beside_others_whose_sum_no_number_holds) {
    EXPECT_FALSE(Too_Long({2e38, 2e38, 3e38, 1e38}));
    constexpr double kLargest = std::numeric_limits<float>::max();
    EXPECT_TRUE(Too_Long({kLargest, kLargest, 0, 0})) << "just that is a number still";
    EXPECT_EQ(Too_Long({1, 2, 3e38, 3})->link, 3);
}

TEST(WhyTest, A_link_without_length_is_named_and_has_no_limits) {
    const Links links{7, 0, 5, 4.5};
    EXPECT_EQ(Closing_At(links, 30).is, Is::kNoLength);
    EXPECT_EQ(Closing_At(links, 30).link, 2);
    EXPECT_FALSE(Nearest_Toggle(links, 30));
    EXPECT_FALSE(Nearest_Length(links, 30, 3));
    EXPECT_EQ(Transmission_At(links, 30), 0);
    EXPECT_EQ(Closing_At({7, 2, 0, 4.5}, 30).link, 3);
    EXPECT_EQ(Closing_At({7, 2, 5, 0}, 30).link, 4);
    EXPECT_NE(Closing_At({0, 2, 5, 4.5}, 30).is, Is::kNoLength) << "both pivots are one";
}

TEST(WhyTest, A_parallelogram_has_a_change_point_at_either_end_and_closes_on_both_sides_of_it) {
    const Links links{4, 2, 4, 2};
    for (const double degrees : {-3.0, 3.0}) {
        const auto toggle = Nearest_Toggle(links, degrees);
        ASSERT_TRUE(toggle);
        EXPECT_NEAR(toggle->value, 0, 1e-6);
        EXPECT_EQ(toggle->way, 0);
    }
    EXPECT_NEAR(Nearest_Toggle(links, 176)->value, 180, 1e-6);
    EXPECT_NEAR(Nearest_Toggle(links, 545)->value, 540, 1e-6) << "on the turn that was asked about";
}

TEST(WhyTest, A_length_at_which_the_loop_only_touches_is_none_that_would_do) {
    // Upright, a crank on a ground of 5 is nowhere nearer to O4 than 5, which coupler and rocker just reach.
    EXPECT_FALSE(Nearest_Length({5, 2, 2, 3}, 90, 2));
    EXPECT_TRUE(Nearest_Length({4.99, 2, 2, 3}, 90, 2));
}

TEST(WhyTest, Links_that_just_reach_close) {
    EXPECT_EQ(Closing_At({10, 4, 3, 3}, 0).is, Closing::Is::kClosed);
    EXPECT_EQ(Closing_At({5, 1, 7, 3}, 0).is, Closing::Is::kClosed);
    EXPECT_EQ(Closing_At({5, 1, 3, 7}, 0).is, Closing::Is::kClosed);
    EXPECT_EQ(Closing_At({5, 4.75, 3.5, 3}, 0).link, 3) << "the longer of two that cannot fold enough";
    EXPECT_EQ(Closing_At({5, 4.75, 3, 3.5}, 0).link, 4);
    EXPECT_EQ(Closing_At({10.5, 4, 3, 3}, 0).by, 0.5);
    EXPECT_EQ(Closing_At({10.5, 4, 3, 3}, 0).link, 0) << "both are";
}

TEST(WhyTest, The_transmission_angle_is_the_same_at_any_size_and_none_in_line) {
    const double large = Transmission_At({267, 111, 250, 200}, 60);
    EXPECT_GT(large, 30);
    EXPECT_NEAR(Transmission_At({2.67e-3, 1.11e-3, 2.5e-3, 2e-3}, 60), large, 1e-9);
    EXPECT_EQ(Transmission_At({10, 4, 3, 3}, 0), 0);
    EXPECT_EQ(Transmission_At({5, 1, 7, 3}, 0), 0);
    EXPECT_EQ(Transmission_At({10.5, 4, 3, 3}, 0), 0);
    EXPECT_EQ(Transmission_At({4.5, 1, 7, 3}, 0), 0);
}

TEST(WhyTest, A_toggle_that_only_roundings_take_away_is_one_all_the_same) {
    // Its cosine is 1 and 0.9, or 1.2, millionths, on either side.
    const auto folded = Nearest_Toggle({4, 2, 4, 2 + 3.6e-6}, 10),
               stretched = Nearest_Toggle({4, 2, 3, 3 + 1.2e-6}, 170);
    ASSERT_TRUE(folded && stretched);
    EXPECT_NEAR(folded->value, 0, 1e-6);
    EXPECT_NEAR(stretched->value, 180, 1e-6);
    EXPECT_FALSE(Nearest_Toggle({4, 2, 4, 2 + 4.8e-6}, 10));
    EXPECT_FALSE(Nearest_Toggle({4, 2, 3, 3 + 1.6e-6}, 170));
}

TEST(WhyTest, Of_angles_that_miss_the_one_that_misses_least_is_found_and_none_where_one_closes) {
    const Links links{7, 4, 5, 4.5};
    const std::vector<double> beyond{125, 170, 120, 190}, with_one{125, 100, 120};
    EXPECT_EQ(Nearest_Miss(links, beyond), 2U);
    EXPECT_FALSE(Nearest_Miss(links, with_one));
    EXPECT_FALSE(Nearest_Miss(links, {}));
}

}  // namespace

}  // namespace verlink::test
