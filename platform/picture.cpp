// How a picture keeps its primitives: a list in drawing order, and an index that finds one drawn again.
#include "platform/picture.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <optional>
#include <utility>

#include "platform/clip.h"
#include "platform/failure.h"
#include "platform/svg.h"

namespace verlink::platform {

namespace {

/// What a window may measure across or down.
constexpr double kLeastExtent = 1e-25;
constexpr double kMostExtent = 3.4e38;

template <class... Values>
void Check(Values... values) {
    if (!(std::isfinite(values) && ...)) Raise(kOverflow);
}

/// The nearest grid line; far beyond any window all count as one.
std::int64_t Line_Of(double value) {
    constexpr double kFar = 4e18;
    value = std::clamp(value, -kFar, kFar);
    return static_cast<std::int64_t>(value + std::copysign(0.5, value));
}

}  // namespace

Picture::Key Picture::KeyOf(const Primitive& primitive) const {
    return {static_cast<std::int64_t>(primitive.kind), Line_Of((primitive.x1 + primitive.dx1) * across_),
            Line_Of((primitive.y1 + primitive.dy1) * down_), Line_Of((primitive.x2 + primitive.dx2) * across_),
            Line_Of((primitive.y2 + primitive.dy2) * down_)};
}

std::size_t Picture::Place_Of(const Key& key) const {
    std::uint64_t hash{};
    for (const std::int64_t part : key) {
        hash = (hash ^ static_cast<std::uint64_t>(part)) * 0x9E3779B97F4A7C15U;
        hash ^= hash >> 29U;
    }
    const std::size_t mask = index_.size() - 1;
    for (std::size_t place = hash ^ (hash >> 32U);; ++place) {
        const Found& found = index_[place &= mask];
        if (found.item == 0 || KeyOf(list_[found.item - 1]) == key) return place;
    }
}

void Picture::Add(Primitive::Kind kind, Color color, double x1, double y1, double x2, double y2) {
    Add({kind, true, color, strokes_, x1, y1, x2, y2});
}

void Picture::Add(Primitive primitive) {
    if (index_.empty()) Compact();
    const bool erases = primitive.color == back_;
    Found& found = index_[Place_Of(KeyOf(primitive))];
    if (found.item > 0) {
        if (erases && found.erased == strokes_) return;
        Primitive& earlier = list_[found.item - 1];
        if (earlier.alive) {
            earlier.alive = false;
            --alive_;
            if (erases && earlier.color != back_) {
                found.erased = strokes_;
                Touch();
                return;
            }
        }
    }
    list_.push_back(primitive);
    found = {static_cast<std::uint32_t>(list_.size()), 0};
    ++strokes_;
    ++alive_;
    if (2 * list_.size() >= index_.size()) Compact();
    Touch();
}

void Picture::Compact() {
    std::erase_if(list_, [](const Primitive& primitive) { return !primitive.alive; });
    index_.assign(std::bit_ceil(4 * std::max<std::size_t>(list_.size(), 256)), {});
    // Two that were apart may have come together on the grid of another window; the upper one is found.
    std::uint32_t item = 0;
    for (const Primitive& primitive : list_) index_[Place_Of(KeyOf(primitive))] = {++item, 0};
}

void Picture::Clear() {
    list_.clear();
    index_.assign(index_.size(), {});
    alive_ = 0;
    strokes_ = 0;
    ++epoch_;
    x_ = left_;
    y_ = top_;
    Touch();
}

void Picture::Scale(double x1, double y1, double x2, double y2) {
    const double wide = x2 - x1;
    const double high = y2 - y1;
    for (const double extent : {std::abs(wide), std::abs(high)})
        if (!(extent >= kLeastExtent && extent <= kMostExtent)) Raise(kInvalidCall);
    if (x1 == left_ && y1 == top_ && x2 == right_ && y2 == bottom_) return;
    const double x_ratio = wide / (right_ - left_);
    const double y_ratio = high / (bottom_ - top_);
    const auto x_of = [&](double x) { return x1 + (x - left_) * x_ratio; };
    const auto y_of = [&](double y) { return y1 + (y - top_) * y_ratio; };
    for (Primitive& primitive : list_) {
        primitive.x1 = x_of(primitive.x1);
        primitive.y1 = y_of(primitive.y1);
        primitive.dx1 *= static_cast<float>(x_ratio);
        primitive.dy1 *= static_cast<float>(y_ratio);
        primitive.dx2 *= static_cast<float>(x_ratio);
        primitive.dy2 *= static_cast<float>(y_ratio);
        if (primitive.kind == Primitive::Kind::kSegment || primitive.kind == Primitive::Kind::kMark) {
            primitive.x2 = x_of(primitive.x2);
            primitive.y2 = y_of(primitive.y2);
        } else {
            primitive.x2 *= std::abs(x_ratio);
        }
    }
    x_ = x_of(x_);
    y_ = y_of(y_);
    left_ = x1;
    top_ = y1;
    right_ = x2;
    bottom_ = y2;
    across_ = kGrid / std::abs(wide);
    down_ = kGrid / std::abs(high);
    Compact();
    ++epoch_;
    Touch();
}

void Picture::Cls() { Clear(); }

void Picture::BackColor(Color color) {
    back_ = color;
    Clear();
}

void Picture::DrawMode(int mode) {
    constexpr int kCopyPen = 13;
    if (mode != kCopyPen) Raise(kInvalidProperty);
}

void Picture::Segment(double x1, double y1, double x2, double y2, Color color) {
    Check(x1, y1, x2, y2);
    Add(Primitive::Kind::kSegment, color, x1, y1, x2, y2);
    x_ = x2;
    y_ = y2;
}

void Picture::Line(double x1, double y1, double x2, double y2, Color color) { Segment(x1, y1, x2, y2, color); }
void Picture::LineTo(double x, double y, Color color) { Segment(x_, y_, x, y, color); }
void Picture::LineStep(double dx, double dy, Color color) { Segment(x_, y_, x_ + dx, y_ + dy, color); }

void Picture::Round(Primitive::Kind kind, double x, double y, double radius, Color color) {
    Check(x, y, radius);
    if (radius < 0) Raise(kInvalidCall);
    Add(kind, color, x, y, radius, 0);
    x_ = x;
    y_ = y;
}

void Picture::Circle(double x, double y, double radius, Color color) {
    Round(Primitive::Kind::kCircle, x, y, radius, color);
}
void Picture::Pin(double x, double y, double radius, Color color) { Round(Primitive::Kind::kPin, x, y, radius, color); }

void Picture::Mark(const Beside& from, const Beside& to, Color color) {
    Check(from.x + from.dx, from.y + from.dy, to.x + to.dx, to.y + to.dy);
    Add({Primitive::Kind::kMark, true, color, strokes_, from.x, from.y, to.x, to.y, static_cast<float>(from.dx),
         static_cast<float>(from.dy), static_cast<float>(to.dx), static_cast<float>(to.dy)});
    x_ = to.x + to.dx;
    y_ = to.y + to.dy;
}

void Picture::PSet(double x, double y, Color color) {
    Check(x, y);
    Add(Primitive::Kind::kDot, color, x, y, 0, 0);
    x_ = x;
    y_ = y;
}

void Picture::PSet(double x, double y) { PSet(x, y, 0); }

using svg::Hex;
using svg::Number;

/// Writes what of a list is seen, in pixels.
class Picture::SvgPen {
   public:
    SvgPen(const Picture& picture, double pixels)
        : picture_(picture),
          pixels_(pixels),
          thin_(Number(pixels / 400)),
          seen_(ClipBox{0, 0, pixels, pixels}.Grown(2)) {}

    std::string Written() && {
        for (const Primitive& primitive : picture_.list_) {
            if (!primitive.alive) continue;
            const Point at = Place(primitive.x1 + primitive.dx1, primitive.y1 + primitive.dy1);
            const double radius = std::abs(primitive.x2 / (picture_.right_ - picture_.left_)) * pixels_;
            if (primitive.kind == Primitive::Kind::kSegment || primitive.kind == Primitive::Kind::kMark)
                Segment(at, Place(primitive.x2 + primitive.dx2, primitive.y2 + primitive.dy2), primitive.color);
            else if (primitive.kind == Primitive::Kind::kDot)
                Dot(at, primitive.color);
            else
                Round(at, radius, primitive.color);
        }
        End_Path();
        return std::move(text_);
    }

   private:
    Point Place(double x, double y) const {
        return {(x - picture_.left_) / (picture_.right_ - picture_.left_) * pixels_,
                (y - picture_.top_) / (picture_.bottom_ - picture_.top_) * pixels_};
    }
    static std::string Pair(Point at) { return Number(at.x) + " " + Number(at.y); }

    // Segments that follow each other in one colour are one path; where one begins at the other's end they join.
    void Segment(Point from, Point to, Color color) {
        if (!Clip_Segment(seen_, from, to)) return;
        const bool goes_on = color_ == color;
        if (!goes_on) {
            End_Path();
            text_ += "<path stroke=\"" + Hex(color) + "\" d=\"";
        }
        if (!goes_on || end_ != from) text_ += "M" + Pair(from);
        text_ += "L" + Pair(to);
        color_ = color;
        end_ = to;
    }
    void Dot(Point at, Color color) {
        End_Path();
        if (seen_.Holds(at)) Element(at, thin_ + "\" fill=\"", color);
    }
    void Round(Point at, double radius, Color color) {
        if (radius > kVast) {
            const std::vector<Point> arc = Seen_Arc(seen_, at, radius, 0.01);
            Each_Piece(arc, [&](Point from, Point to) { Segment(from, to, color); });
            return;
        }
        End_Path();
        if (Circle_Seen(seen_, at, radius)) Element(at, Number(radius) + "\" stroke=\"", color);
    }
    void Element(Point at, const std::string& rest, Color color) {
        text_ += "<circle cx=\"" + Number(at.x) + "\" cy=\"" + Number(at.y) + "\" r=\"" + rest + Hex(color) + "\"/>\n";
    }
    void End_Path() {
        if (color_) text_ += "\"/>\n";
        color_.reset();
    }

    static constexpr double kVast = 1e5;  ///< a larger circle is written as the part of it that is seen
    const Picture& picture_;
    double pixels_;
    std::string thin_, text_;
    ClipBox seen_;
    std::optional<Color> color_;  ///< of the path that is being written
    Point end_{};
};

std::string Picture::Svg(int side) const {
    const std::string size = Number(side);
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + size + "\" height=\"" + size + "\" viewBox=\"0 0 " +
           size + " " + size + "\">\n<rect width=\"" + size + "\" height=\"" + size + "\" fill=\"" + Hex(back_) +
           "\"/>\n<g fill=\"none\" stroke-width=\"" + Number(side / 400.0) +
           "\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n" + SvgPen(*this, side).Written() +
           "</g>\n</svg>\n";
}

}  // namespace verlink::platform
