// Two positions, length and direction of Z and S assumed: W and U come out.
#pragma once

#include "screens/synthesis_screen.h"

namespace verlink {

class frm_Synth2B : public Two_Position_Screen {
   public:
    frm_Synth2B();

    /// Lengths of Z and S, in the record's unit: metres in the metric systems, whatever unit is shown.
    TextBox txt_Zmag{*this, "txt_Zmag"};
    TextBox txt_Smag{*this, "txt_Smag"};
    TextBox txt_Wmag{*this, "txt_Wmag"};
    TextBox txt_Umag{*this, "txt_Umag"};

    std::string Trouble_With(const design::Choices& choices) const override;

   protected:
    void Fill() override;
    bool Solve() override;
    void Void_Results() override;
    void Type_Choices(const design::Choices& choices) override;
};

}  // namespace verlink
