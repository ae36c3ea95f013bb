// Positions of a run in pairs, as any machine solves them, and where they go.
#include "core/steps_at_once.h"

#include "core/record/run_table.h"

namespace verlink::at_once {

Columns Columns_Of(RunResults& table) {
    Columns c{};
    const auto take = [](auto& array, Single*& column, int row = 0, int axis = 0) { column = &array(0, row, axis); };
    for (int row = 0; row <= 3; ++row) take(table.Theta, c.Theta[row], row);
    take(table.OmegaRatio, c.Ratio);
    take(table.MechAdvantage, c.Advantage);
    for (int row = 0; row <= 2; ++row) {
        take(table.Omega, c.Omega[row], row);
        take(table.Alpha, c.Alpha[row], row);
    }
    for (int axis = 0; axis <= 1; ++axis) {
        for (int point = 0; point <= 2; ++point) {
            take(table.PointXY, c.Points[point][axis], point, axis);
            take(table.VelXY, c.Vel[point][axis], point, axis);
        }
        for (int point = 0; point <= 4; ++point) take(table.AccXY, c.Acc[point][axis], point, axis);
        take(table.FixedCentrode, c.Fixed[axis], 0, axis);
        take(table.MovingCentrode, c.Moving[axis], 0, axis);
    }
    return c;
}

bool Solve_By_Pairs(const Run& run, int step, const double* theta2, const double* omega2) {
    return Solve_All<Pair>(run, step, theta2, omega2);
}

}  // namespace verlink::at_once
