// The limits of a run as the record has them, whatever way they came there.
#include "batch/run.h"

#include "core/array.h"
#include "tests/core/linkages.h"
#include "tests/support/fixture.h"

namespace verlink::test {

namespace {

class Limits : public Fixture {
   protected:
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
    Take_Angles(45, 135, 10);
    Model.NSteps = 99;
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
    Take_Angles(0, 90, 10);
    Model.ThetaStep = Model.ThetaStepRad = 0;
    desktop.Expect_Message_With("Cannot have a zero or negative step size");
    EXPECT_FALSE(Take_Limits());
}

}  // namespace verlink::test
