// A magnifier over a picture, and how it moves.
#pragma once

namespace verlink::platform {

/// Which part of a picture is seen, and how closely. Parts are of its width and height, from the top left corner.
struct Glass {
    double factor = 1;                ///< 1 shows the whole picture
    double across = 0.5, down = 0.5;  ///< the part of the picture in the middle of what is seen
    bool operator==(const Glass&) const = default;

    /// Where a part of the picture is seen, in parts of what is seen, and back.
    double Seen_Across(double part) const { return (part - across) * factor + 0.5; }
    double Seen_Down(double part) const { return (part - down) * factor + 0.5; }
    double Part_Across(double seen) const { return across + (seen - 0.5) / factor; }
    double Part_Down(double seen) const { return down + (seen - 0.5) / factor; }
};

inline constexpr double kLeastGlass = 0.2, kMostGlass = 1000;

/// Closer by a factor; what is seen at a place, in parts of what is seen, stays there. The picture is never lost: its
/// window, or what lies beside it within the same width, is in the middle.
Glass Zoomed(const Glass& glass, double by, double seen_across, double seen_down);
/// What is seen moves by so many parts of what is seen.
Glass Moved(const Glass& glass, double right, double below);

}  // namespace verlink::platform
