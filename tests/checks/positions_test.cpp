// Which positions a synthesised linkage reaches, beside linkages and positions made for each case.
#include "checks/positions.h"

#include <algorithm>
#include <complex>
#include <vector>

#include "core/text.h"
#include "synthesis/dyads.h"
#include "tests/checks/linkages.h"

namespace verlink::test {

namespace {

using Vector = std::complex<double>;

class Positions : public Random_Linkages {
   protected:
    /// The default linkage with its dyads as they lie at that crank angle on a circuit, by the linkage's own solver;
    /// its other positions those at further crank angles.
    void Take_Positions(const std::vector<double>& cranks, const std::vector<int>& circuits) {
        auto& m = Model;
        Enter_Linkage(Road::kBoxes, [] {
            m.PolarCoords = true;
            m.Link1Angle = 20;
        });
        std::vector<Vector> places;
        std::vector<double> turns;
        for (std::size_t i = 0; i < cranks.size(); ++i) {
            m.CircuitIndex = circuits[i];
            m.Calctype = 1;
            m.ThetaZero = cranks[i];
            Integer result;
            Notes notes(desktop, platform::Answer::kIgnore);
            Calc_Setup(1, result);
            const auto at = [&](int row) {
                return Vector(m.RunTable.PointXY(0, row, 0), m.RunTable.PointXY(0, row, 1)) *
                       std::polar(1.0, 20 * M_PI / 180);
            };
            const Vector O4 = std::polar(double{m.L1}, 20 * M_PI / 180);
            if (i == 0) {
                Put(at(0), m.SynWx, m.SynWy);
                Put(at(2) - at(0), m.SynZx, m.SynZy);
                Put(at(1) - O4, m.SynUx, m.SynUy);
                Put(at(2) - at(1), m.SynSx, m.SynSy);
                Put(-at(2), m.O2x, m.O2y);
                Put(O4 - at(2), m.O4x, m.O4y);
            }
            places.push_back(at(2));
            turns.push_back(m.RunTable.Theta(0, 1));
        }
        m.SpecifiedPivots = false;
        m.SynPositions = cranks.size() == 2 ? 1 : 2;
        Put(places[1] - places[0], m.P21x, m.P21y);
        m.SynAlpha2 = turns[1] - turns[0];
        if (cranks.size() > 2) {
            Put(places[2] - places[0], m.P31x, m.P31y);
            m.SynAlpha3 = turns[2] - turns[0];
        }
        m.Synthesized = true;
        m.Omega2Input = 10;
    }
    static void Put(Vector v, Single& x, Single& y) {
        x = v.real();
        y = v.imag();
    }
    static std::string Words() { return Words_Of_Positions(Model, Positions_Reached(Model)); }
};

}  // namespace

TEST_F(Positions, AreReachedOnTheirCircuitInTheirOrder) {
    Take_Positions({60, 110, 160}, {1, 1, 1});
    EXPECT_EQ(Words(),
              "reaches all positions on the open circuit, in the order 1, 2, 3 as the crank turns counterclockwise");
    Take_Positions({60, 160, 110}, {2, 2, 2});
    EXPECT_EQ(Words(),
              "reaches all positions on the crossed circuit, in the order 1, 3, 2 as the crank turns counterclockwise");
    for (const double speed : {0.5, 0.0}) {
        Model.Omega2Input = speed;
        EXPECT_TRUE(Words().ends_with("in the order 1, 3, 2 as the crank turns counterclockwise")) << speed;
    }
    Model.Omega2Input = -10;
    EXPECT_EQ(Words(),
              "reaches all positions on the crossed circuit, in the order 1, 2, 3 as the crank turns clockwise");
}

TEST_F(Positions, OnBothCircuitsAreTold) {
    Take_Positions({60, 110}, {1, 2});
    EXPECT_EQ(Words(), "reaches position 1 on the open circuit; reaches position 2 on the crossed circuit");
    EXPECT_FALSE(Misses_One(Positions_Reached(Model)));
    EXPECT_EQ(Circuit_With_All(Positions_Reached(Model)), -1);
}

/// The second link is a rocker: it goes from 38.6 to 78.6 degrees off the ground on either side of it.
TEST_F(Positions, OnBothSidesOfTheGroundThatARockerCannotCrossAreTold) {
    Enter_Linkage(Road::kBoxes, [] {
        Model.PolarCoords = true;
        Model.L1 = 4;
        Model.L2 = 3;
        Model.L3 = 3.5;
        Model.L4 = 1;
    });
    Take_Positions({20 + 60, 20 - 60}, {1, 1});
    EXPECT_EQ(Words(), "reaches all positions on the open circuit, but cannot move from one to the other");
    Take_Positions({20 + 60, 20 + 70}, {1, 1});
    EXPECT_EQ(Words(),
              "reaches all positions on the open circuit, in the order 1, 2 as the crank turns counterclockwise");
    // The way back goes over the ground the other way round.
    for (const double speed : {10.0, 0.5, 0.0, -10.0}) {
        Take_Positions({20 + 70, 20 + 60}, {1, 1});
        Model.Omega2Input = speed;
        EXPECT_EQ(Words(), "reaches all positions on the open circuit, in the order 1, 2 as the crank turns clockwise");
    }
}

TEST_F(Positions, MissedOnesAreToldWithTheirDistance) {
    Take_Positions({60, 110}, {1, 1});
    Model.P21y += 3;
    const auto positions = Positions_Reached(Model);
    EXPECT_TRUE(Misses_One(positions));
    const std::string words = Words();
    EXPECT_EQ(words.find("misses position 2 by "), 0U) << words;
    EXPECT_NE(words.find(" in"), std::string::npos) << words;
    EXPECT_TRUE(words.ends_with(" on either circuit")) << words;
    // No pose of any crank angle is nearer, by a walk around it on both circuits.
    const Approach& nearest = positions[1].Nearest();
    EXPECT_GT(nearest.place, 0.1);
    EXPECT_LT(nearest.place, 3);
}

TEST_F(Positions, AreToldInTheShownUnit) {
    Take_Positions({60, 110}, {1, 1});
    Model.P21y += 3;
    const Approach nearest = Positions_Reached(Model)[1].Nearest();
    Use_Units(5);  // the numbers are metres now
    const double shown = std::round(nearest.place * 1000 * 100) / 100;
    EXPECT_NE(Words().find("by " + Text_Of(shown) + " mm"), std::string::npos) << Words();
}

TEST_F(Positions, OnDifferentCircuitsAreByDesignInBothChecks) {
    Take_Positions({60, 110}, {1, 2});
    Take_Angles(0, 360, 10);
    Integer result;
    Notes notes(desktop, platform::Answer::kIgnore);
    Calc_Setup(3, result);
    int told = 0;
    for (const Check& check : Checks_Of(Model)) {
        if (!check.name.ends_with(" of the synthesis")) continue;
        ++told;
        EXPECT_EQ(check.verdict, Verdict::kByDesign);
        EXPECT_EQ(check.meaning,
                  (check.name.starts_with("Turns") ? "The coupler turns by the angles given between the positions."
                                                   : "The linkage " + Words() + ".") +
                      std::string(" The synthesis does not tell circuits apart."));
    }
    EXPECT_EQ(told, 2);
}

TEST_F(Positions, AMissedOneFailsItsCheck) {
    Take_Positions({60, 110, 160}, {1, 1, 1});
    Take_Angles(0, 360, 10);
    Integer result;
    {
        Notes notes(desktop, platform::Answer::kIgnore);
        Calc_Setup(3, result);
    }
    const auto verdict = [] {
        const std::vector<Check> checks = Checks_Of(Model);
        const auto found = std::ranges::find(checks, std::string("Positions of the synthesis"), &Check::name);
        return found == checks.end() ? Verdict::kByDesign : found->verdict;
    };
    EXPECT_EQ(verdict(), Verdict::kGood);
    Model.P31x += 0.001;
    EXPECT_EQ(verdict(), Verdict::kFails);
}

// Of some hundred syntheses of two and three positions, dyads from chosen turns. Those of given pivots are known to a
// ten-thousandth of their lengths only.
TEST_F(Positions, OfRandomSynthesesAreReached) {
    SCOPED_TRACE(Trace());
    auto& m = Model;
    int reached = 0, missed = 0, seen = 0;
    for (int i = 0; i < 300; ++i) {
        Notes notes(desktop, platform::Answer::kIgnore);
        m.SpecifiedPivots = false;
        m.SynPositions = 2;
        for (Single* place : {&m.P21x, &m.P21y, &m.P31x, &m.P31y}) *place = Number(-4, 4);
        for (Single* turn : {&m.SynAlpha2, &m.SynAlpha3, &m.SynBeta2, &m.SynBeta3, &m.SynGamma2, &m.SynGamma3})
            *turn = Number(-170, 170);
        ThreePos(m.P21x, m.P21y, m.P31x, m.P31y, m.SynAlpha2, m.SynAlpha3, m.SynBeta2, m.SynBeta3, m.SynWx, m.SynWy,
                 m.SynZx, m.SynZy);
        ThreePos(m.P21x, m.P21y, m.P31x, m.P31y, m.SynAlpha2, m.SynAlpha3, m.SynGamma2, m.SynGamma3, m.SynUx, m.SynUy,
                 m.SynSx, m.SynSy);
        Assemblevlnk(2, m.SynWx, m.SynWy, m.SynZx, m.SynZy, m.SynUx, m.SynUy, m.SynSx, m.SynSy, m.SynBeta2, m.SynBeta3,
                     m.Link1Angle);
        const auto positions = Positions_Reached(m);
        if (Misses_One(positions)) {
            ++missed;
            std::cout << Words() << ", lengths " << m.L1 << " " << m.L2 << " " << m.L3 << " " << m.L4 << " " << m.Rpa
                      << '\n';
        }
        reached += Circuit_With_All(positions) >= 0 ? 1 : 0;
        // A turn that is off by a tenth of a degree is seen.
        m.SynAlpha2 += 0.1;
        seen += Misses_One(Positions_Reached(m)) ? 1 : 0;
    }
    EXPECT_EQ(missed, 0);
    EXPECT_GT(seen, 270) << "long thin triangles leave more open";
    EXPECT_GT(reached, 10);
}

}  // namespace verlink::test
