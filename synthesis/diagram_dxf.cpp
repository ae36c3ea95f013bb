// What of a diagram lies on which layer.
#include "synthesis/diagram_dxf.h"

#include <cmath>
#include <complex>
#include <initializer_list>

#include "core/numeric.h"
#include "files/drawing_scale.h"
#include "synthesis/cognates.h"

namespace verlink {

namespace {

using Spot = Dxf::Spot;

// The numbers of colours.
constexpr int kRed = 1, kGreen = 3, kBlue = 5, kMagenta = 6, kBlack = 7, kGray = 8;

/// Part of the diagram's extent.
constexpr double kPivot = 0.01;

void Circles(Dxf& dxf, std::initializer_list<Spot> spots, double radius) {
    for (const Spot spot : spots) dxf.Circle(spot, radius);
}

}  // namespace

std::string Cayley_Dxf(const LinkageModel& model) {
    Cayley_Layout at = Cayley_Laid_Out(model.CayleyRows);
    for (Spot* spot : {&at.O2, &at.O4, &at.O6, &at.P, &at.A, &at.B, &at.A2, &at.B2, &at.A3, &at.B3})
        *spot *= Drawing_Factor_Of_Stored(model);
    const double radius = kPivot * std::abs(at.O4);
    Dxf dxf(Drawing_Unit(model), Drawing_Remark(model), 2 * radius);
    dxf.Layer("COGNATE_1", kGreen);
    dxf.Path({at.O2, at.A, at.P, at.B, at.O4});
    dxf.Line(at.O2, at.O4);
    dxf.Layer("COGNATE_2", kBlue);
    dxf.Path({at.O2, at.A2, at.P, at.B2, at.O6});
    dxf.Line(at.O2, at.O6);
    dxf.Layer("COGNATE_3", kRed);
    dxf.Path({at.O4, at.A3, at.P, at.B3, at.O6});
    dxf.Line(at.O4, at.O6);
    dxf.Layer("PIVOTS", kBlack);
    Circles(dxf, {at.O2, at.O4, at.O6, at.A, at.B, at.A2, at.B2, at.A3, at.B3}, radius);
    dxf.Layer("COUPLER_POINT", kMagenta);
    dxf.Point(at.P);
    return dxf.Content();
}

std::string Dyads_Dxf(const LinkageModel& model, const DyadFigure& figure) {
    const double scale = Drawing_Factor_Of_Stored(model);
    // Positions are given as places only where pivots are.
    const Spot first = figure.positions == 3 && model.SpecifiedPivots ? Spot(model.P1x, model.P1y) : Spot();
    const Spot left = first - figure.W - figure.Z, right = first - figure.U - figure.S;
    const auto turned = [](Spot link, double degrees) { return link * std::polar(1.0, degrees * kDegToRad); };
    const auto pin = [&](int j, bool of_left) {
        const auto position = static_cast<std::size_t>(j);
        return of_left ? left + turned(figure.W, figure.beta[position])
                       : right + turned(figure.U, figure.gamma[position]);
    };
    const auto point = [&](int j) { return first + figure.P[static_cast<std::size_t>(j)]; };

    const double radius =
        kPivot * (std::abs(figure.W) + std::abs(figure.Z) + std::abs(figure.U) + std::abs(figure.S)) * scale;
    Dxf dxf(Drawing_Unit(model), Drawing_Remark(model), 2 * radius);
    for (const bool of_left : {true, false}) {
        dxf.Layer(of_left ? "LEFT_DYAD" : "RIGHT_DYAD", of_left ? kBlue : kRed);
        for (int j = 0; j < figure.positions; ++j)
            dxf.Path({scale * (of_left ? left : right), scale * pin(j, of_left), scale * point(j)});
    }
    dxf.Layer("COUPLER", kGreen);
    for (int j = 0; j < figure.positions; ++j) dxf.Line(scale * pin(j, true), scale * pin(j, false));
    dxf.Layer("LINK_1", kGray);
    dxf.Line(scale * left, scale * right);
    dxf.Layer("PIVOTS", kBlack);
    Circles(dxf, {scale * left, scale * right}, radius);
    for (int j = 0; j < figure.positions; ++j) Circles(dxf, {scale * pin(j, true), scale * pin(j, false)}, radius);
    dxf.Layer("COUPLER_POINT", kMagenta);
    for (int j = 0; j < figure.positions; ++j) dxf.Point(scale * point(j));
    return dxf.Content();
}

}  // namespace verlink
