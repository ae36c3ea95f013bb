// Which steps count as solved, and that what does not close is compared with nothing.
#include "core/numeric.h"
#include "core/text.h"
#include "tests/checks/told.h"

namespace verlink::test {

namespace {

class Steps_Left_Out : public Told {
   protected:
    void Solve_And_Balance() {
        Use_Units(5);
        Solve_Near_The_Ground();
        ASSERT_TRUE(Model.RunTable.Assembled(4));
        ASSERT_FALSE(Model.RunTable.Assembled(5));
    }
    /// How many steps are told to be without forces; 0 where none is.
    static double Not_Solved() {
        const std::vector<Check> checks = Checks_Of(Model);
        const auto found = std::ranges::find(checks, std::string("Steps not solved"), &Check::name);
        return found == checks.end() ? 0 : found->worst;
    }
    RunResults& t = Model.RunTable;
};

}  // namespace

TEST_F(Steps_Left_Out, AnyOneForceOrTheDrivingTorqueShowsThatAStepWasSolved) {
    Notes notes(desktop, platform::Answer::kIgnore);
    Solve_And_Balance();
    std::vector<Single*> cells{&t.LinkTorque(4, 0)};
    for (int step = 4; step <= Model.NSteps; ++step) {
        for (int row = 0; row <= 7; ++row)
            for (int axis = 0; axis <= 1; ++axis) t.PinForce(step, row, axis) = 0;
        for (int row = 0; row <= 3; ++row) t.LinkTorque(step, row) = 0;
    }
    EXPECT_EQ(Not_Solved(), 0) << "a solve does not stop at a step that closes";
    for (int row = 0; row <= 7; ++row)
        for (int axis = 0; axis <= 1; ++axis) cells.push_back(&t.PinForce(4, row, axis));
    for (Single* cell : cells) {
        *cell = 1;
        EXPECT_EQ(Not_Solved(), Model.NSteps + 1 - 5) << cell - cells[1];
        *cell = 0;
    }
}

TEST_F(Steps_Left_Out, APositionThatDoesNotCloseIsComparedWithNothing) {
    Notes notes(desktop, platform::Answer::kIgnore);
    Solve_And_Balance();
    const auto verdicts = [] {
        std::vector<std::pair<std::string, Verdict>> all;
        for (const Check& check : Checks_Of(Model))
            if (check.name != "Loop closure") all.emplace_back(check.name, check.verdict);
        return all;
    };
    for (const bool balanced : {false, true}) {
        if (balanced) {
            Default_Weights(Model);
            Berkof_Calc(Model, Model.BerkMass, Model.BerkRadius);
        }
        const Single kept[] = {t.PointXY(2, 0, 0), t.PointXY(2, 0, 1)};
        const auto as_it_is = verdicts();
        t.PointXY(2, 0, 0) = -4 * Shown_Factor();
        t.PointXY(2, 0, 1) = 0;
        EXPECT_EQ(Found("Loop closure").verdict, Verdict::kFails);
        EXPECT_EQ(verdicts(), as_it_is) << balanced;
        EXPECT_FALSE(as_it_is.empty());
        for (const auto& [name, verdict] : as_it_is) EXPECT_NE(verdict, Verdict::kFails) << name;
        for (int axis = 0; axis <= 1; ++axis) t.PointXY(2, 0, axis) = kept[axis];
    }
}

// At so many turns a double has no digits left for the last places of a part of one.
TEST_F(Steps_Left_Out, ACrankOfManyTurnsIsKnownToFewerPlaces) {
    Take_Driven_Run(1);
    const double turned = 3.6e11;
    t.Theta(kStep, 0) = turned;
    const Range crank{Crank(kStep), kHalf + std::ldexp(turned * M_PI / 180, -52)};
    EXPECT_GT(crank.off, 20 * kHalf);
    Solved_Position p;
    Solve_Place(Own_Links(), crank, p);
    const Vector B = Point(kStep, 1);
    Expect_Told("Positions", t.PointXY(kStep, 1, 0), 5, "step 8, " + Text_Of(FNRound(Single(turned), 2)) + " deg, B",
                1000 * (p.B.Off() + 2 * kHalf * std::abs(B)));
}

}  // namespace verlink::test
