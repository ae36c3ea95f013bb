// What a program that walks is told, and what it tells.
#include "tests/walk/program.h"

#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <utility>

#include "tests/walk/memory.h"
#include "tests/walk/users.h"

namespace verlink::walk {

namespace {

constexpr char kUsage[] =
    "usage: walk [--seed N] [--actions N | --minutes N] [--each ACTIONS] [--only WALK] [--without RULE]...\n"
    "            [--list] [--long] [--all] [--memory]\n"
    "  --each     actions of one walk, 250\n"
    "  --only     this walk of the seed alone\n"
    "  --without  leaves a rule out, to see what lies behind a known finding\n"
    "  --list     says each action before it is done\n"
    "  --long     tells findings as they came, not shortened\n"
    "  --all      shortens every finding, and tells those apart that end by other actions\n"
    "  --memory   tells how the process grows; more than 20 MB beyond the first 3000 actions is a finding\n";

struct Orders {
    std::uint64_t seed = 1;
    long actions = 20000;
    double minutes = 0;
    int each = 250;
    long only = -1;
    bool list = false, uncut = false, all = false, memory = false;
    std::set<std::string> without = {};
};

bool Read_Switch(const std::string& word, Orders& orders) {
    for (const auto& [name, order] : {std::pair{"--list", &orders.list},
                                      {"--long", &orders.uncut},
                                      {"--all", &orders.all},
                                      {"--memory", &orders.memory}})
        if (word == name) return *order = true;
    return false;
}

bool Read_Orders(int argc, char** argv, Orders& orders) {
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (Read_Switch(word, orders)) continue;
        if (i + 1 == argc) return false;
        const char* value = argv[++i];
        if (word == "--seed")
            orders.seed = std::strtoull(value, nullptr, 10);
        else if (word == "--actions")
            orders.actions = std::atol(value);
        else if (word == "--minutes")
            orders.minutes = std::atof(value);
        else if (word == "--each")
            orders.each = std::atoi(value);
        else if (word == "--only")
            orders.only = std::atol(value);
        else if (word == "--without")
            orders.without.insert(value);
        else
            return false;
    }
    return true;
}

/// One walk does not take so long, also where much else goes on.
constexpr unsigned kSecondsAtMost = 1200;

void On_Alarm(int) {
    constexpr char kWords[] = "a walk does not end; the log of actions says where\n";
    [[maybe_unused]] const auto written = ::write(2, kWords, sizeof kWords - 1);
    ::_exit(3);
}

/// Of walk n, so that each can be gone alone.
std::uint64_t Seed_Of(std::uint64_t seed, long walk) {
    std::uint64_t x = seed * 0x9E3779B97F4A7C15u + static_cast<std::uint64_t>(walk) * 0xBF58476D1CE4E5B9u;
    x = (x ^ (x >> 30)) * 0x94D049BB133111EBu;
    return x ^ (x >> 31);
}

class Findings {
   public:
    Findings(const Stage& stage, const Stage& quicker, const Places& places, const Orders& orders)
        : stage_(stage), quicker_(quicker), places_(places), orders_(orders) {}

    void Take(const Finding& finding, const std::vector<Action>& done, long walk) {
        const std::string kind = finding.rule + ": " + finding.kind;
        ++seen_[kind];
        if (!orders_.all && seen_[kind] > 1) return;
        const Trial trial = Trial_For(finding, done);
        const std::vector<Action> fewest = orders_.uncut ? done : Shorten(done, finding, trial);
        const Found again = orders_.uncut ? finding : Repeat(fewest, trial);
        if (orders_.all && endings_[kind + Ending(fewest)]++ > 0) return;
        std::printf("== walk %ld, after %zu actions: %s\n", walk, done.size(), kind.c_str());
        if (!again) std::printf("   (it does not come again in a repetition)\n");
        std::printf("%s\n", Test_Of(fewest, again ? *again : finding).c_str());
        std::fflush(stdout);
    }
    void Tell() const {
        for (const auto& [kind, times] : seen_) std::printf("  found %4d times  %s\n", times, kind.c_str());
    }
    bool Any() const { return !seen_.empty(); }

   private:
    Trial Trial_For(const Finding& finding, const std::vector<Action>& done) const {
        const Trial quick{quicker_, places_, orders_.without};
        if (quicker_ && !orders_.uncut)
            if (const Found found = Repeat(done, quick); found && Same_Kind(*found, finding)) return quick;
        return {stage_, places_, orders_.without};
    }
    /// The last actions, which have most to do with it.
    static std::string Ending(const std::vector<Action>& actions) {
        std::string ending;
        for (std::size_t i = actions.size() > 2 ? actions.size() - 2 : 0; i < actions.size(); ++i)
            ending += " | " + actions[i].screen + "." + actions[i].control;
        return ending;
    }
    const Stage& stage_;
    const Stage& quicker_;
    const Places& places_;
    const Orders& orders_;
    std::map<std::string, int> seen_, endings_;
};

void Walk_All(const Orders& orders, const Stage& stage, Counts& counts, Findings& findings, const Places& places,
              Memory_Watch& memory) {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::duration<double>(60 * orders.minutes);
    const auto more = [&] { return orders.minutes > 0 ? Clock::now() < end : counts.actions < orders.actions; };
    // A crash, or an action that does not end, leaves the actions so far there.
    const std::string name =
        (std::filesystem::temp_directory_path() / ("verlink-walk-" + std::to_string(::getpid()) + ".log")).string();
    for (long walk = orders.only < 0 ? 0 : orders.only; more(); ++walk) {
        if (orders.memory) memory.Note(counts.actions);
        std::FILE* log = orders.list ? stdout : std::fopen(name.c_str(), "w");
        if (log) std::fprintf(log, "// seed %llu, walk %ld\n", static_cast<unsigned long long>(orders.seed), walk);
        Random_User user(Seed_Of(orders.seed, walk), orders.each);
        Walker walker(user, places, counts);
        walker.Log_To(log);
        walker.Leave_Out(orders.without);
        ::alarm(kSecondsAtMost);
        stage(walker, places);
        ::alarm(0);
        if (log && !orders.list) std::fclose(log);
        ++counts.walks;
        if (const Found& found = walker.Outcome()) findings.Take(*found, walker.Done(), walk);
        if (orders.only >= 0) break;
    }
    std::remove(name.c_str());
}

}  // namespace

int Walk_Program(int argc, char** argv, const Stage& stage, const Stage& quicker) {
    Orders orders;
    if (!Read_Orders(argc, argv, orders)) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    ::signal(SIGALRM, On_Alarm);
    std::printf("seed %llu\n", static_cast<unsigned long long>(orders.seed));
    std::fflush(stdout);
    const Places places;
    Counts counts;
    Findings findings(stage, quicker, places, orders);
    Memory_Watch memory;
    Walk_All(orders, stage, counts, findings, places, memory);
    std::printf("seed %llu: %ld walks, %ld actions\n", static_cast<unsigned long long>(orders.seed), counts.walks,
                counts.actions);
    for (const auto& [screen, actions] : counts.screens) std::printf("  on %-16s %8ld\n", screen.c_str(), actions);
    for (const auto& [rule, checks] : counts.checks) std::printf("  checked %-12s %8ld\n", rule.c_str(), checks);
    findings.Tell();
    bool grown = false;
    if (orders.memory) {
        memory.Note(counts.actions);
        memory.Tell();
        grown = memory.Has_Grown();
    }
    return findings.Any() || grown ? 1 : 0;
}

}  // namespace verlink::walk
