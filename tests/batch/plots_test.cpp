// Plots of verlink-batch.
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/batch/batch_fixture.h"

namespace verlink::test {

namespace {

using Plots = BatchFixture;

}  // namespace

TEST_F(Plots, APlotDrawsUpToFourFunctionsInOneGraph) {
    const std::string path = Path("plot.svg");
    const Outcome outcome = Run(ModelText(), {"--svg", path, "--plot", "Omega4", "--plot", "Veloc CP:Y", "--plot",
                                              "Accel CP:Ang", "--plot", "Theta3"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    const std::string svg = Read(path);
    EXPECT_NE(svg.find("<svg"), std::string::npos);
    EXPECT_EQ(svg.substr(svg.size() - 7), "</svg>\n");
    // An angle keeps the unit of its variable.
    for (const char* legend :
         {"Omega4 Mag rad/sec", "Veloc CP Y in/sec", "Accel CP Ang Deg", "Theta3 Mag degrees", "Crank Angle (Deg)"})
        EXPECT_NE(svg.find(legend), std::string::npos) << legend;
    EXPECT_EQ(outcome.Table().Rows(), 37);
}

TEST_F(Plots, APlotFollowsTheFrame) {
    const std::vector<std::string> plot{"--csv", Path("t.csv"), "--plot", "Veloc CP:X", "--svg"};
    auto with = [&](const std::string& path, std::vector<std::string> more) {
        std::vector<std::string> options = plot;
        options.push_back(path);
        options.insert(options.end(), more.begin(), more.end());
        EXPECT_EQ(Run(ModelText(), options).status, 0);
        return Read(path);
    };
    const std::string global = with(Path("g.svg"), {});
    EXPECT_EQ(global, with(Path("h.svg"), {"--frame", "global"}));
    const std::string local = with(Path("l.svg"), {"--frame", "local"});
    EXPECT_NE(global, local);
    // Also where no table came before it.
    ASSERT_EQ(
        Run(ModelText(), {"--classify", "--plot", "Veloc CP:X", "--frame", "local", "--svg", Path("a.svg")}).status, 0);
    EXPECT_EQ(Read(Path("a.svg")), local);
}

TEST_F(Plots, AnExampleHasUnitsAsAModelHas) {
    for (const char* example : {"grashof", "hoekens", "roberts", "watts", "cheby"}) {
        ASSERT_EQ(Run({"--example", example, "--plot", "Veloc CP:Y", "--svg", Path("e.svg")}).status, 0) << example;
        EXPECT_NE(Read(Path("e.svg")).find("Veloc CP Y in/sec"), std::string::npos) << example;
    }
}

TEST_F(Plots, AFunctionThatTheRunDoesNotHaveIsRefused) {
    const Outcome outcome = Run(ModelText(), {"--svg", Path("a.svg"), "--plot", "Omega4", "--plot", "Speed:Y"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err.substr(0, outcome.err.find('\n')), "verlink-batch: there is no function \"Speed\"");
    EXPECT_FALSE(std::filesystem::exists(Path("a.svg")));
}

}  // namespace verlink::test
