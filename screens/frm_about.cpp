// The program's name and version.
#include "screens/frm_about.h"

namespace verlink {

frm_About::frm_About() : Screen("frm_About") {
    Width() = 6000;
    Height() = 3000;
}

void frm_About::Form_Activate() {}

void frm_About::Form_Click() { Hide(); }

}  // namespace verlink
