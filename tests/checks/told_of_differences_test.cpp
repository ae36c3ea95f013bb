// Differences of positions beside a velocity and an acceleration that are others: by the polynomials through the
// points.
#include <map>

#include "tests/checks/told.h"

namespace verlink::test {

namespace {

/// Derivatives at 0 of the polynomials through seven, five and three points, of order 1 or 2.
struct Polynomials {
    std::array<double, 7> places{};

    /// Weights of the values: those by which each power of the place up to the sixth is exact.
    std::array<double, 7> Weights(int side, int order) const {
        const int count = 2 * side + 1, from = 3 - side;
        std::vector<std::vector<double>> rows;
        for (int power = 0; power < count; ++power) {
            std::vector<double> row;
            for (int i = from; i < from + count; ++i) row.push_back(std::pow(places[std::size_t(i)], power));
            row.push_back(power != order ? 0 : order);
            rows.push_back(row);
        }
        Eliminate(rows);
        std::array<double, 7> weights{};
        for (int i = 0; i < count; ++i) weights[std::size_t(from + i)] = rows[std::size_t(i)].back();
        return weights;
    }
    static void Eliminate(std::vector<std::vector<double>>& rows) {
        for (std::size_t i = 0; i < rows.size(); ++i) {
            for (std::size_t j = i + 1; j < rows.size(); ++j)
                if (std::abs(rows[j][i]) > std::abs(rows[i][i])) std::swap(rows[i], rows[j]);
            for (std::size_t j = 0; j < rows.size(); ++j) {
                if (j == i) continue;
                const double part = rows[j][i] / rows[i][i];
                for (std::size_t k = i; k < rows[j].size(); ++k) rows[j][k] -= part * rows[i][k];
            }
        }
        for (std::size_t i = 0; i < rows.size(); ++i) rows[i].back() /= rows[i][i];
    }
};

/// A derivative by seven points, how far five are off and three beside them, and what rounding leaves.
struct Derivative {
    Vector seven;
    double off = 0, coarse = 0, rounded = 0;
};

class Told_Of_Differences : public Told {
   protected:
    Derivative Derivative_At(int step, int row, int order) {
        Polynomials polynomials;
        for (int i = 0; i < 7; ++i)
            polynomials.places[std::size_t(i)] = std::remainder(Crank(step - 3 + i) - Crank(step), 2 * M_PI);
        const auto seven = polynomials.Weights(3, order), five = polynomials.Weights(2, order);
        const auto three = polynomials.Weights(1, order);
        Derivative d;
        Vector by_five, by_three;
        for (std::size_t i = 0; i < 7; ++i) {
            const int at = step - 3 + int(i);
            const Solved_Position p = Solved_At(at);
            const Vector away = 1000.0 * (Point(at, row) - Point(step, row));
            d.seven += seven[i] * away;
            by_five += five[i] * away;
            by_three += three[i] * away;
            const Ranges& place = row == 1 ? p.B : p.P;
            // How far a point goes for a radian of the crank.
            const double way = p.velocity[row].Size() / Model.RunTable.Omega(at, 0);
            d.rounded += std::abs(seven[i]) * 1000 *
                         (place.Off() + 2 * kHalf * std::abs(way) + 2 * kHalf * std::abs(Point(at, row)));
        }
        d.off = std::abs(d.seven - by_five);
        d.coarse = std::abs(by_five - by_three);
        return d;
    }
    /// The worst of five derivatives about it, and its own rounding.
    double Error_At(int step, int row, int order) {
        double off = 0;
        for (int i = std::max(3, step - 2); i <= std::min(Model.NSteps - 3, step + 2); ++i)
            off = std::max(off, Derivative_At(i, row, order).off);
        return off + Derivative_At(step, row, order).rounded;
    }
    void Expect_Both_Told(int step, const std::string& place) {
        auto& t = Model.RunTable;
        const Solved_Position p = Solved_At(step);
        const double w2 = t.Omega(step, 0), a2 = t.Alpha(step, 0);
        for (const int row : {1, 2}) {
            const std::string where = place + (row == 1 ? ", B" : ", P");
            const double first = Error_At(step, row, 1), second = Error_At(step, row, 2);
            for (const int axis : {0, 1}) {
                const Single kept_v = t.VelXY(step, row, axis), kept_a = t.AccXY(step, row, axis);
                t.VelXY(step, row, axis) += 3e4;
                const double v = std::hypot(t.VelXY(step, row, 0), t.VelXY(step, row, 1));
                Expect_Failing("Velocities by differences", where, 3e4,
                               std::abs(w2) * first + 1000 * p.velocity[row].Off() + 2 * kHalf * v);
                t.VelXY(step, row, axis) = kept_v;
                t.AccXY(step, row, axis) += 1e7;
                const double a = std::hypot(t.AccXY(step, row, 0), t.AccXY(step, row, 1));
                Expect_Failing(
                    "Accelerations by differences", where, 1e7,
                    std::abs(a2) * first + w2 * w2 * second + 1000 * p.acceleration[row].Off() + 2 * kHalf * a);
                t.AccXY(step, row, axis) = kept_a;
            }
        }
    }
    /// The steps at which a velocity that is another is seen.
    std::string Steps_Seen(const std::string& check = "Velocities by differences") {
        std::string seen;
        for (int step = 0; step <= Model.NSteps; ++step) {
            Single& cell =
                check.starts_with("Vel") ? Model.RunTable.VelXY(step, 2, 0) : Model.RunTable.AccXY(step, 2, 0);
            const Single kept = cell;
            cell += 1e7;
            const std::vector<Check> checks = Checks_Of(Model);
            const auto found = std::ranges::find(checks, check, &Check::name);
            if (found != checks.end() && found->verdict == Verdict::kFails) seen += " " + std::to_string(step);
            cell = kept;
        }
        return seen;
    }
    void Run_By_Angle(double start, double end, double step) {
        Take_Angles(start, end, step);
        Notes notes(desktop, platform::Answer::kIgnore);
        Integer result;
        Calc_Setup(3, result);
    }
};

}  // namespace

TEST_F(Told_Of_Differences, EachComponentWithTheErrorOfThePolynomials) {
    for (const int circuit : {1, 2}) {
        Take_Driven_Run(circuit);
        Expect_Both_Told(8, "step 8, 80 deg");
    }
}

TEST_F(Told_Of_Differences, OfStepsThatAreNotAlike) {
    Take_Driven_Run(1);
    auto& m = Model;
    for (int step = 0; step <= m.NSteps; ++step) m.RunTable.DriveTheta(step) = 40 + 3 * step + 0.125 * step * step;
    Notes notes(desktop, platform::Answer::kIgnore);
    Integer result;
    Imported_Run(result);
    Expect_Both_Told(4, "step 4, 54 deg");
    Expect_Both_Told(5, "step 5, 58.13 deg");
    Expect_Both_Told(8, "step 8, 72 deg");
    Expect_Both_Told(14, "step 14, 106.5 deg");
    Expect_Both_Told(17, "step 17, 127.13 deg");
}

TEST_F(Told_Of_Differences, WhereFiveStepsAreLittleNearerThanThreeTheErrorIsNotKnownAndNothingFails) {
    struct Cell {
        const char* check;
        int row, order;
        Single& number;
    };
    auto& t = Model.RunTable;
    const Cell cells[] = {{"Velocities by differences", 1, 1, t.VelXY(3, 1, 0)},
                          {"Velocities by differences", 2, 1, t.VelXY(3, 2, 0)},
                          {"Accelerations by differences", 1, 2, t.AccXY(3, 1, 0)},
                          {"Accelerations by differences", 2, 2, t.AccXY(3, 2, 0)}};
    // One window of seven steps; on a ground that is turned by 30 degrees.
    for (const auto& [middle, unknown] : {std::pair{160, 0U}, {310, 3U}}) {
        Take_Linkage(2);
        Run_By_Angle(middle - 44.25, middle + 44.25, 14.75);
        ASSERT_EQ(Model.NSteps, 6);
        for (std::size_t i = 0; i < std::size(cells); ++i) {
            SCOPED_TRACE(i);
            const auto& [check, row, order, number] = cells[i];
            const Derivative d = Derivative_At(3, row, order);
            EXPECT_EQ(d.off > 0.1 * d.coarse, i == unknown);
            const Single kept = number;
            number += 1e7;
            EXPECT_EQ(Found(check).verdict == Verdict::kFails, i != unknown);
            number = kept;
        }
    }
}

TEST_F(Told_Of_Differences, SayWhatTheyAre) {
    Take_Driven_Run(1);
    const Check velocities = Found("Velocities by differences"), accelerations = Found("Accelerations by differences");
    EXPECT_EQ(velocities.verdict, Verdict::kGood);
    EXPECT_EQ(accelerations.verdict, Verdict::kGood);
    EXPECT_EQ(velocities.unit, "mm/sec");
    EXPECT_EQ(accelerations.unit, "mm/sec^2");
    EXPECT_EQ(velocities.meaning,
              "The positions of seven steps, differenced by the crank's angle, give the velocities; expected is four "
              "times what five steps differ from seven, and rounding.");
    EXPECT_EQ(accelerations.meaning, "The same for the accelerations.");
}

TEST_F(Told_Of_Differences, AreTakenBetweenTheThirdStepsFromTheEndsOfARun) {
    Take_Linkage(1);
    Run_By_Angle(60, 80, 2);
    EXPECT_EQ(Steps_Seen(), " 3 4 5 6 7");
    EXPECT_EQ(Steps_Seen("Accelerations by differences"), " 3 4 5 6 7");
    Run_By_Angle(60, 72, 2);
    EXPECT_EQ(Steps_Seen(), " 3");
    Run_By_Angle(60, 70, 2);
    EXPECT_EQ(Steps_Seen(), "");
    const std::vector<Check> checks = Checks_Of(Model);
    EXPECT_EQ(std::ranges::find(checks, std::string("Velocities by differences"), &Check::name), checks.end());
    Run_By_Angle(200, 220, 2);
    EXPECT_EQ(Steps_Seen(), " 3 4 5 6 7") << "across half a turn from the ground";
    Model.Omega2Input = -10;
    Run_By_Angle(60, 80, 2);
    EXPECT_EQ(Steps_Seen(), " 3 4 5 6 7");
}

TEST_F(Told_Of_Differences, NeedStepsThatFollowEachOther) {
    Take_Linkage(1);
    Run_By_Angle(60, 100, 2);
    Model.RunTable.Assembled(10) = false;
    EXPECT_EQ(Steps_Seen(), " 3 4 5 6 14 15 16 17");
}

TEST_F(Told_Of_Differences, KeepAwayFromAnglesWhereCouplerAndRockerAreInLineByTwiceTheirReach) {
    // Three steps of 2 degrees on either side need 12 up to the toggle; the ground is turned by 30.
    const auto run = [&](double L1, double L2, double L3, double L4, double first, double last) {
        Take_Linkage(1);
        Enter_Linkage(Road::kBoxes, [&] {
            Model.L1 = L1;
            Model.L2 = L2;
            Model.L3 = L3;
            Model.L4 = L4;
        });
        Run_By_Angle(first + 30, last + 30, 2);
    };
    run(0.28, 0.16, 0.2, 0.18, 86, 112);  // stretched at 116.8
    EXPECT_EQ(Steps_Seen(), " 3 4 5 6 7 8 9");
    run(0.3, 0.3, 0.1, 0.35, 52, 80);  // folded at 49.2, and stretched at 97.2
    EXPECT_EQ(Steps_Seen(), " 5 6 7 8 9 10 11");
}

TEST_F(Told_Of_Differences, NeedStepsOfAtMostFifteenDegreesInOneDirection) {
    Take_Driven_Run(1);
    auto& m = Model;
    const auto run = [&](std::vector<double> cranks) {
        m.NSteps = int(cranks.size()) - 1;
        for (int step = 0; step <= m.NSteps; ++step) m.RunTable.DriveTheta(step) = cranks[std::size_t(step)];
        Notes notes(desktop, platform::Answer::kIgnore);
        Integer result;
        Imported_Run(result);
    };
    run({60, 63, 66, 69, 72, 75, 78, 81, 84});
    EXPECT_EQ(Steps_Seen(), " 3 4 5");
    run({60, 63, 66, 69, 72, 75, 78, 75, 72});
    EXPECT_EQ(Steps_Seen(), " 3") << "it turns back";
    run({60, 63, 60, 63, 66, 69, 72, 75, 78});
    EXPECT_EQ(Steps_Seen(), " 5") << "it turned back";
    run({60, 63, 66, 69, 69, 72, 75, 78, 81});
    EXPECT_EQ(Steps_Seen(), "") << "it stands";
    // A short crank comes near no toggle, however wide its steps are.
    Enter_Linkage(Road::kBoxes, [] { Model.L2 = 0.01; });
    Run_By_Angle(0, 140, 14);
    EXPECT_EQ(Steps_Seen(), " 3 4 5 6 7");
    Run_By_Angle(0, 160, 16);
    EXPECT_EQ(Steps_Seen(), "");
}

}  // namespace verlink::test
