// Who sets a report on pages, and on which paper.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/progress.h"
#include "report/report.h"

namespace verlink {

enum class Paper { kA4, kLetter };

/// Letter where a locale's country uses it, "en_US.UTF-8"; else A4.
Paper Paper_For(const std::string& locale);
/// Of the process, by LC_ALL, LC_PAPER or LANG.
Paper Paper_In_Force();

/// The whole file, a PDF; nothing when it was not to go on.
using Setter = std::function<std::optional<std::string>(const Report&, Paper, const platform::Tell_Progress&)>;

/// The one in force; null where nobody can set.
const Setter& Setter_In_Force();
void Use_Setter(Setter setter);

}  // namespace verlink
