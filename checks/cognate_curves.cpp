// The three cognates in Roberts' arrangement: what each row of the tables traces.
#include <algorithm>
#include <cmath>

#include "checks/designs.h"
#include "checks/estimate.h"
#include "checks/pose.h"
#include "checks/worst.h"
#include "core/linkage_model.h"
#include "synthesis/cognates.h"

namespace verlink::checks {

namespace {

Vector Unit(Vector v) { return v == Vector{} ? Vector{1} : v / std::abs(v); }

/// A cognate in its place beside the first linkage: pivots and joints of the side that its table calls the crank and of
/// the other, by parallelograms and similar triangles.
struct Placed {
    Vector pivot, pin, joint, other;
};

Placed Place(const Pose& p, double L1, int cognate, bool first_side) {
    const Vector k = (p.P - p.A) / (p.B - p.A), O4 = L1, O6 = k * L1;
    const Placed second{0, p.P - p.A, k * p.B, O6}, third{O4, O4 + p.P - p.B, p.P + k * (O4 - p.B), O6};
    const Placed& own = cognate == 2 ? second : third;
    return first_side ? own : Placed{own.other, own.joint, own.pin, own.pivot};
}

/// A row of a table: how far what it traces there is off the coupler point, and how wide its loop gapes.
double Departure(const CognateTable& table, int n, const Placed& at, bool mirrored, Vector P) {
    const Vector pin = at.pivot + double{table(n, 2)} * Unit(at.pin - at.pivot);
    const Vector along = Unit(at.joint - at.pin);
    const Vector joint = pin + double{table(n, 3)} * along;
    const Vector other = at.pivot + double{table(n, 1)} * Unit(at.other - at.pivot);
    const double delta = mirrored ? -table(n, 6) : +table(n, 6);
    const double miss = std::abs(pin + double{table(n, 5)} * along * Toward(delta) - P);
    return std::max(miss, std::abs(std::abs(joint - other) - table(n, 4)));
}

double Lengths(const CognateTable& table, int n) {
    double sum = 0;
    for (int item = 1; item <= 5; ++item) sum += table(n, item);
    return sum;
}

/// Of stored lengths, as a change of units rounds them.
double Decimal_Place(const LinkageModel& m) { return std::pow(10, -m.DecLength); }

bool Is_Rounded(const LinkageModel& m, const CognateTable& table, int n) {
    const double place = Decimal_Place(m);
    for (int item = 1; item <= 5; ++item) {
        const double length = table(n, item);
        if (std::abs(length - place * std::round(length / place)) > 2 * kHalfPlace * std::abs(length)) return false;
    }
    return true;
}

/// Side links of one length may be exchanged as well.
bool Is_Swapped(const CognateTable& cognates, const CognateTable& rows, int n) {
    for (const int item : {2, 4, 5, 6})
        if (cognates(n, item) != rows(n, item)) return true;
    return false;
}

void Compare_In_Hand(const LinkageModel& m, const CognateTable& table, double shown, Worst& worst) {
    const int n = m.CognateNumber;
    const Single now[] = {m.L1, m.L2, m.L3, m.L4, m.Rpa};
    const double expected = 4 * kHalfPlace * Lengths(table, n) * shown;
    for (int item = 1; item <= 5; ++item) {
        const double length = now[item - 1] * shown, own = table(n, item) * shown;
        const double off = std::abs(length - own);
        // As a change of units rounds it, and more coarsely than the boxes show it to whoever types beside it.
        if (off > expected && off <= 10 * Decimal_Place(m) * shown)
            worst.Add_By_Design(0, expected, off, -1, "the linkage in hand");
        else
            worst.Add(off, expected, -1, "the linkage in hand");
    }
}

}  // namespace

void Add_Cognates(const LinkageModel& m, std::vector<Check>& checks) {
    if (m.Parallelogram || m.L3 == 0 || m.Rpa == 0) return;
    CognateTable cognates = m.Cognates, rows = m.CayleyRows;
    if (m.CognatesDue) {
        const Single items[] = {m.L1, m.L2, m.L3, m.L4, m.Rpa, m.DeltaRad};
        for (int item = 1; item <= 6; ++item) cognates(1, item) = items[item - 1];
        Cayley(cognates, rows);
    }
    Worst worst("Cognates", m.UnitLabel(6));
    const double shown = Shown_Factor(m);
    if (!m.CognatesDue) Compare_In_Hand(m, cognates, shown, worst);
    const Shape first{
        cognates(1, 1), cognates(1, 2), cognates(1, 3), cognates(1, 4), cognates(1, 5), cognates(1, 6), true};
    constexpr int kPlaces = 72;
    for (int i = 0; i < 2 * kPlaces; ++i) {
        Shape shape = first;
        shape.open = i < kPlaces;
        const Pose pose = Pose_At(shape, 2 * M_PI * (i % kPlaces) / kPlaces);
        if (pose.P == pose.B) continue;  // nor are they anywhere where it does not close
        for (const int n : {2, 3}) {
            const bool swapped = Is_Swapped(cognates, rows, n);
            const auto add = [&](const CognateTable& table, bool turned, const char* place) {
                // Where the coupler point lies on a joint, one cognate has no extent, and its coupler no direction.
                constexpr double kExtent = 1e-4;
                if (!(table(n, 3) > kExtent * Lengths(table, n))) return;
                const Placed at = Place(pose, shape.L1, n, (n == 2) == turned);
                // Angles of many turns have few digits left for a part of one.
                const double turns =
                    std::max({1.0, std::abs(first.delta) / (2 * M_PI), std::abs(double{table(n, 6)}) / (2 * M_PI)});
                const double off = Departure(table, n, at, turned, pose.P) * shown;
                const double expected = 16 * kHalfPlace * turns * Lengths(table, n) * shown;
                if (off > expected && Is_Rounded(m, table, n) && off <= 10 * Decimal_Place(m) * shown)
                    worst.Add_By_Design(0, expected, off, -1, place);
                else
                    worst.Add(off, expected, -1, place);
            };
            add(cognates, swapped, n == 2 ? "cognate 2" : "cognate 3");
            add(rows, false, n == 2 ? "cognate 2 of the diagram" : "cognate 3 of the diagram");
        }
    }
    if (worst.Any())
        checks.push_back(
            worst.Told(m,
                       "Set beside each other by Roberts' triangles, the three cognates carry their "
                       "coupler points along one curve, mirrored where the side links are exchanged.",
                       "Lengths are rounded, as the boxes show them or as a change of units does, by so much."));
}

}  // namespace verlink::checks
