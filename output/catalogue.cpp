// The table of output variables, and the reading of one number of it.
#include "output/catalogue.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "output/presets.h"
#include "output/reading.h"
#include "platform/guard.h"

namespace verlink {

namespace {

/// What picking a variable leaves in the flags.
enum class Kind {
    kScalar,          ///< no components
    kVector,          ///< components, in either frame
    kPlain,           ///< components, no choice of frame
    kScalarInFrames,  ///< no components, and the choice of frame left open
    kTransform,       ///< the current transform, whose row is the component
};

struct Variable {
    const char* label;
    int group;
    int row;
    Kind kind;
    Needs needs = Needs::kRun;

    /// Components are offered for it, and a polar plot.
    constexpr bool Is_Vector() const { return kind == Kind::kVector || kind == Kind::kPlain; }
};

// The order of the mass centres' rows is that in which the solution stores them.
constexpr std::array kVariables{
    Variable{"Theta2", 1, 0, Kind::kScalar},
    Variable{"Theta3", 1, 1, Kind::kScalar},
    Variable{"Theta4", 1, 2, Kind::kScalar},
    Variable{"Trans Ang", 1, 3, Kind::kScalar},
    Variable{"Omega2", 2, 0, Kind::kScalar},
    Variable{"Omega3", 2, 1, Kind::kScalar},
    Variable{"Omega4", 2, 2, Kind::kScalar},
    Variable{"Alpha2", 3, 0, Kind::kScalar},
    Variable{"Alpha3", 3, 1, Kind::kScalar},
    Variable{"Alpha4", 3, 2, Kind::kScalar},
    Variable{"Veloc I 2,3", 4, 0, Kind::kVector},
    Variable{"Veloc I 3,4", 4, 1, Kind::kVector},
    Variable{"Veloc CP", 4, 2, Kind::kVector},
    Variable{"Accel I 2,3", 5, 0, Kind::kVector},
    Variable{"Accel I 3,4", 5, 1, Kind::kVector},
    Variable{"Accel CP", 5, 2, Kind::kVector},
    Variable{"Coupler Pt", 6, 2, Kind::kPlain},
    Variable{"w4 / w2", 7, 0, Kind::kScalar},
    Variable{"T4 / T2", 8, 0, Kind::kScalar},
    Variable{"Veloc CG 2", 4, 3, Kind::kVector, Needs::kForces},
    Variable{"Veloc CG 3", 4, 5, Kind::kVector, Needs::kForces},
    Variable{"Veloc CG 4", 4, 4, Kind::kVector, Needs::kForces},
    Variable{"Accel CG 2", 5, 6, Kind::kVector, Needs::kForces},
    Variable{"Accel CG 3", 5, 5, Kind::kVector, Needs::kForces},
    Variable{"Accel CG 4", 5, 7, Kind::kVector, Needs::kForces},
    Variable{"Force 12", 10, 5, Kind::kVector, Needs::kForces},
    Variable{"Force 32", 10, 0, Kind::kVector, Needs::kForces},
    Variable{"Force 43", 10, 1, Kind::kVector, Needs::kForces},
    Variable{"Force 14", 10, 6, Kind::kVector, Needs::kForces},
    Variable{"F Shaking", 10, 7, Kind::kVector, Needs::kForces},
    Variable{"Torque 12", 9, 0, Kind::kScalarInFrames, Needs::kForces},
    Variable{"M Shaking", 9, 3, Kind::kScalar, Needs::kForces},
    Variable{"Torque L3", 9, 1, Kind::kScalar, Needs::kForces},
    Variable{"Torque L4", 9, 2, Kind::kScalar, Needs::kForces},
    Variable{"F Inertia L2", 10, 3, Kind::kVector, Needs::kForces},
    Variable{"F Inertia L3", 10, 2, Kind::kVector, Needs::kForces},
    Variable{"F Inertia L4", 10, 4, Kind::kVector, Needs::kForces},
    Variable{"F Shk Balcd", 11, 7, Kind::kPlain, Needs::kBalance},
    Variable{"MShk Balcd", 12, 3, Kind::kScalar, Needs::kBalance},
    Variable{"F12 Balcd", 11, 5, Kind::kPlain, Needs::kBalance},
    Variable{"F14 Balcd", 11, 6, Kind::kPlain, Needs::kBalance},
    Variable{"Flywl Torque", 18, 0, Kind::kPlain, Needs::kBalance},
    Variable{"Current FFT", kTransformGroup, {}, Kind::kTransform},
};
constexpr int kVariableCount = static_cast<int>(kVariables.size());

constexpr std::array kComponents{"X", "Y", "Mag", "Ang"};

void Zero_If_Small(Single& component, Single small) {
    if (!(std::abs(component) >= small)) component = 0;
}

/// From the ground link's frame to the frame wanted, whose link stands at `turn` degrees; small components become 0.
void To_Frame(const Reading_Frame& frame, Single turn, Single x, Single y, Single& xr, Single& yr) {
    Rotate(x, y, frame.link1_angle, 1, xr, yr);
    if (frame.local) {
        const Single global_x = xr, global_y = yr;
        Rotate(global_x, global_y, turn, -1, xr, yr);
    }
    Zero_If_Small(xr, frame.small);
    Zero_If_Small(yr, frame.small);
}

Reading_Frame Frame_In_Force() { return {Model.Link1Angle, Model.CoordSystem != 0, Model.SmallValue}; }

/// A vector in the ground link's frame; false for a group that has none.
bool Take_Vector(const RunResults& table, int group, int step, int row, Single& x, Single& y) {
    const auto take = [&](const auto& vectors) {
        x = vectors(step, row, 0);
        y = vectors(step, row, 1);
        return true;
    };
    switch (group) {
        case 4: return take(table.VelXY);
        case 5: return take(table.AccXY);
        case 6: return take(table.PointXY);
        case 10: return take(table.PinForce);
        case 11: return take(table.BalancedForce);
        case 13: return take(table.BerkForce);
        default: return false;
    }
}

/// A variable without components.
std::optional<Single> Take_Scalar(const RunResults& table, int group, int step, int row) {
    switch (group) {
        case 1: return table.Theta(step, row);
        case 2: return table.Omega(step, row);
        case 3: return table.Alpha(step, row);
        case 7: return table.OmegaRatio(step);
        case 8: return table.MechAdvantage(step);
        case 9: return table.LinkTorque(step, row);
        case 12: return table.BalancedMoment(step, row);
        case 18: return table.FlywheelTorque(step);
        default: return std::nullopt;
    }
}

Single Component_Of(const Reading_Frame& frame, Single turn, Single x, Single y, int component) {
    Array<Single, 0, 3> components;
    To_Frame(frame, turn, x, y, components(0), components(1));
    if (component > 1) Cart_to_Polar(components(0), components(1), components(2), components(3));
    return components(component);
}

}  // namespace

void Load_Catalogue() {
    for (int number = 1; number <= kVariableCount; ++number)
        Model.VariableNames(number) = kVariables[static_cast<std::size_t>(number - 1)].label;
    for (int component = 1; component <= 4; ++component)
        Model.ComponentNames(component) = kComponents[static_cast<std::size_t>(component - 1)];
    Load_Preset_Texts();
}

std::vector<std::string> Variables_Up_To(Needs most) {
    std::vector<std::string> names;
    for (const Variable& variable : kVariables)
        if (variable.kind != Kind::kTransform && variable.needs <= most) names.emplace_back(variable.label);
    return names;
}

std::vector<std::string> Vectors_That_Need(Needs needs) {
    std::vector<std::string> names;
    for (const Variable& variable : kVariables)
        if (variable.Is_Vector() && variable.needs == needs) names.emplace_back(variable.label);
    return names;
}

std::string Variable_Name(int number) {
    if (number < 1 || number > kVariableCount) platform::Raise(platform::kSubscript);
    return kVariables[static_cast<std::size_t>(number - 1)].label;
}

std::optional<Variable_Facts> Facts_Of(const std::string& name) {
    for (int number = 1; number <= kVariableCount; ++number) {
        const Variable& found = kVariables[static_cast<std::size_t>(number - 1)];
        if (name != found.label) continue;
        // A flywheel's torque has one value, though components are offered for it.
        const bool vector = found.group != 18 && found.Is_Vector();
        return Variable_Facts{number, found.group, found.row, vector, found.kind == Kind::kVector, found.needs};
    }
    return std::nullopt;
}

bool Group_Has_Components(int group) {
    constexpr std::array kVectors{4, 5, 6, 10, 11, 13};
    return std::find(kVectors.begin(), kVectors.end(), group) != kVectors.end();
}

int Unit_Of_Group(int group) {
    constexpr int kFlywheel = 18, kTorque = 9;
    return group == kFlywheel ? kTorque : group;
}

int Frame_Link(int row) { return row == 1 ? 2 : row == 2 ? 1 : 0; }

std::optional<Single> Read_Run(const RunResults& table, int group, int row, int step, int link, int component,
                               const Reading_Frame& frame) {
    if (const auto scalar = Take_Scalar(table, group, step, row)) return scalar;
    Single x, y;
    if (!Take_Vector(table, group, step, row, x, y)) return std::nullopt;
    return Component_Of(frame, frame.local ? table.Theta(step, link) : Single(0), x, y, component);
}

void Select_Variable(const std::string& name, Integer slot) {
    Guarded("Select_Variable", [&] {
        Model.ScalarFunction = false;
        Model.CoordFunction = false;
        Model.FFTFunction = false;
        for (int number = 1; number <= kVariableCount; ++number) {
            if (Model.VariableNames(number) != name) continue;
            const Variable& found = kVariables[static_cast<std::size_t>(number - 1)];
            Model.FuncGroup(slot) = found.group;
            Model.FFTFunction = found.kind == Kind::kTransform;
            if (!Model.FFTFunction) Model.FuncRow(slot) = found.row;
            Model.ScalarFunction = found.kind == Kind::kScalar || found.kind == Kind::kScalarInFrames;
            Model.CoordFunction = found.kind == Kind::kVector || found.kind == Kind::kScalarInFrames;
            return;
        }
    });
}

void Set_Component(const std::string& name, Integer slot) {
    Guarded("Set_Component", [&] {
        for (int component = 1; component <= 4; ++component) {
            if (name.empty() || Model.ComponentNames(component) != name) continue;
            Model.ComponentLabel(slot) = name;
            Model.FuncComponent(slot) = component - 1;
            return;
        }
    });
}

// The row is that of the slot being drawn, whatever slot is being read, and rows above 2 leave the link: the table
// has no entry for mass centres.
void Local_Link(Integer& link) {
    Guarded("Local_Link", [&] {
        switch (Model.FuncRow(Model.PlotSlot)) {
            case 0: link = 0; break;
            case 1: link = 2; break;
            case 2: link = 1; break;
            default: break;
        }
    });
}

void Transform_XY(Integer step, Integer slot, Single& value) {
    Guarded("Transform_XY", [&] {
        Model.SmallValue = 0.0001;
        Integer link = 0;
        Local_Link(link);
        const RunResults& table = Model.RunTable;
        const int group = Model.FuncGroup(slot), row = Model.FuncRow(slot);
        Single x, y;
        if (group == kTransformGroup)
            value = Model.FFTResult(step, Model.FuncComponent(slot));
        else if (const auto scalar = Take_Scalar(table, group, step, row))
            value = *scalar;
        else if (Take_Vector(table, group, step, row, x, y))
            Resolve_Vector(step, link, slot, x, y, value);
    });
}

void Select_PolarVariable(Integer step, Integer slot, Single& mag, Single& ang) {
    Guarded("Select_PolarVariable", [&] {
        Model.SmallValue = 0.0001;
        Integer link = 0;
        Local_Link(link);
        Single x, y;
        if (Take_Vector(Model.RunTable, Model.FuncGroup(slot), step, Model.FuncRow(slot), x, y))
            Resolve_Polar(step, link, x, y, mag, ang);
    });
}

void Resolve_Vector(Integer step, Integer link, Integer slot, Single x, Single y, Single& value) {
    Guarded("Resolve_Vector", [&] {
        value = Component_Of(Frame_In_Force(), Model.RunTable.Theta(step, link), x, y, Model.FuncComponent(slot));
    });
}

void Resolve_Polar(Integer step, Integer link, Single x, Single y, Single& mag, Single& ang) {
    Guarded("Resolve_Polar", [&] {
        Single xr;
        Single yr;
        To_Frame(Frame_In_Force(), Model.RunTable.Theta(step, link), x, y, xr, yr);
        Cart_to_Polar(xr, yr, mag, ang);
    });
}

}  // namespace verlink
