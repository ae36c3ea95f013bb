// How a picture becomes vectors with its names.
#include "report/svg_picture.h"

#include <cmath>
#include <string>

#include "platform/svg.h"

namespace verlink::report {

using platform::svg::Number;

namespace {

constexpr double kLetterHigh = 12, kLetterWide = 0.6;  ///< pixels; the mean width in heights
constexpr double kDyadSide = 110;

}  // namespace

Report_Picture Svg_Of(const platform::Picture& picture, double side, const std::vector<Named_Place>& names,
                      const std::string& caption) {
    const int pixels = static_cast<int>(std::lround(side / kMillimetresOfPixel));
    std::vector<platform::LabelWish> wishes;
    for (const Named_Place& named : names) {
        const double wide = kLetterHigh * kLetterWide * static_cast<double>(named.name.size());
        wishes.push_back({named.at, wide + 4, kLetterHigh + 2});
    }
    const auto places = platform::Find_Label_Places(picture, pixels, wishes);
    std::string svg = picture.Svg(pixels);
    std::string texts;
    for (std::size_t i = 0; i < names.size(); ++i)
        texts += "<text x=\"" + Number(places[i].x + 2) + "\" y=\"" + Number(places[i].y + kLetterHigh) +
                 "\" font-family=\"sans-serif\" font-size=\"" + Number(kLetterHigh) + "\" fill=\"#222222\">" +
                 names[i].name + "</text>\n";
    svg.insert(svg.rfind("</svg>"), texts);
    return {svg, side, side, caption};
}

Report_Picture Dyad_Picture(const DyadFigure& figure) {
    platform::Picture picture;
    std::vector<Named_Place> names;
    for (const DyadMark& mark : Draw_Dyads(picture, figure)) names.push_back({mark.name, mark.at});
    return Svg_Of(
        picture, kDyadSide, names,
        figure.to_scale ? "The dyads in their positions, to scale" : "What the names stand for; not to scale");
}

}  // namespace verlink::report
