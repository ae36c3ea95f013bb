// All screens of the program by name.
#pragma once

namespace verlink {

/// Tells `platform::Screens` how each screen is made.
void Register_Screens();

}  // namespace verlink
