// The screen that asks for the user's name and a design number.
#include "screens/frm_user.h"

namespace verlink {

frm_User::frm_User() : Screen("frm_User") {}

}  // namespace verlink
