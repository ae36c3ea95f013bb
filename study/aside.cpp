// Blocks of linkages from several threads, handed over under one lock.
#include "study/aside.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/guard.h"
#include "study/in_order.h"

namespace verlink::study {

namespace {

/// So that clouds of long runs take no more memory than those of short ones.
constexpr Number kPlaces = 800000;

Number Steps_Of(const Study& study) { return static_cast<Number>(Last_Step(study.design)) + 1; }

Number Cloud_Of(const Study& study) {
    return study.plan.tolerances.empty() ? 0 : std::min(Aside::kCloud, kPlaces / Steps_Of(study));
}

/// So that a thread is asked whether to stop about as often in long runs.
Number Block_Of(const Study& study) {
    constexpr Number kSteps = 8 * kLastStep, kMost = 64;
    return std::min(kSteps / Steps_Of(study), kMost);
}

std::vector<float> In_Turn(const Path& path) {
    std::vector<float> places;
    for (std::size_t i = 0; i < path.x.size(); ++i) {
        places.push_back(path.closed[i] ? static_cast<float>(path.x[i]) : kNone);
        places.push_back(path.closed[i] ? static_cast<float>(path.y[i]) : kNone);
    }
    return places;
}

}  // namespace

struct Aside::Block {
    Number first, end;
    std::vector<float> measures;  ///< all those of one linkage, then those of the next
    std::vector<bool> kept;
    std::vector<std::pair<Number, std::vector<float>>> paths;
};

class Aside::Solver {
   public:
    Solver(const Bench& bench, Number all)
        : worker_(bench),
          all_(all),
          at_once_(Block_Of(bench.Of())),
          cloud_(Cloud_Of(bench.Of())),
          fields_(bench.Moved().size()),
          each_(bench.Of().measures.size()) {}

    void operator()(Number number, Block& block) {
        block.first = number * at_once_;
        block.end = std::min(block.first + at_once_, all_);
        const std::size_t count = block.end - block.first;
        block.measures.assign(count * each_, kNone);
        block.kept.resize(count);
        block.paths.clear();
        for (std::size_t i = 0; i < count; ++i) {
            const Number linkage = block.first + i;
            block.kept[i] = worker_.Solve(linkage, fields_, std::span(block.measures).subspan(i * each_, each_));
            if (block.kept[i] && linkage < cloud_ && !std::ranges::any_of(fields_, Is_None))
                block.paths.emplace_back(linkage, In_Turn(worker_.Last_Path()));
        }
    }

   private:
    Worker worker_;
    Number all_, at_once_, cloud_;
    std::vector<float> fields_;
    std::size_t each_;
};

Aside::~Aside() {
    Stop();
    Await();
}

void Aside::Begin(Study study, int threads) {
    Stop();
    Await();
    bench_ = std::make_unique<Bench>(std::move(study));
    found_ = {};
    found_.all = bench_->Of().plan.Count().value();
    cloud_of_.clear();
    at_.clear();
    stop_ = false;
    begun_ = std::chrono::steady_clock::now();
    thread_ = std::thread([this, threads] { Run(threads); });
}

void Aside::Run(int threads) {
    const std::vector<float> nominal = Nominal_Measures(*bench_);
    auto sensitivities = Sensitivities(*bench_);
    {
        const std::lock_guard lock(hand_over_);
        found_.nominal = nominal;
        found_.summary = Summary(nominal);
        found_.sensitivities = std::move(sensitivities);
    }
    const Number each = Block_Of(bench_->Of()), blocks = (found_.all + each - 1) / each;
    const int crew = static_cast<int>(std::min(blocks, static_cast<Number>(threads)));
    In_Order<Block>(
        blocks, crew, [&] { return Solver(*bench_, found_.all); }, [this](const Block& block) { return Take(block); });
    const std::lock_guard lock(hand_over_);
    found_.ended = true;
}

bool Aside::Take(const Block& block) {
    const std::lock_guard lock(hand_over_);
    const std::size_t each = bench_->Of().measures.size();
    const bool swept = bench_->Of().plan.tolerances.empty();
    for (std::size_t i = 0; i < block.kept.size(); ++i) {
        const auto measures = std::span(block.measures).subspan(i * each, each);
        if (block.kept[i]) found_.summary.Add(measures, block.first + i);
        if (swept) found_.values.push_back(block.kept[i] ? measures[0] : kNone);
    }
    for (const auto& [linkage, path] : block.paths) {
        cloud_of_.push_back(linkage);
        at_.push_back(path);
    }
    found_.summary.solved = found_.done = block.end;
    const std::chrono::duration<double> run = std::chrono::steady_clock::now() - begun_;
    found_.seconds = run.count();
    return !stop_;
}

void Aside::Stop() {
    const std::lock_guard lock(hand_over_);
    stop_ = true;
}

void Aside::Await() {
    if (thread_.joinable()) thread_.join();
}

Findings Aside::Look() {
    Findings now;
    {
        const std::lock_guard lock(hand_over_);
        now = found_;
    }
    if (now.ended) Await();
    return now;
}

std::vector<Cloud_Point> Aside::Cloud_At(int step) {
    std::vector<Cloud_Point> cloud;
    const std::lock_guard lock(hand_over_);
    const auto at = static_cast<std::size_t>(step) * 2;
    for (std::size_t i = 0; i < at_.size(); ++i)
        if (at < at_[i].size() && !Is_None(at_[i][at])) cloud.push_back({at_[i][at], at_[i][at + 1], cloud_of_[i]});
    return cloud;
}

bool Aside::Solve(Number linkage, std::vector<float>& fields, std::vector<float>& measures) const {
    fields.resize(bench_->Moved().size());
    measures.resize(bench_->Of().measures.size());
    return Worker(*bench_).Solve(linkage, fields, measures);
}

std::vector<float> Aside::Values_Of(Number linkage) const {
    std::vector<Single> home;
    Design design = bench_->Of().design;
    const auto place = [&design](int field) -> Single& {
        return Fields()[static_cast<std::size_t>(field)].place(design);
    };
    for (const int field : bench_->Moved()) home.push_back(place(field));
    std::vector<float> values;
    if (What_Failed([&] { bench_->Of().plan.Put(linkage, bench_->Moved(), home, design); })) {
        values.assign(home.size(), kNone);
        return values;
    }
    for (const int field : bench_->Moved()) values.push_back(static_cast<float>(double{place(field)}));
    return values;
}

}  // namespace verlink::study
