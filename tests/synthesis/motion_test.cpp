// Synthesised linkages that are run: the coupler goes through the positions that were asked for.
#include <algorithm>
#include <array>
#include <vector>

#include "synthesis/dyads.h"
#include "tests/core/linkages.h"
#include "tests/synthesis/synthesis_fixture.h"

namespace verlink::test {

namespace {

/// Where the coupler is to go: its point's place, from the first, and its turn in degrees.
struct Position {
    Vector place;
    double turn;
};

/// A dyad as found, from its pivot to its pin (W, U) and on to the coupler point (Z, S), with the pin's turns.
struct Dyad {
    Single gx, gy, cx, cy;  ///< grounded link, coupler link
    std::array<Single, 2> turns;

    Vector Grounded() const { return {gx, gy}; }
    Vector On_Coupler() const { return {cx, cy}; }
    /// The turn of the grounded link to position 0, 1 or 2.
    double Turned(std::size_t position) const { return position == 0 ? 0.0 : double{turns[position - 1]}; }
    /// Of moderate lengths, so that a last place of them is a last place of the positions.
    bool Moderate() const {
        const double grounded = std::abs(Grounded()), on_coupler = std::abs(On_Coupler());
        return std::min(grounded, on_coupler) > 0.2 && std::max(grounded, on_coupler) < 12;
    }
};

struct SynthesizedMotion : Synthesis {
    /// The sine of the transmission angle in a position, positive on the open circuit.
    double Transmission(std::size_t at) const {
        const Vector ground = left.Grounded() + left.On_Coupler() - right.Grounded() - right.On_Coupler();
        const Vector A = left.Grounded() * Toward(left.Turned(at));
        const Vector B = ground + right.Grounded() * Toward(right.Turned(at));
        const Vector coupler = B - A, rocker = B - ground;
        return Cross(ground - A, coupler) > 0
                   ? std::abs(Cross(coupler, rocker) / std::abs(coupler) / std::abs(rocker))
                   : -std::abs(Cross(coupler, rocker) / std::abs(coupler) / std::abs(rocker));
    }
    int Circuit(std::size_t at) const { return Transmission(at) > 0 ? 1 : 2; }
    bool Worth_Running() const {
        if (!left.Moderate() || !right.Moderate()) return false;
        if (std::abs(left.On_Coupler() - right.On_Coupler()) < 0.3) return false;
        const Vector ground = left.Grounded() + left.On_Coupler() - right.Grounded() - right.On_Coupler();
        if (std::abs(ground) < 0.3) return false;
        for (std::size_t at = 0; at < positions.size(); ++at)
            if (std::abs(Transmission(at)) < 0.2) return false;
        return true;
    }
    bool On_One_Circuit() const {
        for (std::size_t at = 1; at < positions.size(); ++at)
            if (Circuit(at) != Circuit(0)) return false;
        return true;
    }

    void Assemble(int mode) {
        Notes notes(desktop);
        Assemblevlnk(mode, left.gx, left.gy, left.cx, left.cy, right.gx, right.gy, right.cx, right.cy, left.turns[0],
                     left.turns[1], Model.Link1Angle);
        EXPECT_EQ(notes.Messages().size(), 1u);
    }
    double Size() const {
        return std::max(
            {double{Model.L1}, double{Model.L2}, double{Model.L3}, double{Model.L4}, double{Model.Rpa}, 1.0});
    }
    /// Each position by itself, with the crank where the left dyad puts it; places count from `first`.
    void Add_Positions(Vector first) {
        const double start = Degrees(std::arg(left.Grounded()));
        const Vector O2(Model.O2x, Model.O2y);
        double first_angle = 0;
        Notes notes(desktop);  // a centrode's line may stand upright
        for (std::size_t at = 0; at < positions.size(); ++at) {
            const Coupler coupler = Coupler_At(start + left.Turned(at), Circuit(at));
            EXPECT_TRUE(coupler.closes);
            if (at == 0) first_angle = coupler.angle;
            places.Add(std::abs(O2 + coupler.point - first - positions[at].place) / Size());
            turns.Add(Radians(std::abs(Wrapped(coupler.angle - first_angle - positions[at].turn))));
        }
    }

    /// Assembles what the dyads hold and adds its positions.
    void Take_Linkage(int mode, Vector first) {
        Assemble(mode);
        Add_Positions(first);
        ++run;
        on_one_circuit += On_One_Circuit() ? 1 : 0;
    }
    bool Wants_More(int linkages) const { return run < linkages || on_one_circuit < kOnOneCircuit; }
    void Expect_All_Reached(double last_places, double wrong, int linkages) {
        std::cout << "[  run     ] " << run << ", on one circuit " << on_one_circuit << '\n';
        places.Expect_Below(last_places, wrong);
        turns.Expect_Below(last_places, wrong);
        EXPECT_GE(run, linkages);
        EXPECT_GE(on_one_circuit, kOnOneCircuit);
    }

    std::vector<Position> positions;
    Dyad left, right;
    Misses places, turns;
    int run = 0, on_one_circuit = 0;
    static constexpr int kOnOneCircuit = 20;
};

/// Of a place as a part of the longest link, of a turn in radians.
constexpr double kOfMotion = 4e-6, kWrongMotion = 0.001;
/// The closed form for given pivots takes lengths to the fourth power in single numbers before it gives angles.
constexpr double kOfGivenPivots = 1e-4, kWrongPivots = 0.1;

}  // namespace

TEST_F(SynthesizedMotion, GoesThroughTwoPositionsOfChosenAngles) {
    Chance chance;
    SCOPED_TRACE(chance.Trace());
    for (int i = 0; i < 100000 && Wants_More(150); ++i) {
        positions = {{0, 0}, {{chance.Number(-4, 4), chance.Number(-4, 4)}, chance.Angle()}};
        const Vector move = positions[1].place;
        const bool found = std::ranges::all_of(std::array{&left, &right}, [&](Dyad* dyad) {
            Single direction = chance.Angle(), on_coupler = chance.Angle(), grounded_length, coupler_length;
            dyad->turns = {chance.Angle(), 0};
            if (std::abs(Cross(Turn(dyad->turns[0]) * Toward(direction),
                               Turn(positions[1].turn) * Toward(on_coupler))) < 0.2)
                return false;
            TwoPos(1, move.real(), move.imag(), positions[1].turn, dyad->turns[0], direction, on_coupler,
                   grounded_length, dyad->gx, dyad->gy, coupler_length, dyad->cx, dyad->cy);
            return true;
        });
        if (!found || !Worth_Running()) continue;
        Take_Linkage(1, 0);
    }
    Expect_All_Reached(kOfMotion, kWrongMotion, 100);
}

TEST_F(SynthesizedMotion, GoesThroughTwoPositionsOfAChosenVector) {
    Chance chance;
    SCOPED_TRACE(chance.Trace());
    for (int i = 0; i < 100000 && Wants_More(150); ++i) {
        positions = {{0, 0}, {{chance.Number(-4, 4), chance.Number(-4, 4)}, chance.Angle()}};
        for (Dyad* dyad : {&left, &right}) {
            Single direction, on_coupler = chance.Angle(), grounded_length, coupler_length = chance.Number(0.5, 5);
            const double turn = chance.Between(15, 170);
            dyad->turns = {i % 2 == 0 ? turn : -turn, 0};
            TwoPos(2, positions[1].place.real(), positions[1].place.imag(), positions[1].turn, dyad->turns[0],
                   direction, on_coupler, grounded_length, dyad->gx, dyad->gy, coupler_length, dyad->cx, dyad->cy);
        }
        if (!Worth_Running()) continue;
        Take_Linkage(1, 0);
    }
    Expect_All_Reached(kOfMotion, kWrongMotion, 100);
}

TEST_F(SynthesizedMotion, OfTwoPositionsIsTheRunThatTheAssemblySetsUp) {
    Chance chance;
    SCOPED_TRACE(chance.Trace());
    int backward = 0;
    for (int i = 0; i < 100000 && (run < 80 || backward < 10 || run - backward < 10); ++i) {
        positions = {{0, 0}, {{chance.Number(-4, 4), chance.Number(-4, 4)}, chance.Angle()}};
        for (Dyad* dyad : {&left, &right}) {
            Single direction, on_coupler = chance.Angle(), grounded_length, coupler_length = chance.Number(0.5, 5);
            dyad->turns = {chance.Angle(), 0};
            if (std::abs(dyad->turns[0]) < 15) dyad->turns[0] = 15;
            TwoPos(2, positions[1].place.real(), positions[1].place.imag(), positions[1].turn, dyad->turns[0],
                   direction, on_coupler, grounded_length, dyad->gx, dyad->gy, coupler_length, dyad->cx, dyad->cy);
        }
        if (!Worth_Running() || !On_One_Circuit()) continue;
        Model.Omega2 = Model.Omega2Input = 10;
        Assemble(1);
        if (Model.ThetaStep <= 0.0) continue;  // the end went over a whole turn
        Derive_Linkage(Leading::kInForce);
        Derive_Angle_Limits();
        Model.Calctype = 3;
        Model.Omega2Input = Model.Omega2;
        Model.CircuitIndex = Circuit(0);
        Model.NSteps = 1;
        Integer result;
        Notes notes(desktop);
        Calc_Setup(3, result);
        const Vector O2(Model.O2x, Model.O2y);
        std::array<Vector, 2> passed;
        std::array<double, 2> angles{};
        for (const int step : {0, 1}) {
            EXPECT_TRUE(Model.RunTable.Assembled(step));
            const Vector local(Model.RunTable.PointXY(step, 2, 0), Model.RunTable.PointXY(step, 2, 1));
            passed[static_cast<std::size_t>(step)] = O2 + local * Toward(Model.Link1Angle);
            angles[static_cast<std::size_t>(step)] = Model.RunTable.Theta(step, 1);
        }
        // The speed's sign makes the run start at position 1 whichever way the crank turns.
        places.Add(std::abs(passed[0]) / Size());
        places.Add(std::abs(passed[1] - positions[1].place) / Size());
        turns.Add(Radians(std::abs(Wrapped(angles[1] - angles[0] - positions[1].turn))));
        ++run;
        backward += Model.Omega2 < 0 ? 1 : 0;
    }
    places.Expect_Below(kOfMotion, kWrongMotion);
    turns.Expect_Below(kOfMotion, kWrongMotion);
    EXPECT_GE(run, 50);
    EXPECT_GE(backward, 10);
    EXPECT_GE(run - backward, 10);
}

TEST_F(SynthesizedMotion, GoesThroughThreePositionsOfChosenTurns) {
    Chance chance;
    SCOPED_TRACE(chance.Trace());
    for (int i = 0; i < 100000 && Wants_More(150); ++i) {
        positions = {{0, 0},
                     {{chance.Number(-4, 4), chance.Number(-4, 4)}, chance.Angle()},
                     {{chance.Number(-4, 4), chance.Number(-4, 4)}, chance.Angle()}};
        const Vector P21 = positions[1].place, P31 = positions[2].place;
        bool solvable = true;
        for (Dyad* dyad : {&left, &right}) {
            dyad->turns = {chance.Angle(), chance.Angle()};
            solvable = solvable && std::abs(Turn(dyad->turns[0]) * Turn(positions[2].turn) -
                                            Turn(dyad->turns[1]) * Turn(positions[1].turn)) > 0.3;
            ThreePos(P21.real(), P21.imag(), P31.real(), P31.imag(), positions[1].turn, positions[2].turn,
                     dyad->turns[0], dyad->turns[1], dyad->gx, dyad->gy, dyad->cx, dyad->cy);
        }
        if (!solvable || !Worth_Running()) continue;
        Take_Linkage(2, 0);
    }
    Expect_All_Reached(kOfMotion, kWrongMotion, 100);
}

TEST_F(SynthesizedMotion, GoesThroughThreePositionsAboutGivenPivots) {
    Chance chance;
    SCOPED_TRACE(chance.Trace());
    Model.SpecifiedPivots = true;
    for (int i = 0; i < 100000 && Wants_More(100); ++i) {
        const Vector P1(chance.Number(-4, 4), chance.Number(-4, 4));
        positions = {{0, 0},
                     {{chance.Number(-4, 4), chance.Number(-4, 4)}, chance.Angle()},
                     {{chance.Number(-4, 4), chance.Number(-4, 4)}, chance.Angle()}};
        const Vector P21 = positions[1].place, P31 = positions[2].place;
        Model.P1x = P1.real();
        Model.P1y = P1.imag();
        Model.P21x = P21.real();
        Model.P21y = P21.imag();
        Model.P31x = P31.real();
        Model.P31y = P31.imag();
        Model.SynAlpha2 = positions[1].turn;
        Model.SynAlpha3 = positions[2].turn;
        std::array<Vector, 2> pivots;
        std::size_t side = 0;
        bool solvable = true;
        for (Dyad* dyad : {&left, &right}) {
            const Vector pivot(chance.Number(-4, 4), chance.Number(-4, 4));
            pivots[side++] = pivot;
            // Seen from the coupler, the pivot stands on a circle around the pin; a wide one is an ill-defined one.
            const std::array<Vector, 3> seen{P1 - pivot, (P1 + P21 - pivot) * Toward(-positions[1].turn),
                                             (P1 + P31 - pivot) * Toward(-positions[2].turn)};
            const Vector b = seen[1] - seen[0], c = seen[2] - seen[0];
            solvable = solvable && std::abs(Cross(b, c)) > 0.35 * std::abs(b) * std::abs(c) &&
                       std::min({std::abs(b), std::abs(c), std::abs(b - c)}) > 1.5;
            Notes notes(desktop);
            FixedPivots(pivot.real(), pivot.imag(), dyad->turns[0], dyad->turns[1]);
            ThreePos(P21.real(), P21.imag(), P31.real(), P31.imag(), positions[1].turn, positions[2].turn,
                     dyad->turns[0], dyad->turns[1], dyad->gx, dyad->gy, dyad->cx, dyad->cy);
            // A turn of the link in the third quadrant is taken for one in the fourth, and the arc cosine and sine are
            // not to be relied on near the ends of their ranges.
            const Vector pin = Vector(0, 1) * (b * std::norm(c) - c * std::norm(b)) / (2 * Cross(b, c)) + seen[0];
            const Vector W = -(pin - seen[0]);
            const Vector W2 = -(pin - seen[1]) * Toward(positions[1].turn);
            const double true_turn = Degrees(std::arg(W2 / W));
            solvable = solvable && true_turn > -88 && true_turn < 178;
            // Small turns leave the length of the link open.
            solvable = solvable && std::min(std::abs(true_turn), std::abs(dyad->turns[1])) > 10;
        }
        if (!solvable || !Worth_Running()) continue;
        Model.O2x = pivots[0].real();
        Model.O2y = pivots[0].imag();
        Model.O4x = pivots[1].real();
        Model.O4y = pivots[1].imag();
        Take_Linkage(3, P1);
    }
    Expect_All_Reached(kOfGivenPivots, kWrongPivots, 50);
}

}  // namespace verlink::test
