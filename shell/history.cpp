// How steps are found and kept.
#include "shell/history.h"

#include <utility>

#include "platform/deed.h"

namespace verlink {

/// All that an undo gives back.
struct History::Moment {
    Geometry geometry;
    Drive drive;
    std::shared_ptr<Document> document;
};

History::History(LinkageModel& model) : model_(model) {
    platform::Watch_Deeds({.done = [this](const std::string& what, bool goes_on) { Done(what, goes_on); },
                           .by_itself = [this] { By_Itself(); }});
    Watch_Hand([this](Hand hand) { In_Hand(hand); });
    Begin();
}

History::~History() {
    platform::Watch_Deeds({});
    Watch_Hand({});
}

void History::Begin() {
    undo_.clear();
    redo_.clear();
    drag_has_step_ = false;
    counts_ = What_Counts();
    present_ = Take();
}

std::shared_ptr<const History::Moment> History::Take() const {
    auto moment = std::make_shared<Moment>();
    moment->geometry = model_;
    moment->drive = model_;
    moment->document = Document_In_Hand();
    return moment;
}

bool History::Is_Other(const std::string& counts) const {
    return counts != counts_ || model_.ModuloMode != present_->drive.ModuloMode ||
           Document_In_Hand() != present_->document;
}

void History::Done(const std::string& what, bool goes_on) {
    std::string counts = What_Counts();
    const bool other = Is_Other(counts);
    if (other) {
        // A drag is one step, from where it began.
        if (!goes_on || !drag_has_step_) {
            undo_.push_back({what.empty() ? "change" : what, present_});
            if (undo_.size() > kSteps) undo_.erase(undo_.begin());
            redo_.clear();
        }
        drag_has_step_ = goes_on;
    } else if (!goes_on) {
        drag_has_step_ = false;
    }
    counts_ = std::move(counts);
    present_ = Take();
    if (other) Tell(Turn::kChanged);
}

void History::By_Itself() {
    const std::string before = std::exchange(counts_, What_Counts());
    Model_Follows(before);
    present_ = Take();
    if (before != counts_) Tell(Turn::kChanged);
}

void History::In_Hand(Hand hand) { Tell(hand == Hand::kCame ? Turn::kCame : Turn::kKept); }

void History::Tell(Turn turn) const {
    for (const auto& listener : listeners_) listener(turn);
}

History& The_History() {
    static History history(Model);
    return history;
}

}  // namespace verlink
