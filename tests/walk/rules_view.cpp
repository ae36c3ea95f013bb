// The rule of what lies over the picture of a linkage.
#include <algorithm>
#include <cmath>
#include <complex>

#include "core/linkage_model.h"
#include "design/wanted.h"
#include "platform/overlaid_picture.h"
#include "screens/frm_animate.h"
#include "screens/frm_inputnew.h"
#include "tests/walk/rules.h"

namespace verlink::walk {

using platform::Overlaid_Picture;
using platform::Overlay;
using platform::Screen;

/// Arrows, poles and all else that the menu View lays over the picture are those of the model as it stands. Except: on
/// the home screen, whose picture may have a run of its own.
Found What_Lies_Over_It_Is_Of_The_Model(const Screen& top) {
    const View_Menu* view = nullptr;
    if (const auto* animate = dynamic_cast<const frm_Animate*>(&top)) view = &animate->view;
    if (const auto* input = dynamic_cast<const frm_Inputnew*>(&top)) view = &input->view;
    if (!view) return {};
    const Overlay& over = top.Get<Overlaid_Picture>("Picture1").Over;
    if (over == view->Found_Anew()) return {};
    return Finding{"over", top.Name(),
                   "what lies over the picture is not what the model gives: " + std::to_string(over.marks.size()) +
                       " marks, and " + std::to_string(view->Found_Anew().marks.size()) + " anew"};
}

namespace {

using Place = std::complex<double>;

/// Of the coupler point at a step, from O2, global frame, shown unit.
Place Coupler_Point(int step) {
    const auto& at = Model.RunTable.PointXY;
    return Place(at(step, 2, 0), at(step, 2, 1)) * std::polar(1.0, Model.Link1Angle * M_PI / 180);
}

double Distance_To_Way(Place at, Place from, Place to) {
    const double length = std::abs(to - from);
    if (length == 0) return std::abs(at - from);
    const double part = std::clamp(((at - from) * std::conj(to - from)).real() / (length * length), 0.0, 1.0);
    return std::abs(at - from - part * (to - from));
}

}  // namespace

Found Marked_Positions_Are_Passed() {
    if (!Model.RunStands) return {};
    const RunResults& run = Model.RunTable;
    const double factor = Shown_Factor(), size = (Model.L1 + Model.L2 + Model.L3 + Model.L4 + Model.Rpa) * factor;
    for (const design::Wanted& wanted : design::Positions_Wanted(Model)) {
        if (wanted.is != design::Wanted::Is::kPassed) continue;
        // Between two steps the path bends by less than half of the way.
        bool passed = false;
        for (int step = 0; step <= Model.NSteps && !passed; ++step) {
            const int next = std::min<int>(step + 1, Model.NSteps);
            if (!run.Assembled(step) || !run.Assembled(next)) continue;
            const Place from = Coupler_Point(step), to = Coupler_Point(next);
            passed = Distance_To_Way(wanted.at * factor, from, to) <= std::abs(to - from) + 0.01 * size;
        }
        if (!passed)
            return Finding{"positions", "marked as passed",
                           "position " + std::to_string(wanted.number) + " is marked as passed, and lies off the path"};
    }
    return {};
}

}  // namespace verlink::walk
