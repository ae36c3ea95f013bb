// How the motion of the input link comes out of a file: the two readers, and the import menu's actions.
#include "files/drive_import.h"

#include <algorithm>

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/screen_geometry.h"
#include "core/status_panel.h"
#include "dynamics/units.h"
#include "files/model_file.h"
#include "platform/desktop.h"
#include "platform/file_system.h"
#include "platform/guard.h"

namespace verlink {

using namespace platform;

namespace {

constexpr char kHome[] = "frm_HomeScreen";
constexpr int kUnitSystems = 5;
constexpr int kSixLinks = 6;
constexpr int kFourLinks = 4;

void Skip_Strings(TextReader& reader, int count) {
    for (int i = 0; i < count; ++i) reader.String();
}

/// The number of steps, then a row for each: angle, velocity, acceleration of the input link.
void Read_Drive_Table(TextReader& reader, Integer steps) {
    if (steps > kLastStep) Raise(kSubscript);
    Model.NSteps = steps;
    // Rows of the last run are overwritten, also by a table that breaks off.
    Model.Calculated = false;
    auto& table = Model.RunTable;
    for (int step = 0; step <= Model.NSteps; ++step) {
        table.DriveTheta(step) = reader.Column();
        table.Omega(step, 0) = reader.Column();
        table.Alpha(step, 0) = reader.Column();
    }
}

/// False, with a message, for the file of another kind of linkage.
bool Read_Cam(TextReader& reader, Integer& NLinks) {
    NLinks = reader.Short();
    if (NLinks == kSixLinks) {
        Tell(std::string("This file contains data for a Corvex linkage.") + CR +
                 "Please import it to Program Corvex instead.",
             Icon::kInformation);
        return false;
    }
    Model.CamDirection = reader.Short();
    for (Single* value : {&Model.CamPhase, &Model.CamDataLength1, &Model.CamDiameter, &Model.CamDataLength2,
                          &Model.TimeStart, &Model.TimeEnd, &Model.TimeStep})
        *value = reader.Float();
    if (reader.String() == "Glidemark") {
        Tell(std::string("This file contains data for a Verlink Slider linkage.") + CR +
                 "Please import it to Glidex instead.",
             Icon::kInformation);
        return false;
    }
    const Integer units = reader.Short();
    if (units > kUnitSystems) Raise(kSubscript);
    Model.Units = std::max<int>(units, 1);
    for (Single* length : {&Model.CamDiameter, &Model.CamDataLength1, &Model.CamDataLength2}) *length /= Shown_Factor();
    Skip_Strings(reader, 7);
    return true;
}

void Read_Masses(TextReader& reader, int NLinks) {
    for (int link = 2; link <= NLinks; ++link) {
        Model.LinkMass(link) = reader.Float();
        Model.LinkInertia(link) = reader.Float();
        Model.CG(link, 0) = reader.Float() / Shown_Factor();
        Model.CG(link, 1) = reader.Float() / Shown_Factor();  // the angle is divided as if it were a length
    }
}

void Read_Linkage(TextReader& reader, int NLinks) {
    Model.Delta2 = reader.Float();
    const Integer circuit = reader.Short();
    for (Single* length : {&Model.L2, &Model.L3, &Model.L4, &Model.L1}) *length = reader.Float() / Shown_Factor();
    Model.Link1Angle = reader.Float();
    Model.Link1AngleRad = Model.Link1Angle * kDegToRad;
    for (Single* length : {&Model.Link1X, &Model.Link1Y, &Model.CamCenterX, &Model.CamCenterY})
        *length = reader.Float() / Shown_Factor();
    Skip_Strings(reader, 9);

    Model.ThetaZero = -Model.Link1Angle;
    // No coupler point comes across.
    Model.Delta = 0;
    Model.Rpa = 0;
    Set_Delta(Model.Delta, Model.DeltaRad, Model.DeltaStr);
    if (circuit == -1) Model.CircuitIndex = 1;
    if (circuit == 1) Model.CircuitIndex = 2;
    Set_Circuit(Model.CircuitIndex, Model.CircuitSign, Model.CircuitName);
    // A model from disk runs without its boxes being read, so what they would give is derived here.
    Rotate(Model.Link1X, Model.Link1Y, Model.Link1Angle, -1, Model.Link1LocalX, Model.Link1LocalY);
    Model.Parallelogram = Model.L2 == Model.L4 && Model.L3 == Model.L1;
    LoadLinkArray();

    if (reader.Short() == -1)
        Read_Masses(reader, NLinks);
    else
        Skip_Strings(reader, 4 * (NLinks - 1));
    Skip_Strings(reader, 30);
}

void Show_Input(const std::string& told) {
    if (Model.JustStarted) return;
    Tell(told);
    Show_Centered("frm_Inputnew");
}

struct Import {
    const char* title;
    const char* filter;
    const char* extension;
    bool (*read)(TextReader&);
};

constexpr Import kCamImport = {"Open a Lobetra export data file", "Lobetra Export (*.sva)|*.sva|(*.*)|*.*|", ".sva",
                               Read_Cam_Data};
constexpr Import kLinkImport = {"Open a Linkage Drive Data file", "Verlink Export (*.out)|*.out|(*.*)|*.*|", ".out",
                                Import_Linkage_Data};

/// False when the user would rather save first and did not.
bool Take_File(Screen& home, const Import& import) {
    if (!May_Replace(home)) return false;
    auto& dialog = home.Get<CommonDialog>("CommonDialog1");
    dialog.DialogTitle = import.title;
    dialog.Filter = import.filter;
    dialog.FilterIndex = 1;
    dialog.FileName = std::string("*") + import.extension;
    dialog.ShowOpen();
    const std::string content = Read_File(dialog.FileName);
    Model.FilePath = dialog.FileName;
    Model.Model5Name = StripFilename(Model.FilePath) + import.extension;
    TextReader reader(content);
    import.read(reader);
    return true;
}

/// What follows an import, also one that was refused or broke off.
void End_Import(Screen& home) {
    The_Desktop().Set_Pointer(Pointer::kDefault);
    Model.SavedFlag = false;
    Set_Menus();
    With<MenuEntry>(home, "mnu_New", kNoIndex, [](MenuEntry& entry) { entry.Enabled = true; });
    Refresh_Status();
}

}  // namespace

bool Read_Cam_Data(TextReader& reader) {
    bool taken = false;
    Guarded("Read_Cam_Data", [&] {
        Integer NLinks;
        if (!Read_Cam(reader, NLinks)) return;
        if (NLinks >= kFourLinks) Read_Linkage(reader, NLinks);
        Read_Drive_Table(reader, reader.Short() - 1);
        taken = true;
    });
    const bool shown = Guarded("Read_Cam_Data", [&] {
        // Labels and decimals go by the unit system that was read, also when the rest was not.
        if (Screen* home = Screens::Find(kHome)) Check_mnu_Units(*home, Model.Units);
        Use_Units(Model.Units);
        if (!taken) return;
        Model.CamDriven = true;
        Model.Calctype = 4;
        Refresh_Status();
        Show_Input("File " + Model.FilePath + " of Lobetra S-V-A data successfully read.");
    });
    return taken && shown;
}

bool Import_Linkage_Data(TextReader& reader) {
    return Guarded("Import_Linkage_Data", [&] {
        const Integer steps = reader.Short();
        for (Single* value : {&Model.TimeStart, &Model.TimeEnd, &Model.TimeStep}) *value = reader.Float();
        Skip_Strings(reader, 12);
        Read_Drive_Table(reader, steps);
        Model.LinkDriven = true;
        Model.Calctype = 5;
        Show_Input("File " + Model.FilePath + " of Linkage output data successfully read.");
    });
}

void Menu_Lobetra(Screen& home) {
    Guarded_Unless_Cancelled("frm_Homescreen.mnu_Lobetra", [&] {
        if (Take_File(home, kCamImport)) End_Import(home);
    });
}

void Menu_Link_Data_Import(Screen& home) {
    // A cancelled dialog is reported here, and not at the other import.
    Guarded("frm_Homescreen.mnu_Link_Data_Import", [&] {
        if (!Take_File(home, kLinkImport)) return;
        Model.LinkImportPending = true;
        End_Import(home);
    });
}

}  // namespace verlink
