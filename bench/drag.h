// One move of a shift-drag on the coupler point, again and again around a small circle.
#pragma once

#include <benchmark/benchmark.h>

#include "screens/frm_animate.h"

namespace verlink::bench {

/// The animate screen with the default linkage, run over so many steps, drawn and ready to be dragged.
frm_Animate& Animate_Screen(int steps);

/// Where the mouse goes next, world coordinates of the picture.
struct Place {
    double x, y;
};

/// A tenth of the coupler point's own distance around where it lay.
class SmallCircle {
   public:
    SmallCircle();
    Place Next();

   private:
    Place centre_;
    double radius_;
    int count_ = 0;
};

/// The mouse goes to its next place; an error of the state when nothing was dragged by that.
void Drag_Once(benchmark::State& state, frm_Animate& screen, SmallCircle& mouse);

}  // namespace verlink::bench
