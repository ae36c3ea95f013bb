// Each joint taken by its key: the box that a digit goes to, and that none is taken where none is drawn.
#include "tests/screens/joint_hand_fixture.h"

namespace verlink::test {
namespace {

using JointKeys = JointHand;

TEST_F(JointKeys, OfJointsAtOnePlaceTheUppermostIsTaken) {
    Model.Rpa = 0;
    Derive_Linkage(Leading::kInForce);
    By_Angle(0, 360, 10);
    After_First_Picture([&] {
        const Single crank = Model.L2;
        ASSERT_TRUE(Press_At(Where(Joint::kA)));
        Move(Where(Joint::kA) + Spot(8, 3) * Pixel());
        EXPECT_EQ(Model.L2, crank);
        EXPECT_NEAR(Model.Rpa, 8.544 * Pixel(), Pixel() / 8);
        Release();
    });
}

TEST_F(JointKeys, WhereANumberThatWasTypedLeavesNoPictureNothingFollows) {
    After_First_Picture([&] {
        ASSERT_TRUE(Press_At(Where(Joint::kP)));
        const Spot P = Where(Joint::kP);
        const Single arm = Model.Rpa, angle = Model.Delta;
        form.txt_Linkout[2].Type("0.01");
        Move(P + Spot(20, 10) * Pixel());
        EXPECT_EQ(Model.L3, Single(0.01));
        EXPECT_EQ(Model.Rpa, arm);
        EXPECT_EQ(Model.Delta, angle);
        Release();
    });
}

TEST_F(JointKeys, ADigitGoesToTheBoxOfTheValueThatTheJointChanges) {
    struct Case {
        const char* key;
        int box;
    };
    for (const Case& of : {Case{"A", 1}, Case{"B", 3}, Case{"C", 2}, Case{"P", 4}, Case{"O", 15}})
        After_First_Picture([&] {
            const std::string before = Text_In(of.box);
            Key(of.key);
            Key("7");
            EXPECT_EQ(form.Focus(), &form.txt_Linkout[of.box]) << of.key;
            EXPECT_EQ(Text_In(of.box), "7") << of.key;
            EXPECT_FALSE(form.txt_Linkout[of.box].SelectedAll) << "the next digit is added";
            form.txt_Linkout[of.box].Text = before;
        });
}

TEST_F(JointKeys, EachDigitAndThePointBeginANumber) {
    for (const std::string digit : {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "."})
        After_First_Picture([&] {
            const std::string before = Text_In(4);
            Key("P");
            Key(digit.c_str());
            EXPECT_EQ(Text_In(4), digit);
            form.txt_Linkout[4].Text = before;
        });
}

TEST_F(JointKeys, WithoutLinksTheWalkComesToTheGroundPivotAlone) {
    After_First_Picture([&] {
        form.chk_Showlinks.Value = false;
        Press(form, "cmd_Reset");
        for (int i = 0; i < 2; ++i) {
            Key("J");
            ASSERT_TRUE(Picture().Lit.Get());
            EXPECT_NEAR(Picture().Lit.Get()->x, Where(Joint::kO4).real(), Pixel());
        }
        Key("Esc");
    });
}

TEST_F(JointKeys, WithoutLinksTheLetterOfAMovingJointTakesNone) {
    After_First_Picture([&] {
        form.chk_Showlinks.Value = false;
        Press(form, "cmd_Reset");
        for (const char* key : {"A", "B", "C", "P"}) {
            Key(key);
            EXPECT_FALSE(Picture().Lit.Get()) << key;
        }
    });
}

TEST_F(JointKeys, TakenAnewAJointChangesTheNumberThatWasTyped) {
    After_First_Picture([&] {
        Key("P");
        form.txt_Linkout[4].Type("2.5");
        Key("Right", kShift);
        EXPECT_EQ(Model.Rpa, 2.5);
        Key("P");
        Key("Right", kShift);
        EXPECT_NE(Model.Rpa, 2.5);
        Key("Esc");
    });
}

TEST_F(JointKeys, WhatTheMouseHoldsIsLetGoByEscAndIsLitWhereItIs) {
    After_First_Picture([&] {
        ASSERT_TRUE(Press_At(Where(Joint::kP)));
        EXPECT_NE(Picture().Keys.Get().find(" Esc "), std::string::npos);
        Move(Where(Joint::kP) + Spot(40, 30) * Pixel());
        const auto lit = Picture().Lit.Get();
        ASSERT_TRUE(lit);
        EXPECT_NEAR(lit->x, Where(Joint::kP).real(), Pixel() / 2);
        EXPECT_NEAR(lit->y, Model.FlipSum - Where(Joint::kP).imag(), Pixel() / 2);
        Key("Esc");
        EXPECT_FALSE(Picture().Lit.Get());
    });
}

TEST_F(JointKeys, WhileALinkIsDraggedWithTheShiftKeyTheArrowsStepTheRun) {
    After_First_Picture([&] {
        const std::string before = Picture().Keys;
        ASSERT_TRUE(Press_At({1, 1}, kShift));
        EXPECT_EQ(Picture().Keys, before);
        Release();
    });
}

TEST_F(JointKeys, APressBesideAllJointsLetsTheOneInHandGo) {
    After_First_Picture([&] {
        Key("P");
        ASSERT_TRUE(Picture().Lit.Get());
        EXPECT_FALSE(Press_At(Where(Joint::kP) + Spot(60, 60) * Pixel()));
        EXPECT_FALSE(Picture().Lit.Get());
        const std::string before = What_Counts();
        Key("Right");
        EXPECT_EQ(What_Counts(), before);
    });
}

TEST_F(JointKeys, WithoutAPictureNoJointIsTaken) {
    After_First_Picture([&] {
        Enter(form, "txt_Linkout", 2, "0.01");
        for (const char* key : {"A", "B", "C", "P", "O", "J"}) {
            Key(key);
            EXPECT_FALSE(Picture().Lit.Get()) << key;
        }
    });
}

}  // namespace
}  // namespace verlink::test
