// The table of what the manual says of which control.
#include <string>

#include "screens/help_documents.h"

namespace verlink {

namespace {

// The first row that fits counts: rows of a control stand before those of the screens.
constexpr Help_Place kPlaces[] = {
    {"frm_HomeScreen", "cmd_Input", "mnu_Linkdata", ""},
    {"frm_HomeScreen", "cmd_Animate", "mnu_AnimateHelp", ""},
    {"frm_HomeScreen", "cmd_Plot", "mnu_PlotHelp", ""},
    {"frm_HomeScreen", "cmd_Print", "mnu_PrintHelp", ""},
    {"frm_HomeScreen", "cmd_Dynamics", "mnu_DynamicsHelp", ""},
    {"frm_HomeScreen", "cmd_Balance", "mnu_BalanceHelp", ""},
    {"frm_HomeScreen", "cmd_Quit", "mnu_FileGeneral", "quit"},
    {"frm_HomeScreen", "Picture1", "mnu_HandHelp", "looking-closely"},
    {"frm_HomeScreen", "", "mnu_Manual", ""},

    {"frm_Inputnew", "txt_initial", "mnu_LinkCalc", "initial-conditions"},
    {"frm_Inputnew", "opt_Calctype", "mnu_LinkCalc", "calculation-mode"},
    {"frm_Inputnew", "opt_Modulo", "mnu_Linkdata", "modulo"},
    {"frm_Inputnew", "opt_OpenCross", "mnu_Linkdata", "circuit"},
    {"frm_Inputnew", "opt_Polar", "mnu_Linkdata", "link-1"},
    {"frm_Inputnew", "txt_Linkout", "mnu_Linkdata", "linkage-data"},
    {"frm_Inputnew", "cmd_Calc", "mnu_Linkdata", "calculate-and-what-happens-by-itself"},
    {"frm_Inputnew", "chk_autocalc", "mnu_Linkdata", "calculate-and-what-happens-by-itself"},
    {"frm_Inputnew", "txt_Thetazero", "mnu_Linkdata", "the-drawing"},
    {"frm_Inputnew", "txt_Figure", "mnu_Linkdata", "the-drawing"},
    {"frm_Inputnew", "chk_autoscale", "mnu_Linkdata", "the-drawing"},
    {"frm_Inputnew", "hsc_step", "mnu_Linkdata", "the-drawing"},
    {"frm_Inputnew", "cmd_Step", "mnu_Linkdata", "the-drawing"},
    {"frm_Inputnew", "cmd_Reset", "mnu_Linkdata", "the-drawing"},
    {"frm_Inputnew", "opt_Shift_Drag", "mnu_Linkdata", "the-drawing"},

    {"frm_Animate", "txt_initial", "mnu_LinkCalc", "initial-conditions"},
    {"frm_Animate", "opt_OpenCross", "mnu_Linkdata", "circuit"},
    {"frm_Animate", "opt_Polar", "mnu_Linkdata", "link-1"},
    {"frm_Animate", "txt_Linkout", "mnu_AnimateHelp", "numbers"},
    {"frm_Animate", "cmd_Recalc", "mnu_AnimateHelp", "numbers"},
    {"frm_Animate", "hsc_", "mnu_AnimateHelp", "playing"},
    {"frm_Animate", "cmb_wait", "mnu_AnimateHelp", "playing"},
    {"frm_Animate", "txt_Cycles", "mnu_AnimateHelp", "playing"},
    {"frm_Animate", "chk_autoscale", "mnu_AnimateHelp", "playing"},
    {"frm_Animate", "chk_Trace", "mnu_AnimateHelp", "playing"},
    {"frm_Animate", "cmd_Animate", "mnu_AnimateHelp", "playing"},
    {"frm_Animate", "cmd_Step", "mnu_AnimateHelp", "playing"},
    {"frm_Animate", "cmd_Reset", "mnu_AnimateHelp", "playing"},
    {"frm_Animate", "chk_Showlinks", "mnu_AnimateHelp", "what-is-shown"},
    {"frm_Animate", "chk_Coupler", "mnu_AnimateHelp", "what-is-shown"},
    {"frm_Animate", "txt_LineAngle", "mnu_AnimateHelp", "what-is-shown"},
    {"frm_Animate", "chk_Centrodes", "mnu_AnimateHelp", "centrodes"},
    {"frm_Animate", "opt_Shift_Drag", "mnu_AnimateHelp", "dragging-joints"},
    {"frm_Animate", "cmb_Live", "mnu_HandHelp", "live-plots"},
    {"frm_Animate", "opt_Live", "mnu_HandHelp", "live-plots"},
    {"frm_Animate", "grf_Live", "mnu_HandHelp", "live-plots"},
    {"frm_Animate", "", "mnu_AnimateHelp", ""},

    // Alike on both screens of a linkage.
    {"frm_Inputnew", "chk_Lock", "mnu_HandHelp", "locks"},
    {"frm_Animate", "chk_Lock", "mnu_HandHelp", "locks"},
    {"frm_Inputnew", "Picture1", "mnu_HandHelp", "dragging-a-joint"},
    {"frm_Animate", "Picture1", "mnu_HandHelp", "dragging-a-joint"},
    {"frm_Inputnew", "", "mnu_Linkdata", ""},

    {"frm_PlotType", "", "mnu_PlotHelp", "choosing-a-layout"},
    {"frm_PlotSelect", "opt_Coord", "mnu_PlotHelp", "coordinate-systems"},
    {"frm_PlotSelect", "cmb_Com", "mnu_PlotHelp", "components"},
    {"frm_PlotSelect", "cmb_Var", "mnu_PlotHelp", "what-can-be-plotted"},
    {"frm_PlotSelect", "", "mnu_PlotHelp", "choosing-functions"},
    {"frm_Plot", "", "mnu_PlotHelp", "annotated-plots"},
    {"frm_MyPlot4", "", "mnu_PlotHelp", "polar-plots"},
    {"frm_MyPlot", "", "mnu_PlotHelp", "aligned-plots"},
    {"frm_Myplot", "", "mnu_PlotHelp", "aligned-plots"},
    {"frm_PrintSelect", "opt_Whereto", "mnu_PrintHelp", "where-the-table-goes"},
    {"frm_PrintSelect", "", "mnu_PrintHelp", "the-print-select-screen"},
    {"frm_PrintData", "", "mnu_PrintHelp", "screen"},
    {"frm_FFT", "grf_Plot", "mnu_FFTHelp", "reading-the-result"},
    {"frm_FFT", "", "mnu_FFTHelp", "the-screen"},

    {"frm_MassProp", "txt_Mass", "mnu_DynamicsHelp", "mass-properties-and-cg-locations"},
    {"frm_MassProp", "txt_Inertia", "mnu_DynamicsHelp", "mass-properties-and-cg-locations"},
    {"frm_MassProp", "txt_DistCG", "mnu_DynamicsHelp", "mass-properties-and-cg-locations"},
    {"frm_MassProp", "txt_AngCG", "mnu_DynamicsHelp", "mass-properties-and-cg-locations"},
    {"frm_MassProp", "chk_Torque", "mnu_DynamicsHelp", "a-torque-from-a-file"},
    {"frm_MassProp", "txt_", "mnu_DynamicsHelp", "external-forces"},
    {"frm_MassProp", "cmd_Solve", "mnu_DynamicsHelp", "solving"},
    {"frm_MassProp", "cmd_Matrix", "mnu_DynamicsHelp", "the-matrix"},
    {"frm_MassProp", "", "mnu_DynamicsHelp", ""},
    {"frm_Matrix", "", "mnu_DynamicsHelp", "the-matrix"},
    {"frm_Balance", "txt_Fluct", "mnu_BalanceHelp", "the-pulses-of-the-torque"},
    {"frm_Balance", "txt_", "mnu_BalanceHelp", "choosing-mass-and-radius"},
    {"frm_Balance", "grf_Plot", "mnu_BalanceHelp", "reading-the-result"},
    {"frm_Balance", "cmd_Done", "mnu_BalanceHelp", "after-balancing"},
    {"frm_Balance", "", "mnu_BalanceHelp", ""},

    {"frm_Synth2A", "txt_", "mnu_SynthHelp", "three-angles-assumed"},
    {"frm_Synth2A", "", "mnu_SynthHelp", "two-positions"},
    {"frm_Synth2B", "txt_", "mnu_SynthHelp", "an-assumed-vector"},
    {"frm_Synth2B", "", "mnu_SynthHelp", "two-positions"},
    {"frm_Synth3", "", "mnu_SynthHelp", "three-positions"},
    {"frm_Cayley", "", "mnu_CognateHelp", "the-cayley-diagram"},

    {"frm_Explore", "txt_X", "mnu_ExploreHelp", "the-task"},
    {"frm_Explore", "txt_Y", "mnu_ExploreHelp", "the-task"},
    {"frm_Explore", "txt_Angle", "mnu_ExploreHelp", "the-task"},
    {"frm_Explore", "chk_Curves", "mnu_ExploreHelp", "four-positions"},
    {"frm_Explore", "pic_Found", "mnu_ExploreHelp", "what-was-found"},
    {"frm_Explore", "cmb_Sort", "mnu_ExploreHelp", "what-was-found"},
    {"frm_Explore", "", "mnu_ExploreHelp", ""},
    {"frm_Studies", "", "mnu_StudiesHelp", "in-the-program"},
    {"frm_Checks", "", "mnu_ChecksHelp", ""},
    {"frm_Report", "chk_Chapter", "mnu_ReportHelp", "choosing-what-it-holds"},
    {"frm_Report", "cmb_Plot", "mnu_ReportHelp", "choosing-what-it-holds"},
    {"frm_Report", "", "mnu_ReportHelp", ""},
    {"frm_User", "", "mnu_FileGeneral", "who-and-where"},
    {"frm_Quit", "", "mnu_FileGeneral", "quit"},
    {"frm_Help", "", "mnu_KeyboardHelp", "help"},
};

std::string Place_Of(const Help_Place& row) {
    const std::string document = Help_Document(row.entry);
    return *row.heading ? document + "#" + row.heading : document;
}

std::string Find_Place(const std::string& screen, const std::string& control) {
    for (const Help_Place& row : kPlaces)
        if (screen.starts_with(row.screen) && (*row.control == '\0') == control.empty() &&
            control.starts_with(row.control))
            return Place_Of(row);
    return {};
}

}  // namespace

std::string Screen_Help(const platform::Screen& screen) {
    const std::string place = Find_Place(screen.Name(), {});
    return place.empty() ? Help_Document("mnu_Manual") : place;
}

std::string Control_Help(const platform::Screen& screen, const platform::Control* control) {
    const std::string place = control ? Find_Place(screen.Name(), control->Name()) : std::string();
    return place.empty() ? Screen_Help(screen) : place;
}

std::span<const Help_Place> Help_Places() { return kPlaces; }

}  // namespace verlink
