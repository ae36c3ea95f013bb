// The file menu of the home screen: Open, Save and Save As.
#include <utility>

#include "core/model_on_screens.h"
#include "core/numeric.h"
#include "core/results.h"
#include "files/in_hand.h"
#include "files/model_file.h"
#include "files/recent_files.h"
#include "files/task_file.h"
#include "platform/desktop_services.h"
#include "platform/file_system.h"
#include "platform/guard.h"

namespace verlink {

using namespace platform;

namespace {

/// The tasks, beside the model that was written.
bool Save_Tasks(const LinkageModel& model) {
    return Guarded("Writefile", [&] {
        Document& document = *Document_In_Hand();
        const std::string& path = model.FilePath;
        const bool left = document.tasks_left == Tasks_Path(path);
        document.tasks = Write_Tasks(model, path, document.tasks, left);
        if (left && !document.tasks.empty()) document.tasks_left.clear();
    });
}

/// Writes the model to `FilePath` under the hourglass. In a dialog the user has agreed to what is replaced, and named
/// the model. False when it could not be written: the old file is whole then.
bool Save(Screen& home, bool by_dialog) {
    The_Desktop().Set_Pointer(Pointer::kHourglass);
    const bool written = Writefile(by_dialog ? Replacing::kAgreed : Replacing::kUnasked) && Save_Tasks(Model);
    if (written)
        Model_Saved();
    else
        Model_Unsaved();  // so that the next Save asks where to
    if (written && by_dialog) Model.ModelName = StripFilename(Model.FilePath);
    if (written) Model_Kept();
    With<MenuEntry>(home, "mnu_Recent", kNoIndex, [](MenuEntry& entry) { entry.Enabled = Any_Recent(); });
    The_Desktop().Set_Pointer(Pointer::kDefault);
    Refresh_Status();
    return written;
}

void Read_Model_File(const std::string& path) {
    The_Desktop().Set_Pointer(Pointer::kHourglass);
    const bool read = Readfile(Read_File(path), path);
    The_Desktop().Set_Pointer(Pointer::kDefault);
    if (!read) return;
    Set_Menus();
    With<PictureBox>("frm_Inputnew", "Picture1", kNoIndex, [](PictureBox& box) { box.Canvas().Cls(); });
    Refresh_Status();
}

}  // namespace

Answer Ask_To_Keep() {
    if (!Modified()) return Answer::kNo;
    return The_Desktop().Show_Message(
        {.text = "The current data has not been saved.  Do you want to save it before resetting?",
         .icon = Icon::kQuestion,
         .buttons = Buttons::kYesNo});
}

bool May_Replace(Screen& home) {
    const Answer answer = Ask_To_Keep();
    if (answer == Answer::kCancel) return false;
    if (answer != Answer::kYes) return true;
    // The dialog comes twice, saved or not.
    Menu_Saveas(home);
    Menu_Saveas(home);
    return Model.SavedFlag;
}

bool May_End_Session(Screen& home) {
    const Answer answer = Ask_To_Keep();
    if (answer == Answer::kCancel) return false;
    if (answer != Answer::kYes) return true;
    Menu_Saveas(home);
    // A dialog that was cancelled, and a file that could not be written, leave it as it is.
    return !Modified();
}

void Menu_Open(Screen& home) {
    Guarded_Unless_Cancelled("frm_Homescreen.Open", [&] {
        if (!May_Replace(home)) return;
        auto& dialog = home.Get<CommonDialog>("CommonDialog1");
        dialog.DialogTitle = "Open a model";
        dialog.Filter = "Verlink (*.vlk)|*.vlk|All (*.*)|*.*|";
        dialog.FilterIndex = 1;
        dialog.FileName = "*.vlk";
        dialog.Kind = "model";
        dialog.ShowOpen();
        Read_Model_File(dialog.FileName);
    });
}

void Open_Model_File(Screen& home, const std::string& path) {
    Guarded("frm_Homescreen.Open", [&] {
        if (May_Replace(home)) Read_Model_File(path);
    });
}

void Menu_Save(Screen& home) {
    Guarded("frm_Homescreen.Save", [&] {
        if (Model.SavedFlag)
            Save(home, false);
        else
            Menu_Saveas(home);
    });
}

void Menu_Saveas(Screen& home) {
    Guarded_Unless_Cancelled("frm_Homescreen.SaveAs.vlk", [&] {
        auto& dialog = home.Get<CommonDialog>("CommonDialog1");
        dialog.DialogTitle = "Save the Model";
        dialog.Filter = "(*.vlk)|*.vlk";
        dialog.FilterIndex = 1;
        dialog.FileName = Model.ModelName + ".vlk";
        dialog.OverwritePrompt = true;
        dialog.Kind = "model";
        dialog.ShowSave();
        const std::string before = std::exchange(Model.FilePath, dialog.FileName);
        if (!Save(home, true)) Model.FilePath = before;
    });
}

}  // namespace verlink
