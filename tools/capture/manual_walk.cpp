// The road of the manual's worked example, click by click, and the other screens that the manual shows.
#include <algorithm>
#include <initializer_list>

#include "core/linkage_model.h"
#include "files/in_hand.h"
#include "screens/frm_explore.h"
#include "screens/joint_drag.h"
#include "screens/linkage_screen.h"
#include "tools/capture/deeds.h"
#include "tools/capture/walk.h"

namespace verlink::capture {

namespace {

using platform::kNoIndex;

/// Takes a joint with the mouse and leads it along a way: where to from its place, each in parts of the drawing.
struct Pull_Along {
    Joint joint;
    std::vector<platform::Point> way;
    bool let_go;

    void operator()(Screen& s) const {
        const auto place = Place_Of(joint, Model, dynamic_cast<Linkage_Screen&>(s).Shown_Step());
        if (!place) return;
        const auto& drawing = s.Get<platform::PictureBox>("Picture1").Drawing();
        const double width = drawing.Right() - drawing.Left();
        const platform::Point from{place->x, Model.FlipSum - place->y};
        On_Mouse(s, Mouse::kMove, from);
        On_Mouse(s, Mouse::kPress, from);
        platform::Point before{0, 0}, at = from;
        for (const platform::Point& to : way) {
            // As a hand goes, not in one leap.
            constexpr int kMoves = 10;
            for (int move = 1; move <= kMoves; ++move) {
                const double part = static_cast<double>(move) / kMoves;
                at = {from.x + width * (before.x + part * (to.x - before.x)),
                      from.y + width * (before.y + part * (to.y - before.y))};
                On_Mouse(s, Mouse::kMove, at);
            }
            before = to;
        }
        if (let_go) On_Mouse(s, Mouse::kRelease, at);
    }
};

/// Lets go of what is held where it is.
void Let_Go(Screen& s) {
    const auto place = Place_Of(Joint::kP, Model, dynamic_cast<Linkage_Screen&>(s).Shown_Step());
    if (place) On_Mouse(s, Mouse::kRelease, {place->x, Model.FlipSum - place->y});
}

Stops To_Home() {
    return {{"frm_Title", "", Pressing("cmd_Start"), 120, false, "",
             "Verlink designs four-bar linkages. This film goes from three positions to a balanced mechanism."},
            {"frm_User", "user", [](Screen& s) { Fill(s, "txt_UserName", kNoIndex, "A. Designer"); }},
            {"frm_User", "", Pressing("cmd_Done")},
            {"frm_HomeScreen",
             "home-empty",
             {},
             200,
             false,
             "",
             "The home screen: everything begins here and comes back here."}};
}

Stops Synthesis() {
    return {
        {"frm_HomeScreen", "", Menu("mnu_Unspec"), 120, false, "",
         "A part is to take three positions: Synthesis, Three Position, with Unspecified Fixed Pivots."},
        {"frm_Synth3", "",
         Typing("txt_P21x =-0.575 txt_P21y =0.803 txt_P31x =-1.928 txt_P31y =0.553 txt_Alpha2 =-8.686 "
                "txt_Alpha3 =-10.961 txt_Beta2 =45 txt_Beta3 =90 txt_Gamma2 =3.355 txt_Gamma3 =14.972"),
         120, false, "", "Type how the point moves and how the part turns, and choose how far crank and rocker turn."},
        Marked({"frm_Synth3", "synthesis-3", Pressing("cmd_Calc"), 300, false, "synthesis-report",
                "Calculate reports the linkage that reaches all three."},
               {{"fra_Left", 0.93, 0.14}, {"fra_LeftCalc", 0.93, 0.08}, {"Image1", 0.06, 0.06}},
               {"fra_Left", "fra_Ground", "Image1", "lbl_Reach"}),
        {"frm_Synth3", "", Pressing("cmd_Done")}};
}

/// Functions in the live plots, by their numbers in the lists of variables.
void Choose_Live(Screen& s, std::initializer_list<int> variables) {
    int slot = 0;
    for (const int variable : variables) Choose(s, ("cmb_LiveVar" + std::to_string(++slot)).c_str(), variable);
}

constexpr int kMagnitude = 2, kOmega4 = 7, kTransmission = 4, kVelocityOfP = 13, kAccelerationOfP = 16, kTorque = 31;

/// A joint is dragged beside live plots, and the drag is taken back.
Stops Drag_With_Live_Plots() {
    return {{"frm_Animate", "", Menu("mnu_ViewLive"), 400, false, "",
             "View, Live Plots: curves beside the drawing that go along with it."},
            {"frm_Animate", "",
             [](Screen& s) {
                 Choose_Live(s, {kTransmission, kVelocityOfP, kAccelerationOfP});
             },
             300},
            {"frm_Animate", "", Stepping(60), 200, false, "", "The cursor marks the position shown, with its values."},
            {"frm_Animate", "",
             Pull_Along{Joint::kP, {{0.05, -0.08}, {0.1, 0.02}, {-0.06, 0.07}, {-0.1, -0.06}, {0.03, -0.1}}, true}, 300,
             false, "", "Take the coupler point and drag: its curve, the boxes and the plots follow."},
            {"frm_Animate", "", Pull_Along{Joint::kO4, {{0.05, 0.03}, {-0.06, -0.05}, {0.02, 0.06}}, true}, 300, false,
             "", "The ground pivot is taken in the same way. What cannot close is not followed, and a line says why."},
            {"frm_Animate", "undone", Menus({"mnu_Undo", "mnu_Undo"}), 400, false, "",
             "Each drag is one step of Undo: twice, and the linkage is as it was."},
            {"frm_Animate", "", Menu("mnu_ViewLive"), 300}};
}

/// The linkage is run over a full turn and animated.
Stops Run_And_Animate(int steps, const Stops& under_the_hand = {}) {
    Stops stops = {
        {"frm_Inputnew", "",
         In_Turn({Typing("txt_initial 1=360 0=0 2=2 3=10"), Typing("txt_Figure", kNoIndex, "Three-position transfer")}),
         400, false, "",
         "The linkage is in the boxes of the input screen. Let the crank turn fully, at 10 radians a second."},
        With(Marked({"frm_Inputnew", "input", Pressing("cmd_Calc")},
                    {{"fra_Links", 0.62, 0.09},
                     {"SSFrame1", 0.85, 0.16},
                     {"fra_initial", 0.62, 0.08},
                     {"fra_calcmode", 0.92, 0.14},
                     {"SSFrame6", 0.92, 0.22}},
                    {"fra_Links", "fra_initial", "fra_calcmode", "SSFrame6"}, 0.925),
             {{"input-drawing",
               {"Picture1", "hsc_step", "cmd_Step", "chk_autoscale"},
               {{"Picture1", 0.06, 0.06}, {"hsc_step", 0.5, 0.5}, {"cmd_Step", 0.08, 0.5}}}}),
        {"frm_Inputnew", "", Pressing("cmd_Done")},
        {"frm_Animate", "", Ticking("chk_Coupler", true), 400, false, "",
         "The animate screen plays it. The green curve is the path of the coupler point."},
        Marked({"frm_Animate", "animate", Stepping(steps)},
               {{"Picture1", 0.06, 0.06},
                {"hsc_step", 0.5, 0.5},
                {"cmd_Animate", 0.08, 0.5},
                {"fra_Speed", 0.92, 0.18},
                {"fra_Show", 0.92, 0.12}},
               {"Picture1", "fra_Speed", "fra_Show", "cmd_Animate"})};
    const Stops home = {{"frm_Animate", "", Pressing("cmd_Done")},
                        Marked({"frm_HomeScreen",
                                "home",
                                {},
                                200,
                                false,
                                "",
                                "The strip at the foot of the home screen tells what is there."},
                               {{"cmd_Input", 0.12, 0.2},
                                {"Picture1", 0.06, 0.06},
                                {"lbl_Status_0", 0.5, -0.7},
                                {"lbl_Status_10", 0.5, -0.7}})};
    Add(stops, under_the_hand);
    Add(stops, home);
    return stops;
}

Stops Plot_Accelerations() {
    return {{"frm_HomeScreen", "", Pressing("cmd_Plot"), 120, false, "",
             "Plot: the acceleration of the coupler point, in a single window."},
            Marked({"frm_PlotType", "plot-type", Picking("opt_PickPlot", 0)}, {}, {"fra_PickPlot_0", "fra_PickPlot_3"}),
            {"frm_PlotType", "", Pressing("cmd_PickPlotDone")},
            Marked({"frm_PlotSelect1", "plot-select", Choosing("cmb_Preset", 8)},
                   {{"fra_Method", 0.95, 0.2},
                    {"cmb_Preset", 0.9, 0.5},
                    {"fra_Function1", 0.92, 0.1},
                    {"fra_Plot_0", 0.9, 0.15}},
                   {"frm_Plotstyle"}),
            {"frm_PlotSelect1", "", Pressing("cmd_Done")},
            Marked({"frm_Plot1", "plot-acceleration", {}, 300},
                   {{"grf_Plot_0", 0.42, 0.03}, {"grf_Plot_0", 0.12, 0.3}, {"fra_Grid", 1.0, 0.1}},
                   {"grf_Plot_0", "fra_Grid"}),
            {"frm_Plot1", "", Pressing("cmd_Done")}};
}

Stops Forces_And_Balance() {
    return {{"frm_HomeScreen", "", Pressing("cmd_Dynamics"), 120, false, "",
             "Dynamics: type the masses of the links and solve for the forces."},
            {"frm_MassProp", "",
             Typing("txt_Mass 2=0.006 3=0.03 4=0.015 txt_Inertia 2=0.005 3=0.2 4=0.08 txt_DistCG 2=1 3=4 4=3.5 "
                    "txt_AngCG 2=0 3=15 4=0")},
            Marked({"frm_MassProp", "dynamics", Pressing("cmd_Solve"), 300},
                   {{"fra_Mass", 0.02, 0.2},
                    {"fra_CG", 0.02, 0.2},
                    {"fra_Force", 0.02, 0.2},
                    {"fra_ForceAt", 0.02, 0.2},
                    {"fra_Torque", 0.02, 0.2},
                    {"cmd_Solve", 0.08, 0.5}},
                   {"lbl_Link_4", "fra_Mass", "cmd_Matrix"}),
            {"frm_MassProp", "", Pressing("cmd_Matrix")},
            Marked({"frm_Matrix", "matrix", {}, 200}, {}, {"fra_A", "fra_C"}, 0.46),
            {"frm_Matrix", "", Pressing("cmd_Done")},
            {"frm_MassProp", "", Pressing("cmd_Done")},
            {"frm_HomeScreen", "", Pressing("cmd_Balance"), 120, false, "",
             "Balance: two counterweights take the shaking force away."},
            With(Marked({"frm_Balance", "balance", Pressing("cmd_Calc"), 400},
                        {{"fra_Needed", 0.93, 0.08},
                         {"fra_Link_2", 0.93, 0.12},
                         {"txt_Fluct", 0.15, 0.5},
                         {"grf_Plot_0", 0.94, 0.05},
                         {"grf_Plot_1", 0.94, 0.05}},
                        {"fra_Needed", "cmd_Calc", "grf_Plot_0", "grf_Plot_1"}),
                 {{"balance-pulses", {"pct_Pict1"}, {}, 0.42}}),
            {"frm_Balance", "", Pressing("cmd_Done")}};
}

/// A table of the shaking force and torque before and after balancing.
Stops Table() {
    return {
        {"frm_HomeScreen", "", Pressing("cmd_Print"), 120, false, "",
         "Print: a table of force and moment, before and after."},
        With(Marked({"frm_PrintSelect", "print-select",
                     [](Screen& s) {
                         const auto& presets = s.Get<platform::ComboBox>("cmb_Preset").Items();
                         const auto wished =
                             std::ranges::find(presets, "Balanced and Unbalanced Shaking Force and Torque");
                         Choose(s, "cmb_Preset", static_cast<int>(wished - presets.begin()));
                         Choose(s, "cmb_Step", 0);
                         Choose(s, "cmb_Decimal", 3);
                     }},
                    {}, {"fra_Method", "fra_Preset", "fra_Plot_0", "fra_Plot_3"}),
             {{"print-where", {"fra_Whereto", "fra_Decimal"}}}),
        {"frm_PrintSelect", "", Pressing("cmd_Done")},
        Marked(
            {"frm_PrintData", "print-data", {}, 300},
            {{"grd_Data", 0.195, 0.02}, {"grd_Data", 0.05, 0.16}, {"grd_Data", 0.05, 0.27}, {"fra_Links", 0.92, 0.08}},
            {"grd_Data", "fra_Links"}, 0.358),
        {"frm_PrintData", "", Pressing("cmd_Done")}};
}

/// Two, four and polar windows, and the transform.
Stops Other_Plots() {
    return {
        {"frm_HomeScreen", "", Pressing("cmd_Plot")},
        {"frm_PlotType", "", Picking("opt_PickPlot", 1)},
        {"frm_PlotType", "", Pressing("cmd_PickPlotDone")},
        {"frm_PlotSelect2", "", In_Turn({Picking("opt_Plotstyle", 0), Choosing("cmb_Preset", 1)})},
        {"frm_PlotSelect2", "", Pressing("cmd_Done")},
        Marked({"frm_Myplot2", "plot-aligned", {}, 700}, {}, {"pnl_LeftTitle_0", "pct_Plot_0", "pnl_BottomTitle_1"}),
        {"frm_Myplot2", "", Pressing("cmd_PlotDone")},
        {"frm_HomeScreen", "", Pressing("cmd_Plot")},
        {"frm_PlotType", "", Picking("opt_PickPlot", 3)},
        {"frm_PlotType", "", Pressing("cmd_PickPlotDone")},
        {"frm_PlotSelect4", "", Choosing("cmb_Var1", 5)},
        {"frm_PlotSelect4", "", Pressing("cmd_Done")},
        {"frm_MyPlot4", "", Ticking("chk_Vectors", true), 700},
        Marked({"frm_MyPlot4", "plot-polar", {}, 300}, {}, {"pnl_LeftTitle", "pct_Plot"}),
        {"frm_MyPlot4", "", Pressing("cmd_PlotDone")},
        {"frm_HomeScreen", "", Menu("mnu_CalcFFT")},
        With(Marked({"frm_FFT", "transform", Choosing("cmb_Var1", 6), 400}, {},
                    {"fra_Function1", "grf_Plot_0", "grf_Plot_1"}),
             {{"transform-phase", {"grf_Plot_2", "grf_Plot_3"}}}),
        {"frm_FFT", "", Pressing("cmd_Done")}};
}

/// The linkages that belong to the same curve.
Stops Cognates() {
    return {{"frm_HomeScreen", "", Menu("mnu_Cayley")},
            Marked({"frm_Cayley", "cayley", {}, 300}, {}, {"Picture1", "fra_Cognate", "fra_Grashof"}, 0.8),
            {"frm_Cayley", "", Pressing("cmd_Done")}};
}

Stops Two_Positions() {
    return {{"frm_HomeScreen", "", Menu("mnu_Twopos1")},
            Marked({"frm_Synth2A", "synthesis-2a", Pressing("cmd_Calc"), 300, false, "report-2a"},
                   {{"fra_Given", 0.93, 0.1},
                    {"fra_Left", 0.93, 0.14},
                    {"fra_Right", 0.93, 0.14},
                    {"fra_LeftCalc", 0.93, 0.14},
                    {"fra_RightCalc", 0.93, 0.14},
                    {"Image1", 0.06, 0.06}},
                   {"fra_Given", "cmd_Calc", "fra_Right", "Image1", "lbl_Reach"}),
            {"frm_Synth2A", "", Pressing("cmd_Cancel")},
            {"frm_HomeScreen", "", Menu("mnu_Twopos2")},
            Marked({"frm_Synth2B", "synthesis-2b", Pressing("cmd_Calc"), 300, false, "report-2b"},
                   {{"fra_Left", 0.93, 0.14}, {"fra_LeftCalc", 0.93, 0.14}}, {"fra_Left", "fra_Ground", "Image1"}),
            {"frm_Synth2B", "", Pressing("cmd_Cancel")},
            {"frm_HomeScreen", "", Menu("mnu_Spec")},
            Marked({"frm_Synth3", "synthesis-pivots", Pressing("cmd_Calc"), 300, false, "report-3"},
                   {{"fra_Pivot_0", 0.93, 0.14},
                    {"fra_Pivot_2", 0.93, 0.14},
                    {"fra_Left", 0.93, 0.14},
                    {"fra_LeftCalc", 0.93, 0.08}},
                   {"fra_Left", "fra_Ground", "Image1"}),
            {"frm_Synth3", "", Pressing("cmd_Cancel")}};
}

/// All linkages for the two tasks of their chapter.
Stops All_Linkages() {
    const auto found = [](const design::Task& task) {
        return [task](Screen& s) {
            auto& explore = dynamic_cast<frm_Explore&>(s);
            explore.Take_Task(task);
            Press(s, "cmd_Search");
            explore.Await_Search();
            explore.hsc_Stroke.SetValue(frm_Explore::kStroke / 4);
        };
    };
    design::Task lid;
    lid.relative = true;
    lid.positions = {{{0, 0}, 0}, {{-2, 4}, 35}, {{-6, 6}, 80}};
    for (design::Side* side : {&lid.left, &lid.right})
        side->fixed = {design::Area::Is::kWithin, {-10, -4}, {-2, 6}, {}};
    lid.shortest = 1;
    lid.longest = 12;
    lid.transmission = 30;
    design::Task platform;
    platform.positions = {{{0, 0}, 0}, {{2, 4}, -10}, {{5, 4}, 5}, {{8, 2}, 30}};
    platform.shortest = 1;
    platform.longest = 15;
    platform.transmission = 25;
    return {{"frm_HomeScreen", "", Menu("mnu_Explore")},
            With(Marked({"frm_Explore", "explore", found(lid), 400},
                        {{"Picture1", 0.06, 0.06},
                         {"hsc_Stroke", 0.5, 0.5},
                         {"pic_Map", 0.9, 0.08},
                         {"lbl_Told", 0.95, 0.9},
                         {"pic_Found_0", 0.9, 0.1}},
                        {"Picture1", "pic_Map", "lbl_Told", "cmb_Sort", "cmd_Later"}),
                 {{"explore-task",
                   {"fra_Positions", "fra_Limits", "fra_Weights"},
                   {{"fra_Positions", 0.92, 0.07}, {"fra_Limits", 0.92, 0.06}, {"fra_Weights", 0.92, 0.12}}}}),
            With(Marked({"frm_Explore", "explore-four", found(platform), 400}, {}, {"Picture1"}),
                 {{"explore-map", {"pic_Map", "lbl_Map", "lbl_Told"}}}),
            {"frm_Explore", "", [](Screen& s) {
                 // The walk goes on with the model as it was.
                 Model.DesignTask.clear();
                 Press(s, "cmd_Cancel");
             }}};
}

/// A straight line, with what the animate screen can show of it.
Stops Straight_Line_Shown() {
    return {{"frm_HomeScreen", "", Menu("mnu_Hoekens")},
            {"frm_Inputnew", "", In_Turn({Picking("opt_Polar", 1), Pressing("cmd_Calc")}), 400},
            {"frm_Inputnew", "", Pressing("cmd_Done")},
            {"frm_Animate", "", Ticking("chk_Coupler", true), 400},
            Marked({"frm_Animate", "straight-line", Stepping(9)}, {}, {"Picture1"}),
            Marked({"frm_Animate", "centrodes",
                    [](Screen& s) {
                        Tick(s, "chk_Centrodes", true);
                        s.Get<platform::ScrollBar>("hsc_speed").SetValue(32767);
                        Press(s, "cmd_Animate");
                    },
                    120, true},
                   {}, {"Picture1"}),
            {"frm_Animate", "", Pressing("cmd_Done")}};
}

/// What the animate screen does under the hand.
Stops Under_The_Hand() {
    const auto shown = [](const char* picture, std::vector<std::string> part, Deed deed = {}) {
        return Stop{"frm_Animate", picture, std::move(deed), 300, false, "", "", std::move(part)};
    };
    // The screen draws the first position once more, a moment after it has come up.
    const Stop settled{"frm_Animate", "", {}, 500};
    const auto done = [](Deed deed) { return Stop{"frm_Animate", "", std::move(deed), 300}; };
    return {{"frm_HomeScreen", "", Menu("mnu_Grashof")},
            {"frm_Inputnew", "", Pressing("cmd_Calc"), 400},
            {"frm_Inputnew", "", Pressing("cmd_Done")},
            done(Ticking("chk_Coupler", true)),
            settled,
            done(Stepping(14)),
            done(Menus({"mnu_ViewPoles", "mnu_ViewVelocities", "mnu_ViewCurvature", "mnu_ViewGrid", "mnu_ViewNames"})),
            shown("hand-view", {"Picture1"}),
            done(Menus({"mnu_ViewPoles", "mnu_ViewVelocities", "mnu_ViewCurvature", "mnu_ViewGrid"})),
            shown("hand-drag", {"Picture1"}, Pull_Along{Joint::kP, {{0.06, -0.06}}, false}),
            done(Let_Go),
            done(Menu("mnu_Undo")),
            done(Stepping(14)),
            shown("hand-line", {"Picture1", "lbl_Why"}, Pull_Along{Joint::kO4, {{-0.4, 0.1}}, false}),
            done(Let_Go),
            done(Menu("mnu_Undo")),
            shown("hand-locks", {"fra_Links"}, Ticking("chk_Lock", true, 4)),
            done(Ticking("chk_Lock", false, 4)),
            done(Pressing("cmd_Done")),
            {"frm_HomeScreen", "", Pressing("cmd_Dynamics"), 300},
            {"frm_MassProp", "", Pressing("cmd_Solve"), 300},
            {"frm_MassProp", "", Pressing("cmd_Done")},
            {"frm_HomeScreen", "", Pressing("cmd_Animate")},
            settled,
            done(Stepping(25)),
            done(Menus({"mnu_ViewPinForces", "mnu_ViewShakingForce", "mnu_ViewGhosts"})),
            shown("hand-forces", {"Picture1"}),
            done(Menus({"mnu_ViewNames", "mnu_ViewPinForces", "mnu_ViewShakingForce", "mnu_ViewGhosts"})),
            done(Menu("mnu_ViewLive")),
            shown("hand-live", {"Picture1", "fra_Live"},
                  [](Screen& s) {
                      Choose_Live(s, {kOmega4, kVelocityOfP, kAccelerationOfP, kTorque});
                      for (const char* component : {"cmb_LiveCom2", "cmb_LiveCom3"}) Choose(s, component, kMagnitude);
                  }),
            done(Menu("mnu_ViewLive")),
            done(Pressing("cmd_Done"))};
}

/// Tolerances of a crank-rocker, with what they come to.
Stops Studies() {
    const auto ended = [](Screen& s) { return !s.Get<platform::CommandButton>("cmd_Stop").Enabled; };
    return {{"frm_HomeScreen", "", Menu("mnu_Studies")},
            {"frm_Studies", "", Picking("opt_Kind", 1)},
            {"frm_Studies", "", Typing("txt_PlusMinus 1=0.01 2=0.02 3=0.02 4=0.01")},
            {.screen = "frm_Studies", .picture = "", .act = Pressing("cmd_Start"), .until = ended},
            Marked({"frm_Studies", "studies", {}, 300},
                   {{"his_Spread", 0.06, 0.06}, {"bar_Share", 0.94, 0.75}, {"Picture1", 0.06, 0.06}},
                   {"his_Spread", "bar_Share", "Picture1"}, 0.98),
            {"frm_Studies", "", Pressing("cmd_Cancel")}};
}

Stops Quit() {
    return {{"frm_HomeScreen", "",
             [](Screen& s) {
                 Model_Kept();  // no question about saving on this walk
                 Press(s, "cmd_Quit");
             },
             120, false, "", "Save the model from the File menu. The manual under Help tells the rest."},
            {"frm_Quit", "", Pressing("cmd_YesQuit")}};
}

/// Walks one behind the other.
Stops Together(std::initializer_list<Stops> parts) {
    Stops walk;
    for (const Stops& part : parts) Add(walk, part);
    return walk;
}

}  // namespace

Stops Road_Walk() {
    return Together({To_Home(), Synthesis(), Run_And_Animate(15), Plot_Accelerations(), Forces_And_Balance(), Table(),
                     Other_Plots(), Cognates(), Two_Positions(), All_Linkages(), Quit()});
}

Stops Chapters_Walk() {
    return Together({To_Home(), Straight_Line_Shown(), Under_The_Hand(), Studies(), Examples_Walk(), Quit()});
}

Stops Tutorial_Walk() {
    return Together({To_Home(), Synthesis(), Run_And_Animate(90, Drag_With_Live_Plots()), Plot_Accelerations(),
                     Forces_And_Balance(), Table(), Quit()});
}

}  // namespace verlink::capture
