// Studies of verlink-batch: rows, bounds, threads, shards, summaries, and going on with what was stopped.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>

#include "batch/study_progress.h"
#include "tests/batch/batch_fixture.h"

namespace verlink::test {

namespace {

using Words = std::vector<std::string>;

class Studies : public BatchFixture {
   protected:
    static Words Joined(Words first, const Words& more) {
        first.insert(first.end(), more.begin(), more.end());
        return first;
    }
    /// A study of some hundreds of linkages.
    static Words Small() {
        return {"--tolerance", "L2=0.05",   "--tolerance", "Delta=2:uniform", "--samples",
                "500",         "--measure", "max Theta4",  "--measure",       "min Trans Ang"};
    }
    std::string Refused(const Words& options, int status = 2) const {
        const Outcome outcome = Run(ModelText(), options);
        EXPECT_EQ(outcome.status, status);
        return outcome.err.substr(0, outcome.err.find('\n'));
    }
    static std::string Lines(const std::string& text, std::size_t count) {
        std::size_t end = 0;
        for (std::size_t i = 0; i < count; ++i) end = text.find('\n', end) + 1;
        return text.substr(0, end);
    }
};

/// Each row is what the table of the same model with that value in its field says.
TEST_F(Studies, RowsAreWhatTheTableSaysOfEachLinkage) {
    const Outcome study = Run(ModelText(), {"--set", "LinkMass(3)=1.5", "--set", "CG(3,0)=1", "--sweep", "L2=1:1.2:3",
                                            "--measure", "max Theta4", "--measure", "range Coupler Pt:Y", "--measure",
                                            "min Torque 12", "--measure", "closes"});
    ASSERT_EQ(study.status, 0) << study.err;
    const CsvTable rows = study.Table();
    ASSERT_EQ(rows.Rows(), 3);
    EXPECT_EQ(rows.Header(), (Words{"Linkage", "L2", "max Theta4", "range Coupler Pt:Y", "min Torque 12", "closes"}));
    for (int row = 0; row < 3; ++row) {
        const std::string L2 = Words{"1", "1.1", "1.2"}[static_cast<std::size_t>(row)];
        EXPECT_EQ(rows.Text(row, "L2"), L2);
        const CsvTable table =
            Run(ModelText(), {"--dynamics", "--set", "LinkMass(3)=1.5", "--set", "CG(3,0)=1", "--set", "L2=" + L2})
                .Table();
        const auto extreme = [&](const std::string& column, auto better) {
            int best = 0;
            for (int step = 0; step < table.Rows(); ++step)
                if (better(table.At(step, column), table.At(best, column))) best = step;
            return best;
        };
        EXPECT_EQ(rows.Text(row, "max Theta4"), table.Text(extreme("Theta4", std::greater<>()), "Theta4"));
        // Torques are found in another order: to some last places.
        EXPECT_FLOAT_EQ(static_cast<float>(rows.At(row, "min Torque 12")),
                        static_cast<float>(table.At(extreme("Torque 12", std::less<>()), "Torque 12")));
        EXPECT_LT(rows.At(row, "min Torque 12"), -1);
        const std::string y = "Coupler Pt Y";
        EXPECT_EQ(
            static_cast<float>(rows.At(row, "range Coupler Pt:Y")),
            static_cast<float>(table.At(extreme(y, std::greater<>()), y) - table.At(extreme(y, std::less<>()), y)));
        EXPECT_EQ(rows.Text(row, "closes"), "1");
    }
}

TEST_F(Studies, ALinkageThatClosesNowhereHasEmptyCells) {
    const Outcome study =
        Run(ModelText(), {"--sweep", "L3=2.5:50:2", "--measure", "max Theta4", "--measure", "closes"});
    ASSERT_EQ(study.status, 0) << study.err;
    EXPECT_TRUE(study.out.ends_with("\n2,50,,0\n")) << study.out;
}

TEST_F(Studies, RowsComeInTheirOrderWhateverTheThreads) {
    const std::string one = Run(ModelText(), Joined(Small(), {"--threads", "1"})).out;
    EXPECT_EQ(std::ranges::count(one, '\n'), 501);
    for (const char* threads : {"2", "3", "16"})
        EXPECT_EQ(Run(ModelText(), Joined(Small(), {"--threads", threads})).out, one) << threads;
}

TEST_F(Studies, ASummaryIsTheSameWhateverTheThreads) {
    const Words study{"--tolerance", "L2=0.05", "--samples", "3000", "--measure", "max Theta4", "--summary"};
    const std::string one = Run(ModelText(), Joined(study, {"--threads", "1"})).out;
    EXPECT_TRUE(one.starts_with("Measure,What,At,Value\n,linkages,,3000\n,kept,,3000\n")) << one;
    for (const char* threads : {"2", "3", "16"})
        EXPECT_EQ(Run(ModelText(), Joined(study, {"--threads", threads})).out, one) << threads;
}

TEST_F(Studies, BoundsLeaveOutRowsAndKeepTheirNumbers) {
    const CsvTable all = Run(ModelText(), Small()).Table();
    const std::string bound = all.Text(0, "max Theta4");
    const CsvTable kept =
        Run(ModelText(), Joined(Small(), {"--keep", "max Theta4 > " + bound, "--keep", "closes >= 1"})).Table();
    int row = 0;
    for (int i = 0; i < all.Rows(); ++i) {
        if (all.At(i, "max Theta4") <= std::stod(bound)) continue;
        ASSERT_LT(row, kept.Rows());
        EXPECT_EQ(kept.Text(row, "Linkage"), all.Text(i, "Linkage"));
        EXPECT_EQ(kept.Text(row, "min Trans Ang"), all.Text(i, "min Trans Ang"));
        ++row;
    }
    EXPECT_EQ(row, kept.Rows());
    EXPECT_GT(row, 0);
    EXPECT_LT(row, all.Rows());
}

TEST_F(Studies, AListGivesItsRows) {
    const std::string list = Write("list.csv", "L2,\"CG(3,1)\"\r\n1,0\r\n1.5,0.25\r\n\r\n");
    const Outcome study = Run(ModelText(), {"--sweep-list", list, "--measure", "closes"});
    EXPECT_EQ(study.out, "Linkage,L2,\"CG(3,1)\",closes\n1,1,0,1\n2,1.5,0.25,1\n") << study.err;
    Write("list.csv", "L2,L4\n1,2\n1,x\n");
    EXPECT_EQ(Refused({"--sweep-list", list, "--measure", "closes"}),
              "verlink-batch: " + list + ", line 3: there are to be 2 numbers, not \"1,x\"");
    Write("list.csv", "L2,LL4\n");
    EXPECT_EQ(Refused({"--sweep-list", list, "--measure", "closes"}),
              "verlink-batch: a study moves no field \"LL4\"; did you mean L4?");
    Write("list.csv", "L2\n");
    EXPECT_EQ(Refused({"--sweep-list", list, "--measure", "closes"}), "verlink-batch: " + list + " has no rows");
    EXPECT_EQ(Refused({"--sweep-list", Path("none.csv"), "--measure", "closes"})
                  .find("verlink-batch: " + Path("none.csv") + " cannot be read: "),
              0u);
}

TEST_F(Studies, PartsPutTogetherAreTheBytesOfOneCall) {
    for (const Words& more : {Words{}, Words{"--keep", "max Theta4 > 140"}, Words{"--summary"}}) {
        const std::string whole = Run(ModelText(), Joined(Small(), more)).out;
        Words parts;
        for (const int shard : {5, 1, 3, 7, 2, 6, 4}) {
            parts.push_back(Path("part" + std::to_string(shard) + ".csv"));
            const Outcome part =
                Run(ModelText(),
                    Joined(Joined(Small(), more), {"--csv", parts.back(), "--shard", std::to_string(shard) + "/7"}));
            ASSERT_EQ(part.status, 0) << part.err;
        }
        const Outcome merged = Run(Joined({"--merge", Path("all.csv")}, parts));
        ASSERT_EQ(merged.status, 0) << merged.err;
        EXPECT_EQ(Read(Path("all.csv")), whole);
    }
}

TEST_F(Studies, PartsThatDoNotBelongTogetherAreTold) {
    const auto part = [&](const std::string& name, const std::string& shard, const Words& more = {}) {
        const Outcome made = Run(ModelText(), Joined(Joined(Small(), more), {"--csv", Path(name), "--shard", shard}));
        EXPECT_EQ(made.status, 0) << made.err;
        return Path(name);
    };
    const std::string one = part("1", "1/3"), two = part("2", "2/3"), three = part("3", "3/3");
    const std::string other = part("other", "3/3", {"--seed", "2"}), twin = part("twin", "2/3");
    const auto fault = [&](const Words& parts) {
        const Outcome merged = Run(Joined({"--merge", Path("all.csv")}, parts));
        EXPECT_EQ(merged.status, 1);
        EXPECT_FALSE(std::filesystem::exists(Path("all.csv")));
        return merged.err;
    };
    EXPECT_EQ(fault({one, three}), "verlink-batch: shard 2/3 is missing: 2 of 3 parts are there\n");
    EXPECT_EQ(fault({one, two}), "verlink-batch: shard 3/3 is missing: 2 of 3 parts are there\n");
    EXPECT_EQ(fault({one, two, other}), "verlink-batch: " + other + " is of another study than " + one + "\n");
    EXPECT_EQ(fault({one, two, twin, three}), "verlink-batch: " + twin + " and " + two + " are both shard 2/3\n");
    EXPECT_EQ(fault({one, two, Write("model.csv", "a\nb\nc\n")}),
              "verlink-batch: " + Path("model.csv") + " is no part of a study\n");
    // Each of what the first lines say counts.
    const std::string content = Read(two), head = Lines(content, 2);
    const auto instead = [&](const std::string& was, const std::string& is) {
        std::string edited = head;
        EXPECT_NE(edited.find(was), std::string::npos) << was;
        edited.replace(edited.find(was), was.size(), is);
        return Write("edited.csv", edited + content.substr(head.size()));
    };
    for (const std::string& edited : {instead("# study ", "# study f"), instead(" 2/3 of ", " 2/4 of "),
                                      instead(" of ", " of 1"), instead("Linkage,", "Linkages,")})
        EXPECT_EQ(fault({one, edited}), "verlink-batch: " + edited + " is of another study than " + one + "\n");
    Write("2", content.substr(0, content.size() - 5));
    EXPECT_EQ(fault({one, two, three}), "verlink-batch: " + two + " breaks off: run its shard again\n");
    Write("2", Lines(content, 60));
    EXPECT_EQ(fault({one, two, three}), "verlink-batch: " + two + " breaks off: run its shard again\n");
    EXPECT_EQ(Run({"--merge", Path("all.csv")}).err.substr(0, 48), "verlink-batch: --merge wants the parts behind it");
}

TEST_F(Studies, ResumeGoesOnBehindTheLastWholeRow) {
    const Words study = Joined(Small(), {"--csv", Path("rows.csv")}), resume = Joined(study, {"--resume"});
    ASSERT_EQ(Run(ModelText(), study).status, 0);
    const std::string whole = Read(Path("rows.csv"));
    EXPECT_FALSE(std::filesystem::exists(Path("rows.csv.part")));
    for (const std::size_t lines : {0, 1, 2, 300, 501})
        for (const char* rest : {"", "301,1.1"}) {
            std::filesystem::remove(Path("rows.csv"));
            Write("rows.csv.part", Lines(whole, lines) + rest);
            const Outcome outcome = Run(ModelText(), resume);
            if (lines == 0 && *rest != 0) {
                EXPECT_EQ(Read(Path("rows.csv")), whole);
                continue;
            }
            EXPECT_EQ(outcome.status, 0) << outcome.err;
            EXPECT_EQ(Read(Path("rows.csv")), whole) << lines << rest;
            EXPECT_FALSE(std::filesystem::exists(Path("rows.csv.part")));
        }
    // All is there: nothing is done.
    EXPECT_EQ(Run(ModelText(), resume).status, 0);
    EXPECT_EQ(Read(Path("rows.csv")), whole);
}

TEST_F(Studies, ResumeGoesOnToMoreSamples) {
    Words fewer = Joined(Small(), {"--csv", Path("rows.csv")}), more = fewer;
    *(std::ranges::find(fewer, "500")) = "333";
    ASSERT_EQ(Run(ModelText(), fewer).status, 0);
    ASSERT_EQ(Run(ModelText(), Joined(more, {"--resume"})).status, 0);
    EXPECT_EQ(Read(Path("rows.csv")), Run(ModelText(), Small()).out);
}

TEST_F(Studies, RowsOfAStoppedStudyAreNotWrittenOver) {
    Write("rows.csv.part", "Linkage\n1\n");
    const Outcome outcome = Run(ModelText(), Joined(Small(), {"--csv", Path("rows.csv")}));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "verlink-batch: " + Path("rows.csv.part") +
                               " is there from a study that was stopped: --resume goes on with it, or take it away\n");
    EXPECT_EQ(Read(Path("rows.csv.part")), "Linkage\n1\n");
    EXPECT_FALSE(std::filesystem::exists(Path("rows.csv")));
}

TEST_F(Studies, ResumeLeavesTheRowsOfAnotherStudyAlone) {
    ASSERT_EQ(Run(ModelText(), Joined(Small(), {"--csv", Path("rows.csv"), "--seed", "9"})).status, 0);
    const std::string whole = Read(Path("rows.csv"));
    const Words resume = Joined(Small(), {"--csv", Path("rows.csv"), "--resume"});
    Outcome outcome = Run(ModelText(), resume);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "verlink-batch: " + Path("rows.csv") + " is of another study\n");
    Write("rows.csv.part", Lines(whole, 300));
    outcome = Run(ModelText(), resume);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "verlink-batch: " + Path("rows.csv.part") + " is of another study\n");
    EXPECT_EQ(Read(Path("rows.csv")), whole);
    EXPECT_EQ(Read(Path("rows.csv.part")), Lines(whole, 300));
}

TEST_F(Studies, LimitsOfTheModelThatAreRefusedAreToldAndNothingIsMade) {
    const Outcome refused = Run(ModelText().Angles("45", "45", "10"), Joined(Small(), {"--csv", Path("a.csv")}));
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.out, "");
    EXPECT_NE(refused.err, "");
    EXPECT_FALSE(std::filesystem::exists(Path("a.csv")));
}

TEST_F(Studies, WhatDoesNotGoTogetherIsTold) {
    const auto with = [](const Words& more) { return Joined({"--measure", "closes"}, more); };
    EXPECT_EQ(Refused({"--sweep", "L2=1:2:3"}), "verlink-batch: a study wants a --measure");
    EXPECT_EQ(Refused({"--summary"}), "verlink-batch: a study wants --sweep or --tolerance, and a --measure");
    EXPECT_EQ(Refused(with({"--svg", "x.svg"})), "verlink-batch: --svg does not go with a study");
    EXPECT_EQ(Refused(with({"--resume"})), "verlink-batch: --resume goes with --csv");
    EXPECT_EQ(Refused(with({"--samples", "5"})), "verlink-batch: --samples goes with --tolerance");
    EXPECT_EQ(Refused(with({"--sensitivity"})), "verlink-batch: --sensitivity goes with --tolerance");
    EXPECT_EQ(Refused(with({"--sensitivity", "--tolerance", "L2=1", "--sweep", "L2=1:2:3"})),
              "verlink-batch: --sweep does not go with --sensitivity");
    EXPECT_EQ(Refused(with({"--shard", "17/16"})),
              "verlink-batch: --shard wants K/N, K from 1 to N, not \"17/16\"; did you mean 16/16?");
    EXPECT_EQ(Refused(with({"--shard", "0-16"})),
              "verlink-batch: --shard wants K/N, K from 1 to N, not \"0-16\"; did you mean 1/16?");
    EXPECT_EQ(Refused(with({"--shard", "3"})), "verlink-batch: --shard wants K/N, K from 1 to N, not \"3\"");
    EXPECT_EQ(Refused(with({"--shard", "1/x"})), "verlink-batch: --shard wants K/N, K from 1 to N, not \"1/x\"");
    EXPECT_EQ(Refused(with({"--threads", "1025"})),
              "verlink-batch: --threads wants a whole number from 1 to 1024, not \"1025\"");
    EXPECT_EQ(Run(ModelText(), with({"--sweep", "L2=1:2:3", "--threads", "1024"})).status, 0);
    EXPECT_EQ(Refused(with({"--threads", "0"})),
              "verlink-batch: --threads wants a whole number from 1 to 1024, not \"0\"");
    EXPECT_EQ(Refused(with({"--sweep", "L2=1:2"})),
              "verlink-batch: --sweep wants FIELD=FROM:TO:COUNT, as in L2=1:2:11, not \"L2=1:2\"");
    EXPECT_EQ(Refused(with({"--sweep", "Omega2Inpt=1:2:3"})),
              "verlink-batch: a study moves no field \"Omega2Inpt\"; did you mean Omega2Input?");
    EXPECT_EQ(Refused(with({"--tolerance", "L2=x"})),
              "verlink-batch: --tolerance wants FIELD=PLUSMINUS, as in L2=0.01, not \"L2=x\"");
    EXPECT_EQ(Refused(with({"--tolerance", "L2=1:normall"})),
              "verlink-batch: a tolerance is normal, uniform or worst, not \"normall\"; did you mean normal?");
    EXPECT_EQ(Refused(with({"--sweep", "L2=1:2:9007199254740993"})),
              "verlink-batch: the study has more linkages than can be numbered");
    EXPECT_EQ(Refused({"--measure", "max Thetta4"}),
              "verlink-batch: there is no variable \"Thetta4\"; did you mean Theta4?");
}

TEST_F(Studies, SummariesAreTheSameWhateverTheThreads) {
    const Words summary = Joined(Small(), {"--summary"});
    const Outcome one = Run(ModelText(), Joined(summary, {"--threads", "1"}));
    ASSERT_EQ(one.status, 0) << one.err;
    EXPECT_TRUE(one.out.starts_with("Measure,What,At,Value\n,linkages,,500\n,kept,,500\nmax Theta4,none,,0\n"))
        << one.out;
    EXPECT_EQ(Run(ModelText(), Joined(summary, {"--threads", "5"})).out, one.out);
    const CsvTable rows = Run(ModelText(), Small()).Table();
    std::vector<double> values;
    values.reserve(static_cast<std::size_t>(rows.Rows()));
    for (int row = 0; row < rows.Rows(); ++row) values.push_back(rows.At(row, "max Theta4"));
    const auto greatest = std::ranges::max_element(values);
    EXPECT_NE(one.out.find("max Theta4,highest," + std::to_string(greatest - values.begin() + 1) + "," +
                           rows.Text(static_cast<int>(greatest - values.begin()), "max Theta4") + "\n"),
              std::string::npos);
}

TEST_F(Studies, SensitivitiesHaveARowForEachMeasureAndField) {
    const Outcome outcome =
        Run(ModelText(), {"--sensitivity", "--tolerance", "L2=0.01", "--tolerance", "Rpa=0.01:uniform", "--measure",
                          "max Theta4", "--measure", "max Coupler Pt:Y"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const CsvTable table = outcome.Table();
    EXPECT_EQ(table.Header(), (Words{"Measure", "Field", "Nominal", "Derivative", "Deviation", "Share"}));
    ASSERT_EQ(table.Rows(), 4);
    EXPECT_EQ(table.Text(1, "Field"), "Rpa");
    EXPECT_EQ(table.At(0, "Share"), 1);
    EXPECT_EQ(table.At(1, "Derivative"), 0);
    EXPECT_NEAR(table.At(2, "Share") + table.At(3, "Share"), 1, 1e-6);
    EXPECT_NEAR(table.At(3, "Deviation"), std::abs(table.At(3, "Derivative")) * 0.01 / std::sqrt(3.0), 1e-6);
}

TEST_F(Studies, AnInterruptLeavesWhatIsThereAndResumeEndsIt) {
    const Words study{Write(ModelText()), "--tolerance", "L2=0.05", "--samples",     "100000", "--threads", "1",
                      "--measure",        "max Theta4",  "--csv",   Path("rows.csv")};
    std::string command = "timeout --preserve-status -s INT 0.15 " + std::string(VERLINK_BATCH);
    for (const std::string& word : study) command += " '" + word + "'";
    command += " 2> '" + Path("err") + "'";
    const int status = std::system(command.c_str());
    // However far it came, what is there is gone on with.
    if (std::filesystem::exists(Path("rows.csv.part"))) {
        const std::string err = Read(Path("err"));
        EXPECT_EQ(WEXITSTATUS(status), 130);
        EXPECT_TRUE(err.starts_with("verlink-batch: stopped after ")) << err;
        EXPECT_TRUE(
            err.ends_with(" of 100000 linkages; " + Path("rows.csv.part") + " has them, and --resume goes on\n"))
            << err;
    }
    Words resume = Joined(study, {"--resume"});
    ASSERT_EQ(Run(resume).status, 0);
    const std::string resumed = Read(Path("rows.csv"));
    ASSERT_EQ(Run(study).status, 0);
    EXPECT_TRUE(Read(Path("rows.csv")) == resumed);
}

TEST(Study_Line, TellsRateAndTimeLeft) {
    EXPECT_EQ(Study_Line(0, 100, 0, 0, 80), "[                              ] 0/100");
    EXPECT_EQ(Study_Line(50, 100, 0, 0, 80), "[###############               ] 50/100") << "in no time";
    EXPECT_EQ(Study_Line(50, 100, 0, 2, 80), "[###############               ] 50/100  25/s  2 s left");
    EXPECT_EQ(Study_Line(2500000, 10000000, 500000, 80, 80),
              "[#######                       ] 2500000/10000000  25k/s  5 min 0 s left");
    EXPECT_EQ(Study_Line(1, 1000000, 0, 1, 40), "1/1000000  1/s  11 d 13 h left");
    EXPECT_EQ(Study_Line(1234, 5000, 0, 1, 8), "1234/50");
}

}  // namespace

}  // namespace verlink::test
