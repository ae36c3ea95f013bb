// The discrete Fourier transform by its double sum.
#include "output/transform.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "core/linkage_model.h"
#include "core/model_on_screens.h"
#include "core/text.h"
#include "output/catalogue.h"
#include "output/harmonics.h"
#include "output/plot_windows.h"
#include "platform/graph.h"
#include "platform/guard.h"

namespace verlink {

namespace {

constexpr int kReal = 0, kImaginary = 1, kMagnitude = 2, kPhase = 3;
constexpr double kTwoPi = 6.283185308;

using Samples = std::array<double, kLastStep + 1>;

double Phase_Of(double re, double im) {
    if (static_cast<float>(re) != 0) return std::atan(im / re) * kRadToDeg;
    return im == 0 ? 0 : kHalfPi * kRadToDeg;  // whatever the sign of the imaginary part
}

}  // namespace

void Do_DFT(Integer& N) {
    Guarded("Do_DFT", [&] {
        Transform& transform = Model;
        auto& table = transform.DFTTable;
        transform.HalfSamples = (N + 1) / 2;
        for (int i = 0; i <= N; ++i)
            for (int row = 0; row <= 3; ++row) table(i, row) = 0;
        transform.DFTSmall = 0.00001;

        static Samples x, reals, imaginaries;
        for (int i = 1; i <= N; ++i) {
            Single value;
            Transform_XY(i, 1, value);
            x[static_cast<std::size_t>(i)] = value;
        }

        const auto count = static_cast<std::size_t>(std::max<int>(N, 0));
        Sum_Harmonics({std::span(x).subspan(1, count), kTwoPi,
                       static_cast<float>(static_cast<double>(transform.DFTSmall)), std::span(reals).first(count),
                       std::span(imaginaries).first(count)});
        for (int k = 1; k <= N; ++k) {
            const double re = reals[static_cast<std::size_t>(k - 1)], im = imaginaries[static_cast<std::size_t>(k - 1)];
            table(k, kReal) = re;
            table(k, kImaginary) = im;
            table(k, kMagnitude) = std::sqrt(im * im + re * re);
            table(k, kPhase) = Phase_Of(re, im);
        }

        for (int row = 0; row <= 3; ++row) {
            transform.FFTResult(0, row) = table(1, row);
            // All rows are doubled, the phase as well.
            // A longer transform before this one must not show behind its last harmonic.
            for (int i = 1; i <= kLastStep; ++i)
                transform.FFTResult(i, row) = i < transform.HalfSamples ? table(i + 1, row) + table(i + 1, row) : 0;
        }
    });
}

void FFT_Plot_Setup(platform::Screen& screen) {
    Guarded("FFT_Plot_Setup", [&] {
        constexpr int kLabelled = 15;  // so many harmonics have a label, the last of them included
        Titlebox(screen);
        SetGridstyle(screen, 4);
        for (int i = 0; i <= 3; ++i) {
            auto& graph = screen.Get<platform::Graph>("grf_Plot", i);
            graph.SetNumPoints(Model.Harmonics + 1);
            graph.BottomTitle = "Harmonic Number";
            graph.TickEvery = 1;
            graph.LabelEvery = (std::max<int>(Model.Harmonics, 1) + kLabelled - 1) / kLabelled;
        }
    });
}

void FFT_Plot(platform::Screen& screen) {
    Guarded("FFT_Plot", [&] {
        for (int i = 0; i < Model.GraphWindows; ++i) {
            Model.PlotSlot = i + 1;
            auto& graph = screen.Get<platform::Graph>("grf_Plot", i);
            graph.ThisSet = 1;
            for (int j = 0; j <= Model.Harmonics; ++j) {
                graph.ThisPoint = j + 1;
                graph.SetGraphData(Model.FFTResult(j, i));
                graph.SetLabelText(Text_Of(j));
            }
            graph.Draw();
        }
    });
}

}  // namespace verlink
