// The animate screen: the linkage moves, and joints are dragged.
#include "screens/frm_animate.h"

namespace verlink {

frm_Animate::frm_Animate() : Screen("frm_Animate") {}

}  // namespace verlink
