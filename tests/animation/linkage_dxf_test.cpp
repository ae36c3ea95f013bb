// The linkage as a drawing for CAD programs: what lies on which layer, where, in which unit, as another program reads
// it.
#include "animation/linkage_dxf.h"

#include <algorithm>
#include <complex>
#include <iterator>
#include <numbers>
#include <regex>

#include "platform/file_system.h"
#include "shell/initialize.h"
#include "tests/dynamics/motion.h"
#include "tests/support/foreign.h"

namespace verlink::test {

namespace {

class LinkageDxf : public Fixture {
   protected:
    LinkageDxf() { Initialize(); }

    /// A drawing that is to be read with others.
    void Write(int step) {
        paths_.push_back(Path(std::to_string(paths_.size()) + ".dxf"));
        platform::Write_File(paths_.back(), Linkage_Dxf(Model, step));
    }
    std::vector<Dxf_Read> Read_All() const { return Read_Dxfs(paths_); }
    Dxf_Read Written(int step) {
        Write(step);
        return Read_Dxf(paths_.back());
    }
    /// Units of the drawing in one of the model's stored lengths.
    static double Scale() { return Model.Units == 1 ? 1 : Model.Units == 2 ? 12 : 1000; }
    static Vector Ground() { return Scale() * std::polar(1.0, Model.Link1Angle * std::numbers::pi / 180); }

    /// The joints by the angles of the links, in the drawing.
    struct Places {
        Vector O4, A, B, P;
        explicit Places(int step) {
            const auto link = [step](int row, double length, double more = 0) {
                return std::polar(Scale() * length, (Model.RunTable.Theta(step, row) + more) * std::numbers::pi / 180);
            };
            O4 = Ground() * double{Model.L1};
            A = link(0, Model.L2);
            B = A + link(1, Model.L3);
            P = A + link(1, Model.Rpa, Model.Delta);
        }
    };
    static void Expect_At(double x, double y, Vector place) {
        const double close = 2e-6 * Scale() * (Model.L1 + Model.L2 + Model.L3 + Model.L4);
        EXPECT_NEAR(x, place.real(), close);
        EXPECT_NEAR(y, place.imag(), close);
    }
    static void Expect_Line(const Dxf_Read& read, const char* layer, Vector from, Vector to) {
        SCOPED_TRACE(layer);
        const auto found = read.On(layer);
        ASSERT_EQ(found.size(), 1U);
        ASSERT_EQ(found[0].kind, "LINE");
        Expect_At(found[0].numbers[0], found[0].numbers[1], from);
        Expect_At(found[0].numbers[2], found[0].numbers[3], to);
    }
    static void Expect_Path(const Dxf_Entity& path, bool closed, const std::vector<Vector>& places) {
        ASSERT_EQ(path.kind, "POLYLINE");
        EXPECT_EQ(path.numbers[0], closed ? 1 : 0);
        ASSERT_EQ(path.numbers.size(), 1 + 2 * places.size());
        for (std::size_t i = 0; i < places.size(); ++i)
            Expect_At(path.numbers[1 + 2 * i], path.numbers[2 + 2 * i], places[i]);
    }

   private:
    std::vector<std::string> paths_;
};

}  // namespace

TEST_F(LinkageDxf, Has_the_links_pivots_and_coupler_curve_in_all_units_circuits_and_grounds) {
    const int step = 17;
    std::vector<Scenario> turning;
    std::ranges::copy_if(kScenarios, std::back_inserter(turning), [](const Scenario& s) { return !s.rocker; });
    const auto run = [](const Scenario& scenario) {
        Reset_Model();
        Initialize();
        Run_Scenario(scenario);
    };
    for (const Scenario& scenario : turning) {
        run(scenario);
        Write(step);
    }
    const auto reads = Read_All();
    for (std::size_t one = 0; one < turning.size(); ++one) {
        const Scenario& scenario = turning[one];
        const Dxf_Read& read = reads[one];
        SCOPED_TRACE(scenario.name);
        run(scenario);
        EXPECT_EQ(read.unit, scenario.units > 2 ? "unit 4 AC1009" : "unit 1 AC1009");
        const Places at(step);
        Expect_Line(read, "LINK_1", {}, at.O4);
        Expect_Line(read, "LINK_2", {}, at.A);
        Expect_Line(read, "LINK_4", at.O4, at.B);
        const auto coupler = read.On("LINK_3");
        ASSERT_EQ(coupler.size(), 1U);
        Expect_Path(coupler[0], true, {at.A, at.B, at.P});
        const auto pivots = read.On("PIVOTS");
        ASSERT_EQ(pivots.size(), 4U);
        const Vector centres[] = {{}, at.O4, at.A, at.B};
        for (std::size_t i = 0; i < pivots.size(); ++i)
            Expect_At(pivots[i].numbers[0], pivots[i].numbers[1], centres[i]);
        const auto point = read.On("COUPLER_POINT");
        ASSERT_EQ(point.size(), 1U);
        Expect_At(point[0].numbers[0], point[0].numbers[1], at.P);
        const auto curve = read.On("COUPLER_CURVE");
        ASSERT_EQ(curve.size(), 1U) << "one polyline";
        std::vector<Vector> places;
        for (int i = 0; i < Model.NSteps; ++i) places.push_back(Places(i).P);
        Expect_Path(curve[0], true, places);
    }
}

TEST_F(LinkageDxf, Has_poles_and_centrodes_where_the_lines_of_the_links_meet) {
    Run_Scenario({.name = "millimetres", .units = 5, .ground = 30});
    const int step = 9;
    const Places at(step);
    // Where P + s p and Q + t q meet.
    const auto meet = [](Vector P, Vector p, Vector Q, Vector q) { return P + p * (Cross(Q - P, q) / Cross(p, q)); };
    const Vector pole = meet({}, at.A, at.O4, at.B - at.O4);
    const auto close_to = [](const std::vector<double>& numbers, std::size_t from, Vector place) {
        return std::abs(Vector(numbers.at(from), numbers.at(from + 1)) - place) < 1e-3 * std::abs(place) + 1e-3;
    };
    const Dxf_Read read = Written(step);
    const auto poles = read.On("POLES");
    ASSERT_EQ(poles.size(), 2U);
    EXPECT_TRUE(close_to(poles[0].numbers, 0, pole));
    EXPECT_TRUE(close_to(poles[1].numbers, 0, meet({}, at.O4, at.A, at.B - at.A)));

    const auto holds = [&](const char* layer, Vector place) {
        for (const Dxf_Entity& path : read.On(layer))
            for (std::size_t i = 1; i < path.numbers.size(); i += 2)
                if (close_to(path.numbers, i, place)) return true;
        return false;
    };
    EXPECT_TRUE(holds("FIXED_CENTRODE", pole));
    // The pole as the coupler sees it, on the coupler as it lies at step 0.
    const Places start(0);
    const Vector on_coupler = start.A + (pole - at.A) * (start.B - start.A) / (at.B - at.A);
    EXPECT_TRUE(holds("MOVING_CENTRODE", on_coupler));
}

TEST_F(LinkageDxf, Has_no_poles_and_no_centrodes_of_a_parallelogram) {
    Model.PolarCoords = true;
    Model.L1 = Model.L3 = 4;
    Model.L2 = Model.L4 = 2;
    Derive_Linkage(Leading::kInForce);
    Model.ThetaStart = 30;
    Model.ThetaEnd = 150;
    Model.ThetaStep = 30;
    Derive_Angle_Limits();
    Model.NSteps = 4;
    Integer result;
    Calc_Setup(3, result);
    for (const int step : {0, 3}) {
        ASSERT_TRUE(Model.RunTable.Assembled(step));
        Write(step);
    }
    for (const Dxf_Read& read : Read_All()) {
        EXPECT_EQ(read.On("LINK_4").size(), 1U);
        for (const char* layer : {"POLES", "FIXED_CENTRODE", "MOVING_CENTRODE"})
            EXPECT_TRUE(read.On(layer).empty()) << layer;
    }
}

TEST_F(LinkageDxf, Leaves_out_poles_and_centrodes_that_are_far_away) {
    Run_Scenario({.name = "metres", .units = 3});
    const double far = 10 * Scale() * (Model.L1 + Model.L2 + Model.L3 + Model.L4);
    int points = 0;
    for (const int step : {0, 13, 26, 39}) Write(step);
    for (const Dxf_Read& read : Read_All())
        for (const Dxf_Entity& entity : read.entities)
            for (const double number : entity.numbers) {
                EXPECT_LE(std::abs(number), 1.001 * far) << entity.layer;
                ++points;
            }
    EXPECT_GT(points, 1000);
}

TEST_F(LinkageDxf, Has_a_polyline_for_each_stretch_that_closes_and_no_moving_links_where_none_does) {
    Run_Scenario({.name = "gaps", .rocker = true});
    for (const int gap : {0, 7, 8}) Model.RunTable.Assembled(gap) = false;
    const Dxf_Read read = Written(7);
    for (const char* layer : {"LINK_2", "LINK_3", "LINK_4", "COUPLER_POINT", "POLES", "MOVING_CENTRODE"})
        EXPECT_TRUE(read.On(layer).empty()) << layer;
    Expect_Line(read, "LINK_1", {}, Places(0).O4);
    EXPECT_EQ(read.On("PIVOTS").size(), 2U);
    const auto curve = read.On("COUPLER_CURVE");
    ASSERT_EQ(curve.size(), 2U);
    EXPECT_EQ(curve[0].numbers.size(), 1U + 2 * 6) << "steps 1 to 6";
    EXPECT_EQ(curve[0].numbers[0], 0) << "open";
    EXPECT_EQ(curve[1].numbers.size(), 1U + 2 * static_cast<std::size_t>(Model.NSteps - 8));
}

TEST_F(LinkageDxf, Has_no_centrode_where_a_position_does_not_close) {
    Run_Scenario({.name = "gaps", .rocker = true});
    const auto vertices = [](const Dxf_Read& read, const char* layer) {
        std::size_t count = 0;
        for (const Dxf_Entity& path : read.On(layer)) count += (path.numbers.size() - 1) / 2;
        return count;
    };
    Write(3);
    for (const int gap : {7, 8}) Model.RunTable.Assembled(gap) = false;
    Write(3);
    const auto reads = Read_All();
    const Dxf_Read &whole = reads[0], &gaps = reads[1];
    for (const char* layer : {"FIXED_CENTRODE", "MOVING_CENTRODE"}) {
        EXPECT_GT(vertices(gaps, layer), 10U) << layer;
        EXPECT_LT(vertices(gaps, layer), vertices(whole, layer)) << layer;
    }
}

TEST_F(LinkageDxf, Has_each_layer_in_a_colour_of_its_own) {
    Run_Scenario({.name = "colours"});
    const std::string text = Linkage_Dxf(Model, 3);
    // Red is 1, green 3, blue 5, magenta 6, black on white 7 and gray 8.
    for (const auto& [layer, color] : {std::pair{"LINK_1", "8"},
                                       {"LINK_2", "5"},
                                       {"LINK_3", "3"},
                                       {"LINK_4", "1"},
                                       {"PIVOTS", "7"},
                                       {"COUPLER_POINT", "6"},
                                       {"POLES", "1"},
                                       {"COUPLER_CURVE", "6"},
                                       {"FIXED_CENTRODE", "7"},
                                       {"MOVING_CENTRODE", "1"}}) {
        std::smatch found;
        ASSERT_TRUE(std::regex_search(text, found, std::regex(layer + std::string(R"(\s+70\s+0\s+62\s+(\d+))"))))
            << layer;
        EXPECT_EQ(found[1], color) << layer;
    }
}

}  // namespace verlink::test
