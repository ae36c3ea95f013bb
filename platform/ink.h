// The strokes of one colour on pixels, with smooth edges.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/clip.h"
#include "platform/surface.h"

namespace verlink::platform {

/// Gathers how much of each pixel the strokes cover, and pours the colour. Where strokes overlap, a pixel counts as the
/// one that covers most of it: in which order they came, and in how many pieces, cannot be seen. All measures are
/// pixels, from the top left corner of the first one; what lies outside costs nothing.
class Ink {
   public:
    Ink() = default;
    /// An empty sheet; `width` and `height` whole pixels.
    Ink(int width, int height);

    /// A line with round ends.
    void Line(Point from, Point to, double width);
    void Circle(Point centre, double radius, double width);
    /// A filled one.
    void Disc(Point centre, double radius);
    /// Onto pixels of 0xFFRRGGBB, row by row from the top, as many as the sheet has; the sheet is empty again.
    void Pour(std::vector<std::uint32_t>& pixels, Color color);
    /// Onto pixels that are all 0, as 0xAARRGGBB with the colour multiplied by `alpha`, of 255, and by what is covered.
    void Pour_Upon_Nothing(std::vector<std::uint32_t>& pixels, Color color, int alpha);

   private:
    struct Stroke;
    /// By so many of 255 parts, or by a part of the whole; none are below zero.
    void Cover(std::size_t pixel, int part);
    void Cover(std::size_t pixel, double part);
    template <bool kSteep>
    void Walk(const Stroke& stroke);
    void Ring_Row(int row, Point centre, double radius, double half);
    template <class Part>
    void Cover_Span(int row, double from, double to, Part part);

    int width_ = 0, height_ = 0;
    std::vector<std::uint8_t> covered_;   ///< of each pixel, 255 for all of it
    std::vector<std::uint32_t> touched_;  ///< the pixels that are not 0 there
};

}  // namespace verlink::platform
