// Work that may last: whoever does it tells how far it has come, and hears whether it is to go on.
#pragma once

#include <functional>
#include <string>

namespace verlink::platform {

/// Told how much is done, from 0 to 1; false when the user has had enough of it.
using Tell_Progress = std::function<bool(double done)>;
using Work = std::function<void(const Tell_Progress&)>;

/// Does the work. The desktop shows how far it has come, and offers to end it, once it takes longer than half a
/// second; where nobody shows anything, it goes on to its end.
void With_Progress(const std::string& what, const Work& work);
/// Who shows it; null takes him away.
void Use_Progress(std::function<void(const std::string& what, const Work& work)> show);

}  // namespace verlink::platform
