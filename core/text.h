// Numbers as text and text as numbers, with a point whatever the locale.
#pragma once

#include <string>
#include <string_view>

#include "core/number.h"

namespace verlink {

/// Of the plain letters, whatever the locale.
inline bool Is_Digit(char c) { return c >= '0' && c <= '9'; }
inline bool Is_Blank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

/// The character that stands there; behind the end a zero, which is part of no number.
inline char Char_At(std::string_view text, std::size_t at) { return at < text.size() ? text[at] : '\0'; }

/// The shortest decimal form of up to 7 significant digits ("0.05", "1.234568E-05", "1E+07"), without a leading
/// blank; the mantissa and exponent form from 1E+07 up and below 1E-04.
std::string Text_Of(Single value);
/// The same with up to 15 digits, the exponent form from 1E+15 up and below 1E-04.
std::string Text_Of(double value);
std::string Text_Of(int value);
inline std::string Text_Of(Integer value) { return Text_Of(static_cast<int>(value)); }
inline std::string Text_Of(Long value) { return Text_Of(static_cast<int>(value)); }

/// A name with a number behind it, as rows of controls have.
inline std::string Numbered(const char* name, int number) { return name + std::to_string(number); }

/// The value of the leading numeric part of a text, blanks skipped; 0 when there is none. "1.5abc" is 1.5, ".5" is
/// 0.5, "1e3" and "1d3" are 1000, "" and "abc" are 0. Infinities and NaNs are no numbers. A text too large for a
/// double is failure 6.
double Val(std::string_view text);

/// The leading part of a text that is a number as it stands; empty for none.
std::string_view Leading_Number(std::string_view text);

/// The text without the commas between groups of three digits, as `FNRoundStr` writes them: what a box has shown is
/// read as the same number.
std::string Ungrouped(std::string_view text);

/// The value of a text that must be a number as a whole, blanks around it allowed; failure 13 when it is not.
double Number_Of(std::string_view text);

}  // namespace verlink
