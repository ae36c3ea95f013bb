// The input screen: the linkage is typed, calculated and stepped through.
#include "screens/frm_inputnew.h"

namespace verlink {

frm_Inputnew::frm_Inputnew() : Screen("frm_Inputnew") {}

}  // namespace verlink
