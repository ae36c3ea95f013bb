// Each label in turn takes the cheapest of the places around its anchor, given where the others are, a few times over.
#include "platform/label_places.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "platform/clip.h"
#include "platform/picture.h"

namespace verlink::platform {

namespace {

constexpr double kCell = 2;    ///< pixels of a cell of the map of what is drawn
constexpr double kMargin = 2;  ///< pixels of air around a label
constexpr double kEdge = 3;    ///< pixels of air along the edges of the picture
constexpr int kDirections = 24;
constexpr double kDistances[] = {3, 7, 12, 18, 26, 36, 48, 62, 80, 100};
constexpr int kRounds = 5;

// What a place costs, in pixels of distance from the anchor that it is worth.
constexpr double kPerInkCell = 14;
constexpr double kPerOverlap = 1.5;    ///< of each square pixel that two labels share
constexpr double kPerCrossing = 30;    ///< of each way to an anchor that leads through a label
constexpr double kPerCellBetween = 8;  ///< of what is drawn between a label and its anchor
constexpr double kAstray = 7;          ///< for a direction across the wished one; the opposite costs twice as much

using Rect = ClipBox;

/// Which cells of the picture have something drawn in them, summed up from the top left corner.
class Drawn {
   public:
    Drawn(const Picture& picture, double side, const Glass& glass)
        : cells_(static_cast<int>(std::ceil(std::max(side, kCell) / kCell))) {
        sums_.resize(Index(cells_ + 1, cells_ + 1) + 1);
        const double wide_world = picture.Right() - picture.Left(), high_world = picture.Bottom() - picture.Top();
        const double pin = std::abs(side / wide_world);
        const auto x_of = [&](double x) { return glass.Seen_Across((x - picture.Left()) / wide_world) * side; };
        const auto y_of = [&](double y) { return glass.Seen_Down((y - picture.Top()) / high_world) * side; };
        for (const auto& drawn : picture.Primitives()) {
            if (!drawn.alive || drawn.color == picture.Back()) continue;
            const double x = x_of(drawn.x1), y = y_of(drawn.y1);
            switch (drawn.kind) {
                case Picture::Primitive::Kind::kSegment: Segment(x, y, x_of(drawn.x2), y_of(drawn.y2)); break;
                case Picture::Primitive::Kind::kPin: Circle({x, y}, drawn.x2 * pin); break;
                case Picture::Primitive::Kind::kCircle: Circle({x, y}, drawn.x2 * pin * glass.factor); break;
                case Picture::Primitive::Kind::kMark:
                    Segment(x + drawn.dx1 * side / wide_world, y + drawn.dy1 * side / high_world,
                            x_of(drawn.x2) + drawn.dx2 * side / wide_world,
                            y_of(drawn.y2) + drawn.dy2 * side / high_world);
                    break;
                case Picture::Primitive::Kind::kDot: Dot(x, y); break;
            }
        }
        for (int row = 1; row <= cells_; ++row)
            for (int column = 1; column <= cells_; ++column)
                Sum(row, column) += Sum(row - 1, column) + Sum(row, column - 1) - Sum(row - 1, column - 1);
    }

    /// Cells within the rectangle that have something in them.
    int Within(const Rect& rect) const {
        const auto cell = [this](double value) { return std::clamp(static_cast<int>(value / kCell), 0, cells_); };
        const int left = cell(rect.left), top = cell(rect.top);
        const int right = cell(rect.right + kCell), bottom = cell(rect.bottom + kCell);
        return Sum(bottom, right) - Sum(top, right) - Sum(bottom, left) + Sum(top, left);
    }

    /// Cells with something in them on the way from one point to another, but for the first few pixels.
    int Between(double x1, double y1, double x2, double y2) const {
        constexpr double kOwn = 5;
        const double length = std::hypot(x2 - x1, y2 - y1);
        int met = 0;
        for (double walked = kOwn; walked < length; walked += kCell) {
            const double x = x1 + (x2 - x1) * walked / length, y = y1 + (y2 - y1) * walked / length;
            met += Within({x, y, x, y});
        }
        return met;
    }

   private:
    int& Sum(int row, int column) { return sums_[Index(row, column)]; }
    int Sum(int row, int column) const { return sums_[Index(row, column)]; }
    std::size_t Index(int row, int column) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(cells_ + 2) + static_cast<std::size_t>(column);
    }

    void Dot(double x, double y) {
        if (Sheet().Holds({x, y})) Sum(static_cast<int>(y / kCell) + 1, static_cast<int>(x / kCell) + 1) = 1;
    }
    void Segment(double x1, double y1, double x2, double y2) {
        Point from{x1, y1}, to{x2, y2};
        if (!Clip_Segment(Sheet(), from, to)) return;
        const double x = to.x - from.x, y = to.y - from.y;
        const int steps = static_cast<int>(std::hypot(x, y)) + 1;
        for (int i = 0; i <= steps; ++i) Dot(from.x + x * i / steps, from.y + y * i / steps);
    }
    void Circle(Point centre, double radius) {
        const std::vector<Point> arc = Seen_Arc(Sheet(), centre, radius, kCell / 8);
        Each_Piece(arc, [this](Point from, Point to) { Segment(from.x, from.y, to.x, to.y); });
    }
    ClipBox Sheet() const { return {0, 0, cells_ * kCell, cells_ * kCell}; }

    int cells_;
    std::vector<int> sums_;  ///< with a row and a column before the first cell and behind the last
};

struct Candidate {
    Rect rect;
    double anchor_x, anchor_y, near_x, near_y;  ///< the anchor, and the label's point next to it
    double cost;                                ///< without regard to the other labels
};

/// Does the way from a candidate to its anchor lead through a rectangle?
bool Crosses(const Candidate& way, const Rect& rect) {
    double from = 0, to = 1;
    const auto clip = [&](double start, double along, double low, double high) {
        if (along == 0) return start > low && start < high;
        const double a = (low - start) / along, b = (high - start) / along;
        from = std::max(from, std::min(a, b));
        to = std::min(to, std::max(a, b));
        return from < to;
    };
    return clip(way.anchor_x, way.near_x - way.anchor_x, rect.left, rect.right) &&
           clip(way.anchor_y, way.near_y - way.anchor_y, rect.top, rect.bottom);
}

double Between_Labels(const Candidate& a, const Candidate& b) {
    return kPerOverlap * a.rect.Shared(b.rect) + (Crosses(a, b.rect) ? kPerCrossing : 0) +
           (Crosses(b, a.rect) ? kPerCrossing : 0);
}

std::vector<Candidate> Candidates(const LabelWish& wish, double side, const Drawn& ink) {
    const double x = wish.at.across * side, y = wish.at.down * side;
    const bool any_wish = wish.at.right != 0 || wish.at.below != 0;
    const double wished = std::atan2(wish.at.below, wish.at.right);
    const double wide = wish.width + 2 * kMargin, high = wish.height + 2 * kMargin;
    std::vector<Candidate> all;
    for (const double distance : kDistances)
        for (int i = 0; i < kDirections; ++i) {
            const double turn = 2 * std::numbers::pi * i / kDirections;
            const double c = std::cos(wished + turn), s = std::sin(wished + turn);
            // The middle of the label, so that its nearest edge is that far away.
            const double away = distance + std::min(wide / 2 / std::abs(c), high / 2 / std::abs(s));
            const auto within = [side](double from, double extent) {
                return std::clamp(from, kEdge, std::max(kEdge, side - kEdge - extent));
            };
            const double left = within(x + away * c - wide / 2, wide);
            const double top = within(y + away * s - high / 2, high);
            const Rect rect{left, top, left + wide, top + high};
            const double near_x = std::clamp(x, rect.left, rect.right);
            const double near_y = std::clamp(y, rect.top, rect.bottom);
            double cost = std::max(std::hypot(near_x - x, near_y - y), kDistances[0]) + kPerInkCell * ink.Within(rect) +
                          kPerCellBetween * ink.Between(x, y, near_x, near_y);
            if (any_wish) cost -= kAstray * std::cos(turn);
            all.push_back({rect, x, y, near_x, near_y, cost});
        }
    return all;
}

}  // namespace

std::vector<LabelPlace> Find_Label_Places(const Picture& picture, double side, std::span<const LabelWish> wishes,
                                          const Glass& glass) {
    const Drawn ink(picture, side, glass);
    std::vector<std::vector<Candidate>> candidates;
    candidates.reserve(wishes.size());
    for (const LabelWish& wish : wishes) candidates.push_back(Candidates(wish, side, ink));

    std::vector<const Candidate*> taken(wishes.size(), nullptr);
    std::vector<double> costs;
    for (int round = 0; round < kRounds; ++round)
        for (std::size_t i = 0; i < wishes.size(); ++i) {
            costs.clear();
            for (const Candidate& candidate : candidates[i]) {
                double cost = candidate.cost;
                for (std::size_t j = 0; j < taken.size(); ++j)
                    if (j != i && taken[j]) cost += Between_Labels(candidate, *taken[j]);
                costs.push_back(cost);
            }
            taken[i] = &candidates[i][static_cast<std::size_t>(std::ranges::min_element(costs) - costs.begin())];
        }

    std::vector<LabelPlace> places;
    places.reserve(taken.size());
    for (const Candidate* label : taken) places.push_back({label->rect.left + kMargin, label->rect.top + kMargin});
    return places;
}

}  // namespace verlink::platform
