// A pane of live plots that a user watches.
#pragma once

#include <algorithm>
#include <cmath>

#include "core/text.h"
#include "dynamics/dynacalc.h"
#include "dynamics/units.h"
#include "output/catalogue.h"
#include "platform/settings.h"
#include "tests/screens/frm_animate_fixture.h"

namespace verlink::test {

using platform::Graph;
using platform::The_Settings;

inline constexpr char kNoRun[] = "Nothing is calculated for this linkage as it stands.";
inline constexpr char kVelocityPreset[] = "Velocity of Coupler Point  -  X, Y, Mag, Ang Coordinates";
inline constexpr char kForcePreset[] = "Force of Link 1 on 2  -  X, Y, Mag, Ang Coordinates";

class LivePlots : public AnimateScreen {
   protected:
    LivePlots() {
        The_Settings().Open(Path("config"));
        Load_Catalogue();
    }
    ~LivePlots() override { The_Settings().Open(""); }

    /// The pane is open and shows that function in slot 1 alone.
    void Watching(const std::string& variable, const std::string& component, const std::function<void()>& user) {
        After_First_Picture([&] {
            Open();
            Pick(form.live.Slots[0]->cmb_LiveVar, variable);
            if (!component.empty()) Pick(form.live.Slots[0]->cmb_LiveCom, component);
            user();
        });
    }
    void Open() { Pick_Menu(form, "mnu_ViewLive"); }
    static void Pick(platform::ComboBox& box, const std::string& item) {
        const auto found = std::find(box.Items().begin(), box.Items().end(), item);
        ASSERT_NE(found, box.Items().end()) << item;
        box.Choose(static_cast<int>(found - box.Items().begin()));
    }
    Graph& Own(int slot) { return form.live.grf_Live[slot]; }
    static const std::vector<double>& Values(const Graph& graph, int set = 0) {
        return graph.Sets().at(static_cast<std::size_t>(set)).values;
    }
    double At_Cursor(int slot = 1) {
        const int point = Own(slot).Cursor;
        return point < 1 ? NAN : Values(Own(slot)).at(static_cast<std::size_t>(point - 1));
    }
    std::string Note() { return form.live.lbl_LiveNote.Caption; }
    bool All_Empty() {
        for (const auto& graph : form.live.grf_Live)
            if (graph->Visible || graph->NumPoints() > 0 || graph->Cursor != 0) return false;
        return true;
    }
    void Drag(double x, double y) { form.Picture1.OnMouseMove(1, 1, x, Model.FlipSum - y); }
    void Give_Masses() {
        for (int link = 2; link <= 4; ++link) {
            Model.LinkMass(link) = 0.1 * link;
            Model.LinkInertia(link) = 0.05 * link;
            Model.CG(link, 0) = 0.5;
            Model.CG(link, 1) = 0.3;
        }
        ASSERT_TRUE(Solve_Forces(Model));
    }
    /// Velocity of the coupler point in the global frame, by the angle and speed of the links that carry it.
    static double Velocity_X(int step) {
        const double to_shown = Shown_Factor(), k = M_PI / 180;
        const double theta2 = Model.RunTable.Theta(step, 0) * k, theta3 = Model.RunTable.Theta(step, 1) * k;
        return to_shown * (-Model.L2 * Model.RunTable.Omega(step, 0) * std::sin(theta2) -
                           Model.Rpa * Model.RunTable.Omega(step, 1) * std::sin(theta3 + Model.DeltaRad));
    }
    static double Velocity_Y(int step) {
        const double to_shown = Shown_Factor(), k = M_PI / 180;
        const double theta2 = Model.RunTable.Theta(step, 0) * k, theta3 = Model.RunTable.Theta(step, 1) * k;
        return to_shown * (Model.L2 * Model.RunTable.Omega(step, 0) * std::cos(theta2) +
                           Model.Rpa * Model.RunTable.Omega(step, 1) * std::cos(theta3 + Model.DeltaRad));
    }
    static void Expect_Near(double found, double expected) {
        EXPECT_NEAR(found, expected, 2e-5 * std::max(1.0, std::abs(expected)));
    }
};

}  // namespace verlink::test
