// What was done to the model, step by step: undone, done again, and told to who follows it.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/linkage_model.h"
#include "files/in_hand.h"

namespace verlink {

/// What has befallen the model in hand.
enum class Turn {
    kChanged,  ///< something that counts is another than before
    kKept,     ///< it was saved
    kCame      ///< another one has come: opened or begun anew
};

/// The one owner of what was done. A step is whatever a deed of the hand has changed of what counts in the model
/// (`What_Counts`), found when the deed ends by comparing with how it was before. Kept of each step are the values of
/// the model's file and the few beside it; results are made anew from them.
class History {
   public:
    explicit History(LinkageModel& model);
    ~History();
    History(const History&) = delete;
    History& operator=(const History&) = delete;

    /// Nothing has been done: the model is where it begins.
    void Begin();

    /// At least so many steps are kept; the oldest go first.
    static constexpr std::size_t kSteps = 250;
    bool Can_Undo() const { return !undo_.empty(); }
    bool Can_Redo() const { return !redo_.empty(); }
    /// What the next one would undo, or do again.
    std::string Undo_What() const { return Can_Undo() ? undo_.back().what : std::string(); }
    std::string Redo_What() const { return Can_Redo() ? redo_.back().what : std::string(); }
    std::size_t Steps() const { return undo_.size(); }

    /// Is called at each turn of the model, when the deed that brought it has ended; takes no longer than a moment.
    void Listen(std::function<void(Turn)> listener) { listeners_.push_back(std::move(listener)); }

   private:
    struct Moment;
    struct Step {
        std::string what;
        std::shared_ptr<const Moment> moment;
    };

    void Done(const std::string& what, bool goes_on);
    void By_Itself();
    void In_Hand(Hand hand);
    bool Is_Other(const std::string& counts) const;
    std::shared_ptr<const Moment> Take() const;
    void Tell(Turn turn) const;

    LinkageModel& model_;
    std::string counts_;  ///< of the present
    std::shared_ptr<const Moment> present_;
    std::vector<Step> undo_, redo_;  ///< the next one last
    bool drag_has_step_ = false;
    std::vector<std::function<void(Turn)>> listeners_;
};

History& The_History();

}  // namespace verlink
