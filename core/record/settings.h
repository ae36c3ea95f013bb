// Settings of the screens and the drawing that travel with the model, and the state of the animation.
#pragma once

#include <string>

#include "core/number.h"
#include "platform/surface.h"

namespace verlink {

struct DisplaySettings {
    Integer PrintStep;            ///< every nth step is printed
    Long AnimateDelay;            ///< 32767 less the value of the speed bar
    Integer Cycles;               ///< how many times a run plays
    Integer AnimateWait;          ///< multiplier of the frame delay
    Integer AnimateStepSize = 1;  ///< always 1
    Single LineAngle;             ///< angle of the coupler lines to the coupler, degrees
    Single ZoomFactor;            ///< a smaller factor is a closer view
    std::string TraceFlag = "N", RedrawFlag = "N", HideLinksFlag = "N", ShowCentrodesFlag = "N";  ///< "Y" or "N"
    std::string ShowCouplerFlag = "N", ShowCouplerLinesFlag = "N";                                ///< "Y" or "N"
    /// What a shift-drag changes: 0 crank, 1 rocker, 2 coupler point, 3 ground, 4 coupler
    Integer ShiftDragTarget = 2;
};

struct ScreenGeometry {
    bool FullScreen = false;
    Long ScreenHeight, ScreenWidth;  ///< design size, twips
    Long HomeTop;                    ///< where the home screen's top came at load, twips
    Long StatusWidth;                ///< width of the status panel, twips
    Single AspectRatio;              ///< the display's width over its height, in pixels
    Single AspectCorrection = 1;
    bool AspectActive = false;
};

/// Window, radii and colours of the drawing; world units.
struct AnimationState {
    Single AnimMax, AnimMin;  ///< bounds of the window, both axes
    Single FlipSum;           ///< AnimMin + AnimMax; world y is drawn at FlipSum - y
    Single CentrodeRadius, PinRadius, CouplerPinRadius, PivotRadius, CouplerLineLength;
    Integer FirstStep, LastStep, StepIncrement = 1;
    platform::Color PenColor = 0, DrawColor = 0, LinkColor = 0, EraseColor = 0, PassColor = 0;
    platform::Color PivotColor = 0, TracePinColor = 0;
    Long ColorPassStep;                         ///< EraseColor - DrawColor
    Single CurveStartX, CurveStartY;            ///< start of the coupler curve, global frame
    Single CurveStartLocalX, CurveStartLocalY;  ///< the same, local frame
};

struct Palette {
    platform::Color ColorRed = 0, ColorGreen = 0, ColorBlue = 0, ColorBlack = 0, ColorWhite = 0;
    platform::Color ColorCyan = 0, ColorYellow = 0, ColorMagenta = 0, ColorPurple = 0, ColorGray = 0;
};

}  // namespace verlink
