// Masses and loads between the boxes of a screen and the model.
#include "dynamics/mass_properties.h"

#include <array>
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

TEST_F(MassBoxes, InMillimetresDistancesAreShownInThemAndKeptInMetres) {
    Use_Units(5);
    MassProperties masses;
    masses.CG(3, 0) = 1.23456;
    masses.ForceDist3 = 0.5;
    masses.ForceDist4 = 0.25;
    masses.FrictionForce = 1234.567;
    masses.LinkMass(2) = 0.00049;
    masses.LinkInertia(4) = 2.0005;
    masses.ExtTorque(3) = 0.0125;
    Put_Mass_Properties(boxes, masses, Model);
    EXPECT_EQ(Box("txt_DistCG", 3), "1,234.56");
    EXPECT_EQ(Box("txt_DistP", 3), "500.00");
    EXPECT_EQ(Box("txt_DistP", 4), "250.00");
    EXPECT_EQ(Box("txt_Frict", 3), "1,234.57");
    EXPECT_EQ(Box("txt_Mass", 2), "0.000");
    EXPECT_EQ(Box("txt_AngCG", 2), "0.00");
    EXPECT_EQ(Box("txt_MagForce", 3), "0");
    boxes.Text("txt_DistCG", 2).Text = "2,500";
    boxes.Text("txt_DistP", 4).Text = "1,125.5";
    Get_Mass_Properties(boxes, masses, Model);
    EXPECT_EQ(masses.CG(2, 0), 2.5);
    EXPECT_EQ(masses.ForceDist4, Single(1.1255));
    // What shows its number rounded keeps all of it.
    EXPECT_EQ(masses.CG(3, 0), Single(1.23456));
    EXPECT_EQ(masses.LinkMass(2), Single(0.00049));
    EXPECT_EQ(masses.LinkInertia(4), Single(2.0005));
    EXPECT_EQ(masses.ExtTorque(3), Single(0.0125));
    EXPECT_EQ(masses.FrictionForce, Single(1234.567));
    boxes.Text("txt_Frict", 3).Text = "2,000.5";
    Get_Mass_Properties(boxes, masses, Model);
    EXPECT_EQ(masses.FrictionForce, 2000.5);
}

TEST_F(MassBoxes, ShowAsManyDecimalsAsTheirQuantityHasInTheUnitSystem) {
    const std::array<const char*, 5> expected[] = {{"1.2346", "2.3457", "3.457", "4.57", "5.68"},
                                                   {"1.235", "2.346", "3.457", "4.568", "5.68"}};
    for (int units = 1; units <= 2; ++units) {
        Use_Units(units);
        MassProperties masses;
        for (int link = 2; link <= 4; ++link) {
            masses.LinkMass(link) = 1.234567;
            masses.LinkInertia(link) = 2.345678;
            masses.CG(link, 0) = 3.456789;
            masses.ExtTorque(link) = 4.567891;
        }
        masses.ForceDist3 = masses.ForceDist4 = 3.456789;
        masses.FrictionForce = 5.678912;
        Put_Mass_Properties(boxes, masses, Model);
        const auto& shown = expected[units - 1];
        for (int link = 2; link <= 4; ++link) {
            EXPECT_EQ(Box("txt_Mass", link), shown[0]);
            EXPECT_EQ(Box("txt_Inertia", link), shown[1]);
            EXPECT_EQ(Box("txt_DistCG", link), shown[2]);
        }
        for (int link = 3; link <= 4; ++link) {
            EXPECT_EQ(Box("txt_DistP", link), shown[2]);
            EXPECT_EQ(Box("txt_Torque", link), shown[3]);
        }
        EXPECT_EQ(Box("txt_Frict", 3), shown[4]);
    }
}

}  // namespace
}  // namespace verlink::test
