// The tables of the unit systems: labels, decimals, conversion factors.
#include "dynamics/units.h"

#include <string>
#include <vector>

#include "core/parameters.h"
#include "dynamics/shown_length.h"
#include "tests/support/fixture.h"

namespace verlink::test {

class Units : public Fixture {};

namespace {

struct LabelsOfSystem {
    int units;
    std::vector<const char*> labels;  // 1 to 18
};

const LabelsOfSystem kLabels[] = {
    {1,
     {"degrees", "rad/sec", "rad/sec^2", "in/sec", "in/sec^2", "in", "ratio", "ratio", "lb-in", "lb", "lb", "lb-in",
      "lb", "bl", "in-lb-s^2", "rad/sec^3", "in/sec^3", "lb-in"}},
    {2,
     {"degrees", "rad/sec", "rad/sec^2", "ft/sec", "ft/sec^2", "ft", "ratio", "ratio", "lb-ft", "lb", "lb", "lb-ft",
      "lb", "sl", "ft-lb-^2", "rad/sec^3", "ft/sec^3", "lb-ft"}},
    {3,
     {"degrees", "rad/sec", "rad/sec^2", "m/sec", "m/sec^2", "m", "ratio", "ratio", "N-m", "N", "N", "N-m", "N", "kg",
      "kg-m^2", "rad/sec^3", "m/sec^3", "N-m"}},
    {4,
     {"degrees", "rad/sec", "rad/sec^2", "cm/sec", "cm/sec^2", "cm", "ratio", "ratio", "N- m", "N", "N", "N- m", "N",
      "kg", "kg-m^2", "rad/sec^3", "cm/sec^3", "N-cm"}},
    {5,
     {"degrees", "rad/sec", "rad/sec^2", "mm/sec", "mm/sec^2", "mm", "ratio", "ratio", "N- m", "N", "N", "N- m", "N",
      "kg", "kg-m^2", "rad/sec^3", "mm/sec^3", "N-mm"}},
};

std::vector<int> Decimals() {
    return {Model.DecLength, Model.DecLengthShown, Model.DecForce, Model.DecTorque, Model.DecMass, Model.DecInertia};
}

}  // namespace

TEST_F(Units, LabelsOfEverySystem) {
    for (const LabelsOfSystem& row : kLabels) {
        ASSERT_EQ(row.labels.size(), 18U);
        Use_Units(row.units);
        EXPECT_EQ(Model.Units, row.units);
        for (int i = 1; i <= 18; ++i)
            EXPECT_EQ(Model.UnitLabel(i), row.labels[static_cast<std::size_t>(i - 1)]) << row.units << " " << i;
    }
}

TEST_F(Units, TorqueIsInNewtonMetresInCentimetresAndMillimetresButItsAreasAreNot) {
    Use_Units(4);
    EXPECT_EQ(Model.UnitLabel(9), "N- m");
    EXPECT_EQ(Model.UnitLabel(12), "N- m");
    EXPECT_EQ(Model.UnitLabel(18), "N-cm");
}

TEST_F(Units, TheInertiaLabelOfFeetHasNoS) {
    Use_Units(2);
    EXPECT_EQ(Model.UnitLabel(15), "ft-lb-^2");
}

TEST_F(Units, OnlyTheLabelsAskedForAreFilled) {
    for (int i = 0; i <= 25; ++i) Model.UnitLabel(i) = "old";
    Set_Unit_Labels(1, Model.UnitLabel, 6);
    EXPECT_EQ(Model.UnitLabel(0), "old");
    EXPECT_EQ(Model.UnitLabel(6), "in");
    EXPECT_EQ(Model.UnitLabel(7), "old");
    Set_Unit_Labels(1, Model.UnitLabel, 25);
    EXPECT_EQ(Model.UnitLabel(25), "");
}

TEST_F(Units, MoreThanTwentyFiveLabelsAreABoundsFailure) {
    try {
        Set_Unit_Labels(1, Model.UnitLabel, 26);
        FAIL() << "no failure";
    } catch (const platform::RuntimeFailure& failure) {
        EXPECT_EQ(failure.Number(), 9);
    }
}

TEST_F(Units, DecimalsOfEverySystem) {
    const std::vector<int> expected[] = {
        {3, 3, 2, 2, 4, 4}, {3, 3, 2, 3, 3, 3}, {4, 4, 2, 3, 3, 3}, {4, 3, 2, 3, 3, 3}, {4, 2, 2, 3, 3, 3}};
    for (int units = 1; units <= 5; ++units) {
        Set_Decimals(units);
        EXPECT_EQ(Decimals(), expected[units - 1]) << units;
    }
}

TEST_F(Units, LengthsAreShownInTheUnitOfTheirSystemAndKeptInMetres) {
    const double factors[] = {1, 1, 1, 100, 1000};
    const int decimals[] = {3, 3, 4, 3, 2};
    const std::string names[] = {"in", "ft", "m", "cm", "mm"};
    for (int units = 1; units <= 5; ++units) {
        const ShownLength shown = Shown_Length(units);
        EXPECT_EQ(shown.unit, names[units - 1]);
        EXPECT_EQ(shown.decimals, decimals[units - 1]);
        EXPECT_EQ(shown.factor, factors[units - 1]);
    }
    for (const int units : {0, 6, -4}) {
        EXPECT_EQ(std::string(Shown_Length(units).unit), "in");
        EXPECT_EQ(Shown_Length(units).decimals, 3);
        EXPECT_EQ(Shown_Length(units).factor, 1);
    }
}

TEST_F(Units, AnUnknownSystemLeavesTheDecimals) {
    Set_Decimals(5);
    const auto before = Decimals();
    for (const int units : {0, -1, 6, 32767}) {
        Set_Decimals(units);
        EXPECT_EQ(Decimals(), before) << units;
    }
}

// The figures are those of a hand calculation to eight digits.
TEST_F(Units, ConversionFactors) {
    const auto expect = [](double length, double force, double torque, double mass, double inertia) {
        EXPECT_NEAR(Model.ConvLength / length, 1, 1e-7);
        EXPECT_NEAR(Model.ConvForce / force, 1, 1e-7);
        EXPECT_NEAR(Model.ConvTorque / torque, 1, 1e-7);
        EXPECT_NEAR(Model.ConvMass / mass, 1, 1e-7);
        EXPECT_NEAR(Model.ConvInertia / inertia, 1, 1e-7);
    };
    Factors_In_To_SI();
    expect(0.0254, 4.448222, 0.1129848388, 175.086664, 0.112958912);
    Factors_SI_To_In();
    expect(39.3700787, 0.224808923, 8.85074577, 0.00571145728, 8.85277653);
    Factors_In_To_Ft();
    expect(0.0833333333, 1, 0.0833333333, 12, 0.0833333333);
    Factors_Ft_To_In();
    expect(12, 1, 12, 0.0833333333, 12);
}

TEST_F(Units, EveryFactorIsRoundedToSingleOnce) {
    Factors_In_To_SI();
    EXPECT_EQ(Model.ConvMass, static_cast<double>(static_cast<float>(386.0 / 2.2046225)));
    EXPECT_EQ(Model.ConvInertia, static_cast<double>(static_cast<float>(0.0254 * 0.0254 * (386.0 / 2.2046225))));
    Factors_SI_To_In();
    EXPECT_EQ(Model.ConvLength, static_cast<double>(static_cast<float>(1.0 / 0.0254)));
    EXPECT_EQ(Model.ConvForce, static_cast<double>(static_cast<float>(1.0 / 4.448222)));
    EXPECT_EQ(Model.ConvTorque, static_cast<double>(static_cast<float>(1.0 / 0.1129848388)));
    EXPECT_EQ(Model.ConvMass, static_cast<double>(static_cast<float>(2.2046225 / 386.0)));
    EXPECT_EQ(Model.ConvInertia, static_cast<double>(static_cast<float>(2.2046225 / 386.0 / (0.0254 * 0.0254))));
}

TEST_F(Units, LabelsOfAnUnknownSystemHaveNoUnitInThem) {
    Use_Units(9);
    EXPECT_EQ(Model.UnitLabel(6), "");
    EXPECT_EQ(Model.UnitLabel(4), "/sec");
    EXPECT_EQ(Model.UnitLabel(1), "degrees");
}

}  // namespace verlink::test
