// Undo and redo on a screen, and what it says of the model in hand.
#pragma once

#include <functional>
#include <string>

#include "platform/screen.h"

namespace verlink {

/// A last menu, for screens that have menus.
struct Edit_Menu {
    explicit Edit_Menu(platform::Screen& screen) : mnu_Edit(screen, "mnu_Edit", "Edit") {}
    platform::MenuEntry mnu_Edit;
    platform::MenuEntry mnu_Undo{mnu_Edit, "mnu_Undo", "Undo"};
    platform::MenuEntry mnu_Redo{mnu_Edit, "mnu_Redo", "Redo"};
};

/// The screen takes undo and redo: its entries `mnu_Undo` and `mnu_Redo`, if it has them, do it and say what. `show`
/// puts the model on the screen without changing it.
void Serve_Undo(platform::Screen& screen, std::function<void()> show);

/// The entries of all screens by what was done, and their labels `lbl_Model` by the model in hand.
void Show_What_Is_Done();

/// "press*" for a modified model of that name, for titles of windows, and the windows that have it there.
std::string Name_In_Hand();
bool Tells_Of_The_Model(const platform::Screen& screen);

}  // namespace verlink
