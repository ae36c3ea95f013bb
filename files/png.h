// Pixels as a PNG file, without a toolkit.
#pragma once

#include <string>

#include "platform/pictures.h"

namespace verlink {

/// The whole file, eight bits for each of three colours.
std::string Png_File(const platform::Pixels& pixels);

}  // namespace verlink
