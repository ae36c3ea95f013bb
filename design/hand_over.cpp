// What the record takes of a linkage found.
#include "design/hand_over.h"

#include <algorithm>
#include <cmath>

#include "core/linkage_door.h"
#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/text.h"
#include "design/choices.h"
#include "dynamics/shown_length.h"

namespace verlink::design {

namespace {

void Take_Crank_Range(const Task& task, const Judgement& judgement, LinkageModel& model) {
    constexpr int kSteps = 36;
    constexpr double kTurn = 360;
    const double first = judgement.crank[0] / kDegree, last = judgement.crank[task.positions.size() - 1] / kDegree;
    const double low = std::min(first, last), turns = std::floor(low / kTurn) * kTurn;
    model.Calctype = run::kByAngle;
    model.ThetaStart = low - turns;
    model.ThetaEnd = std::max(first, last) - turns;
    model.ThetaStep = (model.ThetaEnd - model.ThetaStart) / kSteps;
    model.NSteps = kSteps;
    model.ThetaStartStr = Text_Of(model.ThetaStart);
    model.ThetaEndStr = Text_Of(model.ThetaEnd);
    model.ThetaStepStr = Text_Of(model.ThetaStep);
    model.ThetaStartRad = model.ThetaStart * kDegToRad;
    model.ThetaEndRad = model.ThetaEnd * kDegToRad;
    model.ThetaStepRad = model.ThetaStep * kDegToRad;
    const bool turned = last < first && model.Omega2Input > 0.0;
    model.Omega2Input = std::copysign(std::fabs(model.Omega2Input), last - first);
    model.Omega2 = model.Omega2Input;
    if (turned) model.TurnedOmega2 = model.Omega2Input;
}

void Put_Vector(Point vector, Single& x, Single& y) {
    x = vector.real();
    y = vector.imag();
}

/// What two or three positions are given, and both dyads. Pivots that were specified keep their places in the plane;
/// else the body's point in position 1 is the origin, as synthesis has it.
void Take_Synthesis(const Task& task, const Choices& c, double factor, SynthesisData& data) {
    const bool three = task.positions.size() > 2, specified = three && c.specified;
    data.SynPositions = !three ? 1 : specified ? 3 : 2;
    if (!three && data.SynMethod != 2) data.SynMethod = 1;
    data.SpecifiedPivots = specified;
    const Point first = specified ? c.first / factor : Point();
    Put_Vector(first, data.P1x, data.P1y);
    Put_Vector(c.P21 / factor, data.P21x, data.P21y);
    data.SynAlpha2 = c.alpha2;
    data.SynBeta2 = c.beta2;
    data.SynGamma2 = c.gamma2;
    if (three) {
        Put_Vector(c.P31 / factor, data.P31x, data.P31y);
        data.SynAlpha3 = c.alpha3;
        data.SynBeta3 = c.beta3;
        data.SynGamma3 = c.gamma3;
    }
    Put_Vector(c.W / factor, data.SynWx, data.SynWy);
    Put_Vector(c.Z / factor, data.SynZx, data.SynZy);
    Put_Vector(c.U / factor, data.SynUx, data.SynUy);
    Put_Vector(c.S / factor, data.SynSx, data.SynSy);
    Cart_to_Polar(data.SynWx, data.SynWy, data.SynW, data.SynTheta);
    Cart_to_Polar(data.SynZx, data.SynZy, data.SynZ, data.SynPhi);
    Cart_to_Polar(data.SynUx, data.SynUy, data.SynU, data.SynSigma);
    Cart_to_Polar(data.SynSx, data.SynSy, data.SynS, data.SynXi);
    Put_Vector(first - (c.W + c.Z) / factor, data.O2x, data.O2y);
    Put_Vector(first - (c.U + c.S) / factor, data.O4x, data.O4y);
}

}  // namespace

void Hand_Over(const Task& task, const Solution& solution, LinkageModel& model) {
    const FourBar& linkage = solution.linkage;
    const double factor = Shown_Length(task.units).factor;
    const Links links = Links_Of(linkage);
    Enter_Linkage(Road::kSynthesis, [&] {
        constexpr int kOpen = 1, kCrossed = 2;
        model.L1 = links.L1 / factor;
        model.L2 = links.L2 / factor;
        model.L3 = links.L3 / factor;
        model.L4 = links.L4 / factor;
        model.Rpa = Distance(linkage.coupler, linkage.crank.moving) / factor;
        model.Delta = Delta_Of(linkage) / kDegree;
        model.Link1Angle = Ground_Angle(linkage) / kDegree;
        model.PolarCoords = true;
        model.CircuitIndex = solution.judgement.open ? kOpen : kCrossed;
        Take_Synthesis(task, Choices_Of(task, solution), factor, model);
        model.Synthesized = true;
    });
    Take_Crank_Range(task, solution.judgement, model);
}

}  // namespace verlink::design
