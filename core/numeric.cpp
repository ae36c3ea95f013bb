// Inverse trigonometry, triangles, the equation solver, rounding, extreme values and lines.
#include "core/numeric.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <utility>

#include "core/linkage_model.h"
#include "core/pole.h"
#include "core/position.h"
#include "core/text.h"
#include "platform/desktop_services.h"
#include "platform/guard.h"

namespace verlink {

namespace {

double Finite(double value) {
    if (!std::isfinite(value)) platform::Raise(platform::kOverflow);
    return value;
}

/// A magnitude as a formatter sees it: 15 significant digits, the first of them worth 10 to the exponent.
struct Decimal {
    std::string digits;
    int exponent;

    /// Digit worth 10 to the place; 0 where there is none.
    char Digit(int place) const {
        const int at = exponent - place;
        return at >= 0 && at < static_cast<int>(digits.size()) ? digits[static_cast<std::size_t>(at)] : '0';
    }
    bool Is_Zero() const { return digits.find_first_not_of('0') == std::string::npos; }
};

Decimal Decimal_Of(double magnitude) {
    char buffer[40];
    const auto [end, error] =
        std::to_chars(buffer, buffer + sizeof buffer, Finite(magnitude), std::chars_format::scientific, 14);
    const char* mark = std::find(buffer, end, 'e');
    Decimal decimal;
    decimal.digits = std::string(1, buffer[0]) + std::string(static_cast<const char*>(buffer + 2), mark);
    std::from_chars(mark + (mark[1] == '+' ? 2 : 1), end, decimal.exponent);
    return decimal;
}

/// Keeps the digits down to the one worth 10 to the place; halves go away from zero.
void Round_At(Decimal& decimal, int place) {
    const int kept = decimal.exponent - place + 1;
    const bool up = kept >= 0 && Char_At(decimal.digits, static_cast<std::size_t>(kept)) >= '5';
    decimal.digits.resize(std::min(decimal.digits.size(), static_cast<std::size_t>(std::max(kept, 0))));
    if (!up) return;
    for (std::size_t i = decimal.digits.size(); i-- > 0;) {
        if (decimal.digits[i] != '9') {
            ++decimal.digits[i];
            return;
        }
        decimal.digits[i] = '0';
    }
    decimal.digits.insert(decimal.digits.begin(), '1');
    ++decimal.exponent;
}

std::string Grouped(double value, int decimals) {
    Decimal decimal = Decimal_Of(std::fabs(value));
    Round_At(decimal, -decimals);
    std::string text = std::signbit(value) && !decimal.Is_Zero() ? "-" : "";
    for (int place = std::max(decimal.exponent, 0); place >= 0; --place) {
        text += decimal.Digit(place);
        if (place != 0 && place % 3 == 0) text += ',';
    }
    text += '.';
    for (int place = 1; place <= decimals; ++place) {
        if (place == 4 && decimals == 6) text += ' ';
        text += decimal.Digit(-place);
    }
    return text;
}

std::string Scientific(double value) {
    Decimal decimal = Decimal_Of(std::fabs(value));
    Round_At(decimal, decimal.exponent - 2);
    std::string text = value < 0 ? "-" : "";
    text += {decimal.Digit(decimal.exponent),     '.', decimal.Digit(decimal.exponent - 1),
             decimal.Digit(decimal.exponent - 2), 'E', decimal.exponent < 0 ? '-' : '+'};
    return text + std::to_string(std::abs(decimal.exponent));
}

/// `angle` of 1 - x^2 in single precision, on which both inverse functions decide. At the ends of the range they give
/// `at_ends`, and not the multiples of pi/2.
template <class Angle>
double Arc(const char* function, const char* refusal, Single x, double at_ends, Angle angle) {
    double found = 0;
    Guarded(function, [&] {
        const Single t = 1 - x * x;
        if (t < 0)
            Model.MathDomainError = true;
        else if (t == 0)
            found = at_ends;
        else if (std::isnan(t))
            platform::Tell(refusal + Text_Of(x));
        else
            found = angle(t);
    });
    return found;
}

double Angle_Of(double x, double y) { return Direction<double>(x, y, std::atan(y / x)); }

/// Solves the system with Flag as `SimQ` tells; a and b count from 1.
void Eliminate(int n, std::span<double> A, std::span<double> B, Integer& Flag) {
    if (n < 1 || A.size() < static_cast<std::size_t>(n) * static_cast<std::size_t>(n) ||
        B.size() < static_cast<std::size_t>(n))
        platform::Raise(platform::kSubscript);
    const auto a = [&](int i, int j) -> double& { return A[static_cast<std::size_t>((i - 1) * n + j - 1)]; };
    const auto b = [&](int i) -> double& { return B[static_cast<std::size_t>(i - 1)]; };
    for (int k = 1; k < n; ++k) {
        double big = 0;
        int pivot = k;
        for (int i = k; i <= n; ++i)
            if (std::fabs(a(i, k)) > big) {
                big = std::fabs(a(i, k));
                pivot = i;
            }
        if (big == 0) {
            platform::Tell("There is a zero value on diagonal in column " + Text_Of(k));
            Flag = k;
            return;
        }
        for (int j = k; j <= n; ++j) std::swap(a(k, j), a(pivot, j));
        std::swap(b(k), b(pivot));
        // Each reduced row has the reversed sign, and column k is not cleared: the back substitution reads neither.
        for (int i = k + 1; i <= n; ++i) {
            for (int j = k + 1; j <= n; ++j) a(i, j) = Finite(a(i, k) * a(k, j) / a(k, k) - a(i, j));
            b(i) = Finite(b(k) * a(i, k) / a(k, k) - b(i));
        }
    }
    if (a(n, n) != 0) b(n) = Finite(b(n) / a(n, n));
    for (int i = n - 1; i >= 1; --i) {
        double sum = b(i);
        for (int j = i + 1; j <= n; ++j) sum -= a(i, j) * b(j);
        b(i) = Finite(sum / a(i, i));
    }
    Flag = 0;
}

}  // namespace

double FNArcCos(Single x) {
    return Arc("FNArcCos", "Something wrong - cannot take ArcCos of ", x, 1,
               [x](Single t) { return -std::atan(x / std::sqrt(t)) + kPi / 2; });
}

double FNArcSin(Single x) {
    return Arc("FNArcSin", "Something wrong - cannot take ArcSin of ", x, 0,
               [x](Single t) { return std::atan(x / std::sqrt(t)); });
}

double Atan2(Single x, Single y) { return Angle_Of(x, y); }

double Atan2D(Single x, Single y) { return Angle_Of(x, y) * kRadToDeg; }

void Cart_to_Polar(Single x, Single y, Single& magnitude, Single& angle) {
    Guarded("Cart_to_Polar", [&] {
        const Single radians = Angle_Of(x, y);
        angle = radians * kRadToDeg;
        magnitude = std::sqrt(x * x + y * y);
    });
}

void Rotate(Single x, Single y, Single angle, Integer sign, Single& xr, Single& yr) {
    Guarded("Rotate", [&] {
        const Single a = sign * angle * kDegToRad;
        const double cosine = std::cos(a), sine = std::sin(a);
        xr = x * cosine - y * sine;
        yr = x * sine + y * cosine;
    });
}

void CosineLaw_Angle(Single a, Single b, Single C, Single& side) {
    Guarded("CosineLaw_Angle", [&] {
        const Single square = a * a + b * b - 2 * a * b * std::cos(C);
        if (square < 0)
            platform::Tell("Cannot do law of cosines - negative Sqrt argument in Sub CosineLaw_Side; check your data",
                           platform::Icon::kExclamation);
        else
            side = std::sqrt(square);
    });
}

void LawofSines(Single a, Single b, Single A, Single& B) {
    Guarded("LawofSines", [&] {
        const double sine = std::sin(A);
        if (sine == 0 || a == 0)
            platform::Tell("Cannot do Law of sines - bad data - zero divisor");
        else
            B = FNArcSin(b / a * sine);
    });
}

void Modulo(Single x, Single m, Single& r) {
    Guarded("Modulo", [&] {
        if (x <= m)
            r = x;
        else if (x > 0)
            r = x - m;
        else
            r = x + m;
    });
}

void SimQ(Integer& N, std::span<double> A, std::span<double> B, Integer& Flag) {
    Guarded("SimQ", [&] {
        Flag = 1;
        Eliminate(N, A, B, Flag);
    });
}

double FNRound(double value, int decimals) {
    static constexpr std::array kPowers{1.0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};
    double rounded = 0;
    Guarded("FNRound", [&] {
        const double power = kPowers[std::min<std::size_t>(static_cast<std::size_t>(decimals), 6)];
        rounded = std::floor(Finite(value * power) + 0.5) / power;
    });
    return rounded;
}

std::string FNRoundStr(double value, int decimals) {
    std::string text;
    Guarded("FNRoundStr",
            [&] { text = decimals < 0 ? Scientific(value) : Grouped(value, decimals > 4 ? 6 : decimals); });
    return text;
}

void MaxMin1(const Element& Arr, int First, int Last, Single& MaxVal, Single& MinVal) {
    Guarded("MaxMin1", [&] {
        MaxVal = Arr(First);
        MinVal = Arr(First);
        for (int i = First; i <= Last; ++i) {
            const Single element = Arr(i);
            MaxVal = std::max(MaxVal, element);
            MinVal = std::min(MinVal, element);
        }
    });
}

void MaxMin2(const Element2& Arr, int Row, int First, int Last, Single& MaxVal, Single& MinVal, Integer& MaxIndex,
             Integer& MinIndex) {
    Guarded("MaxMin2", [&] {
        MaxVal = Arr(Row, First);
        MinVal = Arr(Row, First);
        for (int i = First; i <= Last; ++i) {
            const Single element = Arr(Row, i);
            if (element > MaxVal) {
                MaxVal = element;
                MaxIndex = i;
            }
            if (element < MinVal) {
                MinVal = element;
                MinIndex = i;
            }
        }
    });
}

void Average2(int First, int Last, const Element2& Arr, const std::string& Order, int K, Single& Result) {
    Guarded("Average2", [&] {
        Single sum = 0;
        const bool pointer_last = Order == "I_Pointer", pointer_first = Order == "Pointer_I";
        for (int i = First; i <= Last && (pointer_last || pointer_first); ++i)
            sum += pointer_last ? Arr(i, K) : Arr(K, i);
        const int count = Last - First + 1;
        Result = count != 0 ? sum / count : static_cast<double>(sum);
    });
}

void GlobalMax(const Element& ArrA, const Element& ArrB, int First, int Last, Single& Result) {
    Guarded("GlobalMax", [&] {
        Single max_a, min_a, max_b, min_b;
        MaxMin1(ArrA, First, Last, max_a, min_a);
        MaxMin1(ArrB, First, Last, max_b, min_b);
        Result = std::max({std::fabs(max_a), std::fabs(min_a), std::fabs(max_b), std::fabs(min_b)});
    });
}

void Rms2(int First, int Last, const Element2& Arr, int Col, Single& Result) {
    Guarded("Rms2", [&] {
        if (Last == 0) {
            Result = Arr(First, Col);  // with its sign: a single position has no average
            return;
        }
        Single sum = 0;
        for (int i = First + 1; i <= Last; ++i) {
            const double before = Arr(i - 1, Col), here = Arr(i, Col);
            sum += before * before + here * here;
        }
        Result = std::sqrt(Divide(sum / 2, Last - First + 1));  // by the points, not by the intervals between them
    });
}

void Line_Intersect(Single x1, Single y1, Single x2, Single y2, Single x3, Single y3, Single x4, Single y4, Single& X,
                    Single& Y, Integer& Flag, std::string& Message) {
    Guarded("Line_Intersect", [&] {
        Flag = 0;
        Message.clear();
        const auto crossing = Cross<double>(x1, y1, x2, y2, x3, y3, x4, y4);
        if (!crossing.All.All_Finite()) platform::Raise(platform::kOverflow);
        const auto report = [&](const char* text) {
            Flag = 1;
            Message = text;
        };
        if (crossing.Run1 == 0) report("Line 1 is vertical, has infinite slope");
        if (crossing.Run2 == 0) report("Line 2 is vertical, has infinite slope");
        if (crossing.SlopeDifference == 0) report("The lines are parallel - No intersection");
        X = crossing.X;
        Y = crossing.Y;
    });
}

std::string StripFilename(const std::string& Path) {
    std::string name;
    Guarded("StripFilename", [&] {
        constexpr std::size_t kExtension = 4;  // with its point
        if (Path.size() < kExtension || Path[Path.size() - kExtension] != '.') return;
        const std::string stem = Path.substr(0, Path.size() - kExtension);
        const char separators[] = {'\\', static_cast<char>(std::filesystem::path::preferred_separator), '\0'};
        const std::size_t last = stem.find_last_of(separators);
        name = last == std::string::npos ? stem : stem.substr(last + 1);
    });
    return name;
}

}  // namespace verlink
