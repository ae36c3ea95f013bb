// The balancing screen when it comes up, and the ways out.
#include <gtest/gtest.h>

#include <complex>
#include <string>
#include <utility>

#include "core/model_on_screens.h"
#include "core/numeric.h"
#include "core/text.h"
#include "tests/screens/frm_balance_fixture.h"

namespace verlink::test {

using platform::Screen;

namespace {

struct BalanceActivation : BalanceScreen {};

/// The mass-radius products that bring the sum of all first moments to rest: the coupler's mass is shared out to its
/// two pins, with complex shares, and each grounded link is to carry the negative of its share.
struct Needed {
    std::complex<double> link2, link4;
};

Needed Needed_By_Sharing() {
    const auto centre = [](int link) { return std::polar<double>(Model.CG(link, 0), Model.CG(link, 1)); };
    const auto moment = [centre](int link) { return double(Model.LinkMass(link)) * centre(link); };
    const std::complex<double> share = centre(3) / double(Model.L3);
    const double m3 = Model.LinkMass(3);
    return {-m3 * (1.0 - share) * double(Model.L2) - moment(2), -m3 * share * double(Model.L4) - moment(4)};
}

}  // namespace

TEST_F(BalanceActivation, CaptionsStandAsDesigned) {
    const std::pair<std::string, std::string> captions[] = {
        {form.lbl_Needed2.Caption, "Needed for Complete Link 2 Balance"},
        {form.lbl_Needed4.Caption, "Needed for Complete Link 4 Balance"},
        {form.lbl_MRName[2].Caption, "MR product"},
        {form.lbl_AngName[4].Caption, "at Angle"},
        {form.fra_Link[2].Caption, "Balance Mass and Radius for Link 2"},
        {form.fra_Link[4].Caption, "Balance Mass and Radius for Link 4"},
        {form.fra_Fluct.Caption, "Flywheel Coefficient of Fluctuation"},
        {form.txt_Fluct.Text, "0.05"},
        {form.fra_Back.Caption, "Background"},
        {form.opt_Back[0].Caption, "White"},
        {form.opt_Back[1].Caption, "Blue"},
        {form.opt_Back[2].Caption, "Gray"},
        {form.lbl_Function[0].Caption, "Unbalanced"},
        {form.lbl_Function[1].Caption, "Balanced"},
        {form.cmd_Calc.Caption, "&Calculate"},
        {form.cmd_Done.Caption, "&Next >"},
        {form.cmd_back.Caption, "&< Back"},
        {form.cmd_Print.Caption, "&Print"},
        {form.cmd_copy.Caption, "&Copy"},
    };
    for (const auto& [shown, expected] : captions) EXPECT_EQ(shown, expected);
}

TEST_F(BalanceActivation, ComesUpWithoutResultsAndReadyToCalculate) {
    form.Form_Activate();
    Calculate_Now();
    form.Width() = 500;
    form.Form_Activate();
    EXPECT_EQ(form.Width(), 11850);
    EXPECT_FALSE(form.grf_Plot[0].Visible);
    EXPECT_FALSE(form.grf_Plot[1].Visible);
    EXPECT_FALSE(form.pct_Pict1.Visible);
    EXPECT_FALSE(form.cmd_Done.Enabled);
    EXPECT_FALSE(form.cmd_copy.Enabled);
    EXPECT_FALSE(form.cmd_Print.Enabled);
    EXPECT_TRUE(form.cmd_back.Enabled);
    EXPECT_EQ(form.Focus(), &form.cmd_Calc);
    EXPECT_EQ(form.grf_Plot[1].Background, 15);
    EXPECT_EQ(form.lbl_Header.Caption.Get().find(Model.UserName + "\r Design No. 1"), 0U);
}

TEST_F(BalanceActivation, ShowsWhatBalanceTakes) {
    form.Form_Activate();
    const Needed needed = Needed_By_Sharing();
    const auto degrees = [](std::complex<double> v) {
        const double angle = std::arg(v) * 180 / M_PI;
        return FNRoundStr(angle < -90 ? angle + 360 : angle, 2);
    };
    EXPECT_EQ(form.lbl_MR2.Caption, FNRoundStr(std::abs(needed.link2), 3));
    EXPECT_EQ(form.lbl_MR4.Caption, FNRoundStr(std::abs(needed.link4), 3));
    EXPECT_EQ(form.lbl_Ang2.Caption, degrees(needed.link2));
    EXPECT_EQ(form.lbl_Ang4.Caption, degrees(needed.link4));
}

TEST_F(BalanceActivation, StartsWithCounterweightsAtHalfTheLengths) {
    Model.LinkMass(2) = 3;
    Model.LinkMass(3) = 6;
    Model.LinkMass(4) = 6;
    form.Form_Activate();
    const Needed needed = Needed_By_Sharing();
    EXPECT_EQ(In("txt_Radius", 2), "0.558");
    EXPECT_EQ(In("txt_Radius", 4), "1.25");
    EXPECT_EQ(In("txt_BerkMass", 2), Text_Of(FNRound(std::abs(needed.link2) / 0.5575, 3)));
    EXPECT_EQ(In("txt_BerkMass", 4), Text_Of(FNRound(std::abs(needed.link4) / 1.25, 3)));
    EXPECT_EQ(In("txt_MRproduct", 2), Text_Of(FNRound(std::abs(needed.link2), 3)));
    EXPECT_EQ(In("txt_MRproduct", 4), Text_Of(FNRound(std::abs(needed.link4), 3)));
}

TEST_F(BalanceActivation, UnitsFollowTheUnitSystem) {
    using Units = std::vector<std::string>;
    const auto units = [this] {
        return Units{form.lbl_Unit[0].Caption, form.lbl_Unit[1].Caption, form.lbl_Unit[2].Caption,
                     form.lbl_Unit[3].Caption, form.lbl_MRUnit[0].Caption};
    };
    form.Form_Activate();
    EXPECT_EQ(units(), (Units{"bl", "in", "bl", "in", "bl-in"}));
    In_Units(4);
    form.Form_Activate();
    EXPECT_EQ(units(), (Units{"kg", "cm", "kg", "cm", "kg-m"}));
    In_Units(5);
    form.Form_Activate();
    EXPECT_EQ(units(), (Units{"kg", "mm", "kg", "mm", "kg-m"}));
    EXPECT_EQ(form.lbl_AngUnit[2].Caption, "degrees");
}

TEST_F(BalanceActivation, RadiiAreShownInMillimetresAndStoredInMetres) {
    In_Units(5);
    Solve();
    form.Form_Activate();
    EXPECT_EQ(In("txt_Radius", 4), Text_Of(FNRound(Model.L4 / 2 * 1000, 3)));
    const double product = Model.BerkMass(4) * Model.BerkRadius(4);
    Fill("txt_Radius", 4, "20");
    Calculate_Now();
    EXPECT_EQ(Model.BerkRadius(4), Single(0.02));
    EXPECT_EQ(In("txt_BerkMass", 4), Text_Of(Single(product / 0.02)));
    Fill("txt_BerkMass", 4, "2");
    Calculate_Now();
    EXPECT_NEAR(Val(In("txt_Radius", 4)), product / 2 * 1000, 1e-6 * product * 500);
}

TEST_F(BalanceActivation, NeedsNothingWhereTheLinksHaveNoMass) {
    for (int link = 2; link <= 4; ++link) Model.LinkMass(link) = 0;
    form.Form_Activate();
    EXPECT_EQ(form.lbl_MR2.Caption, "0.000");
    EXPECT_EQ(form.lbl_Ang2.Caption, "0.00");
    EXPECT_EQ(In("txt_BerkMass", 2), "0");
    EXPECT_EQ(In("txt_Radius", 2), "0.558");
    Calculate_Now();
    for (int step = 0; step <= Model.NSteps; ++step)
        for (int axis = 0; axis <= 1; ++axis) EXPECT_EQ(Model.RunTable.BerkForce(step, 5, axis), 0.0);
}

TEST_F(BalanceActivation, ALinkWithoutLengthIsReported) {
    Model.L2 = 0;
    LoadLinkArray();
    desktop.Expect_Message("Error 11   (Division by zero)  has occurred in frm_Balance.Activate\r\n\r\n");
    form.Form_Activate();
    Model.L3 = 0;
    LoadLinkArray();
    desktop.Expect_Message("Error 11   (Division by zero)  has occurred in Berkof_Setup\r\n\r\n");
    desktop.Expect_Message("Error 11   (Division by zero)  has occurred in frm_Balance.Activate\r\n\r\n");
    form.Form_Activate();
}

TEST_F(BalanceActivation, NextLeadsToTheHomeScreenAndBackOnlyCloses) {
    Model.ScreenReturn = false;
    Inside(form, [this] {
        Press(form, "cmd_back");
        EXPECT_FALSE(form.Visible());
    });
    EXPECT_FALSE(Model.ScreenReturn);
    Inside(form, [this] {
        Calculate_Now();
        Press(form, "cmd_Done");
        EXPECT_FALSE(form.Visible());
    });
    EXPECT_TRUE(Model.ScreenReturn);
}

TEST_F(BalanceActivation, PrintAsksAndCopySaysHow) {
    Inside(form, [this] {
        Calculate_Now();
        Printing_And_Copying(form, "cmd_copy");
    });
}

TEST_F(BalanceActivation, TheHomeScreenLeadsHereAfterARunOfConstantSpeed) {
    Screen& home = platform::Screens::Get("frm_HomeScreen");
    Run_Holds();
    Set_Menus();
    desktop.Expect_Screen("frm_Balance", [](Screen& screen) { Press(screen, "cmd_back"); });
    Press(home, "cmd_Balance");
}

}  // namespace verlink::test
