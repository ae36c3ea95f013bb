// Opening a model from a file's content: recognition, the values that follow from the file's, and the screens.
#include <cmath>
#include <utility>

#include "core/numeric.h"
#include "core/runs.h"
#include "core/screen_geometry.h"
#include "core/status_panel.h"
#include "core/text.h"
#include "dynamics/mass_properties.h"
#include "dynamics/units.h"
#include "files/model_file.h"
#include "platform/desktop.h"
#include "platform/guard.h"

namespace verlink {

using namespace platform;

namespace {

constexpr char kTag[] = "VERLINK";
constexpr char kInput[] = "frm_Inputnew";

enum class Reading { kForeign, kPartly, kWhole };

/// False, with a message, for a file that is none of the program's.
bool Recognise(TextReader& reader) {
    Model.FileTag = reader.String();
    const bool own = Model.FileTag.starts_with(kTag);
    // A foreign file of a single line is refused for what it is, not for being short.
    if (own || !reader.AtEnd()) Model.FileRev = reader.String();
    if (!own) Tell("This data file is not compatible with " + Model.ProgramCaps + ". ", Icon::kQuestion);
    return own;
}

Reading Read_Model(const std::string& content, const std::function<void()>& amend) {
    Reading reading = Reading::kForeign;
    Guarded("Readfile", [&] {
        Model.DiskFile = true;
        TextReader reader(content);
        if (!Recognise(reader)) return;
        reading = Reading::kPartly;
        const bool whole = Read_Newfile(reader);
        if (amend) amend();
        Derive_From_File();
        if (whole) reading = Reading::kWhole;
    });
    return reading;
}

void Show_Text(const char* box, int index, const std::string& text) {
    With<TextBox>(kInput, box, index, [&](TextBox& found) { found.Text = text; });
}

/// Puts an option on without its click: the values it would take over are in the model already, and the boxes it
/// would take them from are not all filled yet.
void Choose_Silently(const char* option, int index) {
    With<OptionButton>(kInput, option, index, [](OptionButton& found) {
        const auto click = std::exchange(found.OnClick, nullptr);
        found.Value = true;
        found.OnClick = click;
    });
}

void Fill_Input_Screen() {
    const Single* const lengths[] = {&Model.L1, &Model.L2, &Model.L3, &Model.L4, &Model.Rpa};
    for (int i = 0; i < 5; ++i) Show_Text("txt_Linkout", i, FNRoundStr(*lengths[i], 3));
    Show_Text("txt_Linkout", 5, FNRoundStr(Model.Delta, 2));
    Show_Text("txt_Linkout", 6, FNRoundStr(Model.Link1Angle, 2));
    Show_Text("txt_initial", 0, Model.ThetaStartStr);
    Show_Text("txt_initial", 1, Model.ThetaEndStr);
    Show_Text("txt_initial", 2, Model.ThetaStepStr);
    Show_Text("txt_initial", 3, Text_Of(Model.Omega2Input));
    Show_Text("txt_initial", 4, Text_Of(Model.Alpha2));
    Show_Text("txt_Thetazero", kNoIndex, Text_Of(Model.ThetaZero));
    if (Model.Calctype < 4) Choose_Silently("opt_Calctype", Model.Calctype);
    Choose_Silently("opt_OpenCross", Model.CircuitIndex == 1 ? 0 : 1);
}

double Angle_Of(const std::string& text, Single& degrees) {
    degrees = Val(text);
    return degrees * kDegToRad;
}

}  // namespace

void Derive_From_File() {
    Model.DiskFile = true;
    Model.Calculated = false;
    if (Model.Units < 1) Model.Units = 1;
    Use_Units(Model.Units);
    Set_Delta(Model.Delta, Model.DeltaRad, Model.DeltaStr);
    LoadLinkArray();
    if (Model.CircuitIndex == 1) {
        // The name is left as it was: a crossed model before an open one still reads "Crossed".
        Model.CircuitSign = -1;
    } else {
        Model.CircuitSign = 1;
        Model.CircuitName = "Crossed";
    }
    if (Model.Units > 5 || Model.Calctype < 1 || Model.Calctype > 5) Raise(kSubscript);
    Model.ThetaStartRad = Angle_Of(Model.ThetaStartStr, Model.ThetaStart);
    Model.ThetaEndRad = Angle_Of(Model.ThetaEndStr, Model.ThetaEnd);
    Model.ThetaStepRad = Angle_Of(Model.ThetaStepStr, Model.ThetaStep);
    if (Model.Calctype == 2 && Model.TimeStep > 0.0)
        Model.NSteps = Steps_Of(Model.TimeStart, Model.TimeEnd, Model.TimeStep);
    if (Model.Calctype == 3 &&
        Single(0.98 * Model.ThetaStepRad) < Single(std::abs(Model.ThetaEndRad - Model.ThetaStartRad)))
        Model.NSteps = Steps_Of(Model.ThetaStartRad, Model.ThetaEndRad, Model.ThetaStepRad);
}

bool Load_Model(const std::string& content, const std::function<void()>& amend) {
    return Read_Model(content, amend) == Reading::kWhole;
}

void Readfile(const std::string& content) {
    const Reading reading = Read_Model(content, {});
    if (reading == Reading::kForeign) return;
    Guarded("Readfile", [&] {
        Fill_Input_Screen();
        if (Screen* masses = Screens::Find("frm_MassProp")) Put_Mass_Properties(*masses, Model, Model);
        if (Screen* home = Screens::Find("frm_HomeScreen")) Check_mnu_Units(*home, Model.Units);
        Refresh_Status();
        Set_Menus();
        The_Desktop().Set_Pointer(Pointer::kDefault);
        if (reading != Reading::kWhole || Model.JustStarted) return;
        Tell("File " + Model.FilePath + " successfully read.", Icon::kInformation);
        Show_Centered(kInput);
    });
}

}  // namespace verlink
