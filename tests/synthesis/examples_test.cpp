// The built-in linkages beyond the default one: what each sets, and what it leaves.
#include "synthesis/examples.h"

#include <vector>

#include "synthesis/cognates.h"
#include "synthesis/dyads.h"
#include "tests/core/linkages.h"
#include "tests/support/reference.h"
#include "tests/synthesis/synthesis_fixture.h"

namespace verlink::test {

namespace {

/// The synthesis data, in the order of the tables below.
std::vector<double> Dyads() {
    return {Model.P21x,      Model.P21y,     Model.P31x,     Model.P31y,      Model.SynAlpha2,
            Model.SynAlpha3, Model.SynBeta2, Model.SynBeta3, Model.SynGamma2, Model.SynGamma3,
            Model.O2x,       Model.O2y,      Model.O4x,      Model.O4y,       Model.SynTheta,
            Model.SynTheta2, Model.SynPhi,   Model.SynSigma, Model.SynXi};
}

struct Examples : Synthesis {
    struct Lengths {
        double L1, L2, L3, L4, Rpa, Delta;
    };
    struct Words {
        const char *name, *title, *code, *circuit;
    };

    static void Expect_Linkage(const Words& words, const Lengths& lengths) {
        EXPECT_EQ(Model.ModelName, words.name);
        EXPECT_EQ(Model.FigureTitle, words.title);
        EXPECT_EQ(Model.Grashof_Code, words.code);
        EXPECT_EQ(Model.CircuitName, words.circuit);
        EXPECT_EQ(Model.CircuitIndex, Model.CircuitName == "Open" ? 1 : 2);
        EXPECT_EQ(Model.CircuitSign, Model.CircuitName == "Open" ? -1 : 1);
        EXPECT_EQ(Model.L1, Stored(lengths.L1));
        EXPECT_EQ(Model.L2, Stored(lengths.L2));
        EXPECT_EQ(Model.L3, Stored(lengths.L3));
        EXPECT_EQ(Model.L4, Stored(lengths.L4));
        EXPECT_EQ(Model.Rpa, Stored(lengths.Rpa));
        EXPECT_EQ(Model.Delta, Stored(lengths.Delta));
        EXPECT_EQ(Model.DeltaRad, Stored(Model.Delta * kDegToRad));
        EXPECT_EQ(Model.DeltaStr, Text_Of(Model.Delta));
        EXPECT_EQ(Model.Link1Angle, 0);
        EXPECT_FALSE(Model.CamDriven);
        EXPECT_EQ(Model.LinkArray(2), Model.L2);
        EXPECT_EQ(Model.LinkArray(0), Model.Rpa);
    }
    static void Expect_Range(double speed, double start, double end, double step) {
        EXPECT_EQ(Model.Omega2Input, speed);
        EXPECT_EQ(Model.ThetaStartStr, Text_Of(Single(start)));
        EXPECT_EQ(Model.ThetaEndStr, Text_Of(Single(end)));
        EXPECT_EQ(Model.ThetaStepStr, Text_Of(Single(step)));
        EXPECT_EQ(Model.ThetaStartRad, Stored(start * kDegToRad));
        EXPECT_EQ(Model.ThetaEndRad, Stored(end * kDegToRad));
        EXPECT_EQ(Model.ThetaStepRad, step);  // in degrees
        for (int box = 0; box < 3; ++box)
            EXPECT_EQ(Input_Box("txt_initial", box),
                      Text_Of(Single(std::vector{start, end, step}[static_cast<std::size_t>(box)])));
        EXPECT_EQ(Input_Box("txt_initial", 3), Text_Of(Single(speed)));
    }
    static void Expect_Dyads(const std::vector<double>& expected) {
        const auto found = Dyads();
        ASSERT_EQ(found.size(), expected.size());
        for (std::size_t i = 0; i < found.size(); ++i) EXPECT_EQ(found[i], Stored(expected[i])) << i;
    }
    static void Expect_Pivot_Along_X() {
        EXPECT_EQ(Model.Link1X, Model.L1);
        EXPECT_EQ(Model.Link1Y, 0);
    }
    static void Expect_Masses(const std::vector<double>& masses, const std::vector<double>& distances,
                              const std::vector<double>& angles, const std::vector<double>& inertias) {
        for (int link = 2; link <= 4; ++link) {
            const auto i = static_cast<std::size_t>(link - 2);
            EXPECT_EQ(Model.LinkMass(link), Stored(masses[i])) << link;
            EXPECT_EQ(Model.CG(link, 0), Stored(distances[i])) << link;
            EXPECT_EQ(Model.CG(link, 1), Stored(angles[i])) << link;
            EXPECT_EQ(Model.LinkInertia(link), Stored(inertias[i])) << link;
        }
    }
    /// What another linkage may have left.
    static void Spoil() {
        Model.Link1Angle = 25;
        Model.Link1AngleRad = 0.4;
        Model.Link1X = 7;
        Model.Link1Y = 3;
        Model.CamDriven = Model.Parallelogram = true;
        Model.CircuitSign = 1;
        Model.CircuitName = "Crossed";
        Model.ThetaStart = 1;
        Model.ThetaEnd = 2;
        Model.ThetaStep = 3;
        for (int link = 2; link <= 4; ++link) {
            Model.LinkMass(link) = Model.LinkInertia(link) = 9;
            Model.CG(link, 0) = Model.CG(link, 1) = 9;
        }
        Model.ExtTorque(3) = Model.ExtTorque(4) = 5;
    }
    /// Of the linkage before, and of the boxes.
    static void Spoil_Dyads_And_Boxes() {
        for (Single* datum :
             {&Model.P21x, &Model.SynAlpha3, &Model.SynGamma2, &Model.O4y, &Model.SynTheta, &Model.SynPhi})
            *datum = 77;
        for (int box = 0; box < 4; ++box) platform::Screens::Get("frm_Inputnew").Text("txt_initial", box).Text = "77";
    }
    static void Expect_Numbers_Left() {
        EXPECT_EQ(Model.ThetaStart, 1);
        EXPECT_EQ(Model.ThetaEnd, 2);
        EXPECT_EQ(Model.ThetaStep, 3);
    }
};

const char kCrankRocker[] = "A Grashof Crank-Rocker Linkage";
const std::vector<double> kTestDyads{-0.575, 0.803,  -1.928, 0.553,  -8.686, -10.961, 45, 90,     3.355, 14.972,
                                     -2.264, -5.279, 7.111,  -5.279, 30,     120,     83, 100.77, 194.98};

}  // namespace

TEST_F(Examples, TheGrashofTestLinkage) {
    Spoil();
    Spoil_Dyads_And_Boxes();
    Model.SynS = Model.SynZ = 0;
    Testlinkage_old();
    Expect_Linkage({"Testlink", kCrankRocker, "Y", "Open"}, {18, 6, 16, 12, 14.42, 33.7});
    Expect_Range(10, 45, 405, 10);
    Expect_Dyads(kTestDyads);
    Expect_Pivot_Along_X();
    Expect_Masses({0.003, 0.006, 0.006}, {3.36, 9.17, 4.05},
                  {0.46600291034333335, 0.2705260340944444, -0.17453292522222222}, {0.028, 0.22, 0.129});
    EXPECT_EQ(Model.ExtTorque(3), 0);
    EXPECT_EQ(Model.ExtTorque(4), 0);
    EXPECT_EQ(Model.SynS, Stored(5.969534));
    EXPECT_EQ(Model.SynZ, Stored(4.3072429));
    EXPECT_EQ(Model.Link1AngleRad, 0);
    EXPECT_FALSE(Model.Parallelogram);
    Expect_Numbers_Left();
}

TEST_F(Examples, TheSynthesisTestLinkageBringsItsPivotAndLeavesTheVectorsOfTheRightDyad) {
    Spoil();
    Spoil_Dyads_And_Boxes();
    Model.SynSigma = 1;
    Model.SynXi = 2;
    Model.SynS = 3;
    Model.SynZ = 4;
    Testlinkagevlnk();
    Expect_Linkage({"Testlink", kCrankRocker, "Y", "Open"}, {9.375, 2, 8.625, 7, 4.376, 39.5});
    Expect_Range(10, 0, 360, 10);
    auto dyads = kTestDyads;
    dyads[17] = 1;
    dyads[18] = 2;
    Expect_Dyads(dyads);
    EXPECT_EQ(Model.SynS, 3);
    EXPECT_EQ(Model.SynZ, 4);
    EXPECT_EQ(Model.Link1X, 9.375);
    EXPECT_EQ(Model.Link1Y, 0);
    Expect_Numbers_Left();
}

TEST_F(Examples, TheSynthesisTestLinkageHasTheCouplersMassAtItsPoint) {
    Spoil();
    Testlinkagevlnk();
    Expect_Masses({0.003, 0.01, 0.006}, {1, 4.376, 3.5}, {0, Model.DeltaRad, 0},
                  {2 * Stored(0.003), 2 * Stored(0.01), 2 * Stored(0.006)});
    EXPECT_EQ(Model.ExtTorque(3), 5);  // left
    EXPECT_EQ(Model.ExtTorque(4), 0);
}

TEST_F(Examples, DefaultMassesReachAsFarAsTheLinksThatAreAskedFor) {
    Spoil();
    Set_Default_Masses(3);
    EXPECT_EQ(Model.LinkMass(4), Stored(0.006));
    EXPECT_EQ(Model.LinkInertia(3), Stored(2 * Stored(0.01)));
    EXPECT_EQ(Model.LinkInertia(4), 9);
    EXPECT_EQ(Model.CG(4, 0), 9);
    EXPECT_EQ(Model.CG(2, 0), Stored(0.5 * Stored(1.115)));
    desktop.Expect_Message("Error 9   (Subscript out of range)  has occurred in Set_Default_Masses\r\n\r\n");
    Set_Default_Masses(5);
}

TEST_F(Examples, RobertsLinkage) {
    Spoil();
    Roberts();
    Expect_Linkage({"Roberts", "Roberts Straight Line Linkage - Non-Grashof Triple Rocker", "N", "Open"},
                   {2, 1, 1, 1, 1.5, -70.529});
    Expect_Range(1, 49, 69, 2);
    EXPECT_EQ(Model.ThetaStartRad, Stored(0.8552113335888889));
    Expect_Dyads({-0.244, 0.013, -0.542, 0.029, -11.34, -22.19, 11.97, 23.97, 2.78, 9.96, -1.712, 0, 0.288, 0, 29, 75,
                  -60, 101.5, -88.73});
    Expect_Pivot_Along_X();
    Expect_Numbers_Left();
    EXPECT_EQ(Model.LinkMass(2), 9);
}

TEST_F(Examples, WattsLinkageLeavesTheSynthesisDataOfTheLinkageBeforeIt) {
    Roberts();
    auto dyads = Dyads();
    Watts();
    Expect_Linkage({"Watts", "Watts Straight Line Linkage - Non-Grashof Triple Rocker", "N", "Open"},
                   {2.5, 1.25, 0.625, 1.25, 0.3125, 0});
    Expect_Range(1, -40, 20, 2);
    dyads[15] = 20;  // but for one
    Expect_Dyads(dyads);
    Expect_Pivot_Along_X();
}

TEST_F(Examples, ChebychevsLinkageIsTheOneOnTheCrossedCircuit) {
    for (const auto load : {Testlinkage, Testlinkagevlnk, Testlinkage_old, Roberts, Watts, Hoekens}) {
        load();
        EXPECT_EQ(Model.CircuitName, "Open");
    }
    Chebychev();
    Expect_Linkage({"Chebychv", "Chebychev Straight Line Linkage - Grashof Double Rocker", "Y", "Crossed"},
                   {2, 2.5, 1, 2.5, 0.5, 0});
    Expect_Range(1, 37, 90, 1);
    Expect_Dyads({-1.12, 0, -1.784, -0.003, 97.41, 158.18, 26, 52, 36.05, 43.89, -1.784, -2.003, 0.22, -2.003, 38, 90,
                  0, 99.29, -68.46});
    Expect_Pivot_Along_X();
}

TEST_F(Examples, ChebychevsRangeIsHeldByItsTextsAlone) {
    Spoil();
    Chebychev();
    Expect_Numbers_Left();
    EXPECT_EQ(Model.ThetaStartStr, "37");
}

TEST_F(Examples, HoekensPointIsOnTheCouplersExtensionBeyondTheLink) {
    Use_Units(5);
    Hoekens();
    Expect_Linkage({"Hoeckens", "Hoecken Straight Line Linkage - Grashof Crank Rocker", "Y", "Open"},
                   {2, 1, 2.5, 2.5, 5, 0});
    EXPECT_GT(Model.Rpa, Model.L3);
    Expect_Range(10, 0, 360, 10);
    Expect_Dyads({43.8, -9.13, 58.38, -19.04, -23.15, -36.07, 25, 50, -19.1, -22.82, -50, -122.74, 0, -122.74, 0, 50, 0,
                  101.5, 78.43});
    Expect_Pivot_Along_X();
}

TEST_F(Examples, HoekensLinkageAloneIsInInchesOfItself) {
    for (const auto load : {Testlinkage, Testlinkagevlnk, Testlinkage_old, Roberts, Watts, Chebychev}) {
        Use_Units(5);
        load();
        EXPECT_EQ(Model.Units, 5);
        EXPECT_EQ(Model.UnitLabel(6), "mm");
    }
    Hoekens();
    EXPECT_EQ(Model.Units, 1);
    EXPECT_EQ(Model.UnitLabel(6), "in");
}

TEST_F(Examples, DropWhatWasKnownOfTheLinkageBefore) {
    for (const auto load : {Testlinkage, Testlinkagevlnk, Testlinkage_old, Roberts, Watts, Chebychev, Hoekens}) {
        Run_Holds();
        Forces_Hold();
        Balance_Holds();
        Model_Saved();
        Model.LinkDriven = Model.DiskFile = Model.Synthesized = true;
        load();
        for (const bool flag :
             std::initializer_list<bool>{Model.Calculated, Model.DynamicsDone, Model.BalanceDone, Model.SavedFlag,
                                         Model.LinkDriven, Model.DiskFile, Model.Synthesized})
            EXPECT_FALSE(flag);
    }
}

TEST_F(Examples, TheSynthesisTestComesOutAsItsOwnLinkage) {
    Testlinkagevlnk();
    Model.SpecifiedPivots = true;
    const Single L[] = {Model.L1, Model.L2, Model.L3, Model.L4, Model.Rpa, Model.Delta};
    Model.P1x = Model.P1y = 0;
    FixedPivots(Model.O2x, Model.O2y, Model.SynBeta2, Model.SynBeta3);
    FixedPivots(Model.O4x, Model.O4y, Model.SynGamma2, Model.SynGamma3);
    EXPECT_NEAR(Model.SynBeta2, 45, 0.1);
    EXPECT_NEAR(Model.SynBeta3, 90, 0.1);
    EXPECT_NEAR(Model.SynGamma2, 3.355, 0.1);
    EXPECT_NEAR(Model.SynGamma3, 14.972, 0.2);
    const auto solve = [](Single turn2, Single turn3, Single& x, Single& y, Single& zx, Single& zy) {
        ThreePos(Model.P21x, Model.P21y, Model.P31x, Model.P31y, Model.SynAlpha2, Model.SynAlpha3, turn2, turn3, x, y,
                 zx, zy);
    };
    solve(Model.SynBeta2, Model.SynBeta3, Model.SynWx, Model.SynWy, Model.SynZx, Model.SynZy);
    solve(Model.SynGamma2, Model.SynGamma3, Model.SynUx, Model.SynUy, Model.SynSx, Model.SynSy);
    Notes notes(desktop);
    Assemblevlnk(3, Model.SynWx, Model.SynWy, Model.SynZx, Model.SynZy, Model.SynUx, Model.SynUy, Model.SynSx,
                 Model.SynSy, Model.SynBeta2, Model.SynBeta3, Model.Link1Angle);
    // Its positions are those of that linkage to a hundredth or two.
    EXPECT_NEAR(Model.L1, L[0], 1e-5);
    EXPECT_NEAR(Model.L2, L[1], 0.01);
    EXPECT_NEAR(Model.L3, L[2], 0.01);
    EXPECT_NEAR(Model.L4, L[3], 0.05);
    EXPECT_NEAR(Model.Rpa, L[4], 0.1);
    EXPECT_NEAR(Model.Rpa, Model.SynZ, 0.01);
    EXPECT_NEAR(Model.Delta, L[5], 1);
    EXPECT_NEAR(Model.ThetaStart, Model.SynTheta, 0.2);
    EXPECT_NEAR(Model.ThetaEnd, Model.SynTheta2, 0.2);
}

}  // namespace verlink::test
