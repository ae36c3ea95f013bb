// What a hand on a joint says where all that the joint changes is locked, and what it leaves alone.
#include "core/numeric.h"
#include "core/text.h"
#include "tests/screens/joint_hand_fixture.h"

namespace verlink::test {
namespace {

class JointLocks : public JointHand {
   protected:
    void Lock(std::initializer_list<int> boxes) {
        for (const auto& lock : form.chk_Lock) lock->Value = false;
        for (const int box : boxes) form.chk_Lock[box].Value = true;
    }
    std::string Line() { return form.lbl_Why.Caption; }
};

TEST_F(JointLocks, AreToldByTheValuesThatTheJointWouldChange) {
    struct Case {
        Joint joint;
        int keys;
        std::initializer_list<int> locked;
        const char* words;
    };
    const Case cases[] = {
        {Joint::kB, 0, {3}, "Not followed: link 4 is locked."},
        {Joint::kB, kControl, {2}, "Not followed: link 3 is locked."},
        {Joint::kP,
         0,
         {4, 5},
         "Not followed: the distance to the coupler point and the angle to the coupler point are locked."},
        {Joint::kO4, 0, {15, 16}, "Not followed: x of O4 and y of O4 are locked."}};
    After_First_Picture([&] {
        for (const Case& of : cases) {
            Lock(of.locked);
            ASSERT_TRUE(Press_At(Where(of.joint)));
            Move(Where(of.joint) + Spot(7, 3) * Pixel(), of.keys);
            EXPECT_EQ(Line(), of.words);
            Release();
        }
    });
}

TEST_F(JointLocks, OfAGroundByLengthAndAngleAreNamedSo) {
    Turn_Ground(10);
    By_Angle(0, 360, 10);
    After_First_Picture([&] {
        Lock({0, 6});
        ASSERT_TRUE(Press_At(Where(Joint::kO4)));
        Move(Where(Joint::kO4) + Spot(7, 3) * Pixel());
        EXPECT_EQ(Line(), "Not followed: the length of link 1 and the angle of link 1 are locked.");
        Release();
    });
}

TEST_F(JointLocks, OfACrankThatTurnsAllTheSameAreNotTold) {
    After_First_Picture([&] {
        Lock({1});
        const double length = Model.L2;
        ASSERT_TRUE(Press_At(Where(Joint::kA)));
        Move(std::polar(length, 50 * M_PI / 180));
        EXPECT_EQ(Number(), "50.0");
        EXPECT_EQ(Line().find("Not followed"), std::string::npos) << Line();
        Release();
    });
}

TEST_F(JointLocks, AJointTakenByItsKeyIsLetGoWhereTheMouseTakesAnother) {
    After_First_Picture([&] {
        Key("P");
        EXPECT_EQ(Picture().Pointer, platform::Grip::kArrow);
        ASSERT_TRUE(Press_At(Where(Joint::kO4)));
        EXPECT_EQ(Picture().Pointer, platform::Grip::kClosedHand);
        const Single length = Model.Rpa;
        Key("Right");
        EXPECT_EQ(Model.Rpa, length) << "the mouse has it";
        Release();
    });
}

TEST_F(JointLocks, OnceMovedAHandThatStaysStillDrawsNothingMore) {
    After_First_Picture([&] {
        ASSERT_TRUE(Press_At(Where(Joint::kP)));
        Move(Where(Joint::kP) + Spot(10, 5) * Pixel());
        Release();
        int drawn = 0;
        const Position_Ear ear(form, [&drawn](const Shown&) { ++drawn; });
        ASSERT_TRUE(Press_At(Where(Joint::kP)));
        Release();
        ASSERT_TRUE(Press_At(Where(Joint::kP)));
        Release();
        EXPECT_EQ(drawn, 0);
    });
}

TEST_F(JointLocks, TheUppermostOfJointsAtOnePlaceIsTaken) {
    Model.Rpa = 0;
    By_Angle(0, 360, 10);
    After_First_Picture([&] {
        const Spot A = Where(Joint::kA);
        const Single crank = Model.L2;
        ASSERT_TRUE(Press_At(A));
        Move(A + Spot(20, 0) * Pixel());
        EXPECT_GT(Model.Rpa, 0) << "the coupler point lies over the crank pin";
        EXPECT_EQ(Model.L2, crank);
        Release();
    });
}

TEST_F(JointLocks, WhatIsTypedAndClosesNowhereLeavesTheJointWhereItIs) {
    After_First_Picture([&] {
        ASSERT_TRUE(Press_At(Where(Joint::kP)));
        const Spot away = Where(Joint::kP) + Spot(30, 40) * Pixel();
        const Single length = Model.Rpa, angle = Model.Delta;
        form.txt_Linkout[2].Type("0.01");
        Move(away);
        EXPECT_EQ(Model.L3, Single(0.01));
        EXPECT_EQ(Model.Rpa, length);
        EXPECT_EQ(Model.Delta, angle);
        Release();
    });
}

TEST_F(JointLocks, ALengthThatTheOtherPositionDoesNotTakeIsToldOfThatPosition) {
    Model.PolarCoords = true;
    Model.L1 = 7, Model.L2 = 4, Model.L3 = 5, Model.L4 = 4.5;
    Derive_Linkage(Leading::kInForce);
    By_Angle(90, 130, 10);
    After_First_Picture([&] {
        ASSERT_TRUE(Press_At(Where(Joint::kA)));
        Move(std::polar(5.2, 110 * M_PI / 180));
        // At 90 degrees, where it stands, the links reach as far as 6.42.
        const double c = 7 * std::cos(110 * M_PI / 180), most = c + std::sqrt(c * c - 49 + 9.5 * 9.5);
        EXPECT_EQ(Line(),
                  "Not followed: with 5.2 in of link 2 coupler and rocker cannot meet at Theta2 = 110.0 deg; under " +
                      Text_Of(FNRound(most, 2)) + " in would do.");
        EXPECT_EQ(form.hsc_step.Value(), 0);
        EXPECT_EQ(Model.L2, 4);
        Release();
    });
}

}  // namespace
}  // namespace verlink::test
