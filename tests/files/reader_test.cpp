// How a model file is recognised and read: older layouts, derived values, the screens, the message.
#include <algorithm>
#include <cmath>

#include "core/linkage_door.h"
#include "files/in_hand.h"
#include "tests/files/model_files.h"
#include "tests/files/moment.h"

namespace verlink::test {

using platform::Answer;
using platform::Icon;
using platform::Screens;

namespace {

constexpr char kForeign[] = "This data file is not compatible with VERLINK. ";

/// What a field of the fixtures holds: line n has n + 0.25, 100 + n or "line n", and true on odd lines.
std::string Told_By_Line(const FileField& field) {
    switch (field.line) {
        case 40: return "10";
        case 41: return "100";
        case 42: return "7.5";
        case 43: return "2";
        case 45: return "3";
        case 94: return "false";
        default: break;
    }
    struct {
        int line;
        std::string operator()(const std::string*) const { return "line " + std::to_string(line); }
        std::string operator()(const Single*) const { return std::to_string(line) + ".25"; }
        std::string operator()(const Integer*) const { return std::to_string(100 + line); }
        std::string operator()(const Long*) const { return std::to_string(100 + line); }
        std::string operator()(const bool*) const { return line % 2 ? "true" : "false"; }
    } told{field.line};
    return std::visit(told, field.place);
}

const FileField& Line(int line) { return File_Fields()[static_cast<std::size_t>(line - 1)]; }

/// Checks lines First to Last, but for those of the program itself, the run type, and the exceptions.
void Expect_Told(int First, int Last, std::initializer_list<int> except = {}) {
    for (int line = First; line <= Last; ++line) {
        if (line <= 2 || line == 44 || line == 54 || std::find(except.begin(), except.end(), line) != except.end())
            continue;
        EXPECT_EQ(Text_At(Line(line)), Told_By_Line(Line(line))) << "line " << line << " " << Line(line).name;
    }
}

}  // namespace

class Reader : public ModelFiles {
   protected:
    static void Read_Fixture(const std::string& name) { ASSERT_TRUE(Load_Model(Held(Fixture_File(name)))) << name; }
    /// A model whose lines 81 to 96 all hold something.
    static void Have_Extended_Values() {
        Model.Link1Angle = 40;
        Derive_Linkage(Leading::kPolar);
        Model.LineAngle = 33;
        Model.NSteps = 77;
        Model.CamDirection = -1;
        Model.CamDataLength1 = 4;
        Model.CamPhase = 5;
        Model.CamDriven = Model.LinkDriven = true;
        Model.Model5Name = "old.sva";
        Model.TorqueImported = true;
        Model.Delta2 = 6;
        Model.ZoomFactor = 2;
    }
    /// Lines 81 to 96 behind a short file: a ground link along x, and settings of the screens as they are.
    static void Expect_No_Extended_Values() {
        const std::vector<std::string> values = {"33", "0",     "0",     "0", "11.25", "0",     "0", "0",
                                                 "0",  "false", "false", "",  "",      "false", "0", "2"};
        for (int line = 81; line <= 96; ++line) {
            if (line == 92) continue;
            EXPECT_EQ(Text_At(Line(line)), values[static_cast<std::size_t>(line - 81)]) << line;
        }
        EXPECT_EQ(Model.LinkArray(5), 11.25);
        EXPECT_EQ(Model.LinkArray(6), 0);
        EXPECT_EQ(Model.Link1LocalX, 11.25);
    }
    /// The fixtures' numbers for link 1 are not those of one place; what leads is their length and angle.
    static void Expect_Ground_By_Angle() {
        const double radians = 82.25 * kDegToRad;
        EXPECT_EQ(Model.L1, 11.25);
        EXPECT_EQ(Model.Link1Angle, 82.25);
        EXPECT_FLOAT_EQ(static_cast<float>(Model.Link1AngleRad), static_cast<float>(radians));
        EXPECT_FLOAT_EQ(static_cast<float>(Model.Link1X), static_cast<float>(11.25 * std::cos(radians)));
        EXPECT_FLOAT_EQ(static_cast<float>(Model.Link1Y), static_cast<float>(11.25 * std::sin(radians)));
        Expect_Packed();
    }
    /// The same where the place of O4 leads.
    static void Expect_Ground_By_Place() {
        const double radians = std::atan2(86.25, 85.25);
        EXPECT_EQ(Model.Link1X, 85.25);
        EXPECT_EQ(Model.Link1Y, 86.25);
        EXPECT_FLOAT_EQ(static_cast<float>(Model.L1), static_cast<float>(std::hypot(85.25, 86.25)));
        EXPECT_FLOAT_EQ(static_cast<float>(Model.Link1Angle), static_cast<float>(radians * 180 / M_PI));
        EXPECT_FLOAT_EQ(static_cast<float>(Model.Link1AngleRad), static_cast<float>(radians));
        Expect_Packed();
    }

   private:
    static void Expect_Packed() {
        EXPECT_EQ(Model.LinkArray(1), Model.L1);
        EXPECT_EQ(Model.LinkArray(5), Model.Link1X);
        EXPECT_EQ(Model.LinkArray(6), Model.Link1Y);
        EXPECT_NEAR(Model.Link1LocalX, Model.L1, 1e-4) << "along the ground link";
        EXPECT_NEAR(Model.Link1LocalY, 0, 1e-4);
    }
};

TEST_F(Reader, Revision6StopsAtLine80AndHasAPolarGroundLinkAlongX) {
    Have_Extended_Values();
    Read_Fixture("rev6.vlk");
    Expect_Told(3, 80);
    EXPECT_TRUE(Model.PolarCoords);
    Expect_No_Extended_Values();
}

TEST_F(Reader, Revision7WithFormatBelow2StopsAtLine80AndKeepsNothingOfTheModelBeforeButSettings) {
    for (const bool polar : {false, true}) {
        Have_Extended_Values();
        Model.PolarCoords = polar;
        Read_Fixture("rev7_format1.vlk");
        Expect_Told(3, 80);
        Expect_No_Extended_Values();
        EXPECT_EQ(Model.PolarCoords, polar) << "how the boxes are entered is a setting";
    }
}

TEST_F(Reader, AShortFileOfADrivenRunHasNoDriveOfTheModelBefore) {
    Read_Fixture("torque_table.vlk");
    for (const char* type : {"4", "5"}) {
        ASSERT_TRUE(Load_Model(With_Line(Held(Fixture_File("rev6.vlk")), 44, type)));
        EXPECT_EQ(Model.Calctype, 3);
        EXPECT_EQ(Model.NSteps, 12) << "of the limits in the file";
        EXPECT_FALSE(Model.CamDriven || Model.LinkDriven || Model.TorqueImported);
    }
}

TEST_F(Reader, AShortFileWhoseStepExceedsItsRangeHasOnePosition) {
    Model.NSteps = 77;
    const auto angle = With_Line(Held(Fixture_File("rev6.vlk")), 44, "3");
    ASSERT_TRUE(Load_Model(With_Line(angle, 42, "\"95\"")));
    EXPECT_EQ(Model.NSteps, 0);
}

TEST_F(Reader, Revision7WithFormat2Or3HasNoLine92AndAPolarGroundLink) {
    for (const char* name : {"rev7_format2.vlk", "rev7_format3.vlk"}) {
        Model.PolarCoords = false;
        Read_Fixture(name);
        Expect_Told(3, 96, {83, 85, 86, 92});
        EXPECT_TRUE(Model.PolarCoords);
        Expect_Ground_By_Angle();
    }
}

TEST_F(Reader, AGroundLinkOfWhichOnlyTheLengthIsKnownLiesAlongXForWhoeverAmendsTheModel) {
    for (const char* name : {"rev6.vlk", "rev7_format2.vlk", "rev7_format3.vlk"})
        ASSERT_TRUE(Load_Model(Held(Fixture_File(name)), [](LinkageModel& record) {
            EXPECT_TRUE(record.PolarCoords);
            EXPECT_EQ(record.Link1X, record.L1);
            EXPECT_EQ(record.Link1Y, 0);
        }));
}

TEST_F(Reader, Revision7WithFormat4HasAllLines) {
    Model.PolarCoords = true;
    Read_Fixture("rev7_format4.vlk");
    Expect_Told(3, 96, {11, 82, 83});
    EXPECT_FALSE(Model.PolarCoords);
    Expect_Ground_By_Place();
}

TEST_F(Reader, Revision7Point5WithFormat3HasNoLine92AndLine93FollowsDirectly) {
    Read_Fixture("rev75_format3.vlk");
    Expect_Told(3, 96, {83, 85, 86, 92});
    EXPECT_TRUE(Model.PolarCoords);
    Expect_Ground_By_Angle();
    EXPECT_EQ(Model.Model5Name, "line 93");
}

TEST_F(Reader, EveryRevisionAbove7HasAllLinesWhateverItsFormat) {
    Read_Fixture("rev8.vlk");
    Expect_Told(3, 96, {11, 82, 83});
    Expect_Ground_By_Place();
    Read_Fixture("rev9.vlk");
    Expect_Told(3, 96, {83, 85, 86, 92});
    EXPECT_TRUE(Model.PolarCoords);
    Expect_Ground_By_Angle();
}

TEST_F(Reader, Revision10StartsWithA1AndHasAllLines) {
    Model.PolarCoords = true;
    Read_Fixture("rev10.vlk");
    Expect_Told(3, 96, {11, 82, 83});
    EXPECT_FALSE(Model.PolarCoords);
    Expect_Ground_By_Place();
}

TEST_F(Reader, Revision7Point1WithFormat1IsReadOnWithoutLine92) {
    const auto content = With_Line(With_Line(Held(Fixture_File("rev7_format2.vlk")), 2, "\"7.1\""), 54, "\"1.0\"");
    ASSERT_TRUE(Load_Model(content));
    Expect_Told(3, 96, {83, 85, 86, 92});
    EXPECT_TRUE(Model.PolarCoords);
    Expect_Ground_By_Angle();
}

TEST_F(Reader, AnEmptyRevisionCountsAsOneBelow7) {
    ASSERT_TRUE(Load_Model(With_Line(Held(Fixture_File("rev6.vlk")), 2, "\"\"")));
    EXPECT_TRUE(Model.PolarCoords);
}

TEST_F(Reader, TheDriveTableIsReadByRowsAndNumbersMayLackAZero) {
    Read_Fixture("drive_table.vlk");
    Expect_Told(3, 96, {11, 82, 83, 84});
    Expect_Ground_By_Place();
    EXPECT_EQ(Model.Calctype, 4);
    EXPECT_EQ(Model.NSteps, 4);
    for (int step = 0; step <= 4; ++step) {
        EXPECT_EQ(Model.RunTable.DriveTheta(step), step * 2.5);
        EXPECT_EQ(Model.RunTable.Omega(step, 0), step + 0.5);
        EXPECT_EQ(Model.RunTable.Alpha(step, 0), -step / 8.0);
    }
}

TEST_F(Reader, TheTorqueTableFollowsTheDriveTable) {
    Read_Fixture("torque_table.vlk");
    EXPECT_EQ(Model.Calctype, 5);
    EXPECT_TRUE(Model.TorqueImported);
    EXPECT_EQ(Model.RunTable.DriveTheta(4), 10);
    for (int step = 0; step <= 4; ++step) EXPECT_EQ(Model.RunTable.ImportedTorque(step), step * 1.5 - 3);
}

TEST_F(Reader, TheFilesOwnTagAndRevisionsAreKeptApartFromThePrograms) {
    auto content = Held(Fixture_File("rev8.vlk"));
    ASSERT_TRUE(Load_Model(With_Line(content, 1, "\"VERLINK by hand\"")));
    EXPECT_EQ(Model.FileTag, "VERLINK by hand");
    EXPECT_EQ(Model.FileRev, "8.1");
    EXPECT_EQ(Model.FileFormat, "1.0");
    EXPECT_EQ(Model.ProgramTag, "VERLINK");
    EXPECT_EQ(Model.RevNumber, "9.0");
    EXPECT_EQ(Model.FileVersion, "2.2");
}

TEST_F(Reader, UserDateAndDesignNumberOfTheFileReplaceTheSessions) {
    Read_Fixture("rev9.vlk");
    EXPECT_EQ(Model.UserName, "line 4");
    EXPECT_EQ(Model.DesignNumber, 105);
    EXPECT_EQ(Model.DateStr, "line 6");
    EXPECT_EQ(Model.TimeStr, "line 7");
}

TEST_F(Reader, AFirstLineThatGoesOnBehindTheTagIsAccepted) {
    EXPECT_TRUE(Load_Model(With_Line(Held(Fixture_File("rev9.vlk")), 1, "\"VERLINKED, by another\"")));
}

TEST_F(Reader, AShorterFirstLineIsRefusedAndNothingChanges) {
    Screens::Get("frm_Inputnew").Text("txt_Linkout", 1).Text = "9.5";
    Run_Holds();
    Model_Saved();
    Model_Kept();
    const Moment before;
    for (const char* tag : {"\"VERLIN\"", "\"\"", "\"verlink\"", "VERLIN", "\"LINKVER\""}) {
        desktop.Expect_Message(kForeign, Answer::kOk, Icon::kQuestion);
        EXPECT_FALSE(Readfile(With_Line(Held(Fixture_File("rev9.vlk")), 1, tag), "/models/foreign.vlk"));
        EXPECT_EQ(before.Changed(), "") << tag;
    }
}

TEST_F(Reader, AForeignFileOfASingleLineIsRefusedForWhatItIs) {
    desktop.Expect_Message(kForeign, Answer::kOk, Icon::kQuestion);
    EXPECT_FALSE(Load_Model("just a note"));
}

TEST_F(Reader, AZoomFactorOf0ReadsAs1) {
    ASSERT_TRUE(Load_Model(With_Line(Held(Fixture_File("rev9.vlk")), 96, "0")));
    EXPECT_EQ(Model.ZoomFactor, 1);
}

TEST_F(Reader, CyclesOf0AndBelowReadAs1) {
    for (const char* cycles : {"0", "-5"}) {
        ASSERT_TRUE(Load_Model(With_Line(Held(Fixture_File("rev9.vlk")), 53, cycles)));
        EXPECT_EQ(Model.Cycles, 1);
    }
}

TEST_F(Reader, TheReservedStringsAndTheEndMarkerAreNotLookedAt) {
    auto content = Held(Fixture_File("drive_table.vlk"));
    content = With_Line(With_Line(With_Line(content, 97, "\"used by another\""), 150, "12.5"), 184, "\"The End\"");
    ASSERT_TRUE(Load_Model(content));
    EXPECT_EQ(Model.RunTable.DriveTheta(4), 10);
}

TEST_F(Reader, LinesMayEndInLineFeedsAloneOrCarriageReturnsAlone) {
    const auto content = Held(Fixture_File("drive_table.vlk"));
    for (const char* end : {"\n", "\r"}) {
        std::string other;
        for (const auto& line : Lines(content)) other += line + end;
        Model.L2 = 0;
        ASSERT_TRUE(Load_Model(other));
        EXPECT_EQ(Model.L2, 8.25);
        EXPECT_EQ(Model.RunTable.Alpha(4, 0), -0.5);
    }
}

TEST_F(Reader, DerivedValuesFollowTheFiles) {
    Read_Fixture("rev9.vlk");
    EXPECT_EQ(Model.DeltaStr, "13.25");
    EXPECT_NEAR(Model.DeltaRad, 13.25 * M_PI / 180, 1e-6);
    EXPECT_EQ(Model.LinkArray(0), 12.25);
    EXPECT_EQ(Model.LinkArray(1), 11.25);
    EXPECT_EQ(Model.LinkArray(4), 10.25);
    Expect_Ground_By_Angle();
    EXPECT_EQ(Model.ThetaStart, 10);
    EXPECT_EQ(Model.ThetaEnd, 100);
    EXPECT_EQ(Model.ThetaStep, 7.5);
    EXPECT_NEAR(Model.ThetaStartRad, 10 * M_PI / 180, 1e-7);
    EXPECT_NEAR(Model.ThetaEndRad, 100 * M_PI / 180, 1e-6);
    EXPECT_NEAR(Model.ThetaStepRad, 7.5 * M_PI / 180, 1e-7);
    EXPECT_EQ(Model.UnitLabel(6), "m");
    EXPECT_EQ(Model.DecLength, 4);
    EXPECT_EQ(Model.NSteps, 184) << "a single position keeps the file's";
    EXPECT_TRUE(Model.DiskFile);
    EXPECT_FALSE(Model.Calculated);
}

TEST_F(Reader, BothFormsOfTheGroundLinkStayAsTheyAreWhereTheyAgreeWithinTheDigitsOfAFile) {
    // 5 at 53.1301 degrees, each number to a digit less than it has, and once with an angle beyond a turn.
    const auto with_ground = [](const char* angle, const char* radians, const char* x, const char* y) {
        auto content = With_Line(Held(Fixture_File("rev9.vlk")), 11, "5");
        content = With_Line(With_Line(content, 82, angle), 83, radians);
        return With_Line(With_Line(content, 85, x), 86, y);
    };
    for (const auto& content :
         {with_ground("53.1301", "0.927295", "3.00004", "3.99996"), with_ground("413.1301", "7.21048", "3", "4")}) {
        for (const char* polar : {"#TRUE#", "#FALSE#"}) {
            const auto whole = With_Line(content, 92, polar);
            ASSERT_TRUE(Load_Model(whole));
            const auto written = Lines(File_Content());
            const auto read = Lines(whole);
            for (const std::size_t line : {11U, 82U, 83U, 85U, 86U})
                EXPECT_EQ(written[line - 1], read[line - 1]) << "line " << line;
        }
    }
}

TEST_F(Reader, AnAngleInRadiansThatIsNotTheOneInDegreesFollowsIt) {
    auto content = With_Line(With_Line(Held(Fixture_File("rev9.vlk")), 11, "5"), 82, "53.1301");
    content = With_Line(With_Line(With_Line(content, 83, "0.93"), 85, "3"), 86, "4");
    ASSERT_TRUE(Load_Model(content));
    EXPECT_NEAR(Model.Link1AngleRad, 53.1301 * M_PI / 180, 1e-7);
    EXPECT_EQ(Model.Link1X, 3);
}

TEST_F(Reader, APivotThatNoNumberReachesIsAFailureAndTheModelStays) {
    const auto content = With_Line(With_Line(Held(Fixture_File("rev8.vlk")), 85, "3E+38"), 86, "3E+38");
    Run_Holds();
    const Moment before;
    desktop.Expect_Message("Error 6   (Overflow)  has occurred in Readfile\r\n\r\n");
    EXPECT_FALSE(Load_Model(content));
    EXPECT_EQ(before.Changed(), "");
}

TEST_F(Reader, LimitsThatAreNoNumbersReadAs0) {
    ASSERT_TRUE(Load_Model(With_Line(Held(Fixture_File("rev9.vlk")), 40, "\"start\"")));
    EXPECT_EQ(Model.ThetaStart, 0);
    EXPECT_EQ(Model.ThetaStartStr, "start");
}

TEST_F(Reader, AngleStepsCountAnewAndOverrideTheFile) {
    // (100 - 10) / 7.5 = 12
    ASSERT_TRUE(Load_Model(With_Line(Held(Fixture_File("rev9.vlk")), 44, "3")));
    EXPECT_EQ(Model.NSteps, 12);
}

TEST_F(Reader, AStepLargerThanTheRangeKeepsTheStoredCount) {
    const auto angle = With_Line(Held(Fixture_File("rev9.vlk")), 44, "3");
    ASSERT_TRUE(Load_Model(With_Line(angle, 42, "\"95\"")));
    EXPECT_EQ(Model.NSteps, 184);
    // 0.98 of 91 degrees is still below the 90 of the range, 0.98 of 92 is above.
    ASSERT_TRUE(Load_Model(With_Line(angle, 42, "\"91\"")));
    EXPECT_EQ(Model.NSteps, 1);
    ASSERT_TRUE(Load_Model(With_Line(angle, 42, "\"92\"")));
    EXPECT_EQ(Model.NSteps, 184);
    // 0.98 of 100 degrees is a range from 0 to 98.
    ASSERT_TRUE(Load_Model(With_Line(With_Line(With_Line(angle, 40, "\"0\""), 41, "\"98\""), 42, "\"100\"")));
    EXPECT_EQ(Model.NSteps, 184);
}

TEST_F(Reader, TimeStepsCountAnewWhenTheStepIsAbove0) {
    // (35.25 - 34.25) / 0.3 = 3.33
    const auto time = With_Line(Held(Fixture_File("rev9.vlk")), 44, "2");
    ASSERT_TRUE(Load_Model(With_Line(time, 36, "0.3")));
    EXPECT_EQ(Model.NSteps, 3);
    ASSERT_TRUE(Load_Model(With_Line(time, 36, "0.18")));
    EXPECT_EQ(Model.NSteps, 6);
    for (const char* none : {"0", "-0.3"}) {
        ASSERT_TRUE(Load_Model(With_Line(time, 36, none)));
        EXPECT_EQ(Model.NSteps, 184) << none;
    }
}

TEST_F(Reader, ACircuitIsNamedByItsIndex) {
    const auto content = Held(Fixture_File("rev9.vlk"));
    ASSERT_TRUE(Load_Model(content));
    EXPECT_EQ(Model.CircuitSign, 1);
    EXPECT_EQ(Model.CircuitName, "Crossed");
    ASSERT_TRUE(Load_Model(With_Line(content, 43, "1")));
    EXPECT_EQ(Model.CircuitSign, -1);
    EXPECT_EQ(Model.CircuitName, "Open");
    ASSERT_TRUE(Load_Model(With_Line(content, 43, "7")));
    EXPECT_EQ(Model.CircuitSign, 1) << "any other index than 1 is crossed";
    EXPECT_EQ(Model.CircuitName, "Crossed");
}

TEST_F(Reader, UnitsBelow1AreInches) {
    for (const char* units : {"0", "-4"}) {
        ASSERT_TRUE(Load_Model(With_Line(Held(Fixture_File("rev9.vlk")), 45, units)));
        EXPECT_EQ(Model.Units, 1);
        EXPECT_EQ(Model.UnitLabel(6), "in");
    }
}

TEST_F(Reader, ValuesMayBeReplacedBeforeOthersAreDerivedFromThem) {
    ASSERT_TRUE(Load_Model(Held(Fixture_File("rev9.vlk")), [](LinkageModel& record) {
        EXPECT_EQ(record.L2, 8.25);
        Set_File_Field("L2", "2.5", record);
        Set_File_Field("Calctype", "3", record);
        Set_File_Field("ThetaStepStr", "9", record);
    }));
    EXPECT_EQ(Model.LinkArray(2), 2.5);
    EXPECT_EQ(Model.NSteps, 10);
}

TEST_F(Reader, AModelThatIsEnteredAsFromAFileHasItsLimits) {
    Model.Calctype = 3;
    Model.ThetaStartStr = "30";
    Model.ThetaEndStr = "90";
    Model.ThetaStepStr = "7.5";
    Model.DiskFile = false;
    Enter_As_From_File();
    EXPECT_EQ(Model.ThetaStart, 30);
    EXPECT_NEAR(Model.ThetaEndRad, std::acos(0.0), 1e-6);
    EXPECT_EQ(Model.ThetaStep, 7.5);
    EXPECT_EQ(Model.NSteps, 8);
    EXPECT_TRUE(Model.DiskFile);
}

TEST_F(Reader, AFileThatWasNotReadWholeIsReportedAndChangesNothing) {
    auto lines = Lines(Held(Fixture_File("rev9.vlk")));
    lines.resize(60);
    Screens::Get("frm_Inputnew").Text("txt_Linkout", 1).Text = "9.5";
    Run_Holds();
    Model_Saved();
    Model_Kept();
    const Moment before;
    desktop.Expect_Message("Error 62   (Input past end of file)  has occurred in Read_Newfile\r\n\r\n", Answer::kOk,
                           Icon::kInformation);
    EXPECT_FALSE(Readfile(Joined(lines), "/models/cut.vlk"));
    EXPECT_EQ(before.Changed(), "");
}

}  // namespace verlink::test
