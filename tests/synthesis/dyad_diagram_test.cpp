// The diagram of the dyads: what is drawn, where, and where names belong.
#include <algorithm>
#include <cmath>
#include <iostream>
#include <random>
#include <set>

#include "core/linkage_model.h"
#include "platform/picture.h"
#include "tests/synthesis/dyad_diagram_fixture.h"

namespace verlink::test {

TEST_F(DyadDiagram, TheSketchesReachTheirPositions) {
    for (int positions : {2, 3}) {
        const DyadFigure f = Dyad_Sketch(positions);
        EXPECT_EQ(f.positions, positions);
        EXPECT_FALSE(f.to_scale);
        for (std::size_t j = 1; j < static_cast<std::size_t>(positions); ++j) {
            EXPECT_LT(Miss(f.W, f.Z, f.beta[j], f.alpha[j], f.P[j]), 1e-3);
            EXPECT_LT(Miss(f.U, f.S, f.gamma[j], f.alpha[j], f.P[j]), 1e-3);
        }
        for (const auto& turns : {f.alpha, f.beta, f.gamma}) {
            EXPECT_EQ(turns[0], 0);
            EXPECT_EQ(turns[2] == 0, positions == 2);
        }
        EXPECT_EQ(f.P[0], Vector(0));
        EXPECT_EQ(f.P[2] == Vector(0), positions == 2);
        EXPECT_NEAR(f.theta * kRadians, std::arg(f.W), 1e-9);
        EXPECT_NEAR(f.xi * kRadians, std::arg(f.S), 1e-9);
    }
}

TEST_F(DyadDiagram, BeforeAnythingIsSolvedThereIsASketch) {
    EXPECT_FALSE(Dyads_In_Force(2).to_scale);
    EXPECT_FALSE(Dyads_In_Force(3).to_scale);
    EXPECT_EQ(Dyads_In_Force(2).W, Dyad_Sketch(2).W);
    for (Single* datum : {&Model.SynWx, &Model.SynWy, &Model.SynZx, &Model.SynZy, &Model.SynUx, &Model.SynUy,
                          &Model.SynSx, &Model.SynSy, &Model.P21x, &Model.P21y})
        *datum = 0;
    EXPECT_FALSE(Dyads_In_Force(2).to_scale) << "nothing that goes nowhere is no dyad";
}

TEST_F(DyadDiagram, SolvedDyadsAreTheOnesDrawn) {
    Solve_Two();
    const DyadFigure f = Dyads_In_Force(2);
    EXPECT_TRUE(f.to_scale);
    EXPECT_EQ(f.W, Vector(Model.SynWx, Model.SynWy));
    EXPECT_EQ(f.S, Vector(Model.SynSx, Model.SynSy));
    EXPECT_EQ(f.theta, Model.SynTheta);
    EXPECT_EQ(f.gamma[1], Model.SynGamma2);
    EXPECT_EQ(f.P[1], Vector(Model.P21x, Model.P21y));
    EXPECT_FALSE(Dyads_In_Force(3).to_scale) << "they do not lead through the third position";
}

TEST_F(DyadDiagram, DyadsThatMissTheirPositionAreNotDrawnAsIfTheyReachedIt) {
    for (Single* changed : {&Model.SynBeta2, &Model.SynGamma2, &Model.P21y, &Model.SynAlpha2}) {
        Solve_Two();
        const Single before = *changed;
        *changed += 1;
        EXPECT_FALSE(Dyads_In_Force(2).to_scale);
        *changed = before;
        EXPECT_TRUE(Dyads_In_Force(2).to_scale);
    }
}

TEST_F(DyadDiagram, SolvedDyadsOfThreePositionsAreDrawnWithAllTheirAngles) {
    Take_Half_Turns({1, 2}, {3, -1});
    Model.SynAlpha2 = 40;
    Model.SynAlpha3 = -70;
    const Vector P2 = Vector(1, 2) * -2.0 + Turned({3, -1}, 40) - Vector(3, -1);
    const Vector P3 = Turned({1, 2}, 90) - Vector(1, 2) + Turned({3, -1}, -70) - Vector(3, -1);
    Model.P21x = P2.real();
    Model.P21y = P2.imag();
    Model.P31x = P3.real();
    Model.P31y = P3.imag();
    Model.SynTheta = 1;
    Model.SynPhi = 2;
    Model.SynSigma = 3;
    Model.SynXi = 4;
    const DyadFigure f = Dyads_In_Force(3);
    EXPECT_TRUE(f.to_scale);
    EXPECT_EQ(f.positions, 3);
    for (const Vector link : {f.W, f.U}) EXPECT_EQ(link, Vector(1, 2));
    for (const Vector arm : {f.Z, f.S}) EXPECT_EQ(arm, Vector(3, -1));
    EXPECT_EQ(f.theta, 1);
    EXPECT_EQ(f.phi, 2);
    EXPECT_EQ(f.sigma, 3);
    EXPECT_EQ(f.xi, 4);
    EXPECT_EQ(f.alpha, (std::array<double, 3>{0, 40, -70}));
    EXPECT_EQ(f.beta, (std::array<double, 3>{0, 180, 90}));
    EXPECT_EQ(f.gamma, (std::array<double, 3>{0, 180, 90}));
    EXPECT_EQ(f.P[0], Vector(0));
    EXPECT_EQ(f.P[2], Vector(Model.P31x, Model.P31y));
}

TEST_F(DyadDiagram, ADyadMayMissItsPositionsByAThousandthOfTheLengths) {
    // Lengths of 1, 1 and 2; whichever of the dyads it is that misses.
    const auto drawn = [](double miss) { return Missed(Model.P21y, miss, 2); };
    EXPECT_TRUE(drawn(0.0038));
    EXPECT_FALSE(drawn(0.0044));
    for (Single* link : {&Model.SynWy, &Model.SynUy}) {
        EXPECT_TRUE(Missed(*link, 0.0018, 2)) << "it counts twice in what is moved";
        EXPECT_FALSE(Missed(*link, 0.0022, 2));
    }
    EXPECT_TRUE(Missed(Model.P31y, 0.0032, 3));
    EXPECT_FALSE(Missed(Model.P31y, 0.0038, 3)) << "of 1, 1 and the root of 2";
    for (Single* arm : {&Model.SynZy, &Model.SynSy}) EXPECT_TRUE(Missed(*arm, 5, 3)) << "the coupler does not turn";
}

TEST_F(DyadDiagram, DyadsOfGivenPivotsMayMissThemByAHundredthOfTheLengths) {
    Model.SpecifiedPivots = true;
    for (Single* place : {&Model.O2y, &Model.O4y}) {
        EXPECT_TRUE(Missed(*place, 0.038, 3));
        EXPECT_FALSE(Missed(*place, 0.044, 3));
        EXPECT_TRUE(Missed(*place, 0.044, 2)) << "two positions have no given pivots";
    }
    Model.SpecifiedPivots = false;
    EXPECT_TRUE(Missed(Model.O2x, 5, 3));
}

TEST_F(DyadDiagram, DyadsLargerThanAnyPictureAreNotDrawn) {
    for (const double size : {9e11, 1.1e12}) {
        Take_Half_Turns({size, 0}, {1, 0});
        EXPECT_EQ(Dyads_In_Force(2).to_scale, size < 1e12);
        Take_Half_Turns({1, 0}, {size, 0});
        EXPECT_EQ(Dyads_In_Force(2).to_scale, size < 1e12);
    }
}

TEST_F(DyadDiagram, TheWindowIsSquareWithYUpward) {
    for (int positions : {2, 3}) {
        Draw(Dyad_Sketch(positions));
        EXPECT_GT(picture.Top(), picture.Bottom());
        EXPECT_NEAR(picture.Right() - picture.Left(), picture.Top() - picture.Bottom(), 1e-9);
        EXPECT_EQ(picture.Back(), Model.ColorWhite);
    }
}

TEST_F(DyadDiagram, EveryVectorIsDrawnInEveryPosition) {
    for (int positions : {2, 3}) {
        const DyadFigure f = Dyad_Sketch(positions);
        Draw(f);
        const Vector O2 = -f.W - f.Z, O4 = -f.U - f.S;
        for (std::size_t j = 0; j < static_cast<std::size_t>(positions); ++j) {
            const Vector A = O2 + Turned(f.W, f.beta[j]), B = O4 + Turned(f.U, f.gamma[j]);
            const Color left = j == 0 ? Model.ColorBlue : 0xFF9999, right = j == 0 ? Model.ColorRed : 0x9999FF;
            EXPECT_TRUE(Drawn(O2, A, left)) << j;
            EXPECT_TRUE(Drawn(A, f.P[j], left)) << j;
            EXPECT_TRUE(Drawn(O4, B, right)) << j;
            EXPECT_TRUE(Drawn(B, f.P[j], right)) << j;
            EXPECT_TRUE(Drawn(A, B, j == 0 ? Model.ColorGray : 0xCCCCCC)) << j;
            if (j > 0) {
                EXPECT_TRUE(Drawn(0, f.P[j], Model.ColorMagenta)) << j;
            }
        }
    }
}

TEST_F(DyadDiagram, CouplerPointsAreMagentaAndPivotsStandOnATriangleWithSixHatches) {
    for (int positions : {2, 3}) {
        const DyadFigure f = Dyad_Sketch(positions);
        Draw(f);
        const double near = 1e-9 * (picture.Right() - picture.Left());
        const auto count = [&](Kind kind, Color color, Vector at) {
            return std::ranges::count_if(picture.Primitives(), [&](const Picture::Primitive& drawn) {
                return drawn.alive && drawn.kind == kind && drawn.color == color &&
                       std::abs(Vector(drawn.x1, drawn.y1) - at) < near;
            });
        };
        for (std::size_t j = 0; j < static_cast<std::size_t>(positions); ++j)
            EXPECT_GE(count(Kind::kPin, Model.ColorMagenta, f.P[j]), 1) << j;
        for (const Vector pivot : {-f.W - f.Z, -f.U - f.S})
            EXPECT_EQ(count(Kind::kMark, Model.ColorBlack, pivot), 3 + 6);
    }
}

TEST_F(DyadDiagram, NamesAndAnglesOfTwoPositions) {
    EXPECT_EQ(Names(Draw(Dyad_Sketch(2))),
              (std::set<std::string>{"W", "Z", "U", "S", "P21", "O2", "O4", "P1", "P2", "Theta", "Phi", "Sigma", "Xi",
                                     "Theta1", "Alpha2", "Beta2", "Gamma2", "Delta"}));
}

TEST_F(DyadDiagram, NamesAndAnglesOfThreePositions) {
    EXPECT_EQ(Names(Draw(Dyad_Sketch(3))),
              (std::set<std::string>{"W",      "Z",      "U",     "S",     "P21",    "P31",    "O2",     "O4",
                                     "P1",     "P2",     "P3",    "Theta", "Phi",    "Sigma",  "Xi",     "Theta1",
                                     "Alpha2", "Alpha3", "Beta2", "Beta3", "Gamma2", "Gamma3", "Delta2", "Delta3"}));
}

TEST_F(DyadDiagram, NamesBelongBesideWhatTheyName) {
    const DyadFigure f = Dyad_Sketch(3);
    const auto marks = Draw(f);
    const Vector O2 = -f.W - f.Z, O4 = -f.U - f.S;
    EXPECT_LT(std::abs(Place(marks, "W") - (O2 + f.W / 2.0)), 1e-9);
    EXPECT_LT(std::abs(Place(marks, "Z") + f.Z / 2.0), 1e-9);
    EXPECT_LT(std::abs(Place(marks, "U") - (O4 + f.U / 2.0)), 1e-9);
    EXPECT_LT(std::abs(Place(marks, "P31") - f.P[2] / 2.0), 1e-9);
    EXPECT_LT(std::abs(Place(marks, "P2") - f.P[1]), 1e-9);
    // Turns: midway between the directions of the link before and after, at a distance from the pivot.
    const auto direction = [](Vector v) { return std::arg(v) / kRadians; };
    EXPECT_NEAR(direction(Place(marks, "Beta2") - O2), direction(f.W) + f.beta[1] / 2, 1e-6);
    EXPECT_NEAR(direction(Place(marks, "Beta3") - O2), direction(f.W) + (f.beta[1] + f.beta[2]) / 2, 1e-6);
    EXPECT_NEAR(direction(Place(marks, "Theta") - O2), f.theta / 2, 1e-6);
    EXPECT_NEAR(direction(Place(marks, "Gamma2") - O4), direction(f.U) + f.gamma[1] / 2, 1e-6);
    const Vector A2 = O2 + Turned(f.W, f.beta[1]);
    EXPECT_NEAR(direction(Place(marks, "Alpha2") - A2), direction(f.Z) + f.alpha[1] / 2, 1e-6);
    EXPECT_NEAR(direction(Place(marks, "Delta2")), direction(f.P[1]) / 2, 1e-6);
}

TEST_F(DyadDiagram, ASecondTurnIsNamedInWhatItHasBeyondTheFirst) {
    const auto named_at = [this](double second, double third) {
        DyadFigure f = Dyad_Sketch(3);
        f.beta = {0, second, third};
        return Direction(Place(Draw(f), "Beta3") + f.W + f.Z) - Direction(f.W);
    };
    EXPECT_NEAR(named_at(0.5, 1.1), 0.8, 1e-6);
    EXPECT_NEAR(named_at(20, 60), 40, 1e-6);
    EXPECT_NEAR(named_at(-20, -60), -40, 1e-6);
    EXPECT_NEAR(named_at(30, 30), 15, 1e-6);
    EXPECT_NEAR(named_at(60, 20), 10, 1e-6);
    EXPECT_NEAR(named_at(-20, 60), 30, 1e-6);
}

// The third has its pivots the other way round, a link of negative length and one too short for a whole head, turns the
// other way round and two of no size to see.
TEST_F(DyadDiagram, IsDrawnCallByCall) {
    Expect_Calls("dyads_two", Dyad_Sketch(2));
    Expect_Calls("dyads_three", Dyad_Sketch(3));
    DyadFigure f = Dyad_Sketch(3);
    std::swap(f.W, f.U);
    std::swap(f.Z, f.S);
    f.U *= 0.1;
    f.theta = Direction(f.W) + 180;
    f.phi = Direction(f.Z) - 720;
    f.sigma = Direction(f.U);
    f.xi = Direction(f.S);
    f.beta = {0, -20, 0.04};
    f.gamma = {0, -30, 50};
    f.alpha = {0, 200, -0.04};
    f.P[1] = {-0.1, -1.5};
    Expect_Calls("dyads_turned", f);
}

TEST_F(DyadDiagram, EverythingLiesWithinTheWindow) {
    for (int positions : {2, 3}) Expect_All_Inside(Draw(Dyad_Sketch(positions)));
    Solve_Two();
    Expect_All_Inside(Draw(Dyads_In_Force(2)));
}

TEST_F(DyadDiagram, TheFigureDoesNotDependOnItsSize) {
    DyadFigure f = Dyad_Sketch(2);
    Draw(f);
    const auto before = picture.Alive();
    const double width = picture.Right() - picture.Left();
    for (Vector* v : {&f.W, &f.Z, &f.U, &f.S, &f.P[1]}) *v *= 1024;
    Draw(f);
    EXPECT_EQ(picture.Alive(), before);
    EXPECT_NEAR((picture.Right() - picture.Left()) / width, 1024, 1e-6);
}

TEST_F(DyadDiagram, AnAngleHasAnArcFromATwentiethOfADegreeOn) {
    const auto drawn = [this](double turn) {
        DyadFigure f = Dyad_Sketch(2);
        f.beta[1] = turn;
        Draw(f);
        return picture.Alive();
    };
    for (const double sign : {1.0, -1.0}) {
        EXPECT_EQ(drawn(sign * 0.049), drawn(sign * 0.01));
        // Two pieces, and a head of 13 strokes.
        EXPECT_EQ(drawn(sign * 0.051), drawn(sign * 0.01) + 2 + 13);
    }
}

TEST_F(DyadDiagram, AnglesOfZeroHaveNoArcAndADisplacementOfZeroHasNoDirection) {
    DyadFigure f;
    f.W = {0, 2};
    f.Z = {1, 1};
    f.U = {0, 3};
    f.S = {-1, 1};
    const auto names = Names(Draw(f));
    EXPECT_TRUE(names.contains("P21"));
    EXPECT_TRUE(names.contains("Beta2"));
    EXPECT_FALSE(names.contains("Delta"));
}

TEST_F(DyadDiagram, PivotsThatAreOneHaveTheirNameBelow) {
    DyadFigure f = Dyad_Sketch(2);
    f.U = f.W;
    f.S = f.Z;
    const auto marks = Draw(f);
    EXPECT_LT(std::abs(Place(marks, "Theta1") + f.W + f.Z), 1e-9);
    const auto mark = std::ranges::find(marks, "Theta1", &DyadMark::name);
    EXPECT_EQ(mark->at.right, 0);
    EXPECT_EQ(mark->at.below, 1);
}

TEST_F(DyadDiagram, ADyadOfNoLengthIsDrawnAsAPoint) {
    for (int positions : {2, 3}) {
        DyadFigure f;
        f.positions = positions;
        EXPECT_FALSE(Draw(f).empty());
        EXPECT_NEAR(picture.Right() - picture.Left(), 1e-6 / 0.72, 1e-15);
    }
}

TEST_F(DyadDiagram, TurnsBeyondAWholeOneAreDrawnAsTheRest) {
    DyadFigure f = Dyad_Sketch(2);
    const auto plain = Draw(f);
    const auto drawn = picture.Alive();
    f.beta[1] += 360;
    f.alpha[1] -= 360;
    f.theta += 720;
    const auto turned = Draw(f);
    EXPECT_EQ(picture.Alive(), drawn);
    EXPECT_LT(std::abs(Place(turned, "Beta2") - Place(plain, "Beta2")), 1e-6);
}

TEST_F(DyadDiagram, AnyDyadsCanBeDrawn) {
    const unsigned seed = std::random_device{}();
    std::cout << "[  seed    ] " << seed << '\n';
    std::mt19937 chance(seed);
    std::uniform_real_distribution<double> unit(-1, 1), magnitude(-4, 4);
    const auto vector = [&] { return Vector(unit(chance), unit(chance)) * std::pow(10.0, magnitude(chance)); };
    const auto angle = [&] { return 400 * unit(chance); };
    for (int round = 0; round < 200; ++round) {
        DyadFigure f;
        f.positions = 2 + round % 2;
        for (Vector* v : {&f.W, &f.Z, &f.U, &f.S, &f.P[1], &f.P[2]}) *v = vector();
        for (double* a : {&f.theta, &f.phi, &f.sigma, &f.xi, &f.alpha[1], &f.alpha[2], &f.beta[1], &f.beta[2],
                          &f.gamma[1], &f.gamma[2]})
            *a = angle();
        const auto marks = Draw(f);
        EXPECT_EQ(marks.size(), f.positions == 2 ? 18U : 24U) << round;
        EXPECT_LT(picture.Primitives().size(), 3000U) << round;
        for (const DyadMark& mark : marks) {
            EXPECT_TRUE(mark.at.across >= 0 && mark.at.across <= 1) << mark.name;
            EXPECT_TRUE(mark.at.down >= 0 && mark.at.down <= 1) << mark.name;
            EXPECT_TRUE(std::isfinite(mark.at.right) && std::isfinite(mark.at.below)) << mark.name;
        }
    }
}

TEST_F(DyadDiagram, NamesAndValuesOverlapNowhere) {
    constexpr double kHigh = 16, kWide = 95;  // a name and a value in an ordinary font
    Solve_Two();
    for (const DyadFigure& f : {Dyad_Sketch(2), Dyad_Sketch(3), Dyads_In_Force(2)})
        for (const double side : {440.0, 560.0, 900.0}) {
            std::vector<platform::LabelWish> wishes;
            for (const DyadMark& mark : Draw(f)) {
                const bool point = mark.name.size() == 2;
                wishes.push_back({mark.at, point ? 16 : kWide, kHigh});
            }
            const auto places = platform::Find_Label_Places(picture, side, wishes);
            for (std::size_t i = 0; i < places.size(); ++i)
                for (std::size_t j = 0; j < i; ++j)
                    EXPECT_FALSE(places[i].x < places[j].x + wishes[j].width &&
                                 places[j].x < places[i].x + wishes[i].width && places[i].y < places[j].y + kHigh &&
                                 places[j].y < places[i].y + kHigh)
                        << i << " " << j << " at " << side;
        }
}

}  // namespace verlink::test
