// Each joint taken by its key: the box that a digit goes to, and that none is taken where none is drawn.
#include "tests/screens/joint_hand_fixture.h"

namespace verlink::test {
namespace {

using JointKeys = JointHand;

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

TEST_F(JointKeys, TheArrowsStepTheRunAndTheButtonGoesOnFromThere) {
    After_First_Picture([&] {
        EXPECT_TRUE(form.Press_Keys("Right"));
        EXPECT_EQ(form.hsc_step.Value(), 1);
        Press(form, "cmd_Step");
        EXPECT_EQ(form.hsc_step.Value(), 2);
        EXPECT_TRUE(form.Press_Keys("Left"));
        EXPECT_EQ(form.hsc_step.Value(), 1);
        Press(form, "cmd_Step");
        EXPECT_EQ(form.hsc_step.Value(), 2);
        Enter(form, "txt_Linkout", 1, "1.2");
        form.Press_Keys("Right");
        EXPECT_EQ(form.hsc_step.Value(), 2) << "nothing is calculated that could be stepped through";
        EXPECT_EQ(Model.CurrentStep, 3);
    });
}

TEST_F(JointKeys, TheArrowsStepARunThatAnotherStageDrivesToo) {
    Fresh();
    By_Another_Stage(20, 12);
    Model.LinkDriven = true;
    After_First_Picture([&] {
        EXPECT_TRUE(form.Press_Keys("Right"));
        EXPECT_EQ(form.hsc_step.Value(), 1);
        EXPECT_LT(Off(Where(Joint::kA)), 0.5) << "the crank is drawn there";
        EXPECT_TRUE(form.Press_Keys("Left"));
        EXPECT_TRUE(form.Press_Keys("Left"));
        EXPECT_EQ(form.hsc_step.Value(), 20);
        EXPECT_TRUE(form.Press_Keys("Right"));
        EXPECT_EQ(form.hsc_step.Value(), 0);
    });
}

TEST_F(JointKeys, EachDigitAndThePointBeginANumber) {
    for (const char* key : {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "."})
        After_First_Picture([&] {
            const std::string before = Text_In(4);
            Key("P");
            Key(key);
            EXPECT_EQ(Text_In(4), key);
            form.txt_Linkout[4].Text = before;
        });
}

TEST_F(JointKeys, TheWalkPassesOverWhatIsNotDrawn) {
    After_First_Picture([&] {
        form.chk_Showlinks.Value = false;
        Press(form, "cmd_Reset");
        Key("J");
        ASSERT_TRUE(Picture().Lit.Get()) << "the ground pivot is the last of the four";
        EXPECT_NEAR(Picture().Lit.Get()->x, Where(Joint::kO4).real(), Pixel());
        Key("J");
        ASSERT_TRUE(Picture().Lit.Get()) << "and comes again";
        Key("Esc");
        Key("A");
        EXPECT_FALSE(Picture().Lit.Get());
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

TEST_F(JointKeys, WhatTheMouseHoldsNoLetterAndNoArrowTakesFromIt) {
    After_First_Picture([&] {
        ASSERT_TRUE(Press_At(Where(Joint::kP)));
        Move(Where(Joint::kP) + Spot(40, 30) * Pixel());
        const std::string before = What_Counts();
        for (const char* key : {"A", "J", "Left"}) Key(key);
        EXPECT_EQ(What_Counts(), before);
        Move(Where(Joint::kP) + Spot(20, 0) * Pixel());
        EXPECT_EQ(Model.L2, Single(1.115)) << "it is the coupler point still";
        EXPECT_NE(What_Counts(), before);
        Release();
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

}  // namespace
}  // namespace verlink::test
