// What is told of a balance: the mass centre of all, by the sum of its parts, and the shaking force that is left.
#include "tests/checks/ranges_of_forces.h"

namespace verlink::test {

namespace {

class Told_Of_Balance : public Ranges_Of_Forces {
   protected:
    void Take_Balance(int circuit) {
        Take_Linkage(circuit);
        Take_Masses();
        Model.Omega2Input = 9;
        Take_Angles(40, 140, 5);
        Run_And_Balance();
        ASSERT_TRUE(Model.BalanceDone);
    }
    static Vector Unit(double radians) { return std::polar(1.0, radians); }
    static double Angle(int step, int link) {
        return (Model.RunTable.Theta(step, link - 2) - Model.Link1Angle) * M_PI / 180;
    }
    /// Mass times place of all that moves, from O2.
    static Vector Moment_Of_Mass(int step) {
        const auto& m = Model;
        const Vector joints[] = {0, Point(step, 0), double{m.L1}};
        Vector sum;
        for (const int link : {2, 3, 4}) {
            const Vector joint = joints[link - 2];
            const double mass = m.LinkMass(link), weight = m.BerkMass(link);
            sum += mass * (joint + std::polar(double{m.CG(link, 0)}, Angle(step, link) + m.CG(link, 1)));
            sum += weight * (joint + std::polar(double{m.BerkCG(link, 0)}, Angle(step, link) + m.BerkCG(link, 1)));
        }
        return sum;
    }
    static double Mass() {
        double all = 0;
        for (const int link : {2, 3, 4}) all += Model.LinkMass(link) + Model.BerkMass(link);
        return all;
    }
    /// What is allowed of the mass centre: sixteen half places of all that is added up, and of the sums made here.
    static double Centre_Rounding() {
        const auto& m = Model;
        double moments = m.LinkMass(3) * (m.L2 + m.CG(3, 0) * (m.L2 + m.L4) / m.L3);
        for (const int link : {2, 3, 4})
            moments += m.LinkMass(link) * std::abs(m.CG(link, 0)) + std::abs(m.MRNeeded(link)) +
                       std::abs(m.BerkMass(link) * m.BerkRadius(link));
        return 1000 * (16 * kHalf * moments / Mass() + std::ldexp(m.L1 + m.L2 + m.L3 + m.L4, -46));
    }
    RunResults& t = Model.RunTable;
};

}  // namespace

TEST_F(Told_Of_Balance, AMassCentreThatMovesIsToldWhereItIsFarthest) {
    for (const int circuit : {1, 2}) {
        Take_Balance(circuit);
        EXPECT_EQ(Found("Balanced mass centre").verdict, Verdict::kGood);
        Model.CG(3, 0) *= 1.05;
        double most = 0;
        int at = 0;
        for (int step = 0; step <= Model.NSteps; ++step) {
            const double off = 1000 * std::abs(Moment_Of_Mass(step) - Moment_Of_Mass(0)) / Mass();
            if (off <= most) continue;
            most = off;
            at = step;
        }
        Expect_Failing("Balanced mass centre",
                       "step " + std::to_string(at) + ", " + std::to_string(40 + 5 * at) + " deg", most,
                       Centre_Rounding());
    }
}

TEST_F(Told_Of_Balance, WeightsThatAreOthersMoveItByDesign) {
    for (const int link : {2, 4}) {
        Take_Balance(1);
        Model.BerkMass(link) *= 1.05;
        const double more = Model.BerkMass(link) * Model.BerkRadius(link) - Model.MRNeeded(link);
        double most = 0;
        for (int step = 0; step <= Model.NSteps; ++step)
            most = std::max(most, std::abs(more * (Unit(Angle(step, link)) - Unit(Angle(0, link)))));
        const Check check = Found("Balanced mass centre");
        EXPECT_EQ(check.verdict, Verdict::kByDesign);
        EXPECT_NEAR(check.worst / (1000 * most / Mass()), 1, 1e-5);
        EXPECT_NEAR(check.expected / (4 * Centre_Rounding()), 1, 1e-5);
        EXPECT_EQ(check.meaning,
                  "The mass centre of links and counterweights stands still. The mass-radius products entered are not "
                  "quite those needed.");
        EXPECT_EQ(check.unit, "mm");
    }
}

TEST_F(Told_Of_Balance, AShakingForceThatIsAnotherIsToldBesideTheRoundingOfAllPins) {
    for (const int circuit : {1, 2}) {
        Take_Balance(circuit);
        const Check good = Found("Balanced shaking force");
        EXPECT_EQ(good.verdict, Verdict::kGood);
        EXPECT_EQ(good.unit, "N");
        EXPECT_EQ(
            good.meaning,
            "The shaking force with counterweights is what the momentum of links and counterweights and the loads "
            "leave.");
        const Acting own = Acting_At(8, Own_Weights{}, true), weights = Acting_At(8, Counterweights{}, false);
        double open = 0;
        for (const Ranges& pin : {own.F12, own.F14, weights.F12, weights.F14})
            open += pin.Off() + 4 * kHalf * pin.Size();
        for (const int axis : {0, 1})
            Expect_Told("Balanced shaking force", t.BalancedForce(8, 7, axis), 100, "step 8, 80 deg", open);
        // Weights by which the mass centre moves leave a force.
        Model.BerkMass(2) *= 1.5;
        Berkof_Calc(Model, Model.BerkMass, Model.BerkRadius);
        EXPECT_EQ(Found("Balanced shaking force").verdict, Verdict::kGood);
    }
}

TEST_F(Told_Of_Balance, StepsThatASolveHasNotReachedAreCounted) {
    for (const bool own : {true, false}) {
        Take_Balance(1);
        for (int step = 16; step <= Model.NSteps; ++step) {
            for (int row = 0; row <= 7; ++row)
                for (const int axis : {0, 1}) (own ? t.PinForce : t.BerkForce)(step, row, axis) = 0;
            for (int row = 0; row <= 3; ++row) (own ? t.LinkTorque : t.BerkTorque)(step, row) = 0;
        }
        t.Assembled(16) = false;
        const Check check = Found("Steps not balanced");
        EXPECT_EQ(check.verdict, Verdict::kByDesign);
        EXPECT_EQ(check.worst, 5);
        EXPECT_EQ(check.expected, 0);
        EXPECT_EQ(check.unit, "steps");
        EXPECT_EQ(check.where, "step 16, 120 deg");
        EXPECT_EQ(
            check.meaning,
            "Steps without the forces of counterweights. A solve stopped there, and the sums that follow lack what "
            "it has not found.");
        t.BalancedForce(15, 7, 0) += 100;
        EXPECT_EQ(Found("Balanced shaking force").where, "step 15, 115 deg");
        t.BalancedForce(17, 7, 0) += 1000;
        EXPECT_EQ(Found("Balanced shaking force").where, "step 15, 115 deg") << "nothing is checked behind";
    }
}

}  // namespace verlink::test
