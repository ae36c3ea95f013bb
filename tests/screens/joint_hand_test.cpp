// The hand on the joints: what lights up, what follows, what stays.
#include <algorithm>

#include "core/numeric.h"
#include "core/parameters.h"
#include "core/runs.h"
#include "core/text.h"
#include "dynamics/units.h"
#include "platform/deed.h"
#include "screens/linkage_screen.h"
#include "tests/screens/joint_hand_fixture.h"

namespace verlink::test {
namespace {

using platform::Grip;

TEST_F(JointHand, AJointLightsUpUnderThePointerAndThePointerBecomesAHand) {
    After_First_Picture([&] {
        for (const Joint joint : kJoints) {
            Hover(Where(joint) + 6 * Pixel());
            ASSERT_TRUE(Picture().Lit.Get());
            EXPECT_NEAR(Picture().Lit.Get()->x, Where(joint).real(), Pixel());
            EXPECT_NEAR(Picture().Lit.Get()->y, Model.FlipSum - Where(joint).imag(), Pixel());
            EXPECT_FALSE(Picture().Lit.Get()->held);
            EXPECT_EQ(Picture().Pointer, Grip::kOpenHand);
            Hover(Where(joint) + 12 * Pixel() * Spot(0, -1));
            EXPECT_FALSE(Picture().Lit.Get());
            EXPECT_EQ(Picture().Pointer, Grip::kArrow);
        }
        Hover(Where(Joint::kB));
        Picture().OnLeave();
        EXPECT_FALSE(Picture().Lit.Get());
        EXPECT_TRUE(Model.SavedFlag);
    });
}

TEST_F(JointHand, WithoutLinksOnlyTheGroundPivotCanBeTaken) {
    After_First_Picture([&] {
        form.chk_Showlinks.Value = false;
        Press(form, "cmd_Reset");
        for (const Joint joint : {Joint::kA, Joint::kB, Joint::kP}) EXPECT_FALSE(Press_At(Where(joint)));
        EXPECT_TRUE(Press_At(Where(Joint::kO4)));
    });
}

TEST_F(JointHand, NothingCanBeTakenWhereNoRunIsShown) {
    After_First_Picture([&] {
        const Spot P = Where(Joint::kP);
        Enter(form, "txt_Linkout", 1, "1.2");
        EXPECT_FALSE(form.cmd_Animate.Enabled);
        Hover(P);
        EXPECT_FALSE(Picture().Lit.Get());
        EXPECT_FALSE(Press_At(P));
    });
}

/// Drags each joint of the linkage as it stands around at some positions, and looks whether a pin is drawn where the
/// pointer is after each move.
class Everywhere : public JointHand {
   protected:
    void Drag_All(const char* where, std::initializer_list<int> steps) {
        before_ = Model;
        After_First_Picture([&] {
            for (const bool autoscale : {true, false}) {
                form.chk_autoscale.Value = autoscale;
                for (const int step : steps)
                    for (const Joint joint : {Joint::kP, Joint::kO4}) {
                        SCOPED_TRACE(std::string(where) + " joint " + Text_Of(static_cast<int>(joint)) + " step " +
                                     Text_Of(step));
                        As_Before(step);
                        Drag_Around(joint, autoscale);
                    }
                for (const int step : steps) {
                    SCOPED_TRACE(std::string(where) + " step " + Text_Of(step));
                    As_Before(step);
                    Drag_Along(Joint::kA, Where(Joint::kA), 0);
                    As_Before(step);
                    Drag_On_Circle(Where(Joint::kA), 0);
                    As_Before(step);
                    Drag_On_Circle(Where(Joint::kO4), kControl);
                }
                As_Before(0);
            }
        });
    }

   private:
    /// The linkage as it was at the beginning, at a position.
    void As_Before(int step) {
        Enter_Linkage(Road::kDrag, [&] { static_cast<Geometry&>(Model) = before_; });
        form.Run_Dragged(step);
        EXPECT_EQ(form.hsc_step.Value(), step);
    }
    Geometry before_;

    void Drag_Around(Joint joint, bool autoscale) {
        const Spot start = Where(joint);
        const int step = form.hsc_step.Value();
        const double left = Picture().Drawing().Left(), right = Picture().Drawing().Right(), pixel = Pixel();
        ASSERT_TRUE(Press_At(start));
        for (const Spot by : {Spot(5, 1), Spot(17, 9), Spot(-8, 13), Spot(-21, -16), Spot(3, -2)}) {
            const Spot at = start + by * pixel;
            Move(at);
            EXPECT_LE(Off(at), 1);
            EXPECT_LE(std::abs(Where(joint) - at), pixel);
            EXPECT_EQ(form.hsc_step.Value(), step);
            // The window is frozen.
            EXPECT_EQ(Picture().Drawing().Left(), left);
            EXPECT_EQ(Picture().Drawing().Right(), right);
        }
        Move(start + Spot(60, 10) * pixel);
        Release();
        if (!autoscale) {
            EXPECT_EQ(Picture().Drawing().Right(), right);
        } else {
            // And fits again.
            const double fitted = Picture().Drawing().Right();
            Press(form, "cmd_Reset");
            EXPECT_EQ(Picture().Drawing().Right(), fitted);
        }
    }
    void Drag_Along(Joint joint, Spot ray, int keys) {
        const Spot start = Where(joint);
        const double pixel = Pixel();
        ASSERT_TRUE(Press_At(start, keys));
        for (const double by : {4.0, -11.0, 7.0}) {
            const Spot at = start + ray / std::abs(ray) * by * pixel;
            Move(at, keys);
            EXPECT_LE(Off(at), 1);
        }
        Release();
    }
    void Drag_On_Circle(Spot centre, int keys) {
        const Spot start = Where(Joint::kB);
        const double pixel = Pixel();
        ASSERT_TRUE(Press_At(start));
        for (const double by : {4.0, -9.0, 6.0}) {
            const Spot at = centre + (start - centre) * std::polar(1.0, by * pixel / std::abs(start - centre));
            Move(at, keys);
            EXPECT_LE(Off(at), 1);
        }
        Release();
    }
};

TEST_F(Everywhere, InAllUnits) {
    const double scale[] = {0, 1, 1, 0.1, 0.05, 0.002};
    for (int units = 1; units <= 5; ++units) {
        Fresh();
        Use_Units(units);
        Scale_Linkage(scale[units]);
        By_Angle(0, 360, 5);
        Drag_All(("units " + Text_Of(units)).c_str(), {0, 27});
    }
}

TEST_F(Everywhere, OnBothCircuits) {
    for (const int circuit : {1, 2}) {
        Fresh();
        Model.CircuitIndex = circuit;
        Derive_Linkage(Leading::kInForce);
        By_Angle(0, 360, 10);
        Drag_All(circuit == 1 ? "open" : "crossed", {0, 13, 36});
    }
}

TEST_F(Everywhere, OnATurnedGroundInBothForms) {
    for (const double angle : {30.0, -115.0})
        for (const bool polar : {true, false}) {
            Fresh();
            Turn_Ground(angle);
            Model.PolarCoords = polar;
            By_Angle(0, 360, 10);
            Drag_All(polar ? "polar" : "cartesian", {0, 20});
        }
}

TEST_F(Everywhere, ByTimeAndByCam) {
    Fresh();
    By_Time(0, 1, 0.1);
    Drag_All("time", {0, 4});
    Fresh();
    By_Cam(20, 12);
    Model_Saved();
    Drag_All("cam", {0, 7});
}

TEST_F(Everywhere, ByAnotherStageAndByCamOverATurnedGround) {
    for (const bool polar : {true, false}) {
        Fresh();
        Turn_Ground(25);
        Model.PolarCoords = polar;
        By_Another_Stage(20, 12);
        Drag_All(polar ? "stage, polar" : "stage, cartesian", {0, 7});
    }
    Fresh();
    Turn_Ground(-40);
    By_Cam(20, 12);
    Drag_All("cam, turned", {0, 7});
}

TEST_F(JointHand, AStillHandChangesNothing) {
    After_First_Picture([&] {
        Show_Step(13);
        for (const Joint joint : kJoints) {
            const std::string before = What_Counts();
            const auto drawn = Seen(Picture().Drawing());
            ASSERT_TRUE(Press_At(Where(joint) + 5 * Pixel()));
            Release();
            EXPECT_EQ(What_Counts(), before);
            EXPECT_TRUE(Model.SavedFlag);
            EXPECT_EQ(Seen(Picture().Drawing()), drawn);
            EXPECT_EQ(form.hsc_step.Value(), 13);
        }
    });
}

TEST_F(JointHand, OnceMovedAStillHandStaysWhereItIs) {
    After_First_Picture([&] {
        for (const Joint joint : kJoints) {
            const Spot at = Where(joint) + Spot(9, 4) * Pixel();
            ASSERT_TRUE(Press_At(Where(joint)));
            Move(at);
            const std::string once = What_Counts();
            for (int i = 0; i < 10; ++i) Move(at);
            EXPECT_EQ(What_Counts(), once);
            Release();
            EXPECT_EQ(What_Counts(), once);
        }
    });
}

TEST_F(JointHand, TheCrankTurnsTheRunToThePositionThatPointsNearestToTheHand) {
    By_Angle(0, 360, 10);
    After_First_Picture([&] {
        Press_At(Where(Joint::kA));
        Move(std::polar(1.115, 93 * M_PI / 180));
        EXPECT_EQ(form.hsc_step.Value(), 9);
        EXPECT_EQ(Number(), "90.0");
        EXPECT_NEAR(Model.L2, 1.115 * std::cos(3 * M_PI / 180), 0.0006);
        Move(std::polar(1.115, -48 * M_PI / 180));
        EXPECT_EQ(Number(), "310.0");
        Release();
        EXPECT_EQ(form.hsc_step.Value(), 31);
        EXPECT_EQ(Model.CurrentStep, 32);
    });
}

TEST_F(JointHand, ARunOfTwoTurnsGoesOnIntoTheSecond) {
    By_Angle(0, 720, 10);
    After_First_Picture([&] {
        Show_Step(35);
        Press_At(Where(Joint::kA));
        Move(std::polar(1.115, 5.2 * M_PI / 180));
        EXPECT_EQ(form.hsc_step.Value(), 37);
        Release();
    });
}

TEST_F(JointHand, OnePositionStaysAtItsAngle) {
    Model.Calctype = 1;
    Model.ThetaZero = 40;
    Integer result;
    Calc_Setup(1, result);
    Inside([&] {
        Press(form, "cmd_Reset");
        Press_At(Where(Joint::kA));
        Move(std::polar(1.5, 70 * M_PI / 180));
        EXPECT_EQ(Model.ThetaZero, 40);
        EXPECT_NEAR(Model.L2, 1.5 * std::cos(30 * M_PI / 180), 0.0006);
        EXPECT_EQ(Model.CurrentStep, 0);
        Release();
    });
}

TEST_F(JointHand, ADragAcrossALimitKeepsTheLastLinkageThatClosesWithoutAWord) {
    std::vector<double> refused;
    After_First_Picture([&] {
        form.OnRefused = [&](const Geometry& linkage, int) { refused.push_back(linkage.L1); };
        Press_At(Where(Joint::kO4));
        double last = 0;
        for (double x = 2.7; x < 9; x += 0.1) {
            Move({x, 0.3});
            ASSERT_TRUE(Model.RunStands);
            ASSERT_TRUE(Model.RunTable.Assembled(0));
            if (refused.empty()) last = x;
        }
        EXPECT_FALSE(refused.empty());
        EXPECT_NEAR(refused.front(), std::hypot(last + 0.1, 0.3), 0.001);
        // By the circles: at the last one they meet still.
        EXPECT_NEAR(Model.Link1X, last, 0.0006);
        EXPECT_LE(std::abs(Where(Joint::kO4) - Where(Joint::kA)), Model.L3 + Model.L4);
        EXPECT_GE(std::abs(Where(Joint::kO4) + 0.1 - Where(Joint::kA)), Model.L3 + Model.L4);
        // And comes back with the hand.
        Move({2.5, 0.3});
        EXPECT_LE(Off({2.5, 0.3}), 1);
        Release();
        EXPECT_TRUE(form.cmd_Animate.Enabled);
    });
}

TEST_F(JointHand, TheRockerDoesNotSwingToTheOtherCircuit) {
    After_First_Picture([&] {
        const Spot A = Where(Joint::kA), O4 = Where(Joint::kO4), B = Where(Joint::kB);
        const Spot axis = (O4 - A) / std::abs(O4 - A);
        Press_At(B);
        const Single before = Model.L4;
        Move(A + std::conj((B - A) / axis) * axis);
        EXPECT_EQ(Model.L4, before);
        EXPECT_LE(Off(B), 1);
        Release();
    });
}

TEST_F(JointHand, WhatIsTypedMeanwhileIsTakenAndStays) {
    After_First_Picture([&] {
        const Spot P = Where(Joint::kP);
        Press_At(P);
        Move(P + Spot(20, 10) * Pixel());
        const double angle = Model.Delta;
        // The first digit goes to the box of the joint.
        Key("2");
        EXPECT_EQ(form.Focus(), &form.txt_Linkout[4]);
        EXPECT_EQ(Text_In(4), "2");
        form.txt_Linkout[4].Type("2.5");
        Move(P + Spot(-30, 40) * Pixel());
        EXPECT_EQ(Model.Rpa, 2.5);
        EXPECT_NE(Model.Delta, angle);
        EXPECT_EQ(Text_In(4), "2.5");
        Move(P + Spot(10, 40) * Pixel());
        EXPECT_EQ(Model.Rpa, 2.5);
        Release();
        // And follows the next drag again.
        Press_At(Where(Joint::kP));
        Move(P);
        EXPECT_NE(Model.Rpa, 2.5);
        Release();
    });
}

TEST_F(JointHand, TheReturnKeyTakesWhatIsTypedWhileTheJointIsHeld) {
    After_First_Picture([&] {
        Press_At(Where(Joint::kP));
        Move(Where(Joint::kP) + Spot(10, 0) * Pixel());
        Enter(form, "txt_Linkout", 1, "1.25");
        EXPECT_EQ(Model.L2, 1.25);
        EXPECT_TRUE(Model.RunStands);
        EXPECT_TRUE(form.cmd_Animate.Enabled);
        const Spot at = Where(Joint::kP) + Spot(0, 12) * Pixel();
        Move(at);
        EXPECT_EQ(Model.L2, 1.25);
        EXPECT_LE(Off(at), 1);
        // A value of the joint itself stays as it was typed, too.
        Enter(form, "txt_Linkout", 4, "2.5");
        for (const Spot by : {Spot(-30, 40), Spot(10, 40)}) {
            Move(at + by * Pixel());
            EXPECT_EQ(Model.Rpa, 2.5);
        }
        Release();
    });
}

TEST_F(JointHand, TheLightFollowsAJointThatIsHeldToAnotherPosition) {
    After_First_Picture([&] {
        Press_At(Where(Joint::kP));
        Move(Where(Joint::kP) + Spot(10, 0) * Pixel());
        for (const int step : {13, 20}) {
            Show_Step(step);
            const auto lit = Picture().Lit.Get();
            ASSERT_TRUE(lit);
            EXPECT_TRUE(lit->held);
            EXPECT_NEAR(lit->x, Where(Joint::kP).real(), Pixel()) << step;
            EXPECT_NEAR(lit->y, Model.FlipSum - Where(Joint::kP).imag(), Pixel()) << step;
        }
        Release();
    });
}

TEST_F(JointHand, BoxesFollow) {
    After_First_Picture([&] {
        Press_At(Where(Joint::kO4));
        Move({2.5, 0.25});
        EXPECT_EQ(Text_In(15), "2.5");
        EXPECT_EQ(Text_In(16), "0.25");
        EXPECT_EQ(Text_In(0), Text_Of(FNRound(std::hypot(2.5, 0.25), Model.DecLengthShown)));
        Release();
    });
}

TEST_F(JointHand, AltAndAShiftKeyThatCameLaterSnapToRoundValues) {
    After_First_Picture([&] {
        const double round = Round_Up_1_2_5(10 * Pixel());
        for (const int key : {kAlt, kShift}) {
            Press_At(Where(Joint::kP));
            Move(Where(Joint::kP) + Spot(23, 11) * Pixel(), key);
            EXPECT_NEAR(std::remainder(Model.Rpa, round), 0, 1e-6);
            EXPECT_NEAR(std::remainder(Model.Delta, 1), 0, 1e-5);
            Release();
            Press_At(Where(Joint::kO4));
            Move({2.4567, 0.1234}, key);
            EXPECT_NEAR(std::remainder(Model.Link1X, round), 0, 1e-6);
            EXPECT_NEAR(std::remainder(Model.Link1Y, round), 0, 1e-6);
            Release();
            Press_At(Where(Joint::kB));
            Move(Where(Joint::kB) + Spot(9, 2) * Pixel(), key);
            EXPECT_NEAR(std::remainder(Model.L4, round), 0, 1e-6);
            Release();
        }
    });
}

TEST_F(JointHand, UnderTheGlassAJointFollowsWithinAMagnifiedPixel) {
    After_First_Picture([&] {
        Picture().Through = platform::Glass{200, 0.4, 0.6};
        const double pixel = Pixel();
        EXPECT_LT(pixel, 2e-4);
        for (const Joint joint : {Joint::kP, Joint::kO4}) {
            const Spot at = Where(joint) + Spot(25, -14) * pixel;
            ASSERT_TRUE(Press_At(Where(joint)));
            Move(at);
            EXPECT_LE(Off(at), 1);
            Release();
        }
        // What is far for the glass is not under the pointer.
        EXPECT_FALSE(Press_At(Where(Joint::kP) + 20 * pixel));
    });
}

TEST_F(JointHand, LettersTakeAJointAndArrowsMoveIt) {
    After_First_Picture([&] {
        const Spot P = Where(Joint::kP);
        Key("P");
        ASSERT_TRUE(Picture().Lit.Get());
        EXPECT_TRUE(Picture().Lit.Get()->held);
        const double pixel = Pixel();
        for (int i = 0; i < 3; ++i) Key("Right");
        Key("Up");
        EXPECT_LE(std::abs(Where(Joint::kP) - (P + Spot(3, 1) * pixel)), pixel / 2);
        Key("Left", kControl);
        Key("Down", kShift);
        EXPECT_LE(std::abs(Where(Joint::kP) - (P + Spot(-7, -9) * pixel)), pixel / 2);
        Key("Esc");
        EXPECT_FALSE(Picture().Lit.Get());
        const std::string after = What_Counts();
        Key("Right");
        EXPECT_EQ(What_Counts(), after);
        EXPECT_EQ(form.hsc_step.Value(), 0);
    });
}

TEST_F(JointHand, LettersAndTheWalkComeToEachJoint) {
    After_First_Picture([&] {
        const auto lit = [&] { return Spot(Picture().Lit.Get()->x, Model.FlipSum - Picture().Lit.Get()->y); };
        Key("J");
        ASSERT_TRUE(Picture().Lit.Get());
        EXPECT_LE(std::abs(lit() - Where(Joint::kA)), Pixel()) << "the walk begins at the crank pin";
        Key("Esc");
        const std::pair<const char*, Joint> letters[] = {
            {"A", Joint::kA}, {"B", Joint::kB}, {"C", Joint::kB}, {"P", Joint::kP}, {"O", Joint::kO4}};
        for (const auto& [letter, joint] : letters) {
            Key(letter);
            ASSERT_TRUE(Picture().Lit.Get());
            EXPECT_LE(std::abs(lit() - Where(joint)), Pixel()) << letter;
        }
        for (const Joint joint : {Joint::kA, Joint::kB, Joint::kP, Joint::kO4, Joint::kA}) {
            Key("J");
            EXPECT_LE(std::abs(lit() - Where(joint)), Pixel());
        }
        const Single L3 = Model.L3, L4 = Model.L4;
        Key("C");
        Key("Up", kShift);
        EXPECT_NE(Model.L3, L3);
        EXPECT_EQ(Model.L4, L4);
        Key("B");
        Key("Up", kShift);
        EXPECT_NE(Model.L4, L4);
        Key("Esc");
    });
}

TEST_F(JointHand, TheArrowsStepTheRunWhenNoJointIsInHand) {
    After_First_Picture([&] {
        const auto takes = [&](const std::string& key) {
            const auto keys = platform::Single_Keys(Picture().Keys);
            return std::find(keys.begin(), keys.end(), key) != keys.end();
        };
        EXPECT_FALSE(takes("Right"));
        for (const char* letter : {"A", "B", "C", "P", "O", "J"}) EXPECT_TRUE(takes(letter)) << letter;
        Key("P");
        EXPECT_TRUE(takes("Right"));
        Picture().OnLostFocus();
        EXPECT_FALSE(takes("Right"));
        EXPECT_FALSE(Picture().Lit.Get());
    });
}

}  // namespace
}  // namespace verlink::test
