// What a screen says when it is arrived at it says again when a step is undone there, whatever stood on it meanwhile.
#include <map>
#include <set>

#include "core/model_on_screens.h"
#include "platform/deed.h"
#include "shell/history.h"
#include "shell/startup.h"
#include "tests/screens/forces_fixture.h"

namespace verlink::test {
namespace {

using namespace platform;
using Said = std::map<std::string, std::string>;

class ShownAnew : public Forces {
   protected:
    ShownAnew() {
        Set_Identity();
        Model.UserName = "Ada";
        Model.DesignNumber = 7;
        Model.ModelName = "press";
        Model.FilePath = "/models/press.vlk";
        Run_Counts();
    }
    static const char* Word(bool so) { return so ? "yes" : "no"; }
    static Property<std::string>* Text_On(Control& control) {
        if (auto* label = dynamic_cast<Label*>(&control)) return &label->Caption;
        if (auto* box = dynamic_cast<TextBox*>(&control)) return &box->Text;
        return nullptr;
    }
    static Said Told(Screen& screen) {
        Said said;
        for (Control* control : screen.Controls()) {
            const std::string name = control->ObjectName();
            if (const auto* text = Text_On(*control)) said[name + " says"] = text->Get();
            if (const auto* visual = dynamic_cast<const Visual*>(control)) {
                said[name + " is on"] = Word(visual->Enabled);
                said[name + " is shown"] = Word(visual->Visible);
                said[name + " has the tip"] = visual->Tip.Get();
                said[name + " is coloured"] = std::to_string(visual->BackColor);
            }
            if (const auto* bar = dynamic_cast<const ScrollBar*>(control))
                said[name + " ends"] = std::to_string(bar->Max());
            if (const auto* entry = dynamic_cast<const MenuEntry*>(control))
                said[name + " is on"] = Word(entry->Enabled);
        }
        return said;
    }
    /// All of it is wrong, but for what is not among `these`.
    static void Spoil(Screen& screen, const std::set<std::string>* these = nullptr) {
        const auto meant = [&](const std::string& what) { return !these || these->contains(what); };
        for (Control* control : screen.Controls()) {
            const std::string name = control->ObjectName();
            if (auto* text = Text_On(*control); text && meant(name + " says")) {
                const std::function<void()> event = std::exchange(text->Event, nullptr);
                *text = "spoilt";
                text->Event = event;
            }
            if (auto* visual = dynamic_cast<Visual*>(control)) {
                if (meant(name + " is on")) visual->Enabled = !visual->Enabled;
                if (meant(name + " is shown")) visual->Visible = !visual->Visible;
                if (meant(name + " has the tip")) visual->Tip = "spoilt";
                if (meant(name + " is coloured")) visual->BackColor = 0x123456;
            }
            if (auto* bar = dynamic_cast<ScrollBar*>(control); bar && meant(name + " ends"))
                bar->SetMax(bar->Max() + 7);
            auto* entry = dynamic_cast<MenuEntry*>(control);
            if (entry && meant(name + " is on")) entry->Enabled = !entry->Enabled;
        }
    }
    static void Weigh(double mass) {
        const Deed deed("weigh");
        Model.LinkMass(3) = mass;
    }
    static void Expect_Written(const char* name, const std::set<std::string>& all);
    /// What the screen writes as it is arrived at, and that it writes the same when a step is undone.
    void Expect_Said_Again(const char* name, const std::set<std::string>& but = {}) {
        SCOPED_TRACE(name);
        Screen& screen = Screens::Get(name);
        Inside(screen, [&] {
            const Said arrived = Told(screen);
            Spoil(screen);
            screen.Form_Activate();
            std::set<std::string> written;
            for (const auto& [what, how] : Told(screen))
                if (how == arrived.at(what) && !but.contains(what)) written.insert(what);
            EXPECT_GE(written.size(), 10U);
            Deed::By_Itself();
            The_History().Begin();
            Weigh(2);
            Spoil(screen, &written);
            The_History().Undo();
            const Said again = Told(screen);
            for (const std::string& what : written) EXPECT_EQ(again.at(what), arrived.at(what)) << what;
        });
    }
};

/// "name_INDEX what" of several.
std::set<std::string> All(const char* what, const std::set<std::string>& names) {
    std::set<std::string> all;
    for (const std::string& name : names) all.insert(name + " " + what);
    return all;
}
std::set<std::string> Those(const std::string& name, std::initializer_list<int> indices) {
    std::set<std::string> all;
    for (const int index : indices) all.insert(name + "_" + std::to_string(index));
    return all;
}
std::set<std::string> operator+(std::set<std::string> some, const std::set<std::string>& more) {
    some.insert(more.begin(), more.end());
    return some;
}

/// What stood there before the screen was arrived at is gone, and the same is said as at the first time.
void ShownAnew::Expect_Written(const char* name, const std::set<std::string>& all) {
    SCOPED_TRACE(name);
    Screen& screen = Screens::Get(name);
    screen.Form_Activate();
    const Said arrived = Told(screen);
    Spoil(screen);
    screen.Form_Activate();
    const Said again = Told(screen);
    for (const std::string& what : all) EXPECT_EQ(again.at(what), arrived.at(what)) << what;
}

TEST_F(ShownAnew, BoxesUnitsAndWaysOnOfTheWorkScreensAsTheyAreArrivedAt) {
    const std::set<std::string> three{"txt_Mass", "txt_Inertia", "txt_DistCG", "txt_AngCG"},
        two{"txt_MagForce", "txt_AngForce", "txt_DistP", "txt_AngP", "txt_Torque"};
    std::set<std::string> boxes{"txt_Frict_3"};
    for (const std::string& box : three) boxes = boxes + Those(box, {2, 3, 4});
    for (const std::string& box : two) boxes = boxes + Those(box, {3, 4});
    Expect_Written("frm_MassProp", All("says", boxes + Those("Lbl_DistUnit", {1, 2}) + Those("lbl_AngUnit", {1, 2, 3}) +
                                                   Those("lbl_ForceUnit", {1, 2}) +
                                                   std::set<std::string>{"lbl_Header", "lbl_InertiaUnit",
                                                                         "lbl_MassUnit", "lbl_TorqueUnit"}) +
                                       All("is on", {"cmd_Solve", "cmd_Done", "cmd_Matrix", "cmd_Copy", "cmd_Print"}));
    Expect_Written("frm_Balance",
                   All("says", Those("txt_BerkMass", {2, 4}) + Those("txt_Radius", {2, 4}) +
                                   Those("txt_MRproduct", {2, 4}) + Those("lbl_MRUnit", {0, 1, 2, 3}) +
                                   Those("lbl_Unit", {0, 1, 2, 3}) + Those("lbl_AngUnit", {2, 4}) +
                                   std::set<std::string>{"lbl_Header", "lbl_Ang2", "lbl_Ang4", "lbl_MR2", "lbl_MR4"}) +
                       All("is on", {"cmd_Done", "cmd_Print", "cmd_copy", "cmd_back"}) +
                       All("is shown", Those("grf_Plot", {0, 1}) + std::set<std::string>{"pct_Pict1"}));
    Expect_Written("frm_FFT",
                   All("says", {"lbl_Header", "lbl_Header2"}) + All("is on", {"cmd_Copy", "cmd_Done", "cmd_Print"}));
    Expect_Written("frm_Cayley",
                   All("says", Those("txt_Linkout", {0, 1, 2, 3, 4, 5}) + Those("lbl_Units", {0, 1, 2, 3, 4}) +
                                   std::set<std::string>{"Pnl_Grashof"}));
    Expect_Written("frm_Matrix", All("is on", {"cmd_Copy", "cmd_Print"}));
    Expect_Written("frm_User", All("says", {"txt_DesignNo", "txt_Filename", "txt_UserName"}));
    Expect_Written("frm_Title", {"lbl_Version says"});
    Expect_Written("frm_About", {"lbl_Version says"});
}

TEST_F(ShownAnew, LinkageAndRunOfTheScreensOfTheLinkageAsTheyAreArrivedAt) {
    const auto lengths = Those("txt_Linkout", {0, 1, 2, 3, 4, 5, 6, 15, 16}) +
                         Those("lbl_Units", {0, 1, 2, 3, 4, 11, 12}) + Those("txt_initial", {0, 1, 2});
    const auto shown = Those("txt_initial", {0, 1, 2}) + Those("lbl_Initial", {0, 1, 2, 3}) +
                       Those("lbl_Unit", {0, 1, 2, 3}) +
                       std::set<std::string>{"fra_toggle", "lbl_camdriven", "pnl_cw", "pnl_ccw", "pnl_time"};
    const std::set<std::string> also{"txt_Figure", "lbl_camdriven"};
    Expect_Written(
        "frm_Inputnew",
        All("says", lengths + also + Those("lbl_Unit", {0, 1, 2, 4}) +
                        std::set<std::string>{"txt_initial_3", "txt_Thetazero", "lbl_Grashof", "lbl_calctype"}) +
            All("is shown", shown + Those("opt_Calctype", {1, 2, 3}) +
                                std::set<std::string>{"fra_calcmode", "txt_initial_3", "txt_initial_4"}) +
            All("is on",
                Those("txt_initial", {1, 2}) +
                    std::set<std::string>{"cmd_Animate", "cmd_Done", "cmd_PlotPrint", "cmd_Step", "opt_Calctype_2"}));
    Expect_Written("frm_Animate",
                   All("says", lengths + also + std::set<std::string>{"lbl_Header", "txt_Cycles", "txt_LineAngle"}) +
                       All("is shown", shown + std::set<std::string>{"lbl_Omega"}) +
                       All("is on", Those("txt_initial", {1, 2}) +
                                        std::set<std::string>{"cmd_Animate", "cmd_Done", "cmd_PlotPrint", "cmd_Recalc",
                                                              "cmd_Reset", "cmd_Step", "mnu_Zoomcontrol"}));
    Expect_Written(
        "frm_HomeScreen",
        All("says", Those("lbl_Status", {0, 1, 2, 3, 4, 5, 6, 7, 8, 10})) +
            All("is shown", Those("lbl_Status", {0, 1, 2, 3, 4, 5, 6, 7, 8}) +
                                std::set<std::string>{"Picture1", "lbl_Advice", "lbl_Checks", "lbl_Name"}) +
            All("is on", Those("mnu_Cog", {1, 2, 3}) +
                             std::set<std::string>{"cmd_Animate", "cmd_Balance", "cmd_Dynamics", "cmd_Plot",
                                                   "cmd_Print", "mnu_CalcFFT", "mnu_Cayley", "mnu_Export", "mnu_New",
                                                   "mnu_Open", "mnu_Recent", "mnu_Save", "mnu_Saveas"}));
}

TEST_F(ShownAnew, SlotsOfTheSelectionScreensAsTheyAreArrivedAt) {
    const std::pair<const char*, int> screens[] = {
        {"frm_PlotSelect1", 4}, {"frm_PlotSelect2", 2}, {"frm_PlotSelect3", 4}, {"frm_PrintSelect", 4}};
    for (const auto& [name, slots] : screens) {
        std::set<std::string> on{"cmb_Preset", "cmd_ClearPreset", "cmd_Done", "cmd_Last", "fra_Preset"}, says;
        for (int slot = 1; slot <= slots; ++slot) {
            for (const char* part : {"cmb_Com", "cmb_Var", "cmd_Clear", "cmd_OK", "fra_Function"})
                on.insert(part + std::to_string(slot));
            on = on + Those("lbl_Comp", {slot - 1}) + Those("lbl_Var", {slot - 1});
            says = says + Those("lbl_Component", {slot - 1}) + Those("lbl_Function", {slot - 1});
        }
        Expect_Written(name, All("is on", on) + All("says", says));
    }
    Expect_Written("frm_PlotSelect4", All("is on", {"cmd_Done", "cmd_Last", "fra_coord", "opt_Coord_1"}) +
                                          All("says", {"lbl_Component_0", "lbl_Function_0"}));
    for (const char* name : {"frm_PlotSelect2", "frm_PlotSelect3"})
        Expect_Written(name, All("is on", {"opt_Plotstyle_0", "opt_Coord_1", "fra_coord"}));
    Expect_Written("frm_PrintSelect", All("is on", Those("opt_Whereto", {1, 2})));
}

TEST_F(ShownAnew, DyadsOfTheScreensOfSynthesisAsTheyAreArrivedAt) {
    const std::set<std::string> ways{"cmd_Copy", "cmd_Done", "cmd_Print"};
    const std::set<std::string> angles{"lbl_Alpha2", "lbl_Beta2", "lbl_Gamma2", "lbl_P21mag",
                                       "lbl_Phi",    "lbl_Sigma", "lbl_Theta",  "lbl_Xi"};
    const std::set<std::string> results{"lbl_Smag_1", "lbl_Umag_1", "lbl_Wmag_1", "lbl_Zmag_1", "lbl_Theta1_1"};
    const std::set<std::string> two{"txt_Alpha2", "txt_Beta2", "txt_Gamma2", "txt_P21x", "txt_P21y",
                                    "txt_Phi",    "txt_Sigma", "txt_Theta",  "txt_Xi"};
    const std::set<std::string> three{"txt_Alpha2", "txt_Beta2", "txt_Gamma2", "txt_P21x", "txt_P21y",
                                      "txt_Alpha3", "txt_Beta3", "txt_Gamma3", "txt_P31x", "txt_P31y"};
    const auto units = Those("lbl_Length", {1, 2, 3, 4, 5}) + std::set<std::string>{"lbl_Header", "lbl_Scale"};
    const auto symbols = Those("lbl_Symbol", {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17});
    const auto shown = All("is shown", angles + results + symbols + std::set<std::string>{"lbl_Reach"});
    Expect_Written("frm_Synth2A", All("is on", ways) + shown + All("says", two + units + results));
    Expect_Written(
        "frm_Synth2B",
        All("is on", ways) + shown +
            All("says", two + units + std::set<std::string>{"txt_Smag", "txt_Umag", "txt_Wmag", "txt_Zmag"}));
    Expect_Written(
        "frm_Synth3",
        All("is on", ways) + shown +
            All("says", three + units + Those("txt_Linkout", {0, 1, 2, 3, 4, 5}) + Those("lbl_Length", {6, 7, 8, 9}) +
                            Those("lbl_Units", {0, 1, 2, 3, 4}) + Those("lbl_Direction", {0, 1, 2, 3})) +
            All("is shown", Those("fra_Pivot", {0, 1, 2})));
}

TEST_F(ShownAnew, OnTheDynamicsScreen) { Expect_Said_Again("frm_MassProp"); }
TEST_F(ShownAnew, OnTheInputScreen) {
    // No step touches these.
    Expect_Said_Again("frm_Inputnew", {"cmd_PlotPrint is on", "hsc_step is on", "lbl_Why says", "lbl_Why has the tip"});
}
TEST_F(ShownAnew, TheTicksOfAnImportedTorqueAndOfTheCognate) {
    const auto undone = [this](const char* name, const std::function<void()>& deed,
                               const std::function<bool()>& ticked) {
        SCOPED_TRACE(name);
        Inside(Screens::Get(name), [&] {
            Deed::By_Itself();
            The_History().Begin();
            {
                const Deed whole("tick");
                deed();
            }
            The_History().Undo();
            EXPECT_FALSE(ticked());
            The_History().Redo();
            EXPECT_TRUE(ticked());
        });
    };
    undone(
        "frm_MassProp", [] { Model.TorqueImported = true; },
        [] { return Screens::Get("frm_MassProp").Get<CheckBox>("chk_Torque").Value.Get(); });
    Model.CognateNumber = 1;
    undone(
        "frm_Inputnew",
        [] {
            Model.CognateNumber = 2;
            Model.LinkMass(3) = 2;
        },
        [] { return Screens::Get("frm_Inputnew").Get<MenuEntry>("mnu_Cog", 2).Checked.Get(); });
}
TEST_F(ShownAnew, TheStatusOfTheHomeScreenWhereverAStepIsUndone) {
    Screen& home = Screens::Get("frm_HomeScreen");
    const std::set<std::string> alone = All("is shown", Those("lbl_Status", {0, 1, 2, 3, 4, 5, 6, 8}));
    const std::set<std::string> ways =
        All("is on", {"cmd_Animate", "cmd_Plot", "cmd_Print", "cmd_Dynamics", "cmd_Balance", "mnu_Save", "mnu_Cayley"});
    for (const char* name : {"frm_Animate", "frm_Inputnew", "frm_MassProp"}) {
        SCOPED_TRACE(name);
        // No step on the dynamics screen opens or closes a way.
        const std::set<std::string> lamps = name == std::string("frm_MassProp") ? alone : alone + ways;
        Inside(Screens::Get(name), [&] {
            Deed::By_Itself();
            The_History().Begin();
            Weigh(2);
            The_History().Undo();
            const Said before = Told(home);
            The_History().Redo();
            Spoil(home, &lamps);
            The_History().Undo();
            const Said again = Told(home);
            for (const std::string& lamp : lamps) EXPECT_EQ(again.at(lamp), before.at(lamp)) << lamp;
        });
    }
}

TEST_F(ShownAnew, OnTheAnimateScreen) { Expect_Said_Again("frm_Animate", {"mnu_Zoomcontrol is on"}); }
TEST_F(ShownAnew, OnTheHomeScreen) { Expect_Said_Again("frm_HomeScreen"); }
TEST_F(ShownAnew, OnTheScreenOfStudies) { Expect_Said_Again("frm_Studies"); }
TEST_F(ShownAnew, OnTheScreenOfAllLinkages) { Expect_Said_Again("frm_Explore"); }

}  // namespace
}  // namespace verlink::test
