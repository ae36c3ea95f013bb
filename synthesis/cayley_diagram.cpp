// Cayley's diagram: the three cognates laid out with their coupler triangles between three ground lines.
#include <algorithm>
#include <cmath>
#include <complex>
#include <initializer_list>

#include "core/linkage_model.h"
#include "platform/guard.h"
#include "platform/screen.h"
#include "platform/surface.h"
#include "synthesis/cognates.h"

namespace verlink {

using platform::Color;

namespace {

using Spot = std::complex<double>;

Cayley_Layout In_Force() { return Cayley_Laid_Out(Model.CayleyRows); }

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
    double X(Spot spot) const { return spot.real() - origin_.real(); }
    double Y(Spot spot) const { return -(spot.imag() - origin_.imag()); }

    platform::Surface& surface_;
    Spot origin_;
};

void Set_Window(platform::Surface& surface, const Cayley_Layout& at) {
    const double reach =
        std::max({std::abs(at.O4.real() - at.P.real()), std::abs(at.P.real()), std::abs(at.O6.real() - at.P.real()),
                  std::abs(at.P.imag()), std::abs(at.O6.imag() - at.P.imag())});
    const double H = reach * 1.1 * Model.ZoomFactor;
    const double low = -H * Model.ZoomFactor;  // the zoom counts twice at the lower bound
    surface.Cls();
    surface.Scale(low, low, H, H);
}

}  // namespace

Cayley_Layout Cayley_Laid_Out(const CognateTable& rows) {
    const double L2 = rows(1, 2), L3 = rows(1, 3), L4 = rows(1, 4), R = rows(1, 5), d = rows(1, 6);
    const double c2 = rows(2, 2), c3 = rows(2, 3), c4 = rows(2, 4), f = rows(3, 5);
    const Spot along_d{std::cos(d), std::sin(d)};
    Cayley_Layout to;
    to.O4 = L3 + L2 + L4;
    to.O6 = (c4 + c3 + c2) * along_d;
    to.A = L2;
    to.B = L2 + L3;
    to.P = R * along_d + to.A;
    to.A2 = c4 * along_d;
    to.B2 = (c4 + c3) * along_d;
    to.A3 = f + to.P;
    to.B3 = (R + (L3 == 0 ? 0 : R * f / L3)) * along_d + to.A;
    return to;
}

void DrawCayley() {
    Guarded("DrawCayley", [] {
        platform::With<platform::PictureBox>(
            "frm_Cayley", "Picture1", platform::kNoIndex, [](platform::PictureBox& picture) {
                const Cayley_Layout at = In_Force();
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

                const double small = std::abs(at.O4.real() * 0.015), large = std::abs(at.O4.real() * 0.03);
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
    const Cayley_Layout at = In_Force();
    const auto seen = [&at](Spot spot) { return Spot(spot.real() - at.P.real(), at.P.imag() - spot.imag()); };
    return {seen(at.O2), seen(at.O4), seen(at.O6), seen(at.P)};
}

}  // namespace verlink
