// How the dyads are drawn, and where their names belong.
#include "synthesis/dyad_diagram.h"

#include <algorithm>
#include <cmath>

#include "core/linkage_model.h"
#include "core/number.h"
#include "platform/guard.h"

namespace verlink {

using platform::Color;
using Vector = DyadFigure::Vector;

namespace {

constexpr double kCloses = 1e-3;    ///< of the lengths involved, by which a dyad may miss its position
constexpr double kHangs = 1e-2;     ///< the same by which it may miss its pivot
constexpr double kStraight = 0.05;  ///< degrees below which an angle has no arc

// Parts of the window's side.
constexpr double kAir = 0.14;
constexpr double kThick = 0.0022;
constexpr double kHead = 0.026;
constexpr double kPin = 0.008;
constexpr double kPivotSize = 0.024;
constexpr double kArc = 0.075;
constexpr double kArcStep = 0.032;
constexpr double kDash = 0.012;

Vector Turn(double degrees) { return std::polar(1.0, degrees * kDegToRad); }
double Direction(Vector v) { return std::arg(v) * kRadToDeg; }
/// As `Cart_to_Polar` tells it.
double Told_Direction(Vector v) {
    const double angle = Direction(v);
    return angle < -90 ? angle + 360 : angle;
}

/// The middle of an angle, or of what it has beyond the one before it.
double Free_Middle(double before, double angle) {
    return before * angle > 0 && std::abs(before) < std::abs(angle) ? (before + angle) / 2 : angle / 2;
}

/// A shade between the colour and white.
Color Lighter(Color color) {
    constexpr double kShare = 0.6;
    Color shade = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const int part = (color >> shift) & 0xFF;
        shade |= static_cast<int>(part + (0xFF - part) * kShare) << shift;
    }
    return shade;
}

/// What one dyad is made of.
struct Dyad {
    Vector ground, link, arm;  ///< the pivot, W or U, Z or S; the coupler point of position 1 is the origin
    double link_angle, arm_angle;
    std::array<double, 3> turns;
    Color color;

    Vector Pin(int j) const { return ground + link * Turn(turns[static_cast<std::size_t>(j)]); }
};

bool Reaches(Vector link, Vector arm, const std::array<double, 3>& turns, const DyadFigure& figure) {
    if (std::abs(link) + std::abs(arm) == 0) return false;
    for (std::size_t j = 1; j < static_cast<std::size_t>(figure.positions); ++j) {
        const Vector moved = link * (Turn(turns[j]) - 1.0) + arm * (Turn(figure.alpha[j]) - 1.0);
        const double lengths = std::abs(link) + std::abs(arm) + std::abs(figure.P[j]);
        if (!(std::abs(moved - figure.P[j]) <= kCloses * lengths)) return false;
    }
    return true;
}

/// A dyad that was to be found for a given pivot, seen from the coupler point in position 1.
bool Hangs_On(Vector link, Vector arm, Vector pivot) {
    return std::abs(link + arm + pivot) <= kHangs * (std::abs(link) + std::abs(arm) + std::abs(pivot));
}

class Drawing {
   public:
    Drawing(platform::Surface& surface, const DyadFigure& figure) : surface_(surface), f_(figure) {
        left_ = {-f_.W - f_.Z, f_.W, f_.Z, f_.theta, f_.phi, f_.beta, Model.ColorBlue};
        right_ = {-f_.U - f_.S, f_.U, f_.S, f_.sigma, f_.xi, f_.gamma, Model.ColorRed};
        Fit();
    }

    std::vector<DyadMark> Draw() {
        surface_.Scale(corner_.real(), corner_.imag() + side_, corner_.real() + side_, corner_.imag());
        surface_.BackColor(Model.ColorWhite);
        Ground();
        for (int j = f_.positions - 1; j >= 0; --j) Position(j);
        Displacements();
        Angles_Of(left_, "Theta", "Phi", "Beta");
        Angles_Of(right_, "Sigma", "Xi", "Gamma");
        Coupler_Angles();
        Pivot(left_.ground, "O2");
        Pivot(right_.ground, "O4");
        for (int j = 0; j < f_.positions; ++j) Pins(j);
        Names();
        return std::move(marks_);
    }

   private:
    Vector P(int j) const { return f_.P[static_cast<std::size_t>(j)]; }
    double Alpha(int j) const { return f_.alpha[static_cast<std::size_t>(j)]; }

    /// The window: square, around all points, with room for names.
    void Fit() {
        double x1{}, x2{}, y1{}, y2{};
        const auto widen = [&](Vector v) {
            x1 = std::min(x1, v.real());
            x2 = std::max(x2, v.real());
            y1 = std::min(y1, v.imag());
            y2 = std::max(y2, v.imag());
        };
        for (const Dyad* dyad : {&left_, &right_}) {
            widen(dyad->ground);
            for (int j = 0; j < f_.positions; ++j) widen(dyad->Pin(j));
        }
        for (int j = 1; j < f_.positions; ++j) widen(P(j));
        const double extent = std::max({x2 - x1, y2 - y1, 1e-6});
        side_ = extent / (1 - 2 * kAir);
        corner_ = Vector((x1 + x2 - side_) / 2, (y1 + y2 - side_) / 2);
    }

    // Pieces.

    void Line(Vector from, Vector to, Color color) {
        surface_.Line(from.real(), from.imag(), to.real(), to.imag(), color);
    }
    /// From beside one place to beside another: what it is off there stays as large however closely one looks.
    void Beside(Vector from, Vector off, Vector to, Vector far, Color color) {
        surface_.Mark({from.real(), from.imag(), off.real(), off.imag()},
                      {to.real(), to.imag(), far.real(), far.imag()}, color);
    }
    void Thick_Line(Vector from, Vector to, Color color) {
        const Vector along = to - from;
        if (std::abs(along) == 0) return;
        const Vector aside = Vector(0, 1) * along / std::abs(along) * (kThick * side_);
        for (const double part : {-1.0, -0.5, 0.5, 1.0}) Beside(from, part * aside, to, part * aside, color);
        Line(from, to, color);
    }
    void Dashes(Vector from, Vector to, Color color) {
        const double length = std::abs(to - from);
        const int dashes = static_cast<int>(length / (2 * kDash * side_)) + 1;
        for (int i = 0; i < dashes; ++i)
            Line(from + (to - from) * (i / static_cast<double>(dashes)),
                 from + (to - from) * ((i + 0.5) / static_cast<double>(dashes)), color);
    }
    /// A filled head with its tip there; never longer than a good part of what it ends.
    void Head(Vector tip, Vector direction, double length, Color color) {
        if (std::abs(direction) == 0) return;
        const Vector back = -direction / std::abs(direction) * std::min(kHead * side_, 0.4 * length);
        constexpr int kStrokes = 6;
        for (int i = -kStrokes; i <= kStrokes; ++i) Beside(tip, 0, tip, back * Vector(1, 0.36 * i / kStrokes), color);
    }
    void Arrow(Vector from, Vector to, Color color, bool thick) {
        if (thick)
            Thick_Line(from, to, color);
        else
            Line(from, to, color);
        Head(to, to - from, std::abs(to - from), color);
    }
    /// From one direction on by so many degrees, with a head at its end.
    void Arc(Vector center, double from, double sweep, double radius, Color color) {
        if (std::abs(sweep) < kStraight) return;
        constexpr double kDegreesAPiece = 4;
        const int pieces = static_cast<int>(std::abs(sweep) / kDegreesAPiece) + 2;
        Vector last = center + radius * Turn(from);
        for (int i = 1; i <= pieces; ++i) {
            const Vector next = center + radius * Turn(from + sweep * i / pieces);
            Line(last, next, color);
            last = next;
        }
        const double length = radius * std::abs(sweep) * kDegToRad;
        // The head is a chord of the arc: it leans inward by half of what it spans.
        const double spans = std::min(kHead * side_, 0.4 * length) / radius * kRadToDeg;
        const Vector tangent = Vector(0, sweep) * Turn(from + sweep - std::copysign(spans / 2, sweep));
        Head(last, tangent, length, color);
    }
    /// An angle far out may reach beyond the window; its name stays at the edge.
    void Mark(std::string name, Vector place, Vector towards) {
        const Vector part = (place - corner_) / side_;
        marks_.push_back({std::move(name),
                          {std::clamp(part.real(), 0.0, 1.0), 1 - std::clamp(part.imag(), 0.0, 1.0), towards.real(),
                           -towards.imag()}});
    }

    // Parts of the diagram.

    void Ground() {
        const Vector along = right_.ground - left_.ground;
        Dashes(left_.ground, right_.ground, Model.ColorGray);
        const double angle = Told_Direction(along);
        const double radius = 2.6 * kArc * side_;
        if (std::abs(angle) > 1) {
            Dashes(left_.ground, left_.ground + radius * 1.25, Model.ColorGray);
            Arc(left_.ground, 0, angle, radius, Model.ColorBlack);
            Mark("Theta1", left_.ground + radius * Turn(angle / 2), Turn(angle / 2));
        } else {
            Mark("Theta1", left_.ground + along / 2.0, {0, -1});
        }
    }

    /// The coupler and the four vectors.
    void Position(int j) {
        const bool first = j == 0;
        const Vector A = left_.Pin(j), B = right_.Pin(j), point = P(j);
        Line(A, B, first ? Model.ColorGray : Lighter(Model.ColorGray));
        for (const Dyad* dyad : {&left_, &right_}) {
            const Color color = first ? dyad->color : Lighter(dyad->color);
            Arrow(dyad->ground, dyad->Pin(j), color, first);
            Arrow(dyad->Pin(j), point, color, first);
        }
    }

    void Displacements() {
        for (int j = 1; j < f_.positions; ++j) {
            const std::string number = std::to_string(j + 1);
            Arrow(P(0), P(j), Model.ColorMagenta, true);
            // Beside the vector, on the side away from the coupler.
            const Vector aside = Vector(0, 1) * P(j);
            const Vector inward = left_.Pin(0) + right_.Pin(0);
            const bool flip = (aside * std::conj(inward)).real() > 0;
            Mark("P" + number + "1", P(j) / 2.0, flip ? -aside : aside);
            const double angle = Told_Direction(P(j));
            const double before = j == 2 ? Told_Direction(P(1)) : 0;
            const double radius = (kArc + (j - 1) * kArcStep) * side_;
            const std::string name = f_.positions == 2 ? "Delta" : "Delta" + number;
            if (std::abs(P(j)) == 0) continue;
            if (j == 1) Dashes(P(0), P(0) + 1.5 * kArc * side_, Model.ColorGray);
            Arc(P(0), 0, angle, radius, Model.ColorBlack);
            const Vector middle = Turn(Free_Middle(before, angle));
            Mark(name, P(0) + radius * middle, middle);
        }
    }

    /// An angle from the x direction at a point, with its reference line, and its own line where the vector lies
    /// elsewhere, as one of negative length does.
    void Direction_Angle(const char* name, Vector at, Vector vector, double angle) {
        const double told = std::fmod(angle, 360);
        const double radius = kArc * side_;
        Dashes(at, at + 1.5 * radius, Model.ColorGray);
        if (std::abs(vector) > 0 && std::abs(Direction(vector * Turn(-told))) > 1)
            Dashes(at, at + 1.5 * radius * Turn(told), Model.ColorGray);
        Arc(at, 0, told, radius, Model.ColorBlack);
        Mark(name, at + radius * Turn(told / 2), Turn(told / 2));
    }

    void Angles_Of(const Dyad& dyad, const char* link_angle, const char* arm_angle, const std::string& turn) {
        Direction_Angle(link_angle, dyad.ground, dyad.link, dyad.link_angle);
        Direction_Angle(arm_angle, dyad.Pin(0), dyad.arm, dyad.arm_angle);
        const double from = Direction(dyad.link);
        double before = 0;
        for (int j = 1; j < f_.positions; ++j) {
            const double sweep = std::fmod(dyad.turns[static_cast<std::size_t>(j)], 360);
            const double radius = (kArc + (j + 0.4) * kArcStep) * side_;
            Arc(dyad.ground, from, sweep, radius, Model.ColorBlack);
            const Vector middle = Turn(from + Free_Middle(before, sweep));
            Mark(turn + std::to_string(j + 1), dyad.ground + radius * middle, middle);
            before = sweep;
        }
    }

    /// At the left pin of each later position: from where Z pointed to where it points.
    void Coupler_Angles() {
        const double from = Direction(left_.arm);
        for (int j = 1; j < f_.positions; ++j) {
            const double sweep = std::fmod(Alpha(j), 360);
            const double radius = 1.35 * kArc * side_;
            const Vector at = left_.Pin(j);
            Dashes(at, at + 1.35 * radius * Turn(from), Model.ColorGray);
            Arc(at, from, sweep, radius, Model.ColorBlack);
            Mark("Alpha" + std::to_string(j + 1), at + radius * Turn(from + sweep / 2), Turn(from + sweep / 2));
        }
    }

    void Disc(Vector center, double radius, Color rim) {
        constexpr int kRings = 4;
        for (int i = 1; i < kRings; ++i)
            surface_.Pin(center.real(), center.imag(), radius * i / kRings, Model.ColorWhite);
        surface_.Pin(center.real(), center.imag(), radius, rim);
    }

    /// A ground pivot: a triangle on hatched ground.
    void Pivot(Vector at, const char* name) {
        const double size = kPivotSize * side_;
        const auto line = [&](Vector from, Vector to) { Beside(at, from * size, at, to * size, Model.ColorBlack); };
        const Vector left(-0.8, -1.5), right(0.8, -1.5), over(0.4, 0);
        line(0, left);
        line(0, right);
        line(left - over, right + over);
        constexpr int kHatches = 5;
        for (int i = 0; i <= kHatches; ++i) {
            const Vector top = left - over + (right - left + 2.0 * over) * (i / static_cast<double>(kHatches));
            line(top, top + Vector(-0.35, -0.45));
        }
        Disc(at, kPin * 1.3 * side_, Model.ColorBlack);
        Mark(name, at + Vector(0, -1.9) * size, {0, -1});
    }

    void Pins(int j) {
        for (const Dyad* dyad : {&left_, &right_})
            Disc(dyad->Pin(j), kPin * side_, j == 0 ? Model.ColorBlack : Model.ColorGray);
        surface_.Pin(P(j).real(), P(j).imag(), kPin * 0.6 * side_, Model.ColorMagenta);
    }

    /// Vectors of position 1 are named beside their middles, away from the rest; coupler points away from the coupler.
    void Names() {
        const Vector middle = (left_.ground + right_.ground + left_.Pin(0) + right_.Pin(0)) / 5.0;
        const auto beside = [&](const char* name, Vector from, Vector along) {
            const Vector at = from + along / 2.0;
            Vector aside = Vector(0, 1) * along;
            if ((aside * std::conj(at - middle)).real() < 0) aside = -aside;
            Mark(name, at, aside);
        };
        beside("W", left_.ground, left_.link);
        beside("Z", left_.Pin(0), left_.arm);
        beside("U", right_.ground, right_.link);
        beside("S", right_.Pin(0), right_.arm);
        for (int j = 0; j < f_.positions; ++j)
            Mark("P" + std::to_string(j + 1), P(j), 2.0 * P(j) - left_.Pin(j) - right_.Pin(j));
    }

    platform::Surface& surface_;
    const DyadFigure& f_;
    Dyad left_, right_;
    Vector corner_;    ///< bottom left of the window
    double side_ = 1;  ///< of the window
    std::vector<DyadMark> marks_;
};

}  // namespace

DyadFigure Dyads_In_Force(int positions) {
    DyadFigure f;
    f.positions = positions;
    f.W = Vector(Model.SynWx, Model.SynWy);
    f.Z = Vector(Model.SynZx, Model.SynZy);
    f.U = Vector(Model.SynUx, Model.SynUy);
    f.S = Vector(Model.SynSx, Model.SynSy);
    f.theta = Model.SynTheta;
    f.phi = Model.SynPhi;
    f.sigma = Model.SynSigma;
    f.xi = Model.SynXi;
    f.alpha = {0, Model.SynAlpha2, Model.SynAlpha3};
    f.beta = {0, Model.SynBeta2, Model.SynBeta3};
    f.gamma = {0, Model.SynGamma2, Model.SynGamma3};
    f.P = {0, Vector(Model.P21x, Model.P21y), Vector(Model.P31x, Model.P31y)};
    f.to_scale = Reaches(f.W, f.Z, f.beta, f) && Reaches(f.U, f.S, f.gamma, f);
    if (positions == 3 && Model.SpecifiedPivots) {
        const Vector P1(Model.P1x, Model.P1y);
        f.to_scale = f.to_scale && Hangs_On(f.W, f.Z, Vector(Model.O2x, Model.O2y) - P1) &&
                     Hangs_On(f.U, f.S, Vector(Model.O4x, Model.O4y) - P1);
    }
    // No picture holds more.
    constexpr double kLargest = 1e12;
    for (const Vector& vector : {f.W, f.Z, f.U, f.S}) f.to_scale = f.to_scale && std::abs(vector) < kLargest;
    return f.to_scale ? f : Dyad_Sketch(positions);
}

DyadFigure Dyad_Sketch(int positions) {
    DyadFigure f;
    f.positions = positions;
    if (positions == 2) {
        f.W = {2.1740, 2.3926};
        f.Z = {-0.9421, 1.9643};
        f.U = {-0.4210, 3.7742};
        f.S = {-3.5614, -0.1647};
        f.alpha = {0, -27.022, 0};
        f.beta = {0, 44.906, 0};
        f.gamma = {0, 26.538, 0};
        f.P = {0, {-1.3280, 1.0503}, 0};
    } else {
        f.W = {2.1862, 2.2843};
        f.Z = {-1.3491, 1.9450};
        f.U = {0.0322, 3.5523};
        f.S = {-3.2678, -0.1873};
        f.alpha = {0, -27.898, -54.929};
        f.beta = {0, 43.289, 86.578};
        f.gamma = {0, 22.928, 72.325};
        f.P = {0, {-1.0943, 1.2827}, {-2.1702, 0.3110}};
    }
    f.theta = Direction(f.W);
    f.phi = Direction(f.Z);
    f.sigma = Direction(f.U);
    f.xi = Direction(f.S);
    return f;
}

std::vector<DyadMark> Draw_Dyads(platform::Surface& surface, const DyadFigure& figure) {
    std::vector<DyadMark> marks;
    Guarded("Draw_Dyads", [&] { marks = Drawing(surface, figure).Draw(); });
    return marks;
}

}  // namespace verlink
