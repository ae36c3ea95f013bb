// What a hand may type into the boxes of the screens, and what becomes of a text that is no number.
#include "screens/frm_animate.h"
#include "screens/frm_synth2b.h"
#include "tests/screens/frm_balance_fixture.h"
#include "tests/screens/frm_inputnew_fixture.h"
#include "tests/screens/synthesis_screens_fixture.h"

namespace verlink::test {

namespace {

struct TypedLinks : InputScreen {
    TextBox& Crank() { return input.txt_Linkout[1]; }
    void Leave_To(int box) { input.txt_Linkout[box].SetFocus(); }
};

}  // namespace

TEST_F(TypedLinks, ADecimalCommaASumAndAUnitAreReadAndTheBoxShowsTheNumber) {
    Show([&] {
        const std::pair<const char*, const char*> texts[] = {
            {"1,25", "1.25"}, {"5/4", "1.25"}, {"2*1.115", "2.23"}, {"1 in", "1"}, {"38.1 mm", "1.5"}};
        for (const auto& [typed, shown] : texts) {
            Type(input, "txt_Linkout", 1, typed);
            Leave_To(2);
            EXPECT_EQ(Crank().Text, shown) << typed;
            EXPECT_EQ(Model.L2, Single(std::stod(shown))) << typed;
            EXPECT_FALSE(Crank().Refused()) << typed;
        }
        EXPECT_TRUE(Model.Calculated);
    });
}

TEST_F(TypedLinks, TheReturnKeyReadsLikeLeaving) {
    Show([&] {
        Enter_Link(1, "1,25");
        EXPECT_EQ(Crank().Text, "1.25");
        EXPECT_EQ(Model.L2, 1.25);
    });
}

TEST_F(TypedLinks, InMillimetresInchesAreConverted) {
    Use_Units(5);
    Show([&] {
        Enter_Link(1, "1 in");
        EXPECT_EQ(Crank().Text, "25.4");
        EXPECT_EQ(Model.L2, Single(0.0254));
    });
}

TEST_F(TypedLinks, ATextThatIsNoNumberAsAWholeIsRefusedOnceAndTheLinkStaysAsItWas) {
    Show([&] {
        const Single before = Model.L2;
        Type(input, "txt_Linkout", 1, "1,500");
        Leave_To(2);
        EXPECT_TRUE(Crank().Refused());
        EXPECT_EQ(Crank().Shown(), "1,500") << "to be mended";
        EXPECT_EQ(Crank().Text, "1.115");
        EXPECT_EQ(Crank().Note(),
                  "Only the beginning, 1, could be read: the comma may part thousands or be a decimal point.\n1.115 "
                  "stays until the box is left again.\nLeaving it as it is then takes 1.");
        EXPECT_FALSE(Crank().Touched());
        EXPECT_EQ(Model.L2, before);
        Calculate_Now();
        EXPECT_EQ(Model.L2, before) << "a calculation is of what is in force";
        EXPECT_EQ(Crank().Shown(), "1,500");

        Leave_To(1);
        Leave_To(3);
        EXPECT_FALSE(Crank().Refused());
        EXPECT_EQ(Crank().Note(), "");
        EXPECT_EQ(Crank().Text, "1");
        EXPECT_EQ(Model.L2, 1.0) << "left again, its beginning is taken";
    });
}

TEST_F(TypedLinks, AMendedTextIsReadAndAnotherBadOneIsRefusedAnew) {
    Show([&] {
        Type(input, "txt_Linkout", 1, "1,500");
        Leave_To(2);
        Type(input, "txt_Linkout", 1, "1.5x");
        EXPECT_FALSE(Crank().Refused()) << "being mended";
        Leave_To(2);
        EXPECT_TRUE(Crank().Refused());
        EXPECT_EQ(Model.L2, Single(1.115));
        Type(input, "txt_Linkout", 1, "1.5");
        Leave_To(2);
        EXPECT_FALSE(Crank().Refused());
        EXPECT_EQ(Model.L2, 1.5);
        Type(input, "txt_Linkout", 1, "1,500");
        Leave_To(2);
        EXPECT_TRUE(Crank().Refused()) << "what was mended is forgotten";
        EXPECT_EQ(Model.L2, 1.5);
    });
}

TEST_F(TypedLinks, TheSameTextTypedOnceMoreIsTaken) {
    Show([&] {
        Enter_Link(1, "1,500");
        EXPECT_TRUE(Crank().Refused());
        Enter_Link(1, "1,500");
        EXPECT_EQ(Crank().Text, "1");
        EXPECT_EQ(Model.L2, 1.0);
    });
}

TEST_F(TypedLinks, AnotherValueThatTheProgramPutsThereTakesTheRefusedTextAway) {
    Show([&] {
        Enter_Link(1, "1,500");
        Crank().Text = "1.115";
        EXPECT_TRUE(Crank().Refused()) << "what is in force has not changed";
        Crank().Text = "2";
        EXPECT_FALSE(Crank().Refused());
        EXPECT_EQ(Crank().Shown(), "2");
    });
}

TEST_F(TypedLinks, ARefusedTextGoesWithTheScreen) {
    Show([&] { Enter_Link(1, "abc"); });
    EXPECT_FALSE(Crank().Refused());
    EXPECT_EQ(Crank().Shown(), "1.115");
    EXPECT_EQ(Model.L2, Single(1.115));
}

TEST_F(TypedLinks, AMenuEntryReadsWhatIsBeingTyped) {
    Show([&] {
        Type(input, "txt_Linkout", 1, "2,5");
        Pick_Menu(input, "mnu_Plus");
        EXPECT_EQ(Crank().Text, "2.5");
        EXPECT_EQ(input.Focus(), &Crank());
    });
}

TEST_F(TypedLinks, AMenuEntryIsNoLeaving) {
    Show([&] {
        Type(input, "txt_Linkout", 1, "1,500");
        for (int time = 1; time <= 2; ++time) {
            Pick_Menu(input, "mnu_Plus");
            EXPECT_TRUE(Crank().Refused());
            EXPECT_EQ(Crank().Shown(), "1,500");
            EXPECT_EQ(Model.L2, Single(1.115));
        }
        Leave_To(2);
        EXPECT_TRUE(Crank().Refused()) << "left for the first time";
        EXPECT_EQ(Model.L2, Single(1.115));
    });
}

TEST_F(TypedLinks, AnglesSpeedsAndTimesAreOfTheirOwnUnits) {
    Show([&] {
        Enter_Link(5, "1 rad");
        EXPECT_EQ(Model.Delta, Single(57.29578));
        EXPECT_EQ(input.txt_Linkout[5].Text, "57.3") << "rounded like every angle";
        Enter_Limit(2, "7,5");
        EXPECT_EQ(Model.ThetaStep, 7.5);
        Enter_Limit(3, "60/2 rad/s");
        EXPECT_EQ(Model.Omega2Input, 30.0);
        Enter_Limit(2, "5 sec");
        EXPECT_TRUE(input.txt_initial[2].Refused()) << "no angle";
        Choose_Option(input, "opt_Calctype", 2);
        Enter_Limit(2, "0,05 s");
        EXPECT_EQ(Model.TimeStep, Single(0.05));
        Enter_Limit(4, "2 rad/s^2");
        EXPECT_EQ(Model.Alpha2, 2.0);
    });
}

TEST_F(TypedLinks, TheGroundIsALengthAndAnAngleOrTwoLengths) {
    Show([&] {
        Choose_Option(input, "opt_Polar", 1);
        Enter_Link(6, "0.5 rad");
        EXPECT_EQ(Model.Link1Angle, Single(28.64789));
        Choose_Option(input, "opt_Polar", 0);
        for (const int box : {15, 16}) {
            Enter_Link(box, "0.25 rad");
            EXPECT_TRUE(input.txt_Linkout[box].Refused()) << "no length";
        }
        Enter_Link(15, "0.2 ft");
        EXPECT_EQ(Model.Link1X, Single(2.4));
        Enter_Link(16, "0.01 ft");
        EXPECT_EQ(Model.Link1Y, Single(0.12));
    });
}

TEST_F(TypedLinks, EveryBoxThatHoldsANumberTellsItsRange) {
    for (const int length : {0, 1, 2, 3, 4})
        EXPECT_NE(input.txt_Linkout[length].Tip.Get().find("not negative"), std::string::npos) << length;
    EXPECT_NE(input.txt_initial[2].Tip.Get().find("at most 2880 steps"), std::string::npos);
    EXPECT_NE(animate.Text("txt_Cycles").Tip.Get().find("from 1 to 32767"), std::string::npos);
}

TEST_F(MassPropScreen, MassesAndLoadsAreReadInTheirUnitsAndThousandsAsWritten) {
    Inside(form, [&] {
        Fill("txt_Mass", 3, "1,500");
        Fill("txt_Mass", 2, "0,5");
        Fill("txt_Inertia", 3, "12 in-lb-s^2");
        Fill("txt_Torque", 3, "1 lb-ft");
        Fill("txt_MagForce", 4, "44,48222 N");
        Fill("txt_Frict", 3, "3 kg");
        Solve();
        EXPECT_EQ(Model.LinkMass(3), 1500.0) << "as the box itself writes it";
        EXPECT_EQ(Model.LinkMass(2), 0.5);
        EXPECT_EQ(Model.LinkInertia(3), 12.0);
        EXPECT_EQ(Model.ExtTorque(3), 12.0);
        EXPECT_NEAR(Model.ExtForceMag(4), 10, 1e-5);
        EXPECT_EQ(In("txt_MagForce", 4), "10");
        EXPECT_TRUE(form.txt_Frict[3].Refused());
        EXPECT_EQ(Model.FrictionForce, 0.0) << "what was there before is solved with";
        Expect_Results_Open(true);
    });
}

TEST_F(MassPropScreen, AFrictionThatIsNoNumberFailsWhenItIsLeftAgain) {
    Inside(form, [&] {
        Fill("txt_Frict", 3, "2 kg");
        Solve();
        EXPECT_TRUE(form.txt_Frict[3].Refused());
        Expect_Results_Open(true);
        form.txt_Frict[3].SetFocus();
        desktop.Expect_Message_With("Error 13 ");
        Solve();
    });
}

TEST_F(BalanceScreen, WeightsAreTakenInTheirUnitsOrStayAsTheyWere) {
    Inside(form, [&] {
        Enter_In("txt_BerkMass", 2, "1/2");
        EXPECT_EQ(Model.BerkMass(2), 0.5);
        EXPECT_EQ(In("txt_BerkMass", 2), "0.5");
        Enter_In("txt_Radius", 2, "50,8 mm");
        EXPECT_EQ(Model.BerkRadius(2), 2.0);
        Enter_In("txt_Radius", 2, "2 kg");
        EXPECT_TRUE(form.txt_Radius[2].Refused());
        EXPECT_EQ(Model.BerkRadius(2), 2.0);
    });
}

TEST_F(BalanceScreen, AWeightThatIsNoNumberIsZeroWhenItIsLeftAgainAndThatIsRefusedAsEver) {
    Inside(form, [&] {
        const Single before = Model.BerkMass(2);
        Enter_In("txt_BerkMass", 2, "abc");
        EXPECT_TRUE(form.txt_BerkMass[2].Refused());
        desktop.Expect_Message_With("This value must be positive.");
        Enter_In("txt_BerkMass", 2, "abc");
        EXPECT_EQ(In("txt_BerkMass", 2), "0.01");
        EXPECT_EQ(Model.BerkMass(2), before);
    });
}

TEST_F(SynthesisScreenTest, LengthsAndTurnsAreReadInTheirUnits) {
    auto& form = Made<frm_Synth2B>("frm_Synth2B");
    Use_Units(5);
    form.Form_Activate();
    Enter_Box(form, "txt_P21x", "-1/2 in");
    Enter_Box(form, "txt_Zmag", "1 in");
    Enter_Box(form, "txt_Alpha2", "0,5 rad");
    Enter_Box(form, "txt_Beta2", "40 mm");
    form.MoveFocus(nullptr);
    EXPECT_EQ(Box(form, "txt_P21x"), "-12.7");
    EXPECT_EQ(Box(form, "txt_Zmag"), "0.0254") << "shown in metres here";
    EXPECT_EQ(Box(form, "txt_Alpha2"), "28.64789");
    EXPECT_TRUE(form.txt_Beta2.Refused());
    Expect_Ways_On(form, false);
}

}  // namespace verlink::test
