// The screens that plot on graphs, in the annotated style.
#pragma once

#include <initializer_list>
#include <string>

#include "platform/graph.h"
#include "screens/plot_screen.h"

namespace verlink {

/// Graphs with a choice of grid, style and colour; each change of style plots anew.
class Graph_Screen : public Plot_Screen {
   public:
    /// The mount of the graphs; its back colour goes with theirs.
    platform::Frame pct_Frame{*this, "pct_Frame"};
    platform::ControlArray<platform::Graph> grf_Plot;

    platform::Frame fra_Grid{*this, "fra_Grid", "Grid"};
    platform::CheckBox chk_HGrid{*this, "chk_HGrid", "Horiz"};
    platform::CheckBox chk_VGrid{*this, "chk_VGrid", "Vertic"};
    platform::Frame fra_Style{*this, "fra_Style", "Style"};
    platform::CheckBox chk_Line{*this, "chk_Line", "Lines"};
    platform::CheckBox chk_Sticks{*this, "chk_Sticks", "Fills"};
    platform::Frame fra_Back{*this, "fra_Back", "Background"};
    platform::ControlArray<platform::OptionButton> opt_Back{
        *this, "opt_Back", {{0, "White"}, {1, "Blue"}, {2, "Gray"}}};

    platform::CommandButton cmd_Replot{*this, "cmd_Replot", "< &Back"};
    platform::CommandButton cmd_Done{*this, "cmd_Done", "&Next >"};

    void Form_Activate() override;
    void opt_Back_Click();
    void Style_Click();

   protected:
    Graph_Screen(const std::string& name, const std::string& selection, std::initializer_list<int> graphs);

    int Windows() const { return windows_; }
    /// Puts the functions into the graphs.
    virtual void Draw_Functions() = 0;

   private:
    void Bind();
    void Put_Colors();
    void Replot();

    int windows_;
};

}  // namespace verlink
