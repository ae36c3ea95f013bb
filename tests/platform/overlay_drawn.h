// What the tests of overlays draw upon, and how they read what was painted.
#pragma once

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "platform/overlay.h"
#include "tests/support/overlay_log.h"

namespace verlink::test {

/// Ten units of the world over 500 pixels.
inline constexpr platform::Sight kWhole{0, 0, 10, 10, 500, 500};
/// The quarter at the lower right, magnified twice.
inline constexpr platform::Sight kQuarter{5, 5, 5, 5, 500, 500};

inline OverlayLog Drawn(const platform::Overlay& overlay, const platform::Sight& sight = kWhole) {
    OverlayLog log;
    platform::Draw_Overlay(overlay, sight, log);
    return log;
}

inline platform::Overlay Of_Marks(std::vector<platform::Overlay::Mark> marks) {
    platform::Overlay overlay;
    overlay.marks = std::move(marks);
    return overlay;
}

inline std::vector<OverlayLog::Call> Calls_Of(const OverlayLog& log, const std::string& kind) {
    std::vector<OverlayLog::Call> found;
    std::ranges::copy_if(log.Calls, std::back_inserter(found), [&](const auto& call) { return call.kind == kind; });
    return found;
}

}  // namespace verlink::test
