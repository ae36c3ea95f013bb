// The file menu of the screens above the home screen, and files that are dropped on a window.
#include "screens/file_entries.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <utility>

#include "core/results.h"
#include "core/window_sizes.h"
#include "files/drive_import.h"
#include "files/model_file.h"
#include "files/task_file.h"
#include "platform/desktop_services.h"
#include "platform/file_system.h"
#include "platform/guard.h"
#include "screens/frm_homescreen.h"
#include "screens/frm_massprop.h"

namespace verlink {

namespace {

constexpr char kInput[] = "frm_Inputnew", kMasses[] = "frm_MassProp";

frm_HomeScreen& Home() { return dynamic_cast<frm_HomeScreen&>(platform::Screens::Get("frm_HomeScreen")); }

/// ".sva" of "Cam 3.SVA".
std::string End_Of(const std::string& path) {
    std::string end = std::filesystem::path(path).extension().string();
    std::transform(end.begin(), end.end(), end.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return end;
}

void Take_Torque(const std::string& path) {
    if (!Model.RunStands) {
        platform::Tell("A table of torques has a row for each step of a run.  Calculate the linkage first.",
                       platform::Icon::kInformation);
        return;
    }
    dynamic_cast<frm_MassProp&>(platform::Screens::Get(kMasses)).Bring_Torque(path);
    Show_Centered(kMasses);
}

/// Those that the file has take the place of those in hand, and the screen of the first is shown.
void Take_Task_File(const std::string& path) {
    Guarded("Take_Task_File", [&] {
        Tasks tasks;
        std::string fault;
        if (!Take_Tasks(platform::Read_File(path), tasks, fault)) {
            platform::Tell("The tasks in " + path + " cannot be read: " + fault + ".", platform::Icon::kExclamation);
            return;
        }
        if (!tasks.DesignTask.empty()) Take_Task_Text(Model.DesignTask, tasks.DesignTask);
        if (!tasks.StudySettings.empty()) Take_Task_Text(Model.StudySettings, tasks.StudySettings);
        if (!tasks.DesignTask.empty()) Show_Centered("frm_Explore");
    });
}

}  // namespace

File_Entries::File_Entries(platform::Screen& owner, std::function<void()> settle)
    : mnu_File(owner, "mnu_File", "&File"),
      mnu_New(mnu_File, "mnu_New", "&New"),
      mnu_Open(mnu_File, "mnu_Open", "&Open"),
      mnu_FileBar1(mnu_File, "mnu_FileBar1", ""),
      mnu_Save(mnu_File, "mnu_Save", "&Save"),
      mnu_Saveas(mnu_File, "mnu_Saveas", "Save &as"),
      mnu_FileBar2(mnu_File, "mnu_FileBar2", ""),
      mnu_Quit(mnu_File, "mnu_Quit", "&Quit"),
      settle_(std::move(settle)) {
    const std::pair<MenuEntry*, const char*> keys[] = {{&mnu_New, "Ctrl+N"},
                                                       {&mnu_Open, "Ctrl+O"},
                                                       {&mnu_Save, "Ctrl+S"},
                                                       {&mnu_Saveas, "Ctrl+Shift+S"},
                                                       {&mnu_Quit, "Ctrl+Q"}};
    for (const auto& [entry, key] : keys) entry->Keys = std::string(key);
    mnu_New.OnClick = [this] { New(); };
    mnu_Open.OnClick = [this] {
        settle_();
        Menu_Open(Home());
    };
    mnu_Save.OnClick = [this] {
        settle_();
        Menu_Save(Home());
    };
    mnu_Saveas.OnClick = [this] {
        settle_();
        Menu_Saveas(Home());
    };
    mnu_Quit.OnClick = [this] {
        settle_();
        Home().cmd_Quit_Click();
    };
    owner.OnDrop = [this](const std::string& path) {
        settle_();
        Take_Dropped_File(path);
    };
}

void File_Entries::New() {
    settle_();
    if (Home().New_Linkage()) Arrive_At(kInput);
}

void Take_Dropped_File(const std::string& path) {
    const std::string end = End_Of(path);
    if (end == ".sva")
        Import_Cam_File(Home(), path);
    else if (end == ".out")
        Import_Link_File(Home(), path);
    else if (end == ".trq")
        Take_Torque(path);
    else if (end == ".vld")
        Take_Task_File(path);
    else
        Open_Model_File(Home(), path);
}

}  // namespace verlink
