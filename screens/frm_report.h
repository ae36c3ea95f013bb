// The screen that makes a report: its chapters and plots are chosen here, and kept.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/desktop_services.h"
#include "platform/screen.h"
#include "screens/frm_help.h"
#include "screens/listed_choice.h"

namespace verlink {

/// Changes nothing of the model. What is chosen and the model has nothing for stays chosen for another one.
class frm_Report : public platform::Screen {
   public:
    frm_Report();

    static constexpr int kPlots = 6;

    platform::Frame fra_Chapters{*this, "fra_Chapters", "Chapters"};
    /// In the order of `kChapters`
    platform::ControlArray<platform::CheckBox> chk_Chapter{*this, "chk_Chapter", {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}};
    platform::Frame fra_Plots{*this, "fra_Plots", "Plots"};
    platform::ControlArray<platform::Label> lbl_Plot{*this, "lbl_Plot", {1, 2, 3, 4, 5, 6}};
    platform::ControlArray<platform::ComboBox> cmb_Plot{*this, "cmb_Plot", {1, 2, 3, 4, 5, 6}};
    platform::Label lbl_Note{*this, "lbl_Note"};
    platform::CommandButton cmd_Cancel{*this, "cmd_Cancel", "< &Back"};
    platform::CommandButton cmd_Save{*this, "cmd_Save", "&Save Report..."};
    Help_Entry mnu_Help{*this};
    Help_Key key_Help{*this};

    void Form_Activate() override;
    void cmd_Save_Click();

   private:
    void Write_Tips();
    void Take_Kept();
    void Keep();
    void Show_Chapters();
    void Fill_Lists();
    std::vector<std::string> Plots_Chosen();

    bool chosen_ = false;  ///< a hand has chosen plots, now or in an earlier session
    bool filling_ = false;
    std::vector<std::unique_ptr<Listed_Choice>> typed_;
};

}  // namespace verlink
