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
    ~frm_Help() override;
    frm_Help(const frm_Help&) = delete;
    frm_Help& operator=(const frm_Help&) = delete;

    platform::MenuEntry mnu_Resize{*this, "mnu_Resize", "Resize Form"};
    platform::MenuEntry mnu_Full{mnu_Resize, "mnu_Full", "Enlarge"};
    platform::MenuEntry mnu_Shrink{mnu_Resize, "mnu_Shrink", "Shrink"};
    platform::MenuEntry mnu_Close{mnu_Resize, "mnu_Close", "Close Form"};
    platform::MenuEntry mnu_ResizeBar1{mnu_Resize, "mnu_ResizeBar1", ""};
    platform::MenuEntry mnu_Beside{mnu_Resize, "mnu_Beside", "Beside the Program"};

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
    /// The documents in which the words stand.
    platform::ComboBox cmb_Finds{*this, "cmb_Finds"};
    platform::CheckBox chk_Follow{*this, "chk_Follow", "Follow &Screen"};
    platform::CommandButton cmd_Close{*this, "cmd_Close", "&Close"};
    platform::Shortcut key_Help{*this, "key_Help", "F1"};

    void Form_Activate() override;

    /// A document of the manual at its beginning, or at the heading behind "#", with no way back from it.
    void Open(const std::string& document);

    void mnu_Full_Click();
    void mnu_Shrink_Click();
    void mnu_Beside_Click();
    void mnu_Close_Click();
    void cmb_Contents_Click();
    void txt_Page_LostFocus();
    void cmd_Back_Click();
    /// Looks for the words in the box from the first find on, or goes on to the next one, from the last one of a
    /// document into the next document. The book of all pages is sought through alone, since it holds the others.
    void Find_Next(int direction);
    void cmb_Finds_Click();
    void chk_Follow_Click();

   private:
    enum class Standing { kBeside, kDesign, kEnlarged };
    using Place = platform::DocumentView::Place;

    void Follow(const std::string& target);
    void Go_Along(const platform::Screen& screen);
    void Turn(int pages);
    void Resize_Page(double factor);
    void Stand();
    void Seek(const std::string& words);
    /// The documents with finds; the one in view alone where the desktop tells of no other.
    std::vector<Place> Places() const;
    void Next_Document(int direction);
    void Go_To_Find(const std::string& document, int find);
    /// Buttons, page number and contents, as the document is now.
    void Refresh();
    void Show_Finds(bool sought);
    void Fill(platform::ComboBox& list, const std::vector<std::string>& entries, int chosen);

    Standing standing_ = Standing::kBeside;            ///< by the menu, which outlasts the showing
    bool filling_ = false;                             ///< a list is being filled
    bool search_began_here_ = false;                   ///< it has not led to another document yet
    std::string gone_along_;                           ///< the place that was opened for a screen last
    std::vector<std::pair<std::string, int>> before_;  ///< documents and pages from which links were followed
};

/// Points the reader at a document, by its path below the folder of the help documents, and shows it beside the other
/// screens; failures are reported under the name of the handler.
void Show_Help(const std::string& document, const std::string& handler);

/// The key for help: it shows the place in the manual that is about the control in hand, else about the screen.
class Help_Key : public platform::Shortcut {
   public:
    explicit Help_Key(platform::Screen& owner);
};

/// The menu entry of a screen that has no other way to its page of the manual.
class Help_Entry : public platform::MenuEntry {
   public:
    explicit Help_Entry(platform::Screen& owner);
};

}  // namespace verlink
