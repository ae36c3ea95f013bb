// Counterweights of links 2 and 4, and the forces with them.
#include "dynamics/balancing.h"

#include <cmath>

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/results.h"
#include "dynamics/dynacalc.h"
#include "platform/desktop.h"
#include "platform/guard.h"

namespace verlink {

using platform::CR;
using platform::Tell;

namespace {

/// What is missing of a required mass-radius product, as magnitude and angle.
void Take_Need(int link, Single required_x, Single required_y) {
    auto& m = Model;
    const Single mx = m.LinkMass(link) * m.CG(link, 0) * std::cos(m.CG(link, 1));
    const Single my = m.LinkMass(link) * m.CG(link, 0) * std::sin(m.CG(link, 1));
    Single angle;
    Cart_to_Polar(required_x - mx, required_y - my, m.MRNeeded(link), angle);
    m.MRAngle(link) = angle * kDegToRad;
}

void Complete_Weights(Array<Single, 0, 4>& BerkMass, const Array<Single, 0, 4>& BerkRadius) {
    auto& m = Model;
    for (const int link : {2, 4}) {
        m.BerkInertia(link) = BerkRadius(link) * BerkRadius(link) * BerkMass(link);
        m.BerkCG(link, 0) = BerkRadius(link);
        m.BerkCG(link, 1) = m.MRAngle(link);
    }
    for (const int link : {1, 3}) {
        BerkMass(link) = 0;
        m.BerkInertia(link) = 0;
        m.BerkCG(link, 0) = m.CG(link, 0);
        m.BerkCG(link, 1) = m.CG(link, 1);
    }
}

void Solve_Weights(const Array<Single, 0, 4>& BerkMass) {
    auto& m = Model;
    const std::string advice = std::string(CR) + "Please recalculate for multi-positions.";
    switch (m.Calctype) {
        case 1: Tell("Cannot balance a linkage for one position." + advice); break;
        case 2: Tell("Cannot balance a linkage for Time Steps." + advice); break;
        case 3: Dynacalc(-1, BerkMass, m.BerkInertia, m.BerkCG, m.RunTable.BerkForce, m.RunTable.BerkTorque); break;
        default: Tell(std::string("Cannot balance a cam- or linkage-driven linkage.") + CR); break;
    }
}

void Sum_Torques() {
    auto& m = Model;
    auto& t = m.RunTable;
    for (int step = 0; step <= m.NSteps; ++step)
        for (int slot = 0; slot <= 3; ++slot)
            t.BalancedMoment(step, slot) = t.BerkTorque(step, slot) + t.LinkTorque(step, slot);
    const auto element = [](const TorqueTable& table) {
        return [&table](int step, int slot) { return table(step, slot); };
    };
    for (int slot = 0; slot <= 3; ++slot) {
        int column = 0;
        for (const TorqueTable* table : {&t.BerkTorque, &t.BalancedMoment}) {
            Average2(0, m.NSteps, element(*table), "I_Pointer", slot, m.BerkAverage(slot, column));
            Rms2(0, m.NSteps, element(*table), slot, m.BerkRms(slot, column));
            ++column;
        }
    }
}

void Sum_Forces() {
    auto& t = Model.RunTable;
    for (int step = 0; step <= Model.NSteps; ++step)
        for (int axis = 0; axis <= 1; ++axis) {
            for (int slot = 0; slot <= 6; ++slot)
                t.BalancedForce(step, slot, axis) = t.BerkForce(step, slot, axis) + t.PinForce(step, slot, axis);
            t.BalancedForce(step, 7, axis) = -t.BalancedForce(step, 5, axis) - t.BalancedForce(step, 6, axis);
        }
}

void Take_Needs() {
    const auto& m = Model;
    const Single L2 = m.LinkArray(2);
    const Single L3 = m.LinkArray(3);
    const Single L4 = m.LinkArray(4);
    const Single m3 = m.LinkMass(3);
    const Single r3 = m.CG(3, 0);
    const Single c3 = std::cos(m.CG(3, 1));
    const Single s3 = std::sin(m.CG(3, 1));
    Take_Need(2, m3 * (c3 * (L2 / L3) * r3 - L2), m3 * s3 * (L2 / L3) * r3);
    Take_Need(4, c3 * (L4 / L3) * (r3 * -m3), s3 * (L4 / L3) * (r3 * -m3));
}

}  // namespace

void Berkof_Setup() { Guarded("Berkof_Setup", Take_Needs); }

bool Default_Weights() {
    return Guarded("Berkof_Setup", [] {
        Take_Needs();
        for (const int link : {2, 4}) {
            Model.BerkRadius(link) = Model.LinkArray(link) / 2;
            Model.BerkMass(link) = Model.MRNeeded(link) / Model.BerkRadius(link);
        }
    });
}

void Berkof_Calc(Array<Single, 0, 4>& BerkMass, Array<Single, 0, 4>& BerkRadius) {
    Guarded("Berkof_Calc", [&] {
        Complete_Weights(BerkMass, BerkRadius);
        Solve_Weights(BerkMass);
        // After a refusal the sums are made with what the tables of the counterweights hold.
        Sum_Torques();
        Sum_Forces();
        Balance_Holds();
    });
}

}  // namespace verlink
