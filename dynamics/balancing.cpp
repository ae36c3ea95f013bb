// Counterweights of links 2 and 4, and the forces with them.
#include "dynamics/balancing.h"

#include <cmath>

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/results.h"
#include "platform/desktop_services.h"
#include "platform/guard.h"

namespace verlink {

using platform::CR;
using platform::Tell;

namespace {

/// What is missing of a required mass-radius product, as magnitude and angle.
void Take_Need(const MassProperties& m, BalanceWeights& weights, int link, Single required_x, Single required_y) {
    const Single mx = m.LinkMass(link) * m.CG(link, 0) * std::cos(m.CG(link, 1));
    const Single my = m.LinkMass(link) * m.CG(link, 0) * std::sin(m.CG(link, 1));
    Single angle;
    Cart_to_Polar(required_x - mx, required_y - my, weights.MRNeeded(link), angle);
    weights.MRAngle(link) = angle * kDegToRad;
}

void Complete_Weights(const MassProperties& m, BalanceWeights& weights, Array<Single, 0, 4>& BerkMass,
                      const Array<Single, 0, 4>& BerkRadius) {
    for (const int link : {2, 4}) {
        weights.BerkInertia(link) = BerkRadius(link) * BerkRadius(link) * BerkMass(link);
        weights.BerkCG(link, 0) = BerkRadius(link);
        weights.BerkCG(link, 1) = weights.MRAngle(link);
    }
    for (const int link : {1, 3}) {
        BerkMass(link) = 0;
        weights.BerkInertia(link) = 0;
        weights.BerkCG(link, 0) = m.CG(link, 0);
        weights.BerkCG(link, 1) = m.CG(link, 1);
    }
}

ForceSolve Solve_Weights(const Balancing& balancing, const Array<Single, 0, 4>& BerkMass) {
    const std::string advice = std::string(CR) + "Please recalculate for multi-positions.";
    const BalanceWeights& weights = balancing.weights;
    RunResults& table = balancing.run.table;
    switch (balancing.calctype) {
        case 1: Tell("Cannot balance a linkage for one position." + advice); break;
        case 2: Tell("Cannot balance a linkage for Time Steps." + advice); break;
        case run::kByAngle:
            return Dynacalc(balancing.run, -1, BerkMass, weights.BerkInertia, weights.BerkCG, table.BerkForce,
                            table.BerkTorque);
        default: Tell(std::string("Cannot balance a cam- or linkage-driven linkage.") + CR); break;
    }
    return {};
}

void Sum_Torques(RunResults& t, int step) {
    for (int slot = 0; slot <= 3; ++slot)
        t.BalancedMoment(step, slot) = t.BerkTorque(step, slot) + t.LinkTorque(step, slot);
}

void Take_Statistics(const RunResults& t, int last, BalanceWeights& weights) {
    const auto element = [](const TorqueTable& table) {
        return [&table](int step, int slot) { return table(step, slot); };
    };
    for (int slot = 0; slot <= 3; ++slot) {
        int column = 0;
        for (const TorqueTable* table : {&t.BerkTorque, &t.BalancedMoment}) {
            Average2(0, last, element(*table), "I_Pointer", slot, weights.BerkAverage(slot, column));
            Rms2(0, last, element(*table), slot, weights.BerkRms(slot, column));
            ++column;
        }
    }
}

void Sum_Forces(RunResults& t, int step) {
    constexpr int kShaking = 7;
    for (int axis = 0; axis <= 1; ++axis) {
        for (int slot = 0; slot != kShaking; ++slot)
            t.BalancedForce(step, slot, axis) = t.BerkForce(step, slot, axis) + t.PinForce(step, slot, axis);
        t.BalancedForce(step, kShaking, axis) = -t.BalancedForce(step, 5, axis) - t.BalancedForce(step, 6, axis);
    }
}

void Take_Needs(const Balancing& balancing) {
    const MassProperties& m = balancing.run.loads;
    const auto& length = balancing.run.linkage.LinkArray;
    const Single L2 = length(2);
    const Single L3 = length(3);
    const Single L4 = length(4);
    const Single m3 = m.LinkMass(3);
    const Single r3 = m.CG(3, 0);
    const Single c3 = std::cos(m.CG(3, 1));
    const Single s3 = std::sin(m.CG(3, 1));
    Take_Need(m, balancing.weights, 2, m3 * (c3 * (L2 / L3) * r3 - L2), m3 * s3 * (L2 / L3) * r3);
    Take_Need(m, balancing.weights, 4, c3 * (L4 / L3) * (r3 * -m3), s3 * (L4 / L3) * (r3 * -m3));
}

}  // namespace

Balancing::Balancing(LinkageModel& model) : run(model), calctype(model.Calctype), weights(model) {}

void Berkof_Setup(const Balancing& balancing) {
    Guarded("Berkof_Setup", [&] { Take_Needs(balancing); });
}

void Place_Weights(const Balancing& balancing) {
    BalanceWeights& weights = balancing.weights;
    for (const int link : {2, 4}) {
        weights.BerkRadius(link) = balancing.run.linkage.LinkArray(link) / 2;
        weights.BerkMass(link) = weights.MRNeeded(link) / weights.BerkRadius(link);
    }
}

bool Default_Weights(const Balancing& balancing) {
    return Guarded("Berkof_Setup", [&] {
        Take_Needs(balancing);
        Place_Weights(balancing);
    });
}

ForceSolve Berkof_Calc(const Balancing& balancing, Array<Single, 0, 4>& BerkMass, Array<Single, 0, 4>& BerkRadius) {
    ForceSolve solve;
    Guarded("Berkof_Calc", [&] {
        const LoadedRun& run = balancing.run;
        Complete_Weights(run.loads, balancing.weights, BerkMass, BerkRadius);
        solve = Solve_Weights(balancing, BerkMass);
        // After a refusal the sums are made with what the tables of the counterweights hold.
        for (int step = 0; step <= run.last_step; ++step) Sum_Torques(run.table, step);
        Take_Statistics(run.table, run.last_step, balancing.weights);
        for (int step = 0; step <= run.last_step; ++step) Sum_Forces(run.table, step);
        Balance_Holds();
    });
    return solve;
}

void Balance_Closed_Steps(const LoadedRun& run, std::span<char> solved) {
    BalanceWeights weights;
    const Balancing by_angle{run, run::kByAngle, weights};
    Take_Needs(by_angle);
    Place_Weights(by_angle);
    Complete_Weights(run.loads, weights, weights.BerkMass, weights.BerkRadius);
    Solve_Closed_Steps(run, weights, solved);
    for (int step = 0; step <= run.last_step; ++step) {
        char& done = solved[static_cast<std::size_t>(step)];
        if (!done) continue;
        const auto failed = What_Failed([&] {
            Sum_Torques(run.table, step);
            Sum_Forces(run.table, step);
        });
        if (failed) done = 0;
    }
}

}  // namespace verlink
