// The hub's menus of examples, cognates and synthesis.
#include "core/linkage_model.h"
#include "core/model_on_screens.h"
#include "core/parameters.h"
#include "core/runs.h"
#include "core/text.h"
#include "core/window_sizes.h"
#include "dynamics/units.h"
#include "platform/guard.h"
#include "screens/frm_homescreen.h"
#include "synthesis/cognates.h"
#include "synthesis/examples.h"

namespace verlink {

namespace {

/// An example has its range as text: its numbers, radians and steps follow, so that they are one range.
void Derive_Range() {
    Model.ThetaStart = Val(Model.ThetaStartStr);
    Model.ThetaEnd = Val(Model.ThetaEndStr);
    Model.ThetaStep = Val(Model.ThetaStepStr);
    Derive_Angle_Limits();
    Model.NSteps = Steps_Of(Model.ThetaStartRad, Model.ThetaEndRad, Model.ThetaStepRad);
}

/// Leads to a screen of synthesis; of two positions by that method.
void Lead_To_Synthesis(platform::MenuEntry& entry, const char* screen, int positions, bool pivots, int method = 0) {
    entry.OnClick = [=, told_as = "frm_Homescreen." + entry.Name()] {
        if (method) Model.SynMethod = method;
        Guarded(told_as, [&] {
            Model.SynPositions = positions;
            Model.SpecifiedPivots = pivots;
            Show_Centered(screen);
        });
    };
}

}  // namespace

/// The numbers of the examples are inches; what they leave of the model before is converted.
void frm_HomeScreen::Use_Inches() {
    const Integer old = Model.Units;
    Use_Units(1);
    // What no number holds in inches keeps its own, which the example replaces for the most part.
    if (old != 1) Convert_Units(old, 1);
    Check_mnu_Units(*this, Model.Units);
}

void frm_HomeScreen::Lead_To_Example(MenuEntry& entry, void (*example)()) {
    entry.OnClick = [this, told_as = "frm_Homescreen." + entry.Name(), example] {
        Guarded(told_as, [&] {
            Use_Inches();
            example();
            Derive_Range();
            Model.Calctype = run::kByAngle;
            Integer Result = kRetrying;
            Crankangle(Result);
            SeedCognate();
            cmd_Input.OnClick();
            Refresh_Status();
            Set_Menus();
        });
    };
}

void frm_HomeScreen::Bind_Synthesis() {
    Lead_To_Example(mnu_Grashof, Testlinkage_old);
    Lead_To_Example(mnu_Hoekens, Hoekens);
    Lead_To_Example(mnu_Roberts, Roberts);
    Lead_To_Example(mnu_Watts, Watts);
    Lead_To_Example(mnu_Cheby, Chebychev);
    mnu_Syntest.OnClick = [this] { mnu_Syntest_Click(); };
    mnu_Cog.On(&MenuEntry::OnClick, [this](int index) { mnu_Cog_Click(index); });
    mnu_Cayley.OnClick = [] {
        Guarded("frm_Homescreen.mnu_Cayley", [] {
            if (!Refuse_Parallelogram()) Show_Centered("frm_Cayley");
        });
    };
    Lead_To_Synthesis(mnu_Twopos1, "frm_Synth2A", 1, false, 1);
    Lead_To_Synthesis(mnu_Twopos2, "frm_Synth2B", 1, false, 2);
    Lead_To_Synthesis(mnu_Unspec, "frm_Synth3", 2, false);
    Lead_To_Synthesis(mnu_Spec, "frm_Synth3", 3, true);
}

void frm_HomeScreen::mnu_Syntest_Click() {
    Guarded("frm_Homescreen.mnu_Syntest", [this] {
        Use_Inches();
        Testlinkagevlnk();
        Derive_Range();
        SeedCognate();
        Model.SpecifiedPivots = true;
        Show_Centered("frm_Synth3");
        Refresh_Status();
        Set_Menus();
    });
}

void frm_HomeScreen::mnu_Cog_Click(int Index) {
    Guarded("frm_Homescreen.mnu_Cog", [this, Index] {
        if (Refuse_Parallelogram()) return;
        Switch_Cognate(Index);
        cmd_Input.OnClick();
    });
}

}  // namespace verlink
