// How lengths are shown in each unit system, free of the record.
#pragma once

namespace verlink {

struct ShownLength {
    const char* unit;
    int decimals;   ///< to which the boxes of a linkage round, by `FNRound`
    double factor;  ///< of the shown number over the stored one
};

/// Unit systems 1 to 5; any other counts as 1.
ShownLength Shown_Length(int units);

}  // namespace verlink
