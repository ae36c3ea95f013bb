// The start of the process, its end, and the marker that tells the next start how this one ended.
#include "shell/startup.h"

#include "animation/engine.h"
#include "core/linkage_model.h"
#include "core/results.h"
#include "core/screen_geometry.h"
#include "core/status_panel.h"
#include "dynamics/units.h"
#include "files/text_notation.h"
#include "platform/desktop.h"
#include "platform/file_system.h"
#include "platform/guard.h"
#include "platform/settings.h"
#include "shell/initialize.h"
#include "shell/user.h"

namespace verlink {

using platform::CR;
using platform::Icon;
using platform::Screens;
using platform::Tell;
using platform::The_Desktop;

namespace {

constexpr char kReleaseYear[] = "2008";
constexpr char kRunning[] = "Running";

void Prepare_Screen_Data() {
    const platform::DisplaySize display = The_Desktop().Display();
    Model.AspectRatio = Divide(display.width_pixels, display.height_pixels);
    Model.AspectCorrection = 1;
    Model.AspectActive = false;
    Model.FullScreen = false;
    Model.DateStr = The_Desktop().Date_Text();
    Model.AppPath = The_Desktop().Program_Folder();
    // The home screen notes where it comes to stand, which places all others.
    Screens::Find("frm_HomeScreen");
    Run_Dropped();
}

std::string Marker(const char* state, const char* meaning, const char* advice) {
    TextWriter marker;
    for (const char* line : {state, "", meaning, advice}) {
        marker.Put(line);
        marker.EndLine();
    }
    return marker.Content();
}

void Refuse_Second_Instance() {
    const std::string& tag = Model.ProgramTag;
    Tell("   You double-clicked on a " + tag + " data file when the program was already running." + CR +
             "   You cannot have two instances of " + tag + " running at once." + CR + CR +
             "   Please open the data file from within " + tag + " with File/Open  " + CR,
         Icon::kInformation);
    The_Desktop().End_Process();
}

void Tell_Of_Crash() {
    Tell(std::string("   The program did not shut down properly on its last run.     ") + CR + CR +
             "            This problem will now be corrected." + CR + CR +
             "   To avoid this problem in the future, please use the   " + CR +
             "   Quit button or File/Quit menu to stop the program.   " + CR,
         Icon::kInformation);
}

}  // namespace

void Set_Identity() {
    Model.ProgramTag = "VERLINK";
    Model.ProgramCaps = "VERLINK";
    Model.RevNumber = "9.0";
    Model.RevDate = "11/30/08";
    Model.FileVersion = "2.2";
    Model.TitleSuffix = std::string("VERLINK - ") + kReleaseYear + "   Release " + Model.RevNumber + "   Rev " +
                        Model.FileVersion + "   " + Model.RevDate + std::string(20, ' ');
}

std::string Version_Line() { return kReleaseYear + (" - Release " + Model.RevNumber) + " Rev " + Model.FileVersion; }

void Find_Data_Folder() {
    Model.FilePath = The_Desktop().Documents_Folder() + "/" + Model.ProgramTag.substr(0, 7) + "/";
}

void Check_for_Crash() {
    std::string Context = "Unknown cause";
    Guarded("Check_for_Crash " + Context, [&Context] {
        Model.SessionUser = The_Desktop().Session_User();
        Find_Data_Folder();
        Model.RunMarker = Model.FilePath + "Run_Check.txt";
        if (!platform::File_Exists(Model.RunMarker)) {
            platform::Make_Folder(Model.FilePath);
            Write_Checkfile(Context);
            return;
        }
        std::string marker, state;
        Context = " when opening Checkfile";
        if (!Guarded("Check_for_Crash " + Context, [&] { marker = platform::Read_File(Model.RunMarker); })) return;
        Context = " when reading Checkfile";
        if (!Guarded("Check_for_Crash " + Context, [&] { state = TextReader(marker).String(); })) return;
        if (state == kRunning && !Model.CommandLine.empty()) {
            Refuse_Second_Instance();
            return;
        }
        if (state == kRunning) Tell_Of_Crash();
        Write_Checkfile(Context);
    });
}

void Write_Checkfile(std::string& Context) {
    Context = " when writing Checkfile";
    Guarded("Write_Checkfile " + Context, [] {
        platform::Write_File(Model.RunMarker,
                             Marker(kRunning, "This file records an abnormal exit from the program on last execution",
                                    "and is checked at each startup.  Please do not move or delete it."));
    });
}

void Terminate() {
    Guarded("Terminate", [] {
        if (Model.RunMarker.empty()) return;
        platform::Write_File(Model.RunMarker,
                             Marker("Normal Exit", "This file records a normal exit from the program on last run",
                                    "and is checked at each startup.  Please do not move or delete."));
    });
    The_Desktop().End_Process();
}

void Sub_Main(const std::string& command_line) {
    Guarded("Sub_Main", [&command_line] {
        Model.CommandLine = command_line;
        platform::The_Settings().Open(The_Desktop().Settings_Folder());
        Set_Identity();
        Model.JustStarted = true;
        Prepare_Screen_Data();
        Check_for_Crash();
        if (The_Desktop().Ending()) return;
        CreateAssociation("Verlink", "vlk");
        Initialize();
        Open_Clicked_File();
        Set_Screen_Titles();
        // `Initialize` has put system 1 in force; a model that was opened since keeps its own.
        if (platform::Screen* home = Screens::Find("frm_HomeScreen")) Check_mnu_Units(*home, Model.Units);
        Use_Units(Model.Units);
        Set_Palette();
        Refresh_Status();
        Model.DiskFile = false;
        Show_Centered("frm_Title");
    });
}

}  // namespace verlink
