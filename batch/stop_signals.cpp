// The mark that a signal leaves.
#include "batch/stop_signals.h"

namespace verlink {

namespace {

volatile std::sig_atomic_t asked;

void Mark(int) { asked = 1; }

}  // namespace

Stop_Signals::Stop_Signals() {
    asked = 0;
    struct sigaction action {};
    action.sa_handler = Mark;
    for (Signal& each : signals_) {
        ::sigaction(each.number, nullptr, &each.before);
        // Who started it to outlive a hang-up meant it.
        if (each.before.sa_handler != SIG_IGN) ::sigaction(each.number, &action, nullptr);
    }
}

Stop_Signals::~Stop_Signals() {
    for (const Signal& each : signals_) ::sigaction(each.number, &each.before, nullptr);
}

bool Stop_Signals::Asked() { return asked != 0; }

}  // namespace verlink
