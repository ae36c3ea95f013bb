// The classical straight-line linkages: as straight as an exact solution says, and by the properties that they are
// known for.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "tests/batch/batch_fixture.h"
#include "tests/batch/exact_linkage.h"

namespace verlink::test {

namespace {

struct Straightness {
    double deviation;  ///< width of the narrowest strip that holds the path
    double length;     ///< of the path along the strip
    double Ratio() const { return deviation / length; }
};

/// By turning a strip until it is narrowest, first coarsely and then by ever smaller turns.
Straightness Straightness_Of(const std::vector<Point>& path) {
    const auto extent = [&](double angle) {
        double low = 1e9, high = -1e9;
        for (const Point& p : path) {
            const double along = static_cast<double>((p * std::polar<Exact>(1, -angle)).real());
            low = std::min(low, along);
            high = std::max(high, along);
        }
        return high - low;
    };
    const double quarter = std::numbers::pi / 2;
    const auto width = [&](double angle) { return extent(angle + quarter); };
    double best = 0, turn = std::numbers::pi / 720;
    for (int i = 0; i < 720; ++i)
        if (width(i * turn) < width(best)) best = i * turn;
    for (; turn > 1e-12; turn /= 1.5)
        for (const double angle : {best - turn, best + turn})
            if (width(angle) < width(best)) best = angle;
    return {width(best), extent(best)};
}

struct StraightLine : BatchFixture {
    /// A component of less than 0.0001 reads as zero.
    static Exact Shown(Exact component) { return std::abs(component) < 0.0001L ? 0 : component; }

    struct Path_Of {
        std::vector<Point> run, exact;
    };

    /// The coupler point by the program and exactly, over a range of crank angles.
    Path_Of Traced(const ExactLinkage& linkage, double start, double end, double step) const {
        const auto text = [](Exact value) { return std::to_string(static_cast<double>(value)); };
        ModelText model;
        model.Linkage({text(linkage.L1), text(linkage.L2), text(linkage.L3), text(linkage.L4)}, text(linkage.Rpa),
                      text(linkage.Delta));
        model.Angles(text(start), text(end), text(step)).Set(kCircuit, linkage.crossed ? "2" : "1");
        const Outcome outcome = Run(model);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, "");
        const CsvTable table = outcome.Table();
        EXPECT_EQ(table.Rows(), static_cast<int>((end - start) / step + 1.5));
        Path_Of path;
        const double close = 2e-6 * static_cast<double>(linkage.L1 + linkage.L2 + linkage.Rpa);
        for (int row = 0; row < table.Rows(); ++row) {
            const Point run(table.At(row, "Coupler Pt X"), table.At(row, "Coupler Pt Y"));
            // The angle adds up in single precision, half a unit in the last place a step.
            EXPECT_NEAR(std::remainder(table.At(row, "Theta2") - (start + step * row), 360), 0, 1e-4 + 1.5e-5 * row);
            const Point solved = linkage.At(table.At(row, "Theta2")).P;
            const Point exact(Shown(solved.real()), Shown(solved.imag()));
            EXPECT_LT(static_cast<double>(std::abs(run - exact)), close) << row;
            path.run.push_back(run);
            path.exact.push_back(exact);
        }
        return path;
    }
    Straightness Checked(const Path_Of& path) const {
        const Straightness exact = Straightness_Of(path.exact), run = Straightness_Of(path.run);
        EXPECT_NEAR(run.deviation, exact.deviation, 1e-6 * exact.length);
        EXPECT_NEAR(run.length, exact.length, 1e-6 * exact.length);
        return run;
    }
};

const ExactLinkage kHoeken{2, 1, 2.5L, 2.5L, 5, 0};
const ExactLinkage kChebyshev{4, 5, 2, 5, 1, 0, 0, true};
const ExactLinkage kRoberts{2, 1, 1, 1, 1.5L, -70.529L};
const ExactLinkage kWatt{2.5L, 1.25L, 0.625L, 1.25L, 0.3125L, 0};

}  // namespace

TEST_F(StraightLine, HoekensIsStraightOverHalfTheCycle) {
    const Straightness line = Checked(Traced(kHoeken, 90, 270, 1));
    EXPECT_NEAR(line.length, 4, 1e-5);  // four cranks long
    EXPECT_LT(line.Ratio(), 0.0025);    // a quarter of a percent
    EXPECT_GT(line.Ratio(), 0.0024);
}

TEST_F(StraightLine, HoekensLineIsTwiceTheGroundHighAtItsEndsAndMiddle) {
    const Path_Of path = Traced(kHoeken, 90, 270, 1);
    for (const std::size_t step : {0u, 90u, 180u}) EXPECT_NEAR(static_cast<double>(path.run[step].imag()), 4, 4e-6);
    for (const Point& p : path.run) EXPECT_GT(static_cast<double>(p.imag()), 4 - 4e-6);
}

TEST_F(StraightLine, HoekensPointMovesAtNearlyConstantSpeedAroundTheMiddle) {
    ModelText model;
    model.Linkage({"2", "1", "2.5", "2.5"}, "5", "0").Angles("150", "210", "1");
    const CsvTable table = Run(model).Table();
    const double middle = table.At(30, "Veloc CP Mag");
    for (int row = 0; row < table.Rows(); ++row) EXPECT_NEAR(table.At(row, "Veloc CP Mag") / middle, 1, 0.03) << row;
}

TEST_F(StraightLine, ChebyshevsMidpointIsAtOneHeightAtItsEndsAndMiddle) {
    // The coupler stands upright at both ends, on triangles of 3, 4 and 5, and lies level in the middle.
    const std::pair<const char*, double> places[] = {{"36.8698976", 4}, {"53.1301024", 2}, {"90", 0}};
    for (const auto& [crank, x] : places) {
        ModelText model;
        model.Linkage({"4", "5", "2", "5"}, "1", "0").Set(kCircuit, "2").Set(kCalctype, "1").Set(kThetaZero, crank);
        const CsvTable table = Run(model).Table();
        EXPECT_NEAR(table.At(0, "Coupler Pt X"), x, 1e-5);
        EXPECT_NEAR(table.At(0, "Coupler Pt Y"), 4, 1e-5);
    }
    EXPECT_LT(Checked(Traced(kChebyshev, 37, 90, 0.5)).Ratio(), 0.0026);
}

TEST_F(StraightLine, HoekensAndChebyshevsLinkagesAreCognates) {
    // The same curve from another linkage: both deviate by the same amount over the same line.
    const Straightness hoeken = Checked(Traced(kHoeken, 90, 270, 0.5));
    const Straightness chebyshev = Checked(Traced(kChebyshev, 37, 90, 0.05));
    EXPECT_NEAR(hoeken.deviation, chebyshev.deviation, 1e-5);
}

TEST_F(StraightLine, RobertsPointKeepsToALineParallelToTheGround) {
    const Path_Of path = Traced(kRoberts, 49, 69, 2);
    const Straightness line = Checked(path);
    EXPECT_LT(line.Ratio(), 0.0007);
    const auto [low, high] = std::ranges::minmax(path.run, {}, [](const Point& p) { return p.imag(); });
    EXPECT_NEAR(static_cast<double>(high.imag() - low.imag()), line.deviation, 0.03 * line.deviation);
}

TEST_F(StraightLine, WattsMidpointIsStraightestAroundItsMiddle) {
    // In the middle the crank and the rocker are parallel, and the coupler point halves the ground link.
    const double middle = -static_cast<double>(Degrees(std::acos(31.0L / 32)));
    const Path_Of path = Traced(kWatt, middle - 14, middle + 14, 1);
    EXPECT_LT(static_cast<double>(std::abs(path.run[14] - Point(1.25L, 0))), 1e-5);
    const Straightness narrow = Checked(path);
    EXPECT_LT(narrow.Ratio(), 0.0005);
    EXPECT_GT(narrow.length, 0.6);
    EXPECT_GT(Checked(Traced(kWatt, -40, 20, 2)).Ratio(), 30 * narrow.Ratio());
}

TEST_F(StraightLine, RobertsIsStraighterThanHoekensAndThatThanWatts) {
    const double roberts = Checked(Traced(kRoberts, 49, 69, 0.5)).Ratio();
    const double hoeken = Checked(Traced(kHoeken, 90, 270, 1)).Ratio();
    const double watt = Checked(Traced(kWatt, -40, 20, 0.5)).Ratio();
    EXPECT_LT(roberts, hoeken);
    EXPECT_LT(hoeken, watt);
}

}  // namespace verlink::test
