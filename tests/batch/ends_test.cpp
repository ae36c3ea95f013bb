// How the program ends when somebody else ends first: a reader of its results, or the one who started it.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "tests/batch/batch_fixture.h"

namespace verlink::test {

namespace fs = std::filesystem;

namespace {

struct Ends : BatchFixture {
    const std::string model = Write(ModelText().Angles("0", "360", "0.125"));

    /// A script of bash in the test's folder, %B the program; what it prints, its errors behind it.
    std::string Shell(std::string script) const {
        for (std::size_t at = 0; (at = script.find("%B", at)) != std::string::npos;)
            script.replace(at, 2, VERLINK_BATCH);
        Write("script.bash", "cd " + Path("") + "\n" + script);
        EXPECT_EQ(std::system(("bash " + Path("script.bash") + " > " + Path("printed") + " 2>&1").c_str()), 0);
        return Read(Path("printed"));
    }
    /// Starts the program, and gives its number.
    pid_t Start(const std::vector<std::string>& arguments) const {
        std::vector<std::string> texts{VERLINK_BATCH};
        texts.insert(texts.end(), arguments.begin(), arguments.end());
        std::vector<char*> words;
        for (std::string& text : texts) words.push_back(text.data());
        words.push_back(nullptr);
        posix_spawn_file_actions_t actions;
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, Path("errors").c_str(), O_WRONLY | O_CREAT, 0600);
        pid_t child = 0;
        EXPECT_EQ(::posix_spawn(&child, VERLINK_BATCH, &actions, nullptr, words.data(), environ), 0);
        ::posix_spawn_file_actions_destroy(&actions);
        return child;
    }
};

}  // namespace

TEST_F(Ends, AReaderThatHasEnoughEndsItQuietlyAsItDoesOthers) {
    EXPECT_EQ(Shell("%B model.vlk | head -c 5; echo \" ${PIPESTATUS[0]}\""), "Step, 141\n");
    EXPECT_EQ(Shell("%B model.vlk model.vlk model.vlk | head -c 5; echo \" ${PIPESTATUS[0]}\""), "Model 141\n");
    EXPECT_EQ(Shell("(sleep 0.5; %B --help; echo $? >&2) | true"), "141\n");
}

TEST_F(Ends, NoMessageComesWherePipesAreSetToFailEither) {
    EXPECT_EQ(Shell("trap '' PIPE; %B model.vlk | head -c 5; echo \" ${PIPESTATUS[0]}\""), "Step, 141\n");
}

TEST_F(Ends, WhatElseWasAskedForIsDoneAllTheSame) {
    EXPECT_EQ(Shell("(sleep 0.5; %B model.vlk --classify --csv a.csv --svg a.svg; echo $? >&2) | true"), "141\n");
    EXPECT_EQ(Read(Path("a.csv")), Run({model}).out);
    EXPECT_TRUE(fs::exists(Path("a.svg")));
    Write("other.vlk", ModelText().Content());
    EXPECT_EQ(Shell("(sleep 0.5; %B model.vlk other.vlk --classify --csv {name}.csv; echo $? >&2) | true"), "141\n");
    EXPECT_EQ(Read(Path("model.csv")), Read(Path("a.csv")));
    EXPECT_TRUE(fs::exists(Path("other.csv")));
}

TEST_F(Ends, AProcessThatTakesAResultMayHaveEnoughToo) {
    EXPECT_EQ(Shell("%B model.vlk --csv >(head -c 5 > begun) --svg a.svg; echo $?; sleep 0.5"), "141\n");
    EXPECT_EQ(Read(Path("begun")), "Step,");
    EXPECT_TRUE(fs::exists(Path("a.svg")));
}

TEST_F(Ends, AFullDiskIsToldAsBefore) {
    EXPECT_EQ(Shell("%B model.vlk > /dev/full; echo $?"), "verlink-batch: standard output cannot be written\n1\n");
}

TEST_F(Ends, AnInterruptLeavesWholeFilesAndNoOthers) {
    constexpr int kModels = 300;
    fs::create_directory(Path("in"));
    fs::create_directory(Path("out"));
    Run({model, "--save", Path("saved.vlk")});
    const std::string content = Read(model), saved = Read(Path("saved.vlk")), table = Run({model}).out;
    std::vector<std::string> arguments;
    for (int i = 0; i < kModels; ++i) arguments.push_back(Write("in/" + std::to_string(i) + ".vlk", content));
    arguments.insert(arguments.end(), {"--csv", Path("out/{name}.csv"), "--save", Path("out/{name}.vlk")});
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        SCOPED_TRACE(signal);
        const pid_t child = Start(arguments);
        // Once it is in the middle of its work.
        for (int wait = 0; wait < 2000 && !fs::exists(Path("out/3.vlk")); ++wait)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        ASSERT_TRUE(fs::exists(Path("out/3.vlk")));
        ::kill(child, signal);
        int state = 0;
        ::waitpid(child, &state, 0);
        EXPECT_TRUE(WIFSIGNALED(state) && WTERMSIG(state) == signal) << state;
        int files = 0;
        for (const auto& entry : fs::directory_iterator(Path("out"))) {
            const std::string end = entry.path().extension();
            ASSERT_TRUE(end == ".csv" || end == ".vlk") << entry.path();
            EXPECT_TRUE(Read(entry.path()) == (end == ".csv" ? table : saved)) << entry.path();
            ++files;
        }
        EXPECT_GT(files, 6);
        EXPECT_LT(files, 2 * kModels);
        fs::remove_all(Path("out"));
        fs::create_directory(Path("out"));
    }
}

}  // namespace verlink::test
