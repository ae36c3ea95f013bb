// The last menu of the screens that show or choose tables: saving and copying them.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "files/table_files.h"
#include "platform/screen.h"

namespace verlink {

/// Declared behind all other menus of a screen.
class Table_Menu {
   public:
    /// `table` says what there is to be saved; nothing where there is nothing yet, after it has told why.
    Table_Menu(platform::Screen& owner, std::function<std::optional<Table_To_Save>()> table);

    platform::MenuEntry mnu_Table;
    platform::MenuEntry mnu_SaveTable;
    platform::MenuEntry mnu_CopyTable;

   private:
    std::function<std::optional<Table_To_Save>()> table_;
};

/// A table of the model in hand, which is called `what` behind its name.
Table_To_Save Table_Of_The_Model(const std::string& what, int every, std::function<Sheet(int every)> sheet);

}  // namespace verlink
