// The numeric helpers at their ends: angles, triangles, the equation solver, reductions, lines, file names.
#include "core/numeric.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <vector>

#include "core/linkage_model.h"
#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

class Numeric : public Fixture {};

TEST_F(Numeric, ArcCosineAtBothEndsIsOne) {
    EXPECT_EQ(FNArcCos(1), 1);
    EXPECT_EQ(FNArcCos(-1), 1);
    EXPECT_FALSE(Model.MathDomainError);
}

TEST_F(Numeric, ArcSineAtBothEndsIsZero) {
    EXPECT_EQ(FNArcSin(1), 0);
    EXPECT_EQ(FNArcSin(-1), 0);
}

TEST_F(Numeric, ArcCosineOfZeroIsHalfOfTheProgramsPi) { EXPECT_EQ(FNArcCos(0), 3.141592654 / 2); }

TEST_F(Numeric, ArcCosineOutsideTheRangeIsEmptyAndMarksTheDomainInSilence) {
    EXPECT_EQ(FNArcCos(1.5), 0);
    EXPECT_TRUE(Model.MathDomainError);
    Model.MathDomainError = false;
    EXPECT_EQ(FNArcSin(-2), 0);
    EXPECT_TRUE(Model.MathDomainError);
}

TEST_F(Numeric, ArcFunctionsAgreeWithTheTextbookInside) {
    for (double x = -0.95; x < 0.96; x += 0.05) {
        const Single rounded = x;
        EXPECT_NEAR(FNArcCos(rounded), std::acos(static_cast<double>(rounded)), 5e-7) << x;
        EXPECT_NEAR(FNArcSin(rounded), std::asin(static_cast<double>(rounded)), 5e-7) << x;
    }
}

TEST_F(Numeric, ArcTangentRunsFromMinusQuarterToThreeQuarterTurnWithoutWrapping) {
    EXPECT_EQ(Atan2(0, 0), 0);
    EXPECT_EQ(Atan2(0, 2), 1.570796327);
    EXPECT_EQ(Atan2(0, -2), -1.570796327);
    EXPECT_EQ(Atan2(-1, 0), 3.141592654);
    EXPECT_NEAR(Atan2(-1, -1), 3.9269908, 1e-7);
    EXPECT_NEAR(Atan2(1, -1), -0.7853982, 1e-7);
    EXPECT_NEAR(Atan2D(-1, -1), 225, 1e-6);
    EXPECT_EQ(Atan2D(0, 1), 1.570796327 * 57.29577950560105);
}

TEST_F(Numeric, PolarFormOfAPointStraightDownIsMinusNinety) {
    Single magnitude, angle;
    Cart_to_Polar(0, -2, magnitude, angle);
    EXPECT_EQ(magnitude, 2.0);
    EXPECT_NEAR(angle, -90, 1e-5);
    Cart_to_Polar(-3, 4, magnitude, angle);
    EXPECT_EQ(magnitude, 5.0);
    EXPECT_NEAR(angle, 126.8698976, 1e-5);
    Cart_to_Polar(0, 0, magnitude, angle);
    EXPECT_EQ(angle, 0.0);
}

TEST_F(Numeric, RotationTurnsBySignTimesAngle) {
    Single x, y;
    Rotate(2, 1, 90, 1, x, y);
    EXPECT_NEAR(x, -1, 1e-6);
    EXPECT_NEAR(y, 2, 1e-6);
    Rotate(2, 1, 90, -1, x, y);
    EXPECT_NEAR(x, 1, 1e-6);
    EXPECT_NEAR(y, -2, 1e-6);
}

TEST_F(Numeric, LawOfCosinesGivesTheThirdSideInSpiteOfItsName) {
    Single side = -7;
    CosineLaw_Angle(3, 4, kHalfPi, side);
    EXPECT_NEAR(side, 5, 1e-6);
}

TEST_F(Numeric, LawOfSinesGivesTheAngleOppositeTheSecondSide) {
    Single B;
    LawofSines(5, 4, kHalfPi, B);
    EXPECT_NEAR(B, std::asin(0.8), 1e-6);
}

TEST_F(Numeric, LawOfSinesWithoutASideIsRefusedAndLeavesTheAngle) {
    desktop.Expect_Message("Cannot do Law of sines - bad data - zero divisor");
    Single B = 7;
    LawofSines(0, 4, 1, B);
    EXPECT_EQ(B, 7.0);
    desktop.Verify();
    desktop.Expect_Message("Cannot do Law of sines - bad data - zero divisor");
    LawofSines(5, 4, 0, B);
    EXPECT_EQ(B, 7.0);
}

TEST_F(Numeric, ModuloCorrectsOnceAndIsNoRemainder) {
    Single r;
    Modulo(725, 360, r);
    EXPECT_EQ(r, 365.0);
    Modulo(360, 360, r);
    EXPECT_EQ(r, 360.0);
    Modulo(-100, 360, r);
    EXPECT_EQ(r, -100.0);
    Modulo(-100, -360, r);
    EXPECT_EQ(r, -460.0);
}

TEST_F(Numeric, SolverSolvesAndReportsZero) {
    Integer N = 3, flag = 9;
    std::vector<double> A{0, 2, 1, 1, -2, -3, -1, 1, 2};
    std::vector<double> B{-8, 0, 3};
    SimQ(N, A, B, flag);
    EXPECT_EQ(flag, 0);
    EXPECT_NEAR(B[0], -4, 1e-12);
    EXPECT_NEAR(B[1], -5, 1e-12);
    EXPECT_NEAR(B[2], 2, 1e-12);
}

TEST_F(Numeric, SolverTellsTheColumnOfAZeroPivotAndLeavesTheRightSidePartlyReduced) {
    desktop.Expect_Message("There is a zero value on diagonal in column 2", platform::Answer::kOk,
                           platform::Icon::kNone);
    Integer N = 3, flag;
    std::vector<double> A{2, 0, 1, 4, 0, 3, 6, 0, 5};
    std::vector<double> B{1, 2, 5};
    SimQ(N, A, B, flag);
    EXPECT_EQ(flag, 2);
    // The largest pivot, 6, came up; the rows below were reduced once, with their signs turned.
    EXPECT_EQ(B[0], 5);
    EXPECT_NEAR(B[1], 5 * 4 / 6.0 - 2, 1e-12);
    EXPECT_NEAR(B[2], 5 * 2 / 6.0 - 1, 1e-12);
}

TEST_F(Numeric, SolverSkipsTheLastDivisionOfASingularSystemInSilence) {
    Integer N = 2, flag = 9;
    std::vector<double> A{2, 1, 4, 2};
    std::vector<double> B{3, 6};
    SimQ(N, A, B, flag);
    EXPECT_EQ(flag, 0);
    EXPECT_EQ(B[1], 0);  // 6 * 2 / 4 - 3, not divided
    EXPECT_EQ(B[0], 1.5);
}

TEST_F(Numeric, SolverTakesTheFirstOfRowsWithEqualPivots) {
    Integer N = 2, flag;
    std::vector<double> A{1, 5, -1, 3};
    std::vector<double> B{11, 5};
    SimQ(N, A, B, flag);
    EXPECT_NEAR(B[0], 1, 1e-12);
    EXPECT_NEAR(B[1], 2, 1e-12);
    EXPECT_EQ(A[0], 1);
}

TEST_F(Numeric, ExtremesReplaceOnlyWhenStrictlyBeyond) {
    const std::array<double, 5> items{2, 5, 5, -3, -3};
    const Element one = [&](int i) { return Single(items[static_cast<std::size_t>(i)]); };
    Single max, min;
    MaxMin1(one, 0, 4, max, min);
    EXPECT_EQ(max, 5.0);
    EXPECT_EQ(min, -3.0);
    const Element2 two = [&](int, int i) { return Single(items[static_cast<std::size_t>(i)]); };
    Integer max_at = 77, min_at = 77;
    MaxMin2(two, 0, 0, 4, max, min, max_at, min_at);
    EXPECT_EQ(max_at, 1);
    EXPECT_EQ(min_at, 3);
    max_at = 77;
    MaxMin2(two, 0, 1, 4, max, min, max_at, min_at);
    EXPECT_EQ(max_at, 77) << "the element at the first place stays the largest";
}

TEST_F(Numeric, AverageFollowsItsOrderAndSumsNothingForAnyOther) {
    const Element2 item = [](int row, int column) { return Single(10 * row + column); };
    Single mean;
    Average2(1, 3, item, "I_Pointer", 2, mean);
    EXPECT_EQ(mean, 22.0);
    Average2(1, 3, item, "Pointer_I", 2, mean);
    EXPECT_EQ(mean, 22.0);
    Average2(0, 3, item, "Pointer_I", 1, mean);
    EXPECT_EQ(mean, 11.5);
    Average2(1, 3, item, "else", 2, mean);
    EXPECT_EQ(mean, 0.0);
    Average2(1, 0, item, "I_Pointer", 2, mean);
    EXPECT_EQ(mean, 0.0);
}

TEST_F(Numeric, GlobalMaximumIsTheLargestMagnitudeOfBothArrays) {
    const Element a = [](int i) { return Single(i); };
    const Element b = [](int i) { return Single(-2 * i); };
    Single largest;
    GlobalMax(a, b, 0, 6, largest);
    EXPECT_EQ(largest, 12.0);
}

TEST_F(Numeric, RootMeanSquareDividesByThePointsNotTheIntervals) {
    const Element2 item = [](int i, int) { return Single(i + 1); };
    Single rms;
    Rms2(0, 3, item, 0, rms);
    EXPECT_NEAR(rms, std::sqrt(((1 + 4) + (4 + 9) + (9 + 16)) / 2.0 / 4), 1e-6);
}

TEST_F(Numeric, RootMeanSquareOfOnePositionIsTheElementWithItsSign) {
    const Element2 item = [](int, int) { return Single(-3); };
    Single rms;
    Rms2(0, 0, item, 0, rms);
    EXPECT_EQ(rms, -3.0);
}

TEST_F(Numeric, LinesMeet) {
    Single X, Y;
    Integer flag;
    std::string message;
    Line_Intersect(0, 0, 2, 2, 0, 2, 2, 0, X, Y, flag, message);
    EXPECT_EQ(flag, 0);
    EXPECT_EQ(message, "");
    EXPECT_EQ(X, 1.0);
    EXPECT_EQ(Y, 1.0);
}

TEST_F(Numeric, VerticalLineIsToldAndItsPointIsComputedAllTheSame) {
    Single X, Y;
    Integer flag;
    std::string message;
    Line_Intersect(1, 0, 1, 5, 0, 2, 4, 2, X, Y, flag, message);
    EXPECT_EQ(flag, 1);
    EXPECT_EQ(message, "Line 1 is vertical, has infinite slope");
    EXPECT_NEAR(X, 1, 1e-5);
    EXPECT_NEAR(Y, 2, 1e-1);
    Line_Intersect(0, 2, 4, 2, 1, 0, 1, 5, X, Y, flag, message);
    EXPECT_EQ(message, "Line 2 is vertical, has infinite slope");
}

TEST_F(Numeric, TwoVerticalLinesAreReportedAsParallel) {
    Single X = 9, Y = 9;
    Integer flag;
    std::string message;
    Line_Intersect(1, 0, 1, 5, 3, 0, 3, 5, X, Y, flag, message);
    EXPECT_EQ(flag, 1);
    EXPECT_EQ(message, "The lines are parallel - No intersection");
    EXPECT_EQ(X, 0.0);
    EXPECT_EQ(Y, 0.0);
}

TEST_F(Numeric, FileNamesAreCutAtEitherSeparatorAndNeedAThreeLetterExtension) {
    EXPECT_EQ(StripFilename("C:\\models\\press.vlk"), "press");
    EXPECT_EQ(StripFilename("/home/user/press.vlk"), "press");
    EXPECT_EQ(StripFilename("press.vlk"), "press");
    EXPECT_EQ(StripFilename("two words.vlk"), "two words");
    EXPECT_EQ(StripFilename("/home/user/press.vlkx"), "");
    EXPECT_EQ(StripFilename("/home/user/press"), "");
    EXPECT_EQ(StripFilename(""), "");
    EXPECT_EQ(StripFilename("vlk"), "");
}

}  // namespace
}  // namespace verlink::test
