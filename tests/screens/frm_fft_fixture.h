// What the tests of the transform screen start from: a run whose rocker speed is known.
#pragma once

#include <cmath>

#include "core/linkage_model.h"
#include "dynamics/units.h"
#include "screens/frm_fft.h"
#include "shell/initialize.h"
#include "shell/startup.h"
#include "tests/support/fixture.h"

namespace verlink::test {

/// The screen loads what the start of the program has filled, so that this comes first.
class StartedProgram : public Fixture {
   protected:
    StartedProgram() {
        Set_Identity();
        Initialize();
        Use_Units(1);
        Model.Calctype = 3;
    }
};

class FftScreen : public StartedProgram {
   protected:
    FftScreen() { Run(360); }

    /// A mean of 3, a cosine of 8 once, a sine of 2 five times over the samples 1 to N.
    static void Run(int N) {
        Model.NSteps = N;
        for (int n = 0; n <= N; ++n) {
            const double turn = 2 * M_PI * (n - 1) / N;
            Model.RunTable.Omega(n, 2) = 3 + 8 * std::cos(turn) + 2 * std::sin(5 * turn);
            Model.RunTable.VelXY(n, 2, 0) = 1 + std::cos(2 * turn);
            Model.RunTable.VelXY(n, 2, 1) = 6;
        }
    }
    void Activate() { form.Form_Activate(); }
    static void Choose(platform::ComboBox& box, const std::string& item) {
        for (int index = 0; index < static_cast<int>(box.Items().size()); ++index)
            if (box.Items()[static_cast<std::size_t>(index)] == item) {
                box.Choose(index);
                return;
            }
        ADD_FAILURE() << item << " is not on the list of " << box.Name();
    }
    void Pick(const std::string& function) {
        Activate();
        Choose(form.cmb_Var1, function);
    }
    static void Expect_No_Results(int last) {
        for (int i = 0; i <= last; ++i)
            for (int row = 0; row <= 3; ++row) EXPECT_EQ(Model.FFTResult(i, row), 0.0);
    }

    frm_FFT& form = dynamic_cast<frm_FFT&>(platform::Screens::Get("frm_FFT"));
};

}  // namespace verlink::test
