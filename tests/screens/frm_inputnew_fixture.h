// The input screen on the default linkage, with a user to play at it.
#pragma once

#include <cmath>
#include <functional>

#include "core/linkage_model.h"
#include "dynamics/units.h"
#include "screens/frm_inputnew.h"
#include "shell/initialize.h"
#include "tests/support/fixture.h"

namespace verlink::test {

using namespace platform;

inline constexpr char kCannotClose[] =
    "Your link lengths are incompatible\rand cannot reach to close the linkage \r\r"
    "The computation will now be aborted.\rPlease correct your link lengths.\r\r"
    "If you were shift-click-dragging a joint,just \rshift-click in a new location until linkage reappears.";
inline constexpr char kTooManyAngles[] = "Your angle steps are too small - Have > 2880 Points - Increase Delta Theta";
inline constexpr char kNoConnect[] = "Linkage cannot connect or is indeterminate at Theta2 =  ";

class InputScreen : public Fixture {
   protected:
    InputScreen() {
        Initialize();
        Use_Units(1);
        input.Picture1.Redirect(&log);
    }
    ~InputScreen() override { input.Picture1.Redirect(nullptr); }

    /// Shows the screen; `user` acts on it and may leave it.
    void Show(const std::function<void()>& user) {
        desktop.Expect_Screen("frm_Inputnew", [&user](Screen& screen) {
            user();
            if (screen.Visible()) screen.Hide();
        });
        input.ShowModal();
    }
    void Without_Autocalc() { input.chk_autocalc.Value = false; }
    void Enter_Link(int index, const char* text) { Enter(input, "txt_Linkout", index, text); }
    void Enter_Limit(int index, const char* text) { Enter(input, "txt_initial", index, text); }
    void Calculate_Now() { input.cmd_Calc.Click(); }

    void Expect_Ways_On(bool next, bool animate_and_step) {
        EXPECT_EQ(input.cmd_Done.Enabled.Get(), next);
        EXPECT_EQ(input.cmd_Animate.Enabled.Get(), animate_and_step);
        EXPECT_EQ(input.cmd_Step.Enabled.Get(), animate_and_step);
    }

    /// What stands in the picture: the calls since it was last cleared.
    std::vector<std::string> Drawn() const {
        std::vector<std::string> calls;
        for (const std::string& call : log.Calls) {
            if (call == "Cls" || call.starts_with("BackColor"))
                calls.clear();
            else
                calls.push_back(call);
        }
        return calls;
    }
    bool Picture_Is_Empty() const { return Drawn().empty(); }

    LogSurface log;
    frm_Inputnew& input = dynamic_cast<frm_Inputnew&>(Screens::Get("frm_Inputnew"));
    Screen& animate = Screens::Get("frm_Animate");
};

}  // namespace verlink::test
