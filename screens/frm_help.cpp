// The reader of the manual.
#include "screens/frm_help.h"

#include <algorithm>

#include "core/text.h"
#include "core/window_sizes.h"
#include "platform/desktop_services.h"
#include "platform/guard.h"
#include "screens/help_documents.h"

namespace verlink {

namespace {

constexpr double kZoomStep = 1.25;
constexpr double kZoomMin = 0.25;
constexpr double kZoomMax = 5;

/// As an entry of the contents: what stands below the title and the chapters is set in.
std::string Entry_Of(const platform::DocumentView::Heading& heading) {
    return std::string(static_cast<std::size_t>(std::max(0, heading.level - 2)) * 4, ' ') + heading.title;
}

}  // namespace

frm_Help::frm_Help() : Screen("frm_Help") {
    Width() = kWorkWidth;
    Height() = kWorkHeight;
    WebBrowser1.Tip = "The manual; a click on a reference goes there";
    cmb_Contents.Tip = "The headings of this document: choose one to go there";
    txt_Page.Tip = "The page in view: type a number to go there, from 1 to the number beside it";
    txt_Find.Tip = "Words to find in this document; Return finds the next place";
    cmd_PageBefore.Tip = "One page back";
    cmd_PageAfter.Tip = "One page on";
    cmd_Smaller.Tip = "Show the pages smaller";
    cmd_Larger.Tip = "Show the pages larger";
    cmd_FitWidth.Tip = "Show the pages as wide as the window";
    cmd_FindBefore.Tip = "The place before this one where the words stand";
    cmd_FindAfter.Tip = "The next place where the words stand";
    cmd_Close.Tip = "Close the manual";
    cmd_Back.Tip = "Back to where the last reference was clicked";
    CancelButton = &cmd_Close;

    mnu_Full.OnClick = [this] { mnu_Full_Click(); };
    mnu_Shrink.OnClick = [this] { mnu_Shrink_Click(); };
    mnu_Close.OnClick = [this] { mnu_Close_Click(); };
    cmd_Close.OnClick = [this] { mnu_Close_Click(); };
    cmb_Contents.OnClick = [this] { cmb_Contents_Click(); };
    cmd_PageBefore.OnClick = [this] { Turn(-1); };
    cmd_PageAfter.OnClick = [this] { Turn(+1); };
    txt_Page.OnLostFocus = [this] { txt_Page_LostFocus(); };
    txt_Page.OnReturn = [this] { txt_Page_LostFocus(); };
    txt_Page.OnGotFocus = [this] { txt_Page.SelectAll(); };
    txt_Find.OnGotFocus = [this] { txt_Find.SelectAll(); };
    txt_Find.OnReturn = [this] { Find_Next(+1); };
    txt_Find.Text.Event = [this] { Refresh(); };
    cmd_FindBefore.OnClick = [this] { Find_Next(-1); };
    cmd_FindAfter.OnClick = [this] { Find_Next(+1); };
    cmd_Smaller.OnClick = [this] { Resize_Page(1 / kZoomStep); };
    cmd_Larger.OnClick = [this] { Resize_Page(kZoomStep); };
    cmd_FitWidth.OnClick = [this] { WebBrowser1.Zoom = 0; };
    cmd_Back.OnClick = [this] { cmd_Back_Click(); };
    WebBrowser1.OnChange = [this] { Refresh(); };
    WebBrowser1.OnLink = [this](const std::string& target) { Follow(target); };
    Refresh();
}

void frm_Help::Form_Activate() {
    Guarded("frm_Help.Activate", [this] {
        if (enlarged_)
            Fill_Display();
        else
            Fit_Screen(*this, kWorkWidth, kWorkHeight);
        WebBrowser1.SetFocus();
    });
}

void frm_Help::Open(const std::string& document) {
    before_.clear();
    WebBrowser1.Document = document;
    Refresh();
}

void frm_Help::Follow(const std::string& target) {
    before_.emplace_back(WebBrowser1.Document, WebBrowser1.Page);
    WebBrowser1.Document = target;
    Refresh();
}

void frm_Help::cmd_Back_Click() {
    if (before_.empty()) return;
    const auto [document, page] = before_.back();
    before_.pop_back();
    WebBrowser1.Document = document;
    WebBrowser1.Page = page;
    Refresh();
}

void frm_Help::cmb_Contents_Click() {
    const int chosen = cmb_Contents.ListIndex();
    if (filling_ || chosen < 0 || chosen >= static_cast<int>(WebBrowser1.Headings.size())) return;
    WebBrowser1.Document =
        WebBrowser1.Document.Get() + "#" + WebBrowser1.Headings[static_cast<std::size_t>(chosen)].name;
    WebBrowser1.SetFocus();
}

void frm_Help::Turn(int pages) {
    WebBrowser1.Page = std::clamp(WebBrowser1.Page + pages, 1, std::max(1, WebBrowser1.Pages));
    Refresh();
}

void frm_Help::txt_Page_LostFocus() {
    const double page = Val(txt_Page.Text.Get());
    if (page >= 1 && page <= WebBrowser1.Pages) WebBrowser1.Page = static_cast<int>(page);
    Refresh();
}

void frm_Help::Find_Next(int direction) {
    if (WebBrowser1.Sought != txt_Find.Text.Get()) {
        WebBrowser1.Find = 0;
        WebBrowser1.Sought = txt_Find.Text.Get();
    }
    const int finds = WebBrowser1.Finds;
    if (finds > 0) {
        const int now = WebBrowser1.Find;
        // From the last on to the first, and the other way round.
        WebBrowser1.Find = now == 0 && direction < 0 ? finds : (now - 1 + direction + finds) % finds + 1;
    }
    Refresh();
}

void frm_Help::Resize_Page(double factor) {
    WebBrowser1.Zoom = std::clamp(WebBrowser1.Scale * factor, kZoomMin, kZoomMax);
}

void frm_Help::Refresh() {
    const int pages = WebBrowser1.Pages;
    const bool there = pages > 0;
    if (Focus() != &txt_Page || !there) txt_Page.Text = there ? std::to_string(WebBrowser1.Page) : "";
    lbl_Pages.Caption = there ? "of " + std::to_string(pages) : "";
    txt_Page.Enabled = there;
    cmd_PageBefore.Enabled = there && WebBrowser1.Page > 1;
    cmd_PageAfter.Enabled = there && WebBrowser1.Page < pages;
    cmb_Contents.Enabled = there;
    for (platform::CommandButton* button : {&cmd_Smaller, &cmd_Larger, &cmd_FitWidth}) button->Enabled = there;
    txt_Find.Enabled = there;
    const bool words = there && !txt_Find.Text.Get().empty();
    cmd_FindBefore.Enabled = words;
    cmd_FindAfter.Enabled = words;
    cmd_Back.Enabled = !before_.empty();

    const bool sought = words && WebBrowser1.Sought == txt_Find.Text.Get();
    if (!sought)
        lbl_Finds.Caption = "";
    else if (WebBrowser1.Finds == 0)
        lbl_Finds.Caption = "Not found";
    else
        lbl_Finds.Caption = std::to_string(WebBrowser1.Find) + " of " + std::to_string(WebBrowser1.Finds);

    std::vector<std::string> entries;
    for (const platform::DocumentView::Heading& heading : WebBrowser1.Headings) entries.push_back(Entry_Of(heading));
    if (entries != cmb_Contents.Items()) {
        cmb_Contents.Clear();
        for (const std::string& entry : entries) cmb_Contents.AddItem(entry);
        // The first heading stands chosen, so that passing over the list by keyboard is no choice.
        filling_ = true;
        if (!entries.empty()) cmb_Contents.Choose(0);
        filling_ = false;
    }
}

void frm_Help::Fill_Display() {
    const platform::DisplaySize display = platform::The_Desktop().Display();
    Left() = 0;
    Top() = 0;
    Width() = display.width;
    Height() = display.height;
}

void frm_Help::mnu_Full_Click() {
    Guarded("frm_Help.mnu_Full", [this] {
        enlarged_ = true;
        Fill_Display();
    });
}

void frm_Help::mnu_Shrink_Click() {
    Guarded("frm_Help.mnu_Shrink", [this] {
        enlarged_ = false;
        Reset_Screen(*this, kWorkWidth, kWorkHeight);
    });
}

void frm_Help::mnu_Close_Click() { Hide(); }

void Show_Help(const std::string& document, const std::string& handler) {
    Guarded(handler, [&] {
        auto* reader = dynamic_cast<frm_Help*>(platform::Screens::Find("frm_Help"));
        if (!reader) platform::Raise(platform::kSubscript);
        reader->Open(document);
        Show_Centered("frm_Help");
    });
}

Help_Key::Help_Key(platform::Screen& owner, const std::string& entry) : Shortcut(owner, "key_Help", "F1") {
    OnPress = [this, entry] { Show_Help(Help_Document(entry), Owner().Name() + ".key_Help"); };
}

}  // namespace verlink
