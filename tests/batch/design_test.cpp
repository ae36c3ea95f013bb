// Tasks of design from the command line: table, gallery, model, and what is refused.
#include "batch/design.h"

#include <algorithm>

#include "tests/batch/batch_fixture.h"

namespace verlink::test {

namespace {

const char kHead[] = R"({"format":"verlink-design","version":1,"kind":"motion",)";
const char kThree[] = R"("positions":[{"x":1,"y":1,"angle":0},{"x":2,"y":0.5,"angle":0},{"x":3,"y":1.5,"angle":45}])";
const char kPivots[] = R"(,"left":{"fixed":{"points":[[0,0]]}},"right":{"fixed":{"points":[[5,0]]}}})";

class DesignBatch : public BatchFixture {
   protected:
    std::string Task(const std::string& fields) const { return Write("task.vld", kHead + fields); }
    std::string Published() const { return Task(std::string(kThree) + kPivots); }
    static Outcome Searched(const std::string& task, std::vector<std::string> options = {}) {
        options.insert(options.begin(), {"--design", task});
        return Run(options);
    }
    static void Expect_Refused(const std::vector<std::string>& words, const std::string& fault) {
        const Outcome outcome = Run(words);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.err.substr(0, outcome.err.find('\n')), "verlink-batch: " + fault);
    }
};

}  // namespace

TEST_F(DesignBatch, PrintsARowForEachLinkage) {
    const Outcome outcome = Searched(Published());
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    const CsvTable table = outcome.Table();
    EXPECT_EQ(table.Header(), (std::vector<std::string>{"Rank",
                                                        "Family",
                                                        "L1",
                                                        "L2",
                                                        "L3",
                                                        "L4",
                                                        "Rpa",
                                                        "Delta",
                                                        "O2x",
                                                        "O2y",
                                                        "Link1Angle",
                                                        "Circuit",
                                                        "Crank",
                                                        "Theta2_1",
                                                        "Theta2_2",
                                                        "Theta2_3",
                                                        "Class",
                                                        "Transmission",
                                                        "LongestOverShortest",
                                                        "Room",
                                                        "PlaceError",
                                                        "AngleError",
                                                        "RoundedPlaceError",
                                                        "RoundedAngleError",
                                                        "Score"}));
    ASSERT_EQ(table.Rows(), 1);
    // From the circles through three places of the pivots (5, 0) and (0, 0), seen from the body.
    EXPECT_EQ(table.Text(0, "Crank"), "right");
    EXPECT_EQ(table.Text(0, "Circuit"), "crossed");
    EXPECT_NEAR(table.At(0, "L1"), 5, 1e-6);
    EXPECT_NEAR(table.At(0, "L2"), 2.201514, 1e-5);
    EXPECT_NEAR(table.At(0, "L3"), 5.519032, 1e-5);
    EXPECT_NEAR(table.At(0, "L4"), 3.387306, 1e-5);
    EXPECT_NEAR(table.At(0, "Rpa"), 3.679341, 1e-5);
    EXPECT_NEAR(std::abs(table.At(0, "Link1Angle")), 180, 1e-5);
    EXPECT_NEAR(table.At(0, "Theta2_1"), -131.27488, 1e-3);
    EXPECT_EQ(table.Text(0, "Class"), "Grashof crank-rocker");
    EXPECT_LT(table.At(0, "PlaceError"), 1e-5);
}

TEST_F(DesignBatch, WritesTableGalleryAndTheBestModel) {
    const std::string task = Task(std::string(kThree) + R"(,"title":"Three places","units":5})");
    const Outcome outcome =
        Searched(task, {"--best", "5", "--csv", Path("s.csv"), "--svg", Path("g.svg"), "--save", Path("best.vlk")});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out, "");
    const CsvTable table(Read(Path("s.csv")));
    ASSERT_EQ(table.Rows(), 5);
    for (int row = 0; row < 5; ++row) EXPECT_EQ(table.Text(row, "Rank"), std::to_string(row + 1));
    const std::string svg = Read(Path("g.svg"));
    std::size_t pictures = 0;
    for (std::size_t at = 0; (at = svg.find("<g transform", at)) != std::string::npos; ++at) ++pictures;
    EXPECT_EQ(pictures, 5U);
    EXPECT_NE(svg.find(table.Text(0, "Class")), std::string::npos);

    EXPECT_NE(Read(Path("best.vlk")).find("\r\n\"Three places\"\r\n"), std::string::npos) << "its title";

    // The model, run by itself, passes the places: millimetres from O2 on a turned ground.
    const Outcome run = Run({Path("best.vlk")});
    EXPECT_EQ(run.status, 0) << run.err;
    const CsvTable motion = run.Table();
    ASSERT_EQ(motion.Rows(), 37);
    const bool right = table.At(0, "Theta2_3") < table.At(0, "Theta2_1");
    const int first = right ? motion.Rows() - 1 : 0;
    const auto wrapped = [](double degrees) { return degrees - 360 * std::floor(degrees / 360); };
    EXPECT_NEAR(wrapped(motion.At(first, "Theta2")), wrapped(table.At(0, "Theta2_1")), 1e-3);
    EXPECT_NEAR(wrapped(motion.At(motion.Rows() - 1 - first, "Theta2")), wrapped(table.At(0, "Theta2_3")), 1e-3);
    EXPECT_NEAR(table.At(0, "O2x") + motion.At(first, "Coupler Pt X"), 1, 1e-3);
    EXPECT_NEAR(table.At(0, "O2y") + motion.At(first, "Coupler Pt Y"), 1, 1e-3);
}

TEST_F(DesignBatch, ATaskThatIsNoneIsToldByItsField) {
    const std::string path = Task(std::string(kThree) + R"(,"transmission":"30"})");
    const Outcome outcome = Searched(path);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "verlink-batch: " + path + " cannot be read: the field transmission is to be a number\n");
    const Outcome absent = Searched(Path("none.vld"));
    EXPECT_EQ(absent.status, 1);
    EXPECT_NE(absent.err.find("none.vld cannot be read: "), std::string::npos);
}

TEST_F(DesignBatch, WhatNothingDoesGetsASentenceAndWritesNoFile) {
    const std::string path =
        Task(R"("positions":[{"x":2,"y":0,"angle":0},{"x":0,"y":2,"angle":90},{"x":-2,"y":0,"angle":180}]})");
    const Outcome outcome = Searched(path, {"--csv", Path("s.csv"), "--save", Path("best.vlk")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err,
              "verlink-batch: All positions turn about the one point 0, 0, so that every link has its pivot there: a "
              "single joint does it. Move or turn one of the positions.\n");
    EXPECT_FALSE(std::filesystem::exists(Path("s.csv")));
    EXPECT_FALSE(std::filesystem::exists(Path("best.vlk")));
}

TEST_F(DesignBatch, OptionsThatHaveNothingToDoWithItAreRefused) {
    Expect_Refused({"--design", "t.vld", "m.vlk"}, "--design stands in place of a model: \"m.vlk\" is one too many");
    Expect_Refused({"--design", "t.vld", "--example", "watts"},
                   "--design stands in place of a model: \"watts\" is one too many");
    Expect_Refused({"--design", "t.vld", "--set", "L2=1"}, "--set does not go with --design");
    Expect_Refused({"--design", "t.vld", "--xlsx", "t.xlsx"}, "--xlsx does not go with --design");
    Expect_Refused({"m.vlk", "--best", "3"}, "--best goes with --design");
    Expect_Refused({"--design", "t.vld", "--best", "0"}, "--best wants a whole number from 1 to 1000, not \"0\"");
    Expect_Refused({"--design", "t.vld", "--best", "3x"}, "--best wants a whole number from 1 to 1000, not \"3x\"");
    Expect_Refused({"--design", "t.vld", "--design", "t.vld"}, "--design is given twice");
    const std::string task = Published();
    Expect_Refused({"--design", task, "--csv", task}, "--csv and the model are one file, " + task);
}

}  // namespace verlink::test
