// How a vector becomes a locus about the origin, whole or step by step.
#include "output/polar.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "core/linkage_model.h"
#include "core/model_on_screens.h"
#include "core/numeric.h"
#include "core/text.h"
#include "output/catalogue.h"
#include "output/output_axis.h"
#include "output/panels.h"
#include "output/plot_windows.h"
#include "output/reading.h"
#include "output/selection.h"
#include "platform/desktop_services.h"
#include "platform/guard.h"
#include "platform/plot_box.h"

namespace verlink {

using platform::CheckBox;
using platform::Color;
using platform::Frame;
using platform::kNoIndex;
using platform::Label;
using platform::PictureBox;
using platform::Screen;
using platform::Surface;

namespace {

constexpr int kEnvelope = 1, kVectors = 2, kBoth = 3;
constexpr int kTics = 10;

Surface& Canvas(Screen& screen) { return screen.Get<PictureBox>("pct_Plot").Canvas(); }

void Draw_Vector(Surface& surface, const OutputSettings& plot, Color color, int step) {
    surface.PSet(0, 0, color);
    surface.LineTo(plot.PolarX(step), plot.PolarY(step), color);
}

/// The path of the tip from one step to another.
void Draw_Path(Surface& surface, const OutputSettings& plot, Color color, int first, int last) {
    surface.PSet(plot.PolarX(first), plot.PolarY(first), color);
    for (int i = first + 1; i <= last; ++i) surface.LineTo(plot.PolarX(i), plot.PolarY(i), color);
}

void Draw_Grid(Screen& screen, const OutputSettings& plot) {
    PolarAxes(screen, 0, plot.PlotYmax);
    PolarTicmarks(screen, 0, plot.PlotYmax, kTics);
}

/// The vectors and the path, by the mode, up to a step.
void Draw_By_Mode(Surface& surface, const OutputSettings& plot, Color color, int last) {
    if (plot.PolarMode != kEnvelope)
        for (int i = 0; i <= last; ++i) Draw_Vector(surface, plot, color, i);
    if (plot.PolarMode != kVectors) Draw_Path(surface, plot, color, 0, last);
}

/// The tips of the vectors of a slot. A function that has no vector leaves magnitude and angle as they are.
void Fill_Tips(OutputSettings& plot, int last, int slot) {
    Single mag, ang;
    for (int i = 0; i <= last; ++i) {
        Select_PolarVariable(i, slot, mag, ang);
        plot.PolarX(i) = mag * std::cos(ang * kDegToRad);
        plot.PolarY(i) = mag * std::sin(ang * kDegToRad);
    }
}

std::string Point_Name() { return Output_Axis() == Axis::kAngle ? "Theta2" : "Time"; }
std::string Point_Unit() { return Output_Axis() == Axis::kAngle ? "deg" : "sec"; }
int Point_Decimals() { return Output_Axis() == Axis::kAngle ? 1 : 2; }

/// What the hand reads off the vectors that are drawn.
void Read_Vectors(Screen& screen, const OutputSettings& plot, const std::string& unit, Color color, int first,
                  int last) {
    platform::Plot_Reading reading;
    reading.across = Point_Name();
    reading.polar = true;
    reading.color = color;
    reading.values = {{"Mag", unit, {}}, {"Ang", "deg", {}}};
    for (int i = first; i <= last; ++i) {
        Single mag, ang;
        Cart_to_Polar(plot.PolarX(i), plot.PolarY(i), mag, ang);
        reading.labels.push_back(Point_Reading(i) + " " + Point_Unit());
        reading.values[0].at.push_back(mag);
        reading.values[1].at.push_back(ang);
        reading.x.push_back(plot.PolarX(i));
        reading.y.push_back(plot.PolarY(i));
    }
    platform::With<platform::PlotBox>(screen, "pct_Plot", kNoIndex,
                                      [&](platform::PlotBox& box) { box.Read(std::move(reading)); });
}

void Read_Nothing(Screen& screen) {
    platform::With<platform::PlotBox>(screen, "pct_Plot", kNoIndex, [](platform::PlotBox& box) { box.Read({}); });
}

}  // namespace

void MyPolarPlotSetup(Screen& screen) {
    Guarded("MyPolarPlotSetup", [&] {
        Canvas(screen).Cls();
        Read_Nothing(screen);
        Titlebox(screen);
        Show_Run_Panel(screen);
        Model.PolarVectors = screen.Get<CheckBox>("chk_Vectors").Value;
        Model.PolarEnvelope = screen.Get<CheckBox>("chk_Envelope").Value;
        platform::With<Frame>(screen, "fra_Initial", kNoIndex, [](Frame& frame) { frame.Visible = !Model.Imported(); });
        Put_Coordinate_Labels(screen, Model.CoordSystem);
        // With neither, the mode stays.
        if (Model.PolarEnvelope && Model.PolarVectors)
            Model.PolarMode = kBoth;
        else if (Model.PolarVectors)
            Model.PolarMode = kVectors;
        else if (Model.PolarEnvelope)
            Model.PolarMode = kEnvelope;
    });
}

void MyPolarPlot(Screen& screen, Screen& selectionScreen) {
    Guarded("MyPolarPlot", [&] {
        if (Model.FFTFunction) {
            platform::Tell(std::string("FFT data are not suited to polar plots.") + platform::CRLF +
                           "Use a cartesian plot format instead.");
            return;
        }
        const std::string name = selectionScreen.Get<Label>("lbl_Function", 0).Caption;
        const std::string unit = Model.UnitLabel(Unit_Of_Group(Model.FuncGroup(1)));
        Put_Caption(screen, "lbl_Header2", kNoIndex, "Linkage " + name + "  -  " + unit);
        Put_Caption(screen, "lbl_Header3", kNoIndex, "");
        Model.PlotSlot = 1;
        Put_Caption(screen, "pnl_LeftTitle", kNoIndex, name);
        Put_Caption(screen, "pnl_PlotUnits", kNoIndex, unit);

        Fill_Tips(Model, Model.NSteps, Model.PlotSlot);
        GlobalMax([](int i) { return Model.PolarX(i); }, [](int i) { return Model.PolarY(i); }, 0, Model.NSteps,
                  Model.PlotYmax);
        SetPolarWindow(screen, 0, Model.PlotYmax, name, Model.PlotMid);
        if (!Model.WindowFailed) {
            Draw_Grid(screen, Model);
            Surface& surface = Canvas(screen);
            const Color blue = Model.ColorBlue;
            Draw_By_Mode(surface, Model, blue, Model.NSteps);
            if (Model.PolarMode == kBoth) surface.LineTo(Model.PolarX(0), Model.PolarY(0), blue);
            Read_Vectors(screen, Model, unit, blue, 0, Model.NSteps);
        }
        const int d = Decimals_Of(Model.PlotYmax);
        const std::string most = FNRoundStr(Model.PlotYmax, d);
        const std::string least = FNRoundStr(-Model.PlotYmax, d);
        Put_Caption(screen, "pnl_Ymax", kNoIndex, most);
        Put_Caption(screen, "pnl_Xmax", kNoIndex, most);
        Put_Caption(screen, "pnl_Ymin", kNoIndex, least);
        Put_Caption(screen, "pnl_Xmin", kNoIndex, least);
    });
}

void MyPolarStep(Screen& screen, Integer step) {
    Guarded("MyPolarStep", [&] {
        Surface& surface = Canvas(screen);
        surface.Cls();
        if (!Model.WindowFailed) {
            const Color blue = Model.ColorBlue;
            Draw_Grid(screen, Model);
            if (Model.PolarMode != kEnvelope) Draw_Vector(surface, Model, blue, step);
            if (Model.PolarMode != kVectors) Draw_Path(surface, Model, blue, std::max(step - 1, 0), step);
            Read_Vectors(screen, Model, screen.Get<Label>("pnl_PlotUnits").Caption, blue, step, step);
        }
        Put_Caption(screen, "lbl_StepLabel", kNoIndex, Point_Name());
        Put_Caption(screen, "lbl_StepUnit", kNoIndex, Point_Unit());
        Put_Caption(screen, "lbl_StepNumber", kNoIndex, Point_Text(step, Point_Decimals()));
        constexpr int kDecimals = 3;
        Single mag, ang;
        Cart_to_Polar(Model.PolarX(step), Model.PolarY(step), mag, ang);
        Put_Caption(screen, "pnl_vector", 0, Text_Of(FNRound(mag, kDecimals)));
        Put_Caption(screen, "pnl_vector", 1, Text_Of(FNRound(ang, kDecimals)));
    });
}

}  // namespace verlink
