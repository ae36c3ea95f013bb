// Cam drive data: the layout of an .sva file, its units, what it replaces, its refusals, and the run that it drives.
#include <cmath>

#include "core/model_on_screens.h"
#include "core/runs.h"
#include "tests/files/drive_files.h"

namespace verlink::test {

using platform::Answer;
using platform::Buttons;
using platform::Icon;
using platform::MenuEntry;
using platform::Screens;

namespace {

constexpr char kSixLinks[] =
    "This file contains data for a Corvex linkage.\rPlease import it to Program Corvex instead.";
constexpr char kSlider[] = "This file contains data for a Verlink Slider linkage.\rPlease import it to Glidex instead.";

}  // namespace

class CamImport : public DriveFiles {
   protected:
    CamImport() { Model.FilePath = "/data/press.sva"; }
    static constexpr double kDegree = 0.017453292522222223;
};

TEST_F(CamImport, AFileBringsTheLinkageItsMassesAndTheTable) {
    Model.Rpa = 1;
    Model.CircuitIndex = 2;
    Take_Cam({});
    EXPECT_EQ(Model.CamDirection, -1);
    EXPECT_EQ(Model.CamPhase, 15);
    EXPECT_EQ(Model.CamDataLength1, 3.5);
    EXPECT_EQ(Model.CamDiameter, 2);
    EXPECT_EQ(Model.CamDataLength2, 0.25);
    EXPECT_EQ(Model.TimeStart, 0.5);
    EXPECT_EQ(Model.TimeEnd, 2);
    EXPECT_EQ(Model.TimeStep, 0.5);
    EXPECT_EQ(Model.Units, 1);
    EXPECT_EQ(Model.Delta2, 7);
    EXPECT_EQ(Model.L2, 1.25);
    EXPECT_EQ(Model.L3, 4);
    EXPECT_EQ(Model.L4, 3);
    EXPECT_EQ(Model.L1, 3.75);
    EXPECT_EQ(Model.CamCenterX, -6);
    EXPECT_EQ(Model.CamCenterY, 2.5);
    for (int link = 2; link <= 4; ++link) {
        EXPECT_EQ(Model.LinkMass(link), link - 1.5);
        EXPECT_EQ(Model.LinkInertia(link), link - 1.25);
    }
    EXPECT_EQ(Model.CG(2, 0), 0.625);
    EXPECT_EQ(Model.CG(3, 1), -0.5);
    EXPECT_EQ(Model.CG(4, 1), 0.125);
    EXPECT_EQ(Model.NSteps, 3);
    EXPECT_EQ(Row(0), (std::array{0.0, 1.0, 2.0}));
    EXPECT_EQ(Row(1), (std::array{10.5, -1.5, 2.5}));
    EXPECT_EQ(Row(3), (std::array{30.0, 4.0, 0.0}));
    EXPECT_TRUE(Model.CamDriven);
    EXPECT_EQ(Model.Calctype, 4);
}

TEST_F(CamImport, TheGroundAngleSetsThetaZeroAndNoCouplerPointComesAcross) {
    Model.JustStarted = true;
    EXPECT_TRUE(Read_Cam(CamFile().Content()));
    EXPECT_EQ(Model.Link1Angle, Stored(53.1301F));
    EXPECT_EQ(Model.Link1AngleRad, Stored(static_cast<float>(Stored(53.1301F) * kDegree)));
    EXPECT_EQ(Model.ThetaZero, Stored(-53.1301F));
    EXPECT_EQ(Model.Delta, 0);
    EXPECT_EQ(Model.DeltaRad, 0);
    EXPECT_EQ(Model.DeltaStr, "0");
    EXPECT_EQ(Model.Rpa, 0);
    EXPECT_EQ(Model.Link1X, 2.25);
    EXPECT_EQ(Model.Link1Y, 3);
    const double packed[] = {0, 3.75, 1.25, 4, 3, 2.25, 3};
    for (int i = 0; i <= 6; ++i) EXPECT_EQ(Model.LinkArray(i), packed[i]) << i;
    EXPECT_NEAR(Model.LinkArray(7), 3.75, 1e-6) << "O4 along the ground link";
    EXPECT_NEAR(Model.LinkArray(8), 0, 1e-6);
}

TEST_F(CamImport, WhatTheModelBeforeHadOfItsAngleItsLimitsAndItsCognateGoesAndThePanelTells) {
    Model.JustStarted = true;
    // The same angle but for a digit.
    Model.Link1AngleRad = 53.1301 * kDegree * (1 + 1e-6);
    Model.CognateEdit = true;
    Model.CognateNumber = 2;
    Model.CognatesDue = false;
    Take_Full_Turn();
    Run_Holds();
    Model_Saved();
    Refresh_Status();
    const auto& saved = Screens::Get("frm_HomeScreen").Get<platform::Label>("lbl_Status", 8);
    ASSERT_TRUE(saved.Visible);
    EXPECT_TRUE(Read_Cam(CamFile().Content()));
    EXPECT_EQ(Model.Link1AngleRad, Stored(static_cast<float>(Stored(53.1301F) * kDegree)));
    EXPECT_FALSE(Model.CognateEdit);
    EXPECT_EQ(Model.CognateNumber, 1);
    EXPECT_TRUE(Model.CognatesDue);
    EXPECT_EQ(Model.ThetaStartStr, "0.5");
    EXPECT_EQ(Model.ThetaEndStr, "2");
    EXPECT_EQ(Model.ThetaStepStr, "0.5");
    EXPECT_FALSE(saved.Visible);
}

TEST_F(CamImport, TheCircuitIsMinusOneForOpenOneForCrossedAndLeftByAnythingElse) {
    Model.JustStarted = true;
    const auto circuit_of = [&](const std::string& circuit) {
        CamFile file;
        file.circuit = circuit;
        EXPECT_TRUE(Read_Cam(file.Content()));
        return std::to_string(Model.CircuitIndex) + std::to_string(Model.CircuitSign) + Model.CircuitName;
    };
    EXPECT_EQ(circuit_of("1"), "21Crossed");
    EXPECT_EQ(circuit_of("0"), "21Crossed");
    EXPECT_EQ(circuit_of("-1"), "1-1Open");
    EXPECT_EQ(circuit_of("2"), "1-1Open");
}

TEST_F(CamImport, InMillimetresAnL2Of50IsStoredAs0Point05AndTheInputScreenShows50) {
    CamFile file;
    file.units = "5";
    file.lengths = {"50", "160", "120", "150"};
    file.places = {"90", "120", "-240", "100"};
    file.length1 = "140";
    file.diameter = "80";
    file.length2 = "10";
    std::string shown, unit;
    Expect_Taken("Lobetra S-V-A", [&](platform::Screen& input) {
        shown = input.Text("txt_Linkout", 1).Text;
        unit = input.Get<platform::Label>("lbl_Units", 1).Caption;
    });
    EXPECT_TRUE(Read_Cam(file.Content()));
    EXPECT_EQ(shown, "50");
    EXPECT_EQ(unit, "mm");
    EXPECT_EQ(Model.L2, Stored(0.05F));
    EXPECT_EQ(Model.L3, Stored(0.16F));
    EXPECT_EQ(Model.L4, Stored(0.12F));
    EXPECT_EQ(Model.L1, Stored(0.15F));
    EXPECT_EQ(Model.CamCenterX, Stored(-0.24F));
    EXPECT_EQ(Model.CamCenterY, Stored(0.1F));
    EXPECT_EQ(Model.CamDataLength1, Stored(0.14F));
    EXPECT_EQ(Model.CamDiameter, Stored(0.08F));
    EXPECT_EQ(Model.CamDataLength2, Stored(0.01F));
    EXPECT_EQ(Model.CG(2, 0), Stored(0.000625F));
}

TEST_F(CamImport, InCentimetresLengthsAreDividedBy100) {
    Model.JustStarted = true;
    CamFile file;
    file.units = "4";
    EXPECT_TRUE(Read_Cam(file.Content()));
    EXPECT_EQ(Model.L1, Stored(0.0375F));
    EXPECT_EQ(Model.Link1Y, Stored(0.03F));
    EXPECT_EQ(Model.CamDiameter, Stored(0.02F));
    EXPECT_EQ(Model.CG(3, 0), Stored(0.02F));
    EXPECT_EQ(Model.LinkMass(3), 1.5);
    EXPECT_EQ(Model.CamPhase, 15);
    EXPECT_EQ(Model.Link1Angle, Stored(53.1301F));
}

TEST_F(CamImport, TheAngleOfAMassCentreIsDividedAsIfItWereALength) {
    Model.JustStarted = true;
    CamFile file;
    file.units = "5";
    EXPECT_TRUE(Read_Cam(file.Content()));
    EXPECT_EQ(Model.CG(2, 1), Stored(0.00025F));
    EXPECT_EQ(Model.CG(3, 1), Stored(-0.0005F));
    file.units = "4";
    EXPECT_TRUE(Read_Cam(file.Content()));
    EXPECT_EQ(Model.CG(4, 1), Stored(0.00125F));
    file.units = "3";
    EXPECT_TRUE(Read_Cam(file.Content()));
    EXPECT_EQ(Model.CG(4, 1), 0.125);
}

TEST_F(CamImport, WithoutTheMassFlagMassDataInTheModelStay) {
    Model.JustStarted = true;
    for (const char* flag : {"0", "1", "32767", "-2"}) {
        CamFile file;
        file.mass_flag = flag;
        file.masses = {{"\"\"", "\"\"", "\"\"", "\"\""}, {"1", "2", "3", "4"}, {"a", "b", "c", "d"}};
        EXPECT_TRUE(Read_Cam(file.Content())) << flag;
        EXPECT_EQ(Model.LinkMass(2), Stored(0.003F));
        EXPECT_EQ(Model.LinkInertia(3), Stored(0.22F));
        EXPECT_EQ(Model.CG(3, 0), Stored(0.9F));
        EXPECT_EQ(Model.CG(3, 1), Stored(-0.8726646261111112F));
        EXPECT_EQ(Row(1), (std::array{10.5, -1.5, 2.5}));
    }
}

TEST_F(CamImport, WhatAFileOfOtherUnitsSaysNothingOfIsConvertedToThem) {
    Model.JustStarted = true;
    Model.FrictionForce = 2;
    CamFile file;
    file.units = "5";
    file.mass_flag = "0";
    EXPECT_TRUE(Read_Cam(file.Content()));
    // From inches, pounds and blobs to metres, newtons and kilograms, each to its decimals.
    EXPECT_EQ(Model.LinkMass(2), Stored(0.525F));
    EXPECT_EQ(Model.LinkInertia(3), Stored(0.025F));
    EXPECT_EQ(Model.CG(3, 0), Stored(0.0229F));
    EXPECT_EQ(Model.CG(3, 1), Stored(-0.8726646261111112F)) << "an angle";
    EXPECT_NEAR(Model.FrictionForce, 2 * 4.448222, 1e-6);
    EXPECT_EQ(Model.P21x, Stored(-0.0146F));
    EXPECT_EQ(Model.L2, Stored(0.00125F)) << "of the file, whose lengths are divided alone";
}

TEST_F(CamImport, AFileOfThreeLinksInOtherUnitsDrivesTheLinkageInThem) {
    Model.JustStarted = true;
    Turn_Ground(30);
    CamFile file;
    file.links = "3";
    file.units = "5";
    EXPECT_TRUE(Read_Cam(file.Content()));
    EXPECT_EQ(Model.Units, 5);
    EXPECT_EQ(Model.L2, Stored(0.0283F)) << "1.115 in";
    EXPECT_EQ(Model.L3, Stored(0.0635F));
    EXPECT_EQ(Model.Rpa, Stored(0.0431F));
    EXPECT_NEAR(Model.L1, 2.667 * 0.0254, 5e-5);
    EXPECT_NEAR(Model.Link1Angle, 30, 0.1);
    EXPECT_NEAR(std::hypot(Model.Link1X, Model.Link1Y), Model.L1, 1e-8) << "both forms of link 1 are the same";
    EXPECT_EQ(Model.CamDataLength1, Stored(0.0035F)) << "of the file: not converted";
}

TEST_F(CamImport, AFileOfThreeLinksBringsNoGeometryAndDrivesTheLinkageInTheModel) {
    Model.PolarCoords = true;
    Turn_Ground(12);
    Model.ThetaZero = 3;
    CamFile file;
    file.links = "3";
    file.direction = "1";
    Take_Cam(file);
    EXPECT_EQ(Model.L2, Stored(1.115F));
    EXPECT_EQ(Model.Rpa, Stored(1.697F));
    EXPECT_EQ(Model.ThetaZero, 3);
    EXPECT_EQ(Model.LinkMass(2), Stored(0.003F));
    EXPECT_EQ(Model.NSteps, 3);
    EXPECT_EQ(Model.Calctype, 4);
    // The input screen has run it; the cam drives from the ground link, at 12 degrees.
    EXPECT_NEAR(Model.RunTable.Theta(1, 0), 10.5 + 15 + 3 + 12, 1e-4);
    EXPECT_NEAR(std::hypot(Model.RunTable.PointXY(1, 0, 0), Model.RunTable.PointXY(1, 0, 1)), 1.115, 1e-6);
}

TEST_F(CamImport, AnyOtherTagIsTakenAsALinkage) {
    for (const char* tag : {"\"\"", "\"glidemark\"", "\"Glidemark 2\"", "Rocker"}) {
        CamFile file;
        file.tag = tag;
        Take_Cam(file);
        EXPECT_EQ(Model.L2, 1.25) << tag;
        EXPECT_EQ(Model.Calctype, 4);
        Initialize();
    }
}

TEST_F(CamImport, ASixLinkFileIsRefusedAndEverythingStays) {
    Have_Results();
    const Moment before;
    desktop.Expect_Message(kSixLinks, Answer::kOk, Icon::kInformation, Buttons::kOk);
    CamFile file;
    file.links = "6";
    EXPECT_FALSE(Read_Cam(file.Content()));
    EXPECT_EQ(before.Changed(), "");
    EXPECT_TRUE(Model.Calculated);
}

TEST_F(CamImport, ASliderFileIsRefusedAndEverythingStays) {
    Have_Results();
    const Moment before;
    desktop.Expect_Message(kSlider, Answer::kOk, Icon::kInformation, Buttons::kOk);
    CamFile file;
    file.tag = "\"Glidemark\"";
    file.units = "5";
    EXPECT_FALSE(Read_Cam(file.Content()));
    EXPECT_EQ(before.Changed(), "");
    EXPECT_EQ(Model.CamDiameter, 0);
}

TEST_F(CamImport, AnUnreadableLineIsReportedAndEverythingStays) {
    Have_Results();
    const Moment before;
    auto lines = CamFile().Lines();
    lines[24] = "fifty";  // the angle of the ground link
    Expect_Failure(13, "Type mismatch", "Read_Cam_Data");
    EXPECT_FALSE(Read_Cam(Joined(lines)));
    EXPECT_EQ(before.Changed(), "");
}

TEST_F(CamImport, AFileCutShortBehindAnyLineIsReportedAndEverythingStays) {
    Have_Results();
    const Moment before;
    CamFile file;
    file.units = "4";
    const auto lines = file.Lines();
    for (std::size_t kept = 0; kept < lines.size(); ++kept) {
        Expect_Failure(62, "Input past end of file", "Read_Cam_Data");
        EXPECT_FALSE(Read_Cam(Joined({lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(kept)}))) << kept;
        EXPECT_EQ(before.Changed(), "") << kept;
    }
}

TEST_F(CamImport, ATableThatBreaksOffLeavesTheTableAndTheResultsOfBefore) {
    Have_Results();
    const Moment before;
    CamFile file;
    file.rows[2] = "20,two,-3";
    Expect_Failure(13, "Type mismatch", "Read_Cam_Data");
    EXPECT_FALSE(Read_Cam(file.Content()));
    EXPECT_EQ(before.Changed(), "");
    EXPECT_EQ(Row(1), (std::array{1.5, 0.25, -1.0}));
    EXPECT_TRUE(Model.Calculated && Model.DynamicsDone);
}

TEST_F(CamImport, ADriveThatIsTakenEndsTheResultsAndTheTorqueTableOfTheRunBefore) {
    Model.JustStarted = true;
    Have_Results();
    Model.TorqueImported = true;
    EXPECT_TRUE(Read_Cam(CamFile().Content()));
    EXPECT_FALSE(Model.Calculated || Model.DynamicsDone || Model.SavedFlag);
    EXPECT_FALSE(Model.TorqueImported);
}

TEST_F(CamImport, AGroundLinkWhoseTwoFormsDisagreeFollowsFromTheOneInForce) {
    Model.JustStarted = true;
    CamFile file;
    file.places = {"-3", "4", "0", "0"};  // O4 5 from O2, where the length says 3.75
    EXPECT_TRUE(Read_Cam(file.Content()));
    EXPECT_EQ(Model.L1, 5);
    EXPECT_NEAR(Model.Link1Angle, 126.8699, 1e-4);
    EXPECT_EQ(Model.LinkArray(1), 5);
    Model.PolarCoords = true;
    EXPECT_TRUE(Read_Cam(file.Content()));
    EXPECT_EQ(Model.L1, 3.75);
    EXPECT_NEAR(Model.Link1X, 2.25, 1e-5);
    EXPECT_NEAR(Model.Link1Y, 3, 1e-5);
    EXPECT_EQ(Model.LinkArray(5), Model.Link1X);
}

TEST_F(CamImport, APivotThatNoNumberReachesIsAFailureAndEverythingStays) {
    Have_Results();
    const Moment before;
    CamFile file;
    file.places = {"3e38", "3e38", "0", "0"};
    Expect_Failure(6, "Overflow", "Read_Cam_Data");
    EXPECT_FALSE(Read_Cam(file.Content()));
    EXPECT_EQ(before.Changed(), "");
}

TEST_F(CamImport, ATableHasRoomFor2881RowsAndOneMoreIsABoundsFailure) {
    Model.JustStarted = true;
    CamFile file;
    file.rows.assign(2881, "1,2,3");
    file.rows.back() = "4,5,6";
    EXPECT_TRUE(Read_Cam(file.Content()));
    EXPECT_EQ(Model.NSteps, 2880);
    EXPECT_EQ(Row(2880), (std::array{4.0, 5.0, 6.0}));
    file.rows.emplace_back("7,8,9");
    const Moment before;
    Expect_Failure(9, "Subscript out of range", "Read_Cam_Data");
    EXPECT_FALSE(Read_Cam(file.Content()));
    EXPECT_EQ(before.Changed(), "");
}

TEST_F(CamImport, ATableMayStandInColumnsOrOneValueToALine) {
    Model.JustStarted = true;
    CamFile file;
    file.rows = {" 0             1            -2 ", "10\r\n-1.5\r\n2.5", "20 , 2 , -3"};
    EXPECT_TRUE(Read_Cam(file.Content()));
    EXPECT_EQ(Row(0), (std::array{0.0, 1.0, -2.0}));
    EXPECT_EQ(Row(1), (std::array{10.0, -1.5, 2.5}));
    EXPECT_EQ(Row(2), (std::array{20.0, 2.0, -3.0}));
}

TEST_F(CamImport, MassesOfAFifthLinkHaveNoPlaceAndWithoutThemItsLinesAreSkipped) {
    Model.JustStarted = true;
    CamFile file;
    file.links = "5";
    file.masses.push_back({"1", "2", "3", "4"});
    Expect_Failure(9, "Subscript out of range", "Read_Cam_Data");
    EXPECT_FALSE(Read_Cam(file.Content()));
    file.mass_flag = "0";
    EXPECT_TRUE(Read_Cam(file.Content()));
    EXPECT_EQ(Model.NSteps, 3);
}

TEST_F(CamImport, AUnitSystemThatThereIsNotIsReportedAndTheOneInForceStays) {
    CamFile file;
    file.units = "6";
    Expect_Failure(9, "Subscript out of range", "Read_Cam_Data");
    EXPECT_FALSE(Read_Cam(file.Content()));
    EXPECT_EQ(Model.Units, 1);
    EXPECT_EQ(Model.UnitLabel(6), "in");
    Model.JustStarted = true;
    file.units = "0";
    EXPECT_TRUE(Read_Cam(file.Content()));
    EXPECT_EQ(Model.Units, 1) << "a unit system below the first is the first";
}

TEST_F(CamImport, LabelsDecimalsAndTheCheckedEntryFollowTheUnits) {
    platform::Screen& home = Screens::Get("frm_HomeScreen");
    CamFile file;
    file.units = "5";
    Take_Cam(file);
    EXPECT_EQ(Model.UnitLabel(6), "mm");
    EXPECT_EQ(Model.DecLengthShown, 2);
    EXPECT_TRUE(home.Get<MenuEntry>("mnu_pick", 5).Checked);
    EXPECT_FALSE(home.Get<MenuEntry>("mnu_pick", 1).Checked);
    EXPECT_EQ(home.Get<platform::Label>("lbl_Status", 10).Caption, "mm-kg-N-s");
}

TEST_F(CamImport, WhileTheProgramStartsNothingIsSaidOrShown) {
    Model.JustStarted = true;
    EXPECT_TRUE(Read_Cam(CamFile().Content()));
    EXPECT_EQ(Model.Calctype, 4);
}

TEST_F(CamImport, TheInputScreenNamesTheFileHidesTheModesAndRunsTheDrive) {
    Model.Model5Name = "press.sva";
    Expect_Taken("Lobetra S-V-A", [](platform::Screen& input) {
        EXPECT_EQ(input.Get<platform::Label>("lbl_camdriven").Caption,
                  " This linkage is being driven by s-v-a data imported from the file: \r\rpress.sva");
        EXPECT_TRUE(input.Get<platform::Label>("lbl_camdriven").Visible);
        EXPECT_FALSE(input.Get<platform::Frame>("fra_calcmode").Visible);
        EXPECT_EQ(input.Text("txt_Thetazero").Text, "-53.1301");
        EXPECT_TRUE(input.Get<platform::CommandButton>("cmd_Animate").Enabled);
        Press(input, "cmd_Calc");
    });
    EXPECT_TRUE(Read_Cam(CamFile().Content()));
    EXPECT_TRUE(Model.Calculated);
    // The input angle, seen from the ground link, by direction, phase and offset.
    for (int step = 0; step <= 3; ++step) {
        const double local = -1 * Row(step)[0] + 15 - 53.1301 - 7;
        const double global = std::remainder(Model.RunTable.Theta(step, 0) - (local + 53.1301), 360);
        EXPECT_NEAR(global, 0, 2e-4) << step;
        EXPECT_NEAR(Model.RunTable.PointXY(step, 0, 0), 1.25 * std::cos(local * kDegree), 2e-6);
        EXPECT_NEAR(Model.RunTable.PointXY(step, 0, 1), 1.25 * std::sin(local * kDegree), 2e-6);
        const double bx = Model.RunTable.PointXY(step, 1, 0), by = Model.RunTable.PointXY(step, 1, 1);
        EXPECT_NEAR(std::hypot(bx - 3.75, by), 3, 5e-6);
        EXPECT_NEAR(Model.RunTable.VelXY(step, 0, 0), -1.25 * std::sin(local * kDegree) * Row(step)[1], 1e-5);
    }
    EXPECT_EQ(Row(1), (std::array{10.5, -1.5, 2.5})) << "the run leaves the table as it was imported";
}

TEST_F(CamImport, AModelFromDiskIsNotTakenForTheParallelogramItWas) {
    Model.JustStarted = true;
    Model.DiskFile = true;
    Model.Parallelogram = true;
    EXPECT_TRUE(Read_Cam(CamFile().Content()));
    EXPECT_FALSE(Model.Parallelogram);
    CamFile file;
    file.lengths = {"3", "4", "3", "4"};
    file.places = {"2.4", "3.2", "-6", "2.5"};
    EXPECT_TRUE(Read_Cam(file.Content()));
    EXPECT_TRUE(Model.Parallelogram);
}

TEST_F(CamImport, ADriveOfTheOtherKindEnds) {
    Model.JustStarted = true;
    Model.LinkDriven = true;
    EXPECT_TRUE(Read_Cam(CamFile().Content()));
    EXPECT_FALSE(Model.LinkDriven);
    EXPECT_TRUE(Model.CamDriven);
    EXPECT_EQ(Model.Calctype, 4);
}

TEST_F(CamImport, TheDriveIsSavedWithTheModelAndReadAgain) {
    Model.JustStarted = true;
    Model.Model5Name = "press.sva";
    EXPECT_TRUE(Read_Cam(CamFile().Content()));
    const std::string saved = File_Content();
    Initialize();
    EXPECT_FALSE(Model.CamDriven);
    ASSERT_TRUE(Load_Model(saved));
    EXPECT_TRUE(Model.CamDriven);
    EXPECT_EQ(Model.Calctype, 4);
    EXPECT_EQ(Model.Model5Name, "press.sva");
    EXPECT_EQ(Row(3), (std::array{30.0, 4.0, 0.0}));
    EXPECT_EQ(File_Content(), saved);
    Model.Calctype = 3;
    EXPECT_EQ(Lines(File_Content()).size(), 184U) << "the table stays in the file only while it drives";
}

}  // namespace verlink::test
