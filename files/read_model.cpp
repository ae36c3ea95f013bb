// Opening a model from a file's content: recognition, the values that follow from the file's, and the screens.
#include <algorithm>
#include <cmath>
#include <memory>
#include <string>

#include "core/linkage_door.h"
#include "core/model_on_screens.h"
#include "core/numeric.h"
#include "core/runs.h"
#include "core/text.h"
#include "core/window_sizes.h"
#include "dynamics/mass_properties.h"
#include "dynamics/units.h"
#include "files/in_hand.h"
#include "files/model_file.h"
#include "files/recent_files.h"
#include "files/task_file.h"
#include "platform/desktop_services.h"
#include "platform/guard.h"

namespace verlink {

using namespace platform;

namespace {

constexpr char kTag[] = "VERLINK";
constexpr char kInput[] = "frm_Inputnew";

bool Is_Own(const std::string& tag) { return tag.starts_with(kTag); }

/// False, with a message, for a file that is none of the program's.
bool Recognise(TextReader& reader, LinkageModel& record) {
    bool own = false;
    const long failure = Failure_Of([&] {
        record.FileTag = reader.String();
        own = Is_Own(record.FileTag);
        // A foreign file of a single line is refused for what it is, not for being short.
        if (own || !reader.AtEnd()) record.FileRev = reader.String();
    });
    // What is too long for any value of the program's is none of them.
    if (failure != 0 && (own || failure != kOverflow)) Raise(failure);
    if (!own) Tell("This data file is not compatible with " + Model.ProgramCaps + ". ", Icon::kQuestion);
    return own;
}

/// Of a file of tasks that cannot be read the user hears when the model stands.
void Keep_In_Mind(const Tasks_Found& beside, const std::string& path) {
    Document& document = *Document_In_Hand();
    if (beside.fault.empty())
        document.tasks = beside.text;
    else
        document.tasks_left = Tasks_Path(path);
}

void Tell_Of_Unread_Tasks(const std::string& path) {
    if (Document_In_Hand()->tasks_left.empty()) return;
    const Tasks_Found beside = Find_Tasks(path);
    Tell("The tasks beside this model cannot be read: " + beside.fault + ". " + CR + Tasks_Path(path) +
             " stays as it is.",
         Icon::kExclamation);
}

bool Read_Model(const std::string& content, const std::string& path, const std::function<void(LinkageModel&)>& amend) {
    bool whole = false;
    Guarded("Readfile", [&] {
        const auto record = std::make_unique<LinkageModel>(Model);
        TextReader reader(content);
        if (!Recognise(reader, *record) || !Read_Newfile(reader, *record)) return;
        if (amend) amend(*record);
        if (!path.empty()) {
            record->FilePath = path;
            record->ModelName = StripFilename(path);
        }
        Tasks_Found beside;
        if (!path.empty()) beside = Find_Tasks(path);
        static_cast<Tasks&>(*record) = beside.tasks;
        record->Units = std::max<int>(record->Units, 1);
        Derive_Limits_From_File(*record);
        Enter_Linkage(Road::kFile, [&] {
            Model = *record;
            Model.DiskFile = true;
            Use_Units(Model.Units);
        });
        Model_Came();
        Keep_In_Mind(beside, path);
        whole = true;
    });
    return whole;
}

void Show_Text(const char* box, int index, const std::string& text) {
    With<TextBox>(kInput, box, index, [&](TextBox& found) { found.Text = text; });
}

void Fill_Input_Screen() {
    for (int box = 0; const Single length : {Model.L1, Model.L2, Model.L3, Model.L4, Model.Rpa})
        Show_Text("txt_Linkout", box++, FNRoundStr(length, 3));
    Show_Text("txt_Linkout", 5, FNRoundStr(Model.Delta, 2));
    Show_Text("txt_Linkout", 6, FNRoundStr(Model.Link1Angle, 2));
    Show_Text("txt_initial", 0, Model.ThetaStartStr);
    Show_Text("txt_initial", 1, Model.ThetaEndStr);
    Show_Text("txt_initial", 2, Model.ThetaStepStr);
    Show_Text("txt_initial", 3, Text_Of(Model.Omega2Input));
    Show_Text("txt_initial", 4, Text_Of(Model.Alpha2));
    Show_Text("txt_Thetazero", kNoIndex, Text_Of(Model.ThetaZero));
    const auto choose = [](const char* option, int index) {
        With<OptionButton>(kInput, option, index, [](OptionButton& found) { found.Value = true; });
    };
    choose("opt_Calctype", Model.Calctype);  // an imported drive has none
    choose("opt_OpenCross", Model.CircuitIndex == 1 ? 0 : 1);
}

double Angle_Of(const std::string& text, Single& degrees) {
    degrees = Val(text);
    return degrees * kDegToRad;
}

}  // namespace

bool Is_Model(std::string_view content) {
    std::string tag;
    return Failure_Of([&] { tag = TextReader(content).String(); }) == 0 && Is_Own(tag);
}

void Derive_Limits_From_File(LinkageModel& record) {
    if (record.Units > 5 || record.Calctype < run::kOnePosition || record.Calctype > run::kLinkDriven)
        Raise(kSubscript);
    record.ThetaStartRad = Angle_Of(record.ThetaStartStr, record.ThetaStart);
    record.ThetaEndRad = Angle_Of(record.ThetaEndStr, record.ThetaEnd);
    record.ThetaStepRad = Angle_Of(record.ThetaStepStr, record.ThetaStep);
    if (record.Calctype == run::kByTime && record.TimeStep > 0.0)
        record.NSteps = Steps_Of(record.TimeStart, record.TimeEnd, record.TimeStep);
    if (record.Calctype == run::kByAngle &&
        Single(0.98 * record.ThetaStepRad) < Single(std::abs(record.ThetaEndRad - record.ThetaStartRad)))
        record.NSteps = Steps_Of(record.ThetaStartRad, record.ThetaEndRad, record.ThetaStepRad);
}

void Enter_As_From_File() {
    Enter_Linkage(Road::kFile, [] {
        Derive_Limits_From_File(Model);
        Model.DiskFile = true;
    });
}

bool Load_Model(const std::string& content, const std::function<void(LinkageModel&)>& amend) {
    return Read_Model(content, {}, amend);
}

bool Readfile(const std::string& content, const std::string& path) {
    if (!Read_Model(content, path, {})) return false;
    Guarded("Readfile", [&] {
        Fill_Input_Screen();
        if (Screen* masses = Screens::Find("frm_MassProp")) Put_Mass_Properties(*masses, Model, Model);
        if (Screen* home = Screens::Find("frm_HomeScreen")) Check_mnu_Units(*home, Model.Units);
        Refresh_Status();
        Set_Menus();
        The_Desktop().Set_Pointer(Pointer::kDefault);
        if (!path.empty()) Note_Recent(path);
        Tell_Of_Unread_Tasks(path);
        if (Model.JustStarted) return;
        Tell("File " + Model.FilePath + " successfully read.", Icon::kInformation);
        Arrive_At(kInput);
    });
    return true;
}

}  // namespace verlink
