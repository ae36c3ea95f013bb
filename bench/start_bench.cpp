// From the start of the process to the home screen, in a process of its own with real windows.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "bench/program.h"

namespace verlink::bench {

namespace {

/// Runs the program until it says that the home screen is up. Seconds, or below 0 when it did not get there.
double Start(const std::string& home) {
    std::vector<std::string> variables = {"HOME=" + home, "XDG_DATA_HOME=" + home + "/data",
                                          "XDG_CONFIG_HOME=" + home + "/config", "XDG_RUNTIME_DIR=" + home};
    for (const char* kept : {"PATH", "DISPLAY", "WAYLAND_DISPLAY", "XAUTHORITY", "QT_QPA_PLATFORM", "LANG"})
        if (const char* value = std::getenv(kept)) variables.push_back(std::string(kept) + "=" + value);
    std::vector<char*> environment;
    for (std::string& variable : variables) environment.push_back(variable.data());
    environment.push_back(nullptr);

    int pipe[2];
    if (::pipe(pipe) != 0) return -1;
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, pipe[1], STDOUT_FILENO);
    ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    ::posix_spawn_file_actions_addclose(&actions, pipe[0]);
    std::string program = VERLINK_START;
    char* arguments[] = {program.data(), nullptr};

    const auto began = std::chrono::steady_clock::now();
    pid_t child = 0;
    const bool spawned = ::posix_spawn(&child, program.c_str(), &actions, nullptr, arguments, environment.data()) == 0;
    ::posix_spawn_file_actions_destroy(&actions);
    ::close(pipe[1]);
    char up = 0;
    const bool reached = spawned && ::read(pipe[0], &up, 1) == 1;
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - began;
    ::close(pipe[0]);
    if (spawned) ::waitpid(child, nullptr, 0);
    return reached ? took.count() : -1;
}

std::string New_Home() {
    static int count = 0;
    const std::string home = Scratch("home" + std::to_string(count++));
    std::filesystem::create_directories(home);
    std::filesystem::permissions(home, std::filesystem::perms::owner_all);
    return home;
}

void Count_Start(benchmark::State& state, const std::string& home) {
    const double took = Start(home);
    if (took < 0)
        state.SkipWithError("the home screen did not come up");
    else
        state.SetIterationTime(took);
}

void Start_To_Home_Screen(benchmark::State& state) {
    Start_Program();
    const std::string home = New_Home();
    if (Start(home) < 0) state.SkipWithError("the home screen did not come up");
    for (auto _ : state) Count_Start(state, home);
}
BENCHMARK(Start_To_Home_Screen)->UseManualTime()->Unit(benchmark::kMillisecond);

/// The first start of a user also makes the file type known.
void First_Start_To_Home_Screen(benchmark::State& state) {
    Start_Program();
    for (auto _ : state) Count_Start(state, New_Home());
}
BENCHMARK(First_Start_To_Home_Screen)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace verlink::bench
