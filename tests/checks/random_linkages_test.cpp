// Good results of random linkages pass every check, and by no more than single precision explains.
#include <algorithm>
#include <map>
#include <vector>

#include "files/model_file.h"
#include "platform/file_system.h"
#include "tests/checks/linkages.h"

namespace verlink::test {

namespace {

constexpr int kLinkages = 120;

void Expect_None_Fails(const std::vector<Check>& checks) {
    for (const Check& check : checks)
        EXPECT_NE(check.verdict, Verdict::kFails)
            << check.name << ": " << check.worst << " of " << check.expected << " " << check.unit << " at "
            << check.where << ", lengths " << Model.L1 << " " << Model.L2 << " " << Model.L3 << " " << Model.L4;
}

}  // namespace

// Of 38,500 random linkages with runs none failed by a quarter of what is expected.
TEST_F(Random_Linkages, PassWhatTheirRunsAreCheckedBy) {
    SCOPED_TRACE(Trace());
    std::map<std::string, double> largest;
    int runs = 0, driven = 0, forces = 0;
    for (int i = 0; i < kLinkages; ++i) {
        if (!Take_Random()) continue;
        ++runs;
        driven += Model.Calctype > 3 ? 1 : 0;
        if (Perhaps()) {
            Take_Forces();
            ++forces;
        }
        const std::vector<Check> checks = Checks_Of(Model);
        Expect_None_Fails(checks);
        ASSERT_FALSE(checks.empty());
        for (const Check& check : checks)
            if (check.verdict == Verdict::kGood && check.expected > 0)
                largest[check.name] = std::max(largest[check.name], check.worst / check.expected);
    }
    EXPECT_GT(runs, kLinkages / 2);
    EXPECT_GT(driven, 0);
    EXPECT_GT(forces, 0);
    // What is expected is no empty allowance: of a few runs each comes to a part of it.
    for (const char* name : {"Loop closure", "Positions", "Angles", "Angular speeds", "Velocities", "Ratio of speeds",
                             "Mechanical advantage", "Angular accelerations", "Accelerations", "Pin forces",
                             "Power in and out", "Cognates"})
        EXPECT_GT(largest[name], 0.0025) << name;
}

TEST_F(Random_Linkages, HaveTransformsThatGiveTheirFunctionsBack) {
    SCOPED_TRACE(Trace());
    int transforms = 0;
    for (int i = 0; i < kLinkages / 2; ++i) {
        if (!Take_Random() || Model.NSteps < 3) continue;
        Take_Forces();
        Take_Transform();
        const std::vector<Check> checks = Checks_Of(Model);
        const auto found = std::ranges::find(checks, std::string("Inverse of the transform"), &Check::name);
        ASSERT_NE(found, checks.end());
        EXPECT_NE(found->verdict, Verdict::kFails)
            << transformed << ", " << Model.NSteps << " steps, off " << found->worst;
        ++transforms;
    }
    EXPECT_GT(transforms, 10);
}

TEST_F(Random_Linkages, LookingAtThemChangesNothing) {
    SCOPED_TRACE(Trace());
    for (int i = 0; i < 10; ++i) {
        if (!Take_Random()) continue;
        Take_Forces();
        ResultHash before, after;
        before.Add_Run();
        const bool due = Model.CognatesDue;
        Checks_Of(Model);
        after.Add_Run();
        EXPECT_EQ(before.Value(), after.Value());
        EXPECT_EQ(Model.CognatesDue, due);
    }
}

TEST_F(Random_Linkages, WithoutARunHaveNoChecks) {
    EXPECT_TRUE(Checks_Of(Model).empty());
    EXPECT_FALSE(Any_Fails({}));
}

}  // namespace verlink::test
