// Link drive data: the layout of an .out file, the run that it drives, and what this program's own export gives back.
#include <cmath>

#include "core/runs.h"
#include "tests/files/drive_files.h"

namespace verlink::test {

using platform::Answer;
using platform::Icon;

class LinkImport : public DriveFiles {
   protected:
    LinkImport() { Model.FilePath = "/data/stage1.out"; }
};

TEST_F(LinkImport, AFileOf360StepsHolds361RowsAfterItsSixteenHeaderLines) {
    std::vector<std::string> rows;
    for (int step = 0; step <= 360; ++step) rows.push_back(std::to_string(step) + ",1.5," + std::to_string(-step));
    const std::string content = LinkFile(rows);
    ASSERT_EQ(Lines(content).size(), 16U + 361U);
    EXPECT_EQ(Lines(content)[0], "360");
    Model.JustStarted = true;
    EXPECT_TRUE(Read_Links(content));
    EXPECT_EQ(Model.NSteps, 360);
    for (int step = 0; step <= 360; ++step)
        ASSERT_EQ(Row(step), (std::array{double(step), 1.5, double(-step)})) << step;
    EXPECT_EQ(Model.TimeStart, 0);
    EXPECT_EQ(Model.TimeEnd, 1);
    EXPECT_EQ(Model.TimeStep, 0.5);
    EXPECT_TRUE(Model.LinkDriven);
    EXPECT_EQ(Model.Calctype, 5);

    auto lines = Lines(content);
    lines.pop_back();
    Expect_Failure(62, "Input past end of file", "Import_Linkage_Data");
    EXPECT_FALSE(Read_Links(Joined(lines)));
}

TEST_F(LinkImport, ColumnsCommasAndLinesAlikeSeparateTheNumbersOfATable) {
    Model.JustStarted = true;
    EXPECT_TRUE(Read_Links(LinkFile({" 45           10           -5 ", "1,-2,3", "4\r\n5\r\n6", "\t7\t8, 9"})));
    EXPECT_EQ(Row(0), (std::array{45.0, 10.0, -5.0}));
    EXPECT_EQ(Row(1), (std::array{1.0, -2.0, 3.0}));
    EXPECT_EQ(Row(2), (std::array{4.0, 5.0, 6.0}));
    EXPECT_EQ(Row(3), (std::array{7.0, 8.0, 9.0}));
}

TEST_F(LinkImport, WhateverTheTwelveSkippedLinesHoldIsPassedOver) {
    Model.JustStarted = true;
    auto lines = Lines(LinkFile({"1,2,3", "4,5,6"}));
    for (int line = 4; line < 16; ++line) lines[static_cast<std::size_t>(line)] = "\"a name, and more\"";
    EXPECT_TRUE(Read_Links(Joined(lines)));
    EXPECT_EQ(Row(1), (std::array{4.0, 5.0, 6.0}));
}

TEST_F(LinkImport, TheMessageNamesTheFileAndTheInputScreenComesUpWithThePhase) {
    Model.Model5Name = "stage1.out";
    Model.Delta2 = 12.5;
    Expect_Taken("Linkage output", [](platform::Screen& input) {
        EXPECT_EQ(input.Get<platform::Label>("lbl_camdriven").Caption,
                  " This linkage is being driven by s-v-a data imported from the file: \r\rstage1.out");
        EXPECT_EQ(input.Get<platform::Label>("lbl_Initial", 4).Caption, "Delta 2");
        EXPECT_EQ(input.Text("txt_initial", 4).Text, "12.5");
        EXPECT_FALSE(input.Get<platform::OptionButton>("opt_Calctype", 3).Visible);
    });
    EXPECT_TRUE(Read_Links(LinkFile({"10,1,0", "20,1,0"})));
    EXPECT_NEAR(Model.RunTable.Theta(1, 0), 20 + 12.5, 1e-4);
}

TEST_F(LinkImport, TheInputAngleIsTheDrivesLessTheGroundLinksPlusTheOffset) {
    Model.JustStarted = true;
    Turn_Ground(25);
    Model.Delta2 = 5;
    EXPECT_TRUE(Read_Links(LinkFile({"40,2,0", "100,2,0"})));
    Integer result = 0;
    Imported_Run(result);
    for (int step = 0; step <= 1; ++step) {
        const double local = (Row(step)[0] - 25 + 5) * std::acos(-1.0) / 180;
        EXPECT_NEAR(Model.RunTable.PointXY(step, 0, 0), 1.115 * std::cos(local), 2e-6);
        EXPECT_NEAR(Model.RunTable.PointXY(step, 0, 1), 1.115 * std::sin(local), 2e-6);
        EXPECT_EQ(Model.RunTable.Omega(step, 0), 2);
    }
}

TEST_F(LinkImport, NoUnitsAreInTheFileAndNoneAreApplied) {
    Model.JustStarted = true;
    Model.Units = 5;
    Model.L2 = 0.05;
    EXPECT_TRUE(Read_Links(LinkFile({"10,1,2", "20,3,4"})));
    EXPECT_EQ(Model.Units, 5);
    EXPECT_EQ(Model.L2, Stored(0.05F));
    EXPECT_EQ(Row(1), (std::array{20.0, 3.0, 4.0}));
}

TEST_F(LinkImport, AnUnreadableRowIsReportedAndEverythingStays) {
    Have_Results();
    const Moment before;
    Expect_Failure(13, "Type mismatch", "Import_Linkage_Data");
    EXPECT_FALSE(Read_Links(LinkFile({"1,2,3", "4,,6", "7,8,9"})));
    EXPECT_EQ(before.Changed(), "");
    EXPECT_TRUE(Model.Calculated);
}

TEST_F(LinkImport, AFileCutShortBehindAnyLineIsReportedAndEverythingStays) {
    Have_Results();
    const Moment before;
    const auto lines = Lines(LinkFile({"10,1,2", "20,3,4"}));
    for (std::size_t kept = 0; kept < lines.size(); ++kept) {
        Expect_Failure(62, "Input past end of file", "Import_Linkage_Data");
        EXPECT_FALSE(Read_Links(Joined({lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(kept)}))) << kept;
        EXPECT_EQ(before.Changed(), "") << kept;
    }
}

TEST_F(LinkImport, ADriveThatIsTakenLeavesTheLinkageAndEndsResultsAndTorqueTable) {
    Model.JustStarted = true;
    Have_Results();
    Turn_Ground(123.4);
    Model.TorqueImported = true;
    const Geometry linkage = Model;
    EXPECT_TRUE(Read_Links(LinkFile({"10,1,2", "20,3,4"})));
    EXPECT_EQ(Model.L1, linkage.L1);
    EXPECT_EQ(Model.Link1Angle, linkage.Link1Angle);
    EXPECT_EQ(Model.Link1AngleRad, linkage.Link1AngleRad);
    EXPECT_EQ(Model.Link1X, linkage.Link1X);
    EXPECT_EQ(Model.Link1Y, linkage.Link1Y);
    EXPECT_FALSE(Model.Calculated || Model.DynamicsDone || Model.TorqueImported);
}

TEST_F(LinkImport, MoreThan2880StepsAreABoundsFailure) {
    Have_Results();
    const Moment before;
    Expect_Failure(9, "Subscript out of range", "Import_Linkage_Data");
    EXPECT_FALSE(Read_Links(LinkFile({"1,2,3"}, "2881")));
    Expect_Failure(6, "Overflow", "Import_Linkage_Data");
    EXPECT_FALSE(Read_Links(LinkFile({"1,2,3"}, "32768")));
    EXPECT_EQ(before.Changed(), "");
    Model.JustStarted = true;
    EXPECT_TRUE(Read_Links(LinkFile(std::vector<std::string>(2881, "1,2,3"))));
    EXPECT_EQ(Model.NSteps, 2880);
}

TEST_F(LinkImport, ADriveOfTheOtherKindEnds) {
    Model.JustStarted = true;
    Model.CamDriven = true;
    EXPECT_TRUE(Read_Links(LinkFile({"1,2,3"})));
    EXPECT_FALSE(Model.CamDriven);
    EXPECT_TRUE(Model.LinkDriven);
    EXPECT_EQ(Model.Calctype, 5);
}

TEST_F(LinkImport, AFileWrittenAndReadBackDrivesARunByTheMotionOfLink4) {
    // A turned crank-rocker, so that angles of both signs and of many digits are written.
    Model.JustStarted = true;
    Turn_Ground(33);
    Model.Calctype = 2;
    Model.Alpha2 = 4;
    Model.NSteps = 100;
    Integer result = 0;
    Calc_Setup(Model.Calctype, result);
    std::vector<std::array<double, 3>> rocker;
    for (int step = 0; step <= 100; ++step)
        rocker.push_back({Model.RunTable.Theta(step, 2), Model.RunTable.Omega(step, 2), Model.RunTable.Alpha(step, 2)});
    Model.FilePath = Path("stage1.out");
    desktop.Expect_Message_With("has been written to " + Model.FilePath);
    ASSERT_TRUE(Export_Link4_to_File());

    Initialize();
    Turn_Ground(-20);
    Model.L2 = 0.75;
    Model.Delta2 = 11;
    EXPECT_TRUE(Read_Links(Held(Path("stage1.out"))));
    EXPECT_EQ(Model.NSteps, 100);
    EXPECT_EQ(Model.TimeStep, Stored(0.05F));
    Imported_Run(result);
    for (int step = 0; step <= 100; ++step) {
        const auto& written = rocker[static_cast<std::size_t>(step)];
        for (int value = 0; value <= 2; ++value) {
            const double read = Row(step)[static_cast<std::size_t>(value)];
            const double wrote = written[static_cast<std::size_t>(value)];
            ASSERT_NEAR(read, wrote, std::abs(wrote) * 5.7e-7) << step << " " << value;
        }
        const double local = (written[0] + 20 + 11) * std::acos(-1.0) / 180;
        ASSERT_NEAR(Model.RunTable.PointXY(step, 0, 0), 0.75 * std::cos(local), 2e-6) << step;
        ASSERT_NEAR(Model.RunTable.PointXY(step, 0, 1), 0.75 * std::sin(local), 2e-6) << step;
    }
}

}  // namespace verlink::test
