// A bare screen on which runs are prepared, played and stepped, with the rows that each part of them draws.
#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "animation/drawing.h"
#include "animation/engine.h"
#include "tests/support/drawing.h"

namespace verlink::test {

using Rows = std::vector<std::string>;

inline void Append(Rows& rows, const Rows& more) { rows.insert(rows.end(), more.begin(), more.end()); }

class Engine : public Drawing {
   protected:
    Engine() {
        By_Angle(0, 360, 90);
        stage.chk_autoscale.Value = true;
    }
    Rows Take() {
        Rows rows = std::move(stage.log.Calls);
        stage.log.Calls.clear();
        return rows;
    }
    template <class Action>
    Rows Drawn(Action action) {
        Rows before = Take();
        action();
        Rows rows = Take();
        stage.log.Calls = std::move(before);
        return rows;
    }
    Rows Links(int step, platform::Color color) {
        return Drawn([&] {
            const platform::Color pen = Model.PenColor;
            Model.PenColor = color;
            Drawsub(step, stage);
            Model.PenColor = pen;
        });
    }
    Rows Pivots() {
        return Drawn([&] { Drawpivots(stage); });
    }
    Rows Axis_Lines() {
        return Drawn([&] { Axes(stage); });
    }
    Rows Curve() {
        return Drawn([&] { DrawCouplerCurve(stage); });
    }
    /// A frame of a run without trace.
    Rows Frame(int step) {
        Rows rows = Links(step, Model.ColorMagenta);
        Append(rows, Links(step, Model.ColorWhite));
        if (Model.ShowCouplerFlag == "Y") Append(rows, Curve());
        if (Model.ShowCentrodesFlag == "Y") Append(rows, Drawn([&] { PlotCentrodeCircles(step, stage); }));
        Append(rows, Pivots());
        return rows;
    }
    Rows Opening() {
        Rows rows{"Cls"};
        Append(rows, Pivots());
        Append(rows, Axis_Lines());
        if (Model.ShowCouplerFlag == "Y") Append(rows, Curve());
        return rows;
    }
    Rows Closing() {
        Rows rows;
        if (Model.ShowCouplerFlag == "Y") Append(rows, Curve());
        Append(rows, Pivots());
        Append(rows, Axis_Lines());
        return rows;
    }
    /// All five positions, one after the other.
    Rows Whole_Run() {
        Rows rows = Opening();
        for (int step = 0; step <= 4; ++step) Append(rows, Frame(step));
        Append(rows, Links(4, Model.ColorMagenta));
        Append(rows, Closing());
        return rows;
    }
    /// The rows of a run without those of its preparation.
    Rows Played() {
        Take();
        Animate(stage);
        Rows rows = Take();
        rows.erase(rows.begin(), std::find(rows.begin(), rows.end(), "BackColor FFFFFF") + 1);
        return rows;
    }
    Stage stage;
};

}  // namespace verlink::test
