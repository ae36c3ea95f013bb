// Forces beside a computation to 40 digits that finds them another way; see tests/reference/dynamics.py.
#include "tests/support/reference.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "dynamics/balancing.h"
#include "dynamics/dynacalc.h"
#include "dynamics/units.h"
#include "shell/initialize.h"

namespace verlink::test {

namespace {

// How far a result may be from the exact one, as a part of the sum of the pin forces, that times the longest link for
// torques. Speeds and accelerations come in rounded, and each angle is stored in degrees; one unit in the last place
// of a single is kUlp.
constexpr double kUlp = 1.2e-7;
constexpr double kForces = 12 * kUlp;
constexpr double kMotion = 12 * kUlp;  // of the longest link times the fastest speed, or its square
constexpr double kNeeds = 4 * kUlp;

/// Below this sine of the angle between links 3 and 4, errors of the angles grow, once for the motion, once more for
/// the forces that it takes.
constexpr double kNearToggle = 0.3;

void Take_Masses(const Row& row) {
    auto& m = Model;
    for (const int link : {2, 3, 4}) {
        const std::string number = std::to_string(link);
        m.LinkMass(link) = Number(row, "Mass" + number);
        m.LinkInertia(link) = Number(row, "Inertia" + number);
        m.CG(link, 0) = Number(row, "CG" + number);
        m.CG(link, 1) = Number(row, "CGAngle" + number);
    }
    for (const int link : {3, 4}) {
        const std::string number = std::to_string(link);
        m.ExtForceMag(link) = Number(row, "Force" + number);
        m.ExtForceAng(link) = Number(row, "ForceAngle" + number);
        m.ExtTorque(link) = Number(row, "Torque" + number);
    }
    m.ForceDist3 = Number(row, "ForceDist3");
    m.ForceAng3 = Number(row, "ForceDistAngle3");
    m.ForceDist4 = Number(row, "ForceDist4");
    m.ForceAng4 = Number(row, "ForceDistAngle4");
    m.FrictionForce = Number(row, "Friction");
    Resolve_Forces(Model);
}

struct Found {
    const Row& exact;
    int step;

    double Growth() const { return std::pow(std::max(1.0, kNearToggle / Number(exact, "Sin34")), 3); }
    double Length() const { return std::max({double{Model.L1}, double{Model.L2}, double{Model.L3}, double{Model.L4}}); }
    double Force() const { return kForces * Growth() * Number(exact, "Scale"); }
    double Speed() const {
        const auto& omega = Model.RunTable.Omega;
        return std::max({std::fabs(omega(step, 0)), std::fabs(omega(step, 1)), std::fabs(omega(step, 2))});
    }
    double Acceleration() const {
        const auto& alpha = Model.RunTable.Alpha;
        const double turning =
            std::max({std::fabs(alpha(step, 0)), std::fabs(alpha(step, 1)), std::fabs(alpha(step, 2))});
        return std::max(Speed() * Speed(), turning);
    }

    void Expect(const std::string& name, double found, double tolerance) const {
        EXPECT_NEAR(found, Number(exact, name), tolerance) << name << " of " << exact.at("Name") << ", step " << step;
    }
    template <class Column>
    void Expect_Vector(const std::string& name, const Column& column, int row, double tolerance) const {
        Expect(name + " X", column(step, row, 0), tolerance);
        Expect(name + " Y", column(step, row, 1), tolerance);
    }
};

class ForceReference : public Fixture {
   protected:
    RunResults& table = Model.RunTable;

    /// Makes each linkage of the reference the model, with its masses and loads, and runs it.
    static void For_Every_Linkage(const std::function<void(const Row&)>& check) {
        for (const Row& linkage : Read_Table("loaded_linkages.csv")) {
            SCOPED_TRACE(linkage.at("Name"));
            Reset_Model();
            Initialize();
            Use_Units(static_cast<int>(Number(linkage, "Units")));
            Run_Linkage(linkage);
            Take_Masses(linkage);
            check(linkage);
        }
    }
    /// Solves them too and hands each position on.
    void For_Every_Position(const std::function<void(const Found&)>& check) {
        std::map<std::string, std::vector<Row>> exact;
        for (const Row& row : Read_Table("dynamics.csv")) exact[row.at("Name")].push_back(row);
        For_Every_Linkage([&](const Row& linkage) {
            const auto& rows = exact.at(linkage.at("Name"));
            ASSERT_EQ(Model.NSteps + 1, static_cast<int>(rows.size()));
            Dynacalc(Model, 0, Model.LinkMass, Model.LinkInertia, Model.CG, table.PinForce, table.LinkTorque);
            for (std::size_t i = 0; i < rows.size(); ++i) check(Found{rows[i], static_cast<int>(i)});
        });
    }
};

}  // namespace

TEST_F(ForceReference, PinForcesAreThoseFoundFromMomentsAboutThePivots) {
    For_Every_Position([&](const Found& at) {
        at.Expect_Vector("F12", table.PinForce, 5, at.Force());
        at.Expect_Vector("F32", table.PinForce, 0, at.Force());
        at.Expect_Vector("F43", table.PinForce, 1, at.Force());
        at.Expect_Vector("F14", table.PinForce, 6, at.Force());
        at.Expect_Vector("Shaking", table.PinForce, 7, at.Force());
    });
}

TEST_F(ForceReference, TorquesAreThoseOfPowerAndOfEachLink) {
    For_Every_Position([&](const Found& at) {
        const double close = at.Force() * at.Length();
        at.Expect("T12", table.LinkTorque(at.step, 0), close);
        at.Expect("T3", table.LinkTorque(at.step, 1), close);
        at.Expect("T4", table.LinkTorque(at.step, 2), close);
        at.Expect("Moment", table.LinkTorque(at.step, 3), close);
    });
}

TEST_F(ForceReference, MassCentresMoveWithTheirLinks) {
    For_Every_Position([&](const Found& at) {
        const double shown = Shown_Factor();
        // In centimetres and millimetres the velocity of A is scaled twice in that of link 3.
        const double speed = kMotion * at.Growth() * shown * at.Length() * at.Speed();
        const double acceleration = kMotion * at.Growth() * shown * at.Length() * at.Acceleration();
        at.Expect_Vector("Veloc CG2", table.VelXY, 3, speed);
        at.Expect_Vector("Veloc CG3", table.VelXY, 5, speed * shown);
        at.Expect_Vector("Veloc CG4", table.VelXY, 4, speed);
        at.Expect_Vector("Accel CG2", table.AccXY, 6, acceleration);
        at.Expect_Vector("Accel CG3", table.AccXY, 5, acceleration);
        at.Expect_Vector("Accel CG4", table.AccXY, 7, acceleration);
    });
}

TEST_F(ForceReference, CounterweightsAreThoseOfLink3SharedBetweenItsPins) {
    For_Every_Linkage([&](const Row& linkage) {
        Berkof_Setup(Model);
        for (const int link : {2, 4}) {
            const std::string number = std::to_string(link);
            const double product = Number(linkage, "MR" + number);
            const double scale = std::max({product, Model.LinkMass(link) * Model.CG(link, 0),
                                           Model.LinkMass(3) * std::max(Model.LinkArray(link), Model.CG(3, 0))});
            EXPECT_NEAR(Model.MRNeeded(link), product, kNeeds * scale);
            if (product == 0) continue;
            const double angle = Model.MRAngle(link) * kRadToDeg - Number(linkage, "MRAngle" + number);
            EXPECT_NEAR(std::remainder(angle, 360), 0, kNeeds * 180 * scale / product + 360 * kUlp);
        }
    });
}

TEST_F(ForceReference, ForcesOfTheCounterweightsAloneAndTheSumsWithThem) {
    For_Every_Position([&](const Found& at) {
        if (Model.Calctype != 3) return;
        if (at.step == 0) {
            ASSERT_TRUE(Default_Weights(Model));
            Berkof_Calc(Model, Model.BerkMass, Model.BerkRadius);
        }
        const double product = std::max(Model.MRNeeded(2), Model.MRNeeded(4));
        const double close = kForces * at.Growth() * 4 * product * at.Acceleration();
        at.Expect_Vector("Balance F12", table.BerkForce, 5, close);
        at.Expect_Vector("Balance F14", table.BerkForce, 6, close);
        at.Expect("Balance T12", table.BerkTorque(at.step, 0), close * at.Length());
        for (int axis = 0; axis <= 1; ++axis) {
            const std::string name = axis == 0 ? " X" : " Y";
            EXPECT_NEAR(table.BalancedForce(at.step, 5, axis),
                        Number(at.exact, "F12" + name) + Number(at.exact, "Balance F12" + name), close + at.Force());
            EXPECT_NEAR(table.BalancedForce(at.step, 6, axis),
                        Number(at.exact, "F14" + name) + Number(at.exact, "Balance F14" + name), close + at.Force());
        }
        at.Expect("T12", table.BalancedMoment(at.step, 0) - table.BerkTorque(at.step, 0), at.Force() * at.Length());
    });
}

}  // namespace verlink::test
