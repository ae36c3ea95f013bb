// What linkages have in common is found once; the rest is one motion after the other.
#include "study/study.h"

#include <algorithm>

#include "core/array.h"
#include "platform/guard.h"

namespace verlink::study {

namespace {

std::size_t Angles_Of(const Study& study) {
    std::vector<double> angles;
    const auto add = [&](const Measure& measure) {
        if (measure.statistic == Statistic::kAt && std::ranges::find(angles, measure.angle) == angles.end())
            angles.push_back(measure.angle);
    };
    for (const Measure& measure : study.measures) add(measure);
    for (const Keep& keep : study.keeps) add(keep.measure);
    return angles.size();
}

/// The first measure, or bound, that takes so much of a solve.
const Measure* First_Of(const Study& study, Wanted least) {
    for (const Measure& measure : study.measures)
        if (measure.wanted >= least) return &measure;
    for (const Keep& keep : study.keeps)
        if (keep.measure.wanted >= least) return &keep.measure;
    return nullptr;
}

}  // namespace

std::string Fault_Of(const Study& study) {
    const Design& design = study.design;
    if (design.Imported()) return "a study takes a model that is run by angle, by time or at one position";
    const std::size_t angles = Angles_Of(study);
    if (angles > 0 && design.Calctype == run::kByTime)
        return "a measure \"at\" an angle takes a run by angle or one position";
    if (design.Calctype != run::kByAngle)
        if (const Measure* measure = First_Of(study, Wanted::kBalance))
            return "\"" + measure->words + "\" takes a run by angle, which alone is balanced";
    if (design.torque_table)
        if (const Measure* measure = First_Of(study, Wanted::kForces))
            return "\"" + measure->words + "\" takes a torque on link 4 that is typed, not a table of torques";
    if (Last_Step(design) + static_cast<int>(angles) > kLastStep)
        return "the run and the angles of \"at\" have more than " + std::to_string(kLastStep + 1) + " positions";
    if (!study.plan.Count()) return "the study has more linkages than can be numbered";
    return {};
}

std::size_t Bench::Ask(const Measure& measure) {
    const auto same = std::ranges::find_if(asked_, [&](const Asked& a) { return a.measure.words == measure.words; });
    if (same != asked_.end()) return static_cast<std::size_t>(same - asked_.begin());
    const auto angle = std::ranges::find(angles_, measure.angle);
    const int further = static_cast<int>(angle - angles_.begin());
    if (measure.statistic == Statistic::kAt && angle == angles_.end()) angles_.push_back(measure.angle);
    solved_ = std::max(solved_, measure.wanted);
    asked_.push_back({measure, further});
    return asked_.size() - 1;
}

Bench::Bench(Study study) : study_(std::move(study)), moved_(study_.plan.Moved()) {
    for (const int field : moved_) home_.push_back(Place(field, study_.design));
    for (const Measure& measure : study_.measures) wanted_.push_back(Ask(measure));
    for (const Keep& keep : study_.keeps) bounding_.push_back(Ask(keep.measure));
    Motion motion;
    Design design = study_.design;
    motion.Solve(design, Wanted::kPoints);
    nominal_ = Path_Of(motion, design);
}

Worker::Worker(const Bench& bench)
    : bench_(bench),
      design_(bench.study_.design),
      motion_(bench.angles_),
      meter_(bench.nominal_),
      found_(bench.asked_.size()) {}

void Worker::Measure_All() {
    motion_.Solve(design_, bench_.solved_);
    std::ranges::transform(bench_.asked_, found_.begin(), [this](const Bench::Asked& asked) {
        return meter_.Take(asked.measure, motion_, design_, asked.further);
    });
}

bool Worker::Solve(Number linkage, std::span<float> fields, std::span<float> measures) {
    // A value that no single holds makes no linkage.
    const bool put =
        !What_Failed([&] { bench_.study_.plan.Put(linkage, bench_.moved_, bench_.home_, design_); }).has_value();
    for (std::size_t i = 0; i < bench_.moved_.size(); ++i)
        fields[i] = put ? static_cast<float>(double{Place(bench_.moved_[i], design_)}) : kNone;
    if (put)
        Measure_All();
    else
        std::ranges::fill(found_, kNone);
    for (std::size_t i = 0; i < bench_.bounding_.size(); ++i)
        if (!bench_.study_.keeps[i].Holds(found_[bench_.bounding_[i]])) return false;
    for (std::size_t i = 0; i < bench_.wanted_.size(); ++i) measures[i] = found_[bench_.wanted_[i]];
    return true;
}

Path Worker::Last_Path() {
    motion_.Solve(design_, Wanted::kPoints);
    return Path_Of(motion_, design_);
}

void Worker::Solve_At(std::span<const Single> fields, std::span<float> measures) {
    for (std::size_t i = 0; i < bench_.moved_.size(); ++i) Place(bench_.moved_[i], design_) = fields[i];
    Measure_All();
    for (std::size_t i = 0; i < bench_.wanted_.size(); ++i) measures[i] = found_[bench_.wanted_[i]];
}

}  // namespace verlink::study
