// How numbers, colours and texts are written in SVG.
#include "platform/svg.h"

#include <charconv>
#include <cmath>

namespace verlink::platform::svg {

std::string Number(double value) {
    value = std::round(value * 100) / 100;
    if (value == 0) return "0";
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value);
    return {buffer, end.ptr};
}

std::string Hex(Color color) {
    constexpr char kDigits[] = "0123456789abcdef";
    std::string text = "#";
    for (int part = 0; part < 3; ++part, color >>= 8) {
        text += kDigits[(color >> 4) & 15];
        text += kDigits[color & 15];
    }
    return text;
}

std::string Escaped(const std::string& text) {
    std::string out;
    for (const char c : text) switch (c) {
            case '&': out += "&amp;"; break;
            case '<': out += "&lt;"; break;
            case '>': out += "&gt;"; break;
            case '"': out += "&quot;"; break;
            default: out += c;
        }
    return out;
}

}  // namespace verlink::platform::svg
