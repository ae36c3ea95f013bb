// The program's name and version.
#include "screens/frm_about.h"

#include "shell/startup.h"

namespace verlink {

frm_About::frm_About() : Screen("frm_About") {
    Width() = 6000;
    Height() = 3000;
}

void frm_About::Form_Activate() { lbl_Version.Caption = Version_Line(); }

void frm_About::Form_Click() { Hide(); }

}  // namespace verlink
