// What kind of four-bar the lengths make.
#pragma once

namespace verlink {

/// The Grashof condition on `LinkArray`: sets `Grashof_Code` ("Y", "N", "SC", "NL"), the captions of `lbl_Grashof`
/// on the input and animate screens and of `Pnl_Grashof` on the Cayley screen, and shows `fra_toggle` of the input
/// screen only for "N". Sums are compared in single precision.
void Grashof();

/// The angle in degrees to which the crank of a non-Grashof linkage can swing either way from the ground link;
/// writes `lbl_Toggle`(0) on both screens, (1) with the words of its frame where the ground is turned, and disables
/// `opt_Calctype`(2). Gives the angle back, unrounded.
double Toggle();

/// Whether there is a position at which the lengths close.
bool Closes_Somewhere();

/// The long caption of `LinkArray`, for those who print it.
const char* Grashof_Long_Text();

/// The refusal of cognates for a parallelogram, which has an infinity of them.
extern const char kParallelogramMessage[];

}  // namespace verlink
