// Linkages on their ways through real windows: what is shown is so.
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "files/in_hand.h"
#include "shell/startup.h"
#include "tests/desktop/user.h"

namespace verlink::test {

namespace {

class DoorsTest : public DesktopTest {
   protected:
    static QString TextOf(QWidget& window, const char* box) { return Find<QLineEdit>(window, box).text(); }
    static bool Chosen(QWidget& window, const char* option) { return Find<QRadioButton>(window, option).isChecked(); }
    void ThenAssembled() {
        Then("message", [](QWidget& window) { window.findChild<QPushButton*>()->click(); });
    }
    void ThenQuit() {
        Then("frm_Quit", [](QWidget& window) { Click(window, "cmd_YesQuit"); });
    }
    static std::string Sample(const std::string& name) { return std::string(VERLINK_SAMPLES) + "/" + name; }
};

}  // namespace

TEST_F(DoorsTest, A_synthesised_linkage_is_shown_with_its_circuit_and_pivot_and_an_example_behind_it_is_the_example) {
    ThenArrive();
    Then("frm_HomeScreen", [this](QWidget& window) {
        Pick(window, "mnu_Twopos1");
        Pick(window, "mnu_Cheby");
        EXPECT_EQ(Model.CircuitSign, 1);
        EXPECT_FALSE(Model.Synthesized);
        Model_Saved();
        Model_Kept();
        Click(window, "cmd_Quit");
    });
    Then("frm_Synth2A", [](QWidget& window) {
        Click(window, "cmd_Calc");
        Click(window, "cmd_Done");
    });
    ThenAssembled();
    Then("frm_Inputnew", [](QWidget& window) {
        EXPECT_TRUE(Chosen(window, "opt_OpenCross_0"));
        EXPECT_NEAR(TextOf(window, "txt_Linkout_15").toDouble(), Model.Link1X, 6e-4);
        EXPECT_NEAR(TextOf(window, "txt_Linkout_16").toDouble(), Model.Link1Y, 6e-4);
        Click(window, "cmd_Animate");
    });
    Then("frm_Animate", [](QWidget& window) {
        EXPECT_TRUE(Chosen(window, "opt_OpenCross_0"));
        EXPECT_NEAR(TextOf(window, "txt_Linkout_15").toDouble(), Model.Link1X, 6e-4);
        Click(window, "cmd_Done");
    });
    Then("frm_Inputnew", [](QWidget& window) {
        EXPECT_TRUE(Chosen(window, "opt_OpenCross_1"));
        EXPECT_EQ(TextOf(window, "txt_Linkout_15"), "2");
        Click(window, "cmd_Cancel");
    });
    ThenQuit();
    Sub_Main("");
}

TEST_F(DoorsTest, An_example_in_millimetres_comes_up_in_inches) {
    ThenArrive();
    Then("frm_HomeScreen", [this](QWidget& window) {
        Pick(window, "mnu_pick_5");
        Pick(window, "mnu_Watts");
        EXPECT_TRUE(Model.Calculated);
        EXPECT_NEAR(Model.RunTable.PointXY(0, 0, 0), 0.9575556, 1e-6) << "1.25 in at -40 degrees";
        EXPECT_EQ(Find<QLabel>(window, "lbl_Status_10").text(), "in-lb-bl-s");
        Model_Saved();
        Model_Kept();
        Click(window, "cmd_Quit");
    });
    Then("frm_Inputnew", [](QWidget& window) {
        EXPECT_EQ(Find<QLabel>(window, "lbl_Units_1").text(), "mm");
        Click(window, "cmd_Cancel");
    });
    Then("frm_Inputnew", [](QWidget& window) {
        EXPECT_EQ(Find<QLabel>(window, "lbl_Units_1").text(), "in");
        EXPECT_EQ(TextOf(window, "txt_Linkout_1"), "1.25");
        Click(window, "cmd_Cancel");
    });
    ThenQuit();
    Sub_Main("");
}

TEST_F(DoorsTest, A_recalculation_pending_leaves_no_results_through_help_and_the_windows_own_button) {
    ThenArrive();
    Then("frm_HomeScreen", [this](QWidget& window) {
        Click(window, "cmd_Input");
        EXPECT_FALSE(Model.Calculated);
        EXPECT_FALSE(Find<QWidget>(window, "cmd_Plot").isEnabled());
        EXPECT_FALSE(Find<QWidget>(window, "Picture1").isHidden()) << "the linkage as it stands";
        EXPECT_EQ(Model.L2, Single(1.3));
        Click(window, "cmd_Quit");
    });
    Then("frm_Inputnew", [](QWidget& window) { Click(window, "cmd_Done"); });
    Then("frm_Animate", [this](QWidget& window) {
        EXPECT_TRUE(Model.Calculated);
        Type(window, "txt_Linkout_1", QStringLiteral("1.3"));
        Type(window, "txt_Linkout_2", QStringLiteral("2.6"));
        EXPECT_FALSE(Model.Calculated);
        Pick(window, "mnu_Help");
        Click(qt.formOf(platform::Screens::Get("frm_Help")), "cmd_Close");
        EXPECT_EQ(TextOf(window, "txt_Linkout_2"), "2.6");
        EXPECT_FALSE(Find<QWidget>(window, "cmd_Done").isEnabled());
        EXPECT_TRUE(Find<QWidget>(window, "cmd_Recalc").isEnabled());
        window.close();
    });
    // What was typed is a model that was changed, calculated or not.
    ThenFile(Path("pending.vlk"));
    ThenMessage("File was successfully written to \n" + Path("pending.vlk"), QStringLiteral("OK"));
    ThenQuit();
    Sub_Main("");
}

TEST_F(DoorsTest, An_opened_model_is_at_home_with_its_ways_on_behind_next_and_next) {
    const std::string file = Sample("crank_rocker.vlk");
    ThenArrive();
    Then("frm_HomeScreen", [this](QWidget& window) {
        Pick(window, "mnu_Open");
        EXPECT_TRUE(Model.Calculated);
        EXPECT_FALSE(Find<QWidget>(window, "Picture1").isHidden());
        for (const char* way : {"cmd_Animate", "cmd_Plot", "cmd_Print", "cmd_Dynamics"})
            EXPECT_TRUE(Find<QWidget>(window, way).isEnabled()) << way;
        Model_Saved();
        Model_Kept();
        Click(window, "cmd_Quit");
    });
    ThenFile(file);
    ThenMessage("File " + file + " successfully read.", QStringLiteral("OK"));
    Then("frm_Inputnew", [](QWidget& window) { Click(window, "cmd_Animate"); });
    Then("frm_Animate", [](QWidget& window) { Click(window, "cmd_Done"); });
    ThenQuit();
    Sub_Main("");
}

}  // namespace verlink::test
