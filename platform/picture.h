// A surface that remembers: a list of primitives that can be painted at any size, printed and written as SVG.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/surface.h"

namespace verlink::platform {

/// Keeps what is drawn as a list. Drawing a primitive again in the back colour takes the earlier one out of the
/// list, so that erasing leaves neither fringes nor holes in other curves; drawing it again in another colour, or
/// in the same, moves it to the top. A primitive in the back colour that matches no earlier one stays, as a
/// stroke in the back colour, unless it was itself erased since the last stroke was added: what was drawn twice may
/// be erased twice. Two primitives are the same when their kind and their coordinates, rounded to 2^-24 of the
/// window, agree: what a single number tells apart. Coarser, and positions of a run would count as the same that only
/// lie near each other.
class Picture : public Surface {
   public:
    struct Primitive {
        enum class Kind : std::uint8_t { kSegment, kCircle, kDot, kPin, kMark };
        Kind kind;
        bool alive;
        Color color;
        std::uint32_t stroke;  ///< grows from one to the next of the list
        double x1, y1;         ///< start, centre or dot, world
        double x2, y2;         ///< end of a segment; for a circle or a pin x2 is the radius
        /// What the ends of a mark are off from there; 0 of all else.
        float dx1 = 0, dy1 = 0, dx2 = 0, dy2 = 0;
    };

    void Scale(double x1, double y1, double x2, double y2) override;
    void Cls() override;
    void BackColor(Color color) override;
    void DrawMode(int mode) override;
    void Line(double x1, double y1, double x2, double y2, Color color) override;
    void LineTo(double x, double y, Color color) override;
    void LineStep(double dx, double dy, Color color) override;
    void Circle(double x, double y, double radius, Color color) override;
    void Pin(double x, double y, double radius, Color color) override;
    void Mark(const Beside& from, const Beside& to, Color color) override;
    void PSet(double x, double y, Color color) override;
    void PSet(double x, double y) override;

    /// In drawing order; those not `alive` were erased and are to be skipped.
    const std::vector<Primitive>& Primitives() const { return list_; }
    std::size_t Alive() const { return alive_; }
    Color Back() const { return back_; }
    double Left() const { return left_; }
    double Top() const { return top_; }
    double Right() const { return right_; }
    double Bottom() const { return bottom_; }
    /// Grows with every change, so that a painter knows when its image is stale.
    std::uint64_t Revision() const { return revision_; }
    /// Another one whenever all that was drawn has gone or moved: until then, what is added comes behind.
    std::uint64_t Epoch() const { return epoch_; }
    /// How many strokes were added since the list was empty; the next one has this number.
    std::uint32_t Strokes() const { return strokes_; }

    /// The picture as a square SVG document, `side` pixels wide, with all its points that are to be seen.
    std::string Svg(int side) const;

    /// Raised after every change; for the toolkit's side.
    std::function<void()> Changed;

   private:
    class SvgPen;
    /// What a primitive is known by: its kind and its rounded coordinates.
    using Key = std::array<std::int64_t, 5>;
    struct Found {
        std::uint32_t item;    ///< of list_, from 1; 0 for none
        std::uint32_t erased;  ///< the value of strokes_ when it was
    };

    void Add(Primitive::Kind kind, Color color, double x1, double y1, double x2, double y2);
    void Add(Primitive primitive);
    void Segment(double x1, double y1, double x2, double y2, Color color);
    void Round(Primitive::Kind kind, double x, double y, double radius, Color color);
    Key KeyOf(const Primitive& primitive) const;
    /// Where in the index the primitive of that key is, or is to be.
    std::size_t Place_Of(const Key& key) const;
    /// Forgets the dead primitives and builds the index anew, with room for as many again.
    void Compact();
    void Clear();
    void Touch() {
        ++revision_;
        if (Changed) Changed();
    }

    std::vector<Primitive> list_;
    std::vector<Found> index_;   ///< open addressing, a power of two, at most half full
    std::uint32_t strokes_ = 0;  ///< how many were added to the list since it was empty
    std::size_t alive_ = 0;
    Color back_ = 0xFFFFFF;
    double left_ = 0, top_ = 0, right_ = 1, bottom_ = 1;
    double across_ = kGrid, down_ = kGrid;  ///< grid lines of the rounding in one unit of world x and y
    double x_ = 0, y_ = 0;                  ///< the current point
    std::uint64_t revision_ = 0, epoch_ = 0;

    static constexpr double kGrid = 1 << 24;
};

}  // namespace verlink::platform
