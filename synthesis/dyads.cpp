// Dyads of two and three positions solved, and two of them joined into the linkage that the input screen gets.
#include "synthesis/dyads.h"

#include <array>
#include <cmath>
#include <complex>
#include <limits>
#include <string>
#include <utility>

#include "core/linkage_door.h"
#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/parameters.h"
#include "core/text.h"
#include "platform/desktop_services.h"
#include "platform/guard.h"
#include "platform/screen.h"

namespace verlink {

using platform::CR;
using platform::TextBox;

namespace {

const char kNoMagnitudes[] = " Attempting to divide by zero in TwoPosition, Method 1";
const char kNoVector[] = " Attempting to divide by zero in TwoPosition, Method 2";
const char kSingular[] = "An error has occurred in Simq - check your data - matrix is singular - Threepos";
const char kNoRotations[] = "Something is wrong - trying to take the square root of a negative number in FixedPivots";

constexpr double kFullTurn = 360, kHalfTurn = 180;
constexpr char kInput[] = "frm_Inputnew";

/// By how much a stored angle may be off: the last place of its number. Degrees; radians come out.
double Last_Place(double degrees) { return std::abs(degrees) * kDegToRad * std::numeric_limits<float>::epsilon(); }

double Half(double degrees) { return degrees * kDegToRad / 2; }

/// An angle whose sine is not to be told from 0.
bool Is_Level(double radians, double open) { return std::abs(std::sin(radians)) <= open; }

/// A turn that moves nothing.
bool Is_Whole_Turn(Single degrees) { return Is_Level(Half(degrees), Last_Place(degrees) / 2); }

/// Two vectors that change along one line, or one that does not change: a vector moves square to the middle of its
/// turn.
bool Moves_Along_One_Line(Single angle1, Single turn1, Single angle2, Single turn2) {
    const double apart = (angle2 - angle1) * kDegToRad + Half(turn2) - Half(turn1);
    const double open = Last_Place(angle1) + Last_Place(angle2) + (Last_Place(turn1) + Last_Place(turn2)) / 2;
    return Is_Whole_Turn(turn1) || Is_Whole_Turn(turn2) || Is_Level(apart, open);
}

/// How a vector changes that turns, as a factor, and by how much that is open.
struct Change {
    explicit Change(Single degrees)
        : factor(2 * std::sin(Half(degrees)) * std::polar(1.0, Half(degrees))),  // but for a quarter turn
          size(std::abs(factor)),
          open(Last_Place(degrees)) {}

    std::complex<double> factor;
    double size, open;
};

/// The equations of three positions have no solution that the last places of their turns would not change beyond
/// recognition.
bool Is_Singular(const Change& alpha2, const Change& alpha3, const Change& beta2, const Change& beta3) {
    const double determinant = std::abs(beta2.factor * alpha3.factor - beta3.factor * alpha2.factor);
    return determinant <=
           beta2.size * alpha3.open + alpha3.size * beta2.open + beta3.size * alpha2.open + alpha2.size * beta3.open;
}

void Put_Box(const char* name, int index, const std::string& text) {
    platform::With<TextBox>(kInput, name, index, [&](TextBox& box) { box.Text = text; });
}

/// The crank's range from its angle in position 1 and its turn to the last position.
void Set_Crank_Range(Integer mode, Single start, Single beta2, Single beta3) {
    if (mode < 1 || mode > 4) return;
    const Single turn = mode == 1 ? beta2 : beta3;
    Modulo(start, kFullTurn, Model.ThetaStart);
    Modulo(start + turn, kFullTurn, Model.ThetaEnd);
    // The middle position is half way, wherever position 2 lies.
    Model.ThetaStep = mode == 1 ? static_cast<double>(beta2) : (Model.ThetaEnd - Model.ThetaStart) / 2;
}

/// The speed as entered runs the crank the way that the positions follow each other; a negative one that the user has
/// entered stays.
void Turn_Speed(bool clockwise) {
    Single& speed = Model.Omega2Input;
    if (clockwise && speed > 0.0) {
        speed = -speed;
        Model.TurnedOmega2 = speed;
    } else if (!clockwise && speed < 0.0 && speed == Model.TurnedOmega2) {
        speed = -speed;
        Model.TurnedOmega2 = 0;
    }
    Model.Omega2 = speed;
}

/// True when the range has been turned round: it ends at position 1.
bool Run_Upward() {
    const bool clockwise = Model.ThetaStart > Model.ThetaEnd;
    if (clockwise) {
        std::swap(Model.ThetaStart, Model.ThetaEnd);
        Model.ThetaStep = -Model.ThetaStep;
    }
    Turn_Speed(clockwise);
    return clockwise;
}

void Derive_Crank_Range() {
    constexpr int kDecimals = 2;
    Model.ThetaStartStr = FNRoundStr(Model.ThetaStart, kDecimals);
    Model.ThetaEndStr = FNRoundStr(Model.ThetaEnd, kDecimals);
    Model.ThetaStepStr = FNRoundStr(Model.ThetaStep, kDecimals);
    Model.ThetaStartRad = Model.ThetaStart * kDegToRad;
    Model.ThetaEndRad = Model.ThetaEnd * kDegToRad;
    Model.ThetaStepRad = Model.ThetaEndRad - Model.ThetaStartRad;  // the whole range, not the step
}

void Put_On_Input_Screen() {
    Put_Box("txt_initial", 0, Text_Of(Single(Val(Model.ThetaStartStr))));
    Put_Box("txt_initial", 1, Text_Of(Single(Val(Model.ThetaEndStr))));
    Put_Box("txt_initial", 2, Text_Of(Single(Val(Model.ThetaStepStr))));
    platform::With<platform::OptionButton>(kInput, "opt_Polar", 1,
                                           [](platform::OptionButton& option) { option.Value = true; });
    Put_Box("txt_initial", 3, Text_Of(Model.Omega2Input));
    if (platform::Screen* input = platform::Screens::Find(kInput)) Put_Linkage_Geometry(*input);
}

std::string Report(Integer mode, Single link1Angle, bool clockwise) {
    const auto length = [](double value) {
        return FNRoundStr(value * Shown_Factor(), Model.DecLengthShown) + " " + Model.UnitLabel(6);
    };
    const auto angle = [](double value) { return FNRoundStr(value, 2) + " deg"; };
    const auto crank_at = [&](int position, double value) {
        return " Theta2 at position " + std::to_string(position) + " in the global coord system is " + angle(value) +
               CR;
    };
    std::string text = std::string(" The resulting link lengths and coupler point location are:") + CR + CR;
    text += "  L1 = " + length(Model.L1) + " at an angle of " + angle(link1Angle) + CR;
    text += "  L2 = " + length(Model.L2) + CR;
    text += "  L3 = " + length(Model.L3) + CR;
    text += "  L4 = " + length(Model.L4) + CR + CR;
    text += " The Precision (coupler) Point is at: " + length(Model.Rpa) + " @ " + angle(Model.Delta) + CR + CR;
    text += crank_at(1, clockwise ? Model.ThetaEnd : Model.ThetaStart);
    if (mode != 1) text += crank_at(2, Model.ThetaStep + Model.ThetaStart);
    text += crank_at(mode == 1 ? 2 : 3, clockwise ? Model.ThetaStart : Model.ThetaEnd);
    text += CR;
    text += std::string(" These data have been transferred to the Input and Animate screens.") + CR + CR;
    text += std::string(" Note that this synthesis procedure cannot predict which circuit (open ") + CR;
    text += std::string(" or crossed) of the linkage is required to obtain the specified positions.") + CR;
    text += " You will have to try each circuit from the input sheet to find out.";
    return text;
}

}  // namespace

bool TwoPos(Integer method, Single P21x, Single P21y, Single alpha, Single beta, Single& angle1, Single& angle2,
            Single& mag1, Single& x1, Single& y1, Single& mag2, Single& x2, Single& y2) {
    bool found = false;
    Guarded("TwoPos", [&] {
        const double sb = std::sin(beta * kDegToRad), cb = std::cos(beta * kDegToRad);
        const double sa = std::sin(alpha * kDegToRad), ca = std::cos(alpha * kDegToRad);
        const double s1 = std::sin(angle2 * kDegToRad), c1 = std::cos(angle2 * kDegToRad);
        const double s2 = std::sin(angle1 * kDegToRad), c2 = std::cos(angle1 * kDegToRad);
        if (method == 1) {
            const double A = (cb - 1) * c2 - s2 * sb;
            const double B = (ca - 1) * c1 - sa * s1;
            const double D = (cb - 1) * s2 + c2 * sb;
            const double E = (ca - 1) * s1 + sa * c1;
            const double Det = E * A - D * B;
            if (Det == 0 || Moves_Along_One_Line(angle1, beta, angle2, alpha)) {
                platform::Tell(kNoMagnitudes);
                return;
            }
            mag1 = (E * P21x - P21y * B) / Det;
            mag2 = (P21y * A - D * P21x) / Det;
            x1 = mag1 * c2;
            y1 = mag1 * s2;
            x2 = mag2 * c1;
            y2 = mag2 * s1;
            found = true;
        } else if (method == 2) {
            x2 = mag2 * c1;
            y2 = mag2 * s1;
            const double A = cb - 1, C = ca - 1;
            const double Den = A * -2.0;
            if (Den == 0 || Is_Whole_Turn(beta)) {
                platform::Tell(kNoVector);
                return;
            }
            const double Rx = -C * x2 + y2 * sa + P21x;
            const double Ry = -C * y2 - x2 * sa + P21y;
            x1 = (Rx * A + Ry * sb) / Den;
            y1 = (Ry * A - Rx * sb) / Den;
            Cart_to_Polar(x1, y1, mag1, angle1);
            found = true;
        }
    });
    return found;
}

void ThreePos(Single P21x, Single P21y, Single P31x, Single P31y, Single alpha2, Single alpha3, Single beta2,
              Single beta3, Single& wx, Single& wy, Single& zx, Single& zy) {
    Guarded("ThreePos", [&] {
        const double sb2 = std::sin(beta2 * kDegToRad), cb2 = std::cos(beta2 * kDegToRad);
        const double sb3 = std::sin(beta3 * kDegToRad), cb3 = std::cos(beta3 * kDegToRad);
        const double sa2 = std::sin(alpha2 * kDegToRad), ca2 = std::cos(alpha2 * kDegToRad);
        const double sa3 = std::sin(alpha3 * kDegToRad), ca3 = std::cos(alpha3 * kDegToRad);
        std::array<double, 16> A{
            cb2 - 1, -sb2,    ca2 - 1, -sa2,     //
            cb3 - 1, -sb3,    ca3 - 1, -sa3,     //
            sb2,     cb2 - 1, sa2,     ca2 - 1,  //
            sb3,     cb3 - 1, sa3,     ca3 - 1,  //
        };
        std::array<double, 4> B{P21x, P31x, P21y, P31y};
        Integer N = 4;
        Model.SimqAnswer = 0;
        SimQ(N, A, B, Model.SimqError);
        // Rounding hides from the elimination what is singular by its numbers: two of four columns go to nothing.
        const bool singular = Is_Singular(Change(alpha2), Change(alpha3), Change(beta2), Change(beta3));
        if (Model.SimqError == 0 && singular) Model.SimqError = 3;
        if (Model.SimqError != 0) {
            Model.SimqAnswer =
                static_cast<int>(platform::The_Desktop().Show_Message({.text = kSingular,
                                                                       .icon = platform::Icon::kExclamation,
                                                                       .buttons = platform::Buttons::kRetryCancel,
                                                                       .default_button = 2}));
            return;
        }
        wx = B[0];
        wy = B[1];
        zx = B[2];
        zy = B[3];
    });
}

bool FixedPivots(Single ox, Single oy, Single& beta2, Single& beta3) {
    bool found = false;
    Guarded("FixedPivots", [&] {
        const Single alpha2 = Model.SynAlpha2, alpha3 = Model.SynAlpha3;
        Single R1, z1, R2, z2, R3, z3;
        Cart_to_Polar(Model.P1x - ox, Model.P1y - oy, R1, z1);
        Cart_to_Polar(Model.P21x + Model.P1x - ox, Model.P21y + Model.P1y - oy, R2, z2);
        Cart_to_Polar(Model.P31x + Model.P1x - ox, Model.P31y + Model.P1y - oy, R3, z3);
        const auto Cos = [](double degrees) { return std::cos(degrees * kDegToRad); };
        const auto Sin = [](double degrees) { return std::sin(degrees * kDegToRad); };
        const Single C1 = R3 * Cos(z3 + alpha2) - R2 * Cos(alpha3 + z2);
        const Single C2 = R3 * Sin(z3 + alpha2) - R2 * Sin(alpha3 + z2);
        const Single C3 = R1 * Cos(alpha3 + z1) - R3 * Cos(z3);
        const Single C4 = -R1 * Sin(alpha3 + z1) + R3 * Sin(z3);
        const Single C5 = R1 * Cos(alpha2 + z1) - R2 * Cos(z2);
        const Single C6 = -R1 * Sin(alpha2 + z1) + R2 * Sin(z2);
        const Single A1 = -C3 * C3 - C4 * C4;
        const Single A2 = C3 * C6 - C4 * C5;
        const Single A3 = -C4 * C6 - C3 * C5;
        const Single A4 = C2 * C3 + C1 * C4;
        const Single A5 = C4 * C5 - C3 * C6;
        const Single A6 = C1 * C3 - C2 * C4;
        const Single K1 = A2 * A4 + A3 * A6;
        const Single K2 = A3 * A4 + A5 * A6;
        const Single K3 = (A1 * A1 - A2 * A2 - A3 * A3 - A4 * A4 - A6 * A6) / 2;
        const Single D = K1 * K1 + K2 * K2 - K3 * K3;
        // Positions that coincide leave nothing to turn about.
        if (D < 0 || A1 == 0) {
            platform::Tell(kNoRotations);
            return;
        }
        const Single b1 = 2 * Atan2D(K1 + K3, K2 + std::sqrt(D));
        const Single b2 = 2 * Atan2D(K1 + K3, K2 - std::sqrt(D));
        // One root is the dyad turning with the coupler as one body, which is no solution.
        const Single same = 0.05;
        const Single d = std::abs(b1 - alpha3);
        beta3 = same <= d && same <= std::abs(d - kFullTurn) ? b1 : b2;
        Solve_Beta2(beta3, A1, A2, A3, A4, A5, A6, beta2);
        if (beta3 > kHalfTurn) beta3 -= kFullTurn;
        found = true;
    });
    return found;
}

void Solve_Beta2(Single beta3, Single A1, Single A2, Single A3, Single A4, Single A5, Single A6, Single& beta2) {
    Guarded("Solve_Beta2", [&] {
        const double sine = std::sin(beta3 * kDegToRad), cosine = std::cos(beta3 * kDegToRad);
        const Single cb = Divide(A5 * sine + A3 * cosine + A6, A1);
        const Single a = FNArcCos(cb) * kRadToDeg;
        const Single sb = Divide(A3 * sine + A2 * cosine + A4, A1);
        const Single s = FNArcSin(sb) * kRadToDeg;
        beta2 = Quadrant_Fix(a, s);
    });
}

Single Quadrant_Fix(Single a, Single s) {
    if (s >= 0) return a;
    return a < 0 ? Single(kHalfTurn - s) : s;  // `s` also for an angle of the third quadrant
}

void Assemblevlnk(Integer mode, Single wx, Single wy, Single zx, Single zy, Single ux, Single uy, Single sx, Single sy,
                  Single beta2, Single beta3, Single& link1Angle) {
    Guarded("Assemblevlnk", [&] {
        Single t2, t3, t4, tz;
        Enter_Linkage(Road::kSynthesis, [&] {
            Cart_to_Polar(wx, wy, Model.L2, t2);
            Cart_to_Polar(ux, uy, Model.L4, t4);
            Cart_to_Polar(zx - sx, zy - sy, Model.L3, t3);
            Cart_to_Polar(zx, zy, Model.Rpa, tz);
            Model.Delta = tz - t3;
            if (!Model.SpecifiedPivots) {
                Model.O2x = -(wx + zx);
                Model.O2y = -(wy + zy);
                Model.O4x = -(ux + sx);
                Model.O4y = -(uy + sy);
            }
            Cart_to_Polar(Model.O4x - Model.O2x, Model.O4y - Model.O2y, Model.L1, link1Angle);
            Model.Link1Angle = link1Angle;
            Model.PolarCoords = true;
            Model.Synthesized = true;
        });
        Set_Crank_Range(mode, t2, beta2, beta3);
        const bool clockwise = Run_Upward();
        Derive_Crank_Range();
        Put_On_Input_Screen();
        platform::Tell(Report(mode, link1Angle, clockwise));
    });
}

}  // namespace verlink
