// The reader of the manual.
#pragma once

#include <string>

#include "platform/screen.h"

namespace verlink {

class frm_Help : public platform::Screen {
   public:
    frm_Help();

    platform::MenuEntry mnu_Resize{*this, "mnu_Resize", "Resize Form"};
    platform::MenuEntry mnu_Full{mnu_Resize, "mnu_Full", "Enlarge"};
    platform::MenuEntry mnu_Shrink{mnu_Resize, "mnu_Shrink", "Shrink"};
    platform::MenuEntry mnu_Close{mnu_Resize, "mnu_Close", "Close Form"};
    /// Fills the screen and follows its size.
    platform::DocumentView WebBrowser1{*this, "WebBrowser1"};

    void mnu_Full_Click();
    void mnu_Shrink_Click();
    void mnu_Close_Click();
};

/// Points the reader at a document, by its path below the folder of the help documents, and shows it; failures are
/// reported under the name of the handler.
void Show_Help(const std::string& document, const std::string& handler);

}  // namespace verlink
