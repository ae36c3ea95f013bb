// The reader of the manual.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/screen.h"

namespace verlink {

class frm_Help : public platform::Screen {
   public:
    frm_Help();

    platform::MenuEntry mnu_Resize{*this, "mnu_Resize", "Resize Form"};
    platform::MenuEntry mnu_Full{mnu_Resize, "mnu_Full", "Enlarge"};
    platform::MenuEntry mnu_Shrink{mnu_Resize, "mnu_Shrink", "Shrink"};
    platform::MenuEntry mnu_Close{mnu_Resize, "mnu_Close", "Close Form"};

    platform::Label lbl_Contents{*this, "lbl_Contents", "C&ontents"};
    platform::ComboBox cmb_Contents{*this, "cmb_Contents"};
    platform::CommandButton cmd_PageBefore{*this, "cmd_PageBefore", "&Previous"};
    platform::Label lbl_Page{*this, "lbl_Page", "P&age"};
    platform::TextBox txt_Page{*this, "txt_Page"};
    platform::Label lbl_Pages{*this, "lbl_Pages"};
    platform::CommandButton cmd_PageAfter{*this, "cmd_PageAfter", "&Next"};
    platform::CommandButton cmd_Smaller{*this, "cmd_Smaller", "S&maller"};
    platform::CommandButton cmd_Larger{*this, "cmd_Larger", "&Larger"};
    platform::CommandButton cmd_FitWidth{*this, "cmd_FitWidth", "Fit &Width"};
    /// Fills the screen and follows its size.
    platform::DocumentView WebBrowser1{*this, "WebBrowser1"};
    platform::CommandButton cmd_Back{*this, "cmd_Back", "< &Back"};
    platform::Label lbl_Find{*this, "lbl_Find", "&Find"};
    platform::TextBox txt_Find{*this, "txt_Find"};
    platform::CommandButton cmd_FindBefore{*this, "cmd_FindBefore", "F&ind Previous"};
    platform::CommandButton cmd_FindAfter{*this, "cmd_FindAfter", "Find N&ext"};
    platform::Label lbl_Finds{*this, "lbl_Finds"};
    platform::CommandButton cmd_Close{*this, "cmd_Close", "&Close"};

    void Form_Activate() override;

    /// A document of the manual at its beginning, with no way back from it.
    void Open(const std::string& document);

    void mnu_Full_Click();
    void mnu_Shrink_Click();
    void mnu_Close_Click();
    void cmb_Contents_Click();
    void txt_Page_LostFocus();
    void cmd_Back_Click();
    /// Looks for the words in the box from the first find on, or goes on to the next one.
    void Find_Next(int direction);

   private:
    void Follow(const std::string& target);
    void Turn(int pages);
    void Resize_Page(double factor);
    void Fill_Display();
    /// Buttons, page number and contents, as the document is now.
    void Refresh();

    bool enlarged_ = false;                            ///< by the menu, which outlasts the showing
    bool filling_ = false;                             ///< the list of contents is being filled
    std::vector<std::pair<std::string, int>> before_;  ///< documents and pages from which links were followed
};

/// Points the reader at a document, by its path below the folder of the help documents, and shows it; failures are
/// reported under the name of the handler.
void Show_Help(const std::string& document, const std::string& handler);

/// The key for help on a screen without a menu: it shows the document of that help entry.
class Help_Key : public platform::Shortcut {
   public:
    Help_Key(platform::Screen& owner, const std::string& entry);
};

}  // namespace verlink
