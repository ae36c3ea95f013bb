// Cayley's diagram, call by call and by its geometry.
#include <algorithm>
#include <map>
#include <memory>
#include <sstream>
#include <vector>

#include "animation/engine.h"
#include "synthesis/cognates.h"
#include "synthesis/examples.h"
#include "tests/core/linkages.h"
#include "tests/synthesis/synthesis_fixture.h"

namespace verlink::test {

namespace {

struct BareCayley : platform::Screen {
    BareCayley() : Screen("frm_Cayley") {}
    platform::PictureBox Picture1{*this, "Picture1"};
};

struct Segment {
    Vector from, to;
    double Length() const { return std::abs(to - from); }
};

struct Ring {
    Vector center;
    double radius;
    platform::Color color;
};

/// The calls of a drawing, y upward.
struct Drawn {
    double low = 0, high = 0;
    std::map<platform::Color, std::vector<Segment>> lines;
    std::vector<Ring> rings;

    explicit Drawn(const std::vector<std::string>& calls) {
        for (const std::string& call : calls) {
            std::istringstream words(call);
            std::string name;
            words >> name;
            if (name == "Scale") {
                double top;
                words >> low >> top >> high;
                EXPECT_EQ(low, top);
            } else if (name == "Line") {
                double x1, y1, x2, y2;
                words >> x1 >> y1 >> x2 >> y2;
                lines[Color(words)].push_back({{x1, -y1}, {x2, -y2}});
            } else if (name == "Circle") {
                double x, y, radius;
                words >> x >> y >> radius;
                rings.push_back({{x, -y}, radius, Color(words)});
            } else {
                EXPECT_EQ(call, "Cls");
            }
        }
    }

   private:
    static platform::Color Color(std::istream& words) {
        std::string digits;
        words >> digits;
        return static_cast<platform::Color>(std::stoul(digits, nullptr, 16));
    }
};

/// How far a point lies off a segment.
double Off(Vector point, const Segment& segment) {
    const Vector along = segment.to - segment.from;
    if (along == 0.0) return std::abs(point - segment.from);
    const double t = std::clamp(((point - segment.from) * std::conj(along)).real() / std::norm(along), 0.0, 1.0);
    return std::abs(point - segment.from - t * along);
}

struct CayleyDiagram : Synthesis {
    CayleyDiagram() {
        platform::Screens::Register("frm_Cayley", [] { return std::make_unique<BareCayley>(); });
        platform::Screens::Discard();
        Set_Palette();
        platform::Screens::Get("frm_Cayley").Get<platform::PictureBox>("Picture1").Redirect(&log);
    }
    ~CayleyDiagram() override { platform::Screens::Register("frm_Cayley", {}); }

    Drawn Draw() {
        log.Calls.clear();
        DrawCayley();
        return Drawn(log.Calls);
    }
    static double Size() { return Model.CayleyRows(1, 2) + Model.CayleyRows(1, 3) + Model.CayleyRows(1, 4); }

    /// One cognate: its side of the outer triangle, then pivot, pin, P, pin, pivot.
    static void Expect_Cognate(const Drawn& drawn, platform::Color color, int row, bool from_the_rocker) {
        const auto found = drawn.lines.find(color);
        ASSERT_NE(found, drawn.lines.end());
        const auto& lines = found->second;
        ASSERT_EQ(lines.size(), 5u);
        const double near = 2e-5 * std::max(1.0, std::abs(drawn.high));
        for (std::size_t i = 2; i <= 4; ++i) EXPECT_LT(std::abs(lines[i].from - lines[i - 1].to), near);
        const Segment &side = lines[0], &first = lines[1], &to_point = lines[2], &last = lines[4];
        EXPECT_LT(std::abs(to_point.to), near);  // P is the origin
        // Three links drawn out straight along the side: the coupler's own line is a part of it.
        const std::pair<Vector, Vector> ends{side.from, side.to};
        EXPECT_LT(std::min(std::abs(first.from - ends.first), std::abs(first.from - ends.second)), near);
        EXPECT_LT(std::min(std::abs(last.to - ends.first), std::abs(last.to - ends.second)), near);
        EXPECT_LT(Off(first.to, side), near);
        EXPECT_LT(Off(last.from, side), near);

        const auto& rows = Model.CayleyRows;
        const double coupler = std::abs(last.from - first.to);
        EXPECT_NEAR(first.Length(), rows(row, from_the_rocker ? 4 : 2), near);
        EXPECT_NEAR(coupler, rows(row, 3), near);
        EXPECT_NEAR(last.Length(), rows(row, from_the_rocker ? 2 : 4), near);
        EXPECT_NEAR(side.Length(), first.Length() + coupler + last.Length(), 3 * near);
        // The coupler triangle, from the pin of the row's link 2.
        const Vector pin = from_the_rocker ? last.from : first.to, other = from_the_rocker ? first.to : last.from;
        EXPECT_NEAR(std::abs(pin), rows(row, 5), near);
        if (coupler > 100 * near && std::abs(pin) > 100 * near) {
            EXPECT_NEAR(std::remainder(std::arg(-pin / (other - pin)) - rows(row, 6), 2 * std::numbers::pi), 0, 0.02);
        }
    }
    static void Expect_Three(const Drawn& drawn) {
        Expect_Cognate(drawn, Model.ColorGreen, 1, false);
        Expect_Cognate(drawn, Model.ColorBlue, 2, true);
        Expect_Cognate(drawn, Model.ColorRed, 3, false);
    }

    LogSurface log;
};

}  // namespace

TEST_F(CayleyDiagram, OfTheDefaultLinkage) {
    Draw();
    Expect_Log("cayley_default", log);
}

TEST_F(CayleyDiagram, OfTheGrashofTestLinkage) {
    Testlinkage_old();
    SeedCognate();
    Draw();
    Expect_Log("cayley_grashof", log);
}

TEST_F(CayleyDiagram, OfAPointInLineWithTheCoupler) {
    Hoekens();
    SeedCognate();
    Draw();
    Expect_Log("cayley_in_line", log);
}

TEST_F(CayleyDiagram, IsZoomedTwiceAtItsLowerBound) {
    const Drawn plain = Draw();
    EXPECT_NEAR(plain.low, -plain.high, 1e-5);
    Model.ZoomFactor = 1.1;
    const Drawn wider = Draw();
    EXPECT_NEAR(wider.high, 1.1 * plain.high, 1e-4);
    EXPECT_NEAR(wider.low, -1.21 * plain.high, 1e-4);
    Expect_Log("cayley_zoomed", log);
}

TEST_F(CayleyDiagram, ShowsThreeLinksAndACouplerTriangleOfEachCognate) {
    Chance chance;
    SCOPED_TRACE(chance.Trace());
    for (int i = 0; i < 60; ++i) {
        Take_Lengths(chance.Number(1, 4), chance.Number(0.5, 4), chance.Number(1, 4), chance.Number(0.5, 4));
        Take_Coupler_Point(chance.Number(0.4, 4), chance.Angle());
        SeedCognate();
        Expect_Three(Draw());
    }
}

TEST_F(CayleyDiagram, ShowsAllOfItInItsWindow) {
    Chance chance;
    SCOPED_TRACE(chance.Trace());
    for (int i = 0; i < 60; ++i) {
        Take_Lengths(chance.Number(1, 4), chance.Number(0.5, 4), chance.Number(1, 4), chance.Number(0.5, 4));
        Take_Coupler_Point(chance.Number(0.4, 4), chance.Angle());
        SeedCognate();
        const Drawn drawn = Draw();
        double reach = 0;
        for (const auto& [color, lines] : drawn.lines)
            for (const Segment& line : lines)
                reach = std::max({reach, std::abs(line.to.real()), std::abs(line.to.imag())});
        EXPECT_NEAR(reach * 1.1, drawn.high, 1e-4 * reach);
    }
}

TEST_F(CayleyDiagram, FillsItsPivotsAndJointsRingByRing) {
    const Drawn drawn = Draw();
    const double small = 0.015 * Size(), large = 0.03 * Size();
    // Three pivots with a dot in each, P, and six moving joints; ten rings and an outline each.
    ASSERT_EQ(drawn.rings.size(), 13u * 11u);
    const auto expect_disc = [&](std::size_t disc, double radius, platform::Color color) {
        for (std::size_t ring = 0; ring <= 10; ++ring) {
            const Ring& drawn_ring = drawn.rings[disc * 11 + ring];
            EXPECT_NEAR(drawn_ring.radius, radius * std::min(1.0, (static_cast<double>(ring) + 1) / 10), 1e-5);
            EXPECT_EQ(drawn_ring.color, ring == 10 ? Model.ColorBlack : color) << disc << ' ' << ring;
        }
    };
    for (std::size_t pivot = 0; pivot < 3; ++pivot) {
        expect_disc(2 * pivot, large, Model.ColorWhite);
        expect_disc(2 * pivot + 1, small, Model.ColorBlack);
        EXPECT_EQ(drawn.rings[22 * pivot].center, drawn.rings[22 * pivot + 11].center);
    }
    expect_disc(6, small, Model.ColorMagenta);
    EXPECT_EQ(drawn.rings[66].center, Vector(0));
    for (std::size_t joint = 7; joint < 13; ++joint) expect_disc(joint, small, Model.ColorWhite);
}

TEST_F(CayleyDiagram, OfAPointOnTheFirstJointStillHasThreeCognates) {
    Take_Lengths(4, 1, 3, 2);
    Take_Coupler_Point(0, 20);
    SeedCognate();
    Expect_Three(Draw());
}

TEST_F(CayleyDiagram, OfAPointOnTheSecondJointStillHasThreeCognates) {
    Chance chance;
    SCOPED_TRACE(chance.Trace());
    for (int i = 0; i < 200; ++i) {
        Take_Lengths(chance.Number(1, 4), chance.Number(0.5, 4), chance.Number(1, 4), chance.Number(0.5, 4));
        Take_Coupler_Point(Model.L3, i % 4 == 0   ? 0
                                     : i % 4 == 1 ? 360
                                     : i % 4 == 2 ? -360
                                                  : chance.Between(-1e-4, 1e-4));
        SeedCognate();
        EXPECT_EQ(Model.CognateNumber, 1);
        Expect_Three(Draw());
    }
}

TEST_F(CayleyDiagram, OfACouplerWithoutLengthIsDrawnAllTheSame) {
    Take_Lengths(4, 1, 0, 3);
    Take_Coupler_Point(2, 20);
    SeedCognate();
    const Drawn drawn = Draw();
    EXPECT_EQ(drawn.rings.size(), 13u * 11u);
    for (const auto& [color, lines] : drawn.lines) EXPECT_EQ(lines.size(), 5u);
}

TEST_F(CayleyDiagram, WithoutAnyExtentIsReported) {
    desktop.Expect_Message("Error 5   (Invalid procedure call or argument)  has occurred in DrawCayley\r\n\r\n");
    Model.CayleyRows = {};
    platform::Screens::Get("frm_Cayley").Get<platform::PictureBox>("Picture1").Redirect(nullptr);
    DrawCayley();
}

TEST_F(CayleyDiagram, NamesItsPivotsAndItsPointWhereTheyAreDrawn) {
    const Drawn drawn = Draw();
    const auto corners = Cayley_Corners();
    const Segment &green = drawn.lines.at(Model.ColorGreen)[0], &red = drawn.lines.at(Model.ColorRed)[0];
    const Vector drawn_at[] = {green.from, green.to, red.to, 0};
    for (std::size_t i = 0; i < 4; ++i) EXPECT_LT(std::abs(std::conj(corners[i]) - drawn_at[i]), 1e-5) << i;
    EXPECT_GT(std::abs(corners[2].imag()), 1);
}

TEST_F(CayleyDiagram, IsNotDrawnWhereThereIsNoScreenForIt) {
    platform::Screens::Discard();
    platform::Screens::Register("frm_Cayley", {});
    log.Calls.clear();
    DrawCayley();
    EXPECT_TRUE(log.Calls.empty());
}

}  // namespace verlink::test
