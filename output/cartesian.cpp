// How functions become curves in graphs and in aligned windows.
#include "output/cartesian.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "core/linkage_model.h"
#include "core/model_on_screens.h"
#include "core/numeric.h"
#include "output/catalogue.h"
#include "output/output_axis.h"
#include "output/panels.h"
#include "output/plot_windows.h"
#include "output/selection.h"
#include "output/tables.h"
#include "platform/graph.h"
#include "platform/guard.h"
#include "platform/plot_box.h"

namespace verlink {

using platform::Frame;
using platform::Graph;
using platform::kNoIndex;
using platform::Label;
using platform::PictureBox;
using platform::Screen;

namespace {

std::string Caption_Of(Screen& screen, const char* name, int index) { return screen.Get<Label>(name, index).Caption; }

/// What stands below the x axis.
std::string Bottom_Title() {
    switch (Output_Axis()) {
        case Axis::kHarmonic: return "Harmonic Number";
        case Axis::kAngle: return "Crank Angle (Deg)";
        default: return "Time (Sec)";
    }
}

void Show_Initial_Frame(Screen& screen) {
    platform::With<Frame>(screen, "fra_Initial", kNoIndex, [](Frame& frame) { frame.Visible = !Model.Imported(); });
}

/// The unit in a graph of several functions and in a window of the aligned style, which have none for a transform.
std::string Unit_Of(int slot) { return Model.FFTFunction && !Slot_Is_Angle(slot) ? "" : Slot_Unit(slot, "Deg"); }

std::vector<std::string> Point_Labels() {
    const int decimals = Output_Axis() == Axis::kAngle ? 0 : 2;
    std::vector<std::string> labels;
    for (int i = 0; i <= Last_Point(); ++i) labels.push_back(Point_Text(i, decimals));
    return labels;
}

std::vector<std::string> Point_Readings() {
    std::vector<std::string> readings;
    for (int i = 0; i <= Last_Point(); ++i) readings.push_back(Point_Reading(i));
    return readings;
}

/// Puts a slot's values into the present set of a graph.
void Put_Points(Graph& graph, int slot, const std::vector<std::string>& labels) {
    Single value;
    for (int i = 0; i < static_cast<int>(labels.size()); ++i) {
        Transform_XY(i, slot, value);
        graph.ThisPoint = i + 1;
        graph.SetGraphData(value);
        graph.SetLabelText(labels[static_cast<std::size_t>(i)]);
    }
}

/// The span of the x axis of an aligned window.
struct X_Span {
    Single xmin, xmax;
};

X_Span Span_Of_X() {
    if (Model.Calctype != run::kByAngle) return {Model.TimeStart, Model.TimeEnd};
    if (Model.FFTFunction) return {0, Last_Point()};
    if (Model.Omega2 < 0) return {Model.ThetaEnd, Model.ThetaStart};
    return {Model.ThetaStart, Model.ThetaEnd};
}

/// The crank angle at a step of a run by angle, as the axis counts it. A stored angle is wrapped, and that of a
/// position that does not close is of the ground link's frame; the axis goes on.
double Angle_On_Axis(const Drive& drive, const RunResults& table, int step) {
    const bool from_the_end = drive.Omega2 <= 0;
    const double first = from_the_end ? drive.ThetaEnd : drive.ThetaStart;
    const double final = from_the_end ? drive.ThetaStart : drive.ThetaEnd;
    const double stride = drive.Omega2 == 0 ? 0 : from_the_end ? -drive.ThetaStep : +drive.ThetaStep;
    const double met = first + step * stride;
    const double nominal = from_the_end ? std::max(met, final) : std::min(met, final);
    if (!table.Assembled(step)) return nominal;
    constexpr double kTurn = 360;
    const double stored = table.Theta(step, 0);
    return stored + kTurn * std::round((nominal - stored) / kTurn);
}

/// Where the points of a slot are drawn.
struct Curve {
    std::vector<double> x, y;
};

Curve Curve_Of(const Drive& drive, const RunResults& table, const Element& y, int last) {
    Curve curve;
    for (int step = 0; step <= last; ++step) {
        curve.x.push_back(drive.Calctype == run::kByAngle ? Angle_On_Axis(drive, table, step)
                                                          : double{table.Theta(step, 0)});
        curve.y.push_back(y(step));
    }
    return curve;
}

void Draw_Curve(platform::Surface& surface, const Curve& curve, platform::Color color) {
    surface.PSet(curve.x[0], curve.y[0], color);
    for (std::size_t i = 0; i < curve.x.size(); ++i) surface.LineTo(curve.x[i], curve.y[i], color);
}

/// What the hand reads off a window.
platform::Plot_Reading Reading_Of(const Curve& curve, const std::string& name, const std::string& unit,
                                  platform::Color color) {
    platform::Plot_Reading reading;
    reading.across = Bottom_Title();
    reading.labels = Point_Readings();
    reading.values = {{name, unit, curve.y}};
    reading.x = curve.x;
    reading.y = curve.y;
    reading.color = color;
    return reading;
}

void Plot_In_Window(Screen& screen, Screen& selectionScreen, int i, int windows) {
    const int slot = i + 1;
    const int last = Last_Point();
    Model.PlotSlot = slot;
    const std::string name = Caption_Of(selectionScreen, "lbl_Function", i);
    Put_Caption(screen, "pnl_LeftTitle", i, name);
    Put_Caption(screen, "pnl_Comp", i, Caption_Of(selectionScreen, "lbl_Component", i));
    Put_Caption(screen, "pnl_PlotUnits", i, Unit_Of(slot));

    StepArray<Single> values;
    for (int j = 0; j <= last; ++j) Transform_XY(j, slot, values(j));
    const Element y = [&values](int j) { return values(j); };
    CartesianMax(y, 0, last, Model.PlotYmax);
    Single max, min;
    MaxMin1(y, 0, last, max, min);
    const auto [xmin, xmax] = Span_Of_X();
    const Single Q = (xmax - xmin) / 4;

    SetWindow(screen, i, Model.PlotYmax, xmin, xmax, name, Model.PlotMid, windows);
    platform::Plot_Reading reading;
    if (!Model.WindowFailed) {
        const platform::Color blue = Model.ColorBlue;
        const Curve curve = Curve_Of(Model, Model.RunTable, y, last);
        Draw_Curve(screen.Get<PictureBox>("pct_Plot", i).Canvas(), curve, blue);
        reading = Reading_Of(curve, name + " " + Caption_Of(selectionScreen, "lbl_Component", i), Unit_Of(slot), blue);
        Vertical_lines(screen, i, Model.PlotYmax, xmin, xmax);
        CartesianAxes(screen, i, Model.PlotYmax, xmin, xmax);
        XticMarks(screen, i, Model.PlotYmax, xmin, xmax);
        YticMarks(screen, i, Model.PlotYmax, 5, xmin, xmax);
    }
    platform::With<platform::PlotBox>(screen, "pct_Plot", i, [&](platform::PlotBox& box) { box.Read(reading); });

    Put_Caption(screen, "pnl_Xmin", i, FNRoundStr(xmin, 0));
    Put_Caption(screen, "pnl_X1", i, FNRoundStr(xmin + Q, 0));
    Put_Caption(screen, "pnl_X2", i, FNRoundStr(xmin + 2 * Q, 0));
    Put_Caption(screen, "pnl_X3", i, FNRoundStr(xmin + 3 * Q, 0));
    Put_Caption(screen, "pnl_Xmax", i, FNRoundStr(xmax, 0));
    const int d = Decimals_Of(Model.PlotYmax);
    Put_Caption(screen, "pnl_Ymax", i, FNRoundStr(Model.PlotYmax, d));
    Put_Caption(screen, "pnl_Ymin", i, FNRoundStr(-Model.PlotYmax, d));
    if (windows > 1) {
        Put_Caption(screen, "lbl_Min", i, FNRoundStr(min, d));
        Put_Caption(screen, "lbl_Max", i, FNRoundStr(max, d));
        Put_Caption(screen, "lbl_Peak", i, FNRoundStr(max - min, d));
    }
}

}  // namespace

void Set_Up_Axes(Graph& graph) {
    const Axis axis = Output_Axis();
    graph.TickEvery = axis == Axis::kHarmonic ? 1 : axis == Axis::kAngle ? 6 : 5;
    graph.LabelEvery = 2 * graph.TickEvery;
    graph.BottomTitle = Bottom_Title();
    graph.FontUse = 4;
    graph.FontSize = 90;
    graph.FontStyle = 2;
    graph.FontFamily = 1;
    graph.FontUse = 0;
    graph.FontSize = 90;
}

void Plot_Setup(Screen& screen, int windows) {
    Guarded("Plot_Setup", [&] {
        const int last = Last_Point();
        constexpr int kPolar = 4;
        const std::vector<std::string> readings = Point_Readings();
        Titlebox(screen);
        for (int i = 0; i < windows; ++i) {
            Graph& graph = screen.Get<Graph>("grf_Plot", i);
            if (Model.PlotStyle < kPolar) graph.SetNumSets(Model.PlotCount);
            graph.SetNumPoints(last + 1);
            graph.Readings = readings;
            Set_Up_Axes(graph);
        }
        SetGridstyle(screen, windows);
        Show_Run_Panel(screen);
        std::string line1, line2, time, step, unit;
        Table_Titles(line1, line2, time, step, unit);
        Put_Caption(screen, "lbl_Header2", kNoIndex, line1);
        Put_Caption(screen, "lbl_Header3", kNoIndex, line2);
        Put_Coordinate_Labels(screen, Model.CoordSystem);
        Show_Initial_Frame(screen);
    });
}

void MultiPlot(Screen& screen, Screen& selectionScreen, int window) {
    Guarded("MultiPlot", [&] {
        Graph& graph = screen.Get<Graph>("grf_Plot", window);
        const std::vector<std::string> labels = Point_Labels();
        for (int slot = 1; slot <= Model.PlotCount; ++slot) {
            Model.PlotSlot = slot;
            graph.SetNumPoints(Last_Point() + 1);
            graph.ThisSet = slot;
            graph.PatternedLines = 1;
            graph.SetPatternData(slot - 1);
            graph.SetLegendText(Caption_Of(selectionScreen, "lbl_Function", slot - 1) + " " +
                                Caption_Of(selectionScreen, "lbl_Component", slot - 1) + " " + Unit_Of(slot));
            Put_Points(graph, slot, labels);
        }
        graph.Draw();
    });
}

void Plot(Screen& screen, Screen& selectionScreen, int windows) {
    Guarded("Plot", [&] {
        const std::vector<std::string> labels = Point_Labels();
        for (int i = 0; i < windows; ++i) {
            Graph& graph = screen.Get<Graph>("grf_Plot", i);
            const int slot = i + 1;
            graph.ThisSet = 1;
            graph.PatternedLines = 1;
            graph.SetPatternData(0);
            graph.ThickLines = 0;
            Model.PlotSlot = slot;
            graph.GraphTitle = Caption_Of(selectionScreen, "lbl_Function", i) + "  (" + Slot_Unit(slot, "Deg") + ")";
            graph.SetLegendText(Caption_Of(selectionScreen, "lbl_Component", i));
            Put_Points(graph, slot, labels);
            graph.Draw();
        }
    });
}

void MyPlotSetup(Screen& screen, int windows) {
    Guarded("MyPlotSetup", [&] {
        Titlebox(screen);
        for (int i = 0; i < windows; ++i) Put_Caption(screen, "pnl_BottomTitle", i, Bottom_Title());
        Show_Run_Panel(screen);
        Show_Initial_Frame(screen);
        Put_Coordinate_Labels(screen, Model.CoordSystem);
    });
}

void MyPlot(Screen& screen, Screen& selectionScreen, int windows) {
    Guarded("MyPlot", [&] {
        for (int i = 0; i < windows; ++i) Plot_In_Window(screen, selectionScreen, i, windows);
    });
}

}  // namespace verlink
