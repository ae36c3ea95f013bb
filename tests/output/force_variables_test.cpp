// The variables of forces, balancing and flywheel: where each is read, and what a solved linkage shows of them.
#include <cmath>
#include <complex>
#include <string>

#include "dynamics/balancing.h"
#include "dynamics/flywheel.h"
#include "shell/initialize.h"
#include "tests/dynamics/motion.h"
#include "tests/output/catalogue_rows.h"
#include "tests/output/selection_stage.h"

namespace verlink::test {

namespace {

constexpr int kSlot = 3;
constexpr int kStep = 2880;
constexpr double kUntouched = -12345;

double Read(const std::string& variable, const char* component, int step = kStep) {
    Select_Variable(variable, kSlot);
    Set_Component(component, kSlot);
    Single value = kUntouched;
    Transform_XY(step, kSlot, value);
    return value;
}

Vector Read_Vector(const std::string& variable, int step = kStep) {
    return {Read(variable, "X", step), Read(variable, "Y", step)};
}

Vector Turned(Vector v, double degrees) { return v * Polar(1, degrees * M_PI / 180); }

void Plant(ForceTable& forces, double first) {
    for (int row = 0; row <= 7; ++row) {
        forces(kStep, row, 0) = first + row;
        forces(kStep, row, 1) = -first / 2 + 3 * row;
    }
}
Vector Planted(double first, int row) { return {first + row, -first / 2 + 3 * row}; }

/// Numbers of their own in every row of the tables that are read.
class ForceVariables : public Fixture {
   protected:
    ForceVariables() {
        Load_Catalogue();
        Plant(table.PinForce, 10);
        Plant(table.BalancedForce, 200);
        Plant(table.BerkForce, 5000);
        for (int row = 0; row <= 3; ++row) {
            table.LinkTorque(kStep, row) = 0.5 + row;
            table.BalancedMoment(kStep, row) = -70.25 - row;
        }
        table.FlywheelTorque(kStep) = 44.5;
        table.Theta(kStep, 0) = 100;
        table.Theta(kStep, 1) = 40;
        table.Theta(kStep, 2) = 290;
        Model.PlotSlot = kSlot;
        Model.Link1Angle = 30;
    }
    RunResults& table = Model.RunTable;

    static void Expect_Vector(const std::string& variable, Vector expected) {
        SCOPED_TRACE(variable);
        const double close = 1e-6 * std::abs(expected);
        EXPECT_NEAR(Read(variable, "X"), expected.real(), close);
        EXPECT_NEAR(Read(variable, "Y"), expected.imag(), close);
        EXPECT_NEAR(Read(variable, "Mag"), std::abs(expected), close);
        Single mag = kUntouched, ang = kUntouched;
        Select_PolarVariable(kStep, kSlot, mag, ang);
        EXPECT_NEAR(mag, std::abs(expected), close);
        for (const double angle : {Read(variable, "Ang"), double{ang}}) {
            EXPECT_NEAR(std::remainder(angle - std::arg(expected) * 180 / M_PI, 360), 0, 1e-4);
            EXPECT_GE(angle, -90);
            EXPECT_LE(angle, 270);
        }
    }
};

/// A crank-rocker that was run, solved and balanced.
class SolvedVariables : public Fixture {
   protected:
    SolvedVariables() {
        Initialize();
        Run_Scenario({.name = "ground turned", .ground = 30});
        Solve_Forces();
        Forces_Hold();
        Model.PlotSlot = kSlot;
    }
    void Balance() {
        Berkof_Setup(Model);
        for (const int link : {2, 4}) {
            Model.BerkRadius(link) = Model.LinkArray(link) / 2;
            Model.BerkMass(link) = Model.MRNeeded(link) / Model.BerkRadius(link);
        }
        Berkof_Calc(Model, Model.BerkMass, Model.BerkRadius);
        Smooth_Torque(Model, 0.05, Model.RunTable.BalancedMoment);
    }
    /// In the global frame.
    static Vector Global(Vector local) { return Turned(local, Model.Link1Angle); }
    static void Expect_Near(Vector found, Vector expected, double tolerance) {
        EXPECT_NEAR(found.real(), expected.real(), tolerance);
        EXPECT_NEAR(found.imag(), expected.imag(), tolerance);
    }
    RunResults& table = Model.RunTable;
};

}  // namespace

TEST_F(ForceVariables, ForcesAreReadInTheirRowsAndTurnedByTheGroundLink) {
    for (const Row& row : kRows) {
        if (row.group == 10) Expect_Vector(row.label, Turned(Planted(10, row.row), 30));
        if (row.group == 11) Expect_Vector(row.label, Turned(Planted(200, row.row), 30));
    }
}

TEST_F(ForceVariables, TheForcesOfTheCounterweightsAreGroupThirteenWhichNoVariableLeadsTo) {
    for (const Row& row : kRows) EXPECT_NE(row.group, 13);
    Select_Variable("Force 12", kSlot);
    Model.FuncGroup(kSlot) = 13;
    const Vector expected = Turned(Planted(5000, 5), 30);
    Single value;
    Model.FuncComponent(kSlot) = 0;
    Transform_XY(kStep, kSlot, value);
    EXPECT_NEAR(value, expected.real(), 1e-6 * std::abs(expected));
    Single mag, ang;
    Select_PolarVariable(kStep, kSlot, mag, ang);
    EXPECT_NEAR(mag, std::abs(expected), 1e-6 * std::abs(expected));
    EXPECT_NEAR(ang, std::arg(expected) * 180 / M_PI, 1e-4);
}

TEST_F(ForceVariables, LocalForcesFollowTheShortTableOfLinks) {
    Model.CoordSystem = 2;
    // Row 0 with link 2, row 1 with link 4, row 2 with link 3, all others with link 2.
    Expect_Vector("Force 32", Turned(Planted(10, 0), 30 - 100));
    Expect_Vector("Force 43", Turned(Planted(10, 1), 30 - 290));
    Expect_Vector("F Inertia L3", Turned(Planted(10, 2), 30 - 40));
    Expect_Vector("F Inertia L2", Turned(Planted(10, 3), 30 - 100));
    Expect_Vector("F Inertia L4", Turned(Planted(10, 4), 30 - 100));
    Expect_Vector("Force 14", Turned(Planted(10, 6), 30 - 100));
    Expect_Vector("F Shk Balcd", Turned(Planted(200, 7), 30 - 100));
}

TEST_F(ForceVariables, TorquesAreReadAsTheyStandWhateverFrameAndComponent) {
    for (const int system : {0, 2})
        for (const char* component : {"X", "Y", "Mag", "Ang"}) {
            Model.CoordSystem = system;
            EXPECT_EQ(Read("Torque 12", component), 0.5);
            EXPECT_EQ(Read("Torque L3", component), 1.5);
            EXPECT_EQ(Read("Torque L4", component), 2.5);
            EXPECT_EQ(Read("M Shaking", component), 3.5);
            EXPECT_EQ(Read("MShk Balcd", component), -73.25);
            EXPECT_EQ(Read("Flywl Torque", component), 44.5);
        }
}

TEST_F(ForceVariables, TorquesHaveNoPolarForm) {
    for (const char* variable : {"Torque 12", "M Shaking", "MShk Balcd", "Flywl Torque"}) {
        Select_Variable(variable, kSlot);
        Single mag = kUntouched, ang = kUntouched;
        Select_PolarVariable(kStep, kSlot, mag, ang);
        EXPECT_EQ(mag, kUntouched) << variable;
        EXPECT_EQ(ang, kUntouched) << variable;
    }
}

TEST_F(ForceVariables, AStepOrARowOutsideTheTableIsReported) {
    for (const char* variable : {"Force 12", "Torque 12", "F12 Balcd", "MShk Balcd", "Flywl Torque"}) {
        desktop.Expect_Message_With("Error 9   (Subscript out of range)  has occurred in Transform_XY");
        EXPECT_EQ(Read(variable, "Mag", 2881), kUntouched) << variable;
    }
    for (const int group : {9, 10, 11, 12, 13}) {
        Model.FuncGroup(kSlot) = group;
        Model.FuncRow(kSlot) = 8;
        desktop.Expect_Message_With("Error 9   (Subscript out of range)  has occurred in Transform_XY");
        Single value;
        Transform_XY(kStep, kSlot, value);
    }
}

TEST_F(SolvedVariables, MassCentresMoveAsTheirLinksDo) {
    for (const int step : {0, 11, 30, 48}) {
        const Motion at(step);
        const double speed = 1e-5 * std::abs(At(table.VelXY, step, 0)) + 1e-4;
        const double acceleration = 1e-5 * std::abs(At(table.AccXY, step, 0)) + 1e-3;
        Expect_Near(Read_Vector("Veloc CG 2", step), Global(at.l2.velocity), speed);
        Expect_Near(Read_Vector("Veloc CG 3", step), Global(at.l3.velocity), speed);
        Expect_Near(Read_Vector("Veloc CG 4", step), Global(at.l4.velocity), speed);
        Expect_Near(Read_Vector("Accel CG 2", step), Global(at.l2.acceleration), acceleration);
        Expect_Near(Read_Vector("Accel CG 3", step), Global(at.l3.acceleration), acceleration);
        Expect_Near(Read_Vector("Accel CG 4", step), Global(at.l4.acceleration), acceleration);
    }
}

TEST_F(SolvedVariables, InertiaAndShakingForcesAreMassTimesAcceleration) {
    for (const int step : {0, 11, 30, 48}) {
        const Motion at(step);
        const double close = 1e-4 * std::abs(at.l2.Force()) + 1e-4;
        Expect_Near(Read_Vector("F Inertia L2", step), -Global(at.l2.Force()), close);
        Expect_Near(Read_Vector("F Inertia L3", step), -Global(at.l3.Force()), close);
        Expect_Near(Read_Vector("F Inertia L4", step), -Global(at.l4.Force()), close);
        Expect_Near(Read_Vector("F Shaking", step), -Global(at.Inertia_Force()), close);
        EXPECT_NEAR(Read("Torque L3", "Mag", step), -at.l3.Moment(), close);
        EXPECT_NEAR(Read("Torque L4", "Mag", step), -at.l4.Moment(), close);
        EXPECT_NEAR(Read("Torque 12", "Mag", step) * at.l2.w, at.l2.Power() + at.l3.Power() + at.l4.Power(),
                    close * std::fabs(at.l2.w));
    }
}

TEST_F(SolvedVariables, TheShakingForceAfterBalancingIsWhatTheOverweightLeavesOfNothing) {
    double before = 0;
    for (int step = 0; step <= Model.NSteps; ++step) before = std::max(before, Read("F Shaking", "Mag", step));
    ASSERT_GT(before, 1);
    Balance();
    for (int step = 0; step <= Model.NSteps; ++step) {
        EXPECT_LT(Read("F Shk Balcd", "Mag", step), 1e-4 * before);
        Expect_Near(Read_Vector("F12 Balcd", step), -Read_Vector("F14 Balcd", step), 1e-4 * before);
    }
}

TEST_F(SolvedVariables, TheFlywheelLeavesATwentiethOfTheTorquesPulses) {
    Balance();
    double average = 0;
    for (int step = 0; step <= Model.NSteps; ++step) average += table.BalancedMoment(step, 0) / (Model.NSteps + 1);
    for (int step = 0; step <= Model.NSteps; ++step)
        EXPECT_NEAR(Read("Flywl Torque", "Mag", step) - average, 0.05 * (Read("Torque 12", "Mag", step) - average),
                    1e-5);
}

TEST_F(SolvedVariables, PresetsOfForcesFillTheSlotsThatShowThem) {
    Balance();
    Chooser screen;
    for (auto* box : {&screen.cmb_Com1, &screen.cmb_Com2}) Load_Components(screen, *box);
    for (auto* box : {&screen.cmb_Var1, &screen.cmb_Var2}) Load_Variables(screen, *box);
    const auto choose = [&](const char* preset) {
        screen.cmb_Preset.Text = preset;
        Apply_Preset(screen, 2);
        Single first, second;
        Transform_XY(7, 1, first);
        Transform_XY(7, 2, second);
        return Vector{first, second};
    };
    const Motion at(7);
    const double close = 1e-4 * std::abs(at.Inertia_Force());
    Expect_Near(choose("Shaking Force before Balancing  -  X, Y components"), -Global(at.Inertia_Force()), close);
    Expect_Near(choose("D'Alembert Inertia Force on Link 3  -  X, Y components"), -Global(at.l3.Force()), close);
    Expect_Near(choose("Torque 12 and Shaking Moment Magnitudes Compared"),
                {table.LinkTorque(7, 0), table.LinkTorque(7, 3)}, 0);
    Expect_Near(choose("Shaking Force - Compare Unbalanced to Balanced "), std::abs(at.Inertia_Force()), close);
    Expect_Near(choose("Shaking Moment - Compare Unbalanced to Balanced "),
                {table.LinkTorque(7, 3), table.BalancedMoment(7, 3)}, 0);
    Expect_Near(choose("Torque 12 and Flywheel-Smoothed Torque 12 Compared"),
                {table.LinkTorque(7, 0), table.FlywheelTorque(7)}, 0);
}

}  // namespace verlink::test
