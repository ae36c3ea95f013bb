// Saving a mechanism as a drawing for CAD programs, from the menu View of a screen.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "animation/shown.h"
#include "platform/screen.h"

namespace verlink {

/// Behind the other entries of the menu.
class Drawing_Entry {
   public:
    /// What is to be drawn, made when it has to be written; nothing where there is nothing, after it has been told why.
    using Find = std::function<std::optional<std::function<std::string()>>()>;
    /// The file is called `what` behind the model's name.
    Drawing_Entry(platform::MenuEntry& menu, std::string what, Find find);

    platform::MenuEntry mnu_SaveDrawing;
};

/// The same for a screen that shows positions of the run: the one shown is drawn.
class Linkage_Drawing_Entry : public Drawing_Entry {
   public:
    explicit Linkage_Drawing_Entry(platform::MenuEntry& menu);

   private:
    Position_Ear shown_;
};

/// Says that there is no linkage to be drawn.
void Tell_Nothing_To_Draw();

/// A last menu, for screens that have no menu View.
struct Drawing_Menu {
    Drawing_Menu(platform::Screen& owner, const std::string& what, Drawing_Entry::Find find)
        : mnu_View(owner, "mnu_View", "View"), drawing(mnu_View, what, std::move(find)) {}
    platform::MenuEntry mnu_View;
    Drawing_Entry drawing;
};

}  // namespace verlink
