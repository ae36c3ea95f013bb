// The program's name and version.
#include "screens/frm_about.h"

namespace verlink {

frm_About::frm_About() : Screen("frm_About") {}

}  // namespace verlink
