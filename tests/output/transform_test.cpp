// One number of a chosen output at a step, against a rotation and a conversion to polar form computed here.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numbers>

#include "core/linkage_model.h"
#include "output/catalogue.h"
#include "tests/support/fixture.h"

namespace verlink::test {

namespace {

using Exact = long double;

struct Exact_Vector {
    Exact x, y;
    Exact Mag() const { return std::hypot(x, y); }
    /// Degrees from -90 up to 270.
    Exact Ang() const {
        const Exact angle = std::atan2(y, x) * 180 / std::numbers::pi_v<Exact>;
        return angle < -90 ? angle + 360 : angle;
    }
};

Exact_Vector Turned_Exactly(Exact x, Exact y, Exact degrees) {
    const Exact a = degrees * std::numbers::pi_v<Exact> / 180;
    return {x * std::cos(a) - y * std::sin(a), x * std::sin(a) + y * std::cos(a)};
}

constexpr int kStep = 17;
constexpr int kSlot = 2;
constexpr double kUntouched = -12345;

double Read(int step = kStep) {
    Single value = kUntouched;
    Transform_XY(step, kSlot, value);
    return value;
}

struct Transform : Fixture {
    Transform() { Load_Catalogue(); }

    RunResults& table = Model.RunTable;

    void Choose(const char* variable, const char* component = "X", int slot = kSlot) {
        Select_Variable(variable, slot);
        Set_Component(component, slot);
    }
    void Expect_Vector(const char* variable, const Exact_Vector& expected) {
        SCOPED_TRACE(variable);
        const double close = 2e-6 * static_cast<double>(expected.Mag());
        Choose(variable, "X");
        EXPECT_NEAR(Read(), static_cast<double>(expected.x), close);
        Choose(variable, "Y");
        EXPECT_NEAR(Read(), static_cast<double>(expected.y), close);
        Choose(variable, "Mag");
        EXPECT_NEAR(Read(), static_cast<double>(expected.Mag()), close);
        Choose(variable, "Ang");
        EXPECT_NEAR(Read(), static_cast<double>(expected.Ang()), 2e-4);
    }
};

}  // namespace

TEST_F(Transform, ScalarsAreReadAsTheyStandWhateverFrameAndComponent) {
    table.Theta(kStep, 1) = 33.25;
    table.Theta(kStep, 3) = 71;
    table.Omega(kStep, 2) = -4.5;
    table.Alpha(kStep, 0) = 900;
    table.OmegaRatio(kStep) = 0.75;
    table.MechAdvantage(kStep) = 1.25;
    Model.Link1Angle = 40;
    for (const int system : {0, 2})
        for (const char* component : {"X", "Y", "Mag", "Ang"}) {
            Model.CoordSystem = system;
            Choose("Theta3", component);
            EXPECT_EQ(Read(), 33.25);
            Choose("Trans Ang", component);
            EXPECT_EQ(Read(), 71);
            Choose("Omega4", component);
            EXPECT_EQ(Read(), -4.5);
            Choose("Alpha2", component);
            EXPECT_EQ(Read(), 900);
            Choose("w4 / w2", component);
            EXPECT_EQ(Read(), 0.75);
            Choose("T4 / T2", component);
            EXPECT_EQ(Read(), 1.25);
        }
}

TEST_F(Transform, GlobalVectorsAreTurnedByTheGroundLink) {
    for (const double ground : {0.0, 30.0, -75.5, 180.0, 269.0}) {
        SCOPED_TRACE(ground);
        Model.Link1Angle = ground;
        int place = 0;
        for (const char* variable : {"Veloc I 2,3", "Veloc I 3,4", "Veloc CP"}) {
            table.VelXY(kStep, place, 0) = 3.5 - place;
            table.VelXY(kStep, place, 1) = -1.25 * place + 0.5;
            Expect_Vector(variable, Turned_Exactly(3.5L - place, -1.25L * place + 0.5L, ground));
            ++place;
        }
        place = 0;
        for (const char* variable : {"Accel I 2,3", "Accel I 3,4", "Accel CP"}) {
            table.AccXY(kStep, place, 0) = -300 + 200 * place;
            table.AccXY(kStep, place, 1) = 75 - 13 * place;
            Expect_Vector(variable, Turned_Exactly(-300 + 200 * place, 75 - 13 * place, ground));
            ++place;
        }
        table.PointXY(kStep, 2, 0) = -1.5;
        table.PointXY(kStep, 2, 1) = 2.25;
        Expect_Vector("Coupler Pt", Turned_Exactly(-1.5L, 2.25L, ground));
    }
}

TEST_F(Transform, MassCentresAreReadFromTheRowsOfTheSolution) {
    for (int row = 0; row <= 5; ++row) table.VelXY(kStep, row, 0) = 100 + row;
    for (int row = 0; row <= 7; ++row) table.AccXY(kStep, row, 1) = 200 + row;
    const std::array<std::pair<const char*, int>, 3> speeds{{{"Veloc CG 2", 3}, {"Veloc CG 3", 5}, {"Veloc CG 4", 4}}};
    for (const auto& [name, row] : speeds) {
        Choose(name, "X");
        EXPECT_EQ(Read(), 100 + row) << name;
    }
    const std::array<std::pair<const char*, int>, 3> rates{{{"Accel CG 2", 6}, {"Accel CG 3", 5}, {"Accel CG 4", 7}}};
    for (const auto& [name, row] : rates) {
        Choose(name, "Y");
        EXPECT_EQ(Read(), 200 + row) << name;
    }
}

TEST_F(Transform, LocalVectorsAreTurnedBackByTheLinkOfTheDrawnSlotsRow) {
    Model.CoordSystem = 2;
    Model.Link1Angle = 25;
    Model.PlotSlot = kSlot;
    table.Theta(kStep, 0) = 100;
    table.Theta(kStep, 1) = 40;
    table.Theta(kStep, 2) = 290;
    for (int row = 0; row <= 5; ++row) {
        table.VelXY(kStep, row, 0) = 2 + row;
        table.VelXY(kStep, row, 1) = 5 - row;
    }
    Expect_Vector("Veloc I 2,3", Turned_Exactly(2, 5, 25.0L - 100));
    Expect_Vector("Veloc I 3,4", Turned_Exactly(3, 4, 25.0L - 290));
    Expect_Vector("Veloc CP", Turned_Exactly(4, 3, 25.0L - 40));
}

TEST_F(Transform, TheMassCentresOfLinks3And4AreTurnedByTheAngleOfLink2) {
    Model.CoordSystem = 2;
    Model.PlotSlot = kSlot;
    table.Theta(kStep, 0) = 100;
    table.Theta(kStep, 1) = 40;
    table.Theta(kStep, 2) = 290;
    table.VelXY(kStep, 5, 0) = 7;
    table.VelXY(kStep, 5, 1) = 0.5;
    Expect_Vector("Veloc CG 3", Turned_Exactly(7, 0.5L, -100));
    table.AccXY(kStep, 7, 0) = 7;
    table.AccXY(kStep, 7, 1) = 0.5;
    Expect_Vector("Accel CG 4", Turned_Exactly(7, 0.5L, -100));
}

TEST_F(Transform, TheLocalFrameFollowsThePlotSlotAndNotTheSlotRead) {
    Model.CoordSystem = 2;
    table.Theta(kStep, 0) = 100;
    table.Theta(kStep, 1) = 40;
    table.VelXY(kStep, 0, 0) = 1;
    table.VelXY(kStep, 2, 0) = 4;
    table.VelXY(kStep, 2, 1) = 3;
    Model.PlotSlot = 4;
    Choose("Accel CP", "X", 4);
    Expect_Vector("Veloc I 2,3", Turned_Exactly(1, 0, -40));
}

TEST_F(Transform, BeforeAnyPlotTheLocalFrameIsThatOfLink2) {
    Model.CoordSystem = 2;
    table.Theta(kStep, 0) = 100;
    table.Theta(kStep, 1) = 40;
    table.VelXY(kStep, 2, 0) = 4;
    table.VelXY(kStep, 2, 1) = 3;
    EXPECT_EQ(Model.PlotSlot, 0);
    Expect_Vector("Veloc CP", Turned_Exactly(4, 3, -100));
}

TEST_F(Transform, LocalLinkLeavesTheLinkForRowsAboveTwo) {
    Model.PlotSlot = 3;
    const std::array<int, 5> expected{0, 2, 1, 9, 9};
    for (int row = 0; row <= 4; ++row) {
        Model.FuncRow(3) = row;
        Integer link = 9;
        Local_Link(link);
        EXPECT_EQ(link, expected[static_cast<std::size_t>(row)]) << row;
    }
}

TEST_F(Transform, TheCouplerPointIsTurnedAsLocalWhenTheFrameWasLeftLocal) {
    Model.CoordSystem = 2;
    Model.PlotSlot = kSlot;
    Model.Link1Angle = 10;
    table.Theta(kStep, 1) = 70;
    table.PointXY(kStep, 2, 0) = 3;
    table.PointXY(kStep, 2, 1) = 1;
    Expect_Vector("Coupler Pt", Turned_Exactly(3, 1, -60));
}

TEST_F(Transform, AnyFrameNumberButZeroIsLocal) {
    Model.PlotSlot = kSlot;
    table.Theta(kStep, 0) = 90;
    table.VelXY(kStep, 0, 0) = 2;
    table.VelXY(kStep, 0, 1) = 1;
    for (const int system : {1, 2, -1}) {
        Model.CoordSystem = system;
        Expect_Vector("Veloc I 2,3", Turned_Exactly(2, 1, -90));
    }
}

TEST_F(Transform, ComponentsBelowTheSmallValueReadAsZero) {
    table.VelXY(kStep, 0, 0) = 0.00005;
    table.VelXY(kStep, 0, 1) = -0.00005;
    for (const char* component : {"X", "Y", "Mag", "Ang"}) {
        Choose("Veloc I 2,3", component);
        EXPECT_EQ(Read(), 0) << component;
        EXPECT_FALSE(std::signbit(Read())) << component;
    }
    EXPECT_EQ(Model.SmallValue, Single(0.0001));
}

TEST_F(Transform, MagnitudeAndAngleComeFromTheZeroedComponents) {
    table.VelXY(kStep, 0, 0) = 0.00009;
    table.VelXY(kStep, 0, 1) = -0.0002;
    Choose("Veloc I 2,3", "Mag");
    EXPECT_EQ(Read(), static_cast<double>(Single(0.0002)));
    Choose("Veloc I 2,3", "Ang");
    EXPECT_NEAR(Read(), -90, 1e-4);
}

TEST_F(Transform, AComponentAtTheSmallValueStays) {
    const float limit = 0.0001F;
    table.VelXY(kStep, 0, 0) = limit;
    Choose("Veloc I 2,3", "X");
    EXPECT_EQ(Read(), limit);
    table.VelXY(kStep, 0, 0) = std::nextafter(limit, 0.0F);
    EXPECT_EQ(Read(), 0);
}

TEST_F(Transform, GroupsWithoutAnArrayLeaveTheValue) {
    for (const int group : {-1, 0, 15, 16, 17, 19, 22}) {
        Model.FuncGroup(kSlot) = group;
        EXPECT_EQ(Read(), kUntouched) << group;
    }
}

TEST_F(Transform, TheCurrentTransformIsReadAtTheRowOfItsComponentAndItsOwnRowMeansNothing) {
    for (int row = 0; row <= 3; ++row) Model.FFTResult(kStep, row) = 50 + row;
    Model.FuncRow(kSlot) = 7;
    Model.CoordSystem = 2;
    int row = 0;
    for (const char* component : {"X", "Y", "Mag", "Ang"}) {
        Choose("Current FFT", component);
        EXPECT_EQ(Read(), 50 + row++) << component;
    }
}

TEST_F(Transform, AStepOutsideTheTableIsReportedAndLeavesTheValue) {
    for (const int step : {-1, 2881})
        for (const char* variable : {"Theta2", "w4 / w2", "Veloc CP"}) {
            Choose(variable);
            desktop.Expect_Message_With("Error 9   (Subscript out of range)  has occurred in Transform_XY");
            EXPECT_EQ(Read(step), kUntouched);
        }
    table.Theta(2880, 0) = 12;
    Choose("Theta2");
    EXPECT_EQ(Read(2880), 12);
}

TEST_F(Transform, ARowOutsideItsArrayIsReported) {
    Model.FuncGroup(kSlot) = 2;
    Model.FuncRow(kSlot) = 3;
    desktop.Expect_Message_With("Error 9   (Subscript out of range)  has occurred in Transform_XY");
    EXPECT_EQ(Read(), kUntouched);
}

TEST_F(Transform, AComponentOutsideTheFourIsReported) {
    Choose("Veloc CP");
    Model.FuncComponent(kSlot) = 4;
    desktop.Expect_Message_With("Error 9   (Subscript out of range)  has occurred in Resolve_Vector");
    EXPECT_EQ(Read(), kUntouched);
}

}  // namespace verlink::test
