// Chooses the layout of a plot, with a sketch of each.
#pragma once

#include "platform/screen.h"
#include "screens/frm_help.h"

namespace verlink {

class frm_PlotType : public platform::Screen {
   public:
    frm_PlotType();

    platform::MenuEntry mnu_Help{*this, "mnu_Help", "Help"};
    Help_Key key_Help{*this};

    /// By layout: single window, two windows, four windows, polar.
    platform::ControlArray<platform::Frame> fra_PickPlot{*this,
                                                         "fra_PickPlot",
                                                         {{0, "Single Window - One to Four Functions"},
                                                          {1, "Two Windows - Two Functions"},
                                                          {2, "Four Windows - Four Functions"},
                                                          {3, "Polar Plot - One to Four Functions"}}};
    platform::ControlArray<platform::OptionButton> opt_PickPlot{
        *this, "opt_PickPlot", {{0, "Select"}, {1, "Select"}, {2, "Select"}, {3, "Select"}}};
    /// One picture for each window of a layout: 1 the single one, 2 and 3 the two, 4 to 7 the four, 8 the polar one.
    platform::PictureBox Picture1{*this, "Picture1"};
    platform::PictureBox Picture2{*this, "Picture2"};
    platform::PictureBox Picture3{*this, "Picture3"};
    platform::PictureBox Picture4{*this, "Picture4"};
    platform::PictureBox Picture5{*this, "Picture5"};
    platform::PictureBox Picture6{*this, "Picture6"};
    platform::PictureBox Picture7{*this, "Picture7"};
    platform::PictureBox Picture8{*this, "Picture8"};

    platform::CommandButton cmd_CancelPickPlot{*this, "cmd_CancelPickPlot", "< &Back"};
    platform::CommandButton cmd_PickPlotDone{*this, "cmd_PickPlotDone", "&Next >"};
    platform::Timer Timer1{*this, "Timer1"};

    void Form_Activate() override;
    void opt_PickPlot_Click(int Index);
    void Picture_Click(int layout);
    void Picture_DblClick(int layout);
    void cmd_PickPlotDone_Click();

   private:
    void Bind();
};

}  // namespace verlink
