// What the entry does.
#include "screens/drawing_entry.h"

#include <utility>

#include "animation/linkage_dxf.h"
#include "core/linkage_model.h"
#include "files/table_files.h"
#include "platform/desktop_services.h"
#include "platform/guard.h"

namespace verlink {

Drawing_Entry::Drawing_Entry(platform::MenuEntry& menu, std::string what, Find find)
    : mnu_SaveDrawing(menu, "mnu_SaveDrawing", "Save Drawing...") {
    mnu_SaveDrawing.Tip = "Write the mechanism to scale as DXF, for a CAD program or a cutter";
    mnu_SaveDrawing.OnClick = [what = std::move(what), find = std::move(find)] {
        Guarded("Save_Drawing", [&] {
            if (const auto content = find())
                Save_Drawing(*content, Model.ModelName.empty() ? what : Model.ModelName + "_" + what);
        });
    };
}

Linkage_Drawing_Entry::Linkage_Drawing_Entry(platform::MenuEntry& menu)
    : Drawing_Entry(menu, "linkage",
                    [this]() -> std::optional<std::function<std::string()>> {
                        if (Model.RunStands && shown_.Step() != kNoStep)
                            return [this] { return Linkage_Dxf(Model, shown_.Step()); };
                        Tell_Nothing_To_Draw();
                        return {};
                    }),
      shown_(menu.Owner(), nullptr) {}

void Tell_Nothing_To_Draw() {
    platform::Tell("There is no linkage to be drawn. Calculate first.", platform::Icon::kInformation);
}

}  // namespace verlink
