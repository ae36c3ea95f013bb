// The linkage on paper, as large as its scale says.
#include <algorithm>
#include <cmath>

#include "animation/engine.h"
#include "animation/overlays.h"
#include "core/numeric.h"
#include "core/text.h"
#include "platform/controls.h"
#include "platform/overlay.h"
#include "platform/screen.h"
#include "report/pieces.h"
#include "report/svg_picture.h"

namespace verlink::report {

namespace {

constexpr double kRoom = 150;  ///< millimetres

struct Drawing_Sheet : platform::Screen {
    Drawing_Sheet() : Screen("Report_Drawing") {}
    platform::PictureBox Picture1{*this, "Picture1"};
};

std::vector<Named_Place> Names_At(const LinkageModel& model, int step, const platform::Picture& picture) {
    View_Wishes wishes;
    wishes.names = true;
    const platform::Overlay overlay = Overlay_At(model, step, wishes, Find_Scales(model, wishes));
    const double wide = picture.Right() - picture.Left(), high = picture.Bottom() - picture.Top();
    std::vector<Named_Place> names;
    for (const platform::Overlay::Name& name : overlay.names)
        names.push_back(
            {name.text,
             {(name.at.x - picture.Left()) / wide, (name.at.y - picture.Top()) / high, name.away.x, name.away.y}});
    return names;
}

}  // namespace

double Millimetres(const UnitSystem& units) {
    constexpr double kInch = 25.4, kFoot = 304.8, kMetre = 1000, kCentimetre = 10;
    switch (units.Units) {
        case 1: return kInch;
        case 2: return kFoot;
        case 3: return kMetre;
        case 4: return kCentimetre;
        default: return 1;
    }
}

Drawing_Scale Scale_For(double extent, double room) {
    const double factor = platform::Round_Down_1_2_5(room / extent);
    const auto part = [](double number) { return Text_Of(Single(std::max(number, 1.0))); };
    return {factor, part(factor) + " : " + part(1 / factor)};
}

Report_Picture Drawing_Of(LinkageModel& model) {
    Drawing_Sheet sheet;
    int step = 0;
    while (step < model.NSteps && !model.RunTable.Assembled(step)) ++step;
    model.HideLinksFlag = model.TraceFlag = model.ShowCouplerLinesFlag = model.ShowCentrodesFlag = "N";
    model.ShowCouplerFlag = "Y";
    model.ZoomFactor = 1;
    Autoscale();
    Animate_Setup(sheet);
    DrawLinkage(sheet, step);
    const platform::Picture& picture = sheet.Picture1.Drawing();
    const double extent = std::abs(picture.Right() - picture.Left()) * Millimetres(model);
    const Drawing_Scale scale = Scale_For(extent, kRoom);
    constexpr int kAngleDecimals = 2;
    const std::string caption = "Scale " + scale.words + ". The linkage at Theta2 = " +
                                Text_Of(FNRound(model.RunTable.Theta(step, 0), kAngleDecimals)) +
                                " deg, with its coupler curve.";
    return Svg_Of(picture, extent * scale.factor, Names_At(model, step, picture), caption);
}

}  // namespace verlink::report
