// The model as it stands at the start of the process, and the empty model.
#pragma once

namespace verlink {

/// Every default; the default linkage is loaded. `NSteps` is -435 until limits have been read.
void Initialize();

/// File New, once confirmed.
void New_Model();

}  // namespace verlink
