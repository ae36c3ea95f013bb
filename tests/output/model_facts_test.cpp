// What stands of the model beside its results: every fact in its order, in the units shown, for each kind of run.
#include "output/model_facts.h"

#include <cmath>

#include "shell/initialize.h"
#include "tests/dynamics/motion.h"

namespace verlink::test {

namespace {

/// A number and its unit, or words.
struct Fact_Row {
    const char* what;
    double number;
    const char* unit;
    const char* words = nullptr;
};

class ModelFacts : public Fixture {
   protected:
    ModelFacts() {
        Initialize();
        Use_Units(5);
        Model.UnitLabel(11) = "of balanced forces";  // otherwise the same word
        Model.ModelName = "press";
        Model.FigureTitle = "Press, second draft";
        Model.DesignNumber = 7;
        Model.UserName = "Ann";
        Model.DateStr = "11/21/2026";
        Model.TimeStr = "10:15:00";
        Model.RevNumber = "9.1";
        Model.L1 = 0.101;
        Model.L2 = 0.102;
        Model.L3 = 0.103;
        Model.L4 = 0.104;
        Model.Rpa = 0.105;
        Model.Delta = 41;
        Model.Link1X = 0.106;
        Model.Link1Y = 0.107;
        Model.Link1Angle = 42;
        Model.CircuitName = "Crossed";
        Model.ThetaStart = 11;
        Model.ThetaEnd = 12;
        Model.ThetaStep = 13;
        Model.Omega2Input = 14;
        Model.TimeStart = 15;
        Model.TimeEnd = 16;
        Model.TimeStep = 17;
        Model.ThetaZero = 18;
        Model.Alpha2 = 19;
        for (int link = 2; link <= 4; ++link) {
            Model.LinkMass(link) = 20 + link;
            Model.LinkInertia(link) = 30 + link;
            Model.CG(link, 0) = 0.04 + 0.001 * link;
            Model.CG(link, 1) = link * M_PI / 180;
        }
        for (int link = 3; link <= 4; ++link) {
            Model.ExtForceMag(link) = 50 + link;
            Model.ExtForceAng(link) = 60 + link;
            Model.ExtTorque(link) = 70 + link;
        }
        Model.ForceDist3 = 0.083;
        Model.ForceDist4 = 0.084;
        Model.ForceAng3 = 93;
        Model.ForceAng4 = 94;
        Model.FrictionForce = 99;
        Model.TorqueImported = false;
    }

    static void Expect_Facts(const std::vector<Fact_Row>& drive, const Fact_Row& torque) {
        std::vector<Fact_Row> rows{{"Model", 0, "", "press"},
                                   {"Title", 0, "", "Press, second draft"},
                                   {"Design #", 7, ""},
                                   {"By", 0, "", "Ann"},
                                   {"Date", 0, "", "11/21/2026"},
                                   {"Time", 0, "", "10:15:00"},
                                   {"Program", 0, "", "Verlink 9.1"},
                                   {"Link 1 (Ground)", 101, "mm"},
                                   {"Link 2 (Crank)", 102, "mm"},
                                   {"Link 3 (Coupler)", 103, "mm"},
                                   {"Link 4 (Rocker)", 104, "mm"},
                                   {"Dist. from I 2,3 to Coupler Pt", 105, "mm"},
                                   {"Angle from Link 3 to Coupler Pt", 41, "deg"},
                                   {"O4 from O2, X", 106, "mm"},
                                   {"O4 from O2, Y", 107, "mm"},
                                   {"Angle of Link 1", 42, "deg"},
                                   {"Circuit", 0, "", "Crossed"}};
        rows.insert(rows.end(), drive.begin(), drive.end());
        const std::vector<Fact_Row> loads{{"Mass of Link 2", 22, "kg"},
                                          {"Inertia of Link 2", 32, "kg-m^2"},
                                          {"CG Distance of Link 2", 42, "mm"},
                                          {"CG Angle of Link 2", 2, "deg"},
                                          {"Mass of Link 3", 23, "kg"},
                                          {"Inertia of Link 3", 33, "kg-m^2"},
                                          {"CG Distance of Link 3", 43, "mm"},
                                          {"CG Angle of Link 3", 3, "deg"},
                                          {"Mass of Link 4", 24, "kg"},
                                          {"Inertia of Link 4", 34, "kg-m^2"},
                                          {"CG Distance of Link 4", 44, "mm"},
                                          {"CG Angle of Link 4", 4, "deg"},
                                          {"Force on Link 3", 53, "N"},
                                          {"Direction of Force on Link 3", 63, "deg"},
                                          {"Distance of Force on Link 3", 83, "mm"},
                                          {"Angle of its Point on Link 3", 93, "deg"},
                                          {"Torque on Link 3", 73, "N- m"},
                                          {"Force on Link 4", 54, "N"},
                                          {"Direction of Force on Link 4", 64, "deg"},
                                          {"Distance of Force on Link 4", 84, "mm"},
                                          {"Angle of its Point on Link 4", 94, "deg"},
                                          torque,
                                          {"Friction on Link 3", 99, "N"}};
        rows.insert(rows.end(), loads.begin(), loads.end());
        const std::vector<Sheet_Fact> facts = Model_Facts(Model);
        ASSERT_EQ(facts.size(), rows.size());
        for (std::size_t i = 0; i < rows.size(); ++i) {
            EXPECT_EQ(facts[i].what, rows[i].what) << i;
            EXPECT_EQ(facts[i].unit, rows[i].unit) << rows[i].what;
            if (rows[i].words)
                EXPECT_EQ(std::get<std::string>(facts[i].value), rows[i].words) << rows[i].what;
            else
                EXPECT_NEAR(std::get<double>(facts[i].value), rows[i].number, 1e-4) << rows[i].what;
        }
    }
    static constexpr Fact_Row kTyped{"Torque on Link 4", 74, "N- m"};
};

}  // namespace

TEST_F(ModelFacts, OfARunByAngleHaveItsLimitsAndItsSpeed) {
    Model.Calctype = 3;
    Expect_Facts({{"Run", 0, "", "Angle steps"},
                  {"Min Theta", 11, "deg"},
                  {"Max Theta", 12, "deg"},
                  {"Delta Theta", 13, "deg"},
                  {"Omega2", 14, "rad/sec"}},
                 kTyped);
}

TEST_F(ModelFacts, OfOnePositionHaveWhereTheCrankStandsAndHowItMoves) {
    Model.Calctype = 1;
    Expect_Facts({{"Run", 0, "", "One position"},
                  {"Theta2 at the start", 18, "deg"},
                  {"Omega2 at the start", 14, "rad/sec"},
                  {"Alpha2", 19, "rad/sec^2"}},
                 kTyped);
}

TEST_F(ModelFacts, OfARunByTimeHaveItsTimesToo) {
    Model.Calctype = 2;
    Expect_Facts({{"Run", 0, "", "Time steps"},
                  {"Start Time", 15, "sec"},
                  {"End Time", 16, "sec"},
                  {"Delta Time", 17, "sec"},
                  {"Theta2 at the start", 18, "deg"},
                  {"Omega2 at the start", 14, "rad/sec"},
                  {"Alpha2", 19, "rad/sec^2"}},
                 kTyped);
}

TEST_F(ModelFacts, OfARunOfNoKnownKindHaveNoNameOfIt) {
    for (const int kind : {0, 6}) {
        Model.Calctype = kind;
        for (const Sheet_Fact& fact : Model_Facts(Model)) EXPECT_NE(fact.what, "Run") << kind;
    }
}

TEST_F(ModelFacts, OfADriveFromAFileHaveItsTimesAloneAndOfATorqueFromAFileItsName) {
    Model.TorqueImported = true;
    Model.TorqueFileName = "load.trq";
    const Fact_Row torque{"Torque on Link 4", 0, "", "from load.trq"};
    for (const auto& [kind, words] : {std::pair{4, "Cam driven"}, {5, "Link driven"}}) {
        Model.Calctype = kind;
        Expect_Facts(
            {{"Run", 0, "", words}, {"Start Time", 15, "sec"}, {"End Time", 16, "sec"}, {"Delta Time", 17, "sec"}},
            torque);
    }
}

}  // namespace verlink::test
