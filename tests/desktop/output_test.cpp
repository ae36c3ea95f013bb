// Tables, plots and the transform through real windows: paper, typed choices, and what Return and Help do.
#include <QComboBox>
#include <QLineEdit>
#include <QPrintDialog>
#include <QRadioButton>

#include "core/parameters.h"
#include "core/runs.h"
#include "dynamics/units.h"
#include "platform/file_system.h"
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

    /// Opens a list by the keyboard, from nothing chosen, and goes down to an entry.
    static void Go_Down(QWidget& window, const char* box, int entry) {
        auto& combo = Find<QComboBox>(window, box);
        combo.setFocus(Qt::TabFocusReason);
        for (int i = 0; i <= entry; ++i) QTest::keyClick(&combo, Qt::Key_Down);
    }
    static void Type_In_List(QWidget& window, const char* box, const char* text, bool enter = false) {
        auto& combo = Find<QComboBox>(window, box);
        combo.setFocus(Qt::TabFocusReason);
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

}  // namespace

}  // namespace verlink::test
