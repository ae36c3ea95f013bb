// What a model may cost, whatever is in it: memory and time.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

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
    Cost Of(const std::string& content, const std::vector<std::string>& options = {}) const {
        Write("hostile.vlk", content);
        return Of_The_File(options);
    }
    /// The same for as much as is read of any file: the pieces stand where the model has an asterisk. They are never
    /// all in the memory of the test, which would count as the child's.
    Cost Of_Much(const std::string& model, const std::string& piece) const {
        const std::size_t at = model.find('*');
        std::string some;
        while (some.size() < 1000000) some += piece;
        std::ofstream file(Path("hostile.vlk"), std::ios::binary);
        file << model.substr(0, at);
        for (std::size_t size = model.size() + some.size(); size <= platform::kLargestFile; size += some.size())
            file << some;
        file << model.substr(at + 1);
        file.close();
        return Of_The_File({});
    }
    /// Runs the executable on the file, its words thrown away.
    Cost Of_The_File(std::vector<std::string> options) const {
        options.insert(options.begin(), {VERLINK_BATCH, Path("hostile.vlk")});
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
};

}  // namespace

TEST_F(Bounds, HoldForFilesThatAreNoModelAtAll) {
    for (const char* piece : {"\"", "\" x", "\r\n"}) Expect_Modest(Of_Much("*", piece), 1);
}

TEST_F(Bounds, HoldForAValueThatFillsTheFile) {
    Expect_Modest(Of_Much(ModelText().Quote(kModelName, "*").Content(), "x "), 1);
    Expect_Modest(Of_Much(ModelText().Set(kModelName, "*").Content(), "x "), 1);
    Expect_Modest(Of_Much(ModelText().Set(kL2, "*").Content(), "1"), 1);
}

TEST_F(Bounds, HoldForAModelWithAHugeTail) { Expect_Modest(Of_Much(ModelText().Content() + "*", "1,2,3\r\n"), 0); }

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
