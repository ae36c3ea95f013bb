// A design drawn at a position of its run, with the clouds of its coupler point.
#pragma once

#include <optional>
#include <vector>

#include "core/joints.h"
#include "platform/surface.h"
#include "study/aside.h"

namespace verlink::study {

/// Where the joints of a design are, in the global frame and the shown unit.
class Mechanism {
   public:
    /// Solves the whole run.
    explicit Mechanism(Design design);

    int Last() const { return static_cast<int>(poses_.size()) - 1; }
    /// Nothing where the step does not close.
    const std::optional<Joints>& At(int step) const { return poses_.at(static_cast<std::size_t>(step)); }
    /// Degrees, global.
    double Crank(int step) const { return crank_.at(static_cast<std::size_t>(step)); }
    bool Closes() const;

   private:
    std::vector<std::optional<Joints>> poses_;
    std::vector<double> crank_;
};

/// The window that shows all of a run: a square with a margin, the greater y at the top.
struct Window {
    Spot low{-1, -1}, high{1, 1};
    double Side() const { return high.real() - low.real(); }
};
Window Window_Of(const Mechanism& mechanism);

/// The coupler curve and the links at a step; `ghost` where something else stands before it.
void Draw_Mechanism(platform::Surface& surface, const Mechanism& mechanism, int step, const Window& window,
                    bool ghost = false);

/// How many times larger deviations are drawn: 1, 2 or 5 times a power of ten, so that the farthest of the cloud is
/// seen well; no smaller than they are.
double Enlargement(const std::vector<Cloud_Point>& cloud, Spot nominal, const Window& window);

/// A dot for each, its deviation from `nominal` so many times as large; the linkage `picked` has a ring.
void Draw_Cloud(platform::Surface& surface, const std::vector<Cloud_Point>& cloud, Spot nominal, double enlarged,
                std::optional<Number> picked, const Window& window);
/// Of the cloud as it is drawn, the nearest to a place.
std::optional<Number> Nearest_In(const std::vector<Cloud_Point>& cloud, Spot nominal, double enlarged, Spot place);

}  // namespace verlink::study
