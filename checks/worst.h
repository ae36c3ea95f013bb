// The worst of many comparisons.
#pragma once

#include <string>

#include "checks/check.h"

namespace verlink {
struct LinkageModel;
}

namespace verlink::checks {

/// Where the record has the unit of forces among its labels.
inline constexpr int kForceLabel = 10;

/// Departures of a check, each beside what is expected there.
class Worst {
   public:
    explicit Worst(std::string name, std::string unit) : name_(std::move(name)), unit_(std::move(unit)) {}

    /// `expected` is to first order; four times as much is allowed, and told. `place` tells what of the step. What is
    /// not a number fails; where nothing can be expected, it does not count.
    void Add(double departure, double expected, int step, const char* place);
    /// The same where the program is known to depart by `design` more.
    void Add_By_Design(double departure, double expected, double design, int step, const char* place);

    bool Any() const { return any_; }
    bool Fails() const { return most_beyond_.ratio > 1; }
    /// The step of what is told is in the words of `where` of the caller.
    Check Told(const LinkageModel& model, std::string meaning, const std::string& design = "") const;

   private:
    struct Found {
        double departure = 0, expected = 0;
        int step = -1;
        const char* place = "";
        double ratio = -1;
    };
    void Take(Found found);

    std::string name_, unit_;
    Found largest_, most_beyond_, design_;
    bool any_ = false;
};

/// Crank and step in words: "step 12, 105 deg".
std::string Place_Of(const LinkageModel& model, int step);

}  // namespace verlink::checks
