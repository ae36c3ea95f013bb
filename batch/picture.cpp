// How the picture is drawn: on an animate screen that nobody sees.
#include "batch/picture.h"

#include "animation/drawing.h"
#include "animation/engine.h"
#include "core/linkage_model.h"
#include "screens/frm_animate.h"

namespace verlink {

namespace {
constexpr int kSide = 700;
}

std::string Picture_Svg() {
    frm_Animate form;
    form.chk_autoscale.Value = true;
    form.chk_Showlinks.Value = true;
    form.chk_Coupler.Value = true;
    Animate_Setup(form);
    if (Model.RunTable.Assembled(0)) {
        DrawLinkage(form, 0);
    } else {
        Drawpivots(form);
        Axes(form);
        DrawCouplerCurve(form);
    }
    return form.Picture1.Drawing().Svg(kSide);
}

}  // namespace verlink
