// The built-in linkages.
#pragma once

namespace verlink {

/// The default linkage: a Grashof crank-rocker, with mass and synthesis data. Its starting angle in radians is
/// stored as the number 45, unconverted, and its step in radians is left as it was.
void Testlinkage();

}  // namespace verlink
