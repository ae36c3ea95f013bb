// The animate screen with a calculated linkage, for tests that play its user.
#pragma once

#include <functional>
#include <string>

#include "animation/engine.h"
#include "screens/frm_animate.h"
#include "tests/support/drawing.h"

namespace verlink::test {

class AnimateScreen : public Drawing {
   protected:
    AnimateScreen() : form(static_cast<frm_Animate&>(platform::Screens::Get("frm_Animate"))) {
        Model.AnimateDelay = 0;
        By_Angle(0, 360, 10);
        Model_Saved();
    }
    /// Shows the screen, plays the user's part, and leaves the screen if the user has not.
    void Inside(const std::function<void()>& user) {
        desktop.Expect_Screen("frm_Animate", [user](platform::Screen& screen) {
            user();
            screen.Hide();
        });
        form.ShowModal();
    }
    /// The same after the first picture has come up.
    void After_First_Picture(const std::function<void()>& user) {
        Inside([&] {
            form.Timer1.Tick();
            user();
        });
    }
    std::string Text_In(int box) { return form.txt_Linkout[box].Text; }
    std::string Number() { return form.lbl_StepNumber.Caption; }
    std::size_t Alive() { return form.Picture1.Drawing().Alive(); }

    frm_Animate& form;
};

}  // namespace verlink::test
