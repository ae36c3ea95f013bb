// Signals that would end the process in the middle of a file.
#pragma once

#include <csignal>

namespace verlink {

/// As long as one lives, an interrupt, a hang-up or an order to end waits. It is heard when the last one goes.
class HeldSignals {
   public:
    HeldSignals() {
        sigset_t ends;
        sigemptyset(&ends);
        for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&ends, signal);
        ::pthread_sigmask(SIG_BLOCK, &ends, &before_);
    }
    ~HeldSignals() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    HeldSignals(const HeldSignals&) = delete;
    HeldSignals& operator=(const HeldSignals&) = delete;

   private:
    sigset_t before_{};
};

}  // namespace verlink
