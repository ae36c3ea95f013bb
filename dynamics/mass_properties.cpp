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
struct ForcePoint {
    Single &Dist, &Ang;
};

ForcePoint Force_Point_Of(int link) {
    if (link == 3) return {Model.ForceDist3, Model.ForceAng3};
    return {Model.ForceDist4, Model.ForceAng4};
}

}  // namespace

void Put_Mass_Properties(Screen& screen) {
    const double factor = Shown_Factor();
    for (int link = 2; link <= 4; ++link) {
        Show(screen, "txt_Mass", link, FNRoundStr(Model.LinkMass(link), Model.DecMass));
        Show(screen, "txt_Inertia", link, FNRoundStr(Model.LinkInertia(link), Model.DecInertia));
        Show(screen, "txt_DistCG", link, FNRoundStr(Model.CG(link, 0) * factor, Model.DecLengthShown));
        Show(screen, "txt_AngCG", link, FNRoundStr(Model.CG(link, 1) * kRadToDeg, 2));
    }
    for (int link = 3; link <= 4; ++link) {
        const ForcePoint point = Force_Point_Of(link);
        Show(screen, "txt_MagForce", link, Text_Of(Model.ExtForceMag(link)));
        Show(screen, "txt_AngForce", link, Text_Of(Model.ExtForceAng(link)));
        Show(screen, "txt_DistP", link, FNRoundStr(point.Dist * factor, Model.DecLengthShown));
        Show(screen, "txt_AngP", link, Text_Of(point.Ang));
        Show(screen, "txt_Torque", link, FNRoundStr(Model.ExtTorque(link), Model.DecTorque));
    }
    Show(screen, "txt_Frict", 3, FNRoundStr(Model.FrictionForce, Model.DecForce));
}

void Get_Mass_Properties(Screen& screen) {
    const double factor = Shown_Factor();
    for (int link = 2; link <= 4; ++link) {
        Model.LinkMass(link) = Read(screen, "txt_Mass", link);
        Model.LinkInertia(link) = Read(screen, "txt_Inertia", link);
        Model.CG(link, 0) = Read(screen, "txt_DistCG", link) / factor;
        Model.CG(link, 1) = Read(screen, "txt_AngCG", link) * kDegToRad;
    }
    for (int link = 3; link <= 4; ++link) {
        Model.ExtForceMag(link) = Read(screen, "txt_MagForce", link);
        Model.ExtForceAng(link) = Read(screen, "txt_AngForce", link);
    }
    Resolve_Forces();
    for (int link = 3; link <= 4; ++link) {
        const ForcePoint point = Force_Point_Of(link);
        point.Dist = Read(screen, "txt_DistP", link) / factor;
        point.Ang = Read(screen, "txt_AngP", link);
        Model.ExtTorque(link) = Read(screen, "txt_Torque", link);
    }
    Model.FrictionForce = Number_Of(Typed(screen, "txt_Frict", 3));
}

}  // namespace verlink
