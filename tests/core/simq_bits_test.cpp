// Nine equations beside the plain loops of the elimination: the same bits, zeros with their signs, and the same ends.
#include <bit>
#include <cmath>
#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "core/elimination.h"
#include "core/numeric.h"
#include "tests/core/linkages.h"

namespace verlink::test {

namespace {

constexpr int kN = 9;

struct System {
    std::vector<double> a = std::vector<double>(kN * kN, 0.0);
    std::vector<double> b = std::vector<double>(kN, 0.0);

    /// Counted from 1, the equation first.
    double& A(int i, int j) { return a[static_cast<std::size_t>((i - 1) * kN + j - 1)]; }
    double& B(int i) { return b[static_cast<std::size_t>(i - 1)]; }
};

enum class End { kSolved, kNoPivot, kOverflow };

/// The elimination as it is told: 0 solved, or how it ended before, and at which column.
End Plain_Elimination(System& s, int& column) {
    const auto check = [](double value) { return std::isfinite(value); };
    for (int k = 1; k <= kN - 1; ++k) {
        column = k;
        double big = 0;
        int pivot = k;
        for (int i = k; i <= kN; ++i)
            if (std::fabs(s.A(i, k)) > big) {
                big = std::fabs(s.A(i, k));
                pivot = i;
            }
        if (big == 0) return End::kNoPivot;
        for (int j = k; j <= kN; ++j) std::swap(s.A(k, j), s.A(pivot, j));
        std::swap(s.B(k), s.B(pivot));
        for (int i = k + 1; i <= kN; ++i) {
            for (int j = k + 1; j <= kN; ++j) {
                s.A(i, j) = s.A(i, k) * s.A(k, j) / s.A(k, k) - s.A(i, j);
                if (!check(s.A(i, j))) return End::kOverflow;
            }
            s.B(i) = s.B(k) * s.A(i, k) / s.A(k, k) - s.B(i);
            if (!check(s.B(i))) return End::kOverflow;
        }
    }
    if (s.A(kN, kN) != 0) s.B(kN) = s.B(kN) / s.A(kN, kN);
    if (!check(s.B(kN))) return End::kOverflow;
    for (int m = 2; m <= kN; ++m) {
        const int i = kN + 1 - m;
        double sum = s.B(i);
        for (int j = i + 1; j <= kN; ++j) sum = sum - s.A(i, j) * s.B(j);
        s.B(i) = sum / s.A(i, i);
        if (!check(s.B(i))) return End::kOverflow;
    }
    return End::kSolved;
}

std::vector<std::uint64_t> Bits(const std::vector<double>& values) {
    std::vector<std::uint64_t> bits;
    bits.reserve(values.size());
    for (const double value : values) bits.push_back(std::bit_cast<std::uint64_t>(value));
    return bits;
}

class NineEquations : public Fixture {
   protected:
    std::mt19937 random{2881};
    double Number(double from, double to) { return std::uniform_real_distribution<double>(from, to)(random); }
    bool Chance(double part) { return Number(0, 1) < part; }

    /// The equations of a linkage's forces at a position, with lengths, places of mass centres and loads at random.
    System Of_A_Linkage() {
        System s;
        const double size = std::pow(10.0, Number(-3, 3));
        const double length[] = {Number(0.1, 3) * size, Number(0.1, 3) * size, Number(0.1, 3) * size};
        const bool no_centres = Chance(0.2), level = Chance(0.1);
        double S[3], C[3], s_th[3], c_th[3], R[3];
        for (int link = 0; link < 3; ++link) {
            const double th = level ? 0 : Number(-7, 7);
            const double angle = Chance(0.5) ? 0 : Number(-3, 3);
            R[link] = no_centres ? 0 : Number(0, 2) * size;
            s_th[link] = std::sin(th);
            c_th[link] = std::cos(th);
            S[link] = static_cast<float>(std::sin(th + angle));
            C[link] = static_cast<float>(std::cos(th + angle));
        }
        s.A(1, 1) = s.A(1, 3) = s.A(2, 2) = s.A(2, 4) = s.A(3, 9) = 1;
        s.A(3, 1) = R[0] * S[0];
        s.A(3, 2) = -R[0] * C[0];
        s.A(3, 3) = -(length[0] * s_th[0] - S[0] * R[0]);
        s.A(3, 4) = length[0] * c_th[0] - C[0] * R[0];
        s.A(4, 3) = s.A(5, 4) = s.A(7, 5) = s.A(8, 6) = -1;
        s.A(4, 5) = s.A(5, 6) = s.A(7, 7) = s.A(8, 8) = 1;
        s.A(6, 3) = -R[1] * S[1];
        s.A(6, 4) = R[1] * C[1];
        s.A(6, 5) = -(length[1] * s_th[1] - S[1] * R[1]);
        s.A(6, 6) = length[1] * c_th[1] - C[1] * R[1];
        s.A(9, 5) = length[2] * s_th[2] - S[2] * R[2];
        s.A(9, 6) = -(length[2] * c_th[2] - C[2] * R[2]);
        s.A(9, 7) = R[2] * S[2];
        s.A(9, 8) = -R[2] * C[2];
        const bool at_rest = Chance(0.1);
        for (int i = 1; i <= kN; ++i)
            s.B(i) = at_rest ? (Chance(0.5) ? 0.0 : -0.0) : static_cast<float>(Number(-50, 50) * size);
        return s;
    }
    /// Small whole numbers, many zeros of either sign, many pivots alike.
    System Sparse(double zeros) {
        System s;
        const auto entry = [&] { return Chance(zeros) ? (Chance(0.5) ? 0.0 : -0.0) : std::round(Number(-3, 3)); };
        for (double& value : s.a) value = entry();
        for (double& value : s.b) value = entry();
        return s;
    }
    System Dense(double size) {
        System s;
        for (double& value : s.a) value = Number(-size, size);
        for (double& value : s.b) value = Number(-size, size);
        return s;
    }

    int solved = 0, without_pivot = 0, overflowed = 0;

    void Expect_Plain_Results(System s) {
        System plain = s, paired = s;
        int column = 0;
        const End end = Plain_Elimination(plain, column);
        const std::vector<double> given = s.b;
        if (end == End::kNoPivot)
            desktop.Expect_Message("There is a zero value on diagonal in column " + std::to_string(column));
        if (end == End::kOverflow) desktop.Expect_Message(Report(6, "Overflow", "SimQ"));
        Integer N = kN, Flag = -7;
        SimQ(N, s.a, s.b, Flag);
        EXPECT_EQ(N, kN);
        // What has no end here is left to the plain loops, with the right side as it was.
        const bool at_once = PairedSystem<kN>(paired.a.data(), paired.b.data()).Solve(paired.b.data());
        EXPECT_EQ(at_once, end == End::kSolved);
        EXPECT_EQ(Bits(paired.b), Bits(at_once ? plain.b : given));
        switch (end) {
            case End::kSolved:
                EXPECT_EQ(Flag, 0);
                EXPECT_EQ(Bits(s.b), Bits(plain.b));
                ++solved;
                break;
            case End::kNoPivot:
                EXPECT_EQ(Flag, column);
                EXPECT_EQ(Bits(s.a), Bits(plain.a));
                EXPECT_EQ(Bits(s.b), Bits(plain.b));
                ++without_pivot;
                break;
            case End::kOverflow:
                EXPECT_EQ(Flag, 1);
                ++overflowed;
                break;
        }
    }
};

}  // namespace

TEST_F(NineEquations, OfManyLinkagesComeOutToTheBit) {
    for (int round = 0; round < 20000 && !HasFailure(); ++round) Expect_Plain_Results(Of_A_Linkage());
    EXPECT_GT(solved, 15000);
    EXPECT_GT(without_pivot, 10);  // with the links along the ground and no loads off it
}

TEST_F(NineEquations, WithManyZerosOfEitherSignComeOutToTheBit) {
    for (const double zeros : {0.2, 0.5, 0.7, 0.8})
        for (int round = 0; round < 600 && !HasFailure(); ++round) Expect_Plain_Results(Sparse(zeros));
    EXPECT_GT(solved, 800);
    EXPECT_GT(without_pivot, 200);
}

TEST_F(NineEquations, WithoutZerosComeOutToTheBit) {
    for (const double size : {1e-150, 1e-3, 1.0, 1e20, 1e140})
        for (int round = 0; round < 500 && !HasFailure(); ++round) Expect_Plain_Results(Dense(size));
    EXPECT_EQ(solved, 2500);
}

TEST_F(NineEquations, OverflowWhereThePlainLoopsDo) {
    for (int round = 0; round < 500 && !HasFailure(); ++round) {
        System s = Dense(1e150);
        s.A(1 + round % 9, 1 + round % 7) = 1e300;
        s.B(1 + round % 8) = 1e308;
        Expect_Plain_Results(s);
    }
    EXPECT_GT(overflowed, 50);
}

}  // namespace verlink::test
