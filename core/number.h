// The number types of the record: they read as plain numbers, and keep the design's precision when stored.
#pragma once

#include <cmath>
#include <concepts>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>
#include <utility>

#include "platform/failure.h"

namespace verlink {

/// Degrees to radians and back, and pi, as the program uses them throughout; none is exact.
inline constexpr double kDegToRad = 0.017453292522222223;
inline constexpr double kRadToDeg = 57.29577950560105;
inline constexpr double kPi = 3.141592654;
inline constexpr double kHalfPi = 1.570796327;

template <class T>
concept Plain = std::is_arithmetic_v<T>;

/// Failure 11 for a zero divisor, whatever the numerator.
inline double Divide(double numerator, double denominator) {
    if (denominator == 0.0) platform::Raise(platform::kDivisionByZero);
    return numerator / denominator;
}

/// A 32-bit float. Expressions with it are evaluated in double; storing rounds to nearest, and a result that is
/// not finite is failure 6. Dividing by a stored zero is failure 11.
class Single {
   public:
    constexpr Single() = default;
    // NOLINTNEXTLINE(google-explicit-constructor): storing is the rounding
    constexpr Single(double value) : value_(static_cast<float>(value)) {
        if (!(value_ >= -std::numeric_limits<float>::max() && value_ <= std::numeric_limits<float>::max()))
            platform::Raise(platform::kOverflow);
    }
    /// Stores Count floats that are known to be finite, unchecked.
    template <std::size_t Count>
    static void Store_Finite(const void* floats, Single* places) {
        static_assert(sizeof(Single) == sizeof(float));
        std::memcpy(static_cast<void*>(places), floats, Count * sizeof(float));
    }
    // NOLINTNEXTLINE(google-explicit-constructor)
    constexpr operator double() const { return static_cast<double>(value_); }

    Single& operator+=(double other) { return *this = Single(static_cast<double>(value_) + other); }
    Single& operator-=(double other) { return *this = Single(static_cast<double>(value_) - other); }
    Single& operator*=(double other) { return *this = Single(static_cast<double>(value_) * other); }
    Single& operator/=(double other) { return *this = Single(Divide(static_cast<double>(value_), other)); }

   private:
    float value_ = 0;
};

template <Plain T>
double operator/(T numerator, Single denominator) {
    return Divide(static_cast<double>(numerator), static_cast<double>(denominator));
}
template <std::same_as<Single> A, std::same_as<Single> B>
double operator/(A numerator, B denominator) {
    return Divide(static_cast<double>(numerator), static_cast<double>(denominator));
}

/// A whole number of so many bits: a fraction is rounded to nearest, halves to even, when stored; what does not
/// fit is failure 6. Expressions with it are evaluated in int.
template <class Held>
class Whole {
   public:
    constexpr Whole() = default;
    // NOLINTNEXTLINE(google-explicit-constructor): storing is the rounding
    template <Plain T>
    constexpr Whole(T value) {
        if constexpr (std::is_floating_point_v<T>) {
            const double whole = std::nearbyint(static_cast<double>(value));
            if (!(whole >= std::numeric_limits<Held>::min() && whole <= std::numeric_limits<Held>::max()))
                platform::Raise(platform::kOverflow);
            value_ = static_cast<Held>(whole);
        } else {
            if (!std::in_range<Held>(static_cast<long long>(value))) platform::Raise(platform::kOverflow);
            value_ = static_cast<Held>(value);
        }
    }
    // NOLINTNEXTLINE(google-explicit-constructor)
    constexpr Whole(Single value) : Whole(static_cast<double>(value)) {}
    // NOLINTNEXTLINE(google-explicit-constructor)
    constexpr operator Held() const { return value_; }

    constexpr Whole& operator+=(double other) { return *this = Whole(static_cast<double>(value_) + other); }
    constexpr Whole& operator-=(double other) { return *this = Whole(static_cast<double>(value_) - other); }
    constexpr Whole& operator++() { return *this = Whole(static_cast<long long>(value_) + 1); }

   private:
    Held value_ = 0;
};

using Integer = Whole<std::int16_t>;
using Long = Whole<std::int32_t>;

}  // namespace verlink
