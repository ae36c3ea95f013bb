// The words of SVG: numbers, colours and texts.
#pragma once

#include <string>

#include "platform/surface.h"

namespace verlink::platform::svg {

/// Up to two decimals, none that are zero.
std::string Number(double value);
/// "#rrggbb".
std::string Hex(Color color);
/// A text as it may stand in an element or an attribute.
std::string Escaped(const std::string& text);

}  // namespace verlink::platform::svg
