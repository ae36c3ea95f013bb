// How typed texts wait for their screen.
#include "screens/typed_aside.h"

#include <utility>

#include "core/linkage_model.h"
#include "files/in_hand.h"

namespace verlink {

void Typed_Aside::Keep(platform::Screen& screen, const std::function<void()>& fill) {
    for (platform::Control* control : screen.Controls())
        if (auto* box = dynamic_cast<platform::TextBox*>(control); box && box->Touched() && !box->Locked)
            typed_.push_back({box, box->Text, ""});
    if (typed_.empty()) return;
    units_ = Model.Units;
    document_ = Document_In_Hand();
    for (const Typed& typed : typed_) typed.box->Settle();
    fill();
    for (Typed& typed : typed_) typed.below = typed.box->Text;
}

void Typed_Aside::Put_Back() {
    const std::vector<Typed> waiting = std::exchange(typed_, {});
    if (Model.Units != units_ || document_.lock() != Document_In_Hand()) return;
    for (const Typed& typed : waiting)
        if (typed.box->Text == typed.below && typed.box->Enabled && !typed.box->Locked) typed.box->Type(typed.text);
}

}  // namespace verlink
