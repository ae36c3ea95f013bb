// Colours by their names.
#pragma once

#include "platform/surface.h"

namespace verlink::test {

inline constexpr platform::Color kWhite = 0xFFFFFF, kBlack = 0, kRed = 0xFF, kGreen = 0xFF00, kBlue = 0xFF0000,
                                 kMagenta = 0xFF00FF;

}  // namespace verlink::test
