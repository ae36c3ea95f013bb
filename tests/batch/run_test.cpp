// The limits of a run as the record has them, whatever way they came there.
#include "batch/run.h"

#include <numbers>

#include "core/array.h"
#include "tests/support/fixture.h"

namespace verlink::test {

namespace {

class Limits : public Fixture {
   protected:
    static void Angles(double start, double end, double step) {
        constexpr double kDegree = std::numbers::pi / 180;
        Model.Calctype = run::kByAngle;
        Model.ThetaStart = start;
        Model.ThetaEnd = end;
        Model.ThetaStep = step;
        Model.ThetaStartRad = start * kDegree;
        Model.ThetaEndRad = end * kDegree;
        Model.ThetaStepRad = step * kDegree;
        Model.NSteps = 99;
    }
    static void Times(double start, double end, double step) {
        Model.Calctype = run::kByTime;
        Model.TimeStart = start;
        Model.TimeEnd = end;
        Model.TimeStep = step;
        Model.NSteps = 99;
    }
};

}  // namespace

TEST_F(Limits, MakeTheNumberOfSteps) {
    Angles(45, 135, 10);
    EXPECT_TRUE(Take_Limits());
    EXPECT_EQ(Model.NSteps, 9);
    Times(1, 2, 0.25);
    EXPECT_TRUE(Take_Limits());
    EXPECT_EQ(Model.NSteps, 4);
}

TEST_F(Limits, AsManyTimeStepsAsARunCanHaveAreTakenSilently) {
    Times(0, kLastStep, 1);
    EXPECT_TRUE(Take_Limits());
    EXPECT_EQ(Model.NSteps, kLastStep);
    Model.Calctype = run::kOnePosition;
    EXPECT_TRUE(Take_Limits());
}

TEST_F(Limits, AStepOfNoAngleIsNotPositive) {
    Angles(0, 90, 0);
    desktop.Expect_Message_With("Cannot have a zero or negative step size");
    EXPECT_FALSE(Take_Limits());
}

}  // namespace verlink::test
