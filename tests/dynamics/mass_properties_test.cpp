// Masses and loads between the boxes of a screen and the model.
#include "dynamics/mass_properties.h"

#include <cmath>
#include <string>

#include "dynamics/units.h"
#include "shell/initialize.h"
#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

class MassBoxes : public Fixture {
   protected:
    MassBoxes() {
        Initialize();
        Use_Units(1);
    }
    std::string Box(const char* name, int link) { return boxes.Text(name, link).Text; }
    platform::Screen& boxes = platform::Screens::Get("frm_MassProp");
};

TEST_F(MassBoxes, AreReadForEachLink) {
    const auto type = [this](const char* name, int link, const char* text) { boxes.Text(name, link).Type(text); };
    for (int link = 2; link <= 4; ++link) {
        type("txt_Mass", link, std::to_string(0.1 * link).c_str());
        type("txt_Inertia", link, std::to_string(0.01 * link).c_str());
        type("txt_DistCG", link, std::to_string(1.5 * link).c_str());
        type("txt_AngCG", link, std::to_string(10 * link).c_str());
    }
    type("txt_MagForce", 3, "10");
    type("txt_MagForce", 4, "20");
    type("txt_AngForce", 3, "90");
    type("txt_AngForce", 4, "180");
    type("txt_DistP", 3, "1.25");
    type("txt_DistP", 4, "2.25");
    type("txt_AngP", 3, "15");
    type("txt_AngP", 4, "25");
    type("txt_Torque", 3, "7");
    type("txt_Torque", 4, "8");
    type("txt_Frict", 3, "0.5");
    MassProperties masses;
    Get_Mass_Properties(boxes, masses, Model);
    for (int link = 2; link <= 4; ++link) {
        EXPECT_EQ(masses.LinkMass(link), Single(0.1 * link));
        EXPECT_EQ(masses.LinkInertia(link), Single(0.01 * link));
        EXPECT_EQ(masses.CG(link, 0), Single(1.5 * link));
        EXPECT_NEAR(masses.CG(link, 1), 10 * link * M_PI / 180, 1e-6);
    }
    EXPECT_NEAR(masses.ExtForce3X, 0, 1e-6);
    EXPECT_NEAR(masses.ExtForce3Y, 10, 1e-6);
    EXPECT_NEAR(masses.ExtForce4X, -20, 1e-6);
    EXPECT_NEAR(masses.ExtForce4Y, 0, 1e-5);
    EXPECT_EQ(masses.ForceDist3, 1.25);
    EXPECT_EQ(masses.ForceDist4, 2.25);
    EXPECT_EQ(masses.ForceAng3, 15);
    EXPECT_EQ(masses.ForceAng4, 25);
    EXPECT_EQ(masses.ExtTorque(3), 7);
    EXPECT_EQ(masses.ExtTorque(4), 8);
    EXPECT_EQ(masses.FrictionForce, 0.5);
}

TEST_F(MassBoxes, ShowWhatTheModelHasForEachLink) {
    MassProperties masses;
    for (int link = 2; link <= 4; ++link) {
        masses.LinkMass(link) = 0.5 * link;
        masses.CG(link, 0) = 0.25 * link;
        masses.CG(link, 1) = M_PI / 180 * 10 * link;
    }
    masses.ForceDist3 = 1.25;
    masses.ForceDist4 = 2.25;
    masses.ForceAng3 = 15;
    masses.ForceAng4 = 25;
    masses.ExtForceMag(3) = 10;
    masses.ExtForceMag(4) = 20;
    masses.ExtForceAng(3) = 90;
    masses.ExtForceAng(4) = 180;
    masses.ExtTorque(3) = 7;
    masses.ExtTorque(4) = 8;
    Put_Mass_Properties(boxes, masses, Model);
    for (int link = 2; link <= 4; ++link) {
        EXPECT_EQ(std::stod(Box("txt_Mass", link)), 0.5 * link);
        EXPECT_EQ(std::stod(Box("txt_DistCG", link)), 0.25 * link);
        EXPECT_EQ(std::stod(Box("txt_AngCG", link)), 10 * link);
    }
    for (int link = 3; link <= 4; ++link) {
        EXPECT_EQ(std::stod(Box("txt_DistP", link)), link - 1.75);
        EXPECT_EQ(std::stod(Box("txt_AngP", link)), 10 * link - 15);
        EXPECT_EQ(std::stod(Box("txt_MagForce", link)), 10 * link - 20);
        EXPECT_EQ(std::stod(Box("txt_AngForce", link)), 90 * link - 180);
        EXPECT_EQ(std::stod(Box("txt_Torque", link)), link + 4);
    }
}

}  // namespace
}  // namespace verlink::test
