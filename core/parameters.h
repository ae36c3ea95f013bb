// Values between the boxes of a screen and the model, and the refusal of bad ones.
#pragma once

#include <string>

#include "core/linkage_door.h"
#include "core/number.h"
#include "platform/screen.h"

namespace verlink {

// Get and Put are seen from the model: Get is from the boxes into it, Put is back into the boxes.
// Each serves `frm_Inputnew` and `frm_Animate`, which have controls of the same names. Boxes show lengths in the
// shown unit; the model holds metres in `Units` 4 and 5.

/// Link lengths, coupler point, ground link and circuit from the boxes, through the door of linkages; the boxes of the
/// link 1 form that is not in force are rewritten. A box that no hand has touched is filled from the record first, so
/// that it gives back what it shows of it. Negative lengths are made positive with a message. Disables `cmd_Animate`
/// and `cmd_Done`.
void Get_Linkage_Geometry(platform::Screen& screen, Road road = Road::kBoxes);
/// Boxes that a hand has touched, and that have not been taken over yet, keep their text; so do those of the limits.
void Put_Linkage_Geometry(platform::Screen& screen);
/// Whether a box of the linkage waits to be taken over.
bool Is_Linkage_Touched(platform::Screen& screen);

/// The texts and radians of the three angle limits from their degrees.
void Derive_Angle_Limits();
/// The same three texts from the times, for time runs.
void Derive_Time_Limits();

/// The run limits of the run type from the boxes, with their refusals; a refused value leaves the model's own in
/// force and puts it back in the box. False when refused: then no run may follow. Too many time steps are told and
/// kept from the model, but not refused here: their boxes stay for the run to refuse.
bool Get_Initial_Conditions(platform::Screen& screen);

/// The words of the refusals.
extern const char kBadAngleRange[], kBadAngleStep[], kAnglesTooClose[], kBadTimeRange[], kBadTimeStep[];
/// "Your angle steps are too small - Have > 2880 Points - Increase Delta Theta" for "angle", "Delta Theta".
std::string Too_Many_Steps(const char* kind, const char* advice);

/// Takes a speed, an acceleration or an angle of the drive over from its box, which is filled from it first if no hand
/// has touched it; another value than before is another run.
void Take_Motion(platform::TextBox& box, Single& value);

void Put_Angle_Initial_Conditions(platform::Screen& screen);
void Put_Time_Initial_Conditions(platform::Screen& screen);

void Get_Circuit(platform::Screen& screen);
void Put_Circuit(platform::Screen& screen);

/// Negates a negative length, with a message.
void Check_Positive(Single& length);

/// What a shift-drag takes hold of, as `ShiftDragTarget` has it.
namespace shift_drag {
enum Target { kCrank = 0, kRocker = 1, kCouplerPoint = 2, kGround = 3, kCoupler = 4 };
/// By the index of `opt_Shift_Drag`.
inline constexpr int kOfOption[] = {kCouplerPoint, kCrank, kRocker, kGround, kCoupler};
}  // namespace shift_drag

/// The settings of the animate screen into the model; controls that a screen does not have leave theirs alone.
void Check_Parameters(platform::Screen& screen);

}  // namespace verlink
