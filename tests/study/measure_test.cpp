// What a measure is of a path, found another way.
#include "study/measure.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "core/linkage_model.h"
#include "tests/checks/linkages.h"

namespace verlink::test {

namespace {

class Study_Measure : public Random_Linkages {};

}  // namespace

TEST_F(Study_Measure, TheStraightestLineIsThatOfTheLeastSquares) {
    SCOPED_TRACE(Trace());
    study::Motion motion;
    study::Meter meter;
    std::string fault;
    const auto measure = study::Measure_Of("deviation line", false, fault);
    ASSERT_TRUE(measure) << fault;
    int runs = 0;
    while (runs < 10) {
        if (!Take_Random() || Model.Calctype > 3) continue;
        ++runs;
        study::Design design = study::Design_Of(Model);
        motion.Solve(design, study::Wanted::kPoints);
        std::vector<std::pair<double, double>> points;
        double x0 = 0, y0 = 0;
        for (int step = 0; step <= motion.Last(); ++step) {
            if (!motion.Closed(step)) continue;
            points.emplace_back(motion.Table().PointXY(step, 2, 0), motion.Table().PointXY(step, 2, 1));
            x0 += points.back().first;
            y0 += points.back().second;
        }
        x0 /= static_cast<double>(points.size());
        y0 /= static_cast<double>(points.size());
        // Of the lines through the centre in many directions that with the least sum of squares.
        double least = 1e300, greatest = 0, most = 0, best = 0;
        const auto look = [&](double a) {
            double squares = 0, largest = 0;
            const double cosine = std::cos(a), sine = std::sin(a);
            for (const auto& [x, y] : points) {
                const double off = std::abs((y - y0) * cosine - (x - x0) * sine);
                squares += off * off;
                largest = std::max(largest, off);
            }
            if (squares < least) least = squares, most = largest, best = a;
            greatest = std::max(greatest, squares);
        };
        for (int part = 0; part < 100; ++part) look(M_PI * part / 100);
        const double middle = best;
        for (int part = -100; part <= 100; ++part) look(middle + M_PI * part / 10000);
        if (least > 0.9 * greatest) continue;  // as good as a circle, which goes no way
        const double taken = meter.Take(*measure, motion, design, 0);
        double extent = 0;
        for (const auto& [x, y] : points) extent = std::max(extent, std::hypot(x - x0, y - y0));
        EXPECT_NEAR(taken, most, 3e-4 * extent);
    }
}

/// The speed of the crank's pin, upwards where the crank lies along the ground, to the right where it hangs down.
TEST_F(Study_Measure, AComponentIsZeroWhereItIsLessThanATenThousandth) {
    study::Design design;
    design.PolarCoords = true;
    design.L1 = 4, design.L2 = 1, design.L3 = 3.5, design.L4 = 3, design.Rpa = 1;
    design.CircuitSign = -1;
    design.Calctype = 1;
    study::Motion motion;
    study::Meter meter;
    for (const std::string component : {"X", "Y"}) {
        std::string fault;
        const auto measure = study::Measure_Of("max Veloc I 2,3:" + component, false, fault).value();
        const auto taken = [&](float speed) {
            design.ThetaZero = component == "X" ? 270 : 0;
            design.Omega2Input = speed;
            EXPECT_TRUE(motion.Solve(design, study::Wanted::kMotion));
            return meter.Take(measure, motion, design, 0);
        };
        for (const float sign : {-1.0F, 1.0F}) {
            EXPECT_EQ(taken(sign * 0.0001F), sign * 0.0001F) << component;
            EXPECT_EQ(taken(sign * std::nextafter(0.0001F, 0.0F)), 0) << component;
        }
    }
}

}  // namespace verlink::test
