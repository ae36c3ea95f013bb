// Arrays with the record's own bounds; a subscript outside them is failure 9.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

#include "platform/failure.h"

namespace verlink {

/// Subscripts First to Last, both included.
template <class T, int First, int Last>
class Array {
   public:
    T& operator()(int i) { return items_[At(i)]; }
    const T& operator()(int i) const { return items_[At(i)]; }

   private:
    static std::size_t At(int i) {
        if (i < First || i > Last) platform::Raise(platform::kSubscript);
        return static_cast<std::size_t>(i - First);
    }
    std::array<T, Last - First + 1> items_{};
};

/// Rows First to Last, columns 0 to Columns - 1.
template <class T, int First, int Last, int Columns>
class Table {
   public:
    T& operator()(int row, int column) { return items_[At(row, column)]; }
    const T& operator()(int row, int column) const { return items_[At(row, column)]; }

   private:
    static std::size_t At(int row, int column) {
        if (row < First || row > Last || column < 0 || column >= Columns) platform::Raise(platform::kSubscript);
        return static_cast<std::size_t>((row - First) * Columns + column);
    }
    std::array<T, (Last - First + 1) * Columns> items_{};
};

/// The last step index that a run can have; 2881 steps is the capacity.
inline constexpr int kLastStep = 2880;

/// A result for each step 0 to 2880, with up to two further subscripts; contiguous in the step.
template <class T, int Rows = 1, int Axes = 1>
class StepArray {
   public:
    T& operator()(int step, int row = 0, int axis = 0) { return items_[At(step, row, axis)]; }
    const T& operator()(int step, int row = 0, int axis = 0) const { return items_[At(step, row, axis)]; }

    /// The elements of Count consecutive steps.
    T* Steps(int step, int Count, int row = 0, int axis = 0) {
        At(step + Count - 1, row, axis);
        return &items_[At(step, row, axis)];
    }
    /// Zeroes steps 0 to Last of one row, none for a negative Last.
    void Clear(int Last, int row = 0, int axis = 0) {
        if (Last >= 0) std::fill_n(Steps(0, Last + 1, row, axis), Last + 1, T{});
    }

   private:
    static std::size_t At(int step, int row, int axis) {
        if (static_cast<unsigned>(step) > static_cast<unsigned>(kLastStep) ||
            static_cast<unsigned>(row) >= static_cast<unsigned>(Rows) ||
            static_cast<unsigned>(axis) >= static_cast<unsigned>(Axes))
            platform::Raise(platform::kSubscript);
        return static_cast<std::size_t>((axis * Rows + row) * (kLastStep + 1) + step);
    }
    std::array<T, static_cast<std::size_t>(kLastStep + 1) * Rows * Axes> items_{};
};

}  // namespace verlink
