// A linkage as a study moves it: slices of a record's kind, free of the record, one for each thread.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "core/position.h"
#include "core/record/drive.h"
#include "core/record/geometry.h"
#include "core/record/mass.h"
#include "dynamics/typed_units.h"

namespace verlink {
struct LinkageModel;
}

namespace verlink::study {

/// Units and frames of all values are those of the slices.
struct Design : Geometry, Drive, MassProperties {
    double shown = 1;           ///< the factor between a stored length and a shown one
    Wrap wrap = Wrap::kNone;    ///< how stored angles are wrapped
    bool torque_table = false;  ///< whether the torque on link 4 is a table, which a study has not

    /// What follows from the values that may be moved, to the bits that the record has: link 1 from the form of it in
    /// force, radians, components of loads. False for lengths that close nowhere, negative ones among them. Failure 6
    /// for a number that no single holds.
    bool Derive();
};

/// `NSteps` of a run by angle or by time from its limits, as the input screen takes it. Empty, or why not.
std::string Take_Limits(Drive& drive);

/// The step at which a run ends.
inline int Last_Step(const Drive& d) { return d.Calctype == run::kOnePosition ? 0 : int{d.NSteps}; }

/// All that a study's numbers depend on of a design, line by line.
std::string Key_Of(Design design);

/// The linkage, drive and loads of a model whose limits are read; the model is not needed any more.
Design Design_Of(const LinkageModel& model);

/// A value that a study can move.
struct Field {
    const char* name;  ///< as in the model file
    int stream;        ///< of random numbers: its line in that file
    Quantity kept;     ///< what its number is of, in the unit that the file has it in
    Single& (*place)(Design& design);
};
std::span<const Field> Fields();
/// Where a design has one of `Fields`, by its number there.
inline Single& Place(int field, Design& design) { return Fields()[static_cast<std::size_t>(field)].place(design); }
/// Angles are degrees but for these.
bool Kept_In_Radians(const Field& field);

/// The place of a field among `Fields`. Nothing, and the fault in words, for a name that there is not and for one
/// that moves nothing in this design: of the two forms of link 1 that which follows, the acceleration and the first
/// angle of a run by angle.
std::optional<int> Field_Named(const std::string& name, const Design& design, std::string& fault);

}  // namespace verlink::study
