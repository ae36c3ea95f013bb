// The question about data that would be lost.
#pragma once

namespace verlink::test {

inline constexpr char kUnsaved[] = "The current data has not been saved.  Do you want to save it before resetting?";

}  // namespace verlink::test
