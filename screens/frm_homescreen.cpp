// The hub: menus, the row of buttons, the status panel, the present linkage.
#include "screens/frm_homescreen.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "animation/engine.h"
#include "animation/linkage_dxf.h"
#include "checks/words.h"
#include "core/classification.h"
#include "core/kept_record.h"
#include "core/linkage_model.h"
#include "core/model_on_screens.h"
#include "core/runs.h"
#include "core/text.h"
#include "core/window_sizes.h"
#include "dynamics/units.h"
#include "files/drive_import.h"
#include "files/exports.h"
#include "files/in_hand.h"
#include "files/model_file.h"
#include "files/recent_files.h"
#include "platform/guard.h"
#include "platform/links.h"
#include "platform/settings.h"
#include "screens/edit_menu.h"
#include "screens/file_entries.h"
#include "screens/help_documents.h"
#include "shell/initialize.h"
#include "shell/startup.h"
#include "synthesis/cognates.h"

namespace verlink {

using platform::Answer;
using platform::Buttons;
using platform::CRLF;
using platform::Icon;
using platform::Tell;
using platform::The_Desktop;

namespace {

constexpr char kConfirmReset[] = "Please confirm your order to reset all variables to their default values";
constexpr char kNoConstantOmega[] = "You must calculate the linkage for a constant Omega2 in order to balance it.";

constexpr char kSizeSetting[] = "screen.size", kMaximized[] = "maximized";
constexpr char kAspectSetting[] = "screen.aspect", kCorrected[] = "corrected";

/// A name is no caption: what stands in it is no mark of a mnemonic.
std::string Without_Mnemonics(const std::string& name) {
    std::string caption;
    for (const char letter : name) caption += letter == '&' ? std::string("&&") : std::string(1, letter);
    return caption;
}

/// The window is made for the links; counterweights may reach beyond it wherever they turn.
void Make_Room_For_Weights() {
    if (!Model.BalanceDone) return;
    const double span = Model.AnimMax - Model.AnimMin;
    const auto widen = [span](double x, double y, double reach) {
        reach += span / 20;  // half the size of a weight, and some air
        Model.AnimMin = std::min({double{Model.AnimMin}, x - reach, y - reach});
        Model.AnimMax = std::max({double{Model.AnimMax}, x + reach, y + reach});
    };
    const double factor = Shown_Factor();
    const double ground = Model.L1 * factor;
    widen(0, 0, Model.BerkCG(2, 0) * factor);
    widen(ground * std::cos(Model.Link1AngleRad), ground * std::sin(Model.Link1AngleRad), Model.BerkCG(4, 0) * factor);
}

/// Whether there is a linkage to be shown: limits have been read, and the lengths reach.
bool Can_Close() {
    const auto [shortest, longest] =
        std::minmax({double{Model.L1}, double{Model.L2}, double{Model.L3}, double{Model.L4}});
    constexpr double kBeyondSense = 1e12;
    return Model.NSteps >= 0 && Model.NSteps <= kLastStep && shortest > 0 && longest < kBeyondSense &&
           Closes_Somewhere();
}

/// Of the run in the table.
int First_That_Closes() {
    int step = 0;
    while (step < Model.NSteps && !Model.RunTable.Assembled(step)) ++step;
    return step;
}

/// What is pressed leads to a screen.
template <class Control>
void Lead(
    Control& control, const char* screen, void (*before)() = [] {}) {
    control.OnClick = [told_as = "frm_Homescreen." + control.Name(), screen, before] {
        Guarded(told_as, [&] {
            before();
            Show_Centered(screen);
        });
    };
}

}  // namespace

frm_HomeScreen::frm_HomeScreen() : Screen("frm_HomeScreen") {
    Model.ScreenHeight = kHomeHeight;
    Model.ScreenWidth = kHomeWidth;
    Width() = kHomeWidth;
    Height() = kHomeHeight;
    const platform::DisplaySize display = The_Desktop().Display();
    Left() = Long((display.width - Width()) / 2.0);
    Top() = Long((display.height - Height()) / 2.0);
    Model.HomeTop = Top().Get();
    Note_Status_Width();

    DefaultButton = &cmd_Input;
    cmd_Input.Tip = "Enter a linkage and calculate it";
    cmd_Quit.Tip = "Leave the program";
    Picture1.Magnifies = true;
    Picture1.Tip = "The present linkage and its coupler curve; the wheel zooms, a double click fits";
    Picture1.Visible = false;
    for (int flag = 0; flag <= 8; ++flag) lbl_Status[flag].Visible = false;
    for (Button* button : {&cmd_Animate, &cmd_Plot, &cmd_Print, &cmd_Dynamics, &cmd_Balance}) button->Enabled = false;
    for (MenuEntry* entry : {&mnu_New, &mnu_Save, &mnu_Saveas, &mnu_Export, &mnu_Cayley, &mnu_CalcFFT})
        entry->Enabled = false;
    for (const auto& entry : mnu_Cog) entry->Enabled = false;
    lbl_Checks.Visible = false;
    mnu_Explore.Tip = "All linkages that move a body through two to five positions";
    mnu_Studies.Tip = "Solve many linkages about the one in hand: sweeps, tolerances, what matters";
    mnu_Report.Tip = "Choose chapters and plots, and write the linkage in hand as a PDF document";
    Bind_Buttons_And_Files();
    Bind_Menus();
    Bind_Synthesis();
}

void frm_HomeScreen::Bind_Buttons_And_Files() {
    const auto as_returned = [] { Model.ScreenReturn = true; };
    Lead(cmd_Input, "frm_Inputnew");
    Lead(cmd_Animate, "frm_Animate", [] { Model.CurrentStep = 0; });
    Lead(cmd_Plot, "frm_PlotType", as_returned);
    Lead(cmd_Print, "frm_PrintSelect", as_returned);
    Lead(cmd_Dynamics, "frm_MassProp");
    cmd_Balance.OnClick = [this] { cmd_Balance_Click(); };
    cmd_Quit.OnClick = [this] { cmd_Quit_Click(); };
    mnu_New.OnClick = [this] { New_Linkage(); };
    mnu_Open.OnClick = [this] { Menu_Open(*this); };
    mnu_Save.OnClick = [this] { Menu_Save(*this); };
    mnu_Saveas.OnClick = [this] { Menu_Saveas(*this); };
    mnu_Lobetra.OnClick = [this] { Menu_Lobetra(*this); };
    mnu_Link_Data_Import.OnClick = [this] { Menu_Link_Data_Import(*this); };
    mnu_Link_Data_Export.OnClick = [this] { Menu_Link_Data_Export(*this); };
    mnu_Export_Torque.OnClick = [this] { Menu_Export_Torque(*this); };
    mnu_pdx.OnClick = [this] { Menu_pdx(*this); };
    mnu_Quit.OnClick = [this] { cmd_Quit_Click(); };
}

void frm_HomeScreen::Bind_Menus() {
    mnu_pick.On(&MenuEntry::OnClick, [this](int index) { mnu_pick_Click(index); });
    Lead(mnu_CalcFFT, "frm_FFT");
    Lead(mnu_Explore, "frm_Explore");
    Lead(mnu_ChangeUser, "frm_User");
    Lead(mnu_About, "frm_About");
    Lead(mnu_Checks, "frm_Checks");
    Lead(mnu_Report, "frm_Report");
    Lead(mnu_Studies, "frm_Studies");
    mnu_UserName.OnClick = [] { Tell("Current user name is " + Model.SessionUser, Icon::kInformation); };
    mnu_FilePath.OnClick = [this] { mnu_FilePath_Click(); };
    mnu_AppPath.OnClick = [] { Tell("The application path is " + Model.AppPath, Icon::kInformation); };
    mnu_Standardsize.OnClick = [this] { Take_Size("frm_Homescreen.mnu_Standardsize", false); };
    mnu_Fullscreen.OnClick = [this] { Take_Size("frm_Homescreen.mnu_Fullscreen", true); };
    mnu_Aspect.OnClick = [this] { mnu_Aspect_Click(); };
    for (const auto& [entry, document] : Help_Documents())
        Get<MenuEntry>(entry).OnClick = [name = std::string(entry)] {
            Show_Help(Help_Document(name), "frm_Homescreen." + name);
        };
    Serve_Undo(*this, [this] { Show_Model(); });
    mnu_Recent.OnOpen = [this] { Show_Recent_Files(); };
    mnu_RecentFile.On(&MenuEntry::OnClick, [this](int index) { mnu_RecentFile_Click(index); });
    OnDrop = [](const std::string& path) { Take_Dropped_File(path); };
    Name_Keys();
    Take_Kept_Size();
    mnu_Recent.Enabled = Any_Recent();
}

void frm_HomeScreen::Name_Keys() {
    mnu_New.Keys = "Ctrl+N";
    mnu_Open.Keys = "Ctrl+O";
    mnu_Save.Keys = "Ctrl+S";
    mnu_Saveas.Keys = "Ctrl+Shift+S";
    mnu_Quit.Keys = "Ctrl+Q";
    cmd_Print.Keys = "Ctrl+P";
}

void frm_HomeScreen::Take_Kept_Size() {
    const platform::Settings& settings = platform::The_Settings();
    Model.FullScreen = settings.Text(kSizeSetting) == kMaximized;
    Model.AspectActive = settings.Text(kAspectSetting) == kCorrected && Model.AspectRatio != Single(1.6);
    if (Model.AspectActive) Model.AspectCorrection = 1.6 / Model.AspectRatio;
}

void frm_HomeScreen::Keep_Size() {
    platform::Settings& settings = platform::The_Settings();
    settings.Put(kSizeSetting, Model.FullScreen ? kMaximized : "");
    settings.Put(kAspectSetting, Model.AspectActive ? kCorrected : "");
    settings.Save();
}

void frm_HomeScreen::Show_Recent_Files() {
    recent_ = Recent_Files();
    for (int number = 1; number <= kMostRecent; ++number) {
        MenuEntry& entry = mnu_RecentFile[number];
        entry.Visible = number <= static_cast<int>(recent_.size());
        if (!entry.Visible) continue;
        const std::filesystem::path path = recent_[static_cast<std::size_t>(number - 1)];
        entry.Caption = "&" + std::to_string(number % kMostRecent) + "  " +
                        Without_Mnemonics(path.filename().string() + "  in  " + path.parent_path().string());
    }
}

void frm_HomeScreen::mnu_RecentFile_Click(int Index) {
    if (Index <= static_cast<int>(recent_.size()))
        Open_Model_File(*this, std::string(recent_[static_cast<std::size_t>(Index - 1)]));
}

void frm_HomeScreen::Note_Status_Width() { Model.StatusWidth = Width().Get(); }  // the panel spans the screen

void frm_HomeScreen::Form_Activate() {
    Guarded("frm_Homescreen.Activate", [this] {
        Fit_Screen(*this, kHomeWidth, kHomeHeight);
        Note_Status_Width();
        if (Model.JustStarted) {
            Model.JustStarted = false;
            // A model that was opened with the program has its own place.
            const bool named = !Model.FilePath.empty() && !Model.FilePath.ends_with('/');
            const std::string folder = named ? platform::Folder_Of(Model.FilePath) + "/" : Model.FilePath;
            Tell("Your default path for saved files is: " + folder, Icon::kInformation);
        }
        Refresh();
    });
}

void frm_HomeScreen::Form_Return() {
    Guarded("frm_Homescreen.Activate", [this] { Show_Model(); });
}

void frm_HomeScreen::Refresh() {
    mnu_Recent.Enabled = Any_Recent();
    Set_Menus();
    Refresh_Status();
    Model.ScreenReturn = false;
    Show_Linkage();
    Mark_Failing_Checks();
}

void frm_HomeScreen::Mark_Failing_Checks() {
    if (!Model.Calculated) {
        lbl_Checks.Visible = false;
        return;
    }
    const std::vector<Check> checks = Checks_Of(Model);
    lbl_Checks.Visible = Any_Fails(checks);
    lbl_Checks.Caption = Summary_Of(checks);
    lbl_Checks.Tip = "Checks, in the menu Tools, tells which";
}

void frm_HomeScreen::Show_Model() {
    Check_mnu_Units(*this, Model.Units);
    Check_Cognates();
    Refresh();
}

void frm_HomeScreen::Form_QueryUnload(bool& cancel) {
    cancel = true;
    cmd_Quit_Click();
}

void frm_HomeScreen::Form_Unload() { Terminate(); }

void frm_HomeScreen::Show_Linkage() {
    // The picture has a run of its own where there is none yet, and settings of its own: the user's stay, and so does
    // the window that the animate screen drags in.
    const Kept_Record kept(Model);
    if (!Model.RunStands && Can_Close()) Run_Unasked(Model);
    const bool there = Model.RunStands;
    Picture1.Visible = there;
    lbl_Name.Visible = !there;
    lbl_Advice.Visible = !there;
    if (there) {
        Model.HideLinksFlag = Model.TraceFlag = Model.ShowCouplerLinesFlag = "N";
        Model.ShowCouplerFlag = "Y";
        Model.ShowCentrodesFlag = "N";
        Model.ZoomFactor = 1;
        Autoscale();
        Make_Room_For_Weights();
        Animate_Setup(*this);
        DrawLinkage(*this, First_That_Closes());
    }
}

std::optional<std::function<std::string()>> frm_HomeScreen::Linkage_Drawing() {
    if (!Picture1.Visible) {
        Tell_Nothing_To_Draw();
        return {};
    }
    return [] {
        // As for the picture.
        const Kept_Record kept(Model);
        if (!Model.RunStands) Run_Unasked(Model);
        return Linkage_Dxf(Model, First_That_Closes());
    };
}

void frm_HomeScreen::cmd_Balance_Click() {
    Guarded("frm_Homescreen.cmd_Balance", [] {
        if (Model.Calctype == run::kByAngle)
            Show_Centered("frm_Balance");
        else
            Tell(kNoConstantOmega, Icon::kInformation);
    });
}

void frm_HomeScreen::cmd_Quit_Click() {
    Guarded("frm_Homescreen.cmd_Quit", [this] {
        if (Modified()) Menu_Saveas(*this);
        Show_Centered("frm_Quit");
    });
}

bool frm_HomeScreen::New_Linkage() {
    bool made = false;
    Guarded("frm_Homescreen.New", [&] {
        if (Ask_To_Keep() == Answer::kYes) Menu_Saveas(*this);
        const Answer answer =
            The_Desktop().Show_Message({.text = kConfirmReset, .icon = Icon::kQuestion, .buttons = Buttons::kOkCancel});
        if (answer != Answer::kOk) return;
        New_Model();
        made = true;
        Use_Units(Model.Units);
        Check_mnu_Units(*this, Model.Units);
        Form_Activate();
    });
    return made;
}

void frm_HomeScreen::mnu_pick_Click(int Index) {
    Guarded("frm_Homescreen.mnu_pick", [this, Index] {
        Integer picked = Index;
        Check_mnu_Units(*this, picked);
        const Integer old = Model.Units;
        if (picked == old) return;
        // The decimals of the new system come first: the conversion rounds to them.
        Use_Units(picked);
        if (!Convert_Units(old, picked)) {
            Use_Units(old);
            Check_mnu_Units(*this, Model.Units);
            return;
        }
        Refresh_Status();
        Show_Centered("frm_Inputnew");
    });
}

void frm_HomeScreen::mnu_FilePath_Click() {
    Guarded("frm_Homescreen.mnu_FilePath", [] {
        if (Model.FilePath.empty()) Find_Data_Folder();
        Tell("Path for saved files is " + Model.FilePath, Icon::kInformation);
    });
}

void frm_HomeScreen::Take_Size(const char* told_as, bool full) {
    Guarded(told_as, [this, full] {
        Model.FullScreen = full;
        (full ? Maximize_Screen : Reset_Screen)(*this, kHomeWidth, kHomeHeight);
        Note_Status_Width();
        Keep_Size();
    });
}

void frm_HomeScreen::mnu_Aspect_Click() {
    Guarded("frm_Homescreen.mnu_Aspect", [this] {
        std::string text = std::string("Screen aspect ratio is its (width in pixels) / (height in pixels).") + CRLF +
                           "Some aspect ratios make circles appear as ellipses." + CRLF +
                           "The default in this program is set for a ratio of 1.6." + CRLF + CRLF +
                           "Your aspect ratio is " + Text_Of(Model.AspectRatio) + CRLF + CRLF;
        if (Model.AspectRatio == Single(1.6)) {
            Tell(text, Icon::kInformation);
            return;
        }
        if (Model.AspectCorrection == 1.0)
            text += std::string("If your circles appear as ellipses you can apply a correction here.") + CRLF +
                    "Choose OK to correct the aspect ratio and Cancel to not do it.";
        else
            text += std::string("An aspect-ratio correction has already been applied.") + CRLF +
                    "Choose OK to keep the correction and Cancel to undo it.";
        const Answer answer =
            The_Desktop().Show_Message({.text = text, .icon = Icon::kQuestion, .buttons = Buttons::kOkCancel});
        Model.AspectActive = answer == Answer::kOk;
        if (!Model.AspectActive)
            Model.AspectCorrection = 1;
        else if (!Model.FullScreen)  // where nothing is corrected, and the next question goes by it all the same
            Model.AspectCorrection = 1.6 / Model.AspectRatio;
        Keep_Size();
        Form_Activate();
    });
}

}  // namespace verlink
