// Quiet line icons, drawn to fit any density and the colours of the desktop.
#pragma once

#include <QIcon>

namespace verlink::desktop {

enum class Picto { kInput, kAnimate, kPlot, kPrint, kDynamics, kBalance, kQuit, kUnlocked, kLocked };

QIcon lineIcon(Picto picto);
/// The program's own icon, in all usual sizes.
QIcon programIcon();

}  // namespace verlink::desktop
