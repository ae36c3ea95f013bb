// The ears are told in the order in which they came.
#include "animation/shown.h"

#include <optional>
#include <utility>
#include <vector>

#include "core/results_turns.h"

namespace verlink {

namespace {

std::vector<Position_Ear*>& Ears() {
    // Never destroyed: a screen that lives until the process ends takes its ear out even then.
    static auto& ears = *new std::vector<Position_Ear*>;
    return ears;
}

}  // namespace

Position_Ear::Position_Ear(platform::Screen& screen, Hear hear) : screen_(screen), hear_(std::move(hear)) {
    Ears().push_back(this);
}

Position_Ear::~Position_Ear() { std::erase(Ears(), this); }

void Position_Shown(platform::Screen& form, int step, bool playing) {
    const Shown shown{form, step, playing};
    // One that hears may show a screen, which brings ears of its own.
    // NOLINTNEXTLINE(modernize-loop-convert)
    for (std::size_t i = 0; i < Ears().size(); ++i) {
        Position_Ear& ear = *Ears()[i];
        if (&ear.screen_ != &form) continue;
        ear.step_ = step;
        if (ear.hear_) ear.hear_(shown);
    }
}

void Follow_Results() {
    static std::optional<int> seen;
    const int turns = Results_Turns();
    if (std::exchange(seen, turns) == turns) return;
    // NOLINTNEXTLINE(modernize-loop-convert): as above
    for (std::size_t i = 0; i < Ears().size(); ++i) {
        Position_Ear& ear = *Ears()[i];
        if (ear.hear_) ear.hear_({ear.screen_, ear.step_, false});
    }
}

void Nothing_Shown(platform::Screen& form) { Position_Shown(form, kNoStep); }

void Show_Nothing(platform::Screen& form) {
    form.Get<platform::PictureBox>("Picture1").Canvas().Cls();
    Nothing_Shown(form);
}

}  // namespace verlink
