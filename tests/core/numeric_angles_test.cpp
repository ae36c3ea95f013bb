// Inverse trigonometry, triangles, polar form and rotation, with the program's own behaviour at the end points.
#include <cmath>

#include "core/numeric.h"
#include "tests/core/linkages.h"

namespace verlink::test {

namespace {

class NumericAngles : public Fixture {};

TEST_F(NumericAngles, ArcCosOfOneAndOfMinusOneIsOne) {
    EXPECT_EQ(FNArcCos(1), 1);
    EXPECT_EQ(FNArcCos(-1), 1);
    EXPECT_FALSE(Model.MathDomainError);
}

TEST_F(NumericAngles, ArcCosOfZeroIsHalfOfTheProgramsPi) { EXPECT_EQ(FNArcCos(0), 1.570796327); }

TEST_F(NumericAngles, ArcCosInsideTheRangeIsTheArcCosineToTheProgramsPi) {
    for (double x = -0.95; x < 1; x += 0.05) EXPECT_NEAR(FNArcCos(x), std::acos(Single(x)), 1e-6) << x;
    EXPECT_NEAR(FNArcCos(0.5), 1.0471975512, 2e-8);
    EXPECT_NEAR(FNArcCos(-0.5), 2.0943951024, 2e-8);
}

TEST_F(NumericAngles, ArcCosSoNearOneThatTheArgumentRoundsIsStillAnAngle) {
    const Single x = 0.99999994;  // one step below 1
    EXPECT_NEAR(FNArcCos(x), std::acos(x), 1e-9);
}

TEST_F(NumericAngles, ArcCosBeyondTheRangeIsZeroInSilenceAndSetsTheErrorFlag) {
    EXPECT_EQ(FNArcCos(1.5), 0);
    EXPECT_TRUE(Model.MathDomainError);
    Model.MathDomainError = false;
    EXPECT_EQ(FNArcCos(-1.5), 0);
    EXPECT_TRUE(Model.MathDomainError);
}

TEST_F(NumericAngles, ArcSinOfOneAndOfMinusOneIsZero) {
    EXPECT_EQ(FNArcSin(1), 0);
    EXPECT_EQ(FNArcSin(-1), 0);
    EXPECT_EQ(FNArcSin(0), 0);
}

TEST_F(NumericAngles, ArcSinInsideTheRangeIsTheArcSine) {
    for (double x = -0.95; x < 1; x += 0.05) EXPECT_NEAR(FNArcSin(x), std::asin(Single(x)), 1e-6) << x;
}

TEST_F(NumericAngles, ArcSinBeyondTheRangeIsZeroInSilenceAndSetsTheErrorFlag) {
    EXPECT_EQ(FNArcSin(-1.01), 0);
    EXPECT_TRUE(Model.MathDomainError);
}

TEST_F(NumericAngles, AnArgumentWhoseSquareOverflowsIsReportedUnderTheFunctionsName) {
    desktop.Expect_Message(Report(6, "Overflow", "FNArcCos"), platform::Answer::kOk, platform::Icon::kInformation);
    EXPECT_EQ(FNArcCos(1e30), 0);
    desktop.Expect_Message(Report(6, "Overflow", "FNArcSin"));
    EXPECT_EQ(FNArcSin(-1e30), 0);
}

TEST_F(NumericAngles, Atan2TakesXFirstAndRunsFromMinusHalfPiToThreeHalvesPi) {
    EXPECT_EQ(Atan2(0, 0), 0);
    EXPECT_EQ(Atan2(0, 2), 1.570796327);
    EXPECT_EQ(Atan2(0, -2), -1.570796327);
    EXPECT_EQ(Atan2(-1, 0), 3.141592654);
    EXPECT_EQ(Atan2(3, 0), 0);
    EXPECT_NEAR(Atan2(-1, -1), 3.9269908, 1e-7);
    EXPECT_NEAR(Atan2(-1, 1), 2.3561945, 1e-7);
    EXPECT_NEAR(Atan2(1, -1), -0.78539816, 1e-8);
    EXPECT_NEAR(Atan2(1, 2), std::atan2(2, 1), 1e-15);
    EXPECT_NEAR(Atan2(-1e-30, -1), 3 * 1.5707963268, 1e-8);
}

TEST_F(NumericAngles, Atan2DIsTheSameInDegrees) {
    EXPECT_EQ(Atan2D(0, 0), 0);
    EXPECT_EQ(Atan2D(0, 1), 1.570796327 * 57.29577950560105);
    EXPECT_EQ(Atan2D(-1, 0), 3.141592654 * 57.29577950560105);
    EXPECT_NEAR(Atan2D(-1, -1), 225, 1e-6);
    EXPECT_NEAR(Atan2D(1, -1), -45, 1e-6);
}

TEST_F(NumericAngles, PolarFormHasItsAngleBetweenMinus90And270Degrees) {
    Single magnitude, angle;
    Cart_to_Polar(0, -2, magnitude, angle);
    EXPECT_EQ(magnitude, 2);
    EXPECT_NEAR(angle, -90, 1e-5);
    Cart_to_Polar(0, 5, magnitude, angle);
    EXPECT_EQ(magnitude, 5);
    EXPECT_NEAR(angle, 90, 1e-5);
    Cart_to_Polar(0, 0, magnitude, angle);
    EXPECT_EQ(magnitude, 0);
    EXPECT_EQ(angle, 0);
    Cart_to_Polar(-3, -4, magnitude, angle);
    EXPECT_EQ(magnitude, 5);
    EXPECT_NEAR(angle, 180 + 53.130102, 2e-5);
    Cart_to_Polar(3, -4, magnitude, angle);
    EXPECT_NEAR(angle, -53.130102, 4e-6);
}

TEST_F(NumericAngles, PolarFormRoundsTheRadiansBeforeItTurnsThemIntoDegrees) {
    Single magnitude, angle;
    Cart_to_Polar(1, 3, magnitude, angle);
    const double radians = static_cast<double>(static_cast<float>(std::atan(3.0)));
    EXPECT_EQ(angle, static_cast<double>(static_cast<float>(radians * 57.29577950560105)));
}

TEST_F(NumericAngles, AMagnitudeTooLargeIsReportedAndLeavesTheAngle) {
    Single magnitude = 7, angle = 7;
    desktop.Expect_Message(Report(6, "Overflow", "Cart_to_Polar"));
    Cart_to_Polar(3e38, 3e38, magnitude, angle);
    EXPECT_EQ(magnitude, 7);
    EXPECT_NEAR(angle, 45, 1e-5);
}

TEST_F(NumericAngles, RotateTurnsBySignTimesTheAngle) {
    Single x, y;
    Rotate(1, 0, 90, 1, x, y);
    EXPECT_NEAR(x, 0, 1e-7);
    EXPECT_NEAR(y, 1, 1e-7);
    Rotate(1, 0, 90, -1, x, y);
    EXPECT_NEAR(y, -1, 1e-7);
    Rotate(2, 1, 30, 1, x, y);
    EXPECT_NEAR(x, 2 * std::cos(M_PI / 6) - std::sin(M_PI / 6), 3e-7);
    EXPECT_NEAR(y, 2 * std::sin(M_PI / 6) + std::cos(M_PI / 6), 3e-7);
    Rotate(2, 1, 0, -1, x, y);
    EXPECT_EQ(x, 2);
    EXPECT_EQ(y, 1);
}

TEST_F(NumericAngles, RotateMayWriteOverItsOwnArguments) {
    Single x = 1, y = 2;
    Rotate(x, y, 180, 1, x, y);
    EXPECT_NEAR(x, -1, 5e-7);
    EXPECT_NEAR(y, -2, 5e-7);
}

TEST_F(NumericAngles, TheCosineLawGivesASide) {
    Single side = 0;
    CosineLaw_Angle(3, 4, M_PI / 2, side);
    EXPECT_NEAR(side, 5, 1e-6);
    CosineLaw_Angle(2, 2, M_PI / 3, side);
    EXPECT_NEAR(side, 2, 1e-6);
    CosineLaw_Angle(3, 3, 0, side);
    EXPECT_EQ(side, 0);
}

TEST_F(NumericAngles, ACosineLawThatOverflowsIsReportedAndLeavesTheSide) {
    Single side = 9;
    desktop.Expect_Message(Report(6, "Overflow", "CosineLaw_Angle"));
    CosineLaw_Angle(1e30, 1e30, 1, side);
    EXPECT_EQ(side, 9);
}

TEST_F(NumericAngles, TheLawOfSinesGivesTheSecondAngle) {
    Single B = 0;
    LawofSines(5, 3, M_PI / 2, B);
    EXPECT_NEAR(B, std::asin(0.6), 1e-6);
    LawofSines(2, 1, 0.7, B);
    EXPECT_NEAR(B, std::asin(0.5 * std::sin(0.7)), 1e-6);
}

TEST_F(NumericAngles, TheLawOfSinesRefusesAZeroDivisorAndLeavesTheAngle) {
    Single B = 4;
    const char text[] = "Cannot do Law of sines - bad data - zero divisor";
    desktop.Expect_Message(text, platform::Answer::kOk, platform::Icon::kNone, platform::Buttons::kOk);
    LawofSines(1, 1, 0, B);
    EXPECT_EQ(B, 4);
    desktop.Expect_Message(text);
    LawofSines(0, 1, 1, B);
    EXPECT_EQ(B, 4);
}

TEST_F(NumericAngles, TheLawOfSinesOfARightAngleGivesZeroThroughTheArcSinesEndPoint) {
    Single B = 4;
    LawofSines(1, 1, 1.5707963705062866, B);
    EXPECT_EQ(B, 0);
}

TEST_F(NumericAngles, ModuloCorrectsOnceAndIsNoRemainder) {
    Single r;
    Modulo(0.5, -360, r);
    EXPECT_EQ(r, 360.5);
    Modulo(-0.5, -360, r);
    EXPECT_EQ(r, -360.5);
    Modulo(725, 360, r);
    EXPECT_EQ(r, 365);
    Modulo(360, 360, r);
    EXPECT_EQ(r, 360);
    Modulo(361, 360, r);
    EXPECT_EQ(r, 1);
    Modulo(-100, 360, r);
    EXPECT_EQ(r, -100);
    Modulo(-5, -10, r);
    EXPECT_EQ(r, -15);  // above m and not positive: m is added
    Modulo(0, -10, r);
    EXPECT_EQ(r, -10);
}

}  // namespace

}  // namespace verlink::test
