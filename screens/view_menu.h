// The last menu of the screens that show the linkage: what lies over its picture and stands beside it.
#pragma once

#include <functional>
#include <string>

#include "platform/screen.h"

namespace verlink {

/// An entry with a mark. Its choice is one for all screens that have an entry of that name, and is kept from session
/// to session as the setting "view." + `setting`; without one it is off.
class View_Choice : public platform::MenuEntry {
   public:
    View_Choice(platform::MenuEntry& parent, const std::string& name, const std::string& caption,
                const std::string& setting, const std::string& tip);
    bool On() const;
    /// As a click of the user does.
    void Choose(bool on);
    /// Raised on the screen where the user chose, after the marks of all screens have followed.
    std::function<void()> OnChoice;
    /// Takes the mark over that was chosen elsewhere.
    void Follow() { Checked = On(); }

   private:
    std::string setting_;
};

/// Declared behind all other menus of a screen. Whoever adds to the menu gives `mnu_View` as the parent of entries that
/// are declared behind this, the first of them with an empty caption to draw a line.
class View_Menu {
   public:
    explicit View_Menu(platform::Screen& owner);

    platform::MenuEntry mnu_View;
    View_Choice mnu_ViewPoles;
    View_Choice mnu_ViewVelocities;
    View_Choice mnu_ViewAccelerations;
    View_Choice mnu_ViewPinForces;
    View_Choice mnu_ViewShakingForce;
    View_Choice mnu_ViewCurvature;
    View_Choice mnu_ViewGrid;
    View_Choice mnu_ViewNames;
    View_Choice mnu_ViewGhosts;
};

}  // namespace verlink
