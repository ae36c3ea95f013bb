// A search of linkages on a thread of its own, watched from the screen's.
#pragma once

#include <mutex>
#include <optional>
#include <thread>

#include "design/search.h"

namespace verlink {

/// All calls come from one thread, the screen's. What goes on beside it shares nothing but what is handed over here.
class Search_Aside {
   public:
    Search_Aside() = default;
    /// Stops, and waits for the end.
    ~Search_Aside();
    Search_Aside(const Search_Aside&) = delete;
    Search_Aside& operator=(const Search_Aside&) = delete;

    /// Another one that runs is stopped, and what it found is dropped.
    void Begin(const design::Task& task, const design::Effort& effort);
    /// Asks it to end with what it has; `Take` gives that once it has ended.
    void Stop();
    bool Runs() const { return thread_.joinable(); }

    /// The part that is done, 0 to 1.
    double Part() const;
    /// What was found and not yet taken: the best so far, or the end's, after which it runs no more.
    std::optional<design::Found> Take();
    /// Stops it, waits until it has ended, and takes what it has; nothing where all was taken before.
    design::Found Await();
    /// Waits until it has come to its end by itself, and takes what it found.
    design::Found To_Its_End();

   private:
    bool Tell(double part, const design::Found* so_far);

    mutable std::mutex hand_over_;
    std::optional<design::Found> found_;
    double part_ = 0;
    bool stop_ = false, ended_ = false;
    std::thread thread_;
};

}  // namespace verlink
