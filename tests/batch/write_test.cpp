// Files are written with signals held back, so that none is left half written.
#include "batch/write.h"

#include <gtest/gtest.h>

#include <csignal>

#include "platform/system.h"
#include "tests/batch/batch_fixture.h"

namespace verlink::test {

namespace {

/// Notes at each write which of the signals wait that would end the process.
struct Noting_Signals : platform::System {
    Noting_Signals() { platform::Use_System(this); }
    ~Noting_Signals() override { platform::Use_System(nullptr); }
    ssize_t Write(int file, const char* from, std::size_t count) override {
        waiting += Waiting();
        return System::Write(file, from, count);
    }
    int Flush(int) override { return 0; }
    static std::string Waiting() {
        sigset_t now;
        ::pthread_sigmask(SIG_BLOCK, nullptr, &now);
        std::string signals;
        for (const auto& [signal, name] : {std::pair{SIGINT, "INT "}, {SIGTERM, "TERM "}, {SIGHUP, "HUP "}})
            if (sigismember(&now, signal) == 1) signals += name;
        return signals + "; ";
    }
    std::string waiting;
};

struct Held : BatchFixture {
    const std::string model = Write(ModelText());

    /// What waits while the result goes to that path.
    std::string While_Writing(const char* option, const std::string& path) const {
        Noting_Signals noting;
        EXPECT_EQ(Run({model, option, path}).status, 0);
        return noting.waiting;
    }
};

}  // namespace

TEST_F(Held, SignalsWaitUntilAFileIsWholeAndNotForADevice) {
    for (const char* option : {"--csv", "--save"}) {
        const std::string path = Path(option);
        EXPECT_EQ(While_Writing(option, path), "INT TERM HUP ; ") << "a new one";
        EXPECT_EQ(While_Writing(option, path), "INT TERM HUP ; ") << "in place of another";
        EXPECT_EQ(While_Writing(option, "/dev/null"), "; ");
        EXPECT_EQ(Noting_Signals::Waiting(), "; ") << "and not afterwards";
    }
}

}  // namespace verlink::test
