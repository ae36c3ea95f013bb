// Signals that ask for an end: what is heard of them meanwhile, and what they do before and after.
#include "batch/stop_signals.h"

#include <gtest/gtest.h>

namespace verlink::test {

namespace {

volatile std::sig_atomic_t heard = 0;

void Hear(int) { heard = heard + 1; }

/// What answers to a signal as long as this lives.
class Answer {
   public:
    Answer(int signal, void (*handler)(int)) : signal_(signal) {
        struct sigaction action {};
        action.sa_handler = handler;
        ::sigaction(signal_, &action, &before_);
    }
    ~Answer() { ::sigaction(signal_, &before_, nullptr); }
    Answer(const Answer&) = delete;
    Answer& operator=(const Answer&) = delete;

   private:
    int signal_;
    struct sigaction before_ {};
};

}  // namespace

TEST(StopSignalsTest, ASignalLeavesAMarkMeanwhileAndDoesWhatItDidAfterwards) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const Answer own(signal, Hear);
        heard = 0;
        {
            const Stop_Signals meanwhile;
            EXPECT_FALSE(Stop_Signals::Asked());
            ::raise(signal);
            EXPECT_TRUE(Stop_Signals::Asked()) << signal;
            EXPECT_EQ(heard, 0);
        }
        ::raise(signal);
        EXPECT_EQ(heard, 1) << signal;
        const Stop_Signals again;
        EXPECT_FALSE(Stop_Signals::Asked()) << "each begins without a mark";
    }
}

TEST(StopSignalsTest, ASignalThatWhoeverStartedTheProgramHasSilencedIsNotHeard) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const Answer none(signal, SIG_IGN);
        const Stop_Signals meanwhile;
        ::raise(signal);
        EXPECT_FALSE(Stop_Signals::Asked()) << signal;
    }
}

}  // namespace verlink::test
