// How the linkage is drawn, call by call, at a step of the run.
#include "animation/drawing.h"

#include <cmath>

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "platform/guard.h"

namespace verlink {

using platform::Color;

namespace {

/// A point or an offset in the global frame.
struct Place {
    Single x, y;
};

Place Turned(Single x, Single y) {
    if (Model.Link1Angle == 0) return {x, y};
    Place turned;
    Rotate(x, y, Model.Link1Angle, 1, turned.x, turned.y);
    return turned;
}

/// Row 0 is A, 1 is B, 2 is P.
Place Point_At(int step, int row) {
    return Turned(Model.RunTable.PointXY(step, row, 0), Model.RunTable.PointXY(step, row, 1));
}

bool At_Origin(int step) { return Model.RunTable.PointXY(step, 2, 0) == 0 && Model.RunTable.PointXY(step, 2, 1) == 0; }

/// In the ground link's frame.
Place Pivot_On_Ground() { return {Model.L1 * Shown_Factor(), 0}; }
Place Pivot_O4() { return Turned(Pivot_On_Ground().x, 0); }

constexpr double kOrigin = 0;

/// The surface of a form, with y flipped.
class Pen {
   public:
    explicit Pen(platform::Screen& form) : surface_(form.Get<platform::PictureBox>("Picture1").Canvas()) {}
    void Line(Place from, Place to, Color color) { surface_.Line(from.x, Flip(from.y), to.x, Flip(to.y), color); }
    void Line_To(Place to, Color color) { surface_.LineTo(to.x, Flip(to.y), color); }
    void Line_By(Place offset, Color color) { surface_.LineStep(offset.x, -offset.y, color); }
    void Circle(Place center, double radius, Color color) { surface_.Circle(center.x, Flip(center.y), radius, color); }
    void Pin(Place center, double radius, Color color) { surface_.Pin(center.x, Flip(center.y), radius, color); }
    void Dot(Place spot, Color color) { surface_.PSet(spot.x, Flip(spot.y), color); }
    void Dot(Place spot) { surface_.PSet(spot.x, Flip(spot.y)); }
    platform::Surface& Unflipped() { return surface_; }

   private:
    static double Flip(double y) { return Model.FlipSum - y; }
    platform::Surface& surface_;
};

void Draw_Links(Pen& pen, Place A, Place B, Place P) {
    const Color color = Model.PenColor;
    pen.Line({kOrigin, kOrigin}, A, color);
    pen.Line_To(B, color);
    pen.Line_To(Pivot_O4(), color);
    pen.Line(A, P, color);
    pen.Line_To(B, color);
    const Color pins = Model.TraceFlag == "Y" ? Model.TracePinColor : color;
    pen.Pin(A, Model.PinRadius, pins);
    pen.Pin(B, Model.PinRadius, pins);
    pen.Pin(P, Model.CouplerPinRadius, pins);
}

void Draw_Cam_Follower(Pen& pen, int step, Place A) {
    const double factor = Shown_Factor();
    const double a = Model.CamPhase * kDegToRad + Model.RunTable.Theta(step, 0) * kDegToRad;
    const double arm = Model.CamDataLength1 * factor;
    const Place roller{arm * std::cos(a), arm * std::sin(a)};
    pen.Circle(roller, Model.CamDataLength2 * factor, Model.PenColor);
    pen.Pin(roller, Model.PinRadius, Model.PenColor);
    pen.Line({kOrigin, kOrigin}, roller, Model.PenColor);
    pen.Line_To(A, Model.PenColor);
}

/// Off a link's joint by a distance, stored, and an angle in the link's own frame; both spots in the ground link's
/// frame.
Place On_Link(int link, int step, Place joint, double distance, double angle) {
    const double a = Model.RunTable.Theta(step, link - 2) * kDegToRad + angle - Model.Link1AngleRad;
    const double length = distance * Shown_Factor();
    return Turned(joint.x + length * std::cos(a), joint.y + length * std::sin(a));
}

void DrawMassCenters(int step, Pen& pen) {
    const Color color = Model.PenColor;
    const auto& points = Model.RunTable.PointXY;
    const auto center = [&](int link, Place joint) {
        return On_Link(link, step, joint, Model.CG(link, 0), Model.CG(link, 1));
    };
    const Place A = Point_At(step, 0);
    const Place B = Point_At(step, 1);

    const Place G2 = center(2, {kOrigin, kOrigin});
    pen.Line({kOrigin, kOrigin}, G2, color);
    pen.Line_To(A, color);
    pen.Pin(G2, Model.PinRadius, color);

    const Place G4 = center(4, Pivot_On_Ground());
    pen.Line(Pivot_O4(), G4, color);
    pen.Line_To(B, color);
    pen.Pin(G4, Model.PinRadius, color);

    const Place G3 = center(3, {points(step, 0, 0), points(step, 0, 1)});
    pen.Dot(A, color);
    pen.Line_To(G3, color);
    pen.Line_To(B, color);
    pen.Pin(G3, Model.PinRadius, color);
}

void DrawBalanceWeights(int step, Pen& pen) {
    const auto weight = [&](int link, Place pivot) {
        const Place W = On_Link(link, step, pivot, Model.BerkCG(link, 0), Model.BerkCG(link, 1));
        pen.Line(Turned(pivot.x, pivot.y), W, Model.PenColor);
        pen.Pin(W, Model.PivotRadius, Model.PenColor);
    };
    weight(2, {kOrigin, kOrigin});
    weight(4, Pivot_On_Ground());
}

}  // namespace

void Drawsub(int step, platform::Screen& form) {
    Guarded("Drawsub", [&] {
        Pen pen(form);
        const Place A = Point_At(step, 0);
        if (Model.HideLinksFlag == "N") Draw_Links(pen, A, Point_At(step, 1), Point_At(step, 2));
        if (Model.Calctype == run::kCamDriven) Draw_Cam_Follower(pen, step, A);
        if (Model.DynamicsDone) DrawMassCenters(step, pen);
        if (Model.BalanceDone) DrawBalanceWeights(step, pen);
    });
}

void Axes(platform::Screen& form) {
    Guarded("Axes", [&] {
        platform::Surface& surface = Pen(form).Unflipped();
        surface.Line(Model.AnimMin * 0.9, Model.FlipSum, Model.AnimMax * 0.9, Model.FlipSum, Model.ColorBlack);
        // The upper end of the y axis is a little shorter than the others.
        surface.Line(0, (Model.FlipSum - Model.AnimMin) * 0.9, 0, (Model.FlipSum - Model.AnimMax) * 0.85,
                     Model.ColorBlack);
    });
}

void Drawpivots(platform::Screen& form) {
    Guarded("Drawpivots", [&] {
        Pen pen(form);
        const Color color = Model.PivotColor;
        for (const Place pivot : {Place{kOrigin, kOrigin}, Pivot_O4()}) {
            pen.Pin(pivot, Model.PivotRadius, color);
            pen.Pin(pivot, Model.PinRadius, color);
        }
        if (Model.Calctype != run::kCamDriven) return;
        const double factor = Shown_Factor();
        const Place cam{-Model.CamCenterX * factor, -Model.CamCenterY * factor};
        pen.Circle(cam, Model.CamDiameter * factor, color);
        pen.Pin(cam, Model.PivotRadius, color);
    });
}

void DrawCouplerCurve(platform::Screen& form) {
    Guarded("DrawCouplerCurve", [&] {
        Pen pen(form);
        const int last = Model.LastStep;
        const int by = Model.StepIncrement;
        for (int step = Model.FirstStep; step <= last; step += by) {
            if (At_Origin(step)) continue;
            const Place start = Point_At(step, 2);
            Model.CurveStartX = start.x;
            Model.CurveStartY = start.y;
            Model.CurveStartLocalX = Model.RunTable.PointXY(step, 2, 0);
            Model.CurveStartLocalY = Model.RunTable.PointXY(step, 2, 1);
            pen.Dot(start);
            break;
        }
        bool pen_up = false;
        const int mode = Model.Calctype;
        for (int step = Model.FirstStep; step <= last; step += by) {
            if (!Model.RunTable.Assembled(step)) {
                pen_up = true;
                continue;
            }
            const Place P = Point_At(step, 2);
            if (pen_up) {
                pen.Dot(P, Model.ColorCyan);
                pen_up = false;
            }
            if (At_Origin(step)) continue;
            if (mode == run::kByAngle)
                pen.Line_To(P, Model.ColorGreen);
            else if (mode != run::kOnePosition)
                pen.Pin(P, Model.PinRadius / 2, Model.ColorBlack);
        }
        if (Model.ShowCouplerLinesFlag == "Y") DrawCentrodeCurves(form);
    });
}

void DrawCentrodeCurves(platform::Screen& form) {
    Guarded("DrawCentrodeCurves", [&] {
        Pen pen(form);
        const Color color = Model.ColorBlue;
        Model.CouplerLineLength = std::abs(Model.AnimMax * 0.03);
        // One dot at the start of the curve as it lies in the local frame, not flipped.
        pen.Unflipped().PSet(Model.CurveStartLocalX, Model.CurveStartLocalY);
        for (int step = Model.FirstStep; step <= Model.LastStep; step += Model.StepIncrement) {
            if (!Model.RunTable.Assembled(step)) continue;
            const Place P = Point_At(step, 2);
            const double c = (Model.LineAngle + Model.RunTable.Theta(step, 1)) * kDegToRad;
            const Place d = Turned(Model.CouplerLineLength * std::cos(c), Model.CouplerLineLength * std::sin(c));
            pen.Pin(P, Model.PinRadius / 2, color);
            pen.Dot(P);
            pen.Line_By(d, color);
            pen.Dot(P);
            pen.Line_By({-d.x, -d.y}, color);
        }
    });
}

void PlotCentrodeCircles(int step, platform::Screen& form) {
    Guarded("PlotCentrodeCircles", [&] {
        const auto& fixed = Model.RunTable.FixedCentrode;
        const auto& moving = Model.RunTable.MovingCentrode;
        const Place F = Turned(fixed(step, 0, 0), fixed(step, 0, 1));
        const Place M = Turned(moving(step, 0, 0), moving(step, 0, 1));
        const double reach = 2 * Model.AnimMax;
        if (!(reach > std::abs(F.x) && reach > std::abs(F.y))) return;
        Pen pen(form);
        pen.Pin(F, Model.CentrodeRadius, Model.ColorBlack);
        pen.Pin(M, Model.CentrodeRadius, Model.ColorRed);
    });
}

}  // namespace verlink
