// What a check tells of one number that is another: where, by how much, and what is expected there.
#pragma once

#include <algorithm>
#include <complex>
#include <string>
#include <vector>

#include "tests/checks/linkages.h"
#include "tests/checks/ranges.h"

namespace verlink::test {

using Vector = std::complex<double>;

class Told : public Random_Linkages {
   protected:
    static constexpr int kStep = 8;  ///< its crank is at 80 degrees, 50 from the ground
    const std::string kPlace = "step 8, 80 deg";

    /// In millimetres, on a turned ground: a linkage driven by another, whose cranks' speeds differ from step to step.
    static void Take_Linkage(int circuit) {
        Use_Units(5);
        Enter_Linkage(Road::kBoxes, [] {
            auto& m = Model;
            m.PolarCoords = true;
            m.L1 = 0.2667;
            m.L2 = 0.1115;
            m.L3 = 0.25;
            m.L4 = 0.22;
            m.Rpa = 0.1697;
            m.Delta = -92.66;
            m.Link1Angle = 30;
        });
        Model.CircuitIndex = circuit;
        Set_Circuit(Model.CircuitIndex, Model.CircuitSign, Model.CircuitName);
    }
    void Take_Driven_Run(int circuit) {
        Take_Linkage(circuit);
        auto& m = Model;
        m.Calctype = 5;
        m.LinkDriven = true;
        m.NSteps = 20;
        m.Alpha2 = 1;
        for (int step = 0; step <= m.NSteps; ++step) {
            m.RunTable.DriveTheta(step) = 40 + 5 * step;
            m.RunTable.Omega(step, 0) = 7 + 0.125 * step;
            m.RunTable.Alpha(step, 0) = 3 - step;
        }
        Notes notes(desktop, platform::Answer::kIgnore);
        Integer result;
        Imported_Run(result);
    }
    void Run_And_Balance() {
        Integer result;
        Notes notes(desktop, platform::Answer::kIgnore);
        Calc_Setup(3, result);
        verlink::Solve_Forces(Model);
        Default_Weights(Model);
        Berkof_Calc(Model, Model.BerkMass, Model.BerkRadius);
    }
    static Links Own_Links() {
        const auto& m = Model;
        return {m.L1, m.L2, m.L3, m.L4, m.Rpa, m.DeltaRad, double(m.CircuitSign)};
    }
    static Vector Point(int step, int row) {
        return Vector(Model.RunTable.PointXY(step, row, 0), Model.RunTable.PointXY(step, row, 1)) / Shown_Factor();
    }
    static double Crank(int step) { return std::arg(Point(step, 0)); }
    static Solved_Position Solved_At(int step) {
        const auto& t = Model.RunTable;
        const double a2 = t.Alpha(step, 0);
        const double before = step > 0 ? double{t.Alpha(step - 1, 0)} : double{Model.Alpha2};
        return Solve_Position(Own_Links(), Crank(step), t.Omega(step, 0), a2, Model.Calctype > 3 ? before : a2);
    }
    /// With a number that is `by` more, the check fails there, by so much, beside four times what rounding does.
    static void Expect_Told(const std::string& name, Single& cell, double by, const std::string& where,
                            double rounding) {
        const Single kept = cell;
        cell += by;
        Expect_Failing(name, where, std::abs(by), rounding);
        cell = kept;
    }
    static void Expect_Failing(const std::string& name, const std::string& where, double worst, double rounding) {
        SCOPED_TRACE(name + ", " + where);
        const Check check = Found(name);
        EXPECT_EQ(check.verdict, Verdict::kFails);
        EXPECT_EQ(check.where, where);
        EXPECT_NEAR(check.worst / worst, 1, 2e-3);
        EXPECT_NEAR(check.expected / (4 * rounding), 1, 1e-4);
    }
};

}  // namespace verlink::test
