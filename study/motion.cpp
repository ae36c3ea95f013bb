// Crank angles first, then positions, eight steps at a time where nothing is out of the ordinary.
#include "study/motion.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/position.h"
#include "dynamics/balancing.h"
#include "dynamics/dynacalc.h"
#include "dynamics/flywheel.h"
#include "platform/failure.h"
#include "platform/guard.h"

namespace verlink::study {

namespace {

LinkageShape Shape_Of_Design(const Design& d) {
    return Shape_Of(d.L1, d.L2, d.L3, d.L4, d.Rpa, d.DeltaRad, d.CircuitSign);
}

/// Of a run by angle; one position has its own.
double Alpha_Of(const Design& d) {
    return d.Calctype == run::kOnePosition || d.Calctype == run::kByTime ? double{d.Alpha2} : 0.0;
}

}  // namespace

Motion::Motion(std::vector<double> angles, Lanes lanes)
    : angles_(std::move(angles)),
      table_(std::make_unique<RunResults>()),
      solve_(lanes == Lanes::kFour && at_once::kSolveByFours ? at_once::kSolveByFours : at_once::Solve_By_Pairs) {}

/// The crank of every step, as the run goes from one to the next in single precision.
void Motion::Set_Out(const Design& d) {
    const Way way{static_cast<double>(d.Calctype),
                  static_cast<double>(d.NSteps),
                  d.ThetaStartRad,
                  d.ThetaEndRad,
                  d.ThetaStepRad,
                  d.TimeStart,
                  d.TimeStep,
                  d.ThetaZero,
                  d.Omega2Input,
                  d.Alpha2,
                  d.Link1AngleRad,
                  d.Link1Angle};
    if (std::exchange(way_, way) == way) return;
    theta2_.clear();
    omega2_.clear();
    last_ = Last_Step(d);
    if (d.Calctype == run::kOnePosition) {
        theta2_.push_back(Rounded((d.ThetaZero - d.Link1Angle) * kDegToRad));
    } else if (d.Calctype == run::kByTime) {
        double t = d.TimeStart;
        for (int step = 0; step <= last_; ++step) {
            const double theta = d.Alpha2 * t * t / 2 + d.Omega2Input * t + d.ThetaZero * kDegToRad;
            theta2_.push_back(Rounded(theta - d.Link1AngleRad));
            omega2_.push_back(Rounded(d.Alpha2 * t + d.Omega2Input));
            t = Rounded(t + d.TimeStep);
        }
    } else {
        const bool from_the_end = d.Omega2Input <= 0;
        double angle = Rounded((from_the_end ? d.ThetaEndRad : d.ThetaStartRad) - d.Link1AngleRad);
        const double final = Rounded((from_the_end ? d.ThetaStartRad : d.ThetaEndRad) - d.Link1AngleRad);
        const double stride = from_the_end ? -d.ThetaStepRad : +d.ThetaStepRad;
        const bool moves = d.Omega2Input != 0;
        for (int step = 0; step <= last_; ++step) {
            const bool overshot = moves && (from_the_end ? angle < final : angle > final);
            theta2_.push_back(overshot ? final : angle);
            if (overshot) break;
            if (moves) angle = Rounded(angle + stride);
        }
    }
    reached_ = static_cast<int>(theta2_.size());
    theta2_.resize(static_cast<std::size_t>(last_ + 1), theta2_.back());
    for (const double degrees : angles_) theta2_.push_back(Rounded((degrees - d.Link1Angle) * kDegToRad));
    all_ = static_cast<int>(theta2_.size());
    // Eight at once, as long as the table has room for what is too many.
    theta2_.resize(static_cast<std::size_t>(std::min(all_ + at_once::kSteps, kLastStep + 1)), theta2_.back());
    omega2_.resize(theta2_.size(), d.Omega2Input);
    fastest_ = std::fabs(*std::ranges::max_element(omega2_, {}, [](double omega2) { return std::fabs(omega2); }));
}

/// A step with all its refusals; false when it does not close.
bool Motion::Solve_One(const at_once::Run& run, int step) {
    const auto at = static_cast<std::size_t>(step);
    Position<double> positions[1]{};
    Position<double>& p = positions[0];
    p.Theta2 = theta2_[at];
    p.Omega2 = omega2_[at];
    p.Alpha2 = p.Alpha2Before = run.Alpha2;
    Solve_Motion(run.shape, positions);
    const bool refused = p.A == 0 || p.D == 0;  // and what else is, gives no finite speeds
    // What a ratio to a crank or a rocker at rest would be is put in behind.
    const double omega2 = p.Omega2, omega4 = p.Omega4;
    const double before = step > 0 ? double{table_->OmegaRatio(step - 1)} : 0.0;
    const double ratio = omega2 != 0 ? Rounded(omega4 / omega2) : before;
    const double advantage = omega4 != 0 ? Rounded(omega2 / omega4) : 0.0;
    at_once::Steps<double> steps{};
    Rounding<double> r = p.All;
    Store_Angles(p, run.Link1Angle, run.wrap, r, steps.Theta);
    r.Keep(steps.Ratio, ratio);
    r.Keep(steps.Advantage, advantage);
    at_once::Show_Lengths(run, p, steps, r);
    if (refused || !r.All_Finite() || !Is_Finite(run.shape.Sum)) {
        table_->OmegaRatio(step) = 0;
        return false;
    }
    at_once::Put_All(run, step, p, steps);
    return true;
}

/// With links 3 and 4 a thousandth off a line, link 3 turns at most 1e11 rad/s and gains 3e33 rad/s^2 here, and no
/// point's acceleration comes to 1e38.
bool Motion::Is_Moderate(const Design& d) const {
    constexpr double kSmallest = 1e-6, kLargest = 1e4, kRatio = 1e4, kSpeed = 1e4, kGain = 1e8;
    const double shortest = std::min({d.L1, d.L2, d.L3, d.L4}), longest = std::max({d.L1, d.L2, d.L3, d.L4, d.Rpa});
    return shortest > kSmallest && longest * d.shown < kLargest && longest < kRatio * shortest && fastest_ < kSpeed &&
           std::fabs(Alpha_Of(d)) < kGain;
}

void Motion::Solve_Steps(const Design& d, Wanted wanted) {
    const at_once::Run whole{Shape_Of_Design(d),          d.wrap, d.Link1Angle, d.shown, false, Alpha_Of(d), {},
                             at_once::Columns_Of(*table_)};
    at_once::Run run = whole;
    if (wanted <= Wanted::kPoints && Is_Moderate(d))
        run.depth = wanted == Wanted::kPoints ? at_once::Depth::kPoints : at_once::Depth::kAngles;
    const int room = static_cast<int>(theta2_.size());
    const bool sound = Is_Finite(run.shape.Sum);
    auto& closes = table_->Assembled;
    int step = 0;
    while (step < all_) {
        if (sound && step + at_once::kSteps <= room &&
            solve_(run, step, &theta2_[static_cast<std::size_t>(step)], &omega2_[static_cast<std::size_t>(step)])) {
            std::fill_n(closes.Steps(step, at_once::kSteps), at_once::kSteps, true);
            step += at_once::kSteps;
            continue;
        }
        const int end = std::min(step + at_once::kSteps, all_);
        for (; step < end; ++step) closes(step) = Solve_One(whole, step);
    }
    for (step = reached_; step <= last_; ++step) closes(step) = false;
    Single& first = table_->Theta(0, 0);
    if (d.wrap == Wrap::kAbs && first == 360) first = 0;
}

bool Motion::Solve(Design& design, Wanted wanted) {
    bool whole = false;
    What_Failed([&] { whole = design.Derive(); });
    Set_Out(design);
    closed_ = 0;
    if (!whole) {
        std::fill_n(table_->Assembled.Steps(0, all_), all_, false);
        return false;
    }
    Solve_Steps(design, wanted);
    for (int step = 0; step <= last_; ++step) closed_ += Closed(step) ? 1 : 0;
    if (wanted >= Wanted::kForces) Load(design, wanted);
    return closed_ > 0;
}

void Motion::Load(const Design& design, Wanted wanted) {
    const LoadedRun run(design, design, all_ - 1, design.shown, *table_);
    loaded_.resize(static_cast<std::size_t>(all_));
    Solve_Closed_Steps(run, loaded_);
    balanced_.assign(loaded_.size(), 0);
    if (wanted != Wanted::kBalance) return;
    balanced_ = loaded_;
    // What has no counterweights has no balance, and what overflows in smoothing no smoothed torque.
    const auto failed = What_Failed([&] {
        Balance_Closed_Steps(run, balanced_);
        Smooth_Solved_Steps(*table_, last_, kUsualFluct, balanced_);
    });
    if (failed) std::ranges::fill(balanced_, 0);
}

}  // namespace verlink::study
