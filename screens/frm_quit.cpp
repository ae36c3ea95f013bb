// The question before the end.
#include "screens/frm_quit.h"

namespace verlink {

frm_Quit::frm_Quit() : Screen("frm_Quit") {}

}  // namespace verlink
