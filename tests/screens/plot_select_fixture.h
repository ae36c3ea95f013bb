// What the tests of the selection screens start from: a run of which everything has been computed.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/linkage_model.h"
#include "dynamics/units.h"
#include "output/catalogue.h"
#include "screens/function_screen.h"
#include "shell/initialize.h"
#include "shell/startup.h"
#include "tests/output/catalogue_rows.h"
#include "tests/support/fixture.h"

namespace verlink::test {

class SelectionScreenTest : public Fixture {
   protected:
    SelectionScreenTest() {
        Set_Identity();
        Initialize();
        Use_Units(1);
        Model.NSteps = 4;
        Run_Holds();
        Forces_Hold();
        Balance_Holds();
        Transform_Holds();
        Model.ScreenReturn = true;
    }

    template <class Form>
    static Form& Activated(const char* name) {
        auto& form = dynamic_cast<Form&>(platform::Screens::Get(name));
        form.Form_Activate();
        return form;
    }

    static Function_Slot& Slot(Function_Screen& form, int slot) {
        return *form.Slots.at(static_cast<std::size_t>(slot - 1));
    }
    /// The user's picks in a slot, and its take-over.
    static void Fill(Function_Screen& form, int slot, const std::string& variable, const std::string& component = "") {
        Pick(form, slot, variable);
        Function_Slot& s = Slot(form, slot);
        if (!component.empty()) Choose(s.cmb_Com, component);
        Press(form, s.cmd_OK.Name());
    }
    static void Pick(Function_Screen& form, int slot, const std::string& variable) {
        Function_Slot& s = Slot(form, slot);
        s.cmb_Var.SetFocus();
        Choose(s.cmb_Var, variable);
    }
    static void Choose(platform::ComboBox& box, const std::string& item) {
        for (int index = 0; index < static_cast<int>(box.Items().size()); ++index)
            if (box.Items()[static_cast<std::size_t>(index)] == item) {
                box.Choose(index);
                return;
            }
        ADD_FAILURE() << item << " is not on the list of " << box.Name();
    }
    static void Mix(Preset_Screen& form) { Choose_Option(form, "opt_PrintSet", 1); }

    /// A slot holds that variable, by its number, with that component, and the screen shows so.
    static void Expect_Slot(Function_Screen& form, int slot, int number, const std::string& component) {
        SCOPED_TRACE("slot " + std::to_string(slot));
        const Row& row = kRows[number - 1];
        Function_Slot& s = Slot(form, slot);
        EXPECT_EQ(s.cmb_Var.Text.Get(), row.label);
        EXPECT_EQ(s.cmb_Com.Text.Get(), component);
        EXPECT_EQ(s.lbl_Function.Caption.Get(), row.label);
        EXPECT_EQ(s.lbl_Component.Caption.Get(), component);
        EXPECT_EQ(Model.FuncGroup(slot), row.group);
        if (row.row != kNoRow) {
            EXPECT_EQ(Model.FuncRow(slot), row.row);
        }
        EXPECT_EQ(Model.FuncComponent(slot), Component_Number(component));
        EXPECT_EQ(Model.ComponentLabel(slot), component);
    }
    static int Component_Number(const std::string& component) {
        const std::array<std::string, 4> names{"X", "Y", "Mag", "Ang"};
        for (int number = 0; number < 4; ++number)
            if (names[static_cast<std::size_t>(number)] == component) return number;
        return -1;
    }
    /// No slot can be picked from.
    static void Expect_Locked(Function_Screen& form) {
        for (const auto& slot : form.Slots) {
            EXPECT_FALSE(slot->fra_Function.Enabled);
            EXPECT_FALSE(slot->cmb_Var.Enabled);
            EXPECT_FALSE(slot->cmb_Com.Enabled);
            EXPECT_FALSE(slot->cmd_OK.Enabled);
            EXPECT_FALSE(slot->cmd_Clear.Enabled);
        }
    }
};

}  // namespace verlink::test
