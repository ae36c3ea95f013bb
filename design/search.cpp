// Scan, descent and the choice of the list.
#include "design/search.h"

#include <algorithm>
#include <cmath>

#include "design/side_by_side.h"

namespace verlink::design {

namespace {

/// What a chunk of the scan leaves.
struct Yield {
    std::vector<Solution> best;
    std::vector<Thrown_Out> thrown_out;
    std::array<std::size_t, kRefusals> counts{};
    std::size_t judged = 0;
};

/// The better first; those of one score in a fixed order, so that it is the same list each time.
bool Before(const Solution& a, const Solution& b) {
    const auto key = [](const Solution& s) {
        const auto& [crank, other, coupler, left] = s.linkage;
        return std::array{-s.judgement.score,  crank.fixed.real(),  crank.fixed.imag(),
                          crank.moving.real(), crank.moving.imag(), other.fixed.real(),
                          other.fixed.imag(),  other.moving.real(), other.moving.imag()};
    };
    return key(a) < key(b);
}

class Searcher {
   public:
    Searcher(const Task& task, const Problem& problem, const Effort& effort, const Telling& telling)
        : problem_(problem), effort_(effort), telling_(telling), near_(1e-6 * Span_Of(task)) {}

    Found Run() {
        const std::size_t all = effort_.coarse ? problem_.Coarse_Rounds() : problem_.Rounds();
        const std::size_t rounds = effort_.rounds > 0 ? std::min(all, effort_.rounds) : all;
        for (std::size_t round = 0; round < rounds && !found_.stopped; ++round) {
            // Each round has four times as many candidates as the one before.
            const double before = std::pow(0.25, static_cast<double>(rounds - round));
            Scan(round, before * kScanned, before * 4 * kScanned);
            Tell(kScanned * before * 4);
        }
        if (!effort_.coarse && !found_.stopped) Refine();
        Thin(pool_.size());
        Choose();
        found_.words = found_.solutions.empty() ? Why_None() : "";
        return std::move(found_);
    }

   private:
    static constexpr double kScanned = 0.8;

    bool Goes_On(double part, const Found* so_far = nullptr) {
        if (telling_ && !telling_(part, so_far)) found_.stopped = true;
        return !found_.stopped;
    }

    void Tell(double part) {
        if (!telling_) return;
        Choose();
        Goes_On(part, &found_);
    }

    void Scan(std::size_t round, double from, double to) {
        std::vector<Yield> yields(problem_.Chunks(round));
        const auto work = [&](std::size_t chunk) { Scan_Chunk(round, chunk, yields[chunk]); };
        const auto between = [&](std::size_t done) {
            return Goes_On(from + (to - from) * static_cast<double>(done) / static_cast<double>(yields.size()));
        };
        Side_By_Side(yields.size(), effort_.threads, work, between);
        for (Yield& yield : yields) Gather(yield);
        // More than can ever be shown is let go.
        Thin(6 * effort_.best + 60);
    }

    void Scan_Chunk(std::size_t round, std::size_t chunk, Yield& yield) const {
        constexpr std::size_t kKept = 8, kOut = 3;
        problem_.Each(round, chunk, [&](const Genes& genes, const FourBar& linkage) {
            const Judgement judgement = problem_.Judge_Of(linkage);
            ++yield.judged;
            if (yield.counts[static_cast<std::size_t>(judgement.refusal)]++ < kOut && !judgement.Good())
                yield.thrown_out.push_back({linkage, judgement});
            if (!judgement.Good()) return;
            const Solution solution{linkage, judgement, genes, {}};
            yield.best.insert(std::ranges::upper_bound(yield.best, solution, Before), solution);
            if (yield.best.size() > kKept) yield.best.pop_back();
        });
    }

    void Gather(Yield& yield) {
        constexpr std::size_t kOfEach = 12;
        found_.judged += yield.judged;
        for (std::size_t i = 0; i < kRefusals; ++i) found_.counts[i] += yield.counts[i];
        for (const Thrown_Out& out : yield.thrown_out) {
            auto& kept = kept_[static_cast<std::size_t>(out.judgement.refusal)];
            const auto is_there = [&](const Thrown_Out& other) {
                return Apart_As_Driven(other.linkage, out.linkage) <= near_;
            };
            if (kept == kOfEach || std::ranges::any_of(found_.thrown_out, is_there)) continue;
            ++kept;
            found_.thrown_out.push_back(out);
        }
        pool_.insert(pool_.end(), yield.best.begin(), yield.best.end());
    }

    /// The pool in order, without neighbours of what is better; so many at most.
    void Thin(std::size_t most) {
        std::ranges::sort(pool_, Before);
        const double near = std::max(near_, problem_.Neighbourhood());
        const bool either = problem_.Either_Crank();  // a twin comes with the other
        std::vector<Solution> kept;
        for (const Solution& solution : pool_) {
            if (kept.size() == most) break;
            const auto is_near = [&](const Solution& other) {
                return (either ? Apart : Apart_As_Driven)(other.linkage, solution.linkage) <= near;
            };
            if (std::ranges::none_of(kept, is_near)) kept.push_back(solution);
        }
        pool_ = std::move(kept);
    }

    /// Descends from the best of the pool; what comes of it is added, so that nothing is lost.
    void Refine() {
        std::vector<Solution> refined(std::min(pool_.size(), 3 * effort_.best));
        const auto work = [&](std::size_t i) { refined[i] = Descended(pool_[i]); };
        const auto between = [&](std::size_t done) {
            return Goes_On(kScanned + (1 - kScanned) * static_cast<double>(done) / static_cast<double>(refined.size()));
        };
        Side_By_Side(refined.size(), effort_.threads, work, between);
        for (const Solution& solution : refined)
            if (solution.judgement.Good() && solution.judgement.score > 0) pool_.push_back(solution);
    }

    /// One number after the other either way, with shorter steps once none is better.
    Solution Descended(Solution solution) const {
        constexpr int kHalvings = 10;
        constexpr int kMostTurns = 200;
        Genes& genes = solution.genes;
        for (int halvings = 0, turns = 0; halvings < kHalvings && turns < kMostTurns; ++turns) {
            bool better = false;
            for (std::size_t i = 0; i < genes.count; ++i)
                if (genes.step[i] > 0 && (Stepped(solution, i, 1) || Stepped(solution, i, -1))) better = true;
            if (better) continue;
            ++halvings;
            for (double& step : genes.step) step /= 2;
        }
        return solution;
    }

    bool Stepped(Solution& solution, std::size_t number, double way) const {
        Genes genes = solution.genes;
        genes.number[number] += way * genes.step[number];
        const auto linkage = problem_.Linkage_Of(genes);
        if (!linkage) return false;
        const Judgement judgement = problem_.Judge_Of(*linkage);
        if (!judgement.Good() || judgement.score <= solution.judgement.score) return false;
        solution = {*linkage, judgement, genes, {}};
        return true;
    }

    /// The list: the pool's best that differ, each with its twin where that does it too.
    void Choose() {
        std::vector<Solution> all;
        for (std::size_t i = 0; i < pool_.size() && i < 2 * effort_.best; ++i) {
            all.push_back(pool_[i]);
            if (problem_.Either_Crank()) Add_Twin(pool_[i], all);
        }
        found_.solutions.clear();
        int family = 0;
        std::vector<bool> taken(all.size());
        for (std::size_t i = 0; i < all.size() && found_.solutions.size() < effort_.best; ++i) {
            if (taken[i]) continue;
            ++family;
            for (std::size_t j = i; j < all.size() && found_.solutions.size() < effort_.best; ++j) {
                if (taken[j] || (j != i && !Kin(all[i].linkage, all[j].linkage))) continue;
                taken[j] = true;
                found_.solutions.push_back(all[j]);
                found_.solutions.back().family = family;
            }
        }
    }

    bool Kin(const FourBar& a, const FourBar& b) const { return Twins(a, b, near_) || Cognates(a, b, near_); }

    void Add_Twin(const Solution& solution, std::vector<Solution>& all) const {
        const FourBar twin = solution.linkage.With_Other_Crank();
        const Judgement judgement = problem_.Judge_Of(twin);
        if (!judgement.Good()) return;
        Solution other{twin, judgement, solution.genes, {}};
        other.genes.sheet[0] ^= 1;
        // The better of two twins stands first.
        if (Before(other, solution)) std::swap(other, all.back());
        all.push_back(other);
    }

    std::string Why_None() const {
        if (std::string none = problem_.No_Candidates(); !none.empty()) return none;
        if (found_.judged == 0)
            return found_.stopped
                       ? "The search was stopped before anything was judged."
                       : "Only one dyad lies within the limits of both links, and a four-bar takes two: give "
                         "a pivot of one of them another place.";
        const auto most = std::max_element(found_.counts.begin() + 1, found_.counts.end());
        const auto refusal = static_cast<Refusal>(most - found_.counts.begin());
        const double part = 100.0 * static_cast<double>(*most) / static_cast<double>(found_.judged);
        return "None of " + std::to_string(found_.judged) + " linkages that fit the positions does it. Of most, " +
               std::to_string(static_cast<int>(std::lround(part))) + " %, " + Words_Of(refusal) + ": " +
               Advice_On(refusal) + ".";
    }

    const Problem& problem_;
    const Effort& effort_;
    const Telling& telling_;
    double near_;
    Found found_;
    std::array<std::size_t, kRefusals> kept_{};
    std::vector<Solution> pool_;
};

}  // namespace

Found Find(const Task& task, const Effort& effort, const Telling& telling) {
    Found found;
    found.words = Trouble_With(task);
    if (!found.words.empty()) return found;
    const auto problem = Problem_Of(task);
    return Searcher(task, *problem, effort, telling).Run();
}

}  // namespace verlink::design
