// Who makes other files of a drawing that has letters in it.
#pragma once

#include <functional>
#include <string>

namespace verlink {

/// The drawing, an SVG document, as a PDF whose points are its pixels, or else as a PNG with two pixels for each of
/// them in either direction.
using Drawer = std::function<std::string(const std::string& svg, bool pdf)>;

/// The one in force; null where nobody can.
const Drawer& Drawer_In_Force();
void Use_Drawer(Drawer drawer);

}  // namespace verlink
