// The file menu of the screens above the home screen, and files that are dropped on a window.
#pragma once

#include <functional>
#include <string>

#include "platform/screen.h"

namespace verlink {

/// What the home screen's file menu does, on the screen of a linkage. `settle` takes over what is typed there, as
/// leaving the screen would.
class File_Entries {
   public:
    using MenuEntry = platform::MenuEntry;
    File_Entries(platform::Screen& owner, std::function<void()> settle);

    MenuEntry mnu_File;
    MenuEntry mnu_New;
    MenuEntry mnu_Open;
    MenuEntry mnu_FileBar1;
    MenuEntry mnu_Save;
    MenuEntry mnu_Saveas;
    MenuEntry mnu_FileBar2;
    MenuEntry mnu_Quit;

   private:
    void New();
    std::function<void()> settle_;
};

/// A file goes the way that the menus have for its kind, with their questions: drive data (.sva, .out) and torque
/// tables (.trq) by the end of its name, tasks (.vld) into the model in hand, everything else as a model.
void Take_Dropped_File(const std::string& path);

}  // namespace verlink
