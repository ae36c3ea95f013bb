// The choice of a plot's layout, and the sketches of the layouts.
#include "screens/frm_plottype.h"

#include <cmath>
#include <functional>

#include "core/linkage_model.h"
#include "core/window_sizes.h"
#include "platform/guard.h"
#include "screens/help_documents.h"

namespace verlink {

using platform::Color;
using platform::OptionButton;
using platform::PictureBox;
using platform::Surface;

namespace {

constexpr const char* kSelections[] = {"frm_PlotSelect1", "frm_PlotSelect2", "frm_PlotSelect3", "frm_PlotSelect4"};

constexpr Color Packed(int red, int green, int blue) { return red + 256 * green + 65536 * blue; }
constexpr Color kAxis = Packed(128, 128, 128);
constexpr Color kCurves[] = {Packed(30, 80, 200), Packed(200, 50, 50), Packed(30, 140, 70), Packed(150, 60, 160)};

constexpr double kTurn = 6.283185307179586;
constexpr int kPieces = 72;

/// A path through the points of a turn, the last the same as the first.
void Path(Surface& canvas, const std::function<std::pair<double, double>(double)>& point, Color color) {
    auto [x0, y0] = point(0);
    canvas.PSet(x0, y0, color);
    for (int piece = 1; piece <= kPieces; ++piece) {
        const auto [x, y] = point(kTurn * piece / kPieces);
        canvas.LineTo(x, y, color);
    }
}

/// A wave with its second harmonic, each number another one.
std::pair<double, double> Wave(int number, double angle) {
    const double shift = 0.9 * number;
    return {angle / kTurn, -0.55 * std::sin(angle + shift) - 0.25 * std::sin(2 * angle - 1.7 * shift)};
}

/// A window of a plot over one turn, with curves of these numbers.
void Sketch_Window(PictureBox& picture, int first, int last) {
    Surface& canvas = picture.Canvas();
    canvas.Scale(-0.12, -1.15, 1.08, 1.15);
    canvas.Line(0, -1, 0, 1, kAxis);
    canvas.Line(0, 0, 1, 0, kAxis);
    for (int quarter = 1; quarter <= 4; ++quarter) canvas.Line(0.25 * quarter, -0.05, 0.25 * quarter, 0.05, kAxis);
    for (int number = first; number <= last; ++number)
        Path(
            canvas, [number](double angle) { return Wave(number, angle); }, kCurves[number]);
}

/// A locus about the origin, with some of its vectors.
void Sketch_Polar(PictureBox& picture) {
    const auto tip = [](double angle) {
        const double reach = 0.62 + 0.3 * std::cos(2 * angle - 0.7);
        return std::pair{reach * std::cos(angle), -reach * std::sin(angle)};
    };
    Surface& canvas = picture.Canvas();
    canvas.Scale(-1.15, -1.15, 1.15, 1.15);
    canvas.Line(-1, 0, 1, 0, kAxis);
    canvas.Line(0, -1, 0, 1, kAxis);
    canvas.Circle(0, 0, 1, kAxis);
    for (int vector = 0; vector < 8; ++vector) {
        const auto [x, y] = tip(kTurn * vector / 8);
        canvas.Line(0, 0, x, y, kCurves[1]);
    }
    Path(canvas, tip, kCurves[0]);
}

}  // namespace

frm_PlotType::frm_PlotType() : Screen("frm_PlotType") {
    Width() = kWorkWidth;
    Height() = kWorkHeight;
    cmd_PickPlotDone.Enabled = false;
    DefaultButton = &cmd_PickPlotDone;
    CancelButton = &cmd_CancelPickPlot;

    opt_PickPlot[0].Tip = "Up to four functions in one graph";
    opt_PickPlot[1].Tip = "Two functions, each in a window of its own";
    opt_PickPlot[2].Tip = "Four functions, each in a window of its own";
    opt_PickPlot[3].Tip = "A vector as a locus about the origin";
    cmd_CancelPickPlot.Tip = "Go back to the home screen";
    cmd_PickPlotDone.Tip = "Go on to the functions";

    Sketch_Window(Picture1, 0, 3);
    Sketch_Window(Picture2, 0, 0);
    Sketch_Window(Picture3, 1, 1);
    Sketch_Window(Picture4, 0, 0);
    Sketch_Window(Picture5, 1, 1);
    Sketch_Window(Picture6, 2, 2);
    Sketch_Window(Picture7, 3, 3);
    Sketch_Polar(Picture8);
    Bind();
}

void frm_PlotType::Bind() {
    opt_PickPlot.On(&OptionButton::OnClick, [this](int Index) { opt_PickPlot_Click(Index); });
    const auto belongs_to = [this](PictureBox& picture, int layout) {
        picture.Tip = opt_PickPlot[layout].Tip.Get();
        picture.OnClick = [this, layout] { Picture_Click(layout); };
        picture.OnDblClick = [this, layout] { Picture_DblClick(layout); };
    };
    belongs_to(Picture1, 0);
    for (PictureBox* picture : {&Picture2, &Picture3}) belongs_to(*picture, 1);
    for (PictureBox* picture : {&Picture4, &Picture5, &Picture6, &Picture7}) belongs_to(*picture, 2);
    belongs_to(Picture8, 3);
    cmd_PickPlotDone.OnClick = [this] { cmd_PickPlotDone_Click(); };
    cmd_CancelPickPlot.OnClick = [this] { Hide(); };
    mnu_Help.OnClick = [this] { Show_Help(Screen_Help_Document(Caption()), "frm_PlotType.mnu_Help"); };
}

void frm_PlotType::Form_Activate() {
    Guarded("frm_PlotType.Activate", [&] { Fit_Screen(*this, kWorkWidth, kWorkHeight); });
}

void frm_PlotType::opt_PickPlot_Click(int) { cmd_PickPlotDone.Enabled = true; }

void frm_PlotType::Picture_Click(int layout) {
    opt_PickPlot[layout].Value = true;
    cmd_PickPlotDone.Enabled = true;
}

void frm_PlotType::Picture_DblClick(int layout) {
    Picture_Click(layout);
    cmd_PickPlotDone.Click();
}

void frm_PlotType::cmd_PickPlotDone_Click() {
    Guarded("frm_PlotType.cmd_PickPlotDone", [&] {
        for (const auto& option : opt_PickPlot)
            if (option->Value) Model.PlotStyle = option->Index() + 1;
        Hide();
        Show_Centered(kSelections[Model.PlotStyle - 1]);
    });
}

}  // namespace verlink
