// The straight-line examples over their own ranges: as straight as exact figures and the books say.
#include <algorithm>
#include <functional>
#include <vector>

#include "synthesis/examples.h"
#include "tests/support/reference.h"
#include "tests/synthesis/synthesis_fixture.h"

namespace verlink::test {

namespace {

struct Straightness {
    double stroke;  ///< from the first point to the last
    double width;   ///< of the narrowest strip that holds the path
    double Ratio() const { return width / stroke; }
};

struct StraightLines : Synthesis {
    /// An example over the range of its texts, or another, by angle steps.
    std::vector<Vector> Path(const std::function<void()>& load, double start = HUGE_VAL, double end = 0,
                             double step = 0) {
        load();
        Model.ThetaStart = start == HUGE_VAL ? Val(Model.ThetaStartStr) : start;
        Model.ThetaEnd = start == HUGE_VAL ? Val(Model.ThetaEndStr) : end;
        Model.ThetaStep = start == HUGE_VAL ? Val(Model.ThetaStepStr) : step;
        Derive_Angle_Limits();
        Derive_Linkage(Leading::kInForce);
        Model.Calctype = 3;
        Model.NSteps = Steps_Of(Model.ThetaStart, Model.ThetaEnd, Model.ThetaStep);
        Integer result;
        Calc_Setup(3, result);
        std::vector<Vector> path;
        for (int at = 0; at <= Model.NSteps; ++at) {
            EXPECT_TRUE(Model.RunTable.Assembled(at)) << Model.ModelName << ' ' << at;
            path.emplace_back(Model.RunTable.PointXY(at, 2, 0), Model.RunTable.PointXY(at, 2, 1));
        }
        return path;
    }
    /// One side of the narrowest strip goes through two of the points.
    static Straightness Of(const std::vector<Vector>& path) {
        double width = HUGE_VAL;
        for (const Vector& a : path)
            for (const Vector& b : path) {
                if (a == b) continue;
                const Vector along = (b - a) / std::abs(b - a);
                double least = 0, most = 0;
                for (const Vector& c : path) {
                    least = std::min(least, Cross(along, c - a));
                    most = std::max(most, Cross(along, c - a));
                }
                width = std::min(width, most - least);
            }
        return {std::abs(path.back() - path.front()), width};
    }
    static void Expect_Reference(const char* name, const Straightness& found) {
        for (const Row& row : Read_Table("straight_lines.csv")) {
            if (row.at("Name") != name) continue;
            EXPECT_NEAR(found.stroke, Number(row, "Stroke"), 1e-5) << name;
            EXPECT_NEAR(found.width, Number(row, "Width"), 1e-5) << name;
            return;
        }
        ADD_FAILURE() << "no " << name;
    }
};

}  // namespace

// Books on mechanisms give Hoeken's crank-rocker, 1 to 2 to 2.5 with the coupler drawn out to twice its length, as
// straight to a quarter of a percent of its line over the half turn of the crank away from the rocker's pivot, the line
// being four cranks long.
TEST_F(StraightLines, HoekensIsStraightToAQuarterPercentOverHalfATurn) {
    const Straightness line = Of(Path(Hoekens, 90, 270, 5));
    Expect_Reference("Hoekens over half a turn", line);
    EXPECT_NEAR(line.stroke, 4, 1e-5);
    EXPECT_LT(line.Ratio(), 0.0025);
}

// The whole turn of its own range goes back in an arch: the line is its lower side.
TEST_F(StraightLines, HoekensWholeTurnHasItsLineAtTheBottom) {
    const auto path = Path(Hoekens);
    ASSERT_EQ(path.size(), 37u);
    const auto lowest =
        std::min_element(path.begin(), path.end(), [](Vector a, Vector b) { return a.imag() < b.imag(); });
    for (std::size_t at = 9; at <= 27; ++at) EXPECT_NEAR(path[at].imag(), lowest->imag(), 0.011);
    for (const std::size_t at : {0u, 3u, 33u, 36u}) EXPECT_GT(path[at].imag(), lowest->imag() + 0.4);
}

// Chebyshev's 4 to 5 to 2 is known by the point's being at one height, that of its pivots plus the ground's length,
// at both ends and in the middle, where coupler and arms make triangles of 3, 4 and 5; half of that is its range.
TEST_F(StraightLines, ChebychevsIsStraightToAQuarterPercentFromTheMiddleToItsEnd) {
    const auto path = Path(Chebychev);
    const Straightness line = Of(path);
    Expect_Reference("Chebychev from end to end", line);
    EXPECT_LT(line.Ratio(), 0.00255);
    for (const double crank : {53.1301024, 90.0})
        EXPECT_NEAR(Path(Chebychev, crank, crank + 1, 1).front().imag(), 2, 1e-5);
    EXPECT_NEAR(Path(Chebychev, 53.1301024, 54.1301024, 1).front().real(), 1, 1e-5);
}

// Roberts' triangle on rockers as long as itself is said to keep to the line of its pivots the better the taller it is;
// this one, of legs 1.5 on a base of 1, is below a thousandth over its range.
TEST_F(StraightLines, RobertsKeepsToTheLineOfItsPivotsToLessThanAThousandth) {
    const auto path = Path(Roberts);
    const Straightness line = Of(path);
    Expect_Reference("Roberts", line);
    EXPECT_LT(line.Ratio(), 0.001);
    const auto [low, high] =
        std::minmax_element(path.begin(), path.end(), [](Vector a, Vector b) { return a.imag() < b.imag(); });
    EXPECT_LT(high->imag() - low->imag(), 0.001 * line.stroke);
}

// Watt's point runs on a figure of eight that has its straightest piece where it crosses itself, half way between the
// pivots, with arms parallel: there the tangent meets the curve in five points together.
TEST_F(StraightLines, WattsIsStraightestInTheMiddleOfItsRange) {
    const Straightness line = Of(Path(Watts));
    Expect_Reference("Watt", line);
    EXPECT_LT(line.Ratio(), 0.03);
    const double parallel = -Degrees(std::acos(31.0 / 32));
    const auto path = Path(Watts, parallel - 14, parallel + 14, 1);
    EXPECT_LT(std::abs(path[14] - Vector(1.25, 0)), 1e-5);
    EXPECT_LT(Of(path).Ratio(), 0.0005);
}

}  // namespace verlink::test
