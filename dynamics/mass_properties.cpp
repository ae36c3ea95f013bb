// How the boxes of the dynamics screen are filled and read.
#include "dynamics/mass_properties.h"

#include <cmath>
#include <string>

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/text.h"

namespace verlink {

using platform::Screen;

namespace {

void Show(Screen& screen, const char* box, int link, const std::string& text) { screen.Text(box, link).Text = text; }

std::string Typed(Screen& screen, const char* box, int link) { return Ungrouped(screen.Text(box, link).Text.Get()); }

double Read(Screen& screen, const char* box, int link) { return Val(Typed(screen, box, link)); }

/// What only links 3 and 4 have, one at a time.
struct Load {
    int link;
    Single &X, &Y, &Dist, &Ang;
};

Load Load_Of(int link) {
    if (link == 3) return {3, Model.ExtForce3X, Model.ExtForce3Y, Model.ForceDist3, Model.ForceAng3};
    return {4, Model.ExtForce4X, Model.ExtForce4Y, Model.ForceDist4, Model.ForceAng4};
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
        const Load load = Load_Of(link);
        Show(screen, "txt_MagForce", link, Text_Of(Model.ExtForceMag(link)));
        Show(screen, "txt_AngForce", link, Text_Of(Model.ExtForceAng(link)));
        Show(screen, "txt_DistP", link, FNRoundStr(load.Dist * factor, Model.DecLengthShown));
        Show(screen, "txt_AngP", link, Text_Of(load.Ang));
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
        const Load load = Load_Of(link);
        Model.ExtForceMag(link) = Read(screen, "txt_MagForce", link);
        Model.ExtForceAng(link) = Read(screen, "txt_AngForce", link);
        load.X = Model.ExtForceMag(link) * std::cos(Model.ExtForceAng(link) * kDegToRad);
        load.Y = Model.ExtForceMag(link) * std::sin(Model.ExtForceAng(link) * kDegToRad);
    }
    for (int link = 3; link <= 4; ++link) {
        const Load load = Load_Of(link);
        load.Dist = Read(screen, "txt_DistP", link) / factor;
        load.Ang = Read(screen, "txt_AngP", link);
        Model.ExtTorque(link) = Read(screen, "txt_Torque", link);
    }
    Model.FrictionForce = Number_Of(Typed(screen, "txt_Frict", 3));
}

}  // namespace verlink
