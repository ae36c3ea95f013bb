// Magnitude and angle of a chosen vector, against a rotation computed here.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "core/linkage_model.h"
#include "output/catalogue.h"
#include "tests/support/fixture.h"

namespace verlink::test {

namespace {

constexpr int kStep = 2880;
constexpr int kSlot = 1;

struct PolarVariable : Fixture {
    PolarVariable() {
        Load_Catalogue();
        Model.PlotSlot = kSlot;
        Model.Link1Angle = 30;
    }
    RunResults& table = Model.RunTable;
    Single mag = -7, ang = -8;

    void Read(const char* variable) {
        Select_Variable(variable, kSlot);
        Select_PolarVariable(kStep, kSlot, mag, ang);
    }
    /// The direction of (x, y) after a turn by `degrees`, from -90 up to 270.
    static double Direction(double x, double y, double degrees) {
        const double angle = std::atan2(y, x) * 180 / std::numbers::pi + degrees;
        return angle - 360 * std::floor((angle + 90) / 360);
    }
};

}  // namespace

TEST_F(PolarVariable, VectorsGiveMagnitudeAndGlobalAngle) {
    table.VelXY(kStep, 2, 0) = -3;
    table.VelXY(kStep, 2, 1) = 4;
    table.AccXY(kStep, 1, 0) = 5;
    table.AccXY(kStep, 1, 1) = -12;
    table.PointXY(kStep, 2, 0) = 8;
    table.PointXY(kStep, 2, 1) = 15;
    Read("Veloc CP");
    EXPECT_NEAR(mag, 5, 1e-5);
    EXPECT_NEAR(ang, Direction(-3, 4, 30), 1e-4);
    Read("Accel I 3,4");
    EXPECT_NEAR(mag, 13, 1e-5);
    EXPECT_NEAR(ang, Direction(5, -12, 30), 1e-4);
    Read("Coupler Pt");
    EXPECT_NEAR(mag, 17, 1e-5);
    EXPECT_NEAR(ang, Direction(8, 15, 30), 1e-4);
}

TEST_F(PolarVariable, TheComponentOfTheSlotIsOfNoAccount) {
    table.VelXY(kStep, 0, 0) = 2;
    for (int component = 0; component <= 3; ++component) {
        Model.FuncComponent(kSlot) = component;
        mag = ang = -1;
        Read("Veloc I 2,3");
        EXPECT_NEAR(mag, 2, 1e-6);
        EXPECT_NEAR(ang, 30, 1e-5);
    }
}

TEST_F(PolarVariable, LocalVectorsAreTurnedBackByTheLinkOfTheSlotsRow) {
    Model.CoordSystem = 2;
    table.Theta(kStep, 0) = 100;
    table.Theta(kStep, 1) = 40;
    table.Theta(kStep, 2) = 290;
    for (int row : {0, 1, 2, 5}) table.VelXY(kStep, row, 0) = 3;
    Read("Veloc I 2,3");
    EXPECT_NEAR(ang, Direction(3, 0, 30 - 100), 1e-4);
    Read("Veloc I 3,4");
    EXPECT_NEAR(ang, Direction(3, 0, 30 - 290), 1e-4);
    Read("Veloc CP");
    EXPECT_NEAR(ang, Direction(3, 0, 30 - 40), 1e-4);
    Read("Veloc CG 3");
    EXPECT_NEAR(ang, Direction(3, 0, 30 - 100), 1e-4);
}

TEST_F(PolarVariable, SmallComponentsAreZeroedFirst) {
    Model.Link1Angle = 0;
    table.AccXY(kStep, 0, 0) = 0.00005;
    table.AccXY(kStep, 0, 1) = 0.00005;
    Read("Accel I 2,3");
    EXPECT_EQ(mag, 0);
    EXPECT_EQ(ang, 0);
    EXPECT_EQ(Model.SmallValue, Single(0.0001));
    table.AccXY(kStep, 0, 1) = -0.25;
    Read("Accel I 2,3");
    EXPECT_EQ(mag, 0.25);
    EXPECT_NEAR(ang, -90, 1e-5);
}

TEST_F(PolarVariable, ScalarsLeaveMagnitudeAndAngle) {
    for (const char* scalar : {"Theta2", "Omega3", "Alpha4", "w4 / w2", "T4 / T2", "Current FFT"}) {
        Read(scalar);
        EXPECT_EQ(mag, -7) << scalar;
        EXPECT_EQ(ang, -8) << scalar;
    }
}

TEST_F(PolarVariable, TheFlywheelTorqueIsOnThePolarListAndLeavesMagnitudeAndAngle) {
    Read("Flywl Torque");
    EXPECT_EQ(mag, -7);
    EXPECT_EQ(ang, -8);
}

TEST_F(PolarVariable, AStepOutsideTheTableIsReportedUnderItsName) {
    Select_Variable("Veloc CP", kSlot);
    desktop.Expect_Message_With("Error 9   (Subscript out of range)  has occurred in Select_PolarVariable");
    Select_PolarVariable(2881, kSlot, mag, ang);
    EXPECT_EQ(mag, -7);
    EXPECT_EQ(ang, -8);
}

}  // namespace verlink::test
