// The hub: menus, the row of buttons, the status panel.
#include "screens/frm_homescreen.h"

namespace verlink {

frm_HomeScreen::frm_HomeScreen() : Screen("frm_HomeScreen") {}

}  // namespace verlink
