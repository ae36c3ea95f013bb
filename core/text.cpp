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

bool Is_Sign(char c) { return c == '+' || c == '-'; }

/// Where the digits that stand there end.
std::size_t Behind_Digits(std::string_view text, std::size_t at) {
    while (Is_Digit(Char_At(text, at))) ++at;
    return at;
}

/// Length of the leading numeric part: sign, digits with at most one point, and an exponent that has digits.
std::size_t Numeric_Length(std::string_view text) {
    const std::size_t whole = Is_Sign(Char_At(text, 0)) ? 1 : 0;
    std::size_t end = Behind_Digits(text, whole);
    std::size_t digits = end - whole;
    if (Char_At(text, end) == '.') {
        const std::size_t fraction = end + 1;
        end = Behind_Digits(text, fraction);
        digits += end - fraction;
    }
    if (digits == 0) return 0;
    if (std::string_view("EeDd").find(Char_At(text, end)) != std::string_view::npos) {
        const std::size_t exponent = end + (Is_Sign(Char_At(text, end + 1)) ? 2 : 1);
        if (Is_Digit(Char_At(text, exponent))) end = Behind_Digits(text, exponent);
    }
    return end;
}

/// Whether a number that no double holds is too small, and not too large: it is so by hundreds of digits.
bool Is_Too_Small(std::string_view number) {
    const std::size_t mark = number.find('e');
    const std::string_view mantissa = number.substr(0, mark);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_of("123456789");
    const double lead = static_cast<double>(point) - static_cast<double>(first);
    double exponent = 0;
    if (mark != std::string_view::npos) {
        const bool negative = number[mark + 1] == '-';
        const std::size_t digits = number.find_first_of("0123456789", mark);
        for (const char c : number.substr(digits)) exponent = exponent * 10 + (c - '0');
        if (negative) exponent = -exponent;
    }
    return std::signbit(lead + exponent);
}

/// The value of a text that is one number, or empty, which is 0.
double Converted(std::string number) {
    std::replace_if(
        number.begin(), number.end(), [](char c) { return c == 'E' || c == 'D' || c == 'd'; }, 'e');
    if (number.starts_with('+')) number.erase(0, 1);
    double value = 0;
    const auto [end, error] = std::from_chars(std::to_address(number.begin()), std::to_address(number.end()), value);
    if (error == std::errc::result_out_of_range) {
        if (!Is_Too_Small(number)) platform::Raise(platform::kOverflow);
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
    dense.resize(Numeric_Length(dense));
    return Converted(std::move(dense));
}

std::string_view Leading_Number(std::string_view text) { return text.substr(0, Numeric_Length(text)); }

std::string Ungrouped(std::string_view text) {
    std::string plain;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool between =
            text[at] == ',' && Is_Digit(Char_At(text, at - 1)) && Behind_Digits(text, at + 1) == at + 4;
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
