// Many linkages about the one in hand: what moves, what is measured of each, and what it comes to.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/linkage_model.h"
#include "platform/charts.h"
#include "platform/graph.h"
#include "platform/screen.h"
#include "screens/edit_menu.h"
#include "screens/frm_help.h"
#include "screens/measure_choice.h"
#include "screens/table_menu.h"
#include "study/aside.h"
#include "study/drawing.h"
#include "study/settings.h"

namespace verlink {

/// Its settings are the record's, and change with each change here; the linkage changes by `cmd_Take` alone. A study
/// runs on threads beside the screen; what it shows is of the linkage and the settings as they stand, or it is dropped.
class frm_Studies : public platform::Screen {
   public:
    frm_Studies();
    void Form_Activate() override;
    void Form_QueryUnload(bool& cancel) override;

    using Label = platform::Label;
    using Button = platform::CommandButton;
    template <class Kind>
    using Array = platform::ControlArray<Kind>;
    using Settings = study::Settings;

    /// The most that a plot and a map show.
    static constexpr study::Number kPlotted = 5000, kMapped = 250000;

    platform::Frame fra_Study{*this, "fra_Study", "Study"};
    Array<platform::OptionButton> opt_Kind{*this, "opt_Kind", {{0, "S&weep"}, {1, "&Tolerances"}}};

    platform::Frame fra_Sweep{*this, "fra_Sweep", "Fields to Sweep"};
    Array<Label> lbl_SweepHead{*this, "lbl_SweepHead", {{0, "Field"}, {1, "From"}, {2, "To"}, {3, "Count"}}};
    Array<platform::ComboBox> cmb_Sweep{*this, "cmb_Sweep", {1, 2}};
    Array<platform::TextBox> txt_From{*this, "txt_From", {1, 2}};
    Array<platform::TextBox> txt_To{*this, "txt_To", {1, 2}};
    Array<platform::TextBox> txt_Count{*this, "txt_Count", {1, 2}};
    Array<Label> lbl_SweepUnit{*this, "lbl_SweepUnit", {1, 2}};

    platform::Frame fra_Tolerance{*this, "fra_Tolerance", "Tolerances"};
    Array<Label> lbl_ToleranceHead{
        *this, "lbl_ToleranceHead", {{0, "Field"}, {1, "Plus/Minus"}, {2, "Unit"}, {3, "Spread"}}};
    Array<platform::ComboBox> cmb_Tolerance{*this, "cmb_Tolerance", {1, 2, 3, 4, 5, 6}};
    Array<platform::TextBox> txt_PlusMinus{*this, "txt_PlusMinus", {1, 2, 3, 4, 5, 6}};
    Array<Label> lbl_ToleranceUnit{*this, "lbl_ToleranceUnit", {1, 2, 3, 4, 5, 6}};
    Array<platform::ComboBox> cmb_Spread{*this, "cmb_Spread", {1, 2, 3, 4, 5, 6}};
    Label lbl_Samples{*this, "lbl_Samples", "Samples"};
    platform::TextBox txt_Samples{*this, "txt_Samples"};
    Label lbl_Seed{*this, "lbl_Seed", "Seed"};
    platform::TextBox txt_Seed{*this, "txt_Seed"};

    platform::Frame fra_Measure{*this, "fra_Measure", "Measure"};
    Measure_Choice measure{*this, 0, Measure_Choice::Kind::kMeasure, Model};
    platform::ComboBox cmb_Frame{*this, "cmb_Frame"};
    platform::Frame fra_Keep{*this, "fra_Keep", "Keep Only"};
    Measure_Choice keep{*this, 1, Measure_Choice::Kind::kBound, Model};

    /// Why there can be no study of this; empty where there can.
    Label lbl_Fault{*this, "lbl_Fault"};
    Label lbl_Told{*this, "lbl_Told"};
    platform::Graph grf_Sweep{*this, "grf_Sweep"};
    platform::Color_Map map_Sweep{*this, "map_Sweep"};
    platform::Histogram his_Spread{*this, "his_Spread"};
    platform::Bars bar_Share{*this, "bar_Share"};
    Label lbl_Picked{*this, "lbl_Picked"};
    Button cmd_Before{*this, "cmd_Before", "<"};
    Button cmd_After{*this, "cmd_After", ">"};
    Button cmd_Take{*this, "cmd_Take", "Ta&ke These Values"};

    platform::PictureBox Picture1{*this, "Picture1"};
    platform::ScrollBar hsc_Step{*this, "hsc_Step"};
    Label lbl_Step{*this, "lbl_Step"};

    Label lbl_Progress{*this, "lbl_Progress"};
    Button cmd_Start{*this, "cmd_Start", "&Start"};
    Button cmd_Stop{*this, "cmd_Stop", "St&op"};
    Button cmd_Cancel{*this, "cmd_Cancel", "< &Back"};
    platform::Timer Timer1{*this, "Timer1"};
    Help_Entry mnu_Help{*this};
    Help_Key key_Help{*this};
    Edit_Menu edit{*this};
    Table_Menu table{*this, [this] { return Table(); }};

    const Settings& The_Settings() const { return settings_; }
    const study::Findings& Found() const { return found_; }

    void cmd_Start_Click();
    void cmd_Take_Click();
    void cmd_Cancel_Click();
    void Pick(study::Number linkage);

   private:
    void Write_Tips();
    void Bind();
    void Bind_Sweeps();
    void Bind_Tolerances();
    void Bind_Measures();

    // Settings
    void Read_Record();
    void Change(const std::function<void(Settings&)>& how);
    void Fill();
    void Fill_Sweeps();
    void Fill_Tolerances();
    void Fill_Fields();
    void Enable_All();
    void Row_Changed(platform::ComboBox& list, int row, bool sweeps);

    // The study
    study::Design Design_Now(std::string& fault) const;
    std::optional<study::Study> Study_Now(std::string& fault) const;
    /// What it shows is of what stands, or it goes.
    void Follow();
    void Drop();
    void Pulse();
    /// Nothing goes on behind a screen that is not there.
    void Leave();

    // What was found
    void Show_Found();
    void Show_Progress();
    void Show_Plot();
    void Show_Map();
    void Show_Spread();
    void Show_Shares();
    void Show_Picture();
    void Show_Picked();
    void Tell_Bin(double value);
    void Step_Pick(int by);
    bool Pick_In_Cloud(const platform::Touch& touch);
    std::string Measure_Unit() const;
    std::string Measure_Title() const;
    std::string Field_Title(int field) const;
    std::optional<Table_To_Save> Table();
    Sheet Sweep_Sheet() const;
    Sheet Spread_Sheet() const;

    LinkageModel& model_;
    Settings settings_;       ///< as the record has them, in the units in force
    std::string unreadable_;  ///< why the record's are not to be read
    std::vector<std::string> fields_;
    bool filling_ = false;

    study::Aside aside_;
    bool begun_ = false;  ///< what is found is of what stands
    std::string key_;     ///< what that follows from
    study::Findings found_;
    std::optional<study::Number> picked_;
    std::vector<float> picked_fields_, picked_measures_;

    std::optional<study::Mechanism> mechanism_, picked_mechanism_;
    study::Window window_;
    std::vector<study::Cloud_Point> cloud_;
    double enlarged_ = 1;
};

}  // namespace verlink
