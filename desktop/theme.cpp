// The shades behind the program's colours.
#include "desktop/theme.h"

namespace verlink::desktop {

namespace {

QColor mixed(const QColor& a, const QColor& b, double share) {
    const auto channel = [share](int from, int to) { return static_cast<int>(from + (to - from) * share); };
    return {channel(a.red(), b.red()), channel(a.green(), b.green()), channel(a.blue(), b.blue())};
}

}  // namespace

bool isDark(const QPalette& palette) { return palette.color(QPalette::Window).lightness() < 128; }

QColor plainColor(platform::Color color) { return {color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF}; }

QColor backColor(platform::Color color, const QPalette& palette) {
    if (color < 0) return {};
    const bool dark = isDark(palette);
    if (color == kYellow) return dark ? QColor(0x4A, 0x43, 0x1C) : QColor(0xFF, 0xF8, 0xCC);
    if (color == kCyan) return dark ? QColor(0x17, 0x44, 0x4A) : QColor(0xDD, 0xF6, 0xF8);
    return plainColor(color);
}

QColor borderColor(const QPalette& palette) {
    return mixed(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.22);
}

QColor refusalColor(const QPalette& palette) {
    return isDark(palette) ? QColor(0xFF, 0x6B, 0x5E) : QColor(0xC6, 0x28, 0x1C);
}

QColor quietText(const QPalette& palette) {
    return mixed(palette.color(QPalette::WindowText), palette.color(QPalette::Window), 0.3);
}

}  // namespace verlink::desktop
