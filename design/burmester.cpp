// The dyads of four positions.
#include <algorithm>
#include <array>
#include <cmath>

#include "design/dyads.h"

namespace verlink::design {

namespace {

bool Shorter(Point a, Point b) { return std::norm(a) < std::norm(b); }

/// Pieces of curves, drawn dyad by dyad.
class Pen {
   public:
    /// What lies farther from the middle is not drawn.
    Pen(Point middle, double far) : middle_(middle), far_(far) {}

    void Draw(const std::optional<Dyad>& dyad) {
        constexpr double kJump = 0.25;
        if (!dyad || Distance(dyad->fixed, middle_) > far_ || Distance(dyad->moving, middle_) > far_) return Lift();
        // A step across infinity is no piece of the curve.
        if (!piece_.empty() && Distance(piece_.back().fixed, dyad->fixed) > kJump * far_) Lift();
        piece_.push_back(*dyad);
    }
    void Lift() {
        if (piece_.size() > 1) pieces_.push_back(std::move(piece_));
        piece_.clear();
    }
    /// Those after which the pen was lifted.
    std::vector<std::vector<Dyad>> Pieces() { return std::move(pieces_); }

   private:
    Point middle_;
    double far_;
    std::vector<Dyad> piece_;
    std::vector<std::vector<Dyad>> pieces_;
};

}  // namespace

Burmester::Burmester(std::span<const Carried> four) {
    std::copy_n(four.begin(), 4, carried_);
    const auto minor = [&](int i, int j) {
        const Point ti = carried_[i].turn - 1.0, tj = carried_[j].turn - 1.0;
        return ti * (carried_[j].to - carried_[j].from) - (carried_[i].to - carried_[i].from) * tj;
    };
    minor_[1] = minor(2, 3);
    minor_[2] = -minor(1, 3);
    minor_[3] = minor(1, 2);
    minor_[0] = -(minor_[1] + minor_[2] + minor_[3]);
    // The two larger ones are the sides of the triangle that is closed.
    led_ = static_cast<int>(std::min_element(minor_ + 1, minor_ + 4, Shorter) - minor_);
}

std::optional<Dyad> Burmester::Dyad_At(double turn, int way) const {
    const int p = led_ == 1 ? 2 : 1, q = 6 - led_ - p;
    Point turns[4];
    turns[led_] = std::polar(1.0, turn);
    const Point third = -(minor_[0] + minor_[led_] * turns[led_]);
    const double c = std::abs(third), a = std::abs(minor_[p]), b = std::abs(minor_[q]);
    // Where a side vanishes there are no numbers, and where it is too long no dyad comes of a flat triangle.
    // The angle at the side a, by half the perimeter: it keeps its digits where the triangle is flat.
    const double half = (a + b + c) / 2;
    const double beside = std::max(0.0, (half - a) * (half - c)), opposite = std::max(0.0, half * (half - b));
    const double angle = 2 * std::atan2(std::sqrt(beside), std::sqrt(opposite));
    const Point side = third / c * a * std::polar(1.0, way == 0 ? angle : -angle);
    turns[p] = side / minor_[p];
    turns[q] = (third - side) / minor_[q];
    return Dyad_With(turns);
}

std::optional<Dyad> Burmester::Dyad_With(Point (&turns)[4]) const {
    constexpr double kExact = 1e-9, kFarthest = 1e5;
    double best = 0, span = 0;
    Dyad dyad;
    for (const auto& [i, j] : {std::array{1, 2}, std::array{1, 3}, std::array{2, 3}}) {
        const Point bi = turns[i] - 1.0, bj = turns[j] - 1.0;
        const Point ai = carried_[i].turn - 1.0, aj = carried_[j].turn - 1.0;
        const Point di = carried_[i].to - carried_[i].from, dj = carried_[j].to - carried_[j].from;
        const Point determinant = bi * aj - bj * ai;
        span = std::max({span, std::abs(di), std::abs(dj)});
        if (std::abs(determinant) <= best) continue;
        best = std::abs(determinant);
        const Point link = (di * aj - dj * ai) / determinant, arm = (bi * dj - bj * di) / determinant;
        dyad.moving = carried_[0].from - arm;
        dyad.fixed = dyad.moving - link;
    }
    const double radius = Distance(dyad.moving, dyad.fixed);
    if (radius > kFarthest * span) return {};
    for (const Carried& carried : carried_)
        if (!(std::abs(Distance(carried.Of(dyad.moving), dyad.fixed) - radius) <= kExact * (radius + span))) return {};
    return dyad;
}

bool Burmester::Closes(double turn) const {
    const int p = led_ == 1 ? 2 : 1, q = 6 - led_ - p;
    const double a = std::abs(minor_[p]), b = std::abs(minor_[q]);
    const double c = std::abs(minor_[0] + minor_[led_] * std::polar(1.0, turn));
    return c <= a + b && c >= std::abs(a - b);
}

double Burmester::Last_That_Closes(double closes, double step) const {
    double opens = closes + step;
    while (std::nextafter(closes, opens) != opens) {
        const double middle = (closes + opens) / 2;
        (Closes(middle) ? closes : opens) = middle;
    }
    return closes;
}

std::vector<std::vector<Dyad>> Burmester::Curves(int steps) const {
    constexpr double kSeen = 50;
    double span = 0;
    for (const Carried& carried : carried_) span = std::max(span, Distance(carried.from, carried.to));
    Pen pen(carried_[0].from, kSeen * span);
    const double step = kTurn / steps;
    int start = 0;
    while (start < steps && Closes(start * step)) ++start;
    if (start == steps) {
        for (const int way : {0, 1}) {
            for (int i = 0; i <= steps; ++i) pen.Draw(Dyad_At(i * step, way));
            pen.Lift();
        }
        return pen.Pieces();
    }
    // Both ways meet where closing begins and where it ends.
    for (int first = start; first < start + steps; ++first) {
        if (!Closes(first * step)) continue;
        int last = first;
        while (Closes((last + 1) * step)) ++last;
        const double begins = Last_That_Closes(first * step, -step);
        const double ends = Last_That_Closes(last * step, step);
        pen.Draw(Dyad_At(begins, 0));
        for (int i = first; i <= last; ++i) pen.Draw(Dyad_At(i * step, 0));
        pen.Draw(Dyad_At(ends, 0));
        for (int i = last; i >= first; --i) pen.Draw(Dyad_At(i * step, 1));
        pen.Draw(Dyad_At(begins, 1));
        pen.Lift();
        first = last;
    }
    return pen.Pieces();
}

}  // namespace verlink::design
