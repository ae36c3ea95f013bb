// Which values a study can move, and what follows from them.
#include "study/design.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <vector>

#include "core/linkage_model.h"
#include "core/nearest.h"
#include "core/numeric.h"
#include "core/runs.h"
#include "dynamics/dynacalc.h"
#include "study/words.h"

namespace verlink::study {

namespace {

constexpr std::array kFields{
    Field{"L2", 8, Quantity::kKeptLength, [](Design& d) -> Single& { return d.L2; }},
    Field{"L3", 9, Quantity::kKeptLength, [](Design& d) -> Single& { return d.L3; }},
    Field{"L4", 10, Quantity::kKeptLength, [](Design& d) -> Single& { return d.L4; }},
    Field{"L1", 11, Quantity::kKeptLength, [](Design& d) -> Single& { return d.L1; }},
    Field{"Rpa", 12, Quantity::kKeptLength, [](Design& d) -> Single& { return d.Rpa; }},
    Field{"Delta", 13, Quantity::kAngle, [](Design& d) -> Single& { return d.Delta; }},
    Field{"ThetaZero", 37, Quantity::kAngle, [](Design& d) -> Single& { return d.ThetaZero; }},
    Field{"Omega2Input", 38, Quantity::kSpeed, [](Design& d) -> Single& { return d.Omega2Input; }},
    Field{"Alpha2", 39, Quantity::kAcceleration, [](Design& d) -> Single& { return d.Alpha2; }},
    Field{"CG(2,0)", 58, Quantity::kKeptLength, [](Design& d) -> Single& { return d.CG(2, 0); }},
    Field{"CG(2,1)", 59, Quantity::kAngle, [](Design& d) -> Single& { return d.CG(2, 1); }},
    Field{"CG(3,0)", 60, Quantity::kKeptLength, [](Design& d) -> Single& { return d.CG(3, 0); }},
    Field{"CG(3,1)", 61, Quantity::kAngle, [](Design& d) -> Single& { return d.CG(3, 1); }},
    Field{"CG(4,0)", 62, Quantity::kKeptLength, [](Design& d) -> Single& { return d.CG(4, 0); }},
    Field{"CG(4,1)", 63, Quantity::kAngle, [](Design& d) -> Single& { return d.CG(4, 1); }},
    Field{"LinkMass(2)", 64, Quantity::kMass, [](Design& d) -> Single& { return d.LinkMass(2); }},
    Field{"LinkMass(3)", 65, Quantity::kMass, [](Design& d) -> Single& { return d.LinkMass(3); }},
    Field{"LinkMass(4)", 66, Quantity::kMass, [](Design& d) -> Single& { return d.LinkMass(4); }},
    Field{"LinkInertia(2)", 67, Quantity::kInertia, [](Design& d) -> Single& { return d.LinkInertia(2); }},
    Field{"LinkInertia(3)", 68, Quantity::kInertia, [](Design& d) -> Single& { return d.LinkInertia(3); }},
    Field{"LinkInertia(4)", 69, Quantity::kInertia, [](Design& d) -> Single& { return d.LinkInertia(4); }},
    Field{"ExtForceMag(3)", 70, Quantity::kForce, [](Design& d) -> Single& { return d.ExtForceMag(3); }},
    Field{"ExtForceAng(3)", 71, Quantity::kAngle, [](Design& d) -> Single& { return d.ExtForceAng(3); }},
    Field{"ForceDist3", 72, Quantity::kKeptLength, [](Design& d) -> Single& { return d.ForceDist3; }},
    Field{"ForceAng3", 73, Quantity::kAngle, [](Design& d) -> Single& { return d.ForceAng3; }},
    Field{"ExtTorque(3)", 74, Quantity::kTorque, [](Design& d) -> Single& { return d.ExtTorque(3); }},
    Field{"FrictionForce", 75, Quantity::kForce, [](Design& d) -> Single& { return d.FrictionForce; }},
    Field{"ExtForceMag(4)", 76, Quantity::kForce, [](Design& d) -> Single& { return d.ExtForceMag(4); }},
    Field{"ExtForceAng(4)", 77, Quantity::kAngle, [](Design& d) -> Single& { return d.ExtForceAng(4); }},
    Field{"ForceDist4", 78, Quantity::kKeptLength, [](Design& d) -> Single& { return d.ForceDist4; }},
    Field{"ForceAng4", 79, Quantity::kAngle, [](Design& d) -> Single& { return d.ForceAng4; }},
    Field{"ExtTorque(4)", 80, Quantity::kTorque, [](Design& d) -> Single& { return d.ExtTorque(4); }},
    Field{"Link1Angle", 82, Quantity::kAngle, [](Design& d) -> Single& { return d.Link1Angle; }},
    Field{"Link1X", 85, Quantity::kKeptLength, [](Design& d) -> Single& { return d.Link1X; }},
    Field{"Link1Y", 86, Quantity::kKeptLength, [](Design& d) -> Single& { return d.Link1Y; }},
};

Wrap Wrap_Of(const std::string& mode) {
    if (mode == "abs") return Wrap::kAbs;
    return mode == "180" ? Wrap::k180 : Wrap::kNone;
}

/// Why a field that there is moves nothing; empty where it does.
std::string Idle(const std::string& name, const Design& design) {
    if (!design.PolarCoords && (name == "L1" || name == "Link1Angle"))
        return name + " follows from Link1X and Link1Y in this model; move those";
    if (design.PolarCoords && (name == "Link1X" || name == "Link1Y"))
        return name + " follows from L1 and Link1Angle in this model; move those";
    if (design.Calctype == run::kByAngle && (name == "Alpha2" || name == "ThetaZero"))
        return name + " does nothing in a run by angle";
    return {};
}

/// By the lengths alone, in single precision: the longest is no shorter than the others together.
bool Reaches(const Design& d) {
    std::array<Single, 4> s{d.L1, d.L2, d.L3, d.L4};
    std::sort(s.begin(), s.end());
    if (s[0] < 0) return false;
    const Single three = s[0] + s[1] + s[2];
    return three > s[3];
}

constexpr std::string_view kRadians[] = {"CG(2,1)", "CG(3,1)", "CG(4,1)"};

}  // namespace

bool Kept_In_Radians(const Field& field) { return std::ranges::find(kRadians, field.name) != std::end(kRadians); }

std::string Take_Limits(Drive& drive) {
    if (drive.Calctype < run::kOnePosition) return "there is no run yet; the input screen makes one";
    if (drive.Calctype != run::kByTime && drive.Calctype != run::kByAngle) return {};
    const bool by_time = drive.Calctype == run::kByTime;
    const Single first = by_time ? drive.TimeStart : drive.ThetaStart, last = by_time ? drive.TimeEnd : drive.ThetaEnd,
                 stride = by_time ? drive.TimeStep : drive.ThetaStep;
    if (!(first < last)) return "the limits of the run do not ascend; the input screen has them";
    if (stride <= 0 || (!by_time && drive.ThetaStepRad <= 0))
        return "the steps of the run are not positive; the input screen has them";
    const Single range = std::abs(drive.ThetaEndRad - drive.ThetaStartRad);
    if (!by_time && Single(0.98 * drive.ThetaStepRad) >= range)
        return "the steps of the run are larger than its range; the input screen has them";
    const double steps = by_time ? Steps_Of(drive.TimeStart, drive.TimeEnd, drive.TimeStep)
                                 : Steps_Of(drive.ThetaStartRad, drive.ThetaEndRad, drive.ThetaStepRad);
    if (!(steps <= kLastStep))
        return "the run has more than " + std::to_string(kLastStep + 1) + " positions; the input screen has its steps";
    if (steps < 1) return "the limits of the run do not ascend; the input screen has them";
    drive.NSteps = steps;
    return {};
}

std::string Key_Of(Design design) {
    std::string facts;
    const auto add = [&facts](double value) { facts += Shortest(static_cast<float>(value)) + '\n'; };
    for (const Field& field : kFields) add(field.place(design));
    for (const Single value : {design.ThetaStartRad, design.ThetaEndRad, design.ThetaStepRad, design.TimeStart,
                               design.TimeStep, Single(design.shown)})
        add(value);
    for (const int value : {int{design.Calctype}, int{design.NSteps}, int{design.CircuitSign},
                            static_cast<int>(design.wrap), static_cast<int>(design.PolarCoords)})
        facts += std::to_string(value) + '\n';
    return facts;
}

bool Design::Derive() {
    if (!PolarCoords) {
        const Single radians = Atan2(Link1X, Link1Y);
        Link1Angle = radians * kRadToDeg;
        L1 = std::sqrt(Link1X * Link1X + Link1Y * Link1Y);
    }
    Link1AngleRad = Link1Angle * kDegToRad;
    DeltaRad = Delta * kDegToRad;
    LinkArray(2) = L2;
    LinkArray(3) = L3;
    LinkArray(4) = L4;
    Resolve_Forces(*this);
    return Rpa >= 0 && Reaches(*this);
}

Design Design_Of(const LinkageModel& model) {
    Design design;
    static_cast<Geometry&>(design) = model;
    static_cast<Drive&>(design) = model;
    static_cast<MassProperties&>(design) = model;
    design.CircuitSign = model.CircuitIndex == 1 ? -1 : 1;
    design.shown = Shown_Factor(model);
    design.wrap = Wrap_Of(model.ModuloMode);
    design.torque_table = model.TorqueImported;
    return design;
}

std::span<const Field> Fields() { return kFields; }

std::optional<int> Field_Named(const std::string& name, const Design& design, std::string& fault) {
    std::string wanted = name;
    std::erase(wanted, ' ');
    const auto found = std::ranges::find(kFields, wanted, [](const Field& field) { return std::string(field.name); });
    if (found != kFields.end()) {
        fault = Idle(wanted, design);
        return fault.empty() ? std::optional<int>(static_cast<int>(found - kFields.begin())) : std::nullopt;
    }
    const std::vector<std::string> names = [] {
        std::vector<std::string> all(kFields.size());
        std::transform(kFields.begin(), kFields.end(), all.begin(), [](const Field& field) { return field.name; });
        return all;
    }();
    const std::string meant = Nearest(wanted, names);
    fault = "a study moves no field \"" + name + "\"" + (meant.empty() ? "" : "; did you mean " + meant + "?");
    return std::nullopt;
}

}  // namespace verlink::study
