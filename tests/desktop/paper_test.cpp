// Every screen that prints itself makes a sheet of paper, on the way of a user through all of them.
#include <QMessageBox>
#include <QPrintDialog>
#include <QPushButton>
#include <set>

#include "files/in_hand.h"
#include "platform/controls.h"
#include "platform/file_system.h"
#include "shell/startup.h"
#include "tests/desktop/looks.h"
#include "tests/desktop/screens.h"

namespace verlink::test {

using namespace platform;

namespace {

/// The button with which a screen prints itself; that of the home screen leads to the tables.
const char* Print_Button(const Screen& screen) {
    if (screen.Name() == "frm_HomeScreen") return nullptr;
    for (const char* name : {"cmd_Print", "cmd_PlotPrint", "cmd_PrintForm"})
        if (screen.FindAs<CommandButton>(name, kNoIndex)) return name;
    return nullptr;
}

class PaperTest : public ScreensTest {
   protected:
    using Deed = std::function<void(Screen&)>;

    /// At a screen the user does something and goes on by a button.
    void At(const char* name, Deed deed, const char* on) {
        Then(name, [name, deed, on](QWidget& window) {
            Screen& screen = Screens::Get(name);
            if (deed) deed(screen);
            ASSERT_TRUE(Find<QPushButton>(window, on).isEnabled()) << name;
            Click(window, on);
        });
    }
    /// The same, but that the user prints the screen before he goes on.
    void Print_At(const char* name, Deed deed, const char* on, bool report = false) {
        Then(name, [this, name, deed, on](QWidget& window) {
            SCOPED_TRACE(name);
            Screen& screen = Screens::Get(name);
            if (deed) deed(screen);
            const char* button = Print_Button(screen);
            ASSERT_NE(button, nullptr);
            auto& widget = Find<QPushButton>(window, button);
            EXPECT_TRUE(QTest::qWaitFor([&widget] { return widget.isEnabled(); }));
            QTest::qWait(50);
            Expect_Nothing_Clipped(window);
            Click(window, button);
            Expect_One_Filled_Page(qt.Documents_Folder() + "/VERLINK/" + name + ".pdf");
            printed.insert(name);
            EXPECT_TRUE(QTest::qWaitFor([&] { return Find<QPushButton>(window, on).isEnabled(); }));
            Click(window, on);
        });
        if (report) Then_Read();
        Then("message", [](QWidget& window) {
            auto& box = static_cast<QMessageBox&>(window);
            EXPECT_TRUE(box.text().contains(QStringLiteral("print"))) << box.text().toStdString();
            box.button(QMessageBox::Yes)->click();
        });
        Then("printer", [](QWidget& window) { static_cast<QPrintDialog&>(window).accept(); });
    }

    void Then_Read() {
        Then("message", [](QWidget& window) { static_cast<QMessageBox&>(window).button(QMessageBox::Ok)->click(); });
    }

    static void Press(Screen& screen, const char* button) {
        auto& control = screen.Get<CommandButton>(button);
        control.SetFocus();
        control.Click();
    }
    static void Choose(Screen& screen, const char* box, int entry) { screen.Get<ComboBox>(box).Choose(entry); }
    static void Choose_Option(Screen& screen, const char* options, int index) {
        screen.Get<OptionButton>(options, index).Value = true;
    }

    /// From the type of plot by its selection to the plot, which is printed.
    void Print_Plot(int type, const char* selection, Deed selected, const char* plot, const char* on) {
        At(
            "frm_PlotType", [type](Screen& s) { Choose_Option(s, "opt_PickPlot", type); }, "cmd_PickPlotDone");
        At(selection, std::move(selected), "cmd_Done");
        Print_At(plot, {}, on);
    }

    std::set<std::string> printed;
};

TEST_F(PaperTest, Every_screen_that_prints_itself_makes_one_page_with_its_picture) {
    ThenArrive();
    Then("frm_HomeScreen", [](QWidget& window) {
        for (const char* button : {"cmd_Input", "cmd_Dynamics", "cmd_Balance", "cmd_Plot", "cmd_Plot", "cmd_Plot",
                                   "cmd_Plot", "cmd_Plot", "cmd_Plot", "cmd_Print"})
            Click(window, button);
        Model_Saved();
        Model_Kept();
        for (const char* entry : {"mnu_CalcFFT", "mnu_Twopos1", "mnu_Twopos2", "mnu_Unspec"}) {
            Pick(window, entry);
            Model_Saved();
            Model_Kept();
        }
        Click(window, "cmd_Quit");
    });
    Print_At(
        "frm_Inputnew",
        [](Screen& s) {
            s.Text("txt_initial", 2).SetFocus();
            s.Text("txt_initial", 2).Type("5");
            Press(s, "cmd_Calc");
        },
        "cmd_Done");
    Print_At(
        "frm_Animate",
        [](Screen& s) { EXPECT_TRUE(QTest::qWaitFor([&s] { return !s.Get<platform::Timer>("Timer1").Enabled; })); },
        "cmd_Done");
    Print_At(
        "frm_MassProp", [](Screen& s) { Press(s, "cmd_Solve"); }, "cmd_Matrix");
    Print_At("frm_Matrix", {}, "cmd_Done");
    At("frm_MassProp", {}, "cmd_Done");
    Print_At(
        "frm_Balance", [](Screen& s) { Press(s, "cmd_Calc"); }, "cmd_Done");
    const auto preset = [](int style) {
        return [style](Screen& s) {
            Choose_Option(s, "opt_Plotstyle", style);
            Choose(s, "cmb_Preset", 5);
        };
    };
    Print_Plot(
        0, "frm_PlotSelect1", [](Screen& s) { Choose(s, "cmb_Preset", 6); }, "frm_Plot1", "cmd_Done");
    Print_Plot(1, "frm_PlotSelect2", preset(1), "frm_Plot2", "cmd_Done");
    Print_Plot(1, "frm_PlotSelect2", preset(0), "frm_Myplot2", "cmd_PlotDone");
    Print_Plot(2, "frm_PlotSelect3", preset(1), "frm_Plot3", "cmd_Done");
    Print_Plot(2, "frm_PlotSelect3", preset(0), "frm_MyPlot3", "cmd_PlotDone");
    Print_Plot(
        3, "frm_PlotSelect4", [](Screen& s) { Choose(s, "cmb_Var1", 2); }, "frm_MyPlot4", "cmd_PlotDone");
    At(
        "frm_PrintSelect", [](Screen& s) { Choose(s, "cmb_Preset", 5); }, "cmd_Done");
    Print_At("frm_PrintData", {}, "cmd_Done");
    Print_At(
        "frm_FFT", [](Screen& s) { Choose(s, "cmb_Var1", 8); }, "cmd_Done");
    Then_Read();  // where the transform is to be found now
    for (const char* synthesis : {"frm_Synth2A", "frm_Synth2B", "frm_Synth3"})
        Print_At(
            synthesis, [](Screen& s) { Press(s, "cmd_Calc"); }, "cmd_Cancel", true);
    Then("frm_Quit", [](QWidget& window) { Click(window, "cmd_YesQuit"); });
    Sub_Main("");
    EXPECT_TRUE(qt.Ending());

    for (const char* name : kScreens)
        if (Print_Button(Screens::Get(name))) {
            EXPECT_TRUE(printed.contains(name)) << name;
        }
}

}  // namespace

}  // namespace verlink::test
