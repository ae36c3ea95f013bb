// Walks through the program as a user would and saves a picture of each screen on the way.
//
//     verlink-capture FOLDER [dark]      every screen, also as on a dark desktop
//     verlink-capture FOLDER road        the pictures of the manual's worked example, with an account of it in road.txt
//     verlink-capture FOLDER chapters    those of its other chapters, with theirs in chapters.txt
//     verlink-capture - film             the tutorial, as uncompressed video on the standard output
//
// The user's folders are temporary ones, so that nothing of the real user is touched.
#include <QApplication>
#include <QDir>
#include <QPalette>
#include <QTemporaryDir>
#include <cstdio>
#include <optional>
#include <string>
#include <utility>

#include "desktop/qt_desktop.h"
#include "desktop/quiet_style.h"
#include "files/in_hand.h"
#include "platform/guard.h"
#include "screens/register.h"
#include "shell/failure_report.h"
#include "shell/startup.h"
#include "tools/capture/deeds.h"
#include "tools/capture/film.h"
#include "tools/capture/walk.h"
#include "tools/capture/walker.h"

using namespace verlink;
using namespace verlink::capture;
using platform::Screen;

namespace {

/// From the home screen to a selection screen of plots, by the type of the plot.
Stops To_Selection(int type, const char* type_picture) {
    return {{"frm_HomeScreen", "", Pressing("cmd_Plot")},
            {"frm_PlotType", type_picture, [type](Screen& s) { Pick(s, "opt_PickPlot", type); }},
            {"frm_PlotType", "", Pressing("cmd_PickPlotDone")}};
}

Stops Plots_On_Graphs() {
    Stops stops = To_Selection(0, "plot-type");
    Add(stops, {{"frm_PlotSelect1", "plot-select-1", Choosing("cmb_Preset", 6)},
                {"frm_PlotSelect1", "", Pressing("cmd_Done")},
                {"frm_Plot1", "plot-1", {}, 400},
                {"frm_Plot1", "plot-1-blue", Picking("opt_Back", 1), 300},
                {"frm_Plot1", "plot-1-gray-fills", In_Turn({Picking("opt_Back", 2), Ticking("chk_Sticks", true)}), 300},
                {"frm_Plot1", "", Pressing("cmd_Replot")},
                {"frm_PlotSelect1", "plot-select-1-mix",
                 In_Turn({Picking("opt_PrintSet", 1), Choosing("cmb_Var1", 2), Pressing("cmd_OK1"),
                          Choosing("cmb_Var2", 12), Choosing("cmb_Com2", 2), Pressing("cmd_OK2")})},
                {"frm_PlotSelect1", "", Pressing("cmd_Done")},
                {"frm_Plot1", "", Ticking("chk_Sticks", false)},
                {"frm_Plot1", "plot-1-mix", Picking("opt_Back", 0), 300},
                {"frm_Plot1", "", Pressing("cmd_Done")}});
    return stops;
}

/// Two or four windows, in both families.
Stops Plots_In_Windows(int type, const char* selection, const char* aligned, const char* annotated) {
    Stops stops = To_Selection(type, "");
    const std::string number = type == 1 ? "2" : "3";
    Add(stops, {{selection, "plot-select-" + number, In_Turn({Picking("opt_Plotstyle", 1), Choosing("cmb_Preset", 5)})},
                {selection, "", Pressing("cmd_Done")},
                {annotated, "plot-" + number, {}, 400},
                {annotated, "", Pressing("cmd_Replot")},
                {selection, "", In_Turn({Picking("opt_Plotstyle", 0), Choosing("cmb_Preset", 5)})},
                {selection, "", Pressing("cmd_Done")},
                {aligned, "plot-" + number + "-aligned", {}, 700},
                {aligned, "", Pressing("cmd_PlotDone")}});
    return stops;
}

Stops Polar_Plot() {
    Stops stops = To_Selection(3, "");
    Add(stops, {{"frm_PlotSelect4", "plot-select-4", Choosing("cmb_Var1", 2)},
                {"frm_PlotSelect4", "", Pressing("cmd_Done")},
                {"frm_MyPlot4", "", Ticking("chk_Vectors", true), 700},
                {"frm_MyPlot4", "plot-4", {}, 300},
                {"frm_MyPlot4", "plot-4-step",
                 [](Screen& s) {
                     Tick(s, "chk_Pause", true);
                     for (int i = 0; i < 20; ++i) Press(s, "cmd_Step");
                 },
                 300},
                {"frm_MyPlot4", "", Pressing("cmd_PlotDone")}});
    return stops;
}

Stops Studies() {
    const auto second = [](Screen& s) {
        auto& list = s.Get<platform::ComboBox>("cmb_Sweep", 2);
        const platform::Deed whole(list);
        list.Choose(2);
    };
    return {
        {"frm_HomeScreen", "", [](Screen& s) { s.Get<platform::MenuEntry>("mnu_Studies").Click(); }},
        {"frm_Studies", "studies-sweep", Pressing("cmd_Start"), 2000},
        {"frm_Studies", "", second},
        {"frm_Studies", "studies-map", Pressing("cmd_Start"), 4000},
        {"frm_Studies", "", Picking("opt_Kind", 1)},
        {"frm_Studies", "", Pressing("cmd_Start"), 4000},
        {"frm_Studies", "studies-tolerances", Pressing("cmd_After"), 500},
        {"frm_Studies", "", Pressing("cmd_Cancel")},
    };
}

Stops Table_And_Transform() {
    return {
        {"frm_HomeScreen", "", Pressing("cmd_Print")},
        {"frm_PrintSelect", "print-select", Choosing("cmb_Preset", 5)},
        {"frm_PrintSelect", "", Pressing("cmd_Done")},
        {"frm_PrintData", "print-data", {}, 400},
        {"frm_PrintData", "", Pressing("cmd_Done")},
        {"frm_HomeScreen", "", [](Screen& s) { s.Get<platform::MenuEntry>("mnu_CalcFFT").Click(); }},
        {"frm_FFT", "transform", Choosing("cmb_Var1", 8), 500},
        {"frm_FFT", "", Pressing("cmd_Done"), 300},
    };
}

/// The last preset of the box: once a transform exists, the transform.
void Choose_Last(Screen& screen) {
    auto& box = screen.Get<platform::ComboBox>("cmb_Preset");
    box.Choose(static_cast<int>(box.Items().size()) - 1);
}

Stops Plots_Of_The_Transform() {
    Stops stops = To_Selection(2, "");
    Add(stops, {{"frm_PlotSelect3", "", [](Screen& s) { Choose_Last(s); }},
                {"frm_PlotSelect3", "", Pressing("cmd_Done")},
                {"frm_Plot3", "", Ticking("chk_Line", false), 300},
                {"frm_Plot3", "plot-3-transform", Ticking("chk_Sticks", true), 400},
                {"frm_Plot3", "", Pressing("cmd_Done")},
                {"frm_HomeScreen", "", Pressing("cmd_Print")},
                {"frm_PrintSelect", "", [](Screen& s) { Choose_Last(s); }},
                {"frm_PrintSelect", "", Pressing("cmd_Done")},
                {"frm_PrintData", "print-data-transform", {}, 400},
                {"frm_PrintData", "", Pressing("cmd_Done")}});
    return stops;
}

/// Loads, the solution, its equations, the balance of the linkage and a plot of all that.
Stops Forces_And_Balance() {
    Stops stops = {
        {"frm_HomeScreen", "", Pressing("cmd_Dynamics")},
        {"frm_MassProp", "mass-properties", Typing("txt_MagForce 3=2.5 txt_AngForce 3=-90 txt_Frict 3=0.4"), 300},
        {"frm_MassProp", "mass-properties-solved", Pressing("cmd_Solve")},
        {"frm_MassProp", "", Pressing("cmd_Matrix")},
        {"frm_Matrix", "matrix", {}, 300},
        {"frm_Matrix", "", Pressing("cmd_Done")},
        {"frm_MassProp", "", Pressing("cmd_Done")},
        {"frm_HomeScreen", "", Pressing("cmd_Balance")},
        {"frm_Balance", "balance-empty", {}, 300},
        {"frm_Balance", "balance", Pressing("cmd_Calc"), 400},
        {"frm_Balance", "balance-blue", Picking("opt_Back", 1), 300},
        {"frm_Balance", "", Picking("opt_Back", 0)},
        {"frm_Balance", "", Pressing("cmd_Done")},
        {"frm_HomeScreen", "home-forces", {}, 300},
        {"frm_HomeScreen", "", Pressing("cmd_Animate")},
        {"frm_Animate", "", {}, 500},
        {"frm_Animate", "animate-forces",
         [](Screen& s) {
             for (int i = 0; i < 30; ++i) Press(s, "cmd_Step");
         }},
        {"frm_Animate", "", Pressing("cmd_Done")},
    };
    Add(stops, To_Selection(0, ""));
    Add(stops, {{"frm_PlotSelect1", "",
                 In_Turn({Picking("opt_PrintSet", 1), Choosing("cmb_Var1", 29), Choosing("cmb_Com1", 2),
                          Pressing("cmd_OK1")})},
                {"frm_PlotSelect1", "", Pressing("cmd_Done")},
                {"frm_Plot1", "plot-1-force", {}, 400},
                {"frm_Plot1", "", Pressing("cmd_Done")}});
    return stops;
}

/// A run by time, with one function and with three in a window, four windows, a locus and a table.
Stops Time_Run() {
    Stops stops = {
        {"frm_HomeScreen", "", Pressing("cmd_Input")},
        {"frm_Inputnew", "", Picking("opt_Calctype", 2), 500},
        {"frm_Inputnew", "", In_Turn({Typing("txt_initial 1=1 2=0.01"), Pressing("cmd_Calc")})},
        {"frm_Inputnew", "", Pressing("cmd_Done")},
        {"frm_Animate", "animate-time", {}, 500},
        {"frm_Animate", "", Pressing("cmd_Done")},
    };
    Add(stops, To_Selection(0, ""));
    Add(stops,
        {{"frm_PlotSelect1", "", In_Turn({Picking("opt_PrintSet", 1), Choosing("cmb_Var1", 6), Pressing("cmd_OK1")})},
         {"frm_PlotSelect1", "", Pressing("cmd_Done")},
         {"frm_Plot1", "plot-1-time", {}, 400},
         {"frm_Plot1", "", Pressing("cmd_Replot")},
         {"frm_PlotSelect1", "",
          [](Screen& s) {
              for (const char* slot : {"1", "2", "3"}) {
                  Choose(s, (std::string("cmb_Var") + slot).c_str(), 4 + slot[0] - '1');
                  Press(s, (std::string("cmd_OK") + slot).c_str());
              }
          }},
         {"frm_PlotSelect1", "", Pressing("cmd_Done")},
         {"frm_Plot1", "plot-1-time-three", {}, 400},
         {"frm_Plot1", "", Pressing("cmd_Done")}});
    Add(stops, To_Selection(2, ""));
    Add(stops, {{"frm_PlotSelect3", "", Choosing("cmb_Preset", 8)},
                {"frm_PlotSelect3", "", Pressing("cmd_Done")},
                {"frm_Plot3", "plot-3-time", {}, 400},
                {"frm_Plot3", "", Pressing("cmd_Done")}});
    Add(stops, To_Selection(3, ""));
    Add(stops, {{"frm_PlotSelect4", "", Choosing("cmb_Var1", 5)},
                {"frm_PlotSelect4", "", Pressing("cmd_Done")},
                {"frm_MyPlot4", "plot-4-time", {}, 700},
                {"frm_MyPlot4", "", Pressing("cmd_PlotDone")},
                {"frm_HomeScreen", "", Pressing("cmd_Print")},
                {"frm_PrintSelect", "", Choosing("cmb_Preset", 0)},
                {"frm_PrintSelect", "", Pressing("cmd_Done")},
                {"frm_PrintData", "print-data-time", {}, 400},
                {"frm_PrintData", "", Pressing("cmd_Done")}});
    return stops;
}

/// A synthesis screen as it comes up, and calculated.
Stops Synthesis_Screen_Of(const char* entry, const char* screen, const std::string& picture) {
    return {{"frm_HomeScreen", "", [entry](Screen& s) { Choose_Entry(s, entry); }, 300},
            {screen, picture + "-start", {}, 300},
            {screen, "", Pressing("cmd_Calc"), 300},
            {screen, picture, {}, 300},
            {screen, "", Pressing("cmd_Cancel")}};
}

/// An example with its cognates, and all synthesis screens.
Stops Design() {
    Stops stops = {
        {"frm_HomeScreen", "", Menu("mnu_Grashof")},
        {"frm_Inputnew", "", Pressing("cmd_Calc"), 500},
        {"frm_Inputnew", "", Pressing("cmd_Done")},
        {"frm_Animate", "", Pressing("cmd_Done"), 500},
        {"frm_HomeScreen", "", Menu("mnu_Cayley"), 300},
        {"frm_Cayley", "cayley", {}, 300},
        {"frm_Cayley", "cayley-second", Picking("opt_Cognate", 1), 300},
        {"frm_Cayley", "", Pressing("cmd_Done")},
        {"frm_HomeScreen", "", Menu("mnu_Roberts")},
        {"frm_Inputnew", "", {}, 500},
        {"frm_Inputnew", "example-roberts", Pressing("cmd_Calc"), 300},
        {"frm_Inputnew", "", Pressing("cmd_Cancel")},
    };
    for (const Stops& more : {Synthesis_Screen_Of("mnu_Twopos1", "frm_Synth2A", "synthesis-angles"),
                              Synthesis_Screen_Of("mnu_Twopos2", "frm_Synth2B", "synthesis-vector"),
                              Synthesis_Screen_Of("mnu_Unspec", "frm_Synth3", "synthesis-three"),
                              Synthesis_Screen_Of("mnu_Spec", "frm_Synth3", "synthesis-pivots")})
        Add(stops, more);
    const Stops explore = {
        {"frm_HomeScreen", "", Menu("mnu_Explore")},
        {"frm_Explore", "explore", [](Screen& s) { s.Get<platform::ComboBox>("cmb_Count").Choose(2); }, 400},
        {"frm_Explore", "", Pressing("cmd_Cancel")}};
    Add(stops, explore);
    return stops;
}

/// From the title to a run that is played.
Stops First_Linkage() {
    return {
        {"frm_Title", "title", {}, 200},
        {"frm_Title", "", Pressing("cmd_Start")},
        {"frm_User", "user", [](Screen& s) { Fill(s, "txt_UserName", platform::kNoIndex, "A. Designer"); }},
        {"frm_User", "", Pressing("cmd_Done")},
        {"frm_HomeScreen", "home-empty", {}, 300},
        {"frm_HomeScreen", "", Pressing("cmd_Input")},
        {"frm_Inputnew", "", [](Screen& s) { s.Get<platform::OptionButton>("opt_Calctype", 3).Value = true; }, 500},
        {"frm_Inputnew", "", Typing("txt_initial 2=5")},
        {"frm_Inputnew", "input", Pressing("cmd_Calc")},
        {"frm_Inputnew", "input-time",
         [](Screen& s) {
             s.Get<platform::OptionButton>("opt_Calctype", 2).Value = true;
             Press(s, "cmd_Calc");
         }},
        {"frm_Inputnew", "",
         [](Screen& s) {
             s.Get<platform::OptionButton>("opt_Calctype", 3).Value = true;
             Fill(s, "txt_initial", 2, "2");
             Fill(s, "txt_initial", 1, "360");
             Fill(s, "txt_initial", 0, "0");
             Press(s, "cmd_Calc");
         }},
        {"frm_Inputnew", "", Pressing("cmd_Done")},
        {"frm_Animate", "", Ticking("chk_Coupler", true), 500},
        {"frm_Animate", "animate",
         [](Screen& s) {
             for (int i = 0; i < 30; ++i) Press(s, "cmd_Step");
         }},
        {"frm_Animate", "animate-centrodes",
         [](Screen& s) {
             Tick(s, "chk_Centrodes", true);
             Tick(s, "chk_CouplerLines", true);
             s.Get<platform::ScrollBar>("hsc_speed").SetValue(32767);
             Press(s, "cmd_Animate");
         },
         120, true},
        {"frm_Animate", "animate-drag",
         [](Screen& s) {
             Tick(s, "chk_Centrodes", false);
             Tick(s, "chk_CouplerLines", false);
             Drag(s, 0.62, 0.30);
             Drag(s, 0.60, 0.28);
         }},
        {"frm_Animate", "", Pressing("cmd_Done")},
        {"frm_HomeScreen", "home", {}, 300},
    };
}

Stops Walk() {
    Stops stops = First_Linkage();
    for (const Stops& more :
         {Plots_On_Graphs(), Plots_In_Windows(1, "frm_PlotSelect2", "frm_Myplot2", "frm_Plot2"),
          Plots_In_Windows(2, "frm_PlotSelect3", "frm_MyPlot3", "frm_Plot3"), Polar_Plot(), Forces_And_Balance(),
          Table_And_Transform(), Plots_Of_The_Transform(), Time_Run(), Studies(), Design()})
        Add(stops, more);
    Add(stops, {{"frm_HomeScreen", "", [](Screen& s) { s.Get<platform::MenuEntry>("mnu_About").Click(); }},
                {"frm_About", "about", {}, 200},
                {"frm_About", "", [](Screen& s) { s.Hide(); }},
                {"frm_HomeScreen", "", [](Screen& s) { s.Get<platform::MenuEntry>("mnu_Manual").Click(); }},
                {"frm_Help", "help", {}, 300},
                {"frm_Help", "", [](Screen& s) { s.Hide(); }},
                {"frm_HomeScreen", "",
                 [](Screen& s) {
                     Model_Kept();  // no question about saving on this walk
                     Press(s, "cmd_Quit");
                 }},
                {"frm_Quit", "quit", {}, 200},
                {"frm_Quit", "", Pressing("cmd_YesQuit")}});
    return stops;
}

/// As a dark desktop would have it.
QPalette Dark_Palette() {
    QPalette palette(QColor(0x31, 0x36, 0x3B), QColor(0x2A, 0x2E, 0x32));
    palette.setColor(QPalette::Base, QColor(0x1B, 0x1E, 0x20));
    palette.setColor(QPalette::AlternateBase, QColor(0x23, 0x26, 0x29));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, QColor(0xFC, 0xFC, 0xFC));
        palette.setColor(QPalette::Disabled, role, QColor(0x6E, 0x75, 0x7C));
    }
    palette.setColor(QPalette::ToolTipBase, QColor(0x31, 0x36, 0x3B));
    palette.setColor(QPalette::Highlight, QColor(0x3D, 0xAE, 0xE9));
    palette.setColor(QPalette::HighlightedText, QColor(0xFC, 0xFC, 0xFC));
    return palette;
}

}  // namespace

int main(int argc, char** argv) {
    const std::string kind = argc == 3 ? argv[2] : "";
    const bool dark = kind == "dark";
    const bool manual = kind == "road" || kind == "chapters";
    const bool film = kind == "film";
    if (argc != 2 && !dark && !manual && !film) {
        std::fputs("usage: verlink-capture FOLDER [dark | road | chapters]\n       verlink-capture - film\n", stderr);
        return 2;
    }
    // The platform without a display says at each window what it cannot do.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
        if (!text.startsWith(QStringLiteral("This plugin does not support")))
            std::fprintf(stderr, "%s\n", qPrintable(text));
    });
    const QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) qputenv("XDG_RUNTIME_DIR", home.path().toLocal8Bit());
    for (const char* name : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_DOCUMENTS_DIR"})
        qunsetenv(name);
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    desktop::useQuietStyle();
    if (dark) QApplication::setPalette(Dark_Palette());
    QDir folder(QString::fromLocal8Bit(argv[1]));
    if (!film) folder.mkpath(QStringLiteral("."));

    desktop::QtDesktop desktop;
    platform::Use_Desktop(&desktop);
    Install_Reporter(Report_Error);
    Register_Screens();
    const std::string account = manual ? folder.filePath(QString::fromStdString(kind + ".txt")).toStdString() : "";
    Stops stops = film ? Tutorial_Walk() : kind == "road" ? Road_Walk() : manual ? Chapters_Walk() : Walk();
    Walker walker(desktop, folder, std::move(stops), account);
    std::optional<Film> tutorial;
    if (film) walker.Use(tutorial.emplace(stdout));
    walker.Start();
    Sub_Main("");
    desktop.discardForms();
    platform::Screens::Discard();
    const int status = walker.End();
    return tutorial && !tutorial->Good() ? 1 : status;
}
