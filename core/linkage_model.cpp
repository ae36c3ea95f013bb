// The record, and the few procedures that belong to it alone.
#include "core/linkage_model.h"

#include <algorithm>

#include "core/text.h"
#include "platform/guard.h"

namespace verlink {

LinkageModel Model;

void LoadLinkArray() {
    Guarded("LoadLinkArray", [] {
        Model.LinkArray(0) = Model.Rpa;
        Model.LinkArray(1) = Model.L1;
        Model.LinkArray(2) = Model.L2;
        Model.LinkArray(3) = Model.L3;
        Model.LinkArray(4) = Model.L4;
        Model.LinkArray(5) = Model.Link1X;
        Model.LinkArray(6) = Model.Link1Y;
        Model.LinkArray(7) = Model.Link1LocalX;
        Model.LinkArray(8) = Model.Link1LocalY;
    });
}

void Set_Circuit(Integer CircuitIndex, Integer& CircuitSign, std::string& CircuitName) {
    if (CircuitIndex == 1) {
        CircuitSign = -1;
        CircuitName = "Open";
    } else if (CircuitIndex == 2) {
        CircuitSign = 1;
        CircuitName = "Crossed";
    }
}

void Set_Delta(Single Delta, Single& DeltaRad, std::string& DeltaStr) {
    DeltaRad = Delta * kDegToRad;
    DeltaStr = Text_Of(Delta);
}

void Clear_Motion() {
    auto& table = Model.RunTable;
    const int last = std::min<int>(Model.NSteps, kLastStep);
    table.Assembled.Clear(last);
    for (int row = 0; row <= 3; ++row) table.Theta.Clear(last, row);
    for (int row = 1; row <= 2; ++row) {
        table.Omega.Clear(last, row);
        table.Alpha.Clear(last, row);
    }
    for (int axis = 0; axis <= 1; ++axis) {
        for (int point = 0; point <= 3; ++point) {
            table.PointXY.Clear(last, point, axis);
            table.VelXY.Clear(last, point, axis);
        }
        for (int point = 0; point <= 4; ++point) table.AccXY.Clear(last, point, axis);
        table.FixedCentrode.Clear(last, 0, axis);
        table.MovingCentrode.Clear(last, 0, axis);
    }
    table.OmegaRatio.Clear(last);
    table.MechAdvantage.Clear(last);
}

void Clear_RunTable() {
    Clear_Motion();
    auto& table = Model.RunTable;
    const int last = std::min<int>(Model.NSteps, kLastStep);
    table.Omega.Clear(last, 0);
    table.Alpha.Clear(last, 0);
    table.ImportedTorque.Clear(last);
    if (Model.NSteps > kLastStep) platform::Raise(platform::kSubscript);
    Model.TorqueImported = false;
    Model.Delta2 = 0;
}

double Shown_Factor() { return Shown_Factor(Model); }

double Shown_Factor(const UnitSystem& units) { return Shown_Factor(units.Units); }

double Shown_Factor(int Units) {
    switch (Units) {
        case 4: return 100;
        case 5: return 1000;
        default: return 1;
    }
}

}  // namespace verlink
