// The rule of what lies over the picture of a linkage.
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

}  // namespace verlink::walk
