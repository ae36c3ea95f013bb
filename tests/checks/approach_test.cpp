// How near a linkage comes to a pose that is asked for, beside a walk around its crank, and what is expected of it.
#include "checks/designs.h"
#include "checks/positions.h"
#include "core/text.h"
#include "tests/checks/told.h"

namespace verlink::test {

namespace {

class Approaches : public Told {
   protected:
    static constexpr double kRadian = 180 / M_PI;

    /// Nearby, and turned so much that no circuit reaches it.
    static void Ask_For_A_Second_Position() {
        auto& m = Model;
        m.O2x = m.O2y = 0;
        m.SynZx = m.Rpa;
        m.SynZy = 0;
        m.P21x = 0.05;
        m.P21y = 0.07;
        m.SynAlpha2 = 40;
    }
    /// One position of the linkage in hand.
    void Take_Crank(double degrees, int circuit) {
        auto& m = Model;
        m.CircuitIndex = circuit;
        Set_Circuit(m.CircuitIndex, m.CircuitSign, m.CircuitName);
        m.Calctype = 1;
        m.ThetaZero = degrees;
        Notes notes(desktop, platform::Answer::kIgnore);
        Integer result;
        Calc_Setup(1, result);
        ASSERT_TRUE(m.RunTable.Assembled(0));
    }
    /// The pose that the coupler has now, in the global frame.
    static Asked_Pose Own_Pose() {
        const Vector P = Point(0, 2) * std::polar(1.0, Model.Link1Angle / kRadian);
        return {P.real(), P.imag(), Model.RunTable.Theta(0, 1) / kRadian};
    }
    /// A pose at a crank angle is reached there on its circuit, and known as well as lengths in singles let it be.
    void Expect_Reached(double crank, int circuit, double part) {
        Take_Crank(crank, circuit);
        const auto& m = Model;
        const Asked_Pose pose = Own_Pose();
        const Approach a = Approach_To(m, 7, pose).circuits[std::size_t(circuit - 1)];
        EXPECT_TRUE(a.closes);
        EXPECT_NEAR(std::remainder(a.crank - (crank - m.Link1Angle) / kRadian, 2 * M_PI), 0, 1e-5);
        EXPECT_LT(a.place, 1e-4 * m.L1);
        const double lengths = m.L1 + m.L2 + m.L3 + m.L4 + m.Rpa + std::hypot(pose.x, pose.y);
        const double joint = std::abs(std::sin((m.RunTable.Theta(0, 2) - m.RunTable.Theta(0, 1)) / kRadian));
        const double shorter = std::min(m.L3, m.L4);
        const double sine = std::max(joint, std::sqrt(part * lengths / shorter));
        const double angle = part * (lengths / m.L3 / sine + 2 * M_PI);
        EXPECT_NEAR(a.expected_angle / angle, 1, 1e-3);
        EXPECT_NEAR(a.expected / (part * lengths + (m.Rpa + m.L3) * angle), 1, 1e-3);
        // The boxes show thousandths of an inch, hundredths of a millimetre, and of a degree.
        const double half = m.Units == 1 ? 0.0005 : 0.000005, half_angle = 0.005 / kRadian;
        const double boxes = 4 * half / m.L3 / std::max(joint, std::sqrt(4 * half / shorter)) + 2 * half_angle;
        EXPECT_NEAR(a.boxes_angle / boxes, 1, 1e-3);
        EXPECT_NEAR(a.boxes / (5 * half + (m.Rpa + m.L3) * boxes + std::hypot(pose.x, pose.y) * half_angle), 1, 1e-3);
        flat = joint < std::sqrt(part * lengths / shorter);
        flat_in_boxes = joint < std::sqrt(4 * half / shorter);
    }
    static void Take_Rocker() {
        Use_Units(1);
        Enter_Linkage(Road::kBoxes, [] {
            auto& m = Model;
            m.PolarCoords = true;
            m.L1 = 4;
            m.L2 = 3;
            m.L3 = 3.5;
            m.L4 = 1;
            m.Rpa = 1.5;
            m.Delta = 40;
            m.Link1Angle = 20;
        });
    }
    static std::string Words() { return Words_Of_Positions(Model, Positions_Reached(Model)); }
    bool flat = false, flat_in_boxes = false;
};

}  // namespace

TEST_F(Approaches, PosesOfTheLinkageAreReachedAsNearAsSinglesAndBoxesLetThem) {
    for (const int circuit : {1, 2})
        for (const bool pivots : {false, true})
            for (const double crank : {-100.0, 60.0, 140.0}) {
                Take_Linkage(circuit);
                Model.SpecifiedPivots = pivots;
                Expect_Reached(crank, circuit, pivots ? 1e-4 : 16 * kHalf);
                EXPECT_FALSE(flat);
                Take_Rocker();
                Model.SpecifiedPivots = pivots;
                Expect_Reached(20 + 60, circuit, pivots ? 1e-4 : 16 * kHalf);
            }
}

/// It lies in line at acos((16 + 9 - 2.5 * 2.5) / 24) = 38.6248 degrees.
TEST_F(Approaches, InLineAChangeGoesIntoTheAngleByItsRoot) {
    Take_Rocker();
    Model.SpecifiedPivots = true;
    Expect_Reached(20 + 38.63, 1, 1e-4);
    EXPECT_TRUE(flat);
    EXPECT_TRUE(flat_in_boxes);
}

TEST_F(Approaches, PosesBesideTheCurveAreComeNearTo) {
    for (const int circuit : {1, 2}) {
        Take_Linkage(circuit);
        for (const double off : {0.02, -0.03})
            for (const double turned : {0.3, -0.2}) {
                Take_Crank(100, circuit);
                Asked_Pose asked = Own_Pose();
                asked.x += off;
                asked.y -= off / 2;
                asked.coupler += turned;
                const Approach a = Approach_To(Model, 2, asked).circuits[std::size_t(circuit - 1)];
                const Vector wanted(asked.x, asked.y);
                const double longer = std::max(Model.L3, Model.Rpa);
                double least = 1e9, place = 0, angle = 0;
                Take_Angles(0, 360, 0.25);
                Notes notes(desktop, platform::Answer::kIgnore);
                Integer result;
                Calc_Setup(3, result);
                for (int step = 0; step <= Model.NSteps; ++step) {
                    const Vector P = Point(step, 2) * std::polar(1.0, Model.Link1Angle / kRadian);
                    const double turn =
                        std::remainder(Model.RunTable.Theta(step, 1) / kRadian - asked.coupler, 2 * M_PI);
                    const double distance = std::hypot(std::abs(P - wanted), longer * turn);
                    if (distance >= least) continue;
                    least = distance;
                    place = std::abs(P - wanted);
                    angle = std::abs(turn);
                }
                EXPECT_NEAR(std::hypot(a.place, longer * a.angle), least, 1e-5);
                EXPECT_LE(std::hypot(a.place, longer * a.angle), least + 1e-8);
                EXPECT_NEAR(a.place, place, 1e-3);
                EXPECT_NEAR(a.angle, angle, 5e-3);
                EXPECT_FALSE(a.Reaches());
            }
    }
}

TEST_F(Approaches, OfTwoCircuitsTheOneThatIsNearestByWhatIsExpectedIsTold) {
    Take_Linkage(1);
    for (const int circuit : {1, 2}) {
        Take_Crank(100, circuit);
        const Reached_Position reached = Approach_To(Model, 5, Own_Pose());
        EXPECT_EQ(reached.number, 5);
        EXPECT_EQ(&reached.Nearest(), &reached.circuits[std::size_t(circuit - 1)]);
        EXPECT_EQ(Misses_One({reached}), false);
        EXPECT_EQ(Circuit_With_All({reached}), circuit - 1);
    }
    Reached_Position position;
    position.circuits[0] = {.closes = true, .place = 3, .angle = 1, .expected = 1, .expected_angle = 1};
    position.circuits[1] = {.closes = true, .place = 1, .angle = 2, .expected = 1, .expected_angle = 1};
    EXPECT_EQ(&position.Nearest(), &position.circuits[1]);
    position.circuits[1].angle = 3;
    EXPECT_EQ(&position.Nearest(), &position.circuits[0]) << "of two alike the open one";
    position.circuits[0].closes = false;
    EXPECT_EQ(&position.Nearest(), &position.circuits[1]);
}

TEST_F(Approaches, AMissIsSaidInTheShownUnitAndInDegrees) {
    for (const int units : {1, 5}) {
        Take_Linkage(1);
        Use_Units(units);
        auto& m = Model;
        m.SynPositions = 1;
        m.SpecifiedPivots = false;
        Ask_For_A_Second_Position();
        std::string words;
        for (const Reached_Position& p : Positions_Reached(m)) {
            const Approach& a = p.Nearest();
            ASSERT_GT(a.place, a.expected);
            ASSERT_GT(a.angle, a.expected_angle);
            const auto rounded = [](double value) { return Text_Of(std::round(value * 100) / 100); };
            words += (words.empty() ? "misses position " : "; misses position ") + std::to_string(p.number) + " by " +
                     rounded(a.place * (units == 5 ? 1000 : 1)) + (units == 5 ? " mm" : " in") + " and " +
                     rounded(a.angle * kRadian) + " deg on either circuit";
        }
        EXPECT_EQ(Words(), words);
        EXPECT_EQ(Positions_Reached(m).size(), 2U);
    }
}

TEST_F(Approaches, ALinkageThatClosesNowhereSaysSo) {
    Take_Linkage(1);
    Model.L1 = 5;
    Model.SynPositions = 2;
    EXPECT_EQ(Words(),
              "closes nowhere on its way to position 1; closes nowhere on its way to position 2; closes nowhere on its "
              "way to position 3");
}

TEST_F(Approaches, ALinkageIsSynthesisedWhileItsLengthsAreThoseOfTheDyads) {
    Take_Linkage(1);
    auto& m = Model;
    const auto told = [this] {
        Take_Crank(100, 1);
        const std::vector<Check> checks = Checks_Of(Model);
        return std::ranges::find(checks, std::string("Positions of the synthesis"), &Check::name) != checks.end();
    };
    const auto put = [](Vector v, Single& x, Single& y) {
        x = v.real();
        y = v.imag();
    };
    const auto take = [&] {
        const Vector Z = std::polar(double{m.Rpa}, 0.5);
        put(std::polar(double{m.L2}, 1.0), m.SynWx, m.SynWy);
        put(std::polar(double{m.L4}, 2.0), m.SynUx, m.SynUy);
        put(Z, m.SynZx, m.SynZy);
        put(Z - std::polar(double{m.L3}, 0.7), m.SynSx, m.SynSy);
        // As a single has them.
        m.L2 = std::hypot(m.SynWx, m.SynWy);
        m.L4 = std::hypot(m.SynUx, m.SynUy);
        m.L3 = std::hypot(m.SynZx - m.SynSx, m.SynZy - m.SynSy);
        m.Rpa = std::hypot(m.SynZx, m.SynZy);
        m.SynPositions = 2;
        m.Synthesized = false;
    };
    take();
    EXPECT_TRUE(told());
    for (Single* length : {&m.L2, &m.L3, &m.L4, &m.Rpa}) {
        *length *= 1.001;
        EXPECT_FALSE(told());
        m.Synthesized = true;
        EXPECT_TRUE(told());
        take();
    }
    for (const int positions : {0, 1, 2, 3, 4}) {
        m.SynPositions = positions;
        EXPECT_EQ(told(), positions >= 1 && positions <= 3) << positions;
    }
    m.SynPositions = 2;
    m.SynWx = m.SynWy = 0;
    m.L2 = 0;
    EXPECT_FALSE(checks::Is_Synthesized(m)) << "there is no dyad";
}

TEST_F(Approaches, ChecksTellTheWorstPositionWithItsSentence) {
    Take_Linkage(1);
    auto& m = Model;
    m.SynPositions = 2;
    m.Synthesized = true;
    Ask_For_A_Second_Position();
    m.P31x = 0.35;
    m.P31y = 0.17;
    m.SynAlpha3 = 60;
    Take_Crank(100, 1);
    double place = 0, angle = 0;
    std::string at_place, at_angle;
    double most_place = 0, most_angle = 0, expected = 0, expected_angle = 0;
    for (const Reached_Position& p : Positions_Reached(m)) {
        const Approach& a = p.Nearest();
        if (a.place / a.expected > most_place) {
            most_place = a.place / a.expected;
            place = a.place;
            expected = a.expected;
            at_place = "position " + std::to_string(p.number);
        }
        if (a.angle / a.expected_angle > most_angle) {
            most_angle = a.angle / a.expected_angle;
            angle = a.angle;
            expected_angle = a.expected_angle;
            at_angle = "position " + std::to_string(p.number);
        }
    }
    const Check places = Found("Positions of the synthesis"), turns = Found("Turns of the synthesis");
    EXPECT_EQ(places.verdict, Verdict::kFails);
    EXPECT_EQ(places.unit, "mm");
    EXPECT_EQ(places.where, at_place);
    EXPECT_NEAR(places.worst / (1000 * place), 1, 1e-9);
    EXPECT_NEAR(places.expected / (4 * 1000 * expected), 1, 1e-9);
    EXPECT_EQ(places.meaning, "The linkage " + Words() + ".");
    EXPECT_EQ(turns.unit, "degrees");
    EXPECT_EQ(turns.where, at_angle);
    EXPECT_NEAR(turns.worst / (kRadian * angle), 1, 1e-9);
    EXPECT_NEAR(turns.expected / (4 * kRadian * expected_angle), 1, 1e-9);
    EXPECT_EQ(turns.meaning, "The coupler turns by the angles given between the positions.");
    m.L1 = 5;
    for (const char* name : {"Positions of the synthesis", "Turns of the synthesis"}) {
        const Check nowhere = Found(name);
        EXPECT_EQ(nowhere.verdict, Verdict::kFails);
        EXPECT_EQ(nowhere.worst, HUGE_VAL);
        EXPECT_EQ(nowhere.where, "position 1");
    }
}

}  // namespace verlink::test
