// The engine beside a computation to 40 digits that solves the same positions another way; see tests/reference/.
#include "tests/support/reference.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "core/classification.h"
#include "core/parameters.h"
#include "core/runs.h"
#include "shell/initialize.h"

namespace verlink::test {

namespace {

// How far a result may be from the exact one, as a part of the largest term it is made of (the whole turn, the
// longest link, that times the fastest speed, ...). One unit in the last place of a single is kUlp. The angles of
// links 3 and 4 carry a rounding each and, where one of the half-angle equation's leading coefficients is small, a
// few more from the difference of two nearly equal numbers; what follows from those angles carries that on.
constexpr double kUlp = 1.2e-7;
constexpr double kDriven = kUlp;       // what follows from the crank angle alone
constexpr double kAngles = 3 * kUlp;   // stored angles, of a whole turn
constexpr double kPoints = 8 * kUlp;   // B and P
constexpr double kSpeeds = 12 * kUlp;  // speeds, velocities and their ratios
constexpr double kAccelerations = 32 * kUlp;
constexpr double kCentrodes = 12 * kUlp;

/// Below this sine of the angle between links 3 and 4 the position is so near a toggle that what is divided by the
/// sine loses digits: speeds and accelerations once for the sine's own error and once for the quotient's.
constexpr double kNearToggle = 0.3;

double Longest() {
    return std::max({double{Model.L1}, double{Model.L2}, double{Model.L3}, double{Model.L4}, double{Model.Rpa}});
}

/// One step of a run beside its exact figures, with the largest terms of each kind.
struct Position {
    const Row& exact;
    int step;

    double Of(const std::string& name) const { return Number(exact, name); }
    double Largest(const std::string& kind) const {
        return std::max({std::fabs(Of(kind + "2")), std::fabs(Of(kind + "3")), std::fabs(Of(kind + "4"))});
    }
    double Length() const { return Longest() * Shown_Factor(); }
    double Speed() const { return Largest("Omega"); }
    double Acceleration() const { return std::max(Speed() * Speed(), Largest("Alpha")); }
    double Growth() const { return std::pow(std::max(1.0, kNearToggle / Of("Sin34")), 2); }

    void Expect(const std::string& name, double found, double tolerance) const {
        EXPECT_NEAR(found, Of(name), tolerance) << name << " of " << exact.at("Name") << ", step " << step;
    }
    void Expect_Vector(const std::string& name, double x, double y, double tolerance) const {
        Expect(name + " X", x, tolerance);
        Expect(name + " Y", y, tolerance);
    }
    /// Angles at the two ends of a turn are the same.
    void Expect_Angle(const std::string& name, double found, double tolerance) const {
        const double turns = std::round((found - Of(name)) / 360);
        const bool at_the_end = std::fabs(Of(name)) < tolerance || std::fabs(Of(name) - 360) < tolerance;
        Expect(name, at_the_end ? found - 360 * turns : found, tolerance);
    }
};

/// Runs every linkage of the reference and hands each of its positions on.
void For_Every_Position(const std::function<void(const Position&)>& check) {
    std::map<std::string, std::vector<Row>> exact;
    for (const Row& row : Read_Table("kinematics.csv")) exact[row.at("Name")].push_back(row);
    const auto linkages = Read_Table("linkages.csv");
    ASSERT_EQ(linkages.size(), exact.size());
    for (const Row& linkage : linkages) {
        const auto& rows = exact.at(linkage.at("Name"));
        Run_Linkage(linkage);
        ASSERT_EQ(Model.NSteps + 1, static_cast<int>(rows.size())) << linkage.at("Name");
        for (std::size_t i = 0; i < rows.size(); ++i) check(Position{rows[i], static_cast<int>(i)});
    }
}

class Reference : public Fixture {
   protected:
    Reference() { Initialize(); }
    RunResults& found = Model.RunTable;
};

}  // namespace

TEST_F(Reference, EveryPositionCloses) {
    For_Every_Position([&](const Position& at) {
        EXPECT_TRUE(found.Assembled(at.step)) << at.exact.at("Name") << ", step " << at.step;
    });
    EXPECT_FALSE(Model.NoConnectSeen);
}

TEST_F(Reference, AnglesAreThoseOfCirclesThatMeet) {
    For_Every_Position([&](const Position& at) {
        at.Expect_Angle("Theta2", found.Theta(at.step, 0), 720 * kDriven);
        at.Expect_Angle("Theta3", found.Theta(at.step, 1), 360 * kAngles);
        at.Expect_Angle("Theta4", found.Theta(at.step, 2), 360 * kAngles);
        at.Expect("Transmission", found.Theta(at.step, 3), 360 * kAngles);
    });
}

TEST_F(Reference, PointsAgree) {
    For_Every_Position([&](const Position& at) {
        const double rough = at.Length() * kPoints;
        at.Expect_Vector("A", found.PointXY(at.step, 0, 0), found.PointXY(at.step, 0, 1), at.Length() * kDriven);
        at.Expect_Vector("B", found.PointXY(at.step, 1, 0), found.PointXY(at.step, 1, 1), rough);
        at.Expect_Vector("P", found.PointXY(at.step, 2, 0), found.PointXY(at.step, 2, 1), rough);
    });
}

TEST_F(Reference, SpeedsAreTheDifferentiatedLoop) {
    For_Every_Position([&](const Position& at) {
        const double rough = kSpeeds * at.Growth(), length = at.Length() * at.Speed();
        at.Expect("Omega2", found.Omega(at.step, 0), kDriven * at.Speed());
        at.Expect("Omega3", found.Omega(at.step, 1), rough * at.Speed());
        at.Expect("Omega4", found.Omega(at.step, 2), rough * at.Speed());
        at.Expect_Vector("Veloc A", found.VelXY(at.step, 0, 0), found.VelXY(at.step, 0, 1), kDriven * length);
        at.Expect_Vector("Veloc B", found.VelXY(at.step, 1, 0), found.VelXY(at.step, 1, 1), rough * length);
        at.Expect_Vector("Veloc P", found.VelXY(at.step, 2, 0), found.VelXY(at.step, 2, 1), rough * length);
    });
}

TEST_F(Reference, AccelerationsAreTheLoopDifferentiatedTwice) {
    For_Every_Position([&](const Position& at) {
        const double rough = kAccelerations * at.Growth() * at.Acceleration(), length = at.Length() * rough;
        const auto& a = found.AccXY;
        at.Expect("Alpha2", found.Alpha(at.step, 0), 0);
        at.Expect("Alpha3", found.Alpha(at.step, 1), rough);
        at.Expect("Alpha4", found.Alpha(at.step, 2), rough);
        at.Expect_Vector("Accel A", a(at.step, 0, 0), a(at.step, 0, 1), kDriven * at.Length() * at.Acceleration());
        at.Expect_Vector("Accel B", a(at.step, 1, 0), a(at.step, 1, 1), length);
        at.Expect_Vector("Accel P", a(at.step, 2, 0), a(at.step, 2, 1), length);
        at.Expect("Rocker Normal", a(at.step, 3, 0), length);
        at.Expect("Rocker Tangential", a(at.step, 3, 1), length);
        at.Expect("Accel P Along", a(at.step, 4, 0), length);
        at.Expect("Accel P Across", a(at.step, 4, 1), length);
    });
}

TEST_F(Reference, RatiosAgree) {
    For_Every_Position([&](const Position& at) {
        const double rough = kSpeeds * at.Growth() * at.Speed();
        at.Expect("OmegaRatio", found.OmegaRatio(at.step), rough / std::fabs(at.Of("Omega2")));
        // A part of the quotient itself: it grows without bound where the rocker comes to rest.
        at.Expect("MechAdvantage", found.MechAdvantage(at.step),
                  rough / std::fabs(at.Of("Omega4")) * std::fabs(at.Of("MechAdvantage")));
    });
}

TEST_F(Reference, CentrodesAreWhereTheLinesMeetInStoredUnits) {
    For_Every_Position([&](const Position& at) {
        const auto& fixed = found.FixedCentrode;
        const auto& moving = found.MovingCentrode;
        double reach = 0;
        if (!Model.Parallelogram) {
            // Lines that are nearly parallel meet far away, and the less surely so.
            reach = std::max(Longest(), std::hypot(at.Of("Fixed Centrode X"), at.Of("Fixed Centrode Y")));
            reach *= kCentrodes / at.Of("Sin24");
        }
        at.Expect_Vector("Fixed Centrode", fixed(at.step, 0, 0), fixed(at.step, 0, 1), reach);
        at.Expect_Vector("Moving Centrode", moving(at.step, 0, 0), moving(at.step, 0, 1), reach);
    });
}

TEST_F(Reference, TogglesAreWhereCouplerAndRockerAreInLine) {
    int limited = 0;
    for (const Row& linkage : Read_Table("linkages.csv")) {
        Run_Linkage(linkage);
        EXPECT_EQ(Model.Grashof_Code == "N", !linkage.at("Toggle").empty()) << linkage.at("Name");
        if (Model.Grashof_Code != "N") continue;
        EXPECT_NEAR(Toggle(), Number(linkage, "Toggle"), 360 * kAngles) << linkage.at("Name");
        ++limited;
    }
    EXPECT_GE(limited, 2);
}

// ---- Straight lines. ----

namespace {

struct Curve {
    std::vector<double> x, y;
};

Curve Coupler_Curve() {
    Curve curve;
    for (int step = 0; step <= Model.NSteps; ++step) {
        curve.x.push_back(Model.RunTable.PointXY(step, 2, 0));
        curve.y.push_back(Model.RunTable.PointXY(step, 2, 1));
    }
    return curve;
}

double Stroke(const Curve& curve) {
    return std::hypot(curve.x.back() - curve.x.front(), curve.y.back() - curve.y.front());
}

/// Width of the narrowest strip that holds a curve; one of its sides goes through two of the points.
double Strip_Width(const Curve& curve) {
    double width = HUGE_VAL;
    for (std::size_t i = 0; i < curve.x.size(); ++i)
        for (std::size_t j = 0; j < i; ++j) {
            const double ux = curve.x[j] - curve.x[i], uy = curve.y[j] - curve.y[i];
            double least = 0, most = 0;
            for (std::size_t k = 0; k < curve.x.size(); ++k) {
                const double away =
                    ((curve.x[k] - curve.x[i]) * uy - (curve.y[k] - curve.y[i]) * ux) / std::hypot(ux, uy);
                least = std::min(least, away);
                most = std::max(most, away);
            }
            width = std::min(width, most - least);
        }
    return width;
}

Row Straight_Line(const std::string& name) {
    for (const Row& row : Read_Table("straight_lines.csv"))
        if (row.at("Name") == name) return row;
    ADD_FAILURE() << "no " << name;
    return {};
}

/// The path's deviation from straightness as a part of its length.
double Deviation(const std::string& name) {
    Run_Linkage(Straight_Line(name));
    const Curve curve = Coupler_Curve();
    return Strip_Width(curve) / Stroke(curve);
}

}  // namespace

TEST_F(Reference, StraightLinesAreAsStraightAsComputedExactly) {
    for (const Row& row : Read_Table("straight_lines.csv")) {
        Run_Linkage(row);
        const Curve curve = Coupler_Curve();
        const double tolerance = 2 * kPoints * Longest();
        EXPECT_NEAR(Stroke(curve), Number(row, "Stroke"), tolerance) << row.at("Name");
        EXPECT_NEAR(Strip_Width(curve), Number(row, "Width"), tolerance) << row.at("Name");
    }
}

TEST_F(Reference, HoekensGoesFourCranksStraightInHalfATurnWithinAQuarterPercent) {
    EXPECT_LT(Deviation("Hoekens over half a turn"), 0.0025);
    EXPECT_NEAR(Stroke(Coupler_Curve()), 4, 4 * kPoints * 5);
}

TEST_F(Reference, HoekensCrossesItsLineSixTimes) {
    Row row = Straight_Line("Hoekens over half a turn");
    row["First"] = "60";
    row["Last"] = "300";
    row["Increment"] = "1";
    Run_Linkage(row);
    const Curve curve = Coupler_Curve();
    int crossings = 0;
    for (std::size_t i = 1; i < curve.y.size(); ++i)
        if ((curve.y[i] > 4.0045) != (curve.y[i - 1] > 4.0045)) ++crossings;
    EXPECT_EQ(crossings, 6);
}

TEST_F(Reference, ChebychevIsOnItsLineAtTheEndAndInTheMiddle) {
    // Coupler level in the middle, where crank and half ground make a triangle of 3, 4 and 5; upright, in line with
    // the crank, at the one end. At the other end it is in line with the rocker, a toggle.
    const double tolerance = 2.5 * kPoints;
    const double places[][2] = {{0.6, 1}, {0, 0}};
    for (const auto& [cosine, x] : places) {
        Row row = Straight_Line("Chebychev from end to end");
        row["Calctype"] = "1";
        row["ThetaZero"] = std::to_string(std::acos(cosine) * 180 / M_PI);
        row["First"] = row["Last"] = row["Increment"] = "0";
        Run_Linkage(row);
        EXPECT_NEAR(Model.RunTable.PointXY(0, 2, 0), x, tolerance);
        EXPECT_NEAR(Model.RunTable.PointXY(0, 2, 1), 2, tolerance);
    }
    EXPECT_LT(Deviation("Chebychev from end to end"), 0.01);
}

TEST_F(Reference, RobertsIsStraightWithinATenthOfAPercent) { EXPECT_LT(Deviation("Roberts"), 0.001); }

TEST_F(Reference, WattWithLongBeamsIsStraightWithinOnePartInFourThousand) {
    EXPECT_LT(Deviation("Watt with long beams"), 1.0 / 4000);
}

}  // namespace verlink::test
