// The models to try pass every check, with their own forces where they have masses.
#include <filesystem>
#include <vector>

#include "files/model_file.h"
#include "platform/file_system.h"
#include "tests/checks/linkages.h"

namespace verlink::test {

TEST_F(Random_Linkages, SamplesPassEveryCheck) {
    int samples = 0;
    for (const auto& entry : std::filesystem::directory_iterator(VERLINK_SAMPLES)) {
        if (entry.path().extension() != ".vlk") continue;
        SCOPED_TRACE(entry.path().string());
        Reset_Model();
        Initialize();
        Notes notes(desktop, platform::Answer::kIgnore);
        ASSERT_TRUE(Load_Model(platform::Read_File(entry.path())));
        Derive_Linkage(Leading::kInForce);
        Integer result;
        Set_Circuit(Model.CircuitIndex, Model.CircuitSign, Model.CircuitName);
        if (Model.Calctype > 3)
            Imported_Run(result);
        else
            Calc_Setup(Model.Calctype, result);
        verlink::Solve_Forces(Model);
        if (Model.Calctype == 3) {
            Default_Weights(Model);
            Berkof_Calc(Model, Model.BerkMass, Model.BerkRadius);
        }
        const std::vector<Check> checks = Checks_Of(Model);
        EXPECT_GT(checks.size(), 10U);
        for (const Check& check : checks)
            EXPECT_NE(check.verdict, Verdict::kFails)
                << check.name << ": " << check.worst << " of " << check.expected << " at " << check.where;
        ++samples;
    }
    EXPECT_EQ(samples, 8);
}

}  // namespace verlink::test
