// The least that the selection routines need of a screen.
#pragma once

#include "core/linkage_model.h"
#include "output/catalogue.h"
#include "output/selection.h"
#include "tests/support/fixture.h"

namespace verlink::test {

/// Two slots, presets, coordinates.
struct Chooser : platform::Screen {
    Chooser() : Screen("frm_Chooser") {}
    platform::ControlArray<platform::OptionButton> opt_PrintSet{*this, "opt_PrintSet", {{0, ""}, {1, ""}}};
    platform::Frame fra_Preset{*this, "fra_Preset"};
    platform::ComboBox cmb_Preset{*this, "cmb_Preset"};
    platform::CommandButton cmd_ClearPreset{*this, "cmd_ClearPreset"};
    platform::Frame fra_Function1{*this, "fra_Function1"}, fra_Function2{*this, "fra_Function2"};
    platform::ControlArray<platform::Label> lbl_Var{*this, "lbl_Var", {{0, ""}, {1, ""}}};
    platform::ControlArray<platform::Label> lbl_Comp{*this, "lbl_Comp", {{0, ""}, {1, ""}}};
    platform::ComboBox cmb_Var1{*this, "cmb_Var1"}, cmb_Var2{*this, "cmb_Var2"};
    platform::ComboBox cmb_Com1{*this, "cmb_Com1"}, cmb_Com2{*this, "cmb_Com2"};
    platform::CommandButton cmd_OK1{*this, "cmd_OK1"}, cmd_OK2{*this, "cmd_OK2"};
    platform::CommandButton cmd_Clear1{*this, "cmd_Clear1"}, cmd_Clear2{*this, "cmd_Clear2"};
    platform::Frame fra_coord{*this, "fra_coord"};
    platform::ControlArray<platform::OptionButton> opt_Coord{*this, "opt_Coord", {{0, ""}, {1, ""}}};
    platform::ControlArray<platform::Label> lbl_Function{*this, "lbl_Function", {{0, "a"}, {1, "b"}}};
    platform::ControlArray<platform::Label> lbl_Component{*this, "lbl_Component", {{0, "c"}, {1, "d"}}};
    platform::Label lbl_Coord{*this, "lbl_Coord"};
    platform::CommandButton cmd_Done{*this, "cmd_Done"};
};

struct Selection : Fixture {
    Selection() {
        Load_Catalogue();
        Forces_Hold();
        Balance_Holds();
        for (auto* box : {&screen.cmb_Com1, &screen.cmb_Com2}) Load_Components(screen, *box);
        for (auto* box : {&screen.cmb_Var1, &screen.cmb_Var2}) Load_Variables(screen, *box);
    }
    Chooser screen;
};

}  // namespace verlink::test
