// What the screens of synthesis say of free choices that stand near to those that give no linkage.
#include "design/choices.h"
#include "screens/synthesis_screen.h"
#include "tests/screens/synthesis_screens_fixture.h"

namespace verlink::test {

namespace {

using design::Choices;
using design::Point;

struct Trouble : SynthesisScreenTest {
    static Point Turn(double degrees) { return std::polar(1.0, degrees * kRadians) - 1.0; }
    /// The dyad with that Z whose end goes by P.
    static Point Link(Point P, Point arm, double link_turn, double arm_turn) {
        return (P - arm * Turn(arm_turn)) / Turn(link_turn);
    }
    /// The crank turns by so much, and the body by 40 degrees.
    static Choices Two(double beta2, Point Z) {
        Choices two{};
        two.alpha2 = 40;
        two.beta2 = beta2;
        two.gamma2 = 25;
        two.W = {1, 0.3};
        two.Z = Z;
        two.P21 = two.W * Turn(beta2) + Z * Turn(two.alpha2);
        two.S = {1.5, -0.5};
        two.U = Link(two.P21, two.S, two.gamma2, two.alpha2);
        return two;
    }
    /// Both links turn by so much more than the body, the right one the other way.
    static Choices Three(double more) {
        Choices three{};
        three.alpha2 = 40;
        three.alpha3 = 70;
        three.beta2 = 40 + more;
        three.beta3 = 70 - more;
        three.gamma2 = 15;
        three.gamma3 = 50;
        three.W = {1, 0.3};
        three.Z = {2, 1};
        three.P21 = three.W * Turn(three.beta2) + three.Z * Turn(three.alpha2);
        three.P31 = three.W * Turn(three.beta3) + three.Z * Turn(three.alpha3);
        const Point divisor = Turn(three.gamma2) * Turn(three.alpha3) - Turn(three.gamma3) * Turn(three.alpha2);
        three.U = (three.P21 * Turn(three.alpha3) - three.P31 * Turn(three.alpha2)) / divisor;
        three.S = (three.P31 * Turn(three.gamma2) - three.P21 * Turn(three.gamma3)) / divisor;
        return three;
    }
    static std::string Of(const char* screen, const Choices& choices) {
        return Made<Synthesis_Screen>(screen).Trouble_With(choices);
    }
};

constexpr char kNear[] = " it stands so near to none that their seven digits do not tell it";

}  // namespace

TEST_F(Trouble, OfGivenArmsIsALinkThatHardlyTurns) {
    EXPECT_EQ(Of("frm_Synth2B", Two(20, {2, 1})), "");
    const Choices near = Two(0.001, {2, 1});
    EXPECT_GT(design::Off_By_Arms(near), 1e-4);
    EXPECT_LT(design::Off_By_Arms(near), 0.1);
    EXPECT_EQ(Of("frm_Synth2B", near), std::string("with Z and S given") + kNear);
}

TEST_F(Trouble, OfGivenDirectionsIsThatBothVectorsMoveTheSameWay) {
    EXPECT_EQ(Of("frm_Synth2A", Two(20, {2, 1})), "");
    // A vector that turns moves across the direction in the middle of its turn.
    const double across = std::arg(Point(1, 0.3)) / kRadians + (20.0 - 40.0) / 2;
    const Choices near = Two(20, std::polar(2.0, (across + 0.002) * kRadians));
    EXPECT_GT(design::Off_By_Directions(near), 1e-4);
    EXPECT_LT(design::Off_By_Directions(near), 0.1);
    EXPECT_EQ(Of("frm_Synth2A", near), std::string("with the directions of all vectors given") + kNear);
}

TEST_F(Trouble, OfGivenTurnsIsALinkThatTurnsWithTheBody) {
    EXPECT_EQ(Of("frm_Synth3", Three(20)), "");
    const Choices near = Three(0.002);
    EXPECT_GT(design::Off_By_Turns(near), 1e-4);
    EXPECT_LT(design::Off_By_Turns(near), 0.1);
    EXPECT_EQ(Of("frm_Synth3", near), std::string("with the turns of both links given") + kNear);
}

}  // namespace verlink::test
