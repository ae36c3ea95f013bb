// A calculated linkage and functions chosen for a plot, for tests that play the user of a plot screen.
#pragma once

#include <algorithm>
#include <functional>
#include <string>

#include "output/catalogue.h"
#include "tests/support/drawing.h"

namespace verlink::test {

class Plot_Screens : public Drawing {
   protected:
    Plot_Screens() {
        Load_Catalogue();
        By_Angle(0, 360, 10);
        Model.PlotStyle = 1;
        Model.ScreenReturn = false;
    }

    /// As that selection screen leaves a slot.
    static void Choose(const std::string& selection, int slot, const std::string& variable,
                       const std::string& component) {
        Select_Variable(variable, slot);
        Set_Component(component, slot);
        platform::Screen& screen = platform::Screens::Get(selection);
        screen.Get<platform::Label>("lbl_Function", slot - 1).Caption = variable;
        platform::With<platform::Label>(screen, "lbl_Component", slot - 1,
                                        [&](platform::Label& label) { label.Caption = component; });
        Model.PlotCount = std::max<int>(Model.PlotCount, slot);
    }

    /// Shows a screen, plays the user's part, and leaves the screen if the user has not.
    void Inside(platform::Screen& form, const std::function<void()>& user) {
        desktop.Expect_Screen(form.Name(), [user](platform::Screen& screen) {
            user();
            screen.Hide();
        });
        form.ShowModal();
    }
    /// Presses the button that leads back to `selection`, and leaves that.
    void Go_Back(platform::Screen& form, const std::string& button, const std::string& selection) {
        bool seen = false;
        Inside(form, [&] {
            desktop.Expect_Screen(selection, [&](platform::Screen& screen) {
                seen = true;
                EXPECT_FALSE(form.Visible());
                screen.Hide();
            });
            Press(form, button);
        });
        EXPECT_TRUE(seen);
    }

    static void Every_Input_Is_Explained(platform::Screen& form) {
        for (platform::Control* control : form.Controls()) {
            auto* visual = dynamic_cast<platform::Visual*>(control);
            const bool input = dynamic_cast<platform::CommandButton*>(control) ||
                               dynamic_cast<platform::CheckBox*>(control) ||
                               dynamic_cast<platform::OptionButton*>(control);
            if (!input) continue;
            EXPECT_FALSE(visual->Tip.Get().empty()) << control->ObjectName();
        }
    }

    /// The print button's question with both answers, and what may go wrong behind it.
    void Printing(platform::Screen& form) {
        const std::string question = "You can print this form directly to a printer from here.";
        Inside(form, [&] {
            desktop.Expect_Message_With(question, platform::Answer::kNo);
            Press(form, "cmd_PlotPrint");
            desktop.Expect_Message_With(question, platform::Answer::kYes);
            desktop.Expect_Printer(false);
            Press(form, "cmd_PlotPrint");
            EXPECT_TRUE(desktop.Printed.empty());
            desktop.Expect_Message_With(question, platform::Answer::kYes);
            desktop.Expect_Printer(true);
            Press(form, "cmd_PlotPrint");
            EXPECT_EQ(desktop.Printed, std::vector<std::string>{form.Name()});
            desktop.FailPrinting = 482;
            desktop.Expect_Message_With(question, platform::Answer::kYes);
            desktop.Expect_Printer(true);
            desktop.Expect_Message_With(form.Name() + ".cmd_PlotPrint");
            Press(form, "cmd_PlotPrint");
        });
    }
    /// The help of plots opens, and closing it leads back.
    void Helping(platform::Screen& form) {
        std::string document;
        Inside(form, [&] {
            desktop.Expect_Screen("frm_Help", [&](platform::Screen& help) {
                document = help.Get<platform::DocumentView>("WebBrowser1").Document;
                help.Hide();
            });
            Pick_Menu(form, "mnu_Help");
            EXPECT_TRUE(form.Visible());
        });
        EXPECT_NE(document.find("linkage_plot_help.pdf"), std::string::npos) << document;
    }
    void Copying(platform::Screen& form) {
        Inside(form, [&] {
            desktop.Expect_Message("Use the Alt-PrintScrn key combo to copy the screen to the clipboard");
            Press(form, "cmd_Copy");
        });
    }
};

}  // namespace verlink::test
