// The tables of the unit systems, and the conversion of the model from one to another.
#include "dynamics/units.h"

#include <memory>

#include "core/linkage_door.h"
#include "core/linkage_model.h"
#include "core/numeric.h"
#include "dynamics/shown_length.h"
#include "platform/guard.h"

namespace verlink {

namespace {

constexpr int kSystems = 5;

struct Unit_System {
    const char *length, *force, *mass, *inertia;
    int DecLength, DecLengthShown, DecForce, DecTorque, DecMass, DecInertia;
};

// "ft-lb-^2" has no s.
constexpr Unit_System kSystem[kSystems] = {
    {"in", "lb", "bl", "in-lb-s^2", 3, 3, 2, 2, 4, 4}, {"ft", "lb", "sl", "ft-lb-^2", 3, 3, 2, 3, 3, 3},
    {"m", "N", "kg", "kg-m^2", 4, 4, 2, 3, 3, 3},      {"cm", "N", "kg", "kg-m^2", 4, 3, 2, 3, 3, 3},
    {"mm", "N", "kg", "kg-m^2", 4, 2, 2, 3, 3, 3},
};

const Unit_System* System_Of(int Units) { return Units < 1 || Units > kSystems ? nullptr : &kSystem[Units - 1]; }

bool Is_Metric(int Units) { return Units >= 3 && Units <= kSystems; }

bool Convert() {
    return Do_Conversion(Model.ConvLength, Model.ConvForce, Model.ConvTorque, Model.ConvMass, Model.ConvInertia);
}

void Rescale(Single& value, Single factor, int decimals) { value = FNRound(value * factor, decimals); }

bool Rescale_Inputs(int OldUnits, int NewUnits) {
    if (OldUnits == 1) {
        if (NewUnits == 2) Factors_In_To_Ft();
        if (Is_Metric(NewUnits)) Factors_In_To_SI();
        // From inches to inches the factors of the last conversion are applied once more.
        return !System_Of(NewUnits) || Convert();
    }
    if (OldUnits == 2 && NewUnits != 2 && System_Of(NewUnits)) {
        Factors_Ft_To_In();
        if (!Convert()) return false;
        if (NewUnits == 1) return true;
        Factors_In_To_SI();
        return Convert();
    }
    if (Is_Metric(OldUnits) && (NewUnits == 1 || NewUnits == 2)) {
        Factors_SI_To_In();
        if (!Convert()) return false;
        if (NewUnits == 1) return true;
        Factors_In_To_Ft();
        return Convert();
    }
    return true;
}

}  // namespace

ShownLength Shown_Length(int units) {
    const Unit_System* system = System_Of(units);
    if (!system) system = kSystem;
    const double factor = units == 4 ? 100 : units == 5 ? 1000 : 1;
    return {system->length, system->DecLengthShown, factor};
}

void Set_Unit_Labels(Integer Units, Array<std::string, 0, 25>& UnitLabel, Integer Count) {
    const Unit_System* system = System_Of(Units);
    const std::string L = system ? system->length : "";
    const std::string F = system ? system->force : "";
    Array<std::string, 0, 25> label;
    label(1) = "degrees";
    label(2) = "rad/sec";
    label(3) = "rad/sec^2";
    label(4) = L + "/sec";
    label(5) = L + "/sec^2";
    label(6) = L;
    label(7) = "ratio";
    label(8) = "ratio";
    label(9) = F + "-" + L;
    label(10) = F;
    label(11) = F;
    label(13) = F;
    label(14) = system ? system->mass : "";
    label(15) = system ? system->inertia : "";
    label(16) = "rad/sec^3";
    label(17) = L + "/sec^3";
    label(18) = label(9);
    // Torques are in metres where lengths are shown in smaller units; areas under them keep the shown unit.
    if (Units > 3) label(9) = F + "- m";
    label(12) = label(9);
    for (int i = 1; i <= Count; ++i) UnitLabel(i) = label(i);
}

void Set_Decimals(Integer Units) {
    const Unit_System* system = System_Of(Units);
    if (!system) return;
    Model.DecLength = system->DecLength;
    Model.DecLengthShown = system->DecLengthShown;
    Model.DecForce = system->DecForce;
    Model.DecTorque = system->DecTorque;
    Model.DecMass = system->DecMass;
    Model.DecInertia = system->DecInertia;
}

void Factors_In_To_SI() {
    Model.ConvLength = kInchToMetre;
    Model.ConvForce = kPoundToNewton;
    Model.ConvTorque = kInchPoundToNewtonMetre;
    Model.ConvMass = kBlobToKg;
    Model.ConvInertia = kInchToMetre * kInchToMetre * kBlobToKg;
}

void Factors_SI_To_In() {
    Model.ConvLength = 1.0 / kInchToMetre;
    Model.ConvForce = 1.0 / kPoundToNewton;
    Model.ConvTorque = 1.0 / kInchPoundToNewtonMetre;
    Model.ConvMass = 1.0 / kBlobToKg;
    Model.ConvInertia = 1.0 / (kInchToMetre * kInchToMetre * kBlobToKg);
}

void Factors_In_To_Ft() {
    Model.ConvLength = 1.0 / 12.0;
    Model.ConvForce = 1.0;
    Model.ConvTorque = 1.0 / 12.0;
    Model.ConvMass = 12.0;
    Model.ConvInertia = 1.0 / 12.0;
}

void Factors_Ft_To_In() {
    Model.ConvLength = 12.0;
    Model.ConvForce = 1.0;
    Model.ConvTorque = 12.0;
    Model.ConvMass = 1.0 / 12.0;
    Model.ConvInertia = 12.0;
}

bool Convert_Units(Integer OldUnits, Integer NewUnits) {
    const auto before = std::make_unique<LinkageModel>(Model);
    bool converted = false;
    Enter_Linkage(Road::kUnits, [&] { converted = Rescale_Inputs(OldUnits, NewUnits); });
    // What no number holds in the new units has been told, and is not half converted.
    if (!converted) Model = *before;
    return converted;
}

bool Do_Conversion(Single LengthFactor, Single ForceFactor, Single TorqueFactor, Single MassFactor,
                   Single InertiaFactor) {
    return Guarded("Do_Conversion", [&] {
        auto& m = Model;
        for (Single* length : {&m.L2, &m.L3, &m.L4, &m.L1, &m.Rpa, &m.Link1X, &m.Link1Y, &m.ForceDist3, &m.ForceDist4})
            Rescale(*length, LengthFactor, m.DecLength);
        for (int i = 1; i <= 4; ++i) Rescale(m.CG(i, 0), LengthFactor, m.DecLength);
        for (Single* force : {&m.ExtForce3X, &m.ExtForce3Y, &m.ExtForce4X, &m.ExtForce4Y})
            Rescale(*force, ForceFactor, m.DecForce);
        // The one field that is not rounded.
        m.FrictionForce = m.FrictionForce * ForceFactor;
        for (int i = 1; i <= 4; ++i) {
            Rescale(m.ExtForceMag(i), ForceFactor, m.DecForce);
            Rescale(m.ExtTorque(i), TorqueFactor, m.DecTorque);
        }
        for (Single* length :
             {&m.CamDataLength1, &m.CamDiameter, &m.CamDataLength2, &m.CamCenterX, &m.CamCenterY, &m.P1x, &m.P1y,
              &m.P21x, &m.P21y, &m.P31x, &m.P31y, &m.SynS, &m.SynZ, &m.O2x, &m.O2y, &m.O4x, &m.O4y})
            Rescale(*length, LengthFactor, m.DecLength);
        // Dyads have no box, and so no decimals.
        for (Single* dyad :
             {&m.SynW, &m.SynU, &m.SynWx, &m.SynWy, &m.SynZx, &m.SynZy, &m.SynUx, &m.SynUy, &m.SynSx, &m.SynSy})
            *dyad *= LengthFactor;
        for (int i = 1; i <= 4; ++i) {
            Rescale(m.LinkMass(i), MassFactor, m.DecMass);
            Rescale(m.LinkInertia(i), InertiaFactor, m.DecInertia);
        }
        constexpr int kLengths = 5;
        for (CognateTable* table : {&m.Cognates, &m.CayleyRows})
            for (int cognate = 1; cognate <= 3; ++cognate)
                for (int item = 1; item <= kLengths; ++item)
                    Rescale((*table)(cognate, item), LengthFactor, m.DecLength);
        // A table from a file keeps its digits.
        if (m.TorqueImported)
            for (int step = 0; step <= m.NSteps; ++step) m.RunTable.ImportedTorque(step) *= TorqueFactor;
    });
}

void Use_Units(Integer Units) {
    Model.Units = Units;
    Set_Unit_Labels(Units, Model.UnitLabel, kUnitLabels);
    Set_Decimals(Units);
}

}  // namespace verlink
