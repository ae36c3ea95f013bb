// A picture on pixels: when more was drawn, only that is painted.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "platform/glass.h"
#include "platform/ink.h"
#include "platform/picture.h"

namespace verlink::platform {

/// Paints the list of a picture in its order. What was there at the painting before last, and is there still, is kept
/// as a sheet of its own, upon which the rest is painted: so a run that leaves its trace costs each frame only what it
/// adds, and what a frame draws and erases again does not touch the sheet. The pixels are always those of a picture
/// that is painted anew.
class PicturePixels {
   public:
    /// Pens, in pixels of a display of density 1.
    static constexpr double kPen = 1.2, kDot = 1.6;
    /// Lines that go on from one another are drawn at every half pixel.
    static constexpr double kThinnest = 0.5;
    static constexpr std::size_t kAll = std::numeric_limits<std::size_t>::max();

    /// Brings the pixels up to date: `wide` by `high` of them, `density` for each one of the pens' measures. The
    /// window of the picture fills `across` by `down` of those measures, or the pixels where none are given; under a
    /// glass the part of it that is seen does.
    void Paint(const Picture& picture, int wide, int high, double density = 1);
    void Paint(const Picture& picture, int wide, int high, double density, double across, double down,
               const Glass& glass = {});
    /// A picture that is painted from the start may take several paintings, each of at most about so many primitives,
    /// runs of one colour whole.
    void Paint_In_Turns(std::size_t most) { most_ = most; }
    /// Is the last painting not the whole picture?
    bool Behind() const { return behind_; }
    /// Gives the memory back; the next painting is from the start.
    void Release() { *this = {}; }

    int Wide() const { return wide_; }
    int High() const { return high_; }
    /// 0xFFRRGGBB, row by row from the top.
    const std::vector<std::uint32_t>& Pixels() const { return front_; }
    /// How many primitives the last painting went through.
    std::size_t Painted() const { return painted_; }

   private:
    class Hand;
    /// A sheet on which all that stands before a stroke of the list is painted.
    struct Sheet {
        std::uint32_t end = 0;
        std::size_t alive = 0;  ///< primitives on it
        std::vector<std::uint32_t> pixels = {};
    };

    bool Sheet_Holds(const Picture& picture) const;
    void Grow_Sheet(const Picture& picture, std::uint32_t end, const Hand& hand);
    std::uint32_t End_Of_Turn(const Picture& picture) const;

    int wide_ = 0, high_ = 0;
    double density_ = 1, across_ = 0, down_ = 0;
    Glass glass_;
    std::uint64_t epoch_ = 0;
    std::uint32_t seen_ = 0;  ///< strokes of the list at the last painting
    std::size_t painted_ = 0;
    std::size_t most_ = kAll;
    bool behind_ = false;
    std::vector<std::uint32_t> front_;
    Sheet sheet_;
    Ink ink_;
};

}  // namespace verlink::platform
