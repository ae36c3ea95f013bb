// Cayley's diagram: the three cognates laid out with their coupler triangles between three ground lines.
#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "core/linkage_model.h"
#include "platform/guard.h"
#include "platform/screen.h"
#include "platform/surface.h"
#include "synthesis/cognates.h"

namespace verlink {

using platform::Color;

namespace {

struct Spot {
    double x, y;
};

Spot operator+(Spot a, Spot b) { return {a.x + b.x, a.y + b.y}; }
Spot operator*(double factor, Spot a) { return {factor * a.x, factor * a.y}; }

/// The points of the diagram, with O2 at the origin and the ground line of cognate 1, drawn out straight, along x.
struct Diagram {
    Spot O2, O4, O6, P;
    Spot A, B;    ///< moving joints of cognate 1, from O2
    Spot A2, B2;  ///< of cognate 2, from O2
    Spot A3, B3;  ///< of cognate 3, from O4
};

Diagram Laid_Out() {
    const CognateTable& rows = Model.CayleyRows;
    const double L2 = rows(1, 2), L3 = rows(1, 3), L4 = rows(1, 4), R = rows(1, 5), d = rows(1, 6);
    const double c2 = rows(2, 2), c3 = rows(2, 3), c4 = rows(2, 4), f = rows(3, 5);
    const Spot x{1, 0}, along_d{std::cos(d), std::sin(d)};
    Diagram to;
    to.O2 = {0, 0};
    to.O4 = (L3 + L2 + L4) * x;
    to.O6 = (c4 + c3 + c2) * along_d;
    to.A = L2 * x;
    to.B = (L2 + L3) * x;
    to.P = R * along_d + to.A;
    to.A2 = c4 * along_d;
    to.B2 = (c4 + c3) * along_d;
    to.A3 = f * x + to.P;
    to.B3 = (R + (L3 == 0 ? 0 : R * f / L3)) * along_d + to.A;
    return to;
}

/// Draws with P at the origin, y upward.
class Pen {
   public:
    Pen(platform::Surface& surface, Spot origin) : surface_(surface), origin_(origin) {}

    void Path(std::initializer_list<Spot> spots, Color color) {
        for (const Spot* spot = spots.begin(); spot + 1 != spots.end(); ++spot)
            surface_.Line(X(spot[0]), Y(spot[0]), X(spot[1]), Y(spot[1]), color);
    }

    void Disc(Spot center, double radius, Color color) {
        constexpr int kRings = 10;
        for (int ring = 1; ring <= kRings; ++ring) surface_.Pin(X(center), Y(center), radius * ring / kRings, color);
        surface_.Pin(X(center), Y(center), radius, Model.ColorBlack);
    }

   private:
    double X(Spot spot) const { return spot.x - origin_.x; }
    double Y(Spot spot) const { return -(spot.y - origin_.y); }

    platform::Surface& surface_;
    Spot origin_;
};

void Set_Window(platform::Surface& surface, const Diagram& at) {
    const double reach = std::max({std::abs(at.O4.x - at.P.x), std::abs(at.P.x), std::abs(at.O6.x - at.P.x),
                                   std::abs(at.P.y), std::abs(at.O6.y - at.P.y)});
    const double H = reach * 1.1 * Model.ZoomFactor;
    const double low = -H * Model.ZoomFactor;  // the zoom counts twice at the lower bound
    surface.Cls();
    surface.Scale(low, low, H, H);
}

}  // namespace

void DrawCayley() {
    Guarded("DrawCayley", [] {
        platform::With<platform::PictureBox>(
            "frm_Cayley", "Picture1", platform::kNoIndex, [](platform::PictureBox& picture) {
                const Diagram at = Laid_Out();
                platform::Surface& surface = picture.Canvas();
                Set_Window(surface, at);
                Pen pen(surface, at.P);
                pen.Path({at.O2, at.O4}, Model.ColorGreen);
                pen.Path({at.O4, at.O6}, Model.ColorRed);
                pen.Path({at.O6, at.O2}, Model.ColorBlue);
                // The third side of each coupler triangle lies on a side of the outer one.
                pen.Path({at.O2, at.A, at.P, at.B, at.O4}, Model.ColorGreen);
                pen.Path({at.O2, at.A2, at.P, at.B2, at.O6}, Model.ColorBlue);
                pen.Path({at.O4, at.A3, at.P, at.B3, at.O6}, Model.ColorRed);

                const double small = std::abs(at.O4.x * 0.015), large = std::abs(at.O4.x * 0.03);
                for (const Spot pivot : {at.O2, at.O4, at.O6}) {
                    pen.Disc(pivot, large, Model.ColorWhite);
                    pen.Disc(pivot, small, Model.ColorBlack);
                }
                pen.Disc(at.P, small, Model.ColorMagenta);
                for (const Spot joint : {at.A, at.B, at.A2, at.B2, at.A3, at.B3})
                    pen.Disc(joint, small, Model.ColorWhite);
            });
    });
}

std::array<std::complex<double>, 4> Cayley_Corners() {
    const Diagram at = Laid_Out();
    const auto seen = [&at](Spot spot) { return std::complex<double>(spot.x - at.P.x, at.P.y - spot.y); };
    return {seen(at.O2), seen(at.O4), seen(at.O6), seen(at.P)};
}

}  // namespace verlink
