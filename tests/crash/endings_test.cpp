// The program as a process: how it ends by signals, kills and the loss of its display, and what the next start makes of
// it.
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <memory>
#include <thread>

#include "files/model_file.h"
#include "platform/file_system.h"
#include "platform/guard.h"
#include "shell/copy.h"
#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using std::chrono::steady_clock;

constexpr char kCrash[] = "The program did not shut down properly on its last run.";
constexpr char kOffer[] = "was changed and not saved. A copy of it was kept less than a minute ago.";
constexpr auto kPatience = 60s;

bool Is_There(const std::string& path) { return platform::File_Exists(path); }

template <class Condition>
bool Comes_True(Condition condition, std::chrono::milliseconds within = kPatience) {
    const auto end = steady_clock::now() + within;
    while (!condition()) {
        if (steady_clock::now() > end) return false;
        std::this_thread::sleep_for(5ms);
    }
    return true;
}

/// A process of another program, ended at the latest with this.
class Child {
   public:
    Child(std::vector<std::string> words, const std::vector<std::pair<std::string, std::string>>& environment,
          bool ignoring_hangups) {
        number_ = ::fork();
        if (number_ != 0) return;
        if (ignoring_hangups) ::signal(SIGHUP, SIG_IGN);
        for (const auto& [name, value] : environment) ::setenv(name.c_str(), value.c_str(), 1);
        const int nowhere = ::open("/dev/null", O_RDWR);
        ::dup2(nowhere, STDERR_FILENO);
        std::vector<char*> arguments;
        for (std::string& word : words) arguments.push_back(word.data());
        arguments.push_back(nullptr);
        ::execvp(arguments[0], arguments.data());
        ::_exit(127);
    }
    ~Child() { End(SIGKILL); }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    bool Runs() {
        if (number_ > 0 && ::waitpid(number_, &status_, WNOHANG) == number_) number_ = 0;
        return number_ > 0;
    }
    void Signal(int signal) const {
        if (number_ > 0) ::kill(number_, signal);
    }
    /// The status that it ended with after the signal; 0 for none sends none.
    int End(int signal) {
        if (signal != 0) Signal(signal);
        EXPECT_TRUE(Comes_True([this] { return !Runs(); })) << "it goes on";
        if (number_ > 0) ::kill(number_, SIGKILL);
        return status_;
    }

   private:
    pid_t number_ = 0;
    int status_ = 0;
};

class EndingsTest : public Fixture {
   protected:
    EndingsTest() {
        platform::Make_Folder(Path("home/Documents"));
        platform::Make_Folder(Path("models"));
    }

    std::unique_ptr<Child> Start(const std::string& place, const std::string& model = {}) {
        std::error_code none;
        fs::remove(Path("log"), none);
        std::vector<std::string> words = {CRASH_SESSION, Path("").substr(0, Path("").size() - 1), place};
        if (!model.empty()) words.push_back(model);
        return std::make_unique<Child>(words, environment_, ignoring_hangups_);
    }
    /// What the user of the session has written down, without times.
    std::string Log() const {
        std::string log;
        Failure_Of([&] { log = platform::Read_File(Path("log")); });
        return log;
    }
    bool Logs(const std::string& words) const {
        return Comes_True([&] { return Log().find(words) != std::string::npos; });
    }
    bool Logged(const std::string& words) const { return Log().find(words) != std::string::npos; }
    /// A session in which the linkage was changed, at that place.
    std::unique_ptr<Child> Changed(const std::string& place) {
        auto child = Start(place);
        EXPECT_TRUE(Logs("there\t")) << Log();
        return child;
    }

    /// An X server of its own, which the next session comes up on; null where there is none.
    std::unique_ptr<Child> Display() {
        int ends[2];
        if (::pipe(ends) != 0) return nullptr;
        auto display =
            std::make_unique<Child>(std::vector<std::string>{"Xvfb", "-displayfd", std::to_string(ends[1]), "-screen",
                                                             "0", "1400x1100x24", "-nolisten", "tcp"},
                                    std::vector<std::pair<std::string, std::string>>{}, false);
        ::close(ends[1]);
        std::string number;
        for (char digit = 0; ::read(ends[0], &digit, 1) == 1 && digit != '\n';) number += digit;
        ::close(ends[0]);
        if (number.empty()) return nullptr;
        environment_ = {{"QT_QPA_PLATFORM", "xcb"}, {"DISPLAY", ":" + number}};
        return display;
    }
    /// The first line that a command says on that display.
    std::string Told_By(const std::string& command) const {
        const std::string on_display = "DISPLAY=" + environment_.back().second + "; export DISPLAY; " + command;
        std::string told;
        if (FILE* pipe = ::popen(on_display.c_str(), "r")) {
            for (int letter = 0; (letter = ::fgetc(pipe)) != EOF && letter != '\n';) told += static_cast<char>(letter);
            ::pclose(pipe);
        }
        return told;
    }

    std::string Marker() const { return platform::Read_File(Path("home/Documents/VERLINK/Run_Check.txt")); }
    std::vector<std::string> Kept(const std::string& suffix) const {
        std::vector<std::string> names;
        std::error_code none;
        for (const auto& entry : fs::directory_iterator(Path("home/state/verlink"), none))
            if (entry.path().extension() == suffix) names.push_back(entry.path().string());
        return names;
    }
    /// The crank as the copy has it that was left; 0 for none.
    double Crank_In_Copy() const {
        const auto left = Left_Copies(Path("home/state/verlink/"));
        if (left.size() != 1) return 0;
        Load_Model(left[0].copy.content);
        return Model.L2;
    }
    void Expect_Copy_Offered(bool after_crash) {
        const auto child = Start("look");
        ASSERT_TRUE(Logs("there\t")) << Log();
        EXPECT_EQ(Logged(kCrash), after_crash);
        EXPECT_TRUE(Logged(kOffer)) << Log();
    }

    std::vector<std::pair<std::string, std::string>> environment_;
    bool ignoring_hangups_ = false;
};

class SignalTest : public EndingsTest, public testing::WithParamInterface<std::pair<int, const char*>> {};

TEST_P(SignalTest, LeavesTheCopyAndSaysSoAndIsToldAsNoCrash) {
    const auto [signal, name] = GetParam();
    const auto child = Changed("home");
    const int status = child->End(signal);
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), signal) << "whoever waits for it sees what it died of";
    EXPECT_EQ(Marker(), std::string("\"Ended\"\r\n\"\"\r\n\"This file records an exit from the program by ") + name +
                            "\"\r\n\"and is checked at each startup.  Please do not move or delete.\"\r\n");
    EXPECT_NE(Crank_In_Copy(), 0);
    Expect_Copy_Offered(false);
}

INSTANTIATE_TEST_SUITE_P(OfTheSystem, SignalTest,
                         testing::Values(std::pair{SIGTERM, "SIGTERM"}, std::pair{SIGHUP, "SIGHUP"},
                                         std::pair{SIGINT, "SIGINT"}),
                         [](const auto& test) { return test.param.second; });

TEST_F(EndingsTest, ASignalEndsTheProgramAtAQuestionInAFileDialogAndWhileItPlays) {
    for (const char* place : {"question", "file", "playing"}) {
        const auto child = Changed(place);
        const auto sent = steady_clock::now();
        const int status = child->End(SIGTERM);
        EXPECT_TRUE(WIFSIGNALED(status)) << place;
        EXPECT_EQ(WTERMSIG(status), SIGTERM) << place << " and no alarm";
        EXPECT_LT(steady_clock::now() - sent, 5s) << place;
        EXPECT_EQ(Kept(".copy").size(), 1U) << place << ": the question was answered by nobody";
        fs::remove_all(Path("home/state"));
    }
}

TEST_F(EndingsTest, AProgramThatHangsIsEndedAndTheEndIsKnown) {
    const auto child = Changed("hanging");
    const int status = child->End(SIGTERM);
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), SIGALRM);
    EXPECT_NE(Crank_In_Copy(), 0);
    Expect_Copy_Offered(false);
}

TEST_F(EndingsTest, WhoIsToOutliveHangupsDoes) {
    ignoring_hangups_ = true;
    const auto child = Changed("home");
    child->Signal(SIGHUP);
    EXPECT_FALSE(Comes_True([&] { return !child->Runs(); }, 500ms));
}

TEST_F(EndingsTest, AKilledProgramIsToldAndItsCopyOfferedWithTheChange) {
    const auto child = Changed("home");
    ASSERT_TRUE(Comes_True([this] { return Kept(".copy").size() == 1; }));
    child->End(SIGKILL);
    const double crank = Crank_In_Copy();
    EXPECT_GE(crank, 0.9);
    EXPECT_LT(crank, 1.2);
    Expect_Copy_Offered(true);
}

TEST_F(EndingsTest, WhatWasTakenAndNotSavedIsKeptAgain) {
    Changed("home")->End(SIGTERM);
    const double crank = Crank_In_Copy();
    const auto second = Start("look");
    ASSERT_TRUE(Logs("there\t")) << Log();
    EXPECT_EQ(Kept(".copy").size(), 1U) << "that of the second in place of that of the first";
    second->End(SIGKILL);
    EXPECT_EQ(Crank_In_Copy(), crank);
}

TEST_F(EndingsTest, AModelClickedOnOpensAfterACrash) {
    Changed("home")->End(SIGKILL);
    const auto child = Start("look", std::string(VERLINK_SAMPLES) + "/crank_rocker.vlk");
    EXPECT_TRUE(Logs("there\t")) << Log();
    EXPECT_TRUE(Logged(kCrash));
    EXPECT_FALSE(Logged("You double-clicked"));
}

TEST_F(EndingsTest, AModelClickedOnWhileTheProgramRunsStopsTheSecondAlone) {
    const auto first = Changed("home");
    const std::string marker = Marker();
    const auto second = Start("look", std::string(VERLINK_SAMPLES) + "/crank_rocker.vlk");
    EXPECT_TRUE(WIFEXITED(second->End(0)));
    EXPECT_TRUE(Logged("You double-clicked on a VERLINK data file when the program was already running."));
    EXPECT_TRUE(first->Runs());
    EXPECT_EQ(Marker(), marker);
    EXPECT_EQ(Kept(".run").size(), 1U);
}

TEST_F(EndingsTest, TwoThatRunKeepTwoCopiesAndNeitherIsTakenForACrash) {
    const auto first = Changed("home");
    const auto second = Changed("home");
    EXPECT_FALSE(Logged(kCrash));
    EXPECT_FALSE(Logged(kOffer)) << "that of one that runs is its own";
    EXPECT_TRUE(Comes_True([this] { return Kept(".copy").size() == 2; }));
    second->End(SIGKILL);
    EXPECT_TRUE(first->Runs());
    Expect_Copy_Offered(true);
}

TEST_F(EndingsTest, AfterTheUsersQuitNothingIsLeft) {
    const auto child = Start("quit");
    const int status = child->End(0);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_TRUE(Marker().starts_with("\"Normal Exit\"\r\n")) << Marker();
    EXPECT_TRUE(Kept(".copy").empty());
    EXPECT_TRUE(Kept(".run").empty());
    EXPECT_TRUE(Is_There(Path("models/press.vlk")));
}

TEST_F(EndingsTest, TheEndOfTheSessionLeavesTheCopyAndSaysSo) {
    const auto child = Start("session");
    child->End(0);
    EXPECT_NE(Marker().find("\"This file records an exit from the program by the end of the session\""),
              std::string::npos)
        << Marker();
    EXPECT_NE(Crank_In_Copy(), 0);
    Expect_Copy_Offered(false);
}

TEST_F(EndingsTest, TheDeathOfACompositorLeavesTheCopyAndSaysSo) {
    const auto child = Start("compositor");
    EXPECT_EQ(WEXITSTATUS(child->End(0)), 1);
    EXPECT_NE(Marker().find("\"This file records an exit from the program by the loss of the display\""),
              std::string::npos)
        << Marker();
    EXPECT_NE(Crank_In_Copy(), 0);
    Expect_Copy_Offered(false);
}

TEST_F(EndingsTest, TheLossOfTheDisplayLeavesTheCopyAndSaysSo) {
    const auto display = Display();
    if (!display) GTEST_SKIP() << "there is no display to lose";
    const auto child = Changed("home");
    display->End(SIGKILL);
    child->End(0);
    EXPECT_NE(Marker().find("\"This file records an exit from the program by the loss of the display\""),
              std::string::npos)
        << Marker();
    EXPECT_NE(Crank_In_Copy(), 0);
    environment_.clear();
    Expect_Copy_Offered(false);
}

TEST_F(EndingsTest, AWindowThatWaitsTellsTheWindowManagerAndKeepsTheKeys) {
    const auto display = Display();
    if (!display) GTEST_SKIP() << "there is no display";
    const auto child = Changed("playing");
    const auto number_of = [this](const std::string& words) {
        return Told_By("xdotool search --onlyvisible --name '" + words + "'");
    };
    const std::string home = number_of("^[^A]*VERLINK - 2008"), animate = number_of("Animat");
    ASSERT_NE(home, "");
    ASSERT_NE(animate, "");
    ASSERT_NE(home, animate);
    EXPECT_EQ(Told_By("printf %d $(xprop -notype -id " + animate + " 32x '|$0' WM_TRANSIENT_FOR | cut -d'|' -f2)"),
              home);
    Told_By("xdotool windowfocus " + home);
    EXPECT_TRUE(Comes_True([&] { return Told_By("xdotool getwindowfocus -f") == animate; }, 5s))
        << "what waits below takes no keys";
}

}  // namespace
}  // namespace verlink::test
