// How record and controls are put aside, and back without an event.
#include "tests/walk/aside.h"

#include <cstddef>
#include <memory>

#include "platform/graph.h"

namespace verlink::walk {

using namespace platform;

namespace {

bool on = false;
alignas(LinkageModel) std::byte kept[sizeof(LinkageModel)];

}  // namespace

bool Aside::On() { return on; }

void Put_Record(const LinkageModel& model) {
    std::destroy_at(&Model);
    std::construct_at(&Model, model);
}

template <class T>
void Aside::Keep(Property<T>& property) {
    put_back_.emplace_back([&property, value = property.Get(), event = property.Event] {
        property.Event = nullptr;
        property = value;
        property.Event = event;
    });
    property.Event = nullptr;
}

template <class Event>
void Aside::Mute(Event& event) {
    if (!event) return;
    put_back_.emplace_back([&event, kept = event] { event = kept; });
    event = nullptr;
}

void Aside::Hold(Screen& screen) {
    for (Control* control : screen.Controls()) {
        if (auto* visual = dynamic_cast<Visual*>(control)) {
            Keep(visual->Enabled);
            Keep(visual->Visible);
            Mute(visual->OnGotFocus);
            Mute(visual->OnLostFocus);
        }
        if (auto* label = dynamic_cast<Label*>(control)) {
            Keep(label->Caption);
            Keep(label->ForeColor);
        } else if (auto* box = dynamic_cast<TextBox*>(control)) {
            // The mark of a hand comes back behind the text.
            put_back_.emplace_back([box, hand = box->State()] { box->Put_Back(hand); });
            Mute(box->Reads);
            Keep(box->Text);
            Keep(box->SelectedAll);
            Keep(box->BackColor);
        } else if (auto* option = dynamic_cast<OptionButton*>(control)) {
            Keep(option->Value);
        } else if (auto* check = dynamic_cast<CheckBox*>(control)) {
            Keep(check->Value);
        } else if (auto* entry = dynamic_cast<MenuEntry*>(control)) {
            Keep(entry->Enabled);
            Keep(entry->Checked);
        }
    }
    put_back_.emplace_back([&screen, focus = screen.Focus()] { screen.MoveFocus(focus); });
}

Aside::Aside()
    : document_(Document_In_Hand()),
      as_it_was_(*document_),
      model_(std::construct_at(reinterpret_cast<LinkageModel*>(kept), Model)) {
    on = true;
    // Made first, so that none comes up half-way.
    for (const char* name :
         {"frm_HomeScreen", "frm_Inputnew", "frm_Animate", "frm_Cayley", "frm_MassProp", "frm_Matrix"})
        if (Screen* screen = Screens::Find(name)) Hold(*screen);
    Again();
}

Aside::~Aside() {
    // The last thing put aside comes back first: a focus before the handlers that it would raise.
    for (auto back = put_back_.rbegin(); back != put_back_.rend(); ++back) (*back)();
    Put_Record(*model_);
    std::destroy_at(model_);
    *document_ = as_it_was_;
    Take_In_Hand(document_);
    on = false;
}

}  // namespace verlink::walk
