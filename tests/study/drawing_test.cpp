// A mechanism and a cloud call by call, and the window about a mechanism.
#include "study/drawing.h"

#include <algorithm>
#include <cmath>

#include "core/numeric.h"
#include "tests/support/colors.h"
#include "tests/support/drawing.h"

namespace verlink::study {

namespace {

using Rows = std::vector<std::string>;

/// Over a turn by 30 degrees it closes where the crank pin is at most 4 from O4: up to 68 degrees to either side.
Design Double_Rocker(double ground = 0) {
    Design d;
    d.PolarCoords = true;
    d.L1 = 4, d.L2 = 3, d.L3 = 2, d.L4 = 2, d.Rpa = 1, d.Delta = 40, d.Link1Angle = ground;
    d.CircuitIndex = 1;
    d.CircuitSign = -1;
    d.Calctype = 3;
    d.ThetaEndRad = 360 * kDegToRad;
    d.ThetaStepRad = 30 * kDegToRad;
    d.ThetaStartRad = ground * kDegToRad;
    d.ThetaEndRad = (360 + ground) * kDegToRad;
    d.Omega2Input = 7;
    d.NSteps = 12;
    return d;
}

class StudyDrawing : public test::Drawing {
   protected:
    static std::string Stroke(Spot from, Spot to, platform::Color color) {
        return Row("Line", {from.real(), from.imag(), to.real(), to.imag()}, color);
    }
    static std::string Ring(Spot at, double radius, platform::Color color) {
        return Row("Circle", {at.real(), at.imag(), radius}, color);
    }
    Rows Drawn(int step, bool ghost = false) {
        stage.log.Calls.clear();
        Draw_Mechanism(stage.log, mechanism, step, {{-10, -5}, {10, 15}}, ghost);
        return stage.log.Calls;
    }
    Rows Curve() const {
        Rows rows;
        for (const int step : {1, 2, 11, 12})
            rows.push_back(Stroke(mechanism.At(step - 1)->P, mechanism.At(step)->P, test::kGreen));
        return rows;
    }
    test::Stage stage;
    const Mechanism mechanism{Double_Rocker()};
};

}  // namespace

TEST_F(StudyDrawing, APositionIsItsCurveFiveLinesTwoPinsAndTwoPivotsOfTwoRings) {
    for (const int step : {1, 12}) {
        const Joints at = mechanism.At(step).value();
        EXPECT_NEAR(std::abs(at.A - std::polar(3.0, 30 * step * kDegToRad)), 0, 1e-5);
        Rows rows = Curve();
        for (const auto& [from, to] : {std::pair{at.A, at.B}, std::pair{at.A, at.P}, std::pair{at.B, at.P},
                                       std::pair{Spot(0), at.A}, std::pair{Spot(4), at.B}})
            rows.push_back(Stroke(from, to, test::kMagenta));
        // Parts of the window, which is 20 wide.
        for (const Spot joint : {at.A, at.B}) rows.push_back(Ring(joint, 0.18, test::kMagenta));
        for (const Spot pivot : {Spot(0), Spot(4)})
            for (const double radius : {0.18, 0.36}) rows.push_back(Ring(pivot, radius, test::kBlue));
        Expect_Rows(Drawn(step), rows);
    }
}

TEST_F(StudyDrawing, WhereThereIsNoPositionTheCurveIsDrawnAlone) {
    for (const int step : {3, 9, 13, 100}) Expect_Rows(Drawn(step), Curve());
}

TEST_F(StudyDrawing, TheAngleOfTheCrankIsKnownWhereItCloses) {
    EXPECT_TRUE(mechanism.Closes());
    EXPECT_EQ(mechanism.Last(), 12);
    EXPECT_EQ(mechanism.Crank(0), 0);
    EXPECT_NEAR(mechanism.Crank(2), 60, 1e-4);
    EXPECT_EQ(mechanism.Crank(3), 0);
    EXPECT_NEAR(mechanism.Crank(11), 330, 1e-4);
}

TEST_F(StudyDrawing, TheWindowIsASquareAboutAllJointsWithATenthOfItsSideLeftBesideThem) {
    for (const double ground : {0.0, 90.0, 180.0, 270.0}) {
        Design design = Double_Rocker(ground);
        design.NSteps = 2;
        const Mechanism some(design);
        std::vector<double> x{0}, y{0};
        for (int step = 0; step <= 2; ++step)
            for (const Spot spot : {some.At(step)->O4, some.At(step)->A, some.At(step)->B, some.At(step)->P}) {
                x.push_back(spot.real());
                y.push_back(spot.imag());
            }
        const auto [left, right] = std::ranges::minmax(x);
        const auto [low, high] = std::ranges::minmax(y);
        const double side = 1.2 * std::max(right - left, high - low);
        const Window window = Window_Of(some);
        EXPECT_NEAR(window.Side(), side, 1e-9) << ground;
        EXPECT_NEAR(window.high.imag() - window.low.imag(), side, 1e-9) << ground;
        EXPECT_NEAR((window.low.real() + window.high.real()) / 2, (left + right) / 2, 1e-9) << ground;
        EXPECT_NEAR((window.low.imag() + window.high.imag()) / 2, (low + high) / 2, 1e-9) << ground;
    }
}

TEST_F(StudyDrawing, StepsThatDoNotCloseAreNotInTheWindow) {
    // Five of thirteen close; mirrored about the ground.
    const Design design = Double_Rocker();
    double left = 0, right = 4, high = 0;
    for (const int step : {0, 1, 2, 11, 12})
        for (const Spot spot : {mechanism.At(step)->A, mechanism.At(step)->B, mechanism.At(step)->P}) {
            left = std::min(left, spot.real());
            right = std::max(right, spot.real());
            high = std::max(high, std::abs(spot.imag()));
        }
    const Window window = Window_Of(mechanism);
    EXPECT_GT(window.Side(), 1.2 * (right - left) - 1e-9);
    EXPECT_LT(window.Side(), 1.2 * std::max(right - left, 2 * high) + 1e-9);
    EXPECT_NEAR((window.low.real() + window.high.real()) / 2, (left + right) / 2, 1e-9);
}

TEST_F(StudyDrawing, TheWindowOfOnePositionIsAboutThatPosition) {
    Design design = Double_Rocker();
    design.Calctype = 1;
    design.ThetaZero = 0;
    const Mechanism one(design);
    ASSERT_EQ(one.Last(), 0);
    const Joints at = one.At(0).value();
    const double high = std::max({at.B.imag(), at.P.imag(), 0.0}), low = std::min({at.B.imag(), at.P.imag(), 0.0});
    // The crank lies on the ground, and the rocker's joint is an isosceles triangle's: over 3.5, as high as it comes.
    EXPECT_NEAR(std::abs(at.A - Spot(3)), 0, 1e-5);
    EXPECT_NEAR(at.B.real(), 3.5, 1e-5);
    EXPECT_NEAR(std::abs(at.B.imag()), std::sqrt(4 - 0.25), 1e-5);
    EXPECT_NEAR(Window_Of(one).Side(), 1.2 * std::max(4.0, high - low), 1e-5);
    EXPECT_NEAR(Window_Of(one).low.imag() + Window_Of(one).high.imag(), high + low, 1e-5);
}

TEST_F(StudyDrawing, AMechanismThatIsHardlyThereHasAWindowAllTheSame) {
    Design design = Double_Rocker();
    design.L1 = 4e-9, design.L2 = 3e-9, design.L3 = 2e-9, design.L4 = 2e-9, design.Rpa = 1e-9;
    const Mechanism tiny(design);
    ASSERT_TRUE(tiny.Closes());
    EXPECT_NEAR(Window_Of(tiny).Side(), 1.2e-6, 1e-12);
    design.L1 = 8e-9;
    const Mechanism none(design);
    EXPECT_FALSE(none.Closes());
    EXPECT_EQ(Window_Of(none).low, Spot(-1, -1));
    EXPECT_EQ(Window_Of(none).high, Spot(1, 1));
}

TEST_F(StudyDrawing, ACloudIsDotsOverWhichStandTheModelAndTheRingOfThePickedOne) {
    const std::vector<Cloud_Point> cloud{{1.01, 2, 4}, {1, 1.98, 9}};
    // Deviations are fifty times as large, and the window is 10 wide.
    Draw_Cloud(stage.log, cloud, {1, 2}, 50, Number{9}, {{-5, -5}, {5, 5}});
    const platform::Color orange = 215 + 256 * 110 + 65536 * 20, blue = 256 * 90 + 65536 * 160;
    Expect_Rows(stage.log.Calls, {Ring({1.5, 2}, 0.022, orange), Ring({1, 1}, 0.022, orange), Ring({1, 2}, 0.066, 0),
                                  Ring({1, 1}, 0.12, blue)});
    EXPECT_FALSE(Nearest_In({}, {1, 2}, 50, {1, 2}));
}

}  // namespace verlink::study
