// Sines and cosines by the vector functions of the C library where there are any; built with -O3 everywhere.
#include "output/sines.h"

#include <cmath>

// Two declarations and two loops: one loop with both calls would be merged into a scalar call for the pair.
#if defined(__x86_64__) && defined(__GLIBC__) && defined(__GNUC__) && !defined(__clang__)
extern "C" {
__attribute__((simd("notinbranch"))) double sin(double) noexcept;
__attribute__((simd("notinbranch"))) double cos(double) noexcept;
}
#define VERLINK_WIDEST __attribute__((target_clones("avx2", "default")))
#else
#define VERLINK_WIDEST
#endif

namespace verlink {

namespace {

VERLINK_WIDEST void Sines(const double* __restrict angles, double* __restrict sines, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) sines[i] = ::sin(angles[i]);
}

VERLINK_WIDEST void Cosines(const double* __restrict angles, double* __restrict cosines, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) cosines[i] = ::cos(angles[i]);
}

}  // namespace

void Sines_And_Cosines(std::span<const double> angles, std::span<double> sines, std::span<double> cosines) {
    Sines(angles.data(), sines.data(), angles.size());
    Cosines(angles.data(), cosines.data(), angles.size());
}

}  // namespace verlink
