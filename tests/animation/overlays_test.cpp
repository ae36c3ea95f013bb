// Mass centres and counterweights on the drawing of a linkage that was solved and balanced.
#include <complex>
#include <sstream>
#include <vector>

#include "animation/drawing.h"
#include "animation/engine.h"
#include "dynamics/balancing.h"
#include "shell/initialize.h"
#include "tests/dynamics/motion.h"
#include "tests/support/drawing.h"

namespace verlink::test {

namespace {

class Overlays : public Drawing {
   protected:
    Overlays() { Begin({.name = "masses alone"}); }
    static void Begin(const Scenario& scenario) {
        Reset_Model();
        Initialize();
        Run_Scenario(scenario);
        Set_Palette();
        Model.AnimMax = 6;
        Model.AnimMin = -4;
        Model.FlipSum = 2;
        Model.PinRadius = 0.1;
        Model.PivotRadius = 0.2;
        Model.PenColor = Model.ColorMagenta;
        Model.HideLinksFlag = "Y";
    }
    static void Solve() {
        Solve_Forces();
        Forces_Hold();
    }
    /// The centres of the circles of a step, in the order in which they are drawn.
    std::vector<Vector> Circles(int step) {
        stage.log.Calls.clear();
        Drawsub(step, stage);
        std::vector<Vector> centres;
        for (const std::string& call : stage.log.Calls) {
            std::istringstream words(call);
            std::string kind;
            double x = 0, y = 0;
            words >> kind >> x >> y;
            if (kind == "Circle") centres.emplace_back(x, Model.FlipSum - y);
        }
        return centres;
    }
    /// From the ground link's frame, in stored lengths, to the drawing.
    static Vector Drawn(Vector stored) {
        return stored * double{Shown_Factor()} * std::polar(1.0, Model.Link1Angle * M_PI / 180);
    }
    Stage stage;
};

/// An upright ground and one that is turned, stored lengths as they are shown and a thousandth of that.
const Scenario kGrounds[] = {{.name = "masses alone"},
                             {.name = "turned", .ground = 30},
                             {.name = "millimetres", .units = 5},
                             {.name = "turned, in centimetres", .units = 4, .circuit = 2, .ground = -75}};

}  // namespace

TEST_F(Overlays, AppearWithTheResultsTheyBelongTo) {
    EXPECT_EQ(Circles(0).size(), 0u);
    Solve();
    EXPECT_EQ(Circles(0).size(), 3u);
    ASSERT_TRUE(Default_Weights(Model));
    Berkof_Calc(Model, Model.BerkMass, Model.BerkRadius);
    EXPECT_EQ(Circles(0).size(), 5u);
    Integer result;
    Calc_Setup(3, result);
    EXPECT_EQ(Circles(0).size(), 0u);
}

TEST_F(Overlays, MassCentresLieWhereTheSolutionHasThem) {
    for (const Scenario& scenario : kGrounds) {
        SCOPED_TRACE(scenario.name);
        Begin(scenario);
        Solve();
        const double near = 1e-4 * Shown_Factor();
        for (int step = 0; step <= Model.NSteps; step += 6) {
            const Motion at(step);
            const auto drawn = Circles(step);
            ASSERT_EQ(drawn.size(), 3u);
            EXPECT_LT(std::abs(drawn[0] - Drawn(at.l2.centre)), near);
            EXPECT_LT(std::abs(drawn[1] - Drawn(at.l4.centre)), near);
            EXPECT_LT(std::abs(drawn[2] - Drawn(at.l3.centre)), near);
        }
    }
}

TEST_F(Overlays, CounterweightsAreDrawnSoThatTheCommonMassCentreStandsStill) {
    const auto& m = Model;
    const auto common = [&](const std::vector<Vector>& drawn) {
        const double masses[] = {m.LinkMass(2), m.LinkMass(4), m.LinkMass(3), m.BerkMass(2), m.BerkMass(4)};
        Vector sum;
        double total = 0;
        for (std::size_t i = 0; i < 5; ++i) {
            sum += masses[i] * drawn[i];
            total += masses[i];
        }
        return sum / total;
    };
    for (const Scenario& scenario : kGrounds) {
        SCOPED_TRACE(scenario.name);
        Begin(scenario);
        Solve();
        ASSERT_TRUE(Default_Weights(Model));
        Berkof_Calc(Model, Model.BerkMass, Model.BerkRadius);
        const auto first = Circles(0);
        ASSERT_EQ(first.size(), 5u);
        for (int step = 1; step <= m.NSteps; ++step) {
            const auto drawn = Circles(step);
            ASSERT_EQ(drawn.size(), 5u);
            EXPECT_LT(std::abs(common(drawn) - common(first)), 1e-4 * Shown_Factor()) << step;
        }
        // Though each of them moves.
        EXPECT_GT(std::abs(Circles(24)[3] - first[3]), m.L2 * Shown_Factor() / 3);
    }
}

}  // namespace verlink::test
