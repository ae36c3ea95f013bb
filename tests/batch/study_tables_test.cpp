// Tables of studies whose every number is known beforehand: the crank's own speed, taken through a range.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "batch/options.h"
#include "batch/study_progress.h"
#include "tests/batch/batch_fixture.h"

namespace verlink::test {

namespace {

using Words = std::vector<std::string>;

class Study_Tables : public BatchFixture {
   protected:
    static Words Joined(Words first, const Words& more) {
        first.insert(first.end(), more.begin(), more.end());
        return first;
    }
    /// Eleven linkages with speeds of 1 to 11 rad/s.
    static Words Speeds() { return {"--sweep", "Omega2Input=1:11:11", "--measure", "max Omega2"}; }
};

}  // namespace

TEST_F(Study_Tables, ASummaryOfElevenSpeeds) {
    const Outcome outcome = Run(ModelText(), Joined(Speeds(), {"--summary", "--measure", "max Alpha2"}));
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    std::string expected = "Measure,What,At,Value\n,linkages,,11\n,kept,,11\n";
    const std::string speed = "max Omega2,";
    expected += speed + "none,,0\n" + speed + "mean,,6\n" + speed + "standard deviation,,3.3166249\n";
    const char* quantiles[] = {"0,1",      "0.01,1.1",  "0.05,1.5",  "0.25,3.5", "0.5,6",
                               "0.75,8.5", "0.95,10.5", "0.99,10.9", "1,11"};
    for (const char* quantile : quantiles) expected += speed + "quantile," + quantile + "\n";
    // Twenty bins half a radian wide; the last has its end, too.
    for (int bin = 0; bin < 20; ++bin) {
        std::ostringstream from;
        from << 1 + 0.5 * bin;
        expected += speed + "histogram," + from.str() + (bin % 2 == 0 || bin == 19 ? ",1\n" : ",0\n");
    }
    for (int i = 1; i <= 10; ++i) expected += speed + "lowest," + std::to_string(i) + "," + std::to_string(i) + "\n";
    for (int i = 11; i >= 2; --i) expected += speed + "highest," + std::to_string(i) + "," + std::to_string(i) + "\n";
    const std::string still = "max Alpha2,";
    expected += still + "none,,0\n" + still + "mean,,0\n" + still + "standard deviation,,0\n";
    for (const char* share : {"0", "0.01", "0.05", "0.25", "0.5", "0.75", "0.95", "0.99", "1"})
        expected += still + "quantile," + share + ",0\n";
    expected += still + "histogram,0,11\n";
    for (const char* end : {"lowest,", "highest,"})
        for (int i = 1; i <= 10; ++i) expected += still + end + std::to_string(i) + ",0\n";
    EXPECT_EQ(outcome.out, expected);
}

TEST_F(Study_Tables, ASummaryCountsWhatIsKeptAndWhatHasNoNumber) {
    const Outcome kept = Run(ModelText(), Joined(Speeds(), {"--summary", "--keep", "max Omega2 > 7"}));
    EXPECT_TRUE(
        kept.out.starts_with("Measure,What,At,Value\n,linkages,,11\n,kept,,4\nmax Omega2,none,,0\nmax "
                             "Omega2,mean,,9.5\n"))
        << kept.out;
    const Outcome none = Run(ModelText(), {"--sweep", "L3=50:60:3", "--measure", "max Theta4", "--summary"});
    EXPECT_EQ(none.out, "Measure,What,At,Value\n,linkages,,3\n,kept,,3\nmax Theta4,none,,3\n");
}

TEST_F(Study_Tables, SensitivitiesOfTheSpeedItself) {
    const Words words = {"--sensitivity",   "--tolerance", "Omega2Input=0.75", "--tolerance",
                         "Rpa=0.5:uniform", "--measure",   "max Omega2"};
    const Outcome outcome = Run(ModelText(), words);
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(Run(ModelText(), Joined(words, {"--csv", Path("a.csv")})).out, "");
    EXPECT_EQ(Read(Path("a.csv")), outcome.out);
    const CsvTable table = outcome.Table();
    ASSERT_EQ(table.Rows(), 2);
    EXPECT_EQ(table.Text(0, "Measure"), "max Omega2");
    EXPECT_EQ(table.Text(0, "Field"), "Omega2Input");
    EXPECT_EQ(table.Text(0, "Nominal"), "10");
    EXPECT_NEAR(table.At(0, "Derivative"), 1, 1e-5);
    EXPECT_NEAR(table.At(0, "Deviation"), 0.25, 1e-5);
    EXPECT_NEAR(table.At(0, "Share"), 1, 1e-9);
    EXPECT_EQ(table.At(1, "Derivative"), 0);
    EXPECT_EQ(table.At(1, "Share"), 0);
}

TEST_F(Study_Tables, ANegativeLengthOfTheModelIsMadePositive) {
    const Outcome closed = Run(ModelText().Set(kL2, "-1.115"), {"--sweep", "L4=2.5:2.75:2", "--measure", "closes"});
    EXPECT_EQ(closed.out, "Linkage,L4,closes\n1,2.5,1\n2,2.75,1\n") << closed.err;
}

TEST_F(Study_Tables, SharesAreNumberedFromTheWhole) {
    std::string rows;
    for (const char* shard : {"1/3", "2/3", "3/3"}) {
        const Outcome part = Run(ModelText(), Joined(Speeds(), {"--shard", shard}));
        ASSERT_EQ(part.status, 0) << part.err;
        std::istringstream lines(part.out);
        for (std::string line; std::getline(lines, line);)
            if (!line.empty() && line[0] >= '1' && line[0] <= '9') rows += line + "\n";
    }
    std::string expected;
    for (int i = 1; i <= 11; ++i)
        expected += std::to_string(i) + "," + std::to_string(i) + "," + std::to_string(i) + "\n";
    EXPECT_EQ(rows, expected);
}

TEST_F(Study_Tables, PartsWhoseFirstLineIsNoneAreTold) {
    const Words part = Joined(Speeds(), {"--shard", "1/1", "--csv", Path("part.csv")});
    ASSERT_EQ(Run(ModelText(), part).status, 0);
    const std::string whole = Read(Path("part.csv"));
    ASSERT_NE(whole.find(", shard 1/1"), std::string::npos) << whole;
    const auto merged = [&](const std::string& instead) {
        std::string text = whole;
        text.replace(text.find(", shard 1/1"), 11, instead);
        Write("broken.csv", text);
        return Run({"--merge", Path("all.csv"), Path("broken.csv")});
    };
    EXPECT_EQ(merged(", shard 1/1").status, 0);
    for (const std::string& text : {"x" + whole, whole.substr(0, whole.find('\n')), std::string()}) {
        Write("broken.csv", text);
        EXPECT_EQ(Run({"--merge", Path("all.csv"), Path("broken.csv")}).err,
                  "verlink-batch: " + Path("broken.csv") + " is no part of a study\n");
    }
    for (const char* broken :
         {", shard x/1", ", shard 1-1", ", shard 0/1", ", shard 1/x", ", shard 1 1", ", shrad 1/1"}) {
        const Outcome outcome = merged(broken);
        EXPECT_EQ(outcome.status, 1) << broken;
        EXPECT_EQ(outcome.err, "verlink-batch: " + Path("broken.csv") + " is no part of a study\n") << broken;
    }
}

TEST_F(Study_Tables, EachOptionThatHasNoPlaceInAStudyIsTold) {
    const auto fault = [&](const Words& more) {
        const Outcome outcome = Run(ModelText(), Joined(Speeds(), more));
        EXPECT_EQ(outcome.status, 2);
        return outcome.err.substr(0, outcome.err.find('\n'));
    };
    for (const char* mark : {"--check", "--classify", "--cognates", "--balance-report", "--balance"})
        EXPECT_EQ(fault({mark}), std::string("verlink-batch: ") + mark + " does not go with a study");
    EXPECT_EQ(fault({"--save", "x.vlk"}), "verlink-batch: --save does not go with a study");
    EXPECT_EQ(fault({"--drive", "x.sva"}), "verlink-batch: --drive does not go with a study");
    EXPECT_EQ(fault({"--fft", "Omega4"}), "verlink-batch: --fft does not go with a study");
    EXPECT_EQ(fault({"--torque", "x.out", "--dynamics"}), "verlink-batch: --torque does not go with a study");
    EXPECT_EQ(fault({"other.vlk"}), "verlink-batch: a study is of one model: \"other.vlk\" is one too many");
    EXPECT_EQ(fault({"--seed", "5"}), "verlink-batch: --seed goes with --tolerance");
    EXPECT_EQ(fault({"--resume", "--summary", "--csv", "x.csv"}),
              "verlink-batch: --resume goes on with rows, and --summary has none");
    const Words sensitivity{"--sensitivity", "--tolerance", "L2=1"};
    const auto odd = [&](const Words& more) {
        const Outcome outcome = Run(ModelText(), Joined(Joined({"--measure", "closes"}, sensitivity), more));
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.err.substr(0, outcome.err.find('\n')),
                  "verlink-batch: " + more[0] + " does not go with --sensitivity");
    };
    odd({"--sweep-list", "x.csv"});
    odd({"--keep", "closes > 0"});
    odd({"--samples", "5"});
    odd({"--seed", "5"});
    odd({"--summary"});
    odd({"--resume"});
    odd({"--shard", "1/2"});
    for (const char* twice : {"--samples", "--seed", "--threads"})
        EXPECT_EQ(fault({twice, "5", twice, "6"}), std::string("verlink-batch: ") + twice + " is given twice");
    EXPECT_EQ(fault({"--shard", "1/2", "--shard", "2/2"}), "verlink-batch: --shard is given twice");
    EXPECT_EQ(fault({"--threads", "1025"}),
              "verlink-batch: --threads wants a whole number from 1 to 1024, not \"1025\"");
    EXPECT_EQ(fault({"--samples", "0"}),
              "verlink-batch: --samples wants a whole number from 1 to 9007199254740992, not \"0\"");
    EXPECT_EQ(fault({"--seed", "9007199254740993"}),
              "verlink-batch: --seed wants a whole number from 0 to 9007199254740992, not \"9007199254740993\"");
    EXPECT_EQ(fault({"--threads", "5x"}), "verlink-batch: --threads wants a whole number from 1 to 1024, not \"5x\"");
}

TEST(Batch_Usage_Lines, HaveWhatStandsInPlaceOfAModelAtTheirEndAlone) {
    const std::string usage = Batch_Usage(), options = usage.substr(0, usage.find("verlink-batch --example"));
    for (const char* other : {"--example", "--design", "--best", "--merge", "--help", "--version"}) {
        EXPECT_EQ(options.find(other), std::string::npos) << other;
        EXPECT_NE(usage.find(other), std::string::npos) << other;
    }
}

/// As full as 88 letters let it be: no line has room for the first words of the next.
TEST(Batch_Usage_Lines, AreFilledToTheirWidth) {
    std::istringstream usage(Batch_Usage());
    Words lines;
    for (std::string line; std::getline(usage, line);) lines.push_back(line);
    std::size_t options = 0;
    while (options < lines.size() && !lines[options].starts_with("       verlink-batch --example")) ++options;
    ASSERT_GT(options, 5U);
    for (std::size_t i = 0; i < options; ++i) {
        EXPECT_LE(lines[i].size(), 88U) << lines[i];
        if (i == 0) continue;
        EXPECT_EQ(lines[i].find_first_not_of(' '), 21U) << lines[i];
        std::size_t end = 21;
        int depth = 0;
        for (; end < lines[i].size() && (depth > 0 || lines[i][end] != ' '); ++end)
            depth += lines[i][end] == '[' ? 1 : lines[i][end] == ']' ? -1 : 0;
        EXPECT_GT(lines[i - 1].size() + 1 + (end - 21), 88U) << lines[i - 1];
    }
}

TEST(Study_Progress_Line, IsShownAtOnceAndTakenAwayAtTheEnd) {
    std::ostringstream terminal;
    {
        Study_Progress progress(terminal, 60, 10, 0);
        progress.Clear();
        EXPECT_EQ(terminal.str(), "");
        progress.Show(0);
        EXPECT_EQ(terminal.str(), "\r[                              ] 0/10\x1b[K");
        progress.Show(5);
        EXPECT_EQ(terminal.str(), "\r[                              ] 0/10\x1b[K") << "not so soon again";
    }
    EXPECT_EQ(terminal.str(), "\r[                              ] 0/10\x1b[K\r\x1b[K");
    std::ostringstream none;
    Study_Progress(none, 0, 10, 0).Show(5);
    EXPECT_EQ(none.str(), "");
    EXPECT_EQ(Study_Line(0, 0, 0, 1, 80), "[##############################] 0/0");
    EXPECT_EQ(Study_Line(3, 10, 3, 1, 80), "[#########                     ] 3/10") << "nothing done by this call";
    const std::string line = Study_Line(5, 10, 0, 1, 80);
    EXPECT_EQ(Study_Line(5, 10, 0, 1, int(line.size()) + 1), line);
    EXPECT_EQ(Study_Line(5, 10, 0, 1, int(line.size())), "5/10  5/s  1 s left");
    EXPECT_EQ(Study_Line(5, 10, 0, 1, 0), "");
}

}  // namespace verlink::test
