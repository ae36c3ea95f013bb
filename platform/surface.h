// What the program draws on, in world coordinates.
#pragma once

namespace verlink::platform {

/// A colour as red + 256 green + 65536 blue, each 0 to 255.
using Color = int;
/// Of parts from 0 to 255.
constexpr Color Rgb(int red, int green, int blue) { return red + 256 * (green + 256 * blue); }

/// A square drawing surface with a current point. World x grows to the right and world y downward,
/// between the corners given to `Scale`. Calls that get a coordinate which is not finite raise failure 6.
class Surface {
   public:
    virtual ~Surface() = default;

    /// (x1, y1) becomes the top left corner, (x2, y2) the bottom right one; y grows upward where y1 is the larger.
    /// What is drawn already stays. A window that has no extent, or one that is not finite, below 1E-25 or beyond a
    /// single number, is failure 5, and the window before it stands.
    virtual void Scale(double x1, double y1, double x2, double y2) = 0;
    /// Clears to the back colour; the current point goes to the top left corner.
    virtual void Cls() = 0;
    /// Takes the back colour and clears.
    virtual void BackColor(Color color) = 0;
    /// 13, plain copy of the pen colour, is the only mode.
    virtual void DrawMode(int mode) = 0;
    /// A segment; the current point moves to its end.
    virtual void Line(double x1, double y1, double x2, double y2, Color color) = 0;
    /// A segment from the current point, which moves to its end.
    virtual void LineTo(double x, double y, Color color) = 0;
    /// A segment from the current point by an offset; the current point moves to its end.
    virtual void LineStep(double dx, double dy, Color color) = 0;
    /// An outline; the current point moves to the centre.
    virtual void Circle(double x, double y, double radius, Color color) = 0;
    /// A circle that marks a place: its size on the screen is the same however closely it is looked at.
    virtual void Pin(double x, double y, double radius, Color color) { Circle(x, y, radius, color); }
    /// A place of the world, and what it is off from it: that is as large on the screen however closely one looks.
    struct Beside {
        double x, y, dx = 0, dy = 0;
    };
    /// A segment of a mark, as heads of arrows have; the current point moves to its end.
    virtual void Mark(const Beside& from, const Beside& to, Color color) {
        Line(from.x + from.dx, from.y + from.dy, to.x + to.dx, to.y + to.dy, color);
    }
    /// One dot, which becomes the current point.
    virtual void PSet(double x, double y, Color color) = 0;
    /// The same in the pen's own colour, black.
    virtual void PSet(double x, double y) = 0;
};

}  // namespace verlink::platform
