// The crossing of two lines, and the pole of the coupler as the coupler sees it; nothing is stored here.
#pragma once

#include "core/rounding.h"

namespace verlink {

/// The slope that a vertical line counts with.
inline constexpr double kVerticalSlope = 1000000;

template <class V>
struct Crossing {
    Stored<V> X, Y;     ///< (0, 0) for parallel lines
    V Run1, Run2;       ///< x from the first to the second point of each line; 0 for a vertical one
    V SlopeDifference;  ///< 0 for parallel lines
    Rounding<V> All;    ///< finite unless something overflowed
};

/// The line through points 1 and 2 with that through 3 and 4.
template <class V>
inline Crossing<V> Cross(V x1, V y1, V x2, V y2, V x3, V y3, V x4, V y4) {
    const V vertical = Both<V>(kVerticalSlope);
    Crossing<V> c{};
    Rounding<V> r;
    c.Run1 = r(x2 - x1);
    c.Run2 = r(x4 - x3);
    const V m1 = r(If(c.Run1 == 0, vertical, (y2 - y1) / c.Run1));
    const V m2 = r(If(c.Run2 == 0, vertical, (y4 - y3) / c.Run2));
    const V b1 = r(y1 - m1 * x1);
    const V b2 = r(y3 - m2 * x3);
    c.SlopeDifference = r(m1 - m2);
    const V x = r.Keep(c.X, If(c.SlopeDifference == 0, V{}, (b2 - b1) / c.SlopeDifference));
    r.Keep(c.Y, If(c.SlopeDifference == 0, V{}, b1 + x * m1));
    c.All = r;
    return c;
}

/// Point A and the direction of link 3 at step 0, in whose pose the moving centrode is drawn.
struct CouplerStart {
    double Ax, Ay, SinTheta3, CosTheta3;
};

template <class V>
struct MovingPoint {
    Stored<V> X, Y;
    Rounding<V> All;  ///< finite unless something overflowed
};

/// The pole, in the frame of the coupler at its present pose, put down at its first pose.
template <class V>
inline MovingPoint<V> On_Coupler(const CouplerStart& start, V PoleX, V PoleY, V Ax, V Ay, V SinTheta3, V CosTheta3) {
    MovingPoint<V> point{};
    Rounding<V> r;
    const V dx = r(PoleX - Ax), dy = r(PoleY - Ay);
    const V u = r(dy * SinTheta3 + dx * CosTheta3);
    const V v = r(-dx * SinTheta3 + dy * CosTheta3);
    const V x0 = r(u * start.CosTheta3 - v * start.SinTheta3);
    const V y0 = r(v * start.CosTheta3 + u * start.SinTheta3);
    r.Keep(point.X, x0 + start.Ax);
    r.Keep(point.Y, y0 + start.Ay);
    point.All = r;
    return point;
}

}  // namespace verlink
