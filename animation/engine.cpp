// How a run is played: scale, frames, delay, stepping.
#include "animation/engine.h"

#include "core/linkage_model.h"

namespace verlink {

namespace {

constexpr platform::Color Packed(int red, int green, int blue) { return red + 256 * green + 65536 * blue; }

}  // namespace

void Set_Palette() {
    Model.ColorRed = Packed(255, 0, 0);
    Model.ColorGreen = Packed(0, 255, 0);
    Model.ColorBlue = Packed(0, 0, 255);
    Model.ColorBlack = Packed(0, 0, 0);
    Model.ColorWhite = Packed(255, 255, 255);
    Model.ColorCyan = Packed(0, 255, 255);
    Model.ColorYellow = Packed(255, 255, 0);
    Model.ColorMagenta = Packed(255, 0, 255);
    Model.ColorPurple = Packed(128, 0, 128);
    Model.ColorGray = Packed(128, 128, 128);
}

}  // namespace verlink
