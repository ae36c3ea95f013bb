// What makes a batch fail, with the words and the exit status of each failure.
#include <gtest/gtest.h>

#include "tests/batch/batch_fixture.h"

namespace verlink::test {

namespace {

struct Refusals : BatchFixture {
    /// Refused before any row: nothing on standard output and status 1.
    static void Expect_Refused(const Outcome& outcome, const std::string& words) {
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, words);
    }
    std::string Unreadable() const { return "verlink-batch: " + Path("model.vlk") + " cannot be read\n"; }
    void Expect_Unreadable(const std::string& content, const std::string& words) const {
        const Outcome outcome = Run({Write("model.vlk", content)});
        Expect_Refused(outcome, words + Unreadable());
    }
};

}  // namespace

TEST_F(Refusals, OfAFileThatIsNotThere) {
    const std::string path = Path("nowhere.vlk");
    Expect_Refused(Run({path}), "verlink-batch: " + path + " cannot be read: File not found (there is no such file)\n");
}

TEST_F(Refusals, OfAFolder) {
    Expect_Refused(Run({Path("")}),
                   "verlink-batch: " + Path("") + " cannot be read: Path/File access error (it is a folder)\n");
}

TEST_F(Refusals, OfAForeignFile) {
    Expect_Unreadable("\"SOMETHING\"\r\n\"9.0\"\r\n", "This data file is not compatible with VERLINK. \n");
}

TEST_F(Refusals, OfAFileCutShort) {
    const std::string whole = ModelText().Content();
    Expect_Unreadable(whole.substr(0, whole.size() / 3),
                      "Error 62   (Input past end of file)  has occurred in Read_Newfile\n\n");
    Expect_Unreadable("", "Error 62   (Input past end of file)  has occurred in Readfile\n\n");
}

TEST_F(Refusals, OfAValueOfTheWrongKind) {
    Expect_Unreadable(ModelText().Quote(kL2, "long").Content(),
                      "Error 13   (Type mismatch)  has occurred in Read_Newfile\n\n");
}

TEST_F(Refusals, OfAnIntegerThatIsTooLarge) {
    Expect_Unreadable(ModelText().Set(kNSteps, "40000").Content(),
                      "Error 6   (Overflow)  has occurred in Read_Newfile\n\n");
}

TEST_F(Refusals, OfADriveTableBeyondTheCapacity) {
    ModelText model;
    model.Drive(4, std::vector<std::string>(2882, "0,1,0"));
    Expect_Unreadable(model.Content(), "Error 9   (Subscript out of range)  has occurred in Read_Newfile\n\n");
}

TEST_F(Refusals, OfARunTypeThatThereIsNot) {
    Expect_Unreadable(ModelText().Set(kCalctype, "0").Content(),
                      "Error 9   (Subscript out of range)  has occurred in Readfile\n\n");
}

TEST_F(Refusals, OfAnAngleStepOfZero) {
    Expect_Unreadable(ModelText().Angles("0", "90", "0").Content(),
                      "Error 11   (Division by zero)  has occurred in Readfile\n\n");
}

TEST_F(Refusals, OfAnglesInTheWrongOrder) {
    const std::string words =
        "Minimum angle must be smaller than maximum angle.\nTo rotate CW from max to min, use a negative Omega2.\n";
    Expect_Refused(Run(ModelText().Angles("90", "10", "5")), words);
    Expect_Refused(Run(ModelText().Angles("90", "90", "5")), words);
}

TEST_F(Refusals, OfANegativeAngleStep) {
    const std::string words =
        "Cannot have a zero or negative step size\nTo rotate CW from max to min, use a negative Omega2.\n";
    Expect_Refused(Run(ModelText().Angles("0", "90", "-5")), words);
}

TEST_F(Refusals, OfAnAngleStepOf98PercentOfTheRange) {
    const std::string words =
        "Something is wrong. \nStart and end theta are too close together\n or delta theta is too large.\n";
    Expect_Refused(Run(ModelText().Angles("0", "360", "400")), words);
    Expect_Refused(Run(ModelText().Angles("0", "360", "367.4")), words);
    // Radians in which 98 percent of the step are the range to the last place.
    Expect_Refused(Run(ModelText().Angles("0", "98", "100")), words);
    Expect_Refused(Run(ModelText().Angles("0", "294", "300")), words);
    const Outcome accepted = Run(ModelText().Angles("0", "360", "367"));
    EXPECT_EQ(accepted.status, 0);
    EXPECT_EQ(accepted.Table().Rows(), 2);
}

TEST_F(Refusals, OfMoreThan2880AngleSteps) {
    Expect_Refused(Run(ModelText().Angles("0", "360", "0.1")),
                   "Your angle steps are too small - Have > 2880 Points - Increase Delta Theta\n");
    EXPECT_EQ(Run(ModelText().Angles("0", "288.1", "0.1")).status, 1);
    EXPECT_EQ(Run(ModelText().Angles("0", "288", "0.1")).status, 0);
}

TEST_F(Refusals, ANegativeLengthIsMadePositiveAndToldWhateverIsAskedFor) {
    const std::string words =
        "Link lengths must be positive - Have changed to positive value - Please check your data\n";
    for (const char* option : {"--csv=-", "--classify", "--cognates", "--balance-report"}) {
        SCOPED_TRACE(option);
        const Outcome positive = Run(ModelText().Set(kPolar, "#TRUE#"), {option});
        ASSERT_EQ(positive.status, 0);
        EXPECT_EQ(positive.err, "");
        for (const auto& [line, length] : {std::pair{kL1, "-2.667"}, {kL2, "-1.115"}, {kL3, "-2.5"}, {kL4, "-2.5"}}) {
            const Outcome outcome = Run(ModelText().Set(kPolar, "#TRUE#").Set(line, length), {option});
            EXPECT_EQ(outcome.status, 0);
            EXPECT_EQ(outcome.err, words) << line;
            EXPECT_EQ(outcome.out, positive.out) << line;
        }
    }
}

TEST_F(Refusals, OfTimesInTheWrongOrder) {
    const std::string words = "Start time must be smaller than end time - will reset.\n";
    Expect_Refused(Run(ModelText().Times("2", "1", "0.1")), words);
    Expect_Refused(Run(ModelText().Times("1", "1", "0.1")), words);
}

TEST_F(Refusals, OfATimeStepOfZero) {
    Expect_Refused(Run(ModelText().Times("0", "1", "0")),
                   "Time steps must be positive - will reset\n"
                   "Your time steps are too small - Have > 2880 Points - Increase Delta Time\n"
                   "Your time steps are too small - Have > 2880 Points - Increase Delta Time or Reduce Finish Time\n");
}

TEST_F(Refusals, ANegativeTimeStepIsMadePositiveAndRun) {
    const Outcome outcome = Run(ModelText().Times("0", "1", "-0.25"));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "Time steps must be positive - will reset\n");
    const CsvTable table = outcome.Table();
    ASSERT_EQ(table.Rows(), 5);
    EXPECT_EQ(table.Text(4, "Time"), "1");
}

TEST_F(Refusals, OfMoreThan2880TimeSteps) {
    Expect_Refused(Run(ModelText().Times("0", "10", "0.003")),
                   "Your time steps are too small - Have > 2880 Points - Increase Delta Time\n"
                   "Your time steps are too small - Have > 2880 Points - Increase Delta Time or Reduce Finish Time\n");
}

TEST_F(Refusals, OnePositionLooksAtTheTimeLimitsToo) {
    const std::string words =
        "Your time steps are too small - Have > 2880 Points - Increase Delta Time or Reduce Finish Time\n";
    Expect_Refused(Run(ModelText().Times("0", "10", "0.003").Set(kCalctype, "1")), words);
    Expect_Refused(Run(ModelText().Times("0", "1", "0").Set(kCalctype, "1")), words);
    EXPECT_EQ(Run(ModelText().Times("2", "1", "0.1").Set(kCalctype, "1")).status, 0);
}

TEST_F(Refusals, OfLengthsThatCannotCloseAtAll) {
    ModelText model;
    model.Linkage({"10", "1", "2", "3"}, "1", "0");
    Expect_Refused(Run(model, {"--svg", Path("none.svg")}),
                   "Your link lengths are incompatible\n"
                   "and cannot reach to close the linkage \n\n"
                   "The computation will now be aborted.\n"
                   "Please correct your link lengths.\n\n"
                   "If you were shift-click-dragging a joint,just \n"
                   "shift-click in a new location until linkage reappears.\n");
    EXPECT_FALSE(std::filesystem::exists(Path("none.svg")));
}

TEST_F(Refusals, OfARunInWhichNoPositionCloses) {
    ModelText model;
    model.Linkage({"2.5", "1.25", "0.625", "1.25"}, "0.3125", "0").Angles("90", "150", "20");
    const Outcome outcome = Run(model);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "verlink-batch: 4 of 4 positions do not close\n");
    const CsvTable table = outcome.Table();
    ASSERT_EQ(table.Rows(), 4);
    for (int row = 0; row < 4; ++row) EXPECT_EQ(table.Text(row, "Assembled"), "0");
}

TEST_F(Refusals, OfALinkWithoutLength) {
    const Outcome outcome = Run(ModelText().Set(kL2, "0").Set(kCalctype, "1"));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err,
              "Error 11   (Division by zero)  has occurred in Calculate\n\n"
              "verlink-batch: 1 of 1 positions do not close\n");
}

TEST_F(Refusals, ADriveTableWithoutRowsClosesNowhere) {
    const Outcome outcome = Run(ModelText().Set(kCalctype, "5").Set(kNSteps, "-1"));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "verlink-batch: the drive table has no rows\n");
}

TEST_F(Refusals, NegativeLengthsAreMadePositiveAndRun) {
    const std::string words =
        "Link lengths must be positive - Have changed to positive value - Please check your data\n";
    const Outcome plain = Run(ModelText());
    const Outcome negative = Run(ModelText().Set(kL2, "-1.115").Set(kRpa, "-1.697"));
    EXPECT_EQ(negative.status, 0);
    EXPECT_EQ(negative.err, words + words);
    EXPECT_EQ(negative.out, plain.out);
    const Outcome polar = Run(ModelText().Set(kPolar, "#TRUE#").Set(kL1, "-2.667"));
    EXPECT_EQ(polar.err, words);
    EXPECT_EQ(polar.out, plain.out);
    // The pivot's coordinates may be negative: the length follows from them.
    EXPECT_EQ(Run(ModelText().Set(kL1, "-2.667")).err, "");
}

TEST_F(Refusals, OfFilesThatCannotBeWritten) {
    const std::string nowhere = Path("no/folder/out");
    const std::string words =
        "verlink-batch: " + nowhere + " cannot be written: Path not found (there is no folder " + Path("no") + ")\n";
    for (const char* option : {"--csv", "--svg"}) {
        const Outcome outcome = Run(ModelText(), {option, nowhere});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.err, words);
    }
    Expect_Refused(Run(ModelText(), {"--csv", "/dev/full"}),
                   "verlink-batch: /dev/full cannot be written: Disk full (the disk is full)\n");
    Expect_Refused(Run(ModelText(), {"--save", nowhere}), "Error 76   (Path not found)  has occurred in Writefile\n\n" +
                                                              nowhere + "\ncannot be written: there is no folder " +
                                                              Path("no") + ".\n");
}

}  // namespace verlink::test
