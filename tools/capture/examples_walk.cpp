// The short worked examples of the manual, each from the home screen back to it.
#include <fstream>
#include <string>
#include <vector>

#include "files/in_hand.h"
#include "platform/desktop_services.h"
#include "screens/frm_explore.h"
#include "tools/capture/deeds.h"
#include "tools/capture/walk.h"

namespace verlink::capture {

namespace {

constexpr int kAMoment = 30;  ///< enough where no picture is taken

Stop At(const char* screen, Deed deed, int settle = kAMoment) { return {screen, "", std::move(deed), settle}; }

/// A picture cut to some widgets, with numbers at places of widgets.
Stop Shown(const char* screen, const char* picture, std::vector<std::string> part, std::vector<Mark> marks,
           Deed deed = {}, double lower = 1) {
    Stop stop{screen, picture, std::move(deed), 250};
    stop.part = std::move(part);
    stop.marks = std::move(marks);
    stop.lower = lower;
    return stop;
}

/// A deed after which a dialog asks for a file.
Stop With_File(const char* screen, std::string file, Deed deed) {
    Stop stop{screen, "", std::move(deed), 100};
    stop.file = std::move(file);
    return stop;
}

/// A new linkage in another unit system, on the input screen.
Stops New_In_Units(const char* example, int units) {
    return {At("frm_HomeScreen",
               [example](Screen& s) {
                   Account("example", example);
                   Model_Kept();  // a question less
                   Choose_Entry(s, "mnu_New");
               }),
            At("frm_HomeScreen", Menu("mnu_pick", units)),
            // Else half a linkage would be calculated.
            At("frm_Inputnew", Ticking("chk_autocalc", false))};
}

Stops Back_Home() { return {At("frm_Inputnew", Pressing("cmd_Done")), At("frm_Animate", Pressing("cmd_Done"), 100)}; }

struct Column {
    const char* variable;
    const char* component;
};

/// From the home screen to a table of four functions.
Stops Table_Of(std::vector<Column> columns, int decimals) {
    return {At("frm_HomeScreen", Pressing("cmd_Print")),
            At("frm_PrintSelect",
               [columns = std::move(columns), decimals](Screen& s) {
                   Pick(s, "opt_PrintSet", 1);
                   int slot = 0;
                   for (const Column& column : columns) {
                       const std::string at = std::to_string(++slot);
                       Choose_Words(s, "cmb_Var" + at, column.variable);
                       if (*column.component) Choose_Words(s, "cmb_Com" + at, column.component);
                       Press(s, ("cmd_OK" + at).c_str());
                   }
                   Choose_Words(s, "cmb_Decimal", std::to_string(decimals));
               }),
            At("frm_PrintSelect", Pressing("cmd_Done"))};
}

Stops Straight_Line() {
    Stops walk = New_In_Units("a-straight-line", 5);
    Add(walk,
        {At("frm_Inputnew", Picking("opt_Polar", 1)),
         At("frm_Inputnew", Typing("txt_Linkout 1=24 2=78 3=78 4=156 5=0 0=60 6=0 txt_initial 0=0 1=360 2=1 3=4")),
         Shown("frm_Inputnew", "line-input", {"fra_Links", "SSFrame1", "fra_initial", "SSFrame6"},
               {{"fra_Links", 0.62, 0.09},
                {"SSFrame1", 0.85, 0.16},
                {"fra_initial", 0.62, 0.08},
                {"SSFrame6", 0.92, 0.22}},
               Pressing("cmd_Calc"), 0.94),
         At("frm_Inputnew", Seeing("line_class lbl_Grashof"))});
    Add(walk, {At("frm_Inputnew", Pressing("cmd_Done")), At("frm_Animate", Ticking("chk_Coupler", true), 400),
               Shown("frm_Animate", "line-curve", {"Picture1"}, {{"Picture1", 0.32, 0.2}, {"Picture1", 0.5, 0.06}},
                     Stepping(180)),
               At("frm_Animate", Pressing("cmd_Back"), 400), At("frm_Inputnew", Typing("txt_initial 0=110 1=250")),
               At("frm_Inputnew", Pressing("cmd_Calc"))});
    Add(walk, Back_Home());
    Add(walk, Table_Of({{"Coupler Pt", "X"}, {"Coupler Pt", "Y"}, {"Veloc CP", "Mag"}, {"Trans Ang", ""}}, 3));
    Add(walk,
        {Shown("frm_PrintData", "line-table", {"grd_Data"}, {{"grd_Data", 0.05, 0.105}, {"grd_Data", 0.05, 0.185}},
               Seeing_Cells("line_x_min Min 1, line_x_max Max 1, line_y_min Min 2, line_y_max Max 2, line_v_min Min 3, "
                            "line_v_avg Avg 3, line_v_max Max 3, line_t_min Min 4"),
               0.5),
         At("frm_PrintData", Pressing("cmd_Done"))});
    return walk;
}

constexpr const char* kNoMasses = "txt_Mass 2=0 3=0 4=0 txt_Inertia 2=0 3=0 4=0";

/// As a user does in an editor: the same numbers with the other sign, below the number of the last step.
void Change_Signs(const std::string& from, const std::string& to) {
    std::ifstream in(from);
    std::ofstream out(to);
    std::string line;
    for (int row = 0; std::getline(in, line); ++row) {
        if (row == 0 || line.find_first_not_of(" \r") == std::string::npos)
            out << line << '\n';
        else
            out << (line.find('-') == std::string::npos ? "-" + Plain(line) : Plain(line).substr(1)) << '\n';
    }
}

Stops First_Stage() {
    Stops walk = New_In_Units("two-stages", 5);
    Add(walk,
        {At("frm_Inputnew", In_Turn({Picking("opt_Polar", 1), Picking("opt_Calctype", 2)})),
         At("frm_Inputnew",
            Typing(
                "txt_Linkout 1=45 2=180 3=110 0=200 6=0 txt_Thetazero =0 txt_initial 0=0 1=0.5 2=0.005 3=12.5664 4=0")),
         At("frm_Inputnew", Pressing("cmd_Calc"))});
    Add(walk, Back_Home());
    Add(walk, {With_File("frm_HomeScreen", "stage1.vlk", Menu("mnu_Saveas")),
               With_File("frm_HomeScreen", "stage1.out", Menu("mnu_Link_Data_Export"))});
    Add(walk, Table_Of({{"Theta4", ""}, {"Omega4", ""}, {"Trans Ang", ""}, {"Omega2", ""}}, 2));
    Add(walk, {At("frm_PrintData", Seeing_Cells("one_min Min 1, one_max Max 1, one_t_min Min 3")),
               At("frm_PrintData", Pressing("cmd_Done"))});
    return walk;
}

Stops Second_Stage() {
    Stops walk = {With_File("frm_HomeScreen", "stage1.out", Menu("mnu_Link_Data_Import")),
                  At("frm_Inputnew", Typing("txt_Linkout 1=90 2=140 3=60 0=150 txt_initial 4=-50")),
                  At("frm_Inputnew", Pressing("cmd_Calc")),
                  At("frm_Inputnew", Pressing("cmd_Done")),
                  At("frm_HomeScreen", Pressing("cmd_Animate")),
                  At("frm_Animate", {}, 400),  // the screen draws the first position once more
                  Shown("frm_Animate", "stage-two", {"Picture1"}, {}, Stepping(20)),
                  At("frm_Animate", Pressing("cmd_Done"), 100)};
    Add(walk, {At("frm_HomeScreen", Pressing("cmd_Dynamics")), At("frm_MassProp", Typing(kNoMasses)),
               At("frm_MassProp", Typing("txt_Torque 4=2.5")), At("frm_MassProp", Pressing("cmd_Solve")),
               At("frm_MassProp", Pressing("cmd_Done"))});
    Add(walk, Table_Of({{"Theta4", ""}, {"Omega4", ""}, {"Trans Ang", ""}, {"Torque 12", ""}}, 3));
    Add(walk, {At("frm_PrintData", Seeing_Cells("two_min Min 1, two_max Max 1, two_t_min Min 3, two_omega4 0.100 2, "
                                                "two_torque_min Min 4, two_torque_max Max 4")),
               At("frm_PrintData", Pressing("cmd_Done")),
               With_File("frm_HomeScreen", "stage2.trq", Menu("mnu_Export_Torque"))});
    return walk;
}

Stops Both_Stages() {
    Stops walk = First_Stage();
    Add(walk, Second_Stage());
    Add(walk, {At("frm_HomeScreen",
                  [](Screen&) {
                      const std::string folder = platform::The_Desktop().Documents_Folder() + "/VERLINK";
                      Change_Signs(folder + "/stage2.trq", folder + "/load.trq");
                      Model_Kept();
                  }),
               With_File("frm_HomeScreen", "stage1.vlk", Menu("mnu_Open")), At("frm_Inputnew", Pressing("cmd_Calc"))});
    Add(walk, Back_Home());
    Add(walk, {At("frm_HomeScreen", Pressing("cmd_Dynamics")), At("frm_MassProp", Typing(kNoMasses)),
               With_File("frm_MassProp", "load.trq", Ticking("chk_Torque", true)),
               At("frm_MassProp", Pressing("cmd_Solve")), At("frm_MassProp", Pressing("cmd_Done"))});
    Add(walk, Table_Of({{"Omega2", ""}, {"Torque 12", ""}, {"Omega4", ""}, {"Trans Ang", ""}}, 3));
    Add(walk, {At("frm_PrintData", Seeing_Cells("both_torque_min Min 2, both_torque_max Max 2, both_torque 0.100 2")),
               At("frm_PrintData", Pressing("cmd_Done"))});
    return walk;
}

Stops Cam_Drive() {
    Stops walk = {At("frm_HomeScreen",
                     [](Screen& s) {
                         Account("example", "a-cam-drive");
                         Model_Kept();
                         Choose_Entry(s, "mnu_New");
                     }),
                  With_File("frm_HomeScreen", VERLINK_SAMPLES "/dwell_cam.sva", Menu("mnu_Lobetra")),
                  At("frm_Inputnew", Typing("txt_Linkout 4=95 5=25")),
                  At("frm_Inputnew", Pressing("cmd_Calc")),
                  At("frm_Inputnew", Pressing("cmd_Done")),
                  At("frm_HomeScreen", Pressing("cmd_Animate")),
                  At("frm_Animate", Ticking("chk_Coupler", true), 400),
                  Shown("frm_Animate", "cam-drive", {"Picture1"}, {{"Picture1", 0.1, 0.42}}, Stepping(8)),
                  At("frm_Animate", Pressing("cmd_Done"))};
    Add(walk, Table_Of({{"Theta2", ""}, {"Theta4", ""}, {"Alpha2", ""}, {"Alpha4", ""}}, 3));
    Add(walk,
        {At("frm_PrintData",
            Seeing_Cells(
                "cam_arm Max 1, cam_rest Min 2, cam_up Max 2, cam_drive Max 3, cam_a_min Min 4, cam_a_max Max 4")),
         At("frm_PrintData", Pressing("cmd_Done"))});
    return walk;
}

/// The lid's task is looked through by a search, which is awaited.
Stops Lid_Found() {
    Stops walk = New_In_Units("a-lid-with-loads", 5);
    Add(walk, {At("frm_Inputnew", Pressing("cmd_Cancel")), At("frm_HomeScreen", Menu("mnu_Explore")),
               At("frm_Explore", Picking("opt_Relative", 1)),
               At("frm_Explore",
                  In_Turn({Typing("txt_X 1=0 txt_Y 1=0 txt_Angle 1=0 txt_X 2=-50 txt_Y 2=180 txt_Angle 2=40 "
                                  "txt_X 3=-210 txt_Y 3=280 txt_Angle 3=85"),
                           Typing("txt_Area", 0, "-420 -160 to -180 160"),
                           Typing("txt_Area", 2, "-420 -160 to -180 160"), Typing("txt_Limit 0=60 1=450 2=35")})),
               Shown("frm_Explore", "lid-explore", {"Picture1", "lbl_Stroke", "cmb_Sort", "lbl_Found_3"},
                     {{"Picture1", 0.06, 0.06}, {"hsc_Stroke", 0.5, 0.5}, {"pic_Found_0", 0.9, 0.1}},
                     [](Screen& s) {
                         Press(s, "cmd_Search");
                         auto& explore = dynamic_cast<frm_Explore&>(s);
                         explore.Await_Search();
                         explore.hsc_Stroke.SetValue(frm_Explore::kStroke / 2);
                     }),
               At("frm_Explore", Seeing("lid_told lbl_Told")), At("frm_Explore", Pressing("cmd_Use")),
               At("frm_Inputnew", Seeing("lid_l1 txt_Linkout 0, lid_l2 txt_Linkout 1, lid_l3 txt_Linkout 2, "
                                         "lid_l4 txt_Linkout 3, lid_r txt_Linkout 4, lid_delta txt_Linkout 5, "
                                         "lid_ground txt_Linkout 6, lid_from txt_initial 0, lid_to txt_initial 1"))});
    return walk;
}

Stops Lid() {
    Stops walk = Lid_Found();
    Add(walk, {At("frm_Inputnew", Typing("txt_initial 2=1 3=0.5")), At("frm_Inputnew", Pressing("cmd_Calc"))});
    Add(walk, Back_Home());
    Add(walk,
        {At("frm_HomeScreen", Pressing("cmd_Dynamics")), At("frm_MassProp", Typing(kNoMasses)),
         At("frm_MassProp",
            Typing("txt_DistCG 3=182.3 txt_AngCG 3=99.60 txt_MagForce 3=41.2 txt_AngForce 3=78.73 txt_DistP 3=0")),
         Shown("frm_MassProp", "lid-loads", {"lbl_Link_3", "fra_CG", "fra_Force", "fra_ForceAt"},
               {{"fra_CG", 0.24, 0.5}, {"fra_Force", 0.24, 0.5}, {"fra_ForceAt", 0.24, 0.5}}, Pressing("cmd_Solve")),
         At("frm_MassProp", Pressing("cmd_Done"))});
    Add(walk, Table_Of({{"Torque 12", ""}, {"Force 12", "Mag"}, {"Force 14", "Mag"}, {"Coupler Pt", "Y"}}, 3));
    Add(walk, {At("frm_PrintData", Seeing_Cells("lid_t_min Min 1, lid_t_avg Avg 1, lid_t_max Max 1, lid_f12 Max 2, "
                                                "lid_f14 Max 3, lid_y_min Min 4, lid_y_max Max 4")),
               At("frm_PrintData", Pressing("cmd_Done")), At("frm_HomeScreen", Pressing("cmd_Plot")),
               At("frm_PlotType", Picking("opt_PickPlot", 0)), At("frm_PlotType", Pressing("cmd_PickPlotDone")),
               At("frm_PlotSelect1",
                  [](Screen& s) {
                      Pick(s, "opt_PrintSet", 1);
                      Choose_Words(s, "cmb_Var1", "Torque 12");
                      Press(s, "cmd_OK1");
                  }),
               At("frm_PlotSelect1", Pressing("cmd_Done")),
               Shown("frm_Plot1", "lid-torque", {"grf_Plot_0"}, {{"grf_Plot_0", 0.14, 0.2}, {"grf_Plot_0", 0.93, 0.78}},
                     {}, 1),
               At("frm_Plot1", Pressing("cmd_Done"))});
    return walk;
}

Stops Balance_And_Flywheel() {
    Stops walk = New_In_Units("balance-and-flywheel", 3);
    Add(walk, {At("frm_Inputnew", Picking("opt_Polar", 1)),
               At("frm_Inputnew", Typing("txt_Linkout 1=0.11 2=0.36 3=0.25 0=0.42 6=0 txt_initial 0=0 1=360 2=1 3=30")),
               At("frm_Inputnew", Pressing("cmd_Calc"))});
    Add(walk, Back_Home());
    Add(walk, {At("frm_HomeScreen", Pressing("cmd_Dynamics")),
               At("frm_MassProp", Typing("txt_Mass 2=1.2 3=2.4 4=1.8 txt_Inertia 2=0.004 3=0.03 4=0.012 "
                                         "txt_DistCG 2=0.03 3=0.18 4=0.12 txt_AngCG 2=0 3=0 4=0 txt_MagForce 3=0")),
               At("frm_MassProp", Pressing("cmd_Solve")), At("frm_MassProp", Pressing("cmd_Done")),
               At("frm_HomeScreen", Pressing("cmd_Balance")),
               At("frm_Balance", Seeing("bal_mr2 lbl_MR2, bal_a2 lbl_Ang2, bal_mr4 lbl_MR4, bal_a4 lbl_Ang4")),
               At("frm_Balance", Typing("txt_Radius 2=0.06 4=0.15")),
               Shown("frm_Balance", "press-balance", {"pct_Pict1", "grf_Plot_0", "grf_Plot_1"},
                     {{"grf_Plot_0", 0.94, 0.05}, {"grf_Plot_1", 0.94, 0.05}, {"pct_Pict1", 0.9, 0.04}},
                     Pressing("cmd_Calc"), 0.98),
               At("frm_Balance", Seeing("bal_m2 txt_BerkMass 2, bal_m4 txt_BerkMass 4")),
               At("frm_Balance", Seeing_Lines("pulse_", "pct_Pict1")), At("frm_Balance", Pressing("cmd_Done"))});
    Add(walk, Table_Of({{"F Shaking", "Mag"}, {"F Shk Balcd", "Mag"}, {"M Shaking", ""}, {"MShk Balcd", ""}}, 3));
    Add(walk, {At("frm_PrintData", Seeing_Cells("bal_f_max Max 1, bal_f_after Max 2, bal_ms_min Min 3, "
                                                "bal_ms_max Max 3, bal_ma_min Min 4, bal_ma_max Max 4")),
               At("frm_PrintData", Pressing("cmd_Done"))});
    return walk;
}

}  // namespace

Stops Examples_Walk() {
    Stops walk;
    Add(walk, Straight_Line());
    Add(walk, Both_Stages());
    Add(walk, Cam_Drive());
    Add(walk, Lid());
    Add(walk, Balance_And_Flywheel());
    Add(walk, {At("frm_HomeScreen", [](Screen&) { Account("examples", "end"); })});
    return walk;
}

}  // namespace verlink::capture
