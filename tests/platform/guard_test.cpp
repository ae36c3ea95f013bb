// The guard: what it reports, what it lets the caller know, and failures of a run that are told as one.
#include "platform/guard.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "platform/unheard.h"

namespace verlink::test {
namespace {

using Reports = std::vector<std::string>;

Reports reports;

void Note(long number, const std::string& procedure) {
    reports.push_back(procedure + " " + std::to_string(number) + " x" + std::to_string(Repeats()));
}

class Guard : public testing::Test {
   protected:
    Guard() {
        reports.clear();
        Install_Reporter(Note);
    }
    ~Guard() override { Install_Reporter(nullptr); }

    static bool Fail(const char* procedure, long number) {
        return Guarded(procedure, [number] { platform::Raise(number); });
    }
};

TEST_F(Guard, WithoutAReporterAFailureIsAMistakeOfTheProgram) {
    Install_Reporter(nullptr);
    EXPECT_THROW(Fail("Somewhere", 11), std::logic_error);
}

TEST_F(Guard, AFailureThatNobodyIsToHearOfIsNotTold) {
    {
        const platform::Unheard unheard;
        EXPECT_FALSE(Fail("Calculate", 11));
    }
    EXPECT_EQ(reports, Reports());
    EXPECT_FALSE(Fail("Calculate", 11));
    EXPECT_EQ(reports, (Reports{"Calculate 11 x1"}));
}

TEST_F(Guard, EachFailureIsToldAtOnceAndForItself) {
    EXPECT_FALSE(Fail("Calculate", 11));
    EXPECT_EQ(reports, (Reports{"Calculate 11 x1"}));
    EXPECT_FALSE(Fail("Calculate", 11));
    EXPECT_EQ(reports, (Reports{"Calculate 11 x1", "Calculate 11 x1"}));
    EXPECT_EQ(Repeats(), 1);
}

TEST_F(Guard, FailuresOfARunAreToldAtItsEndOnceWithTheirCount) {
    {
        const Told_As_One told;
        for (int step = 0; step < 5; ++step) {
            EXPECT_FALSE(Fail("Calculate", 11)) << "the procedure ends all the same";
            if (step > 2) Fail("Calculate", 6);
            Fail("Centrodes", 11);
        }
        EXPECT_EQ(reports, Reports{});
    }
    EXPECT_EQ(reports, (Reports{"Calculate 11 x5", "Centrodes 11 x5", "Calculate 6 x2"}))
        << "by number and procedure, in the order in which they first happened";
    EXPECT_EQ(Repeats(), 1);
    Fail("Calculate", 11);
    EXPECT_EQ(reports.back(), "Calculate 11 x1") << "nothing is gathered any more";
}

TEST_F(Guard, ARunWithinARunIsToldWithTheOuterOne) {
    {
        const Told_As_One outer;
        Fail("Calculate", 11);
        {
            const Told_As_One inner;
            Fail("Calculate", 11);
        }
        EXPECT_EQ(reports, Reports{});
        Fail("Calculate", 11);
    }
    EXPECT_EQ(reports, (Reports{"Calculate 11 x3"}));
}

TEST_F(Guard, ARunWithoutFailuresTellsNothing) {
    { const Told_As_One told; }
    EXPECT_EQ(reports, Reports{});
}

TEST_F(Guard, AFailureThatIsTakenCareOfIsNotGathered) {
    const Told_As_One told;
    EXPECT_EQ(Failure_Of([] { platform::Raise(53); }), 53);
    EXPECT_FALSE(Guarded_Unless_Cancelled("Opening", [] { platform::Raise(platform::kDialogCancelled); }));
    EXPECT_EQ(Failure_Of([] {}), 0);
    EXPECT_EQ(reports, Reports{});
}

TEST_F(Guard, WhatTheReporterSetsOffIsToldWhenItHappens) {
    Install_Reporter([](long number, const std::string& procedure) {
        Note(number, procedure);
        // The reporter may show a screen, where other things fail.
        if (number == 7) Guarded("Elsewhere", [] { platform::Raise(11); });
    });
    {
        const Told_As_One told;
        Fail("Here", 7);
        Fail("Here", 7);
    }
    EXPECT_EQ(reports, (Reports{"Here 7 x2", "Elsewhere 11 x1"}));
}

}  // namespace
}  // namespace verlink::test
