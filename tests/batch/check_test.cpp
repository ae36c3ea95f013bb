// The checks of a run from the command line: rows, verdicts, status.
#include "batch/check.h"

#include "tests/batch/batch_fixture.h"

namespace verlink::test {

namespace {

class Checks : public BatchFixture {
   protected:
    static int Row_Of(const CsvTable& table, const std::string& check) {
        for (int row = 0; row < table.Rows(); ++row)
            if (table.Text(row, "Check") == check) return row;
        ADD_FAILURE() << "no row of " << check;
        return 0;
    }
};

}  // namespace

TEST_F(Checks, StandInPlaceOfTheTable) {
    const Outcome outcome = Run(ModelText(), {"--check"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    const CsvTable table = outcome.Table();
    EXPECT_EQ(table.Header(),
              (std::vector<std::string>{"Check", "Verdict", "Worst", "Expected", "Unit", "Where", "Meaning"}));
    const int row = Row_Of(table, "Loop closure");
    EXPECT_EQ(table.Text(row, "Verdict"), "good");
    EXPECT_EQ(table.Text(row, "Unit"), "in");
    EXPECT_LE(table.At(row, "Worst"), table.At(row, "Expected"));
    EXPECT_EQ(outcome.out.find("Power in and out"), std::string::npos);
}

TEST_F(Checks, OfForcesAndBalanceComeWithThem) {
    const std::vector<std::string> masses = {"--set",  "LinkMass(2)=0.003",  "--set", "CG(2,0)=0.5",
                                             "--set",  "LinkMass(4)=0.0075", "--set", "CG(4,0)=1",
                                             "--check"};
    const auto checked = [&](const char* how) {
        std::vector<std::string> options = masses;
        options.emplace_back(how);
        return Run(ModelText(), options).Table();
    };
    const CsvTable dynamics = checked("--dynamics");
    EXPECT_EQ(dynamics.Text(Row_Of(dynamics, "Power in and out"), "Verdict"), "good");
    const CsvTable balance = checked("--balance");
    EXPECT_EQ(balance.Text(Row_Of(balance, "Balanced mass centre"), "Verdict"), "good");
}

TEST_F(Checks, GoBesideATableThatHasAFile) {
    const Outcome outcome = Run(ModelText(), {"--check", "--csv", Path("t.csv")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out.find("Check,Verdict"), 0U);
    EXPECT_EQ(Read(Path("t.csv")).find("Step,Assembled"), 0U);
}

TEST_F(Checks, OfARunThatClosesNowhereAreNoneAndTheStatusIsOne) {
    const Outcome outcome = Run(ModelText().Linkage({"20", "1", "2", "2"}, "1", "0"), {"--check"});
    EXPECT_EQ(outcome.status, 1);
}

TEST_F(Checks, ThatFailAreWrittenAsTheyAre) {
    const std::vector<Check> checks = {{"A, b", 0.25, 1e-6, "in", "step 3, 15 deg, B", Verdict::kFails, "Is off."}};
    EXPECT_EQ(Check_Csv(checks),
              "Check,Verdict,Worst,Expected,Unit,Where,Meaning\n"
              "\"A, b\",fails,0.25,1E-06,in,\"step 3, 15 deg, B\",Is off.\n");
    EXPECT_EQ(Check_Status(checks), 3);
    EXPECT_EQ(Check_Status({}), 0);
}

}  // namespace verlink::test
