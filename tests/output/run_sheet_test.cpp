// The sheet of all that is known of a run.
#include "output/run_sheet.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numeric>

#include "dynamics/dynacalc.h"
#include "shell/initialize.h"
#include "tests/dynamics/motion.h"

namespace verlink::test {
namespace {

struct RunSheet : Fixture {
    RunSheet() {
        Initialize();
        Run_Scenario({.name = "millimetres, turned", .units = 5, .ground = 30, .loads = true});
    }
    static std::vector<const Sheet_Column*> Named(const Sheet& sheet, const std::string& name) {
        std::vector<const Sheet_Column*> found;
        for (const Sheet_Column& column : sheet.columns)
            if (column.name == name) found.push_back(&column);
        return found;
    }
    static std::size_t Rows() { return static_cast<std::size_t>(Model.NSteps) + 1; }
};

TEST_F(RunSheet, HasARowForEachStepOfTheRunInEveryColumn) {
    const Sheet sheet = Run_Sheet(Model, false);
    EXPECT_TRUE(sheet.statistics);
    for (const Sheet_Column& column : sheet.columns) EXPECT_EQ(column.values.size(), Rows()) << column.name;
    for (std::size_t step = 0; step < Rows(); ++step) EXPECT_EQ(sheet.columns[0].values[step], double(step));
    EXPECT_EQ(sheet.columns[0].decimals, 0);
    EXPECT_EQ(sheet.columns[0].most, Model.NSteps);
    EXPECT_EQ(sheet.columns[0].mean, Model.NSteps / 2.0);
    EXPECT_EQ(sheet.columns[1].name, "Closes");
    EXPECT_TRUE(Named(sheet, "Time").empty()) << "a run by angle";
}

TEST_F(RunSheet, HasTheTimesOfARunByTime) {
    Model.Calctype = 2;
    Model.TimeStart = 0.5;
    Model.TimeStep = 0.25;
    const Sheet sheet = Run_Sheet(Model, false);
    const auto times = Named(sheet, "Time");
    ASSERT_EQ(times.size(), 1U);
    EXPECT_EQ(times[0], &sheet.columns[2]);
    EXPECT_EQ(times[0]->unit, "sec");
    for (std::size_t step = 0; step < Rows(); ++step)
        EXPECT_NEAR(times[0]->values[step], 0.5 + 0.25 * double(step), 1e-6);
}

TEST_F(RunSheet, HasTheCentrodesInTheGlobalFrameAndTheUnitShown) {
    const Sheet sheet = Run_Sheet(Model, false);
    const std::pair<const char*, const StepArray<Single, 1, 2>*> kinds[] = {
        {"Fixed Centrode", &Model.RunTable.FixedCentrode}, {"Moving Centrode", &Model.RunTable.MovingCentrode}};
    for (const auto& [name, points] : kinds) {
        const auto columns = Named(sheet, name);
        ASSERT_EQ(columns.size(), 2U);
        EXPECT_EQ(columns[0]->component, "X");
        EXPECT_EQ(columns[1]->component, "Y");
        EXPECT_EQ(columns[0]->unit, "mm");
        for (std::size_t step = 0; step < Rows(); ++step) {
            const int i = static_cast<int>(step);
            const std::complex<double> local{(*points)(i, 0, 0), (*points)(i, 0, 1)};
            const std::complex<double> shown = 1000.0 * local * std::polar(1.0, M_PI / 6);
            EXPECT_NEAR(columns[0]->values[step], shown.real(), 1e-5 * std::abs(shown)) << name << step;
            EXPECT_NEAR(columns[1]->values[step], shown.imag(), 1e-5 * std::abs(shown)) << name << step;
        }
    }
}

TEST_F(RunSheet, LeavesPositionsThatDoNotCloseEmptyAndOutOfItsStatistics) {
    const double far = 1e6;
    Model.RunTable.Assembled(2) = false;
    for (const int axis : {0, 1}) Model.RunTable.FixedCentrode(2, 0, axis) = far;
    const Sheet sheet = Run_Sheet(Model, false);
    EXPECT_EQ(sheet.columns[1].values[2], 0);
    EXPECT_EQ(sheet.columns[1].values[3], 1);
    const Sheet_Column& column = *Named(sheet, "Fixed Centrode").at(0);
    EXPECT_TRUE(std::isnan(column.values[2]));
    double sum = 0, least = 1e30, most = -1e30;
    for (std::size_t step = 0; step < Rows(); ++step) {
        if (step == 2) continue;
        sum += column.values[step];
        least = std::min(least, column.values[step]);
        most = std::max(most, column.values[step]);
    }
    EXPECT_NEAR(column.mean, sum / double(Rows() - 1), 1e-5 * std::abs(column.mean) + 1e-5);
    EXPECT_EQ(column.least, least);
    EXPECT_EQ(column.most, most);
    EXPECT_LT(column.most, far);
}

TEST_F(RunSheet, HasTheStatisticsOfItsNumbersInEveryColumn) {
    for (int step = 0; step <= Model.NSteps; ++step) {
        Model.RunTable.Omega(step, 1) = -1 - step;
        Model.RunTable.Omega(step, 2) = 1 + step;
    }
    for (const Sheet_Column& column : Run_Sheet(Model, false).columns) {
        const auto [least, most] = std::ranges::minmax(column.values);
        EXPECT_EQ(column.least, least) << column.name;
        EXPECT_EQ(column.most, most) << column.name;
        const double mean = std::accumulate(column.values.begin(), column.values.end(), 0.0) / double(Rows());
        EXPECT_NEAR(column.mean, mean, 1e-6 * (most - least + std::abs(mean))) << column.name;
    }
}

TEST_F(RunSheet, HasNoStatisticsOfWhatClosesNowhere) {
    for (int step = 0; step <= Model.NSteps; ++step) Model.RunTable.Assembled(step) = false;
    const Sheet sheet = Run_Sheet(Model, false);
    const Sheet_Column& column = *Named(sheet, "Fixed Centrode").at(0);
    for (const double none : {column.least, column.mean, column.most}) EXPECT_TRUE(std::isnan(none));
    EXPECT_EQ(sheet.columns[1].most, 0) << "that nothing closes is known";
}

TEST_F(RunSheet, OfOnePositionHasItAsLeastMostAndMean) {
    Model.NSteps = 0;
    const Sheet sheet = Run_Sheet(Model, false);
    const Sheet_Column& column = *Named(sheet, "Theta3").at(0);
    ASSERT_EQ(column.values.size(), 1U);
    EXPECT_NEAR(column.values[0], Model.RunTable.Theta(0, 1), 1e-4);
    EXPECT_EQ(column.mean, column.values[0]);
    EXPECT_EQ(column.least, column.values[0]);
    EXPECT_EQ(column.most, column.values[0]);
}

TEST_F(RunSheet, HasForcesWhereTheyAreSolvedAndVectorsInFourColumns) {
    const std::size_t without = Run_Sheet(Model, false).columns.size();
    verlink::Solve_Forces(Model);
    const Sheet sheet = Run_Sheet(Model, false);
    EXPECT_GT(sheet.columns.size(), without);
    const auto force = Named(sheet, "Force 12");
    ASSERT_EQ(force.size(), 4U);
    for (const char* scalar : {"Theta3", "Omega4", "w4 / w2", "Torque 12"}) {
        ASSERT_EQ(Named(sheet, scalar).size(), 1U) << scalar;
        EXPECT_EQ(Named(sheet, scalar)[0]->component, "");
        EXPECT_EQ(Named(sheet, scalar)[0]->decimals, 4);
    }
    for (std::size_t step = 0; step < Rows(); ++step)
        EXPECT_NEAR(force[2]->values[step], std::hypot(force[0]->values[step], force[1]->values[step]),
                    1e-4 * force[2]->values[step] + 1e-6);
}

}  // namespace
}  // namespace verlink::test
