// Signals that ask for an end, heard where it suits.
#pragma once

#include <csignal>

namespace verlink {

/// As long as one lives, an interrupt, a hang-up or an order to end only leaves a mark; before and after that they do
/// what they did.
class Stop_Signals {
   public:
    Stop_Signals();
    ~Stop_Signals();
    Stop_Signals(const Stop_Signals&) = delete;
    Stop_Signals& operator=(const Stop_Signals&) = delete;

    static bool Asked();

   private:
    struct Signal {
        int number;
        struct sigaction before {};
    } signals_[3] = {{SIGINT}, {SIGTERM}, {SIGHUP}};
};

}  // namespace verlink
