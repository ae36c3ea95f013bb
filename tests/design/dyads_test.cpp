// Dyads of two to five positions, and the tasks that have none.
#include "design/dyads.h"

#include <algorithm>

#include "tests/design/tasks.h"

namespace verlink::test {

namespace {

using design::Absolute_Positions;
using design::Burmester;
using design::Carried;
using design::Dyad;
using design::Task;

/// The largest that the places of the moving pivot are off their circle.
double Off_Circle(const Task& task, const Dyad& dyad) {
    const auto places = Absolute_Positions(task);
    const double radius = std::abs(dyad.moving - dyad.fixed);
    double worst = 0;
    for (const auto& place : places) {
        const double turn = (place.angle - places[0].angle) * std::acos(-1.0) / 180;
        const auto pivot = place.at + (dyad.moving - places[0].at) * std::polar(1.0, turn);
        worst = std::max(worst, std::abs(std::abs(pivot - dyad.fixed) - radius));
    }
    return worst;
}

double Apart(const Dyad& a, const Dyad& b) { return std::abs(a.fixed - b.fixed) + std::abs(a.moving - b.moving); }

double Nearest(const std::vector<Dyad>& dyads, const Dyad& wanted) {
    double nearest = 1e9;
    for (const Dyad& dyad : dyads) nearest = std::min(nearest, Apart(dyad, wanted));
    return nearest;
}

struct Dyads : Design {};

}  // namespace

// C. H. Suh and C. W. Radcliffe, Kinematics and Mechanisms Design, 1978: three positions of a body with both fixed
// pivots given.
TEST_F(Dyads, OfThreePositionsAreThePublishedOnes) {
    const std::vector<design::Place> places = {{{1, 1}, 0}, {{2, 0.5}, 0}, {{3, 1.5}, 45}};
    const auto three = design::Carried_Through(places);
    const auto left = Dyad_Of_Fixed(three, {0, 0}), right = Dyad_Of_Fixed(three, {5, 0});
    ASSERT_TRUE(left && right);
    EXPECT_NEAR(left->moving.real(), 0.994, 5e-4);
    EXPECT_NEAR(left->moving.imag(), 3.238, 5e-4);
    EXPECT_NEAR(right->moving.real(), 3.548, 5e-4);
    EXPECT_NEAR(right->moving.imag(), -1.655, 5e-4);
    const auto back = Dyad_Of_Moving(three, left->moving);
    ASSERT_TRUE(back);
    EXPECT_LT(Apart(*back, *left), 1e-9);
}

TEST_F(Dyads, OfTwoPositionsTurnAsTheyAreTold) {
    SCOPED_TRACE(Trace());
    for (int i = 0; i < 1000; ++i) {
        const Task task = Random_Task(2);
        const auto two = design::Carried_Through(task.positions);
        const double turn = Number(0.2, 3);
        const auto pivot = Point(3);
        for (const auto& dyad : {Dyad_Of_Moving(two, pivot, turn), Dyad_Of_Fixed(two, pivot, turn)}) {
            if (!dyad) continue;
            const auto second = two[1].Of(dyad->moving) - dyad->fixed;
            const double reach = std::abs(second);
            EXPECT_LT(std::abs(second - (dyad->moving - dyad->fixed) * std::polar(1.0, turn)), 1e-9 * (10 + reach));
        }
    }
}

TEST_F(Dyads, WhosePivotLiesAMillionTimesAsFarAreNone) {
    // Nothing turns: a point moves by 1, and by 2 in a direction that differs by so many radians.
    for (const double off : {0.9e-6, 1.1e-6}) {
        const Carried three[3] = {{1, {}, {}}, {1, {}, {1, 0}}, {1, {}, std::polar(2.0, off)}};
        EXPECT_EQ(Dyad_Of_Moving(three, {3, 4}).has_value(), off > 1e-6);
        EXPECT_EQ(Dyad_Of_Fixed(three, {3, 4}).has_value(), off > 1e-6);
        // Back and ten times as far, off by so many radians, the centre is 11 half inverses of them away.
        for (const double back : {5e-6, 6e-6}) {
            const Carried far[3] = {{1, {}, {}}, {1, {}, {1, 0}}, {1, {}, -std::polar(10.0, back)}};
            EXPECT_EQ(Dyad_Of_Moving(far, {3, 4}).has_value(), back > 5.5e-6);
            EXPECT_EQ(Dyad_Of_Fixed(far, {3, 4}).has_value(), back > 5.5e-6);
        }
        // A link that turns so little is the inverse of that as long as its pivot's way.
        const Carried two[2] = {{1, {}, {}}, {1, {}, {1, 0}}};
        EXPECT_EQ(Dyad_Of_Moving(two, {3, 4}, off).has_value(), off > 1e-6);
        EXPECT_EQ(Dyad_Of_Fixed(two, {3, 4}, off).has_value(), off > 1e-6);
    }
    const Carried still[2] = {{1, {}, {}}, {1, {}, {1, 0}}};
    EXPECT_FALSE(Dyad_Of_Moving(still, {3, 4}, 0));
    EXPECT_FALSE(Dyad_Of_Fixed(still, {3, 4}, 0));
}

TEST_F(Dyads, OfFourPositionsAreDrawnFiftySpansFarAndWithoutAStepAcrossInfinity) {
    SCOPED_TRACE(Trace());
    double farthest = 0, longest = 0;
    for (int i = 0; i < 30; ++i) {
        const Task task = Random_Task(4);
        double span = 0;
        for (const auto& place : task.positions) span = std::max(span, std::abs(place.at - task.positions[0].at));
        for (const auto& piece : Burmester(design::Carried_Through(task.positions)).Curves(360)) {
            EXPECT_GT(piece.size(), 1U);
            for (std::size_t k = 0; k < piece.size(); ++k) {
                for (const auto& pivot : {piece[k].fixed, piece[k].moving})
                    farthest = std::max(farthest, std::abs(pivot - task.positions[0].at) / span);
                if (k > 0) longest = std::max(longest, std::abs(piece[k].fixed - piece[k - 1].fixed) / span);
            }
        }
    }
    EXPECT_LE(farthest, 50);
    EXPECT_GT(farthest, 40);
    EXPECT_LE(longest, 12.5);
    EXPECT_GT(longest, 6);
}

TEST_F(Dyads, OfALinkagesFourPositionsLieOnTheCurves) {
    SCOPED_TRACE(Trace());
    int found = 0;
    for (int i = 0; i < 14; ++i) {
        Known known;
        const Task task = Task_Of_Random_Linkage(4, known);
        const Burmester curves(design::Carried_Through(task.positions));
        double nearest = 1e9;
        for (const auto& piece : curves.Curves(3600))
            for (const Dyad& dyad : piece) {
                nearest = std::min(nearest, Apart(dyad, {known.O2, known.A}));
                const double size = 10 + std::abs(dyad.fixed - dyad.moving);
                EXPECT_LT(Off_Circle(task, dyad), 1e-8 * size);
            }
        // Pieces have steps, which are long where the curve runs to infinity.
        found += nearest < 0.2;
    }
    EXPECT_GE(found, 11);
}

TEST_F(Dyads, OfFourPositionsOfWhichOneIsTheFirstAreNone) {
    SCOPED_TRACE(Trace());
    for (const std::size_t again : {1U, 2U, 3U}) {
        Task task = Random_Task(4);
        task.positions[again] = task.positions[0];
        const Burmester four(design::Carried_Through(task.positions));
        for (int degrees = -170; degrees <= 180; degrees += 10)
            for (const int way : {0, 1}) EXPECT_FALSE(four.Dyad_At(degrees * design::kDegree, way)) << again;
    }
}

TEST_F(Dyads, OfALinkagesFivePositionsAreFoundAgain) {
    SCOPED_TRACE(Trace());
    int both = 0;
    for (int i = 0; i < 120; ++i) {
        Known known;
        const Task task = Task_Of_Random_Linkage(5, known);
        const auto dyads = Dyads_Through_Five(design::Carried_Through(task.positions));
        EXPECT_LE(dyads.size(), 4U);
        for (const Dyad& dyad : dyads)
            EXPECT_LT(Off_Circle(task, dyad), 1e-8 * (10 + std::abs(dyad.fixed - dyad.moving)));
        both += Nearest(dyads, {known.O2, known.A}) < 1e-4 && Nearest(dyads, {known.O4, known.B}) < 1e-4;
    }
    // Where two dyads nearly coincide, the digits of a double do not hold them apart.
    EXPECT_GE(both, 115);
}

TEST_F(Dyads, OfFivePositionsOfWhichTwoHaveOneAngleAreFoundToo) {
    // The coupler of a crank and rocker swings to and fro: it comes back to its first angle within the turn.
    const Known known = Crank_Rocker();
    const auto swung = [&](double turn) { return std::remainder(known.At(turn)->angle - known.At(0)->angle, 360); };
    double back = 0.5, beyond = 6;
    ASSERT_LT(swung(back) * swung(beyond), 0);
    for (int i = 0; i < 60; ++i) (swung((back + beyond) / 2) * swung(back) > 0 ? back : beyond) = (back + beyond) / 2;
    const Task task = *Task_Of(known, {0, back, 1, 2.5, 4});
    ASSERT_NEAR(task.positions[1].angle, task.positions[0].angle, 1e-9);
    const auto dyads = Dyads_Through_Five(design::Carried_Through(task.positions));
    EXPECT_LT(Nearest(dyads, {known.O2, known.A}), 1e-6);
    EXPECT_LT(Nearest(dyads, {known.O4, known.B}), 1e-6);
}

TEST_F(Dyads, OfFivePositionsOfWhichOneIsLevelWithTheFirstOrUprightAboveItAreFoundToo) {
    const Known known = Crank_Rocker();
    const Task task = *Task_Of(known, {0, 0.7, 1.4, 2.5, 4});
    for (const std::size_t place : {1U, 2U, 3U, 4U})
        for (const std::complex<double> way : {std::complex<double>(1, 0), {0, 1}}) {
            const auto step = task.positions[place].at - task.positions[0].at;
            const auto turn = way * std::conj(step) / std::abs(step);
            Task turned = task;
            for (auto& each : turned.positions) each.at *= turn;
            const auto dyads = Dyads_Through_Five(design::Carried_Through(turned.positions));
            EXPECT_LT(Nearest(dyads, {known.O2 * turn, known.A * turn}), 1e-6) << place;
            EXPECT_LT(Nearest(dyads, {known.O4 * turn, known.B * turn}), 1e-6) << place;
        }
}

TEST_F(Dyads, OfFivePositionsOfTwoOppositeAnglesAreFoundToo) {
    SCOPED_TRACE(Trace());
    const auto whole = [&](double size) { return std::round(Number(-size, size)); };
    for (int i = 0; i < 60; ++i) {
        // A pivot on five of the whole places that are 5 from a centre.
        std::vector<std::complex<double>> places{{5, 0}, {4, 3}, {3, 4}, {0, 5}, {-3, 4}, {-4, -3}, {0, -5}, {3, -4}};
        std::shuffle(places.begin(), places.end(), engine);
        const std::complex<double> centre(whole(3), whole(3)), arm(whole(2), whole(2));
        Task task;
        for (std::size_t k = 0; k < 5; ++k)
            task.positions.push_back({centre + places[k] + (k > 2 ? -arm : arm), k > 2 ? 180.0 : 0.0});
        const Dyad wanted{centre, centre + places[0]};
        EXPECT_LT(Nearest(Dyads_Through_Five(design::Carried_Through(task.positions)), wanted), 1e-5) << i;
    }
}

TEST_F(Dyads, OfPositionsThatHaveTheFirstOnesAngleAreFoundToo) {
    SCOPED_TRACE(Trace());
    std::size_t of_five = 0, of_four = 0;
    for (int i = 0; i < 30; ++i) {
        Task five = Random_Task(5);
        // The largest turn of all, and none.
        five.positions[1].angle = five.positions[0].angle;
        five.positions[2].angle = five.positions[0].angle + 180;
        for (const Dyad& dyad : Dyads_Through_Five(design::Carried_Through(five.positions))) {
            EXPECT_LT(Off_Circle(five, dyad), 1e-8 * (10 + std::abs(dyad.fixed - dyad.moving)));
            ++of_five;
        }
        Task four = Random_Task(4);
        four.positions[2].angle = four.positions[3].angle = four.positions[0].angle;
        for (const auto& piece : Burmester(design::Carried_Through(four.positions)).Curves(36))
            for (const Dyad& dyad : piece) {
                EXPECT_LT(Off_Circle(four, dyad), 1e-8 * (10 + std::abs(dyad.fixed - dyad.moving)));
                ++of_four;
            }
    }
    EXPECT_GT(of_five, 20U);
    EXPECT_GT(of_four, 200U);
}

TEST_F(Dyads, OfFivePositionsThatAreTheirOwnMirrorImageComeInMirroredPairs) {
    SCOPED_TRACE(Trace());
    int pairs = 0;
    for (int i = 0; i < 60; ++i) {
        Task task;
        task.positions = {{{0, Number(-1, 1)}, 0}};
        for (int side = 0; side < 2; ++side) {
            const design::Place place{Point(2), Number(5, 60)};
            task.positions.push_back(place);
            task.positions.push_back({-std::conj(place.at), -place.angle});
        }
        const auto dyads = Dyads_Through_Five(design::Carried_Through(task.positions));
        for (const Dyad& dyad : dyads) {
            EXPECT_LT(Off_Circle(task, dyad), 1e-8 * (10 + std::abs(dyad.fixed - dyad.moving)));
            const Dyad mirrored{-std::conj(dyad.fixed), -std::conj(dyad.moving)};
            pairs += Nearest(dyads, mirrored) < 1e-5 * (1 + std::abs(dyad.fixed));
            EXPECT_LT(Nearest(dyads, mirrored), 1e-3 * (1 + std::abs(dyad.fixed)));
        }
    }
    EXPECT_GT(pairs, 60);
}

TEST_F(Dyads, OfFivePositionsReachAHundredThousandSpansAndNoFarther) {
    const double ways[] = {0, 0.3, 0.5, 0.8, 1}, angles[] = {0, 20, -15, 40, 65};
    for (const double spans : {0.9e5, 1.1e5}) {
        // The radius is of the order of the span, which the positions have to say first.
        double radius = spans, span = 0;
        Task task;
        for (int turn = 0; turn < 2; ++turn, radius = spans * span) {
            task.positions.clear();
            for (std::size_t i = 0; i < 5; ++i) {
                const double swing = ways[i] / radius, sag = -2 * radius * std::pow(std::sin(swing / 2), 2);
                const std::complex<double> pivot(radius * std::sin(swing), sag);
                task.positions.push_back({pivot + std::polar(0.7, 0.4 + angles[i] * std::acos(-1.0) / 180), angles[i]});
                span = std::max(span, std::abs(task.positions[i].at - task.positions[0].at));
            }
        }
        const auto dyads = Dyads_Through_Five(design::Carried_Through(task.positions));
        const bool reached = std::ranges::any_of(
            dyads, [&](const Dyad& dyad) { return std::abs(std::abs(dyad.fixed - dyad.moving) / radius - 1) < 0.01; });
        EXPECT_EQ(reached, spans < 1e5) << spans;
    }
}

TEST_F(Dyads, OfFivePositionsThatAreOnePlaceOrOfWhichThreeGoStraightAreNone) {
    Task task;
    task.positions = std::vector<design::Place>(5, {{1, 2}, 0});
    EXPECT_TRUE(Dyads_Through_Five(design::Carried_Through(task.positions)).empty());
    for (std::size_t i = 0; i < 5; ++i) task.positions[i].angle = 20.0 * static_cast<double>(i);
    EXPECT_TRUE(Dyads_Through_Five(design::Carried_Through(task.positions)).empty());
    // Three on a line that have one angle, which is that of a point on no circle.
    task.positions = {{{2, -1}, 90}, {{-2, 1}, 180}, {{-2, 2}, 180}, {{-2, -2}, 180}, {{2, -2}, 90}};
    EXPECT_TRUE(Dyads_Through_Five(design::Carried_Through(task.positions)).empty());
}

TEST_F(Dyads, OfFivePositionsAreTwoFourOrNone) {
    SCOPED_TRACE(Trace());
    int even = 0;
    for (int i = 0; i < 300; ++i)
        even += Dyads_Through_Five(design::Carried_Through(Random_Task(5).positions)).size() % 2 == 0;
    EXPECT_GE(even, 291);
}

TEST_F(Dyads, OfFivePositionsThatHardlyTurnAreTwoFourOrNoneToo) {
    SCOPED_TRACE(Trace());
    int even = 0;
    for (int i = 0; i < 1000; ++i) {
        Task task = Random_Task(5);
        for (auto& place : task.positions) place.angle /= 90;
        even += Dyads_Through_Five(design::Carried_Through(task.positions)).size() % 2 == 0;
    }
    EXPECT_GE(even, 985);
}

TEST_F(Dyads, OfFivePositionsOnLongLinksAreFoundAgain) {
    SCOPED_TRACE(Trace());
    int both = 0, all = 0;
    while (all < 60) {
        const Known known{Point(30), Point(30), Point(30), Point(30), Point(30)};
        const auto task = Task_Of(known, {0, 0.01, 0.025, 0.035, 0.05});
        if (!task || std::abs(task->positions[4].angle - task->positions[0].angle) > 3) continue;
        ++all;
        const auto dyads = Dyads_Through_Five(design::Carried_Through(task->positions));
        both += Nearest(dyads, {known.O2, known.A}) < 1e-2 && Nearest(dyads, {known.O4, known.B}) < 1e-2;
    }
    EXPECT_GE(both, 55);
}

TEST_F(Dyads, OfFivePositionsAreAsLargeAsTheirPositions) {
    SCOPED_TRACE(Trace());
    std::size_t all = 0;
    for (int i = 0; i < 20; ++i) {
        const Task task = Random_Task(5);
        // Powers of two change no digit.
        Task small = task;
        constexpr double kSmaller = 1.0 / 64;
        for (auto& place : small.positions) place.at *= kSmaller;
        auto scaled = Dyads_Through_Five(design::Carried_Through(task.positions));
        for (Dyad& dyad : scaled) dyad = {dyad.fixed * kSmaller, dyad.moving * kSmaller};
        EXPECT_EQ(Dyads_Through_Five(design::Carried_Through(small.positions)), scaled);
        all += scaled.size();
    }
    EXPECT_GT(all, 10U);
}

TEST_F(Dyads, OfFivePositionsMergeInPairsAreToldApartUntilThenAndAreNoneBeyond) {
    SCOPED_TRACE(Trace());
    int pairs = 0, apart = 0, beyond = 0;
    while (pairs < 40) {
        const Task five = Random_Task(5);
        const auto turned = [&](double angle) {
            Task task = five;
            task.positions[4].angle += angle;
            return task;
        };
        const auto dyads = [&](double angle) {
            return Dyads_Through_Five(design::Carried_Through(turned(angle).positions));
        };
        double many = 0, few = 5;
        const std::size_t fewest = std::min(dyads(many).size(), dyads(few).size());
        if (dyads(many).size() == dyads(few).size()) continue;
        if (dyads(many).size() == fewest) std::swap(many, few);
        while (std::abs(many - few) > 1e-12) {
            const double middle = (many + few) / 2;
            (dyads(middle).size() == fewest ? few : many) = middle;
        }
        ++pairs;
        double span = 0;
        for (const auto& place : five.positions) span = std::max(span, std::abs(place.at - five.positions[0].at));
        // A millionth of a degree before, two are about the root of that apart.
        const double before = std::copysign(1e-6, many - few);
        const auto near = dyads(many + before);
        for (std::size_t i = 1; i < near.size(); ++i)
            for (std::size_t k = 0; k < i; ++k) apart += Apart(near[i], near[k]) < 1e-3 * span;
        for (const double off : {1.0, 0.1, 0.01, -0.01, -0.1, -1.0, -10.0})
            for (const Dyad& dyad : dyads(many + off * before))
                EXPECT_LE(Off_Circle(turned(many + off * before), dyad),
                          1.001e-9 * (std::abs(dyad.fixed - dyad.moving) + span));
        beyond += dyads(few - before).size() > fewest;
    }
    EXPECT_GT(apart, 3);
    EXPECT_LT(beyond, 8);
}

TEST_F(Dyads, WhatIsWrongWithATaskIsSaid) {
    const auto said = [](std::vector<design::Place> places) {
        Task task;
        task.positions = std::move(places);
        return Trouble_With(task);
    };
    EXPECT_EQ(said({{{0, 0}, 0}, {{1, 0}, 10}}), "");
    EXPECT_EQ(said({{{0, 0}, 0}, {{1, 0}, 10}, {{0, 0}, 360}}),
              "Positions 1 and 3 coincide: move or turn one of them, or leave it out.");
    EXPECT_EQ(said({{{0, 0}, 5}, {{1, 1}, 5}, {{3, 3}, 5}}),
              "The positions lie on a line and do not turn, so that no circle passes through the places of any point: "
              "turn one of them, or move one off the line.");
    EXPECT_EQ(said({{{0, 0}, 5}, {{1, 1}, 5}, {{3, 1}, 5}}), "");
    EXPECT_EQ(said({{{0, 0}, 5}, {{1, 1}, 5}, {{3, 1}, 5}, {{4, 0}, 5}}),
              "The positions do not turn, so that all points of the body move alike: turn one of them, or give three "
              "positions.");
    EXPECT_EQ(
        said({{{2, 0}, 0}, {{0, 2}, 90}, {{-2, 0}, 180}}),
        "All positions turn about the one point 0, 0, so that every link has its pivot there: a single joint does "
        "it. Move or turn one of the positions.");
    for (const double none : {std::nan(""), std::numeric_limits<double>::infinity(), -1e300}) {
        const char* words = "Position 2 has a number that is none or too large: give its place and angle anew.";
        EXPECT_EQ(said({{{2, 0}, 0}, {{none, 2}, 90}}), words);
        EXPECT_EQ(said({{{2, 0}, 0}, {{1, none}, 90}}), words);
        EXPECT_EQ(said({{{2, 0}, 0}, {{1, 2}, none}}), words);
    }
    EXPECT_EQ(said({{{std::nan(""), 0}, 0}, {{1, 2}, 3}}),
              "Position 1 has a number that is none or too large: give its place and angle anew.");
    EXPECT_EQ(said({{{2, 0}, 0}}), "A task has two to five positions: give more.");
}

TEST_F(Dyads, PivotsThatAreGivenBeyondWhatIsFreeAreRefused) {
    Task task;
    task.positions = {{{0, 0}, 0}, {{1, 0}, 10}, {{2, 1}, 30}};
    task.left.fixed = {design::Area::Is::kPoints, {}, {}, {{1, 1}}};
    EXPECT_EQ(Trouble_With(task), "");
    task.left.moving = task.left.fixed;
    EXPECT_EQ(
        Trouble_With(task),
        "Both pivots of the left link are given as points, which leaves nothing to find: give a rectangle for one "
        "of them.");
    task.left.moving = {};
    task.positions.push_back({{4, 4}, 40});
    EXPECT_EQ(Trouble_With(task),
              "With 4 positions a pivot of the left link cannot be given as a point: its places are found. Give a "
              "rectangle, or three positions.");
}

}  // namespace verlink::test
