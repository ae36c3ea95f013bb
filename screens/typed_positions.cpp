// What is typed replaces positions; the rest of the task stays.
#include "screens/typed_positions.h"

#include <algorithm>
#include <cmath>

#include "core/linkage_model.h"
#include "design/task_units.h"

namespace verlink {

namespace {

using design::Area;
using design::Place;
using design::Point;
using design::Task;

constexpr double kSingle = 1e-6;

bool Same(double a, double b, double measure) { return std::abs(a - b) <= kSingle * measure; }
bool Same(Point a, Point b, double measure) {
    return Same(a.real(), b.real(), measure) && Same(a.imag(), b.imag(), measure);
}

bool Is_At(const Area& area, Point point, double measure) {
    return area.is == Area::Is::kPoints && area.points.size() == 1 && Same(area.points[0], point, measure);
}

Area At(Point point) {
    Area area;
    area.is = Area::Is::kPoints;
    area.points = {point};
    return area;
}

bool Has(const Task& task, const Typed_Positions& typed) {
    const std::vector<Place> places = design::Absolute_Positions(task);
    if (places.size() != typed.moved.size() + 1) return false;
    double measure = std::abs(places[0].at);
    for (const Place& place : typed.moved) measure = std::max(measure, std::abs(place.at));
    for (std::size_t i = 1; i < places.size(); ++i) {
        const Place& moved = typed.moved[i - 1];
        const double turned = places[i].angle - places[0].angle;
        if (!Same(places[i].at - places[0].at, moved.at, measure)) return false;
        if (!Same(turned, moved.angle, std::abs(moved.angle) + 1)) return false;
    }
    if (!typed.pivots) return true;
    const Point O2 = typed.pivots->O2, O4 = typed.pivots->O4, P1 = typed.pivots->P1;
    measure = std::max({measure, std::abs(O2), std::abs(O4)});
    // The right side may have the crank, which these screens have at the left.
    const auto at = [&](Point left, Point right) {
        return Is_At(task.left.fixed, left, measure) && Is_At(task.right.fixed, right, measure);
    };
    return (at(O2, O4) || at(O4, O2)) && Same(places[0].at, P1, measure);
}

}  // namespace

Task Task_In_Hand(const LinkageModel& model) {
    Task task;
    std::string fault;
    if (model.DesignTask.empty() || !design::Read_Task(model.DesignTask, task, fault)) {
        task = {};
        task.positions.resize(1);
    }
    return design::In_Units(task, model.Units);
}

std::optional<Task> With_Positions(const Task& task, const Typed_Positions& typed) {
    if (Has(task, typed)) return {};
    Task other = task;
    other.relative = true;
    other.positions = {task.positions.front()};
    other.positions.insert(other.positions.end(), typed.moved.begin(), typed.moved.end());
    if (typed.pivots) {
        other.positions[0].at = typed.pivots->P1;
        other.left.fixed = At(typed.pivots->O2);
        other.right.fixed = At(typed.pivots->O4);
    }
    return other;
}

}  // namespace verlink
