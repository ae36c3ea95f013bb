// Instant centre 1-3 as the crossing of crank and rocker, seen from the ground and from the coupler.
#include "core/centrodes.h"

#include <cmath>

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "platform/desktop.h"
#include "shell/failure_report.h"

namespace verlink {

void Centrodes(int step) {
    Guarded("Centrodes", [step] {
        auto& m = Model;
        if (step == 0) {
            m.Centrode0Ax = m.Ax;
            m.Centrode0Ay = m.Ay;
            m.Centrode0Theta3 = m.Theta3Rad;
            m.SinCentrode0 = std::sin(m.Centrode0Theta3);
            m.CosCentrode0 = std::cos(m.Centrode0Theta3);
        }
        Line_Intersect(0, 0, m.Ax, m.Ay, m.L1, 0, m.Bx, m.By, m.IC13x, m.IC13y, m.IntersectFlag, m.MessageText);
        if (m.IntersectFlag == 1) {
            platform::Tell(m.MessageText);
        } else {
            m.RunTable.FixedCentrode(step, 0, 0) = m.IC13x;
            m.RunTable.FixedCentrode(step, 0, 1) = m.IC13y;
        }
        // The moving point follows from the pole also when the fixed one was left out.
        const Single dx = m.IC13x - m.Ax, dy = m.IC13y - m.Ay;
        const Single u = dy * m.SinTheta3 + dx * m.CosTheta3;
        const Single v = -dx * m.SinTheta3 + dy * m.CosTheta3;
        const Single x0 = u * m.CosCentrode0 - v * m.SinCentrode0;
        const Single y0 = v * m.CosCentrode0 + u * m.SinCentrode0;
        m.RunTable.MovingCentrode(step, 0, 0) = x0 + m.Centrode0Ax;
        m.RunTable.MovingCentrode(step, 0, 1) = y0 + m.Centrode0Ay;
    });
}

}  // namespace verlink
