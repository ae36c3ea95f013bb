// How the boxes of the dynamics screen are filled and read.
#include "dynamics/mass_properties.h"

#include <string>
#include <vector>

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/text.h"
#include "dynamics/dynacalc.h"

namespace verlink {

using platform::Screen;

namespace {

/// Where the force on link 3 or 4 acts.
Single& Distance_Of(MassProperties& masses, int link) { return link == 3 ? masses.ForceDist3 : masses.ForceDist4; }

Single& Direction_Of(MassProperties& masses, int link) { return link == 3 ? masses.ForceAng3 : masses.ForceAng4; }

/// A box with its place in the record, what it shows of that, and how what is typed becomes the record's.
struct Box {
    const char* name;
    int link;
    Single& stored;
    std::string shown;
    double over = 1, times = 1;
};

/// Masses, inertias and mass centres.
std::vector<Box> Boxes_Of_Masses(MassProperties& m, const UnitSystem& units) {
    const double factor = Shown_Factor(units);
    std::vector<Box> boxes;
    for (int link = 2; link <= 4; ++link) {
        boxes.push_back({"txt_Mass", link, m.LinkMass(link), FNRoundStr(m.LinkMass(link), units.DecMass)});
        boxes.push_back({"txt_Inertia", link, m.LinkInertia(link), FNRoundStr(m.LinkInertia(link), units.DecInertia)});
        boxes.push_back(
            {"txt_DistCG", link, m.CG(link, 0), FNRoundStr(m.CG(link, 0) * factor, units.DecLengthShown), factor});
        boxes.push_back({"txt_AngCG", link, m.CG(link, 1), FNRoundStr(m.CG(link, 1) * kRadToDeg, 2), 1, kDegToRad});
    }
    return boxes;
}

std::vector<Box> Boxes_Of_Forces(MassProperties& m) {
    std::vector<Box> boxes;
    for (int link = 3; link <= 4; ++link) {
        boxes.push_back({"txt_MagForce", link, m.ExtForceMag(link), Text_Of(m.ExtForceMag(link))});
        boxes.push_back({"txt_AngForce", link, m.ExtForceAng(link), Text_Of(m.ExtForceAng(link))});
    }
    return boxes;
}

/// Where the forces act, and the torques.
std::vector<Box> Boxes_Of_Places(MassProperties& m, const UnitSystem& units) {
    const double factor = Shown_Factor(units);
    std::vector<Box> boxes;
    for (int link = 3; link <= 4; ++link) {
        Single &distance = Distance_Of(m, link), &direction = Direction_Of(m, link);
        boxes.push_back({"txt_DistP", link, distance, FNRoundStr(distance * factor, units.DecLengthShown), factor});
        boxes.push_back({"txt_AngP", link, direction, Text_Of(direction)});
        boxes.push_back({"txt_Torque", link, m.ExtTorque(link), FNRoundStr(m.ExtTorque(link), units.DecTorque)});
    }
    return boxes;
}

void Put(Screen& screen, const std::vector<Box>& boxes) {
    for (const Box& box : boxes) screen.Text(box.name, box.link).Text = box.shown;
}

void Get(Screen& screen, const std::vector<Box>& boxes) {
    for (const Box& box : boxes) {
        const std::string text = screen.Text(box.name, box.link).Text;
        if (text != box.shown) box.stored = Val(Ungrouped(text)) / box.over * box.times;
    }
}

}  // namespace

void Put_Mass_Properties(Screen& screen, const MassProperties& masses, const UnitSystem& units) {
    MassProperties shown = masses;
    Put(screen, Boxes_Of_Masses(shown, units));
    Put(screen, Boxes_Of_Forces(shown));
    Put(screen, Boxes_Of_Places(shown, units));
    screen.Text("txt_Frict", 3).Text = FNRoundStr(masses.FrictionForce, units.DecForce);
}

void Get_Mass_Properties(Screen& screen, MassProperties& masses, const UnitSystem& units) {
    Get(screen, Boxes_Of_Masses(masses, units));
    Get(screen, Boxes_Of_Forces(masses));
    Resolve_Forces(masses);
    Get(screen, Boxes_Of_Places(masses, units));
    const std::string friction = screen.Text("txt_Frict", 3).Text;
    if (friction != FNRoundStr(masses.FrictionForce, units.DecForce))
        masses.FrictionForce = Number_Of(Ungrouped(friction));
}

}  // namespace verlink
