// A measure of a study, picked by lists or written in words; with a bound for those that linkages are kept by.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "core/record/units.h"
#include "platform/screen.h"

namespace verlink {

/// Lists and words say the same: what is picked makes the words anew, what is written fills the lists. Words that name
/// no measure stand as they were written, beside empty lists.
class Measure_Choice {
   public:
    enum class Kind { kMeasure, kBound };
    /// `bound` wants <, <=, > or >= and a number behind, and may be empty.
    Measure_Choice(platform::Screen& owner, int index, Kind kind, const UnitSystem& units);

    platform::ComboBox cmb_Statistic;
    platform::TextBox txt_Angle;
    platform::ComboBox cmb_Variable, cmb_Component;
    std::unique_ptr<platform::ComboBox> cmb_Order;
    std::unique_ptr<platform::TextBox> txt_Bound;
    platform::TextBox txt_Words;

    void Show(const std::string& words);
    void Enable(bool enabled);
    /// The words have become others by a hand.
    std::function<void(const std::string& words)> OnChoose;

   private:
    void Fill_Lists();
    void Write_Tips();
    void Bind(const UnitSystem& units);
    void Picked();
    void Written();
    std::string Words() const;

    bool filling_ = false;
    std::string words_;   ///< as shown last
    std::string picked_;  ///< what the lists said then
};

}  // namespace verlink
