// The reader of the manual.
#include "screens/frm_help.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/text.h"
#include "core/window_sizes.h"
#include "platform/desktop_services.h"
#include "platform/guard.h"
#include "platform/settings.h"
#include "screens/help_documents.h"

namespace verlink {

namespace {

constexpr double kZoomStep = 1.25;
constexpr double kZoomMin = 0.25;
constexpr double kZoomMax = 5;
/// Of the width of the display, where it stands beside the program.
constexpr double kShareBeside = 0.4;
constexpr char kFollows[] = "view.helpfollows", kOn[] = "on";

/// As an entry of the contents: what stands below the title and the chapters is set in.
std::string Entry_Of(const platform::DocumentView::Heading& heading) {
    return std::string(static_cast<std::size_t>(std::max(0, heading.level - 2)) * 4, ' ') + heading.title;
}

std::string Document_Of(const std::string& target) { return target.substr(0, target.find('#')); }

/// All pages but the book that holds them, and no films.
std::vector<std::string> Library_Of(const std::string& shown) {
    const std::string book = Help_Document("mnu_Manual");
    if (shown == book) return {};
    std::vector<std::string> library;
    for (const auto& [entry, document] : Help_Documents())
        if (document != book && std::string(document).ends_with(".pdf")) library.emplace_back(document);
    return library;
}

}  // namespace

frm_Help::frm_Help() : Screen("frm_Help") {
    Width() = kWorkWidth;
    Height() = kWorkHeight;
    WebBrowser1.Tip = "The manual; a click on a reference goes there";
    cmb_Contents.Tip = "The headings of this document: choose one to go there";
    txt_Page.Tip = "The page in view: type a number to go there, from 1 to the number beside it";
    txt_Find.Tip = "Words to find in all documents of the manual; Return finds the next place";
    cmd_PageBefore.Tip = "One page back";
    cmd_PageAfter.Tip = "One page on";
    cmd_Smaller.Tip = "Show the pages smaller";
    cmd_Larger.Tip = "Show the pages larger";
    cmd_FitWidth.Tip = "Show the pages as wide as the window";
    cmd_FindBefore.Tip = "The place before this one where the words stand";
    cmd_FindAfter.Tip = "The next place where the words stand";
    cmb_Finds.Tip = "The documents in which the words stand, with how often: choose one to go there";
    chk_Follow.Tip = "Show the page of each screen as it comes up, and stay in sight";
    cmd_Close.Tip = "Close the manual";
    cmd_Back.Tip = "Back to where the last reference was clicked";
    CancelButton = &cmd_Close;

    mnu_Full.OnClick = [this] { mnu_Full_Click(); };
    mnu_Shrink.OnClick = [this] { mnu_Shrink_Click(); };
    mnu_Close.OnClick = [this] { mnu_Close_Click(); };
    mnu_Beside.OnClick = [this] { mnu_Beside_Click(); };
    cmb_Finds.OnClick = [this] { cmb_Finds_Click(); };
    chk_Follow.OnClick = [this] { chk_Follow_Click(); };
    key_Help.OnPress = [this] { Follow(Screen_Help(*this)); };
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
    chk_Follow.Value = platform::The_Settings().Text(kFollows) == kOn;
    KeepsInSight = chk_Follow.Value;
    ActiveWatcher() = [this](Screen& screen) { Go_Along(screen); };
    Refresh();
}

frm_Help::~frm_Help() { ActiveWatcher() = nullptr; }

void frm_Help::Form_Activate() {
    Guarded("frm_Help.Activate", [this] {
        Stand();
        WebBrowser1.SetFocus();
    });
}

void frm_Help::Open(const std::string& document) {
    before_.clear();
    gone_along_.clear();
    WebBrowser1.Sought = "";
    WebBrowser1.Find = 0;
    if (document == WebBrowser1.Document.Get()) WebBrowser1.Page = 1;
    WebBrowser1.Document = document;
    Refresh();
}

void frm_Help::Follow(const std::string& target) {
    before_.emplace_back(WebBrowser1.Document, WebBrowser1.Page);
    WebBrowser1.Find = 0;
    WebBrowser1.Document = target;
    Refresh();
}

void frm_Help::Go_Along(const Screen& screen) {
    if (!Visible() || !chk_Follow.Value) return;
    const std::string target = Screen_Help(screen);
    if (target.empty() || target == gone_along_ || target == WebBrowser1.Document.Get()) return;
    gone_along_ = target;
    Follow(target);
}

void frm_Help::chk_Follow_Click() {
    platform::Settings& settings = platform::The_Settings();
    settings.Put(kFollows, chk_Follow.Value ? kOn : "");
    settings.Save();
    KeepsInSight = chk_Follow.Value;
    gone_along_.clear();
    if (const Screen* top = Active()) Go_Along(*top);
}

void frm_Help::cmd_Back_Click() {
    if (before_.empty()) return;
    const auto [document, page] = before_.back();
    before_.pop_back();
    WebBrowser1.Find = 0;
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

void frm_Help::Seek(const std::string& words) {
    WebBrowser1.Find = 0;
    WebBrowser1.Sought = "";
    WebBrowser1.Library = Library_Of(WebBrowser1.Document);
    WebBrowser1.Sought = words;
    search_began_here_ = true;
}

std::vector<frm_Help::Place> frm_Help::Places() const {
    if (!WebBrowser1.Everywhere.empty() || WebBrowser1.Finds == 0) return WebBrowser1.Everywhere;
    return {{WebBrowser1.Document, "", WebBrowser1.Finds}};
}

void frm_Help::Find_Next(int direction) {
    const bool others = WebBrowser1.Library != Library_Of(WebBrowser1.Document);
    if (others || WebBrowser1.Sought != txt_Find.Text.Get()) Seek(txt_Find.Text);
    const int finds = WebBrowser1.Finds, now = WebBrowser1.Find;
    const int next = now == 0 && direction < 0 ? finds : now + direction;
    if (next >= 1 && next <= finds)
        WebBrowser1.Find = next;
    else
        Next_Document(direction);
    Refresh();
}

/// The one in view may be without a find: the next one counts from where it stands among all.
void frm_Help::Next_Document(int direction) {
    const std::vector<Place> places = Places();
    if (places.empty()) return;
    const auto& library = WebBrowser1.Library;
    const auto at = std::ranges::find(library, WebBrowser1.Document.Get());
    const auto count = static_cast<std::ptrdiff_t>(library.size());
    for (std::ptrdiff_t i = 1; at != library.end() && i <= count; ++i) {
        const std::string& document =
            library[static_cast<std::size_t>((at - library.begin() + (i + 1) * count + direction * i) % count)];
        const auto place = std::ranges::find(places, document, &Place::document);
        if (place != places.end()) return Go_To_Find(document, direction > 0 ? 1 : place->finds);
    }
    const Place& end = direction > 0 ? places.front() : places.back();
    Go_To_Find(end.document, direction > 0 ? 1 : end.finds);
}

void frm_Help::Go_To_Find(const std::string& document, int find) {
    if (document != WebBrowser1.Document.Get()) {
        // Back leads to where the search began, not through all of its steps.
        if (std::exchange(search_began_here_, false)) before_.emplace_back(WebBrowser1.Document, WebBrowser1.Page);
        WebBrowser1.Find = 0;
        WebBrowser1.Document = document;
    }
    WebBrowser1.Find = find;
}

void frm_Help::cmb_Finds_Click() {
    const std::vector<Place> places = Places();
    const int chosen = cmb_Finds.ListIndex();
    if (filling_ || chosen < 0 || chosen >= static_cast<int>(places.size())) return;
    Go_To_Find(places[static_cast<std::size_t>(chosen)].document, 1);
    WebBrowser1.SetFocus();
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

    Show_Finds(words && WebBrowser1.Sought == txt_Find.Text.Get());

    std::vector<std::string> entries;
    for (const platform::DocumentView::Heading& heading : WebBrowser1.Headings) entries.push_back(Entry_Of(heading));
    // The first heading stands chosen, so that passing over the list by keyboard is no choice.
    if (entries != cmb_Contents.Items()) Fill(cmb_Contents, entries, 0);
}

void frm_Help::Show_Finds(bool sought) {
    const std::vector<Place> places = sought ? Places() : std::vector<Place>();
    int all = 0, before = 0, here = -1;
    std::vector<std::string> entries;
    for (const Place& place : places) {
        if (place.document == WebBrowser1.Document.Get()) {
            here = static_cast<int>(entries.size());
            before = all;
        }
        all += place.finds;
        entries.push_back(place.title + " (" + std::to_string(place.finds) + ")");
    }
    if (!sought)
        lbl_Finds.Caption = "";
    else if (all == 0)
        lbl_Finds.Caption = "Not found";
    else if (here < 0 || WebBrowser1.Find == 0)
        lbl_Finds.Caption = std::to_string(all) + " found";
    else
        lbl_Finds.Caption = std::to_string(before + WebBrowser1.Find) + " of " + std::to_string(all);

    if (WebBrowser1.Everywhere.empty()) entries.clear();
    if (entries != cmb_Finds.Items() || here != cmb_Finds.ListIndex()) Fill(cmb_Finds, entries, here);
    cmb_Finds.Enabled = !entries.empty();
}

void frm_Help::Fill(platform::ComboBox& list, const std::vector<std::string>& entries, int chosen) {
    filling_ = true;
    list.Clear();
    for (const std::string& entry : entries) list.AddItem(entry);
    if (chosen >= 0 && chosen < static_cast<int>(entries.size())) list.Choose(chosen);
    filling_ = false;
}

void frm_Help::Stand() {
    const platform::DisplaySize display = platform::The_Desktop().Display();
    mnu_Beside.Checked = standing_ == Standing::kBeside;
    switch (standing_) {
        case Standing::kDesign: return Fit_Screen(*this, kWorkWidth, kWorkHeight);
        case Standing::kEnlarged:
            Left() = 0;
            Top() = 0;
            Width() = display.width;
            Height() = display.height;
            return;
        case Standing::kBeside:
            Width() = std::lround(kShareBeside * static_cast<double>(display.width));
            Height() = display.height - kDisplayMargin;
            Left() = display.width - Width();
            Top() = 0;
    }
}

void frm_Help::mnu_Full_Click() {
    Guarded("frm_Help.mnu_Full", [this] {
        standing_ = Standing::kEnlarged;
        Stand();
    });
}

void frm_Help::mnu_Shrink_Click() {
    Guarded("frm_Help.mnu_Shrink", [this] {
        standing_ = Standing::kDesign;
        mnu_Beside.Checked = false;
        Reset_Screen(*this, kWorkWidth, kWorkHeight);
    });
}

void frm_Help::mnu_Beside_Click() {
    Guarded("frm_Help.mnu_Beside", [this] {
        standing_ = Standing::kBeside;
        Stand();
    });
}

void frm_Help::mnu_Close_Click() { Hide(); }

void Show_Help(const std::string& document, const std::string& handler) {
    Guarded(handler, [&] {
        auto* reader = dynamic_cast<frm_Help*>(platform::Screens::Find("frm_Help"));
        if (!reader) platform::Raise(platform::kSubscript);
        reader->Open(document);
        reader->ShowBeside();
    });
}

Help_Key::Help_Key(platform::Screen& owner) : Shortcut(owner, "key_Help", "F1") {
    OnPress = [this] { Show_Help(Control_Help(Owner(), Owner().Focus()), Owner().Name() + ".key_Help"); };
}

Help_Entry::Help_Entry(platform::Screen& owner) : MenuEntry(owner, "mnu_Help", "Help") {
    OnClick = [this] { Show_Help(Document_Of(Screen_Help(Owner())), Owner().Name() + ".mnu_Help"); };
}

}  // namespace verlink
