// Which of many departures is told, beside what is expected.
#include "checks/worst.h"

#include <cmath>
#include <limits>

#include "tests/checks/linkages.h"

namespace verlink::test {

using checks::Worst;

namespace {

class Worst_Of_Many : public Fixture {
   protected:
    Worst_Of_Many() {
        for (int step = 0; step <= 9; ++step) Model.RunTable.Theta(step, 0) = 10.126 * step;
    }
    Check Told(const std::string& design = "") const { return worst.Told(Model, "Meaning.", design); }
    void Expect(Verdict verdict, double departure, double expected, const std::string& where) const {
        const Check check = Told("Design.");
        EXPECT_EQ(check.name, "Name");
        EXPECT_EQ(check.unit, "unit");
        EXPECT_EQ(check.verdict, verdict);
        EXPECT_EQ(check.worst, departure);
        EXPECT_EQ(check.expected, expected);
        EXPECT_EQ(check.where, where);
        EXPECT_EQ(check.meaning, verdict == Verdict::kByDesign ? "Meaning. Design." : "Meaning.");
        EXPECT_EQ(worst.Fails(), verdict == Verdict::kFails);
        EXPECT_TRUE(worst.Any());
    }
    static constexpr double kInfinite = std::numeric_limits<double>::infinity();
    Worst worst{"Name", "unit"};
};

}  // namespace

TEST_F(Worst_Of_Many, OfGoodOnesTheLargestIsToldWithFourTimesItsRounding) {
    EXPECT_FALSE(worst.Any());
    EXPECT_FALSE(worst.Fails());
    worst.Add(0.5, 0.25, 1, "A");
    worst.Add(2, 8, 2, "B");
    worst.Add(1, 0.25, 3, "P");
    worst.Add(2, 16, 4, "later");
    Expect(Verdict::kGood, 2, 32, "step 2, 20.25 deg, B");
}

TEST_F(Worst_Of_Many, AnEqualOneIsStillGood) {
    worst.Add(1, 0.25, 3, "");
    Expect(Verdict::kGood, 1, 1, "step 3, 30.38 deg");
}

TEST_F(Worst_Of_Many, OfFailingOnesTheOneMostBeyondIsTold) {
    worst.Add(100, 50, 1, "large");
    worst.Add(2, 0.25, 0, "first");
    worst.Add(3, 0.25, 5, "most");
    worst.Add(6, 0.5, 6, "as much");
    Expect(Verdict::kFails, 3, 1, "step 5, 50.63 deg, most");
}

TEST_F(Worst_Of_Many, WhatIsLeftOpenAltogetherDoesNotCount) {
    worst.Add(7, kInfinite, 1, "A");
    EXPECT_FALSE(worst.Any());
    worst.Add(1, 1, 2, "B");
    Expect(Verdict::kGood, 1, 4, "step 2, 20.25 deg, B");
}

TEST_F(Worst_Of_Many, WhatIsNoNumberFailsBeyondAllOthers) {
    worst.Add(9, 0.25, 1, "A");
    worst.Add(kInfinite, 0.25, 2, "B");
    worst.Add(10, 0.25, 3, "P");
    Expect(Verdict::kFails, kInfinite, 1, "step 2, 20.25 deg, B");
    Worst other("Name", "unit");
    other.Add(std::nan(""), 0.25, -1, "");
    EXPECT_TRUE(other.Fails());
    EXPECT_EQ(other.Told(Model, "").where, "");
}

TEST_F(Worst_Of_Many, WhereNothingIsExpectedNothingSingleCanHoldIsLeft) {
    worst.Add(1e-38, 0, 1, "A");
    EXPECT_FALSE(worst.Fails()) << "below the least single";
    worst.Add(1.5e-38, 0, 1, "A");
    EXPECT_TRUE(worst.Fails());
}

TEST_F(Worst_Of_Many, TheLargestByDesignIsToldWhereTheRestIsGood) {
    worst.Add(0.5, 1, 1, "A");
    worst.Add_By_Design(0, 1, 5, 2, "B");
    worst.Add_By_Design(0, 1, 7, 3, "P");
    worst.Add_By_Design(0, 2, 7, 4, "later");
    Expect(Verdict::kByDesign, 7, 4, "step 3, 30.38 deg, P");
    worst.Add(5, 1, 5, "A");
    Expect(Verdict::kFails, 5, 4, "step 5, 50.63 deg, A");
}

TEST_F(Worst_Of_Many, WhatIsLeftBesideTheDesignFailsAsWell) {
    worst.Add_By_Design(5, 1, 7, 2, "B");
    Expect(Verdict::kFails, 5, 4, "step 2, 20.25 deg, B");
}

TEST_F(Worst_Of_Many, ADesignNoLargerThanRoundingIsNone) {
    worst.Add_By_Design(1, 1, 4, 2, "B");
    Expect(Verdict::kGood, 1, 4, "step 2, 20.25 deg, B");
}

TEST_F(Worst_Of_Many, APlaceWithoutAStepStandsAlone) {
    worst.Add(1, 1, -1, "cognate 2");
    Expect(Verdict::kGood, 1, 4, "cognate 2");
    EXPECT_EQ(checks::Place_Of(Model, 0), "step 0, 0 deg");
}

}  // namespace verlink::test
