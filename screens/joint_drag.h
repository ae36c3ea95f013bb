// What of a linkage follows a hand that has taken one of its joints.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "core/record/geometry.h"
#include "platform/clip.h"

namespace verlink {

struct LinkageModel;

/// The moving joints, the coupler point and the ground pivot that can be moved.
enum class Joint { kA, kB, kP, kO4 };
inline constexpr Joint kJoints[] = {Joint::kA, Joint::kB, Joint::kP, Joint::kO4};

/// Where a joint lies at a step of the run that stands: global frame, y upward, shown unit. None at a position that
/// does not close.
std::optional<platform::Point> Place_Of(Joint joint, const LinkageModel& model, int step);

/// What a hand asks for.
struct Pull {
    Joint joint = Joint::kP;
    bool coupler = false;            ///< B changes the length of the coupler instead of the rocker's
    platform::Point to{};            ///< global frame, shown unit
    int step = 0;                    ///< the position in the picture, which closes
    double fine = 1e-3;              ///< a length that is nothing to the eye, shown unit
    double round = 0;                ///< lengths become whole multiples of it, and angles whole degrees; 0 for neither
    std::function<bool(int)> holds;  ///< whether the box of `txt_Linkout` with that index keeps its value; may be null
};

/// What the linkage does.
struct Followed {
    struct Value {
        int box;  ///< index of `txt_Linkout`
        double value;
        int decimals;  ///< that say it finely enough
    };
    std::vector<Value> values;  ///< that become others; shown unit, degrees
    int step = 0;               ///< the position that is to be shown then
    /// The linkage that was asked for, stored units, where it does not close at that step, or closes on the other
    /// circuit: nothing follows then.
    std::optional<Geometry> refused;
};

/// The linkage whose joint lies at `to` or, as far as it cannot lie there, as near as it can: P by its distance and
/// angle from the coupler; A on the ray of the position of the run that points nearest to it; B on its circle around
/// A (around O4 with `coupler`); O4 by the form of link 1 in force. Angles stay next to what they were.
Followed Follow(const Pull& pull, const LinkageModel& model);

/// How many decimals of a value make what they leave over nothing to the eye, as `fine` is; at least `least`.
int Decimals_For(double fine, int least = 3);

/// The least of 1, 2 and 5 times a power of ten that is no less than a positive value.
double Round_Up_1_2_5(double value);

}  // namespace verlink
