// A trial that leaves no trace: record and controls are put aside, and back.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "core/linkage_model.h"
#include "files/in_hand.h"
#include "platform/deed.h"
#include "platform/screen.h"

namespace verlink::walk {

/// The record becomes that one, bit for bit.
void Put_Record(const LinkageModel& model);

/// While one exists the program may be asked to do something for which nobody has asked: no control of the screens that
/// a run or a solution writes on raises an event, and in the end the record and those controls are as they were.
/// Messages are up to the desktop, which asks `Aside::On()`.
class Aside {
   public:
    Aside();
    ~Aside();
    Aside(const Aside&) = delete;
    Aside& operator=(const Aside&) = delete;

    /// The record as it was put aside.
    const LinkageModel& Before() const { return *model_; }
    /// The record as it was, for the next trial.
    void Again() const { Put_Record(*model_); }
    static bool On();

   private:
    void Hold(platform::Screen& screen);
    template <class T>
    void Keep(platform::Property<T>& property);
    template <class Event>
    void Mute(Event& event);

    // A focus that leaves a disabled button meanwhile is no deed of its own.
    platform::Deed nothing_done_{"a trial", platform::Deed::Kind::kTyped};
    std::shared_ptr<Document> document_;
    Document as_it_was_;
    LinkageModel* model_;  ///< in a place of its own, since it is large and comes and goes at every action
    std::vector<std::function<void()>> put_back_;
};

}  // namespace verlink::walk
