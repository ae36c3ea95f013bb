// How the motion of the input link comes out of a file: the two readers, and the import menu's actions.
#include "files/drive_import.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "core/linkage_door.h"
#include "core/linkage_model.h"
#include "core/model_on_screens.h"
#include "core/numeric.h"
#include "core/parameters.h"
#include "core/window_sizes.h"
#include "dynamics/units.h"
#include "files/model_file.h"
#include "platform/desktop_services.h"
#include "platform/file_system.h"
#include "platform/guard.h"

namespace verlink {

using namespace platform;

namespace {

constexpr char kHome[] = "frm_HomeScreen";
constexpr int kUnitSystems = 5;
constexpr int kSixLinks = 6;
constexpr int kFourLinks = 4;
constexpr char kCamExtension[] = ".sva";
constexpr char kLinkExtension[] = ".out";

void Skip_Strings(TextReader& reader, int count) {
    for (int i = 0; i < count; ++i) reader.String();
}

/// The motion of the input link, a row for each step: angle, velocity, acceleration.
struct Drive_Table {
    Single TimeStart, TimeEnd, TimeStep;
    std::vector<std::array<Single, 3>> rows;
};

void Read_Rows(TextReader& reader, Integer last, Drive_Table& table) {
    if (last > kLastStep) Raise(kSubscript);
    for (int step = 0; step <= last; ++step)
        for (Single& value : table.rows.emplace_back()) value = reader.Column();
}

/// Rows of the last run are overwritten.
void Put_Rows(const Drive_Table& table) {
    Model.TimeStart = table.TimeStart;
    Model.TimeEnd = table.TimeEnd;
    Model.TimeStep = table.TimeStep;
    Derive_Time_Limits();
    Model.NSteps = static_cast<int>(table.rows.size()) - 1;
    for (int step = 0; step <= Model.NSteps; ++step) {
        const auto& row = table.rows[static_cast<std::size_t>(step)];
        Model.RunTable.DriveTheta(step) = row[0];
        Model.RunTable.Omega(step, 0) = row[1];
        Model.RunTable.Alpha(step, 0) = row[2];
    }
    Model.TorqueImported = false;  // a table of the run before
}

struct Link_Masses {
    Single mass, inertia, distance, angle;
};

/// The linkage of a cam file; lengths as they are stored.
struct Cam_Linkage {
    Single Delta2;
    Integer circuit;
    Single L2, L3, L4, L1, Link1Angle, Link1X, Link1Y, CamCenterX, CamCenterY;
    std::vector<Link_Masses> masses;  ///< from link 2 on; empty when the file has none
};

struct Cam_File {
    Integer CamDirection;
    Single CamPhase, CamDataLength1, CamDiameter, CamDataLength2;
    Integer Units;
    std::optional<Cam_Linkage> linkage;
    Drive_Table table;
};

Cam_Linkage Read_Linkage(TextReader& reader, int NLinks, double factor) {
    Cam_Linkage read;
    read.Delta2 = reader.Float();
    read.circuit = reader.Short();
    for (Single* length : {&read.L2, &read.L3, &read.L4, &read.L1}) *length = reader.Float() / factor;
    read.Link1Angle = reader.Float();
    for (Single* length : {&read.Link1X, &read.Link1Y, &read.CamCenterX, &read.CamCenterY})
        *length = reader.Float() / factor;
    Skip_Strings(reader, 9);
    if (reader.Short() == -1) {
        for (int link = 2; link <= NLinks; ++link) {
            auto& masses = read.masses.emplace_back();
            masses.mass = reader.Float();
            masses.inertia = reader.Float();
            masses.distance = reader.Float() / factor;
            masses.angle = reader.Float() / factor;  // the angle is divided as if it were a length
        }
        if (NLinks > kFourLinks) Raise(kSubscript);
    } else {
        Skip_Strings(reader, 4 * (NLinks - 1));
    }
    Skip_Strings(reader, 30);
    return read;
}

/// Nothing, after a message, for the file of another kind of linkage.
std::optional<Cam_File> Read_Cam(TextReader& reader) {
    const Integer NLinks = reader.Short();
    if (NLinks == kSixLinks) {
        Tell(std::string("This file contains data for a Corvex linkage.") + CR +
                 "Please import it to Program Corvex instead.",
             Icon::kInformation);
        return {};
    }
    Cam_File file;
    file.CamDirection = reader.Short();
    for (Single* value : {&file.CamPhase, &file.CamDataLength1, &file.CamDiameter, &file.CamDataLength2,
                          &file.table.TimeStart, &file.table.TimeEnd, &file.table.TimeStep})
        *value = reader.Float();
    if (reader.String() == "Glidemark") {
        Tell(std::string("This file contains data for a Verlink Slider linkage.") + CR +
                 "Please import it to Glidex instead.",
             Icon::kInformation);
        return {};
    }
    const Integer units = reader.Short();
    if (units > kUnitSystems) Raise(kSubscript);
    file.Units = std::max<int>(units, 1);
    const double factor = Shown_Factor(file.Units);
    for (Single* length : {&file.CamDiameter, &file.CamDataLength1, &file.CamDataLength2}) *length /= factor;
    Skip_Strings(reader, 7);
    if (NLinks >= kFourLinks) file.linkage = Read_Linkage(reader, NLinks, factor);
    Read_Rows(reader, reader.Short() - 1, file.table);
    return file;
}

void Put_Linkage(const Cam_Linkage& read) {
    Model.Delta2 = read.Delta2;
    Model.L2 = read.L2;
    Model.L3 = read.L3;
    Model.L4 = read.L4;
    Model.L1 = read.L1;
    Model.Link1Angle = read.Link1Angle;
    Model.Link1AngleRad = read.Link1Angle * kDegToRad;
    Model.Link1X = read.Link1X;
    Model.Link1Y = read.Link1Y;
    Model.CamCenterX = read.CamCenterX;
    Model.CamCenterY = read.CamCenterY;
    Model.ThetaZero = -Model.Link1Angle;
    // No coupler point comes across.
    Model.Delta = 0;
    Model.Rpa = 0;
    if (read.circuit == -1) Model.CircuitIndex = 1;
    if (read.circuit == 1) Model.CircuitIndex = 2;
    int link = 2;
    for (const Link_Masses& masses : read.masses) {
        Model.LinkMass(link) = masses.mass;
        Model.LinkInertia(link) = masses.inertia;
        Model.CG(link, 0) = masses.distance;
        Model.CG(link, 1) = masses.angle;
        ++link;
    }
    Model.CognateEdit = false;
}

/// The file that the drive came from.
void Put_Name(const std::string& path, const char* extension) {
    if (path.empty()) return;
    Model.FilePath = path;
    Model.Model5Name = StripFilename(path) + extension;
}

void Put_Cam(const Cam_File& file) {
    // What the file says nothing of is shown in the file's units too.
    const Integer old = Model.Units;
    Use_Units(file.Units);
    if (old != file.Units && !Convert_Units(old, file.Units)) Raise(kOverflow);
    Model.CamDirection = file.CamDirection;
    Model.CamPhase = file.CamPhase;
    Model.CamDataLength1 = file.CamDataLength1;
    Model.CamDiameter = file.CamDiameter;
    Model.CamDataLength2 = file.CamDataLength2;
    if (file.linkage) Put_Linkage(*file.linkage);
    Put_Rows(file.table);
    Model.Calctype = run::kCamDriven;
    Model.CamDriven = true;
    Model.LinkDriven = false;
}

void Show_Input(const std::string& told) {
    if (Model.JustStarted) return;
    Tell(told);
    Arrive_At("frm_Inputnew");
}

struct Import {
    const char* title;
    const char* filter;
    const char* extension;
    bool (*read)(TextReader&, const std::string& path);
};

constexpr Import kCamImport = {"Open a Lobetra export data file", "Lobetra Export (*.sva)|*.sva|(*.*)|*.*|",
                               kCamExtension, Read_Cam_Data};
constexpr Import kLinkImport = {"Open a Linkage Drive Data file", "Verlink Export (*.out)|*.out|(*.*)|*.*|",
                                kLinkExtension, Import_Linkage_Data};

void Take_Known_File(const Import& import, const std::string& path) {
    const std::string content = Read_File(path);
    TextReader reader(content);
    const bool taken = import.read(reader, path);
    The_Desktop().Set_Pointer(Pointer::kDefault);
    if (!taken) return;
    Set_Menus();
    Refresh_Status();
}

void Take_File(Screen& home, const Import& import) {
    if (!May_Replace(home)) return;
    auto& dialog = home.Get<CommonDialog>("CommonDialog1");
    dialog.DialogTitle = import.title;
    dialog.Filter = import.filter;
    dialog.FilterIndex = 1;
    dialog.FileName = std::string("*") + import.extension;
    dialog.Kind = "drive";
    dialog.ShowOpen();
    Take_Known_File(import, dialog.FileName);
}

}  // namespace

bool Read_Cam_Data(TextReader& reader, const std::string& path) {
    bool taken = false;
    Guarded("Read_Cam_Data", [&] {
        const auto file = Read_Cam(reader);
        if (!file) return;
        Enter_Linkage(Road::kImport, [&] {
            Put_Cam(*file);
            Put_Name(path, kCamExtension);
        });
        taken = true;
        if (Screen* home = Screens::Find(kHome)) Check_mnu_Units(*home, Model.Units);
        Refresh_Status();
        Show_Input("File " + Model.FilePath + " of Lobetra S-V-A data successfully read.");
    });
    return taken;
}

bool Import_Linkage_Data(TextReader& reader, const std::string& path) {
    bool taken = false;
    Guarded("Import_Linkage_Data", [&] {
        Drive_Table table;
        const Integer last = reader.Short();
        for (Single* value : {&table.TimeStart, &table.TimeEnd, &table.TimeStep}) *value = reader.Float();
        Skip_Strings(reader, 12);
        Read_Rows(reader, last, table);
        Enter_Linkage(Road::kImport, [&] {
            Put_Rows(table);
            Model.Calctype = run::kLinkDriven;
            Model.LinkDriven = true;
            Model.CamDriven = false;
            Model.LinkImportPending = true;
            Put_Name(path, kLinkExtension);
        });
        taken = true;
        Show_Input("File " + Model.FilePath + " of Linkage output data successfully read.");
    });
    return taken;
}

void Menu_Lobetra(Screen& home) {
    Guarded_Unless_Cancelled("frm_Homescreen.mnu_Lobetra", [&] { Take_File(home, kCamImport); });
}

void Import_Cam_File(Screen& home, const std::string& path) {
    Guarded("frm_Homescreen.mnu_Lobetra", [&] {
        if (May_Replace(home)) Take_Known_File(kCamImport, path);
    });
}

void Import_Link_File(Screen& home, const std::string& path) {
    Guarded("frm_Homescreen.mnu_Link_Data_Import", [&] {
        if (May_Replace(home)) Take_Known_File(kLinkImport, path);
    });
}

void Menu_Link_Data_Import(Screen& home) {
    // A cancelled dialog is reported here, and not at the other import.
    Guarded("frm_Homescreen.mnu_Link_Data_Import", [&] { Take_File(home, kLinkImport); });
}

}  // namespace verlink
