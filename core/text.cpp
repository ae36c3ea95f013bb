// Numbers as text and text as numbers, by the standard library's locale-free conversions.
#include "core/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <memory>
#include <system_error>

namespace verlink {

namespace {

std::string General(double value, int digits) {
    if (value == 0) return "0";
    char buffer[40];
    const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, digits);
    std::replace(buffer, end, 'e', 'E');
    return {buffer, end};
}

/// Nothing at all behind the end.
char Letter(std::string_view text, std::size_t at) { return at < text.size() ? text[at] : '\0'; }

/// Length of the leading numeric part: sign, digits with at most one point, and an exponent that has digits.
std::size_t Numeric_Length(std::string_view text) {
    std::size_t at = 0;
    const auto sign_at = [text](std::size_t place) { return Letter(text, place) == '+' || Letter(text, place) == '-'; };
    if (sign_at(at)) ++at;
    const std::size_t sign = at;
    while (Is_Digit(Letter(text, at))) ++at;
    std::size_t digits = at - sign;
    if (Letter(text, at) == '.') {
        const std::size_t point = at++;
        while (Is_Digit(Letter(text, at))) ++at;
        digits += at - point - 1;
    }
    if (digits == 0) return 0;
    if (std::string_view("EeDd").find(Letter(text, at)) != std::string_view::npos) {
        std::size_t end = at + 1;
        if (sign_at(end)) ++end;
        if (Is_Digit(Letter(text, end))) at = end;
        while (Is_Digit(Letter(text, at))) ++at;
    }
    return at;
}

/// Whether a number that no double holds is too large, and not too small.
bool Is_Too_Large(std::string_view number) {
    const std::size_t mark = number.find('e');
    const std::string_view mantissa = number.substr(0, mark);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_of("123456789");
    // To a digit: it is too large or too small by hundreds.
    const double lead = static_cast<double>(point) - static_cast<double>(first);
    double exponent = 0;
    if (mark != std::string_view::npos) {
        const bool negative = number[mark + 1] == '-';
        const std::size_t digits = number.find_first_of("0123456789", mark);
        for (const char c : number.substr(digits)) exponent = exponent * 10 + (c - '0');
        if (negative) exponent = -exponent;
    }
    return !std::signbit(lead + exponent);
}

/// The value of a text that is one number.
double Converted(std::string number) {
    std::replace_if(
        number.begin(), number.end(), [](char c) { return c == 'E' || c == 'D' || c == 'd'; }, 'e');
    if (number.front() == '+') number.erase(0, 1);
    double value{};
    const auto [end, error] = std::from_chars(std::to_address(number.begin()), std::to_address(number.end()), value);
    if (error == std::errc::result_out_of_range) {
        if (Is_Too_Large(number)) platform::Raise(platform::kOverflow);
        return 0;
    }
    return value;
}

}  // namespace

std::string Text_Of(Single value) { return General(value, 7); }

std::string Text_Of(double value) { return General(value, 15); }

std::string Text_Of(int value) { return std::to_string(value); }

double Val(std::string_view text) {
    std::string dense(text);
    std::erase_if(dense, Is_Blank);
    const std::size_t length = Numeric_Length(dense);
    if (length == 0) return 0;
    dense.resize(length);
    return Converted(std::move(dense));
}

std::string_view Leading_Number(std::string_view text) { return text.substr(0, Numeric_Length(text)); }

std::string Ungrouped(std::string_view text) {
    const auto digits_from = [text](std::size_t at) {
        std::size_t count = 0;
        while (Is_Digit(Letter(text, at + count))) ++count;
        return count;
    };
    std::string plain;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool between = text[at] == ',' && at > 0 && Is_Digit(text[at - 1]) && digits_from(at + 1) == 3;
        if (!between) plain += text[at];
    }
    return plain;
}

double Number_Of(std::string_view text) {
    while (!text.empty() && Is_Blank(text.front())) text.remove_prefix(1);
    while (!text.empty() && Is_Blank(text.back())) text.remove_suffix(1);
    if (text.empty() || Numeric_Length(text) != text.size()) platform::Raise(platform::kTypeMismatch);
    return Converted(std::string(text));
}

}  // namespace verlink
