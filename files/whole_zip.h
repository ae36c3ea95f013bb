// Whether an archive that was made by others came out whole.
#pragma once

#include <string>

namespace verlink {

/// Every entry of the zip archive is there, unpacks to what its sum says, and is a whole XML document.
bool Is_Whole_Zip_Of_Xml(const std::string& archive);

}  // namespace verlink
