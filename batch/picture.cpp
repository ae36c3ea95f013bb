// How the picture is drawn: on an animate screen that nobody sees.
#include "batch/picture.h"

#include <algorithm>
#include <cctype>
#include <memory>
#include <vector>

#include "animation/drawing.h"
#include "animation/engine.h"
#include "animation/film.h"
#include "core/linkage_model.h"
#include "files/picture_pdf.h"
#include "files/png.h"
#include "platform/picture_pixels.h"
#include "screens/filmed_run.h"
#include "screens/frm_animate.h"

namespace verlink {

namespace {

constexpr int kSide = 700;

/// The screen with the picture on it.
std::unique_ptr<frm_Animate> Drawn_Screen() {
    auto form = std::make_unique<frm_Animate>();
    Animate_Setup(*form);
    if (Model.RunTable.Assembled(0)) {
        DrawLinkage(*form, 0);
    } else {
        Drawpivots(*form);
        Axes(*form);
        DrawCouplerCurve(*form);
    }
    return form;
}

std::string Picture_Png(const platform::Picture& picture) {
    constexpr int kDensity = 2;
    platform::PicturePixels pixels;
    pixels.Paint(picture, kDensity * kSide, kDensity * kSide, kDensity);
    return Png_File({pixels.Wide(), pixels.High(), pixels.Pixels()});
}

}  // namespace

std::string End_Of(const std::string& path) {
    std::string end = path.substr(std::min(path.size(), path.find_last_of('.')));
    std::ranges::transform(end, end.begin(), [](unsigned char letter) { return std::tolower(letter); });
    return end;
}

std::string Picture_Svg() { return Drawn_Screen()->Picture1.Drawing().Svg(kSide); }

bool Is_Picture_File(const std::string& path) {
    const std::string end = End_Of(path);
    return end == ".svg" || end == ".pdf" || end == ".png";
}

std::string Picture_File(const std::string& path) {
    const auto form = Drawn_Screen();
    const platform::Picture& picture = form->Picture1.Drawing();
    const std::string end = End_Of(path);
    if (end == ".pdf") return Picture_Pdf(picture, kSide);
    return end == ".png" ? Picture_Png(picture) : picture.Svg(kSide);
}

std::optional<std::string> Motion_Gif() {
    constexpr int kFilmSide = 540;
    const std::vector<int> steps = Steps_Shown(Model, Model.RunTable);
    if (steps.size() < 2) return {};
    const auto form = Drawn_Screen();
    // As on the screen, which sets the pace of a run that has no time of its own.
    const double stride = Real_Stride(Model).value_or(Played_Stride(Model));
    return Filmed(*form, 0, Film_Of(steps, stride), kFilmSide);
}

}  // namespace verlink
