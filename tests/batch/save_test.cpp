// Saving, converting and classifying without a run.
#include <gtest/gtest.h>

#include <cmath>

#include "core/linkage_model.h"
#include "tests/batch/batch_fixture.h"
#include "tests/batch/exact_linkage.h"

namespace verlink::test {

namespace {

struct Save : BatchFixture {
    std::string Written() const { return "File was successfully written to \n" + Path("out.vlk") + "\n"; }
    std::vector<std::string> Saved_Lines(const ModelText& model, std::vector<std::string> options) const {
        options.insert(options.end(), {"--save", Path("out.vlk")});
        const Outcome outcome = Run(model, options);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, Written());
        std::vector<std::string> lines{""};
        const std::string content = Read(Path("out.vlk"));
        for (std::size_t at = 0; at < content.size();) {
            const std::size_t end = content.find("\r\n", at);
            lines.push_back(content.substr(at, end - at));
            at = end + 2;
        }
        return lines;
    }
    static std::string Classified(const ModelText& model, const Save& test) {
        const Outcome outcome = test.Run(model, {"--classify"});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, "");
        const std::string head = "Grashof_Code,LongText,ToggleDegrees\n";
        EXPECT_TRUE(outcome.out.starts_with(head)) << outcome.out;
        return outcome.out.substr(std::min(head.size(), outcome.out.size()));
    }
    std::string Classified(const std::vector<std::string>& links) const {
        return Classified(ModelText().Linkage(links, "1", "0"), *this);
    }
};

}  // namespace

TEST_F(Save, WritesTheModelAgainByteForByte) {
    const Outcome outcome = Run(ModelText(), {"--save", Path("out.vlk")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, Written());
    EXPECT_EQ(Read(Path("out.vlk")), ModelText().Content());
}

TEST_F(Save, TheRecordKnowsTheFileThatItIsReadFromOrSavedTo) {
    ASSERT_EQ(Run(ModelText(), {"--classify"}).status, 0);
    EXPECT_EQ(Model.FilePath, Path("model.vlk"));
    ASSERT_EQ(Run(ModelText(), {"--save", Path("out.vlk")}).status, 0);
    EXPECT_EQ(Model.FilePath, Path("out.vlk"));
}

TEST_F(Save, KeepsTheDriveTable) {
    ModelText model;
    model.Drive(5, {"30,1,0.5", "40,1.25,0", "50,1,-2"}).Set(kLinkDriven, "#TRUE#");
    Run(model, {"--save", Path("out.vlk")});
    EXPECT_EQ(Read(Path("out.vlk")), model.Content());
}

TEST_F(Save, KeepsTheModelsOwnNameAndDate) {
    const auto lines = Saved_Lines(ModelText(), {});
    EXPECT_EQ(lines.at(kModelName), "\"Lever\"");
    EXPECT_EQ(lines.at(kDate), "\"03/14/2007\"");
    EXPECT_EQ(lines.at(kTime), "\"15:09:26\"");
}

TEST_F(Save, WritesWhatWasReplaced) {
    const auto lines = Saved_Lines(ModelText(), {"--set", "L2=1.25", "--set", "FigureTitle=Another"});
    EXPECT_EQ(lines.at(kL2), "1.25");
    EXPECT_EQ(lines.at(kTitle), "\"Another\"");
    EXPECT_EQ(lines.at(kL3), "2.5");
}

TEST_F(Save, WritesTheModelAsItWasBeforeTheRun) {
    // An angle run drops the acceleration; the file keeps it.
    const Outcome outcome = Run(ModelText(), {"--save", Path("out.vlk"), "--csv", Path("out.csv")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(Read(Path("out.vlk")), ModelText().Content());
    EXPECT_EQ(CsvTable(Read(Path("out.csv"))).Rows(), 37);
}

TEST_F(Save, DoesNotReplaceTheModelThatItRead) {
    const std::string path = Write(ModelText());
    const Outcome outcome = Run({path, "--set", "L2=1.25", "--save", path});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(outcome.err.starts_with("verlink-batch: --save and the model are one file, " + path + "\nusage: "));
    EXPECT_EQ(Read(path), ModelText().Content());
}

TEST_F(Save, ConvertsFromInchesToMillimetresWithTheNewDecimals) {
    const auto lines = Saved_Lines(ModelText().Set(kFirstMass, "12.345"), {"--convert-units", "5"});
    EXPECT_EQ(lines.at(kUnits), "5");
    EXPECT_EQ(lines.at(kL2), "0.0283");   // 1.115 in is 28.321 mm, kept as metres to 4 decimals
    EXPECT_EQ(lines.at(kL1), "0.0677");   // 67.7418 mm
    EXPECT_EQ(lines.at(kRpa), "0.0431");  // 43.1038 mm
    EXPECT_EQ(lines.at(kFirstMass), "0.3136");
    EXPECT_EQ(lines.at(kDelta), "-92.66");
    EXPECT_EQ(lines.at(kOmega2), "10");
}

TEST_F(Save, ConvertsFromMetresToFeetByWayOfInches) {
    ModelText metres;
    metres.Linkage({"0.2667", "0.1115", "0.25", "0.25"}, "0.1697", "10").Set(kUnits, "3");
    const auto lines = Saved_Lines(metres, {"--convert-units", "2"});
    const auto twice = [](double length) {
        const double inches = std::floor(length / 0.0254 * 1000 + 0.5) / 1000;
        return std::floor(inches / 12 * 1000 + 0.5) / 1000;
    };
    EXPECT_EQ(lines.at(kUnits), "2");
    EXPECT_FLOAT_EQ(std::stof(lines.at(kL1)), static_cast<float>(twice(0.2667)));
    EXPECT_FLOAT_EQ(std::stof(lines.at(kL2)), static_cast<float>(twice(0.1115)));
    EXPECT_FLOAT_EQ(std::stof(lines.at(kRpa)), static_cast<float>(twice(0.1697)));
}

TEST_F(Save, ConvertingToTheSystemInForceChangesNothing) {
    Saved_Lines(ModelText(), {"--convert-units", "1"});
    EXPECT_EQ(Read(Path("out.vlk")), ModelText().Content());
}

TEST_F(Save, ConvertingAmongTheMetricSystemsChangesTheUnitsAlone) {
    ModelText metres;
    metres.Set(kUnits, "3");
    Saved_Lines(metres, {"--convert-units", "4"});
    EXPECT_EQ(Read(Path("out.vlk")), ModelText(metres).Set(kUnits, "4").Content());
}

TEST_F(Save, TheTableIsThatOfTheConvertedModel) {
    const CsvTable inches = Run(ModelText()).Table();
    Run(ModelText(), {"--save", Path("out.vlk"), "--convert-units", "5", "--csv", Path("out.csv")});
    const CsvTable millimetres(Read(Path("out.csv")));
    for (int row = 0; row < 37; ++row) {
        EXPECT_NEAR(millimetres.At(row, "Coupler Pt X"), 25.4 * inches.At(row, "Coupler Pt X"), 0.3);
        EXPECT_NEAR(millimetres.At(row, "Coupler Pt Y"), 25.4 * inches.At(row, "Coupler Pt Y"), 0.3);
    }
}

TEST_F(Save, TheTableKeepsOffStandardOutput) {
    for (const char* option : {"--csv", "--svg"}) {
        const Outcome outcome = Run(ModelText(), {"--save", Path("out.vlk"), option, Path("file")});
        EXPECT_EQ(outcome.out, "");
        EXPECT_TRUE(std::filesystem::exists(Path("file")));
    }
}

TEST_F(Save, NothingIsRunForSavingAlone) {
    // Limits that a run would refuse are saved all the same.
    const Outcome outcome = Run(ModelText().Angles("90", "10", "5"), {"--save", Path("out.vlk")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, Written());
}

TEST_F(Save, ClassifyPrintsCodeWordsAndNoAngleForAllButNonGrashof) {
    EXPECT_EQ(Classified({"2.667", "1.115", "2.5", "2.5"}), "Y,Linkage is Grashof,\n");
    EXPECT_EQ(Classified({"3", "3", "1", "3.5"}), "Y,Grashof Double-Rocker,\n");
    EXPECT_EQ(Classified({"1", "2", "3", "4"}), "SC,Special-Case Grashof Linkage,\n");
    EXPECT_EQ(Classified({"5", "1", "1", "1"}), "NL,Can't Connect,\n");
    EXPECT_EQ(Classified({"3", "1", "1", "1"}), "NL,Can't Connect,\n");
}

TEST_F(Save, ClassifyGivesTheToggleAngleWithAllItsDigits) {
    const std::string line = Classified({"2.5", "1.25", "0.625", "1.25"});
    const std::string words = "N,Linkage is Non-Grashof,";
    ASSERT_TRUE(line.starts_with(words)) << line;
    // At the toggle, coupler and rocker lie in one line.
    const Exact reach = 0.625L + 1.25L;
    const Exact toggle = Degrees(std::acos((2.5L * 2.5L + 1.25L * 1.25L - reach * reach) / (2 * 2.5L * 1.25L)));
    const std::string digits = line.substr(words.size(), line.size() - words.size() - 1);
    EXPECT_NEAR(std::stod(digits), static_cast<double>(toggle), 1e-5);
    EXPECT_GE(digits.size(), 8u) << digits;
}

TEST_F(Save, ClassifyTakesTheGroundLinkByTheModelsForm) {
    ModelText model;
    model.Linkage({"2.667", "1.115", "2.5", "2.5"}, "1", "0").Set(kL1, "50");
    EXPECT_EQ(Classified(model, *this), "Y,Linkage is Grashof,\n");
    EXPECT_EQ(Classified(model.Set(kPolar, "#TRUE#"), *this), "NL,Can't Connect,\n");
}

TEST_F(Save, ClassifyDoesNotTrustTheCodeInTheFile) {
    EXPECT_EQ(Classified(ModelText().Quote(57, "NL"), *this), "Y,Linkage is Grashof,\n");
}

TEST_F(Save, ClassifyGoesBesideARunWhenOneIsAskedFor) {
    const Outcome outcome = Run(ModelText(), {"--classify", "--csv", Path("out.csv")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "Grashof_Code,LongText,ToggleDegrees\nY,Linkage is Grashof,\n");
    EXPECT_EQ(CsvTable(Read(Path("out.csv"))).Rows(), 37);
}

}  // namespace verlink::test
