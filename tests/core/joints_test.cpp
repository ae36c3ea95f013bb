// Poles and curvature beside figures computed to 40 digits another way; see tests/reference/poles.py.
#include "core/joints.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "core/linkage_model.h"
#include "shell/initialize.h"
#include "tests/support/reference.h"

namespace verlink::test {
namespace {

/// What a part of the longest link the stored joints may be off.
constexpr double kStored = 2e-6;

Joints Stored_Joints(int step) {
    const auto& points = Model.RunTable.PointXY;
    const auto at = [&](int row) { return Spot{points(step, row, 0), points(step, row, 1)}; };
    return {{}, {Model.L1 * Shown_Factor(), 0}, at(0), at(1), at(2)};
}

class JointsReference : public Fixture {
   protected:
    JointsReference() { Initialize(); }
    struct Step {
        const Row& exact;
        Joints joints;
        double length;  ///< of the longest link, shown
        double growth;  ///< of errors near a toggle
    };
    template <class Check>
    static void For_Each(Check check) {
        std::map<std::string, std::vector<Row>> exact;
        for (const Row& row : Read_Table("poles.csv")) exact[row.at("Name")].push_back(row);
        int checked = 0;
        for (const Row& linkage : Read_Table("linkages.csv")) {
            const auto& rows = exact.at(linkage.at("Name"));
            Run_Linkage(linkage);
            ASSERT_EQ(Model.NSteps + 1, static_cast<int>(rows.size())) << linkage.at("Name");
            const double length = Shown_Factor() * std::max({double{Model.L1}, double{Model.L2}, double{Model.L3},
                                                             double{Model.L4}, double{Model.Rpa}});
            for (int step = 0; step <= Model.NSteps; ++step) {
                const Row& row = rows[static_cast<std::size_t>(step)];
                SCOPED_TRACE(linkage.at("Name") + ", step " + std::to_string(step));
                check(Step{row, Stored_Joints(step), length, std::pow(std::max(1.0, 0.3 / Number(row, "Sin34")), 3)});
                ++checked;
            }
        }
        EXPECT_GT(checked, 600);
    }
    static Spot Exact(const Row& row, const std::string& name) {
        return {Number(row, name + " X"), Number(row, name + " Y")};
    }
    static void Expect_Pole(const Step& at, const std::string& name, const std::optional<Pole>& pole) {
        ASSERT_TRUE(pole) << name;
        if (at.exact.at(name + " X").empty()) {
            EXPECT_TRUE(pole->at_infinity) << name;
            return;
        }
        const Spot exact = Exact(at.exact, name);
        // Of a pole far off the direction is known, not the distance.
        const double away = 1 + std::abs(exact) / at.length;
        if (pole->at_infinity) {
            EXPECT_GT(away, 1e5) << name;
            return;
        }
        EXPECT_LT(std::abs(pole->at - exact), kStored * at.growth * at.length * away * away)
            << name << ' ' << pole->at << ' ' << exact;
    }
};

TEST_F(JointsReference, ThePoleOfTheCouplerIsWhereItStandsStill) {
    For_Each([](const Step& at) { Expect_Pole(at, "I13", Pole_13(at.joints)); });
}

TEST_F(JointsReference, ThePoleOfCrankAndRockerIsThePointThatTheySpeedAlike) {
    For_Each([](const Step& at) { Expect_Pole(at, "I24", Pole_24(at.joints)); });
}

TEST_F(JointsReference, TheCentreOfCurvatureIsThatOfThePath) {
    For_Each([](const Step& at) {
        const std::optional<Curvature> found = Curvature_At_P(at.joints);
        ASSERT_TRUE(found);
        const double radius = Number(at.exact, "Radius");
        const double flat = radius / at.length;
        // A flat path is known by its curvature, a sharp one by its radius.
        const double tolerance = 2e-5 * at.growth * (flat + 1 / flat);
        EXPECT_NEAR(found->radius / radius, 1, tolerance) << radius;
        const Spot centre = Exact(at.exact, "Centre");
        EXPECT_LT(std::abs(found->centre - centre) / radius, tolerance * (1 + 1 / flat)) << found->centre << centre;
        EXPECT_NEAR(std::abs(found->along), 1, 1e-12);
    });
}

TEST_F(JointsReference, ThePoleIsWhatTheTableHasForTheFixedCentrode) {
    int compared = 0;
    for (const Row& linkage : Read_Table("linkages.csv")) {
        Run_Linkage(linkage);
        for (int step = 0; step <= Model.NSteps; ++step) {
            const auto& fixed = Model.RunTable.FixedCentrode;
            const Spot stored = Spot{fixed(step, 0, 0), fixed(step, 0, 1)} * Shown_Factor();
            const std::optional<Pole> pole = Pole_13(Stored_Joints(step));
            if (stored == Spot{} || !pole || pole->at_infinity || Model.Parallelogram) continue;
            const double away = 1 + std::abs(stored);
            EXPECT_LT(std::abs(pole->at - stored), 2e-5 * away * away) << linkage.at("Name") << " " << step;
            ++compared;
        }
    }
    EXPECT_GT(compared, 500);
}

/// A square linkage, whose crank and rocker are upright, with the coupler point above its middle.
const Joints kSquare{{0, 0}, {2, 0}, {0, 2}, {2, 2}, {1, 3}};

TEST(Joints, ParallelLinksHaveTheirPoleAtInfinity) {
    const std::optional<Pole> coupler = Pole_13(kSquare), rocker = Pole_24(kSquare);
    ASSERT_TRUE(coupler && rocker);
    EXPECT_TRUE(coupler->at_infinity);
    EXPECT_TRUE(rocker->at_infinity);
}

TEST(Joints, AnUprightCrankHasItsPoleWhereTheRockerCrossesIt) {
    const std::optional<Pole> pole = Pole_13({{0, 0}, {3, 0}, {0, 1}, {2, 2}, {1, 3}});
    ASSERT_TRUE(pole);
    EXPECT_LT(std::abs(pole->at - Spot(0, 6)), 1e-12);
    const std::optional<Pole> small = Pole_13({{0, 0}, {3e-4, 0}, {0, 1e-4}, {2e-4, 2e-4}, {1e-4, 3e-4}});
    ASSERT_TRUE(small);
    EXPECT_LT(std::abs(small->at - Spot(0, 6e-4)), 1e-15);
}

TEST(Joints, LinksInOneLineHaveNoPole) {
    const Joints stretched{{0, 0}, {4, 0}, {1, 0}, {3, 0}, {2, 1}};
    EXPECT_FALSE(Pole_13(stretched));
    EXPECT_FALSE(Pole_24(stretched));
    EXPECT_FALSE(Curvature_At_P(stretched));
    // Off a line by what a single number does not hold, and by what it does.
    EXPECT_FALSE(Curvature_At_P({{0, 0}, {5, 0.5 + 1.8e-6}, {1, 0.5}, {3, 0.5}, {2, 1.5}}));
    EXPECT_TRUE(Curvature_At_P({{0, 0}, {5, 0.5 + 2.4e-6}, {1, 0.5}, {3, 0.5}, {2, 1.5}}));
}

TEST(Joints, WhatIsJustAMillionthOffCountsAsRounding) {
    // Sides whose length is 1, and their sine, to the last bit.
    const Spot slanting(std::sqrt(1 - 1e-12), 1e-6);
    ASSERT_EQ(std::abs(slanting), 1);
    EXPECT_FALSE(Curvature_At_P({{-2e6, 5}, -slanting, {-1e6, 0}, {0, 0}, {3, 4}}));
    EXPECT_TRUE(Pole_13({{0, 5}, {0, 0}, {1e6, 5}, slanting, {}})->at_infinity);
    // Parallels a millionth apart are one line.
    EXPECT_FALSE(Pole_13({{0, 0}, {0, 1e-6}, {1, 0}, {1, 1e-6}, {}}));
    EXPECT_TRUE(Pole_13({{0, 0}, {0, 1.1e-6}, {1, 0}, {1, 1.1e-6}, {}})->at_infinity);
    // The coupler turns as fast as the crank, and its point is a millionth of that off the pole.
    const double off = 1e-6 * std::hypot(1e-6, 1);
    for (const double more : {1.0, 1.1}) {
        const double x = off * more;
        EXPECT_EQ(Curvature_At_P({{0, 0}, {x - 1, 0}, {x, 1}, {x, 0}, {x, 0}}).has_value(), more > 1);
    }
}

TEST(Joints, ALinkWithoutLengthHasNoPole) {
    EXPECT_FALSE(Pole_13({{0, 0}, {3, 0}, {0, 0}, {2, 2}, {1, 3}}));
    EXPECT_FALSE(Pole_24({{0, 0}, {3, 0}, {2, 2}, {2, 2}, {1, 3}}));
}

TEST(Joints, APointOfAParallelogramFollowsACircleOfTheCranksLength) {
    const std::optional<Curvature> bend = Curvature_At_P(kSquare);
    ASSERT_TRUE(bend);
    EXPECT_NEAR(bend->radius, 2, 1e-12);
    EXPECT_LT(std::abs(bend->centre - Spot(1, 1)), 1e-12);
    EXPECT_LT(std::abs(bend->along * bend->along - Spot(1, 0)), 1e-12);
}

TEST(Joints, AtTheJointsThemselvesTheCentresAreThePivots) {
    Joints joints{{0, 0}, {3, 0}, std::polar(1.0, 1.1), {}, {}};
    joints.B = {2.5, 2.2};
    joints.P = joints.A;
    const std::optional<Curvature> at_A = Curvature_At_P(joints);
    ASSERT_TRUE(at_A);
    EXPECT_LT(std::abs(at_A->centre - joints.O2), 1e-12);
    joints.P = joints.B;
    const std::optional<Curvature> at_B = Curvature_At_P(joints);
    ASSERT_TRUE(at_B);
    EXPECT_LT(std::abs(at_B->centre - joints.O4), 1e-9);
    EXPECT_NEAR(at_B->radius, std::abs(joints.B - joints.O4), 1e-9);
}

TEST(Joints, APointThatStandsStillHasNoCurvature) {
    Joints joints{{0, 0}, {3, 0}, {0, 1}, {2, 2}, {}};
    joints.P = Pole_13(joints)->at;
    EXPECT_FALSE(Curvature_At_P(joints));
}

TEST(Joints, TheCurvatureIsTheSameWhateverTheFrame) {
    const Joints joints{{0, 0}, {3, 0}, {0.5, 1}, {2, 2}, {1, 3}};
    const Spot turn = std::polar(1.0, 0.7);
    const Joints turned{{}, joints.O4 * turn, joints.A * turn, joints.B * turn, joints.P * turn};
    const std::optional<Curvature> one = Curvature_At_P(joints), other = Curvature_At_P(turned);
    ASSERT_TRUE(one && other);
    EXPECT_LT(std::abs(one->centre * turn - other->centre), 1e-9);
    const Spot away(3, -2);
    const std::optional<Curvature> shifted =
        Curvature_At_P({away, joints.O4 + away, joints.A + away, joints.B + away, joints.P + away});
    ASSERT_TRUE(shifted);
    EXPECT_LT(std::abs(one->centre + away - shifted->centre), 1e-9);
    const std::optional<Pole> pole = Pole_13(joints);
    const std::optional<Pole> moved =
        Pole_13({away, joints.O4 + away, joints.A + away, joints.B + away, joints.P + away});
    ASSERT_TRUE(pole && moved);
    EXPECT_LT(std::abs(pole->at + away - moved->at), 1e-9);
    EXPECT_LT(std::abs((one->along * turn * std::conj(other->along)).imag()), 1e-9);
}

}  // namespace
}  // namespace verlink::test
