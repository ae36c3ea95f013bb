// What lies over a picture and is replaced as a whole: marks, arrows with their scales, names, a grid.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/clip.h"
#include "platform/surface.h"

namespace verlink::platform {

/// Places are world coordinates as the `Surface` has them, y downward. Widths, heads of arrows, rings and letters keep
/// their size on the screen, however closely the picture is looked at.
struct Overlay {
    struct Mark {
        enum class Kind {
            kLine,
            kDashes,
            kFaint,      ///< a line that stands back behind what is drawn
            kCircle,     ///< around `from`, as large as `radius`
            kRing,       ///< a small one around `from`
            kArrow,      ///< to `to`, with a filled head
            kOpenArrow,  ///< with two strokes for a head
            kNothing     ///< is drawn already, and names keep clear of it
        };
        Kind kind = Kind::kLine;
        Point from{}, to{};
        Color color = 0;
        double radius = 0;
        bool operator==(const Mark&) const = default;
    };
    struct Name {
        std::string text;
        Point at{};
        Point away{};  ///< the direction in which it had better stand; of any length
        Color color = 0;
        double radius = 0;  ///< world, unmagnified, of the pin that is drawn around the place
        bool operator==(const Name&) const = default;
    };
    /// A line of the legend. With a scale it begins with an arrow as long as a round number of units is.
    struct Legend {
        std::string text;
        Color color = 0;
        double per_world = 0;  ///< units in one of the world's; 0 for a line without a scale
        std::string unit = {};
        bool open = false;  ///< as its arrows are
        bool operator==(const Legend&) const = default;
    };
    /// Lines of round coordinates with their values: x as it is, and y as `sum` less it.
    struct Grid {
        double sum = 0;
        bool operator==(const Grid&) const = default;
    };
    enum class Corner { kTopLeft, kTopRight, kBottomLeft, kBottomRight };

    std::vector<Mark> marks;
    std::vector<Name> names;
    std::vector<Legend> legend;
    Corner corner = Corner::kTopLeft;  ///< of the legend
    std::optional<Grid> grid;

    bool Empty() const { return marks.empty() && names.empty() && legend.empty() && !grid; }
    bool operator==(const Overlay&) const = default;
};

/// What an overlay is painted with: places are pixels from the top left corner of what is seen.
class Overlay_Pen {
   public:
    enum class Stroke { kPlain, kDashed, kFaint };
    virtual ~Overlay_Pen() = default;
    virtual void Line(Point from, Point to, Stroke stroke, Color color) = 0;
    virtual void Circle(Point centre, double radius, Color color) = 0;
    virtual void Triangle(Point a, Point b, Point c, Color color) = 0;
    /// The paper under a legend or a name, through which what lies there is just to be seen.
    virtual void Paper(Point corner, double wide, double high) = 0;
    /// A line of text by its top left corner, in a font of `Text_High` pixels.
    virtual void Text(Point corner, const std::string& text, Color color) = 0;
    virtual double Text_Wide(const std::string& text) = 0;
    virtual double Text_High() = 0;
};

/// What of the world is seen: its corner and its extents, over so many pixels.
struct Sight {
    double left, top, wide, high;  ///< world, as seen: under a magnifier a part of the picture's window
    double across, down;           ///< pixels
    double magnified = 1;          ///< how much closer than the whole picture
};

void Draw_Overlay(const Overlay& overlay, const Sight& sight, Overlay_Pen& pen);

/// The largest of 1, 2 and 5 times a power of ten up to a positive value.
double Round_Down_1_2_5(double value);
/// The smallest from there on.
double Round_Up_1_2_5(double value);

}  // namespace verlink::platform
