// What the entries do.
#include "screens/table_menu.h"

#include <utility>

#include "core/linkage_model.h"
#include "output/model_facts.h"
#include "platform/clipboard.h"
#include "platform/guard.h"

namespace verlink {

Table_Menu::Table_Menu(platform::Screen& owner, std::function<std::optional<Table_To_Save>()> table)
    : mnu_Table(owner, "mnu_Table", "Table"),
      mnu_SaveTable(mnu_Table, "mnu_SaveTable", "Save Table..."),
      mnu_CopyTable(mnu_Table, "mnu_CopyTable", "Copy Table"),
      table_(std::move(table)) {
    mnu_SaveTable.Tip = "Write the table for a spreadsheet, with the model on a second sheet, or as text";
    mnu_CopyTable.Tip = "Put the whole table with its heads on the clipboard, to be pasted into a spreadsheet";
    mnu_SaveTable.OnClick = [this] {
        Guarded("Save_Table", [this] {
            if (const auto found = table_()) Save_Table(*found);
        });
    };
    mnu_CopyTable.OnClick = [this] {
        Guarded("Copy_Table", [this] {
            if (const auto found = table_()) platform::Copy_Text(Separated_Text(found->sheet(found->every), '\t'));
        });
    };
}

Table_To_Save Table_Of_The_Model(const std::string& what, int every, std::function<Sheet(int every)> sheet) {
    return {.sheet = std::move(sheet),
            .every = every,
            .model = Model_Facts(Model),
            .author = Model.UserName,
            .name = Model.ModelName.empty() ? what : Model.ModelName + "_" + what};
}

}  // namespace verlink
