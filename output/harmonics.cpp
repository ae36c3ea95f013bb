// The angles are nearly whole parts of a turn, whose sines stand in a table; what is off is added by its series.
#include "output/harmonics.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/trigonometry.h"
#include "output/harmonic_lanes.h"

namespace verlink {

namespace harmonics {

void Group_By_Pairs(const Common& common, int first, double* re, double* im) { Sum_Group<Pair>(common, first, re, im); }

}  // namespace harmonics

namespace {

using harmonics::Turned;

/// By j of N parts of a turn, from an angle within an eighth of it.
Turned Turned_By(int j, int N) {
    constexpr double kRightAngle = 0x1.921fb54442d18p+0;
    const int quarter = (8 * j + N) / (2 * N);
    double sine, cosine;
    Sin_Cos(kRightAngle * (4 * j - quarter * N) / N, sine, cosine);
    switch (quarter % 4) {
        case 0: return Turned{cosine, sine};
        case 1: return Turned{-sine, cosine};
        case 2: return Turned{-cosine, -sine};
        default: return Turned{sine, -cosine};
    }
}

/// The least double that is rounded to a single of at least `small`.
double Least_Rounded_To(float small) {
    const float below = std::nextafter(small, 0.0F);
    const double middle = (static_cast<double>(below) + static_cast<double>(small)) / 2;
    const bool up = static_cast<float>(middle) == small;
    return up ? middle : std::nextafter(middle, static_cast<double>(small));
}

/// 2 pi / N with 30 bits: times 2880 squared it has 53.
double Short_Step(double whole) {
    constexpr std::uint64_t kLow = (std::uint64_t{1} << 23U) - 1;
    return std::bit_cast<double>(std::bit_cast<std::uint64_t>(whole) & ~kLow);
}

}  // namespace

void Sum_Harmonics(const HarmonicSums& sums, Lanes lanes) {
    using harmonics::kTogether;
    constexpr double kTurn = 0x1.921fb54442d18p+2, kTurnRest = 0x1.1a62633145c07p-52;
    const int N = static_cast<int>(sums.x.size());
    std::vector<double> parts;
    std::vector<Turned> turned;
    for (int n = 0; n < N; ++n) {
        parts.push_back(sums.x[static_cast<std::size_t>(n)] / N);
        turned.push_back(Turned_By(n, N));
    }
    harmonics::Common common{parts.data(), turned.data(), N, sums.two_pi, Least_Rounded_To(sums.small), {}, {}};
    common.step = Short_Step(kTurn / N);
    common.rest = ((kTurn - common.step * N) + kTurnRest) / N;
    const harmonics::Group groups[]{harmonics::Group_By_Pairs,
                                    harmonics::kGroupByFours ? harmonics::kGroupByFours : harmonics::Group_By_Pairs};
    const harmonics::Group group = groups[static_cast<std::size_t>(lanes)];
    for (int first = 0; first < N; first += kTogether) {
        std::array<double, kTogether> re, im;
        group(common, first, re.data(), im.data());
        for (int k = first; k < std::min(N, first + kTogether); ++k) {
            sums.re[static_cast<std::size_t>(k)] = re[static_cast<std::size_t>(k - first)];
            sums.im[static_cast<std::size_t>(k)] = im[static_cast<std::size_t>(k - first)];
        }
    }
}

}  // namespace verlink
