// Random walks over the screens without windows: walk [--seed N] [--actions N] [--minutes N] [--each N] [--only N]
// [--list] [--all] [--long] [--without RULE]...
#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <map>
#include <string>

#include "tests/walk/shorten.h"
#include "tests/walk/users.h"
#include "tests/walk/walk_desktop.h"

namespace {

using namespace verlink::walk;

struct Orders {
    std::uint64_t seed = 1;
    long actions = 20000;
    double minutes = 0;                  ///< instead of a number of actions
    int each = 250;                      ///< actions of one walk
    long only = -1;                      ///< this walk alone
    bool list = false;                   ///< says each action of it
    bool uncut = false;                  ///< findings are told as they came, not shortened
    bool all = false;                    ///< shortens every finding, and tells those apart that end by other actions
    std::set<std::string> without = {};  ///< rules that are not asked
};

/// No action takes so long.
constexpr unsigned kSecondsAtMost = 60;

void On_Alarm(int) {
    constexpr char kWords[] = "an action does not end; see the log of actions\n";
    [[maybe_unused]] const auto written = ::write(2, kWords, sizeof kWords - 1);
    ::_exit(3);
}

bool Read_Orders(int argc, char** argv, Orders& orders) {
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (bool* flag = word == "--list"   ? &orders.list
                         : word == "--all"  ? &orders.all
                         : word == "--long" ? &orders.uncut
                                            : nullptr) {
            *flag = true;
            continue;
        }
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

/// Of walk n, so that each can be gone alone.
std::uint64_t Seed_Of(std::uint64_t seed, long walk) {
    std::uint64_t x = seed * 0x9E3779B97F4A7C15u + static_cast<std::uint64_t>(walk) * 0xBF58476D1CE4E5B9u;
    x = (x ^ (x >> 30)) * 0x94D049BB133111EBu;
    return x ^ (x >> 31);
}

class Findings {
   public:
    Findings(const Places& places, const Orders& orders) : places_(places), orders_(orders) {}

    void Take(const Finding& finding, const std::vector<Action>& done, long walk) {
        const std::string kind = finding.rule + ": " + finding.kind;
        if (!orders_.all && seen_[kind]++ > 0) return;
        const std::vector<Action> fewest = orders_.uncut ? done : Shorten(done, finding, places_, orders_.without);
        const Found again = orders_.uncut ? finding : Repeat(fewest, places_, orders_.without);
        if (orders_.all && seen_[kind + Ending(fewest)]++ > 0) return;
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
    /// The last actions, which have most to do with it.
    static std::string Ending(const std::vector<Action>& actions) {
        std::string ending;
        for (std::size_t i = actions.size() > 2 ? actions.size() - 2 : 0; i < actions.size(); ++i)
            ending += " | " + actions[i].screen + "." + actions[i].control;
        return ending;
    }
    const Places& places_;
    const Orders& orders_;
    std::map<std::string, int> seen_;
};

}  // namespace

int main(int argc, char** argv) {
    Orders orders;
    if (!Read_Orders(argc, argv, orders)) {
        std::fprintf(stderr,
                     "usage: walk [--seed N] [--actions N] [--minutes N] [--each N] [--only WALK] [--list] [--all] "
                     "[--long] [--without RULE]...\n");
        return 2;
    }
    ::signal(SIGALRM, On_Alarm);
    const std::string log_name = "/tmp/verlink-walk-" + std::to_string(::getpid()) + ".log";
    const Places places;
    Counts counts;
    Findings findings(places, orders);
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::duration<double>(60 * orders.minutes);
    std::printf("seed %llu\n", static_cast<unsigned long long>(orders.seed));
    const auto more = [&] { return orders.minutes > 0 ? Clock::now() < end : counts.actions < orders.actions; };
    for (long walk = orders.only < 0 ? 0 : orders.only; more(); ++walk) {
        std::FILE* log = orders.list ? stdout : std::fopen(log_name.c_str(), "w");
        Random_User user(Seed_Of(orders.seed, walk), orders.each);
        Walker walker(user, places, counts);
        walker.Log_To(log);
        walker.Leave_Out(orders.without);
        ::alarm(kSecondsAtMost);
        Walk_Once(walker, places);
        ::alarm(0);
        if (!orders.list) std::fclose(log);
        ++counts.walks;
        if (const Found& found = walker.Outcome()) {
            ++counts.findings[found->rule];
            findings.Take(*found, walker.Done(), walk);
        }
        if (orders.only >= 0) break;
    }
    std::remove(log_name.c_str());
    std::printf("seed %llu: %ld walks, %ld actions\n", static_cast<unsigned long long>(orders.seed), counts.walks,
                counts.actions);
    for (const auto& [screen, actions] : counts.screens) std::printf("  on %-16s %8ld\n", screen.c_str(), actions);
    for (const auto& [rule, checks] : counts.checks) std::printf("  checked %-12s %8ld\n", rule.c_str(), checks);
    findings.Tell();
    return findings.Any() ? 1 : 0;
}
