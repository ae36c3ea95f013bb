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

    int Width() const { return width_; }
    int Height() const { return height_; }

    /// A line with round ends.
    void Line(Point from, Point to, double width);
    /// Upright lines, each as `Line` draws it. However close they stand, no pixel is covered more than once.
    struct Upright {
        double x, y1, y2;
    };
    void Lines(const std::vector<Upright>& lines, double width);
    void Circle(Point centre, double radius, double width);
    /// A filled one.
    void Disc(Point centre, double radius);
    /// Whole pixels, `right` and `bottom` just beyond.
    struct Area {
        int left, top, right, bottom;
    };
    /// What encloses all that is covered; nothing is in an area whose `right` is 0.
    Area Covered() const;

    /// Onto pixels of 0xFFRRGGBB, row by row from the top, as many as the sheet has; the sheet is empty again.
    void Pour(std::vector<std::uint32_t>& pixels, Color color);
    /// Onto pixels that are all 0, as 0xAARRGGBB with the colour multiplied by `alpha`, of 255, and by what is covered.
    void Pour_Upon_Nothing(std::vector<std::uint32_t>& pixels, Color color, int alpha);

   private:
    struct Stroke;
    struct Ring;
    /// From where strokes get onto the sheet, with as much again for what is cut off far away.
    ClipBox Within(double reach) const { return ClipBox{0, 0, double(width_), double(height_)}.Grown(2 * reach); }
    /// Eight pixels of a row beside each other, which are covered in one go; the last of a row may reach beyond it.
    struct Block {
        std::uint32_t row, place;
    };
    /// Calls action(column of the first pixel) for the blocks between two places of a row.
    template <class Action>
    void Each_Block(double from, double to, Action action) const;
    /// By so much of 255, eight times; less than 0 is nothing, and more than 255 all.
    template <class Parts>
    void Cover(int row, int column, const Parts& parts);
    void Put(int row, std::size_t place, std::uint64_t parts);
    /// What `Line` does of a stroke near its ends; gives back the rows between.
    struct Rows {
        int first, last;
    };
    Rows Cover_Ends(const Stroke& stroke);
    void Cover_Around(const Stroke& stroke, int first, int last);
    void Cover_Between(const Stroke& stroke, int first, int last);
    void Ring_Row(int row, const Ring& ring);
    /// Calls action(first pixel, how many, a byte for each of them) for what is covered, and empties the sheet.
    template <class Action>
    void Empty(Action action);

    int width_ = 0, height_ = 0;
    std::size_t blocks_ = 0;              ///< in a row
    std::vector<std::uint64_t> covered_;  ///< of each block, a byte for a pixel, the lowest first: 255 for all of it
    std::vector<Block> touched_;          ///< those that are not 0 there
};

}  // namespace verlink::platform
