// The last menu of the screens that show the linkage: what lies over its picture and stands beside it.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "animation/overlays.h"
#include "animation/shown.h"
#include "design/wanted.h"
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
    /// Raised on the other screens that have the same choice.
    std::function<void()> OnChoiceElsewhere;
    /// Takes the mark over that was chosen elsewhere.
    void Follow() { Checked = On(); }

   private:
    std::string setting_;
};

/// Declared behind all other menus of a screen. Whoever adds to the menu gives `mnu_View` as the parent of entries that
/// are declared behind this, the first of them with an empty caption to draw a line.
class View_Menu {
   public:
    /// What is chosen lies over `Picture1` as long as a position is shown there. `redraw`, where there is one, draws
    /// the position again for another choice; without it the run in the record is the one that is shown.
    explicit View_Menu(platform::Screen& owner, std::function<void()> redraw = nullptr);

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

    /// What lies over the position that was shown last, with all that goes by the run found anew; nothing where the
    /// run does not stand.
    platform::Overlay Found_Anew() const;

    /// An entry that stands elsewhere in the menu: its choice lies over the picture with the others.
    void Serve(View_Choice& choice);

   private:
    View_Wishes Wishes() const;
    /// The positions to be marked, where they are chosen.
    std::vector<design::Wanted> Wanted() const;
    void Show(const Shown& shown);
    void Choice_Made();
    void Lay_Over_Anew();

    platform::Screen& owner_;
    std::function<void()> redraw_;
    std::optional<Overlay_Scales> scales_;  ///< of the run that plays
    std::vector<design::Wanted> wanted_;    ///< positions that it passes or not
    int scaled_ = 0;                        ///< which results they are of
    Position_Ear ear_;
};

/// The last entry of the view menu, behind a line: the positions that the linkage was found for.
class Positions_Entry {
   public:
    explicit Positions_Entry(View_Menu& view);
    platform::MenuEntry mnu_ViewBar9;
    View_Choice mnu_ViewPositions;
};

}  // namespace verlink
