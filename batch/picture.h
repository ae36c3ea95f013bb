// The picture of a run.
#pragma once

#include <optional>
#include <string>

namespace verlink {

/// The linkage at step 0 with its coupler curve, pivots and axes, as an SVG document of 700 by 700 pixels; without
/// the linkage when step 0 does not close.
std::string Picture_Svg();

/// The end of a file's name with its dot, in small letters.
std::string End_Of(const std::string& path);
/// Whether the end of a name says which kind of picture it is: .svg, .pdf or .png.
bool Is_Picture_File(const std::string& path);
/// The same picture as a file of that kind; a PNG has 1400 by 1400 pixels, a PDF is 700 points wide.
std::string Picture_File(const std::string& path);

/// The run as an animated picture of 540 by 540 pixels, in its own time or, where it has none, as it plays on the
/// screen; nothing for a run that does not move.
std::optional<std::string> Motion_Gif();

}  // namespace verlink
