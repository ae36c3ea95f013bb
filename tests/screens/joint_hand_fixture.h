// A hand on the joints in the picture of a screen, and where they lie by a reckoning of the test's own.
#pragma once

#include <cmath>
#include <complex>

#include "core/linkage_door.h"
#include "core/runs.h"
#include "dynamics/units.h"
#include "files/in_hand.h"
#include "screens/joint_drag.h"
#include "shell/initialize.h"
#include "tests/screens/frm_animate_fixture.h"

namespace verlink::test {

/// Places are global, y upward, in the shown unit.
class JointHand : public AnimateScreen {
   protected:
    using Spot = std::complex<double>;
    static constexpr int kShift = 1, kControl = 2, kAlt = 4;

    static void Fresh() {
        Initialize();
        Use_Units(1);
        Model_Saved();
    }
    /// Driven by the motion that another stage has written: its link turns by so many degrees from step to step.
    static void By_Another_Stage(int steps, double by) {
        Model.Calctype = 5;
        Model.Delta2 = 20;
        Model.NSteps = steps;
        for (int step = 0; step <= steps; ++step) {
            Model.RunTable.DriveTheta(step) = by * step;
            Model.RunTable.Omega(step, 0) = 1;
            Model.RunTable.Alpha(step, 0) = 0;
        }
        Integer result;
        Imported_Run(result);
    }
    static double Unit() { return Model.Units == 4 ? 100 : Model.Units == 5 ? 1000 : 1; }

    /// Of a crank at a global angle, by the circles around A and O4 that meet in B.
    static Spot Where(Joint joint, double theta2) {
        const double turn = Model.Link1Angle * M_PI / 180;
        const Spot O4 = std::polar(Model.L1 * Unit(), turn);
        const Spot A = std::polar(Model.L2 * Unit(), theta2 * M_PI / 180);
        if (joint == Joint::kO4) return O4;
        if (joint == Joint::kA) return A;
        const double r3 = Model.L3 * Unit(), r4 = Model.L4 * Unit();
        const Spot line = O4 - A;
        const double d = std::abs(line);
        const double along = (r3 * r3 - r4 * r4 + d * d) / (2 * d);
        const double aside = std::sqrt(r3 * r3 - along * along);
        const Spot B = A + line / d * Spot(along, Model.CircuitIndex == 1 ? aside : -aside);
        if (joint == Joint::kB) return B;
        return A + (B - A) / r3 * std::polar(Model.Rpa * Unit(), Model.Delta * M_PI / 180);
    }
    double Theta2() { return Model.RunTable.Theta(form.hsc_step.Value(), 0); }
    Spot Where(Joint joint) { return Where(joint, Theta2()); }

    platform::PictureBox& Picture() { return form.Picture1; }
    double Pixel() { return Picture().Pixel(); }
    platform::Touch Touch_At(Spot at, int keys = 0) { return {at.real(), Model.FlipSum - at.imag(), keys, Pixel()}; }
    void Hover(Spot at) { Picture().OnHover(Touch_At(at)); }
    bool Press_At(Spot at, int keys = 0) { return Picture().OnSeize(Touch_At(at, keys)); }
    void Move(Spot to, int keys = 0) { Picture().OnDrag(Touch_At(to, keys)); }
    void Release() { Picture().OnRelease(); }
    void Key(const char* key, int keys = 0) { Picture().OnKey({key, keys, Pixel()}); }

    /// How far from a place the nearest pin is drawn, in pixels.
    double Off(Spot at) {
        double least = 1e9;
        for (const auto& drawn : Picture().Drawing().Primitives())
            if (drawn.alive && drawn.kind == platform::Picture::Primitive::Kind::kPin)
                least = std::min(least, std::hypot(drawn.x1 - at.real(), Model.FlipSum - drawn.y1 - at.imag()));
        return least / Pixel();
    }
    void Show_Step(int step) {
        form.hsc_step.Drag(step);
        form.hsc_step.Drop();
    }
    /// Scales all lengths of the linkage, as they are stored.
    static void Scale_Linkage(double by) {
        for (Single* length : {&Model.L1, &Model.L2, &Model.L3, &Model.L4, &Model.Rpa, &Model.Link1X, &Model.Link1Y})
            *length *= by;
        Derive_Linkage(Leading::kInForce);
    }
};

}  // namespace verlink::test
