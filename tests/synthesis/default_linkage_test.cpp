// The linkage with which the program starts.
#include "core/runs.h"
#include "shell/initialize.h"
#include "synthesis/examples.h"
#include "tests/core/linkages.h"

namespace verlink::test {

namespace {

class DefaultLinkage : public Fixture {
   protected:
    static double Stored(double value) { return Single(value); }
    static std::string Box(int index) { return platform::Screens::Get("frm_Inputnew").Text("txt_initial", index).Text; }
};

TEST_F(DefaultLinkage, HasItsNameAndGeometry) {
    Model.CamDriven = true;
    Model.Link1Angle = 12;
    Model.CircuitSign = 1;
    Testlinkage();
    EXPECT_EQ(Model.ModelName, "Testlink");
    EXPECT_EQ(Model.FigureTitle, "A Grashof Crank-Rocker Linkage");
    EXPECT_EQ(Model.Grashof_Code, "Y");
    EXPECT_EQ(Model.L1, Stored(2.667));
    EXPECT_EQ(Model.L2, Stored(1.115));
    EXPECT_EQ(Model.L3, 2.5);
    EXPECT_EQ(Model.L4, 2.5);
    EXPECT_EQ(Model.Rpa, Stored(1.697));
    EXPECT_EQ(Model.Delta, Stored(-92.66));
    EXPECT_EQ(Model.DeltaRad, Stored(Stored(-92.66) * 0.017453292522222223));
    EXPECT_EQ(Model.DeltaStr, "-92.66");
    EXPECT_EQ(Model.Link1X, Stored(2.667));
    EXPECT_EQ(Model.Link1Y, 0);
    EXPECT_EQ(Model.Link1Angle, 0);
    EXPECT_EQ(Model.CircuitIndex, 1);
    EXPECT_EQ(Model.CircuitSign, -1);
    EXPECT_EQ(Model.CircuitName, "Open");
    EXPECT_FALSE(Model.CamDriven);
    EXPECT_EQ(Model.LinkArray(2), Stored(1.115));
    EXPECT_EQ(Model.LinkArray(5), Stored(2.667));
}

TEST_F(DefaultLinkage, KeepsItsStartInDegreesAndTheOldStepInRadians) {
    Model.ThetaStepRad = 0.25;
    Testlinkage();
    EXPECT_EQ(Model.ThetaStartRad, 45);
    EXPECT_EQ(Model.ThetaEndRad, Stored(7.0685834715));
    EXPECT_EQ(Model.ThetaStepRad, 0.25);
    EXPECT_EQ(Model.ThetaStart, 45);
    EXPECT_EQ(Model.ThetaEnd, 405);
    EXPECT_EQ(Model.ThetaStep, 10);
    EXPECT_EQ(Model.ThetaStartStr, "45");
    EXPECT_EQ(Model.ThetaEndStr, "405");
    EXPECT_EQ(Model.ThetaStepStr, "10");
    EXPECT_EQ(Model.Omega2Input, 10);
}

TEST_F(DefaultLinkage, HasMasses) {
    Testlinkage();
    const double mass[] = {0.003, 0.006, 0.006}, inertia[] = {0.028, 0.22, 0.129}, distance[] = {0.5, 0.9, 1};
    const double angle[] = {0, -0.8726646261111112, 0};
    for (int link = 2; link <= 4; ++link) {
        EXPECT_EQ(Model.LinkMass(link), Stored(mass[link - 2]));
        EXPECT_EQ(Model.LinkInertia(link), Stored(inertia[link - 2]));
        EXPECT_EQ(Model.CG(link, 0), Stored(distance[link - 2]));
        EXPECT_EQ(Model.CG(link, 1), Stored(angle[link - 2]));
    }
    EXPECT_EQ(Model.ExtTorque(3), 0);
    EXPECT_EQ(Model.ExtTorque(4), 0);
}

TEST_F(DefaultLinkage, HasSynthesisDataThatReproduceIt) {
    Testlinkage();
    EXPECT_EQ(Model.P21x, Stored(-0.575));
    EXPECT_EQ(Model.P21y, Stored(0.803));
    EXPECT_EQ(Model.P31x, Stored(-1.928));
    EXPECT_EQ(Model.P31y, Stored(0.553));
    EXPECT_EQ(Model.SynAlpha2, Stored(-8.686));
    EXPECT_EQ(Model.SynAlpha3, Stored(-10.961));
    EXPECT_EQ(Model.SynBeta2, 45);
    EXPECT_EQ(Model.SynBeta3, 90);
    EXPECT_EQ(Model.SynGamma2, Stored(3.355));
    EXPECT_EQ(Model.SynGamma3, Stored(14.972));
    EXPECT_EQ(Model.O2x, Stored(-2.264));
    EXPECT_EQ(Model.O2y, Stored(-5.279));
    EXPECT_EQ(Model.O4x, Stored(7.111));
    EXPECT_EQ(Model.O4y, Stored(-5.279));
    EXPECT_EQ(Model.SynTheta, 30);
    EXPECT_EQ(Model.SynTheta2, 120);
    EXPECT_EQ(Model.SynPhi, 83);
    EXPECT_EQ(Model.SynSigma, Stored(100.77));
    EXPECT_EQ(Model.SynXi, Stored(194.98));
    EXPECT_EQ(Model.SynS, Stored(5.969534));
    EXPECT_EQ(Model.SynZ, Stored(4.3072429));
}

TEST_F(DefaultLinkage, ShowsItsLimitsInTheBoxesOfTheInputScreen) {
    Testlinkage();
    EXPECT_EQ(Box(0), "45");
    EXPECT_EQ(Box(1), "405");
    EXPECT_EQ(Box(2), "10");
    EXPECT_EQ(Box(3), "10");
}

TEST_F(DefaultLinkage, DropsWhatWasKnownOfAnotherAndLeavesTheUnits) {
    Model.Units = 4;
    Run_Holds();
    Forces_Hold();
    Balance_Holds();
    Model.LinkDriven = true;
    Testlinkage();
    EXPECT_EQ(Model.Units, 4);
    EXPECT_FALSE(Model.Calculated);
    EXPECT_FALSE(Model.DynamicsDone);
    EXPECT_FALSE(Model.BalanceDone);
    EXPECT_FALSE(Model.LinkDriven);
}

TEST_F(DefaultLinkage, ClosesOverItsWholeRange) {
    Initialize();
    Take_Angles(Model.ThetaStart, Model.ThetaEnd, Model.ThetaStep);
    Integer result;
    Calc_Setup(3, result);
    for (int step = 0; step <= 36; ++step) EXPECT_TRUE(Model.RunTable.Assembled(step)) << step;
    EXPECT_EQ(Model.Grashof_Code, "Y");
}

TEST_F(DefaultLinkage, ComesBackWithEveryInitializeWhateverWasThere) {
    Initialize();
    Model.ThetaZero = 30;
    Model.PolarCoords = Model.Parallelogram = true;
    Model.Link1AngleRad = 1;
    Model.CurrentStep = 7;
    Model.Units = 5;
    Model.Calctype = 1;
    Model.DesignNumber = 4;
    Model.ModelName = "Mine";
    Model.ThetaStepRad = 1;
    Initialize();
    EXPECT_EQ(Model.ThetaZero, 0);
    EXPECT_FALSE(Model.PolarCoords);
    EXPECT_FALSE(Model.Parallelogram);
    EXPECT_EQ(Model.Link1AngleRad, 0);
    EXPECT_EQ(Model.CurrentStep, 0);
    EXPECT_EQ(Model.Units, 1);
    EXPECT_EQ(Model.Calctype, 3);
    EXPECT_EQ(Model.DesignNumber, 1);
    EXPECT_EQ(Model.ModelName, "Model_1");
    EXPECT_EQ(Model.NSteps, -435);
}

}  // namespace

}  // namespace verlink::test
