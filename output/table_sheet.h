// What tables hold, as sheets for spreadsheets: the functions of the four slots, and the transform.
#pragma once

#include <array>
#include <string>

#include "core/linkage_model.h"
#include "files/sheet.h"

namespace verlink {

/// How a table of the slots is made of them.
struct Table_Wish {
    int every = 1;       ///< a row for each so many steps, from step 0
    int decimals = 3;    ///< as they are shown
    bool local = false;  ///< vectors in the local rotating frame
};

/// The functions of slots 1 to `PrintCount` of the run in the table, or the current transform, with the units that
/// stand beside them in the grid and the numbers that it rounds. Statistics are those of all steps. Where positions do
/// not close, a last column says at each row whether its own does. `captions` are what the variables are called.
Sheet Table_Sheet(const LinkageModel& model, const std::array<std::string, 4>& captions, const Table_Wish& wish);

/// Real part, imaginary part, magnitude and phase of the harmonics 0 to `last` of the transform of `function`.
Sheet Transform_Sheet(const LinkageModel& model, const std::string& function, int last);

}  // namespace verlink
