// The diagrams of cognates and dyads as drawings for CAD programs: what lies on which layer, where, and how large.
#include "synthesis/diagram_dxf.h"

#include <map>
#include <sstream>

#include "synthesis/cognates.h"
#include "tests/core/linkages.h"
#include "tests/synthesis/synthesis_fixture.h"

namespace verlink::test {

namespace {

/// A drawing read pair by pair.
struct Drawing_Read {
    struct Entity {
        std::string layer, kind;
        std::vector<Vector> spots;
        double radius = 0;
    };
    std::vector<Entity> entities;
    std::map<std::string, int> colors;
    std::vector<std::string> layers;
    double cross = 0;
    int unit = 0;

    explicit Drawing_Read(const std::string& content) {
        std::istringstream lines(content);
        std::string kind, name, variable;
        for (std::string code, value; std::getline(lines, code) && std::getline(lines, value);) {
            value.pop_back();
            const int number = std::stoi(code);
            if (number == 9) variable = value;
            if (number == 70 && variable == "$INSUNITS") unit = std::stoi(value);
            if (number == 40 && variable == "$PDSIZE" && cross == 0) cross = std::stod(value);
            if (number == 0) Begin(kind = value);
            if (number == 2 && kind == "LAYER" && value != "LAYER") layers.push_back(value);
            if (number == 62) colors[layers.back()] = std::stoi(value);
            if (!entities.empty()) Add(number, value);
        }
    }
    std::vector<Entity> On(const std::string& layer) const {
        std::vector<Entity> found;
        for (const Entity& entity : entities)
            if (entity.layer == layer) found.push_back(entity);
        return found;
    }

   private:
    void Begin(const std::string& kind) {
        in_path_ = kind == "VERTEX";
        if (kind == "LINE" || kind == "CIRCLE" || kind == "POINT" || kind == "POLYLINE")
            entities.push_back({.layer = "", .kind = kind, .spots = {}});
    }
    void Add(int number, const std::string& value) {
        Entity& entity = entities.back();
        const bool head = entity.kind == "POLYLINE" && !in_path_;
        if (number == 8) entity.layer = value;
        if ((number == 10 || number == 11) && !head) entity.spots.emplace_back(std::stod(value), 0);
        if ((number == 20 || number == 21) && !head) entity.spots.back() += Vector(0, std::stod(value));
        if (number == 40) entity.radius = std::stod(value);
    }
    bool in_path_ = false;
};

using Vectors = std::vector<Vector>;

struct DiagramDxf : Synthesis {
    double close = 0, scale = 1;

    void Take_Units(int units) {
        Use_Units(units);
        scale = units == 1 ? 1 : units == 2 ? 12 : 1000;
        close = 5e-6 * scale;
    }
    void Expect_Spots(const Vectors& found, const Vectors& expected) const {
        ASSERT_EQ(found.size(), expected.size());
        for (std::size_t i = 0; i < found.size(); ++i) EXPECT_LT(std::abs(found[i] - scale * expected[i]), close) << i;
    }
    /// Of one kind, in this order, and nothing else on the layer.
    void Expect_Layer(const Drawing_Read& read, const std::string& layer, const std::string& kind,
                      const std::vector<Vectors>& expected, double radius = 0) const {
        SCOPED_TRACE(layer);
        const auto found = read.On(layer);
        ASSERT_EQ(found.size(), expected.size());
        for (std::size_t i = 0; i < found.size(); ++i) {
            EXPECT_EQ(found[i].kind, kind);
            Expect_Spots(found[i].spots, expected[i]);
            EXPECT_NEAR(found[i].radius, scale * radius, close);
        }
    }
    void Expect_Cognate(const Drawing_Read& read, const std::string& layer, const Vectors& links) const {
        SCOPED_TRACE(layer);
        const auto found = read.On(layer);
        ASSERT_EQ(found.size(), 2u);
        EXPECT_EQ(found[0].kind, "POLYLINE");
        Expect_Spots(found[0].spots, links);
        EXPECT_EQ(found[1].kind, "LINE");
        Expect_Spots(found[1].spots, {links.front(), links.back()});
    }
    static std::vector<Vectors> Each(const Vectors& spots) {
        std::vector<Vectors> each;
        for (const Vector spot : spots) each.push_back({spot});
        return each;
    }

    /// Two dyads, each with its pivot, its pins and the coupler's points by the turns of their links.
    void Expect_Dyads(const DyadFigure& f, Vector first) {
        const auto positions = static_cast<std::size_t>(f.positions);
        const Vector O2 = first - f.W - f.Z, O4 = first - f.U - f.S;
        Vectors A, B, P;
        for (std::size_t j = 0; j < positions; ++j) {
            A.push_back(O2 + f.W * Toward(f.beta[j]));
            B.push_back(O4 + f.U * Toward(f.gamma[j]));
            P.push_back(first + f.P[j]);
        }
        std::vector<Vectors> left, right, couplers;
        Vectors pins{O2, O4};
        for (std::size_t j = 0; j < positions; ++j) {
            left.push_back({O2, A[j], P[j]});
            right.push_back({O4, B[j], P[j]});
            couplers.push_back({A[j], B[j]});
            pins.insert(pins.end(), {A[j], B[j]});
        }
        const Drawing_Read read(Dyads_Dxf(Model, f));
        const double radius = 0.01 * (std::abs(f.W) + std::abs(f.Z) + std::abs(f.U) + std::abs(f.S));
        Expect_Layer(read, "LEFT_DYAD", "POLYLINE", left);
        Expect_Layer(read, "RIGHT_DYAD", "POLYLINE", right);
        Expect_Layer(read, "COUPLER", "LINE", couplers);
        Expect_Layer(read, "LINK_1", "LINE", {{O2, O4}});
        Expect_Layer(read, "PIVOTS", "CIRCLE", Each(pins), radius);
        Expect_Layer(read, "COUPLER_POINT", "POINT", Each(P));
        EXPECT_NEAR(read.cross, 2 * scale * radius, close);
        EXPECT_EQ(read.colors, (std::map<std::string, int>{{"LEFT_DYAD", 5},
                                                           {"RIGHT_DYAD", 1},
                                                           {"COUPLER", 3},
                                                           {"LINK_1", 8},
                                                           {"PIVOTS", 7},
                                                           {"COUPLER_POINT", 6}}));
    }
};

}  // namespace

TEST_F(DiagramDxf, OfCognatesHasThreeLinkagesBetweenThreePivotsInTheUnitOfTheDrawing) {
    for (int units = 1; units <= 5; ++units) {
        SCOPED_TRACE(units);
        Take_Units(units);
        Take_Lengths(4, 1, 3, 2.5);
        Take_Coupler_Point(1.75, 40);
        SeedCognate();
        // All triangles are similar to the coupler's; each link of one cognate is a side of another's triangle.
        const Vector similar = 1.75 / 3 * Toward(40);
        const Vector A = 1, B = 4, O4 = 6.5, P = A + 3.0 * similar, O6 = O4 * similar;
        const Vector A2 = P - A, B2 = A2 + A * similar, A3 = O4 + P - B, B3 = P + (A3 - P) * similar;
        const Drawing_Read read(Cayley_Dxf(Model));
        Expect_Cognate(read, "COGNATE_1", {0, A, P, B, O4});
        Expect_Cognate(read, "COGNATE_2", {0, A2, P, B2, O6});
        Expect_Cognate(read, "COGNATE_3", {O4, A3, P, B3, O6});
        Expect_Layer(read, "PIVOTS", "CIRCLE", Each({0, O4, O6, A, B, A2, B2, A3, B3}), 0.065);
        Expect_Layer(read, "COUPLER_POINT", "POINT", {{P}});
        EXPECT_NEAR(read.cross, 0.13 * scale, close);
        EXPECT_EQ(read.unit, units < 3 ? 1 : 4);
        EXPECT_EQ(read.colors,
                  (std::map<std::string, int>{
                      {"COGNATE_1", 3}, {"COGNATE_2", 5}, {"COGNATE_3", 1}, {"PIVOTS", 7}, {"COUPLER_POINT", 6}}));
    }
}

TEST_F(DiagramDxf, OfDyadsHasEveryPositionOfBoth) {
    for (int units = 1; units <= 5; ++units)
        for (int positions : {2, 3}) {
            SCOPED_TRACE(units);
            Take_Units(units);
            Expect_Dyads(Dyad_Sketch(positions), 0);
        }
}

TEST_F(DiagramDxf, OfDyadsBeginsAtP1WherePivotsAreGivenForThreePositions) {
    Take_Units(5);
    Model.P1x = 0.25;
    Model.P1y = -3;
    Expect_Dyads(Dyad_Sketch(3), 0);
    Model.SpecifiedPivots = true;
    Expect_Dyads(Dyad_Sketch(2), 0);
    Expect_Dyads(Dyad_Sketch(3), {0.25, -3});
}

}  // namespace verlink::test
