// A calculated linkage with masses, for tests that play the user of the screens of forces.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "dynamics/units.h"
#include "screens/frm_massprop.h"
#include "tests/support/drawing.h"

namespace verlink::test {

inline constexpr char kPrintQuestion[] = "You can print this form directly to a printer from here.";
inline constexpr char kCopyHint[] = "Use the Alt-PrintScrn key combo to copy the screen to the clipboard";

class Forces : public Drawing {
   protected:
    Forces() { By_Angle(0, 360, 10); }

    /// The unit system of the whole record, which is run anew.
    static void In_Units(int units) {
        const Integer old = Model.Units;
        Use_Units(units);
        Convert_Units(old, units);
        By_Angle(0, 360, 10);
    }

    /// Shows a screen, plays the user's part, and leaves the screen if the user has not.
    void Inside(platform::Screen& form, const std::function<void()>& user) {
        desktop.Expect_Screen(form.Name(), [user](platform::Screen& screen) {
            user();
            if (screen.Visible()) screen.Hide();
        });
        form.ShowModal();
    }

    /// The question before printing, with both answers, and the hint on copying.
    void Printing_And_Copying(platform::Screen& form, const char* copy) {
        desktop.Expect_Message_With(kPrintQuestion, platform::Answer::kNo);
        Press(form, "cmd_Print");
        EXPECT_TRUE(desktop.Printed.empty());
        desktop.Expect_Message_With(kPrintQuestion, platform::Answer::kYes);
        desktop.Expect_Printer(false);
        Press(form, "cmd_Print");
        EXPECT_TRUE(desktop.Printed.empty());
        desktop.Expect_Message_With(kPrintQuestion, platform::Answer::kYes);
        desktop.Expect_Printer(true);
        Press(form, "cmd_Print");
        EXPECT_EQ(desktop.Printed, std::vector<std::string>{form.Name()});
        desktop.FailPrinting = 482;
        desktop.Expect_Message_With(kPrintQuestion, platform::Answer::kYes);
        desktop.Expect_Printer(true);
        desktop.Expect_Message_With("Error 482 ");
        Press(form, "cmd_Print");
        desktop.Expect_Message(kCopyHint, platform::Answer::kOk, platform::Icon::kInformation);
        Press(form, copy);
    }
};

class MassPropScreen : public Forces {
   protected:
    std::string In(const char* box, int link) { return form.Text(box, link).Text; }
    void Fill(const char* box, int link, const std::string& text) { Type(form, box, link, text); }
    void Solve() { Press(form, "cmd_Solve"); }
    void Expect_Results_Open(bool open) {
        EXPECT_EQ(form.cmd_Done.Enabled.Get(), open);
        EXPECT_EQ(form.cmd_Matrix.Enabled.Get(), open);
        EXPECT_EQ(form.cmd_Print.Enabled.Get(), open);
        EXPECT_EQ(form.cmd_Copy.Enabled.Get(), open);
    }

    frm_MassProp& form = dynamic_cast<frm_MassProp&>(platform::Screens::Get("frm_MassProp"));
};

}  // namespace verlink::test
