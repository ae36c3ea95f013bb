// What of a linkage follows a joint, where values are held and where links do not meet.
#include "screens/joint_drag.h"

#include <set>

#include "core/text.h"
#include "tests/screens/joint_hand_fixture.h"

namespace verlink::test {
namespace {

class JointDrag : public JointHand {
   protected:
    static Followed Ask(Joint joint, Spot to, const std::set<int>& held = {}, bool coupler = false, int step = 0) {
        Pull pull;
        pull.joint = joint;
        pull.coupler = coupler;
        pull.to = {to.real(), to.imag()};
        pull.step = step;
        pull.holds = [held](int box) { return held.contains(box); };
        return Follow(pull, Model);
    }
    static double Value(const Followed& answer, int box) {
        for (const auto& value : answer.values)
            if (value.box == box) return value.value;
        return -1e9;
    }
    static std::set<int> Boxes(const Followed& answer) {
        std::set<int> boxes;
        for (const auto& value : answer.values) boxes.insert(value.box);
        return boxes;
    }
    /// In the first position.
    static Spot Crank() { return Where(Joint::kA, Model.RunTable.Theta(0, 0)); }
    static Spot Now(Joint joint) { return Where(joint, 0); }
};

TEST_F(JointDrag, PlacesAreThoseOfTheCirclesThatMeet) {
    for (const int circuit : {1, 2}) {
        Fresh();
        Model.CircuitIndex = circuit;
        Turn_Ground(-25);
        By_Angle(0, 360, 15);
        for (const int step : {0, 5, 17})
            for (const Joint joint : kJoints) {
                const auto place = Place_Of(joint, Model, step);
                ASSERT_TRUE(place);
                EXPECT_LE(std::abs(Spot(place->x, place->y) - Where(joint, Model.RunTable.Theta(step, 0))), 2e-5);
            }
    }
    EXPECT_FALSE(Place_Of(Joint::kA, Model, -1));
    EXPECT_FALSE(Place_Of(Joint::kA, Model, Model.NSteps + 1));
    Model.RunTable.Assembled(3) = false;
    EXPECT_FALSE(Place_Of(Joint::kO4, Model, 3));
}

TEST_F(JointDrag, WhereNothingMovesNothingBecomesAnother) {
    for (const Joint joint : kJoints) {
        const Followed answer = Ask(joint, Now(joint));
        EXPECT_TRUE(answer.values.empty());
        EXPECT_EQ(answer.step, 0);
        EXPECT_FALSE(answer.refused);
    }
}

TEST_F(JointDrag, AHeldDistanceLetsTheCouplerPointTurnAndAHeldAngleLetsItSlide) {
    const Spot to = Now(Joint::kP) + Spot(0.3, 0.2);
    EXPECT_EQ(Boxes(Ask(Joint::kP, to)), (std::set{4, 5}));
    const Spot arm = (to - Now(Joint::kA)) / (Now(Joint::kB) - Now(Joint::kA));
    const Followed turns = Ask(Joint::kP, to, {4});
    EXPECT_EQ(Boxes(turns), std::set{5});
    EXPECT_NEAR(std::remainder(Value(turns, 5) - std::arg(arm) * 180 / M_PI, 360), 0, 0.001);
    const Followed slides = Ask(Joint::kP, to, {5});
    EXPECT_EQ(Boxes(slides), std::set{4});
    const Spot along = std::polar(1.0, Model.Delta * M_PI / 180);
    EXPECT_NEAR(Value(slides, 4), (arm * std::conj(along)).real() * Model.L3, 0.001);
    EXPECT_TRUE(Ask(Joint::kP, to, {4, 5}).values.empty());
}

TEST_F(JointDrag, AHeldCrankTurnsAndAHeldRockerStays) {
    const Followed answer = Ask(Joint::kA, std::polar(2.0, 41 * M_PI / 180), {1});
    EXPECT_TRUE(answer.values.empty());
    EXPECT_EQ(answer.step, 4);
    EXPECT_TRUE(Ask(Joint::kB, Now(Joint::kB) + Spot(0.1, 0.1), {3}).values.empty());
    EXPECT_EQ(Boxes(Ask(Joint::kB, Now(Joint::kB) + Spot(0.1, 0.1), {3}, true)), std::set{2});
    EXPECT_TRUE(Ask(Joint::kB, Now(Joint::kB) + Spot(0.1, 0.1), {2}, true).values.empty());
}

TEST_F(JointDrag, AHeldCoordinateLetsO4GoAlongTheOther) {
    EXPECT_EQ(Boxes(Ask(Joint::kO4, {2.5, 0.4}, {15})), std::set{16});
    EXPECT_EQ(Boxes(Ask(Joint::kO4, {2.5, 0.4}, {16})), std::set{15});
    Model.PolarCoords = true;
    const Followed turns = Ask(Joint::kO4, {2.5, 0.4}, {0});
    EXPECT_EQ(Boxes(turns), std::set{6});
    EXPECT_NEAR(Value(turns, 6), std::atan2(0.4, 2.5) * 180 / M_PI, 0.001);
    const Followed slides = Ask(Joint::kO4, {2.5, 0.4}, {6});
    EXPECT_EQ(Boxes(slides), std::set{0});
    EXPECT_NEAR(Value(slides, 0), 2.5, 0.001);
}

TEST_F(JointDrag, TheRockerIsLongEnoughForTheNearestPointOfTheCircleAboutA) {
    const Spot to = Now(Joint::kB) + Spot(0.2, 0.5);
    const Spot near = Now(Joint::kA) + (to - Now(Joint::kA)) / std::abs(to - Now(Joint::kA)) * double{Model.L3};
    EXPECT_NEAR(Value(Ask(Joint::kB, to), 3), std::abs(near - Now(Joint::kO4)), 0.001);
    const Spot far = Now(Joint::kO4) + (to - Now(Joint::kO4)) / std::abs(to - Now(Joint::kO4)) * double{Model.L4};
    EXPECT_NEAR(Value(Ask(Joint::kB, to, {}, true), 2), std::abs(far - Now(Joint::kA)), 0.001);
}

TEST_F(JointDrag, WhatDoesNotCloseIsToldAndNothingFollows) {
    const Followed answer = Ask(Joint::kO4, {20, 1});
    EXPECT_TRUE(answer.values.empty());
    ASSERT_TRUE(answer.refused);
    EXPECT_NEAR(answer.refused->L1, std::hypot(20, 1), 1e-4);
    EXPECT_EQ(answer.refused->L3, Model.L3);
    // The crank just too long and just short enough for the position shown.
    const double reach = Model.L3 + Model.L4 + Model.L1;
    EXPECT_TRUE(Ask(Joint::kA, reach + 0.01).refused);
    EXPECT_FALSE(Ask(Joint::kA, reach - 0.01).refused);
    By_Angle(0, 90, 10);
    EXPECT_TRUE(Ask(Joint::kA, std::polar(3.0, 200 * M_PI / 180)).values.empty()) << "behind O2 there is no length";
}

TEST_F(JointDrag, AnEndOnItsOwnCentreIsNoLength) {
    const Spot near(0.0005, 0);
    EXPECT_TRUE(Ask(Joint::kB, Now(Joint::kA) + near).values.empty());
    EXPECT_TRUE(Ask(Joint::kB, Now(Joint::kO4) + near, {}, true).values.empty());
}

TEST_F(JointDrag, AcrossTheLineFromAToO4ThePinBIsRefusedUnlessItIsHeld) {
    const Spot A = Now(Joint::kA), axis = (Now(Joint::kO4) - A) / std::abs(Now(Joint::kO4) - A);
    const Spot across = A + std::conj((Now(Joint::kB) - A) / axis) * axis;
    for (const bool coupler : {false, true}) {
        EXPECT_TRUE(Ask(Joint::kB, across, {}, coupler).refused) << coupler;
        EXPECT_FALSE(Ask(Joint::kB, across, {coupler ? 2 : 3}, coupler).refused) << coupler;
    }
}

TEST_F(JointDrag, APullBehindAHeldAngleIsNoDistance) {
    const Spot arm = Now(Joint::kP) - Now(Joint::kA);
    EXPECT_EQ(Value(Ask(Joint::kP, Now(Joint::kA) - arm, {5}), 4), 0);
}

TEST_F(JointDrag, TheEndsOfARunAreAmongThePositionsThatTheCrankTurnsTo) {
    By_Angle(0, 90, 10);
    EXPECT_EQ(Ask(Joint::kA, double{Model.L2}, {}, false, 5).step, 0);
    EXPECT_EQ(Ask(Joint::kA, Spot(0, Model.L2)).step, 9) << "and so is the last";
    EXPECT_EQ(Ask(Joint::kA, std::polar(20.0, 41 * M_PI / 180)).step, 4) << "also where it is refused";
}

TEST_F(JointDrag, ARefusedGroundHasTheAngleOfItsPlace) {
    Turn_Ground(25);
    Model.PolarCoords = false;
    By_Angle(0, 360, 10);
    Model.L4 = 50;
    for (const Spot to : {Spot(1, 0), Spot(0, 1), Spot(2, -2)}) {
        const Followed answer = Ask(Joint::kO4, to);
        ASSERT_TRUE(answer.refused);
        EXPECT_NEAR(answer.refused->Link1Angle, std::arg(to) * 180 / M_PI, 1e-4) << to;
    }
}

TEST_F(JointDrag, AGroundThatTurnsIsRefusedWhereTheCirclesDoNotMeetUnlessItTakesTheCrankAlong) {
    for (const bool cam : {false, true}) {
        Fresh();
        Model.L1 = 4, Model.L2 = 3, Model.L3 = 3, Model.L4 = 2.2;
        Turn_Ground(30);
        if (cam)
            By_Cam(20, 12);
        else
            By_Angle(60, 420, 10);
        ASSERT_TRUE(Model.RunTable.Assembled(0));
        const Spot A = Crank();
        int refused = 0;
        for (int turn = 10; turn < 360; turn += 20) {
            const Spot O4 = std::polar(4.0, (30 + turn) * M_PI / 180);
            const double reach = std::abs(O4 - A);
            const bool apart = !cam && (reach > 5.2 || reach < 0.8);
            EXPECT_EQ(Ask(Joint::kO4, O4).refused.has_value(), apart) << turn << (cam ? " by cam" : " by angle");
            refused += apart ? 1 : 0;
        }
        EXPECT_EQ(refused > 0, !cam);
    }
}

TEST_F(JointDrag, WhereTheLinksJustLieInLineItDoesNotClose) {
    Enter_Linkage(Road::kBoxes, [] {
        Model.PolarCoords = false;
        Model.Link1X = 4, Model.Link1Y = 0;
        Model.L2 = 1, Model.L3 = 2.5, Model.L4 = 2;
    });
    By_Angle(0, 360, 10);
    // The pin A lies at 1, so that O4 may be 0.5 to 4.5 away from there.
    for (const double x : {5.5, 1.5}) EXPECT_TRUE(Ask(Joint::kO4, x).refused) << x;
    for (const double x : {5.499, 1.501}) EXPECT_FALSE(Ask(Joint::kO4, x).refused) << x;
}

TEST_F(JointDrag, TheAngleOfAShortArmHasTheDecimalsThatItsLengthAsksFor) {
    Pull pull;
    pull.fine = 1e-6;
    const Spot along = (Now(Joint::kB) - Now(Joint::kA)) / std::abs(Now(Joint::kB) - Now(Joint::kA));
    const Spot to = Now(Joint::kA) + 0.5 * along * std::polar(1.0, 0.7);
    pull.to = {to.real(), to.imag()};
    // A millionth at half a unit is 0.00011 degrees.
    const Followed answer = Follow(pull, Model);
    ASSERT_EQ(Boxes(answer), (std::set{4, 5}));
    EXPECT_EQ(answer.values[1].box, 5);
    EXPECT_EQ(answer.values[1].decimals, 4);
}

TEST_F(JointDrag, AnglesStayNextToWhatTheyWere) {
    for (const double delta : {-170.0, 175.0, 350.0}) {
        Model.Delta = delta;
        Derive_Linkage(Leading::kInForce);
        By_Angle(0, 360, 10);
        const Spot arm = Now(Joint::kP) - Now(Joint::kA);
        const double turned = Value(Ask(Joint::kP, Now(Joint::kA) + arm * std::polar(1.0, 8 * M_PI / 180)), 5);
        EXPECT_NEAR(turned, delta + 8, 0.001);
    }
    const Spot arm = Now(Joint::kP) - Now(Joint::kA);
    const double turned = Value(Ask(Joint::kP, Now(Joint::kA) + arm * std::polar(1.0, 15 * M_PI / 180)), 5);
    EXPECT_NEAR(turned, 5, 0.001) << "more than a turn is the angle itself";
}

TEST_F(JointDrag, DecimalsAreThoseThatAnEyeCouldTell) {
    EXPECT_EQ(Decimals_For(1), 3);
    EXPECT_EQ(Decimals_For(0.002), 3);
    EXPECT_EQ(Decimals_For(0.0009), 4);
    EXPECT_EQ(Decimals_For(1e-12), 6);
    EXPECT_EQ(Decimals_For(1, 2), 2);
}

TEST_F(JointDrag, RoundStepsAre125) {
    const std::pair<double, double> steps[] = {{0.11, 0.2}, {0.2, 0.2}, {0.21, 0.5}, {3, 5}, {7, 10}, {1, 1}};
    for (const auto& [value, round] : steps) EXPECT_NEAR(Round_Up_1_2_5(value), round, 1e-9) << value;
}

TEST_F(JointDrag, ACouplerPointAtAHasNoAngle) {
    const Spot A(Model.RunTable.PointXY(0, 0, 0), Model.RunTable.PointXY(0, 0, 1));
    EXPECT_EQ(Boxes(Ask(Joint::kP, A)), std::set{4});
    EXPECT_EQ(Value(Ask(Joint::kP, A), 4), 0);
    EXPECT_EQ(Value(Ask(Joint::kP, A + 1.0), 4), 1);
}

TEST_F(JointDrag, AtO2NoDirectionIsAskedForAndTheCrankStays) {
    const Followed answer = Ask(Joint::kA, 0, {}, false, 7);
    EXPECT_EQ(answer.step, 7);
    EXPECT_TRUE(answer.values.empty());
}

TEST_F(JointDrag, TheCrankComesToTheFirstAndTheLastPositionToo) {
    By_Angle(0, 90, 10);
    EXPECT_EQ(Ask(Joint::kA, std::polar(1.2, 2 * M_PI / 180), {}, false, 5).step, 0);
    EXPECT_EQ(Ask(Joint::kA, std::polar(1.2, 88 * M_PI / 180), {}, false, 5).step, 9);
    // The nearest that closes.
    Model.RunTable.Assembled(0) = false;
    EXPECT_EQ(Ask(Joint::kA, std::polar(1.2, 2 * M_PI / 180), {}, false, 5).step, 1);
}

TEST_F(JointDrag, OfPositionsAlikeTheCrankTakesTheOneNextToWhatIsShown) {
    By_Angle(0, 1080, 10);
    const Spot at = std::polar(1.2, 92 * M_PI / 180);
    for (const auto& [shown, taken] : {std::pair{0, 9}, {20, 9}, {40, 45}, {60, 45}, {70, 81}, {108, 81}})
        EXPECT_EQ(Ask(Joint::kA, at, {}, false, shown).step, taken) << shown;
}

}  // namespace
}  // namespace verlink::test
