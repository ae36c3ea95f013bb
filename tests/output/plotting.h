// Plots in tests: functions chosen into slots, a screen that names them, and their values worked out anew.
#pragma once

#include <array>
#include <cmath>
#include <numbers>
#include <string>

#include "output/catalogue.h"
#include "tests/support/drawing.h"

namespace verlink::test {

/// What the plots read of a selection screen.
struct Chosen_Functions : platform::Screen {
    explicit Chosen_Functions(const std::string& name = "frm_Chosen") : Screen(name) {}
    platform::ControlArray<platform::Label> lbl_Function{*this, "lbl_Function", {0, 1, 2, 3}};
    platform::ControlArray<platform::Label> lbl_Component{*this, "lbl_Component", {0, 1, 2, 3}};
};

struct Plane_Vector {
    double x, y;
    double Mag() const { return std::hypot(x, y); }
    /// Degrees from -90 up to 270.
    double Ang() const {
        const double angle = std::atan2(y, x) * 180 / std::numbers::pi;
        return angle < -90 ? angle + 360 : angle;
    }
    Plane_Vector Turned(double degrees) const {
        const double a = degrees * std::numbers::pi / 180;
        return {x * std::cos(a) - y * std::sin(a), x * std::sin(a) + y * std::cos(a)};
    }
};

class Plotting : public Drawing {
   protected:
    Plotting() { Load_Catalogue(); }

    /// As a selection screen leaves a slot.
    void Choose(Chosen_Functions& screen, int slot, const std::string& variable, const std::string& component) {
        Select_Variable(variable, slot);
        Set_Component(component, slot);
        screen.lbl_Function[slot - 1].Caption = variable;
        screen.lbl_Component[slot - 1].Caption = component;
        Model.PlotCount = std::max<int>(Model.PlotCount, slot);
    }
    void Choose(int slot, const std::string& variable, const std::string& component) {
        Choose(chosen, slot, variable, component);
    }

    /// Velocity and acceleration of the coupler point in the global frame.
    static Plane_Vector Velocity(int step) {
        const auto& v = Model.RunTable.VelXY;
        return Plane_Vector{v(step, 2, 0), v(step, 2, 1)}.Turned(Model.Link1Angle);
    }
    static Plane_Vector Acceleration(int step) {
        const auto& a = Model.RunTable.AccXY;
        return Plane_Vector{a(step, 2, 0), a(step, 2, 1)}.Turned(Model.Link1Angle);
    }

    template <class T = platform::Label>
    static std::string Caption(platform::Screen& screen, const char* name, int index = platform::kNoIndex) {
        return screen.Get<T>(name, index).Caption;
    }

    Chosen_Functions chosen;
};

}  // namespace verlink::test
