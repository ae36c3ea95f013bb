// The reader of the manual.
#include "screens/frm_help.h"

namespace verlink {

frm_Help::frm_Help() : Screen("frm_Help") {}

}  // namespace verlink
