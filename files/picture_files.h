// Saving what a control shows as a picture.
#pragma once

#include <string>

#include "platform/failure.h"
#include "platform/pictures.h"

namespace verlink {

/// Writes the picture by the end of the name: .svg, .pdf, else PNG; a `RuntimeFailure` when it cannot be written.
void Write_Picture(platform::Picture_Maker& maker, const std::string& path, double density);

/// Asks where to and as what, offering `model` and `what` for a name ("press_plot"), and writes it. A PNG has one, two
/// or four pixels for each on the screen, by the entry that the user takes. What cannot be written is told.
void Save_Picture(platform::Picture_Maker& maker, const std::string& model, const std::string& what);

/// The message for a file that could not be written: `lost` and, where it is known, what is the matter.
void Tell_Not_Written(const std::string& lost, const platform::RuntimeFailure& failure);

/// The entry that was taken last of a dialog's list, from 1 to `entries`; `usual` where none is kept.
int Entry_Taken(const std::string& kind, int entries, int usual);

}  // namespace verlink
