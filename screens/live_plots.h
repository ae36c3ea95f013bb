// The pane of the animate screen that plots functions of the run while the linkage moves.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "animation/shown.h"
#include "platform/graph.h"
#include "platform/screen.h"
#include "screens/listed_choice.h"
#include "screens/live_choice.h"
#include "screens/view_menu.h"

namespace verlink {

struct LinkageModel;

/// One function of the pane, counted from 1.
struct Live_Slot {
    Live_Slot(platform::Screen& owner, int slot);

    platform::ComboBox cmb_LiveVar, cmb_LiveCom, cmb_LiveFrame;
};

/// Shows what it has chosen of the run that stands, with a cursor at the position in the picture; never anything of
/// another run. It changes neither the model nor what the plots have chosen. Only the forces are solved anew, when a
/// hand has made a new run while the pane shows forces that held.
class Live_Plots {
   public:
    /// The bar is the one over the steps, by which the hand on a graph moves the position; `open` shows the pane.
    Live_Plots(platform::Screen& owner, LinkageModel& model, platform::ScrollBar& bar, View_Choice& open);

    platform::Frame fra_Live;
    platform::Label lbl_LivePreset;
    platform::ComboBox cmb_LivePreset;
    std::vector<std::unique_ptr<Live_Slot>> Slots;  ///< slot n at n - 1
    platform::Frame fra_LiveScale;
    platform::ControlArray<platform::OptionButton> opt_LiveScale;
    platform::Frame fra_LiveX;
    platform::ControlArray<platform::OptionButton> opt_LiveX;
    /// Says what is missing; empty when all that was chosen is shown.
    platform::Label lbl_LiveNote;
    /// 0 for all functions in one scale; n for that of slot n in its own.
    platform::ControlArray<platform::Graph> grf_Live;

    /// The screen has been arrived at.
    void Arrived();
    /// A hand has made the run that stands, and nothing of it has been drawn yet.
    void Run_Made();
    /// Shows what there is now, if anything of it is other than what it shows.
    void Follow();

   private:
    void Bind();
    void Write_Tips();
    void Open_Or_Close();
    void Take_Preset();
    void Take_Variable(int slot);
    void Take_Part(int slot);
    void Chosen();

    void Fill_Lists();
    void Show_Choice();
    void Show_Slot(int slot);
    bool There(Needs needs) const;
    std::string What_Is_Missing() const;
    bool Shows(Needs needs) const;

    void Renew();
    void Put_Stations();
    void Fill(platform::Graph& graph, const std::vector<int>& slots);
    static void Empty(platform::Graph& graph);
    void Set_Cursor(int step);
    void Seek(int point);

    platform::Screen& screen_;
    LinkageModel& model_;
    platform::ScrollBar& bar_;
    View_Choice& open_;
    Live_Choice choice_;
    std::vector<std::unique_ptr<Listed_Choice>> typed_;
    Position_Ear ear_;

    int turns_ = -1;  ///< of the results when they were shown
    Stations stations_;
    std::vector<double> stations_by_;  ///< what the labels of the stations follow from; empty for none
    bool forces_held_ = false;         ///< of the last run that was shown, or would have but for that run
    bool torque_held_ = false;         ///< they were solved with an imported torque
    std::string unsolved_;             ///< why the forces of this run could not be solved
};

}  // namespace verlink
