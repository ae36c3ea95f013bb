// Every length of a task times one factor.
#include "design/task_units.h"

#include <string_view>

#include "dynamics/shown_length.h"
#include "dynamics/typed_units.h"

namespace verlink::design {

namespace {

/// A shown unit of one system in those of another.
double Unit_In(int units, int others) {
    for (const TypedUnit& unit : Typed_Units(Quantity::kLength, others))
        if (std::string_view(unit.name) == Shown_Length(units).unit) return unit.factor;
    return 1;
}

}  // namespace

Task In_Units(const Task& task, int units) {
    const double factor = Unit_In(task.units, units);
    Task other = task;
    other.units = units;
    for (Place& place : other.positions) place.at *= factor;
    for (Side* side : {&other.left, &other.right})
        for (Area* area : {&side->fixed, &side->moving}) {
            area->low *= factor;
            area->high *= factor;
            for (Point& point : area->points) point *= factor;
        }
    other.shortest *= factor;
    other.longest *= factor;
    return other;
}

}  // namespace verlink::design
