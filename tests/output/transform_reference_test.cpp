// The transform of whole runs beside harmonics computed to 40 digits from a motion solved another way; see
// tests/reference/transform.py.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "core/linkage_model.h"
#include "output/catalogue.h"
#include "output/transform.h"
#include "shell/initialize.h"
#include "tests/support/reference.h"

namespace verlink::test {

namespace {

/// What a harmonic may lose: a running sum a few hundred-thousandths by its cut, a sample a few units in its last
/// place by the run that it comes from.
double Tolerance(const Row& function) { return 4e-5 + 6e-6 * Number(function, "Largest"); }

std::vector<Row> Harmonics_Of(const std::string& name) {
    std::vector<Row> found;
    for (const Row& row : Read_Table("transform.csv"))
        if (row.at("Name") == name) found.push_back(row);
    return found;
}

}  // namespace

class TransformReference : public Fixture {};

TEST_F(TransformReference, HarmonicsOfWholeRunsAreThoseOfTheExactMotion) {
    int phases = 0;
    for (const Row& function : Read_Table("transform_functions.csv")) {
        SCOPED_TRACE(function.at("Name"));
        Initialize();
        Run_Linkage(function);
        Integer samples = Model.NSteps;
        ASSERT_EQ(samples, Number(function, "Samples"));
        Select_Variable(function.at("Function"), 1);
        Set_Component(function.at("Component"), 1);
        Model.PlotSlot = 1;
        Do_DFT(samples);

        const double close = Tolerance(function);
        const std::vector<Row> harmonics = Harmonics_Of(function.at("Name"));
        ASSERT_GE(harmonics.size(), 19U);
        for (const Row& exact : harmonics) {
            const int k = static_cast<int>(Number(exact, "Harmonic"));
            SCOPED_TRACE(k);
            EXPECT_NEAR(Model.FFTResult(k, 0), Number(exact, "Real"), close);
            EXPECT_NEAR(Model.FFTResult(k, 1), Number(exact, "Imag"), close);
            EXPECT_NEAR(Model.FFTResult(k, 2), Number(exact, "Mag"), close);
            if (exact.at("Phase").empty()) continue;
            ++phases;
            EXPECT_NEAR(Model.FFTResult(k, 3), Number(exact, "Phase"), 115 * close / Number(exact, "Mag") + 3e-5);
        }
    }
    EXPECT_GT(phases, 60) << "phases were compared where there are any";
}

}  // namespace verlink::test
