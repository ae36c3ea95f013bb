// Cognates and built-in linkages from the command line.
#include <gtest/gtest.h>

#include <complex>
#include <numbers>

#include "tests/batch/batch_fixture.h"

namespace verlink::test {

namespace {

struct Cognates : BatchFixture {
    static constexpr const char* kHead = "Cognate,L1,L2,L3,L4,Rpa,DeltaRad\n";
};
struct Examples : BatchFixture {};

const std::vector<std::string> kNames{"grashof", "hoekens", "roberts", "watts", "cheby"};

}  // namespace

TEST_F(Cognates, AreThreeRowsBelowTheirHead) {
    const Outcome outcome = Run(ModelText(), {"--cognates"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_TRUE(outcome.out.starts_with(kHead)) << outcome.out;
    const CsvTable table = outcome.Table();
    ASSERT_EQ(table.Rows(), 3);
    for (int row = 0; row < 3; ++row) EXPECT_EQ(table.Text(row, "Cognate"), std::to_string(row + 1));
    const std::pair<const char*, const char*> first[] = {{"L1", "2.667"}, {"L2", "1.115"},  {"L3", "2.5"},
                                                         {"L4", "2.5"},   {"Rpa", "1.697"}, {"DeltaRad", "-1.617222"}};
    for (const auto& [column, value] : first) EXPECT_EQ(table.Text(0, column).substr(0, 9), value);
}

TEST_F(Cognates, StandOnTheTriangleSimilarToTheCoupler) {
    const CsvTable table = Run(ModelText(), {"--cognates"}).Table();
    // The coupler point as seen from A, in couplers.
    const auto point = std::polar(1.697 / 2.5, -92.66 * std::numbers::pi / 180);
    EXPECT_NEAR(table.At(1, "L1"), 2.667 * std::abs(point), 1e-6);
    EXPECT_NEAR(table.At(2, "L1"), 2.667 * std::abs(1.0 - point), 1e-6);
    EXPECT_NEAR(table.At(1, "L3"), 1.115 * std::abs(point), 1e-6);
    EXPECT_NEAR(table.At(2, "L3"), 2.5 * std::abs(1.0 - point), 1e-6);
}

TEST_F(Cognates, OfHoekensLinkageAreChebyshevsAndItself) {
    const CsvTable table = Run({"--example", "hoekens", "--cognates"}).Table();
    const std::pair<const char*, double> chebyshev[] = {{"L1", 4}, {"L2", 5}, {"L3", 2}, {"L4", 5}, {"Rpa", 1}};
    for (const auto& [column, value] : chebyshev) EXPECT_NEAR(table.At(1, column), value, 1e-6) << column;
    for (const auto& [column, value] : chebyshev) EXPECT_NEAR(table.At(2, column), table.At(0, column), 1e-6) << column;
}

TEST_F(Cognates, AreThereAlsoWhereTwoLinksAreTogetherAsLongAsTheThird) {
    for (const std::vector<std::string>& links : {std::vector<std::string>{"3", "1", "3", "2"}, {"3", "1", "2", "3"}}) {
        const Outcome outcome = Run(ModelText().Linkage(links, "1.5", "30"), {"--cognates"});
        EXPECT_EQ(outcome.status, 0);
        ASSERT_EQ(outcome.Table().Rows(), 3);
        EXPECT_EQ(outcome.Table().Text(0, "L3"), links[2]);
    }
}

TEST_F(Cognates, HaveTheirLengthsAsTheFileStoresThem) {
    ModelText model;
    model.Linkage({"0.2", "0.06", "0.175", "0.14"}, "0.11", "28.25").Set(kUnits, "5");
    const CsvTable table = Run(model, {"--cognates"}).Table();
    EXPECT_EQ(table.Text(0, "L2"), "0.06");
    EXPECT_NEAR(table.At(1, "L1"), 0.2 * 0.11 / 0.175, 1e-7);
}

TEST_F(Cognates, FollowTheReplacedFieldsAndStandBehindTheClassification) {
    const Outcome outcome = Run(ModelText(), {"--cognates", "--classify", "--set", "L2=1.25"});
    EXPECT_TRUE(outcome.out.starts_with(std::string("Grashof_Code,LongText,ToggleDegrees\nY,Linkage is Grashof,\n") +
                                        kHead + "1,2.667,1.25,2.5,2.5,"))
        << outcome.out;
}

TEST_F(Cognates, KeepTheTableOffStandardOutput) {
    const Outcome outcome = Run(ModelText(), {"--cognates", "--csv", Path("table.csv")});
    EXPECT_EQ(outcome.Table().Rows(), 3);
    EXPECT_EQ(Read(Path("table.csv")), Run(ModelText()).out);
}

TEST_F(Cognates, AreRefusedForAParallelogram) {
    ModelText model;
    model.Linkage({"3", "1", "3", "1"}, "1", "20");
    const Outcome outcome = Run(model, {"--cognates"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err,
              "Your present linkage is a parallelogram,\n"
              "which has an infinity of cognates\n"
              "all of which have circular coupler curves.\n\n"
              "Cognate switching and the Cayley diagram are\n"
              "not available for parallelogram linkages\n"
              "as they have no value in this case.\n");
}

TEST_F(Cognates, ThereAreOfALinkAsLongAsTheOtherTwo) {
    for (const std::vector<std::string>& links :
         {std::vector<std::string>{"3.5", "1", "2", "3"}, {"3.5", "1", "3", "2"}}) {
        const Outcome outcome = Run(ModelText().Linkage(links, "1", "20"), {"--cognates"});
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(outcome.Table().Rows(), 3);
    }
}

TEST_F(Cognates, AreRefusedWhenNoMovingLinkHasALength) {
    ModelText model;
    model.Linkage({"3", "0", "0", "0"}, "1", "20");
    const Outcome outcome = Run(model, {"--cognates"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "Error 11   (Division by zero)  has occurred in Cayley\n\n");
}

TEST_F(Examples, RunLikeTheFilesThatTheyAreSavedTo) {
    for (const std::string& name : kNames) {
        const Outcome example = Run({"--example", name});
        EXPECT_EQ(example.status, 0) << name;
        EXPECT_EQ(example.err, "") << name;
        EXPECT_EQ(Run({"--example", name, "--save", Path("model.vlk")}).status, 0);
        EXPECT_EQ(Run({Path("model.vlk")}).out, example.out) << name;
    }
}

TEST_F(Examples, RunOverTheirOwnRanges) {
    const int rows[] = {37, 37, 11, 31, 54};
    const char* const start[] = {"45", "0", "49", "320", "37"};
    for (std::size_t i = 0; i < kNames.size(); ++i) {
        const CsvTable table = Run({"--example", kNames[i]}).Table();
        EXPECT_EQ(table.Rows(), rows[i]) << kNames[i];
        EXPECT_NEAR(table.At(0, "Theta2"), std::stod(start[i]), 1e-4) << kNames[i];
        for (int row = 0; row < table.Rows(); ++row) EXPECT_EQ(table.Text(row, "Assembled"), "1") << kNames[i];
    }
}

TEST_F(Examples, TakeReplacedFields) {
    const CsvTable table = Run({"--set", "L2=5", "--example", "grashof", "--cognates"}).Table();
    EXPECT_EQ(table.Text(0, "L2"), "5");
    EXPECT_EQ(table.Text(0, "L3"), "16");
}

TEST_F(Examples, RefuseFieldsThatDoNotFit) {
    const Outcome outcome = Run({"--example", "watts", "--set", "Calctype=9"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err,
              "Error 9   (Subscript out of range)  has occurred in Readfile\n\n"
              "verlink-batch: the example watts cannot be read with these values\n");
}

TEST_F(Examples, AreKnownByFiveNames) {
    const Outcome outcome = Run({"--example", "peaucellier"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_TRUE(outcome.err.starts_with("verlink-batch: there is no example \"peaucellier\"\nusage: verlink-batch"))
        << outcome.err;
}

TEST_F(Examples, OfOneNameGiveTheSameBytesInAProcessOfTheirOwn) {
    for (const std::string& name : kNames) {
        const Outcome outcome = Spawn({"--example", name, "--cognates"});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.out, Run({"--example", name, "--cognates"}).out);
    }
}

}  // namespace verlink::test
