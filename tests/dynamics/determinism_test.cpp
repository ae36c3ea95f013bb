// The same solve gives the same bits: in every build, and twice in a row.
#include <bit>
#include <cstdint>

#include "dynamics/balancing.h"
#include "dynamics/flywheel.h"
#include "shell/initialize.h"
#include "tests/dynamics/motion.h"

namespace verlink::test {

namespace {

class ForceBits : public Fixture {
   protected:
    /// A hash (FNV-1a) over all results of forces, of every scenario.
    static std::uint64_t Hash_Of_All() {
        std::uint64_t hash = 0xCBF29CE484222325u;
        const auto add = [&hash](Single value) {
            const auto bits = std::bit_cast<std::uint32_t>(static_cast<float>(value));
            for (int shift = 0; shift < 32; shift += 8) {
                hash ^= (bits >> shift) & 0xFFu;
                hash *= 0x100000001B3u;
            }
        };
        const auto& table = Model.RunTable;
        for (const Scenario& scenario : kScenarios) {
            Reset_Model();
            Initialize();
            Run_Scenario(scenario);
            Solve_Forces();
            Default_Weights(Model);
            Berkof_Calc(Model, Model.BerkMass, Model.BerkRadius);
            Smooth_Torque(Model, 0.05, table.BalancedMoment);
            for (int step = 0; step <= Model.NSteps; ++step) {
                for (int axis = 0; axis <= 1; ++axis) {
                    for (int row = 0; row <= 7; ++row) {
                        add(table.PinForce(step, row, axis));
                        add(table.BalancedForce(step, row, axis));
                        add(table.AccXY(step, row, axis));
                    }
                    for (int row = 3; row <= 5; ++row) add(table.VelXY(step, row, axis));
                }
                for (int row = 0; row <= 3; ++row) {
                    add(table.LinkTorque(step, row));
                    add(table.BalancedMoment(step, row));
                }
                add(table.FlywheelTorque(step));
            }
        }
        return hash;
    }
};

}  // namespace

TEST_F(ForceBits, AreThoseThatOneBuildOnceGave) { EXPECT_EQ(Hash_Of_All(), 16913725899411915428u); }

TEST_F(ForceBits, OfASecondSolveAreThoseOfTheFirst) {
    const auto first = Hash_Of_All();
    EXPECT_EQ(Hash_Of_All(), first);
}

}  // namespace verlink::test
