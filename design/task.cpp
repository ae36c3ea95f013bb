// What follows from a task by itself.
#include "design/task.h"

#include <algorithm>

namespace verlink::design {

namespace {

/// The smallest upright box around points.
class Around {
   public:
    void Take(Point p) {
        low_ = {std::min(low_.real(), p.real()), std::min(low_.imag(), p.imag())};
        high_ = {std::max(high_.real(), p.real()), std::max(high_.imag(), p.imag())};
    }
    Point Middle() const { return (low_ + high_) / 2.0; }
    Point Low() const { return low_; }
    Point High() const { return high_; }
    double Diagonal() const { return Distance(low_, high_); }

   private:
    static constexpr double kFar = std::numeric_limits<double>::max();
    Point low_{kFar, kFar}, high_{-kFar, -kFar};
};

Around Around_Positions(const Task& task) {
    Around box;
    for (const Place& place : Absolute_Positions(task)) box.Take(place.at);
    return box;
}

}  // namespace

bool Area::Holds(Point point) const {
    constexpr double kSlack = 1e-9;
    if (is == Is::kAnywhere) return true;
    if (is == Is::kPoints)
        return std::ranges::any_of(points, [&](Point p) { return Distance(p, point) <= kSlack * (1 + std::abs(p)); });
    const double slack = kSlack * (1 + std::max(std::abs(low), std::abs(high)));
    return point.real() >= low.real() - slack && point.real() <= high.real() + slack &&
           point.imag() >= low.imag() - slack && point.imag() <= high.imag() + slack;
}

std::vector<Place> Absolute_Positions(const Task& task) {
    std::vector<Place> places = task.positions;
    if (!task.relative) return places;
    for (std::size_t i = 1; i < places.size(); ++i) {
        places[i].at += places[0].at;
        places[i].angle += places[0].angle;
    }
    return places;
}

double Span_Of(const Task& task) {
    constexpr double kOnePoint = 1e-9;
    const Around points = Around_Positions(task);
    if (points.Diagonal() > kOnePoint * (1 + std::abs(points.Middle()))) return points.Diagonal();
    double diagonal = 0;
    for (const Side* side : {&task.left, &task.right})
        for (const Area* area : {&side->fixed, &side->moving})
            if (area->is == Area::Is::kWithin) diagonal = std::max(diagonal, Distance(area->low, area->high));
    return diagonal > 0 ? diagonal : 1;
}

Box Looked_Over(const Task& task, const Area& area) {
    Around box;
    for (const Point point : area.points) box.Take(point);
    if (area.is == Area::Is::kWithin) {
        box.Take(area.low);
        box.Take(area.high);
    }
    if (area.is != Area::Is::kAnywhere) return {box.Low(), box.High()};
    constexpr double kSpans = 3;
    const double span = Span_Of(task);
    const double reach = std::min(kSpans * span, std::max(2 * task.longest, span));
    const Point middle = Around_Positions(task).Middle();
    return {middle - Point(reach, reach), middle + Point(reach, reach)};
}

}  // namespace verlink::design
