// How plot windows are scaled, and what stands in them besides the curves.
#include "output/plot_windows.h"

#include <algorithm>
#include <cmath>

#include "core/linkage_model.h"
#include "platform/desktop_services.h"
#include "platform/graph.h"
#include "platform/guard.h"

namespace verlink {

using platform::CheckBox;
using platform::Graph;
using platform::PictureBox;
using platform::Screen;
using platform::Surface;

namespace {

Surface& Canvas(Screen& screen, int i) {
    if (auto* box = screen.FindAs<PictureBox>("pct_Plot", i)) return box->Canvas();
    return screen.Get<PictureBox>("pct_Plot").Canvas();
}

bool Ticked(Screen& screen, const char* name) {
    const auto* box = screen.FindAs<CheckBox>(name);
    return box && box->Value;
}

void Draw_Line(Surface& surface, double x1, double y1, double x2, double y2) {
    surface.Line(x1, y1, x2, y2, Model.ColorBlack);
}

/// Counts from first to last as singles do, with their rounding at each step, upward or downward. A step that leaves
/// the count where it is, or is 0, ends it.
template <class Action>
void Count(Single first, Single last, Single step, Action action) {
    for (Single at = first; step > 0 ? at <= last : at >= last;) {
        action(at);
        const Single next = at + step;
        if (next == at) return;
        at = next;
    }
}

/// Scales a surface; a scale that it cannot take is told with `words` and marks the window as failed.
template <class Scale>
void Try_Scale(const char* procedure, const std::string& words, Scale scale) {
    try {
        scale();
    } catch (const platform::RuntimeFailure& failure) {
        Model.WindowFailed = true;
        if (failure.Number() != platform::kInvalidCall) {
            Report_Failure(failure.Number(), procedure);
            return;
        }
        platform::Tell(words, platform::Icon::kNone);
    }
}

std::string Capacity_Words(const std::string& name) {
    return "The magnitude of " + name + " exceeds the capacity of this window.";
}

}  // namespace

void SetGridstyle(Screen& screen, int GraphWindows) {
    Guarded("SetGridstyle", [&] {
        for (int i = 0; i < GraphWindows; ++i) {
            auto& graph = screen.Get<Graph>("grf_Plot", i);
            graph.GridStyle = (Ticked(screen, "chk_HGrid") ? 1 : 0) + (Ticked(screen, "chk_VGrid") ? 2 : 0);
            graph.GraphStyle = (Ticked(screen, "chk_Sticks") ? 2 : 0) + (Ticked(screen, "chk_Line") ? 4 : 0);
        }
    });
}

void SetWindow(Screen& screen, int i, Single& ymax, Single xmin, Single xmax, const std::string& name, Single& mid,
               int windows) {
    Model.WindowFailed = false;
    const std::string words = Capacity_Words(name) + platform::CRLF +
                              "Switch to the 'Annotated' style of plot instead of the 'Aligned' style," +
                              platform::CRLF + "or use a plot type with a larger window to see this function.";
    Try_Scale("SetWindow", words, [&] {
        const Single R = xmax - xmin;
        if (ymax == 0) ymax = 0.0001;
        // Bounds beyond a single number are for the surface to refuse.
        double left{}, right{}, bottom{}, top{};
        if (windows == 2) {
            left = xmin - 0.16 * R;
            right = xmax + 0.04 * R;
            bottom = -1.4 * ymax;
            top = 1.14 * ymax;
        } else if (windows == 4) {
            left = xmin - 0.18 * R;
            right = xmax + 0.04 * R;
            bottom = -1.7 * ymax;
            top = 1.15 * ymax;
        }
        mid = top + bottom;
        Surface& surface = Canvas(screen, i);
        surface.Cls();
        surface.Scale(left, top, right, bottom);
    });
}

void SetPolarWindow(Screen& screen, int i, Single& ymax, const std::string& name, Single& mid) {
    Model.WindowFailed = false;
    Try_Scale("SetPolarWindow", Capacity_Words(name), [&] {
        if (ymax == 0) ymax = 0.0001;
        const Single across = 1.1;
        const Single down = 1.115;
        const double right = across * ymax;
        const double top = down * ymax;
        const double bottom = -down * ymax;
        mid = top + bottom;
        Canvas(screen, i).Scale(-right, top, right, bottom);
    });
}

void CartesianAxes(Screen& screen, int i, Single ymax, Single xmin, Single xmax) {
    Guarded("CartesianAxes", [&] {
        Surface& surface = Canvas(screen, i);
        Draw_Line(surface, xmin, 0, xmax, 0);
        Draw_Line(surface, xmin, -ymax, xmin, ymax);
    });
}

void PolarAxes(Screen& screen, int i, Single r) {
    Guarded("PolarAxes", [&] {
        Surface& surface = Canvas(screen, i);
        Draw_Line(surface, -r, 0, r, 0);
        Draw_Line(surface, 0, -r, 0, r);
    });
}

void XticMarks(Screen& screen, int i, Single ymax, Single xmin, Single xmax) {
    Guarded("XticMarks", [&] {
        Surface& surface = Canvas(screen, i);
        const Single step = (xmax - xmin) * 0.04166667;
        const auto tic = [&](Single x) { Draw_Line(surface, x, -0.07 * ymax, x, 0.07 * ymax); };
        Count(xmin, xmax, step, tic);
        tic(xmax);
    });
}

void YticMarks(Screen& screen, int i, Single ymax, int n, Single xmin, Single xmax) {
    Guarded("YticMarks", [&] {
        Surface& surface = Canvas(screen, i);
        const Single R = xmax - xmin;
        const Single f = Divide(1, n);
        const Single step = f * ymax;
        const Single last = (f + 1) * ymax;
        Count(-ymax, last, step, [&](Single y) { Draw_Line(surface, xmin - 0.01 * R, y, xmin + 0.01 * R, y); });
    });
}

void PolarTicmarks(Screen& screen, int i, Single r, int n) {
    Guarded("PolarTicmarks", [&] {
        Surface& surface = Canvas(screen, i);
        const Single t = r * 0.01;
        const Single f = Divide(1.0, n);
        const Single step = f * r;
        Count(-r, r, step, [&](Single s) {
            Draw_Line(surface, s, -t, s, t);
            Draw_Line(surface, -t, s, t, s);
        });
    });
}

int Decimals_Of(Single ymax) {
    if (ymax < 1) return 3;
    if (ymax < 10) return 2;
    return ymax < 100 ? 1 : 0;
}

void CartesianMax(const Element& arr, int first, int last, Single& ymax) {
    Guarded("CartesianMax", [&] {
        Single max, min;
        MaxMin1(arr, first, last, max, min);
        ymax = std::max(std::fabs(max), std::fabs(min));
    });
}

void Vertical_lines(Screen& screen, int i, Single ymax, Single xmin, Single xmax) {
    Guarded("Vertical_lines", [&] {
        Surface& surface = Canvas(screen, i);
        const Single R = xmax - xmin;
        const Single q = R / 4;
        Count(xmin + q, xmax, q, [&](Single x) { Draw_Line(surface, x, -0.95 * ymax, x, 0.95 * ymax); });
    });
}

}  // namespace verlink
