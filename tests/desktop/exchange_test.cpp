// What is imported and exported, each entry of the menus once through a real file dialog.
#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <filesystem>

#include "files/exports.h"
#include "files/in_hand.h"
#include "platform/file_system.h"
#include "shell/startup.h"
#include "tests/desktop/user.h"
#include "tests/support/drive_data.h"

namespace verlink::test {

using namespace platform;

namespace {

class ExchangeTest : public DesktopTest {
   protected:
    /// Without its ending, which the dialog adds.
    void ThenExport(const std::string& name) { ThenFile(Path(name)); }
    void ThenOk(const std::string& text) { ThenMessage(text, QStringLiteral("OK")); }
    static QString DrivenBy(QWidget& window) { return Find<QLabel>(window, "lbl_camdriven").text(); }
};

}  // namespace

TEST_F(ExchangeTest, Every_entry_leads_through_its_dialog_to_a_file_or_from_one) {
    CamFile cam;
    cam.units = "5";
    cam.lengths = {"50", "160", "120", "150"};
    cam.places = {"90", "120", "-240", "100"};
    cam.masses = {{"0.5", "0.001", "20", "0"}, {"1", "0.002", "80", "0"}, {"1", "0.002", "60", "0"}};
    Write_File(Path("press.sva"), cam.Content());

    ThenArrive();
    Then("frm_HomeScreen", [this](QWidget& window) {
        EXPECT_TRUE(Find<QAction>(window, "mnu_Lobetra").isEnabled());
        EXPECT_FALSE(Find<QAction>(window, "mnu_Export").isEnabled());
        Pick(window, "mnu_Lobetra");
        EXPECT_EQ(Find<QLabel>(window, "lbl_Status_0").text(), "Imported");
        EXPECT_FALSE(Find<QWidget>(window, "lbl_Status_2").isHidden());
        Click(window, "cmd_Animate");
        Click(window, "cmd_Dynamics");
        EXPECT_TRUE(Find<QAction>(window, "mnu_Export").isEnabled());

        Pick(window, "mnu_Export_Torque");
        EXPECT_EQ(Model.FilePath, Path("torque.trq"));
        EXPECT_EQ(Read_File(Path("torque.trq")), Torque_Content());
        Pick(window, "mnu_pdx");
        EXPECT_EQ(Model.ModelName, "geared");
        EXPECT_EQ(Read_File(Path("geared.pdx")).substr(0, 9), "\"PENDRIX\"");
        Pick(window, "mnu_Link_Data_Export");
        EXPECT_EQ(Read_File(Path("stage1.out")), Link4_Content());
        EXPECT_FALSE(Find<QWidget>(window, "lbl_Status_8").isHidden());

        Click(window, "cmd_Dynamics");
        EXPECT_TRUE(Model.TorqueImported);
        Model_Saved();
        Model_Kept();
        Pick(window, "mnu_Link_Data_Import");
        EXPECT_EQ(Model.Model5Name, "stage1.out");
        EXPECT_FALSE(Find<QWidget>(window, "lbl_Status_1").isHidden());
        Model_Saved();
        Model_Kept();
        Click(window, "cmd_Quit");
    });

    ThenFile(Path("press.sva"));
    ThenOk("File " + Path("press.sva") + " of Lobetra S-V-A data successfully read.");
    Then("frm_Inputnew", [](QWidget& window) {
        EXPECT_EQ(DrivenBy(window),
                  " This linkage is being driven by s-v-a data imported from the file: \n\npress.sva");
        EXPECT_TRUE(Find<QWidget>(window, "lbl_camdriven").isVisible());
        EXPECT_TRUE(Find<QWidget>(window, "fra_calcmode").isHidden());
        EXPECT_EQ(Find<QLineEdit>(window, "txt_Linkout_1").text(), "50");
        Type(window, "txt_Linkout_4", QStringLiteral("70"));
        Type(window, "txt_Linkout_5", QStringLiteral("25"));
        Click(window, "cmd_Calc");
        Click(window, "cmd_Done");
    });
    Then("frm_Animate", [](QWidget& window) {
        EXPECT_TRUE(Find<QWidget>(window, "lbl_camdriven").isVisible());
        EXPECT_TRUE(DrivenBy(window).endsWith("press.sva"));
        EXPECT_FALSE(Find<QWidget>(window, "txt_initial_0").isVisible());
        Click(window, "cmd_Step");
        EXPECT_EQ(Find<QLabel>(window, "lbl_StepNumber").text(), "1.00");
        Click(window, "cmd_Done");
    });
    Then("frm_MassProp", [](QWidget& window) {
        EXPECT_EQ(Find<QLineEdit>(window, "txt_DistCG_3").text(), "80.00");
        Click(window, "cmd_Solve");
        Click(window, "cmd_Done");
    });
    ThenExport("torque");
    ThenExport("geared");
    ThenOk("File was successfully written to \n" + Path("geared.pdx"));
    ThenExport("stage1");
    ThenOk("The angular data for link 4 of this linkage has been written to " + Path("stage1.out") +
           "\nThis file can be imported to program Verlink or Corvex\n"
           "and used as input data to drive the next stage of a multibar linkage.");
    Then("frm_MassProp", [](QWidget& window) {
        Find<QCheckBox>(window, "chk_Torque").click();
        EXPECT_FALSE(Find<QWidget>(window, "txt_Torque_4").isEnabled());
        Click(window, "cmd_Solve");
        Click(window, "cmd_Done");
    });
    ThenFile(Path("torque.trq"));
    ThenOk("File " + Path("torque.trq") + " of Torque data successfully read.");
    ThenFile(Path("stage1.out"));
    ThenOk("File " + Path("stage1.out") + " of Linkage output data successfully read.");
    Then("frm_Inputnew", [](QWidget& window) {
        EXPECT_TRUE(DrivenBy(window).endsWith("stage1.out"));
        EXPECT_EQ(Find<QLabel>(window, "lbl_Initial_4").text(), "Delta 2");
        EXPECT_TRUE(Find<QWidget>(window, "txt_initial_4").isVisible());
        Click(window, "cmd_Calc");
        Click(window, "cmd_Done");
    });
    Then("frm_Quit", [](QWidget& window) { Click(window, "cmd_YesQuit"); });
    Sub_Main("");
    EXPECT_TRUE(qt.Ending());
}

}  // namespace verlink::test
