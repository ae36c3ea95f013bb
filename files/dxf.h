// Drawings for CAD programs and cutters: lines, circles, points and paths on named layers, in the oldest dialect of
// DXF that all of them read (R12).
#pragma once

#include <complex>
#include <string>
#include <vector>

namespace verlink {

/// What a unit of the drawing is.
enum class Dxf_Unit { kInch = 1, kMillimetre = 4 };

class Dxf {
   public:
    /// x, and i times y, in the unit of the drawing, y upward.
    using Spot = std::complex<double>;

    /// `about` stands at the head of the file as a remark. Points are shown as crosses that large.
    Dxf(Dxf_Unit unit, const std::string& about, double cross);

    /// What follows lies on this layer, A to Z, 0 to 9 and _; `color` is one of the nine that have numbers.
    void Layer(const std::string& name, int color);
    void Line(Spot from, Spot to);
    void Circle(Spot center, double radius);
    void Point(Spot at);
    /// One polyline; fewer than two points are none. Where the last point lies on the first, it is a closed one
    /// without that.
    void Path(std::vector<Spot> spots);

    std::string Content() const;

   private:
    void Begin(const char* entity);
    void Put(int code, const std::string& value);
    void Put(int code, double value);
    void Put_Spot(int code, Spot at);

    Dxf_Unit unit_;
    std::string about_;
    double cross_;
    std::string layer_, layers_, entities_;
    int layer_count_ = 0;
    bool empty_ = true;
    double left_ = 0, bottom_ = 0, right_ = 0, top_ = 0;
};

}  // namespace verlink
