// Shift-drags on the animate screen: the link that was chosen follows the pointer.
#include <cmath>

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/parameters.h"
#include "core/text.h"
#include "platform/guard.h"
#include "screens/frm_animate.h"

namespace verlink {

using namespace shift_drag;

void frm_Animate::Picture1_MouseMove(int Button, int Shift, double X, double Y) {
    constexpr int kLeft = 1;
    constexpr int kShiftAlone = 1;
    if (Button != kLeft || Shift != kShiftAlone) return;
    if (joints_.Holds_Joint() || joints_.Shift_Drag_Ended()) return;
    Guarded("frm_Animate.Picture1", [&] {
        const Held_Window window(*this);
        const int step = joints_.Step() > Model.NSteps ? 0 : joints_.Step();
        Drag(X, Model.FlipSum - Y);
        Get_Linkage_Geometry(*this, Road::kDrag);
        joints_.Shift_Dragged();
        if (Model.RunStands) {
            Unlock_Run_Buttons();
            Show_Dragged(step);
            return Say_Held_Target();
        }
        Solve();
        if (!Model.RunStands) joints_.End_Shift_Drag();
        Settle_Run([&] { Show_Dragged(step); });
    });
}

void frm_Animate::Say_Held_Target() {
    switch (Model.ShiftDragTarget) {
        case kCrank: return Say_Held({1});
        case kRocker: return Say_Held({3});
        case kCouplerPoint: return Say_Held({4, 5});
        case kGround: return Model.PolarCoords ? Say_Held({0, 6}) : Say_Held({15, 16});
        case kCoupler: return Say_Held({2});
        default: break;
    }
}

void frm_Animate::Drag(double X, double Y) {
    const double fine = Fine(Picture1.Pixel());
    const auto write = [&](int box, double value, int decimals) {
        if (!Held(box)) txt_Linkout[box].Type(Text_Of(FNRound(value, decimals)));
    };
    const auto write_length = [&](int box, double value) { write(box, value, Decimals_For(fine)); };
    const auto write_angle = [&](int box, double value, double arm, int least) {
        write(box, value, Decimals_For(arm > 0 ? fine / arm * kRadToDeg : 1, least));
    };
    const int step = joints_.Step() > Model.NSteps ? 0 : joints_.Step();
    Single x;
    Single y;
    Rotate(X, Y, Model.Link1Angle, -1, x, y);
    const Single from_A_x = x - Model.RunTable.PointXY(step, 0, 0);
    const Single from_A_y = y - Model.RunTable.PointXY(step, 0, 1);
    const auto length = [](Single dx, Single dy) { return Single(std::sqrt(dy * dy + dx * dx)); };
    // From A nothing is measured where no A is in the picture.
    const bool from_A = Model.ShiftDragTarget == kCouplerPoint || Model.ShiftDragTarget == kCoupler;
    if (from_A && !Model.RunTable.Assembled(step)) return;
    switch (Model.ShiftDragTarget) {
        case kCrank: {
            const Single L = length(x, y);
            write_length(1, L);
            lbl_StepNumber.Caption = Text_Of(FNRound(Atan2D(x, y), 1));
            Picture1.Canvas().Circle(0, Model.FlipSum, L, Model.ColorBlue);
            break;
        }
        case kRocker: write_length(3, length(x - Model.L1 * Shown_Factor(), y)); break;
        case kCouplerPoint: {
            const Single arm = length(from_A_x, from_A_y);
            write_length(4, arm);
            const double coupler = Model.RunTable.Theta(step, 1) - Model.Link1Angle;
            write_angle(5, Atan2D(from_A_x, from_A_y) - coupler, arm, 3);
            break;
        }
        case kGround:
            if (Model.PolarCoords) {
                write_length(0, length(X, Y));
                write_angle(6, Atan2D(X, Y), length(X, Y), 2);
            } else {
                write_length(15, X);
                write_length(16, Y);
            }
            break;
        case kCoupler: write_length(2, length(from_A_x, from_A_y)); break;
        default: break;
    }
}

}  // namespace verlink
