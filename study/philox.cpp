// The inverse of the normal distribution by quotients of polynomials.
#include "study/philox.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace verlink::study {

namespace {

/// From the highest power down.
template <std::size_t N>
double Polynomial(const double (&coefficients)[N], double x) {
    double sum = 0;
    for (const double coefficient : coefficients) sum = sum * x + coefficient;
    return sum;
}

constexpr double kMiddleTop[] = {2509.0809287301226727, 33430.575583588128105, 67265.770927008700853,
                                 45921.953931549871457, 13731.693765509461125, 1971.5909503065514427,
                                 133.14166789178437745, 3.387132872796366608};
constexpr double kMiddleBottom[] = {
    5226.495278852854561,  28729.085735721942674, 39307.89580009271061,  21213.794301586595867,
    5394.1960214247511077, 687.1870074920579083,  42.313330701600911252, 1.0};
constexpr double kNearTop[] = {7.7454501427834140764e-4, 2.27238449892691845833e-2, 2.41780725177450611770e-1,
                               1.27045825245236838258,   3.64784832476320460504,    5.76949722146069140550,
                               4.63033784615654529590,   1.42343711074968357734};
constexpr double kNearBottom[] = {
    1.05075007164441684324e-9, 5.47593808499534494600e-4, 1.51986665636164571966e-2, 1.48103976427480074590e-1,
    6.89767334985100004550e-1, 1.67638483018380384940,    2.05319162663775882187,    1.0};
constexpr double kFarTop[] = {2.01033439929228813265e-7, 2.71155556874348757815e-5, 1.24266094738807843860e-3,
                              2.65321895265761230930e-2, 2.96560571828504891230e-1, 1.78482653991729133580,
                              5.46378491116411436990,    6.65790464350110377720};
constexpr double kFarBottom[] = {
    2.04426310338993978564e-15, 1.42151175831644588870e-7, 1.84631831751005468180e-5, 7.86869131145613259100e-4,
    1.48753612908506148525e-2,  1.36929880922735805310e-1, 5.99832206555887937690e-1, 1.0};

/// The natural logarithm by the series of the inverse hyperbolic tangent; the C library's differs from machine to
/// machine.
double Logarithm(double x) {
    constexpr double kLog2 = 0.69314718055994530942;
    // The series is the shorter the nearer to 1.
    const int exponent = std::ilogb(x * std::numbers::sqrt2);
    const double mantissa = std::ldexp(x, -exponent);
    const double t = (mantissa - 1) / (mantissa + 1), square = t * t;
    double sum = 0;
    for (int odd = 25; odd >= 1; odd -= 2) sum = sum * square + 1.0 / odd;
    return 2 * t * sum + exponent * kLog2;
}

}  // namespace

double Normal_Quantile(double probability) {
    const double q = probability - 0.5;
    if (std::fabs(q) <= 0.425) {
        const double r = 0.180625 - q * q;
        return q * Polynomial(kMiddleTop, r) / Polynomial(kMiddleBottom, r);
    }
    const double r = std::sqrt(-Logarithm(std::min(probability, 1 - probability)));
    const double x = r <= 5 ? Polynomial(kNearTop, r - 1.6) / Polynomial(kNearBottom, r - 1.6)
                            : Polynomial(kFarTop, r - 5) / Polynomial(kFarBottom, r - 5);
    return std::copysign(x, q);
}

}  // namespace verlink::study
