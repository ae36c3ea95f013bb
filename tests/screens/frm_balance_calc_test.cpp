// What calculating on the balancing screen does: forces, graphs, pulses, refusals.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "core/numeric.h"
#include "files/model_file.h"
#include "tests/screens/frm_balance_fixture.h"

namespace verlink::test {

using platform::Pointer;

namespace {

struct BalanceCalc : BalanceScreen {
    BalanceCalc() { form.Form_Activate(); }

    static double Magnitude(const ForceTable& table, int step) {
        return std::hypot(double(table(step, 7, 0)), double(table(step, 7, 1)));
    }
    void Expect_Refusal(int type, const std::string& message) {
        Model.Calctype = type;
        Balance_Dropped();
        desktop.Expect_Message(message);
        Calculate_Now();
        EXPECT_TRUE(Model.BalanceDone);
        EXPECT_TRUE(form.grf_Plot[0].Visible);
        EXPECT_TRUE(form.cmd_Done.Enabled);
        for (int step = 0; step <= Model.NSteps; ++step)
            EXPECT_EQ(Model.RunTable.BalancedMoment(step, 0),
                      Single(Model.RunTable.BerkTorque(step, 0) + Model.RunTable.LinkTorque(step, 0)));
    }
};

}  // namespace

TEST_F(BalanceCalc, OpensTheWayOnAndShowsTheResults) {
    Run_Holds();
    Model_Saved();
    Calculate_Now();
    EXPECT_TRUE(Model.BalanceDone);
    EXPECT_FALSE(Model.SavedFlag);
    EXPECT_TRUE(form.grf_Plot[0].Visible);
    EXPECT_TRUE(form.grf_Plot[1].Visible);
    EXPECT_TRUE(form.pct_Pict1.Visible);
    EXPECT_TRUE(form.cmd_Done.Enabled);
    EXPECT_TRUE(form.cmd_Print.Enabled);
    EXPECT_TRUE(form.cmd_copy.Enabled);
    EXPECT_EQ(form.Focus(), &form.cmd_Done);
    EXPECT_EQ(desktop.Pointers, (std::vector<Pointer>{Pointer::kHourglass, Pointer::kDefault}));
    auto& badge = platform::Screens::Get("frm_HomeScreen").Get<platform::Label>("lbl_Status", 4);
    EXPECT_EQ(badge.Caption, "Balanced");
    EXPECT_TRUE(badge.Visible);
}

TEST_F(BalanceCalc, TheGraphsOfTheWeightsBeforeGoWhileItCalculates) {
    Calculate_Now();
    std::vector<bool> shown;
    form.grf_Plot[1].Visible.Event = [this, &shown] { shown.push_back(form.grf_Plot[1].Visible); };
    Calculate_Now();
    form.grf_Plot[1].Visible.Event = nullptr;
    EXPECT_EQ(shown, (std::vector<bool>{false, true}));
    const int before = form.grf_Plot[1].Drawings();
    Calculate_Now();
    EXPECT_EQ(form.grf_Plot[1].Drawings(), before + 2) << "once more when it is to be seen";
}

TEST_F(BalanceCalc, TakesTheCounterweightsFromTheirBoxes) {
    for (const int link : {2, 4}) {
        form.txt_BerkMass[link].Text = "0.3" + std::to_string(link);
        form.txt_Radius[link].Text = "1.7" + std::to_string(link);
    }
    Calculate_Now();
    for (const int link : {2, 4}) {
        EXPECT_EQ(Model.BerkMass(link), Single(0.3 + 0.01 * link));
        EXPECT_EQ(Model.BerkRadius(link), Single(1.7 + 0.01 * link));
    }
}

TEST_F(BalanceCalc, BoxesThatShowTheWeightsRoundedStandForThemSoThatTheForceVanishes) {
    // Masses so light that three decimals leave nothing of them.
    for (int link = 2; link <= 4; ++link) Model.LinkMass(link) = 0.0007 * link;
    Solve();
    form.Form_Activate();
    const Single mass = Model.BerkMass(4), radius = Model.BerkRadius(4);
    ASSERT_NE(Single(std::stod(In("txt_BerkMass", 4))), mass);
    Calculate_Now();
    EXPECT_EQ(Model.BerkMass(4), mass);
    EXPECT_EQ(Model.BerkRadius(4), radius);
    double most = 0, left = 0;
    for (int step = 0; step <= Model.NSteps; ++step) {
        most = std::max(most, Magnitude(Model.RunTable.PinForce, step));
        left = std::max(left, Magnitude(Model.RunTable.BalancedForce, step));
    }
    EXPECT_GT(most, 0);
    EXPECT_LT(left, 3e-5 * most);
}

TEST_F(BalanceCalc, ARunThatWasNotSolvedIsSolvedFirst) {
    Model.ExtForceMag(3) = 5;
    Model.ExtForceAng(3) = 40;
    Solve_Forces(Model);
    const ForceTable forces = Model.RunTable.PinForce;
    const TorqueTable torques = Model.RunTable.LinkTorque;
    // As behind a file that was opened: its loads are known by magnitude and angle alone.
    Model.ExtForce3X = Model.ExtForce3Y = 0;
    Model.RunTable.PinForce = ForceTable{};
    Model.RunTable.LinkTorque = TorqueTable{};
    Run_Holds();
    Forces_Dropped();
    Calculate_Now();
    EXPECT_TRUE(Model.DynamicsDone);
    EXPECT_TRUE(Model.BalanceDone);
    for (int step = 0; step <= Model.NSteps; ++step) {
        for (int axis = 0; axis <= 1; ++axis)
            EXPECT_EQ(Model.RunTable.PinForce(step, 7, axis), forces(step, 7, axis)) << step;
        EXPECT_EQ(Model.RunTable.LinkTorque(step, 0), torques(step, 0)) << step;
        EXPECT_NEAR(Curve(0, 0)[static_cast<std::size_t>(step)], Magnitude(forces, step), 1e-4) << step;
    }
    auto& home = platform::Screens::Get("frm_HomeScreen");
    for (const int badge : {3, 4}) EXPECT_TRUE(home.Get<platform::Label>("lbl_Status", badge).Visible);
}

TEST_F(BalanceCalc, ASolutionThatIsThereIsNotMadeAgain) {
    Model.RunTable.LinkTorque(3, 0) = 4;
    Calculate_Now();
    EXPECT_EQ(Model.RunTable.LinkTorque(3, 0), 4.0);
}

TEST_F(BalanceCalc, UnderAnImportedTorqueNothingThatIsSavedChanges) {
    Model.TorqueImported = true;
    for (int step = 0; step <= Model.NSteps; ++step) Model.RunTable.ImportedTorque(step) = 10 + step;
    Model.ExtTorque(4) = 0;
    const std::string file = File_Content();
    Calculate_Now();
    EXPECT_EQ(Model.ExtTorque(4), 0.0);
    EXPECT_EQ(File_Content(), file);
}

TEST_F(BalanceCalc, BothGraphsShowMagnitudesBeforeAndAfter) {
    Model.FFTFunction = true;
    Calculate_Now();
    const auto& table = Model.RunTable;
    ASSERT_EQ(form.grf_Plot[0].NumSets(), 2);
    ASSERT_EQ(Curve(0, 0).size(), 37U);
    double unbalanced = 0;
    double balanced = 0;
    for (int step = 0; step <= 36; ++step) {
        const auto at = static_cast<std::size_t>(step);
        EXPECT_NEAR(Curve(0, 0)[at], Magnitude(table.PinForce, step), 1e-4);
        EXPECT_NEAR(Curve(0, 1)[at], Magnitude(table.BalancedForce, step), 1e-4);
        EXPECT_EQ(Curve(1, 0)[at], table.LinkTorque(step, 0)) << "the driving torque";
        EXPECT_EQ(Curve(1, 1)[at], table.BalancedMoment(step, 0));
        unbalanced = std::max(unbalanced, Curve(0, 0)[at]);
        balanced = std::max(balanced, Curve(0, 1)[at]);
    }
    EXPECT_LT(balanced, unbalanced / 10) << "masses rounded to three decimals balance nearly";
    EXPECT_EQ(form.grf_Plot[0].Labels()[9], FNRoundStr(90, 0));
}

TEST_F(BalanceCalc, GraphsAreTitledAlikeInEveryRun) {
    Calculate_Now();
    EXPECT_EQ(form.grf_Plot[0].GraphTitle, "Shaking Force");
    EXPECT_EQ(form.grf_Plot[1].GraphTitle, "Shaking Torque");
    EXPECT_EQ(form.grf_Plot[0].Sets()[0].legend, "Unbalanced Mag lb");
    EXPECT_EQ(form.grf_Plot[0].Sets()[1].legend, "Balanced Mag lb");
    EXPECT_EQ(form.grf_Plot[1].Sets()[1].legend, "Balanced Mag lb-in");
    for (int i = 0; i <= 1; ++i) {
        EXPECT_EQ(form.grf_Plot[i].BottomTitle, "Crank Angle (Deg)");
        EXPECT_EQ(form.grf_Plot[i].TickEvery, 6);
        EXPECT_EQ(form.grf_Plot[i].LabelEvery, 12);
        EXPECT_EQ(form.grf_Plot[i].GridStyle, 3);
        EXPECT_EQ(form.grf_Plot[i].GraphStyle, 4);
        EXPECT_EQ(form.grf_Plot[i].Sets()[0].pattern, 0);
        EXPECT_EQ(form.grf_Plot[i].Sets()[1].pattern, 1);
    }
    By_Time(0, 1, 0.1);
    Solve();
    Forces_Hold();
    form.Form_Activate();
    desktop.Expect_Message_With("Cannot balance a linkage for Time Steps.");
    Calculate_Now();
    for (int i = 0; i <= 1; ++i) EXPECT_EQ(form.grf_Plot[i].BottomTitle, "Crank Angle (Deg)");
}

TEST_F(BalanceCalc, TheBackgroundIsWhiteBlueOrGrayAndDrawsAnew) {
    Calculate_Now();
    for (const auto& [option, color] : {std::pair{1, 1}, {2, 7}, {0, 15}}) {
        const int before = form.grf_Plot[1].Drawings();
        Choose_Option(form, "opt_Back", option);
        for (int i = 0; i <= 1; ++i) EXPECT_EQ(form.grf_Plot[i].Background, color);
        EXPECT_EQ(form.grf_Plot[1].Drawings(), before + 1);
    }
}

TEST_F(BalanceCalc, ThePulsesAreListedOnTheSheet) {
    Calculate_Now();
    const std::vector<std::string>& lines = form.pct_Pict1.Lines.Get();
    ASSERT_GT(lines.size(), 9U);
    EXPECT_EQ(lines[0], "");
    EXPECT_EQ(lines[1], " Areas of Crank Torque");
    EXPECT_EQ(lines[2], " Pulses in Order over 1 cycle ");
    EXPECT_EQ(lines[4], "    in Energy Units of :");
    EXPECT_EQ(lines[5], "     lb-in - radians");
    EXPECT_EQ(lines[lines.size() - 2], "    Average Torque:");
}

TEST_F(BalanceCalc, AnEmptyBoxIsReportedAndStopsTheCalculation) {
    const char* const boxes[][2] = {
        {"txt_BerkMass", "2"}, {"txt_BerkMass", "4"}, {"txt_Radius", "2"}, {"txt_Radius", "4"}, {"txt_Fluct", "-1"}};
    for (const auto& [box, index] : boxes) {
        SCOPED_TRACE(box);
        form.Form_Activate();
        form.txt_Fluct.Text = "0.05";
        Calculate_Now();
        EXPECT_TRUE(Model.BalanceDone);
        form.cmd_Done.Enabled = false;
        form.Text(box, std::stoi(index)).Text = "";
        desktop.Expect_Message("Error 13   (Type mismatch)  has occurred in frm_Balance.cmd_Calc\r\n\r\n");
        form.cmd_Calc_Click();
        EXPECT_FALSE(Model.BalanceDone);
        EXPECT_FALSE(form.cmd_Done.Enabled);
        EXPECT_EQ(desktop.PointerNow, Pointer::kDefault);
    }
}

TEST_F(BalanceCalc, OnePositionIsRefusedAndTheGraphsShowWhatTheTablesHold) {
    Model.RunTable.BerkTorque(3, 0) = 4;
    Run_Holds();
    Expect_Refusal(1, "Cannot balance a linkage for one position.\rPlease recalculate for multi-positions.");
    EXPECT_EQ(Model.RunTable.BalancedMoment(3, 0), Single(4 + Model.RunTable.LinkTorque(3, 0)));
    EXPECT_EQ(Curve(1, 1)[3], Model.RunTable.BalancedMoment(3, 0));
    EXPECT_TRUE(platform::Screens::Get("frm_HomeScreen").Get<platform::Label>("lbl_Status", 4).Visible);
}

TEST_F(BalanceCalc, TimeStepsAreRefusedAndTheSumsAreMadeAllTheSame) {
    Expect_Refusal(2, "Cannot balance a linkage for Time Steps.\rPlease recalculate for multi-positions.");
}

TEST_F(BalanceCalc, DrivenLinkagesAreRefusedAndTheSumsAreMadeAllTheSame) {
    for (const int type : {4, 5}) Expect_Refusal(type, "Cannot balance a cam- or linkage-driven linkage.\r");
}

TEST_F(BalanceCalc, TheFlywheelTorqueFollowsTheCoefficientInTheBox) {
    Fill("txt_Fluct", platform::kNoIndex, "1");
    Calculate_Now();
    for (int step = 0; step <= Model.NSteps; ++step)
        EXPECT_NEAR(Model.RunTable.FlywheelTorque(step), Model.RunTable.LinkTorque(step, 0), 1e-5);
}

}  // namespace verlink::test
