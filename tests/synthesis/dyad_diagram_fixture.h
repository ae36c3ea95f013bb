// A figure of two dyads drawn into a picture, and what is found of it there.
#pragma once

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <set>
#include <sstream>

#include "animation/engine.h"
#include "core/linkage_model.h"
#include "platform/picture.h"
#include "shell/initialize.h"
#include "synthesis/dyad_diagram.h"
#include "synthesis/dyads.h"
#include "tests/support/fixture.h"

namespace verlink::test {

using platform::Color;
using platform::Picture;
using Vector = DyadFigure::Vector;
using Kind = Picture::Primitive::Kind;

struct DyadDiagram : Fixture {
    DyadDiagram() {
        Set_Palette();
        Initialize();
    }

    static constexpr double kRadians = 3.14159265358979323846 / 180;
    static double Direction(Vector v) { return std::arg(v) / kRadians; }
    static Vector Turned(Vector v, double degrees) { return v * std::polar(1.0, degrees * kRadians); }
    /// How far a dyad misses a position.
    static double Miss(Vector link, Vector arm, double link_turn, double arm_turn, Vector P) {
        return std::abs(Turned(link, link_turn) - link + Turned(arm, arm_turn) - arm - P);
    }

    std::vector<DyadMark> Draw(const DyadFigure& figure) { return Draw_Dyads(picture, figure); }
    /// Call by call, with the places of the names behind.
    static void Expect_Calls(const std::string& name, const DyadFigure& figure) {
        LogSurface log;
        for (const DyadMark& mark : Draw_Dyads(log, figure)) {
            std::ostringstream row;
            row << std::fixed << std::setprecision(4) << "Name " << mark.name;
            for (const double number : {mark.at.across, mark.at.down, mark.at.right, mark.at.below})
                row << ' ' << number + 0.0;
            log.Calls.push_back(row.str());
        }
        Expect_Log(name, log);
    }
    bool Drawn(Vector from, Vector to, Color color) const {
        const double near = 1e-9 * (picture.Right() - picture.Left());
        const auto& all = picture.Primitives();
        return std::any_of(all.begin(), all.end(), [&](const Picture::Primitive& drawn) {
            return drawn.alive && drawn.kind == Kind::kSegment && drawn.color == color &&
                   std::abs(Vector(drawn.x1, drawn.y1) - from) < near &&
                   std::abs(Vector(drawn.x2, drawn.y2) - to) < near;
        });
    }
    /// The place of a mark in the figure's own coordinates.
    Vector Place(const std::vector<DyadMark>& marks, const std::string& name) const {
        for (const DyadMark& mark : marks)
            if (mark.name == name)
                return {picture.Left() + mark.at.across * (picture.Right() - picture.Left()),
                        picture.Top() + mark.at.down * (picture.Bottom() - picture.Top())};
        ADD_FAILURE() << "no mark " << name;
        return 0;
    }
    static std::set<std::string> Names(const std::vector<DyadMark>& marks) {
        std::set<std::string> names;
        for (const DyadMark& mark : marks) names.insert(mark.name);
        return names;
    }
    void Expect_All_Inside(const std::vector<DyadMark>& marks) const {
        const double air = 1e-9 * (picture.Right() - picture.Left());
        for (const auto& drawn : picture.Primitives()) {
            const double reach = drawn.kind == Kind::kPin ? drawn.x2 : 0;
            const double x = drawn.x1 + drawn.dx1, y = drawn.y1 + drawn.dy1;
            EXPECT_GE(x - reach, picture.Left() - air);
            EXPECT_LE(x + reach, picture.Right() + air);
            EXPECT_GE(y - reach, picture.Bottom() - air);
            EXPECT_LE(y + reach, picture.Top() + air);
        }
        for (const DyadMark& mark : marks) {
            EXPECT_GE(std::min(mark.at.across, mark.at.down), 0) << mark.name;
            EXPECT_LE(std::max(mark.at.across, mark.at.down), 1) << mark.name;
        }
    }
    /// The record's dyads by the program's own solution for its two positions.
    static void Solve_Two() {
        TwoPos(1, Model.P21x, Model.P21y, Model.SynAlpha2, Model.SynBeta2, Model.SynTheta, Model.SynPhi, Model.SynW,
               Model.SynWx, Model.SynWy, Model.SynZ, Model.SynZx, Model.SynZy);
        TwoPos(1, Model.P21x, Model.P21y, Model.SynAlpha2, Model.SynGamma2, Model.SynSigma, Model.SynXi, Model.SynU,
               Model.SynUx, Model.SynUy, Model.SynS, Model.SynSx, Model.SynSy);
    }
    /// Two like dyads whose links make half a turn and then a quarter of one, while the coupler does not turn.
    static void Take_Half_Turns(Vector link, Vector arm) {
        auto& m = Model;
        m.SynWx = m.SynUx = link.real();
        m.SynWy = m.SynUy = link.imag();
        m.SynZx = m.SynSx = arm.real();
        m.SynZy = m.SynSy = arm.imag();
        m.SynAlpha2 = m.SynAlpha3 = 0;
        m.SynBeta2 = m.SynGamma2 = 180;
        m.SynBeta3 = m.SynGamma3 = 90;
        m.P21x = -2 * link.real();
        m.P21y = -2 * link.imag();
        m.P31x = (link * Vector(-1, 1)).real();
        m.P31y = (link * Vector(-1, 1)).imag();
        m.P1x = 3;
        m.P1y = 5;
        m.O2x = m.O4x = 3 - (link + arm).real();
        m.O2y = m.O4y = 5 - (link + arm).imag();
    }
    /// Whether such dyads of 1 and 1 count as solved when one number is off by that much.
    static bool Missed(Single& number, double miss, int positions) {
        Take_Half_Turns({1, 0}, {1, 0});
        number += miss;
        return Dyads_In_Force(positions).to_scale;
    }

    Picture picture;
};

}  // namespace verlink::test
