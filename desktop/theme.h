// What the program's colours look like on this desktop, light or dark.
#pragma once

#include <QColor>
#include <QPalette>

#include "platform/surface.h"

class QWidget;

namespace verlink::desktop {

/// The program's colours of what is typed and of what is derived.
inline constexpr platform::Color kYellow = 0x00FFFF;
inline constexpr platform::Color kCyan = 0xFFFF00;

bool isDark(const QPalette& palette);
/// Exactly the colour that the number says.
QColor plainColor(platform::Color color);
/// A back colour of a control: the design's yellow and cyan in their easy shades; invalid for the style's own.
QColor backColor(platform::Color color, const QPalette& palette);
/// The quiet line around pictures and frames.
QColor borderColor(const QPalette& palette);
/// The frame around what could not be read.
QColor refusalColor(const QPalette& palette);
/// Text that stands back a little.
QColor quietText(const QPalette& palette);

}  // namespace verlink::desktop
