// From the world to pixels: what keeps its size, how long the arrows of the legend are, where names stand.
#include "platform/overlay.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <numbers>

namespace verlink::platform {

namespace {

using Kind = Overlay::Mark::Kind;
using Stroke = Overlay_Pen::Stroke;

constexpr double kHeadLong = 9, kHeadWide = 3.2;  ///< of an arrow, pixels; the second to each side
constexpr double kRing = 4;
constexpr double kVastRadius = 1e4, kArcError = 0.1;  ///< beyond that radius a circle is drawn as what is seen of it
constexpr double kLeastGrid = 64;                     ///< pixels from line to line
constexpr double kBarAtMost = 64;                     ///< pixels of an arrow of the legend
constexpr double kAir = 6;                            ///< pixels around what stands in a legend, and along the edges
constexpr double kNear = 7;                           ///< pixels from a place to its name
constexpr Color kGridColor = 0xA0A0A0;
constexpr Color kGridText = 0x606060;
constexpr double kTimes[] = {1, 2, 5, 10};
constexpr int kWays = 16;  ///< around its place that a name may stand
/// What it costs a name to cover another, or to leave the picture, in pixels of distance from its place.
constexpr double kCovers = 120;

/// With as many decimals as the step between values has.
std::string Value_Text(double value, double step) {
    if (value == 0) return "0";
    char text[40];
    const int decimals = static_cast<int>(std::max(0.0F, -std::floor(static_cast<float>(std::log10(step)))));
    if (std::abs(value) < 1e6 && decimals <= 6)
        std::snprintf(text, sizeof text, "%.*f", decimals, value);
    else
        std::snprintf(text, sizeof text, "%.4g", value);
    return text;
}

class Painting {
   public:
    Painting(const Overlay& overlay, const Sight& sight, Overlay_Pen& pen)
        : overlay_(overlay),
          sight_(sight),
          pen_(pen),
          per_x_(sight.across / sight.wide),
          per_y_(sight.down / sight.high),
          window_{0, 0, sight.across, sight.down} {}

    void All() {
        Place_Legend();
        if (overlay_.grid) Grid(*overlay_.grid);
        for (const auto& mark : overlay_.marks) Mark(mark);
        Legend();
        Names();
    }

   private:
    double Seen_X(double x) const { return (x - sight_.left) * per_x_; }
    double Seen_Y(double y) const { return (y - sight_.top) * per_y_; }
    Point Seen(Point world) const { return {Seen_X(world.x), Seen_Y(world.y)}; }

    void Line(Point from, Point to, Stroke stroke, Color color) {
        if (!Clip_Segment(window_.Grown(2), from, to)) return;
        pen_.Line(from, to, stroke, color);
        strokes_.push_back({from, to});
    }

    void Circle(Point centre, double radius, Color color) {
        const ClipBox box = window_.Grown(2);
        if (!Circle_Seen(box, centre, radius)) return;
        if (radius < kVastRadius) {
            pen_.Circle(centre, radius, color);
            return;
        }
        const std::vector<Point> arc = Seen_Arc(box, centre, radius, kArcError);
        Each_Piece(arc, [&](Point from, Point to) { Line(from, to, Stroke::kPlain, color); });
    }

    /// One that is shorter than its head has a smaller head.
    void Arrow(Point from, Point to, bool open, Color color) {
        const double length = std::hypot(to.x - from.x, to.y - from.y);
        constexpr double kSeen = 0.5;
        if (!(length > kSeen)) return;
        const double x = (to.x - from.x) / length, y = (to.y - from.y) / length;
        const double size = std::min(1.0, length / (1.5 * kHeadLong));
        const double back = kHeadLong * size, aside = kHeadWide * size;
        const Point foot{to.x - back * x, to.y - back * y};
        const Point left{foot.x - aside * y, foot.y + aside * x}, right{foot.x + aside * y, foot.y - aside * x};
        Line(from, open ? to : foot, Stroke::kPlain, color);
        // Far outside a painter's numbers end.
        if (!window_.Grown(kHeadLong).Holds(to)) return;
        if (!open) return pen_.Triangle(to, left, right, color);
        pen_.Line(left, to, Stroke::kPlain, color);
        pen_.Line(to, right, Stroke::kPlain, color);
    }

    void Mark(const Overlay::Mark& mark) {
        const Point from = Seen(mark.from), to = Seen(mark.to);
        switch (mark.kind) {
            case Kind::kLine: return Line(from, to, Stroke::kPlain, mark.color);
            case Kind::kDashes: return Line(from, to, Stroke::kDashed, mark.color);
            case Kind::kFaint: return Line(from, to, Stroke::kFaint, mark.color);
            case Kind::kCircle: return Circle(from, mark.radius * std::abs(per_x_), mark.color);
            case Kind::kRing: return Circle(from, kRing, mark.color);
            case Kind::kArrow:
            case Kind::kOpenArrow: return Arrow(from, to, mark.kind == Kind::kOpenArrow, mark.color);
            case Kind::kNothing: {
                Point a = from, b = to;
                if (Clip_Segment(window_, a, b)) strokes_.push_back({a, b});
                return;
            }
        }
    }

    void Grid(const Overlay::Grid& grid) {
        const double least = std::max(kLeastGrid / std::abs(per_x_), kLeastGrid / std::abs(per_y_));
        const double step = Round_Up_1_2_5(least);
        const auto each = [step](double a, double b, const auto& at) {
            const double low = std::min(a, b), high = std::max(a, b);
            // Where the world's numbers are too coarse for such steps there is no grid.
            if (!(high - low < 1e4 * step) || std::max(std::abs(low), std::abs(high)) > 1e12 * step) return;
            for (double i = std::ceil(low / step); i * step <= high; ++i) at(i * step);
        };
        const double right = sight_.left + sight_.wide, bottom = sight_.top + sight_.high;
        const double high = pen_.Text_High();
        each(sight_.left, right, [&](double x) {
            const double at = Seen_X(x);
            pen_.Line({at, 0}, {at, sight_.down}, Stroke::kFaint, kGridColor);
            const std::string text = Value_Text(x, step);
            Grid_Text({at + 3, sight_.down - high - 1}, text);
        });
        each(grid.sum - sight_.top, grid.sum - bottom, [&](double y) {
            const double at = Seen_Y(grid.sum - y);
            pen_.Line({0, at}, {sight_.across, at}, Stroke::kFaint, kGridColor);
            // The corner at the bottom is that of the values of x.
            if (at < sight_.down - 2 * high) Grid_Text({3, at - high}, Value_Text(y, step));
        });
    }

    /// Values stand within the picture and not under the legend.
    void Grid_Text(Point corner, const std::string& text) {
        const ClipBox box{corner.x, corner.y, corner.x + pen_.Text_Wide(text), corner.y + pen_.Text_High()};
        if (box.top < 0 || box.right > sight_.across || box.Shared(legend_) > 0) return;
        pen_.Text(corner, text, kGridText);
        taken_.push_back(box);
    }

    double Bar(const Overlay::Legend& line) const {
        return Round_Down_1_2_5(kBarAtMost / std::abs(per_x_) * line.per_world);
    }
    std::string Words(const Overlay::Legend& line) const {
        if (line.per_world <= 0) return line.text;
        const double bar = Bar(line);
        return Value_Text(bar, bar) + " " + line.unit + "  " + line.text;
    }

    /// The words beside a bar begin where the longest bar would end.
    static double Bar_Wide(const Overlay::Legend& line) { return line.per_world > 0 ? kBarAtMost + kAir : 0; }

    void Place_Legend() {
        if (overlay_.legend.empty()) return;
        double widest = 0;
        for (const auto& line : overlay_.legend)
            widest = std::max(widest, Bar_Wide(line) + pen_.Text_Wide(Words(line)));
        const double wide = 2 * kAir + widest;
        const double high = kAir + static_cast<double>(overlay_.legend.size()) * (pen_.Text_High() + 2);
        const bool right =
            overlay_.corner == Overlay::Corner::kTopRight || overlay_.corner == Overlay::Corner::kBottomRight;
        const bool bottom =
            overlay_.corner == Overlay::Corner::kBottomLeft || overlay_.corner == Overlay::Corner::kBottomRight;
        const double left = right ? std::max(kAir, sight_.across - kAir - wide) : kAir;
        const double top = bottom ? std::max(kAir, sight_.down - kAir - high) : kAir;
        legend_ = {left, top, left + wide, top + high};
    }

    void Legend() {
        if (overlay_.legend.empty()) return;
        pen_.Paper({legend_.left, legend_.top}, legend_.right - legend_.left, legend_.bottom - legend_.top);
        double top = legend_.top + kAir / 2 + 1;
        for (const auto& line : overlay_.legend) {
            const double left = legend_.left + kAir, middle = top + pen_.Text_High() / 2;
            if (line.per_world > 0) {
                const double length = Bar(line) / line.per_world * std::abs(per_x_);
                Arrow({left, middle}, {left + length, middle}, line.open, line.color);
            }
            pen_.Text({left + Bar_Wide(line), top}, Words(line), line.color);
            top += pen_.Text_High() + 2;
        }
        taken_.push_back(legend_);
    }

    /// Each name takes the cheapest of the places around its own, given those before it.
    void Names() {
        const double high = pen_.Text_High();
        for (const auto& name : overlay_.names) {
            const Point at = Seen(name.at);
            if (!window_.Holds(at)) continue;
            const double wide = pen_.Text_Wide(name.text);
            const double length = std::hypot(name.away.x, name.away.y);
            const double wished = length > 0 ? std::atan2(name.away.y, name.away.x) : -std::numbers::pi / 4;
            const double pin = name.radius * std::abs(per_x_) / sight_.magnified;
            std::vector<Place> places;
            for (const double beyond : {kNear, 2.5 * kNear, 4 * kNear})
                for (int way = 0; way < kWays; ++way) {
                    const double turn = 2 * std::numbers::pi * way / kWays;
                    const double far = pin + beyond;
                    const double c = std::cos(wished + turn), s = std::sin(wished + turn);
                    const double x = at.x + c * (far + wide / 2), y = at.y + s * (far + high / 2);
                    const ClipBox box{x - wide / 2, y - high / 2, x + wide / 2, y + high / 2};
                    places.push_back({box, Cost(box) + beyond - 6 * std::cos(turn)});
                }
            const ClipBox best = std::ranges::min_element(places, {}, &Place::cost)->box;
            pen_.Text({best.left, best.top}, name.text, name.color);
            taken_.push_back(best);
        }
    }

    double Cost(const ClipBox& box) const {
        double cost = 0;
        const double outside = (box.right - box.left) * (box.bottom - box.top) - box.Shared(window_);
        if (outside > 0) cost += kCovers + outside;
        for (const ClipBox& other : taken_)
            if (const double both = box.Shared(other); both > 0) cost += kCovers + both;
        for (const Stretch& stroke : strokes_) {
            Point from = stroke.from, to = stroke.to;
            if (!Clip_Segment(box, from, to)) continue;
            cost += 4 + 2 * std::hypot(to.x - from.x, to.y - from.y);
        }
        return cost;
    }

    struct Stretch {
        Point from, to;
    };
    struct Place {
        ClipBox box;
        double cost;
    };

    const Overlay& overlay_;
    const Sight& sight_;
    Overlay_Pen& pen_;
    double per_x_, per_y_;
    ClipBox window_;
    std::vector<Stretch> strokes_;  ///< that names keep clear of
    std::vector<ClipBox> taken_;    ///< by texts
    ClipBox legend_{};
};

}  // namespace

double Round_Down_1_2_5(double value) {
    const double power = std::pow(10, std::floor(std::log10(value)));
    // A value that rounding has left just below one of them is that one, in single precision.
    const auto times = static_cast<float>(value / power);
    return power * *std::prev(std::upper_bound(std::next(kTimes), std::end(kTimes), times));
}

double Round_Up_1_2_5(double value) {
    const double power = std::pow(10, std::floor(std::log10(value)));
    return power * *std::lower_bound(kTimes, std::prev(std::end(kTimes)), static_cast<float>(value / power));
}

void Draw_Overlay(const Overlay& overlay, const Sight& sight, Overlay_Pen& pen) {
    if (sight.across <= 0 || sight.down <= 0 || sight.wide == 0 || sight.high == 0) return;
    Painting(overlay, sight, pen).All();
}

}  // namespace verlink::platform
