// The executable itself: exit status, streams, and the same bytes each time.
#include <gtest/gtest.h>

#include "tests/batch/batch_fixture.h"

namespace verlink::test {

namespace {
struct Executable : BatchFixture {};
}  // namespace

TEST_F(Executable, WritesTheTableToStandardOutputAndEndsWithZero) {
    const std::string path = Write(ModelText());
    const Outcome outcome = Spawn({path});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out, Run({path}).out);
    EXPECT_EQ(outcome.Table().Rows(), 37);
}

TEST_F(Executable, WritesTheTableToAFileAndNothingElse) {
    const std::string path = Write(ModelText());
    const Outcome outcome = Spawn({path, "--csv", Path("out.csv")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out + outcome.err, "");
    EXPECT_EQ(Read(Path("out.csv")), Run({path}).out);
}

TEST_F(Executable, TwoRunsGiveTheSameBytes) {
    ModelText model;
    model.Angles("0", "360", "0.125");
    const std::string path = Write(model);
    for (const char* round : {"1", "2"}) {
        const std::string to = Path(round);
        const Outcome outcome =
            Spawn({path, "--csv", to + ".csv", "--svg", to + ".svg", "--save", to + ".vlk", "--convert-units", "4"});
        EXPECT_EQ(outcome.status, 0);
    }
    for (const char* kind : {".csv", ".svg", ".vlk"}) {
        EXPECT_GT(Read(Path("1") + kind).size(), 500u);
        EXPECT_EQ(Read(Path("1") + kind), Read(Path("2") + kind)) << kind;
    }
}

TEST_F(Executable, EndsWithOneAndWordsOnStandardErrorWhenTheModelCannotBeRead) {
    const Outcome outcome = Spawn({Path("nowhere.vlk")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err,
              "verlink-batch: " + Path("nowhere.vlk") + " cannot be read: File not found (there is no such file)\n");
}

TEST_F(Executable, EndsWithOneWhenItClosesNowhere) {
    ModelText model;
    model.Linkage({"10", "1", "2", "3"}, "1", "0");
    EXPECT_EQ(Spawn({Write(model)}).status, 1);
}

TEST_F(Executable, EndsWithTwoAndItsUsageOnWrongUsage) {
    const std::vector<std::vector<std::string>> wrong{{},
                                                      {"--frame"},
                                                      {"a", "b", "--csv", "c"},
                                                      {"a", "--set", "L2"},
                                                      {"a", "--set", "L9=1"},
                                                      {"a", "--convert-units", "3"}};
    for (const auto& arguments : wrong) {
        const Outcome outcome = Spawn(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        EXPECT_TRUE(outcome.err.starts_with("verlink-batch: "));
        EXPECT_NE(outcome.err.find("\nusage: verlink-batch MODEL.vlk"), std::string::npos) << outcome.err;
    }
}

TEST_F(Executable, HelpNamesEveryOption) {
    const Outcome outcome = Spawn({"--help"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    for (const char* option :
         {"MODEL.vlk", "--set FIELD=VALUE", "--csv FILE", "--svg FILE", "--example NAME", "--cognates", "--classify",
          "--save OUT.vlk", "--convert-units N", "--help", "--version"})
        EXPECT_NE(outcome.out.find(option), std::string::npos) << option;
}

TEST_F(Executable, TellsItsVersion) {
    const Outcome outcome = Spawn({"--version"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "verlink-batch 9.0\n");
}

TEST_F(Executable, AFullStandardOutputIsAFailure) {
    const Outcome outcome = Spawn({Write(ModelText())}, "/dev/full");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "verlink-batch: standard output cannot be written\n");
}

}  // namespace verlink::test
