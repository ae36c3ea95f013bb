// What every screen with a plot has: header, coordinates, the linkage's data, and the ways out.
#pragma once

#include <string>

#include "core/number.h"
#include "platform/desktop_services.h"
#include "platform/screen.h"
#include "screens/frm_help.h"
#include "screens/summary_panel.h"

namespace verlink {

class Plot_Screen : public platform::Screen {
   public:
    platform::MenuEntry mnu_Help{*this, "mnu_Help", "Help"};
    Help_Key key_Help{*this};

    platform::Label lbl_Header{*this, "lbl_Header"};
    platform::Label lbl_Header2{*this, "lbl_Header2"};
    platform::Label lbl_Header3{*this, "lbl_Header3"};
    platform::Frame fra_coord{*this, "fra_coord", "Coordinate System"};
    platform::Label lbl_Coord{*this, "lbl_Coord", "Global"};
    Summary_Panel Summary{*this};

    platform::CommandButton cmd_PlotPrint{*this, "cmd_PlotPrint", "&Print"};
    platform::CommandButton cmd_Copy{*this, "cmd_Copy", "&Copy"};
    platform::CommonDialog CommonDialog1{*this, "CommonDialog1"};

   protected:
    /// `selection` is the name of the screen that chooses the functions and leads here.
    Plot_Screen(const std::string& name, std::string selection);

    /// The screen whose labels name the functions; failure 9 when the program has none.
    platform::Screen& Selection() const { return platform::Screens::Get(selection_); }
    std::string Procedure(const char* handler) const { return Name() + "." + handler; }
    /// Binds and explains the two ways out, under the names that the screen gives them.
    void Bind_Ways_Out(platform::CommandButton& back, platform::CommandButton& next);
    /// To the selection screen.
    void Go_Back();
    /// To the home screen.
    void Leave();

   private:
    std::string selection_;
};

}  // namespace verlink
