// Random linkages with runs of each kind, for the tests of checks.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "checks/check.h"
#include "core/linkage_door.h"
#include "dynamics/balancing.h"
#include "dynamics/dynacalc.h"
#include "dynamics/units.h"
#include "output/catalogue.h"
#include "output/transform.h"
#include "shell/initialize.h"
#include "synthesis/cognates.h"
#include "tests/core/linkages.h"

namespace verlink::test {

class Random_Linkages : public Fixture {
   protected:
    Random_Linkages() {
        const char* given = std::getenv("VERLINK_SEED");
        seed = given ? static_cast<unsigned>(std::atol(given)) : std::random_device{}();
        engine.seed(seed);
        Initialize();
        Use_Units(1);
    }
    double Number(double low, double high) { return std::uniform_real_distribution<>(low, high)(engine); }
    int Whole_Number(int low, int high) { return std::uniform_int_distribution<>(low, high)(engine); }
    bool Perhaps() { return Whole_Number(0, 1) == 1; }
    std::string Trace() const { return "VERLINK_SEED=" + std::to_string(seed); }

    static Check Found(const std::string& name) {
        const std::vector<Check> checks = Checks_Of(Model);
        const auto found = std::ranges::find(checks, name, &Check::name);
        if (found != checks.end()) return *found;
        ADD_FAILURE() << "no check " << name;
        return {};
    }

    /// The forces of one that closes up to 66.4 degrees on both sides of the ground: at the first five steps of its
    /// run, and at the last nine.
    static void Solve_Near_The_Ground() {
        Enter_Linkage(Road::kBoxes, [] {
            auto& m = Model;
            m.PolarCoords = true;
            m.L1 = 5;
            m.L2 = 4;
            m.L3 = 2;
            m.L4 = 3;
        });
        Take_Angles(20, 380, 10);
        Integer result;
        Calc_Setup(3, result);
        Solve_Forces(Model);
    }

    /// Lengths, units, ground, circuit, kind of steps and speeds by chance; false where it closes nowhere.
    bool Take_Random() {
        Reset_Model();
        Initialize();
        auto& m = Model;
        Use_Units(Whole_Number(1, 5));
        const double scale = m.Units < 3 ? 1 : m.Units == 3 ? 0.2 : 0.05;
        Enter_Linkage(Road::kBoxes, [&] {
            m.PolarCoords = true;
            for (Single* length : {&m.L1, &m.L2, &m.L3, &m.L4}) *length = scale * Number(0.5, 5);
            m.Rpa = scale * Number(0.1, 5);
            m.Delta = Number(-180, 180);
            m.Link1Angle = Perhaps() ? Number(-180, 180) : 0.0;
        });
        if (Perhaps()) Find_Cognates();
        m.CircuitIndex = Whole_Number(1, 2);
        m.ModuloMode = Perhaps() ? "abs" : "180";
        m.Omega2Input = (Perhaps() ? 1 : -1) * Number(0.5, 50);
        m.Alpha2 = Number(-20, 20);
        return Run();
    }
    bool Run() {
        auto& m = Model;
        Notes notes(desktop, platform::Answer::kIgnore);
        Integer result;
        const int kind = Whole_Number(1, 5);
        if (kind == 1) {
            m.Calctype = 1;
            m.ThetaZero = Number(-360, 360);
        } else if (kind == 2) {
            m.Calctype = 2;
            m.ThetaZero = Number(-360, 360);
            m.TimeStart = 0;
            m.TimeStep = Number(0.0005, 0.01);
            m.NSteps = Whole_Number(1, 200);
        } else if (kind == 3) {
            Drive();
        } else {
            const double start = Number(-180, 180);
            const double steps[] = {0.25, 1, 2, 5, 10, 7.3};
            Take_Angles(start, start + (Perhaps() ? 360 : Number(20, 700)), steps[Whole_Number(0, 5)]);
        }
        if (m.Calctype > 3)
            Imported_Run(result);
        else
            Calc_Setup(m.Calctype, result);
        return m.RunStands;
    }
    /// Masses and loads, friction and an imported torque by chance, solved; and balanced where that can be.
    void Take_Forces() {
        auto& m = Model;
        const double length = std::max({double{m.L2}, double{m.L3}, double{m.L4}});
        for (const int link : {2, 3, 4}) {
            m.LinkMass(link) = Number(0, 3);
            m.LinkInertia(link) = Number(0, 1) * length * length;
            m.CG(link, 0) = Number(0, 1) * length;
            m.CG(link, 1) = Number(-3, 3);
        }
        if (Perhaps())
            for (const int link : {3, 4}) {
                m.ExtForceMag(link) = Number(0, 20);
                m.ExtForceAng(link) = Number(-180, 180);
                m.ExtTorque(link) = Number(-10, 10) * length;
                (link == 3 ? m.ForceDist3 : m.ForceDist4) = Number(0, 1) * length;
                (link == 3 ? m.ForceAng3 : m.ForceAng4) = Number(-180, 180);
            }
        if (Whole_Number(0, 3) == 0) m.FrictionForce = Number(0, 5);
        m.TorqueImported = Whole_Number(0, 3) == 0;
        if (m.TorqueImported)
            for (int step = 0; step <= m.NSteps; ++step) m.RunTable.ImportedTorque(step) = Number(-10, 10) * length;
        Notes notes(desktop, platform::Answer::kOk);
        verlink::Solve_Forces(m);
        if (m.Calctype != 3 || Perhaps()) return;
        Default_Weights(m);
        Berkof_Calc(m, m.BerkMass, m.BerkRadius);
    }
    /// The transform of a function that the results have.
    void Take_Transform() {
        auto& m = Model;
        const int last = m.BalanceDone ? 42 : m.DynamicsDone ? 37 : 19;
        transformed = m.VariableNames(Whole_Number(1, last));
        Select_Variable(transformed, 1);
        Set_Component(m.ComponentNames(Whole_Number(1, 4)), 1);
        m.CoordSystem = 0;
        m.PlotSlot = 1;
        Do_DFT(m.NSteps);
        Transform_Holds();
    }
    /// The motion of another linkage's rocker, near enough.
    void Drive() {
        auto& m = Model;
        m.Calctype = 5;
        m.LinkDriven = true;
        m.NSteps = Whole_Number(5, 120);
        const double middle = Number(-180, 180), swing = Number(5, 60), pace = Number(1, 20);
        for (int step = 0; step <= m.NSteps; ++step) {
            const double phase = 2 * M_PI * step / m.NSteps;
            m.RunTable.DriveTheta(step) = middle + swing * std::sin(phase);
            m.RunTable.Omega(step, 0) = swing * kDegToRad * pace * std::cos(phase);
            m.RunTable.Alpha(step, 0) = -swing * kDegToRad * pace * pace * std::sin(phase);
        }
    }

    std::string transformed;
    unsigned seed;
    std::mt19937 engine;
};

}  // namespace verlink::test
