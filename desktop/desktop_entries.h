// What the desktop of the user knows already: which programs open a kind of file, and whether they are there.
#pragma once

#include <QString>

#include "platform/desktop_services.h"

namespace verlink::desktop {

/// The program that an entry of the desktop starts, as its Exec line names it; empty when it names none.
QString programOf(const QString& entry);

/// Whether another program that is there has the name of this one among the entries, or opens files of the type or of
/// its extension.
bool belongsToAnother(const platform::FileType& type);

/// Whether anybody else could put another program in the place of the one in this folder.
bool othersMayReplace(const std::string& folder);

}  // namespace verlink::desktop
