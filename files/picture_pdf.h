// A picture as a PDF document, without a toolkit.
#pragma once

#include <string>

#include "platform/picture.h"

namespace verlink {

/// One square page, `side` points wide, that the window of the picture fills, all of it vectors.
std::string Picture_Pdf(const platform::Picture& picture, int side);

}  // namespace verlink
