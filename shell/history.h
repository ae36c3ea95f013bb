// What was done to the model, step by step: undone, done again, and told to who follows it.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/linkage_model.h"
#include "files/in_hand.h"
#include "platform/screen.h"

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
    std::size_t Steps() const { return undo_.size(); }

    /// The screen takes undo and redo, and shows the model so after either.
    void Serve(platform::Screen& screen, std::function<void()> show);
    bool Serves(const platform::Screen& screen) const;

    /// Of a box of the screen on top that was typed into and not taken over, what was typed is undone first.
    bool Can_Undo() const;
    bool Can_Redo() const;
    /// What the next one would undo, or do again; empty for nothing.
    std::string Undo_What() const;
    std::string Redo_What() const;
    void Undo();
    void Redo();

    /// Is called at each turn of the model, when the deed that brought it has ended; takes no longer than a moment.
    void Listen(std::function<void(Turn)> listener) { listeners_.push_back(std::move(listener)); }
    /// Is called whenever a deed has ended or a box was typed into, to show what can be undone and what is in hand. A
    /// box alone (`typed`) has not come to the model yet.
    void Follow(std::function<void(bool typed)> follower) { followers_.push_back(std::move(follower)); }

   private:
    struct Moment;
    struct Step {
        std::string what;
        std::shared_ptr<Moment> moment;
    };
    /// What was typed into a box since it was filled.
    struct Typed {
        platform::TextBox* box;
        const platform::Screen* screen;
        std::string text;  ///< before; or to be typed again
    };

    void Done(const std::string& what, bool goes_on);
    void By_Itself();
    void To_Be_Typed(const platform::Control& control);
    void In_Hand(Hand hand);
    bool Is_Other(const std::string& counts) const;
    std::shared_ptr<Moment> Take() const;
    void Put(const Moment& moment);
    void Put_Values(const Moment& moment);
    void Put_Tables(const Moment& moment);
    void Make_Results_Anew(const Moment& moment);
    void Settle_Flags(const Moment& moment);
    void Go(std::vector<Step>& from, std::vector<Step>& to);
    const Typed* Last_Typed() const;
    const Typed* Last_Taken_Back() const;
    void Tell(Turn turn) const;
    void Tell_Followers(bool typed) const;

    LinkageModel& model_;
    std::string counts_;  ///< of the present
    std::shared_ptr<Moment> present_;
    std::vector<Step> undo_, redo_;  ///< the next one last
    std::vector<Typed> typed_, taken_back_;
    bool drag_has_step_ = false;
    bool going_ = false;  ///< to another step: what happens on the way, as a focus that moves, is nobody's deed
    std::map<std::string, std::function<void()>> show_;  ///< by screen
    std::vector<std::function<void(Turn)>> listeners_;
    std::vector<std::function<void(bool)>> followers_;
};

History& The_History();

}  // namespace verlink
