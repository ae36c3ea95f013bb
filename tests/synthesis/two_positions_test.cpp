// A dyad for two positions, by either method.
#include "synthesis/dyads.h"
#include "tests/support/reference.h"
#include "tests/synthesis/synthesis_fixture.h"

namespace verlink::test {

namespace {

const char kNoMagnitudes[] = " Attempting to divide by zero in TwoPosition, Method 1";
const char kNoVector[] = " Attempting to divide by zero in TwoPosition, Method 2";

struct SolvedDyad {
    Single angle1, angle2, mag1, x1, y1, mag2, x2, y2;

    bool Solve(int method, double P21x, double P21y, double alpha, double beta) {
        return TwoPos(method, P21x, P21y, alpha, beta, angle1, angle2, mag1, x1, y1, mag2, x2, y2);
    }
    Vector W() const { return {x1, y1}; }
    Vector Z() const { return {x2, y2}; }
    bool operator==(const SolvedDyad&) const = default;
};

/// Before the dyad is solved every field holds something.
SolvedDyad Filled() { return {30, 80, 1, 2, 3, 4, 5, 6}; }

struct TwoPositions : Synthesis {
    void Expect_Plain(const char* words) {
        desktop.Expect_Message(words, platform::Answer::kOk, platform::Icon::kNone, platform::Buttons::kOk);
    }
};

}  // namespace

TEST_F(TwoPositions, AreThoseOfAComputationToFortyDigits) {
    for (const Row& row : Read_Table("two_positions.csv")) {
        SolvedDyad dyad;
        const int method = static_cast<int>(Number(row, "Method"));
        dyad.angle1 = Number(row, "Angle1");
        dyad.angle2 = Number(row, "Angle2");
        dyad.mag2 = Number(row, "Mag2");
        dyad.Solve(method, Number(row, "P21x"), Number(row, "P21y"), Number(row, "Alpha"), Number(row, "Beta"));
        const double near = 2e-7 * std::max({1.0, std::abs(Number(row, "W")), std::abs(Number(row, "Z"))});
        EXPECT_NEAR(dyad.mag1, Number(row, "W"), near);
        EXPECT_NEAR(dyad.x1, Number(row, "Wx"), near);
        EXPECT_NEAR(dyad.y1, Number(row, "Wy"), near);
        EXPECT_NEAR(dyad.mag2, Number(row, "Z"), near);
        EXPECT_NEAR(dyad.x2, Number(row, "Zx"), near);
        EXPECT_NEAR(dyad.y2, Number(row, "Zy"), near);
        if (method == 1) {
            EXPECT_EQ(dyad.angle1, Stored(Number(row, "Angle1")));
        } else {
            EXPECT_NEAR(Wrapped(dyad.angle1 - Number(row, "WAngle")), 0, 1e-4);
        }
        EXPECT_EQ(dyad.angle2, Stored(Number(row, "Angle2")));
    }
}

TEST_F(TwoPositions, NegativeMagnitudesStayAndTheirComponentsPointTheOtherWay) {
    SolvedDyad dyad;
    dyad.angle1 = 30 + 180;
    dyad.angle2 = 75;
    // W of 3 and Z of 2 in the directions 30 and 75, with the first direction turned round.
    const Vector move = 3.0 * Toward(30) * Turn(40) + 2.0 * Toward(75) * Turn(-15);
    EXPECT_TRUE(dyad.Solve(1, move.real(), move.imag(), -15, 40));
    EXPECT_NEAR(dyad.mag1, -3, 1e-6);
    EXPECT_NEAR(dyad.mag2, 2, 1e-6);
    EXPECT_LT(std::abs(dyad.W() - 3.0 * Toward(30)), 1e-6);
    EXPECT_LT(std::abs(dyad.Z() - 2.0 * Toward(75)), 1e-6);
    EXPECT_EQ(dyad.angle1, 210);
}

TEST_F(TwoPositions, NoTurnsAtAllAreToldByMethodOneAndNothingIsWritten) {
    SolvedDyad dyad = Filled();
    Expect_Plain(kNoMagnitudes);
    dyad.Solve(1, 1, 2, 0, 0);
    EXPECT_EQ(dyad, Filled());
}

TEST_F(TwoPositions, ACrankThatDoesNotTurnIsToldByMethodTwoAfterTheGivenVectorIsWritten) {
    for (const double beta : {0, 360, -360, 720}) {
        SolvedDyad dyad = Filled();
        Expect_Plain(kNoVector);
        dyad.Solve(2, 1, 2, 25, beta);
        EXPECT_LT(std::abs(dyad.Z() - 4.0 * Toward(80)), 1e-6) << beta;
        EXPECT_EQ(dyad.W(), Vector(2, 3));
        EXPECT_EQ(dyad.mag1, 1);
        EXPECT_EQ(dyad.angle1, 30);
    }
}

TEST_F(TwoPositions, DirectionsThatMoveAlongOneLineAreToldWhateverTheirNumbers) {
    // Both vectors change square to the middle of their turns.
    Chance chance;
    SCOPED_TRACE(chance.Trace());
    for (int i = 0; i < 1000; ++i) {
        SolvedDyad dyad = Filled();
        dyad.angle1 = chance.Angle();
        dyad.angle2 = chance.Angle();
        const Single beta = chance.Angle();
        const Single alpha = 2 * (dyad.angle1 + beta / 2 - dyad.angle2) + 360 * std::round(chance.Between(-2, 2));
        const SolvedDyad before = dyad;
        Expect_Plain(kNoMagnitudes);
        dyad.Solve(1, 1, 2, alpha, beta);
        EXPECT_EQ(dyad, before) << alpha << " " << beta;
    }
}

TEST_F(TwoPositions, TurnsTooSmallForTheirCosinesAreToldByMethodOne) {
    SolvedDyad dyad = Filled();
    dyad.angle1 = dyad.angle2 = 0;
    const SolvedDyad before = dyad;
    Expect_Plain(kNoMagnitudes);
    EXPECT_FALSE(dyad.Solve(1, 1, 2, 1e-7, 3e-7));
    EXPECT_EQ(dyad, before);
}

TEST_F(TwoPositions, ATurnTooSmallForItsCosineIsToldByMethodTwo) {
    SolvedDyad dyad = Filled();
    Expect_Plain(kNoVector);
    EXPECT_FALSE(dyad.Solve(2, 1, 2, 25, 1e-7));
    EXPECT_EQ(dyad.W(), Vector(2, 3));
}

TEST_F(TwoPositions, WholeTurnsAreToldByMethodOne) {
    for (const auto& [alpha, beta] : {std::pair{25.0, 360.0}, {25.0, -720.0}, {360.0, 25.0}, {-1080.0, 25.0}}) {
        SolvedDyad dyad = Filled();
        Expect_Plain(kNoMagnitudes);
        dyad.Solve(1, 1, 2, alpha, beta);
        EXPECT_EQ(dyad, Filled()) << alpha << " " << beta;
    }
}

TEST_F(TwoPositions, ATurnThatIsAWholeOneButForItsLastPlaceIsToldByMethodTwo) {
    for (const float whole : {360.F, -360.F, 720.F})
        for (const float towards : {-1000.F, 1000.F}) {
            SolvedDyad dyad = Filled();
            Expect_Plain(kNoVector);
            dyad.Solve(2, 1, 2, 25, static_cast<double>(std::nextafter(whole, towards)));
            EXPECT_EQ(dyad.W(), Vector(2, 3));
        }
}

TEST_F(TwoPositions, SmallTurnsAreSolved) {
    for (const double turn : {1.0, 1e-2, 1e-4}) {
        SolvedDyad dyad = Filled();
        dyad.Solve(1, 1, 2, turn, -2 * turn);
        const Vector moved = dyad.W() * Turn(-2 * turn) + dyad.Z() * Turn(turn);
        EXPECT_LT(std::abs(moved - Vector(1, 2)), 1e-4) << turn;
        dyad = Filled();
        dyad.Solve(2, 1, 2, 25, turn);
        EXPECT_LT(std::abs(dyad.W() * Turn(turn) + dyad.Z() * Turn(25) - Vector(1, 2)), 1e-4) << turn;
    }
}

TEST_F(TwoPositions, AHalfTurnOfTheCrankPutsItsPinMidway) {
    SolvedDyad dyad = Filled();
    EXPECT_TRUE(dyad.Solve(2, 3, -1, 50, 180));
    const Vector expected = (Vector(3, -1) - 4.0 * Toward(80) * Turn(50)) / -2.0;
    EXPECT_LT(std::abs(dyad.W() - expected), 1e-6);
    EXPECT_NEAR(dyad.mag1, std::abs(expected), 1e-6);
}

TEST_F(TwoPositions, ThereIsNoThirdMethod) {
    for (const int method : {0, 3, -1}) {
        SolvedDyad dyad = Filled();
        EXPECT_FALSE(dyad.Solve(method, 1, 2, 25, 30));
        EXPECT_EQ(dyad, Filled()) << method;
    }
}

TEST_F(TwoPositions, AMagnitudeBeyondASingleNumberIsReported) {
    SolvedDyad dyad = Filled();
    desktop.Expect_Message("Error 6   (Overflow)  has occurred in TwoPos\r\n\r\n");
    dyad.Solve(1, 1, 2, 1e-38, 1e-38);
    EXPECT_EQ(dyad.mag1, 1);
}

}  // namespace verlink::test
