// Speeds and accelerations as differences of the positions in the table, with the error of the differences.
#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <limits>

#include "checks/motion.h"
#include "checks/worst.h"
#include "core/linkage_model.h"

namespace verlink::checks {

namespace {

constexpr int kSide = 3;  ///< steps on each side
using Seven = std::array<double, 2 * kSide + 1>;
using SevenSteps = std::array<const Step*, 2 * kSide + 1>;
using Orders = std::array<double, 4>;  ///< behind an empty place the value and two derivatives
using SevenOrders = std::array<Orders, 2 * kSide + 1>;
constexpr double kWidest = 15 * M_PI / 180;

/// Weights of the first and second derivative at 0 from values at any places, after Fornberg.
struct Weights {
    Seven first{}, second{};
};

Weights Weights_Of(const Seven& places, int from, int to) {
    SevenOrders c{};
    const auto at = [&places](int i) { return places[static_cast<std::size_t>(i)]; };
    const auto weight = [&c](int i) -> Orders& { return c[static_cast<std::size_t>(i)]; };
    weight(from)[1] = 1;
    double product = 1;
    for (int i = from + 1; i <= to; ++i) {
        double next = 1;
        for (int j = from; j < i; ++j) {
            const double apart = at(i) - at(j);
            next *= apart;
            auto& old = weight(j);
            if (j == i - 1)
                for (std::size_t k = old.size(); --k > 0;)
                    weight(i)[k] = product / next * (static_cast<double>(k - 1) * old[k - 1] - at(i - 1) * old[k]);
            for (std::size_t k = old.size(); --k > 0;)
                old[k] = (at(i) * old[k] - static_cast<double>(k - 1) * old[k - 1]) / apart;
        }
        product = next;
    }
    Weights weights;
    for (int i = from; i <= to; ++i) {
        weights.first[static_cast<std::size_t>(i)] = weight(i)[2];
        weights.second[static_cast<std::size_t>(i)] = weight(i)[3];
    }
    return weights;
}

/// A point's derivative by the crank's angle from seven steps, how far that of five is off it, that of three off the
/// one of five, and how far rounding is.
struct Difference {
    Vector seven, five, three;
    double rounded = 0;

    double Off() const { return std::abs(seven - five); }
    double Coarse_Off() const { return std::abs(five - three); }
};
struct Differences {
    Difference first, second;
};

/// Seven steps in a row.
struct Window {
    SevenSteps steps{};
    Weights seven, five, three;
};

Vector Joint(const LinkageModel& m, const Step& s, int row) {
    return {m.RunTable.PointXY(s.number, row, 0), m.RunTable.PointXY(s.number, row, 1)};
}

Differences Differences_Of(const LinkageModel& m, const Window& w, int row, double shown) {
    Differences d;
    const Vector origin = Joint(m, *w.steps[kSide], row);
    for (std::size_t i = 0; i < w.steps.size(); ++i) {
        const Step& s = *w.steps[i];
        const Vector at = Joint(m, s, row) - origin;
        const Estimate2& expected = row == 1 ? s.expected.B : s.expected.P;
        const Vector way = row == 1 ? s.pose.B1 : s.pose.P1;
        const double open =
            shown * (expected.Error() + 2 * kHalfPlace * std::abs(way)) + 2 * kHalfPlace * std::abs(Joint(m, s, row));
        const auto add = [&](Difference& sum, double seven, double five, double three) {
            sum.seven += seven * at;
            sum.five += five * at;
            sum.three += three * at;
            sum.rounded += std::abs(seven) * open;
        };
        add(d.first, w.seven.first[i], w.five.first[i], w.three.first[i]);
        add(d.second, w.seven.second[i], w.five.second[i], w.three.second[i]);
    }
    return d;
}

/// Crank angles, complex, up to their sign and full turns, where the joints are no smooth function of it: coupler and
/// rocker lie in line, or their triangle with the diagonal has a side without length.
class Singular_Angles {
   public:
    explicit Singular_Angles(const LinkageModel& m) {
        const std::complex<double> L1 = double{m.L1}, L2 = double{m.L2};
        const double sides[] = {double{m.L3} + m.L4, double{m.L3} - m.L4, 0};
        for (std::size_t i = 0; i < angles_.size(); ++i)
            angles_[i] = std::acos((L1 * L1 + L2 * L2 - sides[i] * sides[i]) / (2.0 * L1 * L2));
    }
    /// Of a crank angle from half a turn back to half a turn on.
    double Distance(double crank) const {
        double nearest = HUGE_VAL;
        for (const std::complex<double>& angle : angles_)
            nearest = std::min(nearest, std::abs(std::abs(crank) - angle));
        return nearest;
    }

   private:
    std::array<std::complex<double>, 3> angles_;
};

/// False where the steps do not follow each other closely in one direction, or what they reach comes near an angle
/// about which no power series holds.
bool Take_Window(const std::vector<Step>& steps, const Singular_Angles& singular, std::size_t middle, Window& w) {
    Seven places{};
    for (std::size_t i = 0; i < places.size(); ++i) {
        const Step& s = steps[middle - kSide + i];
        w.steps[i] = &s;
        if (!s.pose.closes || s.number != steps[middle].number - kSide + static_cast<int>(i)) return false;
        places[i] = std::remainder(s.drive.th2 - steps[middle].drive.th2, 2 * M_PI);
        if (i == 0) continue;
        const double stride = places[i] - places[i - 1], before = i > 1 ? places[i - 1] - places[i - 2] : stride;
        if (std::abs(stride) > kWidest || stride * before <= 0) return false;
    }
    const double reach = std::max(std::abs(places.front()), std::abs(places.back()));
    if (2 * reach > singular.Distance(steps[middle].drive.th2)) return false;
    w.seven = Weights_Of(places, 0, 2 * kSide);
    w.five = Weights_Of(places, 1, 2 * kSide - 1);
    w.three = Weights_Of(places, 2, 2 * kSide - 2);
    return true;
}

/// The error of seven steps is a part of what five are off them, where those are much nearer than three are to five;
/// nothing is known where the steps are too wide for that. At one step alone a number may chance to be small.
double Known_Error(const std::vector<Differences>& all, std::size_t at, Difference Differences::*which) {
    double off = 0, coarse = 0, rounded = 0;
    for (std::size_t i = at - std::min<std::size_t>(at, 2); i < std::min(all.size(), at + 3); ++i) {
        const Difference& d = all[i].*which;
        off = std::max(off, d.Off());
        coarse = std::max(coarse, d.Coarse_Off());
        rounded = std::max(rounded, d.rounded);
    }
    constexpr double kMuchNearer = 0.1;
    const bool known = off <= kMuchNearer * coarse || off <= rounded;
    return known ? off + (all[at].*which).rounded : std::numeric_limits<double>::infinity();
}

}  // namespace

void Add_Differences(const LinkageModel& m, const std::vector<Step>& steps, std::vector<Check>& checks) {
    const double shown = Shown_Factor(m);
    const Singular_Angles singular(m);
    Worst velocities("Velocities by differences", m.UnitLabel(4));
    Worst accelerations("Accelerations by differences", m.UnitLabel(5));
    for (const int row : {1, 2}) {
        const char* point = row == 1 ? "B" : "P";
        std::vector<Differences> all;
        std::vector<const Step*> middles;
        for (std::size_t i = kSide; i + kSide < steps.size(); ++i) {
            Window window;
            if (!Take_Window(steps, singular, i, window)) continue;
            all.push_back(Differences_Of(m, window, row, shown));
            middles.push_back(&steps[i]);
        }
        for (std::size_t i = 0; i < all.size(); ++i) {
            const Step& s = *middles[i];
            const Differences& d = all[i];
            const double w2 = s.drive.omega2, a2 = s.drive.alpha2;
            const double first = Known_Error(all, i, &Differences::first);
            const double second = Known_Error(all, i, &Differences::second);
            const Vector velocity{m.RunTable.VelXY(s.number, row, 0), m.RunTable.VelXY(s.number, row, 1)};
            Vector acceleration{m.RunTable.AccXY(s.number, row, 0), m.RunTable.AccXY(s.number, row, 1)};
            const Vector arm = row == 1 ? s.pose.B - double{m.L1} : s.pose.P - s.pose.A;
            acceleration -= Vector{0, 1} * (row == 1 ? s.design_alpha4 : s.design_alpha3) * arm * shown;
            velocities.Add(
                std::abs(velocity - w2 * d.first.seven),
                std::abs(w2) * first + shown * s.expected.velocity[row].Error() + 2 * kHalfPlace * std::abs(velocity),
                s.number, point);
            accelerations.Add(std::abs(acceleration - a2 * d.first.seven - w2 * w2 * d.second.seven),
                              (a2 == 0 ? 0 : std::abs(a2) * first) + w2 * w2 * second +
                                  shown * s.expected.acceleration[row].Error() +
                                  2 * kHalfPlace * std::abs(acceleration),
                              s.number, point);
        }
    }
    if (!velocities.Any()) return;
    checks.push_back(
        velocities.Told(m,
                        "The positions of seven steps, differenced by the crank's angle, give the "
                        "velocities; expected is four times what five steps differ from seven, and rounding."));
    checks.push_back(accelerations.Told(m, "The same for the accelerations."));
}

}  // namespace verlink::checks
