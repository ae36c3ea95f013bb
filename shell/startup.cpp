// The start of the process, its end, and the marker that tells the next start how this one ended.
#include "shell/startup.h"

#include <atomic>
#include <mutex>
#include <optional>
#include <vector>

#include "animation/engine.h"
#include "core/linkage_model.h"
#include "core/model_on_screens.h"
#include "core/results.h"
#include "core/window_sizes.h"
#include "dynamics/units.h"
#include "files/in_hand.h"
#include "files/text_notation.h"
#include "platform/desktop_services.h"
#include "platform/file_system.h"
#include "platform/guard.h"
#include "platform/process.h"
#include "platform/settings.h"
#include "shell/history.h"
#include "shell/initialize.h"
#include "shell/recovery.h"
#include "shell/run_log.h"
#include "shell/user.h"

namespace verlink {

using platform::CR;
using platform::Icon;
using platform::Process;
using platform::Screens;
using platform::Tell;
using platform::The_Desktop;

namespace {

constexpr char kReleaseYear[] = "2008";
constexpr char kRunning[] = "Running";

/// From the look at the marker to the first word of the end, by whomever.
std::atomic<bool> at_work = false;
std::atomic<bool> left = false;

void Prepare_Screen_Data() {
    const platform::DisplaySize display = The_Desktop().Display();
    Model.AspectRatio = Divide(display.width_pixels, display.height_pixels);
    Model.AspectCorrection = 1;
    Model.AppPath = The_Desktop().Program_Folder();
    // The home screen notes where it comes to stand, which places all others, and how large screens are to be.
    Screens::Find("frm_HomeScreen");
}

std::string Marker(const std::vector<std::string>& lines) {
    TextWriter marker;
    for (const std::string& line : lines) {
        marker.Put(line);
        marker.EndLine();
    }
    return marker.Content();
}

std::string Running_Marker(const Process& process) {
    return Marker({kRunning, "", "This file records an abnormal exit from the program on last execution",
                   "and is checked at each startup.  Please do not move or delete it.", platform::Name_Of(process)});
}

/// What the marker said when it was read.
struct Mark {
    std::string state;
    std::optional<Process> process;  ///< whose running it speaks of

    bool Open() const { return state == kRunning; }
    /// Another process runs, and the marker is its.
    bool Of_Another() const {
        return Open() && process && *process != platform::This_Process() && platform::Runs(*process);
    }
    /// It ran and does not run any more.
    bool Of_Dead() const {
        return Open() && process && *process != platform::This_Process() && !platform::Runs(*process);
    }
};

Mark Mark_In(const std::string& content) {
    TextReader reader(content);
    Mark mark{reader.String(), {}};
    constexpr int kWords = 3;
    for (int line = 0; line < kWords && !reader.AtEnd(); ++line) reader.String();
    if (!reader.AtEnd()) mark.process = platform::Process_Of(reader.String());
    return mark;
}

/// This process has no more to do with the marker, which takes the words of its end, unless it speaks of another one
/// that runs, or has died meanwhile.
void Close_Marker(const std::string& path, const std::string& words) {
    Mark mark;
    if (Failure_Of([&] { mark = Mark_In(platform::Read_File(path)); }) == 0 && (mark.Of_Another() || mark.Of_Dead()))
        return;
    const std::string state = State_Folder();
    const std::vector<Process> others = state.empty() ? std::vector<Process>() : Other_Runs(state);
    platform::Write_File(path, others.empty() ? words : Running_Marker(others.front()));
}

void Follow_Model(Turn turn) {
    if (turn == Turn::kKept) Drop_Refused();
    Keep_Copy(Model, Modified());
}

void Listen_Once() {
    static std::once_flag listening;
    std::call_once(listening, [] { The_History().Listen(Follow_Model); });
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
    Identity& own = Model;
    own.ProgramTag = "VERLINK";
    own.ProgramCaps = "VERLINK";
    own.RevNumber = "9.0";
    own.RevDate = "11/30/08";
    own.FileVersion = "2.2";
    own.TitleSuffix = std::string("VERLINK - ") + kReleaseYear + "   Release " + own.RevNumber + "   Rev " +
                      own.FileVersion + "   " + own.RevDate + std::string(20, ' ');
}

std::string Version_Line() { return kReleaseYear + (" - Release " + Model.RevNumber) + " Rev " + Model.FileVersion; }

void Find_Data_Folder() { Model.FilePath = The_Desktop().Documents_Folder() + "/" + Model.ProgramTag + "/"; }

void Check_for_Crash() {
    std::string Context = "Unknown cause";
    Guarded("Check_for_Crash " + Context, [&Context] {
        Model.SessionUser = The_Desktop().Session_User();
        Find_Data_Folder();
        const std::string& path = Model.RunMarker = Model.FilePath + "Run_Check.txt";
        at_work = true;
        left = false;
        Mark mark;
        if (platform::File_Exists(path)) {
            std::string marker;
            Context = " when opening Checkfile";
            if (!Guarded("Check_for_Crash " + Context, [&] { marker = platform::Read_File(path); })) return;
            Context = " when reading Checkfile";
            if (!Guarded("Check_for_Crash " + Context, [&] { mark = Mark_In(marker); })) return;
        } else {
            platform::Make_Folder(Model.FilePath);
        }
        const Left_Behind others = Look_Around();
        const bool nameless = mark.Open() && !mark.process;
        if ((mark.Of_Another() || others.running || nameless) && !Model.CommandLine.empty()) {
            at_work = false;
            Refuse_Second_Instance();
            return;
        }
        const bool died = mark.Of_Dead() && !Said_Its_End(*mark.process);
        if (died || others.died || (nameless && !others.running)) Tell_Of_Crash();
        if (!mark.Of_Another()) Write_Checkfile(Context);
    });
}

void Write_Checkfile(std::string& Context) {
    Context = " when writing Checkfile";
    Guarded("Write_Checkfile " + Context,
            [] { platform::Write_File(Model.RunMarker, Running_Marker(platform::This_Process())); });
}

void Terminate() {
    at_work = false;
    // What ends the process has been written down, and its copy stays.
    if (left) return The_Desktop().End_Process();
    Guarded("Terminate", [] {
        if (Model.RunMarker.empty()) return;
        Close_Marker(Model.RunMarker,
                     Marker({"Normal Exit", "", "This file records a normal exit from the program on last run",
                             "and is checked at each startup.  Please do not move or delete."}));
    });
    End_Keeping();
    The_Desktop().End_Process();
}

void Leave(const char* why) {
    if (!at_work.exchange(false)) return;
    left = true;
    Leave_Copy(why);
    // Nobody is there any more to be told of a failure.
    Failure_Of([why] {
        Close_Marker(Model.RunMarker,
                     Marker({"Ended", "", std::string("This file records an exit from the program by ") + why,
                             "and is checked at each startup.  Please do not move or delete."}));
    });
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
        Begin_Keeping();
        Listen_Once();
        CreateAssociation("Verlink", "vlk");
        Initialize();
        if (Offer_Copies(Model))
            Model_Came_Unsaved();
        else
            Open_Clicked_File();
        Set_Screen_Titles();
        // `Initialize` has put system 1 in force; a model that was opened since keeps its own.
        if (platform::Screen* home = Screens::Find("frm_HomeScreen")) Check_mnu_Units(*home, Model.Units);
        Use_Units(Model.Units);
        Set_Palette();
        Refresh_Status();
        Model.DiskFile = false;
        The_History().Begin();
        Show_Centered("frm_Title");
    });
}

}  // namespace verlink
