// What the view menu lays over the picture: of each kind, in all units, on both circuits, with the ground turned.
#include "tests/animation/view_overlays.h"

#include <algorithm>
#include <complex>
#include <map>

namespace verlink::test {
namespace {

TEST_F(ViewOverlays, AreDrawnAsTheyWereInEveryUnitOnBothCircuitsAndWithTheGroundTurned) {
    for (const Sort& sort : kSorts) {
        LogSurface log;
        for (const Scenario& way : Every_Way()) {
            Run(way);
            log.Calls.emplace_back(std::string("-- ") + way.name);
            const int step = way.ground == 0 ? 5 : 29;
            for (const std::string& row : Painted(At_Step(step, Only(sort.wish))).Rows()) log.Calls.push_back(row);
        }
        Expect_Log(std::string("view_") + sort.name, log);
    }
}

TEST_F(ViewOverlays, OfEveryOtherDriveAreDrawnAsTheyWere) {
    LogSurface log;
    const auto add = [&](const std::string& name, int step) {
        ASSERT_TRUE(Model.RunTable.Assembled(step)) << name;
        Set_Palette();
        Autoscale();
        Model.FlipSum = Model.AnimMin + Model.AnimMax;
        log.Calls.push_back("-- " + name);
        for (const std::string& row : Painted(At_Step(step, All())).Rows()) log.Calls.push_back(row);
    };
    By_Time(0, 1, 0.05);
    add("by time", 7);
    Model.Alpha2 = -40;
    By_Time(0, 0.5, 0.05);
    add("by time and slowing", 3);
    By_Cam(20, 8);
    add("by a cam", 9);
    By_Cam(20, 8);
    Model.Calctype = 5;
    Integer result;
    Imported_Run(result);
    add("by a link", 9);
    Initialize();
    Model.Calctype = 1;
    Model.ThetaZero = 67.5;
    Model.NSteps = 0;
    Calc_Setup(1, result);
    add("one position", 0);
    Expect_Log("view_drives", log);
}

TEST_F(ViewOverlays, InMetresCentimetresAndMillimetresTheStrokesAreTheSame) {
    for (const Sort& sort : kSorts)
        for (const double ground : {0.0, 30.0}) {
            std::vector<OverlayLog> logs;
            for (const int units : {3, 4, 5}) {
                Run({.name = "metric", .units = units, .ground = ground});
                // The margin of the window differs; what is compared is the drawing in the same one.
                const double longest = 6 * Shown_Factor();
                Model.AnimMin = -longest;
                Model.AnimMax = longest;
                Model.FlipSum = 0;
                logs.push_back(Painted(At_Step(11, Only(sort.wish))));
            }
            for (const std::size_t other : {std::size_t{1}, std::size_t{2}}) {
                if (sort.wish == &View_Wishes::grid) continue;
                ASSERT_EQ(logs[0].Calls.size(), logs[other].Calls.size()) << sort.name;
                for (std::size_t i = 0; i < logs[0].Calls.size(); ++i) {
                    const auto &one = logs[0].Calls[i], &two = logs[other].Calls[i];
                    EXPECT_EQ(one.kind, two.kind) << sort.name;
                    // What stands in a legend is as wide as its words are.
                    if (one.kind == "Paper" || one.kind == "Text") continue;
                    for (std::size_t n = 0; n < one.numbers.size(); ++n)
                        EXPECT_NEAR(one.numbers[n], two.numbers[n], 0.01) << sort.name << ' ' << one.kind;
                }
            }
        }
}

TEST_F(ViewOverlays, TurnWithTheGround) {
    for (const Sort& sort : kSorts) {
        if (sort.wish == &View_Wishes::grid) continue;
        Overlay flat, turned;
        for (const double ground : {0.0, 110.0}) {
            Run({.name = "turned", .ground = ground});
            // The crank starts at a global angle: the same position of the links is another step.
            Model.ThetaStart = 45 + ground;
            Model.ThetaEnd = 405 + ground;
            Derive_Angle_Limits();
            Integer result;
            Calc_Setup(3, result);
            Solve();
            Model.AnimMin = -6;
            Model.AnimMax = 6;
            Model.FlipSum = 0;
            (ground == 0 ? flat : turned) = At_Step(9, Only(sort.wish));
        }
        ASSERT_EQ(flat.marks.size(), turned.marks.size()) << sort.name;
        ASSERT_FALSE(flat.Empty()) << sort.name;
        for (std::size_t i = 0; i < flat.marks.size(); ++i) {
            const Mark &one = flat.marks[i], &two = turned.marks[i];
            EXPECT_EQ(one.kind, two.kind);
            // Along a ray that leads beyond all bounds the end is far off.
            const double tolerance = 2e-4 * (1 + std::abs(World(one.to)));
            EXPECT_LT(std::abs(World(one.from) * Turn() - World(two.from)), tolerance) << sort.name << ' ' << i;
            if (one.kind == Kind::kCircle || one.kind == Kind::kRing) continue;
            EXPECT_LT(std::abs(World(one.to) * Turn() - World(two.to)), tolerance) << sort.name << ' ' << i;
        }
        ASSERT_EQ(flat.names.size(), turned.names.size());
        for (std::size_t i = 0; i < flat.names.size(); ++i)
            EXPECT_LT(std::abs(World(flat.names[i].at) * Turn() - World(turned.names[i].at)), 1e-3);
    }
}

TEST_F(ViewOverlays, OfTheOtherCircuitAreTheMirrorImageOfTheCrankTurnedBack) {
    for (const Sort& sort : kSorts) {
        if (sort.wish == &View_Wishes::grid || sort.wish == &View_Wishes::pin_forces ||
            sort.wish == &View_Wishes::shaking_force)
            continue;  // masses have no mirror image of their own
        Overlay open, crossed;
        for (const int circuit : {1, 2}) {
            Run({.name = "mirror", .circuit = circuit, .omega2 = circuit == 1 ? 10.0 : -10.0});
            Model.ThetaStart = circuit == 1 ? 45 : -405;
            Model.ThetaEnd = circuit == 1 ? 405 : -45;
            Model.Delta = circuit == 1 ? -70.0 : 70.0;
            Set_Delta(Model.Delta, Model.DeltaRad, Model.DeltaStr);
            Derive_Angle_Limits();
            Integer result;
            Calc_Setup(3, result);
            Model.AnimMin = -6;
            Model.AnimMax = 6;
            Model.FlipSum = 0;
            (circuit == 1 ? open : crossed) = At_Step(9, Only(sort.wish));
        }
        ASSERT_FALSE(open.Empty()) << sort.name;
        ASSERT_EQ(open.marks.size(), crossed.marks.size()) << sort.name;
        for (std::size_t i = 0; i < open.marks.size(); ++i) {
            const Mark &one = open.marks[i], &two = crossed.marks[i];
            EXPECT_EQ(one.kind, two.kind);
            const double tolerance = 2e-4 * (1 + std::abs(World(one.to)) + std::abs(World(one.from)));
            EXPECT_LT(std::abs(std::conj(World(one.from)) - World(two.from)), tolerance) << sort.name << ' ' << i;
            if (one.kind == Kind::kCircle || one.kind == Kind::kRing) continue;
            EXPECT_LT(std::abs(std::conj(World(one.to)) - World(two.to)), tolerance) << sort.name << ' ' << i;
        }
    }
}

/// How far a joint comes in a small time, by the positions of a fine run.
TEST_F(ViewOverlays, ArrowsOfVelocityAndAccelerationAreWhatThePositionsDo) {
    for (const Scenario& way : Every_Way()) {
        Run(way);
        Model.ThetaStart = 45;
        Model.ThetaEnd = 60;
        Model.ThetaStep = 0.5;
        Derive_Angle_Limits();
        Model.NSteps = 30;
        Integer result;
        Calc_Setup(3, result);
        const double time = 0.5 * kDegToRad / Model.Omega2Input;
        constexpr int kStep = 12;
        View_Wishes wishes = Only(&View_Wishes::velocities);
        const auto speeds = Of_Kind(At_Step(kStep, wishes), Kind::kOpenArrow);
        const double per_velocity = Find_Scales(Model, wishes).velocity;
        wishes = Only(&View_Wishes::accelerations);
        const auto gains = Of_Kind(At_Step(kStep, wishes), Kind::kArrow);
        const double per_acceleration = Find_Scales(Model, wishes).acceleration;
        ASSERT_EQ(speeds.size(), 3U) << way.name;
        ASSERT_EQ(gains.size(), 3U) << way.name;
        for (int row = 0; row <= 2; ++row) {
            const auto i = static_cast<std::size_t>(row);
            const Spot before = Joint(kStep - 4, row), now = Joint(kStep, row), after = Joint(kStep + 4, row);
            const Spot velocity = (after - before) / (8 * time),
                       gain = (after - 2.0 * now + before) / (16 * time * time);
            const double speed = 10 * std::abs(now), change = 100 * std::abs(now);
            EXPECT_LT(std::abs(World(speeds[i].from) - now), 1e-5 * std::abs(now)) << way.name;
            EXPECT_LT(std::abs(Way(speeds[i]) * per_velocity - velocity), 2e-3 * speed) << way.name << ' ' << row;
            EXPECT_LT(std::abs(World(gains[i].from) - now), 1e-5 * std::abs(now)) << way.name;
            EXPECT_LT(std::abs(Way(gains[i]) * per_acceleration - gain), 1e-2 * change) << way.name << ' ' << row;
        }
    }
}

TEST_F(ViewOverlays, ArrowsOfForcesKeepEachLinkInBalance) {
    for (const Scenario& way : Every_Way()) {
        Run(way);
        for (const int step : {3, 20}) {
            View_Wishes wishes = Only(&View_Wishes::pin_forces);
            const auto pins = Of_Kind(At_Step(step, wishes), Kind::kArrow);
            const double per_pin = Find_Scales(Model, wishes).pin_force;
            wishes = Only(&View_Wishes::shaking_force);
            const auto shaking = Of_Kind(At_Step(step, wishes), Kind::kArrow);
            const double per_shaking = Find_Scales(Model, wishes).shaking_force;
            ASSERT_EQ(pins.size(), 4U) << way.name;
            ASSERT_EQ(shaking.size(), 1U) << way.name;
            // F32 on the crank at A, F43 on the coupler at B, F12 and F14.
            const Spot at_A = Way(pins[0]) * per_pin, at_B = Way(pins[1]) * per_pin;
            const Spot at_O2 = Way(pins[2]) * per_pin, at_O4 = Way(pins[3]) * per_pin;
            const double factor = Model.Units > 3 ? 1 / Shown_Factor() : 1;  // to metres
            const auto inertia = [&](int link, int row) {
                return double{Model.LinkMass(link)} * At(Model.RunTable.AccXY, step, row) * Turn() * factor;
            };
            const double most = std::abs(at_A) + std::abs(at_B) + std::abs(at_O2) + std::abs(at_O4);
            EXPECT_LT(std::abs(at_O2 + at_A - inertia(2, 6)), 1e-4 * most) << way.name;
            EXPECT_LT(std::abs(at_B - at_A - inertia(3, 5)), 1e-4 * most) << way.name;
            EXPECT_LT(std::abs(at_O4 - at_B - inertia(4, 7)), 1e-4 * most) << way.name;
            EXPECT_LT(std::abs(Way(shaking[0]) * per_shaking + at_O2 + at_O4), 1e-4 * most) << way.name;
            EXPECT_LT(std::abs(World(pins[0].from) - Joint(step, 0)), 1e-4 * Window());
            EXPECT_LT(std::abs(World(pins[1].from) - Joint(step, 1)), 1e-4 * Window());
            EXPECT_LT(std::abs(World(pins[2].from)), 1e-6 * Window());
            EXPECT_LT(std::abs(World(pins[3].from) - Model.L1 * Shown_Factor() * Turn()), 1e-4 * Window());
            EXPECT_LT(std::abs(World(shaking[0].from)), 1e-6 * Window());
        }
    }
}

TEST_F(ViewOverlays, RaysLeadFromTheLinksToTheirPole) {
    for (const Scenario& way : Every_Way()) {
        Run(way);
        for (int step = 0; step <= Model.NSteps; step += 7) {
            const Overlay overlay = At_Step(step, Only(&View_Wishes::poles));
            const auto rings = Of_Kind(overlay, Kind::kRing), rays = Of_Kind(overlay, Kind::kDashes);
            ASSERT_EQ(rings.size(), overlay.names.size());
            for (std::size_t i = 0; i < rings.size(); ++i) EXPECT_EQ(rings[i].from, overlay.names[i].at);
            for (const Mark& ray : rays) {
                // It lies on the line of one of the four links.
                const Spot O4 = Model.L1 * Shown_Factor() * Turn(), A = Joint(step, 0), B = Joint(step, 1);
                double least = 1e9;
                for (const auto& [p, q] :
                     {std::pair{Spot{}, A}, std::pair{O4, B}, std::pair{A, B}, std::pair{Spot{}, O4}})
                    least = std::min(least, std::abs(Cross((q - p) / std::abs(q - p), World(ray.to) - p)) +
                                                std::abs(Cross((q - p) / std::abs(q - p), World(ray.from) - p)));
                EXPECT_LT(least, 1e-4 * (Window() + std::abs(World(ray.to)))) << way.name << ' ' << step;
            }
        }
    }
}

TEST_F(ViewOverlays, TheCircleOfCurvatureGoesThroughTheCouplerPointAndItsNeighbours) {
    for (const Scenario& way : Every_Way()) {
        Run(way);
        Model.ThetaStep = 0.5;
        Model.ThetaEnd = 90;
        Derive_Angle_Limits();
        Model.NSteps = 90;
        Integer result;
        Calc_Setup(3, result);
        for (int step = 4; step < 90; step += 9) {
            const auto circles = Of_Kind(At_Step(step, Only(&View_Wishes::curvature)), Kind::kCircle);
            ASSERT_EQ(circles.size(), 1U) << way.name << ' ' << step;
            const Spot centre = World(circles[0].from);
            const Spot P = Joint(step, 2), before = Joint(step - 3, 2), after = Joint(step + 3, 2);
            const double radius = circles[0].radius, apart = std::abs(after - before);
            EXPECT_NEAR(std::abs(P - centre), radius, 1e-5 * (radius + Window())) << way.name;
            // Three places of the path that lie near each other lie on it but for what is of the third order.
            for (const Spot near : {before, after})
                EXPECT_NEAR(std::abs(near - centre), radius, 0.1 * apart * apart / radius + 1e-5 * (radius + Window()))
                    << way.name << ' ' << step;
        }
    }
}

TEST_F(ViewOverlays, AreNothingButTheGridWhereThePositionDoesNotClose) {
    Run({.name = "open"});
    Model.RunTable.Assembled(5) = false;
    for (const Sort& sort : kSorts) {
        const bool grid = sort.wish == &View_Wishes::grid;
        for (const int step : {5, -1, Model.NSteps + 1}) {
            const Overlay overlay = At_Step(step, Only(sort.wish));
            EXPECT_EQ(overlay.Empty(), !grid) << sort.name;
            EXPECT_TRUE(overlay.marks.empty() && overlay.names.empty() && overlay.legend.empty()) << sort.name;
        }
    }
}

TEST_F(ViewOverlays, AGhostStandsAtBothEndsThatClose) {
    Run({.name = "ends"});
    const auto ghosts = [](int step) { return Of_Kind(At_Step(step, Only(&View_Wishes::ghosts)), Kind::kFaint); };
    // A whole turn ends as it began, and there the linkage stands itself.
    EXPECT_EQ(ghosts(20).size(), 5U);
    EXPECT_EQ(ghosts(0).size(), 0U);
    EXPECT_EQ(ghosts(Model.NSteps).size(), 0U);
    Model.RunTable.Assembled(0) = Model.RunTable.Assembled(1) = Model.RunTable.Assembled(Model.NSteps) = false;
    const auto both = ghosts(20);
    ASSERT_EQ(both.size(), 10U);
    EXPECT_LT(std::abs(World(both[0].to) - Joint(2, 0)), 1e-5);
    EXPECT_LT(std::abs(World(both[5].to) - Joint(Model.NSteps - 1, 0)), 1e-5);
}

TEST_F(ViewOverlays, ForcesThatAreNotSolvedAreSaidAndNotDrawn) {
    Run({.name = "no forces"});
    Forces_Dropped();
    for (auto wish : {&View_Wishes::pin_forces, &View_Wishes::shaking_force}) {
        const Overlay overlay = At_Step(4, Only(wish));
        EXPECT_TRUE(Of_Kind(overlay, Kind::kArrow).empty());
        ASSERT_EQ(overlay.legend.size(), 1U);
        EXPECT_TRUE(overlay.legend[0].text.ends_with(": not solved")) << overlay.legend[0].text;
    }
}

TEST_F(ViewOverlays, ALinkageAtRestHasNoArrowsAndItsCurvatureAllTheSame) {
    Model.Omega2Input = 0;
    Model.Alpha2 = 0;
    Model.Calctype = 1;
    Model.ThetaZero = 50;
    Model.NSteps = 0;
    Integer result;
    Calc_Setup(1, result);
    ASSERT_TRUE(Model.RunTable.Assembled(0));
    Autoscale();
    View_Wishes wishes = Only(&View_Wishes::velocities);
    wishes.accelerations = wishes.curvature = true;
    const Overlay overlay = At_Step(0, wishes);
    EXPECT_TRUE(Of_Kind(overlay, Kind::kArrow).empty());
    EXPECT_TRUE(Of_Kind(overlay, Kind::kOpenArrow).empty());
    EXPECT_EQ(Of_Kind(overlay, Kind::kCircle).size(), 1U);
    ASSERT_EQ(overlay.legend.size(), 3U);
    EXPECT_EQ(overlay.legend[1].text, "velocity: 0 in/sec");
    EXPECT_EQ(overlay.legend[2].text, "acceleration: 0 in/sec^2");
}

TEST_F(ViewOverlays, ACrankThatComesToRestHasNoArrowAtThatMoment) {
    Model.Omega2Input = 10;
    Model.Alpha2 = -10;
    By_Time(0, 1, 0.25);
    Autoscale();
    Model.FlipSum = Model.AnimMin + Model.AnimMax;
    ASSERT_EQ(Model.RunTable.Omega(4, 0), 0);
    const OverlayLog log = Painted(At_Step(4, Only(&View_Wishes::velocities)));
    // The arrow of the legend alone.
    EXPECT_EQ(std::ranges::count_if(log.Calls, [](const auto& call) { return call.kind == "Line"; }), 3);
}

TEST_F(ViewOverlays, OfAParallelogramHaveTheirRaysLeadToTheEdges) {
    Model.PolarCoords = true;
    Model.L1 = Model.L3 = 4;
    Model.L2 = Model.L4 = 2;
    Model.Rpa = 2.5;
    Derive_Linkage(Leading::kInForce);
    By_Angle(20, 160, 10);
    Autoscale();
    Model.FlipSum = Model.AnimMin + Model.AnimMax;
    const Overlay overlay = At_Step(5, Only(&View_Wishes::poles));
    EXPECT_TRUE(overlay.names.empty());
    const auto rays = Of_Kind(overlay, Kind::kDashes);
    ASSERT_EQ(rays.size(), 8U);
    std::complex<double> together;
    for (const Mark& ray : rays) {
        // Thirty windows, and along the ground, where nothing is drawn, from the other end.
        const bool level = std::abs(World(ray.to).imag()) + std::abs(World(ray.from).imag()) < 1e-5;
        const double length = 30 * Window() + (level && World(ray.to).real() > 0 ? 4 : 0);
        EXPECT_NEAR(std::abs(Way(ray)), length, 1e-3);
        together += Way(ray);
    }
    EXPECT_LT(std::abs(together), 5 * Window()) << "as many lead one way as the other";
    // All that is painted ends at the edge.
    for (const auto& call : Painted(overlay).Calls)
        for (const double number : call.numbers) EXPECT_LE(std::abs(number - 300), 303);
}

class OnePosition : public ViewOverlays {
   protected:
    /// The joints of the only position, with pivots at 0 and 4.
    static void Put(Spot A, Spot B, Spot P) {
        Run({.name = "one position"});
        Model.NSteps = 0;
        Model.L1 = 4;
        const Spot joints[] = {A, B, P};
        for (int row = 0; row <= 2; ++row) {
            Model.RunTable.PointXY(0, row, 0) = joints[row].real();
            Model.RunTable.PointXY(0, row, 1) = joints[row].imag();
        }
    }
    static void Look_Through(double window) {
        Model.AnimMin = 0;
        Model.AnimMax = window;
        Model.FlipSum = 0;
    }
    static std::string Legend(const Overlay& overlay) { return overlay.legend.at(0).text; }
};

TEST_F(OnePosition, APoleFartherThanThirtyWindowsHasNoRingAndRaysOfThatLength) {
    // The crank stands upright, and the rocker leans a tenth on each unit: they meet 40 above the crank's pivot.
    Put({0, 1}, {3.9, 1}, {2, 2});
    const auto at = [](double windows) {
        Look_Through(40 / windows);
        return At_Step(0, Only(&View_Wishes::poles));
    };
    Overlay overlay = at(29.5);
    ASSERT_EQ(overlay.names.size(), 1U);
    EXPECT_EQ(overlay.names[0].text, "I13");
    EXPECT_LT(std::abs(World(overlay.names[0].at) - Spot(0, 40)), 1e-3);
    EXPECT_LT(std::abs(World(Of_Kind(overlay, Kind::kDashes).at(0).to) - Spot(0, 40)), 1e-3);
    overlay = at(30.5);
    EXPECT_TRUE(overlay.names.empty());
    EXPECT_TRUE(Of_Kind(overlay, Kind::kRing).empty());
    EXPECT_LT(std::abs(World(Of_Kind(overlay, Kind::kDashes).at(0).to) - Spot(0, 30 * Window())), 1e-3);
}

TEST_F(OnePosition, APathIsStraightWhereItsRadiusIsMoreThanTenThousandWindows) {
    Put({1, 2}, {4, 3}, {2.5, 4});
    Look_Through(10);
    const View_Wishes wishes = Only(&View_Wishes::curvature);
    const auto circles = Of_Kind(At_Step(0, wishes), Kind::kCircle);
    ASSERT_EQ(circles.size(), 1U);
    const double radius = circles[0].radius;
    const Spot P(2.5, 4), out = (P - World(circles[0].from)) / radius;
    Look_Through(radius / 9500);
    EXPECT_EQ(Of_Kind(At_Step(0, wishes), Kind::kCircle).size(), 1U);
    Look_Through(radius / 10500);
    const Overlay straight = At_Step(0, wishes);
    EXPECT_EQ(Legend(straight), "Radius of curvature at P: infinite");
    EXPECT_TRUE(Of_Kind(straight, Kind::kCircle).empty());
    const auto lines = Of_Kind(straight, Kind::kLine);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_LT(std::abs((World(lines[0].from) + World(lines[0].to)) / 2.0 - P), 1e-5);
    EXPECT_NEAR(std::abs(Way(lines[0])), 60 * Window(), 1e-3 * Window());
    EXPECT_NEAR((Way(lines[0]) * std::conj(out)).real(), 0, 1e-3 * Window()) << "across the radius";
}

TEST_F(OnePosition, WhereCouplerAndRockerLieInOneLineThePathHasNoRadius) {
    Put({0, 1}, {2, 0.5}, {2, 2});
    Look_Through(10);
    const Overlay overlay = At_Step(0, Only(&View_Wishes::curvature));
    EXPECT_EQ(Of_Kind(overlay, Kind::kNothing).size(), overlay.marks.size()) << "nothing but what names keep clear of";
    EXPECT_EQ(Legend(overlay), "Radius of curvature at P: none here");
}

}  // namespace
}  // namespace verlink::test
