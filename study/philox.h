// A generator of random numbers without a state: each is a function of where it is wanted.
#pragma once

#include <array>
#include <cstdint>

namespace verlink::study {

/// Philox 4x32 with ten rounds, by Salmon, Moraes, Dror and Shaw, "Parallel random numbers: as easy as 1, 2, 3" (2011):
/// four words that look random for each counter and key, the same on every machine.
constexpr std::array<std::uint32_t, 4> Philox(std::array<std::uint32_t, 4> counter, std::array<std::uint32_t, 2> key) {
    constexpr std::uint64_t kMultiplier0 = 0xD2511F53, kMultiplier1 = 0xCD9E8D57;
    constexpr std::uint32_t kWeyl0 = 0x9E3779B9, kWeyl1 = 0xBB67AE85;
    constexpr int kRounds = 10;
    for (int round = 0; round < kRounds; ++round) {
        const std::uint64_t first = kMultiplier0 * counter[0], second = kMultiplier1 * counter[2];
        counter = {static_cast<std::uint32_t>(second >> 32U) ^ counter[1] ^ key[0], static_cast<std::uint32_t>(second),
                   static_cast<std::uint32_t>(first >> 32U) ^ counter[3] ^ key[1], static_cast<std::uint32_t>(first)};
        key = {key[0] + kWeyl0, key[1] + kWeyl1};
    }
    return counter;
}

/// A number between 0 and 1, neither of them reached, in 2^53 equal places: that of a sample in one of the streams of
/// a seed.
constexpr double Uniform(std::uint64_t seed, std::uint64_t sample, std::uint32_t stream) {
    const auto low = [](std::uint64_t x) { return static_cast<std::uint32_t>(x); };
    const auto high = [](std::uint64_t x) { return static_cast<std::uint32_t>(x >> 32U); };
    const auto words = Philox({low(sample), high(sample), stream, 0}, {low(seed), high(seed)});
    const std::uint64_t bits = (std::uint64_t{words[0]} << 32U | words[1]) >> 11U;
    return (static_cast<double>(bits) + 0.5) * 0x1p-53;
}

/// The number that a standard normal deviate stays below with this probability, between 0 and 1: algorithm AS 241 of
/// Wichura (1988), to about 1 in 10^15. Plain arithmetic throughout, so that its bits are the same on every machine.
double Normal_Quantile(double probability);

}  // namespace verlink::study
