// What the curves of four positions are good for.
#include "design/curves.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace verlink::design {

namespace {

constexpr platform::Color kCentres = platform::Rgb(150, 90, 200), kCirclePoints = platform::Rgb(0, 140, 160);

Point Pivot_Of(const Dyad& dyad, Curve which) { return which == Curve::kCentres ? dyad.fixed : dyad.moving; }

bool Beside(const Box& seen, Point a, Point b) {
    return std::max(a.real(), b.real()) < seen.low.real() || std::min(a.real(), b.real()) > seen.high.real() ||
           std::max(a.imag(), b.imag()) < seen.low.imag() || std::min(a.imag(), b.imag()) > seen.high.imag();
}

/// All pairs of the link with another dyad that the task's limits and cranks allow to be asked for.
template <class Take>
void Each_Pair(const Task& task, const Dyad& dyad, const Dyad& other, Take take) {
    const Point coupler = Absolute_Positions(task).front().at;
    const bool alike = task.left == task.right && task.drive == Drive::kEither;
    for (const bool dyad_is_left : {true, false}) {
        if (alike && !dyad_is_left) return;
        for (const bool left_drives : {true, false}) {
            if (task.drive == (left_drives ? Drive::kRight : Drive::kLeft)) continue;
            const bool dyad_drives = dyad_is_left == left_drives;
            take(dyad_drives ? FourBar{dyad, other, coupler, left_drives} : FourBar{other, dyad, coupler, left_drives});
        }
    }
}

/// The best that differ.
std::vector<Solution> Best_Of(std::vector<Solution> all, std::size_t best, double near) {
    std::ranges::stable_sort(all, std::greater{}, [](const Solution& s) { return s.judgement.score; });
    std::vector<Solution> kept;
    for (const Solution& solution : all) {
        if (kept.size() == best) break;
        const auto is_near = [&](const Solution& before) {
            return Apart_As_Driven(before.linkage, solution.linkage) <= near;
        };
        if (std::ranges::any_of(kept, is_near)) continue;
        kept.push_back(solution);
        kept.back().family = static_cast<int>(kept.size());
    }
    return kept;
}

}  // namespace

Curves Curves_Of(const Task& task) {
    constexpr int kSteps = 720;
    if (task.positions.size() != 4 || !Trouble_With(task).empty()) return {};
    return Burmester(Carried_Through(Absolute_Positions(task))).Curves(kSteps);
}

void Draw_Curve(platform::Surface& surface, const Curves& curves, Curve which, const Box& seen) {
    const platform::Color color = which == Curve::kCentres ? kCentres : kCirclePoints;
    for (const std::vector<Dyad>& piece : curves)
        for (std::size_t i = 1; i < piece.size(); ++i) {
            const Point from = Pivot_Of(piece[i - 1], which), to = Pivot_Of(piece[i], which);
            if (!Beside(seen, from, to)) surface.Line(from.real(), from.imag(), to.real(), to.imag(), color);
        }
}

std::optional<Dyad> Nearest_Dyad(const Curves& curves, Curve which, Point at, double reach) {
    std::optional<Dyad> nearest;
    double least = reach;
    for (const std::vector<Dyad>& piece : curves)
        for (const Dyad& dyad : piece) {
            const double off = Distance(Pivot_Of(dyad, which), at);
            if (off > least) continue;
            least = off;
            nearest = dyad;
        }
    return nearest;
}

Found Find_With(const Task& task, const Curves& curves, const Dyad& dyad, std::size_t best) {
    constexpr double kNear = 0.1;
    constexpr std::size_t kOfEach = 4;
    const Judge judge(task);
    Found found;
    std::vector<Solution> all;
    const auto take = [&](const FourBar& linkage) {
        const Judgement judgement = judge.Of(linkage);
        ++found.judged;
        const std::size_t before = found.counts[static_cast<std::size_t>(judgement.refusal)]++;
        if (judgement.Good())
            all.push_back({linkage, judgement, {}, {}});
        else if (before < kOfEach)
            found.thrown_out.push_back({linkage, judgement});
    };
    for (const std::vector<Dyad>& piece : curves)
        for (const Dyad& other : piece)
            if (other != dyad) Each_Pair(task, dyad, other, take);
    found.solutions = Best_Of(std::move(all), best, kNear * Span_Of(task));
    if (!found.solutions.empty()) return found;
    const auto most = std::max_element(found.counts.begin() + 1, found.counts.end());
    found.words = "None of " + std::to_string(found.judged) + " linkages with this link does it. Of most, " +
                  Words_Of(static_cast<Refusal>(most - found.counts.begin())) +
                  ": pick another place on the curve, or loosen a limit.";
    return found;
}

}  // namespace verlink::design
