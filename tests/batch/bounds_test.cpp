// What a model may cost, whatever is in it: memory and time.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "platform/file_system.h"
#include "tests/batch/batch_fixture.h"

namespace verlink::test {

namespace {

struct Cost {
    int status;
    long kilobytes;
    double seconds;  ///< of the processor
};

struct Bounds : BatchFixture {
    /// Runs the executable on a file of this content, its words thrown away.
    Cost Of(const std::string& content, std::vector<std::string> options = {}) const {
        options.insert(options.begin(), {VERLINK_BATCH, Write("hostile.vlk", content)});
        std::vector<char*> words;
        for (std::string& text : options) words.push_back(text.data());
        words.push_back(nullptr);
        posix_spawn_file_actions_t actions;
        ::posix_spawn_file_actions_init(&actions);
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            ::posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", O_RDWR, 0);
        pid_t child = 0;
        EXPECT_EQ(::posix_spawn(&child, VERLINK_BATCH, &actions, nullptr, words.data(), environ), 0);
        ::posix_spawn_file_actions_destroy(&actions);
        int state = 0;
        rusage used{};
        ::wait4(child, &state, 0, &used);
        std::filesystem::remove(Path("hostile.vlk"));
        const auto seconds = [](const timeval& time) {
            return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
        };
        return {WIFEXITED(state) ? WEXITSTATUS(state) : -1, used.ru_maxrss,
                seconds(used.ru_utime) + seconds(used.ru_stime)};
    }
    static void Expect_Modest(const Cost& cost, int status) {
        EXPECT_EQ(cost.status, status);
#if defined(NDEBUG)  // what is built for finding mistakes costs more
        EXPECT_LT(cost.kilobytes, 200 * 1024);
        EXPECT_LT(cost.seconds, 2);
#endif
    }
    /// As much as is read of any file.
    static std::string Much(const std::string& piece, std::size_t less = 0) {
        std::string much;
        much.reserve(platform::kLargestFile);
        much = piece;
        while (2 * much.size() <= platform::kLargestFile - less) much.append(much, 0);
        much.append(much, 0, (platform::kLargestFile - less - much.size()) / piece.size() * piece.size());
        return much;
    }
    static constexpr std::size_t kHead = 100000;
};

}  // namespace

TEST_F(Bounds, HoldForFilesThatAreNoModelAtAll) { Expect_Modest(Of(Much("\" x")), 1); }

TEST_F(Bounds, HoldForAValueThatFillsTheFile) {
    Expect_Modest(Of(ModelText().Quote(kModelName, Much("x ", kHead)).Content()), 1);
    Expect_Modest(Of(ModelText().Set(kL2, Much("1", kHead)).Content()), 1);
}

TEST_F(Bounds, HoldForAModelWithAHugeTail) { Expect_Modest(Of(ModelText().Content() + Much("1,2,3\r\n", kHead)), 0); }

TEST_F(Bounds, HoldForTheLongestTextsAndRunsThatAreTaken) {
    const std::string longest(32767, 'W');
    ModelText model;
    for (const int line : {3, 4, 6, 7, 56}) model.Quote(line, longest);
    model.Angles("0", "288", "0.1");
    Expect_Modest(Of(model.Content(), {"--balance", "--csv", "/dev/null", "--svg", "/dev/null"}), 0);
    Expect_Modest(Of(model.Content(), {"--fft", "Accel CP:Mag", "--csv", "/dev/null"}), 0);
    // None of its steps closes.
    model.Linkage({"10", "1", "2", "3"}, "1", "0");
    Expect_Modest(Of(model.Content()), 1);
    model.Linkage({"2", "1.9", "1", "1.05"}, "1e30", "0");
    Expect_Modest(Of(model.Content(), {"--svg", "/dev/null"}), 0);
    EXPECT_EQ(Of(ModelText().Quote(56, std::string(100001, 'W')).Content()).status, 1);
}

TEST_F(Bounds, HoldForCountsAsLargeAsTheyCanBe) {
    for (const char* count : {"32767", "-32768"})
        for (const int line : std::initializer_list<int>{5, 53, 55, kNSteps}) {
            SCOPED_TRACE(line);
            const Cost cost = Of(ModelText().Set(line, count).Content());
            Expect_Modest(cost, cost.status == 0 ? 0 : 1);
        }
}

}  // namespace verlink::test
