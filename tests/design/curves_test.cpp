// Burmester's curves: of what they are, how they are picked on, and the linkages with a link that was picked.
#include "design/curves.h"

#include <algorithm>
#include <array>
#include <random>

#include "design/task_units.h"
#include "platform/picture.h"
#include "tests/design/follower.h"
#include "tests/design/tasks.h"

namespace verlink::test {

namespace {

using namespace design;

Task Platform() {
    Task task;
    task.positions = {{{0, 0}, 0}, {{2, 4}, -10}, {{5, 4}, 5}, {{8, 2}, 30}};
    return task;
}

/// Where the body carries a point of position 1.
Point Carried_To(const Place& from, const Place& to, Point point) {
    return to.at + (point - from.at) * std::polar(1.0, (to.angle - from.angle) * kDegree);
}

}  // namespace

TEST(Curves, AreThoseOfFourPositionsInWhichNothingIsWrong) {
    Task task = Platform();
    EXPECT_FALSE(Curves_Of(task).empty());
    task.positions.pop_back();
    EXPECT_TRUE(Curves_Of(task).empty());
    task.positions.push_back(task.positions.front());
    EXPECT_TRUE(Curves_Of(task).empty());
}

TEST(Curves, APieceHasTwoEnds) {
    std::mt19937 dice(3);
    std::uniform_real_distribution<double> place(-2, 2), angle(-90, 90);
    for (int i = 0; i < 40; ++i) {
        Task task;
        for (int k = 0; k < 4; ++k) task.positions.push_back({{place(dice), place(dice)}, angle(dice)});
        for (const auto& piece : Curves_Of(task)) EXPECT_GE(piece.size(), 2U);
    }
}

TEST(Curves, ALoopComesBackToWhereItBeganByBothWays) {
    Task task;
    task.positions = {{{0, 0}, 0}, {{1, 0.2}, 20}, {{1.5, -0.5}, 50}, {{0.5, -1}, 80}};
    const Curves curves = Curves_Of(task);
    int loops = 0;
    for (const auto& piece : curves) {
        if (std::abs(piece.front().fixed - piece.back().fixed) > 1e-9) continue;
        ++loops;
        EXPECT_LT(std::abs(piece.front().moving - piece.back().moving), 1e-9);
        // Each turn has a dyad on either way; where they meet there is one, of which that of the beginning counts
        // twice.
        EXPECT_EQ(piece.size() % 2, 1U);
    }
    EXPECT_EQ(loops, 1);
    ASSERT_GT(curves.size(), 1U);
}

TEST(Curves, AllPlacesOfAMovingPivotAreAsFarFromItsCentre) {
    const Task task = Platform();
    for (const auto& piece : Curves_Of(task))
        for (const Dyad& dyad : piece) {
            const double length = std::abs(dyad.moving - dyad.fixed);
            for (const Place& place : task.positions)
                EXPECT_NEAR(std::abs(Carried_To(task.positions[0], place, dyad.moving) - dyad.fixed), length,
                            1e-8 * (10 + length));
        }
}

TEST(Curves, TheNearestDyadWithinReachIsPicked) {
    const Curves curves = Curves_Of(Platform());
    const Dyad dyad = curves[0][curves[0].size() / 3];
    const auto centre = Nearest_Dyad(curves, Curve::kCentres, dyad.fixed + Point(1e-6, 0), 0.01);
    ASSERT_TRUE(centre.has_value());
    EXPECT_LT(std::abs(centre->fixed - dyad.fixed), 1e-6);
    const auto circle_point = Nearest_Dyad(curves, Curve::kCirclePoints, dyad.moving, 0.01);
    ASSERT_TRUE(circle_point.has_value());
    EXPECT_EQ(circle_point->moving, dyad.moving);
    EXPECT_FALSE(Nearest_Dyad(curves, Curve::kCentres, {1e6, 1e6}, 0.01).has_value());
}

TEST(Curves, ThePickedDyadIsTheLastOfThoseThatLieAsNearAndTheReachIsPartOfIt) {
    const Dyad first{{3, 4}, {9, 9}}, second{{-3, 4}, {9, 9}}, third{{0, 6}, {0, 5}};
    const Curves curves{{first, second}, {third}};
    EXPECT_EQ(Nearest_Dyad(curves, Curve::kCentres, {}, 5), second);
    EXPECT_EQ(Nearest_Dyad(curves, Curve::kCentres, {}, 4.9), std::nullopt);
    EXPECT_EQ(Nearest_Dyad(curves, Curve::kCirclePoints, {}, 5), third);
}

TEST(Curves, LinkagesWithALinkHaveItAndGoThroughAllPositions) {
    const Task task = Platform();
    const Curves curves = Curves_Of(task);
    int with_some = 0;
    for (const auto& piece : curves)
        for (std::size_t i = 0; i < piece.size(); i += 97) {
            const Found found = Find_With(task, curves, piece[i], 10);
            EXPECT_EQ(found.words.empty(), !found.solutions.empty());
            with_some += found.solutions.empty() ? 0 : 1;
            double before = 100;
            for (const Solution& solution : found.solutions) {
                EXPECT_TRUE(solution.linkage.crank == piece[i] || solution.linkage.other == piece[i]);
                // Of sides that are alike it takes the left one.
                EXPECT_EQ(solution.linkage.crank_is_left, solution.linkage.crank == piece[i]);
                EXPECT_LE(solution.judgement.score, before);
                before = solution.judgement.score;
                const double way = solution.judgement.crank[1] > solution.judgement.crank[0] ? 1 : -1;
                EXPECT_EQ(Follower(solution.linkage).Through(task.positions, solution.linkage, way), "");
            }
        }
    EXPECT_GT(with_some, 2);
}

TEST(Curves, ALinkKeepsTheSideAndTheLimitsOfTheTask) {
    Task task = Platform();
    task.drive = design::Drive::kRight;
    task.right.fixed.is = Area::Is::kWithin;
    task.right.fixed.low = {-1, 5};
    task.right.fixed.high = {2, 9};
    task.transmission = 40;
    const Curves curves = Curves_Of(task);
    int found = 0;
    for (const auto& piece : curves)
        for (std::size_t i = 0; i < piece.size(); i += 29)
            for (const Solution& solution : Find_With(task, curves, piece[i], 10).solutions) {
                ++found;
                EXPECT_FALSE(solution.linkage.crank_is_left);
                EXPECT_TRUE(task.right.fixed.Holds(solution.linkage.crank.fixed));
                EXPECT_GE(solution.judgement.transmission, 40);
            }
    EXPECT_GT(found, 0);
}

TEST(Curves, AreDrawnWithinTheWindowAlone) {
    const Curves curves = Curves_Of(Platform());
    platform::Picture all, part;
    Draw_Curve(all, curves, Curve::kCentres, {{-1e9, -1e9}, {1e9, 1e9}});
    Draw_Curve(part, curves, Curve::kCentres, {{-2, -2}, {4, 12}});
    EXPECT_GT(part.Alive(), 0U);
    EXPECT_LT(part.Alive(), all.Alive());
}

TEST(Curves, AStrokeThatTouchesTheEdgeOfTheWindowIsDrawn) {
    const Curves curves{{{{1, 2}, {}}, {{3, 5}, {}}}};
    const auto drawn = [&](Point low, Point high) {
        platform::Picture picture;
        Draw_Curve(picture, curves, Curve::kCentres, {low, high});
        return picture.Alive() == 1;
    };
    EXPECT_TRUE(drawn({3, 0}, {9, 9}));
    EXPECT_FALSE(drawn({3.1, 0}, {9, 9}));
    EXPECT_TRUE(drawn({-9, 0}, {1, 9}));
    EXPECT_FALSE(drawn({-9, 0}, {0.9, 9}));
    EXPECT_TRUE(drawn({0, 5}, {9, 9}));
    EXPECT_FALSE(drawn({0, 5.1}, {9, 9}));
    EXPECT_TRUE(drawn({0, -9}, {9, 2}));
    EXPECT_FALSE(drawn({0, -9}, {9, 1.9}));
}

TEST(Curves, AreDrawnStrokeByStrokeInTheirColors) {
    const Curves curves = Curves_Of(Platform());
    EXPECT_EQ(curves, Burmester(Carried_Through(Platform().positions)).Curves(720));
    const Box seen{{-2, -2}, {4, 12}};
    for (const Curve which : {Curve::kCentres, Curve::kCirclePoints}) {
        const auto pivot = [which](const Dyad& dyad) { return which == Curve::kCentres ? dyad.fixed : dyad.moving; };
        platform::Picture picture;
        Draw_Curve(picture, curves, which, seen);
        std::vector<std::array<double, 4>> drawn, expected;
        for (const auto& p : picture.Primitives()) {
            EXPECT_EQ(p.color, which == Curve::kCentres ? platform::Rgb(150, 90, 200) : platform::Rgb(0, 140, 160));
            drawn.push_back({p.x1, p.y1, p.x2, p.y2});
        }
        for (const auto& piece : curves)
            for (std::size_t i = 1; i < piece.size(); ++i) {
                const Point a = pivot(piece[i - 1]), b = pivot(piece[i]);
                // Both ends on one side of the window are beside it.
                const bool left = a.real() < -2 && b.real()<-2, right = a.real()> 4 && b.real() > 4;
                const bool below = a.imag() < -2 && b.imag()<-2, above = a.imag()> 12 && b.imag() > 12;
                if (!left && !right && !below && !above) expected.push_back({a.real(), a.imag(), b.real(), b.imag()});
            }
        EXPECT_EQ(drawn, expected);
    }
}

TEST(Curves, LinkagesWithALinkAreTheBestThatDifferByATenthOfTheSpan) {
    const Task task = Platform();
    const Curves curves = Curves_Of(task);
    const Dyad dyad = curves.back()[curves.back().size() / 2];
    const Found all = Find_With(task, curves, dyad, 1000), few = Find_With(task, curves, dyad, 3);
    ASSERT_GT(all.solutions.size(), 3U);
    ASSERT_EQ(few.solutions.size(), 3U);
    const double near = 0.1 * Span_Of(task);
    for (std::size_t i = 0; i < all.solutions.size(); ++i) {
        EXPECT_EQ(all.solutions[i].family, static_cast<int>(i) + 1);
        if (i < 3) {
            EXPECT_EQ(few.solutions[i].linkage.crank, all.solutions[i].linkage.crank);
        }
        for (std::size_t k = 0; k < i; ++k)
            EXPECT_GT(Apart_As_Driven(all.solutions[i].linkage, all.solutions[k].linkage), near);
    }
    // Those left out stand within that of a better one: of all that are good each has one.
    const Judge judge(task);
    std::size_t judged = 0, good = 0;
    for (const auto& piece : curves)
        for (const Dyad& other : piece) {
            if (other == dyad) continue;
            for (const bool drives : {true, false}) {
                const Point coupler = task.positions[0].at;
                const FourBar linkage =
                    drives ? FourBar{dyad, other, coupler, true} : FourBar{other, dyad, coupler, false};
                ++judged;
                if (!judge.Of(linkage).Good()) continue;
                ++good;
                EXPECT_TRUE(std::ranges::any_of(all.solutions, [&](const Solution& kept) {
                    return Apart_As_Driven(kept.linkage, linkage) <= near ||
                           Apart_As_Driven(kept.linkage, {linkage.other, linkage.crank, coupler}) <= near;
                }));
            }
        }
    EXPECT_EQ(all.judged, judged);
    EXPECT_EQ(all.counts[0], good);
    for (int refusal = 1; refusal < kRefusals; ++refusal) {
        const auto kept = std::ranges::count(all.thrown_out, static_cast<Refusal>(refusal),
                                             [](const Thrown_Out& out) { return out.judgement.refusal; });
        EXPECT_EQ(static_cast<std::size_t>(kept),
                  std::min<std::size_t>(4, all.counts[static_cast<std::size_t>(refusal)]));
    }
}

TEST(Curves, ALinkIsTriedOnBothSidesUnlessTheyAreAlikeAndWithEveryCrankThatMayDrive) {
    Task task = Platform();
    const Curves curves{{{{1, 2}, {3, 4}}, {{5, 6}, {7, 8}}}, {{{-1, 2}, {0, 3}}}};
    const auto judged = [&](design::Drive drive) {
        task.drive = drive;
        return Find_With(task, curves, curves[0][1], 5).judged;
    };
    // Of three dyads two are others.
    EXPECT_EQ(judged(design::Drive::kEither), 2U * 2);
    EXPECT_EQ(judged(design::Drive::kLeft), 2U * 2) << "as the crank, and as the other link";
    task.left.fixed = {Area::Is::kWithin, {-9, -9}, {9, 9}, {}};
    EXPECT_EQ(judged(design::Drive::kEither), 2U * 4);
    EXPECT_EQ(judged(design::Drive::kLeft), 2U * 2);
    EXPECT_EQ(judged(design::Drive::kRight), 2U * 2);
}

TEST(Curves, WhereNoLinkageWithALinkDoesItTheMostFrequentReasonIsSaid) {
    Task task = Platform();
    task.shortest = 1e5;
    const Found short_ones = Find_With(task, Curves_Of(task), Curves_Of(task)[0][10], 5);
    EXPECT_EQ(short_ones.words, "None of " + std::to_string(short_ones.judged) +
                                    " linkages with this link does it. Of most, a link is too short or too long: pick "
                                    "another place on the curve, or loosen a limit.");
    task.shortest = 0;
    task.transmission = 89.9;
    const Curves curves = Curves_Of(task);
    const Found none = Find_With(task, curves, curves[0][10], 5);
    ASSERT_TRUE(none.solutions.empty());
    std::size_t most = 1;
    for (std::size_t i = 2; i < none.counts.size(); ++i)
        if (none.counts[i] > none.counts[most]) most = i;
    EXPECT_EQ(none.words, "None of " + std::to_string(none.judged) + " linkages with this link does it. Of most, " +
                              Words_Of(static_cast<Refusal>(most)) +
                              ": pick another place on the curve, or loosen a limit.");
}

TEST(TaskUnits, LengthsBecomeThoseOfTheOtherSystemAndAnglesStay) {
    Task task = Platform();
    task.left.fixed = {Area::Is::kWithin, {-1, -2}, {3, 4}, {}};
    task.right.moving = {Area::Is::kPoints, {}, {}, {{1, 2}}};
    task.shortest = 0.5;
    task.longest = 10;
    task.transmission = 35;
    const Task mm = In_Units(task, 5);
    EXPECT_EQ(mm.units, 5);
    EXPECT_NEAR(mm.positions[1].at.imag(), 101.6, 1e-9);
    EXPECT_EQ(mm.positions[1].angle, -10);
    EXPECT_NEAR(mm.left.fixed.low.imag(), -50.8, 1e-9);
    EXPECT_NEAR(mm.right.moving.points[0].real(), 25.4, 1e-9);
    EXPECT_NEAR(mm.shortest, 12.7, 1e-9);
    EXPECT_NEAR(mm.longest, 254, 1e-9);
    EXPECT_EQ(mm.transmission, 35);
    // 1 ft is 12 in, 1 m is 100 cm.
    EXPECT_NEAR(In_Units(task, 2).positions[1].at.imag(), 4.0 / 12, 1e-12);
    EXPECT_NEAR(In_Units(In_Units(task, 3), 4).positions[2].at.real(), 5 * 2.54, 1e-9);
    EXPECT_EQ(In_Units(task, 1), task);
}

TEST(TaskUnits, NoLongestLinkStaysNone) {
    EXPECT_EQ(In_Units(Platform(), 4).longest, std::numeric_limits<double>::infinity());
}

TEST(Rounds, OneRoundJudgesAPartOfWhatTheCoarseOnesDo) {
    const Found one = Find(Platform(), {.best = 20, .threads = 0, .coarse = true, .rounds = 1});
    const Found coarse = Find(Platform(), {.best = 20, .threads = 0, .coarse = true});
    EXPECT_GT(one.judged, 0U);
    EXPECT_LT(one.judged, coarse.judged);
}

}  // namespace verlink::test
