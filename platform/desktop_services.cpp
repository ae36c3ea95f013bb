// The desktop in force, and the short forms of asking it.
#include "platform/desktop_services.h"

#include <filesystem>
#include <stdexcept>

#include "platform/settings.h"
#include "platform/unheard.h"

namespace verlink::platform {

namespace {
Desktop* in_force = nullptr;
int unheard = 0;
}  // namespace

Unheard::Unheard() { ++unheard; }

Unheard::~Unheard() { --unheard; }

bool Unheard::On() { return unheard > 0; }

Desktop& The_Desktop() {
    if (!in_force) throw std::logic_error("no desktop is in force");
    return *in_force;
}

void Use_Desktop(Desktop* desktop) { in_force = desktop; }

void Tell(const std::string& text, Icon icon) {
    if (!Unheard::On()) The_Desktop().Show_Message({.text = text, .icon = icon});
}

bool Ask_Yes(const std::string& text, Icon icon) {
    return The_Desktop().Show_Message({.text = text, .icon = icon, .buttons = Buttons::kYesNo}) == Answer::kYes;
}

std::optional<std::string> Ask_File(FileDialog dialog, bool save) {
    const std::string setting = "folder." + dialog.kind;
    if (!dialog.kind.empty()) dialog.folder = The_Settings().Text(setting);
    auto path = save ? The_Desktop().Ask_Save_File(dialog) : The_Desktop().Ask_Open_File(dialog);
    if (path && !dialog.kind.empty()) The_Settings().Put(setting, std::filesystem::path(*path).parent_path().string());
    return path;
}

void CommonDialog::Show(bool save) {
    const auto path = Ask_File({.title = DialogTitle,
                                .filter = Filter,
                                .filter_index = FilterIndex,
                                .file_name = FileName,
                                .warn_before_overwriting = save && OverwritePrompt,
                                .kind = Kind},
                               save);
    if (!path) Raise(kDialogCancelled);
    FileName = *path;
}

void CommonDialog::ShowOpen() { Show(false); }
void CommonDialog::ShowSave() { Show(true); }

void CommonDialog::ShowPrinter() {
    if (!The_Desktop().Ask_Printer()) Raise(kDialogCancelled);
}

}  // namespace verlink::platform
