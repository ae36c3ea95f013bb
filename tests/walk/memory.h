// How the process grows in a long walk.
#pragma once

#include <vector>

namespace verlink::walk {

/// What the process holds between two walks, when all windows are closed and those of the next are not yet there.
class Memory_Watch {
   public:
    /// Takes the present state down, once in a thousand actions.
    void Note(long actions);
    void Tell() const;
    /// By more than 20 MB since the first 3000 actions, by which time every screen has been shown, fonts and pictures
    /// are loaded and the caches of the toolkit are full. What was found on the way, and shortened, counts too.
    bool Has_Grown() const;

   private:
    struct State {
        long actions;
        double resident;  ///< of the system's memory, MB
        double in_use;    ///< of what the process has asked for, MB
    };
    static constexpr long kEvery = 1000, kWarm = 3000;
    static constexpr double kMost = 20;
    const State* Base() const;
    std::vector<State> states_;
};

}  // namespace verlink::walk
