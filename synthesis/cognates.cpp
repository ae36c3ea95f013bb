// The cognates of a linkage, by the similar triangles of Cayley's diagram, and the switching between them.
#include "synthesis/cognates.h"

#include <cmath>

#include "core/classification.h"
#include "core/linkage_door.h"
#include "core/linkage_model.h"
#include "core/model_on_screens.h"
#include "core/numeric.h"
#include "core/text.h"
#include "platform/desktop_services.h"
#include "platform/guard.h"
#include "platform/screen.h"

namespace verlink {

namespace {

constexpr int kItems = 6;
constexpr int kDegrees = 0;  ///< the coupler point's angle as the linkage has it

struct Row {
    Single L1, L2, L3, L4, Rpa, DeltaRad;
};

void Put_Row(CognateTable& table, int cognate, const Row& row) {
    const Single items[] = {row.L1, row.L2, row.L3, row.L4, row.Rpa, row.DeltaRad};
    for (int item = 1; item <= kItems; ++item) table(cognate, item) = items[item - 1];
}

/// The same linkage with its side links exchanged; its coupler point is given from the other joint.
Row From_Other_Side(const Row& row, Single Rpa, Single DeltaRad) {
    return {row.L1, row.L4, row.L3, row.L2, Rpa, DeltaRad};
}

}  // namespace

void Check_Cognates() {
    for (const char* screen : {"frm_HomeScreen", "frm_Inputnew"})
        for (int cognate = 1; cognate <= 3; ++cognate)
            platform::With<platform::MenuEntry>(screen, "mnu_Cog", cognate, [&](platform::MenuEntry& entry) {
                entry.Checked = cognate == Model.CognateNumber;
            });
}

void SeedCognate() {
    Guarded("SeedCognate", [] {
        Put_Row(Model.Cognates, 1, {Model.L1, Model.L2, Model.L3, Model.L4, Model.Rpa, Model.DeltaRad});
        Model.DeltaStr = Text_Of(FNRound(Model.Delta, 1));
        Model.CognateNumber = 1;
        Model.CognateEdit = false;
        Model.CognatesDue = false;
        Cayley(Model.Cognates, Model.CayleyRows);
        Model.Cognates(1, kDegrees) = Model.Delta;
        for (int n : {2, 3}) Model.Cognates(n, kDegrees) = Model.Cognates(n, kItems) * kRadToDeg;
        Check_Cognates();
    });
}

void Cayley(CognateTable& cognates, CognateTable& rows) {
    Guarded("Cayley", [&] {
        Put_Row(cognates, 2, {});
        Put_Row(cognates, 3, {});
        for (int item = 1; item <= kItems; ++item) rows(1, item) = cognates(1, item);
        const Single L1 = cognates(1, 1), L2 = cognates(1, 2), L3 = cognates(1, 3), L4 = cognates(1, 4);
        const Single R = cognates(1, 5), d = cognates(1, 6);

        // The coupler triangle: R and Rb from its joints A and B to P; its angles d at A, g at B, h at P.
        Single Rb, m, g;
        CosineLaw_Angle(R, L3, d, Rb);
        Cart_to_Polar(L3 - R * std::cos(d), R * std::sin(d), m, g);
        g = g * kDegToRad;
        const Single h = kPi - (d + g);

        // The other two couplers are that triangle, scaled to the cranks.
        Single a, b, c, e;
        if (L3 != 0.0) {
            a = R * L2 / L3;
            b = Rb * L2 / L3;
            c = R * L4 / L3;
            e = Rb * L4 / L3;
        }
        const Single q = Divide(L1, L3 + L2 + L4);
        const Single G2 = (a + R + c) * q;
        const Single G3 = (e + Rb + b) * q;
        const Row second{G2, c, a, R, b, h}, third{G3, Rb, e, b, L4, g};
        Put_Row(rows, 2, second);
        Put_Row(rows, 3, third);
        Put_Row(cognates, 2, R <= c ? From_Other_Side(second, L2, d) : second);
        Put_Row(cognates, 3, b <= Rb ? From_Other_Side(third, c, h) : third);
    });
}

void GetCognates(const CognateTable& cognates, Integer n, Single& L2, Single& L3, Single& L4, Single& L1, Single& Rpa,
                 Single& DeltaRad) {
    Guarded("GetCognates", [&] {
        L1 = cognates(n, 1);
        L2 = cognates(n, 2);
        L3 = cognates(n, 3);
        L4 = cognates(n, 4);
        // The ground keeps its direction.
        Model.Link1X = L1 * std::cos(Model.Link1Angle * kDegToRad);
        Model.Link1Y = L1 * std::sin(Model.Link1Angle * kDegToRad);
        Rpa = cognates(n, 5);
        DeltaRad = cognates(n, 6);
        Model.Delta = DeltaRad * kRadToDeg;
        Model.DeltaStr = FNRoundStr(Model.Delta, 1);
    });
}

void Find_Cognates() {
    if (Model.CognatesDue) SeedCognate();
}

void Switch_Cognate(Integer n) {
    Guarded("Switch_Cognate", [&] {
        Find_Cognates();
        Enter_Linkage(Road::kCognate, [n] {
            GetCognates(Model.Cognates, n, Model.L2, Model.L3, Model.L4, Model.L1, Model.Rpa, Model.DeltaRad);
            Model.Delta = Model.Cognates(n, kDegrees);
        });
        Model.CognateNumber = n;
        Model.CognateEdit = n != 1;
        Check_Cognates();
        Refresh_Status();
        Set_Menus();
    });
}

bool Refuse_Parallelogram() {
    // The way back from a cognate is open, whatever it is: a coupler point on a joint has one without extent.
    const bool refused = Model.Parallelogram && !Model.CognateEdit;
    if (refused) platform::Tell(kParallelogramMessage, platform::Icon::kInformation);
    return refused;
}

}  // namespace verlink
