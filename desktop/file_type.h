// The model file as a type that the desktop of the user knows.
#pragma once

#include "platform/desktop_services.h"

namespace verlink::desktop {

/// Writes a desktop entry with its icon and a MIME type into the user's data home, unless what stands there, or what
/// the system has for this very program, says it already. Does nothing where another program that is there opens these
/// files, or where others may put another program in the place of this one. Failure 75 where they cannot be written.
void registerFileType(const platform::FileType& type);

}  // namespace verlink::desktop
