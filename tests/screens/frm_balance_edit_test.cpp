// Trading mass for radius, and the coefficient of fluctuation.
#include <gtest/gtest.h>

#include <string>

#include "core/numeric.h"
#include "core/text.h"
#include "tests/screens/frm_balance_fixture.h"

namespace verlink::test {

namespace {

constexpr char kPositive[] = "This value must be positive.  Please redo.";
constexpr char kFluct[] = " Coefficient of fluctuation must be between zero and one - Try .05 ";
constexpr int kNone = platform::kNoIndex;

struct BalanceEdit : BalanceScreen {
    BalanceEdit() {
        Model.LinkMass(3) = 6;
        Solve();
        form.Form_Activate();
        Calculate_Now();
        Calculated();
    }
    static double Product(int link) { return Model.BerkMass(link) * Model.BerkRadius(link); }
    void Expect_Fluct_Refused() { desktop.Expect_Message(kFluct, platform::Answer::kOk, platform::Icon::kExclamation); }
};

}  // namespace

TEST_F(BalanceEdit, AMassTypedGivesTheRadiusOfTheSameProductAndCalculates) {
    for (const int link : {2, 4}) {
        const double product = Product(link);
        Fill("txt_BerkMass", link, "2.5");
        EXPECT_TRUE(form.txt_BerkMass[link].SelectedAll) << "selected when the focus came";
        EXPECT_FALSE(Calculated());
        form.txt_Fluct.SetFocus();
        EXPECT_TRUE(Calculated());
        EXPECT_EQ(Model.BerkMass(link), 2.5);
        EXPECT_EQ(In("txt_Radius", link), Text_Of(Single(product / 2.5)));
        EXPECT_NEAR(Product(link), product, 1e-6 * product);
        EXPECT_TRUE(form.cmd_Done.Enabled);
        EXPECT_EQ(form.Focus(), &form.cmd_Done);
    }
}

TEST_F(BalanceEdit, ARadiusTypedGivesTheMassOfTheSameProductAndCalculates) {
    for (const int link : {2, 4}) {
        const double product = Product(link);
        Enter_In("txt_Radius", link, "0.75");
        EXPECT_TRUE(Calculated());
        EXPECT_EQ(Model.BerkRadius(link), 0.75);
        EXPECT_EQ(In("txt_BerkMass", link), Text_Of(Single(product / 0.75)));
        EXPECT_NEAR(Product(link), product, 1e-6 * product);
    }
}

TEST_F(BalanceEdit, AMassTypedIsTakenAsItIsThoughTheOneBeforeIsShownLikeIt) {
    Model.BerkMass(2) = 2.0004F;
    form.Form_Activate();
    ASSERT_EQ(In("txt_BerkMass", 2), "2");
    const double product = Product(2);
    Enter_In("txt_BerkMass", 2, "2");
    EXPECT_EQ(Model.BerkMass(2), 2.0);
    EXPECT_NEAR(Product(2), product, 1e-6 * product);
}

TEST_F(BalanceEdit, AWeightWhosePartnerNoNumberHoldsLeavesNoBalance) {
    for (const char* box : {"txt_BerkMass", "txt_Radius"}) {
        form.Form_Activate();
        Press(form, "cmd_Calc");
        ASSERT_TRUE(Model.BalanceDone);
        desktop.Expect_Message_With("Error 6   (Overflow)  has occurred in frm_Balance." + std::string(box));
        Enter_In(box, 2, "1e-40");
        EXPECT_FALSE(Model.BalanceDone) << box;
    }
}

TEST_F(BalanceEdit, AProductTypedGivesTheMassAtTheSameRadius) {
    const double radius = Model.BerkRadius(4);
    Fill("txt_MRproduct", 4, "3");
    form.cmd_back.SetFocus();
    EXPECT_TRUE(Calculated());
    EXPECT_EQ(In("txt_Radius", 4), "1.25");
    EXPECT_EQ(In("txt_BerkMass", 4), "2.4");
    EXPECT_EQ(Model.BerkMass(4), Single(2.4));
    EXPECT_EQ(Model.BerkRadius(4), radius);
}

TEST_F(BalanceEdit, AProductTypedIsTheProductOfTheWeightsThoughTheMassIsShownRounded) {
    Fill("txt_MRproduct", 4, "0.0123");
    form.cmd_back.SetFocus();
    EXPECT_TRUE(Calculated());
    EXPECT_EQ(In("txt_BerkMass", 4), "0.01");
    EXPECT_EQ(Model.BerkMass(4), Single(0.0123 / 1.25));
    Press(form, "cmd_Calc");
    EXPECT_EQ(Model.BerkMass(4), Single(0.0123 / 1.25)) << "pressing Calculate is no edit";
}

TEST_F(BalanceEdit, AProductForARadiusThatIsNoneGivesWayToTheWeights) {
    Model.BerkRadius(4) = 0;
    const Single mass = Model.BerkMass(4);
    const std::string shown = Text_Of(FNRound(mass, 3));
    desktop.Expect_Message("Error 11   (Division by zero)  has occurred in frm_Balance.txt_MRproduct\r\n\r\n");
    Fill("txt_MRproduct", 4, "3");
    form.cmd_back.SetFocus();
    EXPECT_FALSE(Calculated());
    EXPECT_EQ(Model.BerkMass(4), mass);
    EXPECT_EQ(In("txt_BerkMass", 4), shown);
}

TEST_F(BalanceEdit, AProductIsNotTested) {
    Fill("txt_MRproduct", 4, "-3");
    form.cmd_back.SetFocus();
    EXPECT_EQ(In("txt_BerkMass", 4), "-2.4");
    EXPECT_EQ(Model.BerkMass(4), Single(-2.4));
}

TEST_F(BalanceEdit, AMassOrRadiusThatIsNotPositiveIsRefused) {
    for (const char* box : {"txt_BerkMass", "txt_Radius"})
        for (const char* text : {"-1", "0", ""}) {
            SCOPED_TRACE(std::string(box) + text);
            form.Form_Activate();
            Calculated();
            const double mass = Model.BerkMass(2), radius = Model.BerkRadius(2);
            desktop.Expect_Message(kPositive, platform::Answer::kOk, platform::Icon::kExclamation);
            Fill(box, 2, text);
            form.txt_MRproduct[4].SetFocus();
            EXPECT_EQ(In(box, 2), "0.01");
            EXPECT_EQ(form.Focus(), &form.Text(box, 2));
            EXPECT_TRUE(form.Text(box, 2).SelectedAll);
            EXPECT_FALSE(Calculated()) << "neither here nor in the box that was to come";
            EXPECT_EQ(Model.BerkMass(2), mass);
            EXPECT_EQ(Model.BerkRadius(2), radius);
            form.cmd_back.SetFocus();
            EXPECT_TRUE(Calculated()) << "what was put in its place counts once the box is left";
            const Single taken = box == std::string("txt_Radius") ? Model.BerkRadius(2) : Model.BerkMass(2);
            EXPECT_EQ(taken, Single(0.01));
        }
}

TEST_F(BalanceEdit, WhatStandsInForARefusedMassIsSelectedForTheNextOne) {
    form.txt_BerkMass[2].SetFocus();
    form.txt_BerkMass[2].SelectedAll = false;
    desktop.Expect_Message(kPositive, platform::Answer::kOk, platform::Icon::kExclamation);
    Enter_In("txt_BerkMass", 2, "-1");
    EXPECT_EQ(In("txt_BerkMass", 2), "0.01");
    EXPECT_TRUE(form.txt_BerkMass[2].SelectedAll);
}

TEST_F(BalanceEdit, ABoxLeftAsItWasCalculatesNothing) {
    for (const char* box : {"txt_BerkMass", "txt_Radius", "txt_MRproduct"})
        for (const int link : {2, 4}) form.Text(box, link).SetFocus();
    form.txt_Fluct.SetFocus();
    form.cmd_back.SetFocus();
    EXPECT_FALSE(Calculated());
    form.Form_Activate();
    form.txt_Fluct.SetFocus();
    form.cmd_back.SetFocus();
    EXPECT_FALSE(Calculated()) << "what the program writes is no edit";
}

TEST_F(BalanceEdit, ACoefficientTypedCalculates) {
    Enter_In("txt_Fluct", kNone, "0.2");
    EXPECT_TRUE(Calculated());
    const double first = Model.RunTable.FlywheelTorque(9);
    Fill("txt_Fluct", kNone, "0.4");
    form.cmd_back.SetFocus();
    EXPECT_TRUE(Calculated());
    // Twice the coefficient, twice the distance from the average.
    Single average = 0;
    for (int step = 0; step <= Model.NSteps; ++step)
        average = average + Model.RunTable.BalancedMoment(step, 0) / (Model.NSteps + 1.0);
    EXPECT_NEAR(Model.RunTable.FlywheelTorque(9) - average, 2 * (first - average), 1e-2);
}

TEST_F(BalanceEdit, BehindACoefficientOfOneAnotherOneIsTaken) {
    Enter_In("txt_Fluct", kNone, "1");
    EXPECT_TRUE(Calculated());
    Fill("txt_Fluct", kNone, "0.5");
    form.cmd_back.SetFocus();
    EXPECT_EQ(form.txt_Fluct.Text, "0.5");
    EXPECT_TRUE(Calculated());
}

TEST_F(BalanceEdit, OneAboveOneIsTakenAndTheNextIsRefused) {
    Enter_In("txt_Fluct", kNone, "1.2");
    EXPECT_TRUE(Calculated());
    Expect_Fluct_Refused();
    Fill("txt_Fluct", kNone, "0.5");
    form.txt_BerkMass[2].SetFocus();
    EXPECT_EQ(form.txt_Fluct.Text.Get(), "0.05");
}

TEST_F(BalanceEdit, ACoefficientThatIsNotPositiveIsRefused) {
    for (const char* text : {"0", "-0.1", ""}) {
        Expect_Fluct_Refused();
        Fill("txt_Fluct", kNone, text);
        form.txt_BerkMass[2].SetFocus();
        EXPECT_EQ(form.txt_Fluct.Text.Get(), "0.05");
        EXPECT_EQ(form.Focus(), &form.txt_Fluct);
        EXPECT_FALSE(Calculated());
        form.cmd_back.SetFocus();
        EXPECT_TRUE(Calculated());
    }
}

TEST_F(BalanceEdit, ACoefficientAboveOneIsTakenOnceAndRefusedAtTheNextEdit) {
    Enter_In("txt_Fluct", kNone, "5");
    EXPECT_TRUE(Calculated());
    Expect_Fluct_Refused();
    Enter_In("txt_Fluct", kNone, "0.3");
    EXPECT_FALSE(Calculated());
    EXPECT_EQ(form.txt_Fluct.Text.Get(), "0.05");
    Enter_In("txt_Fluct", kNone, "0.3");
    EXPECT_TRUE(Calculated());
    EXPECT_EQ(form.txt_Fluct.Text.Get(), "0.3");
}

TEST_F(BalanceEdit, AnEditThatCannotBeCalculatedLeavesTheWayOnClosed) {
    form.txt_Radius[4].Text = "";
    desktop.Expect_Message("Error 13   (Type mismatch)  has occurred in frm_Balance.cmd_Calc\r\n\r\n");
    Enter_In("txt_BerkMass", 2, "2");
    EXPECT_FALSE(form.cmd_Done.Enabled);
    const double product = Product(2);
    form.txt_Radius[4].Text = "";
    desktop.Expect_Message("Error 13   (Type mismatch)  has occurred in frm_Balance.cmd_Calc\r\n\r\n");
    Enter_In("txt_Radius", 2, "0.75");
    EXPECT_EQ(Model.BerkRadius(2), 0.75) << "of a pair of weights neither is left behind";
    EXPECT_NEAR(Product(2), product, 1e-6 * product);
}

}  // namespace verlink::test
