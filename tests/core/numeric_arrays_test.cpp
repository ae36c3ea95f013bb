// Extreme values, means, lines and file names.
#include <array>
#include <cmath>
#include <filesystem>

#include "core/numeric.h"
#include "tests/core/linkages.h"

namespace verlink::test {

namespace {

class NumericArrays : public Fixture {
   protected:
    static constexpr std::array<double, 6> kValues{3, -5, 2, 7, -1, 7};
    static Single At(int i) { return kValues.at(static_cast<std::size_t>(i)); }
    static Single Row1(int row, int i) { return row == 1 ? static_cast<double>(At(i)) : 100; }
    static Single Column1(int i, int column) { return column == 1 ? static_cast<double>(At(i)) : 100; }
    Single max = 99, min = 99;
    Integer max_index = -7, min_index = -7;
};

TEST_F(NumericArrays, FindsTheExtremes) {
    MaxMin1(At, 0, 5, max, min);
    EXPECT_EQ(max, 7);
    EXPECT_EQ(min, -5);
    MaxMin1(At, 2, 2, max, min);
    EXPECT_EQ(max, 2);
    EXPECT_EQ(min, 2);
    for (const double sign : {1.0, -1.0}) {
        const auto rising = [sign](int i) { return Single(sign * i); };
        MaxMin1(rising, 1, 4, max, min);
        EXPECT_EQ(max, sign > 0 ? 4 : -1);
        EXPECT_EQ(min, sign > 0 ? 1 : -4);
    }
}

TEST_F(NumericArrays, FindsTheFirstOfEqualExtremesWithItsIndex) {
    MaxMin2(Row1, 1, 0, 5, max, min, max_index, min_index);
    EXPECT_EQ(max, 7);
    EXPECT_EQ(max_index, 3);
    EXPECT_EQ(min, -5);
    EXPECT_EQ(min_index, 1);
}

TEST_F(NumericArrays, LeavesTheIndexOfAnExtremeThatIsTheFirstElement) {
    MaxMin2(Row1, 1, 1, 3, max, min, max_index, min_index);
    EXPECT_EQ(min, -5);
    EXPECT_EQ(min_index, -7);
    EXPECT_EQ(max_index, 3);
}

TEST_F(NumericArrays, AveragesByTheOrderOfTheSubscripts) {
    Single mean = 0;
    Average2(0, 5, Column1, "I_Pointer", 1, mean);
    EXPECT_NEAR(mean, 13.0 / 6, 2e-7);
    Average2(1, 2, Row1, "Pointer_I", 1, mean);
    EXPECT_EQ(mean, -1.5);
}

TEST_F(NumericArrays, AveragesNothingForAnotherOrder) {
    Single mean = 5;
    Average2(0, 5, Column1, "pointer_i", 1, mean);
    EXPECT_EQ(mean, 0);
}

TEST_F(NumericArrays, AnAverageOverNoElementsIsTheSum) {
    Single mean = 5;
    Average2(3, 2, Column1, "I_Pointer", 1, mean);
    EXPECT_EQ(mean, 0);
}

TEST_F(NumericArrays, SumsAreRoundedToSingleAtEachStep) {
    const auto tenths = [](int, int) { return Single(0.1); };
    Single mean = 0;
    Average2(1, 1000, tenths, "I_Pointer", 0, mean);
    float sum = 0;
    for (int i = 0; i < 1000; ++i) sum = static_cast<float>(static_cast<double>(sum) + static_cast<double>(0.1F));
    EXPECT_EQ(mean, static_cast<double>(static_cast<float>(static_cast<double>(sum) / 1000)));
}

TEST_F(NumericArrays, TheLargestMagnitudeIsOverBothArrays) {
    Single largest = 0;
    const auto negated = [](int i) { return Single(-2 * At(i)); };
    GlobalMax(At, negated, 0, 5, largest);
    EXPECT_EQ(largest, 14);
    GlobalMax(negated, At, 0, 5, largest);
    EXPECT_EQ(largest, 14);
    GlobalMax(At, At, 0, 2, largest);
    EXPECT_EQ(largest, 5);
    const auto zeros = [](int) { return Single(0); };
    GlobalMax(zeros, zeros, 0, 5, largest);
    EXPECT_EQ(largest, 0);
}

TEST_F(NumericArrays, TheRootMeanSquareDividesByThePoints) {
    const auto ramp = [](int i, int column) { return column == 2 ? Single(i) : Single(100); };
    Single rms = 0;
    Rms2(0, 3, ramp, 2, rms);
    EXPECT_NEAR(rms, std::sqrt(((0 + 1) + (1 + 4) + (4 + 9)) / 2.0 / 4), 1e-7);
}

TEST_F(NumericArrays, TheRootMeanSquareOfOnePositionIsItsElementWithItsSign) {
    Single rms = 0;
    Rms2(
        0, 0, [](int, int) { return Single(-4); }, 1, rms);
    EXPECT_EQ(rms, -4);
}

TEST_F(NumericArrays, ARootMeanSquareOfNoPointsIsReported) {
    Single rms = 3;
    desktop.Expect_Message(Report(11, "Division by zero", "Rms2"));
    Rms2(3, 2, Column1, 1, rms);
    EXPECT_EQ(rms, 3);
}

TEST_F(NumericArrays, AFailingElementIsReportedUnderTheReductionsName) {
    const auto failing = [&](int i) -> Single {
        if (i > 3) platform::Raise(platform::kSubscript);
        return 1;
    };
    desktop.Expect_Message(Report(9, "Subscript out of range", "MaxMin1"));
    MaxMin1(failing, 0, 5, max, min);
}

class Lines : public Fixture {
   protected:
    Single X = 9, Y = 9;
    Integer Flag = 9;
    std::string Message = "before";
    void Intersect(double x1, double y1, double x2, double y2, double x3, double y3, double x4, double y4) {
        Line_Intersect(x1, y1, x2, y2, x3, y3, x4, y4, X, Y, Flag, Message);
    }
};

TEST_F(Lines, MeetInTheirCommonPoint) {
    Intersect(0, 0, 2, 2, 0, 4, 4, 0);
    EXPECT_EQ(Flag, 0);
    EXPECT_EQ(Message, "");
    EXPECT_EQ(X, 2);
    EXPECT_EQ(Y, 2);
    Intersect(1, 1, 3, 2, 5, 0, 4, 3);
    // y = x/2 + 1/2 and y = 15 - 3x
    EXPECT_NEAR(X, 14.5 / 3.5, 1e-6);
    EXPECT_NEAR(Y, 14.5 / 7 + 0.5, 1e-6);
}

TEST_F(Lines, AVerticalFirstLineIsFlaggedAndStillIntersected) {
    Intersect(1, 0, 1, 5, 0, 2, 4, 2);
    EXPECT_EQ(Flag, 1);
    EXPECT_EQ(Message, "Line 1 is vertical, has infinite slope");
    EXPECT_NEAR(X, 1, 1e-5);
    EXPECT_NEAR(Y, 2, 0.1);  // the slope of 1000000 leaves it this near
}

TEST_F(Lines, AVerticalSecondLineIsFlaggedAndStillIntersected) {
    Intersect(0, 0, 4, 4, 3, 0, 3, 1);
    EXPECT_EQ(Flag, 1);
    EXPECT_EQ(Message, "Line 2 is vertical, has infinite slope");
    EXPECT_NEAR(X, 3, 1e-4);
    EXPECT_NEAR(Y, 3, 1e-4);
}

TEST_F(Lines, TwoVerticalLinesAreParallel) {
    Intersect(1, 0, 1, 5, 3, 0, 3, 1);
    EXPECT_EQ(Flag, 1);
    EXPECT_EQ(Message, "The lines are parallel - No intersection");
    EXPECT_EQ(X, 0);
    EXPECT_EQ(Y, 0);
}

TEST_F(Lines, ParallelLinesMeetNowhereAndGiveTheOrigin) {
    Intersect(0, 0, 1, 2, 5, 1, 6, 3);
    EXPECT_EQ(Flag, 1);
    EXPECT_EQ(Message, "The lines are parallel - No intersection");
    EXPECT_EQ(X, 0);
    EXPECT_EQ(Y, 0);
}

TEST_F(Lines, AnIntersectionTooFarAwayIsReportedAndLeavesThePoint) {
    desktop.Expect_Message(Report(6, "Overflow", "Line_Intersect"));
    Intersect(0, 0, 1e-30, 3e38, 0, 0, 1, 1);
    EXPECT_EQ(X, 9);
    EXPECT_EQ(Y, 9);
}

TEST(FileNames, LoseFolderAndExtension) {
    EXPECT_EQ(StripFilename("C:\\Data\\press.vlk"), "press");
    EXPECT_EQ(StripFilename("press.vlk"), "press");
    EXPECT_EQ(StripFilename("C:\\a.b\\two.parts.vlk"), "two.parts");
    EXPECT_EQ(StripFilename("\\.vlk"), "");
    EXPECT_EQ(StripFilename(".vlk"), "");
}

TEST(FileNames, AreCutAtThePlatformsOwnSeparatorToo) {
    const char separator = static_cast<char>(std::filesystem::path::preferred_separator);
    EXPECT_EQ(StripFilename(std::string("folder") + separator + "press.vlk"), "press");
    EXPECT_EQ(StripFilename(std::string("C:\\x") + separator + "y\\press.vlk"), "press");
}

TEST(FileNames, WithoutAThreeLetterExtensionAreEmpty) {
    EXPECT_EQ(StripFilename("C:\\Data\\press.html"), "");
    EXPECT_EQ(StripFilename("press"), "");
    EXPECT_EQ(StripFilename("press.c"), "");
    for (const char* short_name : {"", "k", "lk", "vlk", ".k"}) EXPECT_EQ(StripFilename(short_name), "") << short_name;
}

TEST(FileNames, AreCutWhereverTheFourthCharacterFromTheEndIsAPoint) {
    EXPECT_EQ(StripFilename("a\\b.c\\d"), "b");  // the last four characters are taken for an extension
}

}  // namespace

}  // namespace verlink::test
