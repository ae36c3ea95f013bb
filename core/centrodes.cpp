// Instant centre 1-3 as the crossing of crank and rocker, seen from the ground and from the coupler.
#include "core/centrodes.h"

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/pole.h"
#include "core/trigonometry.h"
#include "platform/desktop_services.h"
#include "platform/guard.h"

namespace verlink {

void Centrodes(int step) {
    Guarded("Centrodes", [step] {
        auto& m = Model;
        if (step == 0) {
            m.Centrode0Ax = m.Ax;
            m.Centrode0Ay = m.Ay;
            m.Centrode0Theta3 = m.Theta3Rad;
            double sine{}, cosine{};
            Sin_Cos<double>(m.Centrode0Theta3, sine, cosine);
            m.SinCentrode0 = sine;
            m.CosCentrode0 = cosine;
        }
        Line_Intersect(0, 0, m.Ax, m.Ay, m.L1, 0, m.Bx, m.By, m.IC13x, m.IC13y, m.IntersectFlag, m.MessageText);
        if (m.IntersectFlag == 1) {
            platform::Tell(m.MessageText);
        } else {
            m.RunTable.FixedCentrode(step, 0, 0) = m.IC13x;
            m.RunTable.FixedCentrode(step, 0, 1) = m.IC13y;
        }
        // The moving point follows from the pole also when the fixed one was left out.
        const auto moving = On_Coupler<double>({m.Centrode0Ax, m.Centrode0Ay, m.SinCentrode0, m.CosCentrode0}, m.IC13x,
                                               m.IC13y, m.Ax, m.Ay, m.SinTheta3, m.CosTheta3);
        m.RunTable.MovingCentrode(step, 0, 0) = moving.X;
        m.RunTable.MovingCentrode(step, 0, 1) = moving.Y;
    });
}

}  // namespace verlink
