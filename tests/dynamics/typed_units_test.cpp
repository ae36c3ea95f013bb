// Which units a box takes, and what they are in its own.
#include "dynamics/typed_units.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <map>
#include <string>

#include "dynamics/units.h"
#include "tests/support/fixture.h"

namespace verlink {

namespace {

class TypedUnits : public test::Fixture {};

std::string Shown(const std::string& text, Quantity quantity, int Units) {
    const platform::Reading reading = Read_Typed(text, {Typed_Units(quantity, Units)});
    return reading.whole ? reading.text : "<" + reading.text + ">";
}

TEST_F(TypedUnits, LengthsOfEverySystemInEveryOther) {
    EXPECT_EQ(Shown("3 mm", Quantity::kLength, 1), "0.1181102");
    EXPECT_EQ(Shown("6 in", Quantity::kLength, 2), "0.5");
    EXPECT_EQ(Shown("2 ft", Quantity::kLength, 3), "0.6096");
    EXPECT_EQ(Shown("1 in", Quantity::kLength, 4), "2.54");
    EXPECT_EQ(Shown("1 m", Quantity::kLength, 5), "1000");
    EXPECT_EQ(Shown("5 mm", Quantity::kLength, 5), "5");
}

TEST_F(TypedUnits, ALengthThatIsKeptInMetresIsShownInMetres) {
    EXPECT_EQ(Shown("5 mm", Quantity::kKeptLength, 5), "0.005");
    EXPECT_EQ(Shown("1 in", Quantity::kKeptLength, 4), "0.0254");
    EXPECT_EQ(Shown("1 ft", Quantity::kKeptLength, 1), "12");
}

TEST_F(TypedUnits, MassesForcesAndWhatIsMadeOfThem) {
    EXPECT_EQ(Shown("1 bl", Quantity::kMass, 2), "12");
    EXPECT_EQ(Shown("1 bl", Quantity::kMass, 3), "175.0867");
    EXPECT_EQ(Shown("12 sl", Quantity::kMass, 1), "1");
    EXPECT_EQ(Shown("1 lb", Quantity::kForce, 5), "4.448222");
    EXPECT_EQ(Shown("1 lb", Quantity::kForce, 2), "1");
    EXPECT_EQ(Shown("1 N-m", Quantity::kTorque, 1), "8.850745");
    EXPECT_EQ(Shown("1 lb-ft", Quantity::kTorque, 1), "12");
    EXPECT_EQ(Shown("500 N-mm", Quantity::kTorque, 4), "0.5");
    EXPECT_EQ(Shown("1 kg-m^2", Quantity::kInertia, 1), "8.852777");
    EXPECT_EQ(Shown("12 in-lb-s^2", Quantity::kInertia, 2), "1");
    EXPECT_EQ(Shown("1 ft-lb-^2", Quantity::kInertia, 1), "12") << "as its label has it";
    EXPECT_EQ(Shown("1 kg-m", Quantity::kMassLength, 1), "0.2248605");
    EXPECT_EQ(Shown("1 sl-ft", Quantity::kMassLength, 1), "1");
}

// Of every name the figure that a table of units has, and by what the systems count.
TEST_F(TypedUnits, EveryUnitHasItsSizeInEverySystem) {
    constexpr double kInch = 0.0254, kPound = 4.448222, kBlob = 386 / 2.2046225, kPoundInch = 0.1129848388;
    struct Kind {
        Quantity quantity;
        std::map<std::string, double> sizes;
        std::array<double, 5> counted_by;
    };
    const Kind kinds[] = {
        {Quantity::kAngle, {{"deg", 1}, {"degrees", 1}, {"\u00B0", 1}, {"rad", 180 / M_PI}}, {1, 1, 1, 1, 1}},
        {Quantity::kTime, {{"s", 1}, {"sec", 1}}, {1, 1, 1, 1, 1}},
        {Quantity::kSpeed, {{"rad/s", 1}, {"rad/sec", 1}}, {1, 1, 1, 1, 1}},
        {Quantity::kAcceleration, {{"rad/s^2", 1}, {"rad/sec^2", 1}}, {1, 1, 1, 1, 1}},
        {Quantity::kLength,
         {{"in", kInch}, {"ft", 12 * kInch}, {"m", 1}, {"cm", 0.01}, {"mm", 0.001}},
         {kInch, 12 * kInch, 1, 0.01, 0.001}},
        {Quantity::kKeptLength,
         {{"in", kInch}, {"ft", 12 * kInch}, {"m", 1}, {"cm", 0.01}, {"mm", 0.001}},
         {kInch, 12 * kInch, 1, 1, 1}},
        {Quantity::kForce, {{"lb", kPound}, {"N", 1}}, {kPound, kPound, 1, 1, 1}},
        {Quantity::kTorque,
         {{"lb-in", kPoundInch},
          {"in-lb", kPoundInch},
          {"lb-ft", 12 * kPoundInch},
          {"ft-lb", 12 * kPoundInch},
          {"N-m", 1},
          {"N-cm", 0.01},
          {"N-mm", 0.001}},
         {kPoundInch, 12 * kPoundInch, 1, 1, 1}},
        {Quantity::kMass, {{"bl", kBlob}, {"sl", kBlob / 12}, {"kg", 1}}, {kBlob, kBlob / 12, 1, 1, 1}},
        {Quantity::kInertia,
         {{"in-lb-s^2", kInch * kInch * kBlob},
          {"ft-lb-s^2", 12 * kInch * kInch * kBlob},
          {"ft-lb-^2", 12 * kInch * kInch * kBlob},
          {"kg-m^2", 1}},
         {kInch * kInch * kBlob, 12 * kInch * kInch * kBlob, 1, 1, 1}},
        {Quantity::kMassLength,
         {{"bl-in", kBlob * kInch}, {"sl-ft", kBlob * kInch}, {"kg-m", 1}},
         {kBlob * kInch, kBlob * kInch, 1, 1, 1}},
    };
    for (const Kind& kind : kinds)
        for (int units = 1; units <= 5; ++units) {
            const auto found = Typed_Units(kind.quantity, units);
            EXPECT_EQ(found.size(), kind.sizes.size());
            for (const TypedUnit& unit : found) {
                SCOPED_TRACE(unit.name);
                const double expected = kind.sizes.at(std::string(unit.name)) / kind.counted_by.at(units - 1U);
                EXPECT_NEAR(unit.factor / expected, 1, 1e-6);
            }
        }
}

TEST_F(TypedUnits, AnglesTimesAndSpeeds) {
    EXPECT_EQ(Shown("30 deg", Quantity::kAngle, 1), "30");
    EXPECT_EQ(Shown("30\u00B0", Quantity::kAngle, 1), "30");
    EXPECT_EQ(Shown("1 rad", Quantity::kAngle, 4), "57.29578");
    EXPECT_EQ(Shown("2 sec", Quantity::kTime, 1), "2");
    EXPECT_EQ(Shown("10 rad/s", Quantity::kSpeed, 1), "10");
    EXPECT_EQ(Shown("10 rad/sec^2", Quantity::kAcceleration, 1), "10");
    EXPECT_EQ(Shown("10 rad/s2", Quantity::kAcceleration, 1), "10");
}

TEST_F(TypedUnits, AUnitOfAnotherQuantityIsNotRead) {
    EXPECT_EQ(Shown("3 kg", Quantity::kLength, 3), "<3>");
    EXPECT_EQ(Shown("3 mm", Quantity::kMass, 3), "<3>");
    EXPECT_EQ(Shown("3 rad/s", Quantity::kAcceleration, 3), "<3>");
    EXPECT_EQ(Shown("3 rad/s^2", Quantity::kSpeed, 3), "<3>");
    EXPECT_EQ(Shown("3 mm", Quantity::kNumber, 3), "<3>");
}

TEST_F(TypedUnits, TheyAgreeWithTheConversionOfAModel) {
    Model.L2 = 3.5;
    Model.LinkMass(3) = 2.5;
    Model.LinkInertia(3) = 0.75;
    Model.ExtTorque(3) = 4;
    Use_Units(3);
    ASSERT_TRUE(Convert_Units(1, 3));
    EXPECT_NEAR(std::stod(Shown("3.5 in", Quantity::kLength, 3)), Model.L2, 5e-5);
    EXPECT_NEAR(std::stod(Shown("2.5 bl", Quantity::kMass, 3)), Model.LinkMass(3), 5e-4);
    EXPECT_NEAR(std::stod(Shown("0.75 in-lb-s^2", Quantity::kInertia, 3)), Model.LinkInertia(3), 5e-4);
    EXPECT_NEAR(std::stod(Shown("4 lb-in", Quantity::kTorque, 3)), Model.ExtTorque(3), 5e-4);
}

TEST_F(TypedUnits, ABoxReadsInTheUnitsInForceWhenItIsLeft) {
    class frm_Sample : public platform::Screen {
       public:
        frm_Sample() : Screen("frm_Sample") { Reads_As(txt_Length, Model, Quantity::kLength); }
        platform::TextBox txt_Length{*this, "txt_Length", "1"};
    } screen;
    Use_Units(5);
    screen.txt_Length.SetFocus();
    screen.txt_Length.Type("1 in");
    screen.MoveFocus(nullptr);
    EXPECT_EQ(screen.txt_Length.Text, "25.4");
}

}  // namespace

}  // namespace verlink
