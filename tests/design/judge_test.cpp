// What is said of linkages that do a task, and of those that do not.
#include "design/judge.h"

#include <algorithm>

#include "core/grashof.h"
#include "tests/design/follower.h"
#include "tests/design/tasks.h"

namespace verlink::test {

namespace {

using design::Carried;
using design::FourBar;
using design::Judge;
using design::Judgement;
using design::Refusal;
using design::Task;

struct Judging : Design {};

}  // namespace

TEST_F(Judging, ALinkageDoesItsOwnPositions) {
    const Known known = Crank_Rocker();
    const Task task = *Task_Of(known, {0, 1, 2.5, 4});
    const Judgement j = Judge(task).Of(Linkage_Of(known));
    EXPECT_TRUE(j.Good()) << Words_Of(j, task);
    EXPECT_TRUE(j.open);
    EXPECT_STREQ(Words_Of(j.kind), "Grashof crank-rocker");
    EXPECT_NEAR(j.crank[3] - j.crank[0], 4, 1e-9);
    EXPECT_NEAR(j.proportion, 4, 1e-9);
    EXPECT_LT(j.miss.place, 1e-5);
    EXPECT_GT(j.miss.place, 0);
    // With lengths to three decimals and angles to two, the coupler point is off by some thousandths.
    EXPECT_GT(j.rounded.place, 1e-5);
    EXPECT_LT(j.rounded.place, 1e-2);
}

TEST_F(Judging, TheTransmissionAngleIsTheSmallestOfTheWholeStroke) {
    SCOPED_TRACE(Trace());
    int judged = 0;
    for (int i = 0; i < 80; ++i) {
        Known known;
        const Task task = Task_Of_Random_Linkage(3, known);
        const Judgement j = Judge(task).Of(Linkage_Of(known));
        if (!j.Good()) continue;
        ++judged;
        double least = 90;
        const double from = j.crank[0], to = j.crank[2];
        for (int step = 0; step <= 1000; ++step) {
            const auto place = known.At((to - from) * step / 1000);
            ASSERT_TRUE(place);
            const auto turned = std::polar(1.0, (place->angle - task.positions[0].angle) * std::acos(-1.0) / 180);
            const auto A = place->at + (known.A - known.P) * turned, B = place->at + (known.B - known.P) * turned;
            const double angle = std::abs(std::arg((A - B) / (known.O4 - B))) * 180 / std::acos(-1.0);
            least = std::min({least, angle, 180 - angle});
        }
        EXPECT_NEAR(j.transmission, least, 0.2);
    }
    EXPECT_GT(judged, 25);
}

// C. H. Suh and C. W. Radcliffe, Kinematics and Mechanisms Design, 1978: the linkage on the pivots (0, 0) and (5, 0).
TEST_F(Judging, OfThePublishedLinkageOneLinkDrivesAndTheOtherDoesNot) {
    Task task;
    task.positions = {{{1, 1}, 0}, {{2, 0.5}, 0}, {{3, 1.5}, 45}};
    const Judge judge(task);
    const Carried three[3] = {judge.Positions()[0], judge.Positions()[1], judge.Positions()[2]};
    const FourBar linkage{*Dyad_Of_Fixed(three, {0, 0}), *Dyad_Of_Fixed(three, {5, 0}), {1, 1}};
    EXPECT_EQ(Words_Of(judge.Of(linkage), task),
              "Between positions 1 and 3 lies a toggle, through which the crank cannot drive the linkage.");
    Task first_and_last = task;
    first_and_last.positions.erase(first_and_last.positions.begin() + 1);
    EXPECT_EQ(judge.Of(linkage).refusal, Refusal::kBranch);
    EXPECT_EQ(Judge(first_and_last).Of(linkage).refusal, Refusal::kBranch);
    EXPECT_EQ(Judge(first_and_last).Of(linkage).to, 2);
    const FourBar other = linkage.With_Other_Crank();
    const Judgement j = judge.Of(other);
    EXPECT_TRUE(j.Good());
    EXPECT_EQ(Follower(other).Through(task.positions, other, j.crank[1] > j.crank[0] ? 1 : -1), "");
    EXPECT_NE(Follower(linkage).Through(task.positions, linkage, 1), "");
    EXPECT_NE(Follower(linkage).Through(task.positions, linkage, -1), "");
}

TEST_F(Judging, ALinkageThatJumpsItsCircuitSaysSo) {
    const Known known = Crank_Rocker();
    Known jumped = known;
    jumped.B = known.A + (known.O4 - known.A) * std::conj((known.B - known.A) / (known.O4 - known.A));
    Task task = *Task_Of(known, {0, 1});
    // The body, which belongs to AB, on the other circuit.
    const auto there = (jumped.B - jumped.A) / (known.B - known.A);
    jumped.P = known.A + (known.P - known.A) * there;
    const auto place = jumped.At(2);
    task.positions.push_back({place->at, place->angle + std::arg(there) * 180 / std::acos(-1.0)});
    const Judgement j = Judge(task).Of(Linkage_Of(known));
    EXPECT_EQ(j.refusal, Refusal::kCircuit);
    EXPECT_EQ(
        Words_Of(j, task),
        "Positions 1 and 3 lie on different circuits: the linkage jumps, and would have to be taken apart between "
        "them.");
}

TEST_F(Judging, AJumpIsSeenWhereverTheLinkageStandsHoweverSmallItIsAndWhicheverLinkIsTheCrank) {
    for (const double size : {1.0, 1e-3})
        for (const bool open : {true, false}) {
            const Known known = Crank_Rocker_At({3, -2}, std::polar(size, 0.4), open);
            Known jumped = known;
            jumped.B = known.A + (known.O4 - known.A) * std::conj((known.B - known.A) / (known.O4 - known.A));
            const auto there = (jumped.B - jumped.A) / (known.B - known.A);
            jumped.P = known.A + (known.P - known.A) * there;
            Task task = *Task_Of(known, {0, 1});
            const auto stays = Judge(task).Of(Linkage_Of(known)),
                       driven = Judge(task).Of(Linkage_Of(known).With_Other_Crank());
            EXPECT_TRUE(stays.Good());
            EXPECT_NE(driven.refusal, Refusal::kCircuit);
            const auto place = jumped.At(1);
            task.positions[1] = {place->at, place->angle + std::arg(there) * 180 / std::acos(-1.0)};
            for (const FourBar& linkage : {Linkage_Of(known), Linkage_Of(known).With_Other_Crank()}) {
                const Judgement j = Judge(task).Of(linkage);
                EXPECT_EQ(j.refusal, Refusal::kCircuit);
                EXPECT_EQ(j.from, 1);
                EXPECT_EQ(j.to, 2);
                EXPECT_EQ(j.amount, 0);
            }
        }
}

TEST_F(Judging, BelowTwoDegreesOfTransmissionALinkageJams) {
    for (const double least : {1.5, 2.5}) {
        // Of 3.5, 3 and the shortest diagonal, which is link 1 without the crank.
        const double shortest = std::sqrt(3.5 * 3.5 + 9 - 21 * std::cos(least * std::acos(-1.0) / 180));
        Known known{{0, 0}, {1 + shortest, 0}, std::polar(1.0, -0.3), {}, {2, 3}};
        const double d = std::abs(known.O4 - known.A);
        known.B =
            known.A + std::polar(3.5, std::arg(known.O4 - known.A) + std::acos((3.5 * 3.5 + d * d - 9) / (7 * d)));
        Task task = *Task_Of(known, {0, 0.6});
        task.full_turn = true;
        const Judgement j = Judge(task).Of(Linkage_Of(known));
        EXPECT_EQ(j.refusal, least < 2 ? Refusal::kTransmission : Refusal::kNone);
        EXPECT_NEAR(j.transmission, least, 1e-4);
    }
}

TEST_F(Judging, ALinkageWhosePositionsSevenDigitsDoNotHoldIsRefusedForThat) {
    SCOPED_TRACE(Trace());
    int by_place = 0, by_angle = 0, held = 0;
    for (int i = 0; i < 1500; ++i) {
        // Two short links between two long ones, and a point on the coupler or far from it.
        Known known{{0, 0}, {100, 0}, std::polar(Number(0.6, 1.5), Number(-3, 3)), {}, {}};
        const double l3 = Number(0.6, 1.5), d = std::abs(known.O4 - known.A), mu = Number(0.04, 0.2);
        const double l4 = l3 * std::cos(mu) + std::sqrt(d * d - std::pow(l3 * std::sin(mu), 2));
        const double cosine = (l3 * l3 + d * d - l4 * l4) / (2 * l3 * d);
        known.B = known.A + std::polar(l3, std::arg(known.O4 - known.A) + std::acos(cosine));
        known.P = known.A + std::polar(i % 2 == 0 ? 1.0 : 120.0, Number(-3, 3));
        const auto task = Task_Of(known, {0, Number(0.1, 0.3)});
        if (!task) continue;
        const Judge judge(*task);
        const Judgement j = judge.Of(Linkage_Of(known));
        if (j.refusal != Refusal::kDigits && !j.Good()) continue;
        const double longest = std::max({100.0, l4, std::abs(known.P - known.A)});
        const bool far = j.miss.place > 2e-5 * longest, askew = j.miss.angle > 2e-3;
        EXPECT_EQ(j.refusal == Refusal::kDigits, far || askew || !j.miss.closes);
        if (!j.Good()) {
            EXPECT_EQ(j.amount, j.miss.place);
        }
        by_place += far && !askew;
        by_angle += askew && !far;
        held += j.Good();
    }
    EXPECT_GT(by_place, 3);
    EXPECT_GT(by_angle, 3);
    EXPECT_GT(held, 20);
}

TEST_F(Judging, OfTwoWaysTheOneThatHasTheOrderIsToldOf) {
    // To the right it has the order, and too small an angle; to the left it has not.
    Task task = *Task_Of(Crank_Rocker(), {0, -1, -2.5});
    task.transmission = 88;
    const Judgement j = Judge(task).Of(Linkage_Of(Crank_Rocker()));
    EXPECT_EQ(j.refusal, Refusal::kTransmission);
    EXPECT_EQ(j.from, 0);
    EXPECT_EQ(j.to, 0);
    task = *Task_Of(Crank_Rocker(), {0, 1, 2.5});
    task.transmission = 88;
    EXPECT_EQ(Judge(task).Of(Linkage_Of(Crank_Rocker())).refusal, Refusal::kTransmission);
}

TEST_F(Judging, OverAFullTurnBothWaysAreAlikeAndTheCrankTurnsToTheRight) {
    Task task = *Task_Of(Crank_Rocker(), {0, 1});
    task.full_turn = true;
    const Judgement j = Judge(task).Of(Linkage_Of(Crank_Rocker()));
    EXPECT_NEAR(j.crank[1] - j.crank[0], 1 - 2 * std::acos(-1.0), 1e-9);
}

TEST_F(Judging, PositionsOutOfOrderAreToldWithTheirNumbers) {
    const Known known = Crank_Rocker();
    const Task task = *Task_Of(known, {0, 2, 1, 3});
    const Judgement j = Judge(task).Of(Linkage_Of(known));
    EXPECT_EQ(j.refusal, Refusal::kOrder);
    EXPECT_NE(Words_Of(j, task).find("in another order"), std::string::npos);
    // Three positions come in their order one way or the other.
    EXPECT_TRUE(Judge(*Task_Of(known, {0, 2, 1})).Of(Linkage_Of(known)).Good());
}

TEST_F(Judging, LimitsAreKept) {
    const Known known = Crank_Rocker();
    const FourBar linkage = Linkage_Of(known);
    const Task task = *Task_Of(known, {0, 1, 2});
    const auto said = [&](auto change) {
        Task limited = task;
        change(limited);
        return Words_Of(Judge(limited).Of(linkage), limited);
    };
    EXPECT_EQ(said([](Task&) {}), "");
    EXPECT_EQ(said([](Task& t) { t.longest = 3.9; }), "A link is 4 in long, longer than the 3.9 in of the task.");
    EXPECT_EQ(said([](Task& t) { t.shortest = 1.25; }), "A link is 1 in long, shorter than the 1.25 in of the task.");
    EXPECT_EQ(said([](Task& t) {
                  t.left.fixed = {design::Area::Is::kWithin, {-1, -1}, {-0.5, 1}, {}};
              }),
              "A pivot lies outside the place that it is given.");
    EXPECT_EQ(said([](Task& t) { t.left.fixed = {design::Area::Is::kPoints, {}, {}, {{0, 0}}}; }), "");
    EXPECT_EQ(said([](Task& t) { t.full_turn = true; }), "");
    EXPECT_EQ(said([](Task& t) { t.transmission = 88; }).substr(0, 32), "The transmission angle falls to ");
    Task turned = task;
    turned.full_turn = true;
    EXPECT_EQ(Words_Of(Judge(turned).Of(linkage.With_Other_Crank()), turned), "The crank cannot turn fully.");
}

TEST_F(Judging, TheClassIsThatOfCore) {
    SCOPED_TRACE(Trace());
    for (int i = 0; i < 1000; ++i) {
        const Links links{Number(0.5, 3), Number(0.5, 3), Number(0.5, 3), Number(0.5, 3)};
        const std::string code(Grashof_Kind(links).code), words = Words_Of(design::Class_Of(links));
        EXPECT_EQ(code == "Y", words.starts_with("Grashof")) << words;
        EXPECT_EQ(code == "N", words.starts_with("non-Grashof"));
        EXPECT_EQ(code == "NL", words == "no linkage");
    }
}

}  // namespace verlink::test
