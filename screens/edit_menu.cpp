// The words of the entries and of the model in hand.
#include "screens/edit_menu.h"

#include <string>
#include <utility>
#include <vector>

#include "animation/shown.h"
#include "core/linkage_model.h"
#include "shell/history.h"

namespace verlink {

using platform::kNoIndex;
using platform::Label;
using platform::MenuEntry;
using platform::Screen;
using platform::With;

namespace {

void Show_Entry(Screen& screen, const char* name, const std::string& verb, const std::string& what) {
    With<MenuEntry>(screen, name, kNoIndex, [&](MenuEntry& entry) {
        entry.Caption = what.empty() ? verb : verb + " " + what;
        entry.Enabled = !what.empty();
    });
}

/// As it was shown last: a title is not to pack the model.
std::string& Shown_Name() {
    static std::string name;
    return name;
}

/// There is no room for more; the tip has all.
std::string Shortened(const std::string& name) {
    constexpr std::size_t kLetters = 24;
    if (name.size() <= kLetters) return name;
    std::size_t end = kLetters - 3;
    // No letter of several bytes is cut in two.
    while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0u) == 0x80u) --end;
    return name.substr(0, end) + "...";
}

/// The file that Save writes, by its name alone.
std::string Where_To() {
    if (!Model.SavedFlag) return "Save asks where to";
    return Shortened(Model.FilePath.substr(Model.FilePath.find_last_of('/') + 1));
}

void Show(Screen& screen, const std::string& undo, const std::string& redo, const std::string& in_hand,
          const std::string& path) {
    Show_Entry(screen, "mnu_Undo", "Undo", undo);
    Show_Entry(screen, "mnu_Redo", "Redo", redo);
    With<Label>(screen, "lbl_Model", kNoIndex, [&](Label& label) {
        label.Caption = in_hand;
        label.Tip = path;
    });
}

}  // namespace

std::string Name_In_Hand() { return Shown_Name(); }

/// Not where nobody has come to a model yet, or the program speaks of itself.
bool Tells_Of_The_Model(const Screen& screen) {
    for (const char* other : {"frm_Title", "frm_User", "frm_About", "frm_Help", "frm_Quit"})
        if (screen.Name() == other) return false;
    return true;
}

namespace {

/// On all screens, and on one that is just being made.
void Show_Everywhere(Screen* coming) {
    History& history = The_History();
    const std::string undo = history.Undo_What(), redo = history.Redo_What();
    const bool modified = Modified();
    const std::string in_hand =
        Shortened(Model.ModelName) + "   -   " + Where_To() + "   -   " + (modified ? "modified" : "not modified");
    const std::string path = Model.ModelName + ": " +
                             (Model.SavedFlag ? "Save writes it to " + Model.FilePath
                                              : "it lies in no file as it stands, and Save asks where to put it");
    const std::string name = Model.ModelName + (modified ? "*" : "");
    const bool other_name = std::exchange(Shown_Name(), name) != name;
    std::vector<Screen*> screens = platform::Screens::Made();
    if (coming) screens.push_back(coming);
    for (Screen* screen : screens) {
        Show(*screen, undo, redo, in_hand, path);
        if (other_name && screen->ShapeWatcher()) screen->ShapeWatcher()();
    }
}

}  // namespace

void Show_What_Is_Done() { Show_Everywhere(nullptr); }

void Serve_Undo(Screen& screen, std::function<void()> show) {
    History& history = The_History();
    history.Serve(screen, std::move(show));
    [[maybe_unused]] static const bool follows = [&history] {
        history.Follow([](bool) {
            Show_What_Is_Done();
            Follow_Results();
        });
        return true;
    }();
    With<MenuEntry>(screen, "mnu_Undo", kNoIndex, [](MenuEntry& entry) {
        entry.OnClick = [] { The_History().Undo(); };
        entry.Keys = "Ctrl+Z";
    });
    With<MenuEntry>(screen, "mnu_Redo", kNoIndex, [](MenuEntry& entry) {
        entry.OnClick = [] { The_History().Redo(); };
        entry.Keys = "Ctrl+Shift+Z Ctrl+Y";
    });
    Show_Everywhere(&screen);
}

}  // namespace verlink
