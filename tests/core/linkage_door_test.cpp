// The roads by which a linkage comes in: what follows from it, what falls with the one before, and the way back.
#include "core/linkage_door.h"

#include <cmath>
#include <vector>

#include "core/results.h"
#include "core/results_turns.h"
#include "tests/core/linkages.h"

namespace verlink::test {

namespace {

class LinkageDoor : public Fixture {
   protected:
    LinkageDoor() {
        Take_Crank_Rocker();
        Model.PolarCoords = true;
        Derive_Linkage(Leading::kPolar);
    }

    /// A driven linkage from a file that came from synthesis, calculated and saved, of which the third cognate is
    /// shown.
    static void Take_A_Past(bool edited) {
        Run_Holds();
        Forces_Hold();
        Model_Saved();
        Model.DiskFile = Model.LinkDriven = Model.CamDriven = Model.Synthesized = true;
        Model.Calctype = 5;
        Model.CognatesDue = false;
        Model.CognateNumber = 3;
        Model.CognateEdit = edited;
        Model.Grashof_Code = "?";
    }
    static void Enter_Another(Road road) {
        Enter_Linkage(road, [] { Model.L2 = Model.L2 == 1.0 ? 1.25 : 1.0; });
    }
    static double Radians(double degrees) { return degrees * kDegToRad; }
    /// Link 1 in both forms, its place off by so much of the length, as a file may have it; what then counts.
    static void Read_Both(double angle, double length, double off) {
        Model.PolarCoords = true;
        Enter_Linkage(Road::kFile, [&] {
            Model.L1 = length;
            Model.Link1Angle = angle;
            Model.Link1AngleRad = Radians(angle);
            Model.Link1X = length * std::cos(Radians(angle));
            Model.Link1Y = length * std::sin(Radians(angle)) + off;
        });
    }
};

struct Expected {
    Road road;
    bool disk, drive, synthesized;    ///< stay
    bool cognates, of_an_edited_one;  ///< follow
    bool classified;
};

// A file brings what it was with it; examples and a new model bring nothing of the one before.
const Expected kExpected[] = {
    {Road::kBoxes, true, true, true, true, false, true},     {Road::kDrag, true, true, true, true, true, true},
    {Road::kFile, true, true, true, true, true, false},      {Road::kExample, false, false, false, true, true, false},
    {Road::kImport, true, true, false, true, false, true},   {Road::kSynthesis, false, false, true, true, true, true},
    {Road::kCognate, true, true, false, false, false, true}, {Road::kUnits, true, true, true, false, false, true},
    {Road::kNew, false, false, false, true, true, false},
};

}  // namespace

TEST_F(LinkageDoor, EachRoadLeavesOfThePastWhatIsStillSo) {
    for (const Expected& expected : kExpected)
        for (const bool edited : {false, true}) {
            SCOPED_TRACE(static_cast<int>(expected.road));
            Take_A_Past(edited);
            Enter_Another(expected.road);
            EXPECT_FALSE(Model.RunStands || Model.Calculated || Model.DynamicsDone || Model.SavedFlag);
            EXPECT_EQ(Model.DiskFile, expected.disk);
            EXPECT_EQ(Model.LinkDriven, expected.drive);
            EXPECT_EQ(Model.CamDriven, expected.drive);
            EXPECT_EQ(Model.Calctype, expected.drive ? 5 : 3);
            EXPECT_EQ(Model.Synthesized, expected.synthesized);
            const bool follow = edited ? expected.of_an_edited_one : expected.cognates;
            EXPECT_EQ(Model.CognatesDue, follow);
            EXPECT_EQ(Model.CognateNumber, follow ? 1 : 3);
            EXPECT_EQ(Model.CognateEdit, edited && !follow);
            EXPECT_EQ(Model.Grashof_Code, expected.classified ? "Y" : "?");
        }
}

TEST_F(LinkageDoor, ARunThatIsNotDrivenKeepsItsKind) {
    for (const int type : {1, 2, 3, 4}) {
        Model.Calctype = type;
        Enter_Another(Road::kExample);
        EXPECT_EQ(Model.Calctype, std::min(type, 3));
    }
}

TEST_F(LinkageDoor, TheSameLinkageByBoxesOrADragLeavesAllThatIsKnownOfIt) {
    for (const Road road : {Road::kBoxes, Road::kDrag}) {
        Take_A_Past(true);
        const Single digits = Model.DeltaRad + 1e-6;  // as a file had them
        Model.DeltaRad = digits;
        const int turns = Results_Turns();
        Enter_Linkage(road, [] { Model.PolarCoords = false; });
        EXPECT_TRUE(Model.RunStands && Model.Calculated && Model.DynamicsDone && Model.SavedFlag);
        EXPECT_FALSE(Model.CognatesDue);
        EXPECT_EQ(Model.DeltaRad, digits);
        EXPECT_EQ(Results_Turns(), turns);
        EXPECT_FALSE(Model.PolarCoords) << "the form in which link 1 is typed is no part of the linkage";
        Model.PolarCoords = true;
    }
    for (const Expected& expected : kExpected) {
        if (expected.road == Road::kBoxes || expected.road == Road::kDrag) continue;
        Take_A_Past(true);
        Enter_Linkage(expected.road, [] {});
        EXPECT_FALSE(Model.RunStands || Model.SavedFlag) << "more than a linkage may have come with it";
    }
}

TEST_F(LinkageDoor, AnyOtherLengthAngleOrCircuitMakesItAnotherLinkage) {
    for (const bool polar : {true, false}) {
        std::vector<Single Geometry::*> fields{&Geometry::L2, &Geometry::L3, &Geometry::L4, &Geometry::Rpa,
                                               &Geometry::Delta};
        for (const auto field : polar ? std::vector{&Geometry::L1, &Geometry::Link1Angle}
                                      : std::vector{&Geometry::Link1X, &Geometry::Link1Y})
            fields.push_back(field);
        for (const auto field : fields) {
            Model.PolarCoords = polar;
            Take_A_Past(false);
            Enter_Linkage(Road::kBoxes, [field] { Model.*field += 0.01; });
            EXPECT_FALSE(Model.RunStands);
        }
    }
    Take_A_Past(false);
    Enter_Linkage(Road::kBoxes, [] { Model.CircuitIndex = 2; });
    EXPECT_FALSE(Model.RunStands);
    EXPECT_EQ(Model.CircuitSign, 1);
    EXPECT_EQ(Model.CircuitName, "Crossed");
}

TEST_F(LinkageDoor, WhatFollowsFromALinkageIsDerived) {
    Enter_Linkage(Road::kBoxes, [] {
        Model.L1 = 4;
        Model.Link1Angle = 30;
        Model.Delta = -90;
        Model.CircuitIndex = 7;
    });
    EXPECT_NEAR(Model.Link1X, 4 * std::sqrt(0.75), 1e-6);
    EXPECT_NEAR(Model.Link1Y, 2, 1e-6);
    EXPECT_NEAR(Model.Link1AngleRad, Radians(30), 1e-7);
    EXPECT_NEAR(Model.Link1LocalX, 4, 1e-6);
    EXPECT_NEAR(Model.Link1LocalY, 0, 1e-6);
    EXPECT_NEAR(Model.DeltaRad, Radians(-90), 1e-7);
    EXPECT_EQ(Model.DeltaStr, "-90");
    EXPECT_EQ(Model.CircuitName, "Crossed") << "whatever is not the first circuit is the second";
    EXPECT_EQ(Model.LinkArray(1), 4);
    EXPECT_EQ(Model.LinkArray(5), Model.Link1X);
    Model.PolarCoords = false;
    Enter_Linkage(Road::kBoxes, [] {
        Model.Link1X = -3;
        Model.Link1Y = 4;
    });
    EXPECT_EQ(Model.L1, 5);
    EXPECT_NEAR(Model.Link1Angle, 126.8699, 1e-4);
    EXPECT_NEAR(Model.Link1AngleRad, Radians(126.8699), 1e-6);
    EXPECT_NEAR(Model.Link1LocalX, 5, 1e-6);
    EXPECT_NEAR(Model.Link1LocalY, 0, 1e-6);
}

TEST_F(LinkageDoor, LengthAndAngleLeadOnTheRoadsThatBringThemAlsoWhereThePlaceIsTyped) {
    for (const Road road : {Road::kExample, Road::kSynthesis, Road::kCognate, Road::kNew}) {
        Model.PolarCoords = false;
        Enter_Linkage(road, [] {
            Model.L1 = 2;
            Model.Link1Angle = 90;
            Model.Link1X = Model.Link1Y = 3e38;
        });
        EXPECT_NEAR(Model.Link1X, 0, 1e-6);
        EXPECT_NEAR(Model.Link1Y, 2, 1e-6);
    }
}

TEST_F(LinkageDoor, TwoFormsOfAFileStandWhileTheyAreTheSamePlaceToFourDigits) {
    const auto stands = [](double angle, double length, double off) {
        Read_Both(angle, length, off);
        return std::abs(Model.Link1Y - length * std::sin(Radians(angle))) > std::abs(off) / 2;
    };
    EXPECT_TRUE(stands(0, 10, 0.95e-3));
    EXPECT_TRUE(stands(0, 10, -0.95e-3));
    EXPECT_FALSE(stands(0, 10, 1.1e-3));
    EXPECT_TRUE(stands(0, 0, 0.95e-10)) << "without a length to a millionth of one";
    EXPECT_FALSE(stands(0, 0, 1.1e-10));
    // The digits of a single angle of a hundred turns leave that much open.
    EXPECT_TRUE(stands(36000, 10, 1.3e-2));
    EXPECT_FALSE(stands(36000, 10, 1.45e-2));
    Model.PolarCoords = true;
    Enter_Linkage(Road::kFile, [] {
        Model.L1 = 10;
        Model.Link1Angle = Model.Link1AngleRad = 0;
        Model.Link1X = 10.0012;
        Model.Link1Y = 0;
    });
    EXPECT_EQ(Model.Link1X, 10);
}

TEST_F(LinkageDoor, WhereTwoFormsOfAFileDifferTheOneInForceCounts) {
    Model.PolarCoords = false;
    Enter_Linkage(Road::kFile, [] {
        Model.L1 = 10;
        Model.Link1Angle = Model.Link1AngleRad = 0;
        Model.Link1X = 0;
        Model.Link1Y = 4;
    });
    EXPECT_EQ(Model.L1, 4);
    EXPECT_EQ(Model.Link1Angle, 90);
}

TEST_F(LinkageDoor, TheAngleInRadiansOfAFileStandsWhileItIsTheOneInDegreesButForItsDigits) {
    for (const double apart : {1.8e-6, -1.8e-6, 2.3e-6, -2.3e-6}) {
        const double typed = Radians(60) * (1 + apart);
        Enter_Linkage(Road::kFile, [&] {
            Model.L1 = 2;
            Model.Link1Angle = 60;
            Model.Link1X = 1;
            Model.Link1Y = std::sqrt(3.0);
            Model.Link1AngleRad = typed;
        });
        EXPECT_EQ(Model.Link1AngleRad, std::abs(apart) < 2e-6 ? Single(typed) : Single(Radians(60)));
    }
}

TEST_F(LinkageDoor, AFailureOnTheWayLeavesTheRecordAsItWas) {
    for (const Road road : {Road::kBoxes, Road::kDrag, Road::kFile, Road::kExample, Road::kUnits}) {
        Take_A_Past(true);
        const bool alone = road == Road::kBoxes || road == Road::kDrag;
        const Single length = Model.L2;
        EXPECT_FAILURE(6, Enter_Linkage(road, [alone] {
                           Model.L2 = 9;
                           if (!alone) Model.SynTheta = 77;
                           platform::Raise(platform::kOverflow);
                       }));
        EXPECT_EQ(Model.L2, length);
        EXPECT_NE(Model.SynTheta, 77);
        EXPECT_TRUE(Model.RunStands && Model.SavedFlag && Model.DiskFile && Model.LinkDriven && Model.Synthesized);
        EXPECT_EQ(Model.CognateNumber, 3);
    }
}

TEST_F(LinkageDoor, APivotFurtherThanAnyNumberIsAFailure) {
    Model.PolarCoords = false;
    const Single x = Model.Link1X;
    EXPECT_FAILURE(6, Enter_Linkage(Road::kBoxes, [] { Model.Link1X = Model.Link1Y = 3e38; }));
    EXPECT_EQ(Model.Link1X, x);
}

// What was found of a run falls with the run, and each thing with what it was found from.
TEST_F(LinkageDoor, EachResultFallsWithWhatItWasFoundFrom) {
    const auto all_hold = [] {
        Run_Holds();
        Forces_Hold();
        Balance_Holds();
        Transform_Holds();
    };
    const auto so = [] {
        return std::vector<bool>{Model.RunStands, Model.Calculated, Model.DynamicsDone, Model.BalanceDone,
                                 Model.FFTDone};
    };
    using Flags = std::vector<bool>;
    const std::pair<void (*)(), Flags> steps[] = {
        {Run_Holds, {true, true, false, false, false}},       {Run_Dropped, {false, false, false, false, false}},
        {Forces_Hold, {true, true, true, false, false}},      {Forces_Dropped, {true, true, false, false, false}},
        {Balance_Holds, {true, true, true, true, false}},     {Balance_Dropped, {true, true, true, false, false}},
        {Transform_Dropped, {true, true, true, true, false}}, {Run_Held_Back, {true, false, true, true, true}},
        {Model_Saved, {true, true, true, true, true}},
    };
    for (const auto& [step, expected] : steps) {
        all_hold();
        EXPECT_EQ(so(), (Flags{true, true, true, true, true}));
        const int turns = Results_Turns();
        step();
        EXPECT_EQ(so(), expected);
        EXPECT_EQ(Results_Turns() != turns, step != Run_Held_Back && step != Model_Saved);
    }
    Run_Counts();
    EXPECT_TRUE(Model.Calculated);
    Run_Dropped();
    Run_Counts();
    EXPECT_FALSE(Model.Calculated);
    Model_Unsaved();
    EXPECT_FALSE(Model.SavedFlag);
    const int turns = Results_Turns();
    Results_Put_Back();
    EXPECT_NE(Results_Turns(), turns);
}

}  // namespace verlink::test
