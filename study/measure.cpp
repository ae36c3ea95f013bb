// How a measure is taken of a motion.
#include "study/measure.h"

#include <algorithm>
#include <cmath>

#include "core/numeric.h"
#include "platform/guard.h"

namespace verlink::study {

namespace {

constexpr double kSmall = 0.0001;  ///< what plots and tables cut components at

/// Where a scalar's values begin; null for a vector.
const Single* Scalars(const RunResults& table, const Variable_Facts& facts) {
    switch (facts.group) {
        case 1: return &table.Theta(0, facts.row);
        case 2: return &table.Omega(0, facts.row);
        case 3: return &table.Alpha(0, facts.row);
        case 7: return &table.OmegaRatio(0);
        case 8: return &table.MechAdvantage(0);
        case 9: return &table.LinkTorque(0, facts.row);
        case 12: return &table.BalancedMoment(0, facts.row);
        case 18: return &table.FlywheelTorque(0);
        default: return nullptr;
    }
}

struct Columns {
    const Single *x, *y;
};

Columns Vectors(const RunResults& table, const Variable_Facts& facts) {
    const auto both = [&](const auto& vectors) {
        return Columns{&vectors(0, facts.row, 0), &vectors(0, facts.row, 1)};
    };
    switch (facts.group) {
        case 4: return both(table.VelXY);
        case 5: return both(table.AccXY);
        case 6: return both(table.PointXY);
        case 11: return both(table.BalancedForce);
        default: return both(table.PinForce);
    }
}

/// A turn by an angle in degrees, forth or back, as `Rotate` makes it.
struct Turn {
    double cosine, sine;
    Turn(Single degrees, int sign) {
        const Single a = sign * degrees * kDegToRad;
        cosine = std::cos(a);
        sine = std::sin(a);
    }
    void operator()(Single& x, Single& y) const {
        const Single xr = x * cosine - y * sine, yr = x * sine + y * cosine;
        x = xr;
        y = yr;
    }
};

Single Component(Single x, Single y, int component) {
    switch (component) {
        case 0: return x;
        case 1: return y;
        case 2: return std::sqrt(x * x + y * y);
        default: return Single(Atan2(x, y)) * kRadToDeg;
    }
}

float Stored_Single(double value) {
    const float stored = static_cast<float>(value);
    return std::isfinite(stored) ? stored : kNone;
}

float Statistic_Of(Statistic statistic, const std::vector<float>& values) {
    if (values.empty()) return kNone;
    float least = values.front(), most = values.front();
    double sum = 0, squares = 0;
    switch (statistic) {
        case Statistic::kMean:
            for (const float v : values) sum += v;
            return Stored_Single(sum / static_cast<double>(values.size()));
        case Statistic::kRms:
            for (const float v : values) squares += double{v} * v;
            return Stored_Single(std::sqrt(squares / static_cast<double>(values.size())));
        default: break;
    }
    for (const float v : values) {
        least = std::min(least, v);
        most = std::max(most, v);
    }
    if (statistic == Statistic::kRange) return Stored_Single(double{most} - least);
    return statistic == Statistic::kMin ? least : most;
}

}  // namespace

bool Keep::Holds(float value) const {
    switch (order) {
        case Order::kLess: return value < bound;
        case Order::kAtMost: return value <= bound;
        case Order::kMore: return value > bound;
        default: return value >= bound;
    }
}

Path Path_Of(const Motion& motion, const Design& design) {
    Path path;
    const Turn global(design.Link1Angle, 1);
    const auto& points = motion.Table().PointXY;
    for (int step = 0; step <= motion.Last(); ++step) {
        Single x = points(step, 2, 0), y = points(step, 2, 1);
        if (motion.Closed(step)) global(x, y);
        path.x.push_back(x);
        path.y.push_back(y);
        path.closed.push_back(motion.Closed(step));
    }
    return path;
}

/// The values at the closed steps of a range, those first that come first.
void Meter::Read(const Measure& measure, const Motion& motion, const Design& design, int first, int last) {
    const RunResults& table = motion.Table();
    const auto there = [&](int step) {
        if (measure.wanted == Wanted::kBalance) return motion.Closed(step) && motion.Balanced(step);
        return motion.Closed(step) && (measure.wanted != Wanted::kForces || motion.Loaded(step));
    };
    values_.clear();
    if (const Single* column = Scalars(table, measure.facts)) {
        for (int step = first; step <= last; ++step)
            if (there(step)) values_.push_back(static_cast<float>(double{column[step]}));
        return;
    }
    const Columns columns = Vectors(table, measure.facts);
    const Turn global(design.Link1Angle, 1);
    const bool local = measure.facts.in_frames && measure.function.local;
    const int link = Frame_Link(measure.facts.row);
    const Single small = kSmall;
    for (int step = first; step <= last; ++step) {
        if (!there(step)) continue;
        Single x = columns.x[step], y = columns.y[step];
        global(x, y);
        if (local) Turn(table.Theta(step, link), -1)(x, y);
        if (!(std::abs(x) >= small)) x = 0;
        if (!(std::abs(y) >= small)) y = 0;
        values_.push_back(static_cast<float>(double{Component(x, y, measure.component)}));
    }
}

float Meter::Deviation(const Motion& motion, const Design& design) {
    const Path path = Path_Of(motion, design);
    double most = -1;
    for (std::size_t i = 0; i < std::min(path.x.size(), nominal_.x.size()); ++i)
        if (path.closed[i] && nominal_.closed[i])
            most = std::max(most, std::hypot(path.x[i] - nominal_.x[i], path.y[i] - nominal_.y[i]));
    return most < 0 ? kNone : Stored_Single(most);
}

float Meter::From_Line(const Motion& motion, const Design& design) {
    const Path path = Path_Of(motion, design);
    double count = 0, x0 = 0, y0 = 0;
    for (std::size_t i = 0; i < path.x.size(); ++i) {
        if (!path.closed[i]) continue;
        ++count;
        x0 += path.x[i];
        y0 += path.y[i];
    }
    if (count == 0) return kNone;
    x0 /= count;
    y0 /= count;
    double xx = 0, xy = 0, yy = 0;
    for (std::size_t i = 0; i < path.x.size(); ++i) {
        if (!path.closed[i]) continue;
        const double dx = path.x[i] - x0, dy = path.y[i] - y0;
        xx += dx * dx;
        xy += dx * dy;
        yy += dy * dy;
    }
    // The line goes the way of the larger principal moment.
    const double half = (xx - yy) / 2, root = std::hypot(half, xy);
    const bool steep = std::signbit(half);
    double ux = steep ? xy : half + root, uy = steep ? root - half : xy;
    // A single place has no line, and a distance from it is no number, which counts for nothing.
    const double length = std::hypot(ux, uy);
    ux /= length;
    uy /= length;
    double most = 0;
    for (std::size_t i = 0; i < path.x.size(); ++i)
        if (path.closed[i]) most = std::fmax(most, std::fabs((path.y[i] - y0) * ux - (path.x[i] - x0) * uy));
    return Stored_Single(most);
}

float Meter::Take(const Measure& measure, const Motion& motion, const Design& design, int further) {
    float taken = kNone;
    // What no single holds is no number of this linkage.
    What_Failed([&] {
        const int at = motion.Step_At(further);
        switch (measure.statistic) {
            case Statistic::kCloses:
                taken = Stored_Single(static_cast<double>(motion.Closed_Steps()) / (motion.Last() + 1));
                return;
            case Statistic::kDeviation: taken = Deviation(motion, design); return;
            case Statistic::kLine: taken = From_Line(motion, design); return;
            case Statistic::kAt: Read(measure, motion, design, at, at); break;
            default: Read(measure, motion, design, 0, motion.Last());
        }
        taken = Statistic_Of(measure.statistic, values_);
    });
    return taken;
}

}  // namespace verlink::study
