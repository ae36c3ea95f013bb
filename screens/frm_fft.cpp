// The transform screen.
#include "screens/frm_fft.h"

#include <algorithm>

#include "core/linkage_model.h"
#include "core/results.h"
#include "core/text.h"
#include "core/window_sizes.h"
#include "output/catalogue.h"
#include "output/output_axis.h"
#include "output/selection.h"
#include "output/table_sheet.h"
#include "output/transform.h"
#include "platform/guard.h"
#include "screens/help_documents.h"
#include "screens/plot_tips.h"
#include "screens/print_questions.h"
#include "screens/style_boxes.h"

namespace verlink {

using platform::CRLF;
using platform::Icon;

namespace {
constexpr int kFirstHarmonics = 15;
}

frm_FFT::frm_FFT() : Screen("frm_FFT") {
    mnu_Help.OnClick = [] { Show_Help(Help_Document("mnu_FFTHelp"), "frm_FFT.mnu_Help"); };
    cmb_Var1.OnClick = [this] { cmb_Var1_Click(); };
    cmb_Com1.OnClick = [this] { cmb_Com1_Click(); };
    const std::vector<const platform::Control*> ways_out{&cmd_Clear1, &cmd_Cancel};
    variable_ = std::make_unique<Listed_Choice>(cmb_Var1, "variables that have been computed", ways_out);
    component_ = std::make_unique<Listed_Choice>(cmb_Com1, "components", ways_out);
    cmb_Harmonics.OnClick = [this] { cmb_Harmonics_Click(); };
    cmb_Harmonics.OnLostFocus = [this] { cmb_Harmonics_LostFocus(); };
    cmd_Calc.OnClick = [this] { cmd_Calc_Click(); };
    cmd_Clear1.OnClick = [this] { cmd_Clear1_Click(); };
    cmd_Done.OnClick = [this] { cmd_Done_Click(); };
    cmd_Cancel.OnClick = [this] { cmd_Cancel_Click(); };
    cmd_Print.OnClick = [this] { Print_Form(*this, CommonDialog1, "frm_FFT.Print"); };
    cmd_Print.Keys = "Ctrl+P";
    cmd_Copy.OnClick = [] { Tell_How_To_Copy(); };
    chk_Sticks.Value = true;
    for (auto* box : {&chk_HGrid, &chk_VGrid}) box->OnClick = [this] { Redraw(); };
    Keep_One(chk_Line, chk_Sticks, [this] { Redraw(); });
    DefaultButton = &cmd_Calc;
    CancelButton = &cmd_Cancel;
    for (const auto& graph : grf_Plot) graph->Tip = std::string("The transform, with its values") + kPlotHand;
    cmb_Var1.Tip = "The function to transform";
    cmb_Com1.Tip = "Its component: X, Y, magnitude or angle";
    cmb_Harmonics.Tip = "How many harmonics to show, at most half the number of steps";
    cmd_Clear1.Tip = "Clear the function and its transform";
    cmd_Calc.Tip = "Transform the function";
    chk_HGrid.Tip = "Horizontal grid lines";
    chk_VGrid.Tip = "Vertical grid lines";
    chk_Line.Tip = "Join the harmonics by a line; the last of these two boxes stays ticked";
    chk_Sticks.Tip = "Draw each harmonic from the axis; the last of these two boxes stays ticked";
    cmd_Print.Tip = "Print this screen; calculate first";
    cmd_Copy.Tip = "How to copy this screen to the clipboard; calculate first";
    cmd_Cancel.Tip = "Go back and drop the transform";
    cmd_Done.Tip = "Calculate first";
    Form_Load();
}

void frm_FFT::Form_Load() {
    Guarded("frm_FFT_Form_Load", [this] {
        Load_Components(*this, cmb_Com1);
        cmb_Com1.Text = "X";
        Set_Component("X", 1);
        cmb_Harmonics.Text = Text_Of(kFirstHarmonics);
        Model.Harmonics = kFirstHarmonics;
        const char* titles[] = {"Real", "Imaginary", "Magnitude", "Phase"};
        for (int i = 0; i <= 3; ++i) grf_Plot[i].GraphTitle = titles[i];
    });
}

void frm_FFT::Form_Activate() {
    Guarded("frm_FFT_Form_Activate", [this] {
        Fit_Screen(*this, kWorkWidth, kWorkHeight);
        Transform_Dropped();
        cmd_Done.Enabled = false;
        cmd_Print.Enabled = false;
        cmd_Copy.Enabled = false;
        clearing_ = true;
        Load_Variables(*this, cmb_Var1);
        cmb_Var1.Choose(-1);
        clearing_ = false;
        Model.CoordSystem = 0;  // of a plot before; vectors are transformed in the global frame
        Model.PlotStyle = 5;
        Model.GraphWindows = 4;
        Model.PlotCount = 1;
        variable_->Forget();
        component_->Forget();
        Fill_Harmonics();
        // A number that stands there for a longer run is nobody's wish for this one.
        if (Read_Harmonics()) cmb_Harmonics.Text = Text_Of(Model.Harmonics);
        Clear_Results(Model.NSteps / 2);
        Redraw();
        Model.FFTSelecting = true;
        lbl_Header2.Caption = "";
    });
}

void frm_FFT::Form_Unload() {
    Model.FFTSelecting = false;
    Transform_Dropped();
}

void frm_FFT::Fill_Harmonics() {
    cmb_Harmonics.Clear();
    const Integer half = Model.NSteps / 2.0;
    cmb_Harmonics.AddItem(Text_Of(half));
    for (int i = 2; half / i >= 3; ++i)
        if (half % i == 0) cmb_Harmonics.AddItem(Text_Of(half / i));
}

void frm_FFT::Clear_Results(int last) {
    for (int i = 0; i <= last; ++i)
        for (int row = 0; row <= 3; ++row) {
            Model.FFTResult(i, row) = 0;
            Model.DFTTable(i, row) = 0;
        }
}

void frm_FFT::Redraw() {
    FFT_Plot_Setup(*this);
    FFT_Plot(*this);
}

bool frm_FFT::Read_Harmonics() {
    const Integer half = std::max(Model.NSteps / 2.0, 0.0);
    const double wished = Val(cmb_Harmonics.Text.Get());
    Model.Harmonics = std::clamp(wished, 0.0, static_cast<double>(half));
    return wished > half;
}

bool frm_FFT::Harmonics_Good() {
    const bool cut = Read_Harmonics();
    if (Model.Harmonics <= 0) {
        platform::Tell(" Must set the number of harmonics to a value > 0");
        return false;
    }
    if (cut) {
        cmb_Harmonics.Text = Text_Of(Model.Harmonics);
        platform::Tell(std::string("Number of harmonics cannot exceed 1/2 the number of data points available.") +
                       CRLF + "If you want more bandwidth, recalculate all data with smaller increments. " + CRLF +
                       "Use the [INPUT] button from the Home Screen to do so.");
    }
    return true;
}

bool frm_FFT::Function_Good() {
    if (!cmb_Var1.Text.Get().empty()) return true;
    platform::Tell(" Please select a function for FFT calculation");
    return false;
}

void frm_FFT::cmb_Var1_Click() {
    if (clearing_) return;
    const std::string function = cmb_Var1.Text;
    if (Function_Good()) {
        lbl_Header2.Caption = "Fourier Transform of  " + function;
        cmd_Calc_Click();
    } else {
        Clear_Results(Model.NSteps);
        Redraw();
        cmb_Var1.SetFocus();
    }
}

void frm_FFT::cmb_Com1_Click() {
    if (!clearing_) cmd_Calc_Click();
}

void frm_FFT::cmb_Harmonics_Click() {
    Guarded("cmb_Harmonics_Click", [this] {
        if (Harmonics_Good() && !cmb_Var1.Text.Get().empty()) Redraw();
    });
}

void frm_FFT::cmb_Harmonics_LostFocus() {
    Guarded("cmb_Harmonics_LostFocus", [this] {
        const Integer before = Model.Harmonics;
        const bool leaves = Focus() == &cmd_Cancel;
        if (leaves || cmb_Harmonics.Text.Get() == Text_Of(before)) return;
        cmb_Harmonics_Click();
        if (Model.Harmonics > 0) return;
        Model.Harmonics = before;
        cmb_Harmonics.Text = Text_Of(before);
    });
}

void frm_FFT::cmd_Calc_Click() {
    Guarded("frm_FFT_cmb_Calc_Click", [this] {
        if (!Harmonics_Good()) {
            cmb_Harmonics.Text = "";
            return;
        }
        if (!variable_->Resolve() || !component_->Resolve() || !Function_Good()) return;
        Select_Variable(cmb_Var1.Text, 1);
        Set_Component(cmb_Com1.Text, 1);
        Model.FFTUnitLabel = Variable_Unit(1);
        Do_DFT(Model.NSteps);
        Transform_Holds();
        Redraw();
        cmd_Done.Enabled = true;
        cmd_Print.Enabled = true;
        cmd_Copy.Enabled = true;
        cmd_Done.SetFocus();
    });
}

std::optional<Table_To_Save> frm_FFT::Transform_Table() {
    if (!Model.FFTDone) {
        platform::Tell("There is no transform to be saved. Calculate one first.", Icon::kInformation);
        return {};
    }
    std::string function = cmb_Var1.Text;
    if (!Model.ScalarFunction) function += " " + cmb_Com1.Text.Get();
    return Table_Of_The_Model("transform", 1,
                              [function](int) { return Transform_Sheet(Model, function, Model.Harmonics); });
}

void frm_FFT::cmd_Clear1_Click() {
    clearing_ = true;
    cmb_Var1.Choose(-1);
    lbl_Header2.Caption = "";
    Clear_Results(Model.NSteps);
    Transform_Dropped();
    Redraw();
    cmd_Done.Enabled = false;
    clearing_ = false;
}

void frm_FFT::cmd_Done_Click() {
    Model.FFTSelecting = false;
    platform::Tell(std::string(" The FFT of the selected function is ") + CRLF + " now available for output as " +
                       CRLF + " 'Current FFT' from the Preset Format" + CRLF + " lists on the PRINT and PLOT screens",
                   Icon::kInformation);
    Hide();
}

void frm_FFT::cmd_Cancel_Click() {
    Form_Unload();
    Hide();
}

}  // namespace verlink
