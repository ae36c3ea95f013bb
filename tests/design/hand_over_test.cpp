// What the record, the screens of synthesis and the checks are given of a linkage found, against the linkage itself.
#include "design/hand_over.h"

#include "core/linkage_model.h"
#include "core/text.h"
#include "design/choices.h"
#include "design/wanted.h"
#include "dynamics/units.h"
#include "shell/initialize.h"
#include "tests/design/tasks.h"
#include "tests/support/fixture.h"

namespace verlink::test {

namespace {

using namespace design;

const double kInDegrees = 180 / std::acos(-1.0);

struct Handed_Over : Fixture {
    Handed_Over() {
        Initialize();
        Use_Units(5);
    }
    void Take(const std::vector<double>& turns, bool open = true) {
        // Lengths 160, 40, 140 and 120 in millimetres on a turned ground.
        known = Crank_Rocker_At({10, 20}, std::polar(40.0, 0.3), open);
        task = *Task_Of(known, turns);
        task.units = 5;
        solution = {Linkage_Of(known), Judge(task).Of(Linkage_Of(known)), {}, 1};
        ASSERT_TRUE(solution.judgement.Good());
    }
    void Hand() { Hand_Over(task, solution, Model); }
    /// Of link 4, in degrees, with the crank turned so far.
    double Rocker_Turn(double turn) const {
        const Place place = *known.At(turn), first = *known.At(0);
        const Point joint = place.at + (known.B - known.P) * std::polar(1.0, (place.angle - first.angle) / kInDegrees);
        return std::arg((joint - known.O4) / (known.B - known.O4)) * kInDegrees;
    }
    static void Expect_Vector(double x, double y, Point millimetres) {
        EXPECT_NEAR(x, millimetres.real() / 1000, 1e-7);
        EXPECT_NEAR(y, millimetres.imag() / 1000, 1e-7);
    }
    Known known;
    Task task;
    Solution solution;
};

/// Turns that specified pivots find.
Choices Findable() {
    Choices c{};
    c.beta2 = 30;
    c.beta3 = 60;
    c.gamma2 = 40;
    c.gamma3 = 80;
    c.alpha3 = 10;
    return c;
}

}  // namespace

TEST_F(Handed_Over, TheLinkageHasItsLengthsAnglesAndCircuitInTheStoredUnit) {
    for (const bool open : {true, false}) {
        Take({0, 0.8, 2}, open);
        Model.PolarCoords = false;
        Model.Synthesized = false;
        Hand();
        EXPECT_NEAR(Model.L1, 0.16, 1e-8);
        EXPECT_NEAR(Model.L2, 0.04, 1e-8);
        EXPECT_NEAR(Model.L3, 0.14, 1e-8);
        EXPECT_NEAR(Model.L4, 0.12, 1e-8);
        EXPECT_NEAR(Model.Rpa, 0.6 * 0.14, 1e-8);
        EXPECT_NEAR(Model.Delta, 0.7 * kInDegrees, 1e-5);
        EXPECT_NEAR(Model.Link1Angle, 0.3 * kInDegrees, 1e-5);
        EXPECT_EQ(Model.CircuitIndex, open ? 1 : 2);
        EXPECT_TRUE(Model.PolarCoords);
        EXPECT_TRUE(Model.Synthesized);
    }
}

TEST_F(Handed_Over, TheRunGoesFromTheFirstPositionToTheLastIn36Steps) {
    const double first = 90 + 0.3 * kInDegrees;
    const auto expect = [](double start, double end, double speed) {
        EXPECT_EQ(Model.Calctype, 3);
        EXPECT_EQ(Model.NSteps, 36);
        EXPECT_NEAR(Model.ThetaStart, start, 1e-4);
        EXPECT_NEAR(Model.ThetaEnd, end, 1e-4);
        EXPECT_NEAR(Model.ThetaStep, (end - start) / 36, 1e-5);
        EXPECT_NEAR(Model.ThetaStartRad, start / kInDegrees, 1e-6);
        EXPECT_NEAR(Model.ThetaEndRad, end / kInDegrees, 1e-6);
        EXPECT_NEAR(Model.ThetaStepRad, (end - start) / kInDegrees / 36, 1e-7);
        EXPECT_EQ(Model.ThetaStartStr, Text_Of(Model.ThetaStart));
        EXPECT_EQ(Model.ThetaEndStr, Text_Of(Model.ThetaEnd));
        EXPECT_EQ(Model.ThetaStepStr, Text_Of(Model.ThetaStep));
        EXPECT_EQ(Model.Omega2Input, speed);
        EXPECT_EQ(Model.Omega2, speed);
    };
    Model.Calctype = 1;
    Model.Omega2Input = 12;
    Model.TurnedOmega2 = 0;
    Take({0, 0.8, 2});
    Hand();
    expect(first, first + 2 * kInDegrees, 12);
    EXPECT_EQ(Model.TurnedOmega2, 0);
    // To the right, past the direction of x: limits ascend within a turn, and it is kept who turned the speed.
    Take({0, -0.8, -2});
    Hand();
    expect(first + 360 - 2 * kInDegrees, first + 360, -12);
    EXPECT_EQ(Model.TurnedOmega2, -12);
    Model.TurnedOmega2 = 7;
    Hand();
    expect(first + 360 - 2 * kInDegrees, first + 360, -12);
    EXPECT_EQ(Model.TurnedOmega2, 7) << "a speed that was negative before has not been turned";
    Model.Omega2Input = 0.5;
    Hand();
    EXPECT_EQ(Model.TurnedOmega2, -0.5) << "however slow it was";
    Model.Omega2Input = 0;
    Hand();
    EXPECT_EQ(Model.TurnedOmega2, -0.5) << "nor has one that stood";
    Model.Omega2Input = 12;
    Take({0, 0.8, 2});
    Hand();
    expect(first, first + 2 * kInDegrees, 12);
}

TEST_F(Handed_Over, TheSynthesisHasTheFirstThreePositionsAndBothDyads) {
    for (const bool pivots : {false, true}) {
        Take({0, 0.8, 2});
        if (pivots) {
            task.left.fixed = {Area::Is::kPoints, {}, {}, {known.O2}};
            task.right.fixed = {Area::Is::kPoints, {}, {}, {known.O4}};
        }
        Hand();
        const auto& m = Model;
        EXPECT_EQ(m.SynPositions, pivots ? 3 : 2);
        EXPECT_EQ(m.SpecifiedPivots, pivots);
        const auto& p = task.positions;
        const Point origin = pivots ? Point() : p[0].at;
        Expect_Vector(m.P1x, m.P1y, p[0].at - origin);
        Expect_Vector(m.P21x, m.P21y, p[1].at - p[0].at);
        Expect_Vector(m.P31x, m.P31y, p[2].at - p[0].at);
        EXPECT_NEAR(m.SynAlpha2, p[1].angle - p[0].angle, 1e-5);
        EXPECT_NEAR(m.SynAlpha3, p[2].angle - p[0].angle, 1e-5);
        EXPECT_NEAR(m.SynBeta2, 0.8 * kInDegrees, 1e-4);
        EXPECT_NEAR(m.SynBeta3, 2 * kInDegrees, 1e-4);
        EXPECT_NEAR(m.SynGamma2, Rocker_Turn(0.8), 1e-4);
        EXPECT_NEAR(m.SynGamma3, Rocker_Turn(2), 1e-4);
        Expect_Vector(m.SynWx, m.SynWy, known.A - known.O2);
        Expect_Vector(m.SynZx, m.SynZy, known.P - known.A);
        Expect_Vector(m.SynUx, m.SynUy, known.B - known.O4);
        Expect_Vector(m.SynSx, m.SynSy, known.P - known.B);
        Expect_Vector(m.O2x, m.O2y, known.O2 - origin);
        Expect_Vector(m.O4x, m.O4y, known.O4 - origin);
        const auto polar = [](double length, double degrees, Point vector) {
            EXPECT_NEAR(length, std::abs(vector) / 1000, 1e-7);
            EXPECT_NEAR(std::remainder(degrees - std::arg(vector) * kInDegrees, 360), 0, 1e-3);
        };
        polar(m.SynW, m.SynTheta, known.A - known.O2);
        polar(m.SynZ, m.SynPhi, known.P - known.A);
        polar(m.SynU, m.SynSigma, known.B - known.O4);
        polar(m.SynS, m.SynXi, known.P - known.B);
    }
}

TEST_F(Handed_Over, OfTwoPositionsTheMethodThatTakesAVectorIsKeptAndAThirdIsLeft) {
    Model.P31x = 0.75;
    Model.SynAlpha3 = 11;
    Model.SynBeta3 = 22;
    for (const int method : {0, 1, 2, 3}) {
        Model.SynMethod = method;
        Take({0, 0.8});
        task.left.fixed = {Area::Is::kPoints, {}, {}, {known.O2}};
        task.right.fixed = {Area::Is::kPoints, {}, {}, {known.O4}};
        Hand();
        EXPECT_EQ(Model.SynPositions, 1);
        EXPECT_FALSE(Model.SpecifiedPivots);
        EXPECT_EQ(Model.SynMethod, method == 2 ? 2 : 1);
        EXPECT_EQ(Model.P1x, 0);
        EXPECT_EQ(Model.P31x, 0.75);
        EXPECT_EQ(Model.SynAlpha3, 11);
        EXPECT_EQ(Model.SynBeta3, 22);
        EXPECT_NEAR(Model.SynBeta2, 0.8 * kInDegrees, 1e-4);
        const Choices two = Choices_Of(task, solution);
        EXPECT_EQ(two.P31, Point());
        EXPECT_EQ(two.alpha3, 0);
        EXPECT_EQ(two.beta3, 0);
        EXPECT_EQ(two.gamma3, 0);
    }
}

TEST_F(Handed_Over, ChoicesSolveAgainToTheDyadsAndATenthMoreIsSeenAsThat) {
    Take({0, 0.8, 2});
    const Choices own = Choices_Of(task, solution);
    EXPECT_EQ(own.first, task.positions[0].at);
    EXPECT_FALSE(own.specified);
    for (const bool left : {false, true})
        for (const bool right : {false, true}) {
            Task given = task;
            if (left) given.left.fixed = {Area::Is::kPoints, {}, {}, {known.O2}};
            if (right) given.right.fixed = {Area::Is::kPoints, {}, {}, {known.O4}};
            EXPECT_EQ(Choices_Of(given, solution).specified, left && right);
        }
    double (*const ways[])(const Choices&) = {Off_By_Turns, Off_By_Directions, Off_By_Arms};
    for (const auto& way : ways) {
        EXPECT_LT(way(own), 1e-5);
        // The arm at the coupler is the longest of W, Z and S; U, with 120, is longer.
        Choices other = own;
        other.W *= 1.1;
        EXPECT_NEAR(way(other), 0.1 * 40 / 120, 1e-4);
        other = own;
        other.U *= 0.95;
        EXPECT_NEAR(way(other), 0.05 * 120 / std::max(114.0, std::abs(own.S)), 1e-4);
    }
    Choices other = own;
    other.Z *= 1.1;
    EXPECT_NEAR(Off_By_Turns(other), 0.1 * std::abs(own.Z) / 120, 1e-4);
    EXPECT_NEAR(Off_By_Directions(other), 0.1 * std::abs(own.Z) / 120, 1e-4);
    other = own;
    other.S *= 0.9;
    EXPECT_NEAR(Off_By_Turns(other), 0.1 * std::abs(own.S) / 120, 1e-4);
    EXPECT_NEAR(Off_By_Directions(other), 0.1 * std::abs(own.S) / 120, 1e-4);
    other = own;
    other.beta2 = own.alpha2;
    other.beta3 = own.alpha3;
    EXPECT_TRUE(std::isinf(Off_By_Turns(other)));
}

TEST_F(Handed_Over, WhatSpecifiedPivotsDoNotFindIsSaidOfTheLink) {
    const std::string beyond = " deg to position 2, which specified pivots find between -90 and 180 deg alone";
    const std::string little = " deg to position 2, too little for specified pivots to find it";
    EXPECT_EQ(Trouble_By_Pivots(Findable()), "");
    const auto left = [](double turn) {
        Choices c = Findable();
        c.beta2 = turn;
        return Trouble_By_Pivots(c);
    };
    EXPECT_EQ(left(-89.61), "the left link turns by -89.61" + beyond);
    EXPECT_EQ(left(179.6), "the left link turns by 179.6" + beyond);
    EXPECT_EQ(left(270.256), "the left link turns by 270.26" + beyond);
    EXPECT_EQ(left(0.4), "the left link turns by 0.4" + little);
    EXPECT_EQ(left(359.6), "the left link turns by 359.6" + little);
    for (const double turn : {-89.5, -89.4, -0.6, -0.5, 0.5, 0.6, 179.4, 179.5, 280.0})
        EXPECT_EQ(left(turn), "") << turn;
    Choices c = Findable();
    c.gamma2 = -0.4;
    EXPECT_EQ(Trouble_By_Pivots(c), "the right link turns by -0.4" + little);
    const std::string with = " turns with the body to position 3, which specified pivots pass over";
    for (const double apart : {-360.09, -0.09, 0.09, 359.95}) {
        c = Findable();
        c.beta3 = c.alpha3 + apart;
        EXPECT_EQ(Trouble_By_Pivots(c), "the left link" + with) << apart;
        c = Findable();
        c.gamma3 = c.alpha3 + apart;
        EXPECT_EQ(Trouble_By_Pivots(c), "the right link" + with) << apart;
    }
    for (const double apart : {-0.11, 0.11}) {
        c = Findable();
        c.beta3 = c.gamma3 = c.alpha3 + apart;
        EXPECT_EQ(Trouble_By_Pivots(c), "") << apart;
    }
    c = Findable();
    c.alpha3 = 0;
    c.beta3 = 0.1;
    EXPECT_EQ(Trouble_By_Pivots(c), "") << "a tenth of a degree itself is apart";
}

TEST_F(Handed_Over, PositionsAreToldByWhatBecameOfThem) {
    using Is = Wanted::Is;
    Use_Units(1);
    const auto wanted = [](int number, Is is, double off, double askew) {
        Wanted w;
        w.number = number;
        w.is = is;
        w.off = off;
        w.askew = askew;
        return w;
    };
    using Lines = std::vector<std::string>;
    EXPECT_EQ(design::Words_Of(Model, {wanted(1, Is::kPassed, 0.0126, 0.001), wanted(2, Is::kMissed, 0.5, 1.256),
                                       wanted(3, Is::kPassed, 0.0004, 0.02), wanted(4, Is::kOnOtherCircuit, 3, 4),
                                       wanted(5, Is::kMissed, HUGE_VAL, HUGE_VAL)}),
              (Lines{"positions 1, 3 passed within 0.013 in, 0.02 deg", "position 4 on the other circuit",
                     "position 2 missed by 0.5 in, 1.26 deg", "position 5 missed"}));
    EXPECT_EQ(design::Words_Of(Model, {wanted(1, Is::kPassed, 0.0004, 0.004), wanted(2, Is::kBeyondRun, 0.5, 0),
                                       wanted(3, Is::kBeyondRun, 0.5, 0)}),
              (Lines{"position 1 passed", "positions 2, 3 beyond the run"}));
    EXPECT_EQ(design::Words_Of(Model, {wanted(1, Is::kPassed, 0.001, 0)}),
              Lines{"position 1 passed within 0.001 in, 0 deg"});
    Use_Units(5);
    EXPECT_EQ(design::Words_Of(Model, {wanted(1, Is::kPassed, 0, 0.01)}),
              Lines{"position 1 passed within 0 mm, 0.01 deg"});
    EXPECT_EQ(design::Words_Of(Model, {wanted(1, Is::kMissed, 0.0126, 0)}),
              Lines{"position 1 missed by 12.6 mm, 0 deg"});
}

}  // namespace verlink::test
