// How long the arrows over a picture are, and what its legend says of them.
#include <algorithm>
#include <complex>
#include <map>

#include "tests/animation/view_overlays.h"

namespace verlink::test {
namespace {

TEST_F(ViewOverlays, TheLegendHasTheUnitsThatAreShown) {
    const std::map<int, Rows> units = {{1, {"in/sec", "in/sec^2", "lb", "lb"}},
                                       {2, {"ft/sec", "ft/sec^2", "lb", "lb"}},
                                       {3, {"m/sec", "m/sec^2", "N", "N"}},
                                       {4, {"cm/sec", "cm/sec^2", "N", "N"}},
                                       {5, {"mm/sec", "mm/sec^2", "N", "N"}}};
    for (const auto& [system, expected] : units) {
        Run({.name = "units", .units = system});
        const Overlay overlay = At_Step(4, All());
        Rows found;
        for (const auto& line : overlay.legend)
            if (line.per_world > 0) found.push_back(line.unit);
        EXPECT_EQ(found, expected) << system;
        const std::string radius = overlay.legend[0].text;
        EXPECT_TRUE(radius.ends_with(" " + Model.UnitLabel(6))) << radius;
    }
}

TEST_F(ViewOverlays, TheFewWildArrowsNearAToggleDoNotMakeTheOthersVanish) {
    Run({.name = "toggle", .rocker = true});
    const View_Wishes wishes = Only(&View_Wishes::accelerations);
    const double calm = Find_Scales(Model, wishes).acceleration;
    Model.RunTable.AccXY(0, 2, 0) = 1e9;
    EXPECT_LT(Find_Scales(Model, wishes).acceleration, 4 * calm);
    for (const auto& arrow : Of_Kind(At_Step(0, wishes), Kind::kArrow)) EXPECT_TRUE(std::isfinite(arrow.to.x));
}

TEST_F(ViewOverlays, ArrowsThriceAsLongAsNearlyAllOthersCountAsWild) {
    Run({.name = "made up"});
    const int positions = Model.NSteps + 1;
    const double longest = 0.28 * Window();
    const View_Wishes wishes = Only(&View_Wishes::velocities);
    // Of three arrows in each position all are 1, but for some; nineteen of twenty decide.
    const int few = (3 * positions - 1) / 20;
    for (const int wild : {0, 1, few, few + 2}) {
        for (int i = 0; i < 3 * positions; ++i) {
            Model.RunTable.VelXY(i / 3, i % 3, 0) = i < wild ? 0 : 1;
            Model.RunTable.VelXY(i / 3, i % 3, 1) = i < wild ? -100 : 0;
        }
        const double most = wild == 0 ? 1 : wild <= few ? 3 : 100;
        EXPECT_NEAR(Find_Scales(Model, wishes).velocity * longest, most, 1e-4) << wild;
    }
    // Where nearly all are nothing the few are all there is.
    for (int i = 0; i < 3 * positions; ++i) {
        Model.RunTable.VelXY(i / 3, i % 3, 0) = 0;
        Model.RunTable.VelXY(i / 3, i % 3, 1) = i == 5 ? -100 : 0;
    }
    EXPECT_NEAR(Find_Scales(Model, wishes).velocity * longest, 100, 1e-4);
    // Those of positions that do not close do not count.
    Model.RunTable.Assembled(0) = Model.RunTable.Assembled(1) = Model.RunTable.Assembled(2) = false;
    for (int row = 0; row <= 2; ++row) Model.RunTable.VelXY(3, row, 1) = 0;
    EXPECT_EQ(Find_Scales(Model, wishes).first, 3);
    EXPECT_EQ(Find_Scales(Model, wishes).last, Model.NSteps);
}

TEST_F(ViewOverlays, OfARunThatClosesNowhereHaveNoScaleAndNoEnds) {
    Run({.name = "open"});
    for (int step = 0; step <= Model.NSteps; ++step) Model.RunTable.Assembled(step) = false;
    const Overlay_Scales scales = Find_Scales(Model, All());
    EXPECT_EQ(scales.velocity, 0);
    EXPECT_EQ(scales.acceleration, 0);
    EXPECT_EQ(scales.pin_force, 0);
    EXPECT_EQ(scales.shaking_force, 0);
    EXPECT_EQ(scales.first, Model.NSteps);
    EXPECT_EQ(scales.last, 0);
}

TEST_F(ViewOverlays, TheLongestArrowOfARunIsSeenAndTheScaleIsTheSameInAllItsFrames) {
    Run({.name = "scale"});
    const View_Wishes wishes = Only(&View_Wishes::velocities);
    double longest = 0;
    std::set<double> scales;
    for (int step = 0; step <= Model.NSteps; ++step) {
        const Overlay overlay = At_Step(step, wishes);
        for (const Mark& arrow : Of_Kind(overlay, Kind::kOpenArrow)) longest = std::max(longest, std::abs(Way(arrow)));
        scales.insert(overlay.legend.at(0).per_world);
    }
    EXPECT_NEAR(longest / Window(), 0.28, 0.001);
    EXPECT_EQ(scales.size(), 1U);
}

TEST_F(ViewOverlays, TheLegendStandsWhereTheJointsDoNotCome) {
    for (const Scenario& way : Every_Way()) {
        Run(way);
        View_Wishes wishes = Only(&View_Wishes::velocities);
        const auto papers = Painted(At_Step(3, wishes)).Calls;
        const auto paper = std::ranges::find_if(papers, [](const auto& call) { return call.kind == "Paper"; });
        ASSERT_NE(paper, papers.end());
        int under = 0;
        for (int step = 0; step <= Model.NSteps; ++step)
            for (int row = 0; row <= 2; ++row) {
                const Spot at = Joint(step, row);
                const double x = (at.real() - Model.AnimMin) / Window() * 600;
                const double y = (Model.FlipSum - at.imag() - Model.AnimMin) / Window() * 600;
                under += x > paper->numbers[0] && x < paper->numbers[0] + paper->numbers[2] && y > paper->numbers[1] &&
                         y < paper->numbers[1] + paper->numbers[3];
            }
        EXPECT_EQ(under, 0) << way.name;
    }
}

TEST_F(ViewOverlays, TheLegendStandsInTheFirstCornerOfWhichLeastIsTaken) {
    using Corner = Overlay::Corner;
    Run({.name = "one position"});
    Model.NSteps = 0;
    Model.L1 = 0;
    // Both pivots are in the middle of the window, and the joints where they are put, in parts of it.
    Model.AnimMin = -5;
    Model.AnimMax = 5;
    const auto corner = [](Spot A, Spot B, Spot P) {
        const Spot joints[] = {A, B, P};
        for (int row = 0; row <= 2; ++row) {
            Model.RunTable.PointXY(0, row, 0) = 10 * joints[row].real() - 5;
            Model.RunTable.PointXY(0, row, 1) = 10 * joints[row].imag() - 5;
        }
        return Find_Scales(Model, Only(&View_Wishes::velocities)).legend;
    };
    // A corner is 45 in 100 wide and 20 in 100 high.
    const Spot none{0.5, 0.5}, first{0.1, 0.95}, second{0.9, 0.95}, third{0.1, 0.05};
    EXPECT_EQ(corner(none, none, none), Corner::kTopLeft);
    EXPECT_EQ(corner({0.44, 0.95}, none, none), Corner::kTopRight);
    EXPECT_EQ(corner({0.46, 0.95}, none, none), Corner::kTopLeft);
    EXPECT_EQ(corner({0.1, 0.81}, none, none), Corner::kTopRight);
    EXPECT_EQ(corner({0.1, 0.79}, none, none), Corner::kTopLeft);
    EXPECT_EQ(corner(first, {0.56, 0.95}, none), Corner::kBottomLeft);
    EXPECT_EQ(corner(first, {0.54, 0.95}, none), Corner::kTopRight);
    EXPECT_EQ(corner(first, second, {0.1, 0.19}), Corner::kBottomRight);
    EXPECT_EQ(corner(first, second, {0.1, 0.21}), Corner::kBottomLeft);
    EXPECT_EQ(corner(third, first, third), Corner::kTopRight);
    EXPECT_EQ(corner(first, second, {0.9, 0.05}), Corner::kBottomLeft);
    EXPECT_EQ(corner(first, first, second), Corner::kBottomLeft);
    // A second position, that did not close, counts for nothing.
    Model.NSteps = 1;
    Model.RunTable.Assembled(1) = false;
    for (int row = 0; row <= 2; ++row) {
        Model.RunTable.PointXY(1, row, 0) = -4;
        Model.RunTable.PointXY(1, row, 1) = 4.5;
    }
    EXPECT_EQ(corner(none, none, none), Corner::kTopLeft);
}

}  // namespace
}  // namespace verlink::test
