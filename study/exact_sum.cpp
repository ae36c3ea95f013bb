// How doubles are taken apart into digits of 32 bits.
#include "study/exact_sum.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstddef>

namespace verlink::study {

namespace {

constexpr std::int64_t kBase = std::int64_t{1} << 32;
constexpr int kLowest = -1074;  ///< the power of two of digit 0

}  // namespace

void Exact_Sum::Add(double value) {
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const auto exponent = static_cast<unsigned>(bits >> 52U) & 0x7ffU;
    std::uint64_t mantissa = bits & 0xfffffffffffffU;
    if (exponent > 0) mantissa |= std::uint64_t{1} << 52U;
    const unsigned place = std::max(exponent, 1U) - 1;
    const auto digit = static_cast<std::size_t>(place / 32);
    const unsigned shift = place % 32;
    const auto low = (mantissa & 0xffffffffU) << shift, high = (mantissa >> 32U) << shift;
    const std::int64_t sign = (bits >> 63U) != 0 ? -1 : 1;
    digits_[digit] += sign * static_cast<std::int64_t>(low & 0xffffffffU);
    digits_[digit + 1] += sign * static_cast<std::int64_t>((low >> 32U) + (high & 0xffffffffU));
    digits_[digit + 2] += sign * static_cast<std::int64_t>(high >> 32U);
    Carry(digit);
}

void Exact_Sum::Add(const Exact_Sum& other) {
    for (std::size_t i = 0; i < digits_.size(); ++i) digits_[i] += other.digits_[i];
    Carry(0);
}

/// All digits but the highest from 0 to 2^32 - 1, as those below `from` are.
void Exact_Sum::Carry(std::size_t from) {
    for (std::size_t i = from; i + 1 < digits_.size(); ++i) {
        const std::int64_t carry = digits_[i] >> 32;  // towards the negative
        digits_[i] -= carry * kBase;
        digits_[i + 1] += carry;
    }
}

double Exact_Sum::Value() const {
    if (digits_.back() < 0) {
        Exact_Sum turned = *this;
        for (std::int64_t& digit : turned.digits_) digit = -digit;
        turned.Carry(0);
        return -turned.Value();
    }
    // What a double does not hold any more changes nothing.
    double value = 0;
    for (std::size_t i = digits_.size(); i-- > 0;)
        value += std::ldexp(static_cast<double>(digits_[i]), kLowest + 32 * static_cast<int>(i));
    return value;
}

std::string Exact_Sum::Text() const {
    std::string text;
    for (std::size_t i = 0; i < digits_.size(); ++i) {
        if (i > 0) text += ':';
        if (digits_[i] != 0) text += std::to_string(digits_[i]);
    }
    return text;
}

bool Exact_Sum::Take(const std::string& text) {
    decltype(digits_) digits{};
    const char *at = text.data(), *end = at + text.size();
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (i > 0 && (at == end || *at++ != ':')) return false;
        if (at == end || *at == ':') continue;
        const auto read = std::from_chars(at, end, digits[i]);
        if (read.ec != std::errc()) return false;
        at = read.ptr;
    }
    digits_ = digits;
    Carry(0);
    return at == end;
}

}  // namespace verlink::study
