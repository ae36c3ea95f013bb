// Tables, plots and the transform through real windows: paper, typed choices, and what Return and Help do.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QRadioButton>

#include "core/parameters.h"
#include "core/runs.h"
#include "desktop/graph_widget.h"
#include "dynamics/units.h"
#include "output/catalogue.h"
#include "platform/file_system.h"
#include "platform/graph.h"
#include "shell/initialize.h"
#include "shell/startup.h"
#include "tests/desktop/looks.h"
#include "tests/desktop/user.h"

namespace verlink::test {

using namespace platform;

namespace {

class OutputTest : public DesktopTest {
   protected:
    OutputTest() {
        Set_Identity();
        Initialize();
        Use_Units(1);
        Run(0, 360, 2);
        Model.ScreenReturn = true;
    }
    static void Run(double start, double end, double step) {
        Model.Calctype = 3;
        Model.ThetaStart = start;
        Model.ThetaEnd = end;
        Model.ThetaStep = step;
        Derive_Angle_Limits();
        Model.NSteps = Steps_Of(start, end, step);
        Integer result;
        Calc_Setup(3, result);
    }
    /// Shows a screen until the user has left it.
    static void Show(const char* name) { Screens::Get(name).ShowModal(); }

    /// The list with the keyboard's focus; the platform does not bring a window back from behind a message by itself.
    static QComboBox& Focus_On(QWidget& window, const char* box) {
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        auto& combo = Find<QComboBox>(window, box);
        combo.setFocus(Qt::TabFocusReason);
        return combo;
    }
    /// Goes down the list by the keyboard, from nothing chosen to an entry.
    static void Go_Down(QWidget& window, const char* box, int entry) {
        QComboBox& combo = Focus_On(window, box);
        for (int i = 0; i <= entry; ++i) QTest::keyClick(&combo, Qt::Key_Down);
    }
    static void Type_In_List(QWidget& window, const char* box, const char* text, bool enter = false) {
        QComboBox& combo = Focus_On(window, box);
        QTest::keyClick(&combo, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&combo, QString::fromLatin1(text));
        if (enter) QTest::keyClick(&combo, Qt::Key_Return);
    }
    static std::string Text_Of_List(QWidget& window, const char* box) {
        return Find<QComboBox>(window, box).currentText().toStdString();
    }
};

TEST_F(OutputTest, A_table_of_more_than_a_page_goes_to_paper_whole) {
    Then("frm_PrintSelect", [](QWidget& window) {
        Go_Down(window, "cmb_Preset", 1);
        EXPECT_EQ(Text_Of_List(window, "cmb_Preset"), "Omega magnitudes for all links");
        Go_Down(window, "cmb_Step", 0);
        Type_In_List(window, "cmb_Step", "2");
        Find<QRadioButton>(window, "opt_Whereto_1").click();
        Click(window, "cmd_Done");
        Click(window, "cmd_Cancel");
    });
    Then("printer", [](QWidget& window) { static_cast<QPrintDialog&>(window).accept(); });
    Show("frm_PrintSelect");

    const std::vector<std::string> pages = Words_On_Paper(qt.Documents_Folder() + "/VERLINK/frm_PrintSelect.pdf");
    ASSERT_EQ(pages.size(), 2u) << "91 rows";
    int rows = 0;
    for (std::size_t page = 0; page < 2; ++page) {
        EXPECT_NE(pages[page].find("Page " + std::to_string(page + 1)), std::string::npos) << pages[page];
        EXPECT_NE(pages[page].find("VERLINK"), std::string::npos);
        EXPECT_NE(pages[page].find("Omega4"), std::string::npos);
        EXPECT_NE(pages[page].find("rad/sec"), std::string::npos);
        for (std::size_t at = 0; (at = pages[page].find(" 10.000 ", at)) != std::string::npos; ++at) ++rows;
    }
    EXPECT_EQ(rows, 91) << "the crank's speed, once in each row";
    EXPECT_NE(pages[0].find("236.000"), std::string::npos) << pages[0];
    EXPECT_NE(pages[1].find("240.000"), std::string::npos) << pages[1];
}

TEST_F(OutputTest, Too_many_harmonics_are_cut_on_Return_on_leaving_and_by_the_button_with_one_message_each) {
    const std::string cut =
        "Number of harmonics cannot exceed 1/2 the number of data points available.\n"
        "If you want more bandwidth, recalculate all data with smaller increments. \n"
        "Use the [INPUT] button from the Home Screen to do so.";
    Then("frm_FFT", [](QWidget& window) {
        Go_Down(window, "cmb_Var1", 6);
        EXPECT_TRUE(Model.FFTDone);
        Type_In_List(window, "cmb_Harmonics", "200", true);
        EXPECT_EQ(Text_Of_List(window, "cmb_Harmonics"), "90");
        EXPECT_EQ(Model.Harmonics, 90);
        Type_In_List(window, "cmb_Harmonics", "3500");
        QTest::keyClick(&Find<QComboBox>(window, "cmb_Harmonics"), Qt::Key_Tab);
        EXPECT_EQ(Text_Of_List(window, "cmb_Harmonics"), "90");
        Type_In_List(window, "cmb_Harmonics", "12", true);
        EXPECT_EQ(Model.Harmonics, 12);
        EXPECT_EQ(Screens::Get("frm_FFT").Get<Graph>("grf_Plot", 3).NumPoints(), 13);
        Type_In_List(window, "cmb_Harmonics", "32767");
        Click(window, "cmd_Calc");
        Click(window, "cmd_Calc");
        EXPECT_EQ(Text_Of_List(window, "cmb_Harmonics"), "90");
        Click(window, "cmd_Done");
    });
    for (int times = 1; times <= 3; ++times) ThenMessage(cut, QStringLiteral("OK"));
    Then("message", [](QWidget& window) { static_cast<QMessageBox&>(window).button(QMessageBox::Ok)->click(); });
    Show("frm_FFT");
}

TEST_F(OutputTest, A_typed_function_is_found_in_its_list_and_nonsense_is_refused) {
    Then("frm_PlotSelect1", [](QWidget& window) {
        Find<QRadioButton>(window, "opt_PrintSet_1").click();
        Type_In_List(window, "cmb_Var1", "omega4");
        QTest::keyClick(&Find<QComboBox>(window, "cmb_Var1"), Qt::Key_Tab);
        EXPECT_EQ(Text_Of_List(window, "cmb_Var1"), "Omega4");
        EXPECT_EQ(Text_Of_List(window, "cmb_Com1"), "Mag");
        EXPECT_EQ(window.focusWidget(), &Find<QWidget>(window, "cmd_OK1"));
        Click(window, "cmd_OK1");
        EXPECT_EQ(Find<QLabel>(window, "lbl_Function_0").text(), "Omega4");
        Type_In_List(window, "cmb_Var2", "Omega9");
        QTest::keyClick(&Find<QComboBox>(window, "cmb_Var2"), Qt::Key_Tab);
        EXPECT_EQ(Text_Of_List(window, "cmb_Var2"), "");
        EXPECT_EQ(Screens::Get("frm_PlotSelect1").Focus(), Screens::Get("frm_PlotSelect1").Find("cmb_Var2"));
        Type_In_List(window, "cmb_Var2", "theta3", true);
        // Return goes on by the button, which finds a function that is to be taken over first.
        EXPECT_EQ(Text_Of_List(window, "cmb_Var2"), "Theta3");
        EXPECT_TRUE(window.isVisible());
        Click(window, "cmd_OK2");
        EXPECT_EQ(Find<QLabel>(window, "lbl_Function_1").text(), "Theta3");
        Type_In_List(window, "cmb_Var2", "Omega9");
        Click(window, "cmd_Clear2");
        EXPECT_EQ(Text_Of_List(window, "cmb_Var2"), "");
        EXPECT_EQ(Find<QLabel>(window, "lbl_Function_1").text(), "");
        Click(window, "cmd_Done");
    });
    ThenMessage("\"Omega9\" is not one of the variables that have been computed. Please choose from the list.",
                QStringLiteral("OK"));
    Then("frm_Plot1", [](QWidget& window) {
        EXPECT_EQ(Screens::Get("frm_Plot1").Get<Graph>("grf_Plot", 0).NumSets(), 1);
        Click(window, "cmd_Done");
    });
    Show("frm_PlotSelect1");
}

TEST_F(OutputTest, The_last_of_lines_and_fills_stays_ticked_under_the_mouse) {
    Select_Variable("Theta4", 1);
    Model.PlotCount = 1;
    Model.PlotStyle = 1;
    Then("frm_Plot1", [](QWidget& window) {
        auto& line = Find<QCheckBox>(window, "chk_Line");
        auto& sticks = Find<QCheckBox>(window, "chk_Sticks");
        line.click();
        EXPECT_TRUE(line.isChecked());
        sticks.click();
        line.click();
        EXPECT_FALSE(line.isChecked());
        EXPECT_TRUE(sticks.isChecked());
        EXPECT_EQ(Screens::Get("frm_Plot1").Get<Graph>("grf_Plot", 0).GraphStyle, 2);
        Click(window, "cmd_Done");
    });
    Show("frm_Plot1");
}

TEST_F(OutputTest, Labels_that_fit_stand_below_a_run_of_180_steps_and_a_transform) {
    const auto labels = [](QWidget& window, int index) {
        const std::string name = "grf_Plot_" + std::to_string(index);
        auto& graph = dynamic_cast<desktop::GraphWidget&>(Find<QWidget>(window, name.c_str()));
        EXPECT_TRUE(QTest::qWaitFor([&graph] { return !graph.labels().isEmpty(); }));
        QTest::qWait(50);
        return graph.labels();
    };
    Select_Variable("Theta4", 1);
    Model.PlotCount = 1;
    Model.PlotStyle = 1;
    Then("frm_Plot1", [&](QWidget& window) {
        EXPECT_EQ(labels(window, 0).size(), 16);
        Click(window, "cmd_Done");
    });
    Show("frm_Plot1");
    Then("frm_FFT", [&](QWidget& window) {
        Go_Down(window, "cmb_Var1", 6);
        for (int i = 0; i <= 3; ++i) EXPECT_EQ(labels(window, i).size(), 16) << i;
        Click(window, "cmd_Cancel");
    });
    Show("frm_FFT");
}

}  // namespace

}  // namespace verlink::test
