// The title screen.
#include "screens/frm_title.h"

namespace verlink {

frm_Title::frm_Title() : Screen("frm_Title") {}

}  // namespace verlink
