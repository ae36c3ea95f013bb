// How the time of a run is shared out among the pictures of its film.
#include "animation/film.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

#include "animation/engine.h"

namespace verlink {

namespace {

const Frame_Taker::Take* in_force = nullptr;

/// A display shows no more.
constexpr double kLeastPlayed = 1.0 / 60;
/// What a picture's time can be written as.
constexpr int kLongestFilmFrame = 65535;

}  // namespace

std::vector<int> Steps_Shown(const Drive& drive, const RunResults& table) {
    std::vector<int> steps;
    for (int step = 0; step <= drive.NSteps; ++step) {
        if (!table.Assembled(step)) continue;
        if (table.PointXY(step, 2, 0) == 0 && table.PointXY(step, 2, 1) == 0) break;
        steps.push_back(step);
    }
    return steps;
}

std::optional<double> Real_Stride(const Drive& drive) {
    if (drive.Calctype < run::kByTime) return {};
    // That of a crank at rest is infinite.
    const double stride = drive.Calctype == run::kByAngle ? drive.ThetaStep * kDegToRad / std::abs(double{drive.Omega2})
                                                          : double{drive.TimeStep};
    if (!(stride > 0) || !std::isfinite(stride)) return {};
    return stride;
}

double Played_Stride(const DisplaySettings& settings) {
    const double turns = static_cast<double>(settings.AnimateWait) * settings.AnimateDelay;
    const double held = turns * kNanosecondsPerTurn * 1e-9;
    const double longest = std::chrono::duration<double>(kLongestFrame).count();
    return std::clamp(held, kLeastPlayed, longest);
}

std::vector<Film_Frame> Film_Of(const std::vector<int>& steps, double stride) {
    std::vector<Film_Frame> frames;
    if (steps.empty()) return frames;
    const auto when = [&](int step) { return std::llround(step * stride * 100); };
    const auto stands = [](long long hundredths) {
        return static_cast<int>(std::clamp<long long>(hundredths, kShortestFrame, kLongestFilmFrame));
    };
    int present = steps.front();
    for (const int step : steps) {
        if (when(step) - when(present) < kShortestFrame) continue;
        frames.push_back({present, stands(when(step) - when(present))});
        present = step;
    }
    const auto left = static_cast<int>(std::min<long long>(when(steps.back() + 1) - when(present), kLongestFilmFrame));
    if (frames.empty()) return {Film_Frame{present, stands(left)}};
    // Where too little is left for the last position it has it from the one before, or stands in its place.
    Film_Frame& before = frames.back();
    const int both = before.hundredths + left, last = stands(left);
    if (both - last >= kShortestFrame) {
        before.hundredths = both - last;
        frames.push_back({present, last});
    } else {
        before = {present, both};
    }
    return frames;
}

Frame_Taker::Frame_Taker(Take take) : take_(std::move(take)) { in_force = &take_; }
Frame_Taker::~Frame_Taker() { in_force = nullptr; }
const Frame_Taker::Take* Frame_Taker::InForce() { return in_force; }

}  // namespace verlink
