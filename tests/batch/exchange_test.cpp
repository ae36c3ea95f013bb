// What verlink-batch imports and exports: drives, torque, and the files for other stages and programs.
#include <gtest/gtest.h>

#include <cmath>

#include "core/linkage_model.h"
#include "tests/batch/batch_fixture.h"
#include "tests/support/drive_data.h"

namespace verlink::test {

namespace {

struct Exchange : BatchFixture {
    Exchange() {
        model.Set(kFirstMass + 6, "0.003").Set(kFirstMass + 7, "0.006").Set(kFirstMass + 8, "0.0075");
        model.Set(kFirstMass + 9, "0.028").Set(kFirstMass + 10, "0.22").Set(kFirstMass + 11, "0.129");
    }
    static std::vector<std::string> Lines(const std::string& content) {
        std::vector<std::string> lines;
        for (std::size_t at = 0; at < content.size();) {
            const std::size_t end = content.find("\r\n", at);
            lines.push_back(content.substr(at, end - at));
            at = end + 2;
        }
        return lines;
    }
    /// The lines of a file that was written.
    std::vector<std::string> Written(const std::string& name) const { return Lines(Read(Path(name))); }
    static std::vector<double> Numbers(const std::string& row) {
        std::vector<double> numbers;
        for (std::size_t at = 0; at < row.size();) {
            std::size_t length = 0;
            numbers.push_back(std::stod(row.substr(at), &length));
            at = row.find_first_not_of(' ', at + length);
        }
        return numbers;
    }
    void Expect_Refused(const std::vector<std::string>& options, const std::string& words) const {
        const Outcome outcome = Run(model, options);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.err, words);
        EXPECT_EQ(outcome.out, "");
    }

    ModelText model;
};

}  // namespace

TEST_F(Exchange, TheMotionOfLink4IsThatOfTheTableInFreeForm) {
    const Outcome outcome = Run(model, {"--export-out", Path("stage1.out")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    const CsvTable table = outcome.Table();
    const auto lines = Written("stage1.out");
    ASSERT_EQ(lines.size(), 16U + 37U);
    EXPECT_EQ(lines[0], " 36 ");
    for (int row = 0; row < table.Rows(); ++row) {
        const auto numbers = Numbers(lines[static_cast<std::size_t>(16 + row)]);
        ASSERT_EQ(numbers.size(), 3U) << row;
        const char* columns[] = {"Theta4", "Omega4", "Alpha4"};
        for (std::size_t i = 0; i < 3; ++i) {
            const double value = table.At(row, columns[i]);
            EXPECT_NEAR(numbers[i], value, std::abs(value) * 6e-7) << row << columns[i];
        }
    }
}

TEST_F(Exchange, TorqueIsTheTablesToSevenDigits) {
    const Outcome outcome = Run(model, {"--dynamics", "--export-trq", Path("a.trq")});
    EXPECT_EQ(outcome.status, 0);
    const CsvTable table = outcome.Table();
    const auto lines = Written("a.trq");
    ASSERT_EQ(lines.size(), 38U);
    EXPECT_EQ(lines[0], "36");
    double largest = 0;
    for (int row = 0; row < table.Rows(); ++row) {
        const double value = table.At(row, "Torque 12");
        largest = std::max(largest, std::abs(value));
        EXPECT_NEAR(std::stod(lines[static_cast<std::size_t>(1 + row)]), value, std::abs(value) * 6e-7) << row;
    }
    EXPECT_GT(largest, 1);
}

TEST_F(Exchange, ThePendrixFileIsMadeOfTheRun) {
    const Outcome outcome = Run(model, {"--export-pdx", Path("a.pdx")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    const auto lines = Written("a.pdx");
    ASSERT_EQ(lines.size(), 68U);
    EXPECT_EQ(lines[0], "\"PENDRIX\"");
    EXPECT_EQ(lines[2], "\"Lever\"");
    const CsvTable table = outcome.Table();
    // The coupler's triangle: the angle at B between BA and BP.
    const double delta = -92.66 * std::acos(-1.0) / 180;
    const double at_b = std::atan2(1.697 * std::sin(delta), 2.5 - 1.697 * std::cos(delta)) * 180 / std::acos(-1.0);
    const double phase = table.At(0, "Theta2") - at_b - table.At(0, "Theta3");
    EXPECT_NEAR(std::remainder(std::stod(lines[15]) - phase, 360), 0, 0.0051);
}

TEST_F(Exchange, ExportsRunTheModelAndLeaveTheTableWhereItGoesOtherwise) {
    const std::string table = Run(model, {}).out;
    const std::vector<std::string> exports = {"--export-out", Path("a.out"), "--export-pdx", Path("a.pdx")};
    EXPECT_EQ(Run(model, exports).out, table);
    std::vector<std::string> with_save = exports;
    with_save.insert(with_save.end(), {"--save", Path("a.vlk")});
    EXPECT_EQ(Run(model, with_save).out, "");
    EXPECT_EQ(Written("a.out").size(), 53U);
}

TEST_F(Exchange, TheMotionOfOneStageDrivesTheNext) {
    const CsvTable first = Run(model, {"--export-out", Path("stage1.out")}).Table();
    ModelText next;
    next.Linkage({"4", "1", "3.5", "3"}, "1", "20").Set(kDelta2, "25");
    const Outcome outcome = Run(next, {"--drive", Path("stage1.out")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    const CsvTable second = outcome.Table();
    ASSERT_EQ(second.Rows(), first.Rows());
    for (int row = 0; row < first.Rows(); ++row) {
        EXPECT_NEAR(std::remainder(second.At(row, "Theta2") - first.At(row, "Theta4") - 25, 360), 0, 1e-3) << row;
        EXPECT_NEAR(second.At(row, "Omega2"), first.At(row, "Omega4"), 1e-5) << row;
        EXPECT_NEAR(second.At(row, "Alpha2"), first.At(row, "Alpha4"), 1e-3) << row;
        EXPECT_EQ(second.Text(row, "Assembled"), "1");
    }
}

TEST_F(Exchange, ACamFileDrivesTheLinkageThatItBrings) {
    CamFile cam;
    cam.units = "5";
    cam.lengths = {"50", "160", "120", "150"};
    cam.places = {"90", "120", "-240", "100"};
    const Outcome outcome = Run(model, {"--drive", Write("Press.SVA", cam.Content())});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    const CsvTable table = outcome.Table();
    ASSERT_EQ(table.Rows(), 4);
    const double drive[] = {0, 10.5, 20, 30};
    for (int row = 0; row < 4; ++row) {
        // By the direction, the phase and the offset of the file; the ground link's angle cancels out.
        EXPECT_NEAR(std::remainder(table.At(row, "Theta2") - (-drive[row] + 15 - 7), 360), 0, 1e-3) << row;
        EXPECT_NEAR(table.At(row, "Time"), 0.5 + 0.5 * row, 1e-6);
    }
    EXPECT_NEAR(table.At(1, "Omega2"), -1.5, 1e-6);
}

TEST_F(Exchange, ACamFileWithoutALinkageDrivesTheModels) {
    CamFile cam;
    cam.links = "3";
    cam.direction = "1";
    model.Set(kThetaZero, "4");
    const CsvTable table = Run(model, {"--drive", Write("press.sva", cam.Content())}).Table();
    ASSERT_EQ(table.Rows(), 4);
    EXPECT_NEAR(table.At(2, "Theta2"), 20 + 15 + 4, 1e-4);
}

TEST_F(Exchange, TheDriveComesAfterTheFieldsThatAreReplaced) {
    const std::string drive = Write("stage1.out", LinkFile({"10,1,0", "20,1,0"}));
    const CsvTable table = Run(model, {"--set", "Delta2=5", "--set", "TimeStep=9", "--drive", drive}).Table();
    EXPECT_NEAR(table.At(1, "Theta2"), 25, 1e-4);
    EXPECT_NEAR(table.At(1, "Time"), 0.5, 1e-6);
}

TEST_F(Exchange, AnExampleIsDrivenToo) {
    const std::string drive = Write("stage1.out", LinkFile({"100,1,0", "120,1,0"}));
    const Outcome outcome = Run({"--example", "grashof", "--drive", drive});
    EXPECT_EQ(outcome.status, 0);
    ASSERT_EQ(outcome.Table().Rows(), 2);
    EXPECT_NEAR(outcome.Table().At(1, "Theta2"), 120, 1e-4);
}

TEST_F(Exchange, TheSavedModelHoldsWhatWasImported) {
    const std::string drive = Write("stage1.out", LinkFile({"10,1,0", "20,1.5,0", "30,1,-1"}));
    const std::string torque = Write("load.trq", "2\r\n0.5\r\n-1.5\r\n2\r\n");
    const Outcome outcome = Run(model, {"--drive", drive, "--torque", torque, "--save", Path("b.vlk")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
    const auto lines = Written("b.vlk");
    ASSERT_EQ(lines.size(), 184U + 3U + 3U);
    EXPECT_EQ(lines[kCalctype - 1], "5");
    EXPECT_EQ(lines[kLinkDriven - 1], "#TRUE#");
    EXPECT_EQ(lines[92], "\"stage1.out\"");
    EXPECT_EQ(lines[93], "#TRUE#");
    EXPECT_EQ(lines[185], "20,1.5,0");
    EXPECT_EQ(lines[188], "-1.5");
    EXPECT_EQ(Run({Path("b.vlk")}).Table().Rows(), 3);
}

TEST_F(Exchange, ImportedTorqueIsTheLoadOnLink4StepByStep) {
    std::string content = "36\r\n";
    for (int step = 0; step <= 36; ++step) content += std::to_string(step * 2 - 30) + "\r\n";
    const std::string torque = Write("load.trq", content);
    const CsvTable free = Run(model, {"--dynamics"}).Table();
    // Also when the torque was imported once before, to be saved.
    for (const std::vector<std::string>& more :
         {std::vector<std::string>{}, {"--save", Path("b.vlk"), "--csv", Path("loaded.csv")}}) {
        std::vector<std::string> options = {"--dynamics", "--torque", torque};
        options.insert(options.end(), more.begin(), more.end());
        const Outcome outcome = Run(model, options);
        EXPECT_EQ(outcome.status, 0);
        const CsvTable loaded(more.empty() ? outcome.out : Read(Path("loaded.csv")));
        for (int row = 0; row <= 36; ++row) {
            const double load = row * 2 - 30;
            EXPECT_NEAR(loaded.At(row, "Torque L4") - free.At(row, "Torque L4"), load, 2e-4) << row;
            // What the load takes out at link 4, the crank puts in.
            const double power = (loaded.At(row, "Torque 12") - free.At(row, "Torque 12")) * loaded.At(row, "Omega2") +
                                 load * loaded.At(row, "Omega4");
            EXPECT_NEAR(power, 0, 2e-3) << row;
        }
    }
}

TEST_F(Exchange, AModelThatHasATorqueTableIsSolvedWithIt) {
    std::string content = "36\r\n";
    for (int step = 0; step <= 36; ++step) content += std::to_string(step * 2 - 30) + "\r\n";
    const std::string torque = Write("load.trq", content);
    const std::string imported = Run(model, {"--dynamics", "--torque", torque}).out;
    EXPECT_EQ(Model.TorqueFileName, "load.trq");
    ASSERT_EQ(Run(model, {"--torque", torque, "--save", Path("loaded.vlk")}).status, 0);
    EXPECT_EQ(Run({Path("loaded.vlk"), "--dynamics"}).out, imported);

    const Outcome fewer = Run({Path("loaded.vlk"), "--dynamics", "--set", "ThetaStepStr=20"});
    EXPECT_EQ(fewer.status, 1);
    EXPECT_EQ(fewer.err, "verlink-batch: the model has torques for 37 positions, and the run has 19\n");
    EXPECT_EQ(Run({Path("loaded.vlk"), "--set", "ThetaStepStr=20"}).status, 0) << "no forces, no torques";
    EXPECT_EQ(Run({Path("loaded.vlk"), "--set", "NSteps=36"}).status, 0);
    EXPECT_EQ(Run({Path("loaded.vlk"), "--set", "NSteps=37"}).status, 1) << "its file has 37 torques";

    const Outcome study = Run({Path("loaded.vlk"), "--sweep", "L2=1:1.1:3", "--measure", "max Torque 12"});
    EXPECT_NE(study.status, 0);
    EXPECT_NE(study.err.find("\"max Torque 12\" takes a torque on link 4 that is typed, not a table of torques"),
              std::string::npos)
        << study.err;
    EXPECT_EQ(Run({Path("loaded.vlk"), "--sweep", "L2=1:1.1:3", "--measure", "max Theta4"}).status, 0);
}

TEST_F(Exchange, TorquesAreInTheUnitsOfTheModelThatTheyAreImportedTo) {
    std::string content = "36\r\n";
    for (int step = 0; step <= 36; ++step) content += "6\r\n";
    const std::string torque = Write("load.trq", content);
    ASSERT_EQ(Run(model, {"--convert-units", "2", "--save", Path("free.vlk")}).status, 0);
    const CsvTable free = Run({Path("free.vlk"), "--dynamics"}).Table();
    ASSERT_EQ(Run(model, {"--dynamics", "--torque", torque, "--convert-units", "2", "--save", Path("feet.vlk"), "--csv",
                          Path("feet.csv")})
                  .status,
              0);
    const CsvTable once(Read(Path("feet.csv"))), again = Run({Path("feet.vlk"), "--dynamics"}).Table();
    for (int row = 0; row <= 36; ++row) {
        EXPECT_NEAR(once.At(row, "Torque L4") - free.At(row, "Torque L4"), 0.5, 1e-5) << row;
        EXPECT_NEAR(again.At(row, "Torque L4") - free.At(row, "Torque L4"), 0.5, 1e-5) << row;
    }
}

TEST_F(Exchange, ATorqueTableOfAnotherLengthIsRefused) {
    const std::string torque = Write("load.trq", "1\r\n0.5\r\n-1.5\r\n");
    Expect_Refused({"--dynamics", "--torque", torque},
                   "This file has a different number of data than your current model and is incompatible\n"
                   "verlink-batch: " +
                       torque + " cannot be imported\n");
}

TEST_F(Exchange, FilesThatCannotBeReadAreNamed) {
    for (const char* option : {"--drive", "--torque"}) {
        const std::string path = Path(option[2] == 'd' ? "none.sva" : "none.trq");
        Expect_Refused({"--dynamics", option, path},
                       "verlink-batch: " + path + " cannot be imported: File not found (there is no such file)\n");
    }
    const std::string broken = Write("broken.out", LinkFile({"1,2,3", "4,x,6"}));
    Expect_Refused({"--drive", broken},
                   "Error 13   (Type mismatch)  has occurred in Import_Linkage_Data\n\nverlink-batch: " + broken +
                       " cannot be imported\n");
    const std::string torque = Write("broken.trq", "36\r\n1\r\n");
    Expect_Refused({"--dynamics", "--torque", torque},
                   "An error has occurred in the Import_Torque_Data routine\n"
                   "Error 62   (Input past end of file)  has occurred in Import_Torque_Data\n\nverlink-batch: " +
                       torque + " cannot be imported\n");
}

TEST_F(Exchange, RefusedCamFilesAreRefusedWithTheirWords) {
    CamFile cam;
    cam.links = "6";
    const std::string six = Write("six.sva", cam.Content());
    Expect_Refused({"--drive", six},
                   "This file contains data for a Corvex linkage.\nPlease import it to Program Corvex instead.\n"
                   "verlink-batch: " +
                       six + " cannot be imported\n");
}

TEST_F(Exchange, ADrivenRunIsNotBalanced) {
    const std::string drive = Write("stage1.out", LinkFile({"10,1,0", "20,1,0"}));
    const Outcome outcome = Run(model, {"--drive", drive, "--balance"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "Cannot balance a cam- or linkage-driven linkage.\n");
}

TEST_F(Exchange, AnExportThatCannotBeWrittenSpoilsTheStatus) {
    for (const char* option : {"--export-out", "--export-trq", "--export-pdx"}) {
        const Outcome outcome = Run(model, {"--dynamics", option, Path("gone/a.out")});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.err, "verlink-batch: " + Path("gone/a.out") +
                                   " cannot be written: Path not found (there is no folder " + Path("gone") + ")\n");
    }
}

}  // namespace verlink::test
