// What the screens that choose functions for a plot or a table have in common.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/screen.h"
#include "screens/frm_help.h"
#include "screens/last_selection.h"
#include "screens/listed_choice.h"

namespace verlink {

/// The controls of one function slot, counted from 1; labels are indexed from 0.
struct Function_Slot {
    enum class Parts { kVariableAndComponent, kVariableOnly };
    Function_Slot(platform::Screen& owner, int slot, Parts parts);

    platform::Frame fra_Function;
    platform::Label lbl_Var;
    platform::ComboBox cmb_Var;
    /// On a screen without components these two are there for the shared routines only, and nobody sees them.
    platform::Label lbl_Comp;
    platform::ComboBox cmb_Com;
    platform::CommandButton cmd_OK;
    platform::CommandButton cmd_Clear;
    /// What is chosen so far.
    platform::Frame fra_Plot;
    platform::Label lbl_Function;
    platform::Label lbl_Component;
};

/// Slots, coordinate system, back and next. The events of a slot are shared; what follows from them is a screen's own.
class Function_Screen : public platform::Screen {
   public:
    platform::MenuEntry mnu_Help{*this, "mnu_Help", "Help"};
    Help_Key key_Help{*this};
    std::vector<std::unique_ptr<Function_Slot>> Slots;  ///< slot n at n - 1

    platform::Frame fra_coord{*this, "fra_coord", "Coordinate System"};
    platform::ControlArray<platform::OptionButton> opt_Coord{
        *this, "opt_Coord", {{0, "Global"}, {1, "Local Rotating"}}};

    platform::CommandButton cmd_Last{*this, "cmd_Last", "&Last Selection"};
    platform::CommandButton cmd_Cancel;  ///< under the name that the screen gives it
    platform::CommandButton cmd_Done{*this, "cmd_Done", "&Next >"};
    platform::Timer Timer1{*this, "Timer1"};

    void cmb_Var_Click(int slot);
    virtual void cmb_Var_DblClick(int slot) { Pick_By_Name(slot); }
    void cmb_Com_Click(int slot);
    void cmd_OK_Click(int slot);
    void cmd_Clear_Click(int slot);
    virtual void cmd_Cancel_Click();
    virtual void cmd_Done_Click() = 0;
    void cmd_Last_Click();

   protected:
    Function_Screen(const std::string& name, int slots, Function_Slot::Parts parts, const std::string& cancelName);

    Function_Slot& Slot(int slot) { return *Slots.at(static_cast<std::size_t>(slot - 1)); }
    int SlotCount() const { return static_cast<int>(Slots.size()); }
    int Filled() const;  ///< how many slots have been taken over

    /// A variable was picked from the list of a slot.
    virtual void Pick_Variable(int slot);
    /// Picks what stands in the box of a slot; false for an empty box, and for a text that was refused.
    bool Pick_By_Name(int slot);
    /// The slot is taken over.
    virtual void Take_Slot(int slot);
    /// Counts the functions, and allows going on or not.
    virtual void Count_Functions() = 0;

    /// What is typed into that box is looked up in its list.
    void Look_Up(platform::ComboBox& box, const char* what, std::vector<const platform::Control*> ways_out);
    /// All boxes as they stand now are what was chosen; the program has changed them.
    void Forget_Choices();
    std::vector<std::unique_ptr<Listed_Choice>> Choices;  ///< of slot n at 2 n - 2 and 2 n - 1, further boxes behind

    /// `cmd_Last` has something to bring back, or says why not.
    void Offer_Last_Selection();
    /// What the way on does, when what is typed into the boxes is settled: the selection is the last one now.
    void Go_On();

    void Take_Coordinates();   ///< `CoordSystem` from the options
    void Reset_Coordinates();  ///< global, and no choice

   private:
    void Bind(const char* variables);
    void Write_Tips();
    bool Resolve_Slot(int slot);
    void Choose_Functions(const Selection& last);
};

/// A function screen with a list of presets: functions are chosen by preset or one by one.
class Preset_Screen : public Function_Screen {
   public:
    platform::Frame fra_Method{*this, "fra_Method", "Choose Setup Method"};
    platform::ControlArray<platform::OptionButton> opt_PrintSet{
        *this, "opt_PrintSet", {{0, "Preset Formats"}, {1, "Mix and Match"}}};
    platform::Frame fra_Preset{*this, "fra_Preset", "Select from Preset Formats"};
    platform::ComboBox cmb_Preset{*this, "cmb_Preset"};
    platform::CommandButton cmd_ClearPreset{*this, "cmd_ClearPreset", "&Clear"};

    void opt_PrintSet_Click(int Index);
    void cmb_Preset_Change();
    void cmb_Preset_Click();
    void cmb_Preset_DblClick();
    void cmd_ClearPreset_Click();

   protected:
    Preset_Screen(const std::string& name, int slots, const std::string& cancelName);

    /// The counts that go with a preset, and the preset itself.
    virtual void Take_Preset() = 0;
    /// After a function or a preset was taken.
    virtual void Function_Taken() {}
    void Take_Slot(int slot) override;
    void Count_Functions() override;

    void Reload_Lists();  ///< by what has been computed, when control has come back from the home screen
    /// The lists, the frame, the setup method and the labels as they are at each activation of a plot's screen.
    void Start_Selection(int windows);
};

/// The screens of two and of four windows: each slot is drawn in its own window, in one of two styles.
class Windows_Screen : public Preset_Screen {
   public:
    platform::Frame frm_Plotstyle;
    platform::Frame fra_Style{*this, "fra_Style", "Choose Plot Style"};
    platform::ControlArray<platform::OptionButton> opt_Plotstyle{
        *this, "opt_Plotstyle", {{0, "Aligned"}, {1, "Annotated"}}};

    void Form_Activate() override;
    void opt_Plotstyle_Click();
    void cmd_Done_Click() override;

   protected:
    struct Plots {
        const char* aligned;    ///< the screen that draws for itself
        const char* annotated;  ///< the screen with graphs
    };
    Windows_Screen(const std::string& name, const std::string& heading, int windows, Plots plots);

    void Take_Preset() override;
    void Count_Functions() override;
    void Function_Taken() override;

   private:
    Plots plots_;
};

}  // namespace verlink
