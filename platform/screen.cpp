// Showing, hiding, activation and focus of screens, and the screens by name.
#include "platform/screen.h"

#include <algorithm>
#include <map>

#include "platform/deed.h"
#include "platform/desktop_services.h"

namespace verlink::platform {

namespace {

struct Registry {
    std::map<std::string, Screens::Maker> makers;
    std::map<std::string, std::string> titles;
    std::vector<std::unique_ptr<Screen>> made;
    std::vector<Screen*> shown;  // oldest first; a screen shown again moves to the end
    Screen* active = nullptr;
    std::function<void(Screen&)> active_watcher;
};

Registry& Registered() {
    static Registry registry;
    return registry;
}

void Tell_Active(Screen& screen) {
    if (Registered().active_watcher) Registered().active_watcher(screen);
}

}  // namespace

Screen::Shape::Shape(Screen& screen) : Control(screen, "", kNoIndex) {}

Screen::Screen(std::string name) : name_(std::move(name)), shape_(*this) {}

Screen::~Screen() {
    Registry& registry = Registered();
    std::erase(registry.shown, this);
    if (registry.active == this) registry.active = nullptr;
}

Control* Screen::Find(const std::string& name, int index) const {
    for (Control* control : controls_)
        if (control->Index() == index && control->Name() == name) return control;
    return nullptr;
}

void Screen::ShowModal() {
    if (The_Desktop().Ending()) return;
    Registry& registry = Registered();
    std::erase(registry.shown, this);
    registry.shown.push_back(this);
    visible_ = true;
    beside_ = false;
    const int before = hidings_;
    Deed::So_Far();
    The_Desktop().Show_Window(*this);
    if (registry.active != this) {
        registry.active = this;
        Form_Activate();
        if (registry.active == this) Tell_Active(*this);
    }
    Deed::By_Itself();
    if (hidings_ == before) {
        const Deed::Waiting hand_free;
        The_Desktop().Serve_Events(*this, [this, before] { return hidings_ != before; });
    }
    if (The_Desktop().Ending()) return;
    Screen* below = registry.shown.empty() ? nullptr : registry.shown.back();
    if (below == registry.active) return;
    registry.active = below;
    if (!below) return;
    below->Form_Return();
    if (registry.active == below) Tell_Active(*below);
}

void Screen::ShowBeside() {
    if (The_Desktop().Ending()) return;
    const bool comes = !visible_;
    visible_ = true;
    beside_ = true;
    if (comes) Form_Activate();
    The_Desktop().Show_Beside(*this);
}

void Screen::Hide() {
    if (!visible_) return;
    visible_ = false;
    ++hidings_;
    for (Control* control : controls_)
        if (auto* box = dynamic_cast<TextBox*>(control)) box->Forget();
    std::erase(Registered().shown, this);
    if (Registered().active == this) Registered().active = nullptr;
    The_Desktop().Hide_Window(*this);
}

void Screen::MoveFocus(Control* control) {
    if (control == focus_) return;
    Control* left = focus_;
    focus_ = control;
    if (auto* box = dynamic_cast<TextBox*>(left)) box->Leave();
    if (auto* visual = dynamic_cast<Visual*>(left); visual && visual->OnLostFocus)
        Leave_Box(*visual, visual->OnLostFocus);
    if (focus_ == control) {
        if (FocusWatcher) FocusWatcher(control);
        if (auto* visual = dynamic_cast<Visual*>(control); visual && visual->OnGotFocus) visual->OnGotFocus();
    }
}

void Screen::Close() {
    bool cancel = false;
    Form_QueryUnload(cancel);
    if (cancel) return;
    Hide();
    Form_Unload();
}

bool Screen::Press_Keys(const std::string& keys) {
    const auto has = [&keys](const std::string& all) {
        const auto single = Single_Keys(all);
        return std::find(single.begin(), single.end(), keys) != single.end();
    };
    for (Control* control : controls_) {
        auto* entry = dynamic_cast<MenuEntry*>(control);
        auto* button = dynamic_cast<CommandButton*>(control);
        auto* shortcut = dynamic_cast<Shortcut*>(control);
        if (!has(entry      ? entry->Keys.Get()
                 : button   ? button->Keys.Get()
                 : shortcut ? shortcut->Keys.Get()
                            : std::string()))
            continue;
        const Deed at_work(*control);
        if (entry) entry->Click();
        if (shortcut) shortcut->Press();
        if (!button) return true;
        if (button->Enabled && button->Visible) button->SetFocus();
        button->Click();
        return true;
    }
    return false;
}

void Screen::Hide_Above(const Screen& base) {
    const auto& shown = Registered().shown;
    if (std::find(shown.begin(), shown.end(), &base) == shown.end()) return;
    while (shown.back() != &base) shown.back()->Hide();
}

Screen* Screen::Active() { return Registered().active; }

std::function<void(Screen&)>& Screen::ActiveWatcher() { return Registered().active_watcher; }

void Screens::Register(const std::string& name, Maker maker, std::optional<std::string> title) {
    Registry& registry = Registered();
    registry.makers.erase(name);
    registry.titles.erase(name);
    if (!maker) return;
    registry.makers[name] = std::move(maker);
    if (title) registry.titles[name] = *std::move(title);
}

const std::map<std::string, std::string>& Screens::Titles() { return Registered().titles; }

bool Screens::Knows(const std::string& name) { return Registered().makers.contains(name); }

Screen* Screens::Find(const std::string& name) {
    Registry& registry = Registered();
    for (const auto& screen : registry.made)
        if (screen->Name() == name) return screen.get();
    const auto maker = registry.makers.find(name);
    if (maker == registry.makers.end()) return nullptr;
    registry.made.push_back(maker->second());
    return registry.made.back().get();
}

Screen& Screens::Get(const std::string& name) {
    if (Screen* screen = Find(name)) return *screen;
    Raise(kSubscript);
}

std::vector<Screen*> Screens::Made() {
    std::vector<Screen*> all;
    for (const auto& screen : Registered().made) all.push_back(screen.get());
    return all;
}

void Screens::Discard() { Registered().made.clear(); }

void Put_Caption(Screen& screen, const std::string& label, int index, const std::string& text) {
    With<Label>(screen, label, index, [&](Label& found) { found.Caption = text; });
}

}  // namespace verlink::platform
