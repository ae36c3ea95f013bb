// Each check is good for a good run, and fails when one number is disturbed.
#include <algorithm>
#include <functional>
#include <vector>

#include "tests/checks/linkages.h"

namespace verlink::test {

namespace {

class Verdicts : public Random_Linkages {
   protected:
    Verdicts() { Take_All(); }

    /// The crank-rocker with masses and a load, solved, balanced and transformed.
    void Take_All() {
        auto& m = Model;
        Enter_Linkage(Road::kBoxes, [] {
            m.PolarCoords = true;
            m.Link1Angle = 0;
        });
        Take_Angles(0, 360, 5);
        m.ModuloMode = "abs";
        m.Omega2Input = 10;
        Integer result;
        Notes notes(desktop, platform::Answer::kIgnore);
        Calc_Setup(3, result);
        m.ExtForceMag(4) = 3;
        m.ExtForceAng(4) = 40;
        m.ForceDist4 = 0.5;
        m.ExtTorque(3) = 2;
        verlink::Solve_Forces(m);
        Default_Weights(m);
        Berkof_Calc(m, m.BerkMass, m.BerkRadius);
        Find_Cognates();
        Select_Variable("Omega4", 1);
        Set_Component("X", 1);
        m.FFTUnitLabel = "rad/sec";
        Do_DFT(m.NSteps);
        Transform_Holds();
    }
    /// Good, or what the design leaves; then failing, where it was disturbed.
    void Expect_To_See(const std::string& name, const std::function<void()>& disturb, const std::string& where = "",
                       Verdict before = Verdict::kGood) {
        SCOPED_TRACE(name);
        const Check good = Found(name);
        EXPECT_EQ(good.verdict, before) << good.worst << " of " << good.expected;
        disturb();
        const Check bad = Found(name);
        EXPECT_EQ(bad.verdict, Verdict::kFails) << bad.worst << " of " << bad.expected;
        EXPECT_GT(bad.worst, bad.expected);
        EXPECT_NE(bad.where.find(where), std::string::npos) << bad.where;
        EXPECT_TRUE(Any_Fails(Checks_Of(Model)));
    }
    RunResults& table = Model.RunTable;
    static constexpr double kSlightly = 1.0001;
};

}  // namespace

TEST_F(Verdicts, AllAreGoodOrByDesignAtFirst) {
    for (const Check& check : Checks_Of(Model)) {
        const bool by_design = check.name == "Shaking moment" || check.name == "Inverse of the transform" ||
                               check.name.ends_with(" of mass centres");  // of the counterweights, after a balance
        EXPECT_EQ(check.verdict, by_design ? Verdict::kByDesign : Verdict::kGood)
            << check.name << " " << check.worst << " of " << check.expected;
        EXPECT_FALSE(check.meaning.empty());
        EXPECT_FALSE(check.unit.empty()) << check.name;
    }
}

TEST_F(Verdicts, LoopClosureSeesAJointMoved) {
    Expect_To_See(
        "Loop closure", [&] { table.PointXY(17, 1, 0) *= kSlightly; }, "step 17, 85 deg");
}

TEST_F(Verdicts, PositionsSeeTheOtherCircuit) {
    Expect_To_See("Positions", [] {
        Model.CircuitIndex = 2;
        Set_Circuit(Model.CircuitIndex, Model.CircuitSign, Model.CircuitName);
    });
}

TEST_F(Verdicts, AnglesSeeALinkTurned) {
    Expect_To_See(
        "Angles", [&] { table.Theta(20, 2) += 0.001; }, "step 20, 100 deg, link 4");
}

TEST_F(Verdicts, AnglesSeeATransmissionAngle) {
    Expect_To_See(
        "Angles", [&] { table.Theta(20, 3) += 0.01; }, "transmission angle");
}

TEST_F(Verdicts, AngularSpeedsSeeOne) {
    Expect_To_See(
        "Angular speeds", [&] { table.Omega(5, 1) *= kSlightly; }, "step 5, 25 deg, link 3");
}

TEST_F(Verdicts, VelocitiesSeeOne) {
    Expect_To_See(
        "Velocities", [&] { table.VelXY(30, 2, 1) += 0.001; }, "step 30, 150 deg, P");
}

TEST_F(Verdicts, VelocitiesByDifferencesSeeOne) {
    Expect_To_See(
        "Velocities by differences", [&] { table.VelXY(30, 1, 1) += 0.05; }, "step 30, 150 deg, B");
}

TEST_F(Verdicts, AccelerationsByDifferencesSeeOne) {
    Expect_To_See(
        "Accelerations by differences", [&] { table.AccXY(40, 2, 0) += 2; }, "step 40, 200 deg, P");
}

TEST_F(Verdicts, AngularAccelerationsSeeOne) {
    Expect_To_See(
        "Angular accelerations", [&] { table.Alpha(5, 2) += 0.01; }, "step 5, 25 deg, link 4");
}

TEST_F(Verdicts, AccelerationsSeeEachRow) {
    const char* rows[] = {"A", "B", "P", "B along and across link 4", "P along and across link 3"};
    for (int row = 0; row <= 4; ++row) {
        const Single kept = table.AccXY(8, row, 1);
        Expect_To_See(
            "Accelerations", [&] { table.AccXY(8, row, 1) += 0.05; }, rows[row]);
        table.AccXY(8, row, 1) = kept;
    }
}

TEST_F(Verdicts, RatiosSeeOne) {
    Expect_To_See(
        "Ratio of speeds", [&] { table.OmegaRatio(11) += 0.0001; }, "step 11, 55 deg");
    Expect_To_See(
        "Mechanical advantage", [&] { table.MechAdvantage(11) *= 1.001; }, "step 11, 55 deg");
}

TEST_F(Verdicts, PowerSeesADrivingTorque) {
    Expect_To_See(
        "Power in and out", [&] { table.LinkTorque(33, 0) += 0.01; }, "step 33, 165 deg");
}

TEST_F(Verdicts, PowerSeesALoadThatIsAnother) {
    Expect_To_See("Power in and out", [&] { Model.ExtTorque(3) = 2.01; });
}

TEST_F(Verdicts, PinForcesSeeEachPin) {
    for (int row = 0; row <= 6; ++row) {
        const Single kept = table.PinForce(33, row, 0);
        Expect_To_See(
            "Pin forces", [&] { table.PinForce(33, row, 0) += 0.01; }, "step 33, 165 deg");
        table.PinForce(33, row, 0) = kept;
    }
}

TEST_F(Verdicts, ShakingForceAndMomentSeeOne) {
    Expect_To_See(
        "Shaking force", [&] { table.PinForce(3, 7, 0) += 0.001; }, "step 3, 15 deg, beside the ground's pins");
    Expect_To_See(
        "Shaking moment", [&] { table.LinkTorque(3, 3) += 0.01; }, "step 3, 15 deg", Verdict::kByDesign);
}

TEST_F(Verdicts, NetTorquesSeeOne) {
    Expect_To_See(
        "Net torques", [&] { table.LinkTorque(3, 2) += 0.01; }, "step 3, 15 deg, link 4");
}

TEST_F(Verdicts, MassCentresSeeOne) {
    verlink::Solve_Forces(Model);  // whose mass centres are the links' own
    Expect_To_See(
        "Velocities of mass centres", [&] { table.VelXY(3, 4, 0) += 0.001; }, "step 3, 15 deg, link 4");
    Expect_To_See(
        "Accelerations of mass centres", [&] { table.AccXY(3, 5, 0) += 0.05; }, "step 3, 15 deg, link 3");
}

TEST_F(Verdicts, BalanceSeesAWeightThatIsAnotherMass) {
    Expect_To_See("Balanced shaking force", [&] { Model.LinkMass(3) *= 1.001; });
}

TEST_F(Verdicts, BalanceSeesAMassCentreThatMoves) {
    Expect_To_See("Balanced mass centre", [&] { Model.CG(3, 0) *= 1.001; });
}

TEST_F(Verdicts, WeightsThatAreNotThoseNeededAreByDesign) {
    Model.BerkMass(2) *= 1.01;
    const Check check = Found("Balanced mass centre");
    EXPECT_EQ(check.verdict, Verdict::kByDesign);
    EXPECT_GT(check.worst, 100 * check.expected);
    EXPECT_NE(check.meaning.find("are not quite those needed"), std::string::npos);
}

TEST_F(Verdicts, CognatesSeeALengthAnAngleAndAnotherLinkage) {
    for (const int item : {1, 2, 3, 4, 5, 6})
        for (const int n : {2, 3}) {
            const Single kept = Model.Cognates(n, item);
            Expect_To_See(
                "Cognates", [&] { Model.Cognates(n, item) *= kSlightly; }, "cognate " + std::to_string(n));
            Model.Cognates(n, item) = kept;
        }
    Expect_To_See("Cognates", [&] { Model.Cognates(1, 2) *= 1.1; });
}

TEST_F(Verdicts, TheTransformSeesAHarmonic) {
    EXPECT_EQ(Found("Inverse of the transform").where, "Omega4");
    Expect_To_See(
        "Inverse of the transform", [] { Model.FFTResult(1, 0) += 0.05; }, "", Verdict::kByDesign);
}

TEST_F(Verdicts, TheTransformSeesAMagnitude) {
    Expect_To_See(
        "Inverse of the transform", [] { Model.FFTResult(1, 2) += 0.05; }, "", Verdict::kByDesign);
}

TEST_F(Verdicts, WhatIsNoNumberFails) {
    // Nothing finite comes out of an infinite length.
    table.PointXY(4, 1, 0) = 3e38;
    EXPECT_EQ(Found("Loop closure").verdict, Verdict::kFails);
}

}  // namespace verlink::test
