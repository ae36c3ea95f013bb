// Checks in words.
#include "checks/words.h"

#include <gtest/gtest.h>

#include <limits>

namespace verlink::test {

TEST(WordsOfChecks, NumbersHaveThreeDigits) {
    EXPECT_EQ(Check_Number(0.000123456), "0.000123");
    EXPECT_EQ(Check_Number(1.2e-7), "1.2E-07");
    EXPECT_EQ(Check_Number(0), "0");
    EXPECT_EQ(Check_Number(std::numeric_limits<double>::infinity()), "INF");
}

TEST(WordsOfChecks, VerdictsHaveWords) {
    EXPECT_EQ(Words_Of(Verdict::kGood), "good");
    EXPECT_EQ(Words_Of(Verdict::kByDesign), "by design");
    EXPECT_EQ(Words_Of(Verdict::kFails), "fails");
}

TEST(WordsOfChecks, AllAreSummedUpInASentence) {
    const Check good;
    Check design, fails;
    design.verdict = Verdict::kByDesign;
    fails.verdict = Verdict::kFails;
    EXPECT_EQ(Summary_Of({}), "There are no results to check: calculate a linkage on the input screen first.");
    EXPECT_EQ(Summary_Of({good, good}), "All 2 checks are good.");
    EXPECT_EQ(Summary_Of({good, design}), "All 2 checks are good, 1 of them as far as the program goes by design.");
    EXPECT_EQ(Summary_Of({good, design, fails}), "1 of 3 checks fails.");
    EXPECT_EQ(Summary_Of({fails, fails, good}), "2 of 3 checks fail.");
}

}  // namespace verlink::test
