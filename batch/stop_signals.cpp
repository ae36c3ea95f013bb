// The mark that a signal leaves.
#include "batch/stop_signals.h"

namespace verlink {

namespace {

volatile std::sig_atomic_t asked = 0;

void Mark(int) { asked = 1; }

}  // namespace

Stop_Signals::Stop_Signals() {
    asked = 0;
    struct sigaction action {};
    action.sa_handler = Mark;
    for (int i = 0; i < 3; ++i) {
        ::sigaction(kSignals[i], nullptr, &before_[i]);
        // Who started it to outlive a hang-up meant it.
        if (before_[i].sa_handler != SIG_IGN) ::sigaction(kSignals[i], &action, nullptr);
    }
}

Stop_Signals::~Stop_Signals() {
    for (int i = 0; i < 3; ++i) ::sigaction(kSignals[i], &before_[i], nullptr);
}

bool Stop_Signals::Asked() { return asked != 0; }

}  // namespace verlink
