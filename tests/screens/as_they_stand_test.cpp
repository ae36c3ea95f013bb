// Each screen as it stands: made, arrived at with a linkage that has run, in other units and with a turned ground, and
// after what a hand does there first. A line that changes in their logs is read before it is accepted.
#include "core/model_on_screens.h"
#include "dynamics/dynacalc.h"
#include "platform/deed.h"
#include "screens/frm_explore.h"
#include "shell/history.h"
#include "shell/startup.h"
#include "tests/screens/forces_fixture.h"
#include "tests/support/screen_words.h"

namespace verlink::test {
namespace {

using namespace platform;

struct Deed_There {
    std::string what;
    std::function<void(Screen&)> does;
};

class AsTheyStand_Base : public Forces {
   protected:
    AsTheyStand_Base() {
        Set_Identity();
        Model.UserName = "Ada";
        Model.ModelName = "press";
        Model.FilePath = "/models/press.vlk";
        Run_Counts();
    }
    /// The lines that are new since the last time.
    void Note(const std::string& when, Screen& screen) {
        words_.push_back(when);
        std::vector<std::string> now = Screen_Words(screen);
        for (std::size_t i = 0; i < now.size(); ++i)
            if (i >= before_.size() || now[i] != before_[i]) words_.push_back(now[i]);
        before_ = std::move(now);
    }
    void Arrive(const std::string& when, Screen& screen) {
        Inside(screen, [&] { Note(when, screen); });
    }
    void Hands(const std::string& name, const std::vector<Deed_There>& deeds) {
        Screen& screen = Screens::Get(name);
        Inside(screen, [&] {
            Note(name, screen);
            for (const Deed_There& deed : deeds) {
                {
                    const Deed whole(deed.what);
                    deed.does(screen);
                }
                Note(deed.what, screen);
            }
        });
    }
    std::vector<std::string> words_, before_;
};

class AsTheyStand : public AsTheyStand_Base, public testing::WithParamInterface<const char*> {};
class AsTheyStand_After : public AsTheyStand_Base {};

TEST_P(AsTheyStand, AreSaidInTheirLog) {
    Screen& screen = Screens::Get(GetParam());
    Note("made", screen);
    Arrive("with a run", screen);
    Turn_Ground(25);
    In_Units(5);
    Run_Counts();
    Arrive("in millimetres, with a turned ground", screen);
    Expect_Words(std::string("screen_") + GetParam(), words_);
}

INSTANTIATE_TEST_SUITE_P(All, AsTheyStand,
                         testing::Values("frm_About", "frm_Animate", "frm_Balance", "frm_Cayley", "frm_Explore",
                                         "frm_FFT", "frm_Help", "frm_HomeScreen", "frm_Inputnew", "frm_MassProp",
                                         "frm_Matrix", "frm_PlotSelect1", "frm_PlotSelect2", "frm_PlotSelect3",
                                         "frm_PlotSelect4", "frm_PlotType", "frm_PrintSelect", "frm_Quit", "frm_Report",
                                         "frm_Studies", "frm_Synth2A", "frm_Synth2B", "frm_Synth3", "frm_Title",
                                         "frm_User"),
                         [](const auto& named) { return std::string(named.param).substr(4); });

// What a hand does first.

TEST_F(AsTheyStand_After, EditsAndRunsOfTheInputScreen) {
    Hands("frm_Inputnew", {{"one position", [](Screen& screen) { Choose_Option(screen, "opt_Calctype", 1); }},
                           {"by time", [](Screen& screen) { Choose_Option(screen, "opt_Calctype", 2); }},
                           {"times", [](Screen& screen) { Enter(screen, "txt_initial", 1, "0.5"); }},
                           {"by angle", [](Screen& screen) { Choose_Option(screen, "opt_Calctype", 3); }},
                           {"calculated", [](Screen& screen) { Press(screen, "cmd_Calc"); }},
                           {"two steps", [](Screen& screen) { Press(screen, "cmd_Step"), Press(screen, "cmd_Step"); }},
                           {"crossed", [](Screen& screen) { Choose_Option(screen, "opt_OpenCross", 1); }},
                           {"polar", [](Screen& screen) { Choose_Option(screen, "opt_Polar", 1); }},
                           {"held back", [](Screen& screen) { Tick(screen, "chk_autocalc", false); }},
                           {"a crank", [](Screen& screen) { Enter(screen, "txt_Linkout", 1, "1.25"); }},
                           {"a lock", [](Screen& screen) { screen.Get<CheckBox>("chk_Lock", 2).Click(); }},
                           {"open nowhere", [](Screen& screen) { Enter(screen, "txt_Linkout", 2, "0.01"); }}});
    Expect_Words("screen_of_input", words_);
}

TEST_F(AsTheyStand_After, StepsAndTicksOfTheAnimateScreen) {
    const auto view = [](const char* entry) {
        return Deed_There{entry, [entry](Screen& screen) { Pick_Menu(screen, entry); }};
    };
    Solve_Forces(Model);
    Hands("frm_Animate", {{"the first picture", [](Screen& screen) { screen.Get<Timer>("Timer1").Tick(); }},
                          {"two steps", [](Screen& screen) { Press(screen, "cmd_Step"), Press(screen, "cmd_Step"); }},
                          view("mnu_ViewPoles"),
                          view("mnu_ViewVelocities"),
                          view("mnu_ViewAccelerations"),
                          view("mnu_ViewPinForces"),
                          view("mnu_ViewShakingForce"),
                          view("mnu_ViewCurvature"),
                          view("mnu_ViewGrid"),
                          view("mnu_ViewNames"),
                          view("mnu_ViewGhosts"),
                          view("mnu_ViewLive"),
                          {"trace", [](Screen& screen) { Tick(screen, "chk_Trace", true); }},
                          {"centrodes", [](Screen& screen) { Tick(screen, "chk_Centrodes", true); }},
                          {"no path", [](Screen& screen) { Tick(screen, "chk_Coupler", false); }},
                          {"lines", [](Screen& screen) { Tick(screen, "chk_CouplerLines", true); }},
                          view("mnu_Plus"),
                          view("mnu_Normal"),
                          view("mnu_Minus"),
                          {"a crank", [](Screen& screen) { Enter(screen, "txt_Linkout", 1, "1.25"); }},
                          {"calculated", [](Screen& screen) { Press(screen, "cmd_Recalc"); }}});
    Expect_Words("screen_of_the_animation", words_);
}

TEST_F(AsTheyStand_After, ForcesMatricesAndBalances) {
    Hands("frm_MassProp", {{"masses",
                            [](Screen& screen) {
                                for (const int link : {2, 3, 4}) Enter(screen, "txt_Mass", link, "0.5");
                                Enter(screen, "txt_Torque", 4, "3");
                            }},
                           {"solved", [](Screen& screen) { Press(screen, "cmd_Solve"); }}});
    Hands("frm_Matrix", {});
    Hands("frm_Balance", {{"calculated", [](Screen& screen) { Press(screen, "cmd_Calc"); }},
                          {"another weight", [](Screen& screen) { Enter(screen, "txt_Radius", 2, "2"); }},
                          {"another product", [](Screen& screen) { Enter(screen, "txt_MRproduct", 4, "0.01"); }},
                          {"gray", [](Screen& screen) { Choose_Option(screen, "opt_Back", 2); }}});
    Arrive("home with a balance", Screens::Get("frm_HomeScreen"));
    Expect_Words("screens_of_forces", words_);
}

TEST_F(AsTheyStand_After, ATransform) {
    Hands("frm_FFT", {{"chosen", [](Screen& screen) { screen.Get<ComboBox>("cmb_Var1").Choose(2); }},
                      {"of fewer harmonics", [](Screen& screen) { screen.Get<ComboBox>("cmb_Harmonics").Choose(1); }},
                      {"sticks", [](Screen& screen) { Tick(screen, "chk_Sticks", true); }},
                      {"a grid", [](Screen& screen) { Tick(screen, "chk_HGrid", true); }},
                      {"of a vector", [](Screen& screen) { screen.Get<ComboBox>("cmb_Var1").Choose(12); }},
                      {"cleared", [](Screen& screen) { Press(screen, "cmd_Clear1"); }}});
    Expect_Words("screen_of_a_transform", words_);
}

TEST_F(AsTheyStand_After, ChoicesAndTheirPlots) {
    struct Way {
        int style, layout;
        const char* plot;
    };
    for (const Way way : {Way{1, 0, "frm_Plot1"}, Way{2, 0, "frm_Myplot2"}, Way{2, 1, "frm_Plot2"},
                          Way{3, 0, "frm_MyPlot3"}, Way{3, 1, "frm_Plot3"}}) {
        Model.PlotStyle = way.style;
        Hands("frm_PlotSelect" + std::to_string(way.style),
              {{"a preset", [](Screen& screen) { screen.Get<ComboBox>("cmb_Preset").Choose(0); }},
               {"plotted", [this, way](Screen& screen) {
                    if (way.style > 1) Choose_Option(screen, "opt_Plotstyle", way.layout);
                    desktop.Expect_Screen(way.plot, [this](Screen& there) {
                        const auto& again = there.Get<CommandButton>("cmd_Replot");
                        if (again.Caption == "&Replot") Press(there, "cmd_Replot");
                        Note("the plot", there);
                        there.Hide();
                    });
                    Press(screen, "cmd_Done");
                }}});
    }
    Expect_Words("screens_of_plots", words_);
}

TEST_F(AsTheyStand_After, CognatesAndSyntheses) {
    Hands("frm_Cayley", {{"the second", [](Screen& screen) { Choose_Option(screen, "opt_Cognate", 1); }},
                         {"the third", [](Screen& screen) { Choose_Option(screen, "opt_Cognate", 2); }}});
    const auto calculate = [this](Screen& screen) {
        desktop.Expect_Message_With("The resulting link lengths");
        Press(screen, "cmd_Calc");
    };
    for (const char* name : {"frm_Synth2A", "frm_Synth2B", "frm_Synth3"}) {
        Model.SynPositions = std::string(name) == "frm_Synth3" ? 2 : 1;  // as the home screen leads there
        Hands(name, {{"calculated", calculate},
                     {"another turn", [](Screen& screen) { Enter(screen, "txt_Alpha2", kNoIndex, "35"); }},
                     {"calculated anew", calculate}});
    }
    Expect_Words("screens_of_synthesis", words_);
}

TEST_F(AsTheyStand_After, ALinkageOfAllThatWereFound) {
    auto& explore = dynamic_cast<frm_Explore&>(Screens::Get("frm_Explore"));
    explore.Effort.coarse = true;
    const auto choose = [](const char* list, int item) {
        return [list, item](Screen& screen) { screen.Get<ComboBox>(list).Choose(item); };
    };
    Hands("frm_Explore", {{"searched",
                           [&explore](Screen& screen) {
                               Press(screen, "cmd_Search");
                               explore.Await_Search();
                           }},
                          {"the next page", [](Screen& screen) { Press(screen, "cmd_Later"); }},
                          {"the third of it", [](Screen& screen) { screen.Get<PictureBox>("pic_Found", 2).OnClick(); }},
                          {"half way", [](Screen& screen) { screen.Get<ScrollBar>("hsc_Stroke").SetValue(100); }},
                          {"a map of other pivots", choose("cmb_Map", 3)},
                          {"by room", choose("cmb_Sort", 2)},
                          {"rockers that drive", choose("cmb_Class", 4)},
                          {"from the first", [](Screen& screen) { Choose_Option(screen, "opt_Relative", 1); }},
                          {"a full turn", [](Screen& screen) { Tick(screen, "chk_FullTurn", true); }},
                          {"four positions", choose("cmb_Count", 2)},
                          {"no curves", [](Screen& screen) { Tick(screen, "chk_Curves", false); }},
                          {"an area", [](Screen& screen) { Enter(screen, "txt_Area", 0, "-5 -5 to 5 5"); }},
                          {"a fault", [](Screen& screen) { Enter(screen, "txt_Area", 1, "there"); }}});
    Expect_Words("screen_of_all_linkages", words_);
}

TEST_F(AsTheyStand_After, ATableAndALocus) {
    Hands("frm_PrintSelect", {{"a preset", [](Screen& screen) { screen.Get<ComboBox>("cmb_Preset").Choose(5); }},
                              {"tabulated", [this](Screen& screen) {
                                   desktop.Expect_Screen("frm_PrintData", [this](Screen& table) {
                                       Note("the table", table);
                                       table.Hide();
                                   });
                                   Press(screen, "cmd_Done");
                               }}});
    Model.PlotStyle = 4;
    Hands("frm_PlotSelect4", {{"a vector", [](Screen& screen) { screen.Get<ComboBox>("cmb_Var1").Choose(2); }},
                              {"plotted", [this](Screen& screen) {
                                   desktop.Expect_Screen("frm_MyPlot4", [this](Screen& plot) {
                                       Press(plot, "cmd_Replot");
                                       Note("the locus", plot);
                                       plot.Hide();
                                   });
                                   Press(screen, "cmd_Done");
                               }}});
    Expect_Words("screens_of_a_table_and_a_locus", words_);
}

}  // namespace
}  // namespace verlink::test
