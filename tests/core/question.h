// What a run asks where the linkage does not close.
#pragma once

#include <string>

namespace verlink::test {

/// At a global crank angle, as it reads.
inline std::string Question(const std::string& degrees) {
    return "Linkage cannot connect or is indeterminate at Theta2 =  " + degrees +
           " Deg.\r\r\r ABORT - terminates further calculations beyond current position.\r\r"
           " RETRY - continues calculating and reports new problem positions.\r\r"
           "IGNORE - continues calculating with no further messages.\r\r";
}

}  // namespace verlink::test
