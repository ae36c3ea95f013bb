// The elimination of `SimQ` for nine equations, two columns at a time.
#pragma once

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/pairs.h"

namespace verlink {

/// N equations, an odd number, with the right side as one more column.
template <int N>
class PairedSystem {
    static_assert(N % 2 == 1);

   public:
    PairedSystem(const double* A, const double* b) {
        for (int i = 0; i < N; ++i) {
            for (int p = 0; p < N / 2; ++p) rows_[i][p] = Pair{A[i * N + 2 * p], A[i * N + 2 * p + 1]};
            rows_[i][N / 2] = Pair{A[i * N + N - 1], b[i]};
        }
    }

    /// Puts the unknowns into x, each to the bit that the plain loops of `SimQ` give it, zeros with their signs. False,
    /// and x as it was, when a column has no pivot or a number overflows.
    bool Solve(double* x) {
        if (!Reduce(std::make_integer_sequence<int, N - 1>{})) return false;
        double found[N];
        double watch = 0;
        for (int i = N - 1; i >= 0; --i) {
            double sum = At(i, N);
            // What is multiplied by 0 is left out, unless it may turn the sign of a zero.
            for (int j = i + 1; j < N; ++j)
                if (At(i, j) != 0 || sum == 0) sum -= At(i, j) * found[j];
            if (i < N - 1 || At(i, i) != 0) sum /= At(i, i);
            found[i] = sum;
            watch += 0 * sum;
        }
        if (watch != 0) return false;
        std::copy_n(found, N, x);
        return true;
    }

   private:
    static constexpr int kPairs = N / 2 + 1;

    double At(int i, int j) const { return rows_[i][j / 2][j % 2]; }

    template <int... K>
    bool Reduce(std::integer_sequence<int, K...>) {
        return (Reduce_Column<K>() && ...);
    }

    /// Takes column K out of the rows below its pivot, and turns their signs.
    template <int K>
    bool Reduce_Column() {
        double big = 0;
        int found = K;
        for (int i = K; i < N; ++i)
            if (std::fabs(At(i, K)) > big) {
                big = std::fabs(At(i, K));
                found = i;
            }
        if (big == 0) return false;
        if (found != K) std::swap_ranges(rows_[K] + K / 2, rows_[K] + kPairs, rows_[found] + K / 2);

        constexpr int kFirst = (K + 1) / 2;
        const double divisor = At(K, K);
        Pair pivot[kPairs];
        std::copy(rows_[K] + kFirst, rows_[K] + kPairs, pivot + kFirst);
        if constexpr (K % 2 == 0) pivot[kFirst] = Pair{0, At(K, K + 1)};  // column K itself is not read again
        Pair watch{};
        for (int i = K + 1; i < N; ++i) {
            const double factor = At(i, K);
            if (factor == 0) {
                // The quotient of a zero is a zero, of the sign of the product.
                for (int p = kFirst; p < kPairs; ++p) rows_[i][p] = factor * divisor * pivot[p] - rows_[i][p];
                continue;
            }
            for (int p = kFirst; p < kPairs; ++p) {
                rows_[i][p] = factor * pivot[p] / divisor - rows_[i][p];
                watch += 0 * rows_[i][p];
            }
        }
        return watch[0] == 0 && watch[1] == 0;
    }

    Pair rows_[N][kPairs];
};

}  // namespace verlink
