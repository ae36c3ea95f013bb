// Locks and the hand: which of them hold a joint, and until when the line under the picture says so.
#include "core/numeric.h"
#include "core/text.h"
#include "tests/screens/joint_hand_fixture.h"

namespace verlink::test {
namespace {

class JointLocks : public JointHand {
   protected:
    void Lock(std::initializer_list<int> boxes) {
        for (const int box : boxes) form.chk_Lock[box].Click();
    }
    std::string Line() { return form.lbl_Why.Caption; }

    struct Held_By {
        Joint joint;
        int keys;
        bool polar;
        int option;  ///< of a drag with the shift key
        std::vector<int> boxes;
        std::string line;
    };
    static std::vector<Held_By> All() {
        const std::string length = "the length of link 1 and the angle of link 1 are locked.";
        return {{Joint::kA, 0, false, 1, {1}, "link 2 is locked."},
                {Joint::kB, 0, false, 2, {3}, "link 4 is locked."},
                {Joint::kB, kControl, false, 4, {2}, "link 3 is locked."},
                {Joint::kP,
                 0,
                 false,
                 0,
                 {4, 5},
                 "the distance to the coupler point and the angle to the coupler point are locked."},
                {Joint::kO4, 0, false, 3, {15, 16}, "x of O4 and y of O4 are locked."},
                {Joint::kO4, 0, true, 3, {0, 6}, length}};
    }
    /// In both forms of link 1, with all locks of a joint closed, and with all but one.
    template <class Pull>
    void Each(const Pull& pull) {
        for (const Held_By& held : All()) {
            SCOPED_TRACE(held.line);
            Fresh();
            Model.PolarCoords = held.polar;
            By_Angle(0, 360, 10);
            After_First_Picture([&] {
                for (const int box : held.boxes) Lock({box});
                const std::string before = What_Counts();
                pull(held);
                EXPECT_EQ(Line(), "Not followed: " + held.line);
                EXPECT_EQ(What_Counts(), before);
                for (const int open : held.boxes) {
                    Lock({open});
                    Show_Step(0);
                    pull(held);
                    EXPECT_EQ(Line().find("locked"), std::string::npos) << Line() << " with " << open << " open";
                    Lock({open});
                }
                for (const int box : held.boxes) Lock({box});
            });
        }
    }
};

TEST_F(JointLocks, AJointIsHeldByTheLocksOfAllItsValues) {
    Each([&](const Held_By& held) {
        const Spot at = Where(held.joint);
        ASSERT_TRUE(Press_At(at));
        Move(at + Spot(6, 5) * Pixel(), held.keys);
        Release();
    });
}

TEST_F(JointLocks, ADragWithTheShiftKeyIsHeldByTheSameLocks) {
    Each([&](const Held_By& held) {
        Choose_Option(form, "opt_Shift_Drag", held.option);
        const Spot to = Where(held.joint) + Spot(6, 5) * Pixel();
        form.Picture1.OnMouseMove(1, kShift, to.real(), Model.FlipSum - to.imag());
        EXPECT_EQ(Number(), "0.0") << "the position that is shown";
    });
}

TEST_F(JointLocks, WhatIsSaidOfALockIsReadAfterALaterDragToo) {
    After_First_Picture([&] {
        ASSERT_TRUE(Press_At(Where(Joint::kB)));
        Move(Where(Joint::kB) + Spot(4, 2) * Pixel());
        Release();
        Lock({3});
        ASSERT_TRUE(Press_At(Where(Joint::kB)));
        Move(Where(Joint::kB) + Spot(9, 4) * Pixel());
        Release();
        EXPECT_EQ(Line(), "Not followed: link 4 is locked.");
        Lock({3});
    });
}

TEST_F(JointLocks, ACrankOfALockedLengthIsTurnedWithoutAWord) {
    After_First_Picture([&] {
        Lock({1});
        const Single before = Model.L2;
        ASSERT_TRUE(Press_At(Where(Joint::kA)));
        Move(std::polar(1.7, 70 * M_PI / 180));
        EXPECT_EQ(form.hsc_step.Value(), 7);
        EXPECT_EQ(Model.L2, before);
        EXPECT_EQ(Line().find("locked"), std::string::npos) << Line();
        Release();
        Lock({1});
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
