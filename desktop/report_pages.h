// A report on pages: what Qt makes of its chapters.
#pragma once

#include <optional>
#include <string>

#include "report/setter.h"

namespace verlink::desktop {

/// The report as a PDF; nothing when it was not to go on. Needs a QGuiApplication.
std::optional<std::string> setReport(const Report& report, Paper paper, const platform::Tell_Progress& tell);

}  // namespace verlink::desktop
