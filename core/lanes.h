// How many doubles at once this machine computes.
#pragma once

namespace verlink {

enum class Lanes { kTwo, kFour };

/// The most that both the machine and this build of the program have; asked once, at the first call.
Lanes Widest_Lanes();

}  // namespace verlink
