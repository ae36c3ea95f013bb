// What a study asks of a linkage: one number of its run.
#pragma once

#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "output/reading.h"
#include "output/series.h"
#include "study/design.h"
#include "study/motion.h"

namespace verlink::study {

/// A number that a linkage does not have: none of its positions closes, or none has forces.
inline constexpr float kNone = std::numeric_limits<float>::quiet_NaN();
inline bool Is_None(float value) { return value != value; }

enum class Statistic { kMin, kMax, kMean, kRms, kRange, kAt, kDeviation, kLine, kCloses };

/// Over the positions of the run that close, in the unit that tables have the variable in.
struct Measure {
    std::string words;  ///< as it was asked for
    Statistic statistic = Statistic::kCloses;
    double angle = 0;          ///< of `kAt`: crank angle, global, degrees
    Output_Function function;  ///< none for the last three statistics
    Variable_Facts facts{};    ///< of its variable
    int component = 0;         ///< 0 X, 1 Y, 2 magnitude, 3 angle
    Wanted wanted = Wanted::kAngles;
};

/// Reads "max Torque 12", "rms Accel CP:Mag", "at 90 Theta4", "deviation", "deviation line", "closes". Vectors without
/// a component give X; `local` is the frame of those that can be taken in either. Nothing, and the fault in words, for
/// anything else.
std::optional<Measure> Measure_Of(const std::string& text, bool local, std::string& fault);

/// A measure and a bound; linkages beyond it are left out, and so are those that have no such number.
struct Keep {
    Measure measure;
    enum class Order { kLess, kAtMost, kMore, kAtLeast } order = Order::kMore;
    double bound = 0;

    bool Holds(float value) const;
};
/// Reads "min Trans Ang > 40", with <, <=, > or >=.
std::optional<Keep> Keep_Of(const std::string& text, bool local, std::string& fault);

/// A path of the coupler point, global frame, shown unit; where a step does not close there is no place.
struct Path {
    std::vector<double> x, y;
    std::vector<bool> closed;
};
Path Path_Of(const Motion& motion, const Design& design);

/// Takes measures of one motion after the other.
class Meter {
   public:
    /// `nominal` is the path that "deviation" is from.
    explicit Meter(Path nominal = {}) : nominal_(std::move(nominal)) {}

    /// `further` is the place of the measure's angle among those of the motion. The greatest distance of the coupler
    /// point from where the nominal linkage has it at the same step, or from the straight line that is nearest to its
    /// places by least squares; the share of positions that close; the mean and the root of the mean square weigh all
    /// positions alike. In single precision, from sums in double in the order of the steps.
    float Take(const Measure& measure, const Motion& motion, const Design& design, int further);

   private:
    void Read(const Measure& measure, const Motion& motion, const Design& design, int first, int last);
    float Deviation(const Motion& motion, const Design& design);
    float From_Line(const Motion& motion, const Design& design);

    Path nominal_;
    std::vector<float> values_;
};

}  // namespace verlink::study
