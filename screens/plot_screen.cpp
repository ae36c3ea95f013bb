// How the screens with a plot are printed, and left.
#include "screens/plot_screen.h"

#include <utility>

#include "core/linkage_model.h"
#include "core/window_sizes.h"
#include "platform/guard.h"
#include "screens/help_documents.h"
#include "screens/print_questions.h"

namespace verlink {

Plot_Screen::Plot_Screen(const std::string& name, std::string selection)
    : Screen(name), selection_(std::move(selection)) {
    Width() = kWorkWidth;
    Height() = kWorkHeight;
    cmd_PlotPrint.Tip = "Print this screen";
    cmd_Copy.Tip = "How to copy this screen to the clipboard";
    cmd_PlotPrint.OnClick = [this] { Print_Form(*this, CommonDialog1, Procedure("cmd_PlotPrint")); };
    cmd_PlotPrint.Keys = "Ctrl+P";
    cmd_Copy.OnClick = [] { Tell_How_To_Copy(); };
    mnu_Help.OnClick = [this] { Show_Help(Screen_Help_Document(Caption()), Procedure("mnu_Help")); };
}

void Plot_Screen::Bind_Ways_Out(platform::CommandButton& back, platform::CommandButton& next) {
    back.Tip = "Go back to the choice of functions";
    next.Tip = "Leave for the home screen";
    CancelButton = &back;
    DefaultButton = &next;
}

void Plot_Screen::Go_Back() {
    Guarded(Procedure("Back"), [&] {
        Hide();
        Show_Centered(selection_.c_str());
    });
}

void Plot_Screen::Leave() {
    Model.ScreenReturn = true;
    Hide();
}

}  // namespace verlink
