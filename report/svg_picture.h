// Pictures of the program as they stand in a report.
#pragma once

#include <string>
#include <vector>

#include "platform/label_places.h"
#include "platform/picture.h"
#include "report/report.h"
#include "synthesis/dyad_diagram.h"

namespace verlink::report {

inline constexpr double kMillimetresOfPixel = 25.4 / 96;

/// A name upon a picture.
struct Named_Place {
    std::string name;
    platform::Anchor at;
};

/// The picture as it would stand `side` millimetres wide and high, with names clear of what is drawn.
Report_Picture Svg_Of(const platform::Picture& picture, double side, const std::vector<Named_Place>& names,
                      const std::string& caption);

Report_Picture Dyad_Picture(const DyadFigure& figure);

}  // namespace verlink::report
