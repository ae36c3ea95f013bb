// The one record of the process: the linkage that is open, how it is driven, and what is known of it.
#pragma once

#include "core/record/drive.h"
#include "core/record/geometry.h"
#include "core/record/identity.h"
#include "core/record/mass.h"
#include "core/record/output.h"
#include "core/record/position.h"
#include "core/record/run_table.h"
#include "core/record/settings.h"
#include "core/record/slots.h"
#include "core/record/status.h"
#include "core/record/synthesis.h"
#include "core/record/tasks.h"
#include "core/record/units.h"

namespace verlink {

struct LinkageModel : Geometry,
                      Drive,
                      CamDrive,
                      CurrentPosition,
                      CentrodeScratch,
                      RunTableSlice,
                      Identity,
                      DisplaySettings,
                      ScreenGeometry,
                      AnimationState,
                      Palette,
                      StatusFlags,
                      UnitSystem,
                      MassProperties,
                      BalanceWeights,
                      SynthesisData,
                      Tasks,
                      FunctionSlots,
                      OutputSettings,
                      Transform {};

/// The only instance.
extern LinkageModel Model;

/// `LinkArray` from the fields, in its order.
void LoadLinkArray();

/// CircuitIndex 1 gives -1 and "Open", 2 gives +1 and "Crossed"; any other leaves both as they are.
void Set_Circuit(Integer CircuitIndex, Integer& CircuitSign, std::string& CircuitName);

/// Delta in degrees; DeltaRad in radians, DeltaStr the number as text.
void Set_Delta(Single Delta, Single& DeltaRad, std::string& DeltaStr);

/// Zeroes the results of steps 0 to `NSteps` that the kinematic solution writes, and the imported torque; always
/// drops `TorqueImported` and `Delta2`. The rows of the centres of gravity are left.
void Clear_RunTable();
/// The part of it that an imported run writes too: imported motion and torque stay.
void Clear_Motion();

/// The factor between a stored length and a shown one: 100 in `Units` 4, 1000 in 5, else 1; the record's by itself.
double Shown_Factor(const UnitSystem& units);
double Shown_Factor();
double Shown_Factor(int Units);

}  // namespace verlink
