// Plots that are no curves: bars over a scale, bars beside names, and cells in colours.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/controls.h"

namespace verlink::platform {

/// How often values fall between bounds at equal distances, and lines at some of them.
class Histogram : public Visual {
   public:
    struct Line {
        double at = 0;
        std::string name;  ///< stands at its head
        bool faint = false;
        bool operator==(const Line&) const = default;
    };
    struct Content {
        std::string title;  ///< of the scale, with its unit
        double from = 0, to = 1;
        std::vector<double> counts;  ///< by bin
        std::vector<Line> lines;
        bool operator==(const Content&) const = default;
    };

    Histogram(Screen& owner, std::string name, int index = kNoIndex) : Visual(owner, std::move(name), index) {}
    Property<Content> Shown{*this, {}};
    /// The hand has clicked upon a value of the scale.
    std::function<void(double value)> OnPick;
};

/// A bar for each name, in parts of the longest, with words behind it.
class Bars : public Visual {
   public:
    struct Bar {
        std::string name;
        double length = 0;  ///< 0 to 1; not a number for none
        std::string words;
        bool operator==(const Bar&) const = default;
    };
    struct Content {
        std::string title;
        std::vector<Bar> bars;
        bool operator==(const Content&) const = default;
    };

    Bars(Screen& owner, std::string name, int index = kNoIndex) : Visual(owner, std::move(name), index) {}
    Property<Content> Shown{*this, {}};
};

/// Values over a grid of two others, each a cell in a colour, with a legend.
class Color_Map : public Visual {
   public:
    struct Axis {
        std::string title;  ///< with its unit
        double from = 0, to = 1;
        int count = 0;
        double At(int place) const { return count < 2 ? from : from + (to - from) * place / (count - 1); }
        bool operator==(const Axis&) const = default;
    };
    struct Content {
        Axis across, up;
        std::string title;           ///< of the values, with their unit
        std::vector<double> values;  ///< those over the first place across, from the lowest up; not a number for none
        bool operator==(const Content&) const = default;
    };
    struct Cell {
        int across = -1, up = -1;  ///< from 0; none below
        bool operator==(const Cell&) const = default;
    };

    Color_Map(Screen& owner, std::string name, int index = kNoIndex) : Visual(owner, std::move(name), index) {}

    /// Watchers are told once for all of it.
    void Show(Content content) {
        shown_ = std::move(content);
        Notify();
    }
    const Content& Shown() const { return shown_; }
    Property<Cell> Picked{*this, {}};
    /// The hand has clicked upon a cell, or moved to one by the arrow keys.
    std::function<void(Cell)> OnPick;

   private:
    Content shown_;
};

}  // namespace verlink::platform
