// What the view menu lays over the picture of a run, as a list and as it is painted.
#pragma once

#include <algorithm>
#include <complex>
#include <iterator>
#include <string>
#include <vector>

#include "animation/engine.h"
#include "animation/overlays.h"
#include "core/joints.h"
#include "shell/initialize.h"
#include "tests/dynamics/motion.h"
#include "tests/support/drawing.h"
#include "tests/support/overlay_log.h"

namespace verlink::test {

using platform::Overlay;
using platform::Point;
using Mark = Overlay::Mark;
using Kind = Mark::Kind;
using Rows = std::vector<std::string>;

/// A kind of overlay, and the one wish for it.
struct Sort {
    const char* name;
    bool View_Wishes::*wish;
};
inline constexpr Sort kSorts[] = {{"poles", &View_Wishes::poles},
                                  {"velocities", &View_Wishes::velocities},
                                  {"accelerations", &View_Wishes::accelerations},
                                  {"pin_forces", &View_Wishes::pin_forces},
                                  {"shaking_force", &View_Wishes::shaking_force},
                                  {"curvature", &View_Wishes::curvature},
                                  {"grid", &View_Wishes::grid},
                                  {"names", &View_Wishes::names},
                                  {"ghosts", &View_Wishes::ghosts}};

inline View_Wishes Only(bool View_Wishes::*wish) {
    View_Wishes wishes;
    wishes.*wish = true;
    return wishes;
}

inline View_Wishes All() {
    View_Wishes wishes;
    for (const Sort& sort : kSorts) wishes.*sort.wish = true;
    return wishes;
}

class ViewOverlays : public Drawing {
   protected:
    static Overlay At_Step(int step, const View_Wishes& wishes) {
        return Overlay_At(Model, step, wishes, Find_Scales(Model, wishes));
    }
    static void Solve() {
        Solve_Forces();
        Forces_Hold();
    }
    static void Run(const Scenario& scenario) {
        Initialize();
        Run_Scenario(scenario);
        Solve();
        Set_Palette();
        Autoscale();
        Model.FlipSum = Model.AnimMin + Model.AnimMax;
        Model.PivotRadius = std::abs(Model.AnimMax * 0.03);
        Model.PinRadius = std::abs(Model.AnimMax * 0.015);
    }
    /// As the picture of the present window has it.
    static OverlayLog Painted(const Overlay& overlay) {
        OverlayLog log;
        const double wide = double{Model.AnimMax} - Model.AnimMin;
        platform::Draw_Overlay(overlay, {Model.AnimMin, Model.AnimMin, wide, wide, 600, 600}, log);
        return log;
    }
    static std::vector<Mark> Of_Kind(const Overlay& overlay, Kind kind) {
        std::vector<Mark> found;
        std::ranges::copy_if(overlay.marks, std::back_inserter(found),
                             [kind](const Mark& m) { return m.kind == kind; });
        return found;
    }
    /// Back in the global frame.
    static Spot World(Point drawn) { return {drawn.x, Model.FlipSum - drawn.y}; }
    static Spot Way(const Mark& mark) { return World(mark.to) - World(mark.from); }
    static Spot Turn() { return std::polar(1.0, Model.Link1Angle * kDegToRad); }
    static Spot Joint(int step, int row) { return At(Model.RunTable.PointXY, step, row) * Turn(); }
    static double Window() { return double{Model.AnimMax} - Model.AnimMin; }
};

inline std::vector<Scenario> Every_Way() {
    static std::vector<std::string> names;
    std::vector<Scenario> ways;
    names.reserve(20);
    for (int units = 1; units <= 5; ++units)
        for (const int circuit : {1, 2})
            for (const double ground : {0.0, 30.0}) {
                if (names.size() < 20)
                    names.push_back("units " + std::to_string(units) + (circuit == 1 ? ", open" : ", crossed") +
                                    (ground == 0 ? "" : ", ground turned"));
                ways.push_back(
                    {.name = names[ways.size()].c_str(), .units = units, .circuit = circuit, .ground = ground});
            }
    return ways;
}

}  // namespace verlink::test
