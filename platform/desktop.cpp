// The desktop in force, and the short forms of asking it.
#include "platform/desktop.h"

#include <stdexcept>

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

void CommonDialog::ShowOpen() {
    const auto path = The_Desktop().Ask_Open_File({DialogTitle, Filter, FilterIndex, FileName, false});
    if (!path) Raise(kDialogCancelled);
    FileName = *path;
}

void CommonDialog::ShowSave() {
    const auto path = The_Desktop().Ask_Save_File({DialogTitle, Filter, FilterIndex, FileName, OverwritePrompt});
    if (!path) Raise(kDialogCancelled);
    FileName = *path;
}

void CommonDialog::ShowPrinter() {
    if (!The_Desktop().Ask_Printer()) Raise(kDialogCancelled);
}

}  // namespace verlink::platform
