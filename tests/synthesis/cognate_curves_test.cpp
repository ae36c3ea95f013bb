// The three cognates of many linkages, run side by side in the arrangement of the diagram: one and the same curve.
#include <algorithm>
#include <vector>

#include "core/classification.h"
#include "synthesis/cognates.h"
#include "tests/core/linkages.h"
#include "tests/synthesis/synthesis_fixture.h"

namespace verlink::test {

namespace {

/// One position of a linkage, with O2 at the origin and O4 on the x axis.
struct Posed {
    Vector A, B, P;
    double L1;

    /// The factor that makes the ground link, the coupler and the crank's angle of the others: AB to AP.
    Vector Similar() const { return (P - A) / (B - A); }
    /// The ground pivot that the other two share.
    Vector O6() const { return Similar() * L1; }
};

/// A cognate in its place: its crank's and rocker's ground pivots and its crank's pin.
struct Placed {
    Vector pivot, other, pin;
};

/// Cognate 2 stands on O2 and O6, cognate 3 on O4 and O6. Their cranks complete parallelograms with the coupler's
/// point and one of its joints, and the other side links follow by similar triangles.
Placed Place(const Posed& at, int cognate, bool swapped) {
    const Vector s = at.Similar(), O2 = 0, O4 = at.L1, O6 = at.O6();
    const Placed by_first = cognate == 2 ? Placed{O2, O6, at.P - at.A} : Placed{O4, O6, O4 + at.P - at.B};
    const Placed by_third =
        cognate == 2 ? Placed{O6, O2, O6 + s * (at.B - O4)} : Placed{O6, O4, at.P + s * (O4 - at.B)};
    return (cognate == 2) == swapped ? by_first : by_third;
}

/// Parts of the longest length of a cognate.
constexpr double kLastPlaces = 4e-6, kWrong = 0.001;

struct CognateCurves : Synthesis {
    static void Take_Row(const CognateTable& table, int row) {
        Take_Lengths(table(row, 1), table(row, 2), table(row, 3), table(row, 4));
        Model.Rpa = table(row, 5);
        Model.Delta = table(row, 6) * kRadToDeg;
        Model.PolarCoords = true;
        Model.Link1Angle = 0;
    }
    static Vector Point(int point) {
        return {Model.RunTable.PointXY(0, point, 0), Model.RunTable.PointXY(0, point, 1)};
    }
    /// Positions of the record's linkage on one circuit that stand clear of every toggle of the three.
    static std::vector<Posed> Poses(int circuit) {
        std::vector<Posed> poses;
        for (int crank = 0; crank < 360; crank += 15) {
            if (!Coupler_At(crank, circuit).closes) continue;
            const Posed pose{Point(0), Point(1), Point(2), Model.L1};
            const Vector link2 = pose.A / std::abs(pose.A), link3 = (pose.B - pose.A) / std::abs(pose.B - pose.A);
            const Vector link4 = (pose.B - pose.L1) / std::abs(pose.B - pose.L1);
            if (std::min({std::abs(Cross(link2, link3)), std::abs(Cross(link2, link4)),
                          std::abs(Cross(link3, link4))}) > 0.25)
                poses.push_back(pose);
        }
        return poses;
    }
    /// How near the coupler point of a cognate comes to that of the first, in place; by the nearer circuit, since a
    /// cognate changes circuits where two links of the first lie in line.
    static double Miss(const CognateTable& cognates, int n, const Posed& at, const Placed& place, bool mirrored) {
        Take_Row(cognates, n);
        const Vector frame = (place.other - place.pivot) / std::abs(place.other - place.pivot);
        Vector crank = (place.pin - place.pivot) / frame, wanted = (at.P - place.pivot) / frame;
        if (mirrored) {
            crank = std::conj(crank);
            wanted = std::conj(wanted);
        }
        double miss = HUGE_VAL;
        for (const int circuit : {1, 2})
            miss = std::min(miss, std::abs(Coupler_At(Degrees(std::arg(crank)), circuit).point - wanted));
        return miss;
    }
};

}  // namespace

TEST_F(CognateCurves, AreOneCurveMirroredWhereTheTableSwapsTheSideLinks) {
    Chance chance;
    SCOPED_TRACE(chance.Trace());
    Misses as_drawn, swapped_over, lengths;
    for (int linkage = 0; linkage < 60; ++linkage) {
        Take_Lengths(chance.Number(1, 4), chance.Number(0.5, 4), chance.Number(1, 4), chance.Number(0.5, 4));
        Take_Coupler_Point(chance.Number(0.4, 4), chance.Angle());
        Notes notes(desktop);  // of links that stand upright, and of linkages that cannot close at all
        Model.PolarCoords = true;
        Model.Link1Angle = 0;
        SeedCognate();
        const CognateTable cognates = Model.Cognates, rows = Model.CayleyRows;
        const auto poses = Poses(1 + linkage % 2);
        for (const int n : {2, 3}) {
            const bool swapped = cognates(n, 2) != rows(n, 2);
            double size = 1;
            for (int item = 1; item <= 5; ++item) size = std::max(size, double{cognates(n, item)});
            for (const Posed& at : poses) {
                const Placed place = Place(at, n, swapped);
                lengths.Add(std::abs(std::abs(place.other - place.pivot) - cognates(n, 1)) / size);
                lengths.Add(std::abs(std::abs(place.pin - place.pivot) - cognates(n, 2)) / size);
                (swapped ? swapped_over : as_drawn).Add(Miss(cognates, n, at, place, swapped) / size);
            }
        }
    }
    lengths.Expect_Below(kLastPlaces, kWrong);
    as_drawn.Expect_Below(kLastPlaces, kWrong);
    swapped_over.Expect_Below(kLastPlaces, kWrong);
    EXPECT_GE(as_drawn.Count(), 50u);
    EXPECT_GE(swapped_over.Count(), 50u);
}

TEST_F(CognateCurves, OfTheDiagramsOwnRowsAreOneCurveWithoutAMirror) {
    Chance chance;
    SCOPED_TRACE(chance.Trace());
    Misses misses;
    for (int linkage = 0; linkage < 30; ++linkage) {
        Notes notes(desktop);
        Take_Lengths(4, chance.Number(0.5, 1.5), chance.Number(3, 4), chance.Number(3, 4));
        Take_Coupler_Point(chance.Number(0.4, 4), chance.Angle());
        Model.PolarCoords = true;
        Model.Link1Angle = 0;
        SeedCognate();
        const CognateTable rows = Model.CayleyRows;
        for (const Posed& at : Poses(1))
            for (const int n : {2, 3}) {
                double size = 1;
                for (int item = 1; item <= 5; ++item) size = std::max(size, double{rows(n, item)});
                misses.Add(Miss(rows, n, at, Place(at, n, false), false) / size);
            }
    }
    misses.Expect_Below(kLastPlaces, kWrong);
    EXPECT_GE(misses.Count(), 200u);
}

TEST_F(CognateCurves, TheThirdCognateOfACrankRockerIsOneToo) {
    Take_Crank_Rocker();
    SeedCognate();
    Switch_Cognate(3);
    Grashof();
    EXPECT_EQ(Model.Grashof_Code, "Y");
    EXPECT_EQ(std::min({double{Model.L1}, double{Model.L2}, double{Model.L3}, double{Model.L4}}), Model.L2);
}

}  // namespace verlink::test
