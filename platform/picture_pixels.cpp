// Runs of one colour go onto the pixels together, so a sheet may end only between two of them.
#include "platform/picture_pixels.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace verlink::platform {

namespace {

using Primitive = Picture::Primitive;
using List = std::vector<Primitive>;

std::uint32_t Opaque(Color color) {
    const auto bits = static_cast<std::uint32_t>(color);
    return 0xFF000000U | (bits & 255U) << 16U | (bits & 0xFF00U) | (bits >> 16U & 255U);
}

List::const_iterator Place_Of(const List& list, std::uint32_t stroke) {
    return std::ranges::lower_bound(list, stroke, {}, &Primitive::stroke);
}

List::const_iterator Next_Alive(const List& list, List::const_iterator at) {
    return std::find_if(at, list.end(), [](const Primitive& primitive) { return primitive.alive; });
}

/// The last that is alive before a place, or the place itself where there is none.
List::const_iterator Alive_Before(const List& list, List::const_iterator at) {
    for (auto before = at; before != list.begin();)
        if ((--before)->alive) return before;
    return at;
}

/// Does a run of one colour go on across this place?
bool Within_A_Run(const List& list, List::const_iterator at) {
    const auto before = Alive_Before(list, at);
    const auto after = Next_Alive(list, at);
    return before != at && after != list.end() && before->color == after->color;
}

/// The last place up to a stroke where one run has ended and another begun.
std::uint32_t Last_Break(const List& list, std::uint32_t stroke) {
    auto at = Place_Of(list, stroke);
    // The last run may go on.
    if (Next_Alive(list, at) == list.end()) at = Alive_Before(list, at);
    while (Within_A_Run(list, at)) at = Alive_Before(list, at);
    return at == list.end() ? stroke : at->stroke;
}

}  // namespace

/// Turns primitives into strokes on the ink and pours it where the colour changes.
class PicturePixels::Hand {
   public:
    Hand(const Picture& picture, double density, double across, double down, const Glass& glass, Ink& ink)
        : ink_(ink),
          pen_(kPen * density),
          dot_(kDot * density / 2),
          per_x_(across * density / (picture.Right() - picture.Left()) * glass.factor),
          per_y_(down * density / (picture.Bottom() - picture.Top()) * glass.factor),
          pin_(std::abs(per_x_) / glass.factor),
          mark_x_(per_x_ / glass.factor),
          mark_y_(per_y_ / glass.factor),
          left_(picture.Left() + (picture.Right() - picture.Left()) * glass.Part_Across(0)),
          top_(picture.Top() + (picture.Bottom() - picture.Top()) * glass.Part_Down(0)) {}

    std::size_t Draw(List::const_iterator from, List::const_iterator to, std::vector<std::uint32_t>& pixels) const {
        std::size_t drawn = 0;
        Chain chain{ink_, pen_};
        const Primitive* last = nullptr;
        const auto pour = [&] {
            chain.End();
            if (last) ink_.Pour(pixels, last->color);
        };
        for (auto at = from; at != to; ++at) {
            if (!at->alive) continue;
            if (last && at->color != last->color) pour();
            last = &*at;
            Stroke(*at, chain);
            ++drawn;
        }
        pour();
        return drawn;
    }

   private:
    /// Segments that go on from one another.
    struct Chain {
        Ink& ink;
        double pen;
        Point drawn{}, end{};
        bool open = false, bare = true;

        void Add(Point from, Point to, Point drawn_from, Point drawn_to) {
            if (!open || from != end) {
                End();
                drawn = from;
                open = bare = true;
            }
            end = to;
            // One along an axis has its place among the pixels.
            if (drawn_from != from) {
                if (drawn != from) ink.Line(drawn, from, pen);
                ink.Line(drawn_from, drawn_to, pen);
            } else if (std::hypot(to.x - drawn.x, to.y - drawn.y) >= kThinnest) {
                ink.Line(drawn, to, pen);
            } else {
                return;
            }
            drawn = to;
            bare = false;
        }
        void End() {
            if (open && (bare || drawn != end)) ink.Line(drawn, end, pen);
            open = false;
        }
    };

    // A line along an axis of the screen goes through the middles of pixels, or it would be grey and two wide.
    static void Align(Point& from, Point& to) {
        const auto middle = [](double value) { return std::floor(value) + 0.5; };
        if (from.y == to.y)
            from.y = to.y = middle(from.y);
        else if (from.x == to.x)
            from.x = to.x = middle(from.x);
    }
    Point Place(double x, double y) const { return {(x - left_) * per_x_, (y - top_) * per_y_}; }

    void Stroke(const Primitive& primitive, Chain& chain) const {
        const Point from = Place(primitive.x1, primitive.y1);
        switch (primitive.kind) {
            case Primitive::Kind::kSegment: {
                const Point to = Place(primitive.x2, primitive.y2);
                Point drawn_from = from, drawn_to = to;
                Align(drawn_from, drawn_to);
                chain.Add(from, to, drawn_from, drawn_to);
                break;
            }
            case Primitive::Kind::kCircle: ink_.Circle(from, primitive.x2 * std::abs(per_x_), pen_); break;
            case Primitive::Kind::kPin: ink_.Circle(from, primitive.x2 * pin_, pen_); break;
            case Primitive::Kind::kMark: {
                const Point to = Place(primitive.x2, primitive.y2);
                Point start{from.x + primitive.dx1 * mark_x_, from.y + primitive.dy1 * mark_y_};
                Point end{to.x + primitive.dx2 * mark_x_, to.y + primitive.dy2 * mark_y_};
                Align(start, end);
                ink_.Line(start, end, pen_);
                break;
            }
            case Primitive::Kind::kDot: ink_.Disc(from, dot_); break;
        }
    }

    Ink& ink_;
    double pen_, dot_, per_x_, per_y_;
    double pin_;  ///< pixels in one unit of a pin's radius
    double mark_x_, mark_y_;
    double left_, top_;  ///< world, of what is seen
};

bool PicturePixels::Sheet_Holds(const Picture& picture) const {
    const List& list = picture.Primitives();
    const auto end = Place_Of(list, sheet_.end);
    const auto alive = std::count_if(list.begin(), end, [](const Primitive& primitive) { return primitive.alive; });
    return static_cast<std::size_t>(alive) == sheet_.alive && !Within_A_Run(list, end);
}

void PicturePixels::Grow_Sheet(const Picture& picture, std::uint32_t end, const Hand& hand) {
    end = std::max(end, sheet_.end);
    const List& list = picture.Primitives();
    const auto from = Place_Of(list, sheet_.end), to = Place_Of(list, end);
    if (sheet_.pixels.empty() && Next_Alive(list, from) < to)
        sheet_.pixels.assign(front_.size(), Opaque(picture.Back()));
    const std::size_t drawn = hand.Draw(from, to, sheet_.pixels);
    sheet_.alive += drawn;
    painted_ += drawn;
    sheet_.end = end;
}

/// The stroke before which this painting ends.
std::uint32_t PicturePixels::End_Of_Turn(const Picture& picture) const {
    const List& list = picture.Primitives();
    auto at = Place_Of(list, sheet_.end);
    for (std::size_t left = most_; at != list.end() && left > 0; ++at) left -= static_cast<std::size_t>(at->alive);
    while (at != list.end() && Within_A_Run(list, at)) ++at;
    return at == list.end() ? picture.Strokes() : at->stroke;
}

void PicturePixels::Paint(const Picture& picture, int wide, int high, double density) {
    Paint(picture, wide, high, density, wide / density, high / density);
}

void PicturePixels::Paint(const Picture& picture, int wide, int high, double density, double across, double down,
                          const Glass& glass) {
    if (wide != wide_ || high != high_) {
        wide_ = wide;
        high_ = high;
        ink_ = Ink(wide, high);
        front_.resize(static_cast<std::size_t>(wide) * static_cast<std::size_t>(high));
        sheet_ = {};
        seen_ = 0;
    }
    if (epoch_ != picture.Epoch() || density != density_ || across != across_ || down != down_ || glass != glass_) {
        seen_ = 0;
        sheet_ = {};
    }
    epoch_ = picture.Epoch();
    density_ = density;
    across_ = across;
    down_ = down;
    glass_ = glass;
    painted_ = 0;

    const List& list = picture.Primitives();
    const Hand hand(picture, density, across, down, glass, ink_);
    const bool lost = !Sheet_Holds(picture);
    if (lost) {
        sheet_.end = 0;
        sheet_.alive = 0;
        std::ranges::fill(sheet_.pixels, Opaque(picture.Back()));
    }
    // Where what turns had painted is erased again meanwhile, they might never come to an end.
    const std::uint32_t turn = seen_ > 0 || lost ? picture.Strokes() : End_Of_Turn(picture);
    behind_ = turn < picture.Strokes();
    Grow_Sheet(picture, behind_ ? turn : Last_Break(list, seen_), hand);
    if (sheet_.alive > 0)
        front_ = sheet_.pixels;
    else
        std::ranges::fill(front_, Opaque(picture.Back()));
    if (behind_) return;
    painted_ += hand.Draw(Place_Of(list, sheet_.end), list.end(), front_);
    seen_ = picture.Strokes();
}

}  // namespace verlink::platform
