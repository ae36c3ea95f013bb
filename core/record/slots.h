// The output variables and the four slots that hold the chosen ones.
#pragma once

#include <string>

#include "core/array.h"
#include "core/number.h"

namespace verlink {

struct FunctionSlots {
    Array<std::string, 0, 50> VariableNames;  ///< 1 to 43 in use
    Array<std::string, 0, 4> ComponentNames;  ///< 1 "X", 2 "Y", 3 "Mag", 4 "Ang"
    Array<Integer, 0, 22> FuncGroup;          ///< by slot 1 to 4: which array, and the index into UnitLabel
    Array<Integer, 0, 4> FuncRow;             ///< by slot: row of that array
    Array<Integer, 0, 4> FuncComponent;       ///< by slot: 0 X, 1 Y, 2 Mag, 3 Ang
    Array<std::string, 0, 4> ComponentLabel;  ///< by slot: the text of the component
    bool ScalarFunction = false;              ///< the variable picked last has no components
    bool CoordFunction = false;               ///< the coordinate choice applies to it
    bool FFTFunction = false;                 ///< it is the current transform
    Integer CoordSystem;                      ///< 0 global, 2 local rotating
    Integer PlotSlot;                         ///< the slot that is being drawn
    Single SmallValue;                        ///< components below it read as 0
    Array<std::string, 0, 40> PresetList4;    ///< 1 to 31 in use: presets of four functions
    Array<std::string, 0, 40> PresetList2;    ///< 1 to 34 in use: presets of two functions
    Integer PlotCount;                        ///< functions chosen for a plot
    Integer PrintCount = 4;                   ///< functions of a table
};

}  // namespace verlink
