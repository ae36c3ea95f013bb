// The table of checks, the entry that leads to it, and the mark of the home screen.
#include "screens/frm_checks.h"

#include "core/runs.h"
#include "dynamics/dynacalc.h"
#include "screens/frm_homescreen.h"
#include "tests/screens/synthesis_screens_fixture.h"

namespace verlink::test {

namespace {

class ChecksScreen : public SynthesisScreenTest {
   protected:
    /// The default linkage over a full turn.
    static void Run() {
        Model.ThetaStart = 0;
        Model.ThetaEnd = 360;
        Model.ThetaStep = 10;
        Model.ThetaStartRad = 0;
        Model.ThetaEndRad = 360 * kDegToRad;
        Model.ThetaStepRad = 10 * kDegToRad;
        Model.NSteps = 36;
        Model.Calctype = 3;
        Integer result;
        Calc_Setup(3, result);
    }
    int Row_Of(const std::string& check) {
        for (int row = 1; row < form.grd_Data.Rows(); ++row)
            if (form.grd_Data.Cell(row, 0) == check) return row;
        ADD_FAILURE() << "no row of " << check;
        return 0;
    }
    frm_HomeScreen& home = dynamic_cast<frm_HomeScreen&>(platform::Screens::Get("frm_HomeScreen"));
    frm_Checks& form = dynamic_cast<frm_Checks&>(platform::Screens::Get("frm_Checks"));
};

}  // namespace

TEST_F(ChecksScreen, IsReachedByTheLastMenuOfTheHomeScreen) {
    Run();
    desktop.Expect_Screen("frm_Checks", [](platform::Screen& screen) { Press(screen, "cmd_Done"); });
    Pick_Menu(home, "mnu_Checks");
    EXPECT_EQ(home.mnu_Tools.Caption, "&Tools");
    EXPECT_EQ(home.mnu_Checks.Caption, "&Checks...");
    EXPECT_EQ(form.Caption().Get(), "Checks" + Model.TitleSuffix);
}

TEST_F(ChecksScreen, HasARowForEachCheckWithItsSentence) {
    Run();
    int rows_when_told = 0;
    form.grd_Data.Watcher = [&] { rows_when_told = form.grd_Data.Rows(); };
    form.Form_Activate();
    form.grd_Data.Watcher = nullptr;
    const std::vector<Check> checks = Checks_Of(Model);
    EXPECT_EQ(rows_when_told, static_cast<int>(checks.size()) + 1) << "whoever shows it is told of all";
    EXPECT_EQ(form.grd_Data.FixedRows, 1);
    EXPECT_TRUE(form.grd_Data.Wraps) << "sentences are read whole";
    EXPECT_EQ(form.grd_Data.StatisticRows, 0) << "each check scrolls";
    ASSERT_EQ(form.grd_Data.Rows(), static_cast<int>(checks.size()) + 1);
    const char* heads[] = {"Check", "Verdict", "Worst", "Expected", "Unit", "Where", "What it means"};
    for (int column = 0; column < 7; ++column) EXPECT_EQ(form.grd_Data.Cell(0, column), heads[column]);
    int hundredths = 0;
    for (int column = 0; column < 7; ++column) {
        hundredths += form.grd_Data.ColWidth(column);
        const bool number = column == 2 || column == 3;
        EXPECT_EQ(form.grd_Data.ColAlignment(column), number ? 1 : 0) << heads[column];
        EXPECT_EQ(form.grd_Data.FixedAlignment(column), number ? 1 : 0) << heads[column];
    }
    EXPECT_EQ(hundredths, 10000) << "parts of the table's width";
    const int row = Row_Of("Loop closure");
    EXPECT_EQ(form.grd_Data.Cell(row, 1), "good");
    EXPECT_EQ(form.grd_Data.Cell(row, 4), "in");
    EXPECT_EQ(form.grd_Data.Cell(row, 6),
              "Links and coupler point have their lengths between the joints that were solved.");
    EXPECT_EQ(Caption(form, "lbl_Summary"), "All " + std::to_string(checks.size()) + " checks are good.");
    EXPECT_EQ(Caption(form, "lbl_Note"),
              "Checked as well, once they have been calculated: forces, balance, a transform.");
    verlink::Solve_Forces(Model);
    form.Form_Activate();
    EXPECT_EQ(form.grd_Data.Cell(Row_Of("Power in and out"), 1), "good");
    EXPECT_EQ(Caption(form, "lbl_Note"), "Checked as well, once they have been calculated: balance, a transform.");
}

TEST_F(ChecksScreen, AdvisesNothingOnceAllIsCalculated) {
    Run();
    Forces_Hold();
    Balance_Holds();
    Transform_Holds();
    form.Form_Activate();
    EXPECT_EQ(Caption(form, "lbl_Note"), "");
}

TEST_F(ChecksScreen, SaysWhatFails) {
    Run();
    Model.RunTable.Omega(5, 1) = 1;
    form.Form_Activate();
    const int row = Row_Of("Angular speeds");
    EXPECT_EQ(form.grd_Data.Cell(row, 1), "fails");
    EXPECT_EQ(form.grd_Data.Cell(row, 5), "step 5, 50 deg, link 3");
    EXPECT_EQ(Caption(form, "lbl_Summary").find("1 of "), 0U);
}

TEST_F(ChecksScreen, WithoutResultsSaysWhatToDo) {
    form.Form_Activate();
    EXPECT_EQ(form.grd_Data.Rows(), 1);
    EXPECT_EQ(Caption(form, "lbl_Summary"),
              "There are no results to check: calculate a linkage on the input screen first.");
    EXPECT_EQ(Caption(form, "lbl_Note"), "");
}

TEST_F(ChecksScreen, TheHomeScreenIsMarkedAsLongAsACheckFails) {
    home.Form_Activate();
    EXPECT_FALSE(home.lbl_Checks.Visible);
    Run();
    home.Form_Activate();
    EXPECT_FALSE(home.lbl_Checks.Visible);
    const Single kept = Model.RunTable.Omega(5, 1);
    Model.RunTable.Omega(5, 1) = 1;
    home.Form_Return();
    EXPECT_TRUE(home.lbl_Checks.Visible);
    EXPECT_NE(home.lbl_Checks.Caption.Get().find(" checks fails."), std::string::npos);
    Model.RunTable.Omega(5, 1) = kept;
    home.Form_Return();
    EXPECT_FALSE(home.lbl_Checks.Visible);
}

}  // namespace verlink::test
