// The events that the screens of function slots share.
#include "screens/function_screen.h"

#include <algorithm>

#include "core/linkage_model.h"
#include "core/window_sizes.h"
#include "output/selection.h"
#include "platform/guard.h"
#include "screens/help_documents.h"

namespace verlink {

namespace {

/// A control without a name is no part of the screen.
std::string If(bool there, const char* name) { return there ? name : ""; }

}  // namespace

Function_Slot::Function_Slot(platform::Screen& owner, int slot, Parts parts)
    : fra_Function(owner, "fra_Function" + std::to_string(slot), "Function " + std::to_string(slot)),
      lbl_Var(owner, "lbl_Var", "Variable", slot - 1),
      cmb_Var(owner, "cmb_Var" + std::to_string(slot)),
      lbl_Comp(owner, If(parts == Parts::kVariableAndComponent, "lbl_Comp"), "Component", slot - 1),
      cmb_Com(owner, parts == Parts::kVariableAndComponent ? "cmb_Com" + std::to_string(slot) : ""),
      cmd_OK(owner, "cmd_OK" + std::to_string(slot), "OK"),
      cmd_Clear(owner, "cmd_Clear" + std::to_string(slot), "&Clear"),
      fra_Plot(owner, "fra_Plot", "Plot " + std::to_string(slot), slot - 1),
      lbl_Function(owner, "lbl_Function", "", slot - 1),
      lbl_Component(owner, "lbl_Component", "", slot - 1) {}

Function_Screen::Function_Screen(const std::string& name, int slots, Function_Slot::Parts parts,
                                 const std::string& cancelName)
    : Screen(name), cmd_Cancel(*this, cancelName, "< &Back") {
    Width() = kWorkWidth;
    Height() = kWorkHeight;
    for (int slot = 1; slot <= slots; ++slot) Slots.push_back(std::make_unique<Function_Slot>(*this, slot, parts));
    for (int slot = 2; slot <= slots; ++slot) Slot(slot).fra_Function.Enabled = false;
    opt_Coord[0].Value = true;
    cmd_Done.Enabled = false;
    DefaultButton = &cmd_Done;
    CancelButton = &cmd_Cancel;
    Write_Tips();
    Bind(parts == Function_Slot::Parts::kVariableOnly ? "vectors that have been computed"
                                                      : "variables that have been computed");
}

void Function_Screen::Write_Tips() {
    for (const auto& slot : Slots) {
        slot->cmb_Var.Tip = "The variable, of those that have been computed";
        slot->cmb_Com.Tip = "X, Y, magnitude or angle of the variable; a scalar has its magnitude only";
        slot->cmd_OK.Tip = "Take this function over";
        slot->cmd_Clear.Tip = "Clear this function";
    }
    opt_Coord[0].Tip = "Vectors in the global frame";
    opt_Coord[1].Tip = "Vectors in the frame that turns with a link";
    cmd_Cancel.Tip = "Go back";
    cmd_Done.Tip = "Go on with the functions chosen";
    Offer_Last_Selection();
}

void Function_Screen::Bind(const char* variables) {
    for (int number = 1; number <= SlotCount(); ++number) {
        Function_Slot& slot = Slot(number);
        for (platform::ComboBox* box : {&slot.cmb_Var, &slot.cmb_Com}) box->OnGotFocus = [box] { box->SelectAll(); };
        slot.cmb_Var.OnClick = [this, number] { cmb_Var_Click(number); };
        slot.cmb_Var.OnDblClick = [this, number] { cmb_Var_DblClick(number); };
        slot.cmb_Com.OnClick = [this, number] { cmb_Com_Click(number); };
        slot.cmd_OK.OnClick = [this, number] { cmd_OK_Click(number); };
        slot.cmd_Clear.OnClick = [this, number] { cmd_Clear_Click(number); };
        Look_Up(slot.cmb_Var, variables, {&slot.cmd_Clear, &cmd_Cancel});
        Look_Up(slot.cmb_Com, "components", {&slot.cmd_Clear, &cmd_Cancel});
    }
    cmd_Cancel.OnClick = [this] { cmd_Cancel_Click(); };
    cmd_Done.OnClick = [this] { Go_On(); };
    mnu_Help.OnClick = [this] { Show_Help(Screen_Help_Document(Caption()), Name() + ".mnu_Help"); };
    cmd_Last.OnClick = [this] { cmd_Last_Click(); };
}

void Function_Screen::Look_Up(platform::ComboBox& box, const char* what,
                              std::vector<const platform::Control*> ways_out) {
    Choices.push_back(std::make_unique<Listed_Choice>(box, what, std::move(ways_out)));
}

void Function_Screen::Forget_Choices() {
    for (const auto& choice : Choices) choice->Forget();
}

bool Function_Screen::Resolve_Slot(int slot) {
    const auto at = static_cast<std::size_t>(2 * (slot - 1));
    return Choices.at(at)->Resolve() && Choices.at(at + 1)->Resolve();
}

/// By Return a box is not left before.
void Function_Screen::Go_On() {
    for (const auto& choice : Choices)
        if (!choice->Settle()) return;
    Keep_Selection(*this);
    cmd_Done_Click();
}

int Function_Screen::Filled() const {
    return static_cast<int>(std::count_if(Slots.begin(), Slots.end(),
                                          [](const auto& slot) { return !slot->lbl_Function.Caption.Get().empty(); }));
}

void Function_Screen::Pick_Variable(int slot) {
    Variable_Picked(*this, Slot(slot).cmb_Var, Slot(slot).cmb_Com, &Slot(slot).cmd_OK, slot);
}

void Function_Screen::Take_Slot(int slot) {
    Select_OK(*this, Slot(slot).cmb_Var, Slot(slot).cmb_Com, &Slot(slot).cmd_OK, slot);
}

void Function_Screen::Take_Coordinates() { Model.CoordSystem = opt_Coord[1].Value ? 2 : 0; }

void Function_Screen::Reset_Coordinates() {
    Toggle_Coordinate(*this, false);
    opt_Coord[0].Value = true;
}

void Function_Screen::cmb_Var_Click(int slot) {
    Guarded(Name() + ".cmb_Var", [&] { Pick_Variable(slot); });
}

bool Function_Screen::Pick_By_Name(int slot) {
    if (Slot(slot).cmb_Var.Text.Get().empty() || !Resolve_Slot(slot)) return false;
    cmb_Var_Click(slot);
    return true;
}

void Function_Screen::cmb_Com_Click(int slot) {
    Guarded(Name() + ".cmb_Com", [&] { Component_Picked(*this, Slot(slot).cmb_Com, &Slot(slot).cmd_OK, slot); });
}

void Function_Screen::cmd_OK_Click(int slot) {
    Guarded(Name() + ".cmd_OK", [&] {
        if (!Resolve_Slot(slot)) return;
        Take_Slot(slot);
        if (slot < SlotCount()) {
            Function_Slot& next = Slot(slot + 1);
            next.fra_Function.Enabled = true;
            next.cmb_Var.Enabled = true;
            next.lbl_Var.Enabled = true;
            next.lbl_Comp.Enabled = true;
            next.cmb_Com.Enabled = true;
            next.cmb_Var.SetFocus();
            if (!next.cmb_Var.Text.Get().empty()) next.cmd_OK.Enabled = true;
        }
        Toggle_Coordinate(*this, Model.CoordFunction);
        Count_Functions();
    });
}

void Function_Screen::cmd_Clear_Click(int slot) {
    Guarded(Name() + ".cmd_Clear", [&] {
        Function_Slot& cleared = Slot(slot);
        cleared.cmb_Var.Text = "";
        cleared.cmb_Com.Text = "";
        cleared.cmb_Com.Enabled = true;
        Forget_Choices();
        cleared.lbl_Function.Caption = "";
        cleared.lbl_Component.Caption = "";
        cleared.cmd_OK.Enabled = false;
        cmd_Done.Enabled = true;
        Count_Functions();
    });
}

void Function_Screen::cmd_Cancel_Click() {
    Guarded(Name() + "." + cmd_Cancel.Name(), [&] {
        Hide();
        Show_Centered("frm_PlotType");
    });
}

}  // namespace verlink
