// Two positions, the directions of all vectors assumed: their lengths come out.
#pragma once

#include "screens/synthesis_screen.h"

namespace verlink {

class frm_Synth2A : public Two_Position_Screen {
   public:
    frm_Synth2A();
    std::string Trouble_With(const design::Choices& choices) const override;

   protected:
    bool Solve() override;
};

}  // namespace verlink
