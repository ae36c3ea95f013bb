// Each force and torque that is another is told with its place, its departure and what is expected there.
#include "tests/checks/ranges_of_forces.h"

namespace verlink::test {

namespace {

class Told_Of_Forces : public Ranges_Of_Forces {
   protected:
    void Take_All(int circuit) {
        Take_Driven_Run(circuit);
        Take_Masses();
    }
    static Vector Stored_Force(int row) {
        return {Model.RunTable.PinForce(kStep, row, 0), Model.RunTable.PinForce(kStep, row, 1)};
    }
    /// Of the velocity of a link's mass centre: of its turning about its joint, and of the joint's.
    static Vector Centre_Velocity(const Moving_Link& b, const Ranges& joint) {
        return Vector(0, b.omega.value) * Middle(b.arm) + Middle(joint);
    }
    Acting Solved_With(int circuit, double friction) {
        Take_All(circuit);
        Model.FrictionForce = friction;
        Solve_All();
        return Acting_At(kStep, Own_Weights{}, true);
    }
    RunResults& t = Model.RunTable;
};

}  // namespace

TEST_F(Told_Of_Forces, EachPinAndEachInertia) {
    for (const int circuit : {1, 2})
        for (const double friction : {0.0, 3.0}) {
            const Acting a = Solved_With(circuit, friction);
            const std::pair<const Ranges*, const char*> rows[] = {
                {&a.F32, ", link 3 on link 2"},       {&a.F43, ", link 4 on link 3"},
                {&a.l3.force, ", inertia of link 3"}, {&a.l2.force, ", inertia of link 2"},
                {&a.l4.force, ", inertia of link 4"}, {&a.F12, ", ground on link 2"},
                {&a.F14, ", ground on link 4"},
            };
            for (int row = 0; row <= 6; ++row)
                for (const int axis : {0, 1})
                    Expect_Told("Pin forces", t.PinForce(kStep, row, axis), 10, kPlace + rows[row].second,
                                rows[row].first->Off());
        }
}

TEST_F(Told_Of_Forces, TheDrivingTorqueAndTheNetTorques) {
    for (const int circuit : {1, 2})
        for (const double friction : {0.0, 1.0}) {
            const Acting a = Solved_With(circuit, friction);
            Expect_Told("Power in and out", t.LinkTorque(kStep, 0), 10, kPlace, a.T12.off);
            Expect_Told("Net torques", t.LinkTorque(kStep, 1), 10, kPlace + ", link 3",
                        Kept(a.moment3 - a.l3.moment).off);
            Expect_Told("Net torques", t.LinkTorque(kStep, 2), -10, kPlace + ", link 4",
                        Kept(a.moment4 - a.l4.moment).off);
        }
}

TEST_F(Told_Of_Forces, TheShakingForceBesideThePinsAndBesideTheMomentum) {
    for (const int circuit : {1, 2}) {
        Take_All(circuit);
        Solve_All();
        const Acting a = Acting_At(kStep, Own_Weights{}, true);
        const double size = std::abs(Stored_Force(5)) + std::abs(Stored_Force(6));
        for (const int axis : {0, 1}) {
            Expect_Told("Shaking force", t.PinForce(kStep, 7, axis), 10, kPlace + ", beside the ground's pins",
                        4 * kHalf * size);
            // With the pins at the ground as much off, these say nothing of it.
            const Single kept = t.PinForce(kStep, 5, axis);
            t.PinForce(kStep, 5, axis) -= 1000;
            const double now = std::abs(Stored_Force(5)) + std::abs(Stored_Force(6));
            Expect_Told("Shaking force", t.PinForce(kStep, 7, axis), 1000, kPlace + ", beside the momentum",
                        a.F12.Off() + a.F14.Off() + 4 * kHalf * now);
            t.PinForce(kStep, 5, axis) = kept;
        }
    }
}

TEST_F(Told_Of_Forces, TheShakingMomentAndByHowMuchItIsAnotherAboutO2) {
    for (const int circuit : {1, 2}) {
        Take_All(circuit);
        Solve_All();
        const Acting a = Acting_At(kStep, Own_Weights{}, true);
        const Vector F14 = Middle(a.F14), arm = Middle(a.l4.arm);
        const double told = -(arm.real() * F14.imag() - arm.imag() * F14.real()) - a.T12.value;
        EXPECT_NEAR(t.LinkTorque(kStep, 3), told, 1e-5);
        const double open = std::abs(arm) * (a.F14.Off() + 8 * kHalf * std::abs(F14)) + a.l4.arm.Off() * std::abs(F14) +
                            a.T12.off + 4 * kHalf * std::abs(a.T12.value) + 2 * kHalf * std::abs(told);
        double most = 0;
        for (int step = 0; step <= Model.NSteps; ++step) {
            const Acting at = Acting_At(step, Own_Weights{}, true);
            const Ranges from_O2{at.l4.arm.x - Range(Model.L1), at.l4.arm.y};
            most = std::max(most, std::abs(Turn_Of(from_O2, at.F14).value));
        }
        const Check check = Found("Shaking moment");
        EXPECT_EQ(check.verdict, Verdict::kByDesign);
        EXPECT_NEAR(check.worst / most, 1, 1e-5);
        EXPECT_EQ(check.meaning,
                  "The shaking moment follows from the forces at O4 and the driving torque. It is taken about the mass "
                  "centre of link 4; about O2 the ground gets another, by so much.");
        Expect_Told("Shaking moment", t.LinkTorque(kStep, 3), 10, kPlace, open);
    }
}

TEST_F(Told_Of_Forces, TheMotionOfEachMassCentre) {
    for (const int circuit : {1, 2}) {
        Take_All(circuit);
        Solve_All();
        const Acting a = Acting_At(kStep, Own_Weights{}, true);
        const Solved_Position p = Solved_At(kStep);
        const auto expect = [&](const Moving_Link& b, int velocity, int acceleration, const Ranges& joint,
                                const std::string& where) {
            const double open = b.arm.Size() * b.omega.off + std::abs(b.omega.value) * b.arm.Off() + joint.Off();
            const Vector v = Centre_Velocity(b, joint);
            for (const int axis : {0, 1}) {
                EXPECT_NEAR(t.VelXY(kStep, velocity, axis), 1000 * (axis == 0 ? v.real() : v.imag()), 0.01);
                Expect_Told("Velocities of mass centres", t.VelXY(kStep, velocity, axis), 1000, kPlace + where,
                            1000 * open + 6 * kHalf * 1000 * std::abs(v));
                Expect_Told("Accelerations of mass centres", t.AccXY(kStep, acceleration, axis), 10000, kPlace + where,
                            1000 * (b.acceleration.Off() + 4 * kHalf * b.acceleration.Size()));
            }
        };
        expect(a.l2, 3, 6, {}, ", link 2");
        expect(a.l3, 5, 5, p.velocity[0], ", link 3");
        expect(a.l4, 4, 7, {}, ", link 4");
    }
}

// The driving torque has the power of each force at its own point: what another point or direction has more.
TEST_F(Told_Of_Forces, TheMomentOfFrictionIsItsPowerAtTheCouplerPoint) {
    Take_All(1);
    Model.FrictionForce = 3;
    Solve_All();
    double most = 0;
    for (int step = 0; step <= Model.NSteps; ++step) {
        const Acting a = Acting_At(step, Own_Weights{}, true);
        const Solved_Position p = Solved_At(step);
        const Vector more = Middle(p.velocity[2]) - Centre_Velocity(a.l3, p.velocity[0]);
        most = std::max(most, std::abs((std::conj(a.friction) * more).real() / t.Omega(step, 0)));
    }
    const Check check = Found("Moment of friction");
    EXPECT_EQ(check.verdict, Verdict::kByDesign);
    EXPECT_NEAR(check.worst / most, 1, 1e-5);
    EXPECT_EQ(check.unit, "N- m");
    EXPECT_EQ(
        check.meaning,
        "Where friction acts. Friction acts at the mass centre of link 3, without a moment: at the coupler point, "
        "against whose motion it is, the driving torque would be another by so much.");
}

TEST_F(Told_Of_Forces, DirectionsOfLoadsAreToldByTheirPowerWhenTheyAreTurnedBack) {
    Take_All(1);
    const auto most_of = [&] {
        double most = 0;
        for (int step = 0; step <= Model.NSteps; ++step) {
            const Acting a = Acting_At(step, Own_Weights{}, true);
            const Solved_Position p = Solved_At(step);
            const Vector v3 = Centre_Velocity(a.l3, p.velocity[0]) + Vector(0, a.l3.omega.value) * Middle(a.point3);
            const Vector v4 = Centre_Velocity(a.l4, {}) + Vector(0, a.l4.omega.value) * Middle(a.point4);
            const auto power = [&](double turn) {
                const auto& m = Model;
                const Vector E3 = Middle(Load(m.ExtForceMag(3), m.ExtForceAng(3) - turn));
                const Vector E4 = Middle(Load(m.ExtForceMag(4), m.ExtForceAng(4) - turn));
                return (std::conj(E3) * v3 + std::conj(E4) * v4).real();
            };
            most = std::max(most, std::abs(power(30) - power(0)) / t.Omega(step, 0));
        }
        return most;
    };
    for (const int only : {0, 3, 4}) {
        if (only != 0) Model.ExtForceMag(7 - only) = 0;
        Solve_All();
        const Check check = Found("Directions of loads");
        EXPECT_EQ(check.verdict, Verdict::kByDesign);
        EXPECT_NEAR(check.worst / most_of(), 1, 1e-5);
        EXPECT_EQ(check.meaning,
                  "Where external forces point. Their directions count from the ground link, which is turned: counted "
                  "from the global frame, the driving torque would be another by so much.");
        if (only != 0) Model.ExtForceMag(7 - only) = 2;
    }
    Model.ExtForceMag(3) = Model.ExtForceMag(4) = 0;
    Solve_All();
    const std::vector<Check> checks = Checks_Of(Model);
    EXPECT_EQ(std::ranges::find(checks, std::string("Directions of loads"), &Check::name), checks.end());
}

TEST_F(Told_Of_Forces, ChecksSayWhatTheyCheckInTheirUnits) {
    Take_All(1);
    Model.FrictionForce = 1;
    Model.TorqueImported = true;
    for (int step = 0; step <= Model.NSteps; ++step) t.ImportedTorque(step) = 2;
    Solve_All();
    const std::tuple<const char*, const char*, const char*> all[] = {
        {"Power in and out", "N- m",
         "Power in equals power out: the driving torque is what virtual work of inertia, loads and friction asks of "
         "the "
         "crank."},
        {"Pin forces", "N", "Each link is in balance: the pin forces are those of moments about A and O4."},
        {"Shaking force", "N",
         "The shaking force is what the ground gets at O2 and O4, and what the momentum of the links and the loads "
         "leave."},
        {"Shaking moment", "N- m", ""},
        {"Net torques", "N- m", "The net torques on links 3 and 4 are those of inertia and loads."},
        {"Velocities of mass centres", "mm/sec", "The mass centres move with their links."},
        {"Accelerations of mass centres", "mm/sec^2", "The mass centres are accelerated with their links."},
        {"Moment of friction", "N- m", ""},
        {"Directions of loads", "N- m", ""},
        {"Torque on link 4", "N- m",
         "The imported torque on link 4. It is taken as it stands in its file, with its sign and step by step, "
         "wherever "
         "link 4 is there."},
    };
    const std::vector<Check> checks = Checks_Of(Model);
    auto at = std::ranges::find(checks, std::string("Power in and out"), &Check::name);
    for (const auto& [name, unit, meaning] : all) {
        ASSERT_NE(at, checks.end());
        EXPECT_EQ(at->name, name);
        EXPECT_EQ(at->unit, unit) << name;
        if (*meaning) {
            EXPECT_EQ(at->meaning, meaning);
        }
        ++at;
    }
}

}  // namespace verlink::test
