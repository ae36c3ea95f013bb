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
    static Spot Crank() { return Where(Joint::kA, 0); }
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

TEST_F(JointDrag, BehindItsLineACouplerPointOfALockedAngleComesToA) {
    const Spot A = Now(Joint::kA), arm = Now(Joint::kP) - A;
    EXPECT_EQ(Value(Ask(Joint::kP, A - arm, {5}), 4), 0);
    EXPECT_NEAR(Value(Ask(Joint::kP, A + arm * 0.1, {5}), 4), std::abs(arm) * 0.1, 0.001);
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

TEST_F(JointDrag, BeyondTheLineFromAToO4NeitherRockerNorCouplerFollowsUnlessItIsHeld) {
    const Spot A = Now(Joint::kA), axis = Now(Joint::kO4) - A;
    const Spot across = A + std::conj((Now(Joint::kB) - A) / axis) * axis;
    for (const bool coupler : {false, true}) {
        const Followed answer = Ask(Joint::kB, across, {}, coupler);
        EXPECT_TRUE(answer.refused);
        EXPECT_TRUE(answer.values.empty());
        EXPECT_FALSE(Ask(Joint::kB, across, {coupler ? 2 : 3}, coupler).refused) << "it does not move there";
    }
}

TEST_F(JointDrag, OnItsSideOfTheLineFromAToO4ARockerFollowsAtAnyAngleOfTheCrank) {
    By_Angle(0, 360, 30);
    for (int step = 0; step <= 12; ++step) {
        const double theta = Model.RunTable.Theta(step, 0);
        const Spot A = Where(Joint::kA, theta), B = Where(Joint::kB, theta), axis = Where(Joint::kO4, theta) - A;
        for (const double turn : {-0.02, 0.02})
            EXPECT_FALSE(Ask(Joint::kB, A + (B - A) * std::polar(1.0, turn), {}, false, step).refused) << step;
        const Spot across = A + std::conj((B - A) / axis * std::polar(1.0, 0.02)) * axis;
        EXPECT_TRUE(Ask(Joint::kB, across, {}, false, step).refused) << step;
    }
}

TEST_F(JointDrag, AHandOnTheMiddleOfACircleSaysNothingOfWhereOnItAJointIs) {
    const Followed rocker = Ask(Joint::kB, Now(Joint::kA)), coupler = Ask(Joint::kB, Now(Joint::kO4), {}, true);
    for (const Followed& answer : {rocker, coupler}) {
        EXPECT_TRUE(answer.values.empty());
        EXPECT_FALSE(answer.refused);
    }
}

TEST_F(JointDrag, ALinkageThatIsRefusedTellsTheGroundThatWasAskedFor) {
    Turn_Ground(30);
    Model.PolarCoords = false;
    By_Angle(0, 360, 10);
    Model.L3 = 20;
    const std::pair<Spot, double> grounds[] = {{{1, 0}, 0}, {{0, 1}, 90}, {{-1, -1}, -135}};
    for (const auto& ground : grounds) {
        const Followed answer = Ask(Joint::kO4, ground.first);
        ASSERT_TRUE(answer.refused);
        EXPECT_NEAR(answer.refused->L1, std::abs(ground.first), 1e-5);
        EXPECT_NEAR(answer.refused->Link1Angle, ground.second, 1e-4);
    }
}

/// Where O4 may go: as long as a circle about A and one about it meet. A keeps its place, but for a cam, which turns
/// with the ground.
TEST_F(JointDrag, O4GoesAsFarAsTheCirclesMeet) {
    for (const bool cam : {false, true}) {
        Fresh();
        Turn_Ground(-40);
        Model.PolarCoords = true;
        cam ? By_Cam(20, 12) : By_Angle(0, 360, 12);
        constexpr int kStep = 5;
        const Spot A = Where(Joint::kA, Model.RunTable.Theta(kStep, 0));
        int followed = 0, refused = 0;
        for (double angle = -180; angle < 180; angle += 7)
            for (double length = 0.5; length < 8; length += 0.45) {
                const Spot to = std::polar(length, angle * M_PI / 180);
                const double turned = cam ? angle - Model.Link1Angle : 0;
                const double reach = std::abs(to - A * std::polar(1.0, turned * M_PI / 180));
                const double least = std::abs(Model.L3 - Model.L4), most = Model.L3 + Model.L4;
                if (std::min(std::abs(reach - least), std::abs(reach - most)) < 0.02) continue;
                const bool closes = reach > least && reach < most;
                EXPECT_EQ(!Ask(Joint::kO4, to, {}, false, kStep).refused, closes) << cam << ' ' << to;
                ++(closes ? followed : refused);
            }
        EXPECT_GT(followed, 100);
        EXPECT_GT(refused, 100);
    }
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

}  // namespace
}  // namespace verlink::test
