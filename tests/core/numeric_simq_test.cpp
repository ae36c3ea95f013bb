// The equation solver.
#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <vector>

#include "core/numeric.h"
#include "tests/core/linkages.h"

namespace verlink::test {

namespace {

class EquationSolver : public Fixture {
   protected:
    Integer Flag = -7;
    void Solve(int n, std::vector<double>& a, std::vector<double>& b) {
        Integer N = n;
        SimQ(N, a, b, Flag);
        EXPECT_EQ(N, n);
    }
};

TEST_F(EquationSolver, SolvesASystemWithAPivotOffTheDiagonal) {
    std::vector<double> a{0, 2, 1, 1, -2, -3, -1, 1, 2}, b{-8, 0, 3};
    Solve(3, a, b);
    EXPECT_EQ(Flag, 0);
    EXPECT_NEAR(b[0], -4, 1e-14);
    EXPECT_NEAR(b[1], -5, 1e-14);
    EXPECT_NEAR(b[2], 2, 1e-14);
}

TEST_F(EquationSolver, SolvesNineEquations) {
    std::mt19937 random(9);
    std::uniform_real_distribution<double> number(-5, 5);
    for (int round = 0; round < 50; ++round) {
        std::vector<double> a(81), x(9), b(9, 0.0);
        std::generate(a.begin(), a.end(), [&] { return number(random); });
        std::generate(x.begin(), x.end(), [&] { return number(random); });
        for (std::size_t i = 0; i < 9; ++i)
            for (std::size_t j = 0; j < 9; ++j) b[i] += a[i * 9 + j] * x[j];
        Solve(9, a, b);
        EXPECT_EQ(Flag, 0);
        for (std::size_t i = 0; i < 9; ++i) EXPECT_NEAR(b[i], x[i], 1e-10);
    }
}

TEST_F(EquationSolver, SolvesOneEquation) {
    std::vector<double> a{4}, b{10};
    Solve(1, a, b);
    EXPECT_EQ(Flag, 0);
    EXPECT_EQ(b[0], 2.5);
}

TEST_F(EquationSolver, ReducesRowsWithReversedSignAndLeavesTheColumnBelowThePivot) {
    std::vector<double> a{2, 1, 1, 3}, b{3, 5};
    Solve(2, a, b);
    // Row 2 becomes row 1 times 1/2 less row 2.
    EXPECT_EQ(a, (std::vector<double>{2, 1, 1, -2.5}));
    EXPECT_NEAR(b[0], 0.8, 1e-15);
    EXPECT_NEAR(b[1], 1.4, 1e-15);
}

TEST_F(EquationSolver, TheFirstOfEqualPivotsWins) {
    std::vector<double> a{1, 2, -1, 5}, b{3, 4};
    Solve(2, a, b);
    EXPECT_EQ(a[0], 1);  // not exchanged for the row that begins with -1
    EXPECT_NEAR(b[0], 1, 1e-15);
    EXPECT_NEAR(b[1], 1, 1e-15);
}

TEST_F(EquationSolver, AZeroColumnStopsWithItsNumberAndLeavesTheRightSidePartlyReduced) {
    std::vector<double> a{1, 0, 2, 3, 0, 4, 5, 0, 7}, b{1, 2, 3};
    desktop.Expect_Message("There is a zero value on diagonal in column 2", platform::Answer::kOk,
                           platform::Icon::kNone, platform::Buttons::kOk);
    Solve(3, a, b);
    EXPECT_EQ(Flag, 2);
    EXPECT_EQ(b[0], 3);  // rows 1 and 3 have been exchanged
    EXPECT_NEAR(b[1], 3 * 3.0 / 5 - 2, 1e-15);
    EXPECT_NEAR(b[2], 3 * 1.0 / 5 - 1, 1e-15);
}

TEST_F(EquationSolver, AZeroFirstColumnStopsBeforeAnythingIsChanged) {
    std::vector<double> a{0, 1, 0, 2}, b{5, 6};
    desktop.Expect_Message("There is a zero value on diagonal in column 1");
    Solve(2, a, b);
    EXPECT_EQ(Flag, 1);
    EXPECT_EQ(a, (std::vector<double>{0, 1, 0, 2}));
    EXPECT_EQ(b, (std::vector<double>{5, 6}));
}

TEST_F(EquationSolver, ASingularLastRowPassesInSilenceWithoutItsDivision) {
    std::vector<double> a{1, 2, 2, 4}, b{3, 8};
    Solve(2, a, b);
    EXPECT_EQ(Flag, 0);
    EXPECT_EQ(a[3], 0);
    // The larger row is the pivot: B(2) = 8 / 2 - 3, undivided, and B(1) = (8 - 4 B(2)) / 2.
    EXPECT_EQ(b[1], 1);
    EXPECT_EQ(b[0], 2);
}

TEST_F(EquationSolver, ASingleZeroEquationPassesInSilence) {
    std::vector<double> a{0}, b{3};
    Solve(1, a, b);
    EXPECT_EQ(Flag, 0);
    EXPECT_EQ(b[0], 3);
}

TEST_F(EquationSolver, ASystemLargerThanItsArraysIsReportedAsASubscript) {
    for (const auto& [n, matrix, right] : {std::array{3, 4, 2}, {3, 8, 3}, {3, 9, 2}, {0, 9, 3}, {-1, 9, 3}}) {
        std::vector<double> a(static_cast<std::size_t>(matrix), 1.0), b(static_cast<std::size_t>(right), 1.0);
        desktop.Expect_Message(Report(9, "Subscript out of range", "SimQ"));
        Solve(n, a, b);
        EXPECT_EQ(Flag, 1);
    }
}

TEST_F(EquationSolver, OfArraysLargerThanTheSystemTheBeginningCounts) {
    std::vector<double> a(81), b(9, 7.0);
    for (std::size_t i = 0; i < a.size(); ++i) a[i] = static_cast<double>(7 * i * i % 13);
    std::ranges::copy(std::array{2.0, 0.0, 0.0, 4.0}, a.begin());
    std::ranges::copy(std::array{6.0, 8.0}, b.begin());
    Solve(2, a, b);
    EXPECT_EQ(Flag, 0);
    EXPECT_EQ(b[0], 3);
    EXPECT_EQ(b[1], 2);
    EXPECT_EQ(b[2], 7);
}

TEST_F(EquationSolver, AnOverflowIsReported) {
    std::vector<double> a{1, 1.7e308, 1, -1.7e308}, b{1, 2};
    desktop.Expect_Message(Report(6, "Overflow", "SimQ"));
    Solve(2, a, b);
    EXPECT_EQ(Flag, 1);
}

}  // namespace

}  // namespace verlink::test
