// What happens on the dynamics screen.
#include "screens/frm_massprop.h"

#include <string>
#include <utility>

#include "core/linkage_model.h"
#include "core/model_on_screens.h"
#include "core/results.h"
#include "core/text.h"
#include "core/window_sizes.h"
#include "dynamics/dynacalc.h"
#include "dynamics/mass_properties.h"
#include "dynamics/typed_units.h"
#include "files/exports.h"
#include "platform/guard.h"
#include "screens/edit_menu.h"
#include "screens/frm_matrix.h"
#include "screens/print_questions.h"

namespace verlink {

using platform::CR;

namespace {

constexpr char kOneFriction[] = "; friction acts on link 3 alone";
constexpr char kSolveTip[] = "Solve for the forces and torques at every step with the data shown";
constexpr char kTableTip[] =
    "Solve for the forces and torques at every step with the data shown and the imported torque";
constexpr char kNoRunTip[] = "Calculate the linkage on the input screen first";
constexpr char kNoSolveTip[] = "The torque table came with the file: clear its box, or leave and come back, to solve";

}  // namespace

frm_MassProp::frm_MassProp() : Screen("frm_MassProp") {
    Width() = kWorkWidth;
    Height() = kWorkHeight;
    Write_Tips();
    for (Boxes* boxes : {&txt_MagForce, &txt_AngForce, &txt_DistP, &txt_AngP, &txt_Torque, &txt_Frict}) {
        (*boxes)[2].Enabled = false;
        const char* why = boxes == &txt_Frict ? kOneFriction : "; link 2 carries no external loads";
        (*boxes)[2].Tip = (*boxes)[2].Tip.Get() + why;
    }
    txt_Frict[4].Enabled = false;
    txt_Frict[4].Tip = txt_Frict[4].Tip.Get() + kOneFriction;
    const std::pair<Boxes*, Quantity> kinds[] = {{&txt_Mass, Quantity::kMass},      {&txt_Inertia, Quantity::kInertia},
                                                 {&txt_DistCG, Quantity::kLength},  {&txt_AngCG, Quantity::kAngle},
                                                 {&txt_MagForce, Quantity::kForce}, {&txt_AngForce, Quantity::kAngle},
                                                 {&txt_DistP, Quantity::kLength},   {&txt_AngP, Quantity::kAngle},
                                                 {&txt_Torque, Quantity::kTorque},  {&txt_Frict, Quantity::kForce}};
    for (const auto& [boxes, quantity] : kinds)
        for (const auto& box : *boxes) {
            Reads_As(*box, Model, quantity, {.grouped = true, .strict = boxes == &txt_Frict});
            box->OnGotFocus = [entry = box.get()] { entry->SelectAll(); };
            box->Text.Event = [this] { Box_Change(); };
        }
    chk_Torque.OnClick = [this] { chk_Torque_Click(); };
    cmd_Solve.OnClick = [this] { cmd_Solve_Click(); };
    cmd_Matrix.OnClick = [this] { cmd_Matrix_Click(); };
    cmd_Print.OnClick = [this] { Print_Form(*this, CommonDialog1, "frm_MassProp.cmd_Print"); };
    cmd_Copy.OnClick = [] { Tell_How_To_Copy(); };
    cmd_Cancel.OnClick = [this] { cmd_Cancel_Click(); };
    cmd_Done.OnClick = [this] { cmd_Done_Click(); };
    cmd_Print.Keys = "Ctrl+P";
    OnDrop = [this](const std::string& path) { Drop(path); };
    DefaultButton = &cmd_Solve;
    Serve_Undo(*this, [this] { Show_Model(); });
}

void frm_MassProp::Write_Tips() {
    const auto tip = [](Boxes& boxes, const std::string& before, const std::string& behind) {
        for (const auto& box : boxes) box->Tip = before + std::to_string(box->Index()) + behind;
    };
    tip(txt_Mass, "Mass of link ", ", in the unit at the end of the row");
    tip(txt_Inertia, "Mass moment of inertia of link ", " about its mass centre, in the unit at the end of the row");
    tip(txt_DistCG, "Distance from the pivot of link ", " to its mass centre, a length");
    tip(txt_AngCG, "Angle from the line of centers of link ", " to its mass centre, degrees");
    tip(txt_MagForce, "Magnitude of the constant external force on link ", ", in the unit at the end of the row");
    tip(txt_AngForce, "Direction of the external force on link ", " in the global frame, degrees");
    tip(txt_DistP, "Distance from the mass centre of link ", " to the point where the force acts, a length");
    tip(txt_AngP, "Angle from the line of centers of link ", " to the direction of the force point, degrees");
    tip(txt_Torque, "External torque on link ", ", in the unit at the end of the row");
    tip(txt_Frict, "Friction force on link ", " against the motion of the coupler point, in the unit at the end");
    chk_Torque.Tip = "The torque on link 4 follows the table of a file, step by step";
    cmd_Solve.Tip = kSolveTip;
    cmd_Matrix.Tip = "Show the equations of the first position; solve first";
    cmd_Print.Tip = "Print this screen; solve first";
    cmd_Copy.Tip = "How to copy this screen to the clipboard; solve first";
    cmd_Cancel.Tip = "Go back; what was typed since the last solution waits here";
    cmd_Done.Tip = "Leave for the home screen with the solution; solve first";
}

void frm_MassProp::Allow_Results(bool allowed) {
    for (platform::CommandButton* button : {&cmd_Done, &cmd_Matrix, &cmd_Copy, &cmd_Print}) button->Enabled = allowed;
}

void frm_MassProp::Show_Units() {
    lbl_MassUnit.Caption = Model.UnitLabel(14);
    lbl_InertiaUnit.Caption = Model.UnitLabel(15);
    lbl_TorqueUnit.Caption = Model.UnitLabel(9);
    for (const auto& label : Lbl_DistUnit) label->Caption = Model.UnitLabel(6);
    for (const auto& label : lbl_ForceUnit) label->Caption = Model.UnitLabel(10);
    for (const auto& label : lbl_AngUnit) label->Caption = Model.UnitLabel(1);
}

void frm_MassProp::Form_Activate() {
    Guarded("frm_MassProp.Activate", [this] {
        Fit_Screen(*this, kWorkWidth, kWorkHeight);
        cmd_Solve.Enabled = true;
        Write_Solve_Tip();
        Titlebox(*this);
        Put_Mass_Properties(*this, Model, Model);
        Show_Units();
        Allow_Results(false);
        chk_Torque.Value = Model.TorqueImported;
        // Nothing typed is lost by going back now.
        CancelButton = &cmd_Cancel;
        typed_.Put_Back();
        txt_Mass[2].SetFocus();
        Take_Brought_Table();
    });
}

void frm_MassProp::Take_Brought_Table() {
    const std::string path = brought_;
    if (path.empty()) return;
    if (Model.TorqueImported) {
        const bool solvable = cmd_Solve.Enabled;
        Model.TorqueImported = false;  // until the other one is there
        Import_Torque(4, path);
        if (Model.TorqueImported) {
            Forces_Dropped();
            Allow_Results(false);
            Refresh_Status();
        } else {
            Model.TorqueImported = true;
            chk_Torque.Value = true;
            cmd_Solve.Enabled = solvable;
        }
        Write_Solve_Tip();
    } else {
        chk_Torque.Value = true;
    }
    brought_.clear();
}

void frm_MassProp::Drop(const std::string& path) {
    Guarded("frm_MassProp.Drop", [&] {
        if (!path.ends_with(".trq") && !path.ends_with(".TRQ")) {
            platform::Tell("Only a table of torques (.trq) can be taken here.", platform::Icon::kInformation);
            return;
        }
        Bring_Torque(path);
        Take_Brought_Table();
    });
}

void frm_MassProp::Show_Model() {
    Guarded("frm_MassProp.Show_Model", [this] {
        Titlebox(*this);
        Show_Units();
        chk_Torque.Value = Model.TorqueImported;
        Put_Mass_Properties(*this, Model, Model);
        // A table that the user has brought in is solved with; one that a file has brought is looked at.
        cmd_Solve.Enabled = Model.RunStands && !(Model.TorqueImported && Model.DiskFile);
        Write_Solve_Tip();
        if (!Model.RunStands) cmd_Solve.Tip = kNoRunTip;
        Allow_Results(false);
        Refresh_Status();
        CancelButton = &cmd_Cancel;
    });
}

void frm_MassProp::Box_Change() {
    Allow_Results(false);
    CancelButton = nullptr;
}

void frm_MassProp::chk_Torque_Click() {
    Guarded("frm_MassProp.chk_Torque", [this] {
        const bool imported = Model.TorqueImported;
        txt_Torque[4].Enabled = !chk_Torque.Value;
        cmd_Solve.Enabled = !chk_Torque.Value;
        if (chk_Torque.Value) {
            Take_Torque_Table();
        } else {
            txt_Torque[4].Text = Text_Of(Model.ExtTorque(4));
            Model.TorqueImported = false;
        }
        Write_Solve_Tip();
        if (Model.TorqueImported == imported) return;
        // The forces were those of the other torque.
        Forces_Dropped();
        Model_Unsaved();
        Allow_Results(false);
        Refresh_Status();
    });
}

void frm_MassProp::Take_Torque_Table() {
    platform::TextBox& torque = txt_Torque[4];
    const std::string shown = torque.Text;
    const bool typed = torque.Touched();
    const bool solved = cmd_Done.Enabled;
    platform::CommandButton* const cancel = CancelButton;
    torque.Text = "0";
    if (Model.TorqueImported) {
        // A model from disk has brought its table along, and solving waits.
        cmd_Solve.Enabled = !Model.DiskFile;
        return;
    }
    Import_Torque(4, brought_);
    if (Model.TorqueImported) return;
    // Nothing came of it: all is as it was.
    chk_Torque.Value = false;
    if (typed)
        torque.Type(shown);
    else
        torque.Text = shown;
    Allow_Results(solved);
    CancelButton = cancel;
}

void frm_MassProp::Write_Solve_Tip() {
    cmd_Solve.Tip = !cmd_Solve.Enabled ? kNoSolveTip : Model.TorqueImported ? kTableTip : kSolveTip;
}

void frm_MassProp::cmd_Solve_Click() {
    Guarded("frm_MassProp.cmd_Solve", [this] {
        platform::The_Desktop().Set_Pointer(platform::Pointer::kHourglass);
        MassProperties typed = Model;
        Get_Mass_Properties(*this, typed, Model);
        static_cast<MassProperties&>(Model) = typed;
        Forces_Dropped();
        const ForceSolve solve = Solve_Forces(Model);
        if (solve.first) PrintAmatrix(solve.first->A, solve.first->C);
        // The imported table takes its place.
        if (Model.TorqueImported) Model.ExtTorque(4) = 0;
        for (platform::Control* control : Controls())
            if (auto* box = dynamic_cast<platform::TextBox*>(control)) box->Settle();
        Allow_Results(true);
        CancelButton = &cmd_Cancel;
        cmd_Done.SetFocus();
        platform::The_Desktop().Set_Pointer(platform::Pointer::kDefault);
        Model_Unsaved();
        Refresh_Status();
    });
}

void frm_MassProp::cmd_Matrix_Click() {
    Guarded("frm_MassProp.cmd_Matrix", [] { Show_Centered("frm_Matrix"); });
}

void frm_MassProp::cmd_Cancel_Click() {
    Form_Unload();
    Hide();
}

void frm_MassProp::Form_Unload() {
    typed_.Keep(*this, [this] { Put_Mass_Properties(*this, Model, Model); });
}

void frm_MassProp::cmd_Done_Click() {
    Model.ScreenReturn = true;
    Hide();
}

void frm_MassProp::Forcehelp() {
    platform::Tell(std::string(" You must resolve the link's external force system to a") + CR +
                   " single force acting at some point with respect to each link's CG." + CR +
                   " That force will be considered to be constant and non-rotating" + CR +
                   " at a fixed angle with respect to the global coordinate system");
    platform::Tell(std::string(" You must also define the Position Vector (Mag and Angle) from ") + CR +
                   " the link CG to the point of application of the force on that link. " + CR +
                   " Note that this angle is referenced to the link's embedded, rotating " + CR +
                   " local coordinate system whose X axis lies along its line of centers");
    platform::Tell(std::string(" There may also be an external torque on the link, independent of ") + CR +
                   " the external forces");
}

}  // namespace verlink
