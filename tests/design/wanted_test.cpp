// The positions that a linkage was found for: passed, missed, of another linkage.
#include "design/wanted.h"

#include "core/linkage_door.h"
#include "core/numeric.h"
#include "core/runs.h"
#include "core/text.h"
#include "design/hand_over.h"
#include "dynamics/units.h"
#include "shell/initialize.h"
#include "synthesis/examples.h"
#include "tests/design/tasks.h"
#include "tests/support/fixture.h"

namespace verlink::test {

namespace {

using design::Positions_Wanted;
using design::Solution;
using design::Task;
using design::Wanted;
using Is = Wanted::Is;

struct PositionsWanted : Fixture {
    PositionsWanted() {
        Initialize();
        Use_Units(1);
        engine.seed(7);
    }
    double Number(double low, double high) { return std::uniform_real_distribution<>(low, high)(engine); }
    Task Random_Task(int positions, int units = 1) {
        Task random;
        random.units = units;
        const double size = units == 5 ? 50 : 2;
        for (int i = 0; i < positions; ++i)
            random.positions.push_back({{Number(-size, size), Number(-size, size)}, Number(-90, 90)});
        return random;
    }
    static std::vector<Solution> Some_Of(const Task& of) {
        return design::Find(of, {.best = 4, .threads = 1, .coarse = true}).solutions;
    }
    static void Use(const Task& of, const Solution& solution) {
        design::Hand_Over(of, solution, Model);
        Model.DesignTask = design::Task_Text(of);
        Run();
    }
    static void Run() { Run_Unasked(Model); }
    static std::vector<Is> States() {
        std::vector<Is> states;
        for (const Wanted& wanted : Positions_Wanted(Model)) states.push_back(wanted.is);
        return states;
    }
    void Use_Three() {
        task.positions = {{{0, 0}, 0}, {{4, 1}, 30}, {{6, 4}, 60}};
        const auto found = Some_Of(task);
        ASSERT_FALSE(found.empty());
        Use(task, found.front());
        ASSERT_EQ(States(), std::vector<Is>(3, Is::kPassed));
    }

    Task task;
    std::mt19937 engine;
};

}  // namespace

TEST_F(PositionsWanted, AreAllPassedByTheLinkageThatWasFoundWhereverItIsPut) {
    int used = 0;
    for (int i = 0; i < 24; ++i) {
        const int positions = 2 + i % 4, units = i % 8 < 4 ? 1 : 5;
        Use_Units(units);
        const Task random = Random_Task(positions, units);
        for (const Solution& solution : Some_Of(random)) {
            Use(random, solution);
            const auto wanted = Positions_Wanted(Model);
            ASSERT_EQ(wanted.size(), random.positions.size());
            ++used;
            for (std::size_t k = 0; k < wanted.size(); ++k) {
                EXPECT_EQ(wanted[k].is, Is::kPassed) << k << design::Task_Text(random);
                const auto at = random.positions[k].at - solution.linkage.crank.fixed;
                const double size = std::abs(at) + std::abs(solution.linkage.crank.fixed) + 1;
                EXPECT_LT(std::abs(wanted[k].at * Shown_Factor() - at), 1e-5 * size);
                EXPECT_EQ(wanted[k].angle, random.positions[k].angle);
            }
        }
    }
    EXPECT_GT(used, 18);
}

/// As the input screen rounds them.
TEST_F(PositionsWanted, ArePassedByTheLinkageWithItsLengthsRoundedAndItIsSaidByHowMuch) {
    int told = 0, used = 0;
    for (int i = 0; i < 18; ++i) {
        const Task random = Random_Task(2 + i % 3);
        for (const Solution& solution : Some_Of(random)) {
            Use(random, solution);
            const double before = Model.L2;
            Enter_Linkage(Road::kBoxes, [] {
                for (Single* length : {&Model.L1, &Model.L2, &Model.L3, &Model.L4, &Model.Rpa})
                    *length = std::round(*length * 1000) / 1000;
                for (Single* angle : {&Model.Delta, &Model.Link1Angle}) *angle = std::round(*angle * 100) / 100;
            });
            Run();
            EXPECT_NE(Model.L2, before);
            const auto wanted = Positions_Wanted(Model);
            ASSERT_EQ(wanted.size(), random.positions.size());
            for (const Wanted& one : wanted) EXPECT_EQ(one.is, Is::kPassed) << design::Task_Text(random);
            ++used;
            told += design::Words_Of(Model, wanted)[0].find(" passed within 0.") != std::string::npos;
        }
    }
    EXPECT_GT(used, 18);
    EXPECT_GT(told, used / 2);
}

TEST_F(PositionsWanted, AreToldAsMissedWhereALengthIsChanged) {
    Use_Three();
    const double before = Model.Rpa;
    Enter_Linkage(Road::kBoxes, [&] { Model.Rpa = before * 1.5; });
    Run();
    EXPECT_EQ(States(), std::vector<Is>(3, Is::kMissed));
    for (const Wanted& wanted : Positions_Wanted(Model)) EXPECT_GT(wanted.off, 0.01);
    // It turns as it did, and the coupler point is off by half of the arm at most.
    const auto lines = design::Words_Of(Model, Positions_Wanted(Model));
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_TRUE(lines[1].starts_with("position 2 missed by ")) << lines[1];
    EXPECT_NE(lines[1].find(" in, "), std::string::npos);
    Enter_Linkage(Road::kBoxes, [&] { Model.Rpa = before; });
    Run();
    EXPECT_EQ(States(), std::vector<Is>(3, Is::kPassed));
    EXPECT_EQ(design::Words_Of(Model, Positions_Wanted(Model)), std::vector<std::string>{"positions 1, 2, 3 passed"});
}

TEST_F(PositionsWanted, AreMissedWithoutAnyAmountWhereTheLinkageDoesNotClose) {
    Use_Three();
    Enter_Linkage(Road::kBoxes, [] { Model.L1 = Model.L1 * 100; });
    for (const Wanted& wanted : Positions_Wanted(Model)) {
        EXPECT_EQ(wanted.is, Is::kMissed);
        EXPECT_TRUE(std::isinf(wanted.off));
        EXPECT_TRUE(std::isinf(wanted.askew));
    }
    EXPECT_EQ(design::Words_Of(Model, Positions_Wanted(Model)),
              (std::vector<std::string>{"position 1 missed", "position 2 missed", "position 3 missed"}));
}

TEST_F(PositionsWanted, AreToldWhereTheRunOrTheCircuitLeavesThemOut) {
    Use_Three();
    const double first = Model.ThetaStart, last = Model.ThetaEnd;
    constexpr int kSteps = 10;
    Model.ThetaEnd = first + 0.1 * (last - first);
    Model.ThetaStep = (Model.ThetaEnd - first) / kSteps;
    Model.ThetaEndRad = Model.ThetaEnd * kDegToRad;
    Model.ThetaStepRad = Model.ThetaStep * kDegToRad;
    Model.ThetaEndStr = Text_Of(Model.ThetaEnd);
    Model.ThetaStepStr = Text_Of(Model.ThetaStep);
    Model.NSteps = kSteps;
    Run();
    const auto states = States();
    EXPECT_EQ(std::ranges::count(states, Is::kPassed), 1);
    EXPECT_EQ(std::ranges::count(states, Is::kBeyondRun), 2);
    const auto lines = design::Words_Of(Model, Positions_Wanted(Model));
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_TRUE(lines[0] == "position 1 passed" || lines[0] == "position 3 passed");
    EXPECT_TRUE(lines[1] == "positions 2, 3 beyond the run" || lines[1] == "positions 1, 2 beyond the run");
    Enter_Linkage(Road::kBoxes, [] { Model.CircuitIndex = 3 - Model.CircuitIndex; });
    Run();
    EXPECT_EQ(States(), std::vector<Is>(3, Is::kOnOtherCircuit));
}

TEST_F(PositionsWanted, AreNotPassedWhereTheRunDoesNotCloseOnBothSides) {
    Use_Three();
    Run();
    ASSERT_EQ(States(), std::vector<Is>(3, Is::kPassed));
    auto& closes = Model.RunTable.Assembled;
    const int middle = Model.NSteps / 2;
    for (int step = 0; step <= middle; ++step) closes(step) = false;
    const auto states = States();
    EXPECT_GE(std::ranges::count(states, Is::kBeyondRun), 1);
    EXPECT_GE(std::ranges::count(states, Is::kPassed), 1);
    // A position between two steps of which the run has the one, or the other.
    for (const int even : {0, 1}) {
        for (int step = 0; step <= Model.NSteps; ++step) closes(step) = step % 2 == even;
        EXPECT_EQ(States()[1], Is::kBeyondRun);
    }
    for (int step = 0; step <= Model.NSteps; ++step) closes(step) = false;
    EXPECT_EQ(States(), std::vector<Is>(3, Is::kBeyondRun));
}

TEST_F(PositionsWanted, ArePassedFromTheStepOnThatIsBeyondThem) {
    Use_Three();
    Model.NSteps = 6;
    Model.ThetaStep = Model.ThetaStep * 6;
    Model.ThetaStepRad = Model.ThetaStepRad * 6;
    Model.ThetaStepStr = Text_Of(Model.ThetaStep);
    Run();
    const double there = Some_Of(task).front().judgement.crank[1] / design::kDegree;
    const auto beyond = [&](int step) {
        const double first = Model.RunTable.Theta(0, 0), way = Model.RunTable.Theta(1, 0) - first;
        return std::remainder(Model.RunTable.Theta(step, 0) - there, 360) * way > 0;
    };
    int steps_on = 0;
    for (int last = 0; last <= Model.NSteps; ++last) {
        for (int step = 0; step <= Model.NSteps; ++step) Model.RunTable.Assembled(step) = step <= last;
        // A degree before it the run may end, as lengths are rounded.
        const double off = std::remainder(Model.RunTable.Theta(last, 0) - there, 360);
        if (std::abs(off) <= 1.01) continue;
        EXPECT_EQ(States()[1], beyond(last) ? Is::kPassed : Is::kBeyondRun) << last;
        steps_on += std::abs(off) < std::abs(Model.ThetaStep) && !beyond(last);
    }
    EXPECT_GT(steps_on, 0) << "a step before it";
}

TEST_F(PositionsWanted, ArePassedAtAnEndOfTheRunWhereTheCouplerPointIsThere) {
    Use_Three();
    const int end = 0;
    for (int step = 1; step <= Model.NSteps; ++step) Model.RunTable.Assembled(step) = false;
    ASSERT_EQ(std::ranges::count(States(), Is::kPassed), 1) << "the run begins with one";
    const double size = double{Model.L1} + Model.L2 + Model.L3 + Model.L4 + Model.Rpa;
    const Single crank = Model.RunTable.Theta(end, 0), x = Model.RunTable.PointXY(end, 2, 0);
    struct Case {
        double turn, part;
        bool passed;
    };
    // Half a degree on, only what the boxes round is allowed; that is far less than a two-hundredth of the lengths.
    for (const Case& of :
         {Case{0, 0.0049, true}, Case{0, 0.0051, false}, Case{0.009, 0.0049, true}, Case{0.012, 0.0049, false},
          Case{0.5, 0, true}, Case{0.5, 0.0049, false}, Case{1.01, 0, false}}) {
        Model.RunTable.Theta(end, 0) = crank + of.turn;
        Model.RunTable.PointXY(end, 2, 0) = x + of.part * size;
        EXPECT_EQ(std::ranges::count(States(), Is::kPassed), of.passed ? 1 : 0) << of.turn << ' ' << of.part;
    }
}

TEST_F(PositionsWanted, AreNoneForAnotherLinkage) {
    Use_Three();
    // All of its lengths may be off by what the boxes show and by what files round.
    Single* const lengths[] = {&Model.L1, &Model.L2, &Model.L3, &Model.L4, &Model.Rpa};
    std::vector<double> before;
    for (const Single* length : lengths) before.push_back(*length);
    for (const double part : {0.9, 1.1}) {
        for (std::size_t i = 0; i < before.size(); ++i) *lengths[i] = before[i] + part * (1e-3 + 2e-4 * before[i]);
        EXPECT_EQ(Positions_Wanted(Model).empty(), part > 1);
    }
    Hoekens();
    EXPECT_TRUE(Positions_Wanted(Model).empty());
}

TEST_F(PositionsWanted, AreThoseOfALinkageOfWhichTwoLengthsAreLeft) {
    Use_Three();
    Single* const lengths[] = {&Model.L1, &Model.L2, &Model.L3, &Model.L4, &Model.Rpa};
    const std::array before{Model.L1, Model.L2, Model.L3, Model.L4, Model.Rpa};
    for (std::size_t one = 0; one < before.size(); ++one)
        for (std::size_t other = one; other < before.size(); ++other) {
            for (std::size_t i = 0; i < before.size(); ++i)
                *lengths[i] = before[i] * (i == one || i == other ? 1 : 1.1);
            EXPECT_EQ(Positions_Wanted(Model).empty(), one == other) << one << ' ' << other;
        }
}

TEST_F(PositionsWanted, AreNoneWithoutATaskOrWithAnother) {
    Use_Three();
    task.positions[1].at += 0.5;
    Model.DesignTask = design::Task_Text(task);
    EXPECT_TRUE(Positions_Wanted(Model).empty());
    task.positions[1].at -= 0.5;
    for (const std::size_t position : {1, 2}) {
        design::Task turned = task;
        turned.positions[position].angle += 5;
        Model.DesignTask = design::Task_Text(turned);
        EXPECT_TRUE(Positions_Wanted(Model).empty()) << position;
        // Whole turns are none, and files round.
        for (const double by : {-360.0, 360.0, -1.9e-3, 1.9e-3, -2.1e-3, 2.1e-3}) {
            turned.positions[position].angle = task.positions[position].angle + by;
            Model.DesignTask = design::Task_Text(turned);
            EXPECT_EQ(Positions_Wanted(Model).empty(), std::abs(by) > 2e-3 && std::abs(by) < 1)
                << position << ' ' << by;
        }
    }
    Model.DesignTask = "{}";
    EXPECT_TRUE(Positions_Wanted(Model).empty());
    Model.DesignTask.clear();
    EXPECT_TRUE(Positions_Wanted(Model).empty());
}

TEST_F(PositionsWanted, GoAlongWithAnotherUnit) {
    Use_Three();
    Use_Units(5);
    ASSERT_TRUE(Convert_Units(1, 5));
    Run();
    const auto wanted = Positions_Wanted(Model);
    ASSERT_EQ(wanted.size(), 3U);
    EXPECT_NEAR(std::abs(wanted[1].at - wanted[0].at), std::hypot(4, 1) * 0.0254, 1e-5);
    // Lengths are rounded to tenths of a millimetre then, and the positions are missed by as much.
    for (const Wanted& one : wanted) EXPECT_LT(one.off, 3e-4);
}

TEST_F(PositionsWanted, AreFoundAgainFromWhatAFileHolds) {
    Use_Three();
    const auto before = Positions_Wanted(Model);
    const Single x = Model.SynWx, y = Model.SynWy;
    Model.SynWx = Model.SynWy = 0;
    EXPECT_EQ(States(), std::vector<Is>(3, Is::kPassed)) << "one dyad alone does not tell";
    Model.SynWx = x;
    Model.SynWy = y;
    // A file has the directions of the vectors and not the vectors, nor which synthesis it was.
    for (const auto vector :
         {&SynthesisData::SynWx, &SynthesisData::SynWy, &SynthesisData::SynZx, &SynthesisData::SynZy,
          &SynthesisData::SynUx, &SynthesisData::SynUy, &SynthesisData::SynSx, &SynthesisData::SynSy})
        Model.*vector = 0;
    Model.SynPositions = 0;
    const auto after = Positions_Wanted(Model);
    ASSERT_EQ(after.size(), before.size());
    for (std::size_t k = 0; k < after.size(); ++k) {
        EXPECT_EQ(after[k].is, Is::kPassed);
        EXPECT_LT(std::abs(after[k].at - before[k].at), 1e-5);
    }
    // Files round: both dyads may miss each other by 2e-4 of all links.
    const double sigma = Model.SynSigma, all = double{Model.L1} + Model.L2 + Model.L3 + Model.L4;
    for (const double part : {-1.1, -0.9, 0.9, 1.1}) {
        Model.SynSigma = sigma + part * 2e-4 * all / Model.L4 / kDegToRad;
        EXPECT_EQ(Positions_Wanted(Model).empty(), std::abs(part) > 1) << part;
    }
    Model.SynSigma = sigma;
    Enter_Linkage(Road::kBoxes, [] { Model.L4 = Model.L4 * 1.1; });
    EXPECT_TRUE(Positions_Wanted(Model).empty());
}

}  // namespace verlink::test
