// One position in closed form: angles, speeds, accelerations, points, ratios.
#include "core/solver.h"

#include <cmath>

#include "core/centrodes.h"
#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/runs.h"
#include "shell/failure_report.h"

namespace verlink {

namespace {

[[gnu::cold, gnu::noinline]] void Refuse(Integer step, Integer& Result) {
    Integer last_point = 3;
    Noconnect(Model.Theta2Rad, step, last_point, Result);
}

/// Angle of a link by half-angle substitution: the root of a t^2 + b t + c, its discriminant given.
double Root_Angle(double a, double b, double discriminant, double sign) {
    return 2 * std::atan(Divide(-b + sign * std::sqrt(discriminant), 2 * a));
}

void Wrap(Single& angle, const std::string& mode) {
    if (mode == "abs") {
        if (angle < 0) angle += 360;
    } else if (mode == "180") {
        if (angle > 180) angle -= 360;
    }
}

void Store_Angles(int step) {
    const auto& m = Model;
    auto& theta = Model.RunTable.Theta;
    theta(step, 0) = m.Theta2Rad * kRadToDeg + m.Link1Angle;
    theta(step, 1) = m.Theta3Rad * kRadToDeg + m.Link1Angle;
    theta(step, 2) = m.Theta4Rad * kRadToDeg + m.Link1Angle;
    for (int row = 0; row <= 2; ++row) Wrap(theta(step, row), m.ModuloMode);
    // Only the first element of all is mended; a full turn at a later step stands.
    if (m.ModuloMode == "abs" && theta(0, 0) == 360) theta(0, 0) = 0;
    Single transmission = std::fabs(theta(step, 2) - theta(step, 1));
    if (transmission > 180) transmission = 360 - transmission;
    if (transmission > 90) transmission = 180 - transmission;
    theta(step, 3) = transmission;
}

void Store_Ratios(int step) {
    const double omega2 = Model.Omega2, omega4 = Model.Omega4;
    auto& table = Model.RunTable;
    if (omega2 != 0)
        table.OmegaRatio(step) = omega4 / omega2;
    else if (step > 0)
        table.OmegaRatio(step) = table.OmegaRatio(step - 1);
    // A rocker at rest leaves the element: here nothing is carried over from the step before.
    if (omega4 != 0) table.MechAdvantage(step) = omega2 / omega4;
}

void Solve(Integer at, Integer& Result) {
    const int step = at;
    auto& m = Model;
    auto& table = m.RunTable;
    const double L1 = m.L1, L2 = m.L2, L3 = m.L3, L4 = m.L4, Rpa = m.Rpa;
    const double sign = m.CircuitSign;

    table.Assembled(step) = true;
    const double th2 = m.Theta2Rad;
    const double s2 = m.SinTheta2 = std::sin(th2);
    const double c2 = m.CosTheta2 = std::cos(th2);

    const Single K1 = Divide(L1, L2), K2 = Divide(L1, L4), K4 = Divide(L1, L3);
    const Single K3 = Divide(L2 * L2 - L3 * L3 + L4 * L4 + L1 * L1, 2 * L2 * L4);
    const Single K5 = Divide(L4 * L4 - L1 * L1 - L2 * L2 - L3 * L3, 2 * L2 * L3);

    const Single A = K3 + c2 - K1 - K2 * c2;
    const Single B = -2 * s2;
    const Single C = K3 + K1 - (K2 + 1) * c2;
    const Single D4 = B * B - 4 * A * C;
    if (D4 < 0 || A == 0) return Refuse(at, Result);
    m.Theta4Rad = Root_Angle(A, B, D4, sign);
    const double th4 = m.Theta4Rad;
    const double s4 = m.SinTheta4 = std::sin(th4);
    const double c4 = m.CosTheta4 = std::cos(th4);

    const Single D = (K4 + 1) * c2 + K5 - K1;
    const Single E = -2 * s2;
    const Single F = (K4 - 1) * c2 + K5 + K1;
    const Single D3 = E * E - 4 * D * F;
    if (D3 < 0) return Refuse(at, Result);
    m.Ax = L2 * c2;
    m.Ay = L2 * s2;
    // This one refusal goes on, into the division by zero that ends the step with the reporter's message.
    if (D == 0) Refuse(at, Result);
    m.Theta3Rad = Root_Angle(D, E, D3, sign);
    const double th3 = m.Theta3Rad;
    const double s3 = m.SinTheta3 = std::sin(th3);
    const double c3 = m.CosTheta3 = std::cos(th3);
    const double sP = m.SinDelta3 = std::sin(m.DeltaRad + th3);
    const double cP = m.CosDelta3 = std::cos(m.DeltaRad + th3);

    m.Px = Rpa * cP + m.Ax;
    m.Py = Rpa * sP + m.Ay;
    m.Bx = L4 * c4 + L1;
    m.By = L4 * s4;

    const double S34 = std::sin(th3 - th4), S43 = std::sin(th4 - th3);
    if (S34 == 0 || S43 == 0) return Refuse(at, Result);
    const double w2 = m.Omega2;
    m.Omega3 = w2 * L2 / L3 * std::sin(th4 - th2) / S34;
    m.Omega4 = w2 * L2 / L4 * std::sin(th2 - th3) / S43;
    const double w3 = m.Omega3, w4 = m.Omega4;
    m.Omega2Sq = w2 * w2;
    m.Omega3Sq = w3 * w3;
    m.Omega4Sq = w4 * w4;
    const double w2sq = m.Omega2Sq, w3sq = m.Omega3Sq, w4sq = m.Omega4Sq;

    auto& velocity = table.VelXY;
    velocity(step, 0, 0) = w2 * L2 * -s2;
    velocity(step, 0, 1) = w2 * L2 * c2;
    velocity(step, 1, 0) = w4 * L4 * -s4;
    velocity(step, 1, 1) = w4 * L4 * c4;
    velocity(step, 2, 0) = w3 * Rpa * -sP + velocity(step, 0, 0);
    velocity(step, 2, 1) = w3 * Rpa * cP + velocity(step, 0, 1);

    const Single C1 = L4 * s4, C2 = L3 * s3;
    const Single C3 = m.Alpha2 * L2 * s2 + w2sq * L2 * c2 + w3sq * L3 * c3 - w4sq * L4 * c4;
    const Single C4 = L4 * c4, C5 = L3 * c3;
    // In an imported run C3 holds the acceleration of the step before, and C6 that of this one.
    if (m.Calctype > 3) m.Alpha2 = m.ImportedAlpha2;
    const double a2 = m.Alpha2;
    const Single C6 = a2 * L2 * c2 - w2sq * L2 * s2 - w3sq * L3 * s3 + w4sq * L4 * s4;
    const Single G = C5 * C1 - C4 * C2;
    if (G == 0) return Refuse(at, Result);
    m.Alpha3 = (C4 * C3 - C6 * C1) / G;
    m.Alpha4 = (C5 * C3 - C6 * C2) / G;
    const double a3 = m.Alpha3, a4 = m.Alpha4;

    auto& acceleration = table.AccXY;
    acceleration(step, 0, 0) = a2 * L2 * -s2 + w2sq * L2 * -c2;
    acceleration(step, 0, 1) = w2sq * L2 * -s2 + a2 * L2 * c2;
    acceleration(step, 1, 0) = a4 * L4 * -s4 + w4sq * L4 * -c4;
    acceleration(step, 1, 1) = w4sq * L4 * -s4 + a4 * L4 * c4;
    acceleration(step, 2, 0) = w3sq * Rpa * -cP + acceleration(step, 0, 0) + a3 * Rpa * -sP;
    acceleration(step, 2, 1) = w3sq * Rpa * -sP + acceleration(step, 0, 1) + a3 * Rpa * cP;
    acceleration(step, 3, 0) = -L4 * w4sq;
    acceleration(step, 3, 1) = a4 * L4;
    Single magnitude, direction;
    Cart_to_Polar(acceleration(step, 2, 0), acceleration(step, 2, 1), magnitude, direction);
    const Single on_coupler = direction - th3 * kRadToDeg;
    acceleration(step, 4, 0) = magnitude * std::cos(on_coupler * kDegToRad);
    acceleration(step, 4, 1) = magnitude * std::sin(on_coupler * kDegToRad);

    Store_Angles(step);
    Store_Ratios(step);

    const bool imported = m.Calctype >= 4;
    if (!imported) {
        table.Omega(step, 0) = m.Omega2;
        table.Alpha(step, 0) = m.Alpha2;
    }
    table.Omega(step, 1) = m.Omega3;
    table.Omega(step, 2) = m.Omega4;
    table.Alpha(step, 1) = m.Alpha3;
    table.Alpha(step, 2) = m.Alpha4;
    table.PointXY(step, 0, 0) = m.Ax;
    table.PointXY(step, 0, 1) = m.Ay;
    table.PointXY(step, 1, 0) = m.Bx;
    table.PointXY(step, 1, 1) = m.By;
    table.PointXY(step, 2, 0) = m.Px;
    table.PointXY(step, 2, 1) = m.Py;
    if (!imported && !m.Parallelogram) Centrodes(step);

    if (m.Units == 4 || m.Units == 5) {
        const double factor = Shown_Factor();
        Scale_Positions(step, factor, 0, 2);
        Scale_Velocities(step, factor, 0, 2);
        Scale_Accelerations(step, factor, 0, 4);
    }
    m.Calculated = true;
}

template <class Points>
void Scale(Points& points, int step, double factor, int First, int Last) {
    for (int point = First; point <= Last; ++point)
        for (int axis = 0; axis <= 1; ++axis) points(step, point, axis) *= factor;
}

}  // namespace

void Calculate(Integer step, Integer& Result) {
    Guarded("Calculate", [&] { Solve(step, Result); });
}

void Scale_Positions(int step, double factor, int First, int Last) {
    Guarded("Scale_Positions", [&] { Scale(Model.RunTable.PointXY, step, factor, First, Last); });
}

void Scale_Velocities(int step, double factor, int First, int Last) {
    Guarded("Scale_Velocities", [&] { Scale(Model.RunTable.VelXY, step, factor, First, Last); });
}

void Scale_Accelerations(int step, double factor, int First, int Last) {
    Guarded("Scale_Accelerations", [&] { Scale(Model.RunTable.AccXY, step, factor, First, Last); });
}

}  // namespace verlink
