// The roads by which a linkage comes in, and what each of them leaves of what was.
#include "core/linkage_door.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "core/classification.h"
#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/results.h"

namespace verlink {

namespace {

enum class Past { kStays, kFalls };
enum class Cognates { kFollow, kFollowFirst, kStay };
/// The class of a linkage is found from its lengths, or comes with it.
enum class Class { kFound, kGiven };

struct Row {
    Road road;
    Leading leading;
    Past disk;         ///< the model came from a file
    Past drive;        ///< it is driven by imported data
    Past synthesized;  ///< its lengths came from synthesis
    Cognates cognates;
    bool if_changed;  ///< nothing but the linkage comes in; what was known of it falls only where it is another
    Class code;
};

// clang-format off
constexpr Row kRows[] = {
//   road              link 1 by           from disk      driven         synthesized    cognates               if changed  class
    {Road::kBoxes,     Leading::kInForce,  Past::kStays,  Past::kStays,  Past::kStays,  Cognates::kFollowFirst, true,       Class::kFound},
    {Road::kDrag,      Leading::kInForce,  Past::kStays,  Past::kStays,  Past::kStays,  Cognates::kFollow,      true,       Class::kFound},
    {Road::kFile,      Leading::kBoth,     Past::kStays,  Past::kStays,  Past::kStays,  Cognates::kFollow,      false,      Class::kGiven},
    {Road::kExample,   Leading::kPolar,    Past::kFalls,  Past::kFalls,  Past::kFalls,  Cognates::kFollow,      false,      Class::kGiven},
    {Road::kImport,    Leading::kBoth,     Past::kStays,  Past::kStays,  Past::kFalls,  Cognates::kFollowFirst, false,      Class::kFound},
    {Road::kSynthesis, Leading::kPolar,    Past::kFalls,  Past::kFalls,  Past::kStays,  Cognates::kFollow,      false,      Class::kFound},
    {Road::kCognate,   Leading::kPolar,    Past::kStays,  Past::kStays,  Past::kFalls,  Cognates::kStay,        false,      Class::kFound},
    {Road::kUnits,     Leading::kInForce,  Past::kStays,  Past::kStays,  Past::kStays,  Cognates::kStay,        false,      Class::kFound},
    {Road::kNew,       Leading::kPolar,    Past::kFalls,  Past::kFalls,  Past::kFalls,  Cognates::kFollow,      false,      Class::kGiven},
};
// clang-format on

const Row& Row_Of(Road road) {
    return *std::find_if(std::begin(kRows), std::end(kRows), [road](const Row& row) { return row.road == road; });
}

bool Same_Linkage(const Geometry& a, const Geometry& b) {
    for (const auto field : {&Geometry::L1, &Geometry::L2, &Geometry::L3, &Geometry::L4, &Geometry::Rpa,
                             &Geometry::Delta, &Geometry::Link1X, &Geometry::Link1Y, &Geometry::Link1Angle})
        if (a.*field != b.*field) return false;
    return true;
}

/// What the digits of a file may change of an angle.
constexpr double kDigits = 2e-6;

/// Whether the two forms of link 1 are the same place but for roundings: of lengths, and of an angle of many turns.
bool Forms_Agree() {
    constexpr double kPrecision = 1e-4;
    const double angle = Model.Link1Angle * kDegToRad;
    const double slack = (kPrecision + kDigits * std::fabs(angle)) * std::max(std::fabs(Model.L1), 1e-6);
    return std::fabs(Model.L1 * std::cos(angle) - Model.Link1X) <= slack &&
           std::fabs(Model.L1 * std::sin(angle) - Model.Link1Y) <= slack;
}

/// Whether the angle of link 1 is the same in degrees and in radians but for the digits of a file.
bool Angles_Agree() {
    const double radians = Model.Link1Angle * kDegToRad;
    return std::fabs(Model.Link1AngleRad - radians) <= kDigits * std::fabs(radians);
}

/// A place of O4 whose length no single holds is a failure here; further on it would be reported and passed over.
void Check_Reach() { [[maybe_unused]] const Single length = std::hypot(Model.Link1X, Model.Link1Y); }

void Derive_Ground(Leading leading) {
    if (leading != Leading::kPolar) Check_Reach();
    if (leading == Leading::kBoth && Forms_Agree()) {
        if (!Angles_Agree()) Model.Link1AngleRad = Model.Link1Angle * kDegToRad;
    } else if (leading == Leading::kPolar || Model.PolarCoords) {
        Model.Link1AngleRad = Model.Link1Angle * kDegToRad;
        Model.Link1X = Model.L1 * std::cos(Model.Link1AngleRad);
        Model.Link1Y = Model.L1 * std::sin(Model.Link1AngleRad);
    } else {
        Cart_to_Polar(Model.Link1X, Model.Link1Y, Model.L1, Model.Link1Angle);
        Model.Link1AngleRad = Model.Link1Angle * kDegToRad;
    }
    Rotate(Model.Link1X, Model.Link1Y, Model.Link1Angle, -1, Model.Link1LocalX, Model.Link1LocalY);
}

/// The record of before, unless the new linkage has come in whole.
class Way_Back {
   public:
    explicit Way_Back(bool linkage_alone) {
        if (!linkage_alone) record_ = std::make_unique<LinkageModel>(Model);
    }
    ~Way_Back() {
        if (whole_) return;
        if (record_) Model = *record_;
        static_cast<Geometry&>(Model) = linkage_;
    }
    Way_Back(const Way_Back&) = delete;
    Way_Back& operator=(const Way_Back&) = delete;
    void Close() { whole_ = true; }
    /// The linkage is the one of before, and so to the last digit of what follows from it.
    void Keep_Same() const {
        Geometry& now = Model;
        const bool polar = now.PolarCoords;
        now = linkage_;
        now.PolarCoords = polar;
    }
    const Geometry& Linkage() const { return linkage_; }

   private:
    Geometry linkage_ = Model;
    std::unique_ptr<const LinkageModel> record_;
    bool whole_ = false;
};

void Release_Drive() {
    Model.CamDriven = false;
    Model.LinkDriven = false;
    if (Model.Imported()) Model.Calctype = run::kByAngle;
}

}  // namespace

void Derive_Linkage(Leading leading) {
    Derive_Ground(leading);
    Set_Delta(Model.Delta, Model.DeltaRad, Model.DeltaStr);
    Set_Circuit(Model.CircuitIndex == 1 ? 1 : 2, Model.CircuitSign, Model.CircuitName);
    LoadLinkArray();
    Model.Parallelogram = Model.L2 == Model.L4 && Model.L3 == Model.L1;
}

void Enter_Linkage(Road road, const std::function<void()>& fill) {
    const Row& row = Row_Of(road);
    Way_Back way_back(row.if_changed);
    const Integer circuit = Model.CircuitSign;
    fill();
    Derive_Linkage(row.leading);
    way_back.Close();
    if (!Same_Linkage(way_back.Linkage(), Model) || circuit != Model.CircuitSign || !row.if_changed) {
        Run_Dropped();
        Model_Unsaved();
        if (row.cognates == Cognates::kFollow || (row.cognates == Cognates::kFollowFirst && !Model.CognateEdit)) {
            Model.CognatesDue = true;
            Model.CognateNumber = 1;
            Model.CognateEdit = false;
        }
        if (row.code == Class::kFound) Classify_Linkage();
    } else {
        way_back.Keep_Same();
    }
    if (row.disk == Past::kFalls) Model.DiskFile = false;
    if (row.drive == Past::kFalls) Release_Drive();
    if (row.synthesized == Past::kFalls) Model.Synthesized = false;
}

}  // namespace verlink
