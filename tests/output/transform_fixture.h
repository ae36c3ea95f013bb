// What the tests of the transform share: signals in a slot, and the plain double loop to compare with.
#pragma once

#include <cmath>
#include <functional>
#include <vector>

#include "core/linkage_model.h"
#include "output/catalogue.h"
#include "output/transform.h"
#include "tests/support/fixture.h"

namespace verlink::test {

/// Real, imaginary, magnitude and phase by harmonic.
using Spectrum = std::vector<std::array<float, 4>>;

class Dft : public Fixture {
   protected:
    Dft() {
        Load_Catalogue();
        Select_Variable("Omega4", 1);
    }

    /// Samples 1 to N of the function in slot 1; sample 0 is something else.
    static void Put(const std::vector<double>& samples) {
        Model.RunTable.Omega(0, 2) = 777;
        for (std::size_t n = 1; n <= samples.size(); ++n) Model.RunTable.Omega(static_cast<int>(n), 2) = samples[n - 1];
    }
    static std::vector<double> Signal(int N, const std::function<double(double turn)>& function) {
        std::vector<double> samples;
        for (int n = 0; n < N; ++n) samples.push_back(function(2 * M_PI * n / N));
        return samples;
    }
    static void Transform_Samples(const std::vector<double>& samples) {
        Put(samples);
        Integer last = static_cast<int>(samples.size());
        Do_DFT(last);
    }
    static float Result(int harmonic, int row) { return static_cast<float>(double{Model.FFTResult(harmonic, row)}); }

    /// The sums one after the other, with the scalar functions.
    static Spectrum Plain_Loop(const std::vector<double>& samples) {
        const int N = static_cast<int>(samples.size());
        const auto cut = [](double sum) { return std::fabs(static_cast<float>(sum)) < 0.00001F ? 0.0 : sum; };
        std::vector<std::array<double, 4>> table(samples.size() + 1);
        for (int k = 1; k <= N; ++k) {
            double re = 0, im = 0;
            for (int n = 1; n <= N; ++n) {
                const double x = static_cast<float>(samples[static_cast<std::size_t>(n - 1)]);
                const double a = (k - 1) * 6.283185308 * (n - 1) / N;
                re = cut(re + x * std::cos(a) / N);
                im = cut(im - x * std::sin(a) / N);
            }
            double phase = im == 0 ? 0 : 1.570796327;
            if (static_cast<float>(re) != 0) phase = std::atan(im / re);
            table[static_cast<std::size_t>(k)] = {re, im, std::sqrt(im * im + re * re), phase * 57.29577950560105};
        }
        Spectrum spectrum(static_cast<std::size_t>(std::max(1, (N + 1) / 2)));
        for (std::size_t i = 0; i < spectrum.size(); ++i)
            for (std::size_t row = 0; row < 4; ++row)
                spectrum[i][row] = static_cast<float>((i == 0 ? 1 : 2) * table[i + 1][row]);
        return spectrum;
    }
};

}  // namespace verlink::test
