// The Grashof condition on four lengths, free of the record.
#pragma once

#include <string_view>

#include "core/why.h"

namespace verlink {

/// `code` is what `Grashof_Code` holds: "Y", "N", "SC" or "NL".
struct GrashofKind {
    const char* long_text;
    const char* short_text;
    std::string_view code;
};

inline constexpr std::string_view kCannotConnect = "NL";

/// Shortest and longest against the two others, after Grashof, as sums in single precision. Failure 6 for a length that
/// no single holds.
GrashofKind Grashof_Kind(const Links& links);

}  // namespace verlink
