// A dyad for three positions: with turns chosen freely, and with its ground pivot given.
#include <cmath>
#include <functional>

#include "synthesis/dyads.h"
#include "tests/core/linkages.h"
#include "tests/support/reference.h"
#include "tests/synthesis/synthesis_fixture.h"

namespace verlink::test {

namespace {

const char kSingular[] = "An error has occurred in Simq - check your data - matrix is singular - Threepos";
const char kNoRotations[] = "Something is wrong - trying to take the square root of a negative number in FixedPivots";

struct ThreePositions : Synthesis {
    Single wx = 1, wy = 2, zx = 3, zy = 4;

    void Solve(double alpha2, double alpha3, double beta2, double beta3) {
        ThreePos(1, 2, 3, -1, alpha2, alpha3, beta2, beta3, wx, wy, zx, zy);
    }
    void Expect_Singular(const std::string& column, platform::Answer answer) {
        desktop.Expect_Message("There is a zero value on diagonal in column " + column)
            .Expect_Message(kSingular, answer, platform::Icon::kExclamation, platform::Buttons::kRetryCancel);
    }
    void Expect_Untouched() {
        EXPECT_EQ(Vector(wx, wy), Vector(1, 2));
        EXPECT_EQ(Vector(zx, zy), Vector(3, 4));
    }
    struct Turns {
        Single alpha2, alpha3, beta2, beta3;
    };
    /// Turns by chance, 1000 times; each system has to be told as singular, and to leave the vectors.
    void Expect_All_Singular(const std::function<Turns(Chance&)>& turns) {
        Chance chance;
        SCOPED_TRACE(chance.Trace());
        for (int i = 0; i < 1000; ++i) {
            const Turns t = turns(chance);
            Notes notes(desktop, platform::Answer::kCancel);
            Solve(t.alpha2, t.alpha3, t.beta2, t.beta3);
            ASSERT_FALSE(notes.Messages().empty()) << t.alpha2 << " " << t.alpha3 << " " << t.beta2 << " " << t.beta3;
            EXPECT_EQ(notes.Messages().back().text, kSingular);
            EXPECT_GE(Model.SimqError, 1);
            EXPECT_LE(Model.SimqError, 3);
            EXPECT_EQ(Model.SimqAnswer, 2);
            Expect_Untouched();
        }
    }
};

/// Of the two equations in W and Z, as complex numbers; its magnitude.
double Determinant(double alpha2, double alpha3, double beta2, double beta3) {
    return std::abs(Turn(beta2) * Turn(alpha3) - Turn(beta3) * Turn(alpha2));
}

struct FixedPivot : Synthesis {
    Single beta2 = 11, beta3 = 22;

    void Take(const Row& row) {
        Model.P1x = Number(row, "P1x");
        Model.P1y = Number(row, "P1y");
        Model.P21x = Number(row, "P21x");
        Model.P21y = Number(row, "P21y");
        Model.P31x = Number(row, "P31x");
        Model.P31y = Number(row, "P31y");
        Model.SynAlpha2 = Number(row, "Alpha2");
        Model.SynAlpha3 = Number(row, "Alpha3");
    }
    /// Where the ground pivot, the coupler point's positions and the coupler's turns are such and such.
    void Take(Vector P1, Vector P21, Vector P31, double alpha2, double alpha3) {
        Model.P1x = P1.real();
        Model.P1y = P1.imag();
        Model.P21x = P21.real();
        Model.P21y = P21.imag();
        Model.P31x = P31.real();
        Model.P31y = P31.imag();
        Model.SynAlpha2 = alpha2;
        Model.SynAlpha3 = alpha3;
    }
};

}  // namespace

TEST_F(ThreePositions, AreThoseOfAComputationToFortyDigits) {
    for (const Row& row : Read_Table("three_positions.csv")) {
        ThreePos(Number(row, "P21x"), Number(row, "P21y"), Number(row, "P31x"), Number(row, "P31y"),
                 Number(row, "Alpha2"), Number(row, "Alpha3"), Number(row, "Beta2"), Number(row, "Beta3"), wx, wy, zx,
                 zy);
        EXPECT_EQ(Model.SimqError, 0);
        const Vector W(Number(row, "Wx"), Number(row, "Wy")), Z(Number(row, "Zx"), Number(row, "Zy"));
        const double near = 1e-7 * std::max({1.0, std::abs(W), std::abs(Z)});
        EXPECT_LT(std::abs(Vector(wx, wy) - W), near);
        EXPECT_LT(std::abs(Vector(zx, zy) - Z), near);
    }
}

TEST_F(ThreePositions, ACrankThatNeverTurnsMakesASingularMatrix) {
    Expect_Singular("1", platform::Answer::kCancel);
    Solve(20, 40, 0, 0);
    Expect_Untouched();
    EXPECT_EQ(Model.SimqError, 1);
    EXPECT_EQ(Model.SimqAnswer, 2);
}

TEST_F(ThreePositions, ADyadThatTurnsAsOneBodyMakesASingularMatrix) {
    Expect_Singular("3", platform::Answer::kCancel);
    Solve(90, 180, 90, 180);
    Expect_Untouched();
    EXPECT_EQ(Model.SimqError, 3);
}

TEST_F(ThreePositions, TheSamePositionTwiceMakesASingularMatrix) {
    Expect_Singular("3", platform::Answer::kCancel);
    Solve(35, 35, 50, 50);
    Expect_Untouched();
    EXPECT_EQ(Model.SimqError, 3);
}

TEST_F(ThreePositions, CoincidingPositionsAreSingularWhateverTheirNumbers) {
    Expect_All_Singular([](Chance& chance) {
        const Single alpha = chance.Angle(), beta = chance.Angle();
        return Turns{alpha, alpha, beta, beta};
    });
}

TEST_F(ThreePositions, PositionsAWholeTurnApartCoincide) {
    Expect_All_Singular([](Chance& chance) {
        const Single alpha = chance.Angle(), beta = chance.Angle();
        return Turns{alpha, alpha + 360, beta, beta - 360};
    });
}

TEST_F(ThreePositions, EqualTurnsAreSingularWhateverTheirNumbers) {
    Expect_All_Singular([](Chance& chance) {
        const Single second = chance.Angle(), third = chance.Angle();
        return Turns{second, third, second, third};
    });
}

TEST_F(ThreePositions, TurnsThatAreEqualButForTheirLastPlacesAreSingular) {
    Expect_All_Singular([](Chance& chance) {
        const Single second = chance.Angle(), third = chance.Angle();
        const auto next = [](Single angle) { return Single(std::nextafter(static_cast<float>(angle), 400.F)); };
        return Turns{second, third, next(second), next(third)};
    });
}

TEST_F(ThreePositions, WholeTurnsOfOneLinkAreSingular) {
    Expect_All_Singular([](Chance& chance) {
        return Turns{chance.Angle(), chance.Angle(), std::round(chance.Between(-3, 3)) * 360, 720};
    });
}

TEST_F(ThreePositions, WhatTheirNumbersTellIsSolved) {
    // Down to turns that differ by no more than some thousand last places.
    Chance chance;
    SCOPED_TRACE(chance.Trace());
    int near = 0;
    for (int i = 0; i < 2000; ++i) {
        const Single alpha2 = chance.Angle(), alpha3 = chance.Angle();
        const double apart = std::pow(10, chance.Between(-2, 2));
        const Single beta2 = alpha2 + chance.Between(-apart, apart), beta3 = alpha3 + chance.Between(-apart, apart);
        const double determinant = Determinant(alpha2, alpha3, beta2, beta3);
        if (determinant < 1e-5) continue;
        near += determinant < 1e-3 ? 1 : 0;
        Solve(alpha2, alpha3, beta2, beta3);
        EXPECT_EQ(Model.SimqError, 0);
        const Vector W(wx, wy), Z(zx, zy);
        const double close = 1e-6 * (std::abs(W) + std::abs(Z)) + 1e-6;
        EXPECT_LT(std::abs(W * Turn(beta2) + Z * Turn(alpha2) - Vector(1, 2)), close);
        EXPECT_LT(std::abs(W * Turn(beta3) + Z * Turn(alpha3) - Vector(3, -1)), close);
    }
    EXPECT_GE(near, 100);
}

TEST_F(ThreePositions, SmallTurnsAreNoSingularOnes) {
    for (const double size : {1e-1, 1e-3, 1e-5}) {
        Solve(size, 3 * size, 2 * size, -5 * size);
        EXPECT_EQ(Model.SimqError, 0);
        const Vector W(wx, wy), Z(zx, zy);
        EXPECT_NEAR(std::abs(W * Turn(2 * size) + Z * Turn(size) - Vector(1, 2)), 0, 1e-5);
    }
}

TEST_F(ThreePositions, TheAnswerToASingularMatrixIsKeptUntilTheNextSolution) {
    Expect_Singular("1", platform::Answer::kRetry);
    Solve(20, 40, 0, 0);
    Expect_Untouched();
    EXPECT_EQ(Model.SimqAnswer, 4);
    Expect_Singular("1", platform::Answer::kCancel);
    Solve(20, 40, 0, 0);
    EXPECT_EQ(Model.SimqAnswer, 2);
    Solve(20, 40, 30, 70);
    EXPECT_EQ(Model.SimqAnswer, 0);
    EXPECT_EQ(Model.SimqError, 0);
}

TEST_F(ThreePositions, CancelIsTheDefaultOfTheSingularMatrix) {
    Notes notes(desktop, platform::Answer::kCancel);
    Solve(20, 40, 0, 0);
    ASSERT_EQ(notes.Messages().size(), 2u);
    EXPECT_EQ(notes.Messages()[0].icon, platform::Icon::kNone);
    EXPECT_EQ(notes.Messages()[1].default_button, 2);
}

TEST_F(FixedPivot, TurnsAreThoseOfAComputationToFortyDigits) {
    int compared = 0, beyond_a_turn = 0;
    for (const Row& row : Read_Table("fixed_pivots.csv")) {
        Take(row);
        FixedPivots(Number(row, "Ox"), Number(row, "Oy"), beta2, beta3);
        EXPECT_NEAR(Wrapped(beta3 - Number(row, "Beta3")), 0, 2e-3);
        EXPECT_GE(std::abs(Wrapped(beta3 - Model.SynAlpha3)), 0.05);
        beyond_a_turn += Model.SynAlpha3 < 0 ? 1 : 0;  // there the coupler's own turn may come up with 360 added
        if (Number(row, "Beta2") < -90) continue;
        EXPECT_NEAR(Wrapped(beta2 - Number(row, "Beta2")), 0, 2e-3);
        ++compared;
    }
    EXPECT_GE(compared, 30);
    EXPECT_GE(beyond_a_turn, 10);
}

TEST_F(FixedPivot, ATurnInTheThirdQuadrantIsReadAsOneInTheFourth) {
    int seen = 0;
    for (const Row& row : Read_Table("fixed_pivots.csv")) {
        if (Number(row, "Beta2") >= -90) continue;
        Take(row);
        FixedPivots(Number(row, "Ox"), Number(row, "Oy"), beta2, beta3);
        EXPECT_NEAR(beta2, -180 - Number(row, "Beta2"), 2e-3);
        ++seen;
    }
    EXPECT_GE(seen, 5);
}

TEST_F(FixedPivot, TurnsBeyondAHalfTurnLoseAWholeOne) {
    for (const Row& row : Read_Table("fixed_pivots.csv")) {
        Take(row);
        FixedPivots(Number(row, "Ox"), Number(row, "Oy"), beta2, beta3);
        EXPECT_LE(std::abs(beta2), 180);
        EXPECT_LE(std::abs(beta3), 180);
    }
}

TEST_F(FixedPivot, TurnsAreTheSameHoweverSmallTheFigureIs) {
    const Vector W(1, 2), Z(-0.5, 1.5);
    for (const double size : {1.0, 0.03, 1e-3}) {
        const auto moved = [&](double alpha, double beta) { return size * (W * Turn(beta) + Z * Turn(alpha)); };
        Take(size * (W + Z), moved(-30, 60), moved(-50, 110), -30, -50);
        EXPECT_TRUE(FixedPivots(0, 0, beta2, beta3));
        EXPECT_NEAR(beta2, 60, 1e-2) << size;
        EXPECT_NEAR(beta3, 110, 1e-2) << size;
    }
}

TEST_F(FixedPivot, PositionsThatCoincideAreToldAndBothTurnsStay) {
    Take({1, 2}, 0, 0, 0, 0);
    desktop.Expect_Message(kNoRotations);
    EXPECT_FALSE(FixedPivots(0, 0, beta2, beta3));
    EXPECT_EQ(beta2, 11);
    EXPECT_EQ(beta3, 22);
}

TEST_F(FixedPivot, ATurnThatIsTheCouplersButForAFifteenthOfADegreeIsFound) {
    for (const double off : {0.064, -0.064}) {
        const Vector W(4, 1), Z(-1, 3);
        const auto moved = [&](double alpha, double beta) { return W * Turn(beta) + Z * Turn(alpha); };
        Take(W + Z, moved(-30, 60), moved(-50, -50 + off), -30, -50);
        EXPECT_TRUE(FixedPivots(0, 0, beta2, beta3));
        EXPECT_NEAR(beta3, -50 + off, 0.01);
    }
}

TEST_F(FixedPivot, APositionOfThePointOnThePivotIsTakenAsAnyOther) {
    // A dyad whose coupler point starts on its own ground pivot: Z is the opposite of W.
    const Vector W(1, 2), Z = -W;
    const auto moved = [&](double alpha, double beta) { return W * Turn(beta) + Z * Turn(alpha); };
    Take(0, moved(-30, 60), moved(-50, 110), -30, -50);
    FixedPivots(0, 0, beta2, beta3);
    EXPECT_NEAR(beta2, 60, 1e-3);
    EXPECT_NEAR(beta3, 110, 1e-3);
}

TEST_F(FixedPivot, APinInfinitelyFarIsToldAndBothTurnsStay) {
    // Seen from the coupler the pivot takes three places in line, so that no circle goes through them. The two roots
    // are one then, and rounding parts them or loses them.
    Chance chance;
    SCOPED_TRACE(chance.Trace());
    Notes notes(desktop);
    std::size_t refused = 0;
    for (int i = 0; i < 400; ++i) {
        const Vector P1(chance.Between(-3, 3), chance.Between(-3, 3)), line = Toward(chance.Angle());
        const double alpha2 = chance.Angle(), alpha3 = chance.Angle();
        const Vector P2 = (P1 + chance.Between(1, 3) * line) * Toward(alpha2);
        const Vector P3 = (P1 - chance.Between(1, 3) * line) * Toward(alpha3);
        Take(P1, P2 - P1, P3 - P1, alpha2, alpha3);
        beta2 = 11;
        beta3 = 22;
        FixedPivots(0, 0, beta2, beta3);
        if (notes.Messages().size() == refused) continue;
        ASSERT_EQ(notes.Messages().size(), ++refused);
        EXPECT_EQ(notes.Messages().back().text, kNoRotations);
        EXPECT_EQ(notes.Messages().back().icon, platform::Icon::kNone);
        EXPECT_EQ(beta2, 11);
        EXPECT_EQ(beta3, 22);
    }
    EXPECT_GE(refused, 20u);
}

TEST(Quadrants, AreToldApartByTheSignsOfBothAngles) {
    EXPECT_EQ(Quadrant_Fix(30, 30), 30);
    EXPECT_EQ(Quadrant_Fix(0, 0), 0);
    EXPECT_EQ(Quadrant_Fix(120, 60), 120);
    EXPECT_EQ(Quadrant_Fix(-20, 10), -20);
    EXPECT_EQ(Quadrant_Fix(-20, 0), -20);
    EXPECT_EQ(Quadrant_Fix(-20, -10), 190);
    EXPECT_EQ(Quadrant_Fix(40, -40), -40);
    EXPECT_EQ(Quadrant_Fix(0, -1), -1);
}

TEST(Quadrants, ANegativeSineGivesItsOwnAngleInTheThirdQuadrantToo) {
    EXPECT_EQ(Quadrant_Fix(150, -30), -30);  // of 210 degrees
}

TEST_F(FixedPivot, TheSecondTurnFollowsFromItsCosineAndSine) {
    // With A1 = 1 and A6, A4 alone the cosine is A6 and the sine A4.
    Solve_Beta2(70, 1, 0, 0, 0.5, 0, std::sqrt(0.75), beta2);
    EXPECT_NEAR(beta2, 30, 1e-4);
    Solve_Beta2(70, 1, 0, 0, 0.5, 0, -std::sqrt(0.75), beta2);
    EXPECT_NEAR(beta2, 150, 1e-4);
    Solve_Beta2(70, -2, 0, 0, 1, 0, -2 * std::sqrt(0.75), beta2);
    EXPECT_NEAR(beta2, -30, 1e-4);
    // Each of the other coefficients, at a third turn of 90 and of 0 degrees.
    Solve_Beta2(90, 1, 0, 0.5, 0, std::sqrt(0.75), 0, beta2);
    EXPECT_NEAR(beta2, 30, 1e-4);
    Solve_Beta2(0, 1, 0.5, std::sqrt(0.75), 0, 0, 0, beta2);
    EXPECT_NEAR(beta2, 30, 1e-4);
}

TEST_F(FixedPivot, NoTurnAtAllIsReadAsTheEndPointOfTheArcCosine) {
    Solve_Beta2(70, 1, 0, 0, 0, 0, 1, beta2);
    EXPECT_NEAR(beta2, 57.29578, 1e-4);
}

TEST_F(FixedPivot, AQuarterTurnClockwiseIsReadAsOneCounterclockwise) {
    Solve_Beta2(70, 1, 0, 0, -1, 0, 0, beta2);
    EXPECT_NEAR(beta2, 90, 1e-4);
}

TEST_F(FixedPivot, ADivisionByZeroIsReportedAndTheTurnStays) {
    desktop.Expect_Message("Error 11   (Division by zero)  has occurred in Solve_Beta2\r\n\r\n");
    Solve_Beta2(70, 0, 1, 1, 1, 1, 1, beta2);
    EXPECT_EQ(beta2, 11);
}

}  // namespace verlink::test
