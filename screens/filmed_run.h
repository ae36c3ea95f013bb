// A run played into a film.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "animation/film.h"
#include "platform/screen.h"

namespace verlink {

/// Plays the run on the screen's `Picture1` and takes the pictures of those frames, `side` pixels across, as a GIF;
/// nothing when the user has stopped it. Afterwards all is as it was, and the position `shown` stands in the picture.
std::optional<std::string> Filmed(platform::Screen& form, int shown, const std::vector<Film_Frame>& frames, int side);

}  // namespace verlink
