// A plot that is drawn as a picture, and what is to be read off it.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/controls.h"

namespace verlink::platform {

/// The points of what is drawn, with the words for each.
struct Plot_Reading {
    /// What one of the values at each point is called.
    struct Value {
        std::string name, unit;
        std::vector<double> at;  ///< by point
    };
    std::string across;               ///< what the labels tell: "Crank Angle (Deg)"
    std::vector<std::string> labels;  ///< by point
    std::vector<Value> values;
    std::vector<double> x, y;  ///< where each point is drawn, world
    Color color = 0;           ///< of the curve
    bool polar = false;        ///< vectors from the origin: the point next to the pointer is read, not that above it

    bool Empty() const { return labels.empty(); }
};

/// The hand enlarges a part of it, reads it, and shows all again.
class PlotBox : public PictureBox {
   public:
    using PictureBox::PictureBox;
    const Plot_Reading& Reading() const { return reading_; }
    void Read(Plot_Reading reading) {
        reading_ = std::move(reading);
        Notify();
    }

   private:
    Plot_Reading reading_;
};

}  // namespace verlink::platform
