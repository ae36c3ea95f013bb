// The unit that stands beside each variable, wherever it stands: by a table of dimensions made elsewhere, and by what
// one linkage measures in all unit systems.
#include <algorithm>
#include <cmath>
#include <map>

#include "dynamics/balancing.h"
#include "dynamics/flywheel.h"
#include "output/catalogue.h"
#include "output/output_axis.h"
#include "output/series.h"
#include "shell/initialize.h"
#include "tests/dynamics/motion.h"
#include "tests/support/reference.h"

namespace verlink::test {

namespace {

constexpr int kOneSlot = 2;

/// "deg", "N-m" for all that says the same.
std::string Plain(std::string unit) {
    std::erase(unit, ' ');
    if (unit == "Deg" || unit == "degrees") return "deg";
    return unit;
}

/// What a text of a unit is, in metres, newtons, radians and seconds.
double In_SI(const std::string& unit) {
    static const std::map<std::string, double> units = {{"in", 0.0254}, {"ft", 0.3048},    {"m", 1},     {"cm", 0.01},
                                                        {"mm", 0.001},  {"lb", 4.4482216}, {"N", 1},     {"deg", 1},
                                                        {"rad", 1},     {"sec", 1},        {"sec^2", 1}, {"ratio", 1}};
    const auto cut = unit.find_first_of("-/");
    const double first = units.at(unit.substr(0, cut));
    if (cut == std::string::npos) return first;
    const double second = units.at(unit.substr(cut + 1));
    return unit[cut] == '-' ? first * second : first / second;
}

class UnitsOfVariables : public Fixture {
   protected:
    UnitsOfVariables() {
        Initialize();
        Use_Units(1);
    }

    static void Choose(const std::string& variable, const std::string& component) {
        Select_Variable(variable, kOneSlot);
        Set_Component(component, kOneSlot);
        Model.PlotSlot = kOneSlot;
    }
    static void Solve_And_Balance() {
        Integer result;
        Calc_Setup(3, result);
        Solve_Forces();
        Berkof_Setup(Model);
        for (const int link : {2, 4}) {
            Model.BerkRadius(link) = Model.LinkArray(link) / 2;
            Model.BerkMass(link) = Model.MRNeeded(link) / Model.BerkRadius(link);
        }
        Berkof_Calc(Model, Model.BerkMass, Model.BerkRadius);
        Smooth_Torque(Model, 0.05, Model.RunTable.BalancedMoment);
    }
};

}  // namespace

TEST_F(UnitsOfVariables, Are_those_of_their_dimensions_in_tables_plots_and_live_plots) {
    int rows = 0;
    for (const Row& row : Read_Table("units.csv")) {
        const int system = static_cast<int>(Number(row, "system"));
        std::string variable = row.at("variable");
        std::ranges::replace(variable, ';', ',');
        const std::string &component = row.at("component"), &unit = row.at("unit");
        SCOPED_TRACE(variable + " " + component + " in system " + row.at("system"));
        if (Model.Units != system) Use_Units(system);
        Choose(variable, component);
        EXPECT_EQ(Plain(Slot_Unit(kOneSlot, "deg")), unit);
        EXPECT_EQ(Plain(Slot_Unit(kOneSlot, "Deg")), unit);
        EXPECT_EQ(Plain(Variable_Unit(kOneSlot)), unit) << "of a transform";
        EXPECT_EQ(Plain(Unit_Of({variable, component, false}, Model)), unit);
        ++rows;
    }
    EXPECT_EQ(rows, 5 * 42 * 4);
}

TEST_F(UnitsOfVariables, Are_what_the_numbers_are_in) {
    // In system 1 first, then the same linkage in the others.
    std::map<std::string, double> measured;
    for (const int system : {1, 2, 3, 4, 5}) {
        Reset_Model();
        Initialize();
        Run_Scenario({.name = "inches", .ground = 30, .loads = true});
        if (system > 1) {
            Use_Units(system);
            ASSERT_TRUE(Convert_Units(1, system));
        }
        Resolve_Forces(Model);
        Solve_And_Balance();
        for (int number = 1; number <= 42; ++number) {
            const std::string variable = Model.VariableNames(number);
            for (const char* component : {"X", "Y", "Mag", "Ang"}) {
                Choose(variable, component);
                const double unit = In_SI(Plain(Slot_Unit(kOneSlot, "deg")));
                double most = 0;
                for (int step = 0; step <= Model.NSteps; ++step) {
                    Single value;
                    Transform_XY(step, kOneSlot, value);
                    most = std::max(most, std::abs(value * unit));
                }
                const std::string name = variable + " " + component;
                SCOPED_TRACE(name + " in system " + std::to_string(system));
                // What balancing leaves of nothing is of no size.
                if (variable == "F Shk Balcd") continue;
                if (system == 1)
                    measured[name] = most;
                else  // lengths are rounded on the way
                    EXPECT_NEAR(most, measured.at(name), 0.2 * measured.at(name) + 1e-9);
            }
        }
    }
}

TEST_F(UnitsOfVariables, Of_a_transform_are_those_of_what_was_transformed_and_degrees_for_its_phase) {
    Use_Units(5);
    Model.FFTUnitLabel = "mm/sec";
    for (const char* component : {"X", "Y", "Mag"}) {
        Choose("Current FFT", component);
        EXPECT_EQ(Slot_Unit(kOneSlot, "deg"), "mm/sec");
    }
    Choose("Current FFT", "Ang");
    EXPECT_EQ(Slot_Unit(kOneSlot, "deg"), "deg");
}

}  // namespace verlink::test
