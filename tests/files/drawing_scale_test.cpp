// How large drawings for CAD programs are in each of the five unit systems.
#include "files/drawing_scale.h"

#include <gtest/gtest.h>

namespace verlink::test {

TEST(Drawing_Scale, IsInInchesInTheSystemsOfInchesAndFeetAndInMillimetresInTheMetricOnes) {
    // Units of the drawing in an inch, a foot and a metre, as lengths are stored, and in what is shown.
    const struct {
        int Units;
        Dxf_Unit unit;
        double stored, shown;
    } systems[] = {{1, Dxf_Unit::kInch, 1, 1},
                   {2, Dxf_Unit::kInch, 12, 12},
                   {3, Dxf_Unit::kMillimetre, 1000, 1000},
                   {4, Dxf_Unit::kMillimetre, 1000, 10},
                   {5, Dxf_Unit::kMillimetre, 1000, 1}};
    for (const auto& system : systems) {
        UnitSystem units;
        units.Units = system.Units;
        EXPECT_EQ(Drawing_Unit(units), system.unit) << system.Units;
        EXPECT_EQ(Drawing_Factor_Of_Stored(units), system.stored) << system.Units;
        EXPECT_EQ(Drawing_Factor(units), system.shown) << system.Units;
    }
}

}  // namespace verlink::test
