// Choosing what to plot or tabulate: lists, presets, and the combo boxes of the selection screens.
#pragma once

#include <string>

#include "core/number.h"
#include "platform/screen.h"

namespace verlink {

// All take the screen that owns the controls; slots are 1 to 4. Lists follow `DynamicsDone`, `BalanceDone`, `FFTDone`.

void Load_Variables(platform::Screen& screen, platform::ComboBox& combo);
void Load_PolarVariables(platform::Screen& screen, platform::ComboBox& combo);
void Load_Components(platform::Screen& screen, platform::ComboBox& combo);
void Load_Lists(platform::Screen& screen, platform::ComboBox& varCombo, platform::ComboBox& comCombo);
/// n 2 or 4, for the list of presets of two or of four functions; any other only clears the box.
void Load_Presets(platform::Screen& screen, platform::ComboBox& combo, int n);

void Choose_Preset(platform::Screen& screen);
void Choose_Preset_2(platform::Screen& screen);
void Apply_Preset(platform::Screen& screen, int n);

void Set_To_Mag(platform::Screen& screen, int n);
void Set_To_Magang(platform::Screen& screen);
void SetComponents(platform::Screen& screen, const std::string& kind);
void Clear_Components(platform::Screen& screen, int n);
void Clear_Variables(platform::Screen& screen, int n);
void Clear_Labels(platform::Screen& screen, int n);

void Variable_Picked(platform::Screen& screen, platform::ComboBox& varCombo, platform::ComboBox& comCombo,
                     platform::CommandButton* okButton, int slot);
void Component_Picked(platform::Screen& screen, platform::ComboBox& comCombo, platform::CommandButton* okButton,
                      int slot);
void Select_OK(platform::Screen& screen, platform::ComboBox& varCombo, platform::ComboBox& comCombo,
               platform::CommandButton* okButton, int slot);

void Toggle_Coordinate(platform::Screen& screen, bool enabled);
void Put_Coordinate_Labels(platform::Screen& screen, int coordSystem);

void Enable_Presets(platform::Screen& screen, bool enabled);
void Enable_Selection(platform::Screen& screen, bool enabled, int n);
void Clear_All(platform::Screen& screen, int n);
void Set_Selection_Mode(platform::Screen& screen, int n);

}  // namespace verlink
