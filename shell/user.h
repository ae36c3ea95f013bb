// The user's folders, the file association, and the model named on the command line.
#pragma once

#include <string>

namespace verlink {

void CreateAssociation(const std::string& Type, const std::string& Extension);
/// The absolute form of a path that exists, else empty.
std::string GetLongPathFromShortPath(const std::string& path);
/// Reads the model named on the command line, if there is one. Failures come with the advice of number 52.
void Open_Clicked_File();

}  // namespace verlink
