// Which lines and names stand where in figures that are at an edge: level, clockwise, small, of no length.
#include <algorithm>
#include <cmath>

#include "tests/synthesis/dyad_diagram_fixture.h"

namespace verlink::test {

TEST_F(DyadDiagram, AGroundWithinADegreeOfLevelHasItsNameInItsMiddle) {
    for (const double angle : {0.9, 1.6, -0.9, -1.6}) {
        DyadFigure f = Dyad_Sketch(2);
        const Vector ground = std::polar(3.0, angle * kRadians);
        f.U = f.W + f.Z - f.S - ground;
        const auto marks = Draw(f);
        const Vector O2 = -f.W - f.Z, O4 = -f.U - f.S;
        EXPECT_LT(std::abs(O4 - O2 - ground), 1e-12);
        const double side = picture.Right() - picture.Left();
        const Vector named = Place(marks, "Theta1") - O2;
        EXPECT_LT(std::abs(named - (std::abs(angle) < 1 ? ground / 2.0 : Turned(2.6 * 0.075 * side, angle / 2))), 1e-9)
            << angle;
    }
}

TEST_F(DyadDiagram, ADisplacementIsToldFrom90DegreesClockwiseOn) {
    for (const auto& [direction, told] : {std::pair{-89.5, -89.5}, {-90.0, -90.0}, {-90.5, 269.5}, {-92.0, 268.0}}) {
        DyadFigure f = Dyad_Sketch(2);
        f.P[1] = direction == -90 ? Vector(0, -1) : std::polar(1.0, direction * kRadians);
        const auto marks = Draw(f);
        const double side = picture.Right() - picture.Left();
        EXPECT_LT(std::abs(Place(marks, "Delta") - Turned(0.075 * side, told / 2)), 1e-6) << direction;
    }
}

TEST_F(DyadDiagram, ADisplacementIsNamedOnTheSideAwayFromTheCouplerHoweverSmallItIs) {
    for (const double size : {1.0, 1e-3})
        for (const int degrees : {20, 110, 200, 290}) {
            DyadFigure f;
            f.W = size * Vector(0, -20);
            f.Z = size * Vector(1, 1);
            f.U = size * Vector(0, -30);
            f.S = size * Vector(-1, 1);
            f.beta[1] = f.gamma[1] = 170;
            f.P[1] = size * std::polar(1.0, degrees * kRadians);
            const auto marks = Draw(f);
            const auto mark = std::ranges::find(marks, "P21", &DyadMark::name);
            // Both pins of position 1 lie below the coupler point.
            const Vector pins = -f.Z - f.S;
            EXPECT_LT((Vector(mark->at.right, -mark->at.below) * std::conj(pins)).real(), 0) << degrees;
        }
}

TEST_F(DyadDiagram, AVectorThatLiesElsewhereThanItsAngleHasALineAlongTheAngle) {
    const auto strokes = [this](Vector link, double theta) {
        DyadFigure f = Dyad_Sketch(2);
        f.W = link;
        f.theta = theta;
        Draw(f);
        const Vector O2 = -f.W - f.Z;
        const double side = picture.Right() - picture.Left();
        const auto& all = picture.Primitives();
        return std::ranges::count_if(all, [&](const Picture::Primitive& p) {
            const Vector along = Turned({p.x2 - p.x1, p.y2 - p.y1}, -theta);
            const Vector from = Turned(Vector(p.x1, p.y1) - O2, -theta);
            return p.alive && p.kind == Kind::kSegment && p.color == Model.ColorGray && std::abs(from.imag()) < 1e-9 &&
                   std::abs(along.imag()) < 1e-9 && along.real() > 0 && from.real() < 0.2 * side;
        });
    };
    const double kTold = 65;
    EXPECT_EQ(strokes(std::polar(0.4, kTold * kRadians), kTold), 0) << "the vector is its own line";
    EXPECT_EQ(strokes(std::polar(0.4, (kTold + 0.9) * kRadians), kTold), 0);
    EXPECT_GT(strokes(std::polar(0.4, (kTold + 1.6) * kRadians), kTold), 3);
    EXPECT_GT(strokes(std::polar(0.4, (kTold - 180) * kRadians), kTold), 3) << "of negative length";
    for (const double told : {165.0, -165.0}) EXPECT_EQ(strokes(0, told), 0) << "none lies nowhere else";
}

TEST_F(DyadDiagram, WhatAThirdPositionWouldHaveIsNotSeenWhereThereAreTwo) {
    DyadFigure f = Dyad_Sketch(2);
    Draw(f);
    const double left = picture.Left(), right = picture.Right(), top = picture.Top();
    f.beta[2] = f.gamma[2] = 200;
    f.P[2] = {70, -90};
    Draw(f);
    EXPECT_EQ(picture.Left(), left);
    EXPECT_EQ(picture.Right(), right);
    EXPECT_EQ(picture.Top(), top);
}

}  // namespace verlink::test
