// Graphs are filled set by set and point by point.
#include "platform/graph.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/support/fixture.h"

namespace verlink::test {

using platform::Graph;

namespace {

struct GraphTest : Fixture {
    static long Failure(const std::function<void()>& action) {
        try {
            action();
        } catch (const platform::RuntimeFailure& failure) {
            return failure.Number();
        }
        return 0;
    }
    platform::Screen screen{"frm_Stage"};
    Graph graph{screen, "grf_Plot", 2};
};

}  // namespace

TEST_F(GraphTest, IsFoundByItsNameAndIndex) { EXPECT_EQ(&screen.Get<Graph>("grf_Plot", 2), &graph); }

TEST_F(GraphTest, StartsWithOneSetWithoutPointsOnWhite) {
    EXPECT_EQ(graph.NumSets(), 1);
    EXPECT_EQ(graph.NumPoints(), 0);
    EXPECT_EQ(graph.Background, 15);
    EXPECT_EQ(graph.GridStyle, 0);
    EXPECT_EQ(graph.GraphStyle, 4);
}

TEST_F(GraphTest, ValuesGoToThePresentSetAndPoint) {
    graph.SetNumSets(2);
    graph.SetNumPoints(3);
    for (int set = 1; set <= 2; ++set)
        for (int point = 1; point <= 3; ++point) {
            graph.ThisSet = set;
            graph.ThisPoint = point;
            graph.SetGraphData(10 * set + point);
        }
    EXPECT_EQ(graph.Sets()[0].values, (std::vector<double>{11, 12, 13}));
    EXPECT_EQ(graph.Sets()[1].values, (std::vector<double>{21, 22, 23}));
}

TEST_F(GraphTest, LabelsBelongToThePointAndLegendsAndPatternsToTheSet) {
    graph.SetNumSets(2);
    graph.SetNumPoints(2);
    graph.ThisPoint = 2;
    graph.SetLabelText("90");
    graph.ThisSet = 2;
    graph.SetLegendText("Omega4 Mag rad/s");
    graph.SetPatternData(3);
    EXPECT_EQ(graph.Labels(), (std::vector<std::string>{"", "90"}));
    EXPECT_EQ(graph.Sets()[0].legend, "");
    EXPECT_EQ(graph.Sets()[1].legend, "Omega4 Mag rad/s");
    EXPECT_EQ(graph.Sets()[0].pattern, 0);
    EXPECT_EQ(graph.Sets()[1].pattern, 3);
}

TEST_F(GraphTest, GrowingAndShrinkingKeepWhatFits) {
    graph.SetNumPoints(2);
    graph.ThisPoint = 1;
    graph.SetGraphData(7);
    graph.ThisPoint = 2;
    graph.SetGraphData(8);
    graph.SetNumPoints(4);
    const auto& grown = graph.Sets()[0].values;
    ASSERT_EQ(grown.size(), 4u);
    EXPECT_EQ(grown[0], 7);
    EXPECT_EQ(grown[1], 8);
    EXPECT_TRUE(std::isnan(grown[2]) && std::isnan(grown[3])) << "what was never given is nothing";
    graph.SetNumSets(3);
    ASSERT_EQ(graph.Sets()[2].values.size(), 4u);
    EXPECT_TRUE(std::isnan(graph.Sets()[2].values[0]));
    graph.SetNumPoints(1);
    EXPECT_EQ(graph.Sets()[0].values, std::vector<double>{7});
    EXPECT_EQ(graph.Labels().size(), 1u);
    graph.SetNumSets(1);
    EXPECT_EQ(graph.NumSets(), 1);
}

TEST_F(GraphTest, ASetOrAPointOutsideTheRoomIsFailure380) {
    graph.SetNumPoints(2);
    for (const int outside : {0, 3, -1}) {
        graph.ThisPoint = outside;
        EXPECT_EQ(Failure([&] { graph.SetGraphData(1); }), 380);
        EXPECT_EQ(Failure([&] { graph.SetLabelText("1"); }), 380);
    }
    graph.ThisPoint = 1;
    for (const int outside : {0, 2}) {
        graph.ThisSet = outside;
        EXPECT_EQ(Failure([&] { graph.SetGraphData(1); }), 380);
        EXPECT_EQ(Failure([&] { graph.SetLegendText("1"); }), 380);
        EXPECT_EQ(Failure([&] { graph.SetPatternData(1); }), 380);
    }
    EXPECT_EQ(Failure([&] { graph.SetNumSets(-1); }), 380);
    EXPECT_EQ(Failure([&] { graph.SetNumPoints(-1); }), 380);
}

TEST_F(GraphTest, WithoutSetsOrPointsThereIsRoomForNothing) {
    graph.SetNumPoints(2);
    graph.SetNumPoints(0);
    EXPECT_EQ(graph.NumPoints(), 0);
    EXPECT_EQ(Failure([&] { graph.SetGraphData(1); }), 380);
    graph.SetNumSets(0);
    EXPECT_EQ(graph.NumSets(), 0);
    EXPECT_EQ(Failure([&] { graph.SetLegendText("1"); }), 380);
}

TEST_F(GraphTest, WatchersAreToldByDrawAndNotByEveryValue) {
    int told = 0;
    graph.Watcher = [&] { ++told; };
    graph.SetNumPoints(5);
    graph.SetGraphData(1);
    graph.SetLabelText("0");
    EXPECT_EQ(told, 0);
    graph.Draw();
    graph.Draw();
    EXPECT_EQ(told, 2);
    EXPECT_EQ(graph.Drawings(), 2);
}

}  // namespace verlink::test
