// How the boxes of the dynamics screen are filled and read.
#include "dynamics/mass_properties.h"

#include <string>

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/text.h"
#include "dynamics/dynacalc.h"

namespace verlink {

using platform::Screen;

namespace {

void Show(Screen& screen, const char* box, int link, const std::string& text) { screen.Text(box, link).Text = text; }

std::string Typed(Screen& screen, const char* box, int link) { return Ungrouped(screen.Text(box, link).Text.Get()); }

double Read(Screen& screen, const char* box, int link) { return Val(Typed(screen, box, link)); }

/// Where the force on link 3 or 4 acts.
template <class Masses>
auto& Distance_Of(Masses& masses, int link) {
    return link == 3 ? masses.ForceDist3 : masses.ForceDist4;
}
template <class Masses>
auto& Direction_Of(Masses& masses, int link) {
    return link == 3 ? masses.ForceAng3 : masses.ForceAng4;
}

}  // namespace

void Put_Mass_Properties(Screen& screen, const MassProperties& masses, const UnitSystem& units) {
    const double factor = Shown_Factor(units);
    for (int link = 2; link <= 4; ++link) {
        Show(screen, "txt_Mass", link, FNRoundStr(masses.LinkMass(link), units.DecMass));
        Show(screen, "txt_Inertia", link, FNRoundStr(masses.LinkInertia(link), units.DecInertia));
        Show(screen, "txt_DistCG", link, FNRoundStr(masses.CG(link, 0) * factor, units.DecLengthShown));
        Show(screen, "txt_AngCG", link, FNRoundStr(masses.CG(link, 1) * kRadToDeg, 2));
    }
    for (int link = 3; link <= 4; ++link) {
        Show(screen, "txt_MagForce", link, Text_Of(masses.ExtForceMag(link)));
        Show(screen, "txt_AngForce", link, Text_Of(masses.ExtForceAng(link)));
        Show(screen, "txt_DistP", link, FNRoundStr(Distance_Of(masses, link) * factor, units.DecLengthShown));
        Show(screen, "txt_AngP", link, Text_Of(Direction_Of(masses, link)));
        Show(screen, "txt_Torque", link, FNRoundStr(masses.ExtTorque(link), units.DecTorque));
    }
    Show(screen, "txt_Frict", 3, FNRoundStr(masses.FrictionForce, units.DecForce));
}

void Get_Mass_Properties(Screen& screen, MassProperties& masses, const UnitSystem& units) {
    const double factor = Shown_Factor(units);
    for (int link = 2; link <= 4; ++link) {
        masses.LinkMass(link) = Read(screen, "txt_Mass", link);
        masses.LinkInertia(link) = Read(screen, "txt_Inertia", link);
        masses.CG(link, 0) = Read(screen, "txt_DistCG", link) / factor;
        masses.CG(link, 1) = Read(screen, "txt_AngCG", link) * kDegToRad;
    }
    for (int link = 3; link <= 4; ++link) {
        masses.ExtForceMag(link) = Read(screen, "txt_MagForce", link);
        masses.ExtForceAng(link) = Read(screen, "txt_AngForce", link);
    }
    Resolve_Forces(masses);
    for (int link = 3; link <= 4; ++link) {
        Distance_Of(masses, link) = Read(screen, "txt_DistP", link) / factor;
        Direction_Of(masses, link) = Read(screen, "txt_AngP", link);
        masses.ExtTorque(link) = Read(screen, "txt_Torque", link);
    }
    masses.FrictionForce = Number_Of(Typed(screen, "txt_Frict", 3));
}

}  // namespace verlink
